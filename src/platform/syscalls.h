// The system calls that can meet a failing device; they are a part of `ambiente.h`.
#pragma once

#include <cstddef>

namespace platform {

/// Each answers as the call of its name does, errno included.
class Syscalls {
public:
    virtual ~Syscalls() = default;
    virtual int open(const char* nome, int modo, unsigned permessi);
    virtual std::ptrdiff_t read(int fd, void* dati, std::size_t quanti);
    virtual std::ptrdiff_t write(int fd, const void* dati, std::size_t quanti);
    virtual int fsync(int fd);
    virtual int close(int fd);
    virtual int rename(const char* vecchio, const char* nuovo);
    /// A rename that fails with EEXIST where `nuovo` is.
    virtual int rename_noreplace(const char* vecchio, const char* nuovo);
    virtual int link(const char* vecchio, const char* nuovo);
    virtual int unlink(const char* nome);
    virtual int flock(int fd, int operazione);
    /// A lock of the open file on one byte, for disks without the other kind.
    virtual int fcntl_lock(int fd);
    virtual int fsetxattr(int fd, const char* nome, const void* dati, std::size_t quanti);
};

/// The system's own.
Syscalls& di_sistema();
/// The calls in force.
Syscalls& syscalls();

}  // namespace platform
