// Windows at every size: nothing overlaps that did not, nothing is cut, and a click finds what it
// sees.
#include <array>
#include <fstream>
#include <gtest/gtest.h>

#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <QWindow>

#include "app/frmsplash.h"
#include "crossword/griglia.h"
#include "platform/qt/foglio_scalato.h"
#include "platform/qt/scala.h"
#include "platform/ricordi.h"
#include "support/finestre_aperte.h"
#include "support/lettore_finestre.h"
#include "support/misure.h"

namespace {

using platform::Scala;
using support::con_disposizione;
using support::controlli;
using support::FinestreAperte;
using support::porta;
using support::Programma;
using support::sovrapposti;
using support::tagliati;

constexpr std::array<double, 12> scale{0.6,  0.7, 0.8,  0.9, 1.0, 1.1,
                                       1.25, 1.5, 1.75, 2.0, 2.5, 3.0};

TEST(Scala, ADodiciMisureNullaSiSovrapponeENullaETagliato) {
    Programma p(true);
    int guardate = 0;
    FinestreAperte(p, [&](QWidget& finestra, const std::string& nome) {
        ASSERT_NE(Scala::di(&finestra), nullptr) << nome;
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
    // A caret would be there or not.
    QApplication::setCursorFlashTime(0);
    int guardate = 0;
    FinestreAperte(p, [&](QWidget& finestra, const std::string& nome) {
        ++guardate;
        SCOPED_TRACE(nome);
        // What the screen of the tests has no room for opened smaller, and comes back to that.
        const double aperta = platform::scala(&finestra);
        const auto prima = controlli(finestra);
        const QSize misura = finestra.size();
        const QImage vista = finestra.grab().toImage();
        porta(finestra, aperta == 1 ? 1.6 : 0.7);
        EXPECT_NE(controlli(finestra), prima);
        porta(finestra, aperta);
        EXPECT_EQ(platform::scala(&finestra), aperta);
        EXPECT_EQ(finestra.size(), misura);
        EXPECT_EQ(controlli(finestra), prima);
        EXPECT_TRUE(finestra.grab().toImage() == vista);
    }).tutte();
    EXPECT_GE(guardate, 66);
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

/// Counts the events of a kind that reach a control.
class Contatore : public QObject {
public:
    Contatore(QWidget* dove, QEvent::Type quale) : QObject(dove), quale_(quale) {
        dove->installEventFilter(this);
    }
    int quanti = 0;

protected:
    bool eventFilter(QObject* /*oggetto*/, QEvent* evento) override {
        if (evento->type() == quale_) ++quanti;
        return false;
    }

private:
    QEvent::Type quale_;
};

TEST(Scala, UnPassoDelBordoDipingeUnaVoltaSola) {
    Programma p;
    porta(p.form1, 1.535);
    QApplication::processEvents();
    const auto* dipinta = new Contatore(p.form1.MSFlexGrid2->viewport(), QEvent::Paint);
    const auto* scritta = new Contatore(p.form1.Combo1, QEvent::FontChange);
    const auto* vestita = new Contatore(p.form1.MSFlexGrid1, QEvent::StyleChange);
    // So little that no letter grows by a quarter of a pixel, and no cell by a whole one.
    const QSize misura = p.form1.size() + QSize(1, 1);
    p.form1.resize(misura);
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
    EXPECT_EQ(dipinta->quanti, 1);
    EXPECT_EQ(scritta->quanti, 0);
    EXPECT_EQ(vestita->quanti, 0);
}

TEST(Scala, TrascinatoIlBordoSiVesteDaFermo) {
    Programma p;
    porta(p.form1, 1.5);
    const QString a_150 = p.form1.styleSheet();
    const QSize misura = p.form1.size();
    porta(p.form1, 1.1);
    const auto* vestita = new Contatore(p.form1.MSFlexGrid1, QEvent::StyleChange);
    int prima_di_disporre = -1;
    QObject::connect(Scala::di(&p.form1), &Scala::dispone, &p.form1, [&] {
        if (prima_di_disporre < 0) prima_di_disporre = vestita->quanti;
    });
    // As the desktop gives a window another size.
    p.form1.windowHandle()->resize(misura);
    QTRY_COMPARE(p.form1.size(), misura);
    EXPECT_DOUBLE_EQ(platform::scala(&p.form1), 1.5);
    EXPECT_EQ(prima_di_disporre, 0);
    QTRY_COMPARE(p.form1.styleSheet(), a_150);
    EXPECT_GT(vestita->quanti, 0);
}

TEST(Scala, TrascinatoIlBordoOgniCosaHaIlPostoDellaSuaMisura) {
    Programma p;
    porta(p.form1, 1.37);
    const auto posti = controlli(p.form1);
    const QSize misura = p.form1.size();
    const QString foglio = p.form1.styleSheet();
    porta(p.form1, 1.3);
    // Pixel by pixel, so that letters, menu and places each have steps of their own.
    while (p.form1.size() != misura) {
        const QSize ora = p.form1.size();
        p.form1.windowHandle()->resize((ora + QSize(1, 1)).boundedTo(misura));
        QTRY_VERIFY(p.form1.size() != ora);
    }
    QTRY_COMPARE(p.form1.styleSheet(), foglio);
    QApplication::processEvents();
    EXPECT_EQ(controlli(p.form1), posti);
}

TEST(Scala, IlFoglioDiPrimaMessoDiNuovoSiScala) {
    Programma p;
    const QString suo = p.form1.styleSheet();
    porta(p.form1, 2);
    const QString scalato = p.form1.styleSheet();
    ASSERT_NE(scalato, suo);
    p.form1.setStyleSheet(suo);
    EXPECT_EQ(p.form1.styleSheet(), scalato);
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
        QWidget* t = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (w->inherits("QTipLabel") && w->isVisible()) t = w;
        }
        if (t == nullptr) return 0;
        const int pixel = QFontInfo(t->font()).pixelSize();
        // At once: hidden in its own time it would be shown again as it is.
        t->close();
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

TEST(Scala, UnTondoRestaTondo) {
    // As the dark skin draws what is chosen; a radius beyond half the side would be none.
    const QString tondo =
        "A::indicator { width: 12px; height: 12px; border: 1px solid #123; border-radius: 7px; }";
    static const QRegularExpression misure("width:(\\d+)px;.*border-radius:(\\d+)px;");
    for (const double f : scale) {
        const auto m = misure.match(platform::misure_scalate(tondo, f));
        ASSERT_TRUE(m.hasMatch());
        const int lato = m.captured(1).toInt() + 2;
        const int raggio = m.captured(2).toInt();
        EXPECT_LE(2 * raggio, lato) << f;
        EXPECT_GE(2 * raggio, lato - 2) << f;
    }
}

}  // namespace
