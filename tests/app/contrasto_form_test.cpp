// What is written can be read, in every skin: a contrast of 4.5 to 1 at least.
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QStyleOption>
#include <QTabWidget>
#include <QToolTip>

#include "app/frmsplash.h"
#include "guida/finestra.h"
#include "platform/qt/scrivania.h"
#include "support/finestre_aperte.h"
#include "support/lettore_finestre.h"

namespace {

using support::contrasto;
using support::FinestreAperte;
using support::Lettore;
using support::Programma;

class Contrasto : public testing::TestWithParam<int> {
protected:
    Lettore lettore;
    Programma p{true, [](const support::Cartella& c) { Lettore::aspetto(c, GetParam()); }};
};

TEST_P(Contrasto, OgniTestoSiLegge) {
    ASSERT_FALSE(p.form1.styleSheet().isEmpty());
    FinestreAperte(p, [this](QWidget& finestra, const std::string& nome) {
        SCOPED_TRACE(nome);
        lettore.misura(finestra);
    }).tutte();
    EXPECT_GT(lettore.misurati, 2000);
    EXPECT_GE(lettore.scelte, 4);
}

TEST_P(Contrasto, LeListeAperteSiLeggono) {
    p.dimensioni(9, 9);
    for (platform::ComboBox* c : p.form1.findChildren<platform::ComboBox*>()) {
        if (!c->isVisible()) continue;
        c->showPopup();
        lettore.misura_righe(c->view());
        c->hidePopup();
    }
    EXPECT_GT(lettore.misurati, 20);
}

TEST_P(Contrasto, IlCruciverbaSiLeggeInOgniColore) {
    p.riempi(12);
    platform::MSFlexGrid* griglia = p.form1.MSFlexGrid1;
    for (int riga = 0; riga < 6; ++riga) {
        auto* voce = p.form1.List1->item(riga);
        QTest::mouseClick(p.form1.List1->viewport(), Qt::LeftButton, {},
                          p.form1.List1->visualItemRect(voce).center());
    }
    lettore.misura_righe(griglia);
    p.cella(3, 3);
    QTest::keyClick(griglia, Qt::Key_4);
    const QRect cella = griglia->visualRect(griglia->model()->index(3, 3));
    lettore.misura_pezzo(griglia->viewport()->grab().toImage(), cella.adjusted(4, 4, -4, -4),
                         "a digit half typed");
    EXPECT_GT(lettore.misurati, 12);
}

TEST_P(Contrasto, IMenuSiLeggono) {
    Programma::voce(p.form1.mnugest_sist);
    QMenu* campo = Programma::gestore()->Text1->createStandardContextMenu();
    for (QMenu* menu : p.form1.findChildren<QMenu*>()) {
        menu->popup(QPoint(10, 10));
        for (QAction* a : menu->actions()) {
            const bool accesa = a->isEnabled();
            for (const bool si : {true, false}) {
                a->setEnabled(si);
                for (QAction* attiva : {static_cast<QAction*>(nullptr), a}) {
                    if (a->isSeparator()) continue;
                    menu->setActiveAction(attiva);
                    lettore.misura_pezzo(menu->grab().toImage(),
                                         menu->actionGeometry(a).adjusted(26, 2, -2, -2),
                                         a->text().toStdString() + (si ? "" : " disabled") +
                                             (attiva != nullptr ? " active" : ""));
                }
            }
            a->setEnabled(accesa);
        }
        menu->close();
    }
    EXPECT_TRUE(campo->window()->inherits("QMenu"));
    EXPECT_GT(lettore.misurati, 100);
    Programma::gestore()->close();
}

TEST_P(Contrasto, SuggerimentiEMessaggiSiLeggono) {
    QToolTip::showText(QPoint(20, 20), "Elabora il sistema (F5)", p.form1.Image3[1]);
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->isVisible() && w->inherits("QTipLabel"))
            lettore.misura_pezzo(w->grab().toImage(), w->rect().adjusted(3, 3, -3, -3), "tooltip");
    }
    QToolTip::hideText();
    EXPECT_EQ(lettore.misurati, 1);
    QTimer::singleShot(0, &p.form1, [this] {
        QWidget* box = QApplication::activeModalWidget();
        lettore.misura(*box);
        box->close();
    });
    const platform::Ripristina vere(platform::scrivania().risponde, nullptr);
    platform::MsgBox(&p.form1, {"Salvare ora?", support::Pulsanti::si_no_annulla, "Tabellino",
                                support::Icona::informazione});
    EXPECT_GT(lettore.misurati, 10);
}

