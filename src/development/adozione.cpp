#include "development/adozione.h"

#include <algorithm>

#include "development/coperture.h"
#include "development/economiche.h"
#include "development/garanzie.h"
#include "development/tabelle.h"
#include "platform/application.h"
#include "platform/disk.h"

namespace development {

using crossword::Gioco;

namespace {

/// Why a table cannot be adopted; empty when nothing speaks against it.
std::string prova(const Tabella& tabella, Gioco gioco, const std::optional<Garanzia>& detta) {
    if (tabella.n < std::max(gioco.lato_minimo(), tabella.k + 1) ||
        tabella.n > Gioco::lato_massimo) {
        return "una linea di " + std::to_string(tabella.n) + " numeri non si riduce: vanno da " +
               std::to_string(std::max(gioco.lato_minimo(), tabella.k + 1)) + " a " +
               std::to_string(Gioco::lato_massimo);
    }
    if (!detta) return {};
    std::string perche = impossibile({tabella.n, tabella.k, detta->p, detta->t});
    if (!perche.empty()) return perche;
    const auto mancati = buchi(tabella, *detta, 1);
    if (mancati.quanti == 0) return {};
    return "non vale " + in_parole(*detta) + ": " + std::to_string(mancati.quanti) +
           (mancati.quanti == 1 ? " caso scoperto, " : " casi scoperti, il primo è ") +
           posizioni(mancati.primi.front());
}

/// The name under which the very same rows are there already, empty when they are not.
std::string gia_presente(const Tabella& tabella, Gioco gioco, const std::string& cartella) {
    const std::string testo = testo_tabella(tabella);
    for (int numero = prima_economica; numero <= ultima_economica; ++numero) {
        const std::string nome = nome_tabella(gioco, tabella.n, numero);
        if (platform::leggi_tutto(cartella + "/" + nome) == testo) return nome;
    }
    return {};
}

/// A number that no table of this length has. The diagonals play lines of two lengths under one
/// number: beside a table of the same guarantee it does best, beside another one it is of no use.
int numero_libero(const Tabella& tabella, Gioco gioco, const std::string& cartella,
                  const Garanzia& garanzia) {
    Economiche economiche;
    int libero = 0;
    int solo = 0;
    for (int numero = prima_propria; numero <= ultima_economica; ++numero) {
        const auto occupato = [&](int n) {
            return platform::esiste_file(cartella + "/" + nome_tabella(gioco, n, numero));
        };
        if (occupato(tabella.n)) continue;
        bool sola = true;
        for (const int vicina : {tabella.n - 1, tabella.n + 1}) {
            const auto e = economiche.una(cartella, gioco, vicina, numero);
            if (e && e->garanzia == garanzia) return numero;
            sola = sola && !occupato(vicina);
        }
        if (libero == 0) libero = numero;
        if (sola && solo == 0) solo = numero;
    }
    return solo > 0 ? solo : libero;
}

Adozione rifiutata(std::string perche) {
    return {std::move(perche), false, {}, {}};
}

}  // namespace

Adozione adotta(Tabella tabella, Gioco gioco, const std::optional<Garanzia>& detta,
                const std::string& ridotti) {
    if (std::string perche = prova(tabella, gioco, detta); !perche.empty())
        return rifiutata(std::move(perche));
    const auto migliore = garanzia_migliore(tabella, gioco);
    if (!migliore) return rifiutata("non garantisce nulla");
    std::sort(tabella.righe.begin(), tabella.righe.end(), riga_precede);
    const platform::Turno turno(ridotti);
    if (const std::string c_e = gia_presente(tabella, gioco, ridotti); !c_e.empty())
        return rifiutata("c'è già, e si chiama " + c_e);
    const int numero = numero_libero(tabella, gioco, ridotti, *migliore);
    if (numero == 0) return rifiutata("tutti i numeri per le tabelle proprie sono presi");
    const std::string nome = nome_tabella(gioco, tabella.n, numero);
    if (platform::sostituisci(ridotti + "/" + nome, testo_tabella(tabella)) != platform::Esito::ok)
        return {"non posso scrivere " + ridotti + "/" + nome, true, {}, {}};
    return {{}, false, nome, *migliore};
}

}  // namespace development
