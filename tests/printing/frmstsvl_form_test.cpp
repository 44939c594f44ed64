// The print options: their controls, checks and messages, the summary and the listing.
#include "support/stampa.h"

using platform::q;
using printing::frmstsvl;
using support::Icona;
using support::Mostrato;
using support::Programma;
using support::Pulsanti;
using support::Stampa;

namespace {

using Mostrati = std::vector<Mostrato>;

const Mostrato da_elaborare{
    "Per Poter stampare lo sviluppo o le schedine, occorre prima elaborare il sistema.",
    "Tabellino", Pulsanti::ok, Icona::informazione};

}  // namespace

TEST(OpzioniStampa, SiApronoSoloConUnSistema) {
    Stampa s;
    s.p.comando(7);
    EXPECT_EQ(Stampa::cerca(), nullptr);
    EXPECT_EQ(s.p.mostrati(),
              (Mostrati{{"Nessun sistema in linea.", "Tabellino", Pulsanti::ok, Icona::nessuna}}));
    s.in_linea();
    const frmstsvl* f = s.apri();
    ASSERT_NE(f, nullptr);
    EXPECT_FALSE(f->isModal());
    EXPECT_EQ(f->parentWidget(), &s.p.form1);
}

TEST(OpzioniStampa, TitoloNomiETesti) {
    Stampa s;
    s.in_linea();
    const frmstsvl* f = s.apri();
    EXPECT_EQ(f->objectName(), "frmstsvl");
    EXPECT_EQ(f->windowTitle(), "Opzioni di Stampa");
    const QStringList opzioni = {"Prospetto", "Sviluppo", "Schedine"};
    for (int i = 0; i < 3; ++i) {
        const auto* o = f->findChild<QRadioButton*>(platform::membro("Option1", i));
        ASSERT_NE(o, nullptr);
        EXPECT_EQ(o->text(), opzioni[i]);
        EXPECT_EQ(o->isChecked(), i == 0);
        const auto* forma = f->findChild<QFrame*>(platform::membro("Shape1", i));
        ASSERT_NE(forma, nullptr);
        EXPECT_TRUE(forma->geometry().contains(o->geometry()));
    }
    EXPECT_EQ(f->Command2->text(), "Conferma");
    EXPECT_EQ(f->Command3->text(), "Annulla");
    EXPECT_EQ(f->Command1->text(), "Effacer");
    EXPECT_EQ(f->cmdstampa->text(), "Imprimer");
    EXPECT_EQ(f->Frame1->caption(), "Interval d'imprimage");
    for (const char* nome :
         {"Command1", "Command2", "Command3", "cmdstampa", "Frame1", "Shape2", "txtdalla(0)",
          "txtdalla(1)", "Picture1", "Picture2", "Label1(0)", "Label1(1)"}) {
        const auto* w = f->Frame2->findChild<QWidget*>(nome);
        ASSERT_NE(w, nullptr) << nome;
    }
    EXPECT_EQ(f->Label1[0]->text(), "Envoi données à l'imprimante. Attendre SVP");
    EXPECT_FALSE(f->Picture1->isVisible());
}

TEST(OpzioniStampa, CentrateSullaFinestra) {
    Stampa s;
    s.in_linea();
    const frmstsvl* f = s.apri();
    const QRect sotto = s.p.form1.frameGeometry();
    const QRect sua = f->frameGeometry();
    EXPECT_LE(qAbs(sua.left() + sua.width() / 2 - sotto.left() - sotto.width() / 2), 1);
    EXPECT_LE(qAbs(sua.top() + sua.height() / 2 - sotto.top() - sotto.height() / 2), 1);
}

TEST(OpzioniStampa, IlBordoStaDentroLaCornice) {
    Stampa s;
    s.in_linea();
    const frmstsvl* f = s.apri();
    EXPECT_EQ(f->Shape2->geometry(), QRect(1, 1, f->Frame2->width() - 1, f->Frame2->height() - 1));
}

TEST(OpzioniStampa, IlFuocoVaAImprimer) {
    Stampa s;
    s.in_linea();
    frmstsvl* f = s.apri();
    EXPECT_EQ(f->focusWidget(), f->cmdstampa);
    f->txtdalla[0]->setFocus();
    s.p.form1.activateWindow();
    QApplication::processEvents();
    f->activateWindow();
    QApplication::processEvents();
    EXPECT_EQ(f->focusWidget(), f->cmdstampa);
}

