// The analysis of the largest systems and of a typical one, over all draws and over the past;
// beside it a plain count of the same sets, each against each combination.
#include <benchmark/benchmark.h>
#include <bit>
#include <cstdint>
#include <random>
#include <set>
#include <sys/resource.h>
#include <vector>

#include "analysis/analisi.h"
#include "analysis/cinque_piu_uno.h"
#include "analysis/storico.h"

using namespace analysis;

namespace {

using Riga = std::array<std::int16_t, 6>;

std::vector<int> numeri_a_caso(std::mt19937& caso, int quanti, int fino_a) {
    std::set<int> numeri;
    while (static_cast<int>(numeri.size()) < quanti) {
        numeri.insert(1 + static_cast<int>(caso() % static_cast<unsigned>(fino_a)));
    }
    return {numeri.begin(), numeri.end()};
}

/// All choices of `numeri` out of each of `linee` lines of `lunga` of `in_gioco` numbers, as many
/// lines as a crossword of that side has.
Giocate sistema(int in_gioco, int linee, int lunga, int numeri, unsigned una_su = 1) {
    std::mt19937 caso(1);  // NOLINT: the same system every run
    std::vector<Riga> righe;
    for (int l = 0; l < linee; ++l) {
        const std::vector<int> linea = numeri_a_caso(caso, lunga, in_gioco);
        for (std::uint32_t quali = 0; quali < 1U << lunga; ++quali) {
            if (std::popcount(quali) != numeri || caso() % una_su != 0) continue;
            Riga riga{};
            std::size_t i = 0;
            for (std::size_t p = 0; p < linea.size(); ++p) {
                if ((quali >> p & 1) != 0) riga[i++] = static_cast<std::int16_t>(linea[p]);
            }
            righe.push_back(riga);
        }
    }
    Giocate giocate;
    prepara_giocate(righe, numeri, giocate);
    return giocate;
}

/// Fifteen rows, fifteen columns, two groups of diagonals' worth of long lines.
const Giocate& grande() {
    static const Giocate g = sistema(90, 34, 15, 6);
    return g;
}
const Giocate& grande_lotto() {
    static const Giocate g = sistema(90, 32, 15, 5);
    return g;
}
const Giocate& tipico() {
    static const Giocate g = sistema(40, 20, 8, 6, 4);
    return g;
}

void distribuzione(benchmark::State& stato, const Giocate& giocate) {
    const int estratti = giocate.numeri == 6 ? 6 : 5;
    Distribuzione d;
    for (auto _ : stato) {
        const Insiemi insiemi(giocate, 4);
        calcola_distribuzione(giocate, insiemi, estratti, static_cast<int>(stato.range(0)), d);
        benchmark::DoNotOptimize(d);
    }
    stato.counters["combinazioni"] = static_cast<double>(giocate.combinazioni.size());
    stato.counters["per cento con 3"] = 100 * static_cast<double>(d.estrazioni_almeno(3)) /
                                        static_cast<double>(d.estrazioni_possibili());
}

void tutto(benchmark::State& stato, const Giocate& giocate) {
    Analisi a;
    for (auto _ : stato) {
        analizza(giocate, giocate.numeri == 6 ? 6 : 5, static_cast<int>(stato.range(0)), a);
        benchmark::DoNotOptimize(a);
    }
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    stato.counters["picco MiB"] = static_cast<double>(uso.ru_maxrss) / 1024;
}

void cinque_piu_uno(benchmark::State& stato) {
    for (auto _ : stato) benchmark::DoNotOptimize(conta_cinque_piu_uno(grande()));
}

/// A part of the sets of six, each against each combination; the whole would take half a day.
void conto_semplice(benchmark::State& stato) {
    std::vector<std::array<std::uint64_t, 2>> combinazioni;
    for (const Ranghi& r : grande().combinazioni) {
        std::array<std::uint64_t, 2> m{};
        for (const std::uint8_t rango : r) m[rango / 64] |= std::uint64_t{1} << (rango % 64);
        combinazioni.push_back(m);
    }
    std::mt19937 caso(2);  // NOLINT: the same sets every run
    std::uint64_t insiemi = 0;
    for (auto _ : stato) {
        std::array<std::uint64_t, 2> s{};
        for (const int n : numeri_a_caso(caso, 6, 90)) {
            s[static_cast<std::size_t>(n - 1) / 64] |= std::uint64_t{1} << ((n - 1) % 64);
        }
        int migliore = 0;
        for (const auto& m : combinazioni) {
            migliore = std::max(migliore, std::popcount(m[0] & s[0]) + std::popcount(m[1] & s[1]));
        }
        benchmark::DoNotOptimize(migliore);
        ++insiemi;
    }
    stato.counters["ore per tutti"] =
        benchmark::Counter(static_cast<double>(insiemi) * 3600 / 622614630,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

std::vector<Estrazione> passato(std::size_t quante, int numeri) {
    std::mt19937 caso(3);  // NOLINT: the same draws every run
    std::vector<Estrazione> tutte(quante);
    for (Estrazione& e : tutte) {
        const std::vector<int> n = numeri_a_caso(caso, numeri, 90);
        for (std::size_t i = 0; i < n.size() && i < 6; ++i) {
            e.numeri[i] = static_cast<std::uint8_t>(n[i]);
        }
        if (numeri > 6) e.jolly = static_cast<std::uint8_t>(n[6]);
    }
    return tutte;
}

void mappe(benchmark::State& stato) {
    for (auto _ : stato) {
        const Mappe m(grande());
        benchmark::DoNotOptimize(&m);
    }
}

void storico(benchmark::State& stato, const Giocate& giocate, std::size_t quante, int numeri) {
    const Mappe m(giocate);
    const std::vector<Estrazione> tutte = passato(quante, numeri);
    Storico s;
    for (auto _ : stato) {
        calcola_storico(m, tutte, 2, static_cast<int>(stato.range(0)), s);
        benchmark::DoNotOptimize(s);
    }
}

BENCHMARK_CAPTURE(distribuzione, 15x15, grande())
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(distribuzione, tipico_8x8, tipico())
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(distribuzione, lotto_15x15, grande_lotto())
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(cinque_piu_uno)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(tutto, 15x15, grande())
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(tutto, tipico_8x8, tipico())
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(conto_semplice)->Unit(benchmark::kMillisecond);
BENCHMARK(mappe)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(storico, superenalotto, grande(), 4251, 7)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(storico, lotto_tutte_le_ruote, grande_lotto(), 75478, 5)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
