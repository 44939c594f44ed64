#include "comune/progresso.h"

#include <cstdio>

#include "platform/codepage.h"
#include "platform/terminale.h"

namespace suite {

Progresso::Progresso(const std::string& titolo)
    : titolo_(platform::mostrabile(titolo)), terminale_(platform::errori_su_un_terminale()) {}

Progresso::~Progresso() {
    if (ultimo_ >= 0) std::fputs("\r\033[K", stderr);
}

std::function<void(std::uint64_t, std::uint64_t)> Progresso::avanzamento() {
    if (!terminale_) return {};
    return [this](std::uint64_t fatti, std::uint64_t totale) { mostra(fatti, totale); };
}

void Progresso::mostra(std::uint64_t fatti, std::uint64_t totale) {
    if (!terminale_ || totale == 0) return;
    const int parte =
        static_cast<int>(static_cast<double>(fatti) * 1000.0 / static_cast<double>(totale));
    if (parte == ultimo_) return;
    ultimo_ = parte;
    std::fprintf(stderr, "\r%s: %d,%d %%\033[K", titolo_.c_str(), parte / 10, parte % 10);
}

}  // namespace suite
