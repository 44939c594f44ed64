// System files: the saved crossword with its types and counts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "crossword/gioco.h"
#include "crossword/matrice.h"

namespace systems {

/// What one system file holds.
struct Sistema {
    std::int32_t totale = 0;       ///< combinations of the system; no reader relies on it
    std::string diagonali;         ///< number of diagonals as shown
    std::int32_t tipo_righe = -1;  ///< type numbers; -1 is no selection
    std::int32_t tipo_colonne = -1;
    std::int32_t tipo_diagonali = -1;
    crossword::Gioco gioco;              ///< the file names it, but for the form in Lotto
    std::int32_t senza_ripetizioni = 0;  ///< combinations without repetitions
    crossword::Matrice matrice;
};

/// Bytes of the file of a system.
std::string testo_sistema(const Sistema& sistema);

/// Writes the file of `nome` in `cartella`, whole or not at all; false when the disk refused.
bool scrivi_sistema(const std::string& cartella, const std::string& nome, const Sistema& sistema);

/// Reads the file that `nome` has in a game; in Lotto the form comes from the file. What is
/// missing, also the whole file, reads as zeros and empty texts; the crossword then is as large as
/// the header says, at most 256 x 256.
Sistema leggi_sistema(const std::string& cartella, const std::string& nome, crossword::Gioco gioco);

/// Count of combinations without repetitions from the header; nothing when there is no file.
std::optional<std::int32_t> leggi_conteggio(const std::string& cartella, const std::string& nome,
                                            crossword::Gioco gioco);

/// True when the development file of `nome` exists for the game.
bool esiste_sviluppo(const std::string& cartella, const std::string& nome, crossword::Gioco gioco);

}  // namespace systems