TEST(OpzioniStampa, LIntervalloEQuelloDelTotale) {
    Stampa s;
    s.in_linea();
    s.p.dimensioni(15, 15);
    s.in_linea();
    const frmstsvl* f = s.apri();
    EXPECT_EQ(f->txtdalla[0]->text(), "1");
    EXPECT_EQ(f->txtdalla[1]->text(), "172172");
    EXPECT_EQ(platform::Tag(f->txtdalla[1]), "172172");
    EXPECT_EQ(s.p.form1.MSFlexGrid2->Row(), 4);
    EXPECT_EQ(s.p.form1.MSFlexGrid2->Col(), 3);
}

TEST(OpzioniStampa, NeiCampiPassanoSoloCifre) {
    Stampa s;
    s.in_linea();
    frmstsvl* f = s.apri();
    f->txtdalla[0]->clear();
    QTest::keyClicks(f->txtdalla[0], "a1.-, 2x3");
    EXPECT_EQ(f->txtdalla[0]->text(), "123");
    QTest::keyClick(f->txtdalla[0], Qt::Key_Backspace);
    EXPECT_EQ(f->txtdalla[0]->text(), "12");
}

TEST(OpzioniStampa, LasciandoUnCampoLIntervalloSiCorregge) {
    Stampa s;
    s.in_linea();
    s.p.dimensioni(9, 9);
    s.in_linea();
    frmstsvl* f = s.apri();
    const auto scrivi = [f](int campo, const QString& testo) {
        QLineEdit* t = f->txtdalla[static_cast<std::size_t>(campo)];
        QTest::mouseClick(t, Qt::LeftButton);
        t->clear();
        QTest::keyClicks(t, testo);
        QTest::mouseClick(f->Option1[0], Qt::LeftButton);
    };
    const auto intervallo = [f] { return f->txtdalla[0]->text() + "-" + f->txtdalla[1]->text(); };
    scrivi(1, "10");
    EXPECT_EQ(intervallo(), "1-10");
    scrivi(0, "50");
    EXPECT_EQ(intervallo(), "1-10");
    scrivi(1, "2000");
    EXPECT_EQ(intervallo(), "1-1792");
    scrivi(0, "2000");
    EXPECT_EQ(intervallo(), "1-1792");
    scrivi(0, "50");
    EXPECT_EQ(intervallo(), "50-1792");
    scrivi(1, "10");
    EXPECT_EQ(intervallo(), "50-50");
    scrivi(0, "");
    EXPECT_EQ(intervallo(), "1-50");
    scrivi(1, "0");
    EXPECT_EQ(intervallo(), "1-1792");
}

