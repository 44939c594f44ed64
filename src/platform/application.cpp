#include "platform/application.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <poll.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/disk.h"
#include "platform/installazione.h"

namespace platform {

namespace {

constexpr std::string_view nome_cartella = "cruciverba";

std::string variabile(const char* nome) {
    const char* valore = std::getenv(nome);
    return valore != nullptr ? valore : "";
}

std::string dati_utente() {
    const std::string xdg = variabile("XDG_DATA_HOME");
    // The desktop's rule: a relative path there is invalid and counts as unset.
    if (!xdg.empty() && xdg.front() == '/') return xdg;
    std::string casa = variabile("HOME");
    if (casa.empty() || casa.front() != '/') {
        const passwd* utente = ::getpwuid(::getuid());
        casa = utente != nullptr && utente->pw_dir != nullptr ? utente->pw_dir : "";
    }
    return casa + "/.local/share";
}

/// The suite that the program came with.
std::string suite_del_programma(const std::string& eseguibile, const std::string& condivisi) {
    const std::size_t barra = eseguibile.rfind('/');
    if (barra == std::string::npos || esiste_cartella(condivisi + "/ridotti")) return condivisi;
    const std::string sopra = eseguibile.substr(0, barra);
    const bool suite =
        eseguibile.substr(barra + 1) == nome_cartella || esiste_cartella(sopra + "/ridotti");
    return suite ? sopra : condivisi;
}

/// One name for a folder by whatever path it is reached.
std::string nome_blocco(const std::string& percorso) {
    struct stat s {};
    const bool esiste = ::stat(percorso.c_str(), &s) == 0;
    const std::string impronta = esiste ? std::to_string(s.st_dev) + "-" + std::to_string(s.st_ino)
                                        : std::to_string(std::hash<std::string>{}(percorso));
    std::string cartella = variabile("XDG_RUNTIME_DIR");
    if (!cartella_scrivibile(cartella)) cartella = "/tmp";
    return cartella + "/tabellino-" + std::to_string(::getuid()) + "-" + impronta;
}

}  // namespace

std::string Application::versione() const {
    return std::to_string(Major) + "." + std::to_string(Minor) + "." + std::to_string(Revision);
}

bool Application::PrevInstance() {
    if (blocco_ >= 0) return false;
    // The lock lives with the process, so that a killed program never bars the next start.
    const int fd =
        ::open(nome_blocco(Path).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd < 0) return false;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
        return true;
    }
    blocco_ = fd;
    return false;
}

Application::~Application() {
    if (blocco_ >= 0) ::close(blocco_);
}

Turno::Turno(const std::string& cartella, std::chrono::milliseconds attesa)
    : fd_(::open((nome_blocco(cartella) + "-turno").c_str(),
                 O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)) {
    constexpr int pausa = 5;
    const auto fine = std::chrono::steady_clock::now() + attesa;
    while (fd_ >= 0 && !preso_) {
        preso_ = ::flock(fd_, LOCK_EX | LOCK_NB) == 0;
        if (preso_ || std::chrono::steady_clock::now() >= fine) break;
        ::poll(nullptr, 0, pausa);
    }
}

Turno::~Turno() {
    if (fd_ >= 0) ::close(fd_);
}

Application& App() {
    static Application applicazione;
    return applicazione;
}

std::string radice(std::string_view percorso) {
    return std::string(percorso.substr(
        0, percorso.size() >= nome_cartella.size() ? percorso.size() - nome_cartella.size() : 0));
}

std::string trova_cartella(const std::string& eseguibile, const std::string& condivisi) {
    const std::size_t barra = eseguibile.rfind('/');
    if (barra != std::string::npos && eseguibile.substr(barra + 1) == nome_cartella &&
        cartella_scrivibile(eseguibile)) {
        return eseguibile;
    }
    const std::string utente = dati_utente() + "/sortivario";
    const std::string programma(nome_cartella);
    riempi_radice(suite_del_programma(eseguibile, condivisi), utente, programma);
    return utente + "/" + programma;
}

std::string cartella_eseguibile() {
    std::array<char, 4096> nome{};
    const ssize_t n = ::readlink("/proc/self/exe", nome.data(), nome.size());
    if (n <= 0) return "";
    const std::string percorso(nome.data(), static_cast<std::size_t>(n));
    return percorso.substr(0, percorso.rfind('/'));
}

}  // namespace platform
