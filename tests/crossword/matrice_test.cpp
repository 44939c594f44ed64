#include "crossword/matrice.h"

#include <gtest/gtest.h>

using namespace crossword;

namespace {

TEST(Matrice, NasceVuotaNelleMisureChieste) {
    const Matrice m(8, 6);
    EXPECT_EQ(m.ubound(1), 7);
    EXPECT_EQ(m.ubound(2), 5);
    EXPECT_EQ(m.colonne(), 8);
    EXPECT_EQ(m.righe(), 6);
    for (int x = 0; x < 8; ++x) {
        for (int y = 0; y < 6; ++y) EXPECT_EQ(m(x, y), 0);
    }
}

TEST(Matrice, IlPrimoIndiceELaColonna) {
    Matrice m(8, 6);
    EXPECT_TRUE(m.scrivi(7, 5, 90));
    EXPECT_TRUE(m.scrivi(1, 2, 12));
    EXPECT_FALSE(m.scrivi(5, 7, 1));
    EXPECT_EQ(m(7, 5), 90);
    EXPECT_EQ(m(1, 2), 12);
    EXPECT_EQ(m(2, 1), 0);
}

TEST(Matrice, FuoriDallaGrigliaSiLeggeZeroENonSiScrive) {
    Matrice m(6, 6);
    for (const auto& [x, y] : {std::pair{-1, 0}, {0, -1}, {6, 0}, {0, 6}, {1 << 30, 1 << 30}}) {
        EXPECT_FALSE(m.scrivi(x, y, 5));
        EXPECT_EQ(m(x, y), 0);
        EXPECT_FALSE(m.contiene(x, y));
    }
    EXPECT_EQ(m, Matrice(6, 6));
}

TEST(Matrice, MisureFuoriLimiteDannoUnaMatriceCancellata) {
    for (const auto& [c, r] : {std::pair{0, 6}, {6, 0}, {-1, 6}, {257, 6}, {6, 257}}) {
        const Matrice m(c, r);
        EXPECT_EQ(m, Matrice());
        EXPECT_EQ(m.ubound(1), -1);
        EXPECT_EQ(m.ubound(2), -1);
        EXPECT_FALSE(m.quadrata());
    }
    EXPECT_EQ(Matrice(256, 256).ubound(1), 255);
}

TEST(Matrice, QuadrataConMisureUguali) {
    EXPECT_TRUE(Matrice(7, 7).quadrata());
    EXPECT_FALSE(Matrice(6, 8).quadrata());
}

TEST(CruciverbaCompleto, UnaSolaCasellaVuotaLoNega) {
    Matrice m(6, 8);
    for (int x = 0; x < 6; ++x) {
        for (int y = 0; y < 8; ++y) {
            EXPECT_FALSE(cruciverba_completo(m));
            m.scrivi(x, y, 9);
        }
    }
    EXPECT_TRUE(cruciverba_completo(m));
    m.scrivi(5, 7, 0);
    EXPECT_FALSE(cruciverba_completo(m));
}

TEST(NumeriInGioco, SetteQuarantacinqueSetteSonoDue) {
    Matrice m(6, 6);
    m.scrivi(0, 0, 7);
    m.scrivi(1, 0, 45);
    m.scrivi(2, 1, 7);
    EXPECT_EQ(numeri_in_gioco(m), (std::vector<int>{7, 45}));
}

TEST(NumeriInGioco, InOrdineESenzaLaCasellaVuota) {
    Matrice m(6, 6);
    EXPECT_TRUE(numeri_in_gioco(m).empty());
    m.scrivi(5, 5, 1);
    m.scrivi(0, 0, 90);
    m.scrivi(3, 0, 10);
    EXPECT_EQ(numeri_in_gioco(m), (std::vector<int>{1, 10, 90}));
}

TEST(NumeriInGioco, NumeriDiUnFileGuastoNonContano) {
    Matrice m(6, 6);
    m.scrivi(0, 0, 91);
    m.scrivi(1, 0, -3);
    m.scrivi(2, 0, 32767);
    EXPECT_TRUE(numeri_in_gioco(m).empty());
}

TEST(TestoLista, AllineatoADestra) {
    EXPECT_EQ(testo_lista(7), "   7");
    EXPECT_EQ(testo_lista(9), "   9");
    EXPECT_EQ(testo_lista(10), "  10");
    EXPECT_EQ(testo_lista(90), "  90");
}

}  // namespace
