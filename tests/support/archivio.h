// Archives of invented draws, made at run time or kept among the fixtures, and how to read them.
#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sqlite3.h>
#include <sstream>
#include <string>
#include <vector>

#include "platform/ambiente.h"
#include "platform/database.h"
#include "platform/jet.h"

namespace support {

/// Records as texts, one a field; a null is "<null>".
using Righe = std::vector<std::vector<std::string>>;

struct Estrazioni {
    Righe archivio;
    Righe archivion;
    Righe archivios;
};

inline const std::string fixture_jet = SOURCE_DIR "/tests/fixtures/jet/";

inline void scrivi_file(const std::string& nome, const std::string& dati) {
    std::ofstream(nome, std::ios::binary) << dati;
}

inline std::vector<std::string> campi(const std::string& riga) {
    std::vector<std::string> letti;
    std::istringstream s(riga + ",");
    for (std::string campo; std::getline(s, campo, ',');) letti.push_back(campo);
    return letti;
}

/// The rows of the CSV fixtures in the order of the tables' columns, dates as yyyy-mm-dd.
inline Estrazioni da_csv(const std::string& quali = "") {
    Estrazioni e;
    std::ifstream lotto(fixture_jet + "lotto" + quali + ".csv");
    for (std::string riga; std::getline(lotto, riga);) {
        const auto c = campi(riga);
        auto& dove = c.at(2) == "NAZ" ? e.archivion : e.archivio;
        dove.push_back({c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[0]});
    }
    std::ifstream se(fixture_jet + "superenalotto" + quali + ".csv");
    for (std::string riga; std::getline(se, riga);) {
        const auto c = campi(riga);
        const std::string superstar = c.at(9).empty() ? "<null>" : c[9];
        e.archivios.push_back({c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8], superstar, c[0]});
    }
    return e;
}

inline void esegui_sql(const std::string& file, const std::string& comandi) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &db), SQLITE_OK);
    sqlite3_exec(db, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
    char* errore = nullptr;
    EXPECT_EQ(sqlite3_exec(db, comandi.c_str(), nullptr, nullptr, &errore), SQLITE_OK) << errore;
    sqlite3_free(errore);
    sqlite3_close(db);
}

inline std::string inserimenti(const std::string& tabella, const Righe& righe) {
    std::string sql;
    for (const auto& riga : righe) {
        sql += "INSERT INTO " + tabella + " VALUES(";
        for (std::size_t i = 0; i < riga.size(); ++i) {
            const bool testo = riga[i].find_first_not_of("0123456789") != std::string::npos;
            sql += i > 0 ? "," : "";
            sql += riga[i] == "<null>" ? "NULL" : testo ? "'" + riga[i] + "'" : riga[i];
        }
        sql += ");";
    }
    return sql;
}

/// Makes `file` with the three tables.
inline void scrivi_sqlite(const std::string& file, const Estrazioni& e) {
    std::string cinque = "RUOTA TEXT";
    for (int i = 1; i <= 5; ++i) cinque += ",\"" + std::to_string(i) + "°estratto\" INTEGER";
    std::string sql = "BEGIN;";
    for (const char* nome : {"archivio", "archivion"}) {
        sql += std::string("CREATE TABLE ") + nome + "(data DATE," + cinque +
               ",concorso INTEGER);CREATE INDEX i_" + nome + " ON " + nome + "(concorso);";
    }
    sql += "CREATE TABLE archivios(data DATE";
    for (int i = 1; i <= 6; ++i) sql += ",\"" + std::to_string(i) + "°estratto\" INTEGER";
    sql += ",Jolly INTEGER,superstar INTEGER,concorso INTEGER);";
    sql += inserimenti("archivio", e.archivio) + inserimenti("archivion", e.archivion) +
           inserimenti("archivios", e.archivios) + "COMMIT;";
    esegui_sql(file, sql);
}

inline std::string testo(const platform::Valore& valore) {
    if (const auto data = valore.data()) {
        char iso[40];
        std::snprintf(iso, sizeof iso, "%04d-%02d-%02d", data->anno, data->mese, data->giorno);
        return iso;
    }
    return valore.testo().value_or("<null>");
}

/// The current record's fields.
inline std::vector<std::string> record(const platform::Recordset& rs) {
    std::vector<std::string> riga;
    platform::Field campo;
    for (int i = 0; rs.Fields(i, campo).ok(); ++i) riga.push_back(testo(campo.Value()));
    return riga;
}

/// All records, from the first to the last.
inline Righe tutte(platform::Recordset rs) {
    Righe righe;
    rs.MoveFirst();
    for (; !rs.eof(); rs.MoveNext()) righe.push_back(record(rs));
    return righe;
}

/// Tells the Jet engine where its reader was built, with its own limits.
inline void lettore_costruito() {
    platform::ambiente().lettore_jet = {};
    platform::ambiente().lettore_jet.programma = SUITE_DIR "/cruciverba/leggi_mdb";
}

/// Opens a database that must open.
inline platform::Database apri(const std::string& nome) {
    platform::Database db;
    const platform::Err esito = platform::OpenDatabase(nome, false, true, db);
    EXPECT_EQ(esito.Number, 0) << nome;
    return db;
}

/// Opens a recordset that must open.
inline platform::Recordset apri(platform::Database db, const std::string& sorgente) {
    platform::Recordset rs;
    EXPECT_EQ(db.OpenRecordset(sorgente, rs).Number, 0) << sorgente;
    return rs;
}

inline platform::Recordset apri(platform::Database db, const platform::Query& query) {
    platform::Recordset rs;
    EXPECT_EQ(db.OpenRecordset(query, rs).Number, 0) << query.tabella;
    return rs;
}

/// Error number of an opening.
inline int errore_apertura(const std::string& nome, bool esclusivo = false) {
    platform::Database db;
    return platform::OpenDatabase(nome, esclusivo, true, db).Number;
}

}  // namespace support
