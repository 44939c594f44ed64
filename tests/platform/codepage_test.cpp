#include "platform/codepage.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

TEST(Codepage, AsciiStaysAsItIsBothWays) {
    std::string testo;
    for (char c = 0; c < 127; ++c) testo.push_back(c);
    EXPECT_EQ(da_cp1252(testo), testo);
    EXPECT_EQ(a_cp1252(testo), testo);
}

TEST(Codepage, EveryAssignedByteComesBack) {
    int non_assegnati = 0;
    for (int i = 0; i < 256; ++i) {
        const std::string byte(1, static_cast<char>(i));
        const std::string utf8 = da_cp1252(byte);
        if (utf8 == "\uFFFD") {
            ++non_assegnati;
            EXPECT_EQ(a_cp1252(utf8), "?") << i;
        } else {
            EXPECT_EQ(a_cp1252(utf8), byte) << i;
        }
    }
    EXPECT_EQ(non_assegnati, 5);
}

TEST(Codepage, KnowsTheLettersAndSignsOfWesternEurope) {
    EXPECT_EQ(da_cp1252("citt\xE0 \x80 1\xB0"), "città € 1°");
    EXPECT_EQ(a_cp1252("città € 1°"), "citt\xE0 \x80 1\xB0");
    EXPECT_EQ(a_cp1252("“”–…Ÿ"), "\x93\x94\x96\x85\x9F");
}

TEST(Codepage, WhatItLacksBecomesOneQuestionMark) {
    EXPECT_EQ(a_cp1252("a日b"), "a?b");
    EXPECT_EQ(a_cp1252("a😀b"), "a?b");
    // The control characters at the places of the signs are no part of it either.
    EXPECT_EQ(a_cp1252("\u0080"), "?");
}

TEST(Codepage, WhatIsNoUtf8BecomesQuestionMarks) {
    EXPECT_EQ(a_cp1252("a\xFF"), "a?");
    EXPECT_EQ(a_cp1252("\xE0"), "?");
    EXPECT_EQ(a_cp1252("\xE2\x82"), "?");
    EXPECT_EQ(a_cp1252("\xE2\x82x"), "?x");
    EXPECT_EQ(a_cp1252("\x80x"), "?x");
    EXPECT_EQ(a_cp1252("\xED\xA0\x80"), "?");
    EXPECT_EQ(a_cp1252("\xFA\x80\x80\x80"), "????");
}

TEST(Codepage, AnOverlongFormSmugglesInNoQuoteOrLineEnd) {
    EXPECT_EQ(a_cp1252("\xC0\xA2"), "?");
    EXPECT_EQ(a_cp1252("\xC0\x8A"), "?");
    EXPECT_EQ(a_cp1252("\xE0\x80\xA2"), "?");
    EXPECT_EQ(a_cp1252("\xF0\x80\x80\xA2"), "?");
}

TEST(Codepage, ANullIsACharacterLikeOthers) {
    const std::string testo("a\0b", 3);
    EXPECT_EQ(da_cp1252(testo), testo);
    EXPECT_EQ(a_cp1252(testo), testo);
}

TEST(Codepage, WhatIsShownHoldsNoControl) {
    EXPECT_EQ(mostrabile("Città \xE2\x82\xAC \xF0\x9F\x8D\x80 \xEF\xBF\xBD"),
              "Città \xE2\x82\xAC \xF0\x9F\x8D\x80 \xEF\xBF\xBD");
    EXPECT_EQ(mostrabile("a\x1b[2J\n\t\x7f"), "a\\x1B[2J\\x0A\\x09\\x7F");
    // Also those of two bytes, and the marks that turn the direction of writing.
    EXPECT_EQ(mostrabile("\xC2\x9B"), "\\xC2\\x9B");
    EXPECT_EQ(mostrabile("\xE2\x80\xAE"), "\\xE2\\x80\\xAE");
    EXPECT_EQ(mostrabile("\xE2\x82x\xFF\xED\xA0\x80"), "\\xE2\\x82x\\xFF\\xED\\xA0\\x80");
    EXPECT_EQ(mostrabile(std::string_view("a\0b", 3)), "a\\x00b");
    EXPECT_EQ(mostrabile(""), "");
}

}  // namespace
