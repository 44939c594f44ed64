#include "viewer/ricerca.h"

#include "platform/runtime.h"
#include "platform/text_file.h"
#include "viewer/indice.h"

namespace viewer {

std::optional<Cercati> leggi_cercati(std::string_view testo) {
    Cercati cercati;
    std::size_t i = 0;
    while (i < testo.size()) {
        if (testo[i] < '0' || testo[i] > '9') {
            ++i;
            continue;
        }
        std::size_t numero = 0;
        for (; i < testo.size() && testo[i] >= '0' && testo[i] <= '9'; ++i) {
            if (numero <= 90) numero = numero * 10 + static_cast<std::size_t>(testo[i] - '0');
        }
        if (numero < 1 || numero > 90) return std::nullopt;
        cercati.set(numero);
    }
    return cercati;
}

std::vector<std::int32_t> cerca(const std::string& sviluppo, int numeri, const Cercati& cercati) {
    std::vector<std::int32_t> posti;
    const std::size_t quanti = cercati.count();
    if (quanti == 0 || quanti > static_cast<std::size_t>(numeri)) return posti;
    platform::TextReader lettore(sviluppo);
    Riga riga{};
    for (std::int32_t n = 1; leggi_riga(lettore, numeri, riga); ++n) {
        Cercati presi;
        for (int i = 0; i < numeri; ++i) {
            const std::size_t numero = riga[static_cast<std::size_t>(i)];
            if (numero <= 90 && cercati.test(numero)) presi.set(numero);
        }
        if (presi == cercati) posti.push_back(n);
    }
    return posti;
}

std::string trovate(std::size_t quante, const Cercati& cercati) {
    if (cercati.none()) return {};
    std::string testo =
        quante == 0   ? "Nessuna combinazione"
        : quante == 1 ? "Una combinazione"
                      : platform::Format(static_cast<double>(quante), platform::Modello::interi) +
                            " combinazioni";
    testo += " con ";
    std::size_t detti = 0;
    for (std::size_t n = 1; n < cercati.size(); ++n) {
        if (!cercati.test(n)) continue;
        ++detti;
        if (detti > 1) testo += detti == cercati.count() ? " e " : ", ";
        testo += std::to_string(n);
    }
    return testo;
}

}  // namespace viewer
