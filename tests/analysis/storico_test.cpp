#include "analysis/storico.h"

#include <gtest/gtest.h>

#include "analysis/giocate_prova.h"
#include "check/spoglio.h"
#include "support/cartella.h"

using namespace analysis;
using prova::Caso;
using prova::Riga;

namespace {

std::string testo(const std::vector<Riga>& righe, int numeri) {
    std::string t;
    for (const Riga& riga : righe) {
        for (int i = 0; i < numeri; ++i) {
            t += (i > 0 ? "," : "") + std::to_string(riga[static_cast<std::size_t>(i)]);
        }
        t += "\r\n";
    }
    return t;
}

Estrazione estrai(Caso& caso, bool lotto) {
    Estrazione e;
    std::vector<int> numeri = prova::numeri_a_caso(caso, lotto ? 5 : 7);
    std::shuffle(numeri.begin(), numeri.end(), caso);
    for (std::size_t i = 0; i < (lotto ? 5U : 6U); ++i) {
        e.numeri[i] = static_cast<std::uint8_t>(numeri[i]);
    }
    if (!lotto) e.jolly = static_cast<std::uint8_t>(numeri[6]);
    return e;
}

Giocate giocate_di(const std::vector<Riga>& righe, int numeri) {
    Giocate giocate;
    EXPECT_EQ(prepara_giocate(righe, numeri, giocate), Lettura::letta);
    return giocate;
}

TEST(Storico, OgniEstrazioneComeLoSpoglio) {
    const support::Cartella cartella;
    Caso caso(1);  // NOLINT: the same systems every run
    for (int prova = 0; prova < 20; ++prova) {
        const int numeri = 3 + prova % 4;
        const bool lotto = numeri < 6;
        const auto gioco =
            lotto ? crossword::Gioco::lotto(numeri) : crossword::Gioco::superenalotto();
        const auto righe =
            prova::righe_a_caso(caso, 10 + prova::a_caso(caso, 70), 1 + prova::a_caso(caso, 8),
                                8 + prova % 3, numeri, 1 + prova % 2);
        cartella.scrivi("s", testo(righe, numeri));
        const Mappe mappe(giocate_di(righe, numeri));
        for (int i = 0; i < 500; ++i) {
            const Estrazione e = estrai(caso, lotto);
            check::RichiestaSpoglio r{
                cartella.file("s"), static_cast<std::int32_t>(righe.size()), gioco, {}};
            std::size_t casella = 0;
            if (!lotto) r.vincente[casella++] = e.jolly;
            for (std::size_t n = 0; n < (lotto ? 5U : 6U); ++n) r.vincente[casella++] = e.numeri[n];
            check::Spoglio spoglio;
            ASSERT_TRUE(spoglio.conta(r, [](std::int32_t) { return true; }));
            const EsitoEstrazione esito = mappe.conta(e);
            for (int t = lotto ? 2 : 0; t <= 6; ++t) {
                ASSERT_EQ(esito.combinazioni[static_cast<std::size_t>(t)],
                          static_cast<std::uint32_t>(spoglio.totale(t)))
                    << "system " << prova << ", draw " << i << ", " << t << " hits";
            }
            ASSERT_EQ(esito.cinque_piu_uno, static_cast<std::uint32_t>(spoglio.totale_jolly(5)));
        }
    }
}

TEST(Storico, IFattiNotevoli) {
    // Wins are 3 hits or more; the draws name their best result.
    const Mappe mappe(giocate_di({{1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 7}}, 6));
    const auto estrazione = [](std::array<std::uint8_t, 6> numeri, std::uint8_t jolly) {
        Estrazione e;
        e.numeri = numeri;
        e.jolly = jolly;
        return e;
    };
    const std::vector<Estrazione> tutte{
        estrazione({80, 81, 82, 83, 84, 85}, 1),  // nothing
        estrazione({1, 2, 3, 80, 81, 82}, 1),     // two with 3
        estrazione({80, 81, 82, 83, 84, 85}, 1),  // nothing
        estrazione({1, 2, 80, 81, 82, 83}, 1),    // two with 2
        estrazione({6, 7, 8, 9, 10, 11}, 1),      // two with 1
        estrazione({1, 2, 3, 4, 5, 80}, 7),       // a 5 and a 5 + 1
        estrazione({1, 2, 3, 4, 5, 6}, 7),        // a 6 and a 5 + 1, as the check counts
        estrazione({1, 2, 3, 80, 81, 82}, 1),     // two with 3
        estrazione({0, 0, 0, 0, 0, 0}, 0),        // not known
    };
    Storico s;
    ASSERT_TRUE(calcola_storico(mappe, tutte, 3, 2, s));
    EXPECT_EQ(s.vincenti, 4U);
    EXPECT_EQ(s.digiuno, 3U);
    EXPECT_EQ(s.digiuno_da, 2U);
    EXPECT_EQ(s.digiuno_attuale, 1U);
    EXPECT_EQ(s.migliori, (std::vector<std::size_t>{6, 5, 7, 1}));
    EXPECT_EQ(s.combinazioni[6], 1U);
    EXPECT_EQ(s.combinazioni[5], 1U);
    EXPECT_EQ(s.cinque_piu_uno, 2U);
    EXPECT_EQ(s.combinazioni[3], 4U);
    EXPECT_EQ(s.combinazioni[2], 2U);
    EXPECT_EQ(s.combinazioni[1], 2U);
    EXPECT_EQ(s.combinazioni[0], 6U);
    EXPECT_EQ(s.esiti[5].migliore(), 5);
    EXPECT_EQ(s.esiti[8].migliore(), 0);
}

TEST(Storico, NessunaEstrazioneEArresto) {
    const Mappe mappe(giocate_di({{1, 2, 3}}, 3));
    Storico s;
    ASSERT_TRUE(calcola_storico(mappe, {}, 2, 2, s));
    EXPECT_EQ(s.vincenti, 0U);
    EXPECT_TRUE(s.migliori.empty());
    const std::vector<Estrazione> molte(5000);
    int passi = 0;
    EXPECT_FALSE(calcola_storico(mappe, molte, 2, 1, s, [&](double) { return ++passi < 3; }));
    EXPECT_EQ(passi, 3);
}

TEST(Storico, NonPiuDiDieciMigliori) {
    const Mappe mappe(giocate_di({{1, 2, 3}}, 3));
    Estrazione e;
    e.numeri = {1, 2, 80, 81, 82, 0};
    Storico s;
    ASSERT_TRUE(calcola_storico(mappe, std::vector<Estrazione>(300, e), 2, 1, s));
    EXPECT_EQ(s.vincenti, 300U);
    ASSERT_EQ(s.migliori.size(), 10U);
    EXPECT_EQ(s.migliori.front(), 299U);
}

TEST(Storico, TheBetterDrawHasTheHigherCategoryFirstThenMoreOfIt) {
    EsitoEstrazione piu;
    EsitoEstrazione meno;
    EXPECT_FALSE(piu.meglio_di(meno));
    for (const std::size_t t : {1U, 2U, 3U, 4U, 5U}) {
        piu = meno = {};
        piu.combinazioni[t] = 1;
        meno.combinazioni[t - 1] = 9;
        EXPECT_TRUE(piu.meglio_di(meno)) << t;
        EXPECT_FALSE(meno.meglio_di(piu)) << t;
        meno.combinazioni[t] = 2;
        EXPECT_FALSE(piu.meglio_di(meno)) << t;
    }
    piu = meno = {};
    piu.cinque_piu_uno = 1;
    meno.combinazioni[5] = 9;
    EXPECT_TRUE(piu.meglio_di(meno));
    meno.combinazioni[6] = 1;
    EXPECT_FALSE(piu.meglio_di(meno));
    EXPECT_TRUE(meno.meglio_di(piu));
}

TEST(Storico, FiveAndTheJollyCountAsFiveHits) {
    EsitoEstrazione esito;
    EXPECT_EQ(esito.migliore(), 0);
    esito.combinazioni[2] = 1;
    EXPECT_EQ(esito.migliore(), 2);
    esito.cinque_piu_uno = 1;
    EXPECT_EQ(esito.migliore(), 5);
    esito.combinazioni[6] = 1;
    EXPECT_EQ(esito.migliore(), 6);
}

}  // namespace
