// What the parts of the session share.
#pragma once

#include "systems/sessione.h"

namespace systems {

class Sessione::Azione {
public:
    explicit Azione(Sessione& sessione) : s_(sessione) { ++s_.azioni_; }
    ~Azione() {
        if (--s_.azioni_ > 0 || s_.cambiamento_ == Cambiamento{}) return;
        const Cambiamento cambiato = std::exchange(s_.cambiamento_, {});
        if (s_.osservatore_) s_.osservatore_(cambiato);
    }
    Azione(const Azione&) = delete;
    Azione& operator=(const Azione&) = delete;

private:
    Sessione& s_;
};

class Sessione::Lavoro {
public:
    explicit Lavoro(Sessione& sessione) : s_(sessione) { s_.occupata_ = true; }
    ~Lavoro() { s_.occupata_ = false; }
    Lavoro(const Lavoro&) = delete;
    Lavoro& operator=(const Lavoro&) = delete;

private:
    Sessione& s_;
};

}  // namespace systems
