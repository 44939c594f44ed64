#include "analysis/premi.h"

#include <gtest/gtest.h>

#include "support/cartella.h"

using namespace analysis;
using crossword::Gioco;

namespace {

TEST(Premi, TestiAmmessi) {
    EXPECT_EQ(leggi_premio("25"), 25.0);
    EXPECT_EQ(leggi_premio("25,4"), 25.4);
    EXPECT_EQ(leggi_premio("0,05"), 0.05);
    EXPECT_EQ(leggi_premio("9999999999,99"), 9999999999.99);
    for (const char* testo :
         {"", ",", ",5", "1,234", "1.5", "-1", "1e9", " 1", "12345678901", "1,2,3", "inf", "nan"}) {
        EXPECT_FALSE(leggi_premio(testo)) << testo;
    }
    for (const char* testo : {"25", "25,40", "0,05", "9999999999,99"}) {
        EXPECT_EQ(testo_premio(*leggi_premio(testo)), testo);
    }
    EXPECT_EQ(testo_premio(0), "");
}

TEST(Premi, QuelliDegliAltriGiochiRestano) {
    const support::Cartella cartella;
    Premi sei;
    sei.premio[3] = 25.4;
    sei.cinque_piu_uno = 500000;
    ASSERT_TRUE(scrivi_premi(cartella.programma(), Gioco::superenalotto(), sei));
    Premi terzine;
    terzine.premio[2] = 83.33;
    ASSERT_TRUE(scrivi_premi(cartella.programma(), Gioco::lotto(3), terzine));
    EXPECT_EQ(cartella.leggi("premi.dat"),
              "\"cr\",\"5+1\",\"500000\"\r\n\"cr\",\"3\",\"25,40\"\r\n\"tr\",\"2\",\"83,33\"\r\n");
    const Premi letti = leggi_premi(cartella.programma(), Gioco::superenalotto());
    EXPECT_EQ(letti.premio[3], 25.4);
    EXPECT_EQ(letti.cinque_piu_uno, 500000);
    EXPECT_EQ(leggi_premi(cartella.programma(), Gioco::lotto(3)).premio[2], 83.33);
    EXPECT_EQ(leggi_premi(cartella.programma(), Gioco::lotto(4)).premio[2], 0);
}

TEST(Premi, UnFileGuastoNonFaDanno) {
    const support::Cartella cartella;
    const auto letti = [&](const std::string& contenuto) {
        cartella.scrivi("premi.dat", contenuto);
        return leggi_premi(cartella.programma(), Gioco::superenalotto());
    };
    EXPECT_EQ(letti("").premio[3], 0);
    EXPECT_EQ(letti("\"cr\",\"3\"").premio[3], 0);
    EXPECT_EQ(letti("\"cr\",\"3\",\"tanto\"\r\n\"cr\",\"4\",\"9\"\r\n").premio[4], 9);
    EXPECT_EQ(letti("\"cr\",\"77\",\"9\"\r\n\"cr\",\"-1\",\"9\"\r\n").premio[6], 0);
    EXPECT_EQ(letti(std::string(5000, '\0') + "\xff\xfe,,,,\"").premio[3], 0);
    EXPECT_EQ(letti(std::string(70000, ' ') + "\r\n\"cr\",\"3\",\"9\"\r\n").premio[3], 0);
    EXPECT_EQ(leggi_premi(cartella.programma() + "/manca", Gioco::superenalotto()).premio[3], 0);
}

TEST(Premi, CategorieDiOgniGioco) {
    EXPECT_EQ(categorie(Gioco::superenalotto()).size(), 6U);
    EXPECT_EQ(categorie(Gioco::superenalotto())[1].nome, "5 + 1");
    EXPECT_EQ(categorie(Gioco::lotto(3)).front().nome, "terno");
    EXPECT_EQ(categorie(Gioco::lotto(5)).front().nome, "cinquina");
    EXPECT_TRUE(categorie(Gioco::lotto(9)).empty());
}

}  // namespace
