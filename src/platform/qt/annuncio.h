// A line that is read out as it changes.
#pragma once

#include "platform/qt/controls.h"

namespace platform {

/// To assistive programs a notification, which they read out without the focus on it.
class Annuncio : public EtichettaValore {
    Q_OBJECT
public:
    explicit Annuncio(QWidget* padre);
    /// Shows a text; one that is seen is read out, unless it stood there already.
    void annuncia(const QString& testo);

Q_SIGNALS:
    /// A text was told to those who do not see the window.
    void detto(const QString& testo);
};

}  // namespace platform
