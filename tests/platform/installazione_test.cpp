// What a user's own root gets from the suite, at the first start and at later ones.
#include "platform/installazione.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/ambiente.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "support/cartella.h"

using namespace platform;

namespace {

namespace fs = std::filesystem;

void metti(const std::string& nome, const std::string& dati) {
    fs::create_directories(fs::path(nome).parent_path());
    std::ofstream(nome, std::ios::binary) << dati;
}

std::string leggi(const std::string& nome) {
    return leggi_tutto(nome).value_or("<manca>");
}

/// A device on which the opening number `guasta` for writing fails, once.
class ErroreDiPassaggio : public Syscalls {
public:
    explicit ErroreDiPassaggio(int guasta) : guasta_(guasta) {}
    ErroreDiPassaggio(const ErroreDiPassaggio&) = delete;
    ErroreDiPassaggio& operator=(const ErroreDiPassaggio&) = delete;
    int open(const char* nome, int modo, unsigned permessi) override {
        if ((modo & O_CREAT) != 0 && ++aperture == guasta_) {
            errno = EIO;
            return -1;
        }
        return Syscalls::open(nome, modo, permessi);
    }
    int aperture = 0;

private:
    int guasta_;
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

/// A suite of version one as an installation shares it, and a user.
class Installazione : public testing::Test {
protected:
    Installazione() {
        const char* prima = std::getenv("XDG_DATA_HOME");
        prima_ = prima != nullptr ? prima : "";
        ::setenv("XDG_DATA_HOME", (cartella_.radice() + "/dati").c_str(), 1);
        metti(condivisi("ridotti/cr0600.rid"), "1,2,3,4,5,6\r\n");
        metti(condivisi("ridotti/cr0700.rid"), "1,2,3,4,5,7\r\n");
        metti(condivisi("skin/skn.dat"), "1");
        metti(condivisi("skin/skin1_2.skn"), "scura");
        metti(condivisi("archivio/drawit.sqlite"), "inventati");
        metti(condivisi("cruciverba/esempio.sen"), "14,5,5");
        metti(condivisi("cruciverba/esempio.col"), "1,2,3,4,5,6\r\n");
    }
    ~Installazione() override {
        if (prima_.empty()) {
            ::unsetenv("XDG_DATA_HOME");
        } else {
            ::setenv("XDG_DATA_HOME", prima_.c_str(), 1);
        }
    }
    Installazione(const Installazione&) = delete;
    Installazione& operator=(const Installazione&) = delete;

    [[nodiscard]] std::string condivisi(const std::string& nome) const {
        return cartella_.radice() + "/share/" + nome;
    }
    [[nodiscard]] std::string mio(const std::string& nome) const {
        return cartella_.radice() + "/dati/sortivario/" + nome;
    }
    void avvia() const { trova_cartella("/usr/bin", cartella_.radice() + "/share"); }
    /// A new version of a shared file, to be told from the old one by its date at least.
    void nuova_versione(const std::string& nome, const std::string& dati) {
        metti(condivisi(nome), dati);
        // Not every library sets a date to less than a second.
        fs::last_write_time(condivisi(nome),
                            fs::file_time_type::clock::now() + std::chrono::hours(++versioni_));
    }
    [[nodiscard]] bool completa() const {
        for (const auto& voce : fs::recursive_directory_iterator(condivisi(""))) {
            const std::string nome = fs::relative(voce.path(), condivisi("")).string();
            if (voce.is_regular_file() && leggi(mio(nome)) != leggi(condivisi(nome))) return false;
        }
        return true;
    }

