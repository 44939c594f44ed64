// The delays over a long archive, and a whole crossword laid from them in each game.
#include <benchmark/benchmark.h>
#include <string>

#include "../tests/statistics/archivio_finto.h"
#include "statistics/completamento.h"
#include "statistics/generatore.h"

using namespace statistics;
using support::ArchivioFinto;
using support::estrazioni;

namespace {

constexpr int tante = 80000;

const std::string& file() {
    static const std::string nome = SUITE_DIR "/mstat.dat";
    return nome;
}

void ritardi_su_80000_estrazioni(benchmark::State& stato) {
    ArchivioFinto draws(estrazioni(tante, 1));
    Statistico s;
    for (auto _ : stato) {
        if (!s.statistica_ritardi(draws, file(), {}))
            stato.SkipWithError("the delays were given up");
    }
}
BENCHMARK(ritardi_su_80000_estrazioni)->Unit(benchmark::kMillisecond);

void ritardi_lotto_su_80000_estrazioni(benchmark::State& stato) {
    ArchivioFinto draws(estrazioni(tante, 1));
    Statistico s;
    for (auto _ : stato) {
        s.azzera();
        if (!s.statistica_ritardi_lotto(draws, {})) stato.SkipWithError("the delays were given up");
    }
}
BENCHMARK(ritardi_lotto_su_80000_estrazioni)->Unit(benchmark::kMillisecond);

void frequenze_su_80000_estrazioni(benchmark::State& stato) {
    ArchivioFinto draws(estrazioni(tante, 1));
    for (auto _ : stato) {
        Statistico s;
        if (!s.statistica_frequenze(draws, file(), {}))
            stato.SkipWithError("the frequencies were given up");
    }
}
BENCHMARK(frequenze_su_80000_estrazioni)->Unit(benchmark::kMillisecond);

void genera(benchmark::State& stato, crossword::Gioco gioco) {
    ArchivioFinto draws(estrazioni(320, 1));
    Statistico s;
    platform::Rnd rnd;
    double sorteggi = 0;
    double abbandonate = 0;
    for (auto _ : stato) {
        crossword::Matrice matrice(15, 15);
        const Generazione g = genera_statistico(gioco, s, draws, file(), matrice, rnd, {});
        sorteggi += static_cast<double>(g.sorteggi);
        abbandonate += g.conclusione == EsitoRiempimento::completa ? 0 : 1;
    }
    stato.counters["sorteggi"] = benchmark::Counter(sorteggi, benchmark::Counter::kAvgIterations);
    stato.counters["abbandonate"] =
        benchmark::Counter(abbandonate, benchmark::Counter::kAvgIterations);
}

void genera_15x15_superenalotto(benchmark::State& stato) {
    genera(stato, crossword::Gioco::superenalotto());
}
BENCHMARK(genera_15x15_superenalotto)->Unit(benchmark::kMillisecond);

void genera_15x15_lotto(benchmark::State& stato) {
    genera(stato, crossword::Gioco::lotto());
}
BENCHMARK(genera_15x15_lotto)->Unit(benchmark::kMillisecond);

void ricerca_15x15(benchmark::State& stato) {
    ArchivioFinto draws(estrazioni(tante, 1));
    Statistico s;
    if (!s.statistica_frequenze(draws, file(), {}))
        stato.SkipWithError("the frequencies were given up");
    for (auto _ : stato) {
        Graduatoria tabella = s.statistica();
        Ricerca ricerca(tabella, crossword::Matrice(15, 15));
        if (ricerca.riempi_griglia({}) != EsitoRiempimento::completa)
            stato.SkipWithError("the search was given up");
    }
}
BENCHMARK(ricerca_15x15)->Unit(benchmark::kMillisecond);

}  // namespace
