// One-line files by which programs of the suite name things to each other, and every way in which
// a text file can be read.
#include <array>

#include "fuzz/ingresso.h"
#include "platform/disk.h"
#include "platform/text_file.h"
#include "systems/elenco.h"

namespace {

void leggi_in_ogni_modo(const std::string& file, std::size_t quanti) {
    platform::TextReader lettore(file);
    std::string testo;
    double numero = 0;
    std::int32_t lungo = 0;
    std::uint8_t corto = 0;
    std::array<std::int16_t, 6> molti{};
    std::size_t passi = 0;
    while (!lettore.eof()) {
        const std::int64_t prima = lettore.seek();
        switch (passi++ % 6) {
            case 0:
                lettore.campo(testo);
                break;
            case 1:
                lettore.numero(numero);
                break;
            case 2:
                lettore.intero(lungo);
                break;
            case 3:
                lettore.intero(corto);
                break;
            case 4:
                lettore.interi(molti);
                break;
            default:
                lettore.riga(testo);
        }
        // Every reading takes something, or a loop over the file would never end.
        fuzz::esigi(lettore.seek() > prima);
    }
    fuzz::esigi(lettore.seek() == static_cast<std::int64_t>(quanti) + 1);
    fuzz::esigi(!lettore.campo(testo) && !lettore.riga(testo) && !lettore.salta_riga());
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso open(suite.radice() + "open");
    static fuzz::Ingresso trans(suite.radice() + "trans");
    const std::string& file = open.riempi(dati, quanti);
    leggi_in_ogni_modo(file, quanti);
    platform::TextReader lettore(file);
    std::string nome;
    if (!lettore.campo(nome)) return 0;
    // A name that can be a system's is handed on as it stands.
    const bool semplice =
        nome.find_first_of("\"\r\n") == std::string::npos &&
        nome.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789@") == std::string::npos;
    if (!semplice || !systems::nome_ammesso(nome)) return 0;
    platform::TextReader riletto(
        trans.riempi(platform::Record().scrivi("cruciverba").scrivi(nome).testo()));
    std::string primo;
    std::string secondo;
    fuzz::esigi(riletto.campo(primo) && riletto.campo(secondo) && secondo == nome);
    return 0;
}
