#include "platform/file_nuovo.h"

#include <utility>

namespace platform {

FileNuovo::FileNuovo(std::string nome) : nome_(std::move(nome)), lavoro_(cartella_di(nome_)) {
    lavoro_.file().chiudi();
    // Known before the work is done rather than after it.
    esito_ = esiste_cartella(nome_) ? Esito::errore : lavoro_.esito();
}

void FileNuovo::scrivi(std::string_view dati) {
    constexpr std::size_t blocco = std::size_t{1} << 18;
    attesa_ += dati;
    byte_ += static_cast<std::int64_t>(dati.size());
    if (attesa_.size() >= blocco) scarica();
}

void FileNuovo::scarica() {
    if (esito_ == Esito::ok) esito_ = aggiungi(lavoro_.nome(), attesa_);
    attesa_.clear();
}

Esito FileNuovo::pubblica() {
    scarica();
    if (esito_ == Esito::ok) esito_ = lavoro_.pubblica(nome_, byte_);
    return esito_;
}

std::string perche_non_si_scrive(const std::string& nome, Esito esito) {
    const std::string cartella = cartella_di(nome);
    if (esito == Esito::disco_pieno) return "sul disco non c'è più posto";
    if (!esiste_cartella(cartella)) return "la cartella non esiste";
    if (esiste_cartella(nome)) return "al suo posto c'è una cartella con lo stesso nome";
    if (!cartella_scrivibile(cartella)) return "in questa cartella non si può scrivere";
    return "il disco non lo ha accettato";
}

}  // namespace platform
