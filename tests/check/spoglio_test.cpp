#include "check/spoglio.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sstream>

#include "check/dettaglio.h"
#include "support/cartella.h"

using check::Punti;
using check::RichiestaSpoglio;
using check::Spoglio;
using crossword::Gioco;

namespace {

using Righe = std::vector<std::vector<int>>;

class SpoglioTest : public ::testing::Test {
protected:
    [[nodiscard]] RichiestaSpoglio superenalotto(const Righe& righe,
                                                 std::array<std::int16_t, 7> vincente,
                                                 std::int32_t n = -1) const {
        return {scrivi("s.col", righe), n < 0 ? static_cast<std::int32_t>(righe.size()) : n,
                Gioco(), vincente};
    }
    [[nodiscard]] RichiestaSpoglio lotto(const Righe& righe, int numeri,
                                         std::array<std::int16_t, 5> v, std::int32_t n = -1) const {
        return {scrivi("s.lot", righe),
                n < 0 ? static_cast<std::int32_t>(righe.size()) : n,
                Gioco::lotto(numeri),
                {v[0], v[1], v[2], v[3], v[4]}};
    }
    [[nodiscard]] std::string scrivi(const std::string& nome, const Righe& righe) const {
        std::string testo;
        for (const auto& riga : righe) {
            for (std::size_t i = 0; i < riga.size(); ++i) {
                testo += (i > 0 ? "," : "") + std::to_string(riga[i]);
            }
            testo += "\r\n";
        }
        cartella.scrivi(nome, testo);
        return cartella.file(nome);
    }
    Spoglio& conta(const RichiestaSpoglio& r) {
        EXPECT_TRUE(s.conta(r, [](std::int32_t) { return true; }));
        return s;
    }
    /// Texts of the second list.
    [[nodiscard]] std::vector<std::string> punti() const {
        std::vector<std::string> testi;
        for (std::size_t k = 1; k <= s.quante(); ++k) testi.push_back(s.lista_punti(k).testo());
        return testi;
    }
    [[nodiscard]] std::vector<int> colonne() const {
        std::vector<int> posizioni;
        for (std::size_t k = 1; k <= s.quante(); ++k) posizioni.push_back(s.lista_colonne(k));
        return posizioni;
    }

