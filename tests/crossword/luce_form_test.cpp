// The lines of a cell glow on the grid, and what bars a number is pointed out there.
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QTest>

#include "crossword/linee.h"
#include "support/programma.h"

namespace {

using support::Programma;

QList<QPoint> linee(const Programma& p, int riga, int colonna) {
    QList<QPoint> celle;
    for (const crossword::Incrocio& i :
         crossword::celle_sulle_linee(p.form1.sessione.matrice(), riga, colonna)) {
        celle.append({i.x, i.y});
    }
    return celle;
}

void sopra(platform::MSFlexGrid* g, int riga, int colonna) {
    const QPoint dove = g->visualRect(g->model()->index(riga, colonna)).center();
    QMouseEvent moto(QEvent::MouseMove, dove, g->viewport()->mapToGlobal(dove), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(g->viewport(), &moto);
}

void su_e_via(QWidget* w, bool su) {
    if (su) {
        QEnterEvent entra({5, 5}, {5, 5}, w->mapToGlobal(QPointF(5, 5)));
        QApplication::sendEvent(w, &entra);
    } else {
        QEvent via(QEvent::Leave);
        QApplication::sendEvent(w, &via);
    }
}

/// Keys without a character, which the test library cannot press.
void preme(QWidget* w, int tasto) {
    QKeyEvent giu(QEvent::KeyPress, tasto, Qt::NoModifier);
    QApplication::sendEvent(w, &giu);
}

QColor colore(platform::MSFlexGrid* g, int riga, int colonna) {
    const QRect cella = g->visualRect(g->model()->index(riga, colonna));
    return g->viewport()->grab().toImage().pixelColor(cella.topLeft() + QPoint(4, 3));
}

TEST(Linee, LeCelleSulleLineeSonoQuelleCheSbarrano) {
    for (const auto& [colonne, righe] : {std::pair{6, 6}, {7, 7}, {15, 15}, {6, 8}, {5, 5}}) {
        crossword::Matrice m(colonne, righe);
        for (int r = 0; r < righe; ++r) {
            for (int c = 0; c < colonne; ++c) {
                const auto celle = crossword::celle_sulle_linee(m, r, c);
                for (int y = 0; y < righe; ++y) {
                    for (int x = 0; x < colonne; ++x) {
                        crossword::Matrice una(colonne, righe);
                        una.scrivi(x, y, 9);
                        const bool sbarra = crossword::sbarre(una, r, c)[9] != crossword::nessuna;
                        const bool fra = std::find(celle.begin(), celle.end(),
                                                   crossword::Incrocio{x, y}) != celle.end();
                        ASSERT_EQ(fra, sbarra) << colonne << 'x' << righe << ' ' << r << ' ' << c;
                    }
                }
            }
        }
        EXPECT_TRUE(crossword::celle_sulle_linee(m, righe, 0).empty());
    }
}

TEST(Luce, SottoIlPuntatoreSplendonoLeLinee) {
    Programma p;
    p.dimensioni(7, 7);
    platform::MSFlexGrid* g = p.form1.MSFlexGrid1;
    // The lists of the sizes took the keyboard with them.
    p.form1.activateWindow();
    g->setFocus();
    QApplication::processEvents();
    sopra(g, 2, 3);
    EXPECT_EQ(g->illuminate(), linee(p, 2, 3));
    EXPECT_EQ(colore(g, 2, 6).name(), "#fff3dc");
    EXPECT_EQ(colore(g, 3, 4).name(), "#fff3dc");
    EXPECT_EQ(colore(g, 6, 0).name(), "#ffffff");
    su_e_via(g->viewport(), false);
    EXPECT_EQ(g->illuminate(), linee(p, g->Row(), g->Col()));
}

TEST(Luce, ARiposoLaGrigliaEBianca) {
    Programma p;
    p.form1.List1->setFocus();
    QApplication::processEvents();
    EXPECT_TRUE(p.form1.MSFlexGrid1->illuminate().isEmpty());
    EXPECT_EQ(colore(p.form1.MSFlexGrid1, 0, 4).name(), "#ffffff");
    p.form1.MSFlexGrid1->setFocus();
    QApplication::processEvents();
    EXPECT_TRUE(p.form1.MSFlexGrid1->illuminate().isEmpty()) << "nobody used it yet";
    QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Right);
    EXPECT_EQ(p.form1.MSFlexGrid1->illuminate(), linee(p, 0, 1));
    p.form1.List1->setFocus();
    QApplication::processEvents();
    EXPECT_TRUE(p.form1.MSFlexGrid1->illuminate().isEmpty());
}

TEST(Luce, UnTastoTenutoPerUnAltroNonAccende) {
    Programma p;
    platform::MSFlexGrid* g = p.form1.MSFlexGrid1;
    g->setFocus();
    for (const auto tasto : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta,
                             Qt::Key_AltGr, Qt::Key_CapsLock, Qt::Key_NumLock, Qt::Key_Super_L}) {
        preme(g, tasto);
        QApplication::processEvents();
        EXPECT_TRUE(g->illuminate().isEmpty()) << tasto;
    }
    for (const auto con : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        QTest::keyClick(g, Qt::Key_C, con);
        QApplication::processEvents();
        EXPECT_TRUE(g->illuminate().isEmpty()) << int(con);
    }
    QTest::keyClick(g, Qt::Key_Right);
    QApplication::processEvents();
    ASSERT_FALSE(g->illuminate().isEmpty());
    // Nor does it put out what is alight.
    preme(g, Qt::Key_Control);
    QApplication::processEvents();
    EXPECT_FALSE(g->illuminate().isEmpty());
}

