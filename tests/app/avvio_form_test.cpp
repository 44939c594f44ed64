// Start and end of the program: the splash, what the form finds and leaves in its folder, the
// names and looks of its controls.
#include <QMenuBar>

#include "app/frmsplash.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "support/programma.h"

using support::Icona;
using support::Mostrato;
using support::Programma;
using support::Pulsanti;

namespace {

QColor bgr(int valore) {
    return {valore & 0xFF, (valore >> 8) & 0xFF, (valore >> 16) & 0xFF};
}

/// The splash over a form that is not loaded yet.
struct Partenza {
    Partenza() {
        support::metti_archivio(cartella.radice(), support::archivio_di_prova());
        splash = new app::frmSplash(
            [this] {
                attesa = platform::MousePointer();
                act_al_carico = cartella.esiste("act");
                form1.Form_Load();
            },
            [this] { form1.show(); });
        splash->show();
        QApplication::processEvents();
    }
    ~Partenza() {
        delete splash;
        form1.close();
    }
    Partenza(const Partenza&) = delete;
    Partenza& operator=(const Partenza&) = delete;
    /// One tick of the timer.
    void battito() { QMetaObject::invokeMethod(splash->Timer1, "timeout", Qt::DirectConnection); }
    [[nodiscard]] bool splash_sparito() const { return splash.isNull() || !splash->isVisible(); }

    support::Cartella cartella;
    support::DialoghiSpia dialoghi;
    app::Form1 form1{dialoghi};
    QPointer<app::frmSplash> splash;
    int attesa = -1;
    bool act_al_carico = false;
};

}  // namespace

TEST(Splash, LeSueImmaginiDiconoACheServeUnClic) {
    const Partenza p;
    for (const platform::Image* i : {p.splash->Image1_0, p.splash->Image1_1}) {
        EXPECT_EQ(i->toolTip(), "Avvia Tabellino");
        EXPECT_EQ(i->accessibleName(), i->toolTip());
    }
    EXPECT_EQ(p.form1.UpDown2->toolTip(), "Numero di quote");
}

TEST(Splash, MostraLaVersioneENascondeStart) {
    const std::array<int, 3> prima = {platform::App().Major, platform::App().Minor,
                                      platform::App().Revision};
    platform::App().Major = 3;
    platform::App().Minor = 14;
    platform::App().Revision = 15;
    {
        Partenza p;
        EXPECT_EQ(p.splash->lblVersion->text(), "Versione 3.14.15");
        EXPECT_EQ(p.splash->Command1->text(), "Start");
        EXPECT_FALSE(p.splash->Command1->isVisible());
        EXPECT_EQ(p.splash->Timer1->interval(), 500);
        EXPECT_TRUE(p.splash->Timer1->isActive());
        EXPECT_FALSE(p.form1.isVisible());
        for (const char* nome : {"lblVersion", "Command1", "Image1(0)", "Timer1"}) {
            EXPECT_NE(p.splash->findChild<QObject*>(nome), nullptr) << nome;
        }
    }
    platform::App().Major = prima[0];
    platform::App().Minor = prima[1];
    platform::App().Revision = prima[2];
}

TEST(Splash, AlDecimoBattitoApreLaFinestra) {
    Partenza p;
    bool visibile = p.splash->Image1_0->isVisible();
    for (int i = 1; i <= 9; ++i) {
        p.battito();
        EXPECT_NE(p.splash->Image1_0->isVisible(), visibile) << i;
        visibile = !visibile;
        EXPECT_FALSE(p.form1.isVisible());
        EXPECT_FALSE(p.cartella.esiste("act"));
    }
    p.battito();
    EXPECT_TRUE(p.form1.isVisible());
    EXPECT_TRUE(p.splash_sparito());
    EXPECT_TRUE(p.cartella.esiste("act"));
    EXPECT_EQ(p.cartella.leggi("act"), "");
    EXPECT_TRUE(p.act_al_carico);
    EXPECT_EQ(p.attesa, 11);
    EXPECT_EQ(platform::MousePointer(), 0);
}

TEST(Splash, UnClicApreSubitoEAllUscitaActSparisce) {
    for (const int quale : {0, 1}) {
        Partenza p;
        Programma::clic(quale == 0 ? p.splash->Image1_0 : p.splash->Image1_1);
        EXPECT_TRUE(p.form1.isVisible());
        EXPECT_TRUE(p.splash_sparito());
        EXPECT_TRUE(p.cartella.esiste("act"));
        Programma::voce(p.form1.mnuEsci);
        EXPECT_FALSE(p.form1.isVisible());
        EXPECT_FALSE(p.cartella.esiste("act"));
    }
}

