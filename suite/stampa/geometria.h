// Where the marks of a slip go, in tenths of a millimetre.
#pragma once

#include <vector>

#include "stampa/modulo.h"
#include "stampa/sviluppo.h"

namespace schedine {

struct Punto {
    double x = 0;
    double y = 0;
};

/// Centre of a number's cell, 1 to 90, in a panel from 0, on the slip as it is read.
[[nodiscard]] Punto cella(const Modulo& modulo, std::size_t pannello, int numero);
/// Width and height of the sheet as the printer draws it.
[[nodiscard]] Punto foglio_stampato(const Modulo& modulo);
/// From the slip as it is read to the sheet as the printer draws it, corrections applied.
[[nodiscard]] Punto sul_foglio(const Modulo& modulo, Punto punto);
/// Size of a mark on that sheet.
[[nodiscard]] Punto segno_stampato(const Modulo& modulo);

/// Wheels and stake of a Lotto job.
struct Giocata {
    std::vector<std::size_t> ruote;  ///< indexes in `statistics::ruote`, ascending
    int centesimi = 0;               ///< for each column and draw; 0 when not told
};

/// Centres of all marks of a slip on the sheet; columns beyond the panels have none.
[[nodiscard]] std::vector<Punto> segni(const Modulo& modulo, const std::vector<Colonna>& colonne,
                                       const Giocata& giocata);
/// What a module cannot tell of a job, for the player; empty when it tells all.
[[nodiscard]] std::string manca_al_modulo(const Modulo& modulo, bool lotto, const Giocata& giocata);

/// Origin and pitch of a grid from the centres of its four corner cells, clicked in the order top
/// left, top right, bottom right, bottom left.
void griglia_da_angoli(Modulo& modulo, const std::vector<Punto>& angoli);

}  // namespace schedine
