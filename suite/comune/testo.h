// What the commands print.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace suite {

/// Prints to the standard output.
void stampa(std::string_view testo);
/// Prints a message of a command, on one line, to the standard error.
void lamenta(std::string_view comando, std::string_view testo);

/// A JSON string, quoted.
std::string json(std::string_view testo);
/// A JSON array of numbers.
std::string json(const std::vector<std::uint64_t>& numeri);

}  // namespace suite
