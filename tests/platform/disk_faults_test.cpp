// What stands on the disk after a step that failed, was broken off or found no room.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/ambiente.h"
#include "platform/disk.h"
#include "support/cartella.h"

using namespace platform;

namespace {

namespace fs = std::filesystem;

/// A device with so much room, so large a write, and calls that fail when told to.
class Guasti : public Syscalls {
public:
    Guasti() = default;
    Guasti(const Guasti&) = delete;
    Guasti& operator=(const Guasti&) = delete;

    std::int64_t spazio = std::numeric_limits<std::int64_t>::max();
    std::size_t pezzo = std::numeric_limits<std::size_t>::max();
    bool segnali = false;  ///< every other call is broken off by a signal
    bool perde = false;    ///< what finds no room is lost without a word
    int errore_open = 0;
    int errore_write = 0;
    int errore_fsync = 0;
    int errore_close = 0;
    int errore_rename = 0;
    int vita = 0;  ///< the process dies before this call, counted from 1
    int chiamate = 0;

    int open(const char* nome, int modo, unsigned permessi) override {
        return passo(errore_open) ? Syscalls::open(nome, modo, permessi) : -1;
    }
    ssize_t read(int fd, void* dati, std::size_t quanti) override {
        return passo(0) && !interrotto() ? Syscalls::read(fd, dati, std::min(quanti, pezzo)) : -1;
    }
    ssize_t write(int fd, const void* dati, std::size_t quanti) override {
        if (!passo(errore_write) || interrotto()) {
            return -1;
        }
        if (spazio <= 0) {
            errno = ENOSPC;
            return perde ? static_cast<ssize_t>(quanti) : -1;
        }
        const auto n = std::min({quanti, pezzo, static_cast<std::size_t>(spazio)});
        spazio -= static_cast<std::int64_t>(n);
        return Syscalls::write(fd, dati, n);
    }
    int fsync(int fd) override {
        return passo(errore_fsync) && !interrotto() ? Syscalls::fsync(fd) : -1;
    }
    int close(int fd) override {
        // The descriptor is gone whatever the call reports.
        Syscalls::close(fd);
        if (segnali) {
            errno = EINTR;
            return -1;
        }
        return passo(errore_close) ? 0 : -1;
    }
    int rename(const char* vecchio, const char* nuovo) override {
        return passo(errore_rename) ? Syscalls::rename(vecchio, nuovo) : -1;
    }
    int rename_noreplace(const char* vecchio, const char* nuovo) override {
        return passo(errore_rename) ? Syscalls::rename_noreplace(vecchio, nuovo) : -1;
    }

private:
    bool passo(int errore) {
        if (++chiamate == vita) {
            ::raise(SIGKILL);
        }
        errno = errore;
        return errore == 0;
    }
    bool interrotto() {
        dispari_ = !dispari_;
        if (segnali && dispari_) {
            errno = EINTR;
            return true;
        }
        return false;
    }
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
    bool dispari_ = false;
};

/// One of the steps that change a file, its outcome and what it means to leave behind.
struct Passo {
    const char* nome;
    std::function<Esito(const std::string& file, const std::string& sorgente)> fa;
    bool accoda;                 ///< the new content is the old one with the data behind it
    bool resta_la_meta = false;  ///< a new file may stay as far as it got
};

const std::string dati_nuovi = [] {
    std::string s;
    for (int i = 0; i < 100; ++i) {
        s += "1,2,3,4,5," + std::to_string(i) + "\r\n";
    }
    return s;
}();
const std::string dati_vecchi = "vecchio contenuto\r\n";

const std::vector<Passo> passi = {
    {"aggiungi", [](auto& f, auto&) { return aggiungi(f, dati_nuovi); }, true},
    {"scrivi", [](auto& f, auto&) { return scrivi(f, dati_nuovi); }, false},
    {"sostituisci", [](auto& f, auto&) { return sostituisci(f, dati_nuovi); }, false},
    {"FileCopy", [](auto& f, auto& s) { return FileCopy(s, f); }, false},
    {"FileCopy, resta", [](auto& f, auto& s) { return FileCopy(s, f, Meta::resta); }, false, true},
};

class DiskFaults : public testing::Test {
protected:
    /// Puts the old file (or none) and the source of a copy in place, and nothing else.
    void prepara(bool esisteva) const {
        fs::remove_all(cartella_.programma());
        fs::create_directories(cartella_.programma());
        cartella_.scrivi("sorgente", dati_nuovi);
        if (esisteva) {
            cartella_.scrivi("file", dati_vecchi);
        }
    }
    [[nodiscard]] static std::string nuovo(const Passo& passo, bool esisteva) {
        return passo.accoda && esisteva ? dati_vecchi + dati_nuovi : dati_nuovi;
    }
    [[nodiscard]] std::size_t quanti() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(cartella_.programma()), {}));
    }
    Esito esegui(const Passo& passo) const {
        return passo.fa(cartella_.file("file"), cartella_.file("sorgente"));
    }
    /// The new file whole on success, the old one whole on failure, and no working file.
    void controlla(const Passo& passo, bool esisteva, Esito esito, const std::string& dove) const {
        EXPECT_EQ(cartella_.leggi("sorgente"), dati_nuovi) << passo.nome << dove;
        if (esito == Esito::ok) {
            EXPECT_EQ(cartella_.leggi("file"), nuovo(passo, esisteva)) << passo.nome << dove;
        } else if (esisteva) {
            EXPECT_EQ(cartella_.leggi("file"), dati_vecchi) << passo.nome << dove;
        } else if (passo.resta_la_meta) {
            EXPECT_TRUE(dati_nuovi.starts_with(cartella_.leggi("file"))) << passo.nome << dove;
        } else {
            EXPECT_EQ(cartella_.leggi("file"), "") << passo.nome << dove;
        }
        EXPECT_EQ(quanti(), cartella_.esiste("file") ? 2U : 1U) << passo.nome << dove;
    }
    void per_tutti(const std::function<void(Guasti&)>& guasta, Esito atteso, const char* quale) {
        for (const Passo& passo : passi) {
            for (const bool esisteva : {true, false}) {
                prepara(esisteva);
                Esito esito = Esito::ok;
                {
                    Guasti guasti;
                    guasta(guasti);
                    esito = esegui(passo);
                }
                EXPECT_EQ(esito, atteso) << passo.nome << ", " << quale;
                controlla(passo, esisteva, esito, std::string(", ") + quale);
            }
        }
    }

    support::Cartella cartella_;
};

