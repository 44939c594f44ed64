#include "analysis/catalogo.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>

#include "support/cartella.h"

using analysis::Catalogo;
using crossword::Gioco;

namespace {

const std::string spedite = SUITE_DIR "/ridotti";

std::size_t posto(const Catalogo& c, const std::string& nome) {
    const auto dove = std::find_if(c.tabelle().begin(), c.tabelle().end(),
                                   [&](const auto& t) { return t.nome == nome; });
    return static_cast<std::size_t>(dove - c.tabelle().begin());
}

TEST(Catalogo, HaTutteLeTabelleDetteEPoiLeEconomiche) {
    const Catalogo c(spedite, Gioco(), 9);
    std::vector<std::string> nomi;
    for (const auto& t : c.tabelle()) nomi.push_back(t.nome);
    EXPECT_EQ(nomi, (std::vector<std::string>{"cr0900", "cr0901", "cr0902", "cr0903", "cr0904",
                                              "cr0933", "cr0934", "cr0935", "cr0936", "cr0944",
                                              "cr0945", "cr0946", "cr0955", "cr0956"}));
    const auto tavola = c.tavola();
    EXPECT_EQ(tavola.titolo, "Sestine su 9 numeri");
    ASSERT_EQ(tavola.righe.size(), nomi.size());
    EXPECT_EQ(tavola.righe[1],
              (std::vector<std::string>{"cr0901", "5 con 6 estratti", "8", "9,52", "1"}));
    EXPECT_EQ(tavola.righe.back(),
              (std::vector<std::string>{"cr0956", "5 con 6 estratti", "7", "8,33", "—"}));
    EXPECT_EQ(c.tabelle()[4].tipo, "12 sestine - Min.1(4) con 4 estratti");
    EXPECT_EQ(c.tabelle().back().tipo, "Economica: 7 Sestine (8,33 %) - Min.1(5) con 6 estratti");
    // What is promised more than once is not spared by a table that promises it once.
    const Catalogo undici(spedite, Gioco(), 11);
    EXPECT_EQ(undici.risparmio(undici.tabelle()[posto(undici, "cr1104")]), 0);
    EXPECT_GE(undici.risparmio(undici.tabelle()[posto(undici, "cr1101")]), 12);
}

TEST(Catalogo, VinciteEProvaDiUnaTabella) {
    const Catalogo c(spedite, Gioco::lotto(3), 7);
    const std::size_t quale = posto(c, "tr0701");
    const auto vincite = c.vincite(quale);
    EXPECT_EQ(vincite.colonne, (std::vector<std::string>{"Estratti", "3", "2", "1", "Sempre"}));
    ASSERT_EQ(vincite.righe.size(), 5U);
    EXPECT_EQ(vincite.righe[1], (std::vector<std::string>{"2", "", "100 %", "", "1 da 2"}));
    EXPECT_EQ(c.prova(quale),
              "tr0701: provata su tutti i 21 sorteggi di 2 numeri, 2 con 2 estratti vale sempre.");
    EXPECT_TRUE(c.vincite(c.tabelle().size()).righe.empty());
    EXPECT_EQ(c.prova(c.tabelle().size()), "");
}

TEST(Catalogo, UnaDettaCheNonValeSiDiceEUnaGuastaNonCE) {
    const support::Cartella cartella;
    const std::string ridotti = cartella.radice() + "/ridotti";
    std::ofstream(ridotti + "/tr0501.rid", std::ios::binary) << "1,2,3\r\n";
    std::ofstream(ridotti + "/tr0500.rid", std::ios::binary) << "1,2\r\n";
    const Catalogo c(ridotti, Gioco::lotto(3), 5);
    ASSERT_EQ(c.tabelle().size(), 1U);
    EXPECT_EQ(c.prova(0), "tr0501: 2 con 2 estratti NON vale in 7 sorteggi su 10.");
    for (const int n : {0, 4, 16}) EXPECT_TRUE(Catalogo(ridotti, Gioco(), n).tabelle().empty());
    EXPECT_TRUE(Catalogo(ridotti, Gioco::lotto(9), 7).tabelle().empty());
    EXPECT_EQ(Catalogo("/non/esiste", Gioco(), 9).tavola().note.size(), 1U);
}

}  // namespace
