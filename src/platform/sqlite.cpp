#include "platform/sqlite.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <limits>
#include <memory>
#include <optional>
#include <sqlite3.h>

#include "platform/disk.h"
#include "platform/file.h"
#include "platform/macchina.h"
#include "platform/recordset.h"
#include "platform/runtime.h"

namespace platform {

namespace {

/// Another program's commit is waited for; one that writes all the time is not.
constexpr int attesa_blocco_ms = 500;
/// A file that keeps the engine busy for so long is damaged. The work is counted, not the time: a
/// slow disk does no harm.
constexpr int istruzioni_per_controllo = 20000;
constexpr int controlli_massimi = 10000;
constexpr std::clock_t lavoro_massimo = 5 * CLOCKS_PER_SEC;
/// No text of an archive is longer, and no table wider; a damaged one may claim to be.
constexpr int lunghezza_massima = 65536;
constexpr int colonne_massime = 256;

int da_sqlite(int esito) {
    switch (esito & 0xff) {
        case SQLITE_OK:
        case SQLITE_DONE:
        case SQLITE_ROW:
            return 0;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return errore_esclusivo;
        case SQLITE_PERM:
        case SQLITE_AUTH:
        case SQLITE_CANTOPEN:
        case SQLITE_READONLY:
            return errore_permesso;
        case SQLITE_NOTADB:
            return errore_formato;
        case SQLITE_IOERR:
            return errore_disco;
        default:
            return errore_danneggiato;
    }
}

/// What one reading has cost so far.
struct Lavoro {
    int controlli = 0;
    std::clock_t inizio = std::clock();
};

int troppo(void* lavoro) {
    auto& l = *static_cast<Lavoro*>(lavoro);
    return ++l.controlli > controlli_massimi || std::clock() - l.inizio > lavoro_massimo ? 1 : 0;
}

/// An open file for the time of one reading.
class Apertura {
public:
    explicit Apertura(const std::string& file) {
        // Open for writing where that is allowed: what a killed writer left half done can only then
        // be undone. Statements that write are refused all the same.
        esito_ = ::sqlite3_open_v2(file.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                                   nullptr);
        ::sqlite3_busy_timeout(db_, attesa_blocco_ms);
        ::sqlite3_limit(db_, SQLITE_LIMIT_LENGTH, lunghezza_massima);
        ::sqlite3_limit(db_, SQLITE_LIMIT_COLUMN, colonne_massime);
        ::sqlite3_progress_handler(db_, istruzioni_per_controllo, troppo, &lavoro_);
        for (const char* comando : {"PRAGMA query_only=ON", "PRAGMA trusted_schema=OFF",
                                    "PRAGMA cell_size_check=ON", "PRAGMA mmap_size=0"}) {
            if (esito_ == SQLITE_OK)
                esito_ = ::sqlite3_exec(db_, comando, nullptr, nullptr, nullptr);
        }
    }
    Apertura(const Apertura&) = delete;
    Apertura& operator=(const Apertura&) = delete;
    ~Apertura() { ::sqlite3_close_v2(db_); }

