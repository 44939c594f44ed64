#include "crossword/matrice.h"

#include <bitset>

#include "platform/runtime.h"

namespace crossword {

Matrice::Matrice(int colonne, int righe) {
    if (colonne < 1 || colonne > 256 || righe < 1 || righe > 256) return;
    colonne_ = colonne;
    righe_ = righe;
    celle_.assign(static_cast<std::size_t>(colonne) * static_cast<std::size_t>(righe), 0);
}

bool Matrice::scrivi(int x, int y, std::int16_t numero) {
    if (!contiene(x, y)) return false;
    celle_[posto(x, y)] = numero;
    return true;
}

bool cruciverba_completo(const Matrice& matrice) {
    for (int y = 0; y < matrice.righe(); ++y) {
        for (int x = 0; x < matrice.colonne(); ++x) {
            if (matrice(x, y) == 0) return false;
        }
    }
    return true;
}

std::vector<int> numeri_in_gioco(const Matrice& matrice) {
    std::bitset<91> presenti;
    for (int y = 0; y < matrice.righe(); ++y) {
        for (int x = 0; x < matrice.colonne(); ++x) {
            const int n = matrice(x, y);
            if (n >= 1 && n <= 90) presenti.set(static_cast<std::size_t>(n));
        }
    }
    std::vector<int> numeri;
    for (int n = 1; n <= 90; ++n) {
        if (presenti.test(static_cast<std::size_t>(n))) numeri.push_back(n);
    }
    return numeri;
}

std::string testo_lista(int numero) {
    return (numero < 10 ? "  " : " ") + platform::Str(numero);
}

}  // namespace crossword
