// The combinations of a development that hold all of some numbers.
#pragma once

#include <bitset>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace viewer {

/// Place n stands for number n; place 0 for none.
using Cercati = std::bitset<91>;

/// The numbers in a text, whatever is between them; nothing when one is not from 1 to 90.
std::optional<Cercati> leggi_cercati(std::string_view testo);

/// Places of those combinations, counted from 1, in the order of the development, of `numeri`
/// numbers a combination; none for no numbers. It ends where the file can no longer be read.
std::vector<std::int32_t> cerca(const std::string& sviluppo, int numeri, const Cercati& cercati);

/// What is told of them: "12 combinazioni con 7 e 33".
std::string trovate(std::size_t quante, const Cercati& cercati);

}  // namespace viewer