    support::Cartella cartella_;
    std::string prima_;
    int versioni_ = 0;
};

TEST_F(Installazione, AFirstStartWithOnePassingErrorIsCompletedByTheNext) {
    int volte = 1;
    {
        const ErroreDiPassaggio conta(0);
        avvia();
        volte = conta.aperture;
    }
    EXPECT_GE(volte, 8);
    for (int i = 1; i <= volte; ++i) {
        fs::remove_all(mio(""));
        {
            const ErroreDiPassaggio guasto(i);
            avvia();
        }
        // The player can work meanwhile.
        EXPECT_TRUE(esiste_cartella(mio("cruciverba"))) << i;
        avvia();
        EXPECT_TRUE(completa()) << i;
    }
}

TEST_F(Installazione, ANewVersionFillsWhatIsAbsentAndRenewsWhatIsOurs) {
    avvia();
    Kill(mio("ridotti/cr0700.rid"));
    nuova_versione("ridotti/cr0600.rid", "1,2,3,4,5,6\r\n1,2,3,4,5,7\r\n");
    nuova_versione("ridotti/cr0800.rid", "1,2,3,4,5,8\r\n");
    nuova_versione("skin/skin1_2.skn", "scura e leggibile");
    nuova_versione("archivio/drawit.sqlite", "altri inventati");
    avvia();
    EXPECT_TRUE(completa());
}

TEST_F(Installazione, ANewVersionLeavesWhatThePlayerChanged) {
    avvia();
    metti(mio("ridotti/cr0600.rid"), "mia");
    metti(mio("skin/skn.dat"), "3");
    metti(mio("archivio/drawit.sqlite"), "estrazioni vere");
    metti(mio("cruciverba/esempio.sen"), "14,9,9");
    Kill(mio("cruciverba/esempio.col"));
    for (const char* nome : {"ridotti/cr0600.rid", "skin/skn.dat", "archivio/drawit.sqlite",
                             "cruciverba/esempio.sen", "cruciverba/esempio.col"}) {
        nuova_versione(nome, "nuova");
    }
    for (int volta = 0; volta < 2; ++volta) {
        avvia();
        EXPECT_EQ(leggi(mio("ridotti/cr0600.rid")), "mia");
        EXPECT_EQ(leggi(mio("skin/skn.dat")), "3");
        EXPECT_EQ(leggi(mio("archivio/drawit.sqlite")), "estrazioni vere");
        EXPECT_EQ(leggi(mio("cruciverba/esempio.sen")), "14,9,9");
        EXPECT_FALSE(esiste_file(mio("cruciverba/esempio.col")));
    }
}

TEST_F(Installazione, AFileThatThePlayerPutBackIsTheSuitesAgain) {
    avvia();
    metti(mio("skin/skin1_2.skn"), "mia");
    nuova_versione("skin/skin1_2.skn", "due");
    avvia();
    metti(mio("skin/skin1_2.skn"), "due");
    nuova_versione("skin/skn.dat", "2");
    avvia();
    nuova_versione("skin/skin1_2.skn", "tre");
    avvia();
    EXPECT_EQ(leggi(mio("skin/skin1_2.skn")), "tre");
}

TEST_F(Installazione, AFolderOfAVersionWithoutRecordIsRenewedByTheListOfItsFiles) {
    avvia();
    // What the record of that version would be, shipped with the next.
    fs::copy_file(mio("dotazione"), condivisi("precedenti"));
    Kill(mio("dotazione"));
    Kill(mio("cruciverba/esempio.sen"));
    Kill(mio("cruciverba/esempio.col"));
    metti(mio("ridotti/cr0700.rid"), "mia");
    nuova_versione("ridotti/cr0700.rid", "nuova");
    nuova_versione("skin/skin1_2.skn", "scura e leggibile");
    avvia();
    EXPECT_EQ(leggi(mio("skin/skin1_2.skn")), "scura e leggibile");
    EXPECT_EQ(leggi(mio("ridotti/cr0700.rid")), "mia");
    EXPECT_FALSE(esiste_file(mio("cruciverba/esempio.sen")));
}

TEST_F(Installazione, ANewSampleComesButNeverToHalfOfThePlayersOwnSystem) {
    avvia();
    metti(mio("cruciverba/Doppio.sen"), "mio");
    nuova_versione("cruciverba/nuovo.sel", "5,3");
    nuova_versione("cruciverba/nuovo.lot", "1,2,3");
    nuova_versione("cruciverba/doppio.sen", "14,5,5");
    nuova_versione("cruciverba/doppio.col", "1,2,3,4,5,6\r\n");
    avvia();
    EXPECT_EQ(leggi(mio("cruciverba/nuovo.sel")), "5,3");
    EXPECT_EQ(leggi(mio("cruciverba/nuovo.lot")), "1,2,3");
    EXPECT_EQ(leggi(mio("cruciverba/Doppio.sen")), "mio");
    EXPECT_FALSE(esiste_file(mio("cruciverba/doppio.col")));
}

TEST_F(Installazione, AnArchiveThatAnotherProgramLeftALogBesideIsNotTouched) {
    for (const char* fine : {"-wal", "-journal"}) {
        fs::remove_all(mio(""));
        metti(condivisi("archivio/drawit.sqlite"), "inventati");
        avvia();
        metti(mio(std::string("archivio/drawit.sqlite") + fine), "registro");
        nuova_versione("archivio/drawit.sqlite", "altri");
        avvia();
        EXPECT_EQ(leggi(mio("archivio/drawit.sqlite")), "inventati") << fine;
    }
}

TEST_F(Installazione, ALinkThatThePlayerPutInThePlaceOfAFileStays) {
    avvia();
    metti(cartella_.radice() + "/altrove/drawit.sqlite", "inventati");
    Kill(mio("archivio/drawit.sqlite"));
    fs::create_symlink(cartella_.radice() + "/altrove/drawit.sqlite",
                       mio("archivio/drawit.sqlite"));
    nuova_versione("archivio/drawit.sqlite", "altri");
    avvia();
    EXPECT_TRUE(fs::is_symlink(mio("archivio/drawit.sqlite")));
    EXPECT_EQ(leggi(cartella_.radice() + "/altrove/drawit.sqlite"), "inventati");
}

TEST_F(Installazione, TheLinkToTheGuideFollowsTheSuiteAndThePlayersOwnStays) {
    metti(condivisi("guida"), "una");
    avvia();
    EXPECT_EQ(leggi(mio("guida")), "una");
    fs::rename(condivisi(""), cartella_.radice() + "/vecchia");
    fs::copy(cartella_.radice() + "/vecchia", condivisi(""), fs::copy_options::recursive);
    metti(cartella_.radice() + "/altra/ridotti/cr0600.rid", "1,2,3,4,5,6\r\n");
    metti(cartella_.radice() + "/altra/guida", "due");
    trova_cartella("/usr/bin", cartella_.radice() + "/altra");
    EXPECT_EQ(leggi(mio("guida")), "due");
    Kill(mio("guida"));
    fs::create_symlink(cartella_.radice() + "/vecchia/guida", mio("guida"));
    avvia();
    EXPECT_EQ(fs::read_symlink(mio("guida")), cartella_.radice() + "/vecchia/guida");
}

/// A suite folder, portable as the build makes it, that its user may not write.
class SolaLettura : public Installazione {
protected:
    SolaLettura() {
        fs::rename(condivisi(""), suite(""));
        metti(suite("cruciverba/tabellino"), "programma");
        metti(suite("cruciverba/act"), "");
        metti(suite("cruciverba/temp.col"), "a metà");
        metti(suite("guida"), "guida");
        metti(suite("guida.html"), "pagina");
        fs::permissions(cartella_.radice(), fs::perms::all);
        for (const auto& voce : fs::recursive_directory_iterator(suite(""))) {
            fs::permissions(
                voce.path(),
                fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                fs::perm_options::remove);
        }
    }
    ~SolaLettura() override {
        std::error_code errore;
        for (const char* parte : {"cruciverba", "ridotti", "skin", "archivio"})
            fs::permissions(suite(parte), fs::perms::owner_all, errore);
    }
    SolaLettura(const SolaLettura&) = delete;
    SolaLettura& operator=(const SolaLettura&) = delete;
    [[nodiscard]] std::string suite(const std::string& nome) const {
        return cartella_.radice() + "/suite/" + nome;
    }
    /// True when `prova` holds as a user who is not root.
    template <typename Prova>
    static bool da_altri(const Prova& prova) {
        const pid_t figlio = ::fork();
        if (figlio == 0) {
            if (::geteuid() == 0 && ::setuid(65534) != 0) ::_exit(2);
            ::_exit(prova() ? 0 : 1);
        }
        int stato = 0;
        ::waitpid(figlio, &stato, 0);
        return WIFEXITED(stato) && WEXITSTATUS(stato) == 0;
    }
};

TEST_F(SolaLettura, TheUsersOwnRootIsFilledFromTheSuiteOfTheProgram) {
    EXPECT_TRUE(da_altri([this] {
        const std::string qui = suite("cruciverba");
        return trova_cartella(qui, qui + "/../share/tabellino") == mio("cruciverba");
    }));
    for (const char* nome : {"ridotti/cr0600.rid", "ridotti/cr0700.rid", "skin/skn.dat",
                             "skin/skin1_2.skn", "archivio/drawit.sqlite", "guida", "guida.html",
                             "cruciverba/esempio.sen", "cruciverba/esempio.col"}) {
        EXPECT_EQ(leggi(mio(nome)), leggi(suite(nome))) << nome;
    }
    EXPECT_EQ(Dir(mio("cruciverba"), "*").size(), 2U) << "programs and working files came along";
    EXPECT_TRUE(fs::is_symlink(mio("guida")));
    // Copies of files that nobody may write are the user's to change.
    EXPECT_TRUE(da_altri([this] {
        return sostituisci(mio("skin/skn.dat"), "2") == Esito::ok &&
               ::access(mio("skin/skn.dat").c_str(), W_OK) == 0;
    }));
}

TEST_F(SolaLettura, ASuiteWithoutTablesGivesTheRest) {
    fs::permissions(suite("ridotti"), fs::perms::owner_all);
    fs::remove_all(suite("ridotti"));
    EXPECT_TRUE(da_altri([this] {
        const std::string qui = suite("cruciverba");
        trova_cartella(qui, qui + "/../share/tabellino");
        return leggi(mio("archivio/drawit.sqlite")) == "inventati";
    }));
}

}  // namespace
