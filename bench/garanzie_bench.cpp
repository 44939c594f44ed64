// Proving every table of the suite: the claim by enumeration, the whole win table by transform.
#include <benchmark/benchmark.h>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "development/garanzie.h"
#include "platform/disk.h"

using namespace development;

namespace {

struct Prova {
    NomeTabella nome;
    Tabella tabella;
    Garanzia garanzia;
};

/// Every table that has a claim; a folder without tables gives none.
const std::vector<Prova>& prove() {
    static const std::vector<Prova> tutte = [] {
        std::vector<Prova> lette;
        for (const std::string& file : platform::Dir(SUITE_DIR "/ridotti", "*.rid")) {
            const auto nome = leggi_nome(file);
            const auto garanzia = nome ? garanzia_dichiarata(*nome) : std::nullopt;
            if (!garanzia) continue;
            std::ifstream f(SUITE_DIR "/ridotti/" + file, std::ios::binary);
            const std::string testo{std::istreambuf_iterator<char>(f), {}};
            lette.push_back({*nome, leggi_rigorosa(testo, nome->n, nome->k()).tabella, *garanzia});
        }
        return lette;
    }();
    return tutte;
}

bool mancano_tabelle(benchmark::State& stato) {
    if (prove().size() == 136) return false;
    stato.SkipWithError("the suite folder has not its 136 tables");
    return true;
}

void prova_tutte_le_garanzie(benchmark::State& stato) {
    if (mancano_tabelle(stato)) return;
    for (auto _ : stato) {
        for (const Prova& prova : prove()) {
            const Buchi mancati = buchi(prova.tabella, prova.garanzia, 1);
            if (mancati.quanti > 0) stato.SkipWithError("a guarantee fails");
        }
    }
    stato.counters["tabelle"] = static_cast<double>(prove().size());
}
BENCHMARK(prova_tutte_le_garanzie)->Unit(benchmark::kMillisecond);

void tutte_le_tavole_delle_vincite(benchmark::State& stato) {
    if (mancano_tabelle(stato)) return;
    for (auto _ : stato) {
        for (const Prova& prova : prove()) {
            benchmark::DoNotOptimize(tutte_le_vincite(prova.tabella));
        }
    }
    stato.counters["tabelle"] = static_cast<double>(prove().size());
}
BENCHMARK(tutte_le_tavole_delle_vincite)->Unit(benchmark::kMillisecond);

void lettura_rigorosa_della_tabella_piu_lunga(benchmark::State& stato) {
    const std::string testo = testo_tabella(integrale(15, 6));
    for (auto _ : stato) {
        benchmark::DoNotOptimize(leggi_rigorosa(testo, 15, 6).tabella.righe.size());
    }
    stato.SetBytesProcessed(static_cast<std::int64_t>(testo.size()) *
                            static_cast<std::int64_t>(stato.iterations()));
}
BENCHMARK(lettura_rigorosa_della_tabella_piu_lunga)->Unit(benchmark::kMicrosecond);

}  // namespace
