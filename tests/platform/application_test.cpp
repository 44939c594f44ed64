#include "platform/application.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <signal.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/ambiente.h"
#include "platform/disk.h"
#include "support/cartella.h"

using namespace platform;

namespace {

namespace fs = std::filesystem;

/// Sets a variable of the environment for the time of a test.
class Variabile {
public:
    Variabile(const char* nome, const std::string& valore) : nome_(nome) {
        const char* prima = std::getenv(nome);
        c_era_ = prima != nullptr;
        if (c_era_) {
            prima_ = prima;
        }
        ::setenv(nome, valore.c_str(), 1);
    }
    Variabile(const Variabile&) = delete;
    Variabile& operator=(const Variabile&) = delete;
    ~Variabile() {
        if (c_era_) {
            ::setenv(nome_, prima_.c_str(), 1);
        } else {
            ::unsetenv(nome_);
        }
    }

private:
    const char* nome_;
    std::string prima_;
    bool c_era_ = false;
};

/// An installed program: an executable's folder, shared files, and a user without any.
class TrovaCartella : public testing::Test {
protected:
    TrovaCartella() : dati_("XDG_DATA_HOME", cartella_.radice() + "/casa/dati") {
        for (const char* parte : {"ridotti", "skin", "archivio", "cruciverba"}) {
            fs::create_directories(condivisi() + "/" + parte);
        }
        metti(condivisi() + "/ridotti/sn0600.rid", "1,2,3,4,5,6\r\n");
        metti(condivisi() + "/ridotti/sn0700.rid", std::string(300000, 'x'));
        metti(condivisi() + "/skin/skn.dat", "1");
        metti(condivisi() + "/archivio/drawit.mdb", "archivio");
        metti(condivisi() + "/cruciverba/esempio.sen", "14,5,5");
        metti(condivisi() + "/cruciverba/esempio.col", "1,2,3,4,5,6\r\n");
    }
    [[nodiscard]] std::string condivisi() const { return cartella_.radice() + "/share"; }
    [[nodiscard]] std::string utente() const {
        return cartella_.radice() + "/casa/dati/sortivario";
    }
    std::string trova() const { return trova_cartella("/usr/bin", condivisi()); }
    static void metti(const std::string& nome, const std::string& dati) {
        std::ofstream(nome, std::ios::binary) << dati;
    }
    static std::string leggi(const std::string& nome) {
        return leggi_tutto(nome).value_or("<manca>");
    }
    [[nodiscard]] bool completa() const {
        for (const char* nome :
             {"/ridotti/sn0600.rid", "/ridotti/sn0700.rid", "/skin/skn.dat", "/archivio/drawit.mdb",
              "/cruciverba/esempio.sen", "/cruciverba/esempio.col"}) {
            if (leggi(utente() + nome) != leggi(condivisi() + nome)) {
                return false;
            }
        }
        return Dir(utente() + "/ridotti", "*").size() == 2 &&
               Dir(utente() + "/cruciverba", "*").size() == 2 &&
               !fs::exists(utente() + "/cruciverba.nuova");
    }

    support::Cartella cartella_;
    Variabile dati_;
};

TEST(Radice, IsFoundByCuttingText) {
    EXPECT_EQ(radice("/a/b/cruciverba"), "/a/b/");
    EXPECT_EQ(radice("/a/CRUCIVERBA"), "/a/");
    EXPECT_EQ(radice("/suite/giochi/altro"), "/suite/gi");
    EXPECT_EQ(radice("breve"), "");
}

TEST(Application, TellsItsVersionAndNamesItsFiles) {
    Application app;
    app.Major = 2;
    app.Minor = 10;
    app.Revision = 3;
    app.Path = "/x/cruciverba";
    EXPECT_EQ(app.versione(), "2.10.3");
    EXPECT_EQ(app.file("cst"), "/x/cruciverba/cst");
}

TEST(Application, KnowsTheFolderOfTheExecutable) {
    const std::string cartella = cartella_eseguibile();
    EXPECT_EQ(cartella, fs::read_symlink("/proc/self/exe").parent_path().string());
}

TEST_F(TrovaCartella, AWritableCruciverbaHoldsEverythingItself) {
    EXPECT_EQ(trova_cartella(cartella_.programma(), condivisi()), cartella_.programma());
    EXPECT_FALSE(esiste_cartella(utente()));
}

TEST_F(TrovaCartella, AnExecutableElsewhereUsesTheFolderOfTheUser) {
    EXPECT_EQ(trova(), utente() + "/cruciverba");
    EXPECT_EQ(trova_cartella(cartella_.radice(), condivisi()), utente() + "/cruciverba");
    EXPECT_EQ(trova_cartella(cartella_.radice() + "/manca/cruciverba", condivisi()),
              utente() + "/cruciverba");
    EXPECT_EQ(trova_cartella("", condivisi()), utente() + "/cruciverba");
}

TEST_F(TrovaCartella, ACruciverbaThatCannotBeWrittenIsNotUsed) {
    fs::permissions(cartella_.radice(), fs::perms::all);
    fs::permissions(cartella_.programma(), fs::perms::owner_read | fs::perms::owner_exec |
                                               fs::perms::others_read | fs::perms::others_exec);
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        // Root may write everywhere, so the question is asked as somebody else.
        if (::geteuid() == 0 && ::setuid(65534) != 0) {
            ::_exit(2);
        }
        const std::string trovata = trova_cartella(cartella_.programma(), condivisi());
        ::_exit(trovata == utente() + "/cruciverba" && esiste_cartella(trovata) ? 0 : 1);
    }
    int stato = 0;
    ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
    EXPECT_TRUE(WIFEXITED(stato) && WEXITSTATUS(stato) == 0) << stato;
    fs::permissions(cartella_.programma(), fs::perms::owner_all);
}

