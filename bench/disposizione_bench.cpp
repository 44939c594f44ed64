// What two seconds of search on one core gain on random crosswords, counted over all draws, and
// what a step takes.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>
#include <vector>

#include "analysis/disposizione.h"
#include "analysis/ricerca.h"
#include "crossword/linee.h"

using namespace analysis;
using crossword::Gioco;
using crossword::Matrice;

namespace {

const std::string tabelle = SUITE_DIR "/ridotti";

/// Cell after cell any number that may stand there, until no cell is left without.
Matrice a_caso(std::mt19937& caso, int lato, int numeri) {
    std::vector<int> scelti;
    for (int n = 1; n <= numeri; ++n) scelti.push_back(n);
    while (true) {
        Matrice m(lato, lato);
        bool piena = true;
        for (int i = 0; i < lato * lato && piena; ++i) {
            std::shuffle(scelti.begin(), scelti.end(), caso);
            piena = std::any_of(scelti.begin(), scelti.end(), [&](int numero) {
                return crossword::posa(m, i % lato, i / lato, numero);
            });
        }
        if (piena && crossword::numeri_in_gioco(m).size() == scelti.size()) return m;
    }
}

systems::Sistema sistema(std::mt19937& caso, int lato, int numeri, int tipo, int diagonali) {
    systems::Sistema s;
    s.tipo_righe = s.tipo_colonne = tipo;
    s.tipo_diagonali = diagonali;
    s.matrice = a_caso(caso, lato, numeri);
    return s;
}

/// Arguments: side, numbers, type of rows and columns, type of the diagonals, hits hoped for.
void due_secondi(benchmark::State& stato) {
    constexpr int quanti = 3;
    std::mt19937 caso(1);  // NOLINT: the same crosswords every run
    std::vector<systems::Sistema> sistemi;
    for (int i = 0; i < quanti; ++i) {
        sistemi.push_back(
            sistema(caso, static_cast<int>(stato.range(0)), static_cast<int>(stato.range(1)),
                    static_cast<int>(stato.range(2)), static_cast<int>(stato.range(3))));
    }
    double prima = 0;
    double dopo = 0;
    double minimo = 100;
    double passi = 0;
    std::size_t i = 0;
    for (auto _ : stato) {
        RichiestaDisposizione r;
        r.sistema = sistemi[i++ % sistemi.size()];
        r.ridotti = tabelle;
        r.scopo = static_cast<int>(stato.range(4));
        r.secondi = 2;
        const Disposizione d = disponi(r);
        prima += d.prima.almeno(r.scopo);
        dopo += d.dopo.almeno(r.scopo);
        minimo = std::min(minimo, d.dopo.almeno(r.scopo) / d.prima.almeno(r.scopo));
        passi += static_cast<double>(d.passi);
    }
    const auto volte = static_cast<double>(stato.iterations());
    stato.counters["prima %"] = 100 * prima / volte;
    stato.counters["dopo %"] = 100 * dopo / volte;
    stato.counters["guadagno %"] = 100 * (dopo / prima - 1);
    stato.counters["il minore %"] = 100 * (minimo - 1);
    stato.counters["passi"] = passi / volte;
}

/// Exchanges that the rule allows, each weighed.
template <class Tipo>
void passo(benchmark::State& stato) {
    std::mt19937 caso(2);  // NOLINT: the same crossword every run
    const int tipo = static_cast<int>(stato.range(0));
    const Schema schema(sistema(caso, 15, 90, tipo, tipo), tabelle);
    const systems::Sistema s = sistema(caso, 15, 90, tipo, tipo);
    Celle celle;
    for (int i = 0; i < 225; ++i) {
        celle.push_back(static_cast<std::uint8_t>(s.matrice(i % 15, i / 15)));
    }
    Ricerca ricerca(schema, celle, {}, false, 3);
    Tipo stima(schema, static_cast<int>(stato.range(1)), celle);
    for (auto _ : stato) {
        while (!ricerca.passo(stima)) {
        }
        benchmark::DoNotOptimize(stima.valore());
    }
}

void misure(benchmark::internal::Benchmark* b) {
    for (const auto& [lato, numeri] :
         {std::pair{7, 18}, {8, 24}, {8, 34}, {10, 30}, {12, 44}, {15, 84}, {15, 90}}) {
        b->Args({lato, numeri, 0, 0, 3});
    }
    b->Args({8, 24, 2, 2, 3})->Args({9, 24, 4, 2, 3})->Args({12, 30, 2, 3, 3});
    b->Args({10, 30, 0, 0, 2})->Args({10, 30, 0, 0, 4})->Args({10, 30, 0, 0, 5});
    b->Iterations(3)->Unit(benchmark::kSecond)->UseRealTime();
}

BENCHMARK(due_secondi)->Apply(misure);
BENCHMARK(passo<Incroci>)->Args({0, 3})->Args({0, 5})->Args({2, 3});
BENCHMARK(passo<Coperture>)->Args({2, 3})->Args({2, 5})->Args({0, 3});

}  // namespace
