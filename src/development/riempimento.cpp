#include "development/riempimento.h"

#include <algorithm>

#include "development/copertura_locale.h"
#include "development/gruppi.h"

namespace development {

namespace {

/// Swaps that the choice of the rows is worth, and between two looks at `fermo`.
constexpr std::uint64_t scambi = 200'000;
constexpr std::uint64_t scambi_alla_volta = 2'000;

/// What is left of a covering once those rows are in: the draws that none of them covers.
Incidenza resto(const Incidenza& intera, const std::vector<std::uint32_t>& presenti) {
    std::vector<bool> coperta(intera.quante_righe(), false);
    for (const std::uint32_t c : presenti) {
        for (const std::uint32_t r : intera.righe_di(c)) coperta[r] = true;
    }
    Incidenza i;
    std::vector<std::uint32_t> nuova(intera.quante_righe(), 0);
    for (std::uint32_t r = 0; r < intera.quante_righe(); ++r) {
        if (coperta[r]) continue;
        nuova[r] = static_cast<std::uint32_t>(i.peso_riga.size());
        i.peso_riga.push_back(intera.peso_riga[r]);
        i.insieme_riga.push_back(intera.insieme_riga[r]);
    }
    for (std::uint32_t c = 0; c < intera.quante_colonne(); ++c) {
        for (const std::uint32_t r : intera.righe_di(c)) {
            if (!coperta[r]) i.righe.push_back(nuova[r]);
        }
        i.inizio_colonna.push_back(static_cast<std::uint32_t>(i.righe.size()));
    }
    i.costo = intera.costo;
    i.insieme_colonna = intera.insieme_colonna;
    i.fuori = intera.fuori;
    i.comuni = intera.comuni;
    i.trasponi();
    return i;
}

}  // namespace

std::vector<Maschera> riempi(const Desiderio& desiderio, const std::vector<Maschera>& righe,
                             std::uint64_t seme, const std::function<bool()>& fermo) {
    const auto quante = desiderio.righe - static_cast<int>(righe.size());
    const Desiderio di_piu{desiderio.n, desiderio.k, desiderio.p, desiderio.t + 1};
    if (quante <= 0 || di_piu.t > di_piu.p || !impossibile(di_piu).empty()) return righe;
    const Orbite singole = orbite(di_piu, {});
    // Rows of the table are sets in the order of their bits, as the columns are.
    const std::vector<std::uint32_t>& insiemi = singole.incidenza.insieme_colonna;
    std::vector<std::uint32_t> presenti;
    for (const Maschera riga : righe) {
        const auto dove = std::lower_bound(insiemi.begin(), insiemi.end(), riga);
        presenti.push_back(static_cast<std::uint32_t>(dove - insiemi.begin()));
    }
    const Incidenza mancante = resto(singole.incidenza, presenti);
    if (mancante.quante_righe() == 0) return righe;
    CoperturaLocale cammino(mancante, seme, quante);
    while (cammino.fatti() < scambi && !(fermo && fermo())) {
        const std::uint64_t prima = cammino.fatti();
        const bool trovata = cammino.passi(scambi_alla_volta, 0);
        if (!trovata && cammino.fatti() == prima) break;
    }
    std::vector<Maschera> tutte = righe;
    for (const std::uint32_t c : cammino.migliore()) tutte.push_back(insiemi[c]);
    std::sort(tutte.begin(), tutte.end(), riga_precede);
    return tutte;
}

}  // namespace development
