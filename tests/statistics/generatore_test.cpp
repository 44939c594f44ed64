#include "statistics/generatore.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

#include "confronti.h"
#include "crossword/linee.h"
#include "support/cartella.h"

using namespace statistics;
using crossword::Gioco;
using crossword::Matrice;
using support::ArchivioFinto;
using support::estrazioni;

namespace {

/// One run of the program over invented draws.
class Generatore : public testing::Test {
protected:
    Generazione genera(bool lotto, std::vector<support::Record> records, int colonne, int righe) {
        ArchivioFinto draws(std::move(records));
        matrice_ = Matrice(colonne, righe);
        return genera_statistico(lotto ? Gioco::lotto() : Gioco(), s_, draws,
                                 cartella_.file("mstat.dat"), matrice_, rnd_, seguito_);
    }
    /// The rankings that both computations have of the same draws.
    void prepara(bool lotto, std::uint32_t seme) {
        const auto records = estrazioni(320, seme);
        ArchivioFinto draws(records);
        if (lotto) {
            ASSERT_TRUE(s_.statistica_ritardi_lotto(draws, {}));
            elenco_ = semplice::ritardi(records, 300, 5);
            semplice::classi(elenco_);
        } else {
            ASSERT_TRUE(s_.statistica_ritardi(draws, cartella_.file("mstat.dat"), {}));
            elenco_ = semplice::ritardi(records, 200, 6);
        }
    }
    /// Fills one grid in both ways, from the same point of the random sequence.
    semplice::Esito confronta(bool lotto, int colonne, int righe) {
        matrice_ = Matrice(colonne, righe);
        const auto atteso = lotto ? semplice::casuale_lotto(elenco_, righe, colonne, caso_)
                                  : semplice::casuale(elenco_, righe, colonne, caso_);
        const Generazione g = lotto ? riempi_casuale_lotto(s_.statistica(), matrice_, rnd_, {})
                                    : riempi_casuale(s_.statistica(), matrice_, rnd_, {});
        EXPECT_EQ(g.conclusione == EsitoRiempimento::completa, atteso.completa);
        EXPECT_EQ(g.sorteggi, atteso.sorteggi);
        EXPECT_EQ(support::testo(matrice_), support::testo(atteso.griglia));
        EXPECT_TRUE(support::senza_doppioni(matrice_));
        return atteso;
    }

    support::Cartella cartella_;
    Statistico s_;
    platform::Rnd rnd_;
    Matrice matrice_;
    Seguito seguito_;
    semplice::Elenco elenco_;
    semplice::Caso caso_;
};

/// Place of a number in the ranking.
int posto(const Graduatoria& t, int numero) {
    for (std::size_t i = 1; i <= 90; ++i) {
        if (t[i].numero == numero) return static_cast<int>(i);
    }
    return 0;
}

std::string prima_riga(const Graduatoria& t, const Matrice& m) {
    std::string posti;
    for (int x = 0; x < m.colonne(); ++x)
        posti += (x == 0 ? "" : " ") + std::to_string(posto(t, m(x, 0)));
    return posti;
}

TEST_F(Generatore, AFirstSuperenalottoGenerationTakesThesePlaces) {
    for (const std::uint32_t seme : {1U, 2U, 3U}) {
        rnd_ = {};
        ASSERT_EQ(genera(false, estrazioni(250, seme), 6, 6).conclusione,
                  EsitoRiempimento::completa);
        EXPECT_EQ(prima_riga(s_.statistica(), matrice_), "64 49 53 27 28 70");
    }
}

TEST_F(Generatore, SuperenalottoGridsEqualTheSecondComputationInEverySize) {
    prepara(false, 21);
    int complete = 0;
    for (int colonne = 6; colonne <= 15; ++colonne) {
        for (int righe = 6; righe <= 15; ++righe) {
            complete += confronta(false, colonne, righe).completa ? 1 : 0;
            // What a given-up cell took in vain is no part of the sequence.
            caso_ = {};
            rnd_ = {};
        }
    }
    EXPECT_EQ(complete, 100);
}

TEST_F(Generatore, OneGridAfterAnotherGoesOnInTheSameSequence) {
    prepara(false, 22);
    std::set<std::string> griglie;
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(confronta(false, 9, 9).completa);
        griglie.insert(support::testo(matrice_));
    }
    EXPECT_EQ(griglie.size(), 5U);
}

