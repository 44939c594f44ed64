// The program's own summary page, as a PDF file.
#include <array>
#include <chrono>
#include <ctime>

#include "platform/application.h"
#include "platform/disk.h"
#include "platform/macchina.h"
#include "sistema/verbi.h"

namespace sistema {

namespace {

/// "31/01/2024".
std::string oggi() {
    const std::time_t adesso =
        std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    const auto ora = platform::macchina::ora_locale(adesso);
    std::array<char, 16> testo{};
    if (ora) std::strftime(testo.data(), testo.size(), "%d/%m/%Y", &*ora);
    return testo.data();
}

}  // namespace

std::string prospetto(const suite::Parole& parole, Contesto& contesto, Fare& fare) {
    Destinazione dove;
    if (std::string errore = dove.leggi(parole, contesto, true); !errore.empty()) return errore;
    fare = [dove, &contesto](Aperto& aperto) {
        const std::string file = dove.per(aperto, "-prospetto.pdf");
        std::string errore = Destinazione::vietata(aperto, file);
        if (errore.empty()) {
            const printing::Testata testata{platform::App().versione(), aperto.nome(), oggi()};
            errore =
                contesto.ambiente.stampa(printing::prospetto_di(aperto.sessione(), testata), file);
        }
        if (!errore.empty()) return Risposta{"", "", errore};
        suite::Json json;
        json.voce("scritto").testo(file);
        return Risposta{
            titolo(aperto) + ": il prospetto è in " + platform::da_mostrare(file) + "\n",
            json.uscita(), ""};
    };
    return {};
}

}  // namespace sistema
