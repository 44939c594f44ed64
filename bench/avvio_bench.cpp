// From the start of the program to a main form that is painted, the splash clicked away as soon as
// it shows, beside a program of Qt's that only shows an empty window.
#include <benchmark/benchmark.h>
#include <cstdlib>

#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QProcess>
#include <QTimer>

#include "app/dialoghi_qt.h"
#include "app/form1.h"
#include "app/frmsplash.h"
#include "app/stile.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"
#include "platform/qt/scrivania.h"

namespace {

constexpr const char* parte = "TABELLINO_AVVIO";

/// Ends the process once the window was painted and all that waited was done.
class Dipinta : public QObject {
public:
    explicit Dipinta(QWidget* finestra) : QObject(finestra) { finestra->installEventFilter(this); }
    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() == QEvent::Paint) QTimer::singleShot(0, [] { std::_Exit(0); });
        return QObject::eventFilter(oggetto, evento);
    }
};

int vuota(int argc, char** argv) {
    QApplication qt(argc, argv);
    QMainWindow finestra;
    finestra.resize(784, 700);
    new Dipinta(&finestra);
    finestra.show();
    return QApplication::exec();
}

int tabellino(int argc, char** argv) {
    platform::App().Path = SUITE_DIR "/cruciverba";
    QApplication qt(argc, argv);
    app::applica_stile(qt);
    platform::scrivania().risponde = [](const platform::Messaggio&) { return platform::vbOK; };
    app::DialoghiQt dialoghi;
    app::Form1 form1(dialoghi);
    new Dipinta(&form1);
    auto* splash = new app::frmSplash([&form1] { form1.Form_Load(); }, [&form1] { form1.show(); },
                                      platform::scala(&form1));
    splash->show();
    QTimer::singleShot(0, splash, &app::frmSplash::Command1_Click);
    return QApplication::exec();
}

void avvia(benchmark::State& stato, const char* quale) {
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(parte, quale);
    if (!ambiente.contains("DISPLAY")) ambiente.insert("QT_QPA_PLATFORM", "offscreen");
    for (auto _ : stato) {
        QProcess processo;
        processo.setProcessEnvironment(ambiente);
        processo.start("/proc/self/exe", {});
        if (!processo.waitForFinished(10000)) stato.SkipWithError("it never painted");
    }
}
/// The children do the work: only the clock on the wall tells.
void volte(benchmark::internal::Benchmark* banco) {
    banco->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1)->Repetitions(15);
}
BENCHMARK_CAPTURE(avvia, finestra_vuota, "v")->Apply(volte);
BENCHMARK_CAPTURE(avvia, tabellino, "t")->Apply(volte);

}  // namespace

int main(int argc, char** argv) {
    // What is measured is this program again, each time from its beginning.
    if (const char* quale = std::getenv(parte)) {
        return quale[0] == 'v' ? vuota(argc, argv) : tabellino(argc, argv);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
