#include "platform/jet.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "platform/application.h"
#include "platform/disk.h"
#include "platform/leggi_mdb/protocollo.h"
#include "platform/recordset.h"

namespace platform {

namespace {

using Orologio = std::chrono::steady_clock;

/// A running child with the reading end of its output; killed and reaped at the end of its use.
class Figlio {
public:
    Figlio() = default;
    Figlio(const Figlio&) = delete;
    Figlio& operator=(const Figlio&) = delete;
    ~Figlio() {
        if (fd_ >= 0) ::close(fd_);
        if (pid_ > 0) {
            ::kill(pid_, SIGKILL);
            while (::waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) {
            }
        }
    }
    bool avvia(const std::string& programma, const std::vector<std::string>& argomenti);
    /// Takes all that the child writes until its end; 0 or the number of the error that stopped it.
    int uscita(const LettoreJet& limiti, std::string& dati);

private:
    pid_t pid_ = -1;
    int fd_ = -1;
};

bool Figlio::avvia(const std::string& programma, const std::vector<std::string>& argomenti) {
    std::array<int, 2> tubo{};
    if (::pipe2(tubo.data(), O_CLOEXEC) != 0) return false;
    fd_ = tubo[0];
    std::vector<char*> argv{const_cast<char*>(programma.c_str())};
    for (const std::string& argomento : argomenti)
        argv.push_back(const_cast<char*>(argomento.c_str()));
    argv.push_back(nullptr);
    // An empty environment: the library takes its character set from there.
    std::array<char*, 1> ambiente{nullptr};

    posix_spawn_file_actions_t azioni;
    posix_spawnattr_t attributi;
    ::posix_spawn_file_actions_init(&azioni);
    ::posix_spawn_file_actions_addopen(&azioni, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&azioni, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_adddup2(&azioni, tubo[1], STDOUT_FILENO);
    ::posix_spawn_file_actions_addclosefrom_np(&azioni, STDERR_FILENO + 1);
    ::posix_spawnattr_init(&attributi);
    sigset_t segnali;
    ::sigfillset(&segnali);
    ::posix_spawnattr_setsigdefault(&attributi, &segnali);
    ::sigemptyset(&segnali);
    ::posix_spawnattr_setsigmask(&attributi, &segnali);
    ::posix_spawnattr_setflags(&attributi, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    pid_t pid = -1;
    const int esito =
        ::posix_spawn(&pid, programma.c_str(), &azioni, &attributi, argv.data(), ambiente.data());
    ::posix_spawnattr_destroy(&attributi);
    ::posix_spawn_file_actions_destroy(&azioni);
    ::close(tubo[1]);
    pid_ = esito == 0 ? pid : -1;
    return esito == 0;
}

int Figlio::uscita(const LettoreJet& limiti, std::string& dati) {
    const auto fine = Orologio::now() + limiti.attesa_totale;
    std::vector<char> pezzo(std::size_t{1} << 16);
    auto muto_da = Orologio::now();
    while (true) {
        const auto ora = Orologio::now();
        const auto termine = std::min(fine, muto_da + limiti.attesa_muta);
        if (ora >= termine) return errore_scaduto;
        const auto resta = std::chrono::duration_cast<std::chrono::milliseconds>(termine - ora);
        pollfd attesa{fd_, POLLIN, 0};
        const int pronti = ::poll(&attesa, 1, static_cast<int>(resta.count()) + 1);
        if (pronti < 0 && errno != EINTR) return errore_disco;
        if (pronti <= 0) continue;
        const ssize_t n = ::read(fd_, pezzo.data(), pezzo.size());
        if (n < 0 && errno != EINTR) return errore_disco;
        if (n == 0) return 0;
        if (n < 0) continue;
        dati.append(pezzo.data(), static_cast<std::size_t>(n));
        if (dati.size() > limiti.uscita_massima) return errore_danneggiato;
        muto_da = Orologio::now();
    }
}

/// Takes the child's output apart; nothing in it is trusted.
class Messaggio {
public:
    explicit Messaggio(std::string_view dati) : resto_(dati) {}

    template <typename T>
    T prendi() {
        T valore{};
        if (const auto byte = prendi(sizeof(T)); byte.size() == sizeof(T))
            std::memcpy(&valore, byte.data(), sizeof(T));
        return valore;
    }
    std::string_view prendi(std::size_t n) {
        if (resto_.size() < n) {
            intero_ = false;
            resto_ = {};
            return {};
        }
        const std::string_view preso = resto_.substr(0, n);
        resto_.remove_prefix(n);
        return preso;
    }
    [[nodiscard]] bool intero() const { return intero_; }
    [[nodiscard]] bool finito() const { return resto_.empty(); }
    [[nodiscard]] std::size_t resta() const { return resto_.size(); }

private:
    std::string_view resto_;
    bool intero_ = true;
};

int da_motivo(protocollo::Motivo motivo) {
    switch (motivo) {
        case protocollo::Motivo::formato:
            return errore_formato;
        case protocollo::Motivo::tabella_assente:
            return errore_tabella_assente;
        default:
            return errore_danneggiato;
    }
}

Tabella::Tipo da_tipo(protocollo::Tipo tipo) {
    switch (tipo) {
        case protocollo::Tipo::testo:
            return Tabella::Tipo::testo;
        case protocollo::Tipo::data:
            return Tabella::Tipo::data;
        default:
            return Tabella::Tipo::intero;
    }
}

std::uint32_t leggi_testa(Messaggio& messaggio, Tabella& tabella) {
    const auto righe = messaggio.prendi<std::uint32_t>();
    const auto colonne = messaggio.prendi<std::uint16_t>();
    for (std::uint16_t i = 0; i < colonne && messaggio.intero(); ++i) {
        const auto tipo = static_cast<protocollo::Tipo>(messaggio.prendi<std::uint8_t>());
        const auto nome = messaggio.prendi(messaggio.prendi<std::uint16_t>());
        tabella.aggiungi_colonna(std::string(nome), da_tipo(tipo));
    }
    // A row takes a byte and one more a column at least.
    const std::size_t minimo = tabella.colonne() + 1;
    tabella.riserva(std::min<std::size_t>(righe, messaggio.resta() / minimo));
    return righe;
}

void leggi_riga(Messaggio& messaggio, Tabella& tabella) {
    for (std::size_t i = 0; i < tabella.colonne(); ++i) {
        if (messaggio.prendi<std::uint8_t>() == 0) {
            tabella.accoda_nullo(i);
        } else if (tabella.tipo(i) == Tabella::Tipo::testo) {
            tabella.accoda(i, messaggio.prendi(messaggio.prendi<std::uint16_t>()));
        } else {
            tabella.accoda(i, messaggio.prendi<std::int32_t>());
        }
    }
}

/// The table of a finished output; 0 or the error's number.
int leggi_messaggio(std::string_view dati, Tabella& tabella) {
    Messaggio messaggio(dati);
    std::uint32_t attese = 0;
    std::uint32_t lette = 0;
    while (messaggio.intero() && !messaggio.finito()) {
        switch (messaggio.prendi<char>()) {
            case protocollo::testa:
                attese = leggi_testa(messaggio, tabella);
                break;
            case protocollo::riga:
                leggi_riga(messaggio, tabella);
                ++lette;
                if (tabella.piena()) return errore_danneggiato;
                break;
            case protocollo::errore:
                return da_motivo(static_cast<protocollo::Motivo>(messaggio.prendi<std::uint8_t>()));
            case protocollo::fine:
                return messaggio.prendi<std::uint32_t>() == lette && lette == attese &&
                               messaggio.intero() && messaggio.finito()
                           ? 0
                           : errore_danneggiato;
            default:
                return errore_danneggiato;
        }
    }
    // The child died before its last word.
    return errore_danneggiato;
}

int chiedi(const std::vector<std::string>& argomenti, Tabella& tabella) {
    const LettoreJet& lettore = lettore_jet();
    Figlio figlio;
    const std::string programma =
        lettore.programma.empty() ? trova_lettore(cartella_eseguibile()) : lettore.programma;
    if (!figlio.avvia(programma, argomenti)) return errore_lettore_assente;
    std::string dati;
    const int errore = figlio.uscita(lettore, dati);
    return errore == 0 ? leggi_messaggio(dati, tabella) : errore;
}

/// Signature and size, which the library does not look at.
bool intestazione(const std::string& file) {
    constexpr std::array<std::string_view, 2> firme{"Standard Jet DB", "Standard ACE DB"};
    const int fd = syscalls().open(file.c_str(), O_RDONLY | O_CLOEXEC, 0);
    if (fd < 0) return false;
    std::array<char, 24> testa{};
    const ssize_t n = syscalls().read(fd, testa.data(), testa.size());
    syscalls().close(fd);
    if (n != static_cast<ssize_t>(testa.size())) return false;
    const std::string_view inizio(testa.data(), 4);
    const std::string_view firma(testa.data() + 4, firme[0].size());
    const std::int64_t pagina = testa[0x14] == 0 ? 2048 : 4096;
    return inizio == std::string_view("\0\1\0\0", 4) && (firma == firme[0] || firma == firme[1]) &&
           dimensione_file(file).value_or(1) % pagina == 0;
}

}  // namespace

LettoreJet& lettore_jet() {
    static LettoreJet lettore;
    return lettore;
}

std::string trova_lettore(const std::string& eseguibile) {
    const std::string accanto = eseguibile + "/leggi_mdb";
    const std::string installato = eseguibile + "/" LIBEXEC "/leggi_mdb";
    return !esiste_file(accanto) && esiste_file(installato) ? installato : accanto;
}

int verifica_jet(const std::string& file) {
    Tabella tabella;
    return intestazione(file) ? chiedi({file}, tabella) : errore_formato;
}

int leggi_jet(const std::string& file, std::string_view nome, Tabella& tabella) {
    return intestazione(file) ? chiedi({file, std::string(nome)}, tabella) : errore_formato;
}

}  // namespace platform
