// Windows at every size: nothing overlaps that did not, nothing is cut, and a click finds what it
// sees.
#include <array>
#include <fstream>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include "crossword/griglia.h"
#include "platform/qt/foglio_scalato.h"
#include "platform/qt/scala.h"
#include "platform/ricordi.h"
#include "support/finestre_aperte.h"

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
        if (Scala::di(&finestra) == nullptr) return;
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

TEST(Scala, TornataACentoHaIPostiDiPrima) {
    Programma p(true);
    // The cell under the pointer is another one afterwards.
    p.form1.mostra_linee->setChecked(false);
    FinestreAperte(p, [&](QWidget& finestra, const std::string& nome) {
        // What layouts fill has no places of its own to come back to.
        if (Scala::di(&finestra) == nullptr || con_disposizione(finestra)) return;
        SCOPED_TRACE(nome);
        const auto prima = controlli(finestra);
        const QImage vista = finestra.grab().toImage();
        porta(finestra, 1.6);
        EXPECT_NE(controlli(finestra), prima);
        porta(finestra, 1);
        EXPECT_EQ(controlli(finestra), prima);
        EXPECT_TRUE(finestra.grab().toImage() == vista);
    }).tutte();
}

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
