// What is compiled for the processor at hand and for any other counts the same.
#include "platform/processore.h"

#include <gtest/gtest.h>

#include "analysis/analisi.h"
#include "analysis/giocate_prova.h"
#include "analysis/storico.h"
#include "support/processore.h"

using namespace analysis;
using prova::Caso;

namespace {

Giocate sistema(Caso& caso, int numeri, int in_gioco) {
    Giocate giocate;
    const auto righe = prova::righe_a_caso(caso, in_gioco, 5, 8, numeri, 2);
    EXPECT_EQ(prepara_giocate(righe, numeri, giocate), Lettura::letta);
    return giocate;
}

TEST(Processore, WithoutWideVectorsItIsNotTakenForOneThatHasThem) {
    const support::ProcessoreComune comune;
    EXPECT_FALSE(platform::processore_ampio());
}

TEST(Processore, EveryOneCountsTheSameDraws) {
    Caso caso(11);  // NOLINT: the same systems every run
    for (const int numeri : {3, 4, 5, 6}) {
        for (const int in_gioco : {12, 21}) {
            const Giocate giocate = sistema(caso, numeri, in_gioco);
            const int estratti = numeri == 6 ? 6 : 5;
            Analisi questo;
            ASSERT_TRUE(analizza(giocate, estratti, 1, questo));
            const support::ProcessoreComune comune;
            Analisi altro;
            ASSERT_TRUE(analizza(giocate, estratti, 1, altro));
            EXPECT_EQ(questo.distribuzione.migliore, altro.distribuzione.migliore)
                << numeri << " of " << in_gioco;
        }
    }
}

TEST(Processore, EveryOneCountsTheSameWins) {
    Caso caso(12);  // NOLINT: the same systems every run
    for (const int numeri : {3, 4, 5, 6}) {
        const Giocate giocate = sistema(caso, numeri, 40);
        const Mappe mappe(giocate);
        for (int i = 0; i < 200; ++i) {
            Estrazione e;
            const std::vector<int> usciti = prova::numeri_a_caso(caso, 7);
            const std::size_t quanti = numeri == 6 ? 6 : 5;
            for (std::size_t n = 0; n < quanti; ++n)
                e.numeri[n] = static_cast<std::uint8_t>(usciti[n]);
            if (numeri == 6) e.jolly = static_cast<std::uint8_t>(usciti[6]);
            const EsitoEstrazione questo = mappe.conta(e);
            const support::ProcessoreComune comune;
            const EsitoEstrazione altro = mappe.conta(e);
            EXPECT_EQ(questo.combinazioni, altro.combinazioni);
            EXPECT_EQ(questo.cinque_piu_uno, altro.cinque_piu_uno);
        }
    }
}

}  // namespace
