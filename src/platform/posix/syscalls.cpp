#include "platform/syscalls.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace platform {

int Syscalls::open(const char* nome, int modo, unsigned permessi) {
    return ::open(nome, modo | O_CLOEXEC, permessi);
}
std::ptrdiff_t Syscalls::read(int fd, void* dati, std::size_t quanti) {
    return ::read(fd, dati, quanti);
}
std::ptrdiff_t Syscalls::write(int fd, const void* dati, std::size_t quanti) {
    return ::write(fd, dati, quanti);
}
int Syscalls::fsync(int fd) {
    return ::fsync(fd);
}
int Syscalls::close(int fd) {
    return ::close(fd);
}
int Syscalls::rename(const char* vecchio, const char* nuovo) {
    return ::rename(vecchio, nuovo);
}
int Syscalls::rename_noreplace(const char* vecchio, const char* nuovo) {
    return ::renameat2(AT_FDCWD, vecchio, AT_FDCWD, nuovo, RENAME_NOREPLACE);
}
int Syscalls::link(const char* vecchio, const char* nuovo) {
    return ::link(vecchio, nuovo);
}
int Syscalls::unlink(const char* nome) {
    return ::unlink(nome);
}
int Syscalls::flock(int fd, int operazione) {
    return ::flock(fd, operazione);
}
int Syscalls::fcntl_lock(int fd) {
    // Far behind any content, where a database keeps no lock of its own.
    struct flock blocco {};
    blocco.l_type = F_WRLCK;
    blocco.l_whence = SEEK_SET;
    blocco.l_start = off_t{1} << 50;
    blocco.l_len = 1;
    return ::fcntl(fd, F_OFD_SETLK, &blocco);
}
int Syscalls::fsetxattr(int fd, const char* nome, const void* dati, std::size_t quanti) {
    return ::fsetxattr(fd, nome, dati, quanti, 0);
}

Syscalls& di_sistema() {
    static Syscalls del_sistema;
    return del_sistema;
}

}  // namespace platform
