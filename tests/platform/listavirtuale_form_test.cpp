#include <gtest/gtest.h>

#include <QHeaderView>
#include <QScrollBar>
#include <QTest>

#include "platform/qt/desktop.h"
#include "platform/qt/listavirtuale.h"

using platform::ListaVirtuale;
using platform::px;

namespace {

/// As many rows as it is told, whose texts tell where they stand; counts how many were asked for.
class Finte : public platform::Righe {
public:
    [[nodiscard]] int quante() const override { return righe; }
    [[nodiscard]] QString testo(int riga, int colonna) const override {
        ++chieste;
        return QStringLiteral("%1/%2").arg(riga).arg(colonna);
    }
    int righe = 0;
    mutable int chieste = 0;
};

class Virtuale : public ::testing::Test {
protected:
    Virtuale() {
        lista.add_colonna("k", "chiave", 0, Qt::AlignLeft);
        lista.add_colonna("a", "uno", 1500, Qt::AlignHCenter);
        lista.add_colonna("b", "due", 400, Qt::AlignRight);
        lista.resize(200, 200);
        lista.show();
    }
    void con(int righe) {
        finte.righe = righe;
        lista.aggiorna();
        QApplication::processEvents();
    }
    Finte finte;
    ListaVirtuale lista{finte, nullptr};
};

TEST_F(Virtuale, ColumnsKeepWhatTheyWereGiven) {
    EXPECT_EQ(lista.colonne(), 3);
    EXPECT_EQ(lista.chiave(1), "a");
    EXPECT_EQ(lista.titolo(1), "uno");
    EXPECT_EQ(lista.larghezza(1), 1500);
    EXPECT_EQ(lista.columnWidth(1), px(1500));
    EXPECT_TRUE(lista.isColumnHidden(0));
    EXPECT_EQ(lista.verso(2), Qt::AlignRight);
    EXPECT_EQ(lista.model()->headerData(2, Qt::Horizontal).toString(), "due");
    EXPECT_EQ(lista.titolo(9), "");
}

TEST_F(Virtuale, RowsReachTheEdgeWhereverTheirColumnsEnd) {
    lista.setAlternatingRowColors(true);
    con(4);
    lista.selectRow(2);
    const QImage vista = lista.viewport()->grab().toImage();
    const int colonne = lista.horizontalHeader()->length();
    ASSERT_LT(colonne, vista.width() - 2);
    const auto colore = [&](int riga, int x) {
        return vista.pixelColor(x, lista.rowViewportPosition(riga) + 2).name();
    };
    for (const int riga : {0, 1, 2}) {
        EXPECT_EQ(colore(riga, vista.width() - 2), colore(riga, colonne - 2)) << riga;
    }
    lista.activateWindow();
    lista.setFocus();
    ASSERT_TRUE(lista.hasFocus());
    const QImage con_fuoco = lista.viewport()->grab().toImage();
    const int in_mezzo = lista.rowViewportPosition(2) + lista.rowHeight(2) / 2;
    const QColor ambra("#E07B00");
    EXPECT_EQ(con_fuoco.pixelColor(vista.width() - 1, in_mezzo), ambra);
    EXPECT_EQ(con_fuoco.pixelColor(0, in_mezzo), ambra);
    EXPECT_NE(con_fuoco.pixelColor(lista.columnWidth(1) - 1, in_mezzo), ambra);
    EXPECT_NE(colore(1, colonne - 2), colore(0, colonne - 2));
    EXPECT_NE(colore(2, colonne - 2), colore(0, colonne - 2));
}

TEST_F(Virtuale, ShowsNothingBeforeItIsToldOfTheRows) {
    finte.righe = 5;
    EXPECT_EQ(lista.righe(), 0);
    lista.aggiorna();
    EXPECT_EQ(lista.righe(), 5);
    EXPECT_EQ(lista.testo(4, 1), "4/1");
    EXPECT_EQ(lista.testo(5, 1), "");
}

TEST_F(Virtuale, AsksOnlyForTheTextsThatItShows) {
    con(1000000);
    lista.grab();
    EXPECT_GT(finte.chieste, 0);
    EXPECT_LT(finte.chieste, 200);
}

TEST_F(Virtuale, EndOfVeryManyRowsIsReachedByKeys) {
    con(1000000);
    QTest::keyClick(&lista, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(lista.currentIndex().row(), 999999);
    EXPECT_EQ(lista.verticalScrollBar()->value(), lista.verticalScrollBar()->maximum());
}

TEST_F(Virtuale, ClickChoosesAWholeRow) {
    con(5);
    const QRect dove = lista.visualRect(lista.model()->index(2, 1));
    QTest::mouseClick(lista.viewport(), Qt::LeftButton, {}, dove.center());
    EXPECT_EQ(lista.selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(lista.selectionModel()->selectedRows().first().row(), 2);
}

TEST_F(Virtuale, RowsAnewStartFromTheFirst) {
    con(1000);
    QTest::keyClick(&lista, Qt::Key_End, Qt::ControlModifier);
    con(900);
    EXPECT_EQ(lista.verticalScrollBar()->value(), 0);
    EXPECT_FALSE(lista.currentIndex().isValid());
    con(0);
    EXPECT_EQ(lista.righe(), 0);
}

TEST_F(Virtuale, WidthIsToldInTwips) {
    lista.set_Width(5225);
    EXPECT_EQ(lista.Width(), 5225);
    EXPECT_EQ(lista.width(), px(5225));
    EXPECT_EQ(lista.height(), 200);
}

TEST_F(Virtuale, TabLeavesTheList) {
    con(3);
    EXPECT_FALSE(lista.tabKeyNavigation());
}

}  // namespace
