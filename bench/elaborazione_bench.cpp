// A 15 x 15 SuperEnalotto crossword, all "Integrale", from its tables on disk to the finished
// file without repetitions, beside what plain tools take for a part of that work.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <spawn.h>
#include <stdlib.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "crossword/linee.h"
#include "development/elaborazione.h"
#include "platform/ambiente.h"
#include "platform/disk.h"
#include "platform/runtime.h"

extern char** environ;

namespace {

constexpr int ripetute = 41;

/// Files of the runs; the disk of the build folder, not a folder in memory.
const std::string& cartella() {
    static const std::string nome = [] {
        std::string modello = SUITE_DIR "/benchXXXXXX";
        const char* fatta = mkdtemp(modello.data());
        return fatta != nullptr ? modello : std::string();
    }();
    return nome;
}

std::string finale() {
    return cartella() + "/sistema.col";
}
/// The finished development, kept for cp.
std::string unico() {
    return cartella() + "/unico";
}
/// The development before the removal, kept for awk.
std::string intero() {
    return cartella() + "/intero";
}

/// Numbers that keep the board's rule, as a player would lay them.
crossword::Matrice cruciverba() {
    crossword::Matrice matrice(15, 15);
    platform::Rnd rnd;
    for (int y = 0; y < 15; ++y) {
        for (int x = 0; x < 15; ++x) {
            const auto vietati = crossword::numeri_sulle_linee(matrice, y, x);
            int n = rnd.fino_a(90);
            while (vietati.test(static_cast<std::size_t>(n))) n = n % 90 + 1;
            matrice.scrivi(x, y, static_cast<std::int16_t>(n));
        }
    }
    return matrice;
}

development::Richiesta richiesta(bool senza_ripetizioni) {
    development::Richiesta r;
    r.matrice = cruciverba();
    r.cartella = cartella();
    r.ridotti = SUITE_DIR "/ridotti";
    r.senza_ripetizioni = senza_ripetizioni;
    return r;
}

bool avanti(std::int32_t /*righe*/) {
    return true;
}

/// The calls of the form, without the form.
bool elabora() {
    development::elimina_temporanei(cartella(), {});
    development::Elaborazione lavoro(richiesta(true), avanti);
    if (lavoro.sviluppa() != development::Conclusione::completa) return false;
    return development::completa_sviluppo(lavoro.file_temporaneo(), finale(),
                                          lavoro.byte_scritti());
}

/// Device that answers at once when asked to make the data outlive a power cut.
class SenzaSync : public platform::Syscalls {
public:
    SenzaSync() = default;
    SenzaSync(const SenzaSync&) = delete;
    SenzaSync& operator=(const SenzaSync&) = delete;
    int fsync(int /*fd*/) override { return 0; }

private:
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

/// Runs a command to its end, its output into `uscita` when that is not null.
bool esegui(std::vector<std::string> parole, const char* uscita) {
    std::vector<char*> argomenti;
    for (std::string& parola : parole) argomenti.push_back(parola.data());
    argomenti.push_back(nullptr);
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    if (uscita != nullptr) {
        posix_spawn_file_actions_addopen(&azioni, STDOUT_FILENO, uscita,
                                         O_WRONLY | O_CREAT | O_TRUNC, 0666);
    }
    pid_t figlio = 0;
    int stato = -1;
    if (posix_spawnp(&figlio, argomenti[0], &azioni, nullptr, argomenti.data(), environ) == 0) {
        waitpid(figlio, &stato, 0);
    }
    posix_spawn_file_actions_destroy(&azioni);
    return stato == 0;
}

void sostituzione(benchmark::State& stato) {
    for (auto _ : stato) {
        if (!elabora()) stato.SkipWithError("the elaboration failed");
    }
}

/// Without an old file to replace, whose blocks the file system must free; cp and awk alike.
void elaborazione(benchmark::State& stato) {
    platform::Kill(finale());
    sostituzione(stato);
}

void elaborazione_senza_sync(benchmark::State& stato) {
    const SenzaSync senza;
    elaborazione(stato);
}

/// With repetitions, and left in the working file.
void sviluppo(benchmark::State& stato) {
    for (auto _ : stato) {
        development::elimina_temporanei(cartella(), {});
        development::Elaborazione lavoro(richiesta(false), avanti);
        if (lavoro.sviluppa() != development::Conclusione::completa) {
            stato.SkipWithError("the development failed");
        }
    }
}

void cp(benchmark::State& stato) {
    const std::string copia = cartella() + "/copia";
    platform::Kill(copia);
    for (auto _ : stato) {
        if (!esegui({"cp", unico(), copia}, nullptr)) {
            stato.SkipWithError("cp failed");
        }
    }
}

void awk(benchmark::State& stato) {
    const std::string uscita = cartella() + "/awk";
    platform::Kill(uscita);
    for (auto _ : stato) {
        if (!esegui({"awk", "!s[$0]++", intero()}, uscita.c_str())) {
            stato.SkipWithError("awk failed");
        }
    }
}

void come_una_volta(benchmark::internal::Benchmark* b) {
    b->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1)->Repetitions(ripetute);
    b->ComputeStatistics("min", [](const std::vector<double>& tempi) {
        return *std::min_element(tempi.begin(), tempi.end());
    });
    b->ReportAggregatesOnly();
}
BENCHMARK(elaborazione)->Apply(come_una_volta);
BENCHMARK(elaborazione_senza_sync)->Apply(come_una_volta);
BENCHMARK(sostituzione)->Apply(come_una_volta);
BENCHMARK(sviluppo)->Apply(come_una_volta);
BENCHMARK(cp)->Apply(come_una_volta);
BENCHMARK(awk)->Apply(come_una_volta);

/// Highest resident memory of this process so far, in MiB.
double picco() {
    std::ifstream stato("/proc/self/status");
    for (std::string riga; std::getline(stato, riga);) {
        if (riga.starts_with("VmHWM:")) return platform::Val(riga.substr(6)) / 1024;
    }
    return 0;
}

/// Keeps the medians and minima that the console shows.
class Cronista : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& giri) override {
        for (const Run& giro : giri) {
            tempi[giro.run_name.function_name][giro.aggregate_name] = giro.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(giri);
    }
    std::map<std::string, std::map<std::string, double>> tempi;
};

