// Systems dropped on a window.
#pragma once

#include <functional>

#include <QObject>
#include <QStringList>

#include "systems/ricevuti.h"

class QWidget;

namespace app {
class Finestra;
}

namespace systems {

/// Imports the systems that are dropped on `su`, as the manager's menu does.
class Trascinati : public QObject {
public:
    /// Owned by `su`, which is the main form itself or a window over it. `rifiuta` tells when
    /// nothing is taken.
    Trascinati(app::Finestra& finestra, QWidget* su, std::function<bool()> rifiuta = {});

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void importa(const QStringList& percorsi);
    [[nodiscard]] bool occupata() const;

    app::Finestra& finestra_;
    QWidget* su_;
    std::function<bool()> rifiuta_;
};

}  // namespace systems
