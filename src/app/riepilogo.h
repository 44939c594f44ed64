// The summary grid, its told cells written in one place and read in none.
#pragma once

#include "platform/qt/flexgrid.h"
#include "systems/sessione.h"

namespace app {

class Riepilogo {
public:
    /// `griglia` is not owned and outlives this. Builds the headers.
    explicit Riepilogo(platform::MSFlexGrid* griglia);
    void scrivi(const systems::Sessione& sessione);

private:
    platform::MSFlexGrid* griglia_;
};

}  // namespace app
