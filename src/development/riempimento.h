// Rows beyond those that a guarantee needs.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "development/coperture.h"

namespace development {

/// The rows of a table and as many more as the wish allows, those that let the most draws have one
/// number more than it guarantees. None are added where no draw could have more. `fermo`, which may
/// be empty, is asked now and then and ends the choice.
std::vector<Maschera> riempi(const Desiderio& desiderio, const std::vector<Maschera>& righe,
                             std::uint64_t seme, const std::function<bool()>& fermo);

}  // namespace development
