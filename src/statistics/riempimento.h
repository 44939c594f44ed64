// Completion and generation of the crossword, as the player sees them go.
#pragma once

#include <QProgressBar>

#include "app/finestra.h"
#include "app/lavori.h"
#include "crossword/vista.h"

namespace statistics {

class Riempimento {
public:
    struct Controlli {
        platform::MSFlexGrid* griglia;
        QWidget* tabellone;  ///< hidden meanwhile
        platform::ComboBox* ruota;
    };
    /// All outlive this.
    Riempimento(app::Finestra& finestra, app::Lavori& lavori, crossword::Vista& vista,
                const Controlli& controlli)
        : finestra_(finestra), lavori_(lavori), vista_(vista), c_(controlli) {}

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
    Controlli c_;
};

}  // namespace statistics