TEST_F(DiskFaults, ADeviceThatFillsAfterAnyByteLeavesOldOrNew) {
    const auto quanto = static_cast<std::int64_t>(dati_nuovi.size());
    for (const Passo& passo : passi) {
        for (const bool esisteva : {true, false}) {
            for (std::int64_t spazio = 0; spazio <= quanto;
                 spazio += spazio + 17 < quanto ? 17 : 1) {
                prepara(esisteva);
                Esito esito = Esito::ok;
                {
                    Guasti guasti;
                    guasti.spazio = spazio;
                    guasti.pezzo = 100;
                    esito = esegui(passo);
                }
                ASSERT_EQ(esito, spazio < quanto ? Esito::disco_pieno : Esito::ok)
                    << passo.nome << spazio;
                controlla(passo, esisteva, esito, " " + std::to_string(spazio));
                ASSERT_FALSE(HasFailure());
            }
        }
    }
}

TEST_F(DiskFaults, ShortWritesAndSignalsChangeNothing) {
    per_tutti([](Guasti& g) { g.pezzo = 3; }, Esito::ok, "short");
    per_tutti([](Guasti& g) { g.segnali = true; }, Esito::ok, "signals");
    per_tutti(
        [](Guasti& g) {
            g.segnali = true;
            g.pezzo = 1;
        },
        Esito::ok, "both");
}

TEST_F(DiskFaults, AFileThatCannotBeOpenedIsTold) {
    per_tutti([](Guasti& g) { g.errore_open = EROFS; }, Esito::errore, "open");
    per_tutti([](Guasti& g) { g.errore_open = EDQUOT; }, Esito::disco_pieno, "open, quota");
}

TEST_F(DiskFaults, AFailingWriteOrCloseIsTold) {
    per_tutti([](Guasti& g) { g.errore_write = EIO; }, Esito::errore, "write");
    per_tutti([](Guasti& g) { g.errore_write = EDQUOT; }, Esito::disco_pieno, "write, quota");
}

TEST_F(DiskFaults, AFailingSyncOrRenameIsTold) {
    for (const Passo& passo : passi) {
        if (passo.accoda) {
            continue;  // neither synced nor renamed
        }
        for (const int errore : {EIO, ENOSPC}) {
            const Esito atteso = errore == EIO ? Esito::errore : Esito::disco_pieno;
            prepara(true);
            Esito esito = Esito::ok;
            {
                Guasti guasti;
                guasti.errore_fsync = errore;
                esito = esegui(passo);
            }
            EXPECT_EQ(esito, atteso) << passo.nome;
            controlla(passo, true, esito, ", sync");
            {
                Guasti guasti;
                guasti.errore_rename = errore;
                esito = esegui(passo);
            }
            EXPECT_EQ(esito, atteso) << passo.nome;
            controlla(passo, true, esito, ", rename");
            prepara(false);
            {
                Guasti guasti;
                guasti.errore_fsync = errore;
                esito = esegui(passo);
            }
            EXPECT_EQ(esito, atteso) << passo.nome;
            controlla(passo, false, esito, ", sync of a new file");
        }
    }
}

