// Numbers searched in a development, and a development written for other programs.
#include "viewer/ricerca.h"

#include <gtest/gtest.h>

#include "support/cartella.h"
#include "support/guasti.h"
#include "viewer/esportazione.h"

using viewer::cerca;
using viewer::Cercati;
using viewer::esporta;
using viewer::Esportato;
using viewer::leggi_cercati;
using viewer::trovate;

namespace {

using Posti = std::vector<std::int32_t>;

Cercati insieme(std::initializer_list<std::size_t> numeri) {
    Cercati c;
    for (const std::size_t n : numeri) c.set(n);
    return c;
}

class RicercaSviluppo : public testing::Test {
protected:
    RicercaSviluppo() {
        cartella.scrivi("s.col", "1,2,3,4,5,6\r\n7,8,9,10,11,12\r\n1,8,20,30,40,90\r\n");
    }
    support::Cartella cartella;
    const std::string sviluppo = cartella.file("s.col");
};

TEST(Cercati, AnythingMayStandBetweenTheNumbers) {
    EXPECT_EQ(leggi_cercati("7 21,33-90"), insieme({7, 21, 33, 90}));
    EXPECT_EQ(leggi_cercati("07 7"), insieme({7}));
    EXPECT_EQ(leggi_cercati(" . "), Cercati());
    for (const char* fuori : {"0", "91", "7 99999999999999999999999", "007 00"}) {
        EXPECT_EQ(leggi_cercati(fuori), std::nullopt) << fuori;
    }
}

TEST(Cercati, TheCountIsToldWithTheNumbers) {
    EXPECT_EQ(trovate(172172, insieme({7, 21, 33})), "172.172 combinazioni con 7, 21 e 33");
    EXPECT_EQ(trovate(1, insieme({90})), "Una combinazione con 90");
    EXPECT_EQ(trovate(0, insieme({1, 2})), "Nessuna combinazione con 1 e 2");
    EXPECT_EQ(trovate(0, {}), "");
}

TEST_F(RicercaSviluppo, AllTheNumbersMustBeThere) {
    EXPECT_EQ(cerca(sviluppo, 6, insieme({8})), (Posti{2, 3}));
    EXPECT_EQ(cerca(sviluppo, 6, insieme({1, 8})), Posti{3});
    EXPECT_EQ(cerca(sviluppo, 6, insieme({40, 90})), Posti{3});
    EXPECT_EQ(cerca(sviluppo, 6, insieme({1, 2, 3, 4, 5, 6})), Posti{1});
    EXPECT_EQ(cerca(sviluppo, 6, insieme({1, 7})), Posti{});
    EXPECT_EQ(cerca(sviluppo, 6, insieme({1, 2, 3, 4, 5, 6, 7})), Posti{});
    EXPECT_EQ(cerca(sviluppo, 6, {}), Posti{});
}

TEST_F(RicercaSviluppo, ADamagedOrMissingFileFindsWhatCanBeRead) {
    cartella.scrivi("s.col", "1,2,3,4,5,6\r\n1,2,999,4,5,6\r\n1,2,3,4,5,6\r\n");
    EXPECT_EQ(cerca(sviluppo, 6, insieme({1})), Posti{1});
    EXPECT_EQ(cerca(cartella.file("nessuno.col"), 6, insieme({1})), Posti{});
    cartella.scrivi("s.lot", "1,2,3\r\n4,5");
    EXPECT_EQ(cerca(cartella.file("s.lot"), 3, insieme({4})), Posti{});
}

TEST_F(RicercaSviluppo, TheTableIsTheOneOfTheCommand) {
    const auto fatta = esporta(sviluppo, 6, cartella.file("s.csv"));
    EXPECT_EQ(fatta.esito, Esportato::completo);
    EXPECT_EQ(fatta.righe, 3);
    EXPECT_EQ(cartella.leggi("s.csv"),
              "combinazione,n1,n2,n3,n4,n5,n6\n1,1,2,3,4,5,6\n2,7,8,9,10,11,12\n"
              "3,1,8,20,30,40,90\n");
}

TEST_F(RicercaSviluppo, TheTextHasTheNumbersAlone) {
    EXPECT_EQ(esporta(sviluppo, 6, cartella.file("s.TXT")).esito, Esportato::completo);
    EXPECT_EQ(cartella.leggi("s.TXT"), " 1  2  3  4  5  6\n 7  8  9 10 11 12\n 1  8 20 30 40 90\n");
}

TEST_F(RicercaSviluppo, WhatIsNotFinishedLeavesNoTrace) {
    std::string lungo;
    for (int i = 0; i < 20000; ++i) lungo += "1,2,3,4,5,6\r\n";
    cartella.scrivi("s.col", lungo);
    cartella.scrivi("s.csv", "prima");
    int chieste = 0;
    const auto fermata =
        esporta(sviluppo, 6, cartella.file("s.csv"), [&chieste] { return ++chieste < 3; });
    EXPECT_EQ(fermata.esito, Esportato::interrotto);
    EXPECT_EQ(chieste, 3);
    EXPECT_EQ(cartella.leggi("s.csv"), "prima");
    EXPECT_EQ(esporta(cartella.file("no.col"), 6, cartella.file("s.csv")).esito,
              Esportato::illeggibile);
    EXPECT_EQ(cartella.leggi("s.csv"), "prima");
}

TEST_F(RicercaSviluppo, AFullDiskIsTold) {
    support::Disco disco;
    disco.spazio = 10;
    const auto fatta = esporta(sviluppo, 6, cartella.file("s.csv"));
    EXPECT_EQ(fatta.esito, Esportato::non_scritto);
    EXPECT_EQ(fatta.disco, platform::Esito::disco_pieno);
    EXPECT_FALSE(cartella.esiste("s.csv"));
}

}  // namespace
