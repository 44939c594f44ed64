#include <bitset>
#include <set>

#include "confronti.h"
#include "crossword/linee.h"
#include "support/programma.h"

namespace {

using support::Programma;

/// Puts a crossword on the form as an opened system would.
void metti(Programma& p, const crossword::Matrice& m) {
    p.apri_cosi([&m](systems::Sistema& s) { s.matrice = m; });
}

TEST(CompletaConScelti, OnAnEmptyCrosswordTheFirstCellEndsItWithTheMessage) {
    Programma p;
    p.comando(5);
    ASSERT_EQ(p.messaggi.size(), 1U);
    EXPECT_EQ(p.messaggi[0].testo,
              "Impossibile completare il Cruciverba con i nuemeri scelti.\r\n"
              "Inserire un altro numero nel tabellone.");
    EXPECT_EQ(p.messaggi[0].titolo, "Tabellino");
    EXPECT_TRUE(p.form1.Frame3->isVisible());
    EXPECT_TRUE(p.form1.MSFlexGrid1->testo(0, 0).isEmpty());
}

TEST(CompletaConScelti, FillsEveryCellWithNumbersInPlayAndRepeatsNoneOnALine) {
    Programma p;
    std::set<int> scelti;
    // A row and more of different numbers gives each later cell enough to choose from.
    for (int n = 1; n <= 12; ++n) {
        p.numero(n);
        scelti.insert(n);
    }
    p.comando(5);
    ASSERT_TRUE(p.messaggi.empty());
    for (int y = 0; y < 6; ++y) {
        std::set<int> riga;
        std::set<int> colonna;
        for (int i = 0; i < 6; ++i) {
            riga.insert(p.form1.sessione.matrice()(i, y));
            colonna.insert(p.form1.sessione.matrice()(y, i));
        }
        EXPECT_EQ(riga.size(), 6U);
        EXPECT_EQ(colonna.size(), 6U);
        for (const int n : riga) EXPECT_TRUE(scelti.contains(n));
    }
    EXPECT_EQ(p.form1.lblngioco->text(), "12");
}

TEST(CompletaConScelti, WhereNoNumberFitsItKeepsWhatWasLaid) {
    Programma p;
    p.numero(5);
    p.comando(5);
    ASSERT_EQ(p.messaggi.size(), 1U);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 5);
    EXPECT_EQ(p.form1.sessione.matrice()(1, 0), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 1);
    EXPECT_TRUE(p.form1.Frame3->isVisible());
}

TEST(CompletaConScelti, EqualsTryingEveryNumberInTurn) {
    support::Sorte sorte(17);
    for (const bool lotto : {false, true}) {
        Programma p;
        if (lotto) Programma::clic(p.form1.Image10);
        int completi = 0;
        const int piccolo = lotto ? 5 : 6;
        for (int prova = 0; prova < 8; ++prova) {
            const int colonne = piccolo + sorte.sotto(3);
            const int righe = prova % 2 == 0 ? colonne : piccolo + sorte.sotto(3);
            p.dimensioni(colonne, righe);
            const crossword::Matrice m =
                support::iniziata(sorte, colonne, righe, 10 + sorte.sotto(60));
            metti(p, m);
            p.mostrati();
            p.comando(5);
            semplice::Griglia g = support::griglia(m);
            const bool completo = semplice::completa_con_scelti(g);
            EXPECT_EQ(support::testo(p.form1.sessione.matrice()), support::testo(g));
            EXPECT_EQ(p.griglia(), g);
            EXPECT_EQ(p.mostrati().empty(), completo);
            completi += completo ? 1 : 0;
        }
        EXPECT_GT(completi, 0);
        EXPECT_LT(completi, 8);
    }
}

