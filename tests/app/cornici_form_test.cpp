// Borders, focus frames and grounds as each skin means them.
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTabBar>

#include "guida/finestra.h"
#include "support/finestre_aperte.h"
#include "support/lettore_finestre.h"
#include "support/misure.h"

namespace {

using support::aperta;
using support::Lettore;
using support::Programma;

TEST(Cornice, VaDalSecondoPixelAllUltimo) {
    platform::Frame riquadro(QString(), nullptr);
    riquadro.setStyleSheet(
        "platform--Frame { qproperty-linea: #FF0000; qproperty-fondo: #FFFFFF; }");
    riquadro.resize(60, 40);
    const QImage dipinto = riquadro.grab().toImage();
    const auto linea = [&](int x, int y) { return dipinto.pixelColor(x, y) == QColor("#FF0000"); };
    EXPECT_FALSE(linea(0, 20));
    EXPECT_TRUE(linea(1, 20));
    EXPECT_FALSE(linea(58, 20));
    EXPECT_TRUE(linea(59, 20));
    EXPECT_FALSE(linea(30, 0));
    EXPECT_TRUE(linea(30, 1));
    EXPECT_FALSE(linea(30, 38));
    EXPECT_TRUE(linea(30, 39));
}

class Aspetti : public testing::TestWithParam<int> {
protected:
    Programma p{true, [](const support::Cartella& c) { Lettore::aspetto(c, GetParam()); }};
};

TEST_P(Aspetti, IlFuocoIncorniciaIlTestoDellaScelta) {
    p.riempi_e_salva("prova");
    p.comando(7);
    auto* f = aperta<printing::frmstsvl>();
    QRadioButton* scelta = f->Option1[1];
    f->activateWindow();
    QApplication::processEvents();
    QTest::mouseClick(scelta, Qt::LeftButton);
    const QImage dipinta = scelta->grab().toImage();
    QRect cornice;
    for (int y = 0; y < dipinta.height(); ++y) {
        for (int x = 0; x < dipinta.width(); ++x) {
            if (dipinta.pixelColor(x, y) == QColor("#E07B00")) cornice |= QRect(x, y, 1, 1);
        }
    }
    // Neither the mark nor the whole row.
    EXPECT_GT(cornice.left(), 14);
    EXPECT_GT(cornice.width(), scelta->fontMetrics().horizontalAdvance(scelta->text()));
    EXPECT_LT(cornice.width(), scelta->fontMetrics().horizontalAdvance(scelta->text()) + 10);
    EXPECT_LT(cornice.height(), 24);
    f->close();
}

TEST_P(Aspetti, IlSegnoDellaSceltaCresceConLaFinestra) {
    p.riempi_e_salva("prova");
    p.comando(7);
    auto* f = aperta<printing::frmstsvl>();
    ASSERT_NE(f, nullptr);
    const QRadioButton* scelta = f->Option1[0];
    const auto lato = [scelta] {
        QStyleOptionButton opzione;
        opzione.initFrom(scelta);
        return scelta->style()
            ->subElementRect(QStyle::SE_RadioButtonIndicator, &opzione, scelta)
            .size();
    };
    const QSize prima = lato();
    support::porta(*f, 2);
    EXPECT_NEAR(lato().width(), 2 * prima.width(), 2);
    EXPECT_NEAR(lato().height(), 2 * prima.height(), 2);
    support::porta(*f, 1);
    EXPECT_EQ(lato(), prima);
    f->close();
}

TEST_P(Aspetti, LaCorniceDelFuocoHaQuattroLati) {
    schedine::Finestra f(p.cartella.radice() + "/");
    f.setStyleSheet(p.form1.styleSheet());
    f.show();
    f.activateWindow();
    QApplication::processEvents();
    QTest::mouseClick(f.optgenere[2], Qt::LeftButton);
    const QImage dipinta = f.optgenere[2]->grab().toImage();
    const auto ambra = [&](int x, int y) { return dipinta.pixelColor(x, y) == QColor("#E07B00"); };
    QRect cornice;
    for (int y = 0; y < dipinta.height(); ++y) {
        for (int x = 0; x < dipinta.width(); ++x) {
            if (ambra(x, y)) cornice |= QRect(x, y, 1, 1);
        }
    }
    ASSERT_FALSE(cornice.isEmpty());
    for (int x = cornice.left(); x <= cornice.right(); ++x) {
        EXPECT_TRUE(ambra(x, cornice.top()) && ambra(x, cornice.bottom())) << x;
    }
    for (int y = cornice.top(); y <= cornice.bottom(); ++y) {
        EXPECT_TRUE(ambra(cornice.left(), y) && ambra(cornice.right(), y)) << y;
    }
}

TEST_P(Aspetti, LeRigheDelVisoreVannoDaBordoABordo) {
    p.riempi_e_salva("prova");
    p.comando(1);
    p.mostrati();
    p.comando(2);
    auto* f = aperta<viewer::Form3>();
    ASSERT_NE(f, nullptr);
    for (const platform::ListView* l : {f->ListView1, f->ListView2, f->ListView3, f->ListView4}) {
        EXPECT_EQ(l->viewport()->geometry(), l->rect());
    }
    for (platform::ListView* l : {f->ListView1, f->ListView3}) {
        const QImage vista = l->viewport()->grab().toImage();
        const auto fine = [&](int riga, int x) {
            return vista.pixelColor(x, l->visualRect(l->model()->index(riga, 1)).top() + 2).name();
        };
        const int bordo = vista.width() - 1;
        const int colonne = l->header()->length();
        ASSERT_LT(colonne, bordo);
        EXPECT_EQ(fine(1, bordo), fine(1, colonne - 2));
        EXPECT_EQ(fine(0, bordo), fine(0, colonne - 2));
        EXPECT_NE(fine(1, bordo), fine(0, bordo));
        // Chosen as the search shows what it found.
        l->topLevelItem(0)->setSelected(true);
        const QImage scelta = l->viewport()->grab().toImage();
        const int y = l->visualRect(l->model()->index(0, 1)).top() + 2;
        EXPECT_EQ(scelta.pixelColor(bordo, y), scelta.pixelColor(colonne - 2, y));
        EXPECT_NE(scelta.pixelColor(bordo, y), vista.pixelColor(bordo, y));
    }
    f->close();
}

TEST_P(Aspetti, LaRigaSceltaDelGestoreVaDaBordoABordo) {
    p.riempi_e_salva("prova");
    Programma::voce(p.form1.mnugest_sist);
    systems::Form2* f = Programma::gestore();
    f->activateWindow();
    QApplication::processEvents();
    platform::ListView* l = f->ListView1;
    QTest::mouseClick(l->viewport(), Qt::LeftButton, {},
                      l->visualItemRect(l->topLevelItem(0)).center());
    ASSERT_TRUE(l->hasFocus());
    const QImage vista = l->viewport()->grab().toImage();
    const QRect riga = l->visualItemRect(l->topLevelItem(0));
    const int bordo = vista.width() - 1;
    const int colonne = l->header()->length();
    ASSERT_LT(colonne, bordo);
    const auto colore = [&](int x, int y) { return vista.pixelColor(x, y).name().toUpper(); };
    EXPECT_EQ(colore(bordo - 1, riga.top() + 2), colore(colonne - 3, riga.top() + 2));
    EXPECT_NE(colore(bordo - 1, riga.top() + 2), colore(bordo - 1, riga.bottom() + 4));
    // One frame around it all.
    EXPECT_EQ(colore(bordo, riga.center().y()), "#E07B00");
    EXPECT_NE(colore(colonne - 1, riga.center().y()), "#E07B00");
    f->close();
}

TEST_P(Aspetti, LaTestataDelGestoreSiLeggeIntera) {
    Programma::voce(p.form1.mnugest_sist);
    systems::Form2* f = Programma::gestore();
    const platform::ListView* l = f->ListView1;
    const QImage teste = l->header()->viewport()->grab().toImage();
    int prima = teste.width();
    int ultima = 0;
    // Short of the line between the columns.
    for (int x = 0; x < l->header()->sectionSize(0) - 3; ++x) {
        for (int y = 4; y < teste.height() - 4; ++y) {
            if (teste.pixelColor(x, y).lightness() < 150) continue;
            prima = qMin(prima, x);
            ultima = qMax(ultima, x);
        }
    }
    const int largo = l->header()->fontMetrics().horizontalAdvance(l->titolo(0));
    EXPECT_GE(ultima - prima, largo - 4);
    f->close();
}

TEST_P(Aspetti, LaLinguettaSceltaHaIlFondoDellaLista) {
    Programma::voce(p.form1.mnugest_sist);
    systems::Form2* f = Programma::gestore();
    const QImage tutta = f->grab().toImage();
    const QRect scelta = f->TabStrip1->tabRect(f->TabStrip1->currentIndex());
    const QPoint in_scheda = f->TabStrip1->mapTo(f, scelta.bottomLeft() + QPoint(4, -3));
    const QPoint in_lista = f->ListView1->viewport()->mapTo(f, QPoint(20, 120));
    EXPECT_EQ(tutta.pixelColor(in_scheda).name(), tutta.pixelColor(in_lista).name());
    f->close();
}

/// Columns of the first row that hold letters: what differs much from the ground.
QRect lettere(QAbstractItemView* lista, bool scelta) {
    if (scelta) {
        const QSignalBlocker muto(lista->selectionModel());
        lista->selectionModel()->select(lista->model()->index(0, 0),
                                        QItemSelectionModel::ClearAndSelect);
    }
    const QRect riga = lista->visualRect(lista->model()->index(0, 0)).adjusted(1, 2, -1, -2);
    const QImage dipinta = lista->viewport()->grab(riga).toImage();
    QRect trovate;
    for (int y = 0; y < dipinta.height(); ++y) {
        for (int x = 0; x < dipinta.width(); ++x) {
            if (support::contrasto(dipinta.pixel(x, y), dipinta.pixel(0, 0)) > 3)
                trovate |= QRect(x, y, 1, 1);
        }
    }
    return trovate;
}

TEST_P(Aspetti, LaVoceSceltaNonSiSposta) {
    p.numero(8);
    p.numero(17);
    EXPECT_EQ(lettere(p.form1.List1, false), lettere(p.form1.List1, true));
    guida::Finestra guida("inizio");
    guida.setStyleSheet(p.form1.styleSheet());
    guida.show();
    guida.findChild<QLineEdit*>("ricerca")->setText("jolly");
    auto* trovate = guida.findChild<QListWidget*>("trovate");
    QApplication::processEvents();
    EXPECT_EQ(lettere(trovate, false), lettere(trovate, true));
}

TEST_P(Aspetti, IlBinarioStaColFondoELaBarraSiVede) {
    p.riempi_e_salva("prova");
    p.comando(1);
    p.mostrati();
    p.comando(6);
    auto* f = aperta<check::frmspoglio>();
    ASSERT_NE(f, nullptr);
    f->picprog1->show();
    f->picprog2->resize(60, f->picprog2->height());
    QApplication::processEvents();
    const QImage tutta = f->grab().toImage();
    const QPoint inizio = f->picprog1->mapTo(f, QPoint(20, f->picprog1->height() / 2));
    const QRgb binario = tutta.pixel(inizio + QPoint(100, 0));
    EXPECT_LT(support::contrasto(binario, tutta.pixel(2, 2)), 2);
    EXPECT_GT(support::contrasto(binario, tutta.pixel(inizio)), 3);
    f->close();
}

INSTANTIATE_TEST_SUITE_P(Tutti, Aspetti, testing::Values(1, 2, 3));

}  // namespace