void stampa_rapporti(Cronista& cronista, double memoria) {
    auto& tempi = cronista.tempi;
    for (const char* misura : {"median", "min"}) {
        const double con = tempi["elaborazione"][misura];
        const double senza = tempi["elaborazione_senza_sync"][misura];
        std::printf("%-6s  %.1f ms, without fsync %.1f ms; ", misura, con, senza);
        std::printf("%.1f times cp (without fsync %.1f); ", con / tempi["cp"][misura],
                    senza / tempi["cp"][misura]);
        std::printf("%.1f times faster than awk (without fsync %.1f)\n", tempi["awk"][misura] / con,
                    tempi["awk"][misura] / senza);
    }
    std::printf("peak memory %.1f MiB\n", memoria);
}

}  // namespace

int main(int argc, char** argv) {
    // Other work on the machine comes and goes: every subject gets its share of it.
    std::string alterni = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> argomenti(argv, argv + argc);
    argomenti.insert(argomenti.begin() + 1, alterni.data());
    int quanti = static_cast<int>(argomenti.size());
    benchmark::Initialize(&quanti, argomenti.data());
    if (benchmark::ReportUnrecognizedArguments(quanti, argomenti.data())) return 1;
    bool pronto = !cartella().empty() && elabora();
    const double memoria = picco();
    development::Elaborazione lavoro(richiesta(false), avanti);
    pronto = pronto && lavoro.sviluppa() == development::Conclusione::completa &&
             platform::FileCopy(lavoro.file_temporaneo(), intero()) == platform::Esito::ok &&
             platform::FileCopy(finale(), unico()) == platform::Esito::ok;
    Cronista cronista;
    if (pronto) benchmark::RunSpecifiedBenchmarks(&cronista);
    if (pronto) stampa_rapporti(cronista, memoria);
    std::error_code errore;
    if (!cartella().empty()) std::filesystem::remove_all(cartella(), errore);
    return pronto ? 0 : 1;
}
