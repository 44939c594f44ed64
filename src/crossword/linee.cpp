#include "crossword/linee.h"

namespace crossword {

namespace {

/// Visits the cells of the lines through a cell, which is passed over itself, with their line.
template <typename Visita>
void percorri(const Matrice& matrice, int r, int c, Visita visita) {
    const auto cella = [&](Sbarra linea, int x, int y) {
        if (x != c || y != r) visita(linea, x, y);
    };
    const int n = matrice.ubound(1);
    for (int y = 0; y <= matrice.ubound(2); ++y) cella(sulla_colonna, c, y);
    for (int x = 0; x <= n; ++x) cella(sulla_riga, x, r);
    if (!matrice.quadrata()) return;
    for (int i = 0; i <= n; ++i) {
        if (r == c) cella(sulla_diagonale, i, i);
        if (r + c == n) cella(sulla_diagonale, n - i, i);
    }
    if (n < 6) return;
    for (int i = 0; i < n; ++i) {
        if (r + c == n + 1) cella(sulla_diagonale, i + 1, n - i);
        if (r + c == n - 1) cella(sulla_diagonale, i, n - 1 - i);
        if (r == c - 1) cella(sulla_diagonale, i + 1, i);
        if (r == c + 1) cella(sulla_diagonale, i, i + 1);
    }
}

/// A damaged file can hold numbers that fit no byte: they must not pass for others.
std::uint8_t cella(const Matrice& matrice, int x, int y) {
    const int n = matrice(x, y);
    return n < 0 || n > 255 ? std::uint8_t{0} : static_cast<std::uint8_t>(n);
}

/// Cells (x, y) with x = y + scarto.
Linea diagonale(const Matrice& matrice, int scarto) {
    Linea linea{Gruppo::diagonali, {}};
    for (int y = 0; y < matrice.righe(); ++y) {
        if (matrice.contiene(y + scarto, y)) linea.numeri.push_back(cella(matrice, y + scarto, y));
    }
    return linea;
}

/// Cells (x, y) with x + y = somma.
Linea antidiagonale(const Matrice& matrice, int somma) {
    Linea linea{Gruppo::diagonali, {}};
    for (int y = 0; y < matrice.righe(); ++y) {
        if (matrice.contiene(somma - y, y)) linea.numeri.push_back(cella(matrice, somma - y, y));
    }
    return linea;
}

}  // namespace

std::array<std::uint8_t, 91> sbarre(const Matrice& matrice, int r, int c) {
    std::array<std::uint8_t, 91> trovate{};
    percorri(matrice, r, c, [&](Sbarra linea, int x, int y) {
        const int n = matrice(x, y);
        if (n >= 0 && n <= 90) trovate[static_cast<std::size_t>(n)] |= linea;
    });
    return trovate;
}

std::vector<Incrocio> celle_sulle_linee(const Matrice& matrice, int r, int c) {
    std::vector<Incrocio> celle;
    if (!matrice.contiene(c, r)) return celle;
    percorri(matrice, r, c, [&](Sbarra /*linea*/, int x, int y) { celle.push_back({x, y}); });
    return celle;
}

std::bitset<91> numeri_sulle_linee(const Matrice& matrice, int r, int c) {
    const auto per_numero = sbarre(matrice, r, c);
    std::bitset<91> numeri;
    for (std::size_t n = 0; n < per_numero.size(); ++n) numeri.set(n, per_numero[n] != nessuna);
    return numeri;
}

bool posa(Matrice& matrice, int x, int y, int numero) {
    if (numero < 1 || numero > 90) return false;
    if (sbarre(matrice, y, x)[static_cast<std::size_t>(numero)] != nessuna) return false;
    return matrice.scrivi(x, y, static_cast<std::int16_t>(numero));
}

std::vector<Linea> linee_sviluppo(const Matrice& matrice, Gioco gioco) {
    std::vector<Linea> linee;
    const int n = matrice.ubound(1);
    const bool adiacenti = matrice.quadrata() && gioco.adiacenti(matrice.colonne());
    for (int y = 0; y < matrice.righe(); ++y) {
        Linea riga{Gruppo::orizzontali, {}};
        for (int x = 0; x <= n; ++x) riga.numeri.push_back(cella(matrice, x, y));
        linee.push_back(std::move(riga));
    }
    if (matrice.quadrata()) linee.push_back(diagonale(matrice, 0));
    if (adiacenti) {
        linee.push_back(diagonale(matrice, 1));
        linee.push_back(diagonale(matrice, -1));
    }
    for (int x = 0; x <= n; ++x) {
        Linea colonna{Gruppo::verticali, {}};
        for (int y = 0; y < matrice.righe(); ++y) colonna.numeri.push_back(cella(matrice, x, y));
        linee.push_back(std::move(colonna));
    }
    if (matrice.quadrata()) linee.push_back(antidiagonale(matrice, n));
    if (adiacenti) {
        linee.push_back(antidiagonale(matrice, n - 1));
        linee.push_back(antidiagonale(matrice, n + 1));
    }
    return linee;
}

}  // namespace crossword
