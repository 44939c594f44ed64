// A whole 15 by 15 crossword laid by a click on the form, from a click to the idle form again.
#include <benchmark/benchmark.h>
#include <filesystem>

#include <QApplication>

#include "app/dialoghi_qt.h"
#include "app/form1.h"
#include "app/stile.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scrivania.h"

namespace {

void genera(benchmark::State& stato, bool lotto) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int argc = 1;
    char nome[] = "bench";
    char* argv[] = {nome, nullptr};
    const QApplication applicazione(argc, argv);
    app::applica_stile(*qApp);
    platform::App().Path = SUITE_DIR "/cruciverba";
    const platform::Ripristina desktop(platform::scrivania());
    platform::scrivania().risponde = [&stato](const platform::Messaggio& m) {
        stato.SkipWithError(m.testo.toUtf8().constData());
        return platform::vbOK;
    };
    app::DialoghiQt dialoghi;
    app::Form1 form1(dialoghi);
    form1.Form_Load();
    form1.show();
    if (lotto) form1.Image10_Click();
    form1.Combo1->set_ListIndex(form1.Combo1->count() - 1);
    form1.Combo2->set_ListIndex(form1.Combo2->count() - 1);
    QApplication::processEvents();
    for ([[maybe_unused]] auto _ : stato) {
        (lotto ? form1.cmdstat2 : form1.cmdstat)->click();
        stato.PauseTiming();
        if (form1.sessione.matrice()(0, 0) == 0) stato.SkipWithError("nothing was laid");
        form1.sessione.svuota();
        QApplication::processEvents();
        stato.ResumeTiming();
    }
    form1.close();
    std::filesystem::remove(SUITE_DIR "/cruciverba/mstat.dat");
}

void finestra_15x15_superenalotto(benchmark::State& stato) {
    genera(stato, false);
}
BENCHMARK(finestra_15x15_superenalotto)->Unit(benchmark::kMillisecond)->UseRealTime();

void finestra_15x15_lotto(benchmark::State& stato) {
    genera(stato, true);
}
BENCHMARK(finestra_15x15_lotto)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
