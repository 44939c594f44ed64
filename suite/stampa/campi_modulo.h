// The fields of a module's file: names, limits and words, told once for reader, writer and check.
#pragma once

#include <array>
#include <string_view>

#include "stampa/modulo.h"

namespace schedine {

struct Limiti {
    int da = 0;
    int a = 0;
};

/// A field of two numbers.
struct CampoPosto {
    std::string_view nome;
    Posto Modulo::*dove;
    Limiti limiti;
    bool necessario = true;
};

inline constexpr Limiti limiti_posto{0, 4200};
inline constexpr Limiti limiti_scostamento{-4200, 4200};
inline constexpr Limiti limiti_posta{1, 1000000};

inline constexpr std::array<CampoPosto, 7> campi_posto{{
    {"foglio", &Modulo::foglio, {300, 4200}},
    {"origine", &Modulo::origine, limiti_posto},
    {"passo", &Modulo::passo, {5, 1000}},
    {"griglia", &Modulo::griglia, {1, 90}},
    {"segno", &Modulo::segno, {2, 300}},
    {"correzione", &Modulo::correzione, {-300, 300}, false},
    {"scala", &Modulo::scala, {9000, 11000}, false},
}};

template <typename T>
struct Parola {
    std::string_view nome;
    T valore;
};

inline constexpr std::array<Parola<bool>, 2> parole_gioco{
    {{"superenalotto", false}, {"lotto", true}}};
inline constexpr std::array<Parola<Ingresso>, 2> parole_ingresso{
    {{"testa", Ingresso::testa}, {"sinistra", Ingresso::sinistra}}};
inline constexpr std::array<Parola<Ordine>, 4> parole_ordine{
    {{"righe", Ordine::righe},
     {"colonne", Ordine::colonne},
     {"righe dal basso", Ordine::righe_dal_basso},
     {"colonne dal basso", Ordine::colonne_dal_basso}}};
inline constexpr std::array<Parola<Forma>, 3> parole_forma{
    {{"rettangolo", Forma::rettangolo}, {"ovale", Forma::ovale}, {"croce", Forma::croce}}};

/// The word of a value.
template <typename T, std::size_t quante>
constexpr std::string_view parola(const std::array<Parola<T>, quante>& parole, T valore) {
    for (const auto& p : parole) {
        if (p.valore == valore) return p.nome;
    }
    return parole[0].nome;
}

}  // namespace schedine