TEST(Splash, UnClicSulleScritteColpisceLImmagine) {
    Partenza p;
    for (const QLabel* scritta : p.splash->findChildren<QLabel*>()) {
        const QPoint dove = scritta->geometry().center();
        EXPECT_EQ(p.splash->childAt(dove), p.splash->Image1_1) << scritta->text().toStdString();
    }
}

TEST(Splash, HaLaTastieraComeOgniFinestra) {
    const Partenza p;
    EXPECT_EQ(p.splash->windowType(), Qt::Window);
    EXPECT_TRUE(p.splash->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_TRUE(p.splash->isActiveWindow());
}

TEST(Splash, UnTastoApreSenzaMaiScrivereAct) {
    Partenza p;
    QTest::keyClick(p.splash, Qt::Key_A);
    EXPECT_TRUE(p.form1.isVisible());
    EXPECT_TRUE(p.splash_sparito());
    EXPECT_FALSE(p.act_al_carico);
    EXPECT_FALSE(p.cartella.esiste("act"));
    EXPECT_EQ(p.form1.MSFlexGrid1->Cols(), 6);
    p.form1.close();
    EXPECT_FALSE(p.cartella.esiste("act"));
}

TEST(Splash, UnTastoTenutoPerUnAltroNonApreNulla) {
    Partenza p;
    for (const auto tasto : {Qt::Key_Alt, Qt::Key_Control, Qt::Key_Shift, Qt::Key_CapsLock}) {
        QKeyEvent giu(QEvent::KeyPress, tasto, Qt::NoModifier);
        QApplication::sendEvent(p.splash, &giu);
        EXPECT_FALSE(p.form1.isVisible());
        EXPECT_FALSE(p.splash_sparito());
    }
}

TEST(Avvio, SistemaVuotoSeiPerSeiSalvato) {
    Programma p;
    EXPECT_TRUE(p.form1.sessione.salvato());
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_EQ(p.form1.lblsistema->text(), "");
    EXPECT_EQ(p.form1.lblngioco->text(), "");
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 0);
    EXPECT_EQ(p.form1.focusWidget(), p.form1.MSFlexGrid1);
    EXPECT_EQ(p.form1.Combo6->ListIndex(), 0);
    EXPECT_EQ(platform::Tag(p.form1.List1), "0");
    EXPECT_FALSE(p.form1.ProgressBar1->isVisible());
    EXPECT_TRUE(p.form1.updatesEnabled());
}

TEST(Avvio, SenzaRipDatSenzaRipetizioni) {
    Programma p;
    EXPECT_TRUE(p.form1.mnuRipetizioniSenza->isChecked());
    EXPECT_FALSE(p.form1.mnuRipetizioniCon->isChecked());
}

TEST(Avvio, ConRipDatConRipetizioni) {
    Programma p(false, [](const support::Cartella& c) { c.scrivi("rip.dat", ""); });
    EXPECT_TRUE(p.form1.mnuRipetizioniCon->isChecked());
    EXPECT_FALSE(p.form1.mnuRipetizioniSenza->isChecked());
    EXPECT_TRUE(p.cartella.esiste("rip.dat"));
}

TEST(Avvio, TogliIFileDalNomeVuoto) {
    Programma p(false, [](const support::Cartella& c) {
        for (const char* nome : {".sen", ".col", "a.sen", "a.col"}) c.scrivi(nome, "x");
    });
    EXPECT_FALSE(p.cartella.esiste(".sen"));
    EXPECT_FALSE(p.cartella.esiste(".col"));
    EXPECT_TRUE(p.cartella.esiste("a.sen"));
    EXPECT_TRUE(p.cartella.esiste("a.col"));
}

