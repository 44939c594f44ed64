// Finding the guide's window among all.
#include "help/finestra.h"

#include <gtest/gtest.h>

namespace {

using help::trova_finestra;
using platform::FinestraAperta;

const std::vector<FinestraAperta> aperte = {
    {1, "La guida", false}, {2, "Guida - stampa", true}, {3, "Guida", false}, {4, "guida", false}};

TEST(TrovaFinestra, LaPrimaSenzaPadroneIlCuiTitoloComincia) {
    EXPECT_EQ(trova_finestra(aperte, "guida*", false), 3U);
}

TEST(TrovaFinestra, ConLeMaiuscoleDistinte) {
    EXPECT_EQ(trova_finestra(aperte, "guida*", true), 4U);
    EXPECT_EQ(trova_finestra(aperte, "GUIDA*", true), 0U);
}

TEST(TrovaFinestra, UnTitoloQualunqueCheCominciaCosiConta) {
    EXPECT_EQ(trova_finestra({{9, "Guidatori d'Italia", false}}, "guida*", false), 9U);
    EXPECT_EQ(trova_finestra({}, "guida*", false), 0U);
}

TEST(TrovaFinestra, SiGuardanoCentoventottoCaratteri) {
    std::string lungo;
    for (int i = 0; i < 128; ++i) lungo += "\xc3\xa0";
    EXPECT_EQ(trova_finestra({{7, lungo + "fine", false}}, "*fine", false), 0U);
    EXPECT_EQ(trova_finestra({{7, lungo + "fine", false}}, "*\xc3\xa0", true), 7U);
    EXPECT_EQ(trova_finestra({{7, lungo.substr(2) + "f", false}}, "*f", true), 7U);
}

}  // namespace
