#include "platform/application.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <poll.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/disk.h"

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

/// Copies the files that `a` lacks; false when the disk filled before the end.
bool copia_cartella(const std::string& da, const std::string& a) {
    crea_cartella(a);
    spazza(a);
    const std::string lavoro = nome_di_lavoro(a);
    for (const std::string& nome : Dir(da, "*")) {
        if (esiste_file(a + "/" + nome)) continue;
        // By way of another name, so that a copy cut short is never taken for the file.
        Esito esito = FileCopy(da + "/" + nome, lavoro);
        if (esito == Esito::ok) esito = Name(lavoro, a + "/" + nome);
        if (esito != Esito::ok) Kill(lavoro);
        if (esito == Esito::disco_pieno) return false;
    }
    return true;
}

/// Leads the suite's root to an installed file; one that is there, or can be reached, stays.
void collega(const std::string& condivisi, const std::string& utente, const std::string& nome) {
    const std::string collegamento = utente + "/" + nome;
    struct stat s {};
    if (::stat(collegamento.c_str(), &s) == 0) return;
    if (::lstat(collegamento.c_str(), &s) == 0 && !S_ISLNK(s.st_mode)) return;
    const std::unique_ptr<char, decltype(&std::free)> vero(
        ::realpath((condivisi + "/" + nome).c_str(), nullptr), &std::free);
    if (vero == nullptr) return;
    // A link to a program since moved leads nowhere and gives way. Without a link the menu finds
    // no guide and does nothing, so a failure needs no word.
    ::unlink(collegamento.c_str());
    if (::symlink(vero.get(), collegamento.c_str()) != 0) return;
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
    const std::string cartella = utente + "/" + std::string(nome_cartella);
    if (!esiste_cartella(cartella)) {
        bool completa = true;
        for (const char* parte : {"ridotti", "skin", "archivio"}) {
            completa = completa && copia_cartella(condivisi + "/" + parte, utente + "/" + parte);
        }
        // Complete under another name first, so that a first start cut short is taken up again.
        const std::string nuova = cartella + ".nuova";
        completa = completa && copia_cartella(condivisi + "/cruciverba", nuova);
        if (completa && ::rename(nuova.c_str(), cartella.c_str()) != 0) crea_cartella(cartella);
    }
    for (const char* nome : {"guida", "guida.html"}) collega(condivisi, utente, nome);
    return cartella;
}

std::string cartella_eseguibile() {
    std::array<char, 4096> nome{};
    const ssize_t n = ::readlink("/proc/self/exe", nome.data(), nome.size());
    if (n <= 0) return "";
    const std::string percorso(nome.data(), static_cast<std::size_t>(n));
    return percorso.substr(0, percorso.rfind('/'));
}

}  // namespace platform
