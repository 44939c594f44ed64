// The slips of a large system: one page as the preview draws it, and all of them as a PDF file, in
// a process of its own that tells its peak memory.
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "platform/qt/desktop.h"
#include "platform/qt/printer_qt.h"
#include "platform/qt/scrivania.h"
#include "stampa/lavoro.h"

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t colonne_schedina = 5;

class SenzaSchermo : public platform::Screen {
public:
    void MousePointer(int /*valore*/) override {}
    void DoEvents() override {}
};

class Sistema {
public:
    explicit Sistema(std::int64_t schedine)
        : nome_((fs::temp_directory_path() / ("schedine-" + std::to_string(::getpid()))).string()) {
        std::ofstream f(nome_, std::ios::binary);
        for (std::int64_t i = 0; i < schedine * colonne_schedina; ++i) {
            for (std::int64_t k = 0; k < 6; ++k) f << 1 + i % 15 + k * 15 << (k < 5 ? "," : "\r\n");
        }
    }
    ~Sistema() {
        fs::remove(nome_);
        fs::remove(pdf());
    }
    Sistema(const Sistema&) = delete;
    Sistema& operator=(const Sistema&) = delete;
    [[nodiscard]] const std::string& nome() const { return nome_; }
    [[nodiscard]] std::string pdf() const { return nome_ + ".pdf"; }

private:
    std::string nome_;
};

schedine::Opzioni opzioni(std::int64_t genere) {
    schedine::Opzioni o;
    o.genere = static_cast<schedine::Genere>(genere);
    o.sistema = "prova";
    o.prezzo = 0.5;
    return o;
}

class Applicazione {
public:
    Applicazione() { platform::scrivania().stampa_solo_su_file = true; }

private:
    int argc_ = 1;
    std::array<char, 9> nome_ = {"schedine"};
    std::array<char*, 2> argv_ = {nome_.data(), nullptr};
    bool senza_schermo_ = ::setenv("QT_QPA_PLATFORM", "offscreen", 1) == 0;
    QGuiApplication applicazione_{argc_, argv_.data()};
};

/// Does something in a process of its own; its peak in MiB, nothing when it failed.
template <typename Cosa>
double picco(Cosa fare) {
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        const Applicazione applicazione;
        ::_exit(fare() ? 0 : 1);
    }
    rusage uso{};
    int esito = 0;
    ::wait4(figlio, &esito, 0, &uso);
    return esito == 0 ? static_cast<double>(uso.ru_maxrss) / 1024.0 : -1;
}

bool in_pdf(const Sistema& sistema, std::int64_t genere) {
    schedine::Sviluppo sviluppo;
    if (sviluppo.apri(sistema.nome(), 6)) return false;
    schedine::Lavoro lavoro(sviluppo, opzioni(genere));
    platform::PrinterQt printer("prova", platform::q(sistema.pdf()), platform::Uscita::file);
    SenzaSchermo schermo;
    const std::int64_t pagine = lavoro.pagine();
    return concludi(printer, disegna(printer, schermo, lavoro, 1, pagine, 0, pagine)) ==
           schedine::Fine::stampato;
}

bool in_anteprima(const Sistema& sistema, std::int64_t genere) {
    constexpr double scala = 96.0 / platform::dot_al_pollice;
    schedine::Sviluppo sviluppo;
    if (sviluppo.apri(sistema.nome(), 6)) return false;
    schedine::Lavoro lavoro(sviluppo, opzioni(genere));
    QImage foglio(794, 1123, QImage::Format_RGB32);
    QPainter pittore(&foglio);
    pittore.scale(scala, scala);
    platform::PrinterVideo pagina(pittore, {});
    return lavoro.disegna(pagina, lavoro.pagine()) && pagina.EndDoc();
}

template <typename Cosa>
void misura(benchmark::State& stato, Cosa cosa) {
    const Sistema sistema(stato.range(0));
    double mib = 0;
    for (auto _ : stato) {
        const auto prima = std::chrono::steady_clock::now();
        mib = picco([&] { return cosa(sistema, stato.range(1)); });
        if (mib < 0) {
            stato.SkipWithError("the job was lost");
            return;
        }
        stato.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - prima).count());
    }
    stato.counters["picco_MiB"] = mib;
}

void schedine_in_pdf(benchmark::State& stato) {
    misura(stato, in_pdf);
}
/// From the opening of the file to the last page on the screen, the program's own start included.
void anteprima_dell_ultima(benchmark::State& stato) {
    misura(stato, in_anteprima);
}

BENCHMARK(schedine_in_pdf)
    ->ArgsProduct({{2000, 34000}, {0, 1, 2}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseManualTime();
BENCHMARK(anteprima_dell_ultima)
    ->ArgsProduct({{2000, 34000}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->UseManualTime();

}  // namespace
