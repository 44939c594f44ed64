// A second way to the same tables and grids, step by step and without a care for speed; the
// tests hold the program against it.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "archivio_finto.h"

namespace semplice {

/// One entry of the ranking; 0 is unused.
struct Riga {
    int numero = 0;
    int valore = 0;
    std::string classe;
    int fascia = 0;
    bool libero = false;
    bool usato = false;
};
using Elenco = std::vector<Riga>;

/// A grid column first.
using Griglia = std::vector<std::vector<int>>;
inline Griglia vuota(int righe, int colonne) {
    return Griglia(static_cast<std::size_t>(colonne),
                   std::vector<int>(static_cast<std::size_t>(righe), 0));
}
template <typename V>
auto& a(V& v, int i) {
    return v.at(static_cast<std::size_t>(i));
}

inline void ordina(Elenco& e, int l, int r) {
    const int pivot = a(e, static_cast<int>(std::nearbyint((l + r) / 2.0))).valore;
    int i = l;
    int j = r;
    do {
        while (a(e, i).valore > pivot && i < r) i = i + 1;
        while (pivot > a(e, j).valore && j > l) j = j - 1;
        if (i <= j) {
            const Riga t = a(e, i);
            a(e, i) = a(e, j);
            a(e, j) = t;
            i = i + 1;
            j = j - 1;
        }
    } while (i <= j);
    if (l < j) ordina(e, l, j);
    if (i < r) ordina(e, i, r);
}

/// Delay of each number over the last `finestra` draws, looked for from the newest back.
inline Elenco ritardi(const std::vector<support::Record>& archivio, int finestra, int quanti) {
    Elenco e(91);
    const int ultimo = static_cast<int>(archivio.size()) - 1;
    // A window that begins before the archive counts one place for the failed read.
    const int in_meno = ultimo + 1 < finestra ? finestra - (ultimo + 2) : 0;
    for (int n = 1; n <= 90; ++n) {
        a(e, n).numero = n;
        a(e, n).valore = finestra;
        for (int indietro = 0; indietro < finestra && indietro <= ultimo; ++indietro) {
            bool uscito = false;
            for (int k = 0; k < quanti; ++k) {
                uscito = uscito || a(a(archivio, ultimo - indietro).numeri, k) == n;
            }
            if (uscito) {
                a(e, n).valore = indietro + in_meno;
                break;
            }
        }
    }
    ordina(e, 1, 90);
    return e;
}

inline void bande(Elenco& e) {
    for (int i = 1; i <= 90; ++i) a(e, i).fascia = std::min((i + 9) / 10, 8);
}

inline void classi(Elenco& e) {
    for (int i = 1; i <= 90; ++i) {
        if (i <= 10 || i >= 81) {
            a(e, i).valore = 0;
            a(e, i).classe = "d";
        }
        const int v = a(e, i).valore;
        if (v >= 6 && v <= 14) a(e, i).classe = "ab";
        if (v >= 15 && v <= 27) a(e, i).classe = "b";
        if (v > 27) a(e, i).classe = "c";
    }
}

/// True when two different cells stand on one line of the crossword.
inline bool in_linea(int x, int y, int x2, int y2, int righe, int colonne) {
    if (x == x2 && y == y2) return false;
    if (x == x2 || y == y2) return true;
    if (righe != colonne) return false;
    const int n = colonne - 1;
    if (x - y == x2 - y2 && (x == y || (n >= 6 && (x - y == 1 || x - y == -1)))) return true;
    return x + y == x2 + y2 && (x + y == n || (n >= 6 && (x + y == n + 1 || x + y == n - 1)));
}

inline bool segnato(const Griglia& g, int x, int y, int numero) {
    const int colonne = static_cast<int>(g.size());
    const int righe = static_cast<int>(g[0].size());
    for (int i = 0; i < colonne; ++i) {
        for (int j = 0; j < righe; ++j) {
            if (a(a(g, i), j) == numero && in_linea(x, y, i, j, righe, colonne)) return true;
        }
    }
    return false;
}

/// Tries every number that is already in the grid, in turn, for each empty cell; false at the
/// first cell that none of them fits.
inline bool completa_con_scelti(Griglia& g) {
    std::vector<int> lista;
    for (const auto& colonna : g) {
        for (const int n : colonna) {
            if (n != 0) lista.push_back(n);
        }
    }
    for (int y = 0; y < static_cast<int>(g[0].size()); ++y) {
        for (int x = 0; x < static_cast<int>(g.size()); ++x) {
            int& cella = a(a(g, x), y);
            for (std::size_t i = 0; cella == 0 && i < lista.size(); ++i) {
                if (!segnato(g, x, y, lista[i])) cella = lista[i];
            }
            if (cella == 0) return false;
        }
    }
    return true;
}

/// The generator in floating point, where all its steps are exact.
struct Caso {
    double stato = 327680;
    std::int64_t presi = 0;
    int p() {
        stato = std::fmod(std::fmod(stato * 16598013.0, 16777216.0) + 12820163.0, 16777216.0);
        ++presi;
        return static_cast<int>(std::floor(90 * (stato / 16777216.0) + 1));
    }
};

struct Esito {
    bool completa = false;
    std::int64_t sorteggi = 0;  ///< up to the last number laid
    Griglia griglia;
};

/// Draws in one cell after which nothing is believed to come any more.
constexpr int senza_speranza = 20000;

inline Esito casuale(const Elenco& e, int rows, int cols, Caso& caso) {
    Esito esito{false, 0, vuota(rows, cols)};
    const auto classe = [](int p) {
        return p < 12 ? 'd' : p < 26 ? 'b' : p < 57 ? 'a' : p < 80 ? 'c' : 'e';
    };
    std::array<int, 128> q{};
    q['a'] = rows > 10 ? 6 : 5;
    q['b'] = q['c'] = rows > 10 ? 3 : 2;
    q['d'] = q['e'] = rows > 10 ? 2 : 1;
    std::vector<std::array<int, 128>> qc(static_cast<std::size_t>(cols), q);
    const std::int64_t prima = caso.presi;
    int tries = 0;
    for (int row = 0; row < rows; ++row) {
        std::array<int, 128> qr = q;
        for (int col = 0; col < cols; ++col) {
            int da_quanto = 0;
            while (true) {
                if (++da_quanto > senza_speranza) return esito;
                const int p = caso.p();
                tries = tries + 1;
                if (tries >= 90) {
                    a(qr, 'a') += 1;
                    a(a(qc, col), 'a') += 1;
                }
                int& riga = a(qr, classe(p));
                int& colonna = a(a(qc, col), classe(p));
                if (riga < 1) continue;
                if (segnato(esito.griglia, col, row, a(e, p).numero)) continue;
                riga -= 1;
                if (colonna > 0) {
                    colonna -= 1;
                    tries = 0;
                    a(a(esito.griglia, col), row) = a(e, p).numero;
                    break;
                }
                riga += 1;
            }
            esito.sorteggi = caso.presi - prima;
        }
    }
    esito.completa = true;
    return esito;
}

inline Esito casuale_lotto(const Elenco& e, int rows, int cols, Caso& caso) {
    Esito esito{false, 0, vuota(rows, cols)};
    struct Quote {
        int a = 3, b = 4, c = 2, d = 2;
    };
    std::vector<Quote> qc(static_cast<std::size_t>(cols));
    const std::int64_t prima = caso.presi;
    int tries = 0;
    for (int row = 0; row < rows; ++row) {
        Quote r;
        for (int col = 0; col < cols; ++col) {
            Quote& k = a(qc, col);
            for (int da_quanto = 0;; ++da_quanto) {
                if (da_quanto > senza_speranza) return esito;
                const Riga& voce = a(e, caso.p());
                if (segnato(esito.griglia, col, row, voce.numero)) continue;
                tries = tries + 1;
                if (tries >= 90) {
                    r.b++;
                    k.b++;
                    tries = 0;
                }
                if (row == rows - 1) {
                    if (r.b == 3 && voce.classe != "b") continue;
                    if (col == cols - 1 && k.b == 3 && voce.classe != "b") continue;
                }
                if (row == rows - 2) {
                    if (r.b == 4 && voce.classe != "b") continue;
                    if (col == cols - 2 && k.b == 4 && voce.classe != "b") continue;
                }
                bool preso = false;
                if (voce.classe == "ab" && r.a != 0 && r.b != 0 && k.a > 0) {
                    r.a--, r.b--, k.a--, k.b--;
                    preso = true;
                } else if (voce.classe == "b" && r.b != 0 && k.b > 0) {
                    r.b--, k.b--;
                    preso = true;
                } else if (voce.classe == "c" && r.c != 0 && k.c > 0) {
                    r.c--, k.c--;
                    preso = true;
                } else if (voce.classe == "d" && r.d != 0 && k.d > 0) {
                    r.d--, k.d--;
                    preso = true;
                }
                if (!preso) continue;
                tries = 0;
                a(a(esito.griglia, col), row) = voce.numero;
                break;
            }
            esito.sorteggi = caso.presi - prima;
        }
    }
    esito.completa = true;
    return esito;
}

/// The greedy search, its jumps written as jumps.
class Ricerca {
public:
    enum Fine { piena, errore, per_sempre };
    Ricerca(Elenco& elenco, Griglia iniziale) : e(elenco), g(std::move(iniziale)) {}