TEST_F(DiskFaults, AFailingCloseLeavesTheOldFile) {
    for (const Passo& passo : passi) {
        prepara(true);
        Esito esito = Esito::ok;
        {
            Guasti guasti;
            guasti.errore_close = ENOSPC;
            esito = esegui(passo);
        }
        EXPECT_EQ(esito, Esito::disco_pieno) << passo.nome;
        // What was appended was accepted by every write; only its way to the disk is in doubt.
        if (!passo.accoda) {
            controlla(passo, true, esito, ", close");
        }
    }
}

TEST_F(DiskFaults, DataLostWithoutAWordAreNoticedByTheSize) {
    for (const std::int64_t spazio : {0, 1, 500}) {
        prepara(true);
        Esito esito = Esito::ok;
        {
            Guasti guasti;
            guasti.perde = true;
            guasti.spazio = spazio;
            guasti.pezzo = 100;
            esito = sostituisci(cartella_.file("file"), dati_nuovi);
        }
        EXPECT_EQ(esito, Esito::disco_pieno);
        EXPECT_EQ(cartella_.leggi("file"), dati_vecchi);
        EXPECT_EQ(quanti(), 2U);
    }
}

TEST_F(DiskFaults, PublishingSyncsBeforeItRenames) {
    prepara(true);
    cartella_.scrivi("temp.col", dati_nuovi);
    const auto quanto = static_cast<std::int64_t>(dati_nuovi.size());
    {
        Guasti guasti;
        guasti.errore_fsync = EIO;
        EXPECT_EQ(pubblica(cartella_.file("temp.col"), cartella_.file("file"), quanto),
                  Esito::errore);
    }
    EXPECT_EQ(cartella_.leggi("file"), dati_vecchi);
    EXPECT_EQ(cartella_.leggi("temp.col"), dati_nuovi);
    {
        Guasti guasti;
        guasti.errore_rename = EROFS;
        EXPECT_EQ(pubblica(cartella_.file("temp.col"), cartella_.file("file"), quanto),
                  Esito::errore);
    }
    EXPECT_EQ(cartella_.leggi("file"), dati_vecchi);
    EXPECT_EQ(cartella_.leggi("temp.col"), dati_nuovi);
}

TEST_F(DiskFaults, AKillBeforeAnyCallOfAReplacementLeavesOldOrNew) {
    for (const char* nome : {"sostituisci", "scrivi", "FileCopy"}) {
        const auto passo = std::find_if(passi.begin(), passi.end(),
                                        [&](const Passo& p) { return !strcmp(p.nome, nome); });
        bool vecchio_visto = false;
        bool nuovo_visto = false;
        for (int vita = 1;; ++vita) {
            prepara(true);
            const pid_t figlio = ::fork();
            if (figlio == 0) {
                Guasti guasti;
                guasti.pezzo = 300;
                guasti.vita = vita;
                esegui(*passo);
                ::_exit(0);
            }
            int stato = 0;
            ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
            const std::string resta = cartella_.leggi("file");
            ASSERT_TRUE(resta == dati_vecchi || resta == dati_nuovi) << nome << vita;
            (resta == dati_vecchi ? vecchio_visto : nuovo_visto) = true;
            for (const std::string& altro : Dir(cartella_.programma(), "*")) {
                ASSERT_TRUE(altro == "file" || altro == "sorgente" || e_nome_di_lavoro(altro))
                    << altro;
            }
            if (!WIFSIGNALED(stato)) {
                break;
            }
        }
        EXPECT_TRUE(vecchio_visto && nuovo_visto) << nome;
    }
}

/// A real file system of 1 MiB in a mount name space of this process, gone with it.
class DiscoPiccolo : public testing::Test {
protected:
    static constexpr std::size_t grandezza = std::size_t{1} << 20;

    void SetUp() override {
        if (::geteuid() != 0) {
            GTEST_SKIP() << "only root can mount a small disk";
        }
        if (::unshare(CLONE_NEWNS) != 0 ||
            ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("tmpfs", cartella_.programma().c_str(), "tmpfs", 0, "size=1m") != 0) {
            GTEST_SKIP() << "no small disk can be mounted here: " << std::strerror(errno);
        }
        montato_ = true;
    }
    void TearDown() override {
        if (montato_) {
            ::umount(cartella_.programma().c_str());
        }
    }

