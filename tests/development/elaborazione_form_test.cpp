// The elaboration through the window: its prompts, its files, its progress, its interruption.
#include <set>

#include <QMenuBar>

#include "development/elaborare.h"
#include "platform/disk.h"
#include "support/riferimento.h"
#include "systems/apertura.h"

using namespace apertura;
using namespace elaborare;

namespace {

/// Nothing of a job is left on the screen or on the disk.
void aspetta_a_riposo(const Programma& p) {
    EXPECT_FALSE(p.form1.ProgressBar1->isVisible());
    for (const QAction* menu : p.form1.menuBar()->actions()) EXPECT_TRUE(menu->isEnabled());
    EXPECT_TRUE(platform::Dir(p.cartella.programma(), "temp*").empty());
    EXPECT_EQ(platform::MousePointer(), 0);
}

/// What an elaboration without repetitions of an all-"Integrale" crossword must leave.
std::string attesa(const Programma& p, std::size_t k, bool adiacenti) {
    return support::come_file(
        support::senza_ripetizioni(support::sviluppo_integrale(p.griglia(), k, adiacenti)));
}

}  // namespace

TEST(Elabora, IncompletoAvverte) {
    Programma p;
    p.riempi(35);
    p.comando(1);
    EXPECT_EQ(p.mostrati(), Mostrati{incompleto});
}

TEST(Elabora, SenzaNomeNoNonFaNulla) {
    Programma p(true);
    p.riempi();
    p.risposte = {vbNo};
    p.comando(1);
    EXPECT_EQ(p.mostrati(), Mostrati{prima_salvare});
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_TRUE(platform::Dir(p.cartella.programma(), "*.col").empty());
}

