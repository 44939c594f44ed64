#include "platform/segno.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/blocco.h"
#include "platform/disk.h"

namespace platform {

namespace {

bool file_regolare(const std::string& nome) {
    struct stat s {};
    return ::stat(nome.c_str(), &s) == 0 && S_ISREG(s.st_mode);
}

}  // namespace

Segno::Segno(const std::string& nome) : nome_(nome) {
    turno_ = ::open(cartella_di(nome).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const Presa presa = turno_ < 0 ? Presa::impossibile : blocca(turno_);
    // Where the disk knows no locks, a marker that is seen has a process that lives.
    occupato_ = presa == Presa::occupata || (presa == Presa::impossibile && file_regolare(nome));
    if (occupato_) return;
    struct stat s {};
    const bool avanzo = ::lstat(nome.c_str(), &s) == 0;
    if (avanzo && !S_ISDIR(s.st_mode)) ::unlink(nome.c_str());
    fatto_ = collega() || crea();
}

/// A link to a file that only this process holds open is there for others exactly as long as the
/// process, however that ends.
bool Segno::collega() {
    // So high that another process to come by this number has nothing there.
    constexpr int posto = 200;
    const int programma = ::open("/proc/self/exe", O_RDONLY | O_CLOEXEC);
    if (programma < 0) return false;
    tenuto_ = ::fcntl(programma, F_DUPFD_CLOEXEC, posto);
    ::close(programma);
    const std::string meta =
        "/proc/" + std::to_string(::getpid()) + "/fd/" + std::to_string(tenuto_);
    if (tenuto_ < 0 || ::symlink(meta.c_str(), nome_.c_str()) != 0) return false;
    if (file_regolare(nome_)) return true;
    ::unlink(nome_.c_str());
    return false;
}

bool Segno::crea() const {
    const int fd =
        ::open(nome_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    return fd >= 0 && ::close(fd) == 0;
}

Segno::~Segno() {
    if (fatto_) ::unlink(nome_.c_str());
    if (tenuto_ >= 0) ::close(tenuto_);
    if (turno_ >= 0) ::close(turno_);
}

}  // namespace platform
