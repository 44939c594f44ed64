#include "platform/runtime.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <set>

using namespace platform;

namespace {

constexpr double infinito = std::numeric_limits<double>::infinity();

TEST(Val, TakesTheLongestNumericPrefix) {
    EXPECT_EQ(Val("12"), 12);
    EXPECT_EQ(Val("-3.25x"), -3.25);
    EXPECT_EQ(Val("+7"), 7);
    EXPECT_EQ(Val("24 a 57"), 24);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("5."), 5);
    EXPECT_EQ(Val("1e3"), 1000);
    EXPECT_EQ(Val("1E-2x"), 0.01);
}

TEST(Val, StopsAtACommaAndAtASecondPoint) {
    EXPECT_EQ(Val("0,50"), 0);
    EXPECT_EQ(Val("86.086.00"), 86.086);
    EXPECT_EQ(Val("..5"), 0);
}

TEST(Val, IgnoresBlanksAnywhere) {
    EXPECT_EQ(Val("  1 2\t3\r\n4"), 1234);
    EXPECT_EQ(Val(" - 5"), -5);
}

TEST(Val, IsZeroWithoutANumber) {
    for (const char* testo :
         {"", " ", "abc", "-", "+.", "e5", "\"4\"", "#2004-06-12#", "nan", "inf"}) {
        EXPECT_EQ(Val(testo), 0) << testo;
    }
}

TEST(NumeroIntero, IsTheWholeTextOrNothing) {
    EXPECT_EQ(numero_intero("0042"), 42);
    EXPECT_EQ(numero_intero("-2147483648"), -2147483648LL);
    for (const char* testo : {"", " 1", "1 ", "+1", "1.", "1x", "2147483648", "-"})
        EXPECT_EQ(numero_intero(testo), std::nullopt) << testo;
}

TEST(Val, LeavesAnExponentWithoutDigitsAlone) {
    EXPECT_EQ(Val("2e"), 2);
    EXPECT_EQ(Val("2e+"), 2);
    EXPECT_EQ(Val("2ex"), 2);
}

TEST(Val, OfANumberBeyondAllMeasureFitsNoConversion) {
    EXPECT_EQ(Val("1e999"), infinito);
    EXPECT_EQ(Val("-1e999"), -infinito);
    EXPECT_EQ(Val(std::string(400, '9')), infinito);
    EXPECT_EQ(Val("1e-999"), 0);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
    EXPECT_FALSE(CLng(Val("1e999")));
}

TEST(Str, PutsABlankBeforeANumberWithoutSign) {
    EXPECT_EQ(Str(0), " 0");
    EXPECT_EQ(Str(12), " 12");
    EXPECT_EQ(Str(-12), "-12");
}

TEST(Conversion, RoundsHalfToEven) {
    EXPECT_EQ(CInt(0.5), 0);
    EXPECT_EQ(CInt(1.5), 2);
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(-1.5), -2);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(2.51), 3);
}

TEST(Conversion, FailsOutOfRange) {
    EXPECT_EQ(CByte(255.4), 255);
    EXPECT_EQ(CByte(254.5), 254);
    EXPECT_EQ(CByte(-0.5), 0);
    EXPECT_FALSE(CByte(255.5));
    EXPECT_FALSE(CByte(-1));
    EXPECT_EQ(CInt(32767), 32767);
    EXPECT_EQ(CInt(-32768), -32768);
    EXPECT_FALSE(CInt(32768));
    EXPECT_FALSE(CInt(-32769));
    EXPECT_EQ(CLng(2147483647.4), 2147483647);
    EXPECT_EQ(CLng(-2147483648.0), std::numeric_limits<std::int32_t>::min());
    EXPECT_FALSE(CLng(2147483647.5));
    EXPECT_FALSE(CLng(-2147483649.0));
    EXPECT_FALSE(CLng(std::nan("")));
    EXPECT_FALSE(CLng(infinito));
}

TEST(Conversion, AFailedOneLeavesItsTarget) {
    std::uint8_t n = 7;
    EXPECT_FALSE(assegna(n, CByte(300)));
    EXPECT_EQ(n, 7);
    EXPECT_TRUE(assegna(n, CByte(30)));
    EXPECT_EQ(n, 30);
}

TEST(Format, GroupsThousandsWithPoints) {
    EXPECT_EQ(Format(172172, Modello::interi), "172.172");
    EXPECT_EQ(Format(999, Modello::interi), "999");
    EXPECT_EQ(Format(1000, Modello::interi), "1.000");
    EXPECT_EQ(Format(1234567, Modello::interi), "1.234.567");
    EXPECT_EQ(Format(-1234, Modello::interi), "-1.234");
    EXPECT_EQ(Format(86086, Modello::decimali), "86.086,00");
}

