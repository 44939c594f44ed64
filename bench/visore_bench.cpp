// The viewer: index pass, page turn, and the memory of a development of ten million lines.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

#include "viewer/esportazione.h"
#include "viewer/indice.h"
#include "viewer/ricerca.h"

using namespace viewer;

namespace {

constexpr std::int32_t righe_massime = 172172;
constexpr std::int32_t righe_enormi = 10000000;

/// A development of so many lines, removed at the end of the run.
class Sviluppo {
public:
    explicit Sviluppo(std::int32_t righe)
        : nome_((std::filesystem::temp_directory_path() /
                 ("visore-" + std::to_string(::getpid()) + "-" + std::to_string(righe) + ".col"))
                    .string()) {
        std::ofstream f(nome_, std::ios::binary);
        std::string blocco;
        for (std::int32_t i = 0; i < righe; ++i) {
            const int a = 1 + i % 15;
            for (int k = 0; k < 6; ++k) {
                blocco += std::to_string(a + k * 15) + (k < 5 ? "," : "\r\n");
            }
            if (blocco.size() > 60000) {
                f << blocco;
                blocco.clear();
            }
        }
        f << blocco;
    }
    ~Sviluppo() { std::filesystem::remove(nome_); }
    Sviluppo(const Sviluppo&) = delete;
    Sviluppo& operator=(const Sviluppo&) = delete;
    [[nodiscard]] const std::string& nome() const { return nome_; }

private:
    std::string nome_;
};

/// Most memory ever in use by this process, in MiB.
double picco() {
    rusage uso{};
    ::getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_maxrss) / 1024.0;
}

void indice_di_172172_righe(benchmark::State& stato) {
    const Sviluppo file(righe_massime);
    Indice indice;
    for (auto _ : stato) {
        indice.costruisci(file.nome(), pagine_di(righe_massime), [](std::int32_t) {});
    }
    if (indice.pagine() != 4305) stato.SkipWithError("wrong number of pages");
}
BENCHMARK(indice_di_172172_righe)->Unit(benchmark::kMillisecond);

void ricerca_di_due_numeri(benchmark::State& stato) {
    const Sviluppo file(righe_massime);
    Cercati cercati;
    cercati.set(7).set(22);
    std::size_t trovate = 0;
    for (auto _ : stato) trovate = cerca(file.nome(), 6, cercati).size();
    if (trovate != 11478) stato.SkipWithError("wrong number of combinations");
}
BENCHMARK(ricerca_di_due_numeri)->Unit(benchmark::kMillisecond);

void esportazione_di_172172_righe(benchmark::State& stato) {
    const Sviluppo file(righe_massime);
    const std::string tabella = file.nome() + ".csv";
    for (auto _ : stato) {
        if (esporta(file.nome(), 6, tabella).righe != righe_massime) {
            stato.SkipWithError("a table is not whole");
            break;
        }
    }
    std::filesystem::remove(tabella);
}
BENCHMARK(esportazione_di_172172_righe)->Unit(benchmark::kMillisecond);

void pagina_del_visore(benchmark::State& stato) {
    const Sviluppo file(righe_massime);
    Indice indice;
    indice.costruisci(file.nome(), pagine_di(righe_massime), [](std::int32_t) {});
    std::int32_t pagina = 0;
    for (auto _ : stato) {
        pagina = pagina % 4304 + 1;
        if (leggi_pagina(file.nome(), indice.posizione(pagina), 6).righe.size() != righe_pagina) {
            stato.SkipWithError("a page is not full");
            break;
        }
    }
}
BENCHMARK(pagina_del_visore)->Unit(benchmark::kMicrosecond);

void dieci_milioni_di_righe(benchmark::State& stato) {
    const Sviluppo file(righe_enormi);
    const double prima = picco();
    for (auto _ : stato) {
        Indice indice;
        indice.costruisci(file.nome(), pagine_di(righe_enormi), [](std::int32_t) {});
        if (leggi_pagina(file.nome(), indice.posizione(250000), 6).righe.size() != righe_pagina) {
            stato.SkipWithError("the last page is not full");
            break;
        }
    }
    stato.counters["picco_MiB"] = picco();
    stato.counters["crescita_MiB"] = picco() - prima;
}
BENCHMARK(dieci_milioni_di_righe)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
