#include "platform/macchina.h"

#include <cerrno>

#include "platform/syscalls.h"

namespace platform::macchina {

namespace {

Guasto esito(int risposta) {
    return risposta == 0 ? Guasto::nessuno : da_errno(errno);
}

}  // namespace

Guasto da_errno(int errore) {
    switch (errore) {
        case ENOENT:
            return Guasto::assente;
        case ENOTDIR:
        case ELOOP:
        case ENAMETOOLONG:
            return Guasto::percorso;
        case EACCES:
        case EPERM:
            return Guasto::permesso;
        // What shares of other machines report for a file that is open there for one alone.
        case EBUSY:
        case ETXTBSY:
        case EAGAIN:
            return Guasto::occupato;
        case EEXIST:
            return Guasto::esiste;
        case EXDEV:
            return Guasto::altro_disco;
        case ENOSPC:
#ifdef EDQUOT
        case EDQUOT:
#endif
            return Guasto::pieno;
        default:
            return Guasto::altro;
    }
}

Guasto togli(const std::string& nome) {
    return esito(syscalls().unlink(nome.c_str()));
}

Guasto rinomina(const std::string& vecchio, const std::string& nuovo) {
    return esito(syscalls().rename(vecchio.c_str(), nuovo.c_str()));
}

Guasto rinomina_senza_coprire(const std::string& vecchio, const std::string& nuovo) {
    if (syscalls().rename_noreplace(vecchio.c_str(), nuovo.c_str()) == 0) return Guasto::nessuno;
    if (errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) return da_errno(errno);
    if (syscalls().link(vecchio.c_str(), nuovo.c_str()) == 0)
        return esito(syscalls().unlink(vecchio.c_str()));
    if (errno == EEXIST || c_e(nuovo)) return Guasto::esiste;
    return rinomina(vecchio, nuovo);
}

}  // namespace platform::macchina
