// The few query shapes that are understood.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace platform {

/// "select [all] * from T [where F = value] order by O"; names may stand in square brackets.
struct Query {
    std::string tabella;
    std::string campo;  ///< empty without a condition
    std::variant<std::int32_t, std::string> valore;
    std::string ordine;
};

/// True when the source is meant as a query rather than as the name of a table.
bool e_una_query(std::string_view sorgente);
/// Nothing when the text has another shape.
std::optional<Query> analizza_query(std::string_view testo);

}  // namespace platform
