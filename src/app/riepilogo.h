// The summary of the system in line: its name, its types and its counts, the told cells written in
// one place and read in none.
#pragma once

#include <array>

#include <QLabel>

#include "platform/qt/controls.h"
#include "platform/qt/flexgrid.h"
#include "systems/sessione.h"

namespace app {

/// Its frame on the main form, which owns it and makes it.
struct RiquadroRiepilogo {
    platform::Frame* Frame2 = nullptr;
    QLabel* lblsistema = nullptr;
    platform::MSFlexGrid* MSFlexGrid2 = nullptr;
    platform::ComboBox* Combo3 = nullptr;
    platform::ComboBox* Combo4 = nullptr;
    platform::ComboBox* Combo5 = nullptr;
    /// The lists of the types of rows, columns and diagonals.
    [[nodiscard]] std::array<platform::ComboBox*, 3> tipi() const {
        return {Combo3, Combo4, Combo5};
    }
};

class Riepilogo {
public:
    /// Lays out what the frame of `riquadro` holds. Both outlive this.
    Riepilogo(systems::Sessione& sessione, RiquadroRiepilogo& riquadro);
    void mostra(const systems::Cambiamento& cambiato);

private:
    void arreda();
    void intesta();
    void mostra_tipi();
    void scrivi();
    [[nodiscard]] platform::MSFlexGrid::Voce voce(int riga, int colonna) const;

    systems::Sessione& sessione_;
    RiquadroRiepilogo& r_;
};

}  // namespace app
