// The one calendar: days, and how the databases count them.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

namespace platform {

/// A calendar day; by default the one that the databases count from.
struct Data {
    int anno = 1899;
    int mese = 12;
    int giorno = 30;
    // The comparison that the compiler writes holds a literal 0.
    auto operator<=>(const Data&) const = default;  // NOLINT(modernize-use-nullptr)
};

/// True when the calendar has such a day, in the years 100 to 9999.
bool esiste(const Data& data);
/// Days since 1899-12-30, as the databases count them.
std::int32_t seriale(const Data& data);
Data da_seriale(std::int32_t giorni);
/// A text that begins with a day as yyyy-mm-dd and holds at most a time behind it.
std::optional<Data> da_iso(std::string_view testo);

}  // namespace platform
