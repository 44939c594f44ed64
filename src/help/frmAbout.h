// The about box.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "platform/qt/controls.h"

namespace app {
class Finestra;
}

namespace help {

class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(app::Finestra& finestra);

    QPushButton* cmdOK = nullptr;
    platform::Image* picIcon = nullptr;
    QLabel* lblTitle = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* lblDescription = nullptr;
    QLabel* lblDisclaimer = nullptr;
    QLabel* Label1 = nullptr;
};

}  // namespace help