TEST_F(TrovaCartella, WithoutADataFolderItLiesBelowTheHome) {
    const Variabile casa("HOME", cartella_.radice() + "/io");
    // Relative to the working folder, where a faulty program would make it.
    const std::string relativa = "relativa" + fs::path(cartella_.radice()).filename().string();
    for (const std::string& xdg : {std::string(), relativa}) {
        const Variabile dati("XDG_DATA_HOME", xdg);
        EXPECT_EQ(trova(), cartella_.radice() + "/io/.local/share/sortivario/cruciverba");
    }
    EXPECT_FALSE(fs::exists(relativa));
}

TEST_F(TrovaCartella, TheFirstStartCopiesTablesAndSkins) {
    const std::string trovata = trova();
    EXPECT_TRUE(esiste_cartella(trovata));
    EXPECT_TRUE(completa());
    EXPECT_EQ(radice(trovata), utente() + "/");
}

TEST_F(TrovaCartella, ALaterStartCopiesNothing) {
    trova();
    Kill(utente() + "/ridotti/sn0600.rid");
    metti(utente() + "/skin/skn.dat", "2");
    trova();
    EXPECT_FALSE(esiste_file(utente() + "/ridotti/sn0600.rid"));
    EXPECT_EQ(leggi(utente() + "/skin/skn.dat"), "2");
}

TEST_F(TrovaCartella, ASampleThatThePlayerDeletedStaysAway) {
    const std::string trovata = trova();
    Kill(trovata + "/esempio.sen");
    trova();
    EXPECT_FALSE(esiste_file(trovata + "/esempio.sen"));
}

TEST_F(TrovaCartella, TheRootLeadsToTheInstalledGuide) {
    trova();
    EXPECT_FALSE(fs::is_symlink(utente() + "/guida"));
    fs::create_directories(cartella_.radice() + "/libexec");
    metti(cartella_.radice() + "/libexec/guida", "vera");
    fs::create_symlink("../libexec/guida", condivisi() + "/guida");
    metti(condivisi() + "/guida.html", "pagina");
    trova();
    EXPECT_EQ(leggi(utente() + "/guida.html"), "pagina");
    EXPECT_EQ(fs::read_symlink(utente() + "/guida"),
              fs::canonical(cartella_.radice()) / "libexec/guida");
    EXPECT_EQ(leggi(utente() + "/guida"), "vera");
}

TEST_F(TrovaCartella, ALinkToAGuideThatMovedIsRenewed) {
    metti(condivisi() + "/guida", "vera");
    trova();
    Kill(utente() + "/guida");
    fs::create_symlink("/non/esiste/guida", utente() + "/guida");
    trova();
    EXPECT_EQ(leggi(utente() + "/guida"), "vera");
}

TEST_F(TrovaCartella, AGuideOfTheSuiteStays) {
    metti(condivisi() + "/guida", "vera");
    fs::create_directories(utente());
    metti(utente() + "/guida", "della suite");
    trova();
    EXPECT_FALSE(fs::is_symlink(utente() + "/guida"));
    EXPECT_EQ(leggi(utente() + "/guida"), "della suite");
}

TEST_F(TrovaCartella, TheFirstStartLeavesWhatTheSuitePutThere) {
    fs::create_directories(utente() + "/archivio");
    metti(utente() + "/archivio/drawit.mdb", "archivio nuovo");
    trova();
    EXPECT_EQ(leggi(utente() + "/archivio/drawit.mdb"), "archivio nuovo");
    EXPECT_EQ(leggi(utente() + "/skin/skn.dat"), "1");
}

