// An open file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/macchina.h"

namespace platform {

/// Closes itself at its end. It never waits for a pipe or device that bears the name.
class File {
public:
    enum class Modo {
        leggi,
        leggi_se_file,  ///< a link is refused
        cambia,         ///< for reading and writing; a link is refused
        aggiungi,       ///< writes go to its end, and it is made when absent; a link is refused
        nuovo,          ///< for reading and writing; refused when anything has the name
        cartella,       ///< a folder, to be locked or synced
    };

    File() = default;
    File(const std::string& nome, Modo modo) { apri(nome, modo); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { chiudi(); }

    /// Closes the one before.
    bool apri(const std::string& nome, Modo modo);
    [[nodiscard]] bool aperto() const { return fd_ >= 0; }
    /// What the closing said; true when it was closed already.
    bool chiudi();
    /// Of the step that failed last.
    [[nodiscard]] macchina::Guasto guasto() const { return guasto_; }

    /// Bytes read, 0 at the end, below 0 on failure.
    std::ptrdiff_t leggi(void* dati, std::size_t quanti);
    /// Writes all.
    bool scrivi(std::string_view dati);
    bool sincronizza();
    bool tronca(std::int64_t byte);
    /// Goes to a byte, counted from 0.
    bool vai(std::int64_t dove);
    bool guarda(macchina::Voce& voce);
    bool permessi(unsigned permessi);
    /// Gives it another day of its making, in seconds since 1970, as far as the disk keeps one.
    bool nasce(std::int64_t secondi);
    /// A word that the disk keeps with the file, empty without one.
    [[nodiscard]] std::string attributo(const char* quale) const;
    bool annota(const char* quale, std::string_view parola);

    /// The system's number of it.
    [[nodiscard]] int fd() const { return fd_; }

private:
    bool esito(bool riuscito);

    int fd_ = -1;
    macchina::Guasto guasto_ = macchina::Guasto::nessuno;
};

}  // namespace platform
