#include "development/garanzie.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace development {

namespace {

constexpr std::uint64_t nessun_minimo = std::numeric_limits<std::uint64_t>::max();
constexpr int estratti_massimi = 6;
constexpr int posizioni_della_trasformata = 20;
constexpr std::uint64_t passo_avanzamento = std::uint64_t{1} << 14;

Vincite vuote(const Tabella& tabella, int p) {
    const auto livelli = static_cast<std::size_t>(tabella.k) + 1;
    Vincite v;
    v.p = p;
    v.migliore.assign(livelli, 0);
    v.righe.assign(livelli, 0);
    v.minime.assign(livelli, nessun_minimo);
    v.senza_superiori.assign(livelli, nessun_minimo);
    return v;
}

/// Adds one p-subset, given the rows it makes at each level.
void conta_gruppo(Vincite& v, const std::uint32_t* conti) {
    ++v.gruppi;
    std::uint64_t almeno = 0;
    std::size_t migliore = 0;
    for (std::size_t j = v.minime.size(); j-- > 0;) {
        if (almeno == 0)
            v.senza_superiori[j] = std::min<std::uint64_t>(v.senza_superiori[j], conti[j]);
        almeno += conti[j];
        v.minime[j] = std::min(v.minime[j], almeno);
        v.righe[j] += conti[j];
        if (conti[j] != 0) migliore = std::max(migliore, j);
    }
    ++v.migliore[migliore];
}

/// Rows at each level for every set of positions at once: before a position is passed, its bit
/// says whether the rows counted hold it; afterwards, whether the drawn set does.
std::vector<std::uint32_t> trasformata(const Tabella& tabella) {
    const auto livelli = static_cast<std::size_t>(tabella.k) + 1;
    const std::size_t insiemi = std::size_t{1} << tabella.n;
    std::vector<std::uint32_t> conti(insiemi * livelli, 0);
    for (const Maschera riga : tabella.righe) ++conti[static_cast<std::size_t>(riga) * livelli];
    for (int posizione = 0; posizione < tabella.n; ++posizione) {
        const std::size_t suo = std::size_t{1} << posizione;
        for (std::size_t s = 0; s < insiemi; ++s) {
            if ((s & suo) != 0) continue;
            std::uint32_t* senza = &conti[s * livelli];
            std::uint32_t* con = &conti[(s | suo) * livelli];
            std::uint32_t precedente = 0;
            for (std::size_t j = 0; j < livelli; ++j) {
                const std::uint32_t a = senza[j];
                const std::uint32_t c = con[j];
                senza[j] = a + c;
                con[j] = a + precedente;
                precedente = c;
            }
        }
    }
    return conti;
}

std::vector<Vincite> per_trasformata(const Tabella& tabella) {
    const auto livelli = static_cast<std::size_t>(tabella.k) + 1;
    const std::vector<std::uint32_t> conti = trasformata(tabella);
    std::vector<Vincite> tutte;
    for (int p = 0; p <= tabella.n; ++p) tutte.push_back(vuote(tabella, p));
    for (std::size_t s = 0; s < conti.size() / livelli; ++s) {
        conta_gruppo(tutte[static_cast<std::size_t>(std::popcount(s))], &conti[s * livelli]);
    }
    tutte.erase(tutte.begin());
    return tutte;
}

/// Counts every p-subset with `conta_gruppo`, telling of the progress from `prima` on.
Vincite per_enumerazione(const Tabella& tabella, int p, std::uint64_t prima, std::uint64_t totale,
                         const AvanzamentoProva& avanzamento) {
    Vincite v = vuote(tabella, p);
    std::vector<std::uint32_t> conti(v.minime.size());
    per_ogni_gruppo(tabella.n, p, [&](Maschera gruppo) {
        std::fill(conti.begin(), conti.end(), 0U);
        for (const Maschera riga : tabella.righe) {
            ++conti[static_cast<std::size_t>(std::popcount(riga & gruppo))];
        }
        conta_gruppo(v, conti.data());
        if (avanzamento && v.gruppi % passo_avanzamento == 0) avanzamento(prima + v.gruppi, totale);
    });
    return v;
}

/// Names of the prizes, which players use instead of "row of t".
std::string righe_da(int righe, int t) {
    static const std::array<const char*, 7> nomi = {"",         "",         "ambo",   "terno",
                                                    "quaterna", "cinquina", "sestina"};
    std::string testo = righe == 1 ? "una riga" : std::to_string(righe) + " righe";
    testo += " con " + std::to_string(t);
    testo += t == 1 ? " numero indovinato" : " numeri indovinati";
    if (t >= 2 && t <= 6) testo += std::string(" (") + nomi[static_cast<std::size_t>(t)] + ")";
    return testo;
}

}  // namespace

