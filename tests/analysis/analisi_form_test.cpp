// The analysis through real clicks and keys, from the menu of the main form to its files.
#include <csignal>
#include <filesystem>
#include <random>
#include <set>
#include <sys/resource.h>

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>

#include "analysis/frmanalisi.h"
#include "analysis/frmmigliora.h"
#include "check/modulo_spoglio.h"
#include "platform/qt/folder.h"
#include "platform/qt/scrivania.h"
#include "support/finestre_aperte.h"
#include "support/guasti.h"
#include "support/pdf.h"

using analysis::frmanalisi;
using support::aperta;
using support::Programma;

namespace {

QStringList riga(const analysis::VistaTavola* vista, int r) {
    QStringList celle;
    for (int c = 0; c < vista->griglia->columnCount(); ++c) {
        celle << vista->griglia->item(r, c)->text();
    }
    return celle;
}

QStringList come_testi(const std::vector<std::string>& celle) {
    QStringList testi;
    for (const std::string& cella : celle) testi << platform::q(cella);
    return testi;
}

void stessa(const analysis::VistaTavola* vista, const analysis::Tavola& tavola) {
    EXPECT_EQ(vista->titolo->text(), platform::q(tavola.titolo));
    ASSERT_EQ(vista->griglia->rowCount(), static_cast<int>(tavola.righe.size())) << tavola.titolo;
    for (int r = 0; r < vista->griglia->rowCount(); ++r) {
        EXPECT_EQ(riga(vista, r), come_testi(tavola.righe[static_cast<std::size_t>(r)]));
    }
    EXPECT_EQ(vista->note->text(), come_testi(tavola.note).join("\n"));
}

class AnalisiForm : public testing::Test {
protected:
    AnalisiForm() {
        platform::scrivania().apre = [this](const QString& documento) {
            aperti << documento;
            return true;
        };
    }

    void f9() {
        p.form1.activateWindow();
        QApplication::processEvents();
        QTest::keyClick(&p.form1, Qt::Key_F9);
        QApplication::processEvents();
    }
    /// A development in line, as after an elaboration of it.
    void in_linea(const std::string& righe, bool completo = true) {
        if (completo) p.riempi();
        p.cartella.scrivi(p.form1.sessione.gioco().e_lotto() ? "s.lot" : "s.col", righe);
        p.form1.sessione.in_linea("s");
        p.form1.sessione.segna_salvato(true);
    }
    frmanalisi& apri(const std::string& righe = "1,2,3,4,5,6\r\n1,2,3,4,5,7\r\n") {
        in_linea(righe);
        f9();
        auto* f = aperta<frmanalisi>();
        if (f == nullptr) throw std::runtime_error("no analysis");
        f->activateWindow();
        QApplication::processEvents();
        return *f;
    }
    frmanalisi& apri_lotto(const std::string& righe) {
        Programma::clic(p.form1.Image10);
        return apri(righe);
    }
    /// What the core says of the file.
    analysis::Analisi conto(int numeri, int estratti) {
        analysis::Giocate giocate;
        EXPECT_EQ(analysis::leggi_giocate(p.cartella.file(numeri == 6 ? "s.col" : "s.lot"), numeri,
                                          giocate),
                  analysis::Lettura::letta);
        analysis::Analisi a;
        EXPECT_TRUE(analysis::analizza(giocate, estratti, 1, a));
        return a;
    }
    static void scheda(frmanalisi& f, int quale) {
        QTest::mouseClick(f.schede, Qt::LeftButton, {}, f.schede->tabRect(quale).center());
    }

    Programma p{true, support::archivio_piccolo};
    QStringList aperti;
    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
};

TEST_F(AnalisiForm, OpensByF9AfterSavingAndElaborating) {
    p.riempi();
    p.scrivi_nel_gestore("prova");
    p.risposte = {support::vbYes, support::vbYes};
    f9();
    auto* f = aperta<frmanalisi>();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->windowTitle(), "Analisi Sistema");
    EXPECT_EQ(f->lblnomesistema->text(), "prova");
    EXPECT_EQ(f->lblnumconb->text(), "14");
    const auto domande = p.mostrati();
    ASSERT_EQ(domande.size(), 3U);
    EXPECT_EQ(domande[0].testo,
              "Per visualizzare le colonne del sistema si deve prima salvare il "
              "sistema.\nSalvare ora?");
    EXPECT_TRUE(p.cartella.esiste("prova.col"));
}

