// The completion from the frequencies, which no control calls.
#include "archivio_finto.h"
#include "generazione.h"
#include "platform/text_file.h"
#include "statistics/completamento.h"

using statistics::EsitoRiempimento;
using statistics::Statistico;
using support::con;
using support::Programma;
using support::uguali;

namespace {

/// A ranking in the order of the numbers, current for the archive; what the file then holds.
std::string scrivi_mstat_in_ordine(const Programma& p) {
    const auto data = support::giorno(319);
    std::string testo = platform::Record().data(data.anno, data.mese, data.giorno).testo();
    for (int i = 1; i <= 90; ++i) {
        const int fascia = i <= 70 ? (i - 1) / 10 + 1 : 8;
        testo += std::to_string(i) + ",0," + std::to_string(fascia) + "\r\n";
    }
    p.cartella.scrivi("mstat.dat", testo);
    return testo;
}

}  // namespace

TEST(Completa, SenzaMstatDalleFrequenzeSuUnaGrigliaVuota) {
    Programma p(false, con({4100, 1, 1}));
    p.cella(0, 0);
    p.numero(13);
    p.form1.completa();
    EXPECT_TRUE(p.cartella.esiste("mstat.dat"));
    support::ArchivioFinto draws(support::estrazioni(4100, 1));
    Statistico s;
    crossword::Matrice m(6, 6);
    const support::Cartella altrove;
    ASSERT_EQ(statistics::completa(s, draws, altrove.file("mstat.dat"), m, {}),
              EsitoRiempimento::completa);
    uguali(p, m);
    EXPECT_FALSE(p.form1.ProgressBar1->isVisible());
}

TEST(Completa, LaBarraDelleFrequenzeSiVedeENonAvanza) {
    Programma p(false, con({4100, 1, 1}));
    int posati = 0;
    QObject::connect(p.form1.MSFlexGrid1, &QTableWidget::cellChanged, &p.form1, [&] {
        ++posati;
        EXPECT_TRUE(p.form1.ProgressBar1->isVisible());
        EXPECT_EQ(p.form1.ProgressBar1->maximum(), 60);
        EXPECT_EQ(p.form1.ProgressBar1->value(), 0);
    });
    p.form1.completa();
    EXPECT_EQ(posati, 36);
    EXPECT_EQ(p.form1.ProgressBar1->value(), 0);
    EXPECT_FALSE(p.form1.ProgressBar1->isVisible());
}

TEST(Completa, ConUnMstatCorrenteTieneINumeriPosati) {
    Programma p;
    p.cella(1, 2);
    p.numero(77);
    const std::string testo = scrivi_mstat_in_ordine(p);
    p.form1.completa();
    EXPECT_EQ(p.form1.sessione.matrice()(2, 1), 77);
    bool completo = false;
    completo = p.form1.sessione.completo();
    EXPECT_TRUE(completo);
    EXPECT_EQ(p.cartella.leggi("mstat.dat"), testo);
}

TEST(Completa, LaCasellaDiChiusuraFermaLaRicerca) {
    Programma p(false, con({4100, 1, 1}));
    QObject::connect(p.form1.MSFlexGrid1, &QTableWidget::cellChanged, &p.form1,
                     [&p](int riga, int colonna) {
                         if (riga != 1 || colonna != 2) return;
                         p.form1.close();
                         EXPECT_TRUE(p.form1.isVisible());
                     });
    p.form1.completa();
    EXPECT_FALSE(p.form1.isVisible());
    EXPECT_FALSE(p.form1.in_elaborazione());
    EXPECT_FALSE(platform::LavoroLungo::in_corso());
    EXPECT_NE(p.form1.MSFlexGrid1->testo(1, 2), "");
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(1, 3), "");
    // What was shown is no crossword yet.
    EXPECT_EQ(p.form1.sessione.matrice(), crossword::Matrice(6, 6));
}

TEST(Completa, UnaRicercaCheNonFinirebbeMaiSiFermaDaSe) {
    Programma p;
    scrivi_mstat_in_ordine(p);
    p.dimensioni(15, 14);
    // The lines of the cell below the corner hold three numbers of every band, and two of the tail.
    crossword::Matrice m(15, 14);
    const auto posa = [&m](int x, int y, int n) { m.scrivi(x, y, static_cast<std::int16_t>(n)); };
    for (int i = 0; i < 12; ++i) posa(1 + i, 1, 1 + i / 3 * 10 + i % 3);
    for (int i = 0; i < 2; ++i) posa(13 + i, 1, 75 + i);
    for (int i = 0; i < 9; ++i) posa(0, 2 + i, 41 + i / 3 * 10 + i % 3);
    p.apri_cosi([&m](systems::Sistema& s) { s.matrice = m; });
    p.form1.completa();
    EXPECT_EQ(p.form1.sessione.matrice(), m);
    for (int x = 0; x < 15; ++x) EXPECT_NE(p.form1.MSFlexGrid1->testo(0, x), "") << x;
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(1, 0), "");
    EXPECT_FALSE(p.form1.in_elaborazione());
    EXPECT_FALSE(platform::LavoroLungo::in_corso());
    EXPECT_FALSE(p.form1.ProgressBar1->isVisible());
    EXPECT_TRUE(p.mostrati().empty());
}
