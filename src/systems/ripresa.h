// Unsaved numbers kept aside, so that a crash, a kill or a power cut takes seconds of work at most.
#pragma once

#include <optional>
#include <string>

#include "systems/sessione.h"

namespace systems {

/// What the last run left unsaved.
struct Interrotto {
    std::string nome;  ///< of the system in line, empty for none
    int numeri = 0;    ///< cells that hold one
};

class Ripresa {
public:
    /// `sessione` is not owned and outlives this.
    explicit Ripresa(Sessione& sessione);

    /// Writes what is unsaved, whole or not at all, when it changed since the last time; takes the
    /// file away when nothing is. Does nothing while a long job runs. A disk that refuses is asked
    /// again the next time.
    void tieni();
    /// Nothing after a proper end, and for a file that is damaged.
    [[nodiscard]] std::optional<Interrotto> interrotto() const;
    /// Lays in the session what was kept, by its rules, as unsaved work without undo; false when
    /// there is nothing to lay.
    bool riprendi();
    /// For a proper end, or a player who does not want it back.
    void dimentica();

private:
    Sessione& sessione_;
    std::string file_;
    std::string tenuto_;  ///< what the file holds
};

}  // namespace systems
