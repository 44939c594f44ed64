#include "analysis/cinquine.h"

#include <utility>

namespace analysis {

Cinquina::Cinquina(const Ranghi& combinazione, std::size_t indice, std::size_t fuori) {
    for (std::size_t i = 0; i < 6; ++i) {
        if (i != fuori) codice_ = codice_ << bit_rango | combinazione[i];
    }
    codice_ = (codice_ * combinazioni_massime | indice) << bit_posto | fuori;
}

std::vector<Cinquina> cinquine_ordinate(const Giocate& giocate) {
    std::vector<Cinquina> cinquine;
    cinquine.reserve(giocate.combinazioni.size() * 6);
    for (std::size_t i = 0; i < giocate.combinazioni.size(); ++i) {
        for (std::size_t fuori = 0; fuori < 6; ++fuori) {
            cinquine.emplace_back(giocate.combinazioni[i], i, fuori);
        }
    }
    // Five ranks are three digits of twelve bits; each pass keeps the order of the one before.
    std::vector<Cinquina> altre(cinquine.size());
    for (int cifra = 0; cifra < 3; ++cifra) {
        std::vector<std::size_t> posti(4096);
        for (const Cinquina& c : cinquine) ++posti[c.cifra(cifra)];
        std::size_t primo = 0;
        for (std::size_t& posto : posti) primo += std::exchange(posto, primo);
        for (const Cinquina& c : cinquine) altre[posti[c.cifra(cifra)]++] = c;
        cinquine.swap(altre);
    }
    return cinquine;
}

}  // namespace analysis
