#include "platform/lavoro.h"

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/blocco.h"
#include "platform/runtime.h"

namespace platform {

namespace {

std::string nome_numerato(const std::string& cartella, int n) {
    return cartella + "/temp-" + std::to_string(::getpid()) + "-" + std::to_string(n) + ".nuovo";
}

}  // namespace

Esito da_errno(int errore) {
    if (errore == ENOENT) return Esito::assente;
    if (errore == ENOSPC || errore == EDQUOT) return Esito::disco_pieno;
    return Esito::errore;
}

bool File::apri(const std::string& nome, int modo) {
    fd_ = syscalls().open(nome.c_str(), modo | O_NONBLOCK, 0666);
    return aperto();
}

bool File::chiudi() {
    if (fd_ < 0) return true;
    const int esito = syscalls().close(fd_);
    fd_ = -1;
    // A signal during the closing leaves the file closed all the same.
    return esito == 0 || errno == EINTR;
}

Esito concludi(File& file, Esito esito) {
    if (!file.chiudi() && esito == Esito::ok) return da_errno(errno);
    return esito;
}

bool Lavoro::prendi(const std::string& nome) {
    struct stat s {};
    // A sweeper may have found the file before it was locked: then it is, or will be, deleted.
    if (blocca(file_.fd()) == Presa::occupata || ::fstat(file_.fd(), &s) != 0 || s.st_nlink == 0) {
        file_.chiudi();
        return false;
    }
    custode_ = ::fcntl(file_.fd(), F_DUPFD_CLOEXEC, 0);
    nome_ = nome;
    esito_ = Esito::ok;
    return true;
}

Lavoro::Lavoro(const std::string& cartella) {
    constexpr int tentativi = 100;
    for (int n = 0; n < tentativi; ++n) {
        const std::string prova = nome_numerato(cartella, n);
        if (file_.apri(prova, O_RDWR | O_CREAT | O_EXCL)) {
            if (prendi(prova)) return;
        } else if (errno != EEXIST) {
            esito_ = da_errno(errno);
            return;
        }
    }
}

Lavoro::~Lavoro() {
    file_.chiudi();
    if (!nome_.empty()) syscalls().unlink(nome_.c_str());
    lascia();
}

void Lavoro::lascia() {
    nome_.clear();
    if (custode_ >= 0) ::close(custode_);
    custode_ = -1;
}

Esito Lavoro::pubblica(const std::string& nome, std::int64_t dimensione, Creazione creazione) {
    const Esito esito = platform::pubblica(nome_, nome, dimensione, creazione);
    if (esito == Esito::ok) lascia();
    return esito;
}

Accantonato::~Accantonato() {
    if (!nome_.empty()) syscalls().unlink(nome_.c_str());
}

Esito Accantonato::metti(const std::string& nome) {
    constexpr int tentativi = 200;
    if (!esiste_file(nome)) return Esito::assente;
    prima_ = nome_su_disco(nome);
    if (custode_.apri(prima_, O_RDONLY | O_NOFOLLOW)) blocca(custode_.fd());
    const std::size_t barra = prima_.rfind('/');
    const std::string cartella = barra == std::string::npos ? "." : prima_.substr(0, barra);
    for (int n = tentativi / 2; n < tentativi; ++n) {
        struct stat s {};
        const std::string prova = nome_numerato(cartella, n);
        if (::lstat(prova.c_str(), &s) == 0) continue;
        const Esito esito = Name(prima_, prova);
        if (esito == Esito::ok) nome_ = prova;
        return esito;
    }
    return Esito::errore;
}

Esito Accantonato::rimetti() {
    if (nome_.empty()) return Esito::assente;
    const Esito esito = Name(nome_, prima_);
    if (esito == Esito::ok) nome_.clear();
    return esito;
}

bool e_nome_di_lavoro(std::string_view nome) {
    if (!nome.starts_with("temp-") || !nome.ends_with(".nuovo")) return false;
    if (nome.size() < 12) return false;
    const std::string_view numeri = nome.substr(5, nome.size() - 11);
    return numeri.find_first_not_of("0123456789-") == std::string_view::npos && numeri[0] != '-';
}

void spazza(const std::string& cartella) {
    constexpr std::time_t un_giorno = 24 * 60 * 60;
    for (const std::string& nome : Dir(cartella, "temp-*")) {
        if (!e_nome_di_lavoro(LCase(nome))) continue;
        const std::string completo = cartella + "/" + nome;
        File file(completo, O_RDWR | O_NOFOLLOW);
        if (!file.aperto()) file.apri(completo, O_RDONLY | O_NOFOLLOW);
        if (!file.aperto()) continue;
        const Presa presa = blocca(file.fd());
        struct stat s {};
        // Where no lock tells whose it is, only time does.
        const bool vecchio =
            ::fstat(file.fd(), &s) == 0 && s.st_mtime < ::time(nullptr) - un_giorno;
        if (presa == Presa::presa || (presa == Presa::impossibile && vecchio)) Kill(completo);
    }
}

}  // namespace platform
