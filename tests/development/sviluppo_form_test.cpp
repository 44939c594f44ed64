// The roads that need a development: viewer and check ask, elaborate, and stop when told to.
#include <QMenuBar>

#include "development/elaborare.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "support/riferimento.h"

using namespace elaborare;
using support::Programma;
using support::vbNo;
using support::vbYes;

namespace {

const Mostrato sviluppo_senza_nome{
    "Per poter visulizzare le colonne del sistema occorre prima salvarlo.\nSalvare ora?",
    "Cruciverba", Pulsanti::si_no, Icona::nessuna};
const Mostrato sviluppo_modificato{
    "Sono state apportate delle modifiche alla struttura del cruciverba.\n"
    "Per poetr visulizzare lo sviluppo occorre elaborare il sistema.\nElaborare ora?",
    "Cruciverba", Pulsanti::si_no, Icona::nessuna};
const Mostrato sviluppo_assente{
    "Per poter visulizzare lo sviluppo di un sistema bisogna prima elaborarlo.", "Tabellino",
    Pulsanti::ok, Icona::nessuna};
const Mostrato spoglio_incompleto{
    "Per procedere all'elaborazione del sistema bisogna completare lo schema del cruciverbas",
    "Tabellino", Pulsanti::ok, Icona::nessuna};
const Mostrato spoglio_senza_nome{
    "Per visualizzare le colonne del sistema si deve prima salvare il sistema.\nSalvare ora?",
    "Tabellino", Pulsanti::si_no, Icona::nessuna};
const Mostrato spoglio_modificato{
    "Per visualizzare lo sviluppo si deve elaborare il sistema.\nElaborare ora?", "Tabellino",
    Pulsanti::si_no, Icona::nessuna};
const Mostrato spoglio_assente{
    "Per effettuare lo spoglio del sistema si deve prima effettuare l'elaborazione. Elaborare "
    "ora?",
    "Tabellino", Pulsanti::si_no, Icona::nessuna};

using Mostrati = std::vector<Mostrato>;

/// The windows that need a development are only counted.
struct ProgrammaSpia : support::Programma {
    explicit ProgrammaSpia(bool tabelle = false) : support::Programma(tabelle) {
        dialoghi.finti = true;
    }
};

}  // namespace

TEST(Sviluppo, IncompletoAvverte) {
    ProgrammaSpia p;
    p.comando(2);
    EXPECT_EQ(p.mostrati(), Mostrati{incompleto});
    EXPECT_EQ(p.dialoghi.sviluppi, 0);
}

TEST(Sviluppo, SenzaNomeNoFinisce) {
    ProgrammaSpia p;
    p.riempi();
    p.risposte = {vbNo};
    p.comando(2);
    EXPECT_EQ(p.mostrati(), Mostrati{sviluppo_senza_nome});
    EXPECT_EQ(p.dialoghi.sviluppi, 0);
}

TEST(Sviluppo, SenzaNomeEGestoreCongedatoFinisce) {
    ProgrammaSpia p;
    p.riempi();
    p.annulla_nel_gestore();
    p.risposte = {vbYes};
    p.comando(2);
    EXPECT_EQ(p.mostrati(), Mostrati{sviluppo_senza_nome});
    EXPECT_EQ(p.dialoghi.sviluppi, 0);
}

TEST(Sviluppo, AppenaSalvatoSenzaSviluppoLoDice) {
    ProgrammaSpia p;
    p.riempi();
    p.scrivi_nel_gestore("uno");
    p.risposte = {vbYes};
    p.comando(2);
    EXPECT_EQ(p.mostrati(), (Mostrati{sviluppo_senza_nome, sviluppo_assente}));
    EXPECT_EQ(p.dialoghi.sviluppi, 0);
}

TEST(Sviluppo, ModificatoNoFinisce) {
    ProgrammaSpia p;
    p.riempi_e_salva("uno");
    tocca(p);
    p.risposte = {vbNo};
    p.comando(2);
    EXPECT_EQ(p.mostrati(), Mostrati{sviluppo_modificato});
    EXPECT_EQ(p.dialoghi.sviluppi, 0);
}

TEST(Sviluppo, ModificatoSiElaboraEMostra) {
    ProgrammaSpia p(true);
    p.riempi_e_salva("uno");
    tocca(p);
    p.risposte = {vbYes, vbYes};
    p.comando(2);
    EXPECT_EQ(p.mostrati(), (Mostrati{sviluppo_modificato, prima_salvare, completata}));
    EXPECT_TRUE(p.cartella.esiste("uno.col"));
    EXPECT_EQ(p.dialoghi.sviluppi, 1);
}

TEST(Sviluppo, ModificatoSiMaSenzaSalvareCadeSulFileAssente) {
    ProgrammaSpia p(true);
    p.riempi_e_salva("uno");
    tocca(p);
    p.risposte = {vbYes, vbNo};
    p.comando(2);
    EXPECT_EQ(p.mostrati(), (Mostrati{sviluppo_modificato, prima_salvare, sviluppo_assente}));
    EXPECT_EQ(p.dialoghi.sviluppi, 0);
}

