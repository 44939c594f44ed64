// Where text and icon of a message box stand.
#include <QDialogButtonBox>
#include <QLabel>
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

}  // namespace
