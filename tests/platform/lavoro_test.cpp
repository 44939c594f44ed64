// Working files and whose they are; renames among programs that share a folder.
#include "platform/lavoro.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/ambiente.h"
#include "platform/blocco.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "support/cartella.h"

using namespace platform;

namespace {

namespace fs = std::filesystem;
using Nomi = std::vector<std::string>;

/// A disk without some calls, and one that takes two cases of a name for one.
class Povero : public Syscalls {
public:
    Povero() = default;
    Povero(const Povero&) = delete;
    Povero& operator=(const Povero&) = delete;
    int rename_noreplace(const char* vecchio, const char* nuovo) override {
        if (al_momento) al_momento(nuovo);
        errno = errore_noreplace;
        if (errore_noreplace != 0) return -1;
        errno = EEXIST;
        if (senza_caso && LCase(vecchio) == LCase(nuovo)) return -1;
        return Syscalls::rename_noreplace(vecchio, nuovo);
    }
    int link(const char* vecchio, const char* nuovo) override {
        errno = errore_link;
        return errore_link != 0 ? -1 : Syscalls::link(vecchio, nuovo);
    }
    int flock(int fd, int operazione) override {
        errno = errore_flock;
        return errore_flock != 0 ? -1 : Syscalls::flock(fd, operazione);
    }
    int fcntl_lock(int fd) override {
        errno = errore_fcntl;
        return errore_fcntl != 0 ? -1 : Syscalls::fcntl_lock(fd);
    }
    /// Another program, just before a rename.
    std::function<void(const std::string&)> al_momento;
    int errore_noreplace = 0;
    int errore_link = 0;
    int errore_flock = 0;
    int errore_fcntl = 0;
    bool senza_caso = false;

private:
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

class LavoroTest : public testing::Test {
protected:
    [[nodiscard]] std::string f(const std::string& nome) const { return cartella_.file(nome); }
    [[nodiscard]] Nomi tutti() const { return Dir(cartella_.programma(), "*"); }
    void invecchia(const std::string& nome, std::time_t ore) const {
        const std::time_t allora = ::time(nullptr) - ore * 3600;
        const timespec tempi[2] = {{allora, 0}, {allora, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, f(nome).c_str(), tempi, 0), 0);
    }
    support::Cartella cartella_;
};

TEST_F(LavoroTest, GoesWithItsOwnerUnlessPublished) {
    {
        Lavoro lavoro(cartella_.programma());
        ASSERT_EQ(lavoro.esito(), Esito::ok);
        EXPECT_EQ(tutti().size(), 1U);
        EXPECT_TRUE(e_nome_di_lavoro(tutti()[0]));
    }
    EXPECT_TRUE(tutti().empty());
    {
        Lavoro lavoro(cartella_.programma());
        ASSERT_EQ(::write(lavoro.file().fd(), "12345", 5), 5);
        EXPECT_EQ(lavoro.pubblica(f("a"), 6), Esito::disco_pieno);
        EXPECT_EQ(lavoro.pubblica(f("a"), 5), Esito::ok);
    }
    EXPECT_EQ(tutti(), Nomi{"a"});
    EXPECT_EQ(Lavoro(f("manca")).esito(), Esito::assente);
}

TEST_F(LavoroTest, AHundredNamesAreTriedAndAHundredMoreToPutAFileAside) {
    const auto numero = [](int n) {
        return "temp-" + std::to_string(::getpid()) + "-" + std::to_string(n) + ".nuovo";
    };
    for (int n = 0; n < 99; ++n) cartella_.scrivi(numero(n), "");
    {
        Lavoro ultimo(cartella_.programma());
        EXPECT_EQ(ultimo.esito(), Esito::ok);
        EXPECT_EQ(ultimo.nome(), f(numero(99)));
        const Lavoro nessuno(cartella_.programma());
        EXPECT_EQ(nessuno.esito(), Esito::errore);
        EXPECT_EQ(nessuno.nome(), "");
    }
    cartella_.scrivi("a", "mio");
    for (int n = 100; n < 200; ++n) {
        Accantonato da_parte;
        EXPECT_EQ(da_parte.metti(f("a")), Esito::ok);
        EXPECT_TRUE(cartella_.esiste(numero(n)));
        EXPECT_EQ(da_parte.rimetti(), Esito::ok);
        cartella_.scrivi(numero(n), "");
    }
    Accantonato fuori;
    EXPECT_EQ(fuori.metti(f("a")), Esito::errore);
    EXPECT_EQ(cartella_.leggi("a"), "mio");
}

TEST_F(LavoroTest, NobodySweepsWhatItsOwnerHolds) {
    Lavoro lavoro(cartella_.programma());
    lavoro.file().chiudi();
    cartella_.scrivi("temp-1-0.nuovo", "left by a program of another machine");
    cartella_.scrivi("TEMP-" + std::to_string(::getppid()) + ".NUOVO", "and by one of this number");
    cartella_.scrivi("tempo.sen", "x");
    // Another program, and this one itself.
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        spazza(cartella_.programma());
        ::_exit(0);
    }
    ASSERT_EQ(::waitpid(figlio, nullptr, 0), figlio);
    spazza(cartella_.programma());
    const Nomi restano = tutti();
    EXPECT_EQ(restano.size(), 2U);
    EXPECT_NE(std::find(restano.begin(), restano.end(),
                        lavoro.nome().substr(lavoro.nome().rfind('/') + 1)),
              restano.end());
    EXPECT_TRUE(cartella_.esiste("tempo.sen"));
}

TEST_F(LavoroTest, WhatAKilledProgramLeavesIsSwept) {
    int tubo[2];
    ASSERT_EQ(::pipe(tubo), 0);
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        const Lavoro lavoro(cartella_.programma());
        if (::write(tubo[1], "1", 1) == 1) ::pause();
        ::_exit(0);
    }
    char pronto = 0;
    ASSERT_EQ(::read(tubo[0], &pronto, 1), 1);
    spazza(cartella_.programma());
    EXPECT_EQ(tutti().size(), 1U);
    ::kill(figlio, SIGKILL);
    ::waitpid(figlio, nullptr, 0);
    spazza(cartella_.programma());
    EXPECT_TRUE(tutti().empty());
    ::close(tubo[0]);
    ::close(tubo[1]);
}

