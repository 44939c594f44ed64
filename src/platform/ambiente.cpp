#include "platform/ambiente.h"

#include "platform/orologio.h"

namespace platform {

Ambiente& ambiente() {
    static Ambiente del_processo;
    return del_processo;
}

Application& App() {
    return ambiente().applicazione;
}

Syscalls& syscalls() {
    return *ambiente().chiamate;
}

double secondi() {
    if (ambiente().orologio) return ambiente().orologio();
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

}  // namespace platform
