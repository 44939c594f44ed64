#include "platform/application.h"

#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/blocco.h"

namespace platform {

bool Application::PrevInstance() {
    if (blocco_ >= 0) return false;
    // The lock lives with the process, so that a killed program never bars the next start, and on
    // the folder itself, which every user and machine that shares it has in common.
    const int fd = ::open(Path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    Presa presa = fd < 0 ? Presa::impossibile : blocca(fd);
    blocco_ = fd;
    if (fd >= 0 && presa == Presa::impossibile) {
        // A disk of the network locks what can be written only, and a folder cannot.
        ::close(fd);
        blocco_ = ::open(file(".tabellino-istanza").c_str(),
                         O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (blocco_ >= 0) presa = blocca(blocco_);
    }
    if (presa != Presa::occupata) return false;
    ::close(blocco_);
    blocco_ = -1;
    return true;
}

Application::~Application() {
    if (blocco_ >= 0) ::close(blocco_);
}

bool Turno::prova() {
    fd_ = ::open(nome_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (fd_ < 0) return false;
    const Presa presa = blocca(fd_);
    struct stat mio {};
    struct stat ora {};
    // The one before may have taken the file away after this opening: then it is nobody's lock.
    preso_ = presa == Presa::presa && ::fstat(fd_, &mio) == 0 && ::stat(nome_.c_str(), &ora) == 0 &&
             mio.st_dev == ora.st_dev && mio.st_ino == ora.st_ino;
    if (preso_) return false;
    ::close(fd_);
    fd_ = -1;
    return presa != Presa::impossibile;
}

Turno::Turno(const std::string& cartella, std::chrono::milliseconds attesa)
    : nome_(cartella + "/.tabellino-turno") {
    constexpr int pausa = 5;
    const auto fine = std::chrono::steady_clock::now() + attesa;
    while (prova() && std::chrono::steady_clock::now() < fine) ::poll(nullptr, 0, pausa);
}

Turno::~Turno() {
    if (!preso_) return;
    ::unlink(nome_.c_str());
    ::close(fd_);
}

}  // namespace platform
