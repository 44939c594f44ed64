#include "support/archivio_prova.h"

#include "statistics/archivio_finto.h"
#include "support/archivio.h"
#include "support/cartella.h"

namespace support {

namespace {

std::string giorno_iso(const statistics::Data& d) {
    char iso[40];
    std::snprintf(iso, sizeof iso, "%04d-%02d-%02d", d.anno, d.mese, d.giorno);
    return iso;
}

std::string intero(const std::optional<std::int32_t>& valore) {
    return valore ? std::to_string(*valore) : "<null>";
}

Righe tabella(int quante, std::uint32_t seme, const char* ruota) {
    Righe righe;
    for (const Record& r : estrazioni(quante, seme)) {
        std::vector<std::string> riga{giorno_iso(r.data)};
        if (ruota != nullptr) riga.emplace_back(ruota);
        for (std::size_t i = 0; i < (ruota != nullptr ? 5U : 6U); ++i)
            riga.push_back(intero(r.numeri.at(i)));
        if (ruota == nullptr) {
            riga.push_back(intero(r.Jolly));
            riga.push_back(intero(r.superstar));
        }
        riga.push_back(std::to_string(righe.size() + 1));
        righe.push_back(riga);
    }
    return righe;
}

}  // namespace

std::string archivio_inventato(const Quante& quante, std::uint32_t seme) {
    Estrazioni e;
    e.archivios = tabella(quante.superenalotto, seme, nullptr);
    e.archivion = tabella(quante.nazionale, seme + 1, "NAZ");
    std::vector<Righe> ruote;
    for (const char* codice : {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE"}) {
        const auto altro = static_cast<std::uint32_t>(ruote.size());
        ruote.push_back(tabella(quante.lotto, seme + 2 + altro, codice));
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(quante.lotto); ++i) {
        for (const Righe& ruota : ruote) e.archivio.push_back(ruota[i]);
    }
    const Cartella cartella;
    scrivi_sqlite(cartella.file("a.sqlite"), e);
    return cartella.leggi("a.sqlite");
}

const std::string& archivio_di_prova() {
    static const std::string dati = archivio_inventato({}, 1);
    return dati;
}

void metti_archivio(const std::string& radice, const std::string& dati) {
    togli_archivio(radice);
    std::filesystem::create_directories(radice + "/archivio");
    scrivi_file(radice + "/archivio/drawit.sqlite", dati);
}

void togli_archivio(const std::string& radice) {
    std::error_code errore;
    std::filesystem::remove_all(radice + "/archivio", errore);
}

}  // namespace support
