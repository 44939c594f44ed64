// Every work on the library, with a fault put in at each of its steps.
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include "check/spoglio.h"
#include "development/tabelle.h"
#include "guasti/lavori.h"
#include "platform/ambiente.h"
#include "platform/disk.h"
#include "printing/listati.h"
#include "statistics/statistica.h"
#include "support/guasti.h"
#include "systems/appartenenza.h"
#include "viewer/importo.h"
#include "viewer/indice.h"

namespace guasti {
namespace {

namespace fs = std::filesystem;

class Iniettati : public testing::Test {
protected:
    /// Runs a work under a fault and counts whether all is whole after a restart.
    template <typename F>
    void prova(Riga& riga, const Lavoro& lavoro, const Attesa& attesa, const F& con_guasto,
               const Licenza& licenza = {}) {
        libreria_.prepara();
        con_guasto();
        libreria_.riavvia();
        const auto salvo = intero(libreria_, lavoro, attesa, licenza);
        EXPECT_TRUE(salvo);
        riga.prova(bool{salvo});
    }
    [[nodiscard]] std::int64_t byte_di(const Attesa& attesa) const {
        std::size_t byte = 0;
        for (const auto& [nome, dati] : attesa.dopo) byte += dati.size();
        return static_cast<std::int64_t>(byte);
    }