TEST(Format, OfWholeNumbersShowsZeroAsEmpty) {
    EXPECT_EQ(Format(0, Modello::interi), "");
    EXPECT_EQ(Format(0.4, Modello::interi), "");
    EXPECT_EQ(Format(-0.4, Modello::interi), "");
    EXPECT_EQ(Format(0.5, Modello::interi), "1");
}

TEST(Format, WithoutForcedZeroBeginsWithTheComma) {
    EXPECT_EQ(Format(0.5, Modello::decimali), ",50");
    EXPECT_EQ(Format(0, Modello::decimali), ",00");
    EXPECT_EQ(Format(0.05, Modello::decimali), ",05");
    EXPECT_EQ(Format(0.004, Modello::decimali), ",00");
    EXPECT_EQ(Format(-0.5, Modello::decimali), "-,50");
}

TEST(Format, WithForcedZeroBeginsWithADigit) {
    EXPECT_EQ(Format(0.5, Modello::decimali_zero), "0,50");
    EXPECT_EQ(Format(0, Modello::decimali_zero), "0,00");
    EXPECT_EQ(Format(86.086, Modello::decimali_zero), "86,09");
    EXPECT_EQ(Format(1234.5, Modello::decimali_zero), "1.234,50");
}

TEST(Format, OfWhatRoundsToNothingHasNoSign) {
    EXPECT_EQ(Format(-0.001, Modello::decimali), ",00");
    EXPECT_EQ(Format(-0.001, Modello::decimali_zero), "0,00");
    EXPECT_EQ(Format(-0.0, Modello::decimali_zero), "0,00");
}

TEST(Format, RoundsHalfAwayFromZero) {
    EXPECT_EQ(Format(58.0 / 16, Modello::decimali), "3,63");
    EXPECT_EQ(Format(-58.0 / 16, Modello::decimali), "-3,63");
    EXPECT_EQ(Format(2.5, Modello::interi), "3");
    EXPECT_EQ(Format(0.125, Modello::decimali_zero), "0,13");
    EXPECT_EQ(Format(999.995, Modello::decimali), "1.000,00");
    EXPECT_EQ(Format(0.995, Modello::decimali), "1,00");
}

TEST(Format, LooksAtFifteenSignificantDigits) {
    // 1.005 is a little less in binary, and half at fifteen digits.
    EXPECT_EQ(Format(1.005, Modello::decimali), "1,01");
    EXPECT_EQ(Format(0.285, Modello::decimali), ",29");
    EXPECT_EQ(Format(1.00499999999999, Modello::decimali), "1,00");
}

TEST(Format, TakesAnyMagnitude) {
    EXPECT_EQ(Format(1e15, Modello::interi), "1.000.000.000.000.000");
    EXPECT_EQ(Format(1e-300, Modello::decimali), ",00");
    EXPECT_EQ(Format(1e300, Modello::interi).size(), 301U + 100U);
    EXPECT_EQ(Format(infinito, Modello::interi), "");
    EXPECT_EQ(Format(std::nan(""), Modello::decimali), "");
}

TEST(Italiano, ANumberIsReadAfterTheWordThatSuitsIt) {
    for (const char* vocale :
         {"1", "1,5 %", "8", "8,4", "11", "80", "89,9", "800", "8.000", "11.000"})
        EXPECT_EQ(platform::nel(vocale), std::string("nell'") + vocale);
    for (const char* altro : {"2", "10", "12,3 %", "18", "100", "110", "111", "1.000", "98"})
        EXPECT_EQ(platform::nel(altro), std::string("nel ") + altro);
    EXPECT_EQ(platform::nel("0,3146 %"), "nello 0,3146 %");
}

TEST(Significative, AsManyDecimalsAsItTakes) {
    EXPECT_EQ(Significative(0, 3), "0");
    EXPECT_EQ(Significative(1, 3), "1");
    EXPECT_EQ(Significative(1234.5, 3), "1.235");
    EXPECT_EQ(Significative(622614630, 3), "622.614.630");
    EXPECT_EQ(Significative(12.34, 3), "12,3");
    EXPECT_EQ(Significative(12, 3), "12");
    EXPECT_EQ(Significative(9.996, 3), "10");
    EXPECT_EQ(Significative(0.0001606, 3), "0,000161");
    EXPECT_EQ(Significative(-0.5, 2), "-0,5");
    EXPECT_EQ(Significative(HUGE_VAL, 2), "");
}

