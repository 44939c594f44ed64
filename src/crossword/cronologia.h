// What was done to one crossword, for undo and redo.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "crossword/matrice.h"

namespace crossword {

/// One cell before and after, 0 being an empty one; or the type chosen in one of the three lists,
/// by its index, the list's place standing in `colonna`.
struct Modifica {
    int riga = 0;
    int colonna = 0;
    std::int16_t prima = 0;
    std::int16_t dopo = 0;
    bool tipo = false;
    friend bool operator==(const Modifica&, const Modifica&) = default;
};

/// Puts the cells of an action back to what they were before it (`indietro`), or after it. A number
/// that a line bars by now stays out. False, and nothing changes, when the crossword is not the
/// one that the action left, or found.
bool rimetti(const std::vector<Modifica>& azione, bool indietro, Matrice& matrice);

/// Actions in order, each one or more cells; the oldest go beyond 1000.
class Cronologia {
public:
    /// Adds to the open action, or makes an action of its own; what was undone is then gone.
    /// A cell that did not change is left out.
    void annota(const Modifica& modifica);
    /// The cells that differ between two crosswords of one size.
    void annota(const Matrice& prima, const Matrice& dopo);
    /// Between these, all cells belong to one action.
    void apri();
    void chiudi();
    void vuota();
    /// Leaves the lists of types out of every action: their types are others now.
    void dimentica_tipi();

    [[nodiscard]] bool annullabile() const { return fatte_ > 0; }
    [[nodiscard]] bool ripetibile() const { return fatte_ < azioni_.size(); }

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
