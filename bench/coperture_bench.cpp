// The search for small tables: swaps of the plain walk on one core.
#include <benchmark/benchmark.h>

#include "development/copertura_locale.h"
#include "development/gruppi.h"

using namespace development;

namespace {

void scambi(benchmark::State& stato, const Desiderio& desiderio) {
    const Orbite singole = orbite(desiderio, {});
    CoperturaLocale cammino(singole.incidenza, 1, 0);
    cammino.passi(1, 1);
    for (auto _ : stato) {
        const std::uint64_t fine = cammino.fatti() + 10'000;
        while (cammino.fatti() < fine) cammino.passi(fine - cammino.fatti(), 1);
    }
    stato.counters["scambi"] =
        benchmark::Counter(static_cast<double>(cammino.fatti()), benchmark::Counter::kIsRate);
    stato.counters["righe"] = static_cast<double>(cammino.costo_migliore());
}

BENCHMARK_CAPTURE(scambi, cinque_con_sei_di_15, Desiderio{15, 6, 6, 5})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scambi, quattro_con_sei_di_13, Desiderio{13, 6, 6, 4})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scambi, cinquine_quattro_di_15, Desiderio{15, 5, 4, 4})
    ->Unit(benchmark::kMillisecond);

}  // namespace
