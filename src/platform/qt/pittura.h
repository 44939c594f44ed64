// Changes that paint once.
#pragma once

#include <QPointer>
#include <QWidget>

namespace platform {

/// While one lives `w`, which may go before it, does not paint; then it paints as it did before.
class SenzaPittura {
public:
    explicit SenzaPittura(QWidget* w)
        : w_(w), dipinto_(!w->testAttribute(Qt::WA_ForceUpdatesDisabled)) {
        w_->setUpdatesEnabled(false);
    }
    ~SenzaPittura() {
        if (w_) w_->setUpdatesEnabled(dipinto_);
    }
    SenzaPittura(const SenzaPittura&) = delete;
    SenzaPittura& operator=(const SenzaPittura&) = delete;

private:
    QPointer<QWidget> w_;
    bool dipinto_;
};

}  // namespace platform
