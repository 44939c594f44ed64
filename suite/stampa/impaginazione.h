// How slips of so many columns fall into A4 pages. Lengths are in millimetres.
#pragma once

namespace schedine {

struct Impaginazione {
    int per_pagina = 1;           ///< whole slips of a page; 0 when a slip takes more pages
    int pagine_per_schedina = 1;  ///< of a slip that fits no page
};

inline constexpr double bordo = 12;
inline constexpr double larghezza_utile = 186;
inline constexpr double alto_pagina = 20;
inline constexpr double altezza_utile = 266;

/// Panels of 90 numbers, in bands of five across the page.
inline constexpr int pannelli_banda = 5;
inline constexpr double alta_schedina = 8;  ///< its head
inline constexpr double alta_banda = 39;
inline constexpr double stacco = 4;
[[nodiscard]] int bande_pagina();
[[nodiscard]] Impaginazione impagina_pannelli(int colonne);

/// The list, in strips down the page.
struct Strisce {
    int quante = 4;
    double larga = 0;
    float corpo = 8;
    double riga = 3.5;
    int righe = 0;  ///< lines that fit under each other
};
[[nodiscard]] Strisce strisce(bool grande);
/// Lines between the slips of a strip.
inline constexpr int righe_stacco = 1;
/// Slips of a strip; 0 when a slip takes more strips.
[[nodiscard]] int schedine_striscia(int colonne, const Strisce& s);
/// Strips of a slip that fits none.
[[nodiscard]] int strisce_schedina(int colonne, const Strisce& s);
[[nodiscard]] Impaginazione impagina_elenco(int colonne, bool grande);

}  // namespace schedine
