// A file that takes its name when it is whole, and why it could not.
#include "platform/file_nuovo.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "support/cartella.h"

using platform::Esito;
using platform::FileNuovo;
using platform::perche_non_si_scrive;

namespace {

TEST(FileNuovo, TakesItsNameOnlyWhenItIsPublished) {
    const support::Cartella cartella;
    {
        FileNuovo file(cartella.file("x"));
        EXPECT_EQ(file.nome(), cartella.file("x"));
        file.scrivi("uno");
        file.scrivi("due");
        EXPECT_FALSE(cartella.esiste("x"));
        EXPECT_EQ(file.pubblica(), Esito::ok);
    }
    EXPECT_EQ(cartella.leggi("x"), "unodue");
}

TEST(FileNuovo, WhatIsNotPublishedLeavesNoTrace) {
    const support::Cartella cartella;
    FileNuovo(cartella.file("x")).scrivi(std::string(1 << 19, 'x'));
    EXPECT_TRUE(std::filesystem::is_empty(cartella.programma()));
}

TEST(FileNuovo, ALongOneIsWrittenBitByBit) {
    const support::Cartella cartella;
    std::string tutto;
    {
        FileNuovo file(cartella.file("x"));
        for (int i = 0; i < 9; ++i) {
            const std::string pezzo(100'000, static_cast<char>('a' + i));
            file.scrivi(pezzo);
            tutto += pezzo;
        }
        EXPECT_EQ(file.esito(), Esito::ok);
        EXPECT_EQ(file.pubblica(), Esito::ok);
    }
    EXPECT_EQ(cartella.leggi("x"), tutto);
}

TEST(FileNuovo, WhereItCannotBeIsKnownBeforeItsEnd) {
    const support::Cartella cartella;
    std::filesystem::create_directory(cartella.file("cartella"));
    FileNuovo sopra(cartella.file("cartella"));
    EXPECT_NE(sopra.esito(), Esito::ok);
    sopra.scrivi("x");
    EXPECT_NE(sopra.pubblica(), Esito::ok);
    FileNuovo dentro(cartella.file("manca/x"));
    EXPECT_NE(dentro.esito(), Esito::ok);
    EXPECT_NE(dentro.pubblica(), Esito::ok);
}

TEST(PercheNonSiScrive, TellsThePlayerWhatStandsInTheWay) {
    const support::Cartella cartella;
    std::filesystem::create_directory(cartella.file("cartella"));
    EXPECT_EQ(perche_non_si_scrive(cartella.file("x"), Esito::disco_pieno),
              "sul disco non c'è più posto");
    EXPECT_EQ(perche_non_si_scrive(cartella.file("manca/x"), Esito::errore),
              "la cartella non esiste");
    EXPECT_EQ(perche_non_si_scrive(cartella.file("cartella"), Esito::errore),
              "al suo posto c'è una cartella con lo stesso nome");
    EXPECT_EQ(perche_non_si_scrive(cartella.file("x"), Esito::errore),
              "il disco non lo ha accettato");
}

}  // namespace
