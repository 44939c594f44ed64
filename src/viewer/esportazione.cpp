#include "viewer/esportazione.h"

#include <array>

#include "check/dettaglio.h"
#include "platform/file_nuovo.h"
#include "platform/runtime.h"
#include "platform/text_file.h"
#include "viewer/indice.h"

namespace viewer {

namespace {

constexpr std::int32_t ogni = 4096;

void accoda_numeri(std::string& testo, std::span<const std::int16_t> numeri) {
    for (std::size_t i = 0; i < numeri.size(); ++i) {
        if (i > 0) testo += ' ';
        if (numeri[i] < 10) testo += ' ';
        testo += std::to_string(numeri[i]);
    }
    testo += '\n';
}

}  // namespace

Formato formato_di(const std::string& file) {
    return platform::LCase(file).ends_with(".txt") ? Formato::testo : Formato::csv;
}

void accoda_testata(std::string& testo, int numeri, int per_schedina) {
    testo += per_schedina > 0 ? "schedina,colonna" : "combinazione";
    for (int i = 1; i <= numeri; ++i) testo += ",n" + std::to_string(i);
    testo += '\n';
}

void accoda_riga(std::string& testo, std::int32_t n, std::span<const std::int16_t> numeri,
                 int per_schedina) {
    if (per_schedina > 0) {
        testo += std::to_string(check::scheda_di(n, per_schedina)) + ',' +
                 std::to_string((n - 1) % per_schedina + 1);
    } else {
        testo += std::to_string(n);
    }
    for (const std::int16_t numero : numeri) {
        testo += ',';
        testo += std::to_string(numero);
    }
    testo += '\n';
}

Esportazione esporta(const std::string& sviluppo, int numeri, const std::string& file,
                     const Continua& continua) {
    Esportazione fatta;
    const Formato formato = formato_di(file);
    platform::FileNuovo nuovo(file);
    platform::TextReader lettore(sviluppo);
    std::string testo;
    if (formato == Formato::csv) accoda_testata(testo, numeri);
    Riga riga{};
    std::array<std::int16_t, 6> colonna{};
    while (leggi_riga(lettore, numeri, riga)) {
        std::copy(riga.begin(), riga.end(), colonna.begin());
        const std::span<const std::int16_t> letti(colonna.data(), static_cast<std::size_t>(numeri));
        ++fatta.righe;
        if (formato == Formato::csv) {
            accoda_riga(testo, fatta.righe, letti);
        } else {
            accoda_numeri(testo, letti);
        }
        if (fatta.righe % ogni != 0) continue;
        nuovo.scrivi(testo);
        testo.clear();
        if (continua && !continua()) {
            fatta.esito = Esportato::interrotto;
            return fatta;
        }
    }
    if (fatta.righe == 0) return fatta;
    nuovo.scrivi(testo);
    fatta.disco = nuovo.pubblica();
    const bool scritto = fatta.disco == platform::Esito::ok;
    fatta.esito = scritto ? Esportato::completo : Esportato::non_scritto;
    return fatta;
}

}  // namespace viewer