TEST(OpzioniStampa, CambiareFinestraNonConvalida) {
    Stampa s;
    s.in_linea();
    frmstsvl* f = s.apri();
    f->txtdalla[0]->setFocus();
    f->txtdalla[0]->clear();
    QFocusEvent via(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(f->txtdalla[0], &via);
    EXPECT_EQ(f->txtdalla[0]->text(), "");
}

TEST(OpzioniStampa, AnnullaEdEffacerChiudono) {
    Stampa s;
    s.in_linea();
    Programma::clic(s.apri()->Command3);
    EXPECT_TRUE(s.chiuso());
    Programma::clic(s.apri()->Command1);
    EXPECT_TRUE(s.chiuso());
    EXPECT_TRUE(s.p.form1.isVisible());
}

TEST(OpzioniStampa, OgniVoltaDaCapo) {
    Stampa s;
    s.in_linea();
    frmstsvl* f = s.apri();
    Programma::clic(f->Option1[1]);
    const QPointer<frmstsvl> prima = f;
    const frmstsvl* nuova = s.apri();
    EXPECT_TRUE(prima.isNull());
    EXPECT_TRUE(nuova->Option1[0]->isChecked());
}

TEST(OpzioniStampa, SiChiudonoConLaFinestraPrincipale) {
    Stampa s;
    s.in_linea();
    s.apri();
    s.p.form1.close();
    EXPECT_TRUE(s.chiuso());
}

TEST(Conferma, SenzaOpzioneNonFaNulla) {
    Stampa s;
    s.in_linea();
    QRadioButton* prima = s.apri()->Option1[0];
    prima->setAutoExclusive(false);
    prima->setChecked(false);
    s.conferma(-1);
    EXPECT_FALSE(s.chiuso());
    EXPECT_TRUE(s.p.mostrati().empty());
    EXPECT_TRUE(s.aperti.isEmpty());
}

TEST(Conferma, TreMessaggiPerChiNonHaSalvato) {
    struct Caso {
        bool salvato;
        QString nome;
        QString testo;
    };
    const std::array<Caso, 3> casi = {
        {{false, "prova",
          "Per poter  stampare sviluppo, prospetto o scehdine è necessario prima salvare il "
          "sistema."},
         {true, "", "Nessun sistema è attualmente in linea."},
         {false, "",
          "Per accedere alle funzioni di stampa occorre che il sistema in linea sia stato "
          "salvato."}}};
    for (const Caso& c : casi) {
        for (int opzione = -1; opzione < 3; ++opzione) {
            Stampa s;
            s.in_linea();
            s.sviluppato();
            s.apri();
            s.p.form1.sessione.in_linea(c.nome.toStdString());
            s.p.form1.sessione.segna_salvato(c.salvato);
            s.conferma(opzione);
            EXPECT_EQ(s.p.mostrati(),
                      (Mostrati{{c.testo, "Tabellino", Pulsanti::ok, Icona::informazione}}));
            EXPECT_FALSE(s.chiuso());
            EXPECT_TRUE(s.aperti.isEmpty());
        }
    }
}

TEST(StampaProspetto, EsceSuUnaPagina) {
    Stampa s;
    s.p.riempi();
    s.in_linea();
    s.apri();
    s.conferma(0);
    EXPECT_TRUE(s.chiuso());
    EXPECT_EQ(support::pagine(s.pdf("prova-prospetto.pdf")), 1);
    const std::string testo = s.testo("prova-prospetto.pdf");
    for (const char* parte :
         {"Cruciverba SuperEnalotto", "Numeri in gioco: ", "Integrale", "1 QUOTA DA EURO 7,00",
          "IMPORTO TOTALE DEL SISTEMA: Euro 7,00", "prova", "Versione",
          "* Si devono prendere in considerazione le 2 diagonali principali"}) {
        EXPECT_NE(testo.find(parte), std::string::npos) << parte;
    }
    EXPECT_NE(testo.find("Numeri in gioco: " + s.p.form1.lblngioco->text().toStdString() + " "),
              std::string::npos);
    EXPECT_EQ(s.p.mostrati(), Mostrati{s.scritto("Il prospetto", "prova-prospetto.pdf")});
    EXPECT_TRUE(s.aperti.isEmpty()) << "only when asked";
    EXPECT_EQ(platform::MousePointer(), 0);
}

TEST(StampaProspetto, LaGrigliaDelRiepilogoRestaDoveSiLessePerUltimo) {
    Stampa s;
    s.in_linea();
    s.apri();
    s.p.form1.MSFlexGrid2->cella(0, 0);
    s.conferma(0);
    EXPECT_EQ(s.p.form1.MSFlexGrid2->Row(), 5);
    EXPECT_EQ(s.p.form1.MSFlexGrid2->Col(), 3);
}

TEST(StampaProspetto, IlLottoNonHaPrezzo) {
    Stampa s;
    Programma::clic(s.p.form1.Image10);
    s.in_linea();
    s.apri();
    s.conferma(0);
    const std::string testo = s.testo("prova-prospetto.pdf");
    EXPECT_NE(testo.find("Cruciverba Lotto"), std::string::npos);
    EXPECT_EQ(testo.find("IMPORTO"), std::string::npos);
}

TEST(StampaProspetto, DoveNonSiScriveRestaAperta) {
    Stampa s;
    s.in_linea("manca/prova");
    s.apri();
    s.conferma(0);
    EXPECT_FALSE(s.chiuso());
    EXPECT_EQ(s.p.mostrati(), Mostrati{s.perso("Il prospetto", "manca/prova-prospetto.pdf",
                                               "la cartella non esiste")});
    EXPECT_EQ(platform::MousePointer(), 0);
}

TEST(StampaSviluppo, SenzaSviluppoAvvisa) {
    for (const bool lotto : {false, true}) {
        Stampa s;
        if (lotto) Programma::clic(s.p.form1.Image10);
        s.in_linea();
        // The other game's development does not count.
        s.p.cartella.scrivi(lotto ? "prova.col" : "prova.lot", "1,2,3,4,5,6\r\n");
        s.apri();
        s.conferma(1);
        EXPECT_EQ(s.p.mostrati(), Mostrati{da_elaborare});
        EXPECT_FALSE(s.chiuso());
        EXPECT_TRUE(s.aperti.isEmpty());
    }
}

TEST(StampaSviluppo, OgniGiocoIlSuoListato) {
    Stampa s;
    s.in_linea();
    s.sviluppato();
    s.apri();
    s.conferma(1);
    EXPECT_TRUE(s.chiuso());
    EXPECT_EQ(s.p.mostrati(), Mostrati{s.scritto("Lo sviluppo", "prova-sviluppo.pdf")});
    std::string testo = s.testo("prova-sviluppo.pdf");
    EXPECT_NE(testo.find("Cruciverba SuperEnalotto:prova"), std::string::npos);
    EXPECT_NE(testo.find("Schedina n. 1 04 17 23 38 61 90"), std::string::npos);
    EXPECT_EQ(s.p.cartella.leggi("col.dat"), "\"5\"\r\n");

    Programma::clic(s.p.form1.Image10);
    Programma::clic(s.p.form1.Imageb[0]);
    s.in_linea();
    s.sviluppato("4,17,90\r\n");
    s.apri();
    s.conferma(1);
    EXPECT_TRUE(s.chiuso());
    testo = s.testo("prova-sviluppo.pdf");
    EXPECT_NE(testo.find("Cruciverba Lotto:prova"), std::string::npos);
    EXPECT_NE(testo.find("Gruppo n. 1 04 17 90"), std::string::npos);
}

TEST(StampaSviluppo, LIntervalloNonCambiaLePagine) {
    Stampa s;
    s.in_linea();
    std::string colonne;
    for (int i = 1; i <= 60; ++i) colonne += std::to_string(i) + ",81,82,83,84,85\r\n";
    s.sviluppato(colonne);
    s.apri();
    s.conferma(1);
    const std::string tutto = s.testo("prova-sviluppo.pdf");
    s.apri();
    s.f->txtdalla[0]->setText("3");
    s.f->txtdalla[1]->setText("5");
    s.conferma(1);
    EXPECT_EQ(s.testo("prova-sviluppo.pdf"), tutto);
    EXPECT_NE(tutto.find("60 81 82 83 84 85"), std::string::npos);
}

TEST(Imprimer, StampaSenzaChiedereESenzaChiudere) {
    Stampa s;
    s.in_linea();
    s.sviluppato();
    s.p.form1.sessione.segna_salvato(false);
    frmstsvl* f = s.apri();
    Programma::clic(f->cmdstampa);
    EXPECT_FALSE(s.chiuso());
    EXPECT_EQ(s.p.mostrati(), Mostrati{s.scritto("Lo sviluppo", "prova-sviluppo.pdf")});
}

TEST(Imprimer, ConIlTastoInvio) {
    Stampa s;
    s.in_linea();
    s.sviluppato();
    QTest::keyClick(s.apri()->cmdstampa, Qt::Key_Return);
    EXPECT_TRUE(s.p.cartella.esiste("prova-sviluppo.pdf"));
}

TEST(Conferma, ConIlTastoInvioDaUnaOpzione) {
    Stampa s;
    s.in_linea();
    frmstsvl* f = s.apri();
    Programma::clic(f->Option1[1]);
    QTest::keyClick(f->Option1[1], Qt::Key_Return);
    EXPECT_EQ(s.p.mostrati(), Mostrati{da_elaborare});
    EXPECT_TRUE(s.aperti.isEmpty());
}

TEST(Imprimer, NelLottoCercaIlSuperEnalotto) {
    Stampa s;
    Programma::clic(s.p.form1.Image10);
    s.in_linea();
    s.sviluppato("1,2,3,4,5\r\n");
    frmstsvl* f = s.apri();
    Programma::clic(f->cmdstampa);
    EXPECT_TRUE(s.aperti.isEmpty());
    EXPECT_FALSE(s.p.cartella.esiste("prova-sviluppo.pdf"));
    EXPECT_TRUE(s.p.mostrati().empty());
    EXPECT_EQ(platform::MousePointer(), 0);
    s.p.cartella.scrivi("prova.col", "1,2,3,4,5,6\r\n");
    Programma::clic(f->cmdstampa);
    EXPECT_NE(s.testo("prova-sviluppo.pdf").find("SuperEnalotto:prova"), std::string::npos);
}
