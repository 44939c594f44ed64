// What an archive holds, in memory: draws by day, and how they are numbered and kept in a file.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data.h"
#include "platform/recordset.h"

namespace importazione {

using platform::Data;

/// The ten regional wheels in the order of their records, then the national one.
inline constexpr std::size_t ruote_regionali = 10;
inline constexpr std::size_t ruote_tutte = 11;
extern const std::array<std::string_view, ruote_tutte> sigle;

using Cinquina = std::array<std::int16_t, 5>;

/// The wheels of one day.
struct GiornoLotto {
    std::array<std::optional<Cinquina>, ruote_tutte> ruote;
    /// Number that a file gave the draw.
    std::optional<std::int32_t> numero;
    [[nodiscard]] bool completo() const;
    bool operator==(const GiornoLotto&) const = default;
};

struct Sestina {
    std::array<std::int16_t, 6> numeri{};
    std::optional<std::int16_t> jolly;
    std::optional<std::int16_t> superstar;
    std::optional<std::int32_t> numero;
    /// The same draw, however it is numbered.
    [[nodiscard]] bool stessa(const Sestina& altra) const;
    bool operator==(const Sestina&) const = default;
};

struct Contenuto {
    std::map<Data, GiornoLotto> lotto;
    std::map<Data, Sestina> superenalotto;
    /// Invented draws, which the first import of the game replaces.
    bool lotto_dimostrativo = false;
    bool superenalotto_dimostrativo = false;
    bool operator==(const Contenuto&) const = default;
};

/// Numbers by day: those of the files when every draw has one and they ascend, else 1, 2, 3...
std::map<Data, std::int32_t> numera(const std::map<Data, Sestina>& estrazioni);
/// The same for the days that have all ten wheels; the others get none.
std::map<Data, std::int32_t> numera(const std::map<Data, GiornoLotto>& estrazioni);

/// Reads an archive; 0 or the number of the error. A missing one is `errore_file_assente`.
int carica(const std::string& file, Contenuto& contenuto);
/// Replaces the archive, whole or not at all.
bool salva(const std::string& file, const Contenuto& contenuto);

/// Everything wrong with an archive as the program reads it, one line each; empty when sound.
std::vector<std::string> difetti(const std::string& file);

/// Draws that nobody ever drew, always the same.
Contenuto dimostrativo();

/// A day as dd/mm/yyyy.
std::string italiana(const Data& data);

}  // namespace importazione
