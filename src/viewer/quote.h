// Price of the system in line, and of a share of it.
#pragma once

#include <array>

#include <QLabel>

#include "platform/qt/controls.h"
#include "systems/sessione.h"

namespace viewer {

/// Its frame on the main form, which owns it and makes it.
struct RiquadroImporto {
    platform::Frame* Frame6 = nullptr;
    QLabel* lblimportotot = nullptr;
    QLabel* lblnumquote = nullptr;
    QLabel* lblquote = nullptr;
    std::array<QLabel*, 2> lblvaluta{};
    platform::UpDown* UpDown2 = nullptr;
};

class Quote {
public:
    /// Lays out what the frame of `riquadro` holds. Both outlive this.
    Quote(systems::Sessione& sessione, RiquadroImporto& riquadro);
    void mostra();

private:
    void arreda();

    systems::Sessione& sessione_;
    RiquadroImporto& r_;
};

}  // namespace viewer