TEST_F(LavoroTest, OnADiskWithoutLocksOnlyWhatIsOldIsSwept) {
    Povero disco;
    disco.errore_flock = ENOLCK;
    disco.errore_fcntl = ENOLCK;
    for (const char* nome : {"temp-1.nuovo", "temp-2.nuovo"}) cartella_.scrivi(nome, "x");
    invecchia("temp-1.nuovo", 30);
    invecchia("temp-2.nuovo", 20);
    spazza(cartella_.programma());
    EXPECT_EQ(tutti(), Nomi{"temp-2.nuovo"});
    EXPECT_EQ(sostituisci(f("a"), "x"), Esito::ok);
}

TEST_F(LavoroTest, ADiskWithoutTheOneKindOfLockHasTheOther) {
    Povero disco;
    disco.errore_flock = ENOLCK;
    const Lavoro lavoro(cartella_.programma());
    spazza(cartella_.programma());
    EXPECT_EQ(tutti().size(), 1U);
    const int fd = ::open(lavoro.nome().c_str(), O_RDWR);
    EXPECT_EQ(blocca(fd), Presa::occupata);
    disco.errore_fcntl = EINVAL;
    EXPECT_EQ(blocca(fd), Presa::impossibile);
    ::close(fd);
}

TEST_F(LavoroTest, ARenameSparesAFileThatCameToBeMeanwhile) {
    for (const int errore : {0, EINVAL, ENOSYS}) {
        for (const int errore_link : {0, EPERM}) {
            cartella_.scrivi("a", "mio");
            {
                Povero disco;
                disco.errore_noreplace = errore;
                disco.errore_link = errore_link;
                disco.al_momento = [](const std::string& nome) { std::ofstream(nome) << "suo"; };
                EXPECT_EQ(Name(f("a"), f("b")), Esito::errore) << errore << errore_link;
                EXPECT_EQ(cartella_.leggi("a"), "mio");
                EXPECT_EQ(cartella_.leggi("b"), "suo");
                fs::remove(f("b"));
                disco.al_momento = nullptr;
                EXPECT_EQ(Name(f("a"), f("b")), Esito::ok) << errore << errore_link;
            }
            EXPECT_EQ(tutti(), Nomi{"b"});
            EXPECT_EQ(cartella_.leggi("b"), "mio");
            fs::remove(f("b"));
        }
    }
}

TEST_F(LavoroTest, ANameTakesItsNewCaseOnADiskThatKnowsNoCase) {
    Povero disco;
    disco.senza_caso = true;
    cartella_.scrivi("prova.sen", "x");
    EXPECT_EQ(Name(f("prova.sen"), f("PROVA.sen")), Esito::ok);
    EXPECT_EQ(tutti(), Nomi{"PROVA.sen"});
    EXPECT_EQ(Name(f("PROVA.sen"), f("PROVA.sen")), Esito::ok);
    // A file at the third name bars the way and stays.
    cartella_.scrivi("prova-.sen", "altro");
    EXPECT_EQ(Name(f("PROVA.sen"), f("prova.sen")), Esito::errore);
    EXPECT_EQ(tutti(), (Nomi{"prova-.sen", "PROVA.sen"}));
    EXPECT_EQ(cartella_.leggi("prova-.sen"), "altro");
}

}  // namespace
