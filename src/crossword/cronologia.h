// What was done to the cells of one crossword, for undo and redo.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace crossword {

/// One cell before and after; 0 is an empty cell.
struct Modifica {
    int riga = 0;
    int colonna = 0;
    std::int16_t prima = 0;
    std::int16_t dopo = 0;
    friend bool operator==(const Modifica&, const Modifica&) = default;
};

/// Actions in order, each one or more cells; the oldest go beyond 1000.
class Cronologia {
public:
    /// Adds to the open action, or makes an action of its own; what was undone is then gone.
    /// A cell that did not change is left out.
    void annota(const Modifica& modifica);
    /// Between these, all cells belong to one action.
    void apri();
    void chiudi();
    void vuota();

    /// The action to take back, in the order it was done; null when there is none. It counts as
    /// taken back from then on.
    const std::vector<Modifica>* annulla();
    /// The action to do again; null when there is none.
    const std::vector<Modifica>* ripeti();

private:
    using Azione = std::vector<Modifica>;
    void aggiungi(Azione azione);
    std::vector<Azione> azioni_;
    std::size_t fatte_ = 0;
    Azione aperta_;
    bool in_azione_ = false;
};

}  // namespace crossword