    support::Cartella cartella;
    Spoglio s;
};

using TestiVincenti = std::vector<std::string>;

// Jolly 7, winning numbers 1 to 6.
constexpr std::array<std::int16_t, 7> uno_a_sei{7, 1, 2, 3, 4, 5, 6};

TEST_F(SpoglioTest, EachCategoryCountsExactlyItsPoints) {
    conta(superenalotto({{1, 2, 3, 4, 5, 6},
                         {1, 2, 3, 4, 5, 60},
                         {1, 2, 3, 4, 50, 60},
                         {1, 2, 3, 40, 50, 60},
                         {1, 2, 30, 40, 50, 60},
                         {1, 20, 30, 40, 50, 60},
                         {10, 20, 30, 40, 50, 60}},
                        uno_a_sei));
    for (int n = 0; n <= 6; ++n) EXPECT_EQ(s.totale(n), 1) << n;
    EXPECT_EQ(s.totale_jolly(5), 0);
    EXPECT_EQ(s.vincenti(), 4);
    EXPECT_EQ(punti(), (TestiVincenti{"6", "5", "4", "3", "2", "1", "0"}));
    EXPECT_EQ(colonne(), (std::vector<int>{1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(SpoglioTest, AllSixNumbersScoreSix) {
    conta(superenalotto({{1, 2, 3, 4, 5, 6}}, uno_a_sei));
    EXPECT_EQ(s.totale(6), 1);
    EXPECT_EQ(s.vincenti(), 1);
    EXPECT_EQ(punti(), TestiVincenti{"6"});
}

TEST_F(SpoglioTest, SixPointsWithARepeatedJollyGoToNoLabelButToTheTotalAndTheList) {
    conta(superenalotto({{1, 2, 3, 4, 5, 6}}, {3, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(s.totale(6), 0);
    EXPECT_EQ(s.totale_jolly(6), 1);
    EXPECT_EQ(s.vincenti(), 1);
    EXPECT_EQ(punti(), TestiVincenti{"6 + 1"});
}

TEST_F(SpoglioTest, FiveNumbersAndTheJollyAreACategoryOfTheirOwn) {
    conta(superenalotto({{1, 2, 3, 4, 5, 7}}, uno_a_sei));
    EXPECT_EQ(s.totale_jolly(5), 1);
    EXPECT_EQ(s.totale(5), 0);
    EXPECT_EQ(s.vincenti(), 1);
    EXPECT_EQ(punti(), TestiVincenti{"5 + 1"});
}

TEST_F(SpoglioTest, FourNumbersAndTheJollyAreFour) {
    conta(superenalotto({{1, 2, 3, 4, 7, 60}}, uno_a_sei));
    EXPECT_EQ(s.totale(4), 1);
    EXPECT_EQ(s.totale_jolly(4), 0);
    EXPECT_EQ(punti(), TestiVincenti{"4"});
}

TEST_F(SpoglioTest, EveryThousandLinesItTellsHowFarItIsAndMayBeStopped) {
    const Righe righe(2500, {1, 2, 30, 40, 50, 60});
    const RichiestaSpoglio r = superenalotto(righe, uno_a_sei);
    std::vector<std::int32_t> dette;
    const auto detta = [&dette](std::int32_t fatte) {
        dette.push_back(fatte);
        return true;
    };
    EXPECT_TRUE(s.conta(r, detta));
    EXPECT_EQ(dette, (std::vector<std::int32_t>{1024, 2048, 2500}));
    EXPECT_FALSE(s.conta(r, [](std::int32_t fatte) { return fatte < 2000; }));
    EXPECT_FALSE(s.conta(r, [](std::int32_t fatte) { return fatte < 2500; }));
}

TEST_F(SpoglioTest, NumberTwiceAmongTheWinningOnesCountsTwice) {
    conta(superenalotto({{1, 2, 30, 40, 50, 60}}, {7, 1, 1, 2, 70, 71, 72}));
    EXPECT_EQ(s.totale(3), 1);
    EXPECT_EQ(s.vincenti(), 1);
    conta(lotto({{1, 30, 40}}, 3, {1, 1, 70, 71, 72}));
    EXPECT_EQ(s.totale(2), 1);
}

TEST_F(SpoglioTest, TwoPointsAreACategoryAndNoWin) {
    conta(superenalotto({{1, 2, 30, 40, 50, 60}, {1, 3, 30, 40, 50, 60}}, uno_a_sei));
    EXPECT_EQ(s.totale(2), 2);
    EXPECT_EQ(s.vincenti(), 0);
}

TEST_F(SpoglioTest, EveryCombinationOfASuperenalottoEntersTheLists) {
    conta(superenalotto({{10, 20, 30, 40, 50, 60}, {1, 2, 3, 40, 50, 60}}, uno_a_sei));
    EXPECT_EQ(s.quante(), 2U);
    EXPECT_EQ(punti(), (TestiVincenti{"0", "3"}));
}

TEST_F(SpoglioTest, ShortFileCountsItsLastRecordAgain) {
    conta(superenalotto({{10, 20, 30, 40, 50, 60}, {1, 2, 3, 40, 50, 60}}, uno_a_sei, 5));
    EXPECT_EQ(s.totale(0), 1);
    EXPECT_EQ(s.totale(3), 4);
    EXPECT_EQ(s.vincenti(), 4);
    EXPECT_EQ(punti(), (TestiVincenti{"0", "3", "3", "3", "3"}));
    EXPECT_EQ(colonne(), (std::vector<int>{1, 2, 3, 4, 5}));
    conta(lotto({{1, 20, 30}, {1, 2, 30}}, 3, {1, 2, 3, 4, 5}, 4));
    EXPECT_EQ(s.totale(2), 3);
    EXPECT_EQ(colonne(), (std::vector<int>{2, 3, 4}));
}

TEST_F(SpoglioTest, RecordCutShortKeepsTheNumbersOfTheOneBefore) {
    cartella.scrivi("s.col", "1,2,3,40,50,60\r\n70,2");
    conta({cartella.file("s.col"), 2, Gioco(), uno_a_sei});
    EXPECT_EQ(punti(), (TestiVincenti{"3", "2"}));
}

TEST_F(SpoglioTest, NumberBeyondSixteenBitsLeavesTheOneBefore) {
    cartella.scrivi("s.col", "1,2,3,40,50,60\r\n70000,2,3,40,50,60\r\n");
    conta({cartella.file("s.col"), 2, Gioco(), uno_a_sei});
    EXPECT_EQ(punti(), (TestiVincenti{"3", "3"}));
}

TEST_F(SpoglioTest, NumberOutOfRangeIsComparedAsItStands) {
    conta(superenalotto({{300, 301, 302, 40, 50, 60}}, {7, 300, 301, 302, 1, 2, 3}));
    EXPECT_EQ(s.totale(3), 1);
}

TEST_F(SpoglioTest, MissingFileCountsCombinationsWithoutAnyNumber) {
    conta({cartella.file("no.col"), 3, Gioco(), uno_a_sei});
    EXPECT_EQ(s.totale(0), 3);
    EXPECT_EQ(s.vincenti(), 0);
    EXPECT_EQ(s.quante(), 3U);
}

TEST_F(SpoglioTest, CountOfZeroRunsOverNothing) {
    conta(superenalotto({{1, 2, 3, 4, 5, 6}}, uno_a_sei, 0));
    EXPECT_EQ(s.quante(), 0U);
    EXPECT_EQ(s.vincenti(), 0);
    RichiestaSpoglio r = superenalotto({{1, 2, 3, 4, 5, 6}}, uno_a_sei);
    r.combinazioni = -4;
    conta(r);
    EXPECT_EQ(s.quante(), 0U);
}

TEST_F(SpoglioTest, NewCountForgetsTheOldOne) {
    conta(superenalotto({{1, 2, 3, 4, 5, 6}}, uno_a_sei));
    conta(superenalotto({{1, 2, 3, 40, 50, 60}}, uno_a_sei));
    EXPECT_EQ(s.totale(6), 0);
    EXPECT_EQ(s.totale(3), 1);
    EXPECT_EQ(s.quante(), 1U);
    EXPECT_EQ(s.vincenti(), 1);
}

TEST_F(SpoglioTest, CountersOfSixteenBitsStopWhenTheyAreFull) {
    conta(superenalotto({{10, 20, 30, 40, 50, 60}}, uno_a_sei, 40000));
    EXPECT_EQ(s.totale(0), 32767);
    EXPECT_EQ(s.quante(), 40000U);
    conta(superenalotto({{1, 2, 3, 40, 50, 60}}, uno_a_sei, 40000));
    EXPECT_EQ(s.totale(3), 32767);
    EXPECT_EQ(s.vincenti(), 40000);
}

TEST_F(SpoglioTest, DamagedCountIsDoneAtOnceAndWithoutEatingTheMemory) {
    conta(superenalotto({{1, 2, 3, 40, 50, 60}}, uno_a_sei, 2147483647));
    EXPECT_EQ(s.vincenti(), 2147483647);
    EXPECT_EQ(s.quante(), Spoglio::posti_massimi);
}

TEST_F(SpoglioTest, LottoCountsUnderTheWholeNumberOfHits) {
    conta(lotto({{1, 2, 3, 4, 5},
                 {1, 2, 3, 4, 50},
                 {1, 2, 3, 40, 50},
                 {1, 2, 30, 40, 50},
                 {1, 20, 30, 40, 50},
                 {10, 20, 30, 40, 50}},
                5, {5, 4, 3, 2, 1}));
    EXPECT_EQ(s.totale(5), 1);
    EXPECT_EQ(s.totale(4), 1);
    EXPECT_EQ(s.totale(3), 1);
    EXPECT_EQ(s.totale(2), 1);
    EXPECT_EQ(s.vincenti(), 4);
    EXPECT_EQ(punti(), (TestiVincenti{"5", "4", "3", "2"}));
}

TEST_F(SpoglioTest, OneHitLeavesNoTraceInLotto) {
    conta(lotto({{1, 20, 30}, {10, 20, 30}, {1, 2, 30}}, 3, {1, 2, 3, 4, 5}));
    EXPECT_EQ(s.totale(0), 0);
    EXPECT_EQ(s.totale(1), 0);
    EXPECT_EQ(colonne(), std::vector<int>{3});
    EXPECT_EQ(s.vincenti(), 1);
}

TEST_F(SpoglioTest, TerzinaOfThreeHitsIsOneTernoAlone) {
    conta(lotto({{1, 2, 3}}, 3, {1, 2, 3, 4, 5}));
    EXPECT_EQ(s.totale(3), 1);
    EXPECT_EQ(s.totale(2), 0);
    EXPECT_EQ(s.vincenti(), 1);
}

TEST_F(SpoglioTest, TerzineNeverHitFourOrFive) {
    conta(lotto({{1, 2, 3}, {4, 5, 6}, {1, 4, 9}}, 3, {1, 2, 3, 4, 5}));
    EXPECT_EQ(s.totale(4), 0);
    EXPECT_EQ(s.totale(5), 0);
}

TEST_F(SpoglioTest, LottoHasNoJolly) {
    // The seventh place of the winning numbers belongs to the other game.
    RichiestaSpoglio r = lotto({{1, 2, 3, 4, 5}}, 5, {1, 2, 3, 4, 5});
    r.vincente[5] = 1;
    r.vincente[6] = 2;
    conta(r);
    EXPECT_EQ(s.totale(5), 1);
    EXPECT_EQ(punti(), TestiVincenti{"5"});
}

TEST_F(SpoglioTest, WidthThatIsNoFormReadsNothing) {
    conta(lotto({{1, 2, 3}}, 0, {1, 2, 3, 4, 5}, 10));
    EXPECT_EQ(s.vincenti(), 0);
    EXPECT_EQ(s.quante(), 0U);
}

TEST_F(SpoglioTest, StopsWhenAskedTo) {
    const RichiestaSpoglio r = superenalotto(Righe(5000, {1, 2, 3, 40, 50, 60}), uno_a_sei);
    std::int32_t ultima = 0;
    EXPECT_FALSE(s.conta(r, [&](std::int32_t fatte) {
        ultima = fatte;
        return fatte < 2000;
    }));
    EXPECT_LT(ultima, 5000);
    EXPECT_EQ(s.quante(), static_cast<std::size_t>(ultima));
}

TEST_F(SpoglioTest, ProgressEndsWithTheWholeCount) {
    std::vector<std::int32_t> passi;
    s.conta(superenalotto(Righe(5000, {1, 2, 3, 40, 50, 60}), uno_a_sei, 6000),
            [&](std::int32_t fatte) {
                passi.push_back(fatte);
                return true;
            });
    EXPECT_TRUE(std::is_sorted(passi.begin(), passi.end()));
    EXPECT_EQ(passi.back(), 6000);
    EXPECT_GT(passi.size(), 3U);
}

TEST_F(SpoglioTest, CancellingErasesTheLists) {
    conta(superenalotto({{1, 2, 3, 4, 5, 6}}, uno_a_sei));
    s.cancella();
    EXPECT_EQ(s.quante(), 0U);
}

using TestiVincenti = std::vector<std::string>;

TEST(Vincenti, AreTheNumericValuesOfTheBoxes) {
    const auto v = check::leggi_vincenti(TestiVincenti{"7", "01", " 2 ", "3x", "90", "300", "6"});
    ASSERT_TRUE(v);
    EXPECT_EQ(*v, (std::array<std::int16_t, 7>{7, 1, 2, 3, 90, 300, 6}));
}

TEST(Vincenti, EachBoxIsRequiredTheJollyToo) {
    for (std::size_t i = 0; i < 7; ++i) {
        for (const char* vuota : {"", "0", "00", "x", "-3"}) {
            TestiVincenti caselle{"7", "1", "2", "3", "4", "5", "6"};
            caselle[i] = vuota;
            EXPECT_FALSE(check::leggi_vincenti(caselle)) << i << " " << vuota;
        }
    }
}

TEST(Vincenti, ValueThatDoesNotFitStaysZero) {
    const auto v = check::leggi_vincenti(TestiVincenti{"40000", "1e400", "2", "3", "4"});
    ASSERT_TRUE(v);
    EXPECT_EQ((*v)[0], 0);
    EXPECT_EQ((*v)[1], 0);
    EXPECT_EQ((*v)[2], 2);
}

/// The count done over step by step, on the fields of the whole file.
struct Ricontato {
    std::map<int, int> totali;
    std::map<int, int> totali_j;
    int vincenti = 0;
    std::vector<std::pair<int, std::string>> lista;
};

Ricontato riconta(const RichiestaSpoglio& r) {
    std::ifstream f(r.file);
    Ricontato e;
    std::vector<int> colonna(6);
    for (int i = 1; i <= r.combinazioni; ++i) {
        std::string riga;
        if (std::getline(f, riga)) {
            std::istringstream campi(riga);
            std::string campo;
            for (int a = 0; a < r.gioco.numeri() && std::getline(campi, campo, ','); ++a) {
                colonna[static_cast<std::size_t>(a)] = std::stoi(campo);
            }
        }
        int punti = 0;
        bool jolly = false;
        for (int a = 0; a < r.gioco.numeri(); ++a) {
            const int numero = colonna[static_cast<std::size_t>(a)];
            for (std::size_t b = r.gioco.e_lotto() ? 0 : 1; b < (r.gioco.e_lotto() ? 5U : 7U);
                 ++b) {
                if (numero == r.vincente[b]) ++punti;
            }
            jolly = jolly || (!r.gioco.e_lotto() && numero == r.vincente[0]);
        }
        if (r.gioco.e_lotto() && punti < 2) continue;
        jolly = jolly && punti > 4;
        ++(jolly ? e.totali_j : e.totali)[punti];
        if (r.gioco.e_lotto() || jolly || punti > 2) ++e.vincenti;
        e.lista.emplace_back(i, std::to_string(punti) + (jolly ? " + 1" : ""));
    }
    return e;
}

TEST_F(SpoglioTest, CountsEqualAPlainRecountForRandomDevelopmentsAndDraws) {
    std::mt19937 caso(20);  // NOLINT: the same sequence every run
    const auto fino_a = [&caso](int n) {
        return static_cast<int>(caso() % static_cast<unsigned>(n)) + 1;
    };
    for (int prova = 0; prova < 300; ++prova) {
        const bool in_lotto = prova % 2 == 1;
        const int numeri = in_lotto ? 3 + prova / 2 % 3 : 6;
        // Few numbers in play, so that every category comes up.
        const int in_gioco = std::max(numeri + 1, fino_a(20));
        Righe righe;
        for (int i = fino_a(60); i > 0; --i) {
            std::vector<int> riga;
            while (static_cast<int>(riga.size()) < numeri) {
                const int n = fino_a(in_gioco);
                if (std::find(riga.begin(), riga.end(), n) == riga.end()) riga.push_back(n);
            }
            std::sort(riga.begin(), riga.end());
            righe.push_back(riga);
        }
        const int n = static_cast<int>(righe.size()) + (prova % 5 == 0 ? fino_a(10) : 0);
        std::array<std::int16_t, 7> v{};
        for (auto& numero : v) numero = static_cast<std::int16_t>(fino_a(in_gioco));
        RichiestaSpoglio r = superenalotto(righe, v, n);
        r.gioco = in_lotto ? Gioco::lotto(numeri) : Gioco();
        conta(r);
        const Ricontato atteso = riconta(r);
        EXPECT_EQ(s.vincenti(), atteso.vincenti) << prova;
        for (int p = 0; p <= 6; ++p) {
            const auto di = [p](const std::map<int, int>& m) {
                return m.contains(p) ? m.at(p) : 0;
            };
            EXPECT_EQ(s.totale(p), di(atteso.totali)) << prova << " " << p;
            EXPECT_EQ(s.totale_jolly(p), di(atteso.totali_j)) << prova << " " << p;
        }
        ASSERT_EQ(s.quante(), atteso.lista.size()) << prova;
        for (std::size_t k = 1; k <= s.quante(); ++k) {
            EXPECT_EQ(s.lista_colonne(k), atteso.lista[k - 1].first);
            EXPECT_EQ(s.lista_punti(k).testo(), atteso.lista[k - 1].second);
        }
    }
}

}  // namespace
