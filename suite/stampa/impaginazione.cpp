#include "stampa/impaginazione.h"

namespace schedine {

namespace {

int per_eccesso(int quante, int di) {
    return (quante + di - 1) / di;
}

}  // namespace

int bande_pagina() {
    return static_cast<int>((altezza_utile - alta_schedina) / alta_banda);
}

Impaginazione impagina_pannelli(int colonne) {
    const int bande = per_eccesso(colonne, pannelli_banda);
    if (bande > bande_pagina()) return {0, per_eccesso(bande, bande_pagina())};
    const double alta = alta_schedina + bande * alta_banda + stacco;
    return {static_cast<int>((altezza_utile + stacco) / alta), 1};
}

Strisce strisce(bool grande) {
    Strisce s;
    if (grande) {
        s.quante = 2;
        s.corpo = 14;
        s.riga = 6;
    }
    s.larga = larghezza_utile / s.quante;
    s.righe = static_cast<int>(altezza_utile / s.riga);
    return s;
}

int schedine_striscia(int colonne, const Strisce& s) {
    return (s.righe + righe_stacco) / (1 + colonne + righe_stacco);
}

int strisce_schedina(int colonne, const Strisce& s) {
    return per_eccesso(colonne, s.righe - 1);
}

Impaginazione impagina_elenco(int colonne, bool grande) {
    const Strisce s = strisce(grande);
    if (const int una = schedine_striscia(colonne, s); una > 0) return {una * s.quante, 1};
    const int sue = strisce_schedina(colonne, s);
    if (sue > s.quante) return {0, per_eccesso(sue, s.quante)};
    return {s.quante / sue, 1};
}

}  // namespace schedine