TEST_F(Generatore, LottoGridsEqualTheSecondComputation) {
    for (const std::uint32_t seme : {31U, 32U, 33U}) {
        prepara(true, seme);
        for (const auto& [colonne, righe] : {std::pair{5, 5},
                                             {6, 6},
                                             {7, 7},
                                             {5, 15},
                                             {15, 5},
                                             {8, 9},
                                             {10, 10},
                                             {12, 12},
                                             {15, 15}}) {
            confronta(true, colonne, righe);
            caso_ = {};
            rnd_ = {};
        }
        s_.azzera();
    }
}

TEST_F(Generatore, WhateverTheClassesALottoGridIsGivenUpOnlyWhereNoDrawWouldDo) {
    support::Sorte sorte(77);
    const std::array<std::pair<Classe, const char*>, 5> classi = {{{Classe::nessuna, ""},
                                                                   {Classe::ab, "ab"},
                                                                   {Classe::b, "b"},
                                                                   {Classe::c, "c"},
                                                                   {Classe::d, "d"}}};
    int abbandonate = 0;
    constexpr int prove = 60;
    for (int prova = 0; prova < prove; ++prova) {
        elenco_.assign(91, {});
        const int di_b = sorte.sotto(25);
        for (int i = 1; i <= 90; ++i) {
            int quale = sorte.sotto(4);
            quale = i <= di_b ? 2 : quale < 2 ? quale : quale + 1;
            elenco_.at(static_cast<std::size_t>(i)).numero = i;
            elenco_.at(static_cast<std::size_t>(i)).classe =
                classi.at(static_cast<std::size_t>(quale)).second;
            s_.statistica().at(static_cast<std::size_t>(i)).numero = static_cast<std::int16_t>(i);
            s_.statistica().at(static_cast<std::size_t>(i)).classe =
                classi.at(static_cast<std::size_t>(quale)).first;
        }
        caso_ = {};
        rnd_ = {};
        const int colonne = 5 + sorte.sotto(11);
        const int righe = prova % 2 == 0 ? colonne : 5 + sorte.sotto(11);
        abbandonate += confronta(true, colonne, righe).completa ? 0 : 1;
    }
    // Both ends are met.
    EXPECT_GT(abbandonate, prove / 8);
    EXPECT_LT(abbandonate, prove - prove / 8);
}

TEST_F(Generatore, SuperenalottoIsGivenUpOnlyWhereNoDrawWouldDo) {
    support::Sorte sorte(78);
    int abbandonate = 0;
    for (int prova = 0; prova < 40; ++prova) {
        // Few different numbers, so that lines run out of them.
        const int diversi = 12 + sorte.sotto(20);
        elenco_.assign(91, {});
        for (std::size_t i = 1; i <= 90; ++i) {
            elenco_[i].numero = 1 + sorte.sotto(diversi);
            s_.statistica()[i].numero = static_cast<std::int16_t>(elenco_[i].numero);
        }
        caso_ = {};
        rnd_ = {};
        abbandonate += confronta(false, 6 + sorte.sotto(10), 6 + sorte.sotto(10)).completa ? 0 : 1;
    }
    EXPECT_GT(abbandonate, 5);
    EXPECT_LT(abbandonate, 35);
}

TEST_F(Generatore, PinnedGridsAndCountsOfRandomDraws) {
    struct Fissata {
        bool lotto;
        int colonne;
        int righe;
        std::int64_t sorteggi;
        std::uint32_t impronta;
    };
    for (const Fissata& f : {Fissata{false, 6, 6, 51, 1950866383U},
                             {false, 15, 15, 1039, 3772285894U},
                             {false, 12, 8, 957, 139830987U},
                             {true, 5, 5, 46, 1865902045U},
                             {true, 8, 9, 1499, 2977123331U},
                             {true, 10, 10, 3615, 2987938997U}}) {
        s_.azzera();
        prepara(f.lotto, 40);
        rnd_ = {};
        caso_ = {};
        const auto atteso = confronta(f.lotto, f.colonne, f.righe);
        s_.azzera();
        rnd_ = {};
        const Generazione g = genera(f.lotto, estrazioni(320, 40), f.colonne, f.righe);
        EXPECT_EQ(support::testo(matrice_), support::testo(atteso.griglia));
        EXPECT_EQ(g.sorteggi, f.sorteggi) << f.lotto << f.colonne << 'x' << f.righe;
        EXPECT_EQ(support::impronta(support::testo(matrice_)), f.impronta);
        EXPECT_EQ(g.conclusione, EsitoRiempimento::completa);
    }
}

