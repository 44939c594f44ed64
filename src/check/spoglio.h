// The check of a development against a winning combination.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "crossword/gioco.h"
#include "platform/text_file.h"

namespace check {

/// Numbers of one combination, in the order of the file.
using Numeri = std::array<std::int16_t, 6>;

/// What to check, and against what.
struct RichiestaSpoglio {
    std::string file;               ///< development
    std::int32_t combinazioni = 0;  ///< how many the check runs through
    crossword::Gioco gioco;
    /// The winning numbers: in SuperEnalotto the Jolly first and six more, in Lotto five.
    std::array<std::int16_t, 7> vincente{};
};

/// Called with the combinations done so far; false asks the job to stop.
using Passo = std::function<bool(std::int32_t fatte)>;

/// The numbers that stand in the boxes; nothing when one of them is not greater than 0.
std::optional<std::array<std::int16_t, 7>> leggi_vincenti(std::span<const std::string> caselle);

/// A development read record by record. What cannot be read keeps the value of the record before.
class Lettore {
public:
    Lettore(const std::string& file, int numeri) : file_(file), numeri_(numeri) {}
    /// Reads the next record; false when nothing was left of the file, and then nothing changes.
    bool prossimo();
    [[nodiscard]] const Numeri& colonna() const { return colonna_; }

private:
    platform::TextReader file_;
    int numeri_;
    Numeri colonna_{};
};

/// Result of one combination: the numbers hit, and whether the Jolly came on top. One byte.
class Punti {
public:
    Punti() = default;
    Punti(int punti, bool jolly)
        : codice_(static_cast<std::uint8_t>(punti * 2 + (jolly ? 1 : 0))) {}
    [[nodiscard]] int punti() const { return codice_ / 2; }
    [[nodiscard]] bool jolly() const { return codice_ % 2 != 0; }
    /// "0" to "6", or "5 + 1".
    [[nodiscard]] std::string testo() const;
    [[nodiscard]] std::uint8_t codice() const { return codice_; }

    /// No record of six numbers scores more, whatever repeats in it.
    static constexpr int massimi = 36;

private:
    std::uint8_t codice_ = 0;
};

/// How many combinations fell into each category, and which ones.
class Spoglio {
public:
    /// The lists hold no more places, so that a damaged count cannot eat the memory.
    static constexpr std::size_t posti_massimi = std::size_t{1} << 22;

    /// Counts anew; false when `passo` asked to stop.
    bool conta(const RichiestaSpoglio& richiesta, const Passo& passo);
    /// Erases the lists.
    void cancella();

    /// Combinations of exactly so many points, the Jolly case aside. The counters are 16 bits
    /// wide: one that is full stays.
    [[nodiscard]] std::int16_t totale(int punti) const;
    /// Combinations of so many points and the Jolly.
    [[nodiscard]] std::int16_t totale_jolly(int punti) const;
    [[nodiscard]] std::int32_t vincenti() const { return vincenti_; }

    /// Upper bound of the lists; their places are counted from 1.
    [[nodiscard]] std::size_t quante() const { return lista_colonne_.size(); }
    /// Position of the combination in the development, from 1.
    [[nodiscard]] std::int32_t lista_colonne(std::size_t k) const { return lista_colonne_[k - 1]; }
    [[nodiscard]] Punti lista_punti(std::size_t k) const { return lista_punti_[k - 1]; }

private:
    void segna(const RichiestaSpoglio& richiesta, Punti punti, std::int32_t prima,
               std::int32_t ultima);

    std::array<std::int16_t, 7> totali_{};
    std::array<std::int16_t, 7> totali_j_{};
    std::int32_t vincenti_ = 0;
    std::vector<std::int32_t> lista_colonne_;
    std::vector<Punti> lista_punti_;
};

}  // namespace check
