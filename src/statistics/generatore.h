// A whole crossword laid at random, within quotas drawn from the delays.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "crossword/classi.h"
#include "crossword/gioco.h"
#include "crossword/matrice.h"
#include "platform/runtime.h"
#include "statistics/statistica.h"

namespace statistics {

/// Called for every number laid, the crossword already written; false asks to stop. May be empty.
using Posata = std::function<bool(int riga, int colonna, int numero)>;

/// What the screen shows of the work.
struct Seguito {
    Barra barra;
    Posata posata;
};

enum class EsitoRiempimento {
    completa,     ///< every cell has a number
    abbandonata,  ///< a draw that cannot be read, or a cell that no number could ever fill
    interrotta,   ///< asked to stop
};

struct Generazione {
    EsitoRiempimento conclusione = EsitoRiempimento::abbandonata;
    std::int64_t sorteggi = 0;   ///< random numbers taken
    crossword::Classi classi{};  ///< by delay, each with its quotas
};

/// Draws a number for every cell, by its place in the ranking. What was laid stays when the
/// work ends early.
Generazione riempi_casuale(const Graduatoria& statistica, crossword::Matrice& matrice,
                           platform::Rnd& rnd, const Seguito& seguito);

/// The same by the class of delay in Lotto.
Generazione riempi_casuale_lotto(const Graduatoria& statistica, crossword::Matrice& matrice,
                                 platform::Rnd& rnd, const Seguito& seguito);

/// True when the national wheel has draws enough for a generation; leaves `draws` on the last.
bool bastano_estrazioni(LettoreEstrazioni& draws);

/// Delays of `draws`, then the filling by them; a draw that cannot be read takes no random
/// number. SuperEnalotto keeps its ranking in `file`, Lotto forgets it.
Generazione genera_statistico(crossword::Gioco gioco, Statistico& statistico,
                              LettoreEstrazioni& draws, const std::string& file,
                              crossword::Matrice& matrice, platform::Rnd& rnd,
                              const Seguito& seguito);

}  // namespace statistics
