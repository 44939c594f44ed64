// The range of lines in the print options; no job reads it.
#pragma once

#include <string>

namespace printing {

struct Intervallo {
    std::string dalla;
    std::string alla;
    std::string totale;
};

/// Total of combinations without its points.
std::string totale_senza_punti(const std::string& testo);

/// The range as it stands after field `campo` (0 or 1) was left.
Intervallo convalida(Intervallo intervallo, int campo);

}  // namespace printing
