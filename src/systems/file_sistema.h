// System files: the saved crossword with its types and counts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "crossword/matrice.h"

namespace systems {

/// Extension of a system file: ".sen", or ".sel" in Lotto.
inline const char* estensione_sistema(bool lotto) {
    return lotto ? ".sel" : ".sen";
}

/// What one system file holds.
struct Sistema {
    std::int32_t totale = 0;       ///< combinations of the system; no reader relies on it
    std::string diagonali;         ///< number of diagonals as shown
    std::int32_t tipo_righe = -1;  ///< list indexes; -1 is no selection
    std::int32_t tipo_colonne = -1;
    std::int32_t tipo_diagonali = -1;
    int forma = 5;                       ///< numbers of a Lotto combination; Lotto only
    std::int32_t senza_ripetizioni = 0;  ///< combinations without repetitions
    crossword::Matrice matrice;
};

/// Bytes of the file of a system.
std::string testo_sistema(const Sistema& sistema, bool lotto);

/// Writes the file of `nome` in `cartella`, whole or not at all; false when the disk refused.
bool scrivi_sistema(const std::string& cartella, const std::string& nome, const Sistema& sistema,
                    bool lotto);

/// Reads the file of `nome`. What is missing, also the whole file, reads as zeros and empty
/// texts; the crossword then is as large as the header says, at most 256 x 256.
Sistema leggi_sistema(const std::string& cartella, const std::string& nome, bool lotto);

/// Count of combinations without repetitions from the header; nothing when there is no file.
std::optional<std::int32_t> leggi_conteggio(const std::string& cartella, const std::string& nome,
                                            bool lotto);

/// True when the development file of `nome` exists for the game.
bool esiste_sviluppo(const std::string& cartella, const std::string& nome, bool lotto);

}  // namespace systems
