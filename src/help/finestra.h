// Finding a window by its title.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/windows.h"

namespace help {

/// The first of `finestre` without an owner whose title, up to 128 characters of it, matches
/// `modello`; 0 when there is none.
std::uint32_t trova_finestra(const std::vector<platform::FinestraAperta>& finestre,
                             std::string_view modello, bool maiuscole_distinte);

}  // namespace help
