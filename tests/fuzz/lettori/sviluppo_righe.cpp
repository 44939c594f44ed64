// Developments as the index of the viewer and the removal of repetitions read them: by lines.
#include <set>

#include "development/ripetizioni.h"
#include "fuzz/ingresso.h"
#include "platform/disk.h"
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

    const std::string unici = suite.file("unici.col");
    const auto tolte = development::togli_ripetizioni(file, unici, {});
    fuzz::esigi(tolte.has_value());
    const std::string rimasto = platform::leggi_tutto(unici).value_or("");
    fuzz::esigi(tolte->byte == static_cast<std::int64_t>(rimasto.size()));
    std::set<std::string_view> viste;
    std::string_view resto = rimasto;
    while (!resto.empty()) {
        const std::string_view riga = resto.substr(0, resto.find('\n') + 1);
        fuzz::esigi(viste.insert(riga).second);
        resto.remove_prefix(riga.size());
    }
    fuzz::esigi(static_cast<std::size_t>(tolte->combinazioni) == viste.size());
    return 0;
}
