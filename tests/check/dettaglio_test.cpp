#include "check/dettaglio.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "support/cartella.h"

using check::Dettaglio;
using check::RichiestaSpoglio;
using check::Spoglio;
using check::Verso;

namespace {

using Testi = std::vector<std::string>;

bool sempre(std::int32_t /*fatte*/) {
    return true;
}

class DettaglioTest : public ::testing::Test {
protected:
    /// A development whose record `i` scores `punti[i]` against 1 to 6, Jolly 7; 51 is 5 + 1.
    RichiestaSpoglio sviluppo(const std::vector<int>& punti) {
        std::string testo;
        for (std::size_t i = 0; i < punti.size(); ++i) {
            const int giusti = punti[i] == 51 ? 5 : punti[i];
            for (int a = 1; a <= 6; ++a) {
                const int numero = a <= giusti ? a : punti[i] == 51 ? 7 : 10 * a;
                testo += (a > 1 ? "," : "") + std::to_string(numero);
            }
            testo += "\r\n";
        }
        cartella.scrivi("s.col", testo);
        return {cartella.file("s.col"),
                static_cast<std::int32_t>(punti.size()),
                crossword::Gioco::superenalotto(),
                {7, 1, 2, 3, 4, 5, 6}};
    }
    RichiestaSpoglio terzine(const std::string& testo, int quante) {
        cartella.scrivi("s.lot", testo);
        return {cartella.file("s.lot"), quante, crossword::Gioco::lotto(3), {1, 2, 3, 4, 5}};
    }
    void elenca(const RichiestaSpoglio& r, int pannelli) {
        s.conta(r, sempre);
        EXPECT_TRUE(d.aggiungi(r, s, pannelli, sempre));
    }
    [[nodiscard]] Testi colonna(int c) const {
        Testi testi;
        for (std::size_t r = 0; r < d.righe(); ++r) testi.push_back(d.testo(r, c));
        return testi;
    }
    [[nodiscard]] Testi riga(std::size_t r) const {
        Testi testi;
        for (int c = 0; c < check::colonne_dettaglio; ++c) testi.push_back(d.testo(r, c));
        return testi;
    }

