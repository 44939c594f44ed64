// Draws that nobody drew, and how old the newest one is.
#include "statistics/stato_archivio.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "platform/ambiente.h"
#include "platform/calendario.h"
#include "statistics/archivio.h"
#include "support/archivi_veri.h"
#include "support/archivio.h"
#include "support/archivio_prova.h"
#include "support/cartella.h"
#include "systems/sessione.h"

using crossword::Gioco;
using statistics::frase;
using statistics::StatoArchivio;

namespace {

constexpr platform::Data ultima{2026, 11, 12};

class StatoArchivioTest : public testing::Test {
protected:
    StatoArchivioTest() { std::filesystem::create_directories(cartella.radice() + "/archivio"); }
    [[nodiscard]] StatoArchivio stato(Gioco gioco) const {
        platform::Database database;
        EXPECT_TRUE(platform::OpenDatabase(statistics::file_archivio(cartella.radice() + "/"),
                                           false, true, database)
                        .ok());
        return statistics::stato_archivio(database, gioco);
    }
    support::Cartella cartella;
};

TEST_F(StatoArchivioTest, TheInventedOneIsKnownByItsMark) {
    ASSERT_TRUE(support::metti_dimostrativo(cartella.radice()));
    const StatoArchivio s = stato(Gioco::superenalotto());
    EXPECT_TRUE(s.leggibile);
    EXPECT_TRUE(s.dimostrativo);
    EXPECT_EQ(s.ultima, (platform::Data{1906, 2, 17}));
    EXPECT_TRUE(stato(Gioco::lotto()).dimostrativo);
}

TEST_F(StatoArchivioTest, AnImportOfOneGameLeavesTheOtherInvented) {
    importazione::Contenuto c = importazione::dimostrativo();
    c.lotto_dimostrativo = false;
    ASSERT_TRUE(importazione::salva(support::file_archivio_di(cartella.radice()), c));
    EXPECT_FALSE(stato(Gioco::lotto()).dimostrativo);
    EXPECT_TRUE(stato(Gioco::superenalotto()).dimostrativo);
}

TEST_F(StatoArchivioTest, RealDrawsTellTheirNewestDay) {
    ASSERT_TRUE(support::metti_vero(cartella.radice(), ultima));
    for (const Gioco gioco : {Gioco::superenalotto(), Gioco::lotto()}) {
        EXPECT_EQ(stato(gioco), (StatoArchivio{true, false, ultima}));
    }
}

TEST_F(StatoArchivioTest, AnArchiveOfAnotherMakerHasNoMark) {
    support::metti_archivio(cartella.radice(), support::archivio_di_prova());
    EXPECT_TRUE(stato(Gioco::superenalotto()).leggibile);
    EXPECT_FALSE(stato(Gioco::superenalotto()).dimostrativo);
}

TEST_F(StatoArchivioTest, DrawsInTheSteadOfAFileThatNothingReadsAreKnown) {
    ASSERT_TRUE(support::metti_dimostrativo(cartella.radice()));
    EXPECT_FALSE(stato(Gioco::lotto()).in_vece);
    std::filesystem::copy_file(support::fixture_jet + "drawit.mdb",
                               cartella.radice() + "/archivio/drawit.mdb");
    platform::LettoreJet nessuno;
    nessuno.programma = cartella.file("manca");
    const platform::Ripristina finto(platform::ambiente().lettore_jet, nessuno);
    EXPECT_TRUE(stato(Gioco::lotto()).in_vece);
    EXPECT_TRUE(stato(Gioco::superenalotto()).dimostrativo);
}

TEST_F(StatoArchivioTest, ADatabaseThatWasNeverOpenedCannotBeRead) {
    platform::Database mai_aperto;
    EXPECT_EQ(statistics::stato_archivio(mai_aperto, Gioco::lotto()), StatoArchivio{});
}

TEST(FraseArchivio, TheAgeIsCountedInDays) {
    const StatoArchivio s{true, false, ultima};
    EXPECT_EQ(frase(s, {2026, 11, 22}), "L'ultima estrazione è del 12/11/2026, 10 giorni fa");
    EXPECT_EQ(frase(s, {2026, 11, 13}), "L'ultima estrazione è del 12/11/2026, ieri");
    EXPECT_EQ(frase(s, ultima), "L'ultima estrazione è del 12/11/2026, oggi");
    EXPECT_EQ(frase(s, {2026, 11, 1}), "L'ultima estrazione è del 12/11/2026");
    EXPECT_EQ(frase(s, {2030, 11, 12}), "L'ultima estrazione è del 12/11/2026, 1.461 giorni fa");
}

TEST(FraseArchivio, WhatIsNotThereIsSaid) {
    EXPECT_EQ(frase({true, true, ultima}, ultima), "Estrazioni inventate per prova");
    EXPECT_EQ(frase({true, true, ultima, true}, ultima),
              "Estrazioni inventate (drawit.mdb vuole il driver di Access)");
    EXPECT_EQ(frase({true, false, {}}, ultima), "L'archivio non ha estrazioni");
    EXPECT_EQ(frase({}, ultima), "L'archivio non si può leggere");
}

TEST(Calendario, ADayCanStandForTheClock) {
    {
        const platform::Ripristina finto(platform::ambiente().oggi, ultima);
        EXPECT_EQ(platform::oggi(), ultima);
    }
    EXPECT_GE(platform::oggi().anno, 2024);
}

TEST_F(StatoArchivioTest, TheSessionTakesTheArchiveThatReplacedTheOld) {
    ASSERT_TRUE(support::metti_dimostrativo(cartella.radice()));
    systems::Sessione s(cartella.programma());
    s.avvia();
    ASSERT_TRUE(s.apri_archivio().ok());
    s.rinfresca_archivio();
    EXPECT_TRUE(statistics::stato_archivio(s.archivio.database, s.gioco()).dimostrativo);
    ASSERT_TRUE(support::metti_vero(cartella.radice(), ultima));
    s.rinfresca_archivio();
    EXPECT_EQ(statistics::stato_archivio(s.archivio.database, s.gioco()).ultima, ultima);
    // One that cannot be opened leaves the draws that were there.
    support::togli_archivio(cartella.radice());
    s.rinfresca_archivio();
    EXPECT_EQ(statistics::stato_archivio(s.archivio.database, s.gioco()).ultima, ultima);
}

}  // namespace
