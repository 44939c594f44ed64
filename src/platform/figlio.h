// A child process whose output is read; no Qt.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace platform {

/// Killed and reaped at the end of its use.
class Figlio {
public:
    /// How long it is waited for, between two words and in all, and what it may say.
    struct Limiti {
        std::chrono::milliseconds attesa_muta;
        std::chrono::milliseconds attesa_totale;
        std::size_t uscita_massima;
    };
    enum class Fine { finito, scaduto, troppo, perduto };

    Figlio() = default;
    Figlio(const Figlio&) = delete;
    Figlio& operator=(const Figlio&) = delete;
    ~Figlio();

    /// Starts it with no input and nobody to complain to.
    bool avvia(const std::string& programma, const std::vector<std::string>& argomenti);
    /// Takes all that it writes until its end.
    Fine uscita(const Limiti& limiti, std::string& dati);

private:
    std::int64_t pid_ = -1;
    int fd_ = -1;
};

}  // namespace platform
