#include "viewer/indice.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/cartella.h"

using namespace viewer;

namespace {

/// Line `n` of a made-up development, each one different in length from its neighbours.
std::string linea(int n, int numeri) {
    std::string testo;
    for (int k = 0; k < numeri; ++k) {
        testo += std::to_string(1 + (n * 7 + k * 13) % 90) + (k + 1 < numeri ? "," : "\r\n");
    }
    return testo;
}

std::string sviluppo(int righe, int numeri = 6) {
    std::string testo;
    for (int n = 0; n < righe; ++n) testo += linea(n, numeri);
    return testo;
}

class IndiceTest : public ::testing::Test {
protected:
    Indice costruisci(int righe, std::int32_t pagine) {
        cartella.scrivi("s.col", sviluppo(righe));
        Indice indice;
        indice.costruisci(nome, pagine, [this](std::int32_t n) { passi = n; });
        return indice;
    }
    /// 1-based position of line `n`, counted from 0.
    static std::int64_t inizio(int n) { return static_cast<std::int64_t>(sviluppo(n).size()) + 1; }

    support::Cartella cartella;
    std::string nome = cartella.file("s.col");
    std::int32_t passi = -1;
};

TEST(Pagine, CountOfPagesRoundsUp) {
    EXPECT_EQ(pagine_di(0), 0);
    EXPECT_EQ(pagine_di(1), 1);
    EXPECT_EQ(pagine_di(39), 1);
    EXPECT_EQ(pagine_di(40), 1);
    EXPECT_EQ(pagine_di(41), 2);
    EXPECT_EQ(pagine_di(80), 2);
    EXPECT_EQ(pagine_di(172172), 4305);
    EXPECT_EQ(pagine_di(2147483647), 53687092);
    EXPECT_EQ(pagine_di(-2147483647 - 1), -53687090);
}

TEST_F(IndiceTest, EachPageBeginsFortyLinesAfterTheOneBefore) {
    const Indice indice = costruisci(130, 4);
    ASSERT_EQ(indice.pagine(), 4U);
    for (int p = 1; p <= 4; ++p) EXPECT_EQ(indice.posizione(p), inizio((p - 1) * 40)) << p;
    EXPECT_EQ(indice.posizione(0), 0);
    EXPECT_EQ(indice.posizione(-1), 0);
    EXPECT_EQ(indice.posizione(5), 0);
}

TEST_F(IndiceTest, FileOfAMultipleOfFortyLinesHasNoPositionBeyondItsPages) {
    EXPECT_EQ(costruisci(40, 1).pagine(), 1U);
    EXPECT_EQ(costruisci(80, 2).pagine(), 2U);
    // Also when the count promises more than the file holds.
    EXPECT_EQ(costruisci(80, 7).pagine(), 2U);
}

TEST_F(IndiceTest, EveryLineButTheLastIsAStep) {
    costruisci(100, 3);
    EXPECT_EQ(passi, 99);
    costruisci(40, 1);
    EXPECT_EQ(passi, 39);
    costruisci(1, 1);
    EXPECT_EQ(passi, 0);
}

TEST_F(IndiceTest, LinesBeyondTheCountedPagesGetNoPosition) {
    EXPECT_EQ(costruisci(500, 3).pagine(), 3U);
}

TEST_F(IndiceTest, CountOfZeroStillKnowsWhereTheFirstPageBegins) {
    const Indice indice = costruisci(100, 0);
    EXPECT_EQ(indice.pagine(), 1U);
    EXPECT_EQ(indice.posizione(1), 1);
}

TEST_F(IndiceTest, HugeCountReservesNothing) {
    EXPECT_EQ(costruisci(50, 53687092).pagine(), 2U);
}

TEST_F(IndiceTest, MissingEmptyAndForeignFilesHaveTheFirstPositionOnly) {
    Indice indice;
    indice.costruisci(nome, 5, [](std::int32_t) {});
    EXPECT_EQ(indice.pagine(), 1U);
    cartella.scrivi("s.col", "");
    indice.costruisci(nome, 5, [](std::int32_t) {});
    EXPECT_EQ(indice.pagine(), 1U);
    indice.costruisci(cartella.programma(), 5, [](std::int32_t) {});
    EXPECT_EQ(indice.pagine(), 1U);
    ASSERT_EQ(mkfifo(cartella.file("p.col").c_str(), 0600), 0);
    indice.costruisci(cartella.file("p.col"), 5, [](std::int32_t) {});
    EXPECT_EQ(indice.pagine(), 1U);
    EXPECT_TRUE(leggi_pagina(cartella.file("p.col"), 1, 6).righe.empty());
}

TEST_F(IndiceTest, BuildingAgainForgetsTheFileBefore) {
    Indice indice = costruisci(130, 4);
    cartella.scrivi("s.col", sviluppo(10));
    indice.costruisci(nome, 4, [](std::int32_t) {});
    EXPECT_EQ(indice.pagine(), 1U);
}

TEST_F(IndiceTest, PositionIsKeptForAKnownPageAndForTheNextOneOnly) {
    Indice indice = costruisci(80, 2);
    indice.ricorda(2, 777);
    EXPECT_EQ(indice.posizione(2), 777);
    indice.ricorda(3, 888);
    EXPECT_EQ(indice.posizione(3), 888);
    indice.ricorda(5, 999);
    EXPECT_EQ(indice.pagine(), 3U);
    indice.ricorda(0, 999);
    indice.ricorda(-4, 999);
    EXPECT_EQ(indice.posizione(1), 1);
}

TEST_F(IndiceTest, PageHoldsFortyLinesAndTellsWhereTheNextBegins) {
    const Indice indice = costruisci(130, 4);
    const Pagina pagina = leggi_pagina(nome, indice.posizione(2), 6);
    ASSERT_EQ(pagina.righe.size(), 40U);
    for (int i = 0; i < 40; ++i) {
        for (int k = 0; k < 6; ++k) {
            ASSERT_EQ(pagina.righe[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)],
                      1 + ((40 + i) * 7 + k * 13) % 90);
        }
    }
    EXPECT_EQ(pagina.seguente, indice.posizione(3));
}

