// The sets of five numbers that stand in combinations of six.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "analysis/giocate.h"

namespace analysis {

/// Five ascending ranks, the combination that they come from, and the place of the one left out.
class Cinquina {
public:
    Cinquina() = default;
    Cinquina(const Ranghi& combinazione, std::size_t indice, std::size_t fuori);
    /// The ranks, alike for sets that are equal.
    [[nodiscard]] std::uint64_t ranghi() const { return codice_ >> sotto; }
    [[nodiscard]] int rango(std::size_t i) const {
        return static_cast<int>(ranghi() >> (bit_rango * (4 - i)) & ((1U << bit_rango) - 1));
    }
    [[nodiscard]] std::size_t combinazione() const {
        return codice_ >> bit_posto & (combinazioni_massime - 1);
    }
    [[nodiscard]] std::size_t fuori() const { return codice_ & ((1U << bit_posto) - 1); }
    /// Twelve bits of the ranks, `cifra` counted from the last.
    [[nodiscard]] std::size_t cifra(int cifra) const { return ranghi() >> (12 * cifra) & 4095U; }

private:
    static constexpr int bit_rango = 7;
    static constexpr int bit_posto = 3;
    static constexpr int sotto = 20 + bit_posto;
    static_assert(combinazioni_massime == std::size_t{1} << 20);
    std::uint64_t codice_ = 0;
};

/// All of them in the order of their ranks, equal ones side by side. `giocate` has six numbers a
/// combination.
std::vector<Cinquina> cinquine_ordinate(const Giocate& giocate);

/// Calls `f` with each run of equal ones.
template <typename F>
void per_uguali(const std::vector<Cinquina>& cinquine, const F& f) {
    for (std::size_t da = 0; da < cinquine.size();) {
        std::size_t a = da + 1;
        while (a < cinquine.size() && cinquine[a].ranghi() == cinquine[da].ranghi()) ++a;
        f(std::span<const Cinquina>(cinquine.data() + da, a - da));
        da = a;
    }
}

}  // namespace analysis
