#include "stampa/geometria.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "statistics/archivio.h"

namespace schedine {

Punto cella(const Modulo& m, std::size_t pannello, int numero) {
    const int i = numero - 1;
    const bool per_righe = m.ordine == Ordine::righe || m.ordine == Ordine::righe_dal_basso;
    int colonna = per_righe ? i % m.griglia.x : i / m.griglia.y;
    int riga = per_righe ? i / m.griglia.x : i % m.griglia.y;
    if (m.ordine == Ordine::righe_dal_basso || m.ordine == Ordine::colonne_dal_basso) {
        riga = m.griglia.y - 1 - riga;
    }
    const Posto& p = m.pannelli[pannello];
    return {static_cast<double>(m.origine.x + p.x + colonna * m.passo.x),
            static_cast<double>(m.origine.y + p.y + riga * m.passo.y)};
}

Punto foglio_stampato(const Modulo& m) {
    const Punto letto{static_cast<double>(m.foglio.x), static_cast<double>(m.foglio.y)};
    return m.ingresso == Ingresso::testa ? letto : Punto{letto.y, letto.x};
}

Punto sul_foglio(const Modulo& m, Punto p) {
    const double x = p.x * m.scala.x / Modulo::intera + m.correzione.x;
    const double y = p.y * m.scala.y / Modulo::intera + m.correzione.y;
    if (m.ingresso == Ingresso::testa) return {x, y};
    // The left side goes in first and becomes the head: a quarter turn clockwise.
    return {m.foglio.y - y, x};
}

Punto segno_stampato(const Modulo& m) {
    const Punto letto{static_cast<double>(m.segno.x), static_cast<double>(m.segno.y)};
    return m.ingresso == Ingresso::testa ? letto : Punto{letto.y, letto.x};
}

std::vector<Punto> segni(const Modulo& m, const std::vector<Colonna>& colonne,
                         const Giocata& giocata) {
    std::vector<Punto> centri;
    const std::size_t quante = std::min(colonne.size(), m.pannelli.size());
    for (std::size_t k = 0; k < quante; ++k) {
        for (const int numero : colonne[k]) {
            if (numero != 0) centri.push_back(sul_foglio(m, cella(m, k, numero)));
        }
    }
    const auto segna = [&](Posto p) {
        centri.push_back(sul_foglio(m, {static_cast<double>(p.x), static_cast<double>(p.y)}));
    };
    for (const PostoRuota& r : m.ruote) {
        if (std::count(giocata.ruote.begin(), giocata.ruote.end(), r.ruota) > 0) segna(r.dove);
    }
    for (const PostoPosta& p : m.poste) {
        if (p.centesimi == giocata.centesimi) segna(p.dove);
    }
    return centri;
}

std::string manca_al_modulo(const Modulo& m, bool lotto, const Giocata& giocata) {
    if (m.lotto != lotto) {
        return std::string("Il modulo è per il ") + (m.lotto ? "Lotto" : "SuperEnalotto") +
               ", il sistema per il " + (lotto ? "Lotto." : "SuperEnalotto.");
    }
    for (const std::size_t ruota : giocata.ruote) {
        const bool detta = std::any_of(m.ruote.begin(), m.ruote.end(),
                                       [ruota](const PostoRuota& r) { return r.ruota == ruota; });
        if (!m.ruote.empty() && !detta) {
            return "Nel modulo non c'è il posto della ruota " +
                   std::string(statistics::ruote[ruota].nome) + ".";
        }
    }
    const auto uguale = [&](const PostoPosta& p) { return p.centesimi == giocata.centesimi; };
    if (giocata.centesimi > 0 && !m.poste.empty() &&
        std::none_of(m.poste.begin(), m.poste.end(), uguale)) {
        return "Nel modulo non c'è il posto di questa posta.";
    }
    return {};
}

void griglia_da_angoli(Modulo& m, const std::vector<Punto>& angoli) {
    constexpr std::size_t quanti = 4;
    if (angoli.size() != quanti) return;
    const auto tondo = [](double v) { return static_cast<int>(std::lround(v)); };
    const double sinistra = (angoli[0].x + angoli[3].x) / 2;
    const double destra = (angoli[1].x + angoli[2].x) / 2;
    const double alto = (angoli[0].y + angoli[1].y) / 2;
    const double basso = (angoli[2].y + angoli[3].y) / 2;
    const Posto primo = m.pannelli.empty() ? Posto{} : m.pannelli.front();
    m.origine = {tondo(sinistra) - primo.x, tondo(alto) - primo.y};
    m.passo = {tondo((destra - sinistra) / std::max(1, m.griglia.x - 1)),
               tondo((basso - alto) / std::max(1, m.griglia.y - 1))};
}

}  // namespace schedine
