// Saving and leaving the system in line, with what the player is asked about it.
#pragma once

#include "app/dialoghi.h"
#include "app/finestra.h"
#include "systems/ripresa.h"

namespace systems {

class Archiviatore {
public:
    /// Both outlive this.
    Archiviatore(app::Finestra& finestra, app::Dialoghi& dialoghi)
        : finestra_(finestra), sessione_(finestra.sessione), dialoghi_(dialoghi) {}

    /// Asks whether to go on with what a crash left unsaved, and keeps it aside from now on.
    void offri_ripresa();
    void dimentica_ripresa() { ripresa_.dimentica(); }

    void salva_sistema(bool& esito);
    void mnusalva_Click();
    void mnusalvanome_Click();
    void mnuapri_Click();
    /// False when the crossword in line is to stay.
    [[nodiscard]] bool nuovo_cruciverba();
    /// False when the form is to stay open.
    [[nodiscard]] bool controllo_salvataggio();

private:
    app::Finestra& finestra_;
    Sessione& sessione_;
    app::Dialoghi& dialoghi_;
    Ripresa ripresa_{sessione_};
};

}  // namespace systems
