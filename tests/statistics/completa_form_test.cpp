#include <bitset>
#include <set>

#include "crossword/linee.h"
#include "support/programma.h"

namespace {

using support::Programma;

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
            riga.insert(p.form1.matrice(i, y));
            colonna.insert(p.form1.matrice(y, i));
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
    EXPECT_EQ(p.form1.matrice(0, 0), 5);
    EXPECT_EQ(p.form1.matrice(1, 0), 0);
    EXPECT_TRUE(p.form1.Frame3->isVisible());
}

TEST(CompletaConScelti, TheSameNumbersGiveTheSameLayout) {
    crossword::Matrice prima;
    for (int giro = 0; giro < 2; ++giro) {
        Programma p;
        for (int n = 1; n <= 14; ++n) p.numero(n);
        p.comando(5);
        if (giro == 0) {
            prima = p.form1.matrice;
        } else {
            EXPECT_EQ(prima, p.form1.matrice);
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
    const std::bitset<91> vietati = crossword::numeri_sulle_linee(p.form1.matrice, 5, 5);
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
    EXPECT_NE(p.form1.matrice(1, 3), 0);
    EXPECT_EQ(p.form1.matrice(2, 3), 0);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_FALSE(platform::LavoroLungo::in_corso());
}

}  // namespace
