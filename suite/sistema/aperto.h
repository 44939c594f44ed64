// A system file that is open in a session.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/giocate.h"
#include "platform/links.h"
#include "sistema/banco.h"
#include "sistema/contesto.h"
#include "systems/operazioni.h"
#include "systems/sessione.h"

namespace sistema {

/// A development whose combinations were read and found whole.
struct Sviluppo {
    std::string file;
    analysis::Giocate giocate;
};

/// One system, open in a session over a folder of its own. Nothing here writes where the file is.
class Aperto {
public:
    Aperto(std::string file, const Contesto& contesto);

    /// Opens; why not, empty when it did. Only then may the rest be used.
    std::string apri();

    [[nodiscard]] const std::string& file() const { return file_; }
    [[nodiscard]] const std::string& nome() const { return coppia_.nome; }
    /// The files where the player has them.
    [[nodiscard]] const systems::Coppia& coppia() const { return coppia_; }
    /// The files of the session.
    [[nodiscard]] systems::Coppia propria() const;
    [[nodiscard]] systems::Sessione& sessione() { return *sessione_; }
    [[nodiscard]] const systems::Sessione& sessione() const { return *sessione_; }
    /// True when the file is no longer what was opened.
    [[nodiscard]] bool cambiato() const;
    /// What is odd about it, though nothing stops at that.
    [[nodiscard]] const std::vector<std::string>& avvisi() const { return avvisi_; }

    /// Develops in the session; why not, empty when it did.
    std::string sviluppa();
    /// Reads the development that stands beside the file, if it is this crossword's, or one made
    /// in the session where that was asked for; why not, empty when it did.
    std::string leggi_sviluppo(Sviluppo& sviluppo);
    /// Reads one made in the session.
    std::string leggi_proprio(Sviluppo& sviluppo);

private:
    [[nodiscard]] std::string difetto() const;
    [[nodiscard]] std::string difetto_dei_tipi(const systems::Sistema& letto) const;
    [[nodiscard]] std::string tabella_mancante() const;
    void avverti();
    [[nodiscard]] std::string leggi(const std::string& file, Sviluppo& sviluppo) const;

    std::string file_;
    const Contesto& contesto_;
    std::string reale_;  ///< as it stands on the disk
    std::optional<platform::Impronta> impronta_;
    systems::Coppia coppia_;
    std::unique_ptr<Banco> banco_;
    std::unique_ptr<systems::Sessione> sessione_;
    std::vector<std::string> avvisi_;
};

}  // namespace sistema