/// Numbers of each class in the first row.
std::map<std::string, int> classi_di_riga(const Graduatoria& t, const Matrice& m, int y) {
    std::map<std::string, int> conta;
    for (int x = 0; x < m.colonne(); ++x)
        ++conta[support::nome(t.at(static_cast<std::size_t>(posto(t, m(x, y)))).classe)];
    return conta;
}

TEST_F(Generatore, EachRowOf15InLottoNeedsMoreOfClassBThanItsQuota) {
    // With a class for every number there is enough of each to complete the grid.
    Graduatoria t{};
    for (int i = 1; i <= 90; ++i) {
        Voce& v = t.at(static_cast<std::size_t>(i));
        v.numero = static_cast<std::int16_t>(i);
        v.classe = i <= 50 ? Classe::b : i <= 70 ? Classe::ab : i <= 80 ? Classe::c : Classe::d;
    }
    Matrice m(15, 15);
    ASSERT_EQ(riempi_casuale_lotto(t, m, rnd_, {}).conclusione, EsitoRiempimento::completa);
    for (int y = 0; y < 15; ++y) {
        auto conta = classi_di_riga(t, m, y);
        EXPECT_LE(conta["ab"], 3);
        EXPECT_LE(conta["c"], 2);
        EXPECT_LE(conta["d"], 2);
        EXPECT_GE(conta["b"] + conta["ab"], 11);
        EXPECT_GE(conta["b"], 8);
    }
}

TEST_F(Generatore, TellsTheClassOfEveryNumberItDrewFrom) {
    for (const bool lotto : {false, true}) {
        prepara(lotto, 5);
        const int lato = lotto ? 5 : 6;
        Matrice m(lato, lato);
        const Graduatoria& t = s_.statistica();
        const Generazione g =
            lotto ? riempi_casuale_lotto(t, m, rnd_, {}) : riempi_casuale(t, m, rnd_, {});
        ASSERT_EQ(g.conclusione, EsitoRiempimento::completa);
        for (int p = 1; p <= 90; ++p) {
            const auto& voce = t.at(static_cast<std::size_t>(p));
            const int attesa = lotto    ? static_cast<int>(voce.classe)
                               : p < 12 ? 4
                               : p < 26 ? 2
                               : p < 57 ? 1
                               : p < 80 ? 3
                                        : 5;
            EXPECT_EQ(g.classi.at(static_cast<std::size_t>(voce.numero)), attesa) << p;
        }
    }
}

TEST_F(Generatore, SuperenalottoRowsKeepTheQuotasOfAllClassesButA) {
    for (const int righe : {10, 11}) {
        prepara(false, 5);
        Matrice m(15, righe);
        ASSERT_EQ(riempi_casuale(s_.statistica(), m, rnd_, {}).conclusione,
                  EsitoRiempimento::completa);
        const int piu = righe > 10 ? 1 : 0;
        for (int y = 0; y < righe; ++y) {
            std::array<int, 5> conta{};
            for (int x = 0; x < 15; ++x) {
                const int p = posto(s_.statistica(), m(x, y));
                ++conta.at(p < 12 ? 3 : p < 26 ? 1 : p < 57 ? 0 : p < 80 ? 2 : 4);
            }
            EXPECT_LE(conta[1], 2 + piu);
            EXPECT_LE(conta[2], 2 + piu);
            EXPECT_LE(conta[3], 1 + piu);
            EXPECT_LE(conta[4], 1 + piu);
            EXPECT_GE(conta[0], righe > 10 ? 5 : 9);
        }
    }
}

TEST_F(Generatore, LottoNeverTakesANumberWithoutAClass) {
    prepara(true, 6);
    Matrice m(6, 6);
    riempi_casuale_lotto(s_.statistica(), m, rnd_, {});
    for (int y = 0; y < 6; ++y) EXPECT_EQ(classi_di_riga(s_.statistica(), m, y)[""], 0);
}

