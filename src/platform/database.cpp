#include "platform/database.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "platform/blocco.h"
#include "platform/disk.h"
#include "platform/file.h"
#include "platform/jet.h"
#include "platform/runtime.h"
#include "platform/sqlite.h"

namespace platform {

using macchina::Guasto;

namespace interno {

/// One of the two engines: it checks a file, and reads a whole table of it.
struct Motore {
    int (*verifica)(const std::string& file);
    int (*leggi)(const std::string& file, std::string_view nome, Table& tabella);
};
inline constexpr Motore motore_jet{verifica_jet, leggi_jet};
inline constexpr Motore motore_sqlite{verifica_sqlite, leggi_sqlite};

/// What the handles of one opening share.
struct Aperto {
    std::string file;
    const Motore* motore = &motore_jet;
    File blocco;           ///< held by an exclusive opening
    bool perduto = false;  ///< once found damaged, the file is not tried again
    bool in_vece = false;  ///< of a Jet file that is there and that nothing reads
    std::shared_ptr<bool> aperto = std::make_shared<bool>(true);
    std::map<std::string, std::shared_ptr<const Table>> tabelle;
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

/// True since an opening that found no reader of Jet files, or one without the machine's driver.
bool nessuno_legge_jet = false;

/// Opens the file for its engine, which checks it; 0 or the error's number.
int apri_file(interno::Aperto& aperto, bool esclusivo) {
    if (const int errore = prova(aperto.file, esclusivo, aperto.blocco); errore != 0) return errore;
    if (!esclusivo) aperto.blocco.chiudi();
    const int errore = aperto.motore->verifica(aperto.file);
    if (aperto.motore == &interno::motore_jet) nessuno_legge_jet = errore == errore_lettore_assente;
    return errore;
}

/// The name with its ending replaced.
std::string gemello(const std::string& nome) {
    const std::size_t punto = nome.rfind('.');
    const std::size_t barra = nome.rfind('/');
    const bool finale = punto != std::string::npos && (barra == std::string::npos || punto > barra);
    return (finale ? nome.substr(0, punto) : nome) + ".sqlite";
}

}  // namespace

std::string file_del_database(const std::string& nome) {
    const std::string jet = nome_su_disco(nome);
    const std::string altro = nome_su_disco(gemello(nome));
    return esiste_file(jet) && !(nessuno_legge_jet && esiste_file(altro)) ? jet : altro;
}

Err OpenDatabase(const std::string& nome, bool esclusivo, bool /*sola_lettura*/,
                 Database& destinazione) {
    auto aperto = std::make_shared<interno::Aperto>();
    aperto->file = nome_su_disco(nome);
    int errore = apri_file(*aperto, esclusivo);
    aperto->in_vece = errore == errore_lettore_assente && esiste_file(gemello(nome));
    if (errore == errore_file_assente || aperto->in_vece) {
        aperto->file = nome_su_disco(gemello(nome));
        aperto->motore = &interno::motore_sqlite;
        errore = apri_file(*aperto, esclusivo);
    }
    if (errore == 0) destinazione.aperto_ = std::move(aperto);
    return {errore};
}

int Database::tabella(std::string_view nome, std::shared_ptr<const Table>& destinazione) {
    const std::string chiave = LCase(nome);
    const auto letta = aperto_->tabelle.find(chiave);
    if (letta != aperto_->tabelle.end()) {
        destinazione = letta->second;
        return 0;
    }
    if (aperto_->perduto) return errore_danneggiato;
    auto nuova = std::make_shared<Table>();
    const int errore = aperto_->motore->leggi(aperto_->file, nome, *nuova);
    aperto_->perduto = errore == errore_danneggiato;
    if (errore == 0) {
        destinazione = nuova;
        aperto_->tabelle.emplace(chiave, std::move(nuova));
    }
    return errore;
}

Err Database::OpenRecordset(std::string_view nome, Recordset& destinazione) {
    return apri(Trim(nome), nullptr, destinazione);
}

Err Database::OpenRecordset(const Query& query, Recordset& destinazione) {
    return apri(query.tabella, &query, destinazione);
}

Err Database::apri(std::string_view nome, const Query* query, Recordset& destinazione) {
    if (!aperto_) return {errore_oggetto_assente};
    if (!*aperto_->aperto) return {errore_chiuso};
    auto stato = std::make_shared<interno::Stato>();
    stato->query = query != nullptr;
    int errore = tabella(nome, stato->tabella);
    if (errore == 0 && query != nullptr) errore = esegui(*query, *stato->tabella, stato->ordine);
    if (errore != 0) return {errore};
    if (query == nullptr) {
        stato->ordine.resize(stato->tabella->righe());
        std::iota(stato->ordine.begin(), stato->ordine.end(), 0U);
    }
    stato->database_aperto = aperto_->aperto;
    stato->vai(0);
    destinazione = Recordset(std::move(stato));
    return {};
}

bool Database::in_vece() const {
    return aperto_ && aperto_->in_vece;
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
