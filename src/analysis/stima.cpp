#include "analysis/stima.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "development/garanzie.h"

namespace analysis {

using development::binomiale;

namespace {

/// Parts of one in a value, a whole number so that what was taken back leaves no trace.
constexpr double unita = static_cast<double>(std::int64_t{1} << 44);

double combinazioni(int n, int k) {
    return k < 0 || k > n ? 0 : static_cast<double>(binomiale(n, k));
}

/// [h]: the share of the sets of h numbers of a line that leave it without t hits.
std::array<double, 7> senza_vincita(const TipoLinea& tipo, int t) {
    const std::vector<bool> raggiunge = tipo.raggiunge(t);
    std::array<double, 7> senza{};
    for (unsigned s = 0; s < raggiunge.size(); ++s) {
        const auto h = static_cast<std::size_t>(std::popcount(s));
        if (h < senza.size() && !raggiunge[s]) senza[h] += 1;
    }
    for (std::size_t h = 0; h < senza.size(); ++h) {
        senza[h] /= std::max(1.0, combinazioni(tipo.n, static_cast<int>(h)));
    }
    return senza;
}

/// A kind of line in a game.
struct Genere {
    int n = 0;
    std::array<double, 7> senza{};
};

/// The chance that neither of two lines that share `comuni` numbers wins in a draw.
double senza_entrambe(const Genere& a, const Genere& b, int comuni, int estratti) {
    double somma = 0;
    for (int h = 0; h <= std::min(comuni, estratti); ++h) {
        for (int i = 0; i <= std::min(a.n - comuni, estratti - h); ++i) {
            for (int j = 0; j <= std::min(b.n - comuni, estratti - h - i); ++j) {
                const int in_a = h + i;
                const int in_b = h + j;
                somma += a.senza[static_cast<std::size_t>(in_a)] *
                         b.senza[static_cast<std::size_t>(in_b)] * combinazioni(comuni, h) *
                         combinazioni(a.n - comuni, i) * combinazioni(b.n - comuni, j) *
                         combinazioni(numeri_del_gioco - a.n - b.n + comuni, estratti - h - i - j);
            }
        }
    }
    return somma / combinazioni(numeri_del_gioco, estratti);
}

}  // namespace

bool conta_il_rango(const Schema& schema, int t) {
    return std::any_of(schema.tipi.begin(), schema.tipi.end(), [t](const TipoLinea& tipo) {
        const std::vector<bool> raggiunge = tipo.raggiunge(t);
        for (unsigned s = 0; s < raggiunge.size(); ++s) {
            if (std::popcount(s) == t && !raggiunge[s]) return !tipo.righe.empty();
        }
        return false;
    });
}

// The numbers that two lines share.

Incroci::Incroci(const Schema& schema, int t, std::span<const std::uint8_t> celle)
    : giocate_(schema.giocate), tipi_(schema.tipi.size()) {
    std::vector<Genere> generi;
    for (const TipoLinea& tipo : schema.tipi) generi.push_back({tipo.n, senza_vincita(tipo, t)});
    pesi_.resize(tipi_ * tipi_ * comuni);
    for (std::size_t a = 0; a < tipi_; ++a) {
        for (std::size_t b = 0; b < tipi_; ++b) {
            // Two lines that share no number tell what each does alone as well as any.
            const double lontane = senza_entrambe(generi[a], generi[b], 0, schema.estratti);
            for (int x = 0; x <= std::min(generi[a].n, generi[b].n); ++x) {
                const double insieme = senza_entrambe(generi[a], generi[b], x, schema.estratti);
                pesi_[(a * tipi_ + b) * comuni + static_cast<std::size_t>(x)] =
                    std::llround(std::log(insieme / lontane) * unita);
            }
        }
    }
    for (std::size_t l = 0; l < schema.linee.size(); ++l) tipo_[l] = schema.linee[l].tipo;
    for (std::size_t c = 0; c < celle.size(); ++c) {
        metti({static_cast<std::uint8_t>(c), 0, celle[c]});
    }
}

void Incroci::sposta(std::size_t linea, std::uint64_t altre, int quanto) {
    const std::int64_t* pesi = pesi_.data() + tipo_[linea] * tipi_ * comuni;
    for (; altre != 0; altre &= altre - 1) {
        const auto altra = static_cast<std::size_t>(std::countr_zero(altre));
        const std::int64_t* peso = pesi + tipo_[altra] * comuni + condivisi_[linea][altra];
        valore_ += peso[quanto] - peso[0];
        condivisi_[linea][altra] = static_cast<std::uint8_t>(condivisi_[linea][altra] + quanto);
        condivisi_[altra][linea] = condivisi_[linea][altra];
    }
}

void Incroci::togli(const Cambio& cambio) {
    std::uint64_t& sue = linee_di_[cambio.prima];
    for (std::uint64_t via = giocate_[cambio.cella]; via != 0; via &= via - 1) {
        sue &= ~(via & (~via + 1));
        sposta(static_cast<std::size_t>(std::countr_zero(via)), sue, -1);
    }
}

void Incroci::metti(const Cambio& cambio) {
    std::uint64_t& sue = linee_di_[cambio.dopo];
    for (std::uint64_t nuove = giocate_[cambio.cella]; nuove != 0; nuove &= nuove - 1) {
        sposta(static_cast<std::size_t>(std::countr_zero(nuove)), sue, 1);
        sue |= nuove & (~nuove + 1);
    }
}

void Incroci::cambia(std::span<const Cambio> cambi) {
    for (const Cambio& cambio : cambi) togli(cambio);
    for (const Cambio& cambio : cambi) metti(cambio);
}

// The sets that stand together.

Coperture::Coperture(const Schema& schema, int t, std::span<const std::uint8_t> celle)
    : schema_(schema), t_(static_cast<std::size_t>(t)), celle_(celle.begin(), celle.end()) {
    for (const TipoLinea& tipo : schema.tipi) {
        const std::vector<bool> raggiunge = tipo.raggiunge(t);
        auto& gruppi = gruppi_.emplace_back();
        for (unsigned s = 0; s < raggiunge.size(); ++s) {
            if (std::popcount(s) != t || !raggiunge[s]) continue;
            Posizioni& posizioni = gruppi.emplace_back();
            std::size_t i = 0;
            for (unsigned resto = s; resto != 0; resto &= resto - 1) {
                posizioni[i++] = static_cast<std::uint8_t>(std::countr_zero(resto));
            }
        }
    }
    // Ranks among the numbers in play, so that the places of all sets lie close together.
    std::array<bool, numeri_del_gioco + 1> presenti{};
    for (const std::uint8_t numero : celle_) presenti[numero] = true;
    int rango = 0;
    for (std::size_t numero = 1; numero < presenti.size(); ++numero) {
        if (!presenti[numero]) continue;
        for (int i = 0; i < t; ++i) {
            parte_[static_cast<std::size_t>(i)][numero] =
                static_cast<std::uint32_t>(rango > i ? binomiale(rango, i + 1) : 0);
        }
        ++rango;
    }
    volte_.resize(static_cast<std::size_t>(binomiale(rango, t)));
    for (std::size_t l = 0; l < schema_.linee.size(); ++l) conta(l, true);
}

void Coperture::conta(std::size_t linea, bool entra) {
    const LineaGiocata& l = schema_.linee[linea];
    std::array<std::uint8_t, 15> numeri{};
    std::size_t n = 0;
    for (const std::uint8_t cella : l.celle) {
        const std::uint8_t numero = celle_[cella];
        std::size_t i = n++;
        for (; i > 0 && numeri[i - 1] > numero; --i) numeri[i] = numeri[i - 1];
        numeri[i] = numero;
    }
    std::array<std::array<std::uint32_t, 15>, t_massimo> parti{};
    for (std::size_t i = 0; i < t_; ++i) {
        for (std::size_t p = 0; p < n; ++p) parti[i][p] = parte_[i][numeri[p]];
    }
    std::int64_t cambiati = 0;
    for (const Posizioni& posizioni : gruppi_[l.tipo]) {
        std::uint32_t posto = 0;
        for (std::size_t i = 0; i < t_; ++i) posto += parti[i][posizioni[i]];
        std::uint8_t& volte = volte_[posto];
        if (entra) {
            cambiati -= volte++ == 0 ? 1 : 0;
        } else {
            cambiati += --volte == 0 ? 1 : 0;
        }
    }
    valore_ += cambiati;
}

void Coperture::cambia(std::span<const Cambio> cambi) {
    std::uint64_t toccate = 0;
    for (const Cambio& cambio : cambi) toccate |= schema_.giocate[cambio.cella];
    const auto conta_toccate = [&](bool entra) {
        for (std::uint64_t l = toccate; l != 0; l &= l - 1) {
            conta(static_cast<std::size_t>(std::countr_zero(l)), entra);
        }
    };
    conta_toccate(false);
    for (const Cambio& cambio : cambi) celle_[cambio.cella] = cambio.dopo;
    conta_toccate(true);
}

}  // namespace analysis
