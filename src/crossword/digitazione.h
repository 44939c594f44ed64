// A number typed digit by digit.
#pragma once

#include <optional>
#include <string>

namespace crossword {

/// Takes the code of a key into the digits typed so far, at most one. Two digits make a number, or
/// one and Return, and leave none; any other key forgets the digit.
std::optional<int> digita(std::string& digitato, int tasto);

}  // namespace crossword
