// A list as a screen reader or a switch opens it.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>

#include "platform/qt/controls.h"

namespace {

class Azioni : public testing::Test {
protected:
    Azioni() {
        elenco.AddItem("uno");
        elenco.AddItem("due");
        elenco.show();
        elenco.activateWindow();
        QApplication::processEvents();
    }
    [[nodiscard]] QAccessibleActionInterface* azioni() {
        return QAccessible::queryAccessibleInterface(&elenco)->actionInterface();
    }
    platform::ComboBox elenco{nullptr};
};

TEST_F(Azioni, UnElencoSiApreConLAzioneDelSuoMenu) {
    ASSERT_NE(azioni(), nullptr);
    EXPECT_EQ(azioni()->actionNames().first(), QAccessibleActionInterface::showMenuAction());
    azioni()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(elenco.view()->isVisible());
    elenco.hidePopup();
    EXPECT_FALSE(elenco.view()->isVisible());
}

TEST_F(Azioni, UnElencoSpentoNonSiApre) {
    elenco.setEnabled(false);
    azioni()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_FALSE(elenco.view()->isVisible());
}

TEST_F(Azioni, LeAltreAzioniSonoQuelleDiOgniControllo) {
    elenco.clearFocus();
    ASSERT_TRUE(azioni()->actionNames().contains(QAccessibleActionInterface::setFocusAction()));
    azioni()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(elenco.hasFocus());
    EXPECT_FALSE(elenco.view()->isVisible());
}

}  // namespace
