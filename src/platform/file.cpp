#include "platform/file.h"

#include <cerrno>

#include "platform/syscalls.h"

namespace platform {

bool File::esito(bool riuscito) {
    if (!riuscito) guasto_ = macchina::da_errno(errno);
    return riuscito;
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

bool File::annota(const char* quale, std::string_view parola) {
    return esito(syscalls().fsetxattr(fd_, quale, parola.data(), parola.size()) == 0);
}

}  // namespace platform
