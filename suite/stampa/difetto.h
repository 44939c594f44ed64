// What is wrong in a file that somebody else wrote, for the player.
#pragma once

#include <cstdint>
#include <string>

namespace schedine {

struct Difetto {
    std::int64_t riga = 0;  ///< from 1; 0 for the file as a whole
    std::string campo;      ///< name or number of the field; empty for the whole line
    std::string motivo;

    /// "riga 4, campo 3: il numero 97 non va da 1 a 90"
    [[nodiscard]] std::string testo() const {
        std::string dove;
        if (riga > 0) dove = "riga " + std::to_string(riga);
        if (!campo.empty()) dove += (dove.empty() ? "campo " : ", campo ") + campo;
        return dove.empty() ? motivo : dove + ": " + motivo;
    }
};

}  // namespace schedine