TEST(CompletaConScelti, TheFirstNumberThatFitsIsTakenAndTheCursorStaysWhereNoneDoes) {
    Programma p;
    p.dimensioni(6, 7);
    crossword::Matrice m(6, 7);
    for (int x = 0; x < 6; ++x) m.scrivi(x, 6, static_cast<std::int16_t>(40 + x));
    metti(p, m);
    p.comando(5);
    EXPECT_EQ(p.mostrati().size(), 1U);
    EXPECT_EQ(support::testo(p.form1.sessione.matrice()),
              "41 40 43 42 45 44\n"
              "42 43 40 41 0 0\n"
              "0 0 0 0 0 0\n"
              "0 0 0 0 0 0\n"
              "0 0 0 0 0 0\n"
              "0 0 0 0 0 0\n"
              "40 41 42 43 44 45\n");
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 1);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 4);
}

TEST(CompletaConScelti, TheBoardIsHiddenWhileItRuns) {
    Programma p;
    for (int n = 1; n <= 12; ++n) p.numero(n);
    int posati = 0;
    QObject::connect(p.form1.MSFlexGrid1, &QTableWidget::cellChanged, &p.form1, [&] {
        ++posati;
        EXPECT_FALSE(p.form1.Frame3->isVisible());
    });
    p.comando(5);
    EXPECT_GE(posati, 24);
    EXPECT_TRUE(p.form1.Frame3->isVisible());
}

TEST(CompletaConScelti, NumbersOffTheBoardAreNeverPressed) {
    Programma p;
    crossword::Matrice m(6, 6);
    m.scrivi(0, 5, 300);
    m.scrivi(1, 5, -4);
    metti(p, m);
    p.comando(5);
    EXPECT_EQ(p.mostrati().size(), 1U);
    EXPECT_EQ(p.form1.sessione.matrice(), m);
    m.scrivi(2, 5, 9);
    metti(p, m);
    p.comando(5);
    EXPECT_EQ(p.mostrati().size(), 1U);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 9);
    EXPECT_EQ(p.form1.sessione.matrice()(1, 0), 0);
}

TEST(CompletaConScelti, TheSameNumbersGiveTheSameLayout) {
    crossword::Matrice prima;
    for (int giro = 0; giro < 2; ++giro) {
        Programma p;
        for (int n = 1; n <= 14; ++n) p.numero(n);
        p.comando(5);
        if (giro == 0) {
            prima = p.form1.sessione.matrice();
        } else {
            EXPECT_EQ(prima, p.form1.sessione.matrice());
        }
    }
}

TEST(CompletaConScelti, TheBoardBarsForTheCellWhereTheWalkStopped) {
    Programma p;
    p.riempi(35);
    p.cella(5, 5);
    p.comando(5);
    ASSERT_TRUE(p.mostrati().empty());
    // Every cell is full now, so that a second time nothing is laid on the way.
    p.cella(0, 0);
    p.comando(5);
    const std::bitset<91> vietati = crossword::numeri_sulle_linee(p.form1.sessione.matrice(), 5, 5);
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 5);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 5);
    for (std::size_t i = 1; i <= 90; ++i) {
        EXPECT_EQ(p.form1.CMDnum[i]->isEnabled(), !vietati.test(i)) << i;
    }
}

TEST(CompletaConScelti, TheCloseBoxLeavesTheWalkAndThenTheProgram) {
    Programma p;
    for (int n = 1; n <= 12; ++n) p.numero(n);
    QObject::connect(p.form1.MSFlexGrid1, &QTableWidget::cellChanged, &p.form1,
                     [&p](int riga, int colonna) {
                         if (riga != 3 || colonna != 1) return;
                         p.form1.close();
                         EXPECT_TRUE(p.form1.isVisible());
                     });
    p.comando(5);
    EXPECT_FALSE(p.form1.isVisible());
    EXPECT_NE(p.form1.sessione.matrice()(1, 3), 0);
    EXPECT_EQ(p.form1.sessione.matrice()(2, 3), 0);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_FALSE(platform::LavoroLungo::in_corso());
}

}  // namespace
