// Undo and redo of the cells of one crossword.
#include "crossword/cronologia.h"

#include <gtest/gtest.h>

namespace {

using crossword::Cronologia;
using crossword::Modifica;
using Azione = std::vector<Modifica>;

constexpr Modifica primo_passo{0, 0, 0, 5};
constexpr Modifica secondo_passo{0, 1, 0, 6};
constexpr Modifica terzo_passo{0, 1, 6, 0};

TEST(Cronologia, AnnullaERipeteInOrdine) {
    Cronologia k;
    EXPECT_EQ(k.annulla(), nullptr);
    EXPECT_EQ(k.ripeti(), nullptr);
    k.annota(primo_passo);
    k.annota(secondo_passo);
    ASSERT_NE(k.annulla(), nullptr);
    EXPECT_EQ(*k.annulla(), Azione{primo_passo});
    EXPECT_EQ(k.annulla(), nullptr);
    EXPECT_EQ(*k.ripeti(), Azione{primo_passo});
    EXPECT_EQ(*k.ripeti(), Azione{secondo_passo});
    EXPECT_EQ(k.ripeti(), nullptr);
}

TEST(Cronologia, UnaModificaNuovaToglieCioCheFuAnnullato) {
    Cronologia k;
    k.annota(primo_passo);
    k.annota(secondo_passo);
    k.annulla();
    k.annulla();
    k.annota(terzo_passo);
    EXPECT_EQ(k.ripeti(), nullptr);
    EXPECT_EQ(*k.annulla(), Azione{terzo_passo});
    EXPECT_EQ(k.annulla(), nullptr);
}

TEST(Cronologia, UnGruppoEUnAzioneSola) {
    Cronologia k;
    k.apri();
    k.annota(primo_passo);
    k.annota(secondo_passo);
    k.chiudi();
    EXPECT_EQ(*k.annulla(), (Azione{primo_passo, secondo_passo}));
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
    k.annota(primo_passo);
    k.apri();
    k.annota(secondo_passo);
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

TEST(Cronologia, DiceSeCEDaAnnullareEDaRipetere) {
    Cronologia k;
    EXPECT_FALSE(k.annullabile());
    EXPECT_FALSE(k.ripetibile());
    k.annota(primo_passo);
    EXPECT_TRUE(k.annullabile());
    EXPECT_FALSE(k.ripetibile());
    k.annulla();
    EXPECT_FALSE(k.annullabile());
    EXPECT_TRUE(k.ripetibile());
}

TEST(Cronologia, DueCruciverbaSiAnnotanoNelleCaselleCheCambiano) {
    crossword::Matrice prima(6, 6);
    prima.scrivi(1, 0, 6);
    crossword::Matrice dopo(6, 6);
    dopo.scrivi(0, 0, 5);
    Cronologia k;
    k.apri();
    k.annota(prima, dopo);
    k.chiudi();
    EXPECT_EQ(*k.annulla(), (Azione{primo_passo, terzo_passo}));
}

TEST(Cronologia, ITipiDimenticatiLascianoLeCaselle) {
    Cronologia k;
    const Modifica tipo{0, 2, 1, 0, true};
    k.annota(tipo);
    k.apri();
    k.annota(primo_passo);
    k.annota(tipo);
    k.chiudi();
    k.annota(secondo_passo);
    k.annulla();
    k.dimentica_tipi();
    EXPECT_EQ(*k.annulla(), Azione{primo_passo});
    EXPECT_FALSE(k.annullabile());
    k.ripeti();
    EXPECT_EQ(*k.ripeti(), Azione{secondo_passo});
}

TEST(Rimetti, ScambiaDueNumeriDiUnaLinea) {
    crossword::Matrice m(6, 6);
    m.scrivi(0, 0, 6);
    m.scrivi(1, 0, 5);
    const Azione scambio{{0, 0, 5, 6}, {0, 1, 6, 5}};
    ASSERT_TRUE(crossword::rimetti(scambio, true, m));
    EXPECT_EQ(m(0, 0), 5);
    EXPECT_EQ(m(1, 0), 6);
    ASSERT_TRUE(crossword::rimetti(scambio, false, m));
    EXPECT_EQ(m(0, 0), 6);
}

TEST(Rimetti, UnNumeroSbarratoRestaFuori) {
    crossword::Matrice m(6, 6);
    m.scrivi(5, 0, 5);
    ASSERT_TRUE(crossword::rimetti({{0, 0, 5, 0}, {0, 1, 7, 0}}, true, m));
    EXPECT_EQ(m(0, 0), 0);
    EXPECT_EQ(m(1, 0), 7);
}

TEST(Rimetti, UnAltroCruciverbaRestaComE) {
    crossword::Matrice m(6, 6);
    m.scrivi(0, 0, 9);
    const crossword::Matrice prima = m;
    EXPECT_FALSE(crossword::rimetti({secondo_passo, primo_passo}, true, m));
    EXPECT_EQ(m, prima);
}

}  // namespace
