#include "viewer/indice.h"

namespace viewer {

void Indice::costruisci(const std::string& file, std::int32_t pagine, const Passo& passo) {
    posizioni_.assign(1, 1);
    platform::TextReader sviluppo(file);
    std::int32_t righe = 0;
    while (!sviluppo.eof()) {
        for (int i = 0; i < righe_pagina; ++i) {
            sviluppo.salta_riga();
            if (sviluppo.eof()) {
                // The last line of all does not count as a step.
                passo(righe);
                return;
            }
            ++righe;
        }
        passo(righe);
        if (static_cast<std::int64_t>(posizioni_.size()) >= pagine) return;
        posizioni_.push_back(sviluppo.seek());
    }
}

std::int64_t Indice::posizione(std::int32_t pagina) const {
    const auto i = static_cast<std::size_t>(pagina);
    return pagina < 1 || i > posizioni_.size() ? 0 : posizioni_[i - 1];
}

void Indice::ricorda(std::int32_t pagina, std::int64_t posizione) {
    const auto i = static_cast<std::size_t>(pagina);
    if (pagina < 1 || i > posizioni_.size() + 1) return;
    if (i > posizioni_.size()) posizioni_.push_back(0);
    posizioni_[i - 1] = posizione;
}

std::int32_t pagine_di(std::int32_t conteggio) {
    return conteggio / righe_pagina + (conteggio % righe_pagina != 0 ? 1 : 0);
}

bool leggi_riga(platform::TextReader& sviluppo, int numeri, Riga& riga) {
    if (sviluppo.eof()) return false;
    for (int i = 0; i < numeri; ++i) {
        if (!sviluppo.intero(riga[static_cast<std::size_t>(i)])) return false;
    }
    return true;
}

Pagina leggi_pagina(const std::string& file, std::int64_t posizione, int numeri) {
    Pagina pagina;
    platform::TextReader sviluppo(file);
    if (numeri < 1 || numeri > 6 || !sviluppo.seek(posizione)) return pagina;
    while (pagina.righe.size() < righe_pagina && !sviluppo.eof()) {
        Riga riga{};
        if (!leggi_riga(sviluppo, numeri, riga)) return pagina;
        pagina.righe.push_back(riga);
    }
    pagina.seguente = sviluppo.seek();
    return pagina;
}

}  // namespace viewer
