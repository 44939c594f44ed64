#include "platform/sqlite_scrivi.h"

#include <cstdio>
#include <memory>
#include <sqlite3.h>

#include "platform/lavoro.h"
#include "platform/sqlite.h"

namespace platform {

namespace {

struct Chiudi {
    void operator()(sqlite3* db) const { ::sqlite3_close_v2(db); }
    void operator()(sqlite3_stmt* istruzione) const { ::sqlite3_finalize(istruzione); }
};
using Connessione = std::unique_ptr<sqlite3, Chiudi>;
using Istruzione = std::unique_ptr<sqlite3_stmt, Chiudi>;

bool esegui(sqlite3* db, const std::string& comando) {
    return ::sqlite3_exec(db, comando.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

std::string quotato(const std::string& nome) {
    std::string testo = "\"";
    for (const char c : nome) testo.append(c == '"' ? 2 : 1, c);
    return testo + '"';
}

const char* dichiarato(Table::Tipo tipo) {
    switch (tipo) {
        case Table::Tipo::testo:
            return "TEXT";
        case Table::Tipo::data:
            return "DATE";
        default:
            return "INTEGER";
    }
}

void lega_valore(sqlite3_stmt* riga, const Table& t, std::size_t colonna, std::size_t quale) {
    const int posto = static_cast<int>(colonna) + 1;
    if (t.nullo(colonna, quale)) {
        ::sqlite3_bind_null(riga, posto);
        return;
    }
    const std::int32_t grezzo = t.grezzo(colonna, quale);
    if (t.tipo(colonna) == Table::Tipo::intero) {
        ::sqlite3_bind_int(riga, posto, grezzo);
        return;
    }
    std::string testo;
    if (t.tipo(colonna) == Table::Tipo::testo) {
        testo = t.testi(colonna)[static_cast<std::size_t>(grezzo)];
    } else {
        const Data d = da_seriale(grezzo);
        char iso[48];
        std::snprintf(iso, sizeof iso, "%04d-%02d-%02d", d.anno, d.mese, d.giorno);
        testo = iso;
    }
    ::sqlite3_bind_text(riga, posto, testo.c_str(), static_cast<int>(testo.size()),
                        SQLITE_TRANSIENT);
}

bool scrivi_foglio(sqlite3* db, const Foglio& foglio) {
    const Table& t = foglio.tabella;
    std::string colonne;
    std::string posti;
    for (std::size_t c = 0; c < t.colonne(); ++c) {
        colonne += (c == 0 ? "" : ",") + quotato(t.nome(c)) + ' ' + dichiarato(t.tipo(c));
        posti += c == 0 ? "?" : ",?";
    }
    const std::string nome = quotato(foglio.nome);
    if (!esegui(db, "CREATE TABLE " + nome + '(' + colonne + ')')) return false;
    sqlite3_stmt* fatta = nullptr;
    const std::string comando = "INSERT INTO " + nome + " VALUES(" + posti + ')';
    const int esito = ::sqlite3_prepare_v2(db, comando.c_str(), -1, &fatta, nullptr);
    const Istruzione riga(fatta);
    if (esito != SQLITE_OK) return false;
    for (std::size_t r = 0; r < t.righe(); ++r) {
        for (std::size_t c = 0; c < t.colonne(); ++c) lega_valore(riga.get(), t, c, r);
        if (::sqlite3_step(riga.get()) != SQLITE_DONE) return false;
        ::sqlite3_reset(riga.get());
    }
    return foglio.indice.empty() ||
           esegui(db, "CREATE INDEX " + quotato(foglio.nome + '_' + foglio.indice) + " ON " + nome +
                          '(' + quotato(foglio.indice) + ')');
}

bool scrivi_tutti(const std::string& file, const std::vector<Foglio>& fogli) {
    sqlite3* aperto = nullptr;
    const int esito = ::sqlite3_open_v2(
        file.c_str(), &aperto, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
        nullptr);
    Connessione db(aperto);
    if (esito != SQLITE_OK) return false;
    // Nobody knows this file before it is whole and synced, so it needs no journal.
    bool riuscito = esegui(aperto, "PRAGMA journal_mode=OFF") &&
                    esegui(aperto, "PRAGMA synchronous=OFF") && esegui(aperto, "BEGIN");
    for (const Foglio& foglio : fogli) riuscito = riuscito && scrivi_foglio(aperto, foglio);
    riuscito = riuscito && esegui(aperto, "COMMIT");
    return ::sqlite3_close(db.release()) == SQLITE_OK && riuscito;
}

}  // namespace

bool scrivi_sqlite(const std::string& file, const std::vector<Foglio>& fogli) {
    Lavoro lavoro(cartella_di(file));
    return lavoro.esito() == Esito::ok && scrivi_tutti(lavoro.nome(), fogli) &&
           !in_uso_altrui(file) &&
           lavoro.pubblica(file, dimensione_file(lavoro.nome()).value_or(-1)) == Esito::ok;
}

}  // namespace platform
