// The main form with more room than its proportion asks for, which the crossword takes.
#include <gtest/gtest.h>

#include <QTest>

#include "platform/qt/scala.h"
#include "support/finestre_aperte.h"
#include "support/misure.h"

namespace {

using support::controlli;
using support::Programma;
using support::sovrapposti;
using support::tagliati;

/// The main form larger than its proportion asks for, by so much at 100 %.
void allarga(Programma& p, QSize piu, double fattore = 1) {
    const QSizeF base(platform::posto_a_100(&p.form1).size());
    p.form1.resize(((base + QSizeF(piu)) * fattore).toSize());
    QApplication::processEvents();
}

QRect in_finestra(const QWidget* w) {
    return {w->mapTo(w->window(), QPoint()), w->size()};
}

TEST(Spazio, DiLatoLoPrendeIlCruciverba) {
    Programma p;
    app::Form1& f = p.form1;
    const int larghezza = f.width();
    const int cella = f.MSFlexGrid1->columnWidth(0);
    const auto bordo = [&] { return f.width() - in_finestra(f.Frame6).right(); };
    const int margine = bordo();
    // A little widens it where it stands.
    allarga(p, {200, 0});
    EXPECT_EQ(f.width(), larghezza + 200);
    EXPECT_EQ(f.Frame1->width(), 384 + 200);
    EXPECT_EQ(f.Frame3->geometry(), QRect(8, 64, 256, 250));
    EXPECT_EQ(bordo(), margine);
    EXPECT_GT(f.MSFlexGrid1->columnWidth(0), cella);
    // With much it stands beside the others, as high as they are together.
    allarga(p, {560, 0});
    const QRect suo = in_finestra(f.Frame1);
    EXPECT_EQ(f.width() - suo.right(), margine);
    EXPECT_EQ(suo.bottom(), in_finestra(f.Frame6).bottom());
    EXPECT_GT(suo.left(), in_finestra(f.Frame5).right());
    EXPECT_GE(f.MSFlexGrid1->columnWidth(0), 3 * cella);
    EXPECT_GE(f.CMDnum[1]->width(), 30);
    EXPECT_TRUE(f.Frame1->rect().contains(f.MSFlexGrid1->geometry()));
    EXPECT_EQ(platform::scala(&f), 1);
}

TEST(Spazio, SottoLoPrendeIlCruciverba) {
    Programma p;
    app::Form1& f = p.form1;
    const int cella = f.MSFlexGrid1->columnWidth(0);
    allarga(p, {0, 300});
    EXPECT_EQ(f.Frame1->height(), 250 + 300);
    EXPECT_EQ(f.Frame3->height(), 250 + 300);
    allarga(p, {0, 700});
    const QRect suo = in_finestra(f.Frame1);
    EXPECT_EQ(suo.width(), f.Frame2->width());
    EXPECT_GT(suo.top(), in_finestra(f.Frame3).bottom());
    EXPECT_LT(suo.bottom(), in_finestra(f.Frame2).top());
    EXPECT_GE(f.MSFlexGrid1->columnWidth(0), 4 * cella);
    EXPECT_GE(f.CMDnum[1]->width(), 30);
}

TEST(Spazio, NullaSiSovrapponeENullaETagliato) {
    Programma p(true);
    for (const bool lotto : {false, true}) {
        if (lotto) Programma::clic(p.form1.Image10);
        const auto prima = sovrapposti(p.form1);
        const auto tagliati_prima = tagliati(p.form1);
        for (const QSize piu : {QSize(0, 0),
                                {60, 0},
                                {299, 0},
                                {301, 0},
                                {500, 0},
                                {1500, 0},
                                {0, 60},
                                {0, 439},
                                {0, 441},
                                {0, 1500}}) {
            for (const double fattore : {0.6, 0.8, 1.0, 1.5, 2.0}) {
                SCOPED_TRACE(std::to_string(piu.width()) + '+' + std::to_string(piu.height()) +
                             " at " + std::to_string(fattore));
                allarga(p, piu, fattore);
                for (const auto& coppia : sovrapposti(p.form1) - prima) {
                    ADD_FAILURE() << coppia.first->objectName().toStdString() << " over "
                                  << coppia.second->objectName().toStdString();
                }
                for (const QWidget* w : tagliati(p.form1) - tagliati_prima) {
                    ADD_FAILURE() << "cuts " << w->objectName().toStdString();
                }
                for (QWidget* w :
                     {static_cast<QWidget*>(p.form1.Frame1), static_cast<QWidget*>(p.form1.Frame3),
                      static_cast<QWidget*>(p.form1.Frame5)}) {
                    EXPECT_TRUE(p.form1.rect().contains(in_finestra(w)));
                    EXPECT_TRUE(w->rect().contains(w->childrenRect()))
                        << w->objectName().toStdString();
                }
            }
        }
    }
}

TEST(Spazio, IClicTrovanoQuelCheSiVede) {
    Programma p;
    for (const QSize piu : {QSize(700, 0), {0, 700}}) {
        allarga(p, piu);
        Programma::clic(p.form1.Image3[3]);
        for (const int n : {1, 10, 81, 90}) {
            p.cella(5, 4);
            QWidget* b = p.form1.CMDnum[static_cast<std::size_t>(n)];
            ASSERT_EQ(p.form1.childAt(b->mapTo(&p.form1, b->rect().center())), b);
            Programma::clic(b);
            EXPECT_EQ(p.form1.MSFlexGrid1->testo(5, 4), QString::number(n));
        }
    }
}

TEST(Spazio, AllaSuaProporzioneTornaTuttoComEDetto) {
    Programma p;
    p.form1.mostra_linee->setChecked(false);
    for (const bool lotto : {false, true}) {
        if (lotto) Programma::clic(p.form1.Image10);
        QApplication::processEvents();
        const auto prima = controlli(p.form1);
        const QImage vista = p.form1.grab().toImage();
        for (const QSize piu : {QSize(200, 0), {700, 0}, {0, 200}, {0, 700}}) {
            allarga(p, piu);
            EXPECT_NE(controlli(p.form1), prima);
            allarga(p, {0, 0});
            EXPECT_EQ(controlli(p.form1), prima);
            EXPECT_TRUE(p.form1.grab().toImage() == vista);
        }
    }
}

TEST(Spazio, IlGestorePiuLargoHaColonnePiuLarghe) {
    Programma p;
    Programma::voce(p.form1.mnugest_sist);
    systems::Form2* f = Programma::gestore();
    ASSERT_NE(f, nullptr);
    const QSize base = f->size();
    const platform::ListView& l = *f->ListView1;
    f->resize(base.width() + 110, base.height());
    QApplication::processEvents();
    EXPECT_EQ(platform::scala(f), 1);
    EXPECT_GT(l.columnWidth(0), 130);
    EXPECT_LE(l.header()->length(), l.viewport()->width());
    f->resize(base);
    QApplication::processEvents();
    EXPECT_EQ(l.columnWidth(0), 107);
    EXPECT_EQ(l.larghezza(0), 1600);
    f->close();
}

TEST(Spazio, LoSpoglioMostraPiuRighe) {
    Programma p(true);
    p.riempi();
    p.scrivi_nel_gestore("prova");
    Programma::voce(p.form1.mnusalva);
    p.comando(1);
    p.mostrati();
    p.comando(6);
    auto* f = support::aperta<check::frmspoglio>();
    ASSERT_NE(f, nullptr);
    const QRect lista = f->ListView1->geometry();
    const QSize base = f->size();
    f->resize(base.width() + 160, base.height());
    QApplication::processEvents();
    EXPECT_EQ(f->ListView1->width(), lista.width() + 160);
    EXPECT_EQ(f->Frame4->geometry().right(), f->width() - 9);
    const platform::ListaVirtuale& l = *f->ListView1;
    EXPECT_GT(l.columnWidth(1), 100);
    f->resize(base.width(), base.height() + 200);
    QApplication::processEvents();
    EXPECT_EQ(f->ListView1->height(), lista.height() + 200);
    EXPECT_EQ(l.columnWidth(1), 100);
    EXPECT_GT(f->MSFlexGrid1->columnWidth(0), 20);
    f->resize(base);
    QApplication::processEvents();
    EXPECT_EQ(f->ListView1->geometry(), lista);
    EXPECT_EQ(f->MSFlexGrid1->columnWidth(0), 20);
    Programma::clic(f->CmdEsci);
}

}  // namespace
