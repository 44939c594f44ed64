#include "platform/blocco.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/syscalls.h"

namespace platform {

Presa blocca(int fd) {
    int esito = 0;
    do {
        esito = syscalls().flock(fd, LOCK_EX | LOCK_NB);
    } while (esito != 0 && errno == EINTR);
    if (esito == 0) return Presa::presa;
    // Only this says that another is at work; anything else is about the disk.
    if (errno == EWOULDBLOCK) return Presa::occupata;
    if (syscalls().fcntl_lock(fd) == 0) return Presa::presa;
    return errno == EAGAIN || errno == EACCES ? Presa::occupata : Presa::impossibile;
}

bool in_mano_altrui(const File& file, std::int64_t dimensione, bool esclusivo) {
    if (::flock(file.fd(), (esclusivo ? LOCK_EX : LOCK_SH) | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return true;
    // Only locks on the content count; engines mark their users by locks far beyond the end.
    struct flock blocco {};
    blocco.l_type = F_RDLCK;
    blocco.l_whence = SEEK_SET;
    blocco.l_len = std::max<off_t>(dimensione, 1);
    return ::fcntl(file.fd(), F_GETLK, &blocco) == 0 && blocco.l_type != F_UNLCK;
}

void Custode::tieni(const File& file) {
    lascia();
    fd_ = ::fcntl(file.fd(), F_DUPFD_CLOEXEC, 0);
}

void Custode::lascia() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
}

}  // namespace platform