TEST_P(Contrasto, LeFinestreDiQtSiLeggono) {
    QFileDialog file(&p.form1, "File", QDir::tempPath());
    file.setOption(QFileDialog::DontUseNativeDialog);
    file.show();
    lettore.misura(file);
    QPrinter stampante;
    QPrintDialog stampa(&stampante, &p.form1);
    stampa.show();
    for (auto* b : stampa.findChildren<QPushButton*>()) {
        if (b->text().endsWith(">>")) b->click();
    }
    for (auto* schede : stampa.findChildren<QTabWidget*>()) {
        for (int i = 0; i < schede->count(); ++i) {
            schede->setCurrentIndex(i);
            QApplication::processEvents();
            lettore.misura(stampa);
        }
    }
    EXPECT_GT(lettore.misurati, 100);
}

TEST_P(Contrasto, LApertura) {
    app::frmSplash splash([] {}, [] {});
    splash.setAttribute(Qt::WA_DeleteOnClose, false);
    splash.show();
    lettore.misura(splash);
    EXPECT_GT(lettore.misurati, 4);
}

TEST_P(Contrasto, LaGuidaSiLegge) {
    guida::Finestra finestra("inizio");
    finestra.setStyleSheet(p.form1.styleSheet());
    finestra.show();
    QApplication::processEvents();
    lettore.misura(finestra);
    auto* ricerca = finestra.findChild<QLineEdit*>("ricerca");
    ricerca->setText("jolly");
    lettore.misura(finestra);
    ricerca->setText("zxqw");
    lettore.misura(finestra);
    EXPECT_GT(lettore.misurati, 100);
}

INSTANTIATE_TEST_SUITE_P(Aspetti, Contrasto, testing::Values(1, 2, 3));

TEST(Fuoco, IncorniciaSenzaTingere) {
    const auto dipinto = [](const QWidget* widget) {
        QImage immagine(20, 10, QImage::Format_RGB32);
        immagine.fill(Qt::white);
        QPainter pittore(&immagine);
        QStyleOptionFocusRect opzione;
        opzione.rect = immagine.rect();
        opzione.palette = QApplication::palette();
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &opzione, &pittore, widget);
        return immagine;
    };
    const QImage riga = dipinto(nullptr);
    EXPECT_EQ(riga.pixel(10, 5), qRgb(255, 255, 255));
    for (const QPoint& bordo : {QPoint(0, 0), QPoint(19, 5), QPoint(10, 9)}) {
        EXPECT_EQ(riga.pixel(bordo), qRgb(0xE0, 0x7B, 0));
    }
    const QPushButton pulsante;
    EXPECT_EQ(dipinto(&pulsante).pixel(0, 0), qRgb(255, 255, 255));
}

TEST(MisuraDelContrasto, NeroSuBiancoEIlMassimo) {
    EXPECT_NEAR(contrasto(qRgb(0, 0, 0), qRgb(255, 255, 255)), 21, 0.01);
    EXPECT_NEAR(contrasto(qRgb(118, 118, 118), qRgb(255, 255, 255)), 4.54, 0.01);
    EXPECT_EQ(contrasto(qRgb(9, 9, 9), qRgb(9, 9, 9)), 1);
}

}  // namespace
