#include "platform/database.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/ambiente.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "support/archivio.h"
#include "support/cartella.h"

using namespace platform;
using support::apri;
using support::errore_apertura;

namespace {

namespace fs = std::filesystem;

/// The same draws for both engines: "jet/drawit.mdb" and "sqlite/drawit.sqlite".
class DatabaseTest : public testing::Test {
protected:
    DatabaseTest() {
        support::lettore_costruito();
        fs::create_directories(cartella_.file("jet"));
        fs::create_directories(cartella_.file("sqlite"));
        fs::copy_file(support::fixture_jet + "drawit.mdb", jet_);
        support::scrivi_sqlite(cartella_.file("sqlite/drawit.sqlite"), attese_);
    }

    support::Cartella cartella_;
    const support::Estrazioni attese_ = support::da_csv();
    const std::string jet_ = cartella_.file("jet/drawit.mdb");
    const std::string sqlite_ = cartella_.file("sqlite/drawit.mdb");
    platform::Ripristina<platform::LettoreJet> lettore_{platform::ambiente().lettore_jet};
};

TEST_F(DatabaseTest, BothEnginesGiveTheSameRows) {
    ASSERT_EQ(attese_.archivio.size(), 1000U);
    for (const std::string& nome : {jet_, sqlite_}) {
        const Database db = apri(nome);
        EXPECT_EQ(support::tutte(apri(db, "archivio")), attese_.archivio) << nome;
        EXPECT_EQ(support::tutte(apri(db, "archivion")), attese_.archivion) << nome;
        EXPECT_EQ(support::tutte(apri(db, "archivios")), attese_.archivios) << nome;
    }
}

TEST_F(DatabaseTest, BothEnginesHaveTheColumnsThatAreReadByName) {
    for (const std::string& nome : {jet_, sqlite_}) {
        const Database db = apri(nome);
        const Recordset lotto = apri(db, "archivio");
        EXPECT_EQ(lotto.Fields("ruota").Value(), lotto.Fields(1).Value());
        EXPECT_EQ(lotto.Fields("concorso").Value(), lotto.Fields(7).Value());
        EXPECT_FALSE(lotto.Fields("concorso").Value().nullo());
        EXPECT_TRUE(lotto.Fields(0).Value().data().has_value());
        const Recordset se = apri(db, "archivios");
        for (int i = 1; i <= 6; ++i) {
            const std::string estratto = std::to_string(i) + "°estratto";
            EXPECT_EQ(se.Fields(estratto).Value(), se.Fields(i).Value()) << nome;
            EXPECT_FALSE(se.Fields(estratto).Value().nullo());
        }
        EXPECT_EQ(support::testo(se.Fields("Jolly").Value()), attese_.archivios[0][7]);
        EXPECT_TRUE(se.Fields("superstar").Value().nullo());
        EXPECT_EQ(support::testo(se.Fields("concorso").Value()), attese_.archivios[0][9]);
    }
}

TEST_F(DatabaseTest, ATableIsFoundWithoutCase) {
    for (const std::string& nome : {jet_, sqlite_}) {
        const Database db = apri(nome);
        EXPECT_EQ(apri(db, "ARCHIVION").RecordCount(), 50);
        EXPECT_EQ(apri(db, " Archivios ").RecordCount(), 200);
    }
}

TEST_F(DatabaseTest, ATableThatIsNotThereIsToldAndTheTargetStays) {
    for (const std::string& nome : {jet_, sqlite_}) {
        Database db = apri(nome);
        Recordset rs = apri(db, "archivion");
        EXPECT_EQ(db.OpenRecordset("altra", rs).Number, 3078) << nome;
        EXPECT_EQ(db.OpenRecordset(Query{"altra", "n"}, rs).Number, 3078) << nome;
        EXPECT_EQ(db.OpenRecordset("MSysObjects", rs).Number, 3078) << nome;
        EXPECT_EQ(db.OpenRecordset("", rs).Number, 3078) << nome;
        EXPECT_EQ(rs.RecordCount(), 50);
    }
}

TEST_F(DatabaseTest, TheQueryOfATableIsOrderedAndIsNoTable) {
    for (const std::string& nome : {jet_, sqlite_}) {
        const Database db = apri(nome);
        for (const Query& query :
             {Query{"ARCHIVION", "CONCORSO"}, Query{"archivion", "concorso"}}) {
            Recordset rs = apri(db, query);
            EXPECT_EQ(rs.RecordCount(), 1);
            EXPECT_EQ(support::tutte(rs), attese_.archivion) << nome << query.tabella;
        }
    }
}

TEST_F(DatabaseTest, TheQueryOfAWheelGivesItsRows) {
    support::Righe torino;
    for (const auto& riga : attese_.archivio) {
        if (riga[1] == "TO") torino.push_back(riga);
    }
    for (const std::string& nome : {jet_, sqlite_}) {
        const Database db = apri(nome);
        const auto ruota = [&db](const std::string& codice) {
            return apri(db, Query{"ARCHIVIO", "CONCORSO", {{"RUOTA", codice}}});
        };
        EXPECT_EQ(support::tutte(ruota("TO")), torino) << nome;
        EXPECT_EQ(support::tutte(ruota("to")), torino) << nome;
        EXPECT_TRUE(ruota("").eof()) << nome;
        EXPECT_TRUE(ruota("T").eof()) << nome;
    }
}

TEST_F(DatabaseTest, TheQueryOfAConcorsoGivesItsRow) {
    for (const std::string& nome : {jet_, sqlite_}) {
        const Database db = apri(nome);
        const auto estrazione = [&db](std::int32_t concorso) {
            return apri(db, Query{"archivion", "concorso", {{"concorso", concorso}}});
        };
        EXPECT_EQ(support::tutte(estrazione(60)), support::Righe{attese_.archivion.at(9)});
        EXPECT_TRUE(estrazione(50).eof()) << nome;
    }
}

TEST_F(DatabaseTest, ADescendingFileIsPutInOrderWhereTheQuerySaysSo) {
    const Database db = apri(support::fixture_jet + "descending.mdb");
    Recordset tabella = apri(db, "archivios");
    EXPECT_EQ(support::record(tabella), attese_.archivios.back());
    EXPECT_EQ(support::tutte(apri(db, Query{"archivios", "concorso"})), attese_.archivios);
    tabella.Index("concorso");
    EXPECT_EQ(support::tutte(tabella), attese_.archivios);
    EXPECT_TRUE(tabella.Seek("=", 17).ok());
    EXPECT_EQ(support::record(tabella), attese_.archivios[16]);
}

TEST_F(DatabaseTest, AWalkBackByDrawsMeetsEveryRowOfTheIndex) {
    for (const std::string& nome : {jet_, sqlite_}) {
        Recordset rs = apri(apri(nome), "archivio");
        rs.Index("concorso");
        rs.MoveLast();
        rs.Move(-9);
        for (int i = 0; i < 10; ++i, rs.MoveNext())
            EXPECT_EQ(support::record(rs), attese_.archivio.at(990 + static_cast<std::size_t>(i)));
        EXPECT_TRUE(rs.eof());
        EXPECT_TRUE(rs.Move(-11).ok());
        EXPECT_EQ(support::record(rs), attese_.archivio[989]);
        EXPECT_TRUE(rs.Seek("=", 42).ok());
        EXPECT_EQ(support::record(rs), attese_.archivio[410]);
    }
}

TEST_F(DatabaseTest, UnknownFieldsAndOtherTypesInAQueryAreTold) {
    Database db = apri(sqlite_);
    Recordset rs;
    const auto errore = [&](const std::string& ordine, const Query::Condizione& dove) {
        return db.OpenRecordset(Query{"archivio", ordine, dove}, rs).Number;
    };
    EXPECT_EQ(db.OpenRecordset(Query{"archivio", "altro"}, rs).Number, 3061);
    EXPECT_EQ(errore("concorso", {"altro", 1}), 3061);
    EXPECT_EQ(errore("concorso", {"ruota", 1}), 3464);
    EXPECT_EQ(errore("concorso", {"concorso", "1"}), 3464);
    EXPECT_EQ(errore("concorso", {"data", 1}), 3464);
    EXPECT_EQ(rs.MoveFirst().Number, 91);
}

TEST_F(DatabaseTest, TheJetFileGoesBeforeTheOther) {
    support::scrivi_file(cartella_.file("sqlite/drawit.mdb"), "non è un database");
    EXPECT_EQ(errore_apertura(sqlite_), 3343);
    fs::remove(cartella_.file("sqlite/drawit.mdb"));
    EXPECT_EQ(errore_apertura(sqlite_), 0);
}

TEST_F(DatabaseTest, WhereNothingReadsTheJetFileTheOtherIsRead) {
    const std::string altro = cartella_.file("jet/drawit.sqlite");
    fs::copy_file(cartella_.file("sqlite/drawit.sqlite"), altro);
    ambiente().lettore_jet.programma = cartella_.file("manca");
    EXPECT_EQ(support::tutte(apri(apri(jet_), "archivios")), attese_.archivios);
    EXPECT_EQ(file_del_database(jet_), altro);
    fs::remove(altro);
    EXPECT_EQ(errore_apertura(jet_), errore_lettore_assente);
    EXPECT_EQ(file_del_database(jet_), jet_);
}

TEST_F(DatabaseTest, AFileThatStandsForOneThatNothingReadsIsTold) {
    EXPECT_FALSE(Database().in_vece());
    EXPECT_FALSE(apri(sqlite_).in_vece());
    fs::copy_file(cartella_.file("sqlite/drawit.sqlite"), cartella_.file("jet/drawit.sqlite"));
    ambiente().lettore_jet.programma = cartella_.file("manca");
    EXPECT_TRUE(apri(jet_).in_vece());
    fs::remove(jet_);
    EXPECT_FALSE(apri(jet_).in_vece());
}

TEST_F(DatabaseTest, FileNamesAreFoundWithoutCase) {
    fs::rename(jet_, cartella_.file("jet/DrawIt.MDB"));
    EXPECT_EQ(errore_apertura(jet_), 0);
    fs::rename(cartella_.file("sqlite/drawit.sqlite"), cartella_.file("sqlite/DRAWIT.SQLITE"));
    EXPECT_EQ(errore_apertura(sqlite_), 0);
}

TEST_F(DatabaseTest, AMissingFileIsToldAndTheTargetStays) {
    Database db = apri(sqlite_);
    EXPECT_EQ(OpenDatabase(cartella_.file("altro.mdb"), false, true, db).Number, 3024);
    EXPECT_EQ(apri(db, "archivion").RecordCount(), 50);
    EXPECT_EQ(errore_apertura(cartella_.file("nessuna/drawit.mdb")), 3024);
    EXPECT_EQ(errore_apertura(""), 3024);
}

TEST_F(DatabaseTest, WhatIsNoRegularFileIsNotFound) {
    fs::create_directory(cartella_.file("cartella.mdb"));
    EXPECT_EQ(errore_apertura(cartella_.file("cartella.mdb")), 3024);
    ASSERT_EQ(::mkfifo(cartella_.file("tubo.mdb").c_str(), 0600), 0);
    EXPECT_EQ(errore_apertura(cartella_.file("tubo.mdb")), 3024);
    fs::create_symlink("anello.mdb", cartella_.file("anello.mdb"));
    EXPECT_EQ(errore_apertura(cartella_.file("anello.mdb")), 3024);
}

/// Every opening of a file fails with one error.
class Rifiuto : public Syscalls {
public:
    explicit Rifiuto(int errore) : errore_(errore) {}
    Rifiuto(const Rifiuto&) = delete;
    Rifiuto& operator=(const Rifiuto&) = delete;
    int open(const char*, int, unsigned) override {
        errno = errore_;
        return -1;
    }

private:
    int errore_;
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

TEST_F(DatabaseTest, TheReasonOfARefusedFileIsTold) {
    const std::vector<std::pair<int, int>> casi = {{EACCES, 3051},  {EPERM, 3051}, {EBUSY, 3356},
                                                   {ETXTBSY, 3356}, {EIO, 3043},   {ENOENT, 3024}};
    for (const auto& [errore, numero] : casi) {
        const Rifiuto rifiuto(errore);
        EXPECT_EQ(errore_apertura(jet_), numero) << errore;
        EXPECT_EQ(errore_apertura(sqlite_), numero) << errore;
    }
}

TEST_F(DatabaseTest, AFileWithoutPermissionIsTold) {
    if (::geteuid() == 0) GTEST_SKIP() << "root may read everything";
    for (const std::string& nome : {jet_, cartella_.file("sqlite/drawit.sqlite")}) {
        fs::permissions(nome, fs::perms::none);
        EXPECT_EQ(errore_apertura(fs::path(nome).replace_extension(".mdb").string()), 3051);
    }
}

TEST_F(DatabaseTest, AFileThatCannotBeWrittenIsRead) {
    for (const char* nome : {"jet/drawit.mdb", "sqlite/drawit.sqlite"})
        fs::permissions(cartella_.file(nome), fs::perms::owner_read);
    EXPECT_EQ(apri(apri(jet_), "archivion").RecordCount(), 50);
    EXPECT_EQ(apri(apri(sqlite_), "archivion").RecordCount(), 50);
}

/// Another process that holds a lock on a file until it is told to go.
class Altro {
public:
    template <typename Blocca>
    explicit Altro(const std::string& file, Blocca blocca) {
        int pronto[2];
        int basta[2];
        EXPECT_EQ(::pipe(pronto), 0);
        EXPECT_EQ(::pipe(basta), 0);
        figlio_ = ::fork();
        if (figlio_ == 0) {
            ::close(basta[1]);
            const int fd = ::open(file.c_str(), O_RDWR);
            const char esito = blocca(fd) ? '1' : '0';
            char c = 0;
            const bool detto = ::write(pronto[1], &esito, 1) == 1;
            ::_exit(detto && ::read(basta[0], &c, 1) == 0 ? 0 : 1);
        }
        ::close(basta[0]);
        ::close(pronto[1]);
        char esito = '0';
        EXPECT_EQ(::read(pronto[0], &esito, 1), 1);
        EXPECT_EQ(esito, '1');
        ::close(pronto[0]);
        basta_ = basta[1];
    }
    Altro(const Altro&) = delete;
    Altro& operator=(const Altro&) = delete;
    ~Altro() {
        ::close(basta_);
        ::waitpid(figlio_, nullptr, 0);
    }

private:
    pid_t figlio_ = -1;
    int basta_ = -1;
};

bool blocca_tratto(int fd, short tipo, off_t da, off_t quanti) {
    struct flock blocco {};
    blocco.l_type = tipo;
    blocco.l_whence = SEEK_SET;
    blocco.l_start = da;
    blocco.l_len = quanti;
    return ::fcntl(fd, F_SETLK, &blocco) == 0;
}

TEST_F(DatabaseTest, AFileHeldExclusivelyByAnotherIsTold) {
    {
        const Altro altro(jet_, [](int fd) { return ::flock(fd, LOCK_EX) == 0; });
        EXPECT_EQ(errore_apertura(jet_), 3356);
    }
    {
        const Altro altro(jet_, [](int fd) { return blocca_tratto(fd, F_WRLCK, 0, 0); });
        EXPECT_EQ(errore_apertura(jet_), 3356);
    }
    EXPECT_EQ(errore_apertura(jet_), 0);
}

TEST_F(DatabaseTest, AFileSharedWithAnotherIsOpened) {
    {
        const Altro altro(jet_, [](int fd) { return ::flock(fd, LOCK_SH) == 0; });
        EXPECT_EQ(errore_apertura(jet_), 0);
        EXPECT_EQ(errore_apertura(jet_, true), 3356);
    }
    {
        const Altro altro(jet_, [](int fd) { return blocca_tratto(fd, F_RDLCK, 0, 0); });
        EXPECT_EQ(errore_apertura(jet_), 0);
    }
    // Marks of users stand far beyond the content.
    const Altro altro(jet_, [](int fd) { return blocca_tratto(fd, F_WRLCK, 0x10000000, 1); });
    EXPECT_EQ(errore_apertura(jet_), 0);
}

TEST_F(DatabaseTest, AnExclusiveOpeningKeepsOthersOutUntilItIsClosed) {
    Database sola;
    ASSERT_EQ(OpenDatabase(jet_, true, true, sola).Number, 0);
    EXPECT_EQ(errore_apertura(jet_), 3356);
    EXPECT_TRUE(sola.Close().ok());
    EXPECT_EQ(errore_apertura(jet_), 0);
    {
        Database altra;
        ASSERT_EQ(OpenDatabase(jet_, true, true, altra).Number, 0);
    }
    EXPECT_EQ(errore_apertura(jet_), 0);
}

TEST_F(DatabaseTest, ClosingEndsTheRecordsetsOfThisOpeningOnly) {
    Database db = apri(sqlite_);
    Recordset rs = apri(db, "archivion");
    Database altra = apri(sqlite_);
    Recordset altro = apri(altra, "archivion");
    EXPECT_TRUE(db.Close().ok());
    EXPECT_EQ(rs.MoveLast().Number, 3420);
    EXPECT_EQ(db.OpenRecordset("archivion", rs).Number, 3420);
    EXPECT_EQ(db.Close().Number, 3420);
    EXPECT_TRUE(altro.MoveLast().ok());
    EXPECT_EQ(Database().Close().Number, 91);
    EXPECT_EQ(Database().OpenRecordset("archivion", rs).Number, 91);
}

TEST_F(DatabaseTest, AHandleThatIsReplacedLeavesItsRecordsetsAlone) {
    Database db = apri(sqlite_);
    Recordset rs = apri(db, "archivion");
    db = apri(jet_);
    EXPECT_TRUE(rs.MoveLast().ok());
    EXPECT_EQ(support::record(rs), attese_.archivion.back());
}

TEST_F(DatabaseTest, ATableIsReadWhenItIsFirstOpenedAndKept) {
    Database db = apri(sqlite_);
    const std::string file = cartella_.file("sqlite/drawit.sqlite");
    support::esegui_sql(file, "DELETE FROM archivion");
    EXPECT_EQ(apri(db, "archivion").RecordCount(), 0);
    support::esegui_sql(file, "DELETE FROM archivios");
    fs::remove(file);
    EXPECT_EQ(apri(db, "archivion").RecordCount(), 0);
    Recordset rs;
    EXPECT_NE(db.OpenRecordset("archivios", rs).Number, 0);
    EXPECT_EQ(apri(apri(jet_), "archivion").RecordCount(), 50);
}

TEST_F(DatabaseTest, ALaterOpeningSeesWhatWasWrittenSince) {
    EXPECT_EQ(apri(apri(sqlite_), "archivion").RecordCount(), 50);
    support::esegui_sql(cartella_.file("sqlite/drawit.sqlite"),
                        "DELETE FROM archivion WHERE concorso > 90");
    EXPECT_EQ(apri(apri(sqlite_), "archivion").RecordCount(), 40);
}

}  // namespace
