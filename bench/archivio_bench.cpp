// Opening the archive and its table of 80,000 Lotto rows, through each engine. The SQLite file is
// made here; a Jet file of that size is taken from the variable TABELLINO_MDB, if it is set.
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <sqlite3.h>
#include <stdlib.h>
#include <string>

#include "platform/ambiente.h"
#include "platform/database.h"
#include "platform/jet.h"
#include "platform/runtime.h"

namespace {

constexpr int concorsi = 8000;

/// A file of invented draws, gone at the end of the run.
class Archivio {
public:
    Archivio() {
        std::string modello = SUITE_DIR "/benchXXXXXX";
        const char* fatta = mkdtemp(modello.data());
        cartella_ = fatta != nullptr ? modello : ".";
        sqlite3* db = nullptr;
        sqlite3_open((cartella_ + "/drawit.sqlite").c_str(), &db);
        sqlite3_exec(db, comandi().c_str(), nullptr, nullptr, nullptr);
        sqlite3_close(db);
    }
    Archivio(const Archivio&) = delete;
    Archivio& operator=(const Archivio&) = delete;
    ~Archivio() {
        std::error_code errore;
        std::filesystem::remove_all(cartella_, errore);
    }
    [[nodiscard]] std::string file() const { return cartella_ + "/drawit.mdb"; }

private:
    static std::string comandi() {
        std::string sql;
        std::string campi = "(data DATE,RUOTA TEXT";
        for (int i = 1; i <= 5; ++i) campi += ",\"" + std::to_string(i) + "°estratto\" INTEGER";
        sql = "BEGIN;CREATE TABLE archivio" + campi + ",concorso INTEGER);CREATE TABLE archivion" +
              campi +
              ",concorso INTEGER);"
              "CREATE TABLE archivios(data DATE,e1,e2,e3,e4,e5,e6,Jolly,superstar,concorso);"
              "CREATE INDEX concorso ON archivio(concorso);";
        platform::Rnd rnd;
        const auto numeri = [&](int quanti) {
            std::string testo;
            for (int i = 0; i < quanti; ++i) testo += "," + std::to_string(rnd.fino_a(90));
            return testo;
        };
        for (int c = 1; c <= concorsi; ++c) {
            const std::string fine = "," + std::to_string(c) + ");";
            for (const char* ruota : {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE"})
                sql += "INSERT INTO archivio VALUES(date('1900-01-01','+" + std::to_string(c) +
                       " days'),'" + ruota + "'" + numeri(5) + fine;
            if (c % 2 == 0)
                sql += "INSERT INTO archivios VALUES('2004-06-12'" + numeri(8) + fine +
                       "INSERT INTO archivion VALUES('2004-06-12','NAZ'" + numeri(5) + fine;
        }
        return sql + "COMMIT;";
    }
    std::string cartella_;
};

const std::string& sqlite() {
    static const Archivio archivio;
    static const std::string nome = archivio.file();
    return nome;
}

/// What a start adds: the file and the two tables that are opened then.
void avvio(benchmark::State& stato, const std::string& file) {
    for ([[maybe_unused]] auto _ : stato) {
        platform::Database db;
        platform::Recordset draws;
        platform::Recordset national;
        platform::OpenDatabase(file, false, true, db);
        db.OpenRecordset("archivios", draws);
        db.OpenRecordset("archivion", national);
        if (!draws.MoveLast().ok() || !national.MoveLast().ok())
            stato.SkipWithError("L'archivio non si apre.");
    }
}

/// All rows of a wheel in order.
void ruota(benchmark::State& stato, const std::string& file) {
    std::int32_t righe = 0;
    for ([[maybe_unused]] auto _ : stato) {
        platform::Database db;
        platform::Recordset draws;
        platform::OpenDatabase(file, false, true, db);
        db.OpenRecordset(platform::Query{"archivio", "concorso", {{"ruota", "TO"}}}, draws);
        if (!draws.MoveLast().ok()) stato.SkipWithError("L'archivio non si apre.");
        righe = draws.RecordCount();
    }
    stato.counters["righe"] = righe;
}

std::string jet(benchmark::State& stato) {
    platform::ambiente().lettore_jet.programma = SUITE_DIR "/cruciverba/leggi_mdb";
    const char* nome = std::getenv("TABELLINO_MDB");
    if (nome == nullptr) stato.SkipWithError("TABELLINO_MDB manca");
    return nome != nullptr ? nome : "";
}

void avvio_sqlite(benchmark::State& stato) {
    avvio(stato, sqlite());
}
void ruota_sqlite(benchmark::State& stato) {
    ruota(stato, sqlite());
}
void avvio_jet(benchmark::State& stato) {
    if (const std::string file = jet(stato); !file.empty()) avvio(stato, file);
}
void ruota_jet(benchmark::State& stato) {
    if (const std::string file = jet(stato); !file.empty()) ruota(stato, file);
}

BENCHMARK(avvio_sqlite)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ruota_sqlite)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(avvio_jet)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ruota_jet)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
