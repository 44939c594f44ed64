// The listing of a development as a PDF file: time, size and peak memory, each job in a process
// of its own.
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>

#include "platform/qt/desktop.h"
#include "platform/qt/printer_qt.h"
#include "platform/qt/scrivania.h"
#include "printing/listati.h"

namespace {

namespace fs = std::filesystem;

class Cartella {
public:
    Cartella()
        : nome_((fs::temp_directory_path() / ("stampa-" + std::to_string(::getpid()))).string()) {
        fs::create_directories(nome_);
    }
    ~Cartella() { fs::remove_all(nome_); }
    Cartella(const Cartella&) = delete;
    Cartella& operator=(const Cartella&) = delete;
    [[nodiscard]] const std::string& nome() const { return nome_; }
    void sviluppo(std::int64_t righe) const {
        std::ofstream f(nome_ + "/prova.col", std::ios::binary);
        for (std::int64_t i = 0; i < righe; ++i) {
            const std::int64_t a = 1 + i % 15;
            for (int k = 0; k < 6; ++k) f << a + k * 15 << (k < 5 ? "," : "\r\n");
        }
    }

private:
    std::string nome_;
};

class SenzaSchermo : public platform::Screen {
public:
    void MousePointer(int /*valore*/) override {}
    void DoEvents() override {}
};

/// Prints in this process, which ends with it.
[[noreturn]] void stampa(const std::string& cartella) {
    int argc = 1;
    std::array<char, 7> nome = {"stampa"};
    std::array<char*, 2> argv = {nome.data(), nullptr};
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QGuiApplication applicazione(argc, argv.data());
    platform::scrivania().stampa_solo_su_file = true;
    platform::scrivania().apre = [](const QString&) { return true; };
    platform::PrinterQt stampante("prova", platform::q(cartella + "/prova-sviluppo.pdf"));
    SenzaSchermo schermo;
    const bool riuscito = printing::stampa_sviluppo_superenalotto(
        stampante, schermo, {{"1.0.0", "prova", "21/11/2026"}, cartella, "prova"});
    ::_exit(riuscito ? 0 : 1);
}

/// Pages of a PDF file, from the root of their tree.
double pagine(const std::string& nome) {
    std::ifstream f(nome, std::ios::binary);
    const std::string dati{std::istreambuf_iterator<char>(f), {}};
    const std::size_t conto = dati.find("/Count ");
    return conto == std::string::npos ? 0 : std::stod(dati.substr(conto + 7, 12));
}

void listato_in_pdf(benchmark::State& stato) {
    const Cartella cartella;
    cartella.sviluppo(stato.range(0));
    rusage uso{};
    for (auto _ : stato) {
        const auto prima = std::chrono::steady_clock::now();
        const pid_t figlio = ::fork();
        if (figlio == 0) stampa(cartella.nome());
        int esito = 0;
        ::wait4(figlio, &esito, 0, &uso);
        if (esito != 0) {
            stato.SkipWithError("the job was lost");
            return;
        }
        stato.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - prima).count());
    }
    stato.counters["picco_MiB"] = static_cast<double>(uso.ru_maxrss) / 1024.0;
    const std::string pdf = cartella.nome() + "/prova-sviluppo.pdf";
    stato.counters["pdf_MiB"] = static_cast<double>(fs::file_size(pdf)) / 1048576.0;
    stato.counters["pagine"] = pagine(pdf);
}
BENCHMARK(listato_in_pdf)
    ->Arg(20000)
    ->Arg(172172)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->UseManualTime();

}  // namespace
