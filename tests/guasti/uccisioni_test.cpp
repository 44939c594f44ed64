// Programs that die at any moment, and two of them at work on one folder.
#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "analysis/disposizione.h"
#include "guasti/lavori.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/sqlite.h"
#include "platform/sqlite_scrivi.h"

namespace guasti {
namespace {

/// Counters that children and parent share.
class Comune {
public:
    Comune()
        : dati_(static_cast<std::atomic<int>*>(::mmap(nullptr, grandezza, PROT_READ | PROT_WRITE,
                                                      MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
    Comune(const Comune&) = delete;
    Comune& operator=(const Comune&) = delete;
    ~Comune() { ::munmap(dati_, grandezza); }
    std::atomic<int>& operator[](std::size_t i) { return dati_[i]; }

private:
    static constexpr std::size_t grandezza = 4096;
    std::atomic<int>* dati_;
};

/// True when every file is one that some work writes, whole.
testing::AssertionResult tutto_intero(const Libreria& libreria) {
    static const std::set<std::string> noti = [] {
        std::set<std::string> s{"\"0,50\",\"Euro\"\r\n", "\"1,00\",\"Euro\"\r\n"};
        for (int primo = 1; primo <= 8; ++primo) {
            s.insert(testo(primo));
            s.insert(testo_elaborato(primo));
            s.insert(sviluppo_atteso(primo));
        }
        return s;
    }();
    if (const auto a_posto = coppie_a_posto(libreria); !a_posto) return a_posto;
    for (const auto& [nome, dati] : libreria.stato()) {
        if (!noti.contains(dati)) return testing::AssertionFailure() << nome << "\n" << dati;
        if (platform::e_nome_di_lavoro(nome.substr(nome.rfind('/') + 1)))
            return testing::AssertionFailure() << nome << " is left behind";
    }
    return testing::AssertionSuccess();
}

/// Works on the library until it is killed; tells which work it is at.
[[noreturn]] void lavora_senza_fine(const Libreria& libreria, Comune& comune) {
    for (int giro = 0;; ++giro) {
        const int primo = giro % 8 + 1;
        comune[0] = giro + 1;
        comune[1] = 0;
        salva(libreria, "a", primo);
        comune[1] = 1;
        elabora(libreria, "a", primo);
        comune[1] = 2;
        systems::rinomina(libreria.qui("b"), "n");
        systems::rinomina(libreria.qui("n"), "b");
        comune[1] = 3;
        systems::duplica(libreria.qui("a"), libreria.qui("d"), [] {});
        comune[1] = 4;
        systems::importa(libreria.la("c"), libreria.qui("c"));
        comune[1] = 5;
        systems::invia(libreria.qui("d"), libreria.la("d"));
        comune[1] = 6;
        systems::elimina(libreria.qui("d"));
    }
}

/// Kills a new child somewhere in its first rounds; returns what it was at.
int uccidi_a_caso(const Libreria& libreria, Comune& comune, long microsecondi) {
    comune[0] = 0;
    const pid_t figlio = ::fork();
    if (figlio == 0) lavora_senza_fine(libreria, comune);
    while (comune[0] == 0) ::sched_yield();
    const timespec pausa{0, microsecondi * 1000};
    ::nanosleep(&pausa, nullptr);
    ::kill(figlio, SIGKILL);
    ::waitpid(figlio, nullptr, 0);
    return comune[1];
}

TEST(Uccisioni, DuecentoMomentiACaso) {
    const Libreria libreria;
    libreria.prepara();
    Comune comune;
    platform::Rnd rnd;
    std::set<int> colti;
    Riga& r = riga("death at a random moment", "SIGKILL to a child that works in a loop",
                   "saving, elaboration, renaming, duplicating, importing, sending, deleting");
    for (int i = 0; i < 240; ++i) {
        colti.insert(uccidi_a_caso(libreria, comune, rnd.fino_a(9000)));
        libreria.riavvia();
        const auto salvo = tutto_intero(libreria);
        // The renaming moves the pair in two steps: either name, but some name.
        const Stato ora = libreria.stato();
        const bool sistema_c_e =
            ora.contains(libreria.qui("b").sistema()) != ora.contains(libreria.qui("n").sistema());
        const bool sviluppo_c_e = ora.contains(libreria.qui("b").sviluppo()) !=
                                  ora.contains(libreria.qui("n").sviluppo());
        EXPECT_TRUE(salvo) << i;
        EXPECT_TRUE(sistema_c_e && sviluppo_c_e && ora.contains(libreria.qui("a").sistema())) << i;
        r.prova(salvo && sistema_c_e && sviluppo_c_e);
        systems::rinomina(libreria.qui("n"), "b");
    }
    EXPECT_GT(colti.size(), 1U);
}

TEST(Uccisioni, ASearchForALayoutKilledOnItsWayLeavesTheSystemAsItWas) {
    const Libreria libreria;
    libreria.prepara();
    ASSERT_TRUE(salva(libreria, "a", 1) && elabora(libreria, "a", 1));
    const Stato prima = libreria.stato();
    Comune comune;
    for (const int segnali : {1, 40, 400}) {
        comune[0] = 0;
        const pid_t figlio = ::fork();
        if (figlio == 0) {
            analysis::RichiestaDisposizione r;
            r.sistema = systems::leggi_sistema(libreria.programma(), "a", {});
            r.ridotti = SUITE_DIR "/ridotti";
            const auto d = analysis::disponi(r, [&](const analysis::Andamento&) {
                comune[0] = comune[0] + 1;
                return analysis::Ordine::continua;
            });
            ::_exit(10 + static_cast<int>(d.esito));
        }
        int stato = 0;
        while (comune[0] < segnali) {
            ASSERT_EQ(::waitpid(figlio, &stato, WNOHANG), 0) << WEXITSTATUS(stato);
            ::sched_yield();
        }
        ::kill(figlio, SIGKILL);
        ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
        EXPECT_TRUE(WIFSIGNALED(stato));
        EXPECT_EQ(libreria.stato(), prima);
    }
}

/// True when the systems and developments that both write are whole at this moment.
bool interi_ora(const Libreria& libreria) {
    for (const char* nome : {"a", "b", "d"}) {
        const auto s = platform::leggi_tutto(libreria.qui(nome).sistema());
        const auto v = platform::leggi_tutto(libreria.qui(nome).sviluppo());
        bool sistema_noto = !s;
        bool sviluppo_noto = !v;
        for (int primo = 1; primo <= 8; ++primo) {
            sistema_noto = sistema_noto || *s == testo(primo) || *s == testo_elaborato(primo);
            sviluppo_noto = sviluppo_noto || *v == sviluppo_atteso(primo);
        }
        if (!sistema_noto || !sviluppo_noto) return false;
    }
    return true;
}

/// Saves and elaborates the same systems again and again.
[[noreturn]] void lavora(const Libreria& libreria, int quale, int giri) {
    for (int giro = 0; giro < giri; ++giro) {
        const int primo = 1 + quale * 4 + giro % 4;
        // Neither may take from the other what it is about to finish.
        const bool fatto = salva(libreria, "a", primo) && elabora(libreria, "a", primo) &&
                           salva(libreria, "b", primo);
        systems::duplica(libreria.qui("b"), libreria.qui("d"), [] {});
        // The other's files are whole whenever they are looked at.
        if (!fatto || !interi_ora(libreria)) ::_exit(1);
    }
    ::_exit(0);
}

TEST(DueProgrammi, LUltimoCheScriveVinceENullaSiGuasta) {
    const Libreria libreria;
    libreria.prepara();
    constexpr int giri = 60;
    Riga& r = riga("two programs on one folder",
                   "two children at the same names, all looked at after every round",
                   "saving, elaboration, duplicating");
    std::vector<pid_t> figli;
    for (int quale = 0; quale < 2; ++quale) {
        figli.push_back(::fork());
        if (figli.back() == 0) lavora(libreria, quale, giri);
    }
    for (const pid_t figlio : figli) {
        int stato = 0;
        ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
        const bool salvo = WIFEXITED(stato) && WEXITSTATUS(stato) == 0;
        EXPECT_TRUE(salvo) << stato;
        for (int giro = 0; giro < giri; ++giro) r.prova(salvo);
    }
    libreria.riavvia();
    EXPECT_TRUE(tutto_intero(libreria));
}

/// Works on the library in an order of its own until it is killed.
[[noreturn]] void lavora_a_caso(const Libreria& libreria, int seme) {
    platform::Rnd rnd;
    for (int i = 0; i < seme; ++i) rnd.fino_a(9);
    const char* const nomi[] = {"a", "b", "d"};
    for (;;) {
        const std::string nome = nomi[rnd.fino_a(3) % 3];
        const std::string altro = nomi[rnd.fino_a(3) % 3];
        const int primo = 1 + static_cast<int>(rnd.fino_a(8)) % 8;
        switch (rnd.fino_a(7) % 7) {
            case 0:
                salva(libreria, nome, primo);
                break;
            case 1:
                systems::duplica(libreria.qui(nome), libreria.qui(altro), [] {});
                break;
            case 2:
                systems::importa(libreria.la("c"), libreria.qui(nome));
                break;
            case 3:
                systems::rinomina(libreria.qui(nome), altro);
                break;
            case 4:
                systems::invia(libreria.qui(nome), libreria.la(nome));
                break;
            default:
                elabora(libreria, nome, primo);
        }
    }
}

constexpr std::int32_t estrazioni_minime = 50;

/// Puts archives of different lengths in one place, again and again.
[[noreturn]] void importa_senza_fine(const std::string& archivio) {
    for (std::int32_t giro = 0;; ++giro) {
        platform::Table tabella;
        tabella.aggiungi_colonna("concorso", platform::Table::Tipo::intero);
        for (std::int32_t i = 1; i <= estrazioni_minime + giro % 10; ++i) tabella.accoda(0, i);
        platform::scrivi_sqlite(archivio, {{"archivio", std::move(tabella), "concorso"}});
    }
}

/// True when the archive is one of those, whole.
bool archivio_intero(const std::string& archivio) {
    platform::Table tabella;
    return platform::verifica_sqlite(archivio) == 0 &&
           platform::leggi_sqlite(archivio, "archivio", tabella) == 0 &&
           tabella.righe() >= static_cast<std::size_t>(estrazioni_minime);
}

/// Rounds to go: so many, or for as long as the environment says.
bool ancora(int giro) {
    constexpr int giri = 40;
    const char* secondi = std::getenv("GUASTI_SECONDI");
    static const std::time_t inizio = std::time(nullptr);
    return secondi == nullptr ? giro < giri
                              : std::time(nullptr) - inizio < std::strtol(secondi, nullptr, 10);
}

TEST(Insieme, DueProgrammiEUnImportatoreUccisiDiContinuo) {
    const Libreria libreria;
    libreria.prepara();
    const std::string archivio = libreria.programma() + "/drawit.sqlite";
    Riga& r = riga("two programs and an importer, killed all the time",
                   "SIGKILL to one of three children at a time, all looked at after each",
                   "saving, elaboration, renaming, duplicating, importing, sending");
    const auto avvia = [&](std::size_t quale, int seme) {
        const pid_t figlio = ::fork();
        if (figlio == 0) {
            if (quale == 2) importa_senza_fine(archivio);
            lavora_a_caso(libreria, seme);
        }
        return figlio;
    };
    std::array<pid_t, 3> figli{};
    for (std::size_t i = 0; i < figli.size(); ++i) figli[i] = avvia(i, static_cast<int>(i));
    platform::Rnd rnd;
    for (int giro = 0; ancora(giro); ++giro) {
        const timespec pausa{0, rnd.fino_a(20000) * 1000L};
        ::nanosleep(&pausa, nullptr);
        const std::size_t vittima = static_cast<std::size_t>(giro) % figli.size();
        ::kill(figli[vittima], SIGKILL);
        ::waitpid(figli[vittima], nullptr, 0);
        figli[vittima] = avvia(vittima, giro);
        r.prova(interi_ora(libreria));
    }
    for (const pid_t figlio : figli) {
        ::kill(figlio, SIGKILL);
        ::waitpid(figlio, nullptr, 0);
    }
    libreria.riavvia();
    const bool c_e = platform::esiste_file(archivio);
    EXPECT_TRUE(!c_e || archivio_intero(archivio));
    platform::Kill(archivio);
    const auto salvo = tutto_intero(libreria);
    EXPECT_TRUE(salvo);
    EXPECT_EQ(r.perdite, 0);
    r.prova(bool{salvo});
}

}  // namespace
}  // namespace guasti
