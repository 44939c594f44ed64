#include "viewer/importo.h"

#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/text_file.h"

namespace viewer {

namespace {

std::string nome_file(const std::string& cartella) {
    return cartella + "/cst";
}

}  // namespace

Importo leggi_cst(const std::string& cartella, Lettore lettore) {
    const Importo predefinito =
        lettore == Lettore::importo ? Importo{"950", "Lire"} : Importo{"0,50", "Euro"};
    if (!platform::esiste_file(nome_file(cartella))) {
        if (lettore != Lettore::annulla) scrivi_cst(cartella, predefinito);
        return predefinito;
    }
    Importo letto;
    platform::TextReader file(nome_file(cartella), platform::TextReader::testa);
    file.campo(letto.prezzo);
    file.campo(letto.valuta);
    return letto.prezzo.empty() ? predefinito : letto;
}

bool scrivi_cst(const std::string& cartella, const Importo& importo) {
    platform::Record riga;
    riga.scrivi(importo.prezzo).scrivi(importo.valuta);
    return platform::sostituisci(nome_file(cartella), riga.testo()) == platform::Esito::ok;
}

double valore_prezzo(const std::string& testo) {
    return platform::Val(platform::Replace(testo, ',', '.'));
}

Totale calcola_totale(std::int32_t colonne, const std::string& prezzo, const std::string& quote) {
    const double t = colonne * valore_prezzo(prezzo);
    Totale totale;
    totale.formattato = platform::Format(t, platform::Modello::decimali);
    totale.semplice = platform::CStr(t);
    const double parti = platform::Val(quote);
    if (parti != 0) totale.quota = platform::Format(t / parti, platform::Modello::decimali);
    return totale;
}

std::optional<std::string> quota_da_testo(const std::string& totale, const std::string& quote) {
    const double parti = platform::Val(quote);
    if (parti == 0) return std::nullopt;
    return platform::Format(valore_prezzo(totale) / parti, platform::Modello::decimali_zero);
}

bool tasto_prezzo(int codice) {
    return codice < 32 || codice == ',' || (codice >= '0' && codice <= '9') || codice >= 256;
}

}  // namespace viewer
