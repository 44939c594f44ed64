// A disk that fails when told to, in force as long as the object lives.
#pragma once

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <limits>
#include <signal.h>

#include "platform/ambiente.h"
#include "platform/disk.h"

namespace support {

class Disco : public platform::Syscalls {
public:
    Disco() = default;
    Disco(const Disco&) = delete;
    Disco& operator=(const Disco&) = delete;

    std::int64_t spazio = std::numeric_limits<std::int64_t>::max();  ///< bytes that still fit
    std::size_t pezzo = std::numeric_limits<std::size_t>::max();     ///< of one write
    int errore = ENOSPC;  ///< of a write that finds no room
    bool perde = false;   ///< what finds no room is lost without a word
    bool rename_fallisce = false;
    bool unlink_fallisce = false;
    bool fsync_fallisce = false;
    bool senza_attributi = false;  ///< files keep no words
    bool senza_noreplace = false;  ///< no rename that leaves a file alone
    int vita = 0;                  ///< the process dies before this call, counted from 1
    int sync = 0;                  ///< calls of fsync
    std::int64_t letti = 0;        ///< bytes read

    int open(const char* nome, int modo, unsigned permessi) override {
        passo();
        return Syscalls::open(nome, modo, permessi);
    }
    ssize_t read(int fd, void* dati, std::size_t quanti) override {
        const ssize_t n = Syscalls::read(fd, dati, quanti);
        letti += n;
        return n;
    }
    ssize_t write(int fd, const void* dati, std::size_t quanti) override {
        passo();
        if (spazio <= 0) {
            errno = errore;
            return perde ? static_cast<ssize_t>(quanti) : -1;
        }
        const std::size_t n = std::min({quanti, pezzo, static_cast<std::size_t>(spazio)});
        spazio -= static_cast<std::int64_t>(n);
        return Syscalls::write(fd, dati, n);
    }
    int fsync(int fd) override {
        passo();
        ++sync;
        errno = EIO;
        return fsync_fallisce ? -1 : Syscalls::fsync(fd);
    }
    int close(int fd) override {
        passo();
        return Syscalls::close(fd);
    }
    int rename(const char* vecchio, const char* nuovo) override {
        passo();
        errno = EIO;
        return rename_fallisce ? -1 : Syscalls::rename(vecchio, nuovo);
    }
    int rename_noreplace(const char* vecchio, const char* nuovo) override {
        passo();
        errno = senza_noreplace ? EINVAL : EIO;
        return rename_fallisce || senza_noreplace ? -1 : Syscalls::rename_noreplace(vecchio, nuovo);
    }
    int link(const char* vecchio, const char* nuovo) override {
        passo();
        errno = EIO;
        return rename_fallisce ? -1 : Syscalls::link(vecchio, nuovo);
    }
    int unlink(const char* nome) override {
        passo();
        errno = EIO;
        return unlink_fallisce ? -1 : Syscalls::unlink(nome);
    }
    int fsetxattr(int fd, const char* nome, const void* dati, std::size_t quanti) override {
        passo();
        errno = ENOTSUP;
        return senza_attributi ? -1 : Syscalls::fsetxattr(fd, nome, dati, quanti);
    }

private:
    void passo() {
        if (++chiamate_ == vita) ::raise(SIGKILL);
    }
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
    int chiamate_ = 0;
};

}  // namespace support