TEST(Luce, SiVedeDoveStaIlNumeroSbarrato) {
    Programma p;
    p.numero(33);
    platform::MSFlexGrid* g = p.form1.MSFlexGrid1;
    QWidget* sbarrato = p.form1.CMDnum[33];
    ASSERT_FALSE(sbarrato->isEnabled());
    su_e_via(sbarrato, true);
    EXPECT_EQ(g->indicate(), QList<QPoint>{QPoint(0, 0)});
    su_e_via(sbarrato, false);
    EXPECT_TRUE(g->indicate().isEmpty());
    su_e_via(p.form1.CMDnum[34], true);
    EXPECT_TRUE(g->indicate().isEmpty());
    // Typed too, until the next move.
    g->setFocus();
    QTest::keyClicks(g, "33");
    EXPECT_EQ(g->indicate(), QList<QPoint>{QPoint(0, 0)});
    QTest::keyClick(g, Qt::Key_Down);
    EXPECT_TRUE(g->indicate().isEmpty());
}

TEST(Luce, IColoriDellaListaRestano) {
    Programma p;
    p.numero(8);
    platform::MSFlexGrid* g = p.form1.MSFlexGrid1;
    QTest::mouseClick(p.form1.List1->viewport(), Qt::LeftButton, {},
                      p.form1.List1->visualItemRect(p.form1.List1->item(0)).center());
    sopra(g, 0, 3);
    ASSERT_TRUE(g->illuminate().contains(QPoint(0, 0)));
    EXPECT_EQ(g->sfondo(0, 0).name(), "#ffff00");
    EXPECT_EQ(colore(g, 0, 0).name(), "#ffff00");
}

TEST(Luce, SiSpegneDalMenuESiRicorda) {
    Programma p;
    platform::MSFlexGrid* g = p.form1.MSFlexGrid1;
    ASSERT_TRUE(p.form1.mostra_linee->isChecked());
    Programma::voce(p.form1.mostra_linee);
    sopra(g, 2, 3);
    EXPECT_TRUE(g->illuminate().isEmpty());
    app::DialoghiQt dialoghi;
    {
        const app::Form1 altra(dialoghi);
        EXPECT_FALSE(altra.mostra_linee->isChecked());
    }
    Programma::voce(p.form1.mostra_linee);
    EXPECT_FALSE(g->illuminate().isEmpty());
    const app::Form1 terza(dialoghi);
    EXPECT_TRUE(terza.mostra_linee->isChecked());
}

}  // namespace