TEST_F(AnalisiForm, StandsInTheMenuUnderUtilityBehindASeparator) {
    auto* menu = p.form1.findChild<QMenu*>("mnuutility");
    const QList<QAction*> voci = menu->actions();
    ASSERT_GT(voci.size(), 3);
    EXPECT_TRUE(voci[2]->isSeparator());
    EXPECT_EQ(voci[3]->text(), "&Analisi Sistema");
    EXPECT_EQ(voci[3]->shortcut(), QKeySequence(Qt::Key_F9));
    in_linea("1,2,3,4,5,6\r\n");
    Programma::voce(p.form1.mnuanalisi);
    EXPECT_NE(aperta<frmanalisi>(), nullptr);
}

TEST_F(AnalisiForm, AnUnfinishedCrosswordIsNotAnalysed) {
    f9();
    EXPECT_EQ(aperta<frmanalisi>(), nullptr);
    ASSERT_EQ(p.mostrati().size(), 1U);
}

TEST_F(AnalisiForm, RefusedToElaborateItDoesNotOpen) {
    p.riempi();
    p.form1.sessione.in_linea("s");
    p.risposte = {support::vbNo};
    f9();
    EXPECT_EQ(aperta<frmanalisi>(), nullptr);
    p.mostrati();
}

TEST_F(AnalisiForm, ShowsWhatTheCoreCounts) {
    frmanalisi& f = apri("1,2,3,4,5,6\r\n1,2,3,4,5,7\r\n7,8,9,10,11,12\r\n");
    const analysis::Analisi a = conto(6, 6);
    const auto gioco = crossword::Gioco::superenalotto();
    stessa(f.garanzie, analysis::tavola_garanzie(a, gioco));
    stessa(f.insiemi, analysis::tavola_insiemi(a, gioco));
    stessa(f.estrazioni, analysis::tavola_estrazioni(a, gioco));
    stessa(f.buchi, analysis::tavola_buchi(a, gioco));
    stessa(f.esempi, analysis::tavola_esempi(a, gioco));
    EXPECT_EQ(f.lblnumconb->text(), "3");
    ASSERT_EQ(f.schede->count(), 5);
    for (int i = 0; i < 5; ++i) {
        scheda(f, i);
        EXPECT_EQ(f.pagine->currentIndex(), i);
    }
    EXPECT_EQ(f.Combo1, nullptr);
}

