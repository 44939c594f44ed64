#include "stampa/avvio.h"

#include <QElapsedTimer>
#include <QThread>

#include "platform/application.h"
#include "platform/comando.h"
#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/shell.h"

namespace schedine {

namespace {

bool e_una_suite(const std::string& cartella) {
    return platform::cartella_scrivibile(cartella + "/cruciverba");
}

}  // namespace

std::string radice_suite(const std::string& comando, const std::string& cartella_eseguibile) {
    const std::string cartella = platform::cartella_del_comando(comando);
    if (!cartella.empty() && e_una_suite(cartella)) return cartella + "/";
    if (e_una_suite(cartella_eseguibile)) return cartella_eseguibile + "/";
    return platform::radice(
        platform::trova_cartella(cartella_eseguibile, cartella_eseguibile + "/../share/tabellino"));
}

void mostra_l_altra(int attesa) {
    // One that was started at the same time has its window in a moment.
    constexpr int pausa = 100;
    QElapsedTimer tempo;
    tempo.start();
    while (!platform::AppActivate("stampa")) {
        if (tempo.elapsed() >= attesa) {
            platform::MsgBox(nullptr,
                             {"Il programma delle schedine è già aperto.", platform::Pulsanti::ok,
                              "Stampa", platform::Icona::informazione});
            return;
        }
        QThread::msleep(pausa);
    }
}

}  // namespace schedine
