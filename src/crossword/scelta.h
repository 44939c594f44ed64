// Game, form of Lotto and sizes, as the player chooses them.
#pragma once

#include <array>
#include <cstdint>

#include "app/finestra.h"
#include "platform/qt/controls.h"

namespace crossword {

/// Their frames on the main form, which owns them and makes the frames.
struct RiquadriGioco {
    platform::Frame* Frame4 = nullptr;
    platform::Frame* Frame8 = nullptr;
    platform::Frame* Frame9 = nullptr;
    platform::Image* Image7 = nullptr;
    platform::Image* Image8 = nullptr;
    platform::Image* Image9 = nullptr;
    platform::Image* Image10 = nullptr;
    std::array<platform::Image*, 3> Imageb{};
    std::array<platform::Image*, 3> Imagey{};
    platform::ComboBox* Combo1 = nullptr;
    platform::ComboBox* Combo2 = nullptr;
};

class Scelta {
public:
    /// Lays out what the frames of `riquadri` hold. Both outlive this.
    Scelta(app::Finestra& finestra, RiquadriGioco& riquadri);

    void mostra_gioco();
    void mostra_dimensioni();
    /// Gives the crossword the sizes chosen, empty.
    void modifica_griglia(std::uint8_t non_usato);

private:
    void arreda_giochi();
    void arreda_forme();
    void arreda_misure();
    void collega(app::Finestra& finestra);

    systems::Sessione& sessione_;
    RiquadriGioco& r_;
};

}  // namespace crossword