    Libreria libreria_;
};

std::string rinunce(const Lavoro& lavoro) {
    if (lavoro.via_lo_sviluppo)
        return "an elaboration gives up the old development, never the system";
    if (lavoro.resta_la_meta) return "a send may leave a cut copy, its original whole";
    return "";
}

TEST_F(Iniettati, ILavoriRiesconoSenzaGuasti) {
    for (const Lavoro& lavoro : lavori()) {
        const Attesa a = attesa(libreria_, lavoro);
        EXPECT_EQ(a.prima == a.dopo, lavoro.nome == "elaboration once more") << lavoro.nome;
    }
    libreria_.prepara();
    ASSERT_TRUE(elabora(libreria_, "a", 5));
    EXPECT_EQ(libreria_.stato().at(libreria_.qui("a").sviluppo()), sviluppo_atteso(5));
}

TEST_F(Iniettati, LaMortePrimaDiOgniChiamata) {
    for (const Lavoro& lavoro : lavori()) {
        const Attesa a = attesa(libreria_, lavoro);
        const Licenza licenza{false, lavoro.sostituisce_coppia || lavoro.cambia_il_sistema, {}};
        Riga& r =
            riga("death at each step", "SIGKILL before every system call that changes a file",
                 lavoro.nome,
                 lavoro.cambia_il_sistema    ? rinunce(lavoro)
                 : lavoro.sostituisce_coppia ? "a replacement cut short gives up the development, "
                                               "never the system"
                                             : "");
        const long prima = r.volte;
        bool finito = false;
        for (int vita = 1; !finito && vita < 500; ++vita) {
            prova(
                r, lavoro, a,
                [&] {
                    const pid_t figlio = ::fork();
                    if (figlio == 0) {
                        support::Disco disco;
                        disco.vita = vita;
                        lavoro.fa(libreria_);
                        ::_exit(0);
                    }
                    int stato = 0;
                    ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
                    finito = WIFEXITED(stato);
                },
                licenza);
        }
        EXPECT_TRUE(finito && r.volte > prima + 1) << lavoro.nome;
        EXPECT_EQ(libreria_.stato(), a.dopo) << lavoro.nome;
    }
}

TEST_F(Iniettati, IlDiscoPienoDopoOgniTratto) {
    for (const bool perde : {false, true}) {
        for (const Lavoro& lavoro : lavori()) {
            const Attesa a = attesa(libreria_, lavoro);
            const Licenza licenza{lavoro.resta_la_meta, lavoro.via_lo_sviluppo, {}};
            Riga& r = riga(perde ? "full disk that says nothing" : "full disk",
                           perde ? "a device that drops what it accepts, after every 37th byte"
                                 : "a device without room, after every 37th byte",
                           lavoro.nome, rinunce(lavoro));
            for (std::int64_t spazio = 0; spazio <= byte_di(a); spazio += 37) {
                prova(
                    r, lavoro, a,
                    [&] {
                        support::Disco disco;
                        disco.spazio = spazio;
                        disco.perde = perde;
                        lavoro.fa(libreria_);
                    },
                    licenza);
            }
        }
    }
}

TEST_F(Iniettati, UnDiscoCheNonSincronizzaONonRinomina) {
    for (const bool rinomina : {false, true}) {
        for (const Lavoro& lavoro : lavori()) {
            const Attesa a = attesa(libreria_, lavoro);
            const Licenza licenza{false, lavoro.via_lo_sviluppo, {}};
            prova(
                riga(rinomina ? "failing rename" : "failing sync", "a device that answers EIO",
                     lavoro.nome, lavoro.via_lo_sviluppo ? rinunce(lavoro) : ""),
                lavoro, a,
                [&] {
                    support::Disco disco;
                    disco.rename_fallisce = rinomina;
                    disco.fsync_fallisce = !rinomina;
                    lavoro.fa(libreria_);
                },
                licenza);
        }
    }
}

/// Refuses whatever would change the disk.
class SolaLettura : public platform::Syscalls {
public:
    SolaLettura() = default;
    SolaLettura(const SolaLettura&) = delete;
    SolaLettura& operator=(const SolaLettura&) = delete;
    int open(const char* nome, int modo, unsigned permessi) override {
        return (modo & O_ACCMODE) == O_RDONLY ? Syscalls::open(nome, modo, permessi) : rifiuta();
    }
    int rename(const char*, const char*) override { return rifiuta(); }
    int rename_noreplace(const char*, const char*) override { return rifiuta(); }
    int link(const char*, const char*) override { return rifiuta(); }
    int unlink(const char*) override { return rifiuta(); }
    int fsetxattr(int, const char*, const void*, std::size_t) override { return rifiuta(); }

private:
    static int rifiuta() {
        errno = EROFS;
        return -1;
    }
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

/// Makes the folders read-only for real: by permissions, or for root by mounts of its own.
/// False when neither may be had.
bool blocca(const Libreria& libreria) {
    for (const std::string& cartella : libreria.cartelle()) {
        if (::geteuid() != 0) {
            if (::chmod(cartella.c_str(), 0500) != 0) return false;
            continue;
        }
        const char* dove = cartella.c_str();
        if (::mount(dove, dove, nullptr, MS_BIND, nullptr) != 0 ||
            ::mount(nullptr, dove, nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) != 0) {
            return false;
        }
    }
    return true;
}

TEST_F(Iniettati, UnaCartellaInSolaLettura) {
    for (const Lavoro& lavoro : lavori()) {
        const Attesa a = attesa(libreria_, lavoro);
        Riga& r = riga("read-only folder",
                       "a device that answers EROFS, and a real such folder where one can be had",
                       lavoro.nome);
        prova(r, lavoro, a, [&] {
            const SolaLettura disco;
            lavoro.fa(libreria_);
        });
        // In a child, so that its mounts go with it.
        prova(r, lavoro, a, [&] {
            const pid_t figlio = ::fork();
            if (figlio == 0) {
                const bool proprio =
                    ::geteuid() != 0 ||
                    (::unshare(CLONE_NEWNS) == 0 &&
                     ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0);
                if (proprio && blocca(libreria_)) lavoro.fa(libreria_);
                ::_exit(0);
            }
            ASSERT_EQ(::waitpid(figlio, nullptr, 0), figlio);
            for (const std::string& cartella : libreria_.cartelle())
                ::chmod(cartella.c_str(), 0700);
        });
        EXPECT_EQ(libreria_.stato(), a.prima) << lavoro.nome;
    }
}

/// Another program deletes a file when this one has looked and is about to open it.
class Sparisce : public platform::Syscalls {
public:
    explicit Sparisce(int quale) : quale_(quale) {}
    Sparisce(const Sparisce&) = delete;
    Sparisce& operator=(const Sparisce&) = delete;
    int open(const char* nome, int modo, unsigned permessi) override {
        const bool legge = (modo & (O_ACCMODE | O_DIRECTORY)) == O_RDONLY;
        if (legge && fs::is_regular_file(nome) && ++viste_ == quale_) {
            sparito = nome;
            fs::remove(nome);
        }
        return Syscalls::open(nome, modo, permessi);
    }
    std::string sparito;

private:
    int quale_;
    int viste_ = 0;
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

/// What a table that vanished leaves: the other lines, whole, and their count.
void accetta_meno_righe(const Libreria& libreria, const Attesa& attesa, Licenza& licenza) {
    const systems::Coppia a = libreria.qui("a");
    const Stato ora = libreria.stato();
    const auto posto = ora.find(a.sviluppo());
    if (posto == ora.end()) return;
    std::istringstream righe(posto->second);
    int quante = 0;
    for (std::string r; std::getline(righe, r); ++quante)
        EXPECT_NE(attesa.dopo.at(a.sviluppo()).find(r + "\n"), std::string::npos) << r;
    EXPECT_EQ(systems::leggi_conteggio(a.cartella, a.nome, {}), quante);
    EXPECT_TRUE(systems::sviluppo_proprio(a));
    std::ofstream(a.sistema()) << attesa.dopo.at(a.sistema());
    fs::remove(a.sviluppo());
    licenza.sparite.insert(a.sviluppo());
}

TEST_F(Iniettati, UnFileCheSparisceFraLaProvaELApertura) {
    for (const Lavoro& lavoro : lavori()) {
        const Attesa a = attesa(libreria_, lavoro);
        Riga& r = riga("vanishing file",
                       "another deletes it between the test and the opening, at each opening",
                       lavoro.nome, "what the other deleted is gone");
        bool finito = false;
        for (int quale = 1; !finito && quale < 100; ++quale) {
            libreria_.prepara();
            Licenza licenza{false, lavoro.via_lo_sviluppo || lavoro.sostituisce_coppia, {}};
            {
                Sparisce disco(quale);
                lavoro.fa(libreria_);
                finito = disco.sparito.empty();
                licenza.sparite.insert(disco.sparito);
                if (disco.sparito.ends_with(".rid")) accetta_meno_righe(libreria_, a, licenza);
            }
            libreria_.riavvia();
            const auto salvo = intero(libreria_, lavoro, a, licenza);
            EXPECT_TRUE(salvo) << quale;
            r.prova(bool{salvo});
        }
        EXPECT_TRUE(finito) << lavoro.nome;
    }
}

/// Another process that holds every file of the library open under an exclusive lock.
class Blocco {
public:
    explicit Blocco(const Stato& stato) {
        int tubo[2];
        EXPECT_EQ(::pipe(tubo), 0);
        figlio_ = ::fork();
        if (figlio_ == 0) {
            char tutti = 1;
            for (const auto& [nome, dati] : stato) {
                const int fd = ::open(nome.c_str(), O_RDWR);
                if (::flock(fd, LOCK_EX) != 0 || ::lockf(fd, F_LOCK, 0) != 0) tutti = 0;
            }
            if (::write(tubo[1], &tutti, 1) == 1) ::pause();
            ::_exit(0);
        }
        char tutti = 0;
        EXPECT_EQ(::read(tubo[0], &tutti, 1), 1);
        EXPECT_EQ(tutti, 1);
        ::close(tubo[0]);
        ::close(tubo[1]);
    }
    Blocco(const Blocco&) = delete;
    Blocco& operator=(const Blocco&) = delete;
    ~Blocco() {
        ::kill(figlio_, SIGKILL);
        ::waitpid(figlio_, nullptr, 0);
    }

private:
    pid_t figlio_ = -1;
};

TEST_F(Iniettati, IFileBloccatiDaUnAltroProgramma) {
    for (const Lavoro& lavoro : lavori()) {
        const Attesa a = attesa(libreria_, lavoro);
        prova(
            riga("locked files", "another process holds every file open under a lock", lavoro.nome),
            lavoro, a, [&] {
                const Blocco altro(libreria_.stato());
                lavoro.fa(libreria_);
            });
        EXPECT_EQ(libreria_.stato(), a.dopo) << lavoro.nome;
    }
}

TEST_F(Iniettati, UnNodoDiDispositivoNonVieneMaiSostituito) {
    const std::string nome = libreria_.programma() + "/a.sen";
    Riga& r = riga("device in a file's place", "a node made for the test, and a pipe",
                   "saving, elaboration, duplicating, importing, renaming, deleting");
    for (const bool nodo : {true, false}) {
        libreria_.prepara();
        fs::remove(nome);
        if (!nodo || ::mknod(nome.c_str(), S_IFCHR | 0600, ::makedev(1, 3)) != 0) {
            ASSERT_EQ(::mkfifo(nome.c_str(), 0600), 0);
        }
        const auto prima = fs::status(nome).type();
        EXPECT_FALSE(salva(libreria_, "a", 5));
        elabora(libreria_, "a", 5);
        systems::duplica(libreria_.qui("b"), libreria_.qui("a"), [] {});
        systems::importa(libreria_.la("a"), libreria_.qui("a"));
        systems::rinomina(libreria_.qui("b"), "a");
        systems::elimina(libreria_.qui("a"));
        EXPECT_EQ(fs::status(nome).type(), prima);
        r.prova(fs::status(nome).type() == prima);
    }
}

/// A real file system of 1 MiB at `dove`, in a mount name space of this process.
class Dischetto {
public:
    explicit Dischetto(std::string dove) : dove_(std::move(dove)) {
        montato_ = ::geteuid() == 0 && ::unshare(CLONE_NEWNS) == 0 &&
                   ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                   ::mount("tmpfs", dove_.c_str(), "tmpfs", 0, "size=1m") == 0;
    }
    Dischetto(const Dischetto&) = delete;
    Dischetto& operator=(const Dischetto&) = delete;
    ~Dischetto() {
        if (montato_) ::umount(dove_.c_str());
    }
    [[nodiscard]] bool montato() const { return montato_; }

private:
    std::string dove_;
    bool montato_ = false;
};

TEST_F(Iniettati, UnDiscoDiUnMebibyteANovantasetteMisure) {
    constexpr std::int64_t spazio = 1 << 20;
    libreria_.prepara();
    const systems::Coppia origine = libreria_.la("c");
    const systems::Coppia arrivo = libreria_.qui("c");
    const Dischetto disco(libreria_.programma());
    const std::string sistema_c = libreria_.stato().at(origine.sistema());
    Riga& r = riga("disk of 1 MiB, full",
                   "97 sizes around the limit in writes of 4 sizes, on a tmpfs or its stand-in",
                   "importing");
    int riusciti = 0;
    for (const std::size_t pezzo : {511U, 4096U, 65536U, 1U << 22U}) {
        for (int i = -48; i <= 48; ++i) {
            const std::string grande(static_cast<std::size_t>(spazio - 4096 + i * 512 + i % 3),
                                     'x');
            ASSERT_EQ(platform::sostituisci(origine.sviluppo(), grande), platform::Esito::ok);
            systems::Passi passi;
            {
                support::Disco guasti;
                guasti.pezzo = pezzo;
                if (!disco.montato()) guasti.spazio = spazio - 4096 + std::ssize(sistema_c);
                passi = systems::importa(origine, arrivo);
            }
            const Stato ora = libreria_.stato();
            const auto nuovo = ora.find(arrivo.sviluppo());
            const bool riuscito = passi.sviluppo == platform::Esito::ok;
            const bool salvo =
                ora.at(arrivo.sistema()) == sistema_c && ora.at(origine.sviluppo()) == grande &&
                (riuscito ? nuovo != ora.end() && nuovo->second == grande : nuovo == ora.end());
            ASSERT_TRUE(salvo) << pezzo << " " << i;
            r.prova(salvo);
            riusciti += riuscito ? 1 : 0;
            systems::elimina(arrivo);
        }
    }
    EXPECT_GT(riusciti, 40);
    EXPECT_LT(riusciti, 97 * 4 - 40);
}

/// How each reader answers; the numbers only tell answers apart.
using Lettura = std::function<std::size_t(const Libreria&)>;

const std::vector<std::pair<const char*, Lettura>>& letture() {
    static const auto si = [](auto) { return true; };
    static const std::vector<std::pair<const char*, Lettura>> tutte{
        {"a.sen",
         [](const Libreria& x) {
             return static_cast<std::size_t>(
                 systems::leggi_sistema(x.programma(), "a", {}).matrice.righe());
         }},
        {"a.sen",
         [](const Libreria& x) {
             return systems::leggi_conteggio(x.programma(), "a", {}).has_value() ? 1U : 0U;
         }},
        {"a.col",
         [](const Libreria& x) {
             viewer::Indice indice;
             indice.costruisci(x.qui("a").sviluppo(), 9, [](auto) {});
             return viewer::leggi_pagina(x.qui("a").sviluppo(), 1, 6).righe.size();
         }},
        {"a.col",
         [](const Libreria& x) {
             check::RichiestaSpoglio r;
             r.file = x.qui("a").sviluppo();
             r.combinazioni = 5;
             r.vincente = {90, 1, 2, 3, 4, 5, 6};
             check::Spoglio spoglio;
             spoglio.conta(r, si);
             return static_cast<std::size_t>(spoglio.totale(0));
         }},
        {"cr0600.rid",
         [](const Libreria& x) {
             return development::leggi_tabella(x.ridotti() + "/cr0600.rid", 6, 6).righe();
         }},
        {"cst",
         [](const Libreria& x) {
             return viewer::leggi_cst(x.programma(), viewer::Lettore::annulla).prezzo.size();
         }},
        {"mstat.dat",
         [](const Libreria& x) {
             statistics::Graduatoria tabella;
             return statistics::leggi_mstat(tabella, x.programma() + "/mstat.dat") ? 1U : 0U;
         }},
        {"col.dat",
         [](const Libreria& x) {
             return static_cast<std::size_t>(printing::colonne_schedina(x.programma()));
         }},
    };
    return tutte;
}

TEST_F(Iniettati, ChiLeggeUnFileCheSparisceLoTrovaAssente) {
    std::string classifica = "#2004-06-12#\r\n";
    for (int i = 1; i <= 90; ++i) classifica += std::to_string(i) + ",5,1\r\n";
    for (const auto& [nome, legge] : letture()) {
        libreria_.prepara();
        std::ofstream(libreria_.programma() + "/mstat.dat") << classifica;
        std::ofstream(libreria_.programma() + "/col.dat") << "\"3\"\r\n";
        const Stato prima = libreria_.stato();
        const std::size_t intera = legge(libreria_);
        std::string sparito;
        std::size_t senza = 0;
        {
            Sparisce disco(1);
            senza = legge(libreria_);
            sparito = disco.sparito;
        }
        EXPECT_TRUE(sparito.ends_with(std::string("/") + nome)) << sparito;
        // The price in force without a file is as long as the one in it.
        EXPECT_TRUE(senza != intera || nome == std::string("cst")) << nome;
        Stato attesa = prima;
        attesa.erase(sparito);
        EXPECT_EQ(libreria_.stato(), attesa) << nome;
        riga("vanishing file",
             "another deletes it between the test and the opening, at each opening", "reading",
             "what the other deleted is gone")
            .prova(libreria_.stato() == attesa);
    }
}

}  // namespace
}  // namespace guasti
