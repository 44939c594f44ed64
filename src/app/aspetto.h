// Which skin the suite asks for.
#pragma once

#include <string>

namespace app {

/// The style sheet that `skin\skn.dat` below `radice` picks, UTF-8; empty when either file is
/// missing, is no such thing, or is larger than 1 MiB.
std::string foglio_aspetto(const std::string& radice);

}  // namespace app