    bool vincoli(int r, int c, int& level) {
        const int u = static_cast<int>(g.size()) - 1;
        const int v = static_cast<int>(g[0].size()) - 1;
        bool ok = true;
    da_capo:
        for (int l = 1; l <= 8; ++l) {
            if (!sulla(l, c, r, u, v)) continue;
            for (int y = 0; y <= v; ++y) {
                for (int x = 0; x <= u; ++x) {
                    if ((x == c && y == r) || !sulla(l, x, y, u, v)) continue;
                    // Every line but a column and a row is one set of cells; those two are not.
                    if ((l == 1 && x != c) || (l == 2 && y != r)) continue;
                    const int n = a(a(g, x), y);
                    if (l == 4 && y > r) a(e, n).libero = false;
                    int dove = 0;
                    while (a(e, dove).numero != n) ++dove;
                    a(e, dove).libero = false;
                    ++a(conta, a(e, dove).fascia);
                }
            }
            for (int i = 71; i <= 90; ++i) {
                const int quanti = a(conta, (i - 1) / 10 + 1);
                if (level == 1 && quanti > 0) {
                    a(e, i).libero = false;
                    ok = false;
                    level = 2;
                    goto da_capo;
                }
                if (level != 1 && quanti > 1) {
                    a(e, i).libero = false;
                    ok = false;
                }
            }
            for (int i = 1; i <= 70; ++i) {
                if (a(conta, (i - 1) / 10 + 1) > level) a(e, i).libero = false;
            }
            conta.assign(10, 0);
        }
        return ok;
    }

