#include "development/adozione.h"

#include <algorithm>
#include <set>
#include <sstream>

#include "development/coperture.h"
#include "development/economiche.h"
#include "development/garanzie.h"
#include "development/tabelle.h"
#include "platform/application.h"
#include "platform/disk.h"

namespace development {

using crossword::Gioco;

namespace {

/// Names given to tables so far, one a line, beside the tables. A saved system keeps the number
/// alone: that of a table deleted since must lead to no other one.
constexpr const char* registro = "/adottate";

/// Those of the names, and of the own tables of that length there are, that tables ever had.
struct Presi {
    std::set<std::string> nomi;
    std::string da_annotare;  ///< names that stand in no line yet
};

Presi nomi_presi(const std::string& cartella, Gioco gioco, int n) {
    Presi presi;
    std::istringstream righe(platform::leggi_tutto(cartella + registro).value_or(""));
    for (std::string nome; std::getline(righe, nome);) {
        if (nome.ends_with('\r')) nome.pop_back();
        presi.nomi.insert(nome);
    }
    for (int numero = prima_propria; numero <= ultima_economica; ++numero) {
        const std::string nome = nome_tabella(gioco, n, numero);
        if (platform::esiste_file(cartella + "/" + nome) && presi.nomi.insert(nome).second)
            presi.da_annotare += nome + "\n";
    }
    return presi;
}

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

/// A number that no table of this length ever had. The diagonals play lines of two lengths under
/// one number: beside a table of the same guarantee it does best, beside another one it is of no
/// use.
int numero_libero(const Tabella& tabella, Gioco gioco, const std::string& cartella,
                  const Garanzia& garanzia, const std::set<std::string>& presi) {
    Economiche economiche;
    int libero = 0;
    int solo = 0;
    for (int numero = prima_propria; numero <= ultima_economica; ++numero) {
        if (presi.contains(nome_tabella(gioco, tabella.n, numero))) continue;
        bool sola = true;
        for (const int vicina : {tabella.n - 1, tabella.n + 1}) {
            const auto e = economiche.una(cartella, gioco, vicina, numero);
            if (e && e->garanzia == garanzia) return numero;
            sola = sola &&
                   !platform::esiste_file(cartella + "/" + nome_tabella(gioco, vicina, numero));
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
    const Presi presi = nomi_presi(ridotti, gioco, tabella.n);
    const int numero = numero_libero(tabella, gioco, ridotti, *migliore, presi.nomi);
    if (numero == 0) {
        return rifiutata(
            "tutti i numeri per le tabelle proprie sono presi, o lo sono stati: "
            "quello di una tabella cancellata non si dà a un'altra");
    }
    const std::string nome = nome_tabella(gioco, tabella.n, numero);
    if (platform::aggiungi(ridotti + registro, presi.da_annotare + nome + "\n") !=
        platform::Esito::ok)
        return {"non posso scrivere " + platform::da_mostrare(ridotti + registro), true, {}, {}};
    if (platform::sostituisci(ridotti + "/" + nome, testo_tabella(tabella)) != platform::Esito::ok)
        return {"non posso scrivere " + platform::da_mostrare(ridotti + "/" + nome), true, {}, {}};
    return {{}, false, nome, *migliore};
}

}  // namespace development
