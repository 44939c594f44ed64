#include "check/estrazioni.h"

#include <gtest/gtest.h>

#include "support/archivio.h"
#include "support/cartella.h"

using check::cerca_estrazione;
using support::Estrazioni;

namespace {

using Testi = std::vector<std::string>;

const std::vector<std::string> ruote{"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE"};

class EstrazioniTest : public ::testing::Test {
protected:
    /// Lotto draws `da` to `a`, ten wheels each; number k of wheel w of draw n is told by all
    /// three.
    static void lotto(Estrazioni& e, int da, int a) {
        for (int n = da; n <= a; ++n) {
            for (std::size_t w = 0; w < ruote.size(); ++w) {
                std::vector<std::string> riga{"2001-01-01", ruote[w]};
                for (int k = 0; k < 5; ++k) {
                    riga.push_back(std::to_string((n * 50 + static_cast<int>(w) * 5 + k) % 90 + 1));
                }
                riga.push_back(std::to_string(n));
                e.archivio.push_back(riga);
            }
        }
    }
    static void nazionali(Estrazioni& e, int da, int a) {
        for (int n = da; n <= a; ++n) {
            e.archivion.push_back({"2005-05-04", "NZ", "1", "2", "3", "4", "5", std::to_string(n)});
        }
    }
    void apri(const Estrazioni& e) {
        const std::string file = cartella.radice() + "/d.sqlite";
        support::scrivi_sqlite(file, e);
        db = support::apri(cartella.radice() + "/d.mdb");
        lotto_ = support::apri(db, "archivio");
        lotto_.Index("concorso");
        superenalotto_ = support::apri(db, "archivios");
        superenalotto_.Index("concorso");
        nazionale_ = support::apri(db, platform::Query{"archivion", "concorso"});
    }
    Testi elenco() { return check::elenco_lotto(lotto_, nazionale_); }

