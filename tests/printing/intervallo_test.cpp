// The range fields of the print options.
#include "printing/intervallo.h"

#include <gtest/gtest.h>

using printing::convalida;
using printing::Intervallo;
using printing::totale_senza_punti;

namespace {

std::string lasciata(const std::string& dalla, const std::string& alla, int campo,
                     const std::string& totale = "100") {
    const Intervallo i = convalida({dalla, alla, totale}, campo);
    return i.dalla + "-" + i.alla;
}

}  // namespace

TEST(Intervallo, IlTotalePerdeIPunti) {
    EXPECT_EQ(totale_senza_punti("12.345"), "12345");
    EXPECT_EQ(totale_senza_punti("1.234.567"), "1234567");
    EXPECT_EQ(totale_senza_punti("14"), "14");
    EXPECT_EQ(totale_senza_punti(""), "");
}

TEST(Intervallo, CioCheVaBeneResta) {
    EXPECT_EQ(lasciata("10", "50", 0), "10-50");
    EXPECT_EQ(lasciata("10", "50", 1), "10-50");
    EXPECT_EQ(lasciata("50", "50", 0), "50-50");
    EXPECT_EQ(lasciata("1", "100", 1), "1-100");
    // As it is written, whatever it is worth.
    EXPECT_EQ(lasciata("01", "050", 0), "01-050");
    EXPECT_EQ(lasciata("1", "01", 1), "1-01");
    EXPECT_EQ(lasciata("0100", "0100", 1), "0100-0100");
}

TEST(Intervallo, LoZeroDiventaUnoOIlTotale) {
    for (const char* zero : {"", "0", "000", "-3", "abc"}) {
        for (const int campo : {0, 1}) {
            EXPECT_EQ(lasciata(zero, "50", campo), "1-50") << zero;
            EXPECT_EQ(lasciata("10", zero, campo), "10-100") << zero;
        }
    }
}

TEST(Intervallo, OltreIlTotaleSoloIlCampoLasciato) {
    EXPECT_EQ(lasciata("101", "100", 0), "1-100");
    EXPECT_EQ(lasciata("1", "101", 1), "1-100");
    EXPECT_EQ(lasciata("1", "101", 0), "1-101");
    EXPECT_EQ(lasciata("999999999999", "50", 0), "1-50");
}

TEST(Intervallo, IncrociatiComandaIlCampoLasciato) {
    EXPECT_EQ(lasciata("50", "10", 0), "1-10");
    EXPECT_EQ(lasciata("50", "10", 1), "50-50");
}

TEST(Intervallo, PrimaDalTotalePoiDallAltroCampo) {
    // The field above the total takes the total first, and is compared as such.
    EXPECT_EQ(lasciata("200", "300", 1), "200-200");
    EXPECT_EQ(lasciata("50", "0", 0), "50-100");
}

TEST(Intervallo, SenzaTotale) {
    EXPECT_EQ(lasciata("5", "7", 1, ""), "5-5");
    EXPECT_EQ(lasciata("5", "7", 0, ""), "1-7");
    EXPECT_EQ(lasciata("1", "", 0, ""), "1-");
}
