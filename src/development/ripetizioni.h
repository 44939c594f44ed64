// Combinations already met in a development.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace development {

/// The numbers of a combination, at most 6 of 0 to 255, a byte each, the last one lowest; in the
/// highest byte the length of its line in a development file, end included. Never 0.
using Combinazione = std::uint64_t;

inline std::size_t byte_riga(Combinazione combinazione) {
    return static_cast<std::size_t>(combinazione >> 56);
}

/// Set of combinations. Open addressing in few bytes keeps it near the processor's cache, and so
/// to a few milliseconds for 170,000 of them.
class CombinazioniViste {
public:
    /// Room for so many and no more.
    explicit CombinazioniViste(std::size_t quante)
        : posti_(std::bit_ceil(quante + quante / 2 + 2)),
          spostamento_(64 - std::countr_zero(posti_.size())) {}

    /// Brings the place of a combination near before it is asked for.
    void avvicina(Combinazione c) const { __builtin_prefetch(&posti_[primo(c)]); }

    /// True when no equal one was added before.
    bool aggiungi(Combinazione c) {
        std::size_t i = primo(c);
        while (posti_[i] != 0 && posti_[i] != c) i = (i + 1) & (posti_.size() - 1);
        return std::exchange(posti_[i], c) == 0;
    }

private:
    [[nodiscard]] std::size_t primo(Combinazione c) const {
        return c * 0x9E3779B97F4A7C15ULL >> spostamento_;
    }

    std::vector<Combinazione> posti_;  ///< 0 is a free place
    int spostamento_;
};

}  // namespace development
