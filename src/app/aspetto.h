// Which skin the suite asks for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace app {

/// The skins that come with the suite, by the number that `skn.dat` holds.
enum class Aspetto : std::uint8_t { come_il_sistema = 0, classico = 1, chiaro = 2, scuro = 3 };

/// The number in `skin\skn.dat` below `radice`; nothing when there is none.
std::optional<std::uint8_t> aspetto_scelto(const std::string& radice);
/// Keeps a choice; false when the disk refused.
bool scegli_aspetto(const std::string& radice, Aspetto aspetto);

/// The style sheet that `skin\skn.dat` below `radice` picks, UTF-8; empty when either file is
/// missing, is no such thing, or is larger than 1 MiB. `desktop_scuro` decides where the choice is
/// the system's.
std::string foglio_aspetto(const std::string& radice, bool desktop_scuro);

}  // namespace app
