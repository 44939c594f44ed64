// Whether the draws at hand were ever drawn, and how old the newest one is.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "crossword/gioco.h"
#include "platform/data.h"
#include "platform/database.h"

namespace statistics {

/// The table beside the draws that says where those of each game come from: texts `chiave` and
/// `valore`. An archive of another maker has none.
inline constexpr std::string_view tabella_informazioni = "informazioni";
inline constexpr std::string_view chiave_lotto = "lotto";
inline constexpr std::string_view chiave_superenalotto = "superenalotto";
/// The value for draws that nobody ever drew.
inline constexpr std::string_view inventate = "dimostrativo";

struct StatoArchivio {
    bool leggibile = false;
    bool dimostrativo = false;
    std::optional<platform::Data> ultima;  ///< day of the newest draw; nothing without draws
    bool in_vece = false;  ///< they stand for those of a `drawit.mdb` that nothing reads here
    friend bool operator==(const StatoArchivio&, const StatoArchivio&) = default;
};

/// Of the draws of a game; one that cannot be read is not `leggibile`.
StatoArchivio stato_archivio(platform::Database& database, crossword::Gioco gioco);

/// What the player is told of it.
std::string frase(const StatoArchivio& stato, const platform::Data& oggi);

}  // namespace statistics
