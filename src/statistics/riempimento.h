// Completion and generation of the crossword, as the player sees them go.
#pragma once

#include <QPushButton>

#include "app/finestra.h"
#include "app/lavori.h"
#include "crossword/vista.h"

namespace statistics {

/// The generators on the main form, which owns them and makes the frame `Frame7`.
struct RiquadriGeneratori {
    platform::Frame* Frame7 = nullptr;
    platform::Frame* Frame10 = nullptr;
    platform::ComboBox* Combo6 = nullptr;
    QPushButton* cmdstat = nullptr;
    QPushButton* cmdstat2 = nullptr;
};

class Riempimento {
public:
    /// Lays out what the frame of `generatori` holds; the board is hidden meanwhile. All outlive
    /// this.
    Riempimento(app::Finestra& finestra, app::Lavori& lavori, crossword::Vista& vista,
                const crossword::RiquadriCruciverba& cruciverba, RiquadriGeneratori& generatori);

    /// In Lotto a wheel is chosen.
    void mostra_gioco();
    void completa_con_scelti();
    void completa();
    void genera();

private:
    void genera_in_vista();
    /// Shows the numbers laid, and with `avanza` the progress too.
    [[nodiscard]] Seguito seguito(bool avanza);

    app::Finestra& finestra_;
    app::Lavori& lavori_;
    crossword::Vista& vista_;
    const crossword::RiquadriCruciverba& c_;
    RiquadriGeneratori& g_;
};

}  // namespace statistics
