// What differs between the games, and a form that does not exist.
#include "crossword/gioco.h"

#include <gtest/gtest.h>

using crossword::Gioco;

TEST(Gioco, SuperEnalotto) {
    constexpr Gioco g;
    EXPECT_EQ(g, Gioco::superenalotto());
    EXPECT_FALSE(g.e_lotto());
    EXPECT_TRUE(g.valido());
    EXPECT_EQ(g.numeri(), 6);
    EXPECT_EQ(g.estratti(), 7);
    EXPECT_EQ(g.lato_minimo(), 6);
    EXPECT_EQ(g.diagonali(), 6);
    EXPECT_FALSE(g.adiacenti(6));
    EXPECT_TRUE(g.adiacenti(7));
    EXPECT_STREQ(g.estensione_sistema(), ".sen");
    EXPECT_STREQ(g.estensione_sviluppo(), ".col");
    EXPECT_STREQ(g.prefisso_tabelle(), "cr");
    EXPECT_STREQ(g.nome_combinazioni(), "Sestine");
    EXPECT_EQ(g.titolo(), "Tabellino - SuperEnalotto");
}

TEST(Gioco, LeTreFormeDelLotto) {
    const std::array<const char*, 3> nomi = {"Terzine", "Quartine", "Cinquine"};
    const std::array<const char*, 3> prefissi = {"tr", "qt", "cn"};
    for (int forma = 3; forma <= 5; ++forma) {
        const Gioco g = Gioco::lotto(forma);
        const auto i = static_cast<std::size_t>(forma - 3);
        EXPECT_TRUE(g.e_lotto());
        EXPECT_TRUE(g.valido());
        EXPECT_EQ(g.forma(), forma);
        EXPECT_EQ(g.numeri(), forma);
        EXPECT_EQ(g.estratti(), 5);
        EXPECT_EQ(g.lato_minimo(), 5);
        EXPECT_EQ(g.diagonali(), 2);
        EXPECT_FALSE(g.adiacenti(15));
        EXPECT_STREQ(g.estensione_sistema(), ".sel");
        EXPECT_STREQ(g.estensione_sviluppo(), ".lot");
        EXPECT_STREQ(g.prefisso_tabelle(), prefissi[i]);
        EXPECT_STREQ(g.nome_combinazioni(), nomi[i]);
        EXPECT_EQ(g.titolo(), std::string("Tabellino - Lotto (Sistemi in ") + nomi[i] + ")");
    }
    EXPECT_EQ(Gioco::lotto(), Gioco::lotto(5));
}

TEST(Gioco, UnaFormaCheNonEsisteRestaENonGioca) {
    for (const int forma : {-32768, 0, 2, 6, 32767}) {
        const Gioco g = Gioco::lotto(forma);
        EXPECT_FALSE(g.valido());
        EXPECT_EQ(g.forma(), forma);
        EXPECT_EQ(g.numeri(), 0);
        EXPECT_STREQ(g.prefisso_tabelle(), "");
        EXPECT_STREQ(g.nome_combinazioni(), "");
        EXPECT_EQ(g.titolo(), "Tabellino - Lotto");
        EXPECT_STREQ(g.estensione_sistema(), ".sel");
    }
}
