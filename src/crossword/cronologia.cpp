#include "crossword/cronologia.h"

#include <algorithm>
#include <utility>

#include "crossword/linee.h"

namespace crossword {

bool rimetti(const std::vector<Modifica>& azione, bool indietro, Matrice& matrice) {
    const bool stesso = std::all_of(azione.begin(), azione.end(), [&](const Modifica& m) {
        return m.tipo || matrice(m.colonna, m.riga) == (indietro ? m.dopo : m.prima);
    });
    if (!stesso) return false;
    // All cells first, so that none bars another by the number that it is about to lose.
    for (const Modifica& m : azione) {
        if (!m.tipo) matrice.scrivi(m.colonna, m.riga, 0);
    }
    for (const Modifica& m : azione) {
        if (!m.tipo) posa(matrice, m.colonna, m.riga, indietro ? m.prima : m.dopo);
    }
    return true;
}

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

void Cronologia::annota(const Matrice& prima, const Matrice& dopo) {
    for (int y = 0; y < dopo.righe(); ++y) {
        for (int x = 0; x < dopo.colonne(); ++x) annota({y, x, prima(x, y), dopo(x, y)});
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

void Cronologia::dimentica_tipi() {
    std::vector<Azione> restanti;
    std::size_t fatte = 0;
    for (std::size_t i = 0; i < azioni_.size(); ++i) {
        std::erase_if(azioni_[i], [](const Modifica& m) { return m.tipo; });
        if (azioni_[i].empty()) continue;
        if (i < fatte_) ++fatte;
        restanti.push_back(std::move(azioni_[i]));
    }
    azioni_ = std::move(restanti);
    fatte_ = fatte;
}

const std::vector<Modifica>* Cronologia::annulla() {
    return fatte_ == 0 ? nullptr : &azioni_[--fatte_];
}

const std::vector<Modifica>* Cronologia::ripeti() {
    return fatte_ == azioni_.size() ? nullptr : &azioni_[fatte_++];
}

}  // namespace crossword
