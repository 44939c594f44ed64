#include "platform/application.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/blocco.h"
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

}  // namespace

std::string Application::versione() const {
    return std::to_string(Major) + "." + std::to_string(Minor) + "." + std::to_string(Revision);
}

bool Application::PrevInstance() {
    if (blocco_ >= 0) return false;
    // The lock lives with the process, so that a killed program never bars the next start, and on
    // the folder itself, which every user and machine that shares it has in common.
    const int fd = ::open(Path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    Presa presa = fd < 0 ? Presa::impossibile : blocca(fd);
    blocco_ = fd;
    if (fd >= 0 && presa == Presa::impossibile) {
        // A disk of the network locks what can be written only, and a folder cannot.
        ::close(fd);
        blocco_ = ::open(file(".tabellino-istanza").c_str(),
                         O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (blocco_ >= 0) presa = blocca(blocco_);
    }
    if (presa != Presa::occupata) return false;
    ::close(blocco_);
    blocco_ = -1;
    return true;
}

Application::~Application() {
    if (blocco_ >= 0) ::close(blocco_);
}

bool Turno::prova() {
    fd_ = ::open(nome_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (fd_ < 0) return false;
    const Presa presa = blocca(fd_);
    struct stat mio {};
    struct stat ora {};
    // The one before may have taken the file away after this opening: then it is nobody's lock.
    preso_ = presa == Presa::presa && ::fstat(fd_, &mio) == 0 && ::stat(nome_.c_str(), &ora) == 0 &&
             mio.st_dev == ora.st_dev && mio.st_ino == ora.st_ino;
    if (preso_) return false;
    ::close(fd_);
    fd_ = -1;
    return presa != Presa::impossibile;
}

Turno::Turno(const std::string& cartella, std::chrono::milliseconds attesa)
    : nome_(cartella + "/.tabellino-turno") {
    constexpr int pausa = 5;
    const auto fine = std::chrono::steady_clock::now() + attesa;
    while (prova() && std::chrono::steady_clock::now() < fine) ::poll(nullptr, 0, pausa);
}

Turno::~Turno() {
    if (!preso_) return;
    ::unlink(nome_.c_str());
    ::close(fd_);
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
