// Windows at every size: nothing overlaps that did not, nothing is cut, and a click finds what it
// sees.
#include <array>
#include <fstream>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QHeaderView>
#include <QProcessEnvironment>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include "app/frmsplash.h"
#include "crossword/griglia.h"
#include "platform/qt/foglio_scalato.h"
#include "platform/qt/scala.h"
#include "platform/ricordi.h"
#include "support/finestre_aperte.h"
#include "support/lettore_finestre.h"

namespace {

using platform::Scala;
using support::FinestreAperte;
using support::Programma;

constexpr std::array<double, 12> scale{0.6,  0.7, 0.8,  0.9, 1.0, 1.1,
                                       1.25, 1.5, 1.75, 2.0, 2.5, 3.0};

bool con_disposizione(const QWidget& finestra) {
    return finestra.layout() != nullptr && finestra.objectName() != "Form1";
}

/// Gives a window the size for a factor, whatever the screen has room for.
void porta(QWidget& finestra, double fattore) {
    const QSize base = platform::posto_a_100(&finestra).size();
    // Layouts take their scale from the keys alone.
    if (con_disposizione(finestra)) {
        Scala::di(&finestra)->porta_a(fattore);
        QApplication::processEvents();
        return;
    }
    finestra.resize((QSizeF(base) * fattore).toSize());
    QApplication::processEvents();
}

/// The controls that a player sees, each with the rectangle that it has in the window.
QList<QPair<QWidget*, QRect>> controlli(QWidget& finestra) {
    QList<QPair<QWidget*, QRect>> trovati;
    for (QWidget* w : finestra.findChildren<QWidget*>()) {
        const bool intero = qobject_cast<QAbstractButton*>(w) || qobject_cast<QLabel*>(w) ||
                            qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
                            qobject_cast<QAbstractItemView*>(w) || qobject_cast<QSpinBox*>(w);
        if (!intero || qobject_cast<QHeaderView*>(w) || !w->isVisible() ||
            w->window() != &finestra || w->width() == 0)
            continue;
        if (qobject_cast<QComboBox*>(w->parentWidget()) ||
            qobject_cast<QSpinBox*>(w->parentWidget()))
            continue;
        trovati.append({w, QRect(w->mapTo(&finestra, QPoint()), w->size())});
    }
    return trovati;
}

QSet<QPair<QWidget*, QWidget*>> sovrapposti(QWidget& finestra) {
    QSet<QPair<QWidget*, QWidget*>> coppie;
    const auto tutti = controlli(finestra);
    for (int i = 0; i < tutti.size(); ++i) {
        for (int j = i + 1; j < tutti.size(); ++j) {
            if (tutti[i].first->isAncestorOf(tutti[j].first)) continue;
            if (tutti[i].second.intersects(tutti[j].second)) {
                coppie.insert({tutti[i].first, tutti[j].first});
            }
        }
    }
    return coppie;
}

/// Labels and buttons whose text is larger than the place that they have for it.
QSet<QWidget*> tagliati(QWidget& finestra) {
    QSet<QWidget*> trovati;
    for (const auto& [w, dove] : controlli(finestra)) {
        QString testo;
        int largo = w->contentsRect().width();
        if (const auto* e = qobject_cast<QLabel*>(w)) {
            if (e->text().isEmpty() || !e->pixmap(Qt::ReturnByValue).isNull()) continue;
            if (e->wordWrap()) {
                const QRect serve = e->fontMetrics().boundingRect(
                    QRect(0, 0, largo, 10000), Qt::TextWordWrap | int(e->alignment()), e->text());
                if (serve.height() > e->height() + 1) trovati.insert(w);
                continue;
            }
            // A value narrows its letters instead.
            if (qobject_cast<const platform::EtichettaValore*>(w) != nullptr) continue;
            testo = e->text();
        } else if (const auto* b = qobject_cast<QAbstractButton*>(w)) {
            testo = b->text().remove('&');
        }
        if (testo.isEmpty()) continue;
        const QFontMetricsF metrica(w->font());
        if (metrica.horizontalAdvance(testo) > largo + 0.5) trovati.insert(w);
        if (metrica.height() > w->height() + 1) trovati.insert(w);
    }
    return trovati;
}

TEST(Scala, ADodiciMisureNullaSiSovrapponeENullaETagliato) {
    Programma p(true);
    int guardate = 0;
    FinestreAperte(p, [&](QWidget& finestra, const std::string& nome) {
        // The slip program enlarges its pages instead.
        if (Scala::di(&finestra) == nullptr) {
            EXPECT_TRUE(nome.starts_with("Stampa") || nome.starts_with("Modulo")) << nome;
            return;
        }
        const auto prima = sovrapposti(finestra);
        const auto tagliati_prima = tagliati(finestra);
        for (const double f : scale) {
            porta(finestra, f);
            for (const auto& coppia : sovrapposti(finestra) - prima) {
                ADD_FAILURE() << nome << " at " << f << ": "
                              << coppia.first->objectName().toStdString() << " over "
                              << coppia.second->objectName().toStdString();
            }
            for (const QWidget* w : tagliati(finestra) - tagliati_prima) {
                ADD_FAILURE() << nome << " at " << f << " cuts " << w->objectName().toStdString()
                              << w->property("text").toString().toStdString();
            }
            ++guardate;
        }
        porta(finestra, 1);
    }).tutte();
    EXPECT_GE(guardate, 12 * 20);
}

TEST(Scala, IClicTrovanoQuelCheSiVede) {
    Programma p;
    for (const double f : scale) {
        SCOPED_TRACE(f);
        porta(p.form1, f);
        Programma::clic(p.form1.Image3[3]);
        for (const int n : {1, 10, 47, 90}) {
            p.cella(1, 2);
            QWidget* b = p.form1.CMDnum[static_cast<std::size_t>(n)];
            const QPoint qui = b->mapTo(&p.form1, b->rect().center());
            ASSERT_EQ(p.form1.childAt(qui), b);
            Programma::clic(b);
            EXPECT_EQ(p.form1.MSFlexGrid1->testo(1, 2), QString::number(n));
            const QRect cella =
                p.form1.MSFlexGrid1->visualRect(p.form1.MSFlexGrid1->model()->index(1, 2));
            EXPECT_EQ(cella.width(), cella.height());
            EXPECT_EQ(p.form1.MSFlexGrid1->indexAt(cella.center()).column(), 2);
        }
    }
}

/// In every skin.
class ACento : public testing::TestWithParam<int> {};

TEST_P(ACento, TornataHaIPostiELAspettoDiPrima) {
    Programma p(true, [](const support::Cartella& c) { support::Lettore::aspetto(c, GetParam()); });
    // The cell under the pointer is another one afterwards.
    p.form1.mostra_linee->setChecked(false);
    FinestreAperte(p, [&](QWidget& finestra, const std::string& nome) {
        // What layouts fill has no places of its own to come back to.
        if (Scala::di(&finestra) == nullptr || con_disposizione(finestra)) return;
        SCOPED_TRACE(nome);
        const auto prima = controlli(finestra);
        const QSize misura = finestra.size();
        const QImage vista = finestra.grab().toImage();
        porta(finestra, 1.6);
        EXPECT_NE(controlli(finestra), prima);
        porta(finestra, 1);
        EXPECT_EQ(finestra.size(), misura);
        EXPECT_EQ(controlli(finestra), prima);
        EXPECT_TRUE(finestra.grab().toImage() == vista);
    }).tutte();
}

INSTANTIATE_TEST_SUITE_P(Aspetti, ACento, testing::Values(1, 2, 3));

TEST(Scala, QuelCheSiScriveDopoEACento) {
    Programma p;
    porta(p.form1, 2);
    QWidget* scritta = p.form1.lblquote;
    scritta->setGeometry(600, 12, 90, 20);
    EXPECT_EQ(scritta->geometry(), QRect(1200, 24, 180, 40));
    // A side that is written as it stands is not written.
    scritta->resize(80, scritta->height());
    EXPECT_EQ(scritta->geometry(), QRect(1200, 24, 160, 40));
    porta(p.form1, 1);
    EXPECT_EQ(scritta->geometry(), QRect(600, 12, 80, 20));
}

TEST(Scala, TastiERotella) {
    Programma p;
    const QSize base = p.form1.size();
    QTest::keyClick(&p.form1, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(p.form1.width(), base.width());
    EXPECT_NEAR(platform::scala(&p.form1), 0.9, 0.01);
    QTest::keyClick(&p.form1, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(p.form1.size(), base);
    EXPECT_EQ(platform::scala(&p.form1), 1);
    const auto gira = [&p](Qt::KeyboardModifiers tasti) {
        QWidget* sotto = p.form1.List1->viewport();
        QWheelEvent giro(QPointF(5, 5), sotto->mapToGlobal(QPointF(5, 5)), {}, {0, -120},
                         Qt::NoButton, tasti, Qt::NoScrollPhase, false);
        QApplication::sendEvent(sotto, &giro);
    };
    gira(Qt::NoModifier);
    EXPECT_EQ(p.form1.size(), base);
    gira(Qt::ControlModifier);
    EXPECT_LT(p.form1.width(), base.width());
    // No further than the screen has room for.
    for (int i = 0; i < 20; ++i) QTest::keyClick(&p.form1, Qt::Key_Plus, Qt::ControlModifier);
    const QSize schermo = p.form1.screen()->availableGeometry().size();
    EXPECT_LE(p.form1.width(), schermo.width());
    EXPECT_LE(p.form1.height(), schermo.height());
}

TEST(Scala, IlCruciverbaPrendeLoSpazio) {
    Programma p;
    const auto cella = [&p] { return p.form1.MSFlexGrid1->columnWidth(0); };
    porta(p.form1, 2);
    EXPECT_GT(cella(), 40 * 3 / 2);
    p.dimensioni(15, 15);
    // All rows at once, with no scroll bar, as soon as the cells need not be smaller than told.
    EXPECT_GE(cella(), 20);
    EXPECT_EQ(p.form1.MSFlexGrid1->verticalScrollBar()->maximum(), 0);
    EXPECT_TRUE(p.form1.Frame1->rect().contains(p.form1.MSFlexGrid1->geometry()));
    porta(p.form1, 1);
    EXPECT_EQ(cella(), 20);
    EXPECT_GT(p.form1.MSFlexGrid1->verticalScrollBar()->maximum(), 0);
}

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

TEST(Scala, UnaFinestraPienaDiTavoleTieneLaSuaScala) {
    Programma p(true);
    p.riempi_e_salva("prova");
    p.comando(1);
    p.mostrati();
    const auto apri = [&p] {
        Programma::voce(p.form1.mnuanalisi);
        return support::aperta<analysis::frmanalisi>();
    };
    auto* f = apri();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(platform::scala(f), 1);
    QTest::keyClick(f, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_NEAR(platform::scala(f), 0.9, 0.001);
    Programma::clic(f->CmdEsci);
    f = apri();
    ASSERT_NE(f, nullptr);
    EXPECT_NEAR(platform::scala(f), 0.9, 0.001);
    QTest::keyClick(f, Qt::Key_0, Qt::ControlModifier);
    Programma::clic(f->CmdEsci);
    f = apri();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(platform::scala(f), 1);
    Programma::clic(f->CmdEsci);
}

TEST(Scala, ChiSiApreDaUnaFinestraNeHaLaScala) {
    Programma p;
    porta(p.form1, 1.5);
    EXPECT_EQ(platform::ambiente_scalato(&p.form1).value("TABELLINO_SCALA"), "1.5");
    EXPECT_EQ(platform::ambiente_scalato(nullptr).value("TABELLINO_SCALA"), "1");
    // The screen of the tests has room for no more.
    for (const auto& [scritto, atteso] :
         {std::pair("1.25", 1.25), {"0.8", 0.8}, {"100", 1.0}, {"", 1.0}, {"x", 1.0}}) {
        qputenv("TABELLINO_SCALA", scritto);
        const importazione::Finestra f(p.cartella.radice() + "/archivio/drawit.sqlite");
        EXPECT_NEAR(platform::scala(&f), atteso, 0.001) << scritto;
    }
    qunsetenv("TABELLINO_SCALA");
}

TEST(Scala, LoSplashCresceConLaFinestraCheApre) {
    const app::frmSplash uno([] {}, [] {});
    const app::frmSplash due([] {}, [] {}, 2);
    EXPECT_EQ(due.size(), uno.size() * 2);
    EXPECT_EQ(due.Image1_0->pos(), uno.Image1_0->pos() * 2);
    EXPECT_NEAR(QFontInfo(due.lblVersion->font()).pixelSize(), 24, 1);
    EXPECT_LE(due.lblVersion->fontMetrics().horizontalAdvance(due.lblVersion->text()),
              due.lblVersion->width());
}

TEST(Scala, ISuggerimentiCresconoConLaFinestra) {
    Programma p;
    const auto alto = [&p](double fattore) {
        porta(p.form1, fattore);
        QToolTip::showText({10, 10}, "Numeri in gioco", p.form1.Image3[0]);
        const QWidget* t = nullptr;
        for (const QWidget* w : QApplication::topLevelWidgets()) {
            if (w->inherits("QTipLabel") && w->isVisible()) t = w;
        }
        const int pixel = t != nullptr ? QFontInfo(t->font()).pixelSize() : 0;
        QToolTip::hideText();
        QApplication::processEvents();
        return pixel;
    };
    EXPECT_EQ(alto(1), 12);
    EXPECT_NEAR(alto(2), 24, 1);
}

TEST(Scala, DiPiuGrandeDelloSchermoSiApreRimpicciolita) {
    using platform::fattore_iniziale;
    EXPECT_EQ(fattore_iniziale({784, 717}, {1920, 1000}, 1), 1);
    EXPECT_EQ(fattore_iniziale({784, 717}, {1920, 1000}, 1.25), 1.25);
    EXPECT_NEAR(fattore_iniziale({784, 717}, {1016, 520}, 1), 0.725, 0.001);
    EXPECT_EQ(fattore_iniziale({784, 717}, {400, 300}, 1), 0.6);
}

TEST(Scala, LaMisuraSiRicorda) {
    Programma p;
    const std::string file = p.cartella.file("finestre.dat");
    porta(p.form1, 0.8);
    const QSize lasciata = p.form1.size();
    p.form1.hide();
    ASSERT_TRUE(platform::ricordo(file, "Form1"));
    app::DialoghiQt dialoghi;
    {
        app::Form1 altra(dialoghi);
        EXPECT_EQ(altra.size(), lasciata);
        EXPECT_NEAR(platform::scala(&altra), 0.8, 0.01);
    }
    p.form1.show();
    QTest::keyClick(&p.form1, Qt::Key_0, Qt::ControlModifier);
    p.form1.hide();
    EXPECT_FALSE(platform::ricordo(file, "Form1"));
}

TEST(Scala, UnaFinestraPiuGrandeDelloSchermoSiCorregge) {
    Programma p;
    platform::ricorda(p.cartella.file("finestre.dat"), "Form1",
                      {{5000, 4000, 3000, 2500, true, false}});
    app::DialoghiQt dialoghi;
    app::Form1 altra(dialoghi);
    const QRect schermo = altra.screen()->availableGeometry();
    EXPECT_TRUE(Scala::di(&altra)->rimetti());
    EXPECT_LE(altra.width(), schermo.width());
    EXPECT_LE(altra.height(), schermo.height());
    EXPECT_TRUE(schermo.contains(altra.pos()));
}

TEST(Scala, UnFileGuastoValeUnPrimoAvvio) {
    Programma p;
    const std::string file = p.cartella.file("finestre.dat");
    for (const char* testo :
         {"", "\"Form1\"", "\"Form1\",1,2", "\"Form1\",1,2,3,4,5,6\r\n",
          "Form1,1,2,300,300,0,0\r\n", "\"Form1\",1,2,99999999999,4,0,0\r\n",
          "\"Form1\",a,b,c,d,e,f\r\n", "\"Form1\",0,0,-5,0,0,0\r\n", "\xff\xfe\0\x01"}) {
        std::ofstream(file) << testo;
        EXPECT_FALSE(platform::ricordo(file, "Form1")) << testo;
    }
    std::ofstream(file) << "\"Form2\",1,2,300,400,1,0\r\nrotta\r\n\"Form1\",-5,7,800,600,0,1\r\n";
    EXPECT_EQ(platform::ricordo(file, "Form1"), (platform::Ricordo{-5, 7, 800, 600, false, true}));
    EXPECT_EQ(platform::ricordo(file, "Form2"), (platform::Ricordo{1, 2, 300, 400, true, false}));
}

TEST(Scala, DelFoglioCambianoSoloLeMisure) {
    const QString foglio =
        "/* a { width: 1px } */ A, B::c { color: red; padding: 0 4px 1px; border: 1px solid #123; "
        "}\n"
        "D:hover { background: qlineargradient(x1:0, stop:0 #FFF); }\nE { font-size: 24px }";
    EXPECT_EQ(platform::misure_scalate(foglio, 1.5),
              "A, B::c {padding:0 6px 2px;}\nE {font-size:36px;}\n");
    EXPECT_EQ(platform::misure_scalate("A { width: 1px; }", 0.1), "A {width:1px;}\n");
}

}  // namespace
