// Numbers typed digit by digit.
#include "crossword/digitazione.h"

#include <gtest/gtest.h>

namespace {

using crossword::digita;

TEST(Digita, DueCifreOUnaEInvio) {
    std::string cifre;
    EXPECT_EQ(digita(cifre, '4'), std::nullopt);
    EXPECT_EQ(cifre, "4");
    EXPECT_EQ(digita(cifre, '2'), 42);
    EXPECT_EQ(cifre, "");
    EXPECT_EQ(digita(cifre, '0'), std::nullopt);
    EXPECT_EQ(digita(cifre, '7'), 7);
    EXPECT_EQ(digita(cifre, '9'), std::nullopt);
    EXPECT_EQ(digita(cifre, '\r'), 9);
    EXPECT_EQ(digita(cifre, '\r'), std::nullopt);
}

TEST(Digita, OgniAltroTastoDimenticaLaCifra) {
    for (const int tasto : {int{'\b'}, 27, int{'a'}, 0x0664}) {
        std::string cifre = "3";
        EXPECT_EQ(digita(cifre, tasto), std::nullopt);
        EXPECT_EQ(cifre, "");
    }
}

}  // namespace
