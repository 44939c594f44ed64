#include "analysis/passato.h"

#include "statistics/archivio.h"
#include "support/archivio.h"
#include "support/cartella.h"

using namespace analysis;
using crossword::Gioco;

namespace {

class Passato : public testing::Test {
protected:
    void archivio(const support::Estrazioni& e) {
        support::scrivi_sqlite(cartella.file("a.sqlite"), e);
        ASSERT_TRUE(platform::OpenDatabase(cartella.file("a.mdb"), false, true, database).ok());
    }
    std::vector<Estrazione> leggi(Gioco gioco, std::string_view ruota = "") {
        std::vector<Estrazione> tutte;
        EXPECT_TRUE(leggi_passato(database, gioco, ruota, tutte).ok());
        return tutte;
    }
    static std::vector<std::string> dove(const std::vector<Estrazione>& tutte) {
        std::vector<std::string> testi;
        for (const Estrazione& e : tutte) testi.push_back(std::to_string(e.concorso) + e.ruota);
        return testi;
    }
    support::Cartella cartella;
    platform::Database database;
};

TEST_F(Passato, SuperenalottoInOrdineConIlJolly) {
    archivio({{},
              {},
              {{"2010-12-31", "70", "8", "33", "21", "44", "90", "15", "3", "1234"},
               {"1998-01-07", "9", "12", "33", "45", "5", "81", "60", "<null>", "27"}}});
    const auto tutte = leggi(Gioco::superenalotto());
    ASSERT_EQ(tutte.size(), 2U);
    EXPECT_EQ(tutte[0].concorso, 27);
    EXPECT_EQ(tutte[0].data, "07/01/1998");
    EXPECT_EQ(tutte[0].numeri, (std::array<std::uint8_t, 6>{9, 12, 33, 45, 5, 81}));
    EXPECT_EQ(tutte[0].jolly, 60);
    EXPECT_EQ(tutte[0].ruota, "");
    EXPECT_EQ(tutte[1].concorso, 1234);
    EXPECT_EQ(tutte[1].jolly, 15);
}

TEST_F(Passato, LottoPerRuotaEPerTutte) {
    archivio({{{"2001-01-03", "BA", "1", "2", "3", "4", "5", "3"},
               {"2001-01-03", "RM", "6", "7", "8", "9", "10", "3"},
               {"2001-01-05", "BA", "11", "12", "13", "14", "15", "4"},
               {"2001-01-05", "RM", "16", "17", "18", "19", "20", "4"}},
              {{"2001-01-05", "NZ", "21", "22", "23", "24", "25", "4"}},
              {}});
    const auto roma = leggi(Gioco::lotto(3), "RM");
    EXPECT_EQ(dove(roma), (std::vector<std::string>{"3Roma", "4Roma"}));
    EXPECT_EQ(roma[1].numeri, (std::array<std::uint8_t, 6>{16, 17, 18, 19, 20, 0}));
    EXPECT_EQ(roma[1].data, "05/01/2001");
    EXPECT_EQ(roma[1].jolly, 0);
    EXPECT_EQ(dove(leggi(Gioco::lotto(3), statistics::nazionale)),
              (std::vector<std::string>{"4Nazionale"}));
    EXPECT_EQ(dove(leggi(Gioco::lotto(5))),
              (std::vector<std::string>{"3Bari", "3Roma", "4Bari", "4Roma", "4Nazionale"}));
    EXPECT_TRUE(leggi(Gioco::lotto(5), "GE").empty());
}

TEST_F(Passato, NumeriCheNonSonoDelGiocoRestanoVuoti) {
    archivio({{},
              {},
              {{"2010-12-31", "0", "91", "-5", "21", "<null>", "90", "<null>", "3", "1"},
               {"2010-12-31", "<null>", "<null>", "<null>", "<null>", "<null>", "<null>", "5", "3",
                "2"}}});
    const auto tutte = leggi(Gioco::superenalotto());
    ASSERT_EQ(tutte.size(), 1U);
    EXPECT_EQ(tutte[0].numeri, (std::array<std::uint8_t, 6>{0, 0, 0, 21, 0, 90}));
    EXPECT_EQ(tutte[0].jolly, 0);
}

TEST_F(Passato, SenzaArchivioNessunaEstrazione) {
    std::vector<Estrazione> tutte(3);
    EXPECT_FALSE(leggi_passato(database, Gioco::superenalotto(), "", tutte).ok());
    EXPECT_TRUE(tutte.empty());
}

TEST_F(Passato, LaPosizioneDiChiLeggeGiaNonSiMuove) {
    archivio({{},
              {},
              {{"2010-12-31", "70", "8", "33", "21", "44", "90", "15", "3", "1234"},
               {"1998-01-07", "9", "12", "33", "45", "5", "81", "60", "<null>", "27"}}});
    platform::Recordset aperto;
    ASSERT_TRUE(database.OpenRecordset("archivios", aperto).ok());
    ASSERT_TRUE(aperto.MoveLast().ok());
    leggi(Gioco::superenalotto());
    EXPECT_EQ(aperto.Fields(9).Value().intero(), 27);
}

}  // namespace