TEST(Sviluppo, SalvatoConLoSviluppoMostraSenzaDomande) {
    ProgrammaSpia p;
    p.riempi_e_salva("uno");
    p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
    p.comando(2);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(p.dialoghi.sviluppi, 1);
}

TEST(Sviluppo, CancellatoIlFileInLineaSiChiedeDiElaborare) {
    ProgrammaSpia p(true);
    p.riempi_e_salva("uno");
    p.comando(1);
    ASSERT_TRUE(std::filesystem::remove(p.cartella.file("uno.col")));
    p.mostrati();
    p.comando(2);
    EXPECT_EQ(p.mostrati(), Mostrati{sviluppo_assente});
}

TEST(Spoglio, IncompletoAvverteERidaIlPuntatore) {
    ProgrammaSpia p;
    p.comando(6);
    EXPECT_EQ(p.mostrati(), Mostrati{spoglio_incompleto});
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_EQ(p.dialoghi.spogli, 0);
}

TEST(Spoglio, SenzaNomeNoFinisce) {
    ProgrammaSpia p;
    p.riempi();
    p.risposte = {vbNo};
    p.comando(6);
    EXPECT_EQ(p.mostrati(), Mostrati{spoglio_senza_nome});
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_EQ(p.dialoghi.spogli, 0);
}

TEST(Spoglio, SenzaNomeEGestoreCongedatoFinisce) {
    ProgrammaSpia p;
    p.riempi();
    p.annulla_nel_gestore();
    p.risposte = {vbYes};
    p.comando(6);
    EXPECT_EQ(p.mostrati(), Mostrati{spoglio_senza_nome});
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_EQ(p.dialoghi.spogli, 0);
}

TEST(Spoglio, AppenaSalvatoElaboraPoiApre) {
    ProgrammaSpia p(true);
    p.riempi();
    p.scrivi_nel_gestore("uno");
    p.risposte = {vbYes, vbYes};
    p.comando(6);
    EXPECT_EQ(p.mostrati(), (Mostrati{spoglio_senza_nome, spoglio_assente, completata}));
    EXPECT_TRUE(p.cartella.esiste("uno.col"));
    EXPECT_EQ(p.dialoghi.spogli, 1);
}

TEST(Spoglio, SenzaFileNoFinisce) {
    ProgrammaSpia p;
    p.riempi_e_salva("uno");
    p.risposte = {vbNo};
    p.comando(6);
    EXPECT_EQ(p.mostrati(), Mostrati{spoglio_assente});
    EXPECT_EQ(p.dialoghi.spogli, 0);
}

TEST(Spoglio, ModificatoNoFinisce) {
    ProgrammaSpia p;
    p.riempi_e_salva("uno");
    p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
    tocca(p);
    p.risposte = {vbNo};
    p.comando(6);
    EXPECT_EQ(p.mostrati(), Mostrati{spoglio_modificato});
    EXPECT_EQ(p.dialoghi.spogli, 0);
}

TEST(Spoglio, ModificatoSiElaboraEApre) {
    ProgrammaSpia p(true);
    p.riempi_e_salva("uno");
    tocca(p);
    p.risposte = {vbYes, vbYes};
    p.comando(6);
    EXPECT_EQ(p.mostrati(), (Mostrati{spoglio_modificato, prima_salvare, completata}));
    EXPECT_EQ(p.dialoghi.spogli, 1);
}

TEST(Spoglio, SalvatoConLoSviluppoApreSenzaDomande) {
    ProgrammaSpia p;
    p.riempi_e_salva("uno");
    p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
    p.comando(6);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(p.dialoghi.spogli, 1);
    EXPECT_EQ(platform::MousePointer(), 0);
}

/// Runs `fare` once, at the first step of the bar at or past `da` while a job runs.
void al_passo(ProgrammaSpia& p, int da, const std::function<void()>& fare) {
    auto fatto = std::make_shared<bool>(false);
    QObject::connect(p.form1.ProgressBar1, &QProgressBar::valueChanged, &p.form1,
                     [&p, da, fare, fatto](int valore) {
                         if (*fatto || !p.form1.in_elaborazione() || valore < da) return;
                         *fatto = true;
                         fare();
                     });
}

