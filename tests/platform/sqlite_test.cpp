#include "platform/sqlite.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/runtime.h"
#include "platform/sqlite_scrivi.h"
#include "support/archivio.h"
#include "support/cartella.h"

using namespace platform;
using support::apri;
using support::errore_apertura;

namespace {

namespace fs = std::filesystem;

/// An archive as the file that stands in for a missing Jet file.
class Sqlite : public testing::Test {
protected:
    Sqlite() { support::scrivi_sqlite(file_, attese_); }

    support::Cartella cartella_;
    const support::Estrazioni attese_ = support::da_csv();
    const std::string file_ = cartella_.file("drawit.sqlite");
    const std::string mdb_ = cartella_.file("drawit.mdb");
};

TEST_F(Sqlite, AFileThatAnotherWritesExclusivelyIsTold) {
    sqlite3* altro = nullptr;
    ASSERT_EQ(sqlite3_open(file_.c_str(), &altro), SQLITE_OK);
    Database db = apri(mdb_);
    Recordset rs;
    ASSERT_EQ(sqlite3_exec(altro, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(errore_apertura(mdb_), 0);
    sqlite3_exec(altro, "COMMIT; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    EXPECT_EQ(errore_apertura(mdb_), 3356);
    EXPECT_EQ(db.OpenRecordset("archivio", rs).Number, 3356);
    sqlite3_exec(altro, "COMMIT", nullptr, nullptr, nullptr);
    EXPECT_EQ(db.OpenRecordset("archivio", rs).Number, 0);
    sqlite3_close(altro);
}

TEST_F(Sqlite, ReadingChangesNoByteAndLeavesNothingBesideIt) {
    const std::string prima = support::contenuto(file_);
    support::tutte(apri(apri(mdb_), "archivio"));
    EXPECT_EQ(support::contenuto(file_), prima);
    EXPECT_EQ(std::distance(fs::directory_iterator(cartella_.programma()), {}), 1);
}

TEST_F(Sqlite, AJournalLeftByAKilledWriterIsRolledBack) {
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        sqlite3* db = nullptr;
        sqlite3_open(file_.c_str(), &db);
        // So small a cache that the changed pages go to the file ahead of the commit.
        sqlite3_exec(db, "PRAGMA cache_size=1; BEGIN; UPDATE archivio SET concorso = 7;", nullptr,
                     nullptr, nullptr);
        ::_exit(0);
    }
    ASSERT_EQ(::waitpid(figlio, nullptr, 0), figlio);
    ASSERT_TRUE(fs::exists(file_ + "-journal"));
    EXPECT_EQ(support::tutte(apri(apri(mdb_), "archivio")), attese_.archivio);
}

TEST_F(Sqlite, FilesThatAreNoDatabaseAreTold) {
    const std::string file = cartella_.file("x.sqlite");
    const std::string intero = support::contenuto(file_);
    for (const std::string& dati :
         {std::string(), std::string("x"), std::string(65536, '\0'), std::string("SQLite format 3"),
          std::string(4096, 'x'), intero.substr(0, 16) + std::string(5000, '\xff')}) {
        support::scrivi_file(file, dati);
        EXPECT_EQ(errore_apertura(cartella_.file("x.mdb")), 3343) << dati.size();
    }
}

TEST_F(Sqlite, ATruncatedFileIsNeverReadShort) {
    const std::string intero = support::contenuto(file_);
    for (std::size_t quanti = 100; quanti < intero.size(); quanti += 1000) {
        support::scrivi_file(cartella_.file("x.sqlite"), intero.substr(0, quanti));
        Database db;
        int errore = OpenDatabase(cartella_.file("x.mdb"), false, true, db).Number;
        Recordset rs;
        if (errore == 0) errore = db.OpenRecordset("archivio", rs).Number;
        EXPECT_TRUE(errore == 3049 || errore == 3343) << quanti << " " << errore;
    }
}

TEST_F(Sqlite, APageThatLeadsRoundInCirclesIsTold) {
    std::string dati = support::contenuto(file_);
    // The first two pages below the root of a table of many pages become one.
    const auto due = [&](std::size_t i) {
        return static_cast<std::size_t>(static_cast<unsigned char>(dati[i])) << 8 |
               static_cast<unsigned char>(dati[i + 1]);
    };
    const std::size_t pagina = 4096;
    bool trovata = false;
    for (std::size_t p = 1; p * pagina < dati.size() && !trovata; ++p) {
        if (dati[p * pagina] != 5 || due(p * pagina + 3) < 3) continue;
        const std::size_t prima = p * pagina + due(p * pagina + 12);
        const std::size_t seconda = p * pagina + due(p * pagina + 14);
        dati.replace(seconda, 4, dati.substr(prima, 4));
        trovata = true;
    }
    ASSERT_TRUE(trovata);
    support::scrivi_file(cartella_.file("x.sqlite"), dati);
    Database db = apri(cartella_.file("x.mdb"));
    Recordset rs;
    EXPECT_EQ(db.OpenRecordset("archivio", rs).Number, 3049);
}

TEST_F(Sqlite, DamagedFilesAreAnsweredWhateverTheyHold) {
    const std::string intero = support::contenuto(file_);
    Rnd rnd;
    int riuscite = 0;
    int fallite = 0;
    for (int prova = 0; prova < 200; ++prova) {
        std::string dati = intero;
        const int quanti = rnd.fino_a(8);
        // Half of them strike the heads of pages, where they do most harm.
        for (int i = 0; i < quanti; ++i) {
            auto dove = static_cast<std::size_t>(rnd.fino_a(static_cast<int>(dati.size())) - 1);
            if (prova % 2 == 0) dove = dove / 4096 * 4096 + dove % 64;
            dati[dove] = static_cast<char>(rnd.fino_a(256) - 1);
        }
        support::scrivi_file(cartella_.file("x.sqlite"), dati);
        Database db;
        Recordset rs;
        int errore = OpenDatabase(cartella_.file("x.mdb"), false, true, db).Number;
        for (const char* nome : {"archivio", "archivion", "archivios"}) {
            if (errore == 0) errore = db.OpenRecordset(nome, rs).Number;
            ASSERT_TRUE(errore != 0 || support::tutte(rs).size() <= 2000U);
        }
        ++(errore == 0 ? riuscite : fallite);
    }
    EXPECT_GT(riuscite, 10);
    EXPECT_GT(fallite, 10);
}

TEST_F(Sqlite, WhatIsWrittenIsReadBackRowByRow) {
    Table tabella;
    tabella.aggiungi_colonna("concorso", Table::Tipo::intero);
    tabella.aggiungi_colonna("RUOTA", Table::Tipo::testo);
    tabella.aggiungi_colonna("data", Table::Tipo::data);
    for (std::int32_t i = 1; i <= 3; ++i) {
        tabella.accoda(0, 10 * i);
        tabella.accoda(1, i == 2 ? "MI" : "BA");
        tabella.accoda(2, 36526 + i);
    }
    const std::string file = cartella_.file("nuovo.sqlite");
    ASSERT_TRUE(scrivi_sqlite(file, {{"archivio", tabella, "concorso"}}));
    EXPECT_EQ(verifica_sqlite(file), 0);
    Table letta;
    ASSERT_EQ(leggi_sqlite(file, "archivio", letta), 0);
    ASSERT_EQ(letta.righe(), 3U);
    ASSERT_EQ(letta.colonne(), 3U);
    for (std::size_t r = 0; r < 3; ++r) {
        for (std::size_t c = 0; c < 3; ++c) {
            EXPECT_EQ(letta.valore(c, r), tabella.valore(c, r)) << r << " " << c;
        }
    }
}

TEST_F(Sqlite, ValuesThatDoNotFitTheirColumnAreNull) {
    support::esegui_sql(cartella_.file("v.sqlite"),
                        "CREATE TABLE t(a, b, c DATE, d TEXT);"
                        "INSERT INTO t VALUES(NULL,'x','2004-06-12','2004-06-12'),"
                        "(1,2,'ieri','domani'),('due',2.5,NULL,x'00'),"
                        "(3000000000,'',7,'2004-06-13'),(2.5,NULL,'2004-06-31','');");
    const Recordset rs = apri(apri(cartella_.file("v.mdb")), "t");
    EXPECT_EQ(support::tutte(rs), (support::Righe{{"<null>", "x", "2004-06-12", "2004-06-12"},
                                                  {"1", "2", "<null>", "<null>"},
                                                  {"<null>", "2.5", "<null>", "<null>"},
                                                  {"<null>", "", "<null>", "2004-06-13"},
                                                  {"2", "<null>", "<null>", "<null>"}}));
}

TEST_F(Sqlite, ATableWhoseNameNeedsQuotesIsRead) {
    support::esegui_sql(cartella_.file("q.sqlite"),
                        "CREATE TABLE \"a\"\"b\"(n); INSERT INTO \"a\"\"b\" VALUES(1);");
    EXPECT_EQ(apri(apri(cartella_.file("q.mdb")), "A\"B").RecordCount(), 1);
}

TEST_F(Sqlite, ATableWithAKeyOfItsOwnIsRead) {
    const std::string file = cartella_.file("k.sqlite");
    support::esegui_sql(file,
                        "CREATE TABLE archivio(concorso INTEGER PRIMARY KEY, n INTEGER);"
                        "INSERT INTO archivio VALUES(7, 8), (9, 10);");
    Table letta;
    ASSERT_EQ(leggi_sqlite(file, "archivio", letta), 0);
    ASSERT_EQ(letta.righe(), 2U);
    EXPECT_EQ(letta.valore(0, 1).intero(), 9);
    EXPECT_EQ(letta.valore(1, 1).intero(), 10);
}

TEST_F(Sqlite, WhatNoPageOfTheFileHoldsIsRefused) {
    // A kilobyte that would be read as gigabytes.
    support::esegui_sql(
        cartella_.file("g.sqlite"),
        "CREATE TABLE t(n INTEGER, grande TEXT AS (hex(zeroblob(30000)) || n));"
        "CREATE TABLE fatta(n INTEGER, grande TEXT AS (hex(zeroblob(30)) || n) STORED);"
        "CREATE VIRTUAL TABLE v USING fts5(testo);"
        "INSERT INTO t WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM c WHERE i<2000) "
        "SELECT i FROM c;");
    const Database db = apri(cartella_.file("g.mdb"));
    for (const char* nome : {"t", "fatta"}) {
        Database copia = db;
        Recordset rs;
        EXPECT_EQ(copia.OpenRecordset(nome, rs).Number, 3049) << nome;
    }
    Table virtuale;
    EXPECT_EQ(leggi_sqlite(cartella_.file("g.sqlite"), "v", virtuale), 3078);
}

TEST_F(Sqlite, ATableStopsGrowingAtItsBound) {
    Table t;
    t.aggiungi_colonna("testo", Table::Tipo::testo);
    const std::string lungo(1 << 20, 'x');
    int righe = 0;
    for (; !t.piena() && righe < 1000; ++righe) t.accoda(0, lungo + std::to_string(righe));
    EXPECT_LE(righe, 33);
    // A text that stands there already takes no more room.
    Table u;
    u.aggiungi_colonna("testo", Table::Tipo::testo);
    for (int i = 0; i < 1000; ++i) u.accoda(0, lungo);
    EXPECT_FALSE(u.piena());
}

}  // namespace
