#include "platform/blocco.h"

#include <cerrno>
#include <sys/file.h>

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

}  // namespace platform