TEST(DuranteIlLavoro, MenuEComandiSonoSpenti) {
    ProgrammaSpia p(true);
    p.dimensioni(9, 9);
    p.riempi_e_salva("uno");
    const auto prima = p.griglia();
    int passi = 0;
    al_passo(p, 500, [&] {
        ++passi;
        EXPECT_TRUE(p.form1.ProgressBar1->isVisible());
        EXPECT_EQ(p.form1.ProgressBar1->maximum(),
                  platform::leggi_numero(p.riepilogo(4, 3).toStdString()) + 1);
        for (const QAction* menu : p.form1.menuBar()->actions()) EXPECT_FALSE(menu->isEnabled());
        p.numero(90);
        p.comando(0);
        p.comando(1);
        p.cella(3, 3);
        QTest::keyClick(&p.form1, Qt::Key_Delete);
        QTest::keyClick(&p.form1, Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(p.griglia(), prima);
        EXPECT_TRUE(p.form1.sessione.salvato());
        EXPECT_TRUE(p.messaggi.empty());
    });
    p.comando(1);
    EXPECT_EQ(passi, 1);
    EXPECT_EQ(p.mostrati(), Mostrati{completata});
    EXPECT_EQ(p.griglia(), prima);
    EXPECT_EQ(p.form1.Tag(), "uno");
    for (const QAction* menu : p.form1.menuBar()->actions()) EXPECT_TRUE(menu->isEnabled());
}

TEST(DuranteIlLavoro, NelLottoLaBarraStaFermaSulleLinee) {
    ProgrammaSpia p(true);
    Programma::clic(p.form1.Image10);
    p.dimensioni(12, 12);
    p.riempi_e_salva("uno");
    Programma::voce(p.form1.mnuRipetizioniCon);
    int passi = 0;
    al_passo(p, 1, [&passi] { ++passi; });
    p.comando(1);
    EXPECT_EQ(p.mostrati(), Mostrati{completata});
    EXPECT_EQ(passi, 0);
}

TEST(DuranteIlLavoro, LaBarraFinisceSulleCombinazioniSenzaRipetizioni) {
    for (const bool lotto : {false, true}) {
        ProgrammaSpia p(true);
        if (lotto) Programma::clic(p.form1.Image10);
        p.dimensioni(9, 9);
        p.riempi_e_salva("uno");
        int massimo = 0;
        QObject::connect(p.form1.ProgressBar1, &QProgressBar::valueChanged, &p.form1,
                         [&](int valore) { massimo = valore; });
        p.comando(1);
        const int quante = platform::leggi_numero(p.riepilogo(5, 3).toStdString());
        EXPECT_GT(quante, 0);
        EXPECT_EQ(massimo, quante);
        EXPECT_EQ(p.form1.ProgressBar1->maximum(), quante);
        EXPECT_FALSE(p.form1.ProgressBar1->isVisible());
    }
}

/// The close box, pressed at the first step of the walk, at one in its middle and at the last.
class Interruzione : public ::testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Passi, Interruzione, ::testing::Values(1, 1500, 30000));

TEST_P(Interruzione, LaCasellaDiChiusuraFermaIlLavoroELasciaIlFileFinale) {
    const std::string vecchio = "1,2,3,4,5,6\r\n";
    ProgrammaSpia p(true);
    p.dimensioni(12, 12);
    p.riempi_e_salva("uno");
    p.cartella.scrivi("uno.col", vecchio);
    const std::string sistema = p.cartella.leggi("uno.sen");
    ASSERT_GT(platform::leggi_numero(p.riepilogo(4, 3).toStdString()), 20000);
    int passi = 0;
    const int da = qMin(GetParam(), platform::leggi_numero(p.riepilogo(4, 3).toStdString()));
    al_passo(p, da, [&] {
        ++passi;
        p.form1.close();
        EXPECT_TRUE(p.form1.isVisible());
    });
    p.comando(1);
    EXPECT_EQ(passi, 1);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_FALSE(p.form1.isVisible());
    EXPECT_FALSE(p.form1.in_elaborazione());
    EXPECT_EQ(p.cartella.leggi("uno.col"), vecchio);
    EXPECT_EQ(p.cartella.leggi("uno.sen"), sistema);
}

TEST(Interrotta, ITemporaneiSparisconoAlLavoroDopo) {
    ProgrammaSpia p(true);
    p.dimensioni(12, 12);
    p.riempi_e_salva("uno");
    al_passo(p, 500, [&p] { p.form1.close(); });
    p.comando(1);
    ASSERT_TRUE(p.cartella.esiste("temp.col"));
    p.form1.show();
    p.comando(1);
    EXPECT_TRUE(platform::Dir(p.cartella.programma(), "temp*").empty());
    EXPECT_EQ(p.cartella.leggi("uno.col"), support::come_file(support::senza_ripetizioni(
                                               support::sviluppo_integrale(p.griglia(), 6, true))));
}

TEST(Interrotta, ChiSviluppavaPerVedereOSpogliareFinisceInSilenzio) {
    for (const int comando : {2, 6}) {
        ProgrammaSpia p(true);
        p.dimensioni(12, 12);
        p.riempi_e_salva("uno");
        p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
        tocca(p);
        p.risposte = {vbYes, vbYes};
        al_passo(p, 500, [&p] { p.form1.close(); });
        p.comando(comando);
        EXPECT_EQ(p.mostrati().size(), 2U);
        EXPECT_EQ(p.dialoghi.sviluppi + p.dialoghi.spogli, 0) << comando;
        EXPECT_FALSE(p.form1.isVisible());
    }
}
