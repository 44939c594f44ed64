#include "platform/blocco.h"

#include <algorithm>
#include <cerrno>
#include <io.h>

#include "platform/syscalls.h"
#include "platform/win32/modi.h"
#include "platform/win32/nomi.h"

namespace platform {

Presa blocca(int fd) {
    if (syscalls().flock(fd, win32::blocco_esclusivo) == 0) return Presa::presa;
    // Only this says that another is at work; anything else is about the disk.
    if (errno == EWOULDBLOCK) return Presa::occupata;
    if (syscalls().fcntl_lock(fd) == 0) return Presa::presa;
    return errno == EAGAIN || errno == EACCES ? Presa::occupata : Presa::impossibile;
}

bool in_mano_altrui(const File& file, std::int64_t dimensione, bool esclusivo) {
    if (di_sistema().flock(file.fd(),
                           esclusivo ? win32::blocco_esclusivo : win32::blocco_condiviso) != 0 &&
        errno == EWOULDBLOCK)
        return true;
    // Only locks on the content count; engines mark their users by locks far beyond the end.
    HANDLE aperto = win32::maniglia_del_file(file.fd());
    const auto quanti = static_cast<std::uint64_t>(std::max<std::int64_t>(dimensione, 1));
    const auto bassi = static_cast<DWORD>(quanti);
    const auto alti = static_cast<DWORD>(quanti >> 32U);
    OVERLAPPED dove{};
    if (LockFileEx(aperto, LOCKFILE_FAIL_IMMEDIATELY, 0, bassi, alti, &dove) == 0)
        return GetLastError() == ERROR_LOCK_VIOLATION;
    UnlockFileEx(aperto, 0, bassi, alti, &dove);
    return false;
}

void Custode::tieni(const File& file) {
    lascia();
    fd_ = _dup(file.fd());
}

void Custode::lascia() {
    if (fd_ >= 0) _close(fd_);
    fd_ = -1;
}

}  // namespace platform