    Fine riempi() {
        int scan = 1;
        int tail = 71;
        int level = 1;
        libera();
        for (int row = 0; row < static_cast<int>(g[0].size()); ++row) {
            for (int col = 0; col < static_cast<int>(g.size()); ++col) {
                if (a(a(g, col), row) != 0) continue;
                bool ok = vincoli(row, col, level);
                int j = scan;
                int tries = 0;
                int giri = 0;
            passo2:
                while (!a(e, j).libero) {
                    j = j + 1;
                    if (j > 90) {
                        for (int i = 1; i <= 90; ++i) a(e, i).usato = false;
                        goto passo3;
                    }
                    while (j <= 90 && a(e, j).usato) j = j + 1;
                    if (j > 90) return errore;
                    if (j > 70) goto passo3;
                }
                goto passo5;
            passo3:
                if (++giri > 2000) return per_sempre;
                libera();
                if (scan >= 89) {
                    tries = tries + 1;
                    scan = 1;
                    if (tries > 2) {
                        if (ok) {
                            j = tail;
                            goto passo5;
                        }
                        for (int i = 1; i <= 70; ++i) a(e, i).usato = false;
                        level = 2;
                    } else {
                        scan = scan + 2;
                    }
                } else {
                    scan = scan + 2;
                }
                j = scan;
                ok = vincoli(row, col, level);
                goto passo2;
            passo5:
                if (j > 90) return errore;
                a(a(g, col), row) = a(e, j).numero;
                if (j == tail) {
                    tail = tail + 1;
                    scan = 1;
                }
                a(e, j).usato = true;
                a(e, j).libero = false;
                level = 1;
                ++posate;
            }
            int usati = 0;
            for (int i = 1; i <= 70; ++i) usati += a(e, i).usato ? 1 : 0;
            if (usati == 70) {
                for (int i = 1; i <= 70; ++i) a(e, i).usato = false;
                for (int i = 1; i <= 70; ++i) a(e, i).libero = true;
                scan = 1;
            }
        }
        return piena;
    }

    Elenco& e;
    Griglia g;
    int posate = 0;

private:
    static bool sulla(int l, int x, int y, int u, int v) {
        if (l <= 2) return true;
        if (u != v || (l > 4 && u < 6)) return false;
        const std::array<bool, 9> quale = {false,          false,      false,
                                           x == y,         x + y == u, x + y == u + 1,
                                           x + y == u - 1, y == x - 1, y == x + 1};
        return a(quale, l);
    }
    void libera() {
        for (int i = 1; i <= 90; ++i) a(e, i).libero = i <= 70;
    }
    std::vector<int> conta = std::vector<int>(10, 0);
};

}  // namespace semplice
