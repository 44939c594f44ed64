#include "platform/file.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/posix/stato.h"
#include "platform/syscalls.h"

namespace platform {

namespace {

int modo_posix(File::Modo modo) {
    switch (modo) {
        case File::Modo::leggi_se_file:
            return O_RDONLY | O_NOFOLLOW;
        case File::Modo::cambia:
            return O_RDWR | O_NOFOLLOW;
        case File::Modo::aggiungi:
            return O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW;
        case File::Modo::nuovo:
            return O_RDWR | O_CREAT | O_EXCL;
        case File::Modo::cartella:
            return O_RDONLY | O_DIRECTORY;
        default:
            return O_RDONLY;
    }
}

}  // namespace

bool File::esito(bool riuscito) {
    if (!riuscito) guasto_ = macchina::da_errno(errno);
    return riuscito;
}

bool File::apri(const std::string& nome, Modo modo) {
    chiudi();
    fd_ = syscalls().open(nome.c_str(), modo_posix(modo) | O_NONBLOCK, 0666);
    return esito(aperto());
}

bool File::chiudi() {
    if (fd_ < 0) return true;
    const int chiuso = syscalls().close(fd_);
    fd_ = -1;
    // A signal during the closing leaves the file closed all the same.
    return esito(chiuso == 0 || errno == EINTR);
}

std::ptrdiff_t File::leggi(void* dati, std::size_t quanti) {
    std::ptrdiff_t n = 0;
    do {
        n = syscalls().read(fd_, dati, quanti);
    } while (n < 0 && errno == EINTR);
    esito(n >= 0);
    return n;
}

bool File::scrivi(std::string_view dati) {
    while (!dati.empty()) {
        const std::ptrdiff_t n = syscalls().write(fd_, dati.data(), dati.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return esito(false);
        if (n == 0) {
            guasto_ = macchina::Guasto::pieno;
            return false;
        }
        dati.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

bool File::sincronizza() {
    int fatto = 0;
    do {
        fatto = syscalls().fsync(fd_);
    } while (fatto != 0 && errno == EINTR);
    return esito(fatto == 0);
}

bool File::tronca(std::int64_t byte) {
    return esito(::ftruncate(fd_, byte) == 0);
}

bool File::vai(std::int64_t dove) {
    return esito(::lseek(fd_, dove, SEEK_SET) >= 0);
}

bool File::guarda(macchina::Voce& voce) {
    struct stat s {};
    if (!esito(::fstat(fd_, &s) == 0)) return false;
    voce = macchina::da_stat(s);
    return true;
}

bool File::permessi(unsigned permessi) {
    return esito(::fchmod(fd_, permessi) == 0);
}

bool File::nasce(std::int64_t secondi) {
    return annota(macchina::attributo_nascita, std::to_string(secondi));
}

std::string File::attributo(const char* quale) const {
    std::array<char, 256> testo{};
    const ssize_t n = ::fgetxattr(fd_, quale, testo.data(), testo.size());
    return {testo.data(), n > 0 ? static_cast<std::size_t>(n) : 0};
}

bool File::annota(const char* quale, std::string_view parola) {
    return esito(syscalls().fsetxattr(fd_, quale, parola.data(), parola.size()) == 0);
}

}  // namespace platform