TEST_F(AnalisiForm, KeysGoFromPartToPart) {
    frmanalisi& f = apri();
    QList<int> parti;
    const auto premi = [&](int tasto, Qt::KeyboardModifiers con) {
        QTest::keyClick(&f, static_cast<Qt::Key>(tasto), con);
        EXPECT_EQ(f.pagine->currentIndex(), f.schede->currentIndex());
        parti << f.schede->currentIndex();
    };
    premi(Qt::Key_Tab, Qt::ControlModifier);
    premi(Qt::Key_PageDown, Qt::ControlModifier);
    for (int i = 0; i < 3; ++i) premi(Qt::Key_PageUp, Qt::ControlModifier);
    premi(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(parti, (QList<int>{1, 2, 1, 0, f.schede->count() - 1, 0}));
}

TEST_F(AnalisiForm, ThePicturesCanBeHeard) {
    frmanalisi& f = apri("1,2,3,4,5,6\r\n");
    EXPECT_EQ(f.grafico_estrazioni->voci().size(), 7);
    const auto* a = QAccessible::queryAccessibleInterface(f.grafico_estrazioni);
    EXPECT_EQ(a->text(QAccessible::Name), "Risultato migliore, su cento estrazioni possibili");
    EXPECT_TRUE(a->text(QAccessible::Description)
                    .startsWith("6 punti: 0,0000001606 %; 5 punti: 0,00008095 %; "))
        << a->text(QAccessible::Description).toStdString();
    const auto* b = QAccessible::queryAccessibleInterface(f.grafico_anni);
    EXPECT_EQ(b->text(QAccessible::Description), "1998: 0 su 1; 1999: 1 su 1; 2010: 0 su 1");
}

TEST_F(AnalisiForm, ThePastOfSuperenalotto) {
    frmanalisi& f = apri("1,2,3,4,5,6\r\n");
    EXPECT_EQ(riga(f.categorie_passate, 0), (QStringList{"6 punti", "1", "1"}));
    EXPECT_TRUE(f.categorie_passate->note->text().contains("non dicono nulla delle prossime"));
    ASSERT_EQ(f.migliori->griglia->rowCount(), 1);
    EXPECT_EQ(riga(f.migliori, 0).mid(0, 3), (QStringList{"28", "03/02/1999", "1"}));
}

TEST_F(AnalisiForm, TheWheelsOfLotto) {
    // The national wheel of concorso 4 draws 1 to 5.
    frmanalisi& f = apri_lotto("1,2,3,4,5\r\n");
    ASSERT_NE(f.Combo1, nullptr);
    EXPECT_EQ(f.Combo1->count(), 12);
    EXPECT_EQ(riga(f.categorie_passate, 0), (QStringList{"cinquina", "1", "1"}));
    EXPECT_EQ(riga(f.migliori, 0).mid(0, 4), (QStringList{"4", "04/05/2005", "Nazionale", "1"}));
    scheda(f, 4);
    Programma::scegli(f.Combo1, 1);
    EXPECT_EQ(riga(f.categorie_passate, 0), (QStringList{"cinquina", "0", "0"}));
    EXPECT_TRUE(f.categorie_passate->note->text().contains("0 delle 3 estrazioni"));
    Programma::scegli(f.Combo1, 11);
    EXPECT_EQ(riga(f.categorie_passate, 0), (QStringList{"cinquina", "1", "1"}));
}

TEST_F(AnalisiForm, PrizesAreTypedAndKept) {
    frmanalisi* f = &apri("1,2,3,4,5,6\r\n");
    EXPECT_TRUE(f->lblritorno->text().startsWith("Scrivete i premi"));
    scheda(*f, 2);
    ASSERT_EQ(f->txtpremio.size(), 6);
    Programma::clic(f->txtpremio[4]);
    QTest::keyClicks(f->txtpremio[4], "2x5,4.0");
    EXPECT_EQ(f->txtpremio[4]->text(), "25,40");
    EXPECT_EQ(f->lblincasso[4]->text(), "0,08");
    EXPECT_EQ(f->lblspesa->text(), "Spesa per estrazione: 0,50 euro.");
    EXPECT_TRUE(
        f->lblritorno->text().startsWith("Per ogni euro speso tornano in media 0,16 euro: "
                                         "meno di uno."))
        << f->lblritorno->text().toStdString();
    QTest::keyClick(f->txtpremio[4], Qt::Key_Return);
    EXPECT_TRUE(f->isVisible());
    EXPECT_EQ(p.cartella.leggi("premi.dat"), "\"cr\",\"3\",\"25,40\"\r\n");
    Programma::clic(f->CmdEsci);
    f9();
    f = aperta<frmanalisi>();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->txtpremio[4]->text(), "25,40");
    EXPECT_EQ(f->txtpremio[0]->text(), "");
}

TEST_F(AnalisiForm, PrizesOnAFullDiskStillCount) {
    frmanalisi& f = apri("1,2,3,4,5,6\r\n");
    scheda(f, 2);
    support::Disco disco;
    disco.spazio = 0;
    QTest::keyClicks(f.txtpremio[4], "25");
    EXPECT_EQ(f.lblincasso[4]->text(), "0,08");
    EXPECT_FALSE(p.cartella.esiste("premi.dat"));
}

