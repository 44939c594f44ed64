// The about box.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "platform/controls.h"

namespace app {
class Form1;
}

namespace help {

class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(app::Form1& form1);

    QPushButton* cmdOK = nullptr;
    platform::Image* picIcon = nullptr;
    QLabel* lblTitle = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* lblDescription = nullptr;
    QLabel* lblDisclaimer = nullptr;
    QLabel* Label1 = nullptr;
};

}  // namespace help
