// Texts stand in files as CP1252 bytes and in memory as UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// UTF-8 of CP1252 bytes; the five unassigned bytes become U+FFFD.
std::string da_cp1252(std::string_view byte);

/// CP1252 bytes of a UTF-8 text; what the code page lacks, or is no UTF-8, becomes '?'.
std::string a_cp1252(std::string_view utf8);

/// A text from a file as it can be shown on one line: every byte of a control character, of a sign
/// that turns the direction of writing, or of no character at all becomes "\\x" and two digits.
std::string mostrabile(std::string_view utf8);

}  // namespace platform
