#include "statistics/completamento.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace statistics {

namespace {

using crossword::Matrice;

constexpr int prime = 70;
constexpr int voci = 90;
/// Beyond this many barren passes one more makes no difference.
constexpr int giri_massimi = 3;

int fascia_di_posto(int i) {
    return (i - 1) / 10 + 1;
}

}  // namespace

std::vector<int> numeri_scelti(const Matrice& matrice) {
    std::vector<int> scelti;
    for (int x = 0; x < matrice.colonne(); ++x) {
        for (int y = 0; y < matrice.righe(); ++y) {
            if (matrice(x, y) != 0) scelti.push_back(matrice(x, y));
        }
    }
    return scelti;
}

Ricerca::Ricerca(Graduatoria& statistica, Matrice griglia)
    : statistica_(statistica), griglia_(std::move(griglia)) {}

bool Ricerca::segna_numero(int n) {
    const auto trovata = std::find_if(statistica_.begin(), statistica_.end(),
                                      [n](const Voce& v) { return v.numero == n; });
    if (trovata == statistica_.end()) return true;
    trovata->libero = false;
    if (trovata->fascia < 0 || trovata->fascia > 9) return false;
    ++conta(trovata->fascia);
    return true;
}

bool Ricerca::linea(int quale, int r, int c, std::vector<Casella>& caselle) const {
    caselle.clear();
    const int u = griglia_.ubound(1);
    const int v = griglia_.ubound(2);
    const auto su = [&caselle](int da, int a, auto posto, bool per_posto = false) {
        for (int i = da; i <= a; ++i) {
            const auto [x, y] = posto(i);
            caselle.push_back({x, y, per_posto});
        }
    };
    const auto giu = [&caselle](int da, int a, auto posto) {
        for (int i = da; i >= a; --i) {
            const auto [x, y] = posto(i);
            caselle.push_back({x, y, false});
        }
    };
    using Posto = std::pair<int, int>;
    const auto in_colonna = [c](int i) { return Posto{c, i}; };
    const auto in_riga = [r](int i) { return Posto{i, r}; };
    const auto principale = [](int i) { return Posto{i, i}; };
    const auto anti = [u](int i) { return Posto{u - i, i}; };
    const auto sotto_anti = [u](int i) { return Posto{i, u + 1 - i}; };
    const auto sopra_anti = [u](int i) { return Posto{i, u - 1 - i}; };
    const auto sopra_principale = [](int i) { return Posto{i + 1, i}; };
    const auto sotto_principale = [](int i) { return Posto{i - 1, i}; };
    const bool diagonali = u == v;
    const bool adiacenti = diagonali && u >= 6;
    if (quale == 1) {
        giu(r - 1, 0, in_colonna);
        su(r + 1, v, in_colonna);
    } else if (quale == 2) {
        su(c + 1, u, in_riga);
        giu(c - 1, 0, in_riga);
    } else if (quale == 3 && diagonali && c == r) {
        giu(r - 1, 0, principale);
        su(r + 1, u, principale);
    } else if (quale == 4 && diagonali && r + c == u) {
        giu(r - 1, 0, anti);
        su(r + 1, u, anti, true);
    } else if (quale == 5 && adiacenti && r + c == u + 1) {
        giu(c - 1, 1, sotto_anti);
        su(c + 1, u, sotto_anti);
    } else if (quale == 6 && adiacenti && r + c == u - 1) {
        giu(c - 1, 0, sopra_anti);
        su(c + 1, u - 1, sopra_anti);
    } else if (quale == 7 && adiacenti && r == c - 1) {
        su(r + 1, u - 1, sopra_principale);
        giu(r - 1, 0, sopra_principale);
    } else if (quale == 8 && adiacenti && r == c + 1) {
        su(r + 1, u, sotto_principale);
        giu(r - 1, 1, sotto_principale);
    } else {
        return false;
    }
    return true;
}

bool Ricerca::segna_linea(const std::vector<Casella>& caselle) {
    for (const Casella& casella : caselle) {
        const int n = griglia_(casella.x, casella.y);
        if (casella.per_posto) {
            if (n < 0 || n > voci) return false;
            voce(n).libero = false;
        }
        if (!segna_numero(n)) return false;
    }
    return true;
}

/// False when the level must rise; entries from 81 on stand against a band never counted.
bool Ricerca::limita_coda(int livello, bool& ok) {
    for (int i = prime + 1; i <= voci; ++i) {
        if (conta(fascia_di_posto(i)) <= (livello == 1 ? 0 : 1)) continue;
        voce(i).libero = false;
        ok = false;
        if (livello == 1) return false;
    }
    return true;
}

void Ricerca::limita_fasce(int livello) {
    for (int i = 1; i <= prime; ++i) {
        if (conta(fascia_di_posto(i)) > livello) voce(i).libero = false;
    }
}