TEST_F(Generatore, TwoRunsDifferAndTwoFirstRunsAreTheSame) {
    genera(false, estrazioni(250, 1), 7, 7);
    const Matrice prima = matrice_;
    genera(false, estrazioni(250, 1), 7, 7);
    EXPECT_NE(matrice_, prima);
    rnd_ = {};
    genera(false, estrazioni(250, 1), 7, 7);
    EXPECT_EQ(matrice_, prima);
}

TEST_F(Generatore, ARunGivenUpBeforeItsDrawsTakesNoRandomNumber) {
    for (const int quante : {0, 100, 299}) {
        const Generazione g = genera(true, estrazioni(quante, 1), 6, 6);
        EXPECT_EQ(g.conclusione, EsitoRiempimento::abbandonata);
        EXPECT_EQ(g.sorteggi, 0);
        EXPECT_EQ(matrice_, Matrice(6, 6));
    }
    EXPECT_EQ(genera(false, {}, 6, 6).conclusione, EsitoRiempimento::abbandonata);
    genera(false, estrazioni(250, 1), 6, 6);
    EXPECT_EQ(prima_riga(s_.statistica(), matrice_), "64 49 53 27 28 70");
}

TEST_F(Generatore, ASuperenalottoArchiveOf150DrawsStillGenerates) {
    EXPECT_EQ(genera(false, estrazioni(150, 1), 8, 8).conclusione, EsitoRiempimento::completa);
    EXPECT_TRUE(cruciverba_completo(matrice_));
}

TEST_F(Generatore, TheNationalWheelNeeds100Draws) {
    for (const auto& [quante, bastano] :
         {std::pair{0, false}, {99, false}, {100, true}, {300, true}}) {
        ArchivioFinto draws(estrazioni(quante, 1));
        EXPECT_EQ(bastano_estrazioni(draws), bastano) << quante;
    }
}

TEST_F(Generatore, LottoForgetsItsRankingAndSuperenalottoKeepsItsOwn) {
    genera(true, estrazioni(320, 1), 5, 5);
    EXPECT_EQ(s_.statistica(), Graduatoria{});
    genera(false, estrazioni(320, 1), 6, 6);
    EXPECT_NE(s_.statistica(), Graduatoria{});
    EXPECT_TRUE(cartella_.esiste("mstat.dat"));
}

TEST_F(Generatore, EveryNumberLaidIsToldAfterItStandsAndTheBarCountsCells) {
    std::vector<std::int32_t> barre;
    int posate = 0;
    seguito_.barra = [&](std::int32_t massimo) { barre.push_back(massimo); };
    seguito_.posata = [&](int riga, int colonna, int numero) {
        EXPECT_EQ(riga * 7 + colonna, posate++);
        EXPECT_EQ(matrice_(colonna, riga), numero);
        return true;
    };
    genera(false, estrazioni(250, 1), 7, 8);
    EXPECT_EQ(posate, 56);
    EXPECT_EQ(barre, (std::vector<std::int32_t>{1, 56}));
}

TEST_F(Generatore, AStopLeavesWhatWasLaid) {
    for (const bool lotto : {false, true}) {
        int posate = 0;
        seguito_.posata = [&](int, int, int) { return ++posate < 9; };
        EXPECT_EQ(genera(lotto, estrazioni(320, 1), 6, 6).conclusione,
                  EsitoRiempimento::interrotta);
        EXPECT_NE(matrice_(2, 1), 0);
        EXPECT_EQ(matrice_(3, 1), 0);
    }
}

/// A ranking where all numbers have one class.
Graduatoria una_classe(Classe classe) {
    Graduatoria t{};
    for (std::size_t i = 1; i <= 90; ++i) {
        t[i].numero = static_cast<std::int16_t>(i);
        t[i].classe = classe;
    }
    return t;
}

TEST_F(Generatore, ACellOutOfQuotaForGoodIsFoundBeforeItsDraws) {
    // Two numbers of class c go in a row; three of "ab", until a is spent.
    for (const auto& [classe, quante] :
         {std::pair{Classe::c, 2}, {Classe::d, 2}, {Classe::ab, 3}, {Classe::nessuna, 0}}) {
        rnd_ = {};
        Matrice m(6, 6);
        const Generazione g = riempi_casuale_lotto(una_classe(classe), m, rnd_, {});
        EXPECT_EQ(g.conclusione, EsitoRiempimento::abbandonata);
        for (int x = 0; x < 6; ++x) EXPECT_EQ(m(x, 0) != 0, x < quante);
        // The sequence stands where the last accepted draw left it.
        platform::Rnd contata;
        for (std::int64_t i = 0; i < g.sorteggi; ++i) contata.prossimo();
        EXPECT_EQ(contata.prossimo(), rnd_.prossimo());
    }
}

