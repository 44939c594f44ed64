// What is asked of a table of the archive; no text is taken apart for it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/table.h"

namespace platform {

/// The records of a table, all fields of each, in the ascending order of one of them.
struct Query {
    /// Holds for a record whose field has that value, texts compared without case.
    struct Condizione {
        std::string campo;
        std::variant<std::int32_t, std::string> valore;
    };

    std::string tabella;
    std::string ordine;
    std::optional<Condizione> dove = {};
};

/// Rows of the query's records in their order; 0 or DAO's number of the error.
int esegui(const Query& query, const Table& tabella, std::vector<std::uint32_t>& righe);

}  // namespace platform