TEST_F(IndiceTest, LastPageHoldsWhatIsLeft) {
    const Indice indice = costruisci(130, 4);
    const Pagina pagina = leggi_pagina(nome, indice.posizione(4), 6);
    EXPECT_EQ(pagina.righe.size(), 10U);
    EXPECT_EQ(pagina.seguente, inizio(130));
}

TEST_F(IndiceTest, LottoLinesHoldThreeFourOrFiveNumbers) {
    for (int numeri = 3; numeri <= 5; ++numeri) {
        cartella.scrivi("s.col", sviluppo(50, numeri));
        const Pagina pagina = leggi_pagina(nome, 1, numeri);
        ASSERT_EQ(pagina.righe.size(), 40U);
        EXPECT_EQ(pagina.righe[39][static_cast<std::size_t>(numeri - 1)],
                  1 + (39 * 7 + (numeri - 1) * 13) % 90);
        EXPECT_EQ(pagina.righe[39][static_cast<std::size_t>(numeri)], 0);
    }
}

TEST_F(IndiceTest, WrongWidthIsNotDetected) {
    cartella.scrivi("s.col", "1,2,3,4,5\r\n6,7,8,9,10\r\n11,12,13,14,15\r\n");
    const Pagina pagina = leggi_pagina(nome, 1, 3);
    ASSERT_EQ(pagina.righe.size(), 5U);
    EXPECT_EQ(pagina.righe[1], (Riga{4, 5, 6}));
}

TEST_F(IndiceTest, NoPositionOrNoWidthReadsNothing) {
    costruisci(80, 2);
    for (const Pagina& p : {leggi_pagina(nome, 0, 6), leggi_pagina(nome, -5, 6),
                            leggi_pagina(nome, 1, 0), leggi_pagina(nome, 1, 7)}) {
        EXPECT_TRUE(p.righe.empty());
        EXPECT_FALSE(p.seguente.has_value());
    }
    EXPECT_TRUE(leggi_pagina(nome, 1000000, 6).righe.empty());
}

TEST_F(IndiceTest, LineThatIsCutShortEndsThePage) {
    cartella.scrivi("s.col", sviluppo(3) + "1,2,3\r\n");
    const Pagina pagina = leggi_pagina(nome, 1, 6);
    EXPECT_EQ(pagina.righe.size(), 3U);
    EXPECT_FALSE(pagina.seguente.has_value());
}

TEST_F(IndiceTest, NumberThatIsNoByteEndsThePage) {
    cartella.scrivi("s.col", sviluppo(2) + "1,2,300,4,5,6\r\n" + sviluppo(5));
    EXPECT_EQ(leggi_pagina(nome, 1, 6).righe.size(), 2U);
}

TEST_F(IndiceTest, LastLineWithoutItsEndIsShownAllTheSame) {
    cartella.scrivi("s.col", "1,2,3,4,5,6\r\n7,8,9,10,11,12");
    EXPECT_EQ(leggi_pagina(nome, 1, 6).righe.size(), 2U);
}

TEST_F(IndiceTest, LargestCrosswordHasItsFirstAndItsLastPage) {
    constexpr int righe = 172172;
    const Indice indice = costruisci(righe, pagine_di(righe));
    ASSERT_EQ(indice.pagine(), 4305U);
    const Pagina prima = leggi_pagina(nome, indice.posizione(1), 6);
    EXPECT_EQ(prima.righe.size(), 40U);
    EXPECT_EQ(prima.righe[0], (Riga{1, 14, 27, 40, 53, 66}));
    const Pagina ultima = leggi_pagina(nome, indice.posizione(4305), 6);
    ASSERT_EQ(ultima.righe.size(), 12U);
    EXPECT_EQ(ultima.righe[11][0], 1 + (righe - 1) * 7 % 90);
    EXPECT_EQ(passi, righe - 1);
}

}  // namespace
