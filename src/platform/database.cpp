#include "platform/database.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "platform/blocco.h"
#include "platform/disk.h"
#include "platform/file.h"
#include "platform/jet.h"
#include "platform/query.h"
#include "platform/runtime.h"
#include "platform/sqlite.h"

namespace platform {

using macchina::Guasto;

namespace interno {

/// What the handles of one opening share.
struct Aperto {
    std::string file;
    bool jet = false;
    File blocco;           ///< held by an exclusive opening
    bool perduto = false;  ///< once found damaged, the file is not tried again
    std::shared_ptr<bool> aperto = std::make_shared<bool>(true);
    std::map<std::string, std::shared_ptr<const Tabella>> tabelle;
};

}  // namespace interno

namespace {

int da_guasto(Guasto guasto) {
    switch (guasto) {
        case Guasto::assente:
        case Guasto::percorso:
            return errore_file_assente;
        case Guasto::permesso:
            return errore_permesso;
        case Guasto::occupato:
            return errore_esclusivo;
        default:
            return errore_disco;
    }
}

/// Opens the file and checks that nobody holds it for himself; 0 or the error's number.
int prova(const std::string& nome, bool esclusivo, File& file) {
    if (!file.apri(nome, File::Modo::leggi)) return da_guasto(file.guasto());
    macchina::Voce voce;
    int errore = 0;
    if (!file.guarda(voce) || !voce.file()) {
        errore = errore_file_assente;
    } else if (in_mano_altrui(file, voce.byte, esclusivo)) {
        errore = errore_esclusivo;
    }
    if (errore != 0) file.chiudi();
    return errore;
}

/// The name with its ending replaced.
std::string gemello(const std::string& nome) {
    const std::size_t punto = nome.rfind('.');
    const std::size_t barra = nome.rfind('/');
    const bool finale = punto != std::string::npos && (barra == std::string::npos || punto > barra);
    return (finale ? nome.substr(0, punto) : nome) + ".sqlite";
}

/// Rows of the query's records in their order; 0 or the error's number.
int esegui(const Query& query, const Tabella& tabella, std::vector<std::uint32_t>& righe) {
    const auto ordine = tabella.colonna(query.ordine);
    const auto campo = query.campo.empty() ? ordine : tabella.colonna(query.campo);
    if (!ordine || !campo) return errore_campo_sconosciuto;
    righe = tabella.in_ordine(*ordine);
    if (query.campo.empty()) return 0;
    const bool di_testo = tabella.tipo(*campo) == Tabella::Tipo::testo;
    const auto* testo = std::get_if<std::string>(&query.valore);
    if (di_testo != (testo != nullptr) || tabella.tipo(*campo) == Tabella::Tipo::data)
        return errore_tipi;
    // Texts are compared without case, so that several stored ones can be meant.
    std::vector<bool> cercati;
    if (testo != nullptr) {
        for (const std::string& t : tabella.testi(*campo))
            cercati.push_back(LCase(t) == LCase(*testo));
    }
    const auto* numero = std::get_if<std::int32_t>(&query.valore);
    std::erase_if(righe, [&](std::uint32_t riga) {
        if (tabella.nullo(*campo, riga)) return true;
        const std::int32_t grezzo = tabella.grezzo(*campo, riga);
        return di_testo ? !cercati[static_cast<std::size_t>(grezzo)] : grezzo != *numero;
    });
    return 0;
}

}  // namespace

Err OpenDatabase(const std::string& nome, bool esclusivo, bool /*sola_lettura*/,
                 Database& destinazione) {
    auto aperto = std::make_shared<interno::Aperto>();
    aperto->file = nome_su_disco(nome);
    aperto->jet = true;
    int errore = prova(aperto->file, esclusivo, aperto->blocco);
    if (errore == errore_file_assente) {
        aperto->file = nome_su_disco(gemello(nome));
        aperto->jet = false;
        errore = prova(aperto->file, esclusivo, aperto->blocco);
    }
    if (errore != 0) return {errore};
    if (!esclusivo) aperto->blocco.chiudi();
    errore = aperto->jet ? verifica_jet(aperto->file) : verifica_sqlite(aperto->file);
    if (errore == 0) destinazione.aperto_ = std::move(aperto);
    return {errore};
}

int Database::tabella(std::string_view nome, std::shared_ptr<const Tabella>& destinazione) {
    const std::string chiave = LCase(nome);
    const auto letta = aperto_->tabelle.find(chiave);
    if (letta != aperto_->tabelle.end()) {
        destinazione = letta->second;
        return 0;
    }
    if (aperto_->perduto) return errore_danneggiato;
    auto nuova = std::make_shared<Tabella>();
    const int errore = aperto_->jet ? leggi_jet(aperto_->file, nome, *nuova)
                                    : leggi_sqlite(aperto_->file, nome, *nuova);
    aperto_->perduto = errore == errore_danneggiato;
    if (errore == 0) {
        destinazione = nuova;
        aperto_->tabelle.emplace(chiave, std::move(nuova));
    }
    return errore;
}

Err Database::OpenRecordset(std::string_view sorgente, Recordset& destinazione) {
    if (!aperto_) return {errore_oggetto_assente};
    if (!*aperto_->aperto) return {errore_chiuso};
    auto stato = std::make_shared<interno::Stato>();
    Query query;
    query.tabella = Trim(sorgente);
    stato->query = e_una_query(sorgente);
    if (stato->query) {
        const auto letta = analizza_query(sorgente);
        if (!letta) return {errore_sintassi};
        query = *letta;
    }
    if (const int errore = tabella(query.tabella, stato->tabella); errore != 0) return {errore};
    if (stato->query) {
        if (const int errore = esegui(query, *stato->tabella, stato->ordine); errore != 0)
            return {errore};
    } else {
        stato->ordine.resize(stato->tabella->righe());
        std::iota(stato->ordine.begin(), stato->ordine.end(), 0U);
    }
    stato->database_aperto = aperto_->aperto;
    stato->vai(0);
    destinazione = Recordset(std::move(stato));
    return {};
}

Err Database::Close() {
    if (!aperto_) return {errore_oggetto_assente};
    if (!*aperto_->aperto) return {errore_chiuso};
    *aperto_->aperto = false;
    aperto_->tabelle.clear();
    aperto_->blocco.chiudi();
    return {};
}

}  // namespace platform
