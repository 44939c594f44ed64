// The bars under the pointer.
#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include "analysis/grafico.h"

using analysis::Grafico;

namespace {

/// What is told of the place; the text of the last bar may stay where there is none.
QString detto(Grafico& grafico, QPoint dove) {
    QHelpEvent chiede(QEvent::ToolTip, dove, grafico.mapToGlobal(dove));
    EXPECT_TRUE(QCoreApplication::sendEvent(&grafico, &chiede));
    return QToolTip::text();
}

void mostra(Grafico& grafico, QSize misura) {
    grafico.mostra(
        "Vincite",
        {{"tre", 2, "una su due"}, {"quattro", 1, "una su dieci"}, {"cinque", 0, "mai"}});
    grafico.resize(misura);
    grafico.show();
    QApplication::processEvents();
}

TEST(Grafico, UnaBarraDistesaDiceIlSuoValorePerTuttaLaLarghezza) {
    Grafico grafico(Qt::Horizontal, nullptr);
    mostra(grafico, {400, 2 * 10 + 3 * 22});
    for (const int x : {0, 200, 399}) {
        EXPECT_EQ(detto(grafico, {x, 10}), "tre: una su due");
        EXPECT_EQ(detto(grafico, {x, 31}), "tre: una su due");
        EXPECT_EQ(detto(grafico, {x, 32}), "quattro: una su dieci");
        EXPECT_EQ(detto(grafico, {x, 75}), "cinque: mai");
    }
    for (const int y : {0, 9, 76, 85}) EXPECT_EQ(detto(grafico, {200, y}), "cinque: mai") << y;
}

TEST(Grafico, UnaBarraRittaDiceIlSuoValorePerTuttaLAltezza) {
    Grafico grafico(Qt::Vertical, nullptr);
    // A field of 300 pixels, right of the scale.
    mostra(grafico, {10 + 44 + 300 + 10, 170});
    for (const int y : {0, 80, 169}) {
        EXPECT_EQ(detto(grafico, {54, y}), "tre: una su due");
        EXPECT_EQ(detto(grafico, {153, y}), "tre: una su due");
        EXPECT_EQ(detto(grafico, {154, y}), "quattro: una su dieci");
        EXPECT_EQ(detto(grafico, {353, y}), "cinque: mai");
    }
    for (const int x : {0, 53, 354, 363}) EXPECT_EQ(detto(grafico, {x, 80}), "cinque: mai") << x;
}

TEST(Grafico, SenzaBarreNonSiDiceNulla) {
    Grafico grafico(Qt::Vertical, nullptr);
    grafico.resize(200, 170);
    grafico.show();
    const QString prima = QToolTip::text();
    EXPECT_EQ(detto(grafico, {100, 80}), prima);
}

}  // namespace