TEST(Avvio, SenzaPelleOConUnaRottaSiApre) {
    Programma p(false, [](const support::Cartella& c) {
        std::ofstream(c.radice() + "/skin/skn.dat") << "999999 non un numero";
    });
    EXPECT_TRUE(p.form1.isVisible());
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(Fine, LaCasellaDiChiusuraTogliAct) {
    Programma p;
    p.cartella.scrivi("act", "");
    p.form1.close();
    EXPECT_FALSE(p.cartella.esiste("act"));
}

TEST(Nomi, OgniControlloSiTrovaColSuoNome) {
    Programma p;
    EXPECT_EQ(p.form1.objectName(), "Form1");
    QStringList nomi{"Picture2",
                     "Frame1",
                     "Frame2",
                     "Frame3",
                     "Frame4",
                     "Frame6",
                     "Frame7",
                     "Frame8",
                     "Frame9",
                     "Frame10",
                     "MSFlexGrid1",
                     "MSFlexGrid2",
                     "Combo1",
                     "Combo2",
                     "Combo3",
                     "Combo4",
                     "Combo5",
                     "Combo6",
                     "List1",
                     "Image7",
                     "Image8",
                     "Image9",
                     "Image10",
                     "lblsistema",
                     "lblngioco",
                     "lblimportotot",
                     "lblnumquote",
                     "lblquote",
                     "lblvaluta(0)",
                     "lblvaluta(1)",
                     "UpDown2",
                     "ProgressBar1",
                     "cmdstat",
                     "mnufile",
                     "mnunuovo",
                     "mnuapri",
                     "mnusalva",
                     "mnusalvanome",
                     "mnuopzElaborazione",
                     "mnuRipetizioniSenza",
                     "mnuRipetizioniCon",
                     "mnuEsci",
                     "mnuutility",
                     "mnugest_sist",
                     "mnuImportocolonna",
                     "mnuguida",
                     "mnuaiuto",
                     "mnuweb",
                     "mnuinfo"};
    for (int i = 0; i <= 8; ++i) nomi << QString("Image3(%1)").arg(i);
    for (int i = 0; i <= 2; ++i)
        nomi << QString("Imageb(%1)").arg(i) << QString("Imagey(%1)").arg(i);
    for (int i = 0; i <= 90; ++i) nomi << QString("CMDnum(%1)").arg(i);
    for (const QString& nome : nomi) {
        EXPECT_NE(p.form1.findChild<QObject*>(nome), nullptr) << nome.toStdString();
    }
}

TEST(Nomi, OgnunoNelSuoRiquadro) {
    Programma p;
    const app::Form1& f = p.form1;
    for (const platform::Image* i : f.Image3) EXPECT_EQ(i->parent(), f.Picture2);
    EXPECT_EQ(f.MSFlexGrid1->parent(), f.Frame1);
    EXPECT_EQ(f.MSFlexGrid2->parent(), f.Frame2);
    EXPECT_EQ(f.lblsistema->parent(), f.Frame2);
    for (const QWidget* c : {f.Combo3, f.Combo4, f.Combo5}) EXPECT_EQ(c->parent(), f.Frame2);
    for (const QWidget* c : {f.Combo1, f.Combo2}) EXPECT_EQ(c->parent(), f.Frame4);
    for (const QWidget* i : {f.Image7, f.Image8, f.Image9, f.Image10}) {
        EXPECT_EQ(i->parent(), f.Frame9);
    }
    for (const QWidget* i : f.Imageb) EXPECT_EQ(i->parent(), f.Frame8);
    for (const QWidget* e : {f.lblimportotot, f.lblquote, f.lblnumquote}) {
        EXPECT_EQ(e->parent(), f.Frame6);
    }
    EXPECT_EQ(f.Frame4->caption(), " Dimensioni Cruciverba");
    EXPECT_EQ(f.Frame7->caption(), "Sistema Statistico");
    EXPECT_EQ(f.Frame5->caption(), "Lista");
    QStringList testi;
    for (const QLabel* e : f.findChildren<QLabel*>()) testi << e->text();
    for (const char* testo :
         {" Sistema in linea", "Numeri  in gioco", "SuperEnalotto", "Lotto", "Colonne", "Righe"}) {
        EXPECT_TRUE(testi.contains(testo)) << testo;
    }
}

TEST(Menu, VociALettera) {
    Programma p;
    const auto testi = [](const QList<QAction*>& azioni) {
        QStringList lista;
        for (const QAction* a : azioni) {
            if (!a->isSeparator()) lista << QString(a->text()).remove('&');
        }
        return lista;
    };
    const QList<QAction*> barra = p.form1.menuBar()->actions();
    EXPECT_EQ(testi(barra), QStringList({"File", "Utility", "Guida"}));
    EXPECT_EQ(
        testi(barra[0]->menu()->actions()),
        QStringList({"Nuovo", "Apri", "Salva", "Salva con nome", "Opzioni Elaborazione", "Esci"}));
    EXPECT_EQ(testi(barra[1]->menu()->actions()),
              QStringList({"Gestione Sistemi", "Importo Colonna", "Analisi Sistema",
                           "Migliora la Disposizione", "Tabelle", "Archivio Estrazioni", "Aspetto",
                           "Mostra le linee"}));
    EXPECT_EQ(testi(barra[2]->menu()->actions()),
              QStringList({"Aiuto", "Web Site", "Informazioni"}));
    EXPECT_EQ(testi(p.form1.findChild<QMenu*>("mnuopzElaborazione")->actions()),
              QStringList(
                  {"Elabora senza Ripetizioni", "Elabora con Ripetizioni", "Tabelle Economiche"}));
}

TEST(Menu, TastiDiOgniProgramma) {
    Programma p{true};
    p.cella(0, 0);
    p.numero(5);
    // A slip of the key loses nothing.
    p.risposte = {support::vbCancel, support::vbNo};
    QTest::keyClick(&p.form1, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 5);
    QTest::keyClick(&p.form1, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    EXPECT_EQ(p.mostrati().size(), 2U);
    const int stampe = p.dialoghi.stampe;
    p.riempi();
    p.scrivi_nel_gestore("prova");
    Programma::voce(p.form1.mnusalva);
    p.form1.activateWindow();
    QApplication::processEvents();
    QTest::keyClick(&p.form1, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(p.dialoghi.stampe, stampe + 1);
    p.form1.activateWindow();
    QApplication::processEvents();
    QTest::keyClick(&p.form1, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(p.form1.isVisible());
}

TEST(Menu, LaGuidaPassaAiDialoghi) {
    Programma p;
    p.dialoghi.finti = true;
    Programma::voce(p.form1.mnuaiuto);
    Programma::voce(p.form1.mnuweb);
    Programma::voce(p.form1.mnuinfo);
    EXPECT_EQ(p.dialoghi.guide, 1);
    EXPECT_EQ(p.dialoghi.siti, 1);
    EXPECT_EQ(p.dialoghi.info, 1);
}

TEST(Comandi, StampaSenzaSistemaInLineaLoDice) {
    Programma p;
    p.dialoghi.finti = true;
    p.comando(7);
    EXPECT_EQ(p.mostrati(), (std::vector<Mostrato>{{"Nessun sistema in linea.", "Tabellino",
                                                    Pulsanti::ok, Icona::nessuna}}));
    EXPECT_EQ(p.dialoghi.stampe, 0);
    p.riempi_e_salva("uno");
    p.comando(7);
    EXPECT_EQ(p.dialoghi.stampe, 1);
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(Comandi, SottoIlPuntatoreGialliEInRilievo) {
    Programma p;
    p.dialoghi.finti = true;
    for (int i = 0; i < 9; ++i) {
        platform::Image* immagine = p.form1.Image3[static_cast<std::size_t>(i)];
        EXPECT_EQ(immagine->palette().color(QPalette::Window), bgr(16707288)) << i;
        QEnterEvent entra({20, 20}, {20, 20}, {20, 20});
        QApplication::sendEvent(immagine, &entra);
        EXPECT_EQ(immagine->palette().color(QPalette::Window), bgr(65535)) << i;
        EXPECT_TRUE(immagine->in_rilievo());
        QEvent esce(QEvent::Leave);
        QApplication::sendEvent(immagine, &esce);
        EXPECT_EQ(immagine->palette().color(QPalette::Window), bgr(16707288)) << i;
        EXPECT_FALSE(immagine->in_rilievo());
    }
}

TEST(Comandi, OgniClicMenoLUltimoRidaIlRiposo) {
    Programma p;
    for (int i = 0; i < 8; ++i) {
        platform::Image* immagine = p.form1.Image3[static_cast<std::size_t>(i)];
        QEnterEvent entra({20, 20}, {20, 20}, {20, 20});
        QApplication::sendEvent(immagine, &entra);
        p.form1.sessione.segna_salvato(true);
        p.comando(i);
        EXPECT_FALSE(immagine->in_rilievo()) << i;
    }
    platform::Image* uscita = p.form1.Image3[8];
    QEnterEvent entra({20, 20}, {20, 20}, {20, 20});
    QApplication::sendEvent(uscita, &entra);
    p.form1.sessione.segna_salvato(false);
    p.risposte = {support::vbCancel};
    p.comando(8);
    EXPECT_TRUE(uscita->in_rilievo());
    EXPECT_TRUE(p.form1.isVisible());
}

TEST(Comandi, HannoUnSuggerimentoESiRaggiungonoConLaTastiera) {
    Programma p;
    for (platform::Image* immagine : p.form1.Image3) {
        EXPECT_FALSE(immagine->toolTip().isEmpty());
        EXPECT_TRUE(immagine->focusPolicy() & Qt::TabFocus);
    }
    p.riempi(2);
    p.risposte = {support::vbNo};
    p.form1.Image3[0]->setFocus();
    QTest::keyClick(p.form1.Image3[0], Qt::Key_Return);
    EXPECT_EQ(p.form1.List1->count(), 0);
    EXPECT_EQ(p.mostrati().size(), 1U);
}