    [[nodiscard]] int esito() const { return esito_; }
    [[nodiscard]] sqlite3* db() const { return db_; }

private:
    sqlite3* db_ = nullptr;
    int esito_ = SQLITE_OK;
    Lavoro lavoro_;
};

struct Chiudi {
    void operator()(sqlite3_stmt* istruzione) const { ::sqlite3_finalize(istruzione); }
};
using Istruzione = std::unique_ptr<sqlite3_stmt, Chiudi>;

int prepara(const Apertura& apertura, const std::string& testo, Istruzione& istruzione) {
    sqlite3_stmt* fatta = nullptr;
    const int esito = ::sqlite3_prepare_v2(apertura.db(), testo.c_str(), -1, &fatta, nullptr);
    istruzione.reset(fatta);
    return esito;
}

std::string_view testo_di(sqlite3_stmt* istruzione, int colonna) {
    const auto* testo = reinterpret_cast<const char*>(::sqlite3_column_text(istruzione, colonna));
    const int byte = ::sqlite3_column_bytes(istruzione, colonna);
    return testo != nullptr ? std::string_view(testo, static_cast<std::size_t>(byte)) : "";
}

/// The table's name as the file spells it; 0 or the error's number.
int trova(const Apertura& apertura, std::string_view cercata, std::string& nome) {
    Istruzione elenco;
    // What has no page of its own is computed by an extension.
    int esito = prepara(apertura,
                        "SELECT name FROM sqlite_master WHERE type='table' AND rootpage>0", elenco);
    while (esito == SQLITE_OK || esito == SQLITE_ROW) {
        esito = ::sqlite3_step(elenco.get());
        if (esito == SQLITE_ROW && LCase(testo_di(elenco.get(), 0)) == LCase(cercata)) {
            nome = testo_di(elenco.get(), 0);
            return 0;
        }
        if (esito == SQLITE_DONE) return errore_tabella_assente;
    }
    return da_sqlite(esito);
}

std::string quotato(std::string_view nome) {
    std::string testo = "\"";
    for (const char c : nome) testo.append(c == '"' ? 2 : 1, c);
    return testo + '"';
}

/// Tells whether all columns stand in the file; a computed one can make any size out of nothing.
int verifica_colonne(const Apertura& apertura, const std::string& nome) {
    constexpr int nascosta = 6;
    Istruzione elenco;
    int esito = prepara(apertura, "PRAGMA table_xinfo(" + quotato(nome) + ")", elenco);
    if (esito != SQLITE_OK) return da_sqlite(esito);
    while ((esito = ::sqlite3_step(elenco.get())) == SQLITE_ROW) {
        if (::sqlite3_column_int(elenco.get(), nascosta) != 0) return errore_danneggiato;
    }
    return da_sqlite(esito);
}

/// Type by the declaration, or by the first value that is not null.
Table::Tipo tipo_di(sqlite3_stmt* riga, int colonna, bool dichiarata_data) {
    if (::sqlite3_column_type(riga, colonna) != SQLITE_TEXT) return Table::Tipo::intero;
    return dichiarata_data || da_iso(testo_di(riga, colonna)) ? Table::Tipo::data
                                                              : Table::Tipo::testo;
}

/// The days of a date column, which draws of one day repeat.
class Giorni {
public:
    std::optional<std::int32_t> di(std::string_view testo) {
        if (testo != testo_) {
            const auto data = da_iso(testo);
            giorni_ = data ? std::optional(seriale(*data)) : std::nullopt;
            testo_ = testo;
        }
        return giorni_;
    }

private:
    std::string testo_;
    std::optional<std::int32_t> giorni_;
};

/// A whole number of 32 bits, others rounded to one.
std::optional<std::int32_t> numero_di(sqlite3_stmt* riga, int colonna, int tipo) {
    if (tipo == SQLITE_TEXT) return std::nullopt;
    const std::int64_t intero =
        tipo == SQLITE_INTEGER
            ? ::sqlite3_column_int64(riga, colonna)
            : static_cast<std::int64_t>(
                  std::clamp(std::nearbyint(::sqlite3_column_double(riga, colonna)), -1e10, 1e10));
    const bool sta = intero >= std::numeric_limits<std::int32_t>::min() &&
                     intero <= std::numeric_limits<std::int32_t>::max();
    return sta ? std::optional(static_cast<std::int32_t>(intero)) : std::nullopt;
}

/// A value that does not fit its column's type counts as null.
void accoda(Table& tabella, std::size_t i, sqlite3_stmt* riga, int tipo, Giorni& giorni) {
    const int colonna = static_cast<int>(i) + 1;
    if (tipo == SQLITE_NULL || tipo == SQLITE_BLOB) return tabella.accoda_nullo(i);
    if (tabella.tipo(i) == Table::Tipo::testo) return tabella.accoda(i, testo_di(riga, colonna));
    const auto valore = tabella.tipo(i) == Table::Tipo::data ? giorni.di(testo_di(riga, colonna))
                                                             : numero_di(riga, colonna, tipo);
    return valore ? tabella.accoda(i, *valore) : tabella.accoda_nullo(i);
}

int leggi_righe(sqlite3_stmt* righe, Table& tabella) {
    // The row's own number comes first, then the columns.
    const int colonne = ::sqlite3_column_count(righe) - 1;
    std::vector<bool> date;
    std::vector<bool> decise(static_cast<std::size_t>(colonne));
    for (int c = 1; c <= colonne; ++c) {
        const char* dichiarato = ::sqlite3_column_decltype(righe, c);
        date.push_back(dichiarato != nullptr && LCase(dichiarato).starts_with("date"));
        tabella.aggiungi_colonna(::sqlite3_column_name(righe, c),
                                 date.back() ? Table::Tipo::data : Table::Tipo::intero);
    }
    std::vector<Giorni> giorni(decise.size());
    std::int64_t ultima = 0;
    int esito = SQLITE_ROW;
    for (bool prima = true; (esito = ::sqlite3_step(righe)) == SQLITE_ROW; prima = false) {
        // Damaged pages can lead round in circles; sound ones count up.
        const std::int64_t numero = ::sqlite3_column_int64(righe, 0);
        if (!prima && numero <= ultima) return errore_danneggiato;
        ultima = numero;
        for (int c = 1; c <= colonne; ++c) {
            const auto i = static_cast<std::size_t>(c - 1);
            const int tipo = ::sqlite3_column_type(righe, c);
            if (!decise[i] && tipo != SQLITE_NULL) {
                tabella.cambia_tipo(i, tipo_di(righe, c, date[i]));
                decise[i] = true;
            }
            accoda(tabella, i, righe, tipo, giorni[i]);
        }
        if (tabella.piena()) return errore_danneggiato;
    }
    return da_sqlite(esito);
}

/// Signature and size: for the library an empty file is a database, and a last page that is cut
/// short is one of zeros.
bool intestazione(const std::string& file) {
    constexpr std::string_view firma("SQLite format 3\0", 16);
    File aperto(file, File::Modo::leggi);
    if (!aperto.aperto()) return false;
    std::array<unsigned char, 18> testa{};
    const std::ptrdiff_t n = aperto.leggi(testa.data(), testa.size());
    // The largest page is told by a 1.
    const int scritta = testa[16] * 256 + testa[17];
    const std::int64_t pagina = scritta == 1 ? 65536 : scritta;
    return n == std::ssize(testa) && std::equal(firma.begin(), firma.end(), testa.begin()) &&
           pagina > 0 && dimensione_file(file).value_or(1) % pagina == 0;
}

}  // namespace

int verifica_sqlite(const std::string& file) {
    if (!intestazione(file)) return errore_formato;
    const Apertura apertura(file);
    if (apertura.esito() != SQLITE_OK) return da_sqlite(apertura.esito());
    // No table bears this name; all of the catalogue is read to find that out.
    std::string nome;
    const int errore = trova(apertura, "\x01", nome);
    return errore == errore_tabella_assente ? 0 : errore;
}

bool in_uso_altrui(const std::string& file) {
    const std::string nome = nome_su_disco(file);
    for (const std::string& base : {nome, macchina::percorso_reale(nome)}) {
        for (const char* coda : {"-wal", "-journal"}) {
            if (!base.empty() && macchina::c_e(base + coda)) return true;
        }
    }
    return false;
}

int leggi_sqlite(const std::string& file, std::string_view nome, Table& tabella) {
    if (!intestazione(file)) return errore_formato;
    const Apertura apertura(file);
    if (apertura.esito() != SQLITE_OK) return da_sqlite(apertura.esito());
    std::string trovato;
    if (const int errore = trova(apertura, nome, trovato); errore != 0) return errore;
    if (const int errore = verifica_colonne(apertura, trovato); errore != 0) return errore;
    Istruzione righe;
    const int esito = prepara(
        apertura, "SELECT _rowid_, * FROM " + quotato(trovato) + " ORDER BY _rowid_", righe);
    return esito == SQLITE_OK ? leggi_righe(righe.get(), tabella) : da_sqlite(esito);
}

}  // namespace platform
