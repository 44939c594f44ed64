// Picture shown at the start; leads to the main form.
#pragma once

#include <functional>

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include "platform/qt/controls.h"

namespace app {

class frmSplash : public QWidget {
    Q_OBJECT
public:
    /// `carica` loads the main form, `mostra` shows it; `fattore` is the one that this has.
    frmSplash(std::function<void()> carica, std::function<void()> mostra, qreal fattore = 1);

    QLabel* lblVersion = nullptr;
    QPushButton* Command1 = nullptr;
    platform::Image* Image1_0 = nullptr;
    platform::Image* Image1_1 = nullptr;
    QTimer* Timer1 = nullptr;

    void Command1_Click();

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void Timer1_Timer();
    std::function<void()> carica_;
    std::function<void()> mostra_;
    int battiti_ = 0;
};

}  // namespace app
