// Which file a name means: where links lead, for the steps that must neither follow nor destroy
// them, and whether it is still the file that it was.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

/// True when `nome` is a link to somewhere outside its own folder, or to nothing.
bool esce_dalla_cartella(const std::string& nome);

/// True when deleting `arrivo` would take `origine` away too: both names mean one file.
bool stesso_file(const std::string& origine, const std::string& arrivo);

/// True when `nome` itself is a link, wherever it leads.
bool collegamento(const std::string& nome);

/// Tells a file, and its content at one time, from every other.
struct Impronta {
    std::uint64_t disco = 0;
    std::uint64_t nodo = 0;
    std::int64_t byte = 0;
    std::int64_t nanosecondi = 0;  ///< of the last change of its content, since 1970
    bool operator==(const Impronta&) const = default;
};

/// Nothing when there is no such regular file.
std::optional<Impronta> impronta(const std::string& nome);

}  // namespace platform
