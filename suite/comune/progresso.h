// The progress of a long job on a terminal.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace suite {

/// Shows the progress of a job on the terminal and wipes it at the end; silent elsewhere.
class Progresso {
public:
    explicit Progresso(const std::string& titolo);
    Progresso(const Progresso&) = delete;
    Progresso& operator=(const Progresso&) = delete;
    ~Progresso();
    /// To be handed to a job; empty when nothing is to be shown.
    [[nodiscard]] std::function<void(std::uint64_t fatti, std::uint64_t totale)> avanzamento();
    void mostra(std::uint64_t fatti, std::uint64_t totale);

private:
    std::string titolo_;
    bool terminale_;
    int ultimo_ = -1;
};

}  // namespace suite