TEST(Elabora, SenzaNomeEGestoreCongedatoNonFaNulla) {
    Programma p(true);
    p.riempi();
    p.annulla_nel_gestore();
    p.risposte = {vbYes};
    p.comando(1);
    EXPECT_EQ(p.mostrati(), Mostrati{prima_salvare});
    EXPECT_TRUE(platform::Dir(p.cartella.programma(), "*.col").empty());
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST(Elabora, SenzaNomeIlGestoreSalvaEIlLavoroPassaSenzaAltreDomande) {
    Programma p(true);
    p.riempi();
    p.nel_gestore([](systems::Form2& form2) {
        EXPECT_TRUE(form2.isModal());
        EXPECT_TRUE(form2.pic_salva->isVisible());
        ASSERT_EQ(form2.TabStrip1->count(), 1);
        EXPECT_EQ(form2.TabStrip1->selezionata(), 1);
        QTest::keyClicks(form2.Text1, "nuovo");
        Programma::clic(form2.cmdsalva);
    });
    p.risposte = {vbYes};
    p.comando(1);
    EXPECT_EQ(p.mostrati(), (Mostrati{prima_salvare, completata}));
    EXPECT_EQ(p.cartella.leggi("nuovo.col"), attesa(p, 6, true));
    EXPECT_TRUE(p.form1.sessione.salvato());
    aspetta_a_riposo(p);
}

TEST(Elabora, ModificatoNoNonFaNulla) {
    Programma p(true);
    p.riempi_e_salva("uno");
    tocca(p);
    p.risposte = {vbNo};
    p.comando(1);
    EXPECT_EQ(p.mostrati(), Mostrati{prima_salvare});
    EXPECT_FALSE(p.cartella.esiste("uno.col"));
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST(Elabora, ModificatoSiSalvaEdElabora) {
    Programma p(true);
    p.riempi_e_salva("uno");
    tocca(p);
    p.risposte = {vbYes};
    p.comando(1);
    EXPECT_EQ(p.mostrati(), (Mostrati{prima_salvare, completata}));
    EXPECT_EQ(p.cartella.leggi("uno.col"), attesa(p, 6, true));
    EXPECT_TRUE(p.form1.sessione.salvato());
}

TEST(Elabora, SeiPerSeiNonHaDiagonaliAdiacenti) {
    Programma p(true);
    p.riempi_e_salva("sei");
    EXPECT_EQ(p.riepilogo(3, 1), "6");
    p.comando(1);
    EXPECT_EQ(support::linee(p.griglia(), true).size(), 14U);
    EXPECT_EQ(p.cartella.leggi("sei.col"), attesa(p, 6, true));
    EXPECT_EQ(p.riepilogo(5, 3), "14");
}

TEST(Elabora, SettePerSetteSviluppaVentiLinee) {
    Programma p(true);
    p.dimensioni(7, 7);
    p.riempi_e_salva("sette");
    EXPECT_EQ(p.riepilogo(4, 3), "116");
    p.comando(1);
    EXPECT_EQ(support::linee(p.griglia(), true).size(), 20U);
    EXPECT_EQ(p.cartella.leggi("sette.col"), attesa(p, 6, true));
}

TEST(Elabora, SettePerSetteNelLottoSviluppaSediciLinee) {
    for (int forma = 0; forma < 3; ++forma) {
        Programma p(true);
        Programma::clic(p.form1.Image10);
        if (forma < 2) Programma::clic(p.form1.Imageb[static_cast<std::size_t>(forma)]);
        p.dimensioni(7, 7);
        p.riempi_e_salva("lotto");
        p.comando(1);
        EXPECT_EQ(support::linee(p.griglia(), false).size(), 16U);
        const std::size_t k = static_cast<std::size_t>(forma) + 3;
        EXPECT_EQ(p.cartella.leggi("lotto.lot"), attesa(p, k, false));
        EXPECT_FALSE(p.cartella.esiste("lotto.col"));
        aspetta_a_riposo(p);
    }
}

TEST(Elabora, RettangolareSeiPerOtto) {
    Programma p(true);
    p.dimensioni(6, 8);
    p.riempi_e_salva("retto");
    p.comando(1);
    EXPECT_EQ(support::linee(p.griglia(), true).size(), 14U);
    EXPECT_EQ(p.cartella.leggi("retto.col"), attesa(p, 6, true));
}

TEST(Elabora, QuindiciPerQuindiciUgualeAlRicalcolo) {
    Programma p(true);
    p.dimensioni(15, 15);
    EXPECT_EQ(p.riepilogo(4, 3), "172.172");
    p.riempi_e_salva("grande");
    int valori = 0;
    QObject::connect(p.form1.ProgressBar1, &QProgressBar::valueChanged, &p.form1,
                     [&valori] { ++valori; });
    p.comando(1);
    EXPECT_EQ(p.mostrati(), Mostrati{completata});
    EXPECT_GT(valori, 100);
    const std::vector<std::string> tutte = support::sviluppo_integrale(p.griglia(), 6, true);
    ASSERT_EQ(tutte.size(), 172172U);
    const std::vector<std::string> uniche = support::senza_ripetizioni(tutte);
    ASSERT_LT(uniche.size(), tutte.size());
    EXPECT_TRUE(p.cartella.leggi("grande.col") == support::come_file(uniche));
    const QString quante = p.riepilogo(5, 3);
    EXPECT_EQ(QString(quante).remove('.'), QString::number(uniche.size()));
    EXPECT_EQ(p.cartella.leggi("grande.sen"),
              support::come_sistema("172172,14,14,\"6\",0,0,0," + std::to_string(uniche.size()),
                                    p.griglia()));
    aspetta_a_riposo(p);
}

TEST(Elabora, SostituisceLoSviluppoDiPrima) {
    Programma p(true);
    p.riempi_e_salva("uno");
    p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
    p.comando(1);
    EXPECT_EQ(p.cartella.leggi("uno.col"), attesa(p, 6, true));
}

TEST(Elabora, ITemporaneiDiUnLavoroFallitoSpariscono) {
    Programma p(true);
    p.riempi_e_salva("uno");
    for (const char* nome : {"temp.col", "temp.lot", "temp.mdb", "temp.ldb"}) {
        p.cartella.scrivi(nome, "9,9,9,9,9,9\r\n");
    }
    p.comando(1);
    EXPECT_TRUE(platform::Dir(p.cartella.programma(), "temp*").empty());
    EXPECT_EQ(p.cartella.leggi("uno.col"), attesa(p, 6, true));
}

TEST(Elabora, SenzaLaTabellaDelleRigheRestanoLeAltreLinee) {
    Programma p(true);
    p.dimensioni(6, 8);
    p.riempi_e_salva("meta");
    ASSERT_TRUE(std::filesystem::remove(p.cartella.radice() + "/ridotti/cr0600.rid"));
    p.comando(1);
    std::vector<std::string> righe;
    for (const std::vector<int>& colonna : p.griglia()) support::combinazioni(colonna, 6, righe);
    EXPECT_EQ(p.mostrati(), Mostrati{completata});
    EXPECT_EQ(p.cartella.leggi("meta.col"), support::come_file(support::senza_ripetizioni(righe)));
    EXPECT_TRUE(p.form1.sessione.salvato());
    aspetta_a_riposo(p);
}

TEST(Elabora, SenzaAlcunaTabellaNonNasceNessunFile) {
    for (const bool con : {false, true}) {
        Programma p;
        p.riempi_e_salva("niente");
        if (con) Programma::voce(p.form1.mnuRipetizioniCon);
        p.cartella.scrivi("niente.col", "1,2,3,4,5,6\r\n");
        p.comando(1);
        EXPECT_EQ(p.mostrati(), Mostrati{completata});
        EXPECT_FALSE(p.cartella.esiste("niente.col"));
        EXPECT_EQ(p.riepilogo(5, 3), "");
        EXPECT_TRUE(p.form1.sessione.salvato());
        aspetta_a_riposo(p);
    }
}

TEST(Ripetizioni, SenzaDoppioniFileEContiRestano) {
    Programma p(true);
    p.dimensioni(7, 7);
    p.riempi_e_salva("puro");
    p.comando(1);
    const auto tutte = support::sviluppo_integrale(p.griglia(), 6, true);
    ASSERT_EQ(support::senza_ripetizioni(tutte).size(), tutte.size());
    EXPECT_EQ(p.cartella.leggi("puro.col"), support::come_file(tutte));
    EXPECT_EQ(p.riepilogo(5, 3), p.riepilogo(4, 3));
    EXPECT_EQ(p.form1.lblimportotot->text(), "58,00");
    EXPECT_EQ(p.cartella.leggi("puro.sen"),
              support::come_sistema("116,6,6,\"6\",0,0,0,116", p.griglia()));
}

/// A 6 x 6 crossword whose last row repeats the numbers of the first, turned by two places.
void con_doppione(Programma& p) {
    const std::array<std::array<int, 6>, 6> numeri = {{{1, 2, 3, 4, 5, 6},
                                                       {11, 12, 13, 14, 15, 16},
                                                       {21, 22, 23, 24, 25, 26},
                                                       {31, 32, 33, 34, 35, 36},
                                                       {41, 42, 43, 44, 45, 46},
                                                       {3, 4, 5, 6, 1, 2}}};
    p.cella(0, 0);
    for (const auto& riga : numeri) {
        for (const int n : riga) p.numero(n);
    }
    p.scrivi_nel_gestore("doppio");
    Programma::voce(p.form1.mnusalva);
}

TEST(Ripetizioni, DueRigheUgualiStannoUnaVoltaSola) {
    Programma p(true);
    con_doppione(p);
    p.comando(1);
    const std::string file = p.cartella.leggi("doppio.col");
    EXPECT_EQ(file, attesa(p, 6, true));
    EXPECT_EQ(file.find("1,2,3,4,5,6\r\n"), 0U);
    EXPECT_EQ(file.rfind("1,2,3,4,5,6\r\n"), 0U);
    EXPECT_EQ(p.riepilogo(4, 3), "14");
    EXPECT_EQ(p.riepilogo(5, 3), "13");
    EXPECT_EQ(p.form1.lblimportotot->text(), "6,50");
}

TEST(Ripetizioni, ConRipetizioniStannoDueVolteERigaCinqueVuota) {
    Programma p(true);
    con_doppione(p);
    Programma::voce(p.form1.mnuRipetizioniCon);
    EXPECT_TRUE(p.form1.sessione.salvato());
    p.comando(1);
    const auto tutte = support::sviluppo_integrale(p.griglia(), 6, true);
    EXPECT_EQ(p.cartella.leggi("doppio.col"), support::come_file(tutte));
    EXPECT_EQ(tutte.size(), 14U);
    EXPECT_EQ(p.riepilogo(5, 3), "");
    EXPECT_EQ(p.form1.lblimportotot->text(), "7,00");
    EXPECT_EQ(p.cartella.leggi("doppio.sen"),
              support::come_sistema("14,5,5,\"6\",0,0,0,0", p.griglia()));
    aspetta_a_riposo(p);
}

TEST(Ripetizioni, ConRipetizioniDopoUnaSenzaLasciaIlContoVecchio) {
    Programma p(true);
    con_doppione(p);
    p.comando(1);
    Programma::voce(p.form1.mnuRipetizioniCon);
    p.comando(1);
    EXPECT_EQ(p.riepilogo(5, 3), "13");
    EXPECT_EQ(p.form1.lblimportotot->text(), "6,50");
    EXPECT_EQ(p.cartella.leggi("doppio.sen"),
              support::come_sistema("14,5,5,\"6\",0,0,0,13", p.griglia()));
}

TEST(Ripetizioni, LOpzioneDelMenuScriveETogliRipDat) {
    Programma p;
    EXPECT_TRUE(p.form1.mnuRipetizioniSenza->isChecked());
    Programma::voce(p.form1.mnuRipetizioniCon);
    EXPECT_TRUE(p.form1.mnuRipetizioniCon->isChecked());
    EXPECT_FALSE(p.form1.mnuRipetizioniSenza->isChecked());
    ASSERT_TRUE(p.cartella.esiste("rip.dat"));
    EXPECT_EQ(p.cartella.leggi("rip.dat"), "");
    Programma::voce(p.form1.mnuRipetizioniCon);
    EXPECT_TRUE(p.form1.mnuRipetizioniCon->isChecked());
    Programma::voce(p.form1.mnuRipetizioniSenza);
    EXPECT_FALSE(p.form1.mnuRipetizioniCon->isChecked());
    EXPECT_TRUE(p.form1.mnuRipetizioniSenza->isChecked());
    EXPECT_FALSE(p.cartella.esiste("rip.dat"));
    EXPECT_TRUE(p.form1.sessione.salvato());
}

TEST(Ripetizioni, RipDatCheCEraRestaComE) {
    Programma p;
    p.cartella.scrivi("rip.dat", "x");
    Programma::voce(p.form1.mnuRipetizioniCon);
    EXPECT_EQ(p.cartella.leggi("rip.dat"), "x");
}
