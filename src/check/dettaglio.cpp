#include "check/dettaglio.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace check {

namespace {

constexpr std::int32_t ogni = 1024;
constexpr std::size_t codici = Punti::massimi * 2 + 2;

/// Place of each result in the order of the texts.
std::array<std::uint8_t, codici> posti_dei_punti() {
    std::array<std::uint8_t, codici> per_testo{};
    std::iota(per_testo.begin(), per_testo.end(), std::uint8_t{0});
    const auto testo = [](std::uint8_t codice) {
        return Punti(codice / 2, codice % 2 != 0).testo();
    };
    std::sort(per_testo.begin(), per_testo.end(),
              [&](std::uint8_t a, std::uint8_t b) { return testo(a) < testo(b); });
    std::array<std::uint8_t, codici> posti{};
    for (std::size_t i = 0; i < codici; ++i) posti[per_testo[i]] = static_cast<std::uint8_t>(i);
    return posti;
}

}  // namespace

std::int32_t scheda_di(std::int32_t combinazione, int pannelli) {
    if (pannelli < 1) return 0;
    return combinazione / pannelli + (combinazione % pannelli != 0 ? 1 : 0);
}

bool Dettaglio::aggiungi(const RichiestaSpoglio& richiesta, const Spoglio& spoglio, int pannelli,
                         const Passo& passo) {
    Lettore lettore(richiesta.file, richiesta.gioco.numeri());
    quanti_numeri_ = richiesta.gioco.numeri();
    const std::size_t quante = righe() + spoglio.quante();
    schede_.reserve(quante);
    numeri_.reserve(quante);
    punti_.reserve(quante);
    std::int32_t i = 0;
    bool avanti = true;
    for (std::size_t k = 1; k <= spoglio.quante() && avanti; ++k) {
        const std::int32_t posizione = spoglio.lista_colonne(k);
        while (i < posizione && lettore.prossimo()) ++i;
        schede_.push_back(scheda_di(posizione, pannelli));
        numeri_.push_back(lettore.colonna());
        punti_.push_back(spoglio.lista_punti(k));
        const auto fatte = static_cast<std::int32_t>(k);
        if (fatte % ogni == 0 || k == spoglio.quante()) avanti = passo(fatte);
    }
    riordina();
    return avanti;
}

void Dettaglio::svuota() {
    // A list in braces would keep the memory.
    schede_ = std::vector<std::int32_t>();
    numeri_ = std::vector<Numeri>();
    punti_ = std::vector<Punti>();
    ordine_ = std::vector<std::uint32_t>();
}

std::string Dettaglio::testo(std::size_t riga, int colonna) const {
    if (riga >= righe()) return "";
    const std::size_t r = ordine_.empty() ? riga : ordine_[riga];
    if (colonna == colonna_chiave) {
        const std::string numero = std::to_string(schede_[r]);
        return std::string(numero.size() < 9 ? 9 - numero.size() : 0, '0') + numero;
    }
    if (colonna == colonna_scheda) return std::to_string(schede_[r]);
    if (colonna == colonna_punti) return punti_[r].testo();
    const int a = colonna - colonna_numeri;
    return a >= 0 && a < quanti_numeri_ ? std::to_string(numeri_[r][static_cast<std::size_t>(a)])
                                        : "";
}

void Dettaglio::ordina(int colonna, Verso verso) {
    colonna_ = colonna;
    verso_ = verso;
    riordina();
}

void Dettaglio::riordina() {
    ordine_.clear();
    if (righe() == 0) return;
    if (colonna_ == colonna_punti) per_punti();
    if (colonna_ == colonna_chiave) per_scheda();
}

void Dettaglio::per_punti() {
    static const std::array<std::uint8_t, codici> posti = posti_dei_punti();
    const auto gruppo = [this](Punti p) {
        const std::size_t posto = posti[p.codice()];
        return verso_ == Verso::crescente ? posto : codici - 1 - posto;
    };
    std::array<std::uint32_t, codici + 1> inizio{};
    for (const Punti p : punti_) ++inizio[gruppo(p) + 1];
    std::partial_sum(inizio.begin(), inizio.end(), inizio.begin());
    ordine_.resize(righe());
    std::uint32_t r = 0;
    for (const Punti p : punti_) ordine_[inizio[gruppo(p)]++] = r++;
}

void Dettaglio::per_scheda() {
    // Nine digits sort as the numbers do, and rows mostly come with theirs growing.
    if (verso_ == Verso::crescente && std::is_sorted(schede_.begin(), schede_.end())) return;
    ordine_.resize(righe());
    std::iota(ordine_.begin(), ordine_.end(), 0U);
    std::stable_sort(ordine_.begin(), ordine_.end(), [this](std::uint32_t a, std::uint32_t b) {
        return verso_ == Verso::crescente ? schede_[a] < schede_[b] : schede_[b] < schede_[a];
    });
}

std::size_t Dettaglio::memoria() const {
    return schede_.capacity() * sizeof schede_[0] + numeri_.capacity() * sizeof numeri_[0] +
           punti_.capacity() * sizeof punti_[0] + ordine_.capacity() * sizeof ordine_[0];
}

}  // namespace check
