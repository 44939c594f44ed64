// What the combinations win on average, draw by draw.
#pragma once

#include <array>
#include <cstdint>

namespace analysis {

/// Combinations won in a draw on average, by exactly so many hits.
struct Medie {
    std::array<double, 7> combinazioni{};  ///< five with the Jolly are not among the fives
    double cinque_piu_uno = 0;
};

/// Of `giocate` combinations of `numeri` numbers, repeated ones each time, in draws of `estratti`;
/// the Jolly is drawn beside six.
Medie calcola_medie(std::int64_t giocate, int numeri, int estratti);

/// Prizes in Euro, by hits.
struct Premi {
    std::array<double, 7> premio{};
    double cinque_piu_uno = 0;
};

/// Euro that come back on average for each that is spent; 0 when nothing is.
double ritorno(const Medie& medie, const Premi& premi, double spesa);

}  // namespace analysis
