#include "analysis/ricerca.h"

#include <cmath>
#include <utility>

namespace analysis {

namespace {

/// Steps between two looks at the clock.
constexpr std::uint64_t tratto = 64;
/// Of what a step changes on average, what is still let pass at the end of a round.
constexpr double freddo = 0.01;

}  // namespace

Ricerca::Ricerca(const Schema& schema, const Celle& celle, const std::vector<bool>& ferme,
                 bool pareggia, std::uint64_t seme, const crossword::Classi& classi)
    : schema_(schema), ferme_(ferme), pareggia_(pareggia), classi_(classi), sorte_(seme) {
    ferme_.resize(celle.size());
    for (std::size_t c = 0; c < celle.size(); ++c) {
        if (!ferme_[c]) libere_.push_back(static_cast<std::uint8_t>(c));
    }
    riparti(celle);
    migliori_ = celle_;
    for (std::size_t n = 1; n < volte_.size(); ++n) {
        if (volte_[n] > 0) in_gioco_.push_back(static_cast<std::uint8_t>(n));
    }
}

void Ricerca::riparti(const Celle& celle) {
    celle_ = celle;
    regola_di_.fill(0);
    volte_.fill(0);
    for (std::size_t c = 0; c < celle_.size(); ++c) {
        regola_di_[celle_[c]] |= schema_.regola[c];
        ++volte_[celle_[c]];
    }
}

bool Ricerca::scambio(std::uint8_t p, std::uint8_t q) {
    const std::uint8_t a = celle_[p];
    const std::uint8_t b = celle_[q];
    if (a == b) return false;
    const std::uint64_t da_p = schema_.regola[p];
    const std::uint64_t da_q = schema_.regola[q];
    // A number is once at most on each line, so that its other cells are what is left.
    if ((((regola_di_[a] ^ da_p) & da_q) | ((regola_di_[b] ^ da_q) & da_p)) != 0) return false;
    mosse_.push_back({p, a, b});
    mosse_.push_back({q, b, a});
    return true;
}

/// Adds the exchange of two numbers in the cells that hang together with one, line by line: it
/// keeps the rule. False when a fixed cell is among them. `eccesso` grows by the cells of `a` and
/// falls by those of `b`.
bool Ricerca::anello(std::uint8_t inizio, std::uint8_t a, std::uint8_t b, int& eccesso) {
    const auto preso = [this](std::size_t c) {
        for (const Cambio& m : mosse_) {
            if (m.cella == c) return true;
        }
        return false;
    };
    if (preso(inizio)) return true;
    const auto aggiungi = [&](std::uint8_t c) {
        const std::uint8_t suo = celle_[c];
        mosse_.push_back({c, suo, suo == a ? b : a});
        eccesso += suo == a ? 1 : -1;
        return !ferme_[c];
    };
    std::size_t fatte = mosse_.size();
    if (!aggiungi(inizio)) return false;
    for (; fatte < mosse_.size(); ++fatte) {
        const Cambio m = mosse_[fatte];
        for (std::size_t c = 0; c < celle_.size(); ++c) {
            if (celle_[c] != m.dopo || (schema_.regola[c] & schema_.regola[m.cella]) == 0) continue;
            if (!preso(c) && !aggiungi(static_cast<std::uint8_t>(c))) return false;
        }
    }
    return true;
}

bool Ricerca::catena(std::uint8_t p, std::uint8_t q) {
    const std::uint8_t a = celle_[p];
    const std::uint8_t b = celle_[q];
    int eccesso = 0;
    if (a == b || !anello(p, a, b, eccesso)) return false;
    return eccesso == 0 || (anello(q, a, b, eccesso) && eccesso == 0);
}

bool Ricerca::sostituzione(std::uint8_t p) {
    const std::uint8_t a = celle_[p];
    const std::uint8_t b = in_gioco_[a_caso(in_gioco_.size())];
    if (classi_[a] != classi_[b] || volte_[b] >= volte_[a] ||
        (regola_di_[b] & schema_.regola[p]) != 0)
        return false;
    mosse_.push_back({p, a, b});
    return true;
}

bool Ricerca::proponi() {
    mosse_.clear();
    const std::uint8_t p = libere_[a_caso(libere_.size())];
    const std::uint8_t q = libere_[a_caso(libere_.size())];
    if (pareggia_ && a_caso(8) == 0) return sostituzione(p);
    if (classi_[celle_[p]] != classi_[celle_[q]]) return false;
    if (scambio(p, q)) return true;
    // Where numbers stand close the rule forbids most swaps, and only longer exchanges are left.
    return a_caso(16) == 0 && catena(p, q);
}

void Ricerca::applica() {
    for (const Cambio& m : mosse_) {
        regola_di_[m.prima] ^= schema_.regola[m.cella];
        --volte_[m.prima];
    }
    for (const Cambio& m : mosse_) {
        regola_di_[m.dopo] ^= schema_.regola[m.cella];
        ++volte_[m.dopo];
        celle_[m.cella] = m.dopo;
    }
}

void Ricerca::indietro(Stima& stima) {
    for (Cambio& m : mosse_) std::swap(m.prima, m.dopo);
    stima.cambia(mosse_);
}

bool Ricerca::passo(Stima& stima) {
    ++passi_;
    if (!proponi()) return false;
    stima.cambia(mosse_);
    applica();
    return true;
}

/// What a step changes on average.
double Ricerca::temperatura(Stima& stima) {
    constexpr int prove = 4000;
    constexpr int bastano = 200;
    double somma = 0;
    int fatte = 0;
    for (int i = 0; i < prove && fatte < bastano; ++i) {
        if (!proponi()) continue;
        const std::int64_t prima = stima.valore();
        stima.cambia(mosse_);
        somma += std::abs(static_cast<double>(stima.valore() - prima));
        indietro(stima);
        ++fatte;
    }
    return fatte == 0 ? 0 : somma / fatte;
}

void Ricerca::giro(Stima& stima, double calore, const Parte& parte) {
    migliori_ = celle_;
    valore_migliore_ = stima.valore();
    if (!mobile()) return;
    const double caldo = temperatura(stima) * calore;
    double adesso = caldo;
    for (std::uint64_t i = 0;; ++i, ++passi_) {
        if (i % tratto == 0) {
            const double fatta = parte();
            if (fatta >= 1) return;
            adesso = caldo * std::pow(freddo / calore, fatta);
        }
        if (!proponi()) continue;
        const std::int64_t prima = stima.valore();
        stima.cambia(mosse_);
        const auto peggio = static_cast<double>(stima.valore() - prima);
        const double sorte = static_cast<double>((sorte_() >> 11) + 1) * 0x1p-53;
        if (peggio > 0 && peggio >= -adesso * std::log(sorte)) {
            indietro(stima);
            continue;
        }
        applica();
        if (stima.valore() < valore_migliore_) {
            valore_migliore_ = stima.valore();
            migliori_ = celle_;
        }
    }
}

}  // namespace analysis