    support::Cartella cartella;
    platform::Database db;
    platform::Recordset lotto_;
    platform::Recordset superenalotto_;
    platform::Recordset nazionale_;
};

TEST(Archivio, LiesBesideTheFolderWhoseNameIsCutOffBlindly) {
    EXPECT_EQ(check::archivio_di("/a/cruciverba"), "/a/archivio/drawit.mdb");
    EXPECT_EQ(check::archivio_di("/a/cruciverba/"), "/a/archivio/drawit.mdb");
    EXPECT_EQ(check::archivio_di("/b/0123456789"), "/b/archivio/drawit.mdb");
    EXPECT_EQ(check::archivio_di("C:\\b\\cruciverba\\"), "C:\\b\\archivio/drawit.mdb");
    EXPECT_EQ(check::archivio_di("/x"), "archivio/drawit.mdb");
    EXPECT_EQ(check::archivio_di(""), "archivio/drawit.mdb");
}

TEST_F(EstrazioniTest, SuperenalottoListsEveryDrawFromTheNewestOn) {
    Estrazioni e;
    // Stored out of order, listed by the index.
    for (const auto& [n, data] : std::vector<std::pair<std::string, std::string>>{
             {"3", "1998-01-07"}, {"1234", "2010-12-31"}, {"27", "1999-02-03"}}) {
        e.archivios.push_back({data, "1", "2", "3", "4", "5", "6", "7", "<null>", n});
    }
    apri(e);
    EXPECT_EQ(check::elenco_superenalotto(superenalotto_),
              (Testi{"    1234    -  31/12/2010", "    0027    -  03/02/1999",
                     "    0003    -  07/01/1998"}));
}

TEST_F(EstrazioniTest, EmptyTablesGiveEmptyLists) {
    apri({});
    EXPECT_TRUE(check::elenco_superenalotto(superenalotto_).empty());
    EXPECT_TRUE(elenco().empty());
    platform::Recordset mai_aperto;
    EXPECT_TRUE(check::elenco_superenalotto(mai_aperto).empty());
    EXPECT_TRUE(check::elenco_lotto(mai_aperto, mai_aperto).empty());
}

TEST_F(EstrazioniTest, LottoListsTenWheelsInStoredOrderAndTheNational) {
    Estrazioni e;
    lotto(e, 41, 43);
    nazionali(e, 42, 43);
    apri(e);
    const Testi voci = elenco();
    ASSERT_EQ(voci.size(), 32U);
    for (std::size_t w = 0; w < 10; ++w) {
        EXPECT_EQ(voci[w], "    0043    -  01/01/2001  -  " + ruote[w]);
        EXPECT_EQ(voci[11 + w], "    0042    -  01/01/2001  -  " + ruote[w]);
        EXPECT_EQ(voci[22 + w], "    0041    -  01/01/2001  -  " + ruote[w]);
    }
    EXPECT_EQ(voci[10], "    0043    -  04/05/2005  -  NAZ.");
    EXPECT_EQ(voci[21], "    0042    -  04/05/2005  -  NAZ.");
}

TEST_F(EstrazioniTest, LottoListsAtMostAHundredDraws) {
    Estrazioni e;
    lotto(e, 1, 103);
    nazionali(e, 1, 103);
    apri(e);
    const Testi voci = elenco();
    ASSERT_EQ(voci.size(), 1100U);
    EXPECT_EQ(check::concorso_di(voci.front()), 103);
    EXPECT_EQ(voci[1089], "    0004    -  01/01/2001  -  BA");
    EXPECT_EQ(voci.back(), "    0004    -  04/05/2005  -  NAZ.");
}

TEST_F(EstrazioniTest, DrawOfFewerThanTenRowsEndsTheListWithoutHarm) {
    Estrazioni e;
    lotto(e, 1, 1);
    e.archivio.resize(4);
    apri(e);
    EXPECT_LE(elenco().size(), 4U);
}

TEST_F(EstrazioniTest, NumberAndWheelAreCutFromTheText) {
    EXPECT_EQ(check::concorso_di("    0027    -  03/02/1999"), 27);
    EXPECT_EQ(check::concorso_di("    1234    -  31/12/2010  -  BA"), 1234);
    EXPECT_EQ(check::concorso_di("    12345    -  31/12/2010  -  BA"), 1234);
    EXPECT_EQ(check::concorso_di(""), 0);
    EXPECT_EQ(check::ruota_di("    0043    -  01/01/2001  -  VE"), "VE");
    EXPECT_EQ(check::ruota_di(""), "");
    EXPECT_TRUE(check::nazionale("    0043    -  01/01/2001  -  NAZ."));
    EXPECT_FALSE(check::nazionale("    0043    -  01/01/2001  -  NA"));
}

TEST_F(EstrazioniTest, WheelIsFoundByStepsFromTheDraw) {
    Estrazioni e;
    lotto(e, 1, 5);
    apri(e);
    ASSERT_TRUE(check::trova_ruota(lotto_, 3, "TO"));
    EXPECT_EQ(lotto_.Fields(1).Value().testo(), "TO");
    EXPECT_EQ(lotto_.Fields(7).Value().intero(), 3);
    EXPECT_EQ(lotto_.Fields(2).Value().intero(), (3 * 50 + 8 * 5) % 90 + 1);
}

TEST_F(EstrazioniTest, WheelThatIsNotThereReadsOnToTheEnd) {
    Estrazioni e;
    lotto(e, 1, 5);
    apri(e);
    EXPECT_FALSE(check::trova_ruota(lotto_, 3, "XX"));
    EXPECT_TRUE(lotto_.eof());
}

TEST_F(EstrazioniTest, DrawThatIsNotThereHasNoWheel) {
    Estrazioni e;
    lotto(e, 1, 5);
    apri(e);
    EXPECT_FALSE(check::trova_ruota(lotto_, 9, "BA"));
}

using Caselle = std::array<std::string, 7>;

class Combinazione : public EstrazioniTest {
protected:
    void con(const std::vector<std::string>& riga) {
        Estrazioni e;
        e.archivios.push_back(riga);
        apri(e);
    }
    Caselle caselle{"a", "g", "f", "d", "e", "c", "b"};
};

TEST_F(Combinazione, FillsTheBoxesInTextOrderWithTheJollyFirst) {
    con({"2001-01-01", "5", "61", "12", "9", "33", "1", "48", "20", "7"});
    check::leggi_combinazione(superenalotto_, caselle);
    EXPECT_EQ(caselle, (Caselle{"48", "1", "12", "33", "5", "61", "9"}));
}

TEST_F(Combinazione, FieldThatIsEmptyLeavesItsBox) {
    con({"2001-01-01", "5", "61", "<null>", "9", "33", "1", "<null>", "<null>", "7"});
    check::leggi_combinazione(superenalotto_, caselle);
    EXPECT_EQ(caselle, (Caselle{"a", "1", "33", "5", "61", "9", "d"}));
}

TEST_F(Combinazione, PastTheEndNoBoxChanges) {
    con({"2001-01-01", "5", "61", "12", "9", "33", "1", "48", "20", "7"});
    superenalotto_.MoveNext();
    const Caselle prima = caselle;
    check::leggi_combinazione(superenalotto_, caselle);
    EXPECT_EQ(caselle, prima);
}

TEST_F(Combinazione, SeekThatFindsNothingKeepsTheBoxes) {
    con({"2001-01-01", "5", "61", "12", "9", "33", "1", "48", "20", "7"});
    superenalotto_.Seek("=", 8);
    const Caselle prima = caselle;
    check::leggi_combinazione(superenalotto_, caselle);
    EXPECT_EQ(caselle, prima);
}

TEST_F(Combinazione, RecordsetStaysWhereItIs) {
    con({"2001-01-01", "5", "61", "12", "9", "33", "1", "48", "20", "7"});
    check::leggi_combinazione(superenalotto_, caselle);
    EXPECT_EQ(superenalotto_.Fields(9).Value().intero(), 7);
}

std::vector<std::string> elenco_di_prova() {
    return {"    4251    -  31/12/2023", "    4250    -  28/12/2023", "    0425    -  05/03/2021",
            "    0043    -  12/03/2003", "    0042    -  08/03/2003", "    0004    -  10/12/1997"};
}

TEST(CercaEstrazione, DigitsAreTheNumberAtEachStepOfTheTyping) {
    const auto voci = elenco_di_prova();
    EXPECT_EQ(cerca_estrazione(voci, "4"), 5);
    EXPECT_EQ(cerca_estrazione(voci, "42"), 4);
    EXPECT_EQ(cerca_estrazione(voci, "425"), 2);
    EXPECT_EQ(cerca_estrazione(voci, "4250"), 1);
    EXPECT_EQ(cerca_estrazione(voci, "0043"), 3);
    EXPECT_EQ(cerca_estrazione(voci, "9"), -1);
    EXPECT_EQ(cerca_estrazione(voci, "42509"), -1);
    EXPECT_EQ(cerca_estrazione(voci, "99999999999999999999"), -1);
}

TEST(CercaEstrazione, ANumberTooLongForAnyDrawFindsNone) {
    const std::vector<std::string> voci{"    0012    -  08/02/1997", "    0001    -  03/12/1997"};
    EXPECT_EQ(cerca_estrazione(voci, "99999999999"), -1);
}

TEST(CercaEstrazione, ANumberThatIsNotListedIsTheBeginningOfOne) {
    const std::vector<std::string> voci{"    9902    -  02/01/2024  -  BA",
                                        "    9902    -  02/01/2024  -  CA",
                                        "    9901    -  01/01/2024  -  BA"};
    EXPECT_EQ(cerca_estrazione(voci, "9"), 0);
    EXPECT_EQ(cerca_estrazione(voci, "9901"), 2);
    EXPECT_EQ(cerca_estrazione(voci, "01/01/2024"), 2);
    EXPECT_EQ(cerca_estrazione(voci, "02/01"), 0);
}

TEST(CercaEstrazione, SeparatorsMakeADateOutOfTheDigits) {
    const auto voci = elenco_di_prova();
    EXPECT_EQ(cerca_estrazione(voci, "12/03/2003"), 3);
    EXPECT_EQ(cerca_estrazione(voci, "12.3.2003"), 3);
    EXPECT_EQ(cerca_estrazione(voci, "12-03-03"), 3);
    EXPECT_EQ(cerca_estrazione(voci, "31/"), 0);
    EXPECT_EQ(cerca_estrazione(voci, "10/1"), 5);
    EXPECT_EQ(cerca_estrazione(voci, "5/3"), 2);
    EXPECT_EQ(cerca_estrazione(voci, "1/2/3/4"), -1);
}

TEST(CercaEstrazione, ADayWithoutADrawMeansTheDrawThatFollowed) {
    const auto voci = elenco_di_prova();
    EXPECT_EQ(cerca_estrazione(voci, "09/03/2003"), 3);
    EXPECT_EQ(cerca_estrazione(voci, "13/03/2003"), 2);
    EXPECT_EQ(cerca_estrazione(voci, "01/01/1939"), 5);
    EXPECT_EQ(cerca_estrazione(voci, "01/01/2024"), -1);
    EXPECT_EQ(cerca_estrazione(voci, "09/03"), -1) << "no year yet";
    EXPECT_EQ(cerca_estrazione({}, "09/03/2003"), -1);
}

}  // namespace