    support::Cartella cartella;
    Spoglio s;
    Dettaglio d;
};

TEST(Scheda, IsTheWholeDivisionRoundedUp) {
    EXPECT_EQ(check::scheda_di(5, 5), 1);
    EXPECT_EQ(check::scheda_di(6, 5), 2);
    EXPECT_EQ(check::scheda_di(7, 5), 2);
    EXPECT_EQ(check::scheda_di(1, 1), 1);
    EXPECT_EQ(check::scheda_di(172172, 1), 172172);
    EXPECT_EQ(check::scheda_di(13, 3), 5);
    EXPECT_EQ(check::scheda_di(14, 3), 5);
    EXPECT_EQ(check::scheda_di(12, 3), 4);
    EXPECT_EQ(check::scheda_di(4, 0), 0);
}

TEST_F(DettaglioTest, RowHoldsTheKeyTheSlipThePointsAndTheNumbers) {
    elenca(sviluppo({0, 51}), 1);
    EXPECT_EQ(riga(0), (Testi{"000000001", "1", "0", "10", "20", "30", "40", "50", "60"}));
    EXPECT_EQ(riga(1), (Testi{"000000002", "2", "5 + 1", "1", "2", "3", "4", "5", "7"}));
    EXPECT_EQ(d.testo(2, 1), "");
    EXPECT_EQ(d.testo(0, 9), "");
}

TEST_F(DettaglioTest, SuperenalottoHasARowForEveryCombination) {
    elenca(sviluppo({0, 1, 2, 3, 0, 0, 4}), 5);
    EXPECT_EQ(d.righe(), 7U);
    EXPECT_EQ(colonna(2), (Testi{"0", "1", "2", "3", "0", "0", "4"}));
}

TEST_F(DettaglioTest, FourteenCombinationsOnSlipsOfThree) {
    elenca(sviluppo(std::vector<int>(14, 3)), 3);
    EXPECT_EQ(colonna(1),
              (Testi{"1", "1", "1", "2", "2", "2", "3", "3", "3", "4", "4", "4", "5", "5"}));
}

TEST_F(DettaglioTest, LottoListsWinnersWithTheSlipOfTheWholeSystem) {
    elenca(terzine("10,20,30\r\n10,20,31\r\n10,20,32\r\n1,20,33\r\n10,20,34\r\n10,20,35\r\n"
                   "1,2,36\r\n10,20,37\r\n1,2,3\r\n",
                   9),
           5);
    ASSERT_EQ(d.righe(), 2U);
    EXPECT_EQ(riga(0), (Testi{"000000002", "2", "2", "1", "2", "36", "", "", ""}));
    EXPECT_EQ(riga(1), (Testi{"000000002", "2", "3", "1", "2", "3", "", "", ""}));
}

TEST_F(DettaglioTest, SecondTimeAddsTheSameRowsAgain) {
    const RichiestaSpoglio r = terzine("1,2,30\r\n10,20,30\r\n1,2,3\r\n", 3);
    elenca(r, 1);
    EXPECT_TRUE(d.aggiungi(r, s, 2, sempre));
    EXPECT_EQ(colonna(1), (Testi{"1", "3", "1", "2"}));
    EXPECT_EQ(colonna(2), (Testi{"2", "3", "2", "3"}));
    d.ordina(check::colonna_chiave, Verso::crescente);
    EXPECT_EQ(colonna(1), (Testi{"1", "1", "2", "3"}));
    EXPECT_EQ(colonna(2), (Testi{"2", "2", "3", "3"}));
    d.ordina(check::colonna_chiave, Verso::decrescente);
    EXPECT_EQ(colonna(1), (Testi{"3", "2", "1", "1"}));
}

TEST_F(DettaglioTest, ShortFileRepeatsItsLastNumbers) {
    RichiestaSpoglio r = sviluppo({0, 3});
    r.combinazioni = 4;
    elenca(r, 5);
    EXPECT_EQ(colonna(3), (Testi{"10", "1", "1", "1"}));
    EXPECT_EQ(colonna(2), (Testi{"0", "3", "3", "3"}));
}

TEST_F(DettaglioTest, PointsSortByTextWithTheJollyBetweenFiveAndSix) {
    elenca(sviluppo({6, 0, 51, 5, 3}), 1);
    d.ordina(check::colonna_punti, Verso::crescente);
    EXPECT_EQ(colonna(2), (Testi{"0", "3", "5", "5 + 1", "6"}));
    d.ordina(check::colonna_punti, Verso::decrescente);
    EXPECT_EQ(colonna(2), (Testi{"6", "5 + 1", "5", "3", "0"}));
}

TEST_F(DettaglioTest, EqualPointsKeepTheOrderOfTheFileBothWays) {
    elenca(sviluppo({3, 0, 3, 0, 3}), 1);
    d.ordina(check::colonna_punti, Verso::crescente);
    EXPECT_EQ(colonna(1), (Testi{"2", "4", "1", "3", "5"}));
    d.ordina(check::colonna_punti, Verso::decrescente);
    EXPECT_EQ(colonna(1), (Testi{"1", "3", "5", "2", "4"}));
}

TEST_F(DettaglioTest, SlipsSortByNumberAndKeepTheOrderOfTheFileWithin) {
    elenca(sviluppo({0, 1, 2, 3, 4}), 2);
    d.ordina(check::colonna_punti, Verso::decrescente);
    d.ordina(check::colonna_chiave, Verso::decrescente);
    EXPECT_EQ(colonna(1), (Testi{"3", "2", "2", "1", "1"}));
    EXPECT_EQ(colonna(2), (Testi{"4", "2", "3", "0", "1"}));
    d.ordina(check::colonna_chiave, Verso::crescente);
    EXPECT_EQ(colonna(2), (Testi{"0", "1", "2", "3", "4"}));
}

TEST_F(DettaglioTest, OrderOutlivesTheRows) {
    elenca(sviluppo({0, 6, 3}), 1);
    d.ordina(check::colonna_punti, Verso::decrescente);
    d.svuota();
    EXPECT_EQ(d.righe(), 0U);
    elenca(sviluppo({0, 4, 6}), 1);
    EXPECT_EQ(colonna(2), (Testi{"6", "4", "0"}));
}

TEST_F(DettaglioTest, SortingNothingIsNoHarm) {
    d.ordina(check::colonna_punti, Verso::crescente);
    d.ordina(check::colonna_chiave, Verso::decrescente);
    EXPECT_EQ(d.righe(), 0U);
}

TEST_F(DettaglioTest, StopsWhenAskedToAndKeepsWhatStands) {
    const RichiestaSpoglio r = sviluppo(std::vector<int>(5000, 3));
    s.conta(r, sempre);
    EXPECT_FALSE(d.aggiungi(r, s, 5, [](std::int32_t) { return false; }));
    EXPECT_GT(d.righe(), 0U);
    EXPECT_LT(d.righe(), 5000U);
}

TEST_F(DettaglioTest, ProgressEndsWithTheLastPlace) {
    const RichiestaSpoglio r = sviluppo(std::vector<int>(3000, 3));
    s.conta(r, sempre);
    std::int32_t ultima = 0;
    d.aggiungi(r, s, 5, [&](std::int32_t fatte) {
        ultima = fatte;
        return true;
    });
    EXPECT_EQ(ultima, 3000);
}

TEST_F(DettaglioTest, RowTakesLessThanThirtyBytesOnceSorted) {
    elenca(sviluppo(std::vector<int>(20000, 3)), 5);
    d.ordina(check::colonna_punti, Verso::decrescente);
    EXPECT_LT(d.memoria(), 20000U * 30U);
    EXPECT_EQ(d.memoria(), 20000U * (sizeof(std::int32_t) + sizeof(check::Numeri) +
                                     sizeof(check::Punti) + sizeof(std::uint32_t)));
}

TEST_F(DettaglioTest, EmptiedItHoldsNoMemory) {
    elenca(sviluppo(std::vector<int>(20000, 3)), 5);
    d.ordina(check::colonna_punti, Verso::decrescente);
    d.svuota();
    EXPECT_EQ(d.memoria(), 0U);
}

TEST_F(DettaglioTest, SortingEqualsAPlainSortOfTheTexts) {
    std::mt19937 caso(7);  // NOLINT: the same sequence every run
    std::vector<int> punti;
    for (int i = 0; i < 400; ++i) {
        const int p = static_cast<int>(caso() % 8);
        punti.push_back(p == 7 ? 51 : p);
    }
    elenca(sviluppo(punti), 3);
    std::vector<Testi> righe;
    for (std::size_t r = 0; r < d.righe(); ++r) righe.push_back(riga(r));
    for (const int c : {check::colonna_chiave, check::colonna_punti}) {
        for (const Verso verso : {Verso::crescente, Verso::decrescente}) {
            d.ordina(c, verso);
            std::vector<Testi> attese = righe;
            const auto k = static_cast<std::size_t>(c);
            std::stable_sort(attese.begin(), attese.end(), [&](const Testi& a, const Testi& b) {
                return verso == Verso::crescente ? a[k] < b[k] : b[k] < a[k];
            });
            for (std::size_t r = 0; r < d.righe(); ++r) ASSERT_EQ(riga(r), attese[r]);
        }
    }
}

}  // namespace