TEST(CStr, HasADecimalCommaAndNoPadding) {
    EXPECT_EQ(CStr(86086), "86086");
    EXPECT_EQ(CStr(0.5), "0,5");
    EXPECT_EQ(CStr(-2.25), "-2,25");
    EXPECT_EQ(CStr(0), "0");
    EXPECT_EQ(CStr(-0.0), "0");
    EXPECT_EQ(CStr(0.1 + 0.2), "0,3");
    EXPECT_EQ(CStr(123456789012345), "123456789012345");
    EXPECT_EQ(CStr(1e20), "1E+20");
    EXPECT_EQ(CStr(infinito), "");
}

TEST(LeggiNumero, CutsTheFirstPointOnly) {
    EXPECT_EQ(leggi_numero("172.172"), 172172);
    EXPECT_EQ(leggi_numero("980"), 980);
    EXPECT_EQ(leggi_numero(""), 0);
    EXPECT_EQ(leggi_numero("1.234.567"), 1235);
    EXPECT_EQ(leggi_numero("1.234,9"), 1234);
    EXPECT_EQ(leggi_numero("-1.234"), -1234);
}

TEST(LeggiNumero, IsZeroBeyond32Bits) {
    EXPECT_EQ(leggi_numero("2147483647"), 2147483647);
    EXPECT_EQ(leggi_numero("2147483648"), 0);
    EXPECT_EQ(leggi_numero("9.999999999"), 0);
    EXPECT_EQ(leggi_numero(std::string(500, '9')), 0);
}

TEST(Text, ReplaceChangesEveryOccurrence) {
    EXPECT_EQ(Replace("1,2,3", ',', '.'), "1.2.3");
    EXPECT_EQ(Replace("", ',', '.'), "");
}

TEST(Text, TrimTakesBlanksAtBothEnds) {
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("a"), "a");
}

TEST(Text, LowerCaseKnowsTheAccentedLetters) {
    EXPECT_EQ(LCase("Sistema@1"), "sistema@1");
    EXPECT_EQ(LCase("ÀÈÉÌÒÙÇÑÖÞ"), "àèéìòùçñöþ");
    EXPECT_EQ(LCase("×÷ß"), "×÷ß");
    EXPECT_EQ(LCase("ŠŽŒŸ"), "šžœÿ");
    EXPECT_EQ(LCase("šžœÿ"), "šžœÿ");
}

TEST(Text, LowerCaseSurvivesBytesThatAreNoUtf8) {
    EXPECT_EQ(LCase("\xC3"), "\xC3");
    EXPECT_EQ(LCase("\xC3"
                    "A\xC5"
                    "B"),
              "\xC3"
              "a\xC5"
              "b");
}

TEST(Rnd, BeginsAsTheClassicGeneratorDoes) {
    Rnd rnd;
    EXPECT_NEAR(rnd.prossimo() / 16777216.0, 0.7055475, 5e-8);
    EXPECT_NEAR(rnd.prossimo() / 16777216.0, 0.5334240, 5e-8);
    EXPECT_NEAR(rnd.prossimo() / 16777216.0, 0.5795186, 5e-8);
}

TEST(Rnd, FollowsItsFormulaOverTheWholePeriod) {
    Rnd rnd;
    std::uint64_t x = 327680;
    for (int i = 0; i < 1 << 24; ++i) {
        x = (x * 1140671485U + 12820163U) % (1U << 24);
        const std::uint32_t y = rnd.prossimo();
        if (y != x) {
            FAIL() << "step " << i;
        }
    }
    EXPECT_EQ(x, 327680U);
}

TEST(Rnd, EveryStartGivesTheSameSequence) {
    Rnd a;
    Rnd b;
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(a.prossimo(), b.prossimo());
    }
}

TEST(Rnd, DrawsEveryNumberFromOneUpAndNoOther) {
    Rnd rnd;
    Rnd stesso;
    std::set<std::int32_t> viste;
    for (int i = 0; i < 10000; ++i) {
        const std::int32_t n = rnd.fino_a(90);
        ASSERT_EQ(n,
                  static_cast<std::int32_t>(std::floor(stesso.prossimo() / 16777216.0 * 90)) + 1);
        viste.insert(n);
    }
    EXPECT_EQ(viste.size(), 90U);
    EXPECT_EQ(*viste.begin(), 1);
    EXPECT_EQ(*viste.rbegin(), 90);
    EXPECT_EQ(Rnd().fino_a(90), 64);
}

}  // namespace
