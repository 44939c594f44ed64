// Where text and icon of a message box stand, and what its keys answer.
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include "platform/qt/desktop.h"
#include "platform/qt/scrivania.h"

namespace {

/// Looks at a box while it is on the screen, then closes it.
void guarda(const platform::Messaggio& messaggio, const std::function<void(QWidget&)>& sguardo) {
    const platform::Ripristina vere(platform::scrivania().risponde, nullptr);
    bool visto = false;
    QTimer::singleShot(0, qApp, [&] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        visto = true;
        sguardo(*box);
        box->close();
    });
    platform::MsgBox(nullptr, messaggio);
    EXPECT_TRUE(visto);
}

TEST(Messaggi, SenzaIconaIlTestoStaUgualmenteLontanoDaiDueLati) {
    guarda({"Inserire tutti i numeri della combinazione vincente.", platform::Pulsanti::ok,
            "Tabellino"},
           [](QWidget& box) {
               const auto* testo = box.findChild<QLabel*>("qt_msgbox_label");
               ASSERT_NE(testo, nullptr);
               const QRect dove = testo->geometry();
               EXPECT_EQ(testo->indent(), 0);
               EXPECT_EQ(dove.left(), box.width() - 1 - dove.right());
               const auto* pulsanti = box.findChild<QDialogButtonBox*>();
               EXPECT_EQ(pulsanti->geometry().right(), dove.right());
           });
}

TEST(Messaggi, LIconaEDelProgramma) {
    guarda({"Elaborazione completata.", platform::Pulsanti::ok, "Tabellino",
            platform::Icona::informazione},
           [](QWidget& box) {
               const auto* icona = box.findChild<QLabel*>("qt_msgboxex_icon_label");
               ASSERT_NE(icona, nullptr);
               const QImage disegno = icona->pixmap().toImage();
               EXPECT_EQ(icona->pixmap().deviceIndependentSize().toSize(), icona->size());
               EXPECT_EQ(disegno.pixelColor(disegno.width() / 2, disegno.height() / 5 * 4 + 4),
                         QColor("#000080"));
               EXPECT_EQ(disegno.pixelColor(0, 0).alpha(), 0);
               const auto* testo = box.findChild<QLabel*>("qt_msgbox_label");
               EXPECT_GT(testo->x(), icona->geometry().right());
           });
}

/// The answer to a box in which `tasto` was pressed, or which was closed when it is none.
int risposta(const platform::Messaggio& messaggio, int tasto) {
    const platform::Ripristina vere(platform::scrivania().risponde, nullptr);
    QTimer::singleShot(0, qApp, [tasto] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        if (tasto == 0) {
            box->close();
        } else {
            QTest::keyClick(box, static_cast<Qt::Key>(tasto));
        }
        // A letter presses its button for a moment; a box left open would stay for good.
        if (!QTest::qWaitFor([box] { return !box->isVisible(); })) {
            ADD_FAILURE() << "still open after key " << tasto;
            qobject_cast<QDialog*>(box)->done(0);
        }
    });
    return platform::MsgBox(nullptr, messaggio);
}

using platform::Pulsanti;

struct Prova {
    Pulsanti pulsanti;
    int invio;
    int esc;
};

class RisposteDeiTasti : public testing::TestWithParam<Prova> {};

TEST_P(RisposteDeiTasti, InvioEIlPrimoEscNonDistrugge) {
    const platform::Messaggio m{"Eliminare?", GetParam().pulsanti, "Tabellino"};
    EXPECT_EQ(risposta(m, Qt::Key_Return), GetParam().invio);
    EXPECT_EQ(risposta(m, Qt::Key_Escape), GetParam().esc);
    EXPECT_EQ(risposta(m, 0), GetParam().esc);
}

INSTANTIATE_TEST_SUITE_P(Pulsanti, RisposteDeiTasti,
                         testing::Values(Prova{Pulsanti::ok, platform::vbOK, platform::vbOK},
                                         Prova{Pulsanti::si_no, platform::vbYes, platform::vbNo},
                                         Prova{Pulsanti::si_no_annulla, platform::vbYes,
                                               platform::vbCancel}));

TEST(Messaggi, OgniPulsanteHaLaSuaLettera) {
    const platform::Messaggio domanda{"Salvare?", Pulsanti::si_no_annulla, "Tabellino"};
    EXPECT_EQ(risposta(domanda, Qt::Key_N), platform::vbNo);
    EXPECT_EQ(risposta(domanda, Qt::Key_A), platform::vbCancel);
    const platform::Messaggio fatto{"Fatto.",
                                    Pulsanti::ok,
                                    "Tabellino",
                                    platform::Icona::informazione,
                                    {"Apri", "Mostra la cartella"}};
    EXPECT_EQ(risposta(fatto, Qt::Key_A), platform::vbAltri);
    EXPECT_EQ(risposta(fatto, Qt::Key_M), platform::vbAltri + 1);
    EXPECT_EQ(risposta(fatto, Qt::Key_Return), platform::vbAltri);
    EXPECT_EQ(risposta(fatto, Qt::Key_Escape), platform::vbOK);
}

TEST(Messaggi, LasciataUnaDomandaPuoValereSi) {
    platform::Messaggio m{"Riprenderlo?", Pulsanti::si_no, "Tabellino"};
    m.lasciata_vale_si = true;
    EXPECT_EQ(risposta(m, Qt::Key_Escape), platform::vbYes);
    EXPECT_EQ(risposta(m, 0), platform::vbYes);
    EXPECT_EQ(risposta(m, Qt::Key_N), platform::vbNo);
}

TEST(Messaggi, ConIlNomePiuLungoStaSulloSchermo) {
    const QString lungo = "/" + QString(40, 'x') + "/" + QString(250, 'W') + ".pdf";
    guarda(
        {"Lo sviluppo è nel file\n" + lungo,
         Pulsanti::ok,
         "Tabellino",
         platform::Icona::informazione,
         {"Apri", "Mostra la cartella"}},
        [](QWidget& box) {
            EXPECT_LE(box.width(), box.screen()->availableGeometry().width());
            EXPECT_LE(box.height(), box.screen()->availableGeometry().height());
            const auto* testo = box.findChild<QLabel*>("qt_msgbox_label");
            ASSERT_NE(testo, nullptr);
            EXPECT_GE(testo->height(), testo->heightForWidth(testo->width()));
            for (const QPushButton* b : box.findChildren<QPushButton*>()) {
                EXPECT_TRUE(box.rect().contains(b->geometry().translated(b->parentWidget()->pos())))
                    << b->text().toStdString();
            }
        });
}

}  // namespace