TEST_F(AnalisiForm, CopiesAllOfItAsText) {
    frmanalisi& f = apri("1,2,3,4,5,6\r\n");
    QGuiApplication::clipboard()->clear();
    Programma::clic(f.cmdcopia);
    const QString testo = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(testo.startsWith("Analisi del sistema s\n\nChe cosa gioca il sistema\n---"));
    for (const char* pezzo :
         {"Che cosa è garantito", "Tutte le 622.614.630 estrazioni possibili", "I buchi",
          "In media, a ogni estrazione", "Che cosa avrebbe vinto nel passato", "Anno per anno",
          "Le estrazioni passate non dicono nulla delle prossime"}) {
        EXPECT_TRUE(testo.contains(pezzo)) << pezzo;
    }
}

TEST_F(AnalisiForm, SavesAPdfAndShowsIt) {
    frmanalisi& f = apri("1,2,3,4,5,6\r\n");
    p.risposte = {platform::vbAltri};
    Programma::clic(f.cmdpdf);
    EXPECT_EQ(aperti, QStringList{platform::q(p.cartella.file("s-analisi.pdf"))});
    std::string testo;
    for (const auto& parola : support::parole(p.cartella.file("s-analisi.pdf"))) {
        testo += parola.testo + " ";
    }
    EXPECT_NE(testo.find("ANALISI DEL SISTEMA"), std::string::npos);
    EXPECT_NE(testo.find("622.614.630 estrazioni possibili"), std::string::npos);
    EXPECT_NE(testo.find("Anno per anno"), std::string::npos);
    const auto detti = p.mostrati();
    ASSERT_EQ(detti.size(), 1U);
    EXPECT_EQ(detti[0].testo, "L'analisi è nel file\n" + platform::da_mostrare(platform::q(
                                                             p.cartella.file("s-analisi.pdf"))));
    p.risposte = {platform::vbAltri + 1};
    Programma::clic(f.cmdpdf);
    EXPECT_EQ(aperti.last(), platform::q(p.cartella.programma()));
}

TEST_F(AnalisiForm, APdfThatCannotBeWrittenIsTold) {
    std::filesystem::create_directory(p.cartella.file("s-analisi.pdf"));
    frmanalisi& f = apri("1,2,3,4,5,6\r\n");
    Programma::clic(f.cmdpdf);
    const auto detti = p.mostrati();
    ASSERT_EQ(detti.size(), 1U);
    EXPECT_TRUE(detti[0].testo.startsWith("L'analisi non è stata scritta.\n\n"))
        << detti[0].testo.toStdString();
    EXPECT_TRUE(aperti.isEmpty());
    EXPECT_TRUE(f.isVisible());
}

TEST_F(AnalisiForm, OnAFullDiskThePdfOfBeforeStays) {
    p.cartella.scrivi("s-analisi.pdf", "prima");
    frmanalisi& f = apri("1,2,3,4,5,6\r\n");
    rlimit prima{};
    ::getrlimit(RLIMIT_FSIZE, &prima);
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit poco{2000, prima.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &poco);
    Programma::clic(f.cmdpdf);
    ::setrlimit(RLIMIT_FSIZE, &prima);
    ::signal(SIGXFSZ, SIG_DFL);
    const auto detti = p.mostrati();
    ASSERT_EQ(detti.size(), 1U);
    EXPECT_TRUE(detti[0].testo.endsWith("Il PDF di prima è rimasto com'era."))
        << detti[0].testo.toStdString();
    EXPECT_EQ(p.cartella.leggi("s-analisi.pdf"), "prima");
    EXPECT_TRUE(aperti.isEmpty());
}

