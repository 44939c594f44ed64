// A summary page as printed, for its tests.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "printing/prospetto.h"
#include "support/stampante.h"
#include "support/sviluppo.h"

namespace support {

inline printing::Prospetto esempio(int colonne, int righe, bool lotto = false) {
    printing::Prospetto p;
    p.testata = {"1.0.0", "Prova", "21/11/2026"};
    p.gioco = lotto ? crossword::Gioco::lotto() : crossword::Gioco();
    p.matrice = cruciverba(colonne, righe);
    p.in_gioco = "37";
    const bool quadrato = colonne == righe;
    p.righe[0] = {std::to_string(righe), "Integrale", 0, "111"};
    p.righe[1] = {std::to_string(colonne), "Autoridotto [N-1]", 1, "222"};
    p.righe[2] = {quadrato ? lotto ? "2" : "6" : "", "Integrale", 0,
                  lotto ? "333" : "2 Sist. da 924  -  4 Sist. da 462"};
    p.totale = "172.172";
    p.senza_ripetizioni = "171.999";
    p.quote = "2";
    p.quota = "43.043,00";
    p.valuta = "Euro";
    p.importo = "86.086,00";
    return p;
}

/// A page printed from `p`, with the places of its grid and table.
struct Foglio {
    explicit Foglio(const printing::Prospetto& p)
        : nc(p.matrice.ubound(1)), nr(p.matrice.ubound(2)) {
        EXPECT_TRUE(printing::stampa_prospetto(r, r, p));
        tratti = r.di_tipo(Tipo::tratto);
        // The first one opens the page.
        if (!tratti.empty()) tratti.erase(tratti.begin());
        yb = tratti.at(static_cast<std::size_t>(nr) + 1).y1;
        t = yb + 2.5F;
    }
    /// The numbers of the grid, row after row.
    [[nodiscard]] std::vector<Operazione> numeri() const {
        std::vector<Operazione> scelti;
        for (const Operazione& o : r.testi()) {
            if (o.testo.starts_with(' ') && o.testo.ends_with(' ')) scelti.push_back(o);
        }
        return scelti;
    }
    Registratore r;
    int nc;
    int nr;
    std::vector<Operazione> tratti;
    float yb = 0;
    float t = 0;
};

}  // namespace support
