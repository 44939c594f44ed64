// Counts, develops, checks and exports systems without a window.
#include <cstdio>
#include <optional>

#include <QGuiApplication>

#include "comune/testo.h"
#include "platform/application.h"
#include "platform/comando.h"
#include "platform/terminale.h"
#include "sistema/comando.h"
#include "sistema/stampa.h"

int main(int argc, char** argv) {
    platform::ascolta_interruzione();
    platform::App().Major = TABELLINO_MAJOR;
    platform::App().Minor = TABELLINO_MINOR;
    platform::App().Revision = TABELLINO_REVISION;
    const std::vector<std::string> parole = platform::parole(argc, argv);
    sistema::Mezzi ambiente;
    ambiente.programma = [] {
        const std::string eseguibile = platform::cartella_eseguibile();
        return platform::trova_cartella(eseguibile, eseguibile + "/../share/tabellino");
    };
    ambiente.uscita = suite::stampa;
    ambiente.errori = [](std::string_view testo) {
        // What was said before stands before it.
        std::fflush(stdout);
        std::fwrite(testo.data(), 1, testo.size(), stderr);
    };
    ambiente.fermato = [] { return platform::interrotto(); };
    // Only the page needs Qt, and no screen.
    std::optional<QGuiApplication> qt;
    ambiente.stampa = [&](const printing::Prospetto& prospetto, const std::string& pdf) {
        if (!qt) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
            // What became of the page the command tells itself.
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
            qt.emplace(argc, argv);
        }
        return sistema::stampa_in_pdf(prospetto, pdf);
    };
    const int codice = sistema::comando(parole, ambiente);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        suite::lamenta("sistema", "l'uscita non si può scrivere");
        return sistema::non_riuscito;
    }
    return codice;
}