    /// Sizes around the limit at which `libero` bytes are left.
    template <typename F>
    void per_ogni_misura(std::size_t libero, const F& prova) {
        for (int i = 0; i < 97; ++i) {
            const std::size_t misura = libero - 48 * 512 + static_cast<std::size_t>(i) * 512;
            prova(misura + static_cast<std::size_t>(i % 3) - 1);
        }
    }

    [[nodiscard]] std::string contenuto() const {
        return leggi_tutto(cartella_.file("file")).value_or("");
    }

    support::Cartella cartella_;
    bool montato_ = false;
};

TEST_F(DiscoPiccolo, AReplacementIsWholeOrHasNotBeenAtEverySize) {
    const std::string vecchio(20000, 'v');
    for (const std::size_t pezzo : {std::size_t{511}, std::size_t{4096}, std::size_t{65536},
                                    std::numeric_limits<std::size_t>::max()}) {
        int riuscite = 0;
        int fallite = 0;
        per_ogni_misura(grandezza - 20480, [&](std::size_t misura) {
            cartella_.scrivi("file", vecchio);
            const std::string nuovo(misura, 'n');
            Esito esito = Esito::ok;
            {
                Guasti guasti;
                guasti.pezzo = pezzo;
                esito = sostituisci(cartella_.file("file"), nuovo);
            }
            ASSERT_TRUE(esito == Esito::ok || esito == Esito::disco_pieno);
            ASSERT_TRUE(contenuto() == (esito == Esito::ok ? nuovo : vecchio))
                << misura << " " << pezzo;
            ASSERT_EQ(Dir(cartella_.programma(), "*").size(), 1U);
            ++(esito == Esito::ok ? riuscite : fallite);
            Kill(cartella_.file("file"));
        });
        EXPECT_GT(riuscite, 10);
        EXPECT_GT(fallite, 10);
    }
}

TEST_F(DiscoPiccolo, AnAppendIsWholeOrHasNotBeenAtEverySize) {
    const std::string vecchio(20000, 'v');
    int riuscite = 0;
    int fallite = 0;
    per_ogni_misura(grandezza - 20480, [&](std::size_t misura) {
        cartella_.scrivi("file", vecchio);
        const std::string nuovo(misura, 'n');
        const Esito esito = aggiungi(cartella_.file("file"), nuovo);
        ASSERT_TRUE(esito == Esito::ok || esito == Esito::disco_pieno);
        ASSERT_TRUE(contenuto() == (esito == Esito::ok ? vecchio + nuovo : vecchio));
        ++(esito == Esito::ok ? riuscite : fallite);
        Kill(cartella_.file("file"));
    });
    EXPECT_GT(riuscite, 10);
    EXPECT_GT(fallite, 10);
}

TEST_F(DiscoPiccolo, ANewFileIsWholeOrNotThereAtEverySize) {
    int riuscite = 0;
    int fallite = 0;
    per_ogni_misura(grandezza, [&](std::size_t misura) {
        const std::string nuovo(misura, 'n');
        const Esito esito = scrivi(cartella_.file("file"), nuovo);
        ASSERT_EQ(cartella_.esiste("file"), esito == Esito::ok);
        if (esito == Esito::ok) {
            ASSERT_TRUE(contenuto() == nuovo);
        }
        ++(esito == Esito::ok ? riuscite : fallite);
        Kill(cartella_.file("file"));
    });
    EXPECT_GT(riuscite, 10);
    EXPECT_GT(fallite, 10);
}

TEST_F(DiscoPiccolo, ACopyThatFindsNoRoomIsToldAndStaysHalfWrittenWhenAsked) {
    const std::string dati(grandezza + 5000, 'n');
    const std::string fuori = cartella_.radice() + "/fuori.col";
    ASSERT_EQ(scrivi(fuori, dati), Esito::ok);
    EXPECT_EQ(FileCopy(fuori, cartella_.file("file")), Esito::disco_pieno);
    EXPECT_FALSE(cartella_.esiste("file"));
    EXPECT_EQ(FileCopy(fuori, cartella_.file("file"), Meta::resta), Esito::disco_pieno);
    EXPECT_GT(dimensione_file(cartella_.file("file")).value_or(0), 0);
    EXPECT_TRUE(dati.starts_with(contenuto()));
    EXPECT_EQ(dimensione_file(fuori), static_cast<std::int64_t>(dati.size()));
}

}  // namespace
