#include "help/guida.h"

#include "help/finestra.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/shell.h"
#include "platform/text_file.h"

namespace help {

void apri_guida() {
    const std::uint32_t finestra = trova_finestra(platform::EnumWindows(), "guida*", false);
    platform::ShowWindow(finestra);
    if (finestra != 0) {
        // By its title: the first window that begins so may be another program's.
        platform::AppActivate("guida");
    } else {
        avvia_guida("guida");
    }
}

void avvia_guida(const std::string& nome) {
    const std::string radice = platform::radice(platform::App().Path);
    platform::sostituisci(radice + "open", platform::Record().scrivi(nome).testo());
    platform::DoEvents();
    platform::Shell(radice + nome + ".exe");
}

void apri_sito() {
    // Until the program has an address of its own, the whole guide on one page stands for it.
    static const std::string sito = "guida.html";
    platform::apri_documento(platform::q(platform::radice(platform::App().Path) + sito));
}

}  // namespace help
