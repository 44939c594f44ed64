// Where the player is on the road from the empty crossword to the combinations to play, and what
// comes next.
#pragma once

#include <string>

#include "systems/sessione.h"

namespace systems {

struct Passo {
    std::string stato;   ///< where he is
    std::string invito;  ///< what comes next, with the sign that joins it; may be left out
    [[nodiscard]] std::string frase() const { return stato + invito; }
    friend bool operator==(const Passo&, const Passo&) = default;
};

/// Looks at the disk for a complete crossword that is saved, and at nothing but the session for
/// any other. Empty while a long job runs.
Passo prossimo_passo(const Sessione& sessione);

/// What the player is told of a save that did not come to be; empty for one that did, and for
/// those that a box speaks of.
std::string esito_detto(Salvataggio esito);
/// The same of an elaboration and of a generation.
std::string esito_detto(Elaborato esito);
std::string esito_detto(Generato esito);

/// What was done to the files of a system.
enum class Operazione { rinominato, copiato, eliminato, importato, inviato };
/// What the player is told of it; `dove`, if given, is where the files are now. Empty when there
/// was no file at all.
std::string esito_detto(Operazione operazione, const std::string& nome, const Passi& passi,
                        const std::string& dove = "");

}  // namespace systems
