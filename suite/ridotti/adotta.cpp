// A table of the player's own among the economical ones.
#include <algorithm>
#include <optional>
#include <set>

#include "comune.h"
#include "comune/parole.h"
#include "development/coperture.h"
#include "development/economiche.h"
#include "development/tabelle.h"
#include "platform/application.h"
#include "platform/codepage.h"
#include "platform/disk.h"

namespace ridotti {

using crossword::Gioco;
using development::Garanzia;
using development::Tabella;

namespace {

/// The game whose combinations have so many numbers; nothing when none has.
std::optional<Gioco> gioco_di(int k) {
    for (const Gioco gioco :
         {Gioco::superenalotto(), Gioco::lotto(3), Gioco::lotto(4), Gioco::lotto(5)}) {
        if (gioco.numeri() == k) return gioco;
    }
    return std::nullopt;
}

/// What was asked for.
struct Ordine {
    std::string file;
    std::string cartella;
    int numeri = 0;  ///< 0 for those that the table plays
    std::optional<Garanzia> garanzia;
};

std::string leggi_ordine(const suite::Parole& parole, Ordine& ordine) {
    if (parole.file.empty()) return "manca il nome della tabella";
    if (parole.file.size() > 1) return "adotta vuole una sola tabella";
    ordine.file = parole.file.front();
    if (const std::string* numeri = parole.valore("--numeri"); numeri != nullptr) {
        if (std::string errore = leggi_numero(parole, "--numeri", ordine.numeri); !errore.empty())
            return errore;
    }
    if (const std::string* detta = parole.valore("--garanzia"); detta != nullptr) {
        ordine.garanzia = development::leggi_garanzia(*detta);
        if (!ordine.garanzia || ordine.garanzia->righe > 1)
            return "--garanzia vuole p:t: \"" + *detta + "\" non lo è";
    }
    const std::string* cartella = parole.valore("--cartella");
    ordine.cartella = cartella != nullptr ? *cartella : cartella_delle_tabelle();
    if (!platform::esiste_cartella(ordine.cartella))
        return "la cartella delle tabelle non c'è: " + ordine.cartella;
    return {};
}

/// Why a table cannot be adopted, empty when it can; `garanzia` is then what the lists tell of it.
std::string prova(const Tabella& tabella, Gioco gioco, const Ordine& ordine, Garanzia& garanzia) {
    if (tabella.n < std::max(gioco.lato_minimo(), tabella.k + 1) ||
        tabella.n > Gioco::lato_massimo) {
        return "una linea di " + std::to_string(tabella.n) + " numeri non si riduce: vanno da " +
               std::to_string(std::max(gioco.lato_minimo(), tabella.k + 1)) + " a " +
               std::to_string(Gioco::lato_massimo);
    }
    if (ordine.garanzia) {
        const Garanzia& detta = *ordine.garanzia;
        const std::string perche =
            development::impossibile({tabella.n, tabella.k, detta.p, detta.t});
        if (!perche.empty()) return perche;
        const auto mancati = development::buchi(tabella, detta, 1);
        if (mancati.quanti > 0) {
            return "non vale " + in_parole(detta) + ": " + casi(mancati.quanti) +
                   (mancati.quanti == 1 ? " scoperto, " : " scoperti, il primo è ") +
                   development::posizioni(mancati.primi.front());
        }
    }
    const auto migliore = development::garanzia_migliore(tabella, gioco);
    if (!migliore) return "non garantisce nulla";
    garanzia = *migliore;
    return {};
}

/// The name under which the very same rows are there already, empty when they are not.
std::string gia_presente(const Tabella& tabella, Gioco gioco, const std::string& cartella) {
    const std::string testo = development::testo_tabella(tabella);
    for (int numero = development::prima_economica; numero <= development::ultima_economica;
         ++numero) {
        const std::string nome = development::nome_tabella(gioco, tabella.n, numero);
        if (platform::leggi_tutto(cartella + "/" + nome) == testo) return nome;
    }
    return {};
}

/// A number that no table of this length has. The diagonals play lines of two lengths under one
/// number: beside a table of the same guarantee it does best, beside another one it is of no use.
int numero_libero(const Tabella& tabella, Gioco gioco, const std::string& cartella,
                  const Garanzia& garanzia) {
    development::Economiche economiche;
    int libero = 0;
    int solo = 0;
    for (int numero = development::prima_propria; numero <= development::ultima_economica;
         ++numero) {
        const auto occupato = [&](int n) {
            return platform::esiste_file(cartella + "/" +
                                         development::nome_tabella(gioco, n, numero));
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

int rifiuta(const std::string& file, const std::string& perche) {
    lamenta(file + ": " + perche);
    return garanzia_mancata;
}

}  // namespace

int adotta(const std::vector<std::string>& parole) {
    const std::array<suite::Opzione, 3> ammesse{
        {{"--garanzia", true}, {"--numeri", true}, {"--cartella", true}}};
    const suite::Parole lette = suite::leggi_parole(parole, ammesse);
    Ordine ordine;
    const std::string errore = lette.errore ? *lette.errore : leggi_ordine(lette, ordine);
    if (!errore.empty()) {
        lamenta(errore);
        return impossibile;
    }
    const auto nome = development::leggi_nome_economico(ordine.file);
    const int n = ordine.numeri > 0 ? ordine.numeri : nome ? nome->n : 0;
    TabellaLetta letta = leggi_tabella(ordine.file, n, 0);
    stampa_errori(letta);
    if (!letta.lettura.errori.empty()) return impossibile;
    Tabella& tabella = letta.lettura.tabella;
    const auto gioco = gioco_di(tabella.k);
    if (!gioco) {
        return rifiuta(ordine.file,
                       "nessun gioco ha combinazioni di " + std::to_string(tabella.k) + " numeri");
    }
    Garanzia garanzia;
    const std::string perche = prova(tabella, *gioco, ordine, garanzia);
    if (!perche.empty()) return rifiuta(ordine.file, perche);
    std::sort(tabella.righe.begin(), tabella.righe.end(), development::riga_precede);
    if (const std::string c_e = gia_presente(tabella, *gioco, ordine.cartella); !c_e.empty())
        return rifiuta(ordine.file, "c'è già, e si chiama " + c_e);
    const platform::Turno turno(ordine.cartella);
    const int numero = numero_libero(tabella, *gioco, ordine.cartella, garanzia);
    if (numero == 0)
        return rifiuta(ordine.file, "tutti i numeri per le tabelle proprie sono presi");
    const std::string arrivo = development::nome_tabella(*gioco, tabella.n, numero);
    if (platform::sostituisci(ordine.cartella + "/" + arrivo,
                              development::testo_tabella(tabella)) != platform::Esito::ok) {
        lamenta("non posso scrivere " + ordine.cartella + "/" + arrivo);
        return impossibile;
    }
    stampa(platform::mostrabile(ordine.cartella + "/" + arrivo) + ": " +
           righe(tabella.righe.size()) + " di " + std::to_string(tabella.k) + " su " +
           std::to_string(tabella.n) + " numeri; " + in_parole(garanzia) + ": VALE\n");
    return riuscito;
}

}  // namespace ridotti