TEST_F(TrovaCartella, WorksWithoutSharedFiles) {
    EXPECT_EQ(trova_cartella("/usr/bin", cartella_.radice() + "/manca"), utente() + "/cruciverba");
    EXPECT_TRUE(esiste_cartella(utente() + "/cruciverba"));
    EXPECT_TRUE(esiste_cartella(utente() + "/ridotti"));
}

/// A disk on which only so many bytes find room, or a process that dies at a given call.
class Disco : public Syscalls {
public:
    std::int64_t spazio = std::int64_t{1} << 40;
    int vita = -1;
    int open(const char* nome, int modo, unsigned permessi) override {
        passo();
        return Syscalls::open(nome, modo, permessi);
    }
    ssize_t write(int fd, const void* dati, std::size_t quanti) override {
        passo();
        if (spazio <= 0) {
            errno = ENOSPC;
            return -1;
        }
        const auto n = Syscalls::write(
            fd, dati, std::min({quanti, std::size_t{40000}, static_cast<std::size_t>(spazio)}));
        spazio -= n;
        return n;
    }
    int fsync(int) override {
        passo();
        return 0;
    }
    int rename(const char* vecchio, const char* nuovo) override {
        passo();
        return Syscalls::rename(vecchio, nuovo);
    }

private:
    void passo() {
        if (vita > 0 && --vita == 0) {
            ::raise(SIGKILL);
        }
    }
};

TEST_F(TrovaCartella, AFirstStartCutShortByAFullDiskIsTakenUpAgain) {
    for (const std::int64_t spazio : {0, 5, 13, 100000, 300000}) {
        Disco disco;
        disco.spazio = spazio;
        auto posto = std::make_optional<platform::Ripristina<platform::Syscalls*>>(
            platform::ambiente().chiamate, &disco);
        trova();
        posto.reset();
        EXPECT_FALSE(completa()) << spazio;
        EXPECT_FALSE(esiste_cartella(utente() + "/cruciverba")) << spazio;
        trova();
        EXPECT_TRUE(completa()) << spazio;
        fs::remove_all(utente());
    }
}

TEST_F(TrovaCartella, AFirstStartKilledAtAnyStepIsTakenUpAgain) {
    int uccisi = 0;
    for (int vita = 1;; ++vita) {
        const pid_t figlio = ::fork();
        if (figlio == 0) {
            Disco disco;
            disco.vita = vita;
            ambiente().chiamate = &disco;
            trova();
            ::_exit(0);
        }
        int stato = 0;
        ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
        trova();
        ASSERT_TRUE(completa()) << vita;
        fs::remove_all(utente());
        if (!WIFSIGNALED(stato)) {
            break;
        }
        ++uccisi;
    }
    EXPECT_GT(uccisi, 15);
}

/// Two programs: this one and one that runs in a child process.
class PrevInstance : public testing::Test {
protected:
    PrevInstance() : runtime_("XDG_RUNTIME_DIR", cartella_.radice() + "/runtime") {
        fs::create_directories(cartella_.radice() + "/runtime");
    }
    ~PrevInstance() override { EXPECT_TRUE(fs::is_empty(cartella_.radice() + "/runtime")); }

    /// What another process is told that starts on `percorso`.
    static bool altra(const std::string& percorso) {
        const pid_t figlio = ::fork();
        if (figlio == 0) {
            Application app;
            app.Path = percorso;
            ::_exit(app.PrevInstance() ? 1 : 0);
        }
        int stato = 0;
        ::waitpid(figlio, &stato, 0);
        return WIFEXITED(stato) && WEXITSTATUS(stato) == 1;
    }

    support::Cartella cartella_;
    Variabile runtime_;
};

TEST_F(PrevInstance, ASecondProgramOnTheFolderSeesTheFirst) {
    Application app;
    app.Path = cartella_.programma();
    EXPECT_FALSE(altra(app.Path));
    EXPECT_FALSE(app.PrevInstance());
    EXPECT_TRUE(altra(app.Path));
    EXPECT_TRUE(altra(app.Path));
}

TEST_F(PrevInstance, TheInstanceItselfMayAskAgain) {
    Application app;
    app.Path = cartella_.programma();
    EXPECT_FALSE(app.PrevInstance());
    EXPECT_FALSE(app.PrevInstance());
}

TEST_F(PrevInstance, TheSameFolderByAnotherPathIsTheSame) {
    Application app;
    app.Path = cartella_.programma();
    EXPECT_FALSE(app.PrevInstance());
    fs::create_directory_symlink(cartella_.radice(), cartella_.radice() + "/via");
    EXPECT_TRUE(altra(cartella_.radice() + "/via/cruciverba"));
}

