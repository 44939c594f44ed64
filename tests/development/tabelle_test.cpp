#include "development/tabelle.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>

#include "support/cartella.h"

using namespace development;
using crossword::Gioco;

namespace {

TEST(NomeTabella, EsempiDiOgniGioco) {
    EXPECT_EQ(nome_tabella(Gioco(), 6, 0), "cr0600.rid");
    EXPECT_EQ(nome_tabella(Gioco(), 9, 4), "cr0904.rid");
    EXPECT_EQ(nome_tabella(Gioco::lotto(3), 15, 1), "tr1501.rid");
    EXPECT_EQ(nome_tabella(Gioco::lotto(4), 8, 2), "qt0802.rid");
    EXPECT_EQ(nome_tabella(Gioco::lotto(5), 8, 3), "cn0803.rid");
}

TEST(NomeTabella, ZeroDavantiSoltantoSottoDieci) {
    EXPECT_EQ(nome_tabella(Gioco(), 9, 0), "cr0900.rid");
    EXPECT_EQ(nome_tabella(Gioco(), 10, 0), "cr1000.rid");
}

TEST(NomeTabella, VuotoPerUnaFormaCheNonEsiste) {
    for (const int forma : {-1, 0, 2, 6}) EXPECT_EQ(nome_tabella(Gioco::lotto(forma), 10, 0), "");
}

class LeggiTabella : public testing::Test {
protected:
    TabellaPosizioni leggi(const std::string& testo, int k = 3, int n = 5) {
        cartella.scrivi("t.rid", testo);
        return leggi_tabella(cartella.file("t.rid"), k, n);
    }
    using Posizioni = std::vector<std::uint8_t>;
    support::Cartella cartella;
};

TEST_F(LeggiTabella, RigheDiPosizioni) {
    const TabellaPosizioni t = leggi("1,2,3\r\n1,2,5\r\n3,4,5\r\n");
    EXPECT_TRUE(t.letta);
    EXPECT_EQ(t.k, 3);
    EXPECT_EQ(t.righe(), 3U);
    EXPECT_EQ(t.posizioni, (Posizioni{1, 2, 3, 1, 2, 5, 3, 4, 5}));
}

TEST_F(LeggiTabella, VirgoleEFiniDiRigaSeparanoAlloStessoModo) {
    const Posizioni attese{1, 2, 3, 1, 2, 5};
    EXPECT_EQ(leggi("1,2,3\n1,2,5\n").posizioni, attese);
    EXPECT_EQ(leggi("1,2,3,1,2,5").posizioni, attese);
    EXPECT_EQ(leggi("1\r\n2\r\n3\r\n1\n2\n5").posizioni, attese);
    EXPECT_EQ(leggi(" 1 , 2,3\r\n\"1\",2 ,5\r\n").posizioni, attese);
}

TEST_F(LeggiTabella, UnaTabellaCheMancaNonELetta) {
    const TabellaPosizioni t = leggi_tabella(cartella.file("manca.rid"), 6, 6);
    EXPECT_FALSE(t.letta);
    EXPECT_EQ(t.righe(), 0U);
    std::filesystem::create_directory(cartella.file("dir.rid"));
    EXPECT_FALSE(leggi_tabella(cartella.file("dir.rid"), 6, 6).letta);
    EXPECT_FALSE(leggi_tabella("", 6, 6).letta);
}

TEST_F(LeggiTabella, UnFileVuotoELettoENonHaRighe) {
    const TabellaPosizioni t = leggi("");
    EXPECT_TRUE(t.letta);
    EXPECT_EQ(t.righe(), 0U);
}

TEST_F(LeggiTabella, UnaPosizioneFuoriMisuraFermaELeRighePrimaRestano) {
    for (const char* guasta : {"0", "6", "-1", "256", "1e9", "x", "", "99999999999999999999"}) {
        const std::string riga = std::string("1,") + guasta + ",3\r\n";
        EXPECT_EQ(leggi("1,2,3\r\n" + riga + "3,4,5\r\n").posizioni, (Posizioni{1, 2, 3}))
            << guasta;
    }
}

TEST_F(LeggiTabella, UnaRigaCortaAllaFineCade) {
    EXPECT_EQ(leggi("1,2,3\r\n1,2").posizioni, (Posizioni{1, 2, 3}));
    EXPECT_EQ(leggi("1,2,3\r\n1\r\n").posizioni, (Posizioni{1, 2, 3}));
    EXPECT_EQ(leggi("1,2").righe(), 0U);
}

TEST_F(LeggiTabella, QuantePosizioniNonPositiveNiente) {
    for (const int k : {0, -1}) {
        EXPECT_EQ(leggi("1,2,3\r\n", k).righe(), 0U);
        EXPECT_TRUE(leggi("1,2,3\r\n", k).posizioni.empty());
    }
}

TEST_F(LeggiTabella, ByteACasoDannoSoloRigheIntereEPosizioniBuone) {
    std::mt19937 caso(7);
    const std::string lettere = "0123456789,,,\r\n\n\" -.eE\t";
    for (int giro = 0; giro < 400; ++giro) {
        std::string testo(caso() % 300, '\0');
        for (char& c : testo) {
            c = giro % 2 == 0 ? static_cast<char>(caso()) : lettere[caso() % lettere.size()];
        }
        const int k = 3 + static_cast<int>(caso() % 4);
        const TabellaPosizioni t = leggi(testo, k, 15);
        ASSERT_EQ(t.posizioni.size() % static_cast<std::size_t>(k), 0U);
        for (const int p : t.posizioni) ASSERT_TRUE(p >= 1 && p <= 15);
    }
}

}  // namespace
