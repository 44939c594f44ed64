// The open archive as the statistics read it, and the queries on it.
#include "statistics/archivio.h"

#include <gtest/gtest.h>
#include <set>

#include "statistics/archivio_finto.h"
#include "statistics/lettore_archivio.h"
#include "support/archivio.h"
#include "support/archivio_prova.h"
#include "support/cartella.h"

using platform::Valore;
using statistics::Archivio;
using statistics::LettoreArchivio;

namespace {

class ArchivioTest : public testing::Test {
protected:
    void metti(const support::Quante& quante) const {
        support::metti_archivio(cartella_.radice(), support::archivio_inventato(quante, 1));
    }
    [[nodiscard]] std::string file() const {
        return statistics::file_archivio(cartella_.radice() + "/");
    }
    support::Cartella cartella_;
    Archivio archivio_;
};

TEST_F(ArchivioTest, AWheelIsAskedForByItsCode) {
    metti({5, 5, 5});
    ASSERT_TRUE(archivio_.apri(file(), true).ok());
    const auto ruote_di = [this](const platform::Query& query) {
        std::set<std::string> ruote;
        for (auto rs = support::apri(archivio_.database, query); !rs.eof(); rs.MoveNext())
            ruote.insert(rs.Fields("ruota").Value().testo().value_or(""));
        return ruote;
    };
    EXPECT_EQ(ruote_di(statistics::query_ruota("TO")), std::set<std::string>{"TO"});
    EXPECT_EQ(ruote_di(statistics::query_ruota("NAZIONALE")).size(), 1U);
    EXPECT_TRUE(ruote_di(statistics::query_ruota("")).empty());
    EXPECT_FALSE(ruote_di(statistics::query_ruota("NAZIONALE")).contains("TO"));
}

TEST(Wheel, IsKnownByItsPlace) {
    EXPECT_EQ(statistics::codice_ruota(0), "BA");
    EXPECT_EQ(statistics::codice_ruota(9), "VE");
    EXPECT_EQ(statistics::codice_ruota(10), "NAZIONALE");
    EXPECT_EQ(statistics::codice_ruota(11), "");
    EXPECT_EQ(statistics::codice_ruota(-1), "");
}

TEST_F(ArchivioTest, ReadsTheSixNumbersByName) {
    metti({5, 5, 5});
    ASSERT_TRUE(archivio_.apri(file(), false).ok());
    LettoreArchivio lettore(archivio_);
    const auto attese = support::estrazioni(5, 1);
    ASSERT_TRUE(lettore.MoveFirst());
    for (const support::Record& r : attese) {
        ASSERT_FALSE(lettore.alla_fine());
        for (int i = 1; i <= 6; ++i) {
            EXPECT_EQ(lettore.estratto(i), r.numeri.at(static_cast<std::size_t>(i - 1)));
        }
        EXPECT_EQ(lettore.Jolly(), r.Jolly);
        EXPECT_EQ(lettore.superstar(), r.superstar);
        EXPECT_EQ(lettore.data(), r.data);
        // The bound places begin at the second number.
        for (int i = 1; i <= 5; ++i) {
            EXPECT_EQ(lettore.campi_estratti(i), r.numeri.at(static_cast<std::size_t>(i)));
        }
        EXPECT_TRUE(lettore.MoveNext());
    }
    EXPECT_TRUE(lettore.alla_fine());
    EXPECT_FALSE(lettore.MoveNext());
    EXPECT_EQ(lettore.estratto(1), std::nullopt);
    EXPECT_EQ(lettore.data(), std::nullopt);
    for (const int fuori : {0, 7}) EXPECT_EQ(lettore.estratto(fuori), std::nullopt);
    for (const int fuori : {0, 6}) EXPECT_EQ(lettore.campi_estratti(fuori), std::nullopt);
}

TEST_F(ArchivioTest, AWheelHasFiveNumbersAndNoJolly) {
    metti({5, 5, 5});
    ASSERT_TRUE(archivio_.apri(file(), true).ok());
    ASSERT_TRUE(
        archivio_.database.OpenRecordset(statistics::query_ruota("CA"), archivio_.draws).ok());
    ASSERT_TRUE(archivio_.lega(7).ok());
    LettoreArchivio lettore(archivio_);
    ASSERT_TRUE(lettore.MoveLast());
    EXPECT_EQ(lettore.RecordCount(), 5);
    const support::Record r = support::estrazioni(5, 1 + 2 + 1).back();
    for (int i = 1; i <= 5; ++i) {
        const auto n = r.numeri.at(static_cast<std::size_t>(i - 1));
        EXPECT_EQ(lettore.campi_estratti(i), n);
        EXPECT_EQ(lettore.estratto(i), n);
    }
    EXPECT_EQ(lettore.estratto(6), std::nullopt);
    EXPECT_EQ(lettore.Jolly(), std::nullopt);
    EXPECT_EQ(lettore.superstar(), std::nullopt);
}

TEST_F(ArchivioTest, MovesBeforeTheFirstRecordAndOnToIt) {
    metti({5, 5, 5});
    ASSERT_TRUE(archivio_.apri(file(), false).ok());
    LettoreArchivio lettore(archivio_);
    ASSERT_TRUE(lettore.MoveLast());
    EXPECT_TRUE(lettore.Move(-199));
    EXPECT_FALSE(lettore.alla_fine());
    EXPECT_EQ(lettore.estratto(1), std::nullopt);
    EXPECT_TRUE(lettore.MoveNext());
    EXPECT_EQ(archivio_.campo_concorso.Value(), Valore(1));
}

TEST_F(ArchivioTest, AFailedOpeningLeavesTheHandles) {
    metti({5, 5, 5});
    ASSERT_TRUE(archivio_.apri(file(), false).ok());
    EXPECT_EQ(archivio_.apri(cartella_.radice() + "/altrove/drawit.mdb", true).Number,
              platform::errore_file_assente);
    EXPECT_TRUE(archivio_.draws.MoveFirst().ok());
    EXPECT_EQ(archivio_.campo_concorso.Value(), Valore(1));
}

TEST_F(ArchivioTest, TheNextOpeningBringsTheTableBackAfterAQuery) {
    metti({5, 5, 5});
    ASSERT_TRUE(archivio_.apri(file(), false).ok());
    ASSERT_TRUE(
        archivio_.database.OpenRecordset(statistics::query_ruota("BA"), archivio_.draws).ok());
    EXPECT_EQ(archivio_.draws.Fields("RUOTA").Value(), Valore("BA"));
    ASSERT_TRUE(archivio_.apri(file(), false).ok());
    EXPECT_FALSE(archivio_.draws.Fields("Jolly").Value().nullo());
}

TEST_F(ArchivioTest, ClosingEndsEveryRead) {
    metti({5, 5, 5});
    ASSERT_TRUE(archivio_.apri(file(), false).ok());
    archivio_.chiudi();
    EXPECT_FALSE(archivio_.draws.MoveFirst().ok());
    EXPECT_TRUE(archivio_.campo_concorso.Value().nullo());
    archivio_.chiudi();
    Archivio().chiudi();
}

}  // namespace
