// What is written to the disk, and what stays of the file that stood there.
#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/ambiente.h"
#include "platform/disk.h"
#include "platform/disk_prova.h"

using namespace platform;
using prova::Disk;
namespace fs = std::filesystem;

namespace {

TEST_F(Disk, AppendingMakesTheFileAndAddsToIt) {
    EXPECT_EQ(aggiungi(f("Temp.col"), "1,2\r\n"), Esito::ok);
    EXPECT_EQ(aggiungi(f("tEMP.col"), "3,4\r\n"), Esito::ok);
    EXPECT_EQ(aggiungi(f("tEMP.col"), ""), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Temp.col"), "1,2\r\n3,4\r\n");
    EXPECT_EQ(tutti(), Nomi{"Temp.col"});
}

TEST_F(Disk, WritingMakesTheFileOrEmptiesItFirst) {
    EXPECT_EQ(scrivi(f("Cst"), "lungo"), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Cst"), "lungo");
    EXPECT_EQ(scrivi(f("cST"), "x"), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Cst"), "x");
    EXPECT_EQ(scrivi(f("cST"), ""), Esito::ok);
    EXPECT_EQ(dimensione_file(f("Cst")), 0);
    EXPECT_EQ(tutti(), Nomi{"Cst"});
}

TEST_F(Disk, ReplacingKeepsTheCaseOnDiskAndLeavesNoWorkingFile) {
    EXPECT_EQ(sostituisci(f("Prova.sen"), "uno"), Esito::ok);
    EXPECT_EQ(sostituisci(cartella_.radice() + "/Cruciverba/PROVA.sen", "due"), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Prova.sen"), "due");
    EXPECT_EQ(tutti(), Nomi{"Prova.sen"});
    EXPECT_EQ(sostituisci(f("manca/x"), "due"), Esito::assente);
}

TEST_F(Disk, ReplacingALinkRenewsWhatItLeadsTo) {
    fs::create_directories(cartella_.radice() + "/altrove");
    const std::string meta = cartella_.radice() + "/altrove/meta";
    std::ofstream(meta) << "m";
    fs::create_symlink("../altrove/meta", f("link"));
    EXPECT_EQ(sostituisci(f("LINK"), "nuovo"), Esito::ok);
    EXPECT_EQ(leggi_tutto(meta), "nuovo");
    EXPECT_TRUE(fs::is_symlink(f("link")));
    cartella_.scrivi("temp.col", "12345");
    EXPECT_EQ(pubblica(f("temp.col"), dietro_il_collegamento(f("LINK")), 5), Esito::ok);
    EXPECT_EQ(leggi_tutto(meta), "12345");
    EXPECT_TRUE(fs::is_symlink(f("link")));
    EXPECT_EQ(tutti(), Nomi{"link"});
    EXPECT_EQ(Dir(cartella_.radice() + "/altrove", "*"), Nomi{"meta"});
}

/// Puts another file in the place of one that is being read.
class Scambio : public Syscalls {
public:
    Scambio(std::string da, std::string a) : da_(std::move(da)), a_(std::move(a)) {}
    Scambio(const Scambio&) = delete;
    Scambio& operator=(const Scambio&) = delete;
    ssize_t read(int fd, void* dati, std::size_t quanti) override {
        fs::rename(da_, a_, fatto_);
        return Syscalls::read(fd, dati, quanti);
    }

private:
    std::string da_;
    std::string a_;
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
    std::error_code fatto_;
};

TEST_F(Disk, ACopyBearsTheWordOfWhatWasCopied) {
    cartella_.scrivi("a.col", "vecchio");
    if (!annota(f("a.col"), "prima")) GTEST_SKIP() << "this disk keeps no words";
    cartella_.scrivi("temp.col", "nuovo");
    annota(f("temp.col"), "dopo");
    {
        const Scambio scambio(f("temp.col"), f("a.col"));
        EXPECT_EQ(FileCopy(f("a.col"), f("b.col")), Esito::ok);
    }
    EXPECT_EQ(annotazione(f("a.col")), "dopo");
    EXPECT_EQ(leggi_tutto(f("b.col")), "vecchio");
    EXPECT_EQ(annotazione(f("b.col")), "prima");
}

TEST_F(Disk, AFinishedFileReachesALinkToAnotherDisk) {
    if (fs::status("/dev/shm").type() != fs::file_type::directory) GTEST_SKIP() << "no other disk";
    const std::string meta = "/dev/shm/tabellino-prova-" + std::to_string(::getpid());
    std::ofstream(meta) << "vecchio";
    fs::create_symlink(meta, f("a.col"));
    cartella_.scrivi("temp.col", "12345");
    annota(f("temp.col"), "parola");
    const std::string parola = annotazione(f("temp.col"));
    EXPECT_EQ(pubblica(f("temp.col"), dietro_il_collegamento(f("a.col")), 5), Esito::ok);
    EXPECT_EQ(leggi_tutto(meta), "12345");
    EXPECT_EQ(annotazione(f("a.col")), parola);
    EXPECT_TRUE(fs::is_symlink(f("a.col")));
    EXPECT_EQ(tutti(), Nomi{"a.col"});
    fs::remove(meta);
}

TEST_F(Disk, ALinkThatLeadsNowhereGivesWay) {
    fs::create_symlink("manca", f("rotto"));
    EXPECT_EQ(sostituisci(f("rotto"), "nuovo"), Esito::ok);
    EXPECT_FALSE(fs::is_symlink(f("rotto")));
    EXPECT_EQ(tutti(), Nomi{"rotto"});
}

TEST_F(Disk, AReplacedFileKeepsItsMode) {
    for (const unsigned modo : {0600U, 0640U, 0444U}) {
        cartella_.scrivi("a.sen", "1");
        ASSERT_EQ(::chmod(f("a.sen").c_str(), modo), 0);
        const auto suo = [&] {
            return static_cast<unsigned>(fs::status(f("a.sen")).permissions());
        };
        EXPECT_EQ(sostituisci(f("A.sen"), "2"), Esito::ok);
        EXPECT_EQ(suo(), modo);
        cartella_.scrivi("b.sen", "3");
        EXPECT_EQ(FileCopy(f("b.sen"), f("a.sen")), Esito::ok);
        EXPECT_EQ(suo(), modo);
        cartella_.scrivi("temp.col", "12345");
        EXPECT_EQ(pubblica(f("temp.col"), f("a.sen"), 5), Esito::ok);
        EXPECT_EQ(suo(), modo);
        fs::remove(f("a.sen"));
    }
}

TEST_F(Disk, AWordGoesWithTheContentAndWithNoOther) {
    cartella_.scrivi("A.col", "1");
    if (!annota(f("a.col"), "parola")) GTEST_SKIP() << "this disk keeps no attributes";
    EXPECT_EQ(annotazione(f("a.COL")), "parola");
    EXPECT_EQ(FileCopy(f("a.col"), f("b.col"), Meta::via, "altra"), Esito::ok);
    EXPECT_EQ(annotazione(f("b.col")), "parola");
    EXPECT_EQ(Name(f("b.col"), f("c.col")), Esito::ok);
    EXPECT_EQ(annotazione(f("c.col")), "parola");
    EXPECT_EQ(sostituisci(f("c.col"), "2"), Esito::ok);
    EXPECT_EQ(annotazione(f("c.col")), "");
    EXPECT_EQ(FileCopy(f("c.col"), f("a.col"), Meta::via, "altra"), Esito::ok);
    EXPECT_EQ(annotazione(f("a.col")), "altra");
    EXPECT_EQ(annotazione(f("manca")), "");
    EXPECT_FALSE(annota(f("manca"), "parola"));
    EXPECT_EQ(tutti(), (Nomi{"A.col", "c.col"}));
}

TEST_F(Disk, PublishingMovesAFileOfTheToldSizeOnly) {
    cartella_.scrivi("temp.col", "12345");
    cartella_.scrivi("Finale.col", "vecchio");
    EXPECT_EQ(pubblica(f("temp.col"), f("finale.col"), 6), Esito::disco_pieno);
    EXPECT_EQ(cartella_.leggi("Finale.col"), "vecchio");
    EXPECT_EQ(cartella_.leggi("temp.col"), "12345");
    EXPECT_EQ(pubblica(f("TEMP.col"), f("finale.col"), 5), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Finale.col"), "12345");
    EXPECT_EQ(tutti(), Nomi{"Finale.col"});
    EXPECT_EQ(pubblica(f("temp.col"), f("finale.col"), 5), Esito::assente);
}

TEST_F(Disk, ALeftoverWorkingFileOfAnotherLifeIsNotTouched) {
    const std::string resto = "temp-" + std::to_string(::getpid()) + "-0.nuovo";
    cartella_.scrivi(resto, "resto");
    EXPECT_EQ(sostituisci(f("a"), "x"), Esito::ok);
    EXPECT_EQ(cartella_.leggi(resto), "resto");
    EXPECT_EQ(cartella_.leggi("a"), "x");
}

TEST_F(Disk, WorkingNamesAreKnownAgainAndPlayersNamesAreNot) {
    EXPECT_TRUE(e_nome_di_lavoro("temp-12.nuovo"));
    EXPECT_TRUE(e_nome_di_lavoro("temp-12-3.nuovo"));
    for (const char* nome :
         {"tempo.sen", "temp.col", "temp-.nuovo", "temp-a.nuovo", "temp--1.nuovo",
          "temp-1.nuovo.sen", "temp.nuovo", "temp-nuovo", "", "atemp-1.nuovo"}) {
        EXPECT_FALSE(e_nome_di_lavoro(nome)) << nome;
    }
}

TEST_F(Disk, AWholeFileIsReadUpToTheLimit) {
    cartella_.scrivi("A.rid", "12345");
    EXPECT_EQ(leggi_tutto(f("a.RID")), "12345");
    EXPECT_EQ(leggi_tutto(f("a.rid"), 5), "12345");
    EXPECT_FALSE(leggi_tutto(f("a.rid"), 4));
    EXPECT_FALSE(leggi_tutto(f("manca")));
    cartella_.scrivi("vuoto", "");
    EXPECT_EQ(leggi_tutto(f("vuoto")), "");
}

/// Every step that could write onto, remove or wait for what is no plain file.
void nessuno_tocca(const std::string& nome, const std::string& sorgente) {
    EXPECT_EQ(scrivi(nome, "x"), Esito::errore) << nome;
    EXPECT_EQ(aggiungi(nome, "x"), Esito::errore) << nome;
    EXPECT_EQ(sostituisci(nome, "x"), Esito::errore) << nome;
    EXPECT_EQ(pubblica(sorgente, nome, 1), Esito::errore) << nome;
    EXPECT_EQ(FileCopy(sorgente, nome), Esito::errore) << nome;
    EXPECT_EQ(FileCopy(nome, sorgente), Esito::errore) << nome;
    EXPECT_EQ(Name(sorgente, nome), Esito::errore) << nome;
    EXPECT_EQ(Name(nome, sorgente + "2"), Esito::errore) << nome;
    EXPECT_EQ(pubblica(nome, sorgente, 0), Esito::errore) << nome;
    EXPECT_EQ(Kill(nome), Esito::errore) << nome;
    EXPECT_FALSE(leggi_tutto(nome)) << nome;
    EXPECT_FALSE(esiste_file(nome)) << nome;
}

TEST_F(Disk, FoldersPipesAndSocketsAreNeitherWrittenNorWaitedFor) {
    cartella_.scrivi("sorgente", "s");
    fs::create_directories(f("cartella"));
    ASSERT_EQ(::mkfifo(f("fifo").c_str(), 0600), 0);
    sockaddr_un indirizzo{};
    indirizzo.sun_family = AF_UNIX;
    const std::string presa = f("presa");
    std::copy(presa.begin(), presa.end(), indirizzo.sun_path);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&indirizzo), sizeof indirizzo), 0);
    for (const char* nome : {"cartella", "fifo", "presa"}) {
        nessuno_tocca(f(nome), f("sorgente"));
    }
    ::close(fd);
    EXPECT_EQ(tutti(), (Nomi{"cartella", "fifo", "presa", "sorgente"}));
    EXPECT_EQ(cartella_.leggi("sorgente"), "s");
    EXPECT_TRUE(fs::is_fifo(f("fifo")));
}

TEST_F(Disk, DeviceNodesAreLeftAlone) {
    // A node of its own, so that a faulty program run as root harms no real device.
    if (::mknod(f("nulla").c_str(), S_IFCHR | 0600, static_cast<dev_t>((1 << 8) | 3)) != 0) {
        GTEST_SKIP() << "device nodes cannot be made here";
    }
    cartella_.scrivi("sorgente", "s");
    nessuno_tocca(f("nulla"), f("sorgente"));
    EXPECT_TRUE(fs::is_character_file(f("nulla")));
    EXPECT_EQ(tutti(), (Nomi{"nulla", "sorgente"}));
}

TEST_F(Disk, NothingIsWrittenThroughALink) {
    cartella_.scrivi("meta", "m");
    cartella_.scrivi("sorgente", "s");
    fs::create_symlink("meta", f("link"));
    fs::create_symlink("manca", f("rotto"));
    for (const char* nome : {"link", "rotto"}) {
        EXPECT_EQ(scrivi(f(nome), "x"), Esito::errore);
        EXPECT_EQ(aggiungi(f(nome), "x"), Esito::errore);
        EXPECT_EQ(FileCopy(f("sorgente"), f(nome)), Esito::errore);
        EXPECT_TRUE(fs::is_symlink(f(nome)));
    }
    EXPECT_EQ(cartella_.leggi("meta"), "m");
    EXPECT_FALSE(cartella_.esiste("manca"));
}

}  // namespace
