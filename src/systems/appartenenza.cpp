#include "systems/appartenenza.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "platform/disk.h"
#include "platform/runtime.h"

namespace systems {

namespace {

/// Mark of a development without any system.
constexpr std::string_view di_nessuno = "-";

/// FNV-1a: a change of the crossword is no attack, and 64 bits tell any two apart.
class Riassunto {
public:
    void aggiungi(std::int64_t numero) {
        for (int i = 0; i < 8; ++i) {
            stato_ = (stato_ ^ (static_cast<std::uint64_t>(numero) >> (8 * i) & 0xFF)) *
                     0x100000001B3ULL;
        }
    }
    [[nodiscard]] std::string testo() const {
        std::array<char, 17> cifre{};
        std::snprintf(cifre.data(), cifre.size(), "%016llx",
                      static_cast<unsigned long long>(stato_));
        return cifre.data();
    }

private:
    std::uint64_t stato_ = 0xCBF29CE484222325ULL;
};

Sistema su_disco(const Coppia& coppia) {
    return leggi_sistema(coppia.cartella, coppia.nome, coppia.gioco);
}

std::string marca(const Sistema& sistema) {
    return impronta(sistema) + " " + std::to_string(sistema.senza_ripetizioni);
}

}  // namespace

std::string impronta(const Sistema& sistema) {
    const crossword::Matrice& m = sistema.matrice;
    Riassunto r;
    r.aggiungi(sistema.gioco.numeri());
    r.aggiungi(sistema.tipo_righe);
    r.aggiungi(sistema.tipo_colonne);
    // Only a square has diagonals.
    r.aggiungi(m.ubound(1) == m.ubound(2) ? sistema.tipo_diagonali : -1);
    r.aggiungi(m.ubound(1));
    r.aggiungi(m.ubound(2));
    for (int y = 0; y <= m.ubound(2); ++y) {
        for (int x = 0; x <= m.ubound(1); ++x) r.aggiungi(m(x, y));
    }
    return r.testo();
}

std::string marca_sviluppo(const Coppia& coppia) {
    std::string marcato = platform::annotazione(coppia.sviluppo());
    if (!marcato.empty()) return marcato;
    return platform::esiste_file(coppia.sistema()) ? marca(su_disco(coppia))
                                                   : std::string(di_nessuno);
}

void ricorda_origine(const Coppia& coppia) {
    const std::string sviluppo = coppia.sviluppo();
    if (!platform::esiste_file(sviluppo) || !platform::annotazione(sviluppo).empty()) return;
    platform::annota(sviluppo, marca_sviluppo(coppia));
}

bool sviluppo_proprio(const Coppia& coppia) {
    const std::string marcato = platform::annotazione(coppia.sviluppo());
    if (marcato.empty()) return true;
    const Sistema sistema = su_disco(coppia);
    const std::size_t spazio = marcato.find(' ');
    if (marcato.substr(0, spazio) != impronta(sistema)) return false;
    const bool contate = platform::Val(marcato.substr(spazio + 1)) > 0;
    return sistema.senza_ripetizioni > 0 || !contate;
}

bool salva_per_elaborare(const Coppia& coppia, const Sistema& sistema) {
    const std::string nuovo = testo_sistema(sistema);
    if (platform::leggi_tutto(coppia.sistema(), std::ssize(nuovo)) != nuovo) {
        const platform::Esito via = platform::Kill(coppia.sviluppo());
        // What cannot be taken away stays beside the system that it belongs to.
        if (via != platform::Esito::ok && via != platform::Esito::assente) return false;
    }
    return platform::sostituisci(coppia.sistema(), nuovo) == platform::Esito::ok;
}

bool concludi_sviluppo(const Coppia& coppia, const Sistema& sistema,
                       const development::Elaborazione& lavoro, bool intero) {
    const std::string temporaneo = lavoro.file_temporaneo();
    if (intero && impronta(su_disco(coppia)) == impronta(sistema)) {
        platform::annota(temporaneo, marca(sistema));
        if (development::completa_sviluppo(temporaneo, coppia.sviluppo(), lavoro.byte_scritti()))
            return true;
    }
    // What stands there is of before; and lines that the disk refused are lost, so that what is
    // left must not pass for a development.
    platform::Kill(coppia.sviluppo());
    platform::Kill(temporaneo);
    return false;
}

}  // namespace systems
