#include "development/ripetizioni.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/disk.h"

namespace development {

namespace {

constexpr std::int32_t passo = 250;

std::uint64_t mescola(std::uint64_t impronta, std::uint64_t parola) {
    impronta = (impronta ^ parola) * 0xD6E8FEB86659FD93ULL;
    return impronta ^ (impronta >> 32);
}

std::uint64_t otto_byte(const char* dati) {
    std::uint64_t parola = 0;
    std::memcpy(&parola, dati, sizeof parola);
    return parola;
}

/// Three words cover every combination; of a longer line the middle is left to the comparison.
std::uint64_t impronta_di(std::string_view riga) {
    std::uint64_t h = riga.size() * 0x9E3779B97F4A7C15ULL;
    if (riga.size() < 8) {
        for (const char c : riga) h = mescola(h, static_cast<unsigned char>(c));
        return h;
    }
    const std::size_t ultimo = riga.size() - 8;
    h = mescola(h, otto_byte(&riga[0]));
    h = mescola(h, otto_byte(&riga[std::min<std::size_t>(8, ultimo)]));
    return mescola(h, otto_byte(&riga[ultimo]));
}

/// Set of lines of one text, each known by its place in that text. Open addressing in few bytes
/// keeps it near the processor's cache, and so to a few milliseconds for 170,000 lines.
class Insieme {
public:
    Insieme(const std::string& testo, std::size_t righe)
        : testo_(testo), posti_(std::bit_ceil(righe + righe / 2 + 1)) {}

    /// Brings the place of a line near before it is asked for.
    void avvicina(std::uint64_t impronta) const { __builtin_prefetch(&posti_[primo(impronta)]); }

    /// True when no equal line was added before.
    bool aggiungi(std::string_view riga, std::uint64_t impronta) {
        const auto segno = static_cast<std::uint32_t>(impronta >> 32);
        for (std::size_t i = primo(impronta);; i = (i + 1) & (posti_.size() - 1)) {
            Posto& posto = posti_[i];
            if (posto.dopo_inizio == 0) {
                posto = {segno, static_cast<std::uint32_t>(riga.data() - testo_.data() + 1)};
                return true;
            }
            // A line holds its own end, so no longer line starts with it.
            if (posto.segno == segno &&
                testo_.compare(posto.dopo_inizio - 1, riga.size(), riga) == 0) {
                return false;
            }
        }
    }

private:
    struct Posto {
        std::uint32_t segno = 0;
        std::uint32_t dopo_inizio = 0;  ///< where the line starts, plus 1; 0 is a free place
    };

    [[nodiscard]] std::size_t primo(std::uint64_t impronta) const {
        return impronta & (posti_.size() - 1);
    }

    const std::string& testo_;
    std::vector<Posto> posti_;
};

/// Some lines cut off a text at once, so that the set's memory can be fetched meanwhile.
struct Gruppo {
    struct Riga {
        std::string_view testo;
        std::uint64_t impronta = 0;
    };
    std::array<Riga, 32> righe;
    std::size_t quante = 0;

    /// Cuts the next lines off `resto`, their ends included.
    void taglia(std::string_view& resto, const Insieme& viste) {
        for (quante = 0; quante < righe.size() && !resto.empty(); ++quante) {
            const std::string_view riga = resto.substr(0, resto.find('\n') + 1);
            righe[quante] = {riga, impronta_di(riga)};
            viste.avvicina(righe[quante].impronta);
            resto.remove_prefix(riga.size());
        }
    }
};

/// Adds a line behind the stretches of lines to keep, those that touch in one.
void allunga(std::vector<std::string_view>& tratti, std::string_view riga) {
    if (!tratti.empty() && tratti.back().data() + tratti.back().size() == riga.data()) {
        tratti.back() = {tratti.back().data(), tratti.back().size() + riga.size()};
    } else {
        tratti.push_back(riga);
    }
}

/// Leaves only the stretches in the text, which hold parts of it; returns their size.
std::size_t compatta(std::string& testo, const std::vector<std::string_view>& tratti) {
    char* fine = testo.data();
    for (const std::string_view tratto : tratti) {
        std::memmove(fine, tratto.data(), tratto.size());
        fine += tratto.size();
    }
    testo.resize(static_cast<std::size_t>(fine - testo.data()));
    return testo.size();
}

}  // namespace

std::optional<SenzaRipetizioni> togli_ripetizioni(const std::string& vecchio,
                                                  const std::string& nuovo,
                                                  const Avanzamento& avanzamento) {
    auto testo = platform::leggi_tutto(vecchio);
    if (!testo) return std::nullopt;
    if (!testo->empty() && testo->back() != '\n') testo->append("\r\n");
    Insieme viste(*testo, static_cast<std::size_t>(std::count(testo->begin(), testo->end(), '\n')));
    SenzaRipetizioni esito;
    std::vector<std::string_view> tratti;
    std::int32_t lette = 0;
    Gruppo gruppo;
    for (std::string_view resto = *testo; !resto.empty();) {
        gruppo.taglia(resto, viste);
        for (std::size_t i = 0; i < gruppo.quante; ++i) {
            const auto& [riga, impronta] = gruppo.righe[i];
            if (viste.aggiungi(riga, impronta)) {
                allunga(tratti, riga);
                ++esito.combinazioni;
            }
            if (++lette % passo == 0 && avanzamento && !avanzamento(lette)) return std::nullopt;
        }
    }
    esito.byte = static_cast<std::int64_t>(compatta(*testo, tratti));
    // Syncing is left to the step that gives the file its name.
    platform::Kill(nuovo);
    if (platform::aggiungi(nuovo, *testo) == platform::Esito::ok) return esito;
    platform::Kill(nuovo);
    return std::nullopt;
}

}  // namespace development
