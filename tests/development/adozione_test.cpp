// Which number an adopted table takes, by the function that the command and the window call.
#include "development/adozione.h"

#include <gtest/gtest.h>
#include <string>

#include "development/economiche.h"
#include "development/tabelle.h"
#include "platform/disk.h"
#include "support/cartella.h"

namespace development {
namespace {

const crossword::Gioco terzine = crossword::Gioco::lotto(3);

Tabella tabella(const std::string& righe, int n) {
    return leggi_rigorosa(righe, n, 3).tabella;
}

class AdozioneTest : public testing::Test {
protected:
    [[nodiscard]] Adozione prende(const Tabella& t) const {
        return adotta(t, terzine, std::nullopt, ridotti);
    }
    static std::string nome(int n, int numero) { return nome_tabella(terzine, n, numero); }
    [[nodiscard]] std::string dentro(const std::string& file) const {
        return platform::leggi_tutto(ridotti + "/" + file).value_or("");
    }
    support::Cartella cartella;
    const std::string ridotti = cartella.radice() + "/ridotti";
    /// Five of the five drawn hold its row; five of six one of the other's two.
    const Tabella cinque = tabella("1,2,3\n", 5);
    const Tabella sei = tabella("4,5,6\n1,2,3\n", 6);
};

TEST_F(AdozioneTest, TheFirstFreeNumberIsTakenAndNeverGivenAgain) {
    const Adozione prima = prende(cinque);
    EXPECT_EQ(prima.rifiuto, "");
    EXPECT_EQ(prima.nome, nome(5, prima_propria));
    EXPECT_EQ(prima.garanzia, (Garanzia{5, 3}));
    EXPECT_EQ(dentro(prima.nome), "1,2,3\r\n");
    EXPECT_EQ(prende(cinque).rifiuto, "c'è già, e si chiama " + prima.nome);
    EXPECT_EQ(prende(tabella("1,2,4\n", 5)).nome, nome(5, prima_propria + 1));
    platform::Kill(ridotti + "/" + nome(5, prima_propria + 1));
    EXPECT_EQ(prende(tabella("1,2,4\n", 5)).nome, nome(5, prima_propria + 2));
}

TEST_F(AdozioneTest, TheNumberOfTheSameGuaranteeOnANeighbouringLineIsTakenBeforeOthers) {
    ASSERT_EQ(prende(tabella("1,2,3\n", 6)).nome, nome(6, prima_propria));
    // Beside a table that gives something else a number is of no use to the diagonals.
    ASSERT_EQ(prende(cinque).nome, nome(5, prima_propria + 1));
    EXPECT_EQ(prende(sei).nome, nome(6, prima_propria + 1));
    EXPECT_EQ(dentro(nome(6, prima_propria + 1)), "1,2,3\r\n4,5,6\r\n");
}

TEST_F(AdozioneTest, WithoutANumberOfItsOwnItTakesOneThatIsFree) {
    for (int numero = prima_propria; numero <= ultima_economica; ++numero)
        platform::scrivi(ridotti + "/" + nome(5, numero), "1,2,3\r\n1,2,4\r\n1,3,4\r\n");
    EXPECT_EQ(prende(tabella("1,2,3\n", 6)).nome, nome(6, prima_propria));
}

TEST_F(AdozioneTest, WhenEveryNumberIsTakenItIsRefused) {
    for (int numero = prima_propria; numero <= ultima_economica; ++numero)
        platform::scrivi(ridotti + "/" + nome(5, numero), "x");
    const Adozione a = prende(cinque);
    EXPECT_TRUE(a.rifiuto.starts_with("tutti i numeri per le tabelle proprie sono presi"));
    EXPECT_FALSE(a.scrivendo);
    EXPECT_EQ(a.nome, "");
}

TEST_F(AdozioneTest, WhatIsSaidOfItIsProven) {
    EXPECT_TRUE(adotta(cinque, terzine, Garanzia{5, 3}, ridotti).rifiuto.empty());
    EXPECT_EQ(adotta(cinque, terzine, Garanzia{4, 3}, ridotti).rifiuto,
              "non vale con 4 estratti almeno una riga con 3 numeri indovinati (terno): 3 casi "
              "scoperti, il primo è 1,2,4,5");
    EXPECT_EQ(adotta(tabella("1,2,3\n1,2,4\n1,3,4\n", 5), terzine, Garanzia{4, 3}, ridotti).rifiuto,
              "non vale con 4 estratti almeno una riga con 3 numeri indovinati (terno): 1 caso "
              "scoperto, 2,3,4,5");
    EXPECT_EQ(prende(tabella("1,2,3\n", 4)).rifiuto,
              "una linea di 4 numeri non si riduce: vanno da 5 a 15");
}

}  // namespace
}  // namespace development
