// Developments as the index of the viewer reads them: by lines.
#include "fuzz/ingresso.h"
#include "viewer/indice.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("x.col"));
    const std::string& file = ingresso.riempi(dati, quanti);

    viewer::Indice indice;
    indice.costruisci(file, 50, [](std::int32_t) {});
    fuzz::esigi(indice.pagine() >= 1 && indice.pagine() <= 50);
    for (std::int32_t p = 1; p <= static_cast<std::int32_t>(indice.pagine()); ++p) {
        const std::int64_t posizione = indice.posizione(p);
        fuzz::esigi(posizione >= 1 && posizione <= static_cast<std::int64_t>(quanti) + 1);
    }
    return 0;
}
