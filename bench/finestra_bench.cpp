// A step of the main form's edge, with a full crossword of 15 by 15: as a player drags it, in the
// proportions that are told and on a wide screen, where the crossword has the room beside the rest.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <ctime>

#include <QApplication>
#include <QWindow>

#include "app/dialoghi_qt.h"
#include "app/form1.h"
#include "app/stile.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scrivania.h"

namespace {

QApplication& applicazione() {
    static int quanti = 1;
    static char nome[] = "finestra_bench";
    static char* argomenti[] = {nome, nullptr};
    // Never deleted: what the forms keep would go first.
    static auto* qt = new QApplication(quanti, argomenti);
    return *qt;
}

void bordo(benchmark::State& stato, QSize da) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication& qt = applicazione();
    platform::App().Path = SUITE_DIR "/cruciverba";
    app::applica_stile(qt);
    platform::scrivania().risponde = [](const platform::Messaggio&) { return platform::vbOK; };
    app::DialoghiQt dialoghi;
    app::Form1 form1(dialoghi);
    form1.Form_Load();
    form1.sessione.dimensioni(15, 15);
    form1.show();
    QApplication::processEvents();
    int numero = 1;
    for (int i = 0; i < 15 * 15; ++i) {
        for (int prove = 0; prove < 90; ++prove) {
            numero = numero % 90 + 1;
            const systems::Cella cella{i % 15, i / 15};
            if (form1.sessione.posa(cella, numero) == systems::Posata::posata) break;
        }
    }
    const QSize base = da.isEmpty() ? form1.size() : da;
    int passo = 0;
    double peggiore = 0;
    for (auto _ : stato) {
        const std::clock_t prima = std::clock();
        // Up to half as large again and back, four pixels at a time.
        const int piu = 4 * (100 - std::abs(100 - passo++ % 200));
        form1.windowHandle()->resize(base.width() + piu,
                                     base.height() + piu * base.height() / base.width());
        QApplication::processEvents();
        peggiore = std::max(peggiore, static_cast<double>(std::clock() - prima) / CLOCKS_PER_SEC);
    }
    constexpr double ms = 1000;
    stato.counters["peggiore_ms"] = peggiore * ms;
    platform::scrivania().risponde = nullptr;
}
BENCHMARK_CAPTURE(bordo, detto, QSize())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bordo, largo, QSize(1500, 800))->Unit(benchmark::kMillisecond);

}  // namespace
