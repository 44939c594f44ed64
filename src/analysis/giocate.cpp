#include "analysis/giocate.h"

#include <algorithm>
#include <optional>

#include "development/ripetizioni.h"
#include "platform/disk.h"
#include "platform/text_file.h"

namespace analysis {

namespace {

using Riga = std::array<std::int16_t, 6>;

constexpr std::int64_t ogni = 4096;

/// Collects rows as they come, and turns numbers into ranks at the end.
class Raccolta {
public:
    Raccolta(int numeri, std::size_t quante, Giocate& giocate)
        : viste_(std::min(quante, combinazioni_massime)), giocate_(giocate) {
        giocate_ = Giocate();
        giocate_.numeri = numeri;
    }

    /// False when the row is one combination too many.
    bool aggiungi(const Riga& riga) {
        Ranghi numeri{};
        development::Combinazione chiave = 1;
        std::int16_t prima = 0;
        for (int i = 0; i < giocate_.numeri; ++i) {
            const std::int16_t numero = riga[static_cast<std::size_t>(i)];
            if (numero <= prima || numero > numeri_del_gioco) {
                ++giocate_.guaste;
                return true;
            }
            prima = numero;
            numeri[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(numero);
            chiave = chiave << 7 | static_cast<std::uint64_t>(numero);
        }
        if (giocate_.righe() == combinazioni_massime) return false;
        (viste_.aggiungi(chiave) ? giocate_.combinazioni : giocate_.ripetute).push_back(numeri);
        return true;
    }

    Lettura finisci() {
        std::array<std::uint8_t, numeri_del_gioco + 1> rango{};
        for (const Ranghi& combinazione : giocate_.combinazioni) {
            for (int i = 0; i < giocate_.numeri; ++i) {
                rango[combinazione[static_cast<std::size_t>(i)]] = 1;
            }
        }
        for (std::size_t numero = 1; numero < rango.size(); ++numero) {
            if (rango[numero] == 0) continue;
            rango[numero] = static_cast<std::uint8_t>(giocate_.in_gioco.size());
            giocate_.in_gioco.push_back(static_cast<std::uint8_t>(numero));
        }
        for (auto* quali : {&giocate_.combinazioni, &giocate_.ripetute}) {
            for (Ranghi& combinazione : *quali) {
                for (int i = 0; i < giocate_.numeri; ++i) {
                    auto& numero = combinazione[static_cast<std::size_t>(i)];
                    numero = rango[numero];
                }
            }
        }
        return giocate_.combinazioni.empty() ? Lettura::vuota : Lettura::letta;
    }

private:
    development::CombinazioniViste viste_;
    Giocate& giocate_;
};

}  // namespace

std::string_view parola(Lettura lettura) {
    switch (lettura) {
        case Lettura::letta:
            return "";
        case Lettura::assente:
            return "Lo sviluppo del sistema non si può leggere. Elaborate di nuovo il sistema.";
        case Lettura::vuota:
            return "Lo sviluppo del sistema non contiene combinazioni. Elaborate di nuovo il "
                   "sistema.";
        case Lettura::troppo_grande:
            return "Lo sviluppo ha più di 1.048.576 combinazioni: sono troppe per un'analisi.";
        case Lettura::cambiata:
            return "Lo sviluppo è cambiato mentre veniva letto. Ripetete l'analisi.";
        default:
            return "Analisi interrotta.";
    }
}

Lettura leggi_giocate(const std::string& file, int numeri, Giocate& giocate,
                      const Continua& continua) {
    giocate = Giocate();
    platform::TextReader lettore(file);
    const std::optional<std::int64_t> byte = platform::dimensione_file(file);
    if (!lettore.aperto() || !byte || numeri < 3 || numeri > 6) return Lettura::assente;
    // The longest line has two digits a number and a separator each, the shortest one digit.
    if (*byte > static_cast<std::int64_t>(combinazioni_massime) * (3 * numeri + 1)) {
        return Lettura::troppo_grande;
    }
    Raccolta raccolta(numeri, static_cast<std::size_t>(*byte / (std::int64_t{2} * numeri) + 1),
                      giocate);
    Riga riga{};
    std::int64_t fatte = 0;
    while (!lettore.eof()) {
        // A field that is no number must not pass for the one of the line before.
        riga.fill(0);
        lettore.interi({riga.data(), static_cast<std::size_t>(numeri)});
        if (!raccolta.aggiungi(riga)) return Lettura::troppo_grande;
        if (++fatte % ogni == 0 && continua && !continua()) return Lettura::interrotta;
    }
    if (lettore.seek() - 1 != *byte || platform::dimensione_file(file) != byte) {
        return Lettura::cambiata;
    }
    return raccolta.finisci();
}

Lettura prepara_giocate(std::span<const Riga> righe, int numeri, Giocate& giocate) {
    Raccolta raccolta(numeri, righe.size(), giocate);
    for (const Riga& riga : righe) {
        if (!raccolta.aggiungi(riga)) return Lettura::troppo_grande;
    }
    return raccolta.finisci();
}

}  // namespace analysis
