#include "crossword/cronologia.h"

#include <utility>

namespace crossword {

void Cronologia::aggiungi(Azione azione) {
    constexpr std::size_t limite = 1000;
    azioni_.resize(fatte_);
    if (azioni_.size() == limite) azioni_.erase(azioni_.begin());
    azioni_.push_back(std::move(azione));
    fatte_ = azioni_.size();
}

void Cronologia::annota(const Modifica& modifica) {
    if (modifica.prima == modifica.dopo) return;
    if (in_azione_) {
        aperta_.push_back(modifica);
    } else {
        aggiungi({modifica});
    }
}

void Cronologia::apri() {
    in_azione_ = true;
}

void Cronologia::chiudi() {
    in_azione_ = false;
    if (!aperta_.empty()) aggiungi(std::exchange(aperta_, {}));
}

void Cronologia::vuota() {
    azioni_.clear();
    aperta_.clear();
    fatte_ = 0;
}

const std::vector<Modifica>* Cronologia::annulla() {
    return fatte_ == 0 ? nullptr : &azioni_[--fatte_];
}

const std::vector<Modifica>* Cronologia::ripeti() {
    return fatte_ == azioni_.size() ? nullptr : &azioni_[fatte_++];
}

}  // namespace crossword
