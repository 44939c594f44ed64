#include "check/spoglio.h"

#include <algorithm>
#include <limits>

#include "platform/runtime.h"

namespace check {

namespace {

// Often enough for the progress to run smoothly, seldom enough to cost nothing.
constexpr std::int32_t ogni = 1024;

/// How often each number stands among the winning ones: a repeated one counts twice.
class Pesi {
public:
    explicit Pesi(const RichiestaSpoglio& r)
        : pesi_(std::size_t{1} << 16), numeri_(r.gioco.numeri()) {
        const std::size_t primo = r.gioco.e_lotto() ? 0 : 1;
        const auto dopo = static_cast<std::size_t>(r.gioco.estratti());
        for (std::size_t b = primo; b < dopo; ++b) ++pesi_[posto(r.vincente[b])];
    }
    [[nodiscard]] int punti(const Numeri& colonna) const {
        int somma = 0;
        for (int a = 0; a < numeri_; ++a) {
            somma += pesi_[posto(colonna[static_cast<std::size_t>(a)])];
        }
        return somma;
    }

private:
    static std::uint16_t posto(std::int16_t numero) { return static_cast<std::uint16_t>(numero); }
    std::vector<std::uint8_t> pesi_;
    int numeri_;
};

Punti valuta(const RichiestaSpoglio& r, const Pesi& pesi, const Numeri& colonna) {
    const int punti = pesi.punti(colonna);
    const bool jolly = !r.gioco.e_lotto() && punti > 4 &&
                       std::find(colonna.begin(), colonna.end(), r.vincente[0]) != colonna.end();
    return {punti, jolly};
}

void somma(std::array<std::int16_t, 7>& totali, int punti, std::int32_t quante) {
    if (punti >= static_cast<int>(totali.size())) return;
    std::int16_t& totale = totali[static_cast<std::size_t>(punti)];
    const std::int64_t esatto = std::int64_t{totale} + quante;
    constexpr std::int64_t pieno = std::numeric_limits<std::int16_t>::max();
    totale = static_cast<std::int16_t>(std::min(esatto, pieno));
}

}  // namespace

std::optional<std::array<std::int16_t, 7>> leggi_vincenti(std::span<const std::string> caselle) {
    std::array<std::int16_t, 7> vincente{};
    for (std::size_t i = 0; i < caselle.size() && i < vincente.size(); ++i) {
        const double numero = platform::Val(caselle[i]);
        if (!(numero > 0)) return std::nullopt;
        platform::assegna(vincente[i], platform::CInt(numero));
    }
    return vincente;
}

bool Lettore::prossimo() {
    return numeri_ > 0 && file_.interi({colonna_.data(), static_cast<std::size_t>(numeri_)});
}

std::string Punti::testo() const {
    return std::to_string(punti()) + (jolly() ? " + 1" : "");
}

bool Spoglio::conta(const RichiestaSpoglio& richiesta, const Passo& passo) {
    *this = Spoglio();
    const Pesi pesi(richiesta);
    Lettore lettore(richiesta.file, richiesta.gioco.numeri());
    const std::int32_t n = richiesta.combinazioni;
    if (!richiesta.gioco.e_lotto() && n > 0) {
        // Room for the largest crossword; a count beyond it is damaged or grows as it goes.
        const auto posti = static_cast<std::size_t>(std::min(n, std::int32_t{1} << 18));
        lista_colonne_.reserve(posti);
        lista_punti_.reserve(posti);
    }
    std::int32_t i = 0;
    while (i < n && lettore.prossimo()) {
        ++i;
        segna(richiesta, valuta(richiesta, pesi, lettore.colonna()), i, i);
        if (i % ogni == 0 && !passo(i)) return false;
    }
    // Past the end every record counts as the last one did, so all of them at once.
    if (i < n) segna(richiesta, valuta(richiesta, pesi, lettore.colonna()), i + 1, n);
    lista_colonne_.shrink_to_fit();
    lista_punti_.shrink_to_fit();
    return n < 1 || passo(n);
}

void Spoglio::segna(const RichiestaSpoglio& richiesta, Punti punti, std::int32_t prima,
                    std::int32_t ultima) {
    const int quanti = punti.punti();
    if (richiesta.gioco.e_lotto() && quanti < 2) return;
    const std::int32_t quante = ultima - prima + 1;
    somma(punti.jolly() ? totali_j_ : totali_, quanti, quante);
    if (punti.jolly() || quanti > 2 || richiesta.gioco.e_lotto()) vincenti_ += quante;
    for (std::int32_t k = 0; k < quante && lista_colonne_.size() < posti_massimi; ++k) {
        lista_colonne_.push_back(prima + k);
        lista_punti_.push_back(punti);
    }
}

void Spoglio::cancella() {
    // A list in braces would keep the memory.
    lista_colonne_ = std::vector<std::int32_t>();
    lista_punti_ = std::vector<Punti>();
}

std::int16_t Spoglio::totale(int punti) const {
    return totali_.at(static_cast<std::size_t>(punti));
}

std::int16_t Spoglio::totale_jolly(int punti) const {
    return totali_j_.at(static_cast<std::size_t>(punti));
}

}  // namespace check
