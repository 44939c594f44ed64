#include "development/ripetizioni.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/disk.h"

namespace development {

namespace {

constexpr std::int32_t passo = 250;

std::uint64_t mescola(std::uint64_t impronta, const char* dati, std::size_t quanti) {
    std::uint64_t parola = 0;
    std::memcpy(&parola, dati, quanti);
    impronta = (impronta ^ parola) * 0xD6E8FEB86659FD93ULL;
    return impronta ^ (impronta >> 32);
}

std::uint64_t impronta_di(std::string_view riga) {
    std::uint64_t h = riga.size() * 0x9E3779B97F4A7C15ULL;
    if (riga.size() < 8)
        return mescola(h, riga.data(), riga.size());
    std::size_t i = 0;
    for (; i + 8 < riga.size(); i += 8) h = mescola(h, riga.data() + i, 8);
    return mescola(h, riga.data() + riga.size() - 8, 8);
}

/// Set of the lines of one text, each known by its place in that text. Open addressing in few
/// bytes keeps it within the processor's cache, and so to a few milliseconds for 170,000 lines.
class Insieme {
public:
    Insieme(std::string_view testo, std::size_t righe)
        : testo_(testo), posti_(std::bit_ceil(righe + righe / 2 + 1)) {}

    /// True when no equal line was added before.
    bool aggiungi(std::string_view riga) {
        const std::uint64_t impronta = impronta_di(riga);
        const std::size_t maschera = posti_.size() - 1;
        const auto segno = static_cast<std::uint32_t>(impronta >> 32);
        for (std::size_t i = impronta & maschera;; i = (i + 1) & maschera) {
            Posto& posto = posti_[i];
            if (posto.dopo_inizio == 0) {
                posto = {segno, static_cast<std::uint32_t>(riga.data() - testo_.data() + 1)};
                return true;
            }
            if (posto.segno == segno && uguale(posto.dopo_inizio - 1, riga))
                return false;
        }
    }

private:
    struct Posto {
        std::uint32_t segno = 0;
        std::uint32_t dopo_inizio = 0;  ///< where the line starts, plus 1; 0 is a free place
    };

    /// True when the line that starts at `inizio` has the text of `riga`.
    [[nodiscard]] bool uguale(std::size_t inizio, std::string_view riga) const {
        std::string_view resto = testo_.substr(inizio);
        if (!resto.starts_with(riga))
            return false;
        resto.remove_prefix(riga.size());
        return resto.empty() || resto == "\r" || resto[0] == '\n' || resto.starts_with("\r\n");
    }

    std::string_view testo_;
    std::vector<Posto> posti_;
};

}  // namespace

std::optional<SenzaRipetizioni> togli_ripetizioni(const std::string& vecchio,
                                                  const std::string& nuovo,
                                                  const Avanzamento& avanzamento) {
    const auto letto = platform::leggi_tutto(vecchio);
    if (!letto)
        return std::nullopt;
    const std::string_view testo = *letto;
    Insieme viste(testo,
                  static_cast<std::size_t>(std::count(testo.begin(), testo.end(), '\n')) + 1);
    std::string unici;
    unici.reserve(testo.size() + 2);
    SenzaRipetizioni esito;
    std::int32_t lette = 0;
    // Lines to keep that follow one another are copied together.
    std::size_t tratto = 0;
    for (std::size_t inizio = 0; inizio < testo.size();) {
        const std::size_t fine = std::min(testo.find('\n', inizio), testo.size());
        const std::size_t dopo = std::min(fine + 1, testo.size());
        const bool cr = fine > inizio && testo[fine - 1] == '\r';
        const std::string_view riga = testo.substr(inizio, fine - inizio - (cr ? 1 : 0));
        const bool nuova = viste.aggiungi(riga);
        if (nuova)
            ++esito.combinazioni;
        if (!nuova || !cr || fine == testo.size()) {
            unici.append(testo, tratto, inizio - tratto);
            if (nuova)
                unici.append(riga).append("\r\n");
            tratto = dopo;
        }
        inizio = dopo;
        if (++lette % passo == 0 && avanzamento && !avanzamento(lette))
            return std::nullopt;
    }
    unici.append(testo, tratto);
    esito.byte = static_cast<std::int64_t>(unici.size());
    if (platform::scrivi(nuovo, unici) != platform::Esito::ok)
        return std::nullopt;
    return esito;
}

}  // namespace development
