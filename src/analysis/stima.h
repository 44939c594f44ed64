// How good a layout is, kept up to date while numbers change places.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "analysis/schema.h"

namespace analysis {

/// One cell that takes another number.
struct Cambio {
    std::uint8_t cella = 0;
    std::uint8_t prima = 0;
    std::uint8_t dopo = 0;
};

/// What stands for the chance that a layout does not win: the lower the better, and no chance
/// itself.
class Stima {
public:
    virtual ~Stima() = default;
    /// All cells at once: no number stands twice on a line before, nor after.
    virtual void cambia(std::span<const Cambio> cambi) = 0;
    [[nodiscard]] std::int64_t valore() const { return valore_; }

protected:
    std::int64_t valore_ = 0;
};

/// By the numbers that each two lines share: the logarithm of the chance that no line wins, each
/// two lines taken together and all of them as if that were enough. Of a reduced line it knows how
/// often so many of its numbers do, not which.
class Incroci : public Stima {
public:
    /// For `t` hits or more.
    Incroci(const Schema& schema, int t, std::span<const std::uint8_t> celle);
    void cambia(std::span<const Cambio> cambi) override;

private:
    static constexpr std::size_t linee_massime = 36;
    static constexpr std::size_t comuni = 16;  ///< numbers that two lines share, and one more
    void togli(const Cambio& cambio);
    void metti(const Cambio& cambio);
    void sposta(std::size_t linea, std::uint64_t altre, int quanto);

    std::vector<std::uint64_t> giocate_;
    std::size_t tipi_;
    std::array<std::size_t, linee_massime> tipo_{};
    std::vector<std::int64_t> pesi_;  ///< by type, type and numbers shared
    std::array<std::array<std::uint8_t, linee_massime>, linee_massime> condivisi_{};
    std::array<std::uint64_t, numeri_del_gioco + 1> linee_di_{};  ///< lines that hold each number
};

/// By the different sets of `t` numbers that stand together in a row, counted one by one with the
/// lines that hold them.
class Coperture : public Stima {
public:
    Coperture(const Schema& schema, int t, std::span<const std::uint8_t> celle);
    void cambia(std::span<const Cambio> cambi) override;

private:
    static constexpr std::size_t t_massimo = 5;
    using Posizioni = std::array<std::uint8_t, t_massimo>;
    void conta(std::size_t linea, bool entra);

    const Schema& schema_;
    std::size_t t_;
    Celle celle_;
    std::vector<std::vector<Posizioni>> gruppi_;  ///< of each type
    /// [i][number]: its part in the place of a set in which it stands i-th.
    std::array<std::array<std::uint32_t, numeri_del_gioco + 1>, t_massimo> parte_{};
    std::vector<std::uint8_t> volte_;
};

/// True when some type leaves out sets of `t` of a line's numbers, so that ranks matter.
bool conta_il_rango(const Schema& schema, int t);

}  // namespace analysis
