// The command as it is typed.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace importazione {

/// Exit codes of the command.
inline constexpr int riuscito = 0;
inline constexpr int con_riserve = 1;
inline constexpr int impossibile = 2;

/// Runs a subcommand; `archivio` finds the one meant when no other is named, which may write, and
/// is asked by a command in order alone.
int comando(const std::vector<std::string>& parole, const std::function<std::string()>& archivio);

/// The archive that the program of this folder reads.
std::string archivio_della_suite(const std::string& cartella_programma);

}  // namespace importazione
