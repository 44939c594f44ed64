// Elaboration as the player asks for it, and what he is asked before a development is used.
#pragma once

#include "app/dialoghi.h"
#include "app/finestra.h"
#include "app/lavori.h"

namespace development {

class Elaboratore {
public:
    /// All outlive this.
    Elaboratore(app::Finestra& finestra, app::Dialoghi& dialoghi, app::Lavori& lavori)
        : finestra_(finestra), dialoghi_(dialoghi), lavori_(lavori) {}

    void cmd_elabora();
    void sviluppo();
    void verifica_spoglio(bool& pronto);
    bool sviluppo_valido();
    /// Opens the check, the analysis, the print options, unless something is missing for it.
    void spoglio();
    void analisi();
    void stampa();

private:
    [[nodiscard]] int chiedi(const QString& domanda, const QString& titolo);
    void avverti(const QString& testo, const QString& titolo, platform::Icona icona);
    [[nodiscard]] bool nome_per_elaborare(const QString& domanda, const QString& titolo);
    /// Says which economical tables are missing; false when some are.
    [[nodiscard]] bool tabelle_presenti();
    /// Elaborates if the player wants to; false when he does not, or closed the form meanwhile.
    [[nodiscard]] bool elabora_prima(const QString& domanda, const QString& titolo);
    systems::Elaborato esegui();

    app::Finestra& finestra_;
    app::Dialoghi& dialoghi_;
    app::Lavori& lavori_;
};

}  // namespace development