std::uint64_t binomiale(int n, int k) {
    if (k < 0 || k > n) return 0;
    std::vector<std::uint64_t> riga(static_cast<std::size_t>(k) + 1, 0);
    riga[0] = 1;
    for (int i = 0; i < n; ++i) {
        for (std::size_t j = riga.size() - 1; j > 0; --j) {
            const std::uint64_t somma = riga[j] + riga[j - 1];
            riga[j] = somma < riga[j] ? std::numeric_limits<std::uint64_t>::max() : somma;
        }
    }
    return riga.back();
}

Vincite vincite(const Tabella& tabella, int p, const AvanzamentoProva& avanzamento) {
    return per_enumerazione(tabella, p, 0, binomiale(tabella.n, p), avanzamento);
}

std::vector<Vincite> tutte_le_vincite(const Tabella& tabella, const AvanzamentoProva& avanzamento) {
    std::vector<Vincite> tutte;
    if (tabella.n <= posizioni_della_trasformata) {
        tutte = per_trasformata(tabella);
    } else {
        std::uint64_t totale = 0;
        for (int p = 1; p <= estratti_massimi; ++p) totale += binomiale(tabella.n, p);
        std::uint64_t prima = 0;
        for (int p = 1; p <= estratti_massimi; ++p) {
            tutte.push_back(per_enumerazione(tabella, p, prima, totale, avanzamento));
            prima += tutte.back().gruppi;
        }
    }
    const auto certa = std::find_if(tutte.begin(), tutte.end(),
                                    [&](const Vincite& v) { return v.garantito() == tabella.k; });
    if (certa != tutte.end()) tutte.erase(certa + 1, tutte.end());
    return tutte;
}

Buchi buchi(const Tabella& tabella, const Garanzia& garanzia, std::size_t limite,
            const AvanzamentoProva& avanzamento) {
    Buchi esito;
    std::uint64_t fatti = 0;
    const std::uint64_t totale = binomiale(tabella.n, garanzia.p);
    per_ogni_gruppo(tabella.n, garanzia.p, [&](Maschera gruppo) {
        int buone = 0;
        bool superiore = false;
        for (const Maschera riga : tabella.righe) {
            const int livello = std::popcount(riga & gruppo);
            buone += livello >= garanzia.t ? 1 : 0;
            superiore = superiore || livello > garanzia.t;
        }
        if (buone < garanzia.righe && !(garanzia.oppure && superiore)) {
            ++esito.quanti;
            if (esito.primi.size() < limite) esito.primi.push_back(gruppo);
        }
        if (avanzamento && ++fatti % passo_avanzamento == 0) avanzamento(fatti, totale);
    });
    return esito;
}

int Vincite::garantito() const {
    for (std::size_t j = minime.size(); j-- > 0;) {
        if (minime[j] > 0) return static_cast<int>(j);
    }
    return 0;
}

bool Vincite::vale(const Garanzia& garanzia) const {
    const auto t = static_cast<std::size_t>(garanzia.t);
    if (garanzia.p != p || gruppi == 0 || garanzia.t < 0 || t >= minime.size()) return false;
    return (garanzia.oppure ? senza_superiori : minime)[t] >=
           static_cast<std::uint64_t>(garanzia.righe);
}

std::string in_parole(const Garanzia& garanzia) {
    std::string testo = "con " + std::to_string(garanzia.p) +
                        (garanzia.p == 1 ? " estratto" : " estratti") + " almeno " +
                        righe_da(garanzia.righe, garanzia.t);
    if (garanzia.oppure) testo += ", oppure " + righe_da(1, garanzia.t + 1);
    return testo;
}

}  // namespace development