std::optional<bool> Ricerca::vincoli_cella(int r, int c, int& livello) {
    bool ok = true;
    std::vector<Casella> caselle;
    for (int quale = 1; quale <= 8; ++quale) {
        if (!linea(quale, r, c, caselle)) continue;
        if (!segna_linea(caselle)) return std::nullopt;
        if (!limita_coda(livello, ok)) {
            // From the first line again; the counts of this one stay and add to it.
            livello = 2;
            quale = 0;
            continue;
        }
        limita_fasce(livello);
        conta_fasce_ = {};
    }
    return ok;
}

void Ricerca::libera_prime() {
    for (int i = 1; i <= voci; ++i) voce(i).libero = i <= prime;
}

/// Goes from `j` to the next entry that is free, passing over those already placed.
Ricerca::Scorsa Ricerca::scorri(int& j) {
    while (!voce(j).libero) {
        ++j;
        if (j > voci) {
            for (int i = 1; i <= voci; ++i) voce(i).usato = false;
            return Scorsa::esaurita;
        }
        while (voce(j).usato) {
            ++j;
            if (j > voci) return Scorsa::guasta;
        }
        if (j > prime) return Scorsa::esaurita;
    }
    return Scorsa::trovata;
}

std::optional<int> Ricerca::cerca(int riga, int colonna) {
    auto ok = vincoli_cella(riga, colonna, level_);
    int j = scan_;
    int tries = 0;
    // All that a pass depends on, so that a state met again would come back for ever.
    std::set<std::tuple<int, int, int, std::string>> passati;
    while (ok) {
        const Scorsa scorsa = scorri(j);
        if (scorsa == Scorsa::trovata) return j;
        if (scorsa == Scorsa::guasta) return std::nullopt;
        libera_prime();
        if (scan_ >= 89) {
            tries = std::min(tries + 1, giri_massimi);
            scan_ = 1;
            if (tries < giri_massimi) {
                scan_ += 2;
            } else if (*ok) {
                return tail_;
            } else {
                for (int i = 1; i <= prime; ++i) voce(i).usato = false;
                level_ = 2;
            }
        } else {
            scan_ += 2;
        }
        std::string usati;
        for (int i = 1; i <= voci; ++i) usati.push_back(voce(i).usato ? '1' : '0');
        if (!passati.emplace(scan_, tries, level_, std::move(usati)).second) return std::nullopt;
        j = scan_;
        ok = vincoli_cella(riga, colonna, level_);
    }
    return std::nullopt;
}

/// Lays entry `j`; false when there is none, the tail being used up, or it holds no number.
bool Ricerca::posa(int riga, int colonna, int j) {
    if (j > voci || voce(j).numero < 1 || voce(j).numero > 90) return false;
    griglia_.scrivi(colonna, riga, voce(j).numero);
    if (j == tail_) {
        ++tail_;
        scan_ = 1;
    }
    voce(j).usato = true;
    voce(j).libero = false;
    level_ = 1;
    return true;
}

/// Once the seventy best have all been placed they may come again.
void Ricerca::chiudi_riga() {
    for (int i = 1; i <= prime; ++i) {
        if (!voce(i).usato) return;
    }
    for (int i = 1; i <= prime; ++i) {
        voce(i).usato = false;
        voce(i).libero = true;
    }
    scan_ = 1;
}

EsitoRiempimento Ricerca::riempi_griglia(const Posata& posata) {
    libera_prime();
    for (int riga = 0; riga < griglia_.righe(); ++riga) {
        for (int colonna = 0; colonna < griglia_.colonne(); ++colonna) {
            if (griglia_(colonna, riga) != 0) continue;
            const auto j = cerca(riga, colonna);
            if (!j || !posa(riga, colonna, *j)) return EsitoRiempimento::abbandonata;
            if (posata && !posata(riga, colonna, griglia_(colonna, riga)))
                return EsitoRiempimento::interrotta;
        }
        chiudi_riga();
    }
    return EsitoRiempimento::completa;
}

EsitoRiempimento completa(Statistico& statistico, LettoreEstrazioni& draws, const std::string& file,
                          Matrice& matrice, const Seguito& seguito) {
    if (!draws.MoveLast()) return EsitoRiempimento::abbandonata;
    const auto ultima = draws.data();
    const auto salvata = leggi_data(file);
    Matrice griglia(matrice.colonne(), matrice.righe());
    if (ultima && salvata && *ultima <= *salvata) {
        if (!leggi_mstat(statistico.statistica(), file)) return EsitoRiempimento::abbandonata;
        griglia = matrice;
    } else if (!statistico.statistica_frequenze(draws, file, seguito.barra)) {
        return EsitoRiempimento::abbandonata;
    }
    Ricerca ricerca(statistico.statistica(), std::move(griglia));
    const EsitoRiempimento esito = ricerca.riempi_griglia(seguito.posata);
    if (esito == EsitoRiempimento::completa) matrice = ricerca.griglia();
    return esito;
}

}  // namespace statistics
