// The main form as the other windows know it.
#pragma once

#include <QMainWindow>

#include "systems/sessione.h"

namespace app {

/// The system that is open, and what else a window over the main form may ask of that form, which
/// is also its parent. No window knows more of it.
class Finestra : public QMainWindow {
public:
    explicit Finestra(std::string cartella) : sessione(std::move(cartella)) {}

    /// The form shows it and holds nothing of it.
    systems::Sessione sessione;

    /// Name of the system in line.
    [[nodiscard]] QString Tag() const;
    /// True while an elaboration, a completion or a generation runs.
    [[nodiscard]] virtual bool in_elaborazione() const = 0;
    /// Whether the form offers to pass to a game.
    [[nodiscard]] virtual bool offre(crossword::Gioco gioco) const = 0;

    /// Pass to SuperEnalotto and to Lotto.
    virtual void Image8_Click() = 0;
    virtual void Image10_Click() = 0;
    /// Chooses a form of Lotto: terzine, quartine, cinquine from 0.
    virtual void Imageb_Click(int Index) = 0;
    /// Open the manager.
    virtual void mnuapri_Click() = 0;
    virtual void mnugest_sist_Click() = 0;
    /// Called after each step that may replace, rename or delete a development.
    virtual void rivedi_sviluppo() = 0;
    /// Tells of a development that is not of the system in line and offers to elaborate; true when
    /// what stands on the disk may be used.
    virtual bool sviluppo_valido() = 0;
    /// One line on the analysis of the system as it stands; the next change takes it away.
    virtual void mostra_analisi(const QString& testo) = 0;
    /// One line on what an action came to, where no box tells of it; an empty one tells nothing.
    virtual void mostra_esito(const QString& testo) = 0;
    /// Tells those who do not see the window what is shown elsewhere on it for a moment.
    virtual void annuncia(const QString& testo) = 0;
    /// Leaves the current cell of the summary where its reader or writer leaves it.
    virtual void cella_riepilogo(int riga, int colonna) = 0;
};

}  // namespace app
