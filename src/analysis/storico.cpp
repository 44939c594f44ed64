#include "analysis/storico.h"

#include <algorithm>
#include <atomic>

#include "analysis/quattro.h"
#include "analysis/squadra.h"

namespace analysis {

namespace {

constexpr std::size_t migliori_massimi = 10;
/// Draws that a thread takes at a time.
constexpr std::size_t blocco = 64;

/// The maps of the numbers drawn, and that of the Jolly.
struct Estratte {
    std::array<const std::uint64_t*, 6> numeri;
    const std::uint64_t* jolly;
};

/// Adds up six maps, a binary digit a word, and counts each sum.
PLATFORM_INCORPORATO void somma(const Estratte& e, std::size_t parole, EsitoEstrazione& esito) {
    Conta due;
    Conta tre;
    auto& c = esito.combinazioni;
    for (std::size_t i = 0; i < parole; i += 4) {
        // Each apart: an array of them would go through memory.
        Quattro n1;
        Quattro n2;
        Quattro n3;
        Quattro n4;
        Quattro n5;
        Quattro n6;
        leggi(e.numeri[0] + i, n1);
        leggi(e.numeri[1] + i, n2);
        leggi(e.numeri[2] + i, n3);
        leggi(e.numeri[3] + i, n4);
        leggi(e.numeri[4] + i, n5);
        leggi(e.numeri[5] + i, n6);
        const Quattro s = n1 ^ n2;
        const Quattro s1 = s ^ n3;
        const Quattro r1 = (n1 & n2) | (s & n3);
        const Quattro t = n4 ^ n5;
        const Quattro s2 = t ^ n6;
        const Quattro r2 = (n4 & n5) | (t & n6);
        const Quattro uno = s1 ^ s2;
        const Quattro r3 = s1 & s2;
        const Quattro rr = r1 ^ r2;
        const Quattro coppia = rr ^ r3;
        const Quattro quaterna = (r1 & r2) | (rr & r3);
        due.aggiungi(coppia & ~uno & ~quaterna);
        tre.aggiungi(coppia & uno & ~quaterna);
        if (!qualcuno(quaterna)) continue;
        for (std::size_t p = 0; p < 4; ++p) {
            const std::uint64_t q = quaterna[p];
            const std::uint64_t u = uno[p];
            const std::uint64_t d = coppia[p];
            const std::uint64_t cinque = q & u & ~d;
            const std::uint64_t con_jolly = cinque & e.jolly[i + p];
            c[4] += static_cast<std::uint32_t>(__builtin_popcountll(q & ~u & ~d));
            c[5] += static_cast<std::uint32_t>(__builtin_popcountll(cinque & ~con_jolly));
            c[6] += static_cast<std::uint32_t>(__builtin_popcountll(q & ~u & d));
            esito.cinque_piu_uno += static_cast<std::uint32_t>(__builtin_popcountll(con_jolly));
        }
    }
    c[2] = static_cast<std::uint32_t>(due.totale());
    c[3] = static_cast<std::uint32_t>(tre.totale());
}

PLATFORM_AMPIO void somma_ampia(const Estratte& e, std::size_t parole, EsitoEstrazione& esito) {
    somma(e, parole, esito);
}
void somma_comune(const Estratte& e, std::size_t parole, EsitoEstrazione& esito) {
    somma(e, parole, esito);
}

}  // namespace

int EsitoEstrazione::migliore() const {
    for (int t = 6; t > 0; --t) {
        if (combinazioni[static_cast<std::size_t>(t)] != 0) return t;
        if (t == 5 && cinque_piu_uno != 0) return t;
    }
    return 0;
}

bool EsitoEstrazione::meglio_di(const EsitoEstrazione& altro) const {
    if (combinazioni[6] != altro.combinazioni[6]) return combinazioni[6] > altro.combinazioni[6];
    if (cinque_piu_uno != altro.cinque_piu_uno) return cinque_piu_uno > altro.cinque_piu_uno;
    for (std::size_t t = 5; t > 0; --t) {
        if (combinazioni[t] != altro.combinazioni[t]) {
            return combinazioni[t] > altro.combinazioni[t];
        }
    }
    return false;
}

Mappe::Mappe(const Giocate& giocate)
    : righe_(giocate.righe()),
      parole_((righe_ + 255) / 256 * 4),
      bit_(parole_ * (giocate.in_gioco.size() + 1)),
      gradi_(giocate.in_gioco.size() + 1) {
    rango_.fill(static_cast<std::uint8_t>(giocate.in_gioco.size()));
    for (std::size_t r = 0; r < giocate.in_gioco.size(); ++r) {
        rango_[giocate.in_gioco[r]] = static_cast<std::uint8_t>(r);
    }
    std::size_t posto = 0;
    for (const auto* quali : {&giocate.combinazioni, &giocate.ripetute}) {
        for (const Ranghi& combinazione : *quali) {
            for (int i = 0; i < giocate.numeri; ++i) {
                const std::size_t rango = combinazione[static_cast<std::size_t>(i)];
                ++gradi_[rango];
                bit_[rango * parole_ + posto / 64] |= std::uint64_t{1} << (posto % 64);
            }
            ++posto;
        }
    }
}

std::size_t Mappe::rango(std::uint8_t numero) const {
    return rango_[numero < rango_.size() ? numero : 0];
}

const std::uint64_t* Mappe::mappa(std::uint8_t numero) const {
    return bit_.data() + rango(numero) * parole_;
}

EsitoEstrazione Mappe::conta(const Estrazione& estrazione) const {
    Estratte e{};
    for (std::size_t i = 0; i < 6; ++i) e.numeri[i] = mappa(estrazione.numeri[i]);
    e.jolly = mappa(estrazione.jolly);
    EsitoEstrazione esito;
    if (platform::processore_ampio()) {
        somma_ampia(e, parole_, esito);
    } else {
        somma_comune(e, parole_, esito);
    }
    // Each number drawn is a hit in every combination that holds it, so those of one hit are what
    // the others leave of all hits.
    std::uint32_t colpi = 0;
    for (const std::uint8_t numero : estrazione.numeri) colpi += gradi_[rango(numero)];
    std::uint32_t altre = esito.cinque_piu_uno;
    colpi -= 5 * esito.cinque_piu_uno;
    for (std::uint32_t t = 2; t < esito.combinazioni.size(); ++t) {
        altre += esito.combinazioni[t];
        colpi -= t * esito.combinazioni[t];
    }
    esito.combinazioni[1] = colpi;
    esito.combinazioni[0] = static_cast<std::uint32_t>(righe_) - altre - colpi;
    return esito;
}

namespace {

/// True when the draw at `i` is of another wheel on the day of the one before.
bool stesso_concorso(std::span<const Estrazione> estrazioni, std::size_t i) {
    return i > 0 && !estrazioni[i].ruota.empty() &&
           estrazioni[i].concorso == estrazioni[i - 1].concorso &&
           estrazioni[i].ruota != estrazioni[i - 1].ruota;
}

void conta_digiuni(std::span<const Estrazione> estrazioni, int minimo, Storico& s) {
    std::size_t digiuno = 0;
    std::size_t da = 0;
    for (std::size_t i = 0; i < estrazioni.size();) {
        const std::size_t primo = i;
        bool vince = false;
        do {
            vince = vince || s.esiti[i].migliore() >= minimo;
            ++i;
        } while (i < estrazioni.size() && stesso_concorso(estrazioni, i));
        ++s.concorsi;
        if (vince) {
            ++s.concorsi_vincenti;
            digiuno = 0;
            continue;
        }
        if (digiuno++ == 0) da = primo;
        if (digiuno > s.digiuno) {
            s.digiuno = digiuno;
            s.digiuno_da = da;
            s.digiuno_a = i - 1;
        }
    }
    s.digiuno_attuale = digiuno;
}

/// What only the whole sequence tells.
void riassumi(std::span<const Estrazione> estrazioni, int minimo, Storico& s) {
    for (const EsitoEstrazione& esito : s.esiti) {
        for (std::size_t t = 0; t < s.combinazioni.size(); ++t) {
            s.combinazioni[t] += esito.combinazioni[t];
        }
        s.cinque_piu_uno += esito.cinque_piu_uno;
        if (esito.migliore() >= minimo) ++s.vincenti;
    }
    conta_digiuni(estrazioni, minimo, s);
    std::vector<std::size_t> ordine;
    for (std::size_t i = 0; i < s.esiti.size(); ++i) {
        if (s.esiti[i].migliore() >= minimo) ordine.push_back(i);
    }
    const std::size_t quanti = std::min(migliori_massimi, ordine.size());
    std::partial_sort(ordine.begin(), ordine.begin() + static_cast<std::ptrdiff_t>(quanti),
                      ordine.end(), [&](std::size_t a, std::size_t b) {
                          if (s.esiti[a].meglio_di(s.esiti[b])) return true;
                          return !s.esiti[b].meglio_di(s.esiti[a]) && a > b;
                      });
    ordine.resize(quanti);
    s.migliori = ordine;
}

}  // namespace

bool calcola_storico(const Mappe& mappe, std::span<const Estrazione> estrazioni, int minimo,
                     int esecutori, Storico& storico, const AvanzamentoConteggio& avanzamento) {
    storico = Storico();
    storico.esiti.resize(estrazioni.size());
    std::atomic<std::size_t> prossima = 0;
    std::atomic<bool> ferma = false;
    in_squadra(esecutori, [&](bool chiamante) {
        while (!ferma) {
            const std::size_t da = prossima.fetch_add(blocco);
            if (da >= estrazioni.size()) return;
            const std::size_t a = std::min(da + blocco, estrazioni.size());
            for (std::size_t i = da; i < a; ++i) storico.esiti[i] = mappe.conta(estrazioni[i]);
            const double parte = static_cast<double>(a) / static_cast<double>(estrazioni.size());
            if (chiamante && avanzamento && !avanzamento(parte)) ferma = true;
        }
    });
    if (ferma) return false;
    riassumi(estrazioni, minimo, storico);
    return true;
}

}  // namespace analysis