TEST_F(AnalisiForm, DamagedDevelopmentsAreTold) {
    frmanalisi& f = apri("");
    EXPECT_EQ(f.lblstato->text(),
              "Lo sviluppo del sistema non contiene combinazioni. Elaborate di nuovo il sistema.");
    EXPECT_FALSE(f.cmdpdf->isEnabled());
    EXPECT_FALSE(f.pagine->isEnabled());
    const auto di_nuovo = [&](const std::string& contenuto) {
        p.cartella.scrivi("s.col", contenuto);
        Programma::clic(f.cmdanalizza);
        return f.lblstato->text();
    };
    EXPECT_TRUE(di_nuovo("x\r\ny\r\n").startsWith("Lo sviluppo del sistema non contiene"));
    EXPECT_EQ(di_nuovo(std::string(21 << 20, '1')),
              "Lo sviluppo ha più di 1.048.576 combinazioni: sono troppe per un'analisi.");
    std::filesystem::remove(p.cartella.file("s.col"));
    Programma::clic(f.cmdanalizza);
    EXPECT_EQ(f.lblstato->text(),
              "Lo sviluppo del sistema non si può leggere. Elaborate di nuovo il sistema.");
    EXPECT_TRUE(di_nuovo("1,2,3,4,5,6\r\n9,9,9,9,9,9\r\n")
                    .endsWith("1 riga dello sviluppo non è una combinazione ed è stata saltata."));
    EXPECT_TRUE(f.cmdpdf->isEnabled());
    EXPECT_FALSE(f.cmdanalizza->isVisible());
}

TEST_F(AnalisiForm, WithoutTheArchiveOnlyThePastIsMissing) {
    support::togli_archivio(p.cartella.radice());
    p.form1.sessione.archivio.chiudi();
    frmanalisi& f = apri("1,2,3,4,5,6\r\n");
    EXPECT_EQ(f.categorie_passate->note->text(), "L'archivio delle estrazioni non si può leggere.");
    scheda(f, 4);
    EXPECT_FALSE(f.migliori->isVisible());
    EXPECT_FALSE(f.grafico_anni->isVisible());
    EXPECT_EQ(riga(f.estrazioni, 0)[1], "1");
    Programma::clic(f.cmdcopia);
    EXPECT_FALSE(QGuiApplication::clipboard()->text().contains("passato"));
}

/// Many combinations over many numbers, so that the count takes its time.
std::string grande() {
    std::string righe;
    std::mt19937 caso(1);  // NOLINT: the same system every run
    for (int i = 0; i < 3000; ++i) {
        std::set<unsigned long> numeri;
        while (numeri.size() < 6) numeri.insert(1 + caso() % 90);
        std::string riga;
        for (const unsigned long n : numeri) riga += (riga.empty() ? "" : ",") + std::to_string(n);
        righe += riga + "\r\n";
    }
    return righe;
}

/// Waits, in the events of a running job, for its button, and then acts.
void quando_si_puo_annullare(QObject* padre, std::function<void(frmanalisi&)> fare) {
    QTimer::singleShot(0, padre, [padre, fare] {
        auto* f = aperta<frmanalisi>();
        // A key that comes before the window has the keyboard reaches no button.
        if (f == nullptr || !f->cmdannulla->isVisible() || !f->isActiveWindow()) {
            quando_si_puo_annullare(padre, fare);
            return;
        }
        fare(*f);
    });
}

TEST_F(AnalisiForm, AnnullaStopsTheCount) {
    bool visto = false;
    quando_si_puo_annullare(&p.form1, [&](frmanalisi& f) {
        visto = true;
        EXPECT_TRUE(f.ProgressBar1->isVisible());
        EXPECT_FALSE(f.CmdEsci->isEnabled());
        // Nothing but the button is heard.
        QTest::keyClick(&p.form1, Qt::Key_F9);
        Programma::clic(f.cmdannulla);
    });
    frmanalisi& f = apri(grande());
    EXPECT_TRUE(visto);
    EXPECT_EQ(f.lblstato->text(), "Analisi interrotta.");
    EXPECT_FALSE(f.ProgressBar1->isVisible());
    EXPECT_FALSE(f.cmdannulla->isVisible());
    EXPECT_TRUE(f.cmdanalizza->isVisible());
    EXPECT_EQ(p.form1.lblanalisi->text(), "");
    EXPECT_EQ(platform::MousePointer(), 0);
}

