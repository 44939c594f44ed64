// The check of the largest systems: count with reading, list, sorting, and awk beside them.
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <unistd.h>

#include "check/dettaglio.h"

using namespace check;

namespace {

/// A development of the largest size, removed at the end of the run.
class Sviluppo {
public:
    Sviluppo(std::int32_t righe, crossword::Gioco gioco)
        : nome_((std::filesystem::temp_directory_path() /
                 ("spoglio-" + std::to_string(::getpid()) + gioco.estensione_sviluppo()))
                    .string()),
          richiesta_{nome_, righe, gioco, {7, 12, 23, 34, 45, 56, 67}} {
        std::ofstream f(nome_, std::ios::binary);
        std::string testo;
        std::mt19937 caso(1);  // NOLINT: the same file every run
        for (std::int32_t i = 0; i < righe; ++i) {
            std::set<unsigned long> riga;
            while (riga.size() < static_cast<std::size_t>(gioco.numeri()))
                riga.insert(1 + caso() % 90);
            const char* separatore = "";
            for (const unsigned long numero : riga) {
                testo += separatore + std::to_string(numero);
                separatore = ",";
            }
            testo += "\r\n";
        }
        f << testo;
    }
    ~Sviluppo() { std::filesystem::remove(nome_); }
    Sviluppo(const Sviluppo&) = delete;
    Sviluppo& operator=(const Sviluppo&) = delete;
    [[nodiscard]] const RichiestaSpoglio& richiesta() const { return richiesta_; }

private:
    std::string nome_;
    RichiestaSpoglio richiesta_;
};

constexpr std::int32_t sestine = 172172;
// Fifteen rows, fifteen columns and two diagonals of fifteen, all five-number choices of each.
constexpr std::int32_t cinquine = 32 * 3003;

bool sempre(std::int32_t /*fatte*/) {
    return true;
}

double secondi(const auto& lavoro) {
    const auto inizio = std::chrono::steady_clock::now();
    lavoro();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
}

/// The same count by awk, in milliseconds; 0 when it came out different.
double awk(const RichiestaSpoglio& r, const Spoglio& nostro) {
    std::string vincenti;
    const std::size_t primo = r.gioco.e_lotto() ? 0 : 1;
    for (std::size_t b = primo; b < (r.gioco.e_lotto() ? 5U : 7U); ++b) {
        vincenti += "v[" + std::to_string(r.vincente[b]) + "]++;";
    }
    const std::string uscita = r.file + ".awk";
    const std::string comando = "awk -F, 'BEGIN{" + vincenti +
                                "}{p=0;for(a=1;a<=NF;a++)p+=v[$a+0];t[p]++}END{print t[3]+0}' " +
                                r.file + " > " + uscita;
    int esito = 1;
    const double tempo = secondi([&] { esito = std::system(comando.c_str()); });
    int tre = -1;
    std::ifstream(uscita) >> tre;
    std::filesystem::remove(uscita);
    return esito == 0 && tre == nostro.totale(3) ? tempo * 1000 : 0;
}

void conta(benchmark::State& stato, const Sviluppo& file) {
    Spoglio spoglio;
    double nostro = 0;
    int giri = 0;
    for (auto _ : stato) {
        nostro += secondi([&] { spoglio.conta(file.richiesta(), sempre); });
        ++giri;
    }
    const double loro = awk(file.richiesta(), spoglio);
    if (loro == 0) stato.SkipWithError("awk counts something else");
    stato.counters["awk_ms"] = loro;
    stato.counters["volte_awk"] = loro / (nostro * 1000 / giri);
    stato.counters["vincenti"] = spoglio.vincenti();
}

void spoglio_di_172172_sestine(benchmark::State& stato) {
    conta(stato, Sviluppo(sestine, crossword::Gioco::superenalotto()));
}
BENCHMARK(spoglio_di_172172_sestine)->Unit(benchmark::kMillisecond);

void spoglio_di_96096_cinquine(benchmark::State& stato) {
    conta(stato, Sviluppo(cinquine, crossword::Gioco::lotto()));
}
BENCHMARK(spoglio_di_96096_cinquine)->Unit(benchmark::kMillisecond);

void elenco_di_172172_righe(benchmark::State& stato) {
    const Sviluppo file(sestine, crossword::Gioco::superenalotto());
    Spoglio spoglio;
    spoglio.conta(file.richiesta(), sempre);
    Dettaglio dettaglio;
    for (auto _ : stato) {
        dettaglio.svuota();
        dettaglio.aggiungi(file.richiesta(), spoglio, 5, sempre);
    }
    dettaglio.ordina(colonna_punti, Verso::decrescente);
    stato.counters["byte_per_riga"] = static_cast<double>(dettaglio.memoria()) / sestine;
}
BENCHMARK(elenco_di_172172_righe)->Unit(benchmark::kMillisecond);

void ordina(benchmark::State& stato, int colonna, Verso verso) {
    const Sviluppo file(sestine, crossword::Gioco::superenalotto());
    Spoglio spoglio;
    spoglio.conta(file.richiesta(), sempre);
    Dettaglio dettaglio;
    dettaglio.aggiungi(file.richiesta(), spoglio, 5, sempre);
    for (auto _ : stato) dettaglio.ordina(colonna, verso);
}
BENCHMARK_CAPTURE(ordina, punti_crescente, colonna_punti, Verso::crescente)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ordina, punti_decrescente, colonna_punti, Verso::decrescente)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ordina, scheda_decrescente, colonna_chiave, Verso::decrescente)
    ->Unit(benchmark::kMillisecond);

}  // namespace
