#include "crossword/digitazione.h"

#include <utility>

namespace crossword {

std::optional<int> digita(std::string& digitato, int tasto) {
    std::string cifre = std::exchange(digitato, {});
    const bool invio = tasto == '\r' && !cifre.empty();
    if (!invio && (tasto < '0' || tasto > '9')) return std::nullopt;
    if (!invio) cifre.push_back(static_cast<char>(tasto));
    if (invio || cifre.size() > 1) return std::stoi(cifre);
    digitato = cifre;
    return std::nullopt;
}

}  // namespace crossword