TEST_F(AnalisiForm, EscapeStopsTheCountToo) {
    quando_si_puo_annullare(&p.form1, [](frmanalisi& f) { QTest::keyClick(&f, Qt::Key_Escape); });
    frmanalisi& f = apri(grande());
    EXPECT_EQ(f.lblstato->text(), "Analisi interrotta.");
    EXPECT_TRUE(f.isVisible());
}

TEST_F(AnalisiForm, ASystemThatChangedMeanwhileIsNotAnalysed) {
    quando_si_puo_annullare(&p.form1, [](frmanalisi& f) { Programma::clic(f.cmdannulla); });
    frmanalisi& f = apri(grande());
    p.form1.sessione.rimuovi({1, 1});
    Programma::clic(f.cmdanalizza);
    EXPECT_EQ(f.lblstato->text(),
              "Il sistema è cambiato: F9 nella finestra principale lo analizza.");
    EXPECT_EQ(p.form1.lblanalisi->text(), "");
}

TEST_F(AnalisiForm, OpenedOnASystemThatChangedItHasNothingToPrintOrToCopy) {
    in_linea("1,2,3,4,5,6\r\n");
    p.form1.sessione.segna_salvato(false);
    frmanalisi f(p.form1);
    platform::set_Tag(&f, p.form1.Tag());
    f.show();
    f.iniz();
    EXPECT_TRUE(f.lblstato->text().startsWith("Il sistema è cambiato"));
    for (const QWidget* w :
         std::initializer_list<QWidget*>{f.cmdpdf, f.cmdcopia, f.cmdmigliora, f.schede, f.pagine}) {
        EXPECT_FALSE(w->isEnabled()) << w->objectName().toStdString();
    }
    EXPECT_TRUE(f.CmdEsci->isEnabled());
}

TEST_F(AnalisiForm, ASystemThatChangedMeanwhileIsNotLaidBetter) {
    frmanalisi& f = apri("1,2,3,4,5,6\r\n");
    p.form1.sessione.in_linea("altro");
    Programma::clic(f.cmdmigliora);
    EXPECT_EQ(aperta<analysis::frmmigliora>(), nullptr);
    EXPECT_TRUE(f.lblstato->text().startsWith("Il sistema è cambiato"));
}

TEST_F(AnalisiForm, ClosedWhileItCountsItGoes) {
    quando_si_puo_annullare(&p.form1, [](frmanalisi& f) { f.close(); });
    in_linea(grande());
    f9();
    EXPECT_EQ(aperta<frmanalisi>(), nullptr);
    EXPECT_EQ(platform::MousePointer(), 0);
}

TEST_F(AnalisiForm, ClosedWithTheMainFormWhileItCounts) {
    quando_si_puo_annullare(&p.form1, [this](frmanalisi&) { p.form1.close(); });
    in_linea(grande());
    f9();
    EXPECT_EQ(aperta<frmanalisi>(), nullptr);
    EXPECT_FALSE(p.form1.isVisible());
}

TEST_F(AnalisiForm, TheSummaryStandsUntilTheNextChange) {
    frmanalisi& f = apri("1,2,3,4,5,6\r\n");
    const QString riassunto =
        "Analisi: 3 punti o meglio nello 0,3146 % delle estrazioni; con 6 numeri usciti almeno "
        "6 punti";
    EXPECT_EQ(p.form1.lblanalisi->text(), riassunto);
    EXPECT_TRUE(p.form1.lblanalisi->isVisible());
    Programma::clic(f.CmdEsci);
    p.form1.activateWindow();
    QApplication::processEvents();
    p.cella(1, 1);
    EXPECT_EQ(p.form1.lblanalisi->text(), riassunto);
    QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Delete);
    EXPECT_EQ(p.form1.lblanalisi->text(), "");
}

TEST_F(AnalisiForm, AnotherTypeTakesTheSummaryAway) {
    p.dimensioni(8, 8);
    apri("1,2,3,4,5,6\r\n");
    EXPECT_FALSE(p.form1.lblanalisi->text().isEmpty());
    p.form1.Combo3->set_ListIndex(1);
    EXPECT_EQ(p.form1.lblanalisi->text(), "");
}

}  // namespace
