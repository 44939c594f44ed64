// Working files, in which the new content of a file is made before it takes the old one's place.
#pragma once

#include <string>

#include "platform/blocco.h"
#include "platform/disk.h"
#include "platform/file.h"

namespace platform {

/// What the failure of a system's step means for a file step.
Esito esito_di(macchina::Guasto guasto);

/// Closes `file`, whose earlier steps ended with `esito`, and returns the outcome of all.
Esito concludi(File& file, Esito esito);

/// A new, empty working file. Nobody sweeps it while this lives, and it goes with this unless it
/// was published.
class Lavoro {
public:
    explicit Lavoro(const std::string& cartella);
    Lavoro(const Lavoro&) = delete;
    Lavoro& operator=(const Lavoro&) = delete;
    ~Lavoro();

    /// Outcome of the making.
    [[nodiscard]] Esito esito() const { return esito_; }
    [[nodiscard]] const std::string& nome() const { return nome_; }
    /// Open for writing; may be closed before the file is published.
    File& file() { return file_; }
    /// As the function of this name; the file is then no longer this one's.
    Esito pubblica(const std::string& nome, std::int64_t dimensione,
                   Creazione creazione = Creazione::resta);
    /// Leaves the file where it is, under a name that it was given.
    void lascia();

private:
    [[nodiscard]] bool prendi(const std::string& nome);

    Esito esito_ = Esito::errore;
    std::string nome_;
    File file_;
    Custode custode_;  ///< keeps the lock when `file_` is closed
};

/// Fills `lavoro` with the content of `origine`, synced and of its size, and its word, or `parola`
/// for one that has none.
Esito copia_in(const std::string& origine, Lavoro& lavoro, std::int64_t& dimensione,
               std::string_view parola = "");

/// A file set aside under a working name. Nobody sweeps it while this lives, and it goes with this
/// unless it was put back.
class Accantonato {
public:
    Accantonato() = default;
    Accantonato(const Accantonato&) = delete;
    Accantonato& operator=(const Accantonato&) = delete;
    ~Accantonato();
    /// `assente` when there is none.
    Esito metti(const std::string& nome);
    Esito rimetti();

private:
    std::string prima_;
    std::string nome_;
    File custode_;
};

}  // namespace platform
