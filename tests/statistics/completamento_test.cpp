#include "statistics/completamento.h"

#include <gtest/gtest.h>

#include "confronti.h"

using namespace statistics;
using crossword::Matrice;
using support::griglia;
using support::iniziata;

namespace {

/// A graded ranking with its numbers in the order of `seme`, all free from the top seventy.
Graduatoria graduata(std::uint32_t seme) {
    support::Sorte sorte(seme);
    Graduatoria t{};
    for (int i = 1; i <= 90; ++i) {
        t.at(static_cast<std::size_t>(i)).numero = static_cast<std::int16_t>(i);
        t.at(static_cast<std::size_t>(i)).libero = i <= 70;
    }
    for (int i = 90; i > 1 && seme != 0; --i) {
        std::swap(t.at(static_cast<std::size_t>(i)).numero,
                  t.at(static_cast<std::size_t>(1 + sorte.sotto(i))).numero);
    }
    gradua(t);
    return t;
}

semplice::Elenco elenco(const Graduatoria& t) {
    semplice::Elenco e(91);
    for (std::size_t i = 0; i <= 90; ++i)
        e[i] = {t[i].numero, t[i].valore, "", t[i].fascia, t[i].libero, t[i].usato};
    return e;
}

/// Marks of a table: free and placed, one digit an entry.
std::string segni(const Graduatoria& t) {
    std::string s;
    for (const Voce& v : t) s += static_cast<char>('0' + (v.libero ? 1 : 0) + (v.usato ? 2 : 0));
    return s;
}
std::string segni(const semplice::Elenco& e) {
    std::string s;
    for (const auto& v : e) s += static_cast<char>('0' + (v.libero ? 1 : 0) + (v.usato ? 2 : 0));
    return s;
}

/// Entries that a cell bars, when one number stands at (x, y).
std::string barrate(int colonne, int righe, int x, int y, int r, int c) {
    Graduatoria t = graduata(0);
    t[0].libero = true;
    Matrice m(colonne, righe);
    m.scrivi(x, y, 33);
    Ricerca ricerca(t, m);
    int livello = 1;
    EXPECT_EQ(ricerca.vincoli_cella(r, c, livello), true);
    EXPECT_EQ(livello, 1);
    std::string s;
    for (std::size_t i = 1; i <= 70; ++i) {
        if (!t[i].libero) s += std::to_string(i) + ' ';
    }
    return s;
}

TEST(VincoliCella, On6ColumnsTheNeighboursOfTheDiagonalsDoNotCountAndOn7TheyDo) {
    EXPECT_EQ(barrate(6, 6, 5, 1, 4, 2), "");  // below the anti-diagonal
    EXPECT_EQ(barrate(7, 7, 6, 1, 5, 2), "33 ");
    EXPECT_EQ(barrate(6, 6, 4, 0, 3, 1), "");  // above the anti-diagonal
    EXPECT_EQ(barrate(7, 7, 5, 0, 3, 2), "33 ");
    EXPECT_EQ(barrate(6, 6, 5, 4, 1, 2), "");  // above the main diagonal
    EXPECT_EQ(barrate(7, 7, 6, 5, 1, 2), "33 ");
    EXPECT_EQ(barrate(6, 6, 0, 1, 4, 3), "");  // below the main diagonal
    EXPECT_EQ(barrate(7, 7, 0, 1, 5, 4), "33 ");
    EXPECT_EQ(barrate(6, 6, 5, 5, 1, 1), "33 ");
    EXPECT_EQ(barrate(6, 6, 5, 0, 4, 1), "33 ");
}

TEST(VincoliCella, OnAGridThatIsNotSquareNoDiagonalCounts) {
    EXPECT_EQ(barrate(8, 7, 5, 5, 1, 1), "");
    EXPECT_EQ(barrate(7, 8, 6, 0, 4, 2), "");
    EXPECT_EQ(barrate(7, 8, 2, 0, 4, 2), "33 ");
    EXPECT_EQ(barrate(7, 8, 6, 4, 4, 2), "33 ");
}

TEST(VincoliCella, EveryCellOfEverySizeEqualsTheSecondComputation) {
    support::Sorte sorte(9);
    for (const auto& [colonne, righe] :
         {std::pair{5, 5}, {6, 6}, {7, 7}, {8, 8}, {6, 9}, {9, 6}, {15, 15}}) {
        for (int i = 0; i < colonne * righe; ++i) {
            const int c = i % colonne;
            const int r = i / colonne;
            const Matrice m = iniziata(sorte, colonne, righe, 30);
            Graduatoria t = graduata(static_cast<std::uint32_t>(sorte.sotto(50)));
            auto e = elenco(t);
            Ricerca ricerca(t, m);
            semplice::Ricerca altra(e, griglia(m));
            int livello = 1 + sorte.sotto(2);
            int livello_altra = livello;
            const bool ok = altra.vincoli(r, c, livello_altra);
            ASSERT_EQ(ricerca.vincoli_cella(r, c, livello), ok);
            ASSERT_EQ(livello, livello_altra);
            ASSERT_EQ(segni(t), segni(e)) << colonne << 'x' << righe << ' ' << r << ' ' << c;
        }
    }
}

TEST(VincoliCella, BelowTheCellOnTheAntiDiagonalThePlaceOfTheNumberIsBarredToo) {
    Graduatoria t = graduata(4);
    Matrice m(6, 6);
    m.scrivi(1, 4, 33);
    Ricerca ricerca(t, m);
    int livello = 1;
    ricerca.vincoli_cella(1, 4, livello);
    EXPECT_NE(t[33].numero, 33);
    EXPECT_FALSE(t[33].libero);
    // Above the cell only the number itself is.
    t = graduata(4);
    livello = 1;
    Ricerca(t, m).vincoli_cella(5, 0, livello);
    EXPECT_TRUE(t[33].libero);
}

TEST(VincoliCella, ALineHoldsTwoNumbersOfABandAtLevel1AndThreeAtLevel2) {
    for (const int livello_iniziale : {1, 2}) {
        for (int quanti = 1; quanti <= 3; ++quanti) {
            Graduatoria t = graduata(0);
            Matrice m(8, 7);
            for (int i = 0; i < quanti; ++i) m.scrivi(1 + i, 0, static_cast<std::int16_t>(21 + i));
            Ricerca ricerca(t, m);
            int livello = livello_iniziale;
            ricerca.vincoli_cella(0, 0, livello);
            EXPECT_EQ(t[30].libero, quanti <= livello_iniziale) << livello_iniziale << quanti;
            EXPECT_TRUE(t[20].libero);
            EXPECT_TRUE(t[31].libero);
        }
    }
}

TEST(VincoliCella, ATailNumberOnALineRaisesTheLevelAndIsCountedTwice) {
    Graduatoria t = graduata(0);
    for (std::size_t i = 71; i <= 90; ++i) t[i].libero = true;
    Matrice m(8, 7);
    m.scrivi(0, 3, 85);
    Ricerca ricerca(t, m);
    int livello = 1;
    EXPECT_EQ(ricerca.vincoli_cella(0, 0, livello), false);
    EXPECT_EQ(livello, 2);
    for (std::size_t i = 71; i <= 80; ++i) EXPECT_FALSE(t[i].libero) << i;
    // Band 9 is never counted: only the number itself is barred.
    for (std::size_t i = 81; i <= 90; ++i) EXPECT_EQ(t[i].libero, i != 85) << i;
}

TEST(VincoliCella, AtLevel2OneTailNumberOnALineIsNoReasonAndTwoAre) {
    Graduatoria t = graduata(0);
    for (std::size_t i = 71; i <= 90; ++i) t[i].libero = true;
    Matrice m(8, 7);
    m.scrivi(0, 3, 85);
    int livello = 2;
    EXPECT_EQ(Ricerca(t, m).vincoli_cella(0, 0, livello), true);
    EXPECT_TRUE(t[71].libero);
    m.scrivi(0, 4, 86);
    EXPECT_EQ(Ricerca(t, m).vincoli_cella(0, 0, livello), false);
    EXPECT_FALSE(t[71].libero);
    EXPECT_TRUE(t[81].libero);
}

TEST(SegnaNumero, AnEmptyCellNamesEntry0AndAnUnknownNumberNone) {
    Graduatoria t = graduata(3);
    t[0].libero = true;
    Ricerca ricerca(t, Matrice(6, 6));
    EXPECT_TRUE(ricerca.segna_numero(0));
    EXPECT_FALSE(t[0].libero);
    const Graduatoria prima = t;
    EXPECT_TRUE(ricerca.segna_numero(91));
    EXPECT_EQ(t, prima);
    t[5].fascia = 10;
    EXPECT_FALSE(ricerca.segna_numero(t[5].numero));
}

/// Both searches on one grid; how the first one ended.
EsitoRiempimento confronta(const Matrice& m, Graduatoria t) {
    auto e = elenco(t);
    semplice::Ricerca altra(e, griglia(m));
    const auto fine = altra.riempi();
    int posate = 0;
    Ricerca ricerca(t, m);
    const EsitoRiempimento esito = ricerca.riempi_griglia([&](int riga, int colonna, int numero) {
        EXPECT_EQ(numero, semplice::a(semplice::a(altra.g, colonna), riga));
        ++posate;
        return true;
    });
    EXPECT_EQ(esito == EsitoRiempimento::completa, fine == semplice::Ricerca::piena);
    EXPECT_EQ(posate, altra.posate);
    EXPECT_EQ(support::testo(ricerca.griglia()), support::testo(altra.g));
    return esito;
}

TEST(RiempiGriglia, EmptyGridsOfEverySizeEqualTheSecondComputation) {
    int complete = 0;
    for (int colonne = 5; colonne <= 15; ++colonne) {
        for (int righe = 5; righe <= 15; ++righe) {
            const auto seme = static_cast<std::uint32_t>(colonne * righe % 3);
            if (confronta(Matrice(colonne, righe), graduata(seme)) == EsitoRiempimento::completa)
                ++complete;
        }
    }
    EXPECT_EQ(complete, 121);
}

TEST(RiempiGriglia, StartedGridsEqualTheSecondComputationWhereItWouldNeverEndToo) {
    support::Sorte sorte(13);
    int complete = 0;
    constexpr int prove = 300;
    for (int prova = 0; prova < prove; ++prova) {
        const int colonne = 5 + sorte.sotto(11);
        const int righe = prova % 2 == 0 ? colonne : 5 + sorte.sotto(11);
        const Matrice m = iniziata(sorte, colonne, righe, sorte.sotto(80));
        Graduatoria t = graduata(static_cast<std::uint32_t>(sorte.sotto(1000)));
        // What an earlier search left marked counts in this one.
        for (Voce& v : t) v.usato = sorte.sotto(4) == 0;
        if (confronta(m, t) == EsitoRiempimento::completa) ++complete;
    }
    EXPECT_GT(complete, prove / 10);
    EXPECT_LT(complete, prove - prove / 10);
}

TEST(RiempiGriglia, PinnedGridOfThePlainRanking) {
    Graduatoria t = graduata(0);
    Ricerca ricerca(t, Matrice(6, 6));
    EXPECT_EQ(ricerca.riempi_griglia({}), EsitoRiempimento::completa);
    EXPECT_EQ(support::testo(ricerca.griglia()),
              "1 2 11 12 21 22\n"
              "23 24 31 32 41 42\n"
              "43 44 51 52 61 62\n"
              "63 64 3 4 13 14\n"
              "15 16 25 26 33 34\n"
              "35 36 45 46 53 54\n");
    Graduatoria ancora = graduata(0);
    Ricerca seconda(ancora, Matrice(6, 6));
    seconda.riempi_griglia({});
    EXPECT_EQ(seconda.griglia(), ricerca.griglia());
}

/// Grid where the first cell of a row has three numbers of each of the seven bands on its lines,
/// and `code` numbers of the tail on its row.
Matrice chiusa(int riga, int code) {
    Matrice m(15, 14);
    for (int i = 0; i < 12; ++i)
        m.scrivi(1 + i, riga, static_cast<std::int16_t>(1 + i / 3 * 10 + i % 3));
    for (int i = 0; i < code; ++i) m.scrivi(13 + i, riga, static_cast<std::int16_t>(75 + i));
    for (int i = 0; i < 9; ++i)
        m.scrivi(0, 2 + i, static_cast<std::int16_t>(41 + i / 3 * 10 + i % 3));
    return m;
}

TEST(RiempiGriglia, ASearchThatWouldNeverEndStopsAndLeavesWhatWasLaid) {
    Graduatoria t = graduata(0);
    auto e = elenco(t);
    semplice::Ricerca altra(e, griglia(chiusa(1, 2)));
    EXPECT_EQ(altra.riempi(), semplice::Ricerca::per_sempre);
    Ricerca ricerca(t, chiusa(1, 2));
    EXPECT_EQ(ricerca.riempi_griglia({}), EsitoRiempimento::abbandonata);
    for (int x = 0; x < 15; ++x) EXPECT_NE(ricerca.griglia()(x, 0), 0);
    EXPECT_EQ(ricerca.griglia()(0, 1), 0);
    EXPECT_EQ(support::testo(ricerca.griglia()), support::testo(altra.g));
}

TEST(RiempiGriglia, ACellClosedToTheSeventyTakesTheFirstOfTheTail) {
    Graduatoria t = graduata(0);
    Ricerca ricerca(t, chiusa(0, 0));
    ricerca.riempi_griglia({});
    EXPECT_EQ(ricerca.griglia()(0, 0), 71);
    confronta(chiusa(0, 0), graduata(0));
}

TEST(RiempiGriglia, BarredFromTheTailTheSearchTakesNumbersAlreadyPlaced) {
    // Of the seven bands one stays open, but its odd entries stand on the lines of the cell and
    // its even ones were placed before.
    Graduatoria t = graduata(0);
    for (std::size_t i = 62; i <= 70; i += 2) t[i].usato = true;
    Matrice m(15, 15);
    for (int i = 0; i < 12; ++i)
        m.scrivi(1 + i, 0, static_cast<std::int16_t>(1 + i / 3 * 10 + i % 3));
    for (int i = 0; i < 6; ++i)
        m.scrivi(0, 1 + i, static_cast<std::int16_t>(41 + i / 3 * 10 + i % 3));
    for (const auto& [x, y, numero] : {std::tuple{13, 0, 61},
                                       {14, 0, 63},
                                       {0, 7, 65},
                                       {0, 8, 67},
                                       {7, 7, 69},
                                       {0, 9, 75},
                                       {0, 10, 76}})
        m.scrivi(x, y, static_cast<std::int16_t>(numero));
    auto e = elenco(t);
    semplice::Ricerca altra(e, griglia(m));
    altra.riempi();
    EXPECT_EQ(altra.g[0][0], 62);
    Ricerca ricerca(t, m);
    ricerca.riempi_griglia([](int, int, int) { return false; });
    EXPECT_EQ(ricerca.griglia()(0, 0), 62);
}

TEST(RiempiGriglia, TheTailUsedUpEndsTheSearch) {
    // Without a band of their own the tail numbers never stand in each other's way.
    Graduatoria t = graduata(0);
    for (std::size_t i = 71; i <= 90; ++i) t[i].fascia = 0;
    Matrice m(15, 30);
    for (int y = 0; y < 30; ++y) {
        for (int i = 0; i < 14; ++i)
            m.scrivi(1 + i, y, static_cast<std::int16_t>(1 + i / 3 * 10 + i % 3));
    }
    for (int i = 0; i < 9; ++i)
        m.scrivi(0, 21 + i, static_cast<std::int16_t>(41 + i / 3 * 10 + i % 3));
    Ricerca ricerca(t, m);
    EXPECT_EQ(ricerca.riempi_griglia({}), EsitoRiempimento::abbandonata);
    for (int y = 0; y < 20; ++y) EXPECT_EQ(ricerca.griglia()(0, y), 71 + y);
    EXPECT_EQ(ricerca.griglia()(0, 20), 0);
}

TEST(RiempiGriglia, OnceAllSeventyWerePlacedAtTheEndOfARowTheyMayComeAgain) {
    for (const std::size_t usate : {69U, 70U}) {
        Graduatoria t = graduata(0);
        for (std::size_t i = 1; i <= usate; ++i) t[i].usato = true;
        Matrice m(6, 7);
        for (int x = 0; x < 6; ++x) m.scrivi(x, 0, static_cast<std::int16_t>(80 + x));
        Ricerca ricerca(t, m);
        ricerca.riempi_griglia([](int, int, int) { return false; });
        std::size_t restano = 0;
        for (const Voce& v : t) restano += v.usato ? 1U : 0U;
        EXPECT_EQ(restano, usate == 70 ? 1U : 69U);
    }
}

TEST(RiempiGriglia, ABrokenTableEndsTheSearch) {
    for (const int fascia : {-1, 10, 30000}) {
        Graduatoria t = graduata(0);
        t[1].fascia = static_cast<std::int16_t>(fascia);
        Ricerca ricerca(t, Matrice(6, 6));
        EXPECT_EQ(ricerca.riempi_griglia({}), EsitoRiempimento::abbandonata);
        EXPECT_EQ(ricerca.griglia()(0, 0), 1);
        EXPECT_EQ(ricerca.griglia()(1, 0), 0);
    }
    Graduatoria t = graduata(0);
    t[1].numero = 500;
    Ricerca ricerca(t, Matrice(6, 6));
    EXPECT_EQ(ricerca.riempi_griglia({}), EsitoRiempimento::abbandonata);
    Graduatoria buona = graduata(0);
    Matrice m(6, 6);
    m.scrivi(0, 5, 200);
    Ricerca altra(buona, m);
    EXPECT_EQ(altra.riempi_griglia({}), EsitoRiempimento::abbandonata);
}

TEST(RiempiGriglia, AStopIsObeyed) {
    Graduatoria t = graduata(0);
    Ricerca ricerca(t, Matrice(6, 6));
    EXPECT_EQ(ricerca.riempi_griglia([](int, int, int) { return false; }),
              EsitoRiempimento::interrotta);
    EXPECT_NE(ricerca.griglia()(0, 0), 0);
    EXPECT_EQ(ricerca.griglia()(1, 0), 0);
}

}  // namespace
