// Undo and redo of the cells of one crossword.
#include "crossword/cronologia.h"

#include <gtest/gtest.h>

namespace {

using crossword::Cronologia;
using crossword::Modifica;
using Azione = std::vector<Modifica>;

constexpr Modifica a{0, 0, 0, 5};
constexpr Modifica b{0, 1, 0, 6};
constexpr Modifica c{0, 1, 6, 0};

TEST(Cronologia, AnnullaERipeteInOrdine) {
    Cronologia k;
    EXPECT_EQ(k.annulla(), nullptr);
    EXPECT_EQ(k.ripeti(), nullptr);
    k.annota(a);
    k.annota(b);
    ASSERT_NE(k.annulla(), nullptr);
    EXPECT_EQ(*k.annulla(), Azione{a});
    EXPECT_EQ(k.annulla(), nullptr);
    EXPECT_EQ(*k.ripeti(), Azione{a});
    EXPECT_EQ(*k.ripeti(), Azione{b});
    EXPECT_EQ(k.ripeti(), nullptr);
}

TEST(Cronologia, UnaModificaNuovaToglieCioCheFuAnnullato) {
    Cronologia k;
    k.annota(a);
    k.annota(b);
    k.annulla();
    k.annulla();
    k.annota(c);
    EXPECT_EQ(k.ripeti(), nullptr);
    EXPECT_EQ(*k.annulla(), Azione{c});
    EXPECT_EQ(k.annulla(), nullptr);
}

TEST(Cronologia, UnGruppoEUnAzioneSola) {
    Cronologia k;
    k.apri();
    k.annota(a);
    k.annota(b);
    k.chiudi();
    EXPECT_EQ(*k.annulla(), (Azione{a, b}));
    EXPECT_EQ(k.annulla(), nullptr);
}

TEST(Cronologia, CioCheNonCambiaNonEUnAzione) {
    Cronologia k;
    k.annota({2, 2, 7, 7});
    k.apri();
    k.chiudi();
    EXPECT_EQ(k.annulla(), nullptr);
}

TEST(Cronologia, VuotaNonLasciaNullaNemmenoDelGruppoAperto) {
    Cronologia k;
    k.annota(a);
    k.apri();
    k.annota(b);
    k.vuota();
    k.chiudi();
    EXPECT_EQ(k.annulla(), nullptr);
    EXPECT_EQ(k.ripeti(), nullptr);
}

TEST(Cronologia, OltreMilleSiPerdonoLePiuVecchie) {
    Cronologia k;
    for (int i = 0; i < 1003; ++i) k.annota({i, 0, 0, 1});
    int quante = 0;
    int ultima = -1;
    while (const Azione* azione = k.annulla()) {
        ultima = azione->front().riga;
        ++quante;
    }
    EXPECT_EQ(quante, 1000);
    EXPECT_EQ(ultima, 3);
}

}  // namespace