TEST_F(Generatore, ClassBAloneFillsAnyGridByItsGrowingQuota) {
    Matrice m(12, 12);
    EXPECT_EQ(riempi_casuale_lotto(una_classe(Classe::b), m, rnd_, {}).conclusione,
              EsitoRiempimento::completa);
}

TEST_F(Generatore, ACellThatOnlyAbCanFillWaitsForTheQuotaOfBToGrow) {
    // Two numbers of class b: the row spends its quota of b on them and on two of "ab", and its
    // last cell has nothing but "ab" left.
    elenco_.assign(91, {});
    for (int i = 1; i <= 90; ++i) {
        const bool di_b = i <= 84;
        const int numero = di_b ? i % 2 + 1 : i;
        semplice::a(elenco_, i).numero = numero;
        semplice::a(elenco_, i).classe = di_b ? "b" : "ab";
        semplice::a(s_.statistica(), i).numero = static_cast<std::int16_t>(numero);
        semplice::a(s_.statistica(), i).classe = di_b ? Classe::b : Classe::ab;
    }
    confronta(true, 5, 5);
    std::array<int, 2> di_b{};
    for (int x = 0; x < 5; ++x) ++di_b.at(matrice_(x, 0) <= 2 ? 1 : 0);
    EXPECT_EQ(di_b, (std::array<int, 2>{3, 2}));
    EXPECT_GT(matrice_(4, 0), 2);
}

TEST_F(Generatore, ACellWhoseLinesHoldEveryNumberIsGivenUp) {
    // Only seven numbers exist: a row of eight cannot be filled.
    Graduatoria t{};
    for (std::size_t i = 1; i <= 90; ++i) {
        t[i].numero = static_cast<std::int16_t>(i % 7 + 1);
        t[i].classe = Classe::b;
    }
    Matrice m(8, 7);
    EXPECT_EQ(riempi_casuale(t, m, rnd_, {}).conclusione, EsitoRiempimento::abbandonata);
    EXPECT_NE(m(6, 0), 0);
    EXPECT_EQ(m(7, 0), 0);
    m = Matrice(8, 7);
    EXPECT_EQ(riempi_casuale_lotto(t, m, rnd_, {}).conclusione, EsitoRiempimento::abbandonata);
    EXPECT_NE(m(6, 0), 0);
    EXPECT_EQ(m(7, 0), 0);
}

TEST_F(Generatore, AnEmptyRankingLaysNothing) {
    Matrice m(6, 6);
    EXPECT_EQ(riempi_casuale({}, m, rnd_, {}).conclusione, EsitoRiempimento::abbandonata);
    EXPECT_EQ(riempi_casuale_lotto({}, m, rnd_, {}).sorteggi, 0);
    EXPECT_EQ(m, Matrice(6, 6));
}

TEST_F(Generatore, TheLastTwoRowsKeepThemselvesForClassB) {
    // Half the numbers are b, so each row of five could do without; these two may not.
    Graduatoria t{};
    for (std::size_t i = 1; i <= 90; ++i) {
        t[i].numero = static_cast<std::int16_t>(i);
        t[i].classe = i % 2 == 0 ? Classe::b : i % 4 == 1 ? Classe::c : Classe::d;
    }
    for (int volta = 0; volta < 20; ++volta) {
        Matrice m(5, 5);
        const Generazione g = riempi_casuale_lotto(t, m, rnd_, {});
        if (g.conclusione != EsitoRiempimento::completa) continue;
        // The last row but one opens with b, whose quota is whole.
        EXPECT_EQ(t.at(static_cast<std::size_t>(m(0, 3))).classe, Classe::b);
        // In the last row, once one b is spent the next is b as well.
        int prima_b = 0;
        while (prima_b < 5 && t.at(static_cast<std::size_t>(m(prima_b, 4))).classe != Classe::b)
            ++prima_b;
        if (prima_b < 4) {
            EXPECT_EQ(t.at(static_cast<std::size_t>(m(prima_b + 1, 4))).classe, Classe::b);
        }
    }
}

}  // namespace
