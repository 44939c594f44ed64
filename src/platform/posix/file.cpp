#include "platform/file.h"

#include <array>
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

bool File::apri(const std::string& nome, Modo modo) {
    chiudi();
    fd_ = syscalls().open(nome.c_str(), modo_posix(modo) | O_NONBLOCK, 0666);
    return esito(aperto());
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

}  // namespace platform