TEST_F(PrevInstance, ATurnOnAFolderIsOneProgramsUntilItEnds) {
    const std::string qui = cartella_.programma();
    const auto altro_turno = [](const std::string& dove) {
        const pid_t figlio = ::fork();
        // Ended without its destructors, as a killed program is.
        if (figlio == 0) ::_exit(Turno(dove, std::chrono::milliseconds(0)).preso() ? 1 : 0);
        int stato = 0;
        ::waitpid(figlio, &stato, 0);
        return WEXITSTATUS(stato) == 1;
    };
    EXPECT_TRUE(altro_turno(qui));
    {
        const Turno mio(qui);
        EXPECT_TRUE(mio.preso());
        EXPECT_FALSE(altro_turno(qui));
        EXPECT_TRUE(altro_turno(cartella_.radice()));
        Application app;
        app.Path = qui;
        EXPECT_FALSE(app.PrevInstance());
    }
    EXPECT_TRUE(altro_turno(qui));
}

TEST_F(PrevInstance, AnotherFolderHasItsOwnInstance) {
    Application app;
    app.Path = cartella_.programma();
    EXPECT_FALSE(app.PrevInstance());
    EXPECT_FALSE(altra(cartella_.radice() + "/ridotti"));
    EXPECT_FALSE(altra(cartella_.radice() + "/manca"));
}

TEST_F(PrevInstance, AProgramThatEndedOrWasKilledBarsNobody) {
    {
        Application app;
        app.Path = cartella_.programma();
        EXPECT_FALSE(app.PrevInstance());
    }
    EXPECT_FALSE(altra(cartella_.programma()));
    int canale[2];
    ASSERT_EQ(::pipe(canale), 0);
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        Application app;
        app.Path = cartella_.programma();
        const char esito = app.PrevInstance() ? '1' : '0';
        if (::write(canale[1], &esito, 1) != 1) {
            ::_exit(2);
        }
        for (;;) {
            ::pause();
        }
    }
    ::close(canale[1]);
    char esito = '?';
    ASSERT_EQ(::read(canale[0], &esito, 1), 1);
    EXPECT_EQ(esito, '0');
    EXPECT_TRUE(altra(cartella_.programma()));
    ::kill(figlio, SIGKILL);
    ::waitpid(figlio, nullptr, 0);
    EXPECT_FALSE(altra(cartella_.programma()));
    ::close(canale[0]);
}

/// A disk whose folders cannot be locked, as those of the network; `nessuno`: nor its files.
class SenzaFlock : public Syscalls {
public:
    SenzaFlock() = default;
    SenzaFlock(const SenzaFlock&) = delete;
    SenzaFlock& operator=(const SenzaFlock&) = delete;
    int flock(int, int) override {
        errno = ENOLCK;
        return -1;
    }
    int fcntl_lock(int fd) override {
        errno = ENOLCK;
        return nessuno ? -1 : Syscalls::fcntl_lock(fd);
    }
    bool nessuno = false;

private:
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

TEST_F(PrevInstance, OnADiskOfTheNetworkASecondProgramSeesTheFirst) {
    const SenzaFlock disco;
    Application app;
    app.Path = cartella_.programma();
    EXPECT_FALSE(app.PrevInstance());
    EXPECT_TRUE(altra(app.Path));
    const Turno turno(app.Path);
    EXPECT_TRUE(turno.preso());
}

TEST_F(PrevInstance, ADiskWithoutLocksBarsNobody) {
    SenzaFlock disco;
    disco.nessuno = true;
    Application app;
    app.Path = cartella_.programma();
    EXPECT_FALSE(app.PrevInstance());
    EXPECT_FALSE(altra(app.Path));
    EXPECT_FALSE(Turno(app.Path, std::chrono::hours(1)).preso());
}

TEST_F(PrevInstance, ATurnLeavesNothingAndThatOfAKilledProgramIsTakenOver) {
    const std::string qui = cartella_.programma();
    EXPECT_TRUE(Turno(qui).preso());
    EXPECT_TRUE(fs::is_empty(qui));
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        const Turno suo(qui);
        ::_exit(suo.preso() ? 0 : 1);
    }
    int stato = 0;
    ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
    EXPECT_EQ(stato, 0);
    EXPECT_FALSE(fs::is_empty(qui));
    EXPECT_TRUE(Turno(qui).preso());
    EXPECT_TRUE(fs::is_empty(qui));
}

TEST_F(PrevInstance, LeavesNothingInTheProgramFolder) {
    Application app;
    app.Path = cartella_.programma();
    EXPECT_FALSE(app.PrevInstance());
    EXPECT_TRUE(fs::is_empty(cartella_.programma()));
}

}  // namespace
