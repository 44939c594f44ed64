// A file that is made bit by bit and takes its name only when it is whole; no Qt.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/lavoro.h"

namespace platform {

/// Writes beside `nome` and replaces it at the end; what is not finished leaves no trace.
class FileNuovo {
public:
    explicit FileNuovo(std::string nome);
    FileNuovo(const FileNuovo&) = delete;
    FileNuovo& operator=(const FileNuovo&) = delete;
    ~FileNuovo() = default;

    /// Adds to the file; after a failure nothing more is written.
    void scrivi(std::string_view dati);
    /// Puts the file in its place. What failed first, on the way here too, is the outcome.
    Esito pubblica();

    [[nodiscard]] const std::string& nome() const { return nome_; }
    [[nodiscard]] Esito esito() const { return esito_; }

private:
    void scarica();

    std::string nome_;
    Lavoro lavoro_;
    std::string attesa_;
    std::int64_t byte_ = 0;
    Esito esito_ = Esito::ok;
};

/// Why `nome` could not be written, for the player, after a step that ended with `esito`.
std::string perche_non_si_scrive(const std::string& nome, Esito esito);

}  // namespace platform
