// The document of the guarantees: every number in it is computed or read from the data.
#include "documento.h"

#include <algorithm>

#include "comune.h"
#include "crossword/tipi.h"
#include "platform/disk.h"

namespace ridotti {

using development::Garanzia;
using development::NomeTabella;
using development::Vincite;

namespace {

constexpr std::array<Sezione, 4> sezioni = {{{"cr", "Sestine (SuperEnalotto)", 6, 6},
                                             {"tr", "Terzine (Lotto)", 5, 5},
                                             {"qt", "Quartine (Lotto)", 5, 5},
                                             {"cn", "Cinquine (Lotto)", 5, 5}}};

std::string percento(double parte, double intero) {
    return decimale(100.0 * parte / intero, 2);
}

/// "4 → 3", and "4 → 4, 3 righe" when more than one row is promised.
std::string freccia(const Garanzia& g) {
    std::string testo = std::to_string(g.p) + " → " + std::to_string(g.t);
    if (g.righe > 1) testo += ", " + righe(static_cast<std::uint64_t>(g.righe));
    return testo;
}

std::string noto(const Voce& voce) {
    const int valore = minimo_noto(voce.nome.n, voce.nome.k(), voce.garanzia);
    return valore == 0 ? "—" : std::to_string(valore);
}

std::string riga_confronto(const Voce& voce) {
    const Minimo& minimo = voce.minimo;
    const std::size_t quante = voce.tabella.righe.size();
    const std::uint64_t intere = development::binomiale(voce.nome.n, voce.nome.k());
    std::string trovato = std::to_string(minimo.trovato);
    if (static_cast<std::size_t>(minimo.trovato) < quante) {
        trovato += minimo.disegno.empty() ? "*" : " (`" + minimo.disegno + "`)";
    }
    return "| " + std::to_string(voce.nome.n) + " | `" + voce.nome.testo() + "` | " +
           std::to_string(quante) + " | " + freccia(voce.garanzia) + " | " +
           std::to_string(intere) + " | " +
           percento(static_cast<double>(quante), static_cast<double>(intere)) + " | " + trovato +
           " | " + std::to_string(minimo.limite) + " (" + minimo.tipo_limite + ") | " + noto(voce) +
           " |\n";
}

std::string confronto(const Sezione& sezione, const std::vector<Voce>& voci) {
    std::string uscita =
        "| N | tabella | righe | garanzia | integrale | % | minimo trovato | limite inferiore "
        "| minimo noto |\n|--:|---|--:|---|--:|--:|--:|---|--:|\n";
    for (const Voce& voce : voci) {
        if (voce.nome.prefisso == sezione.prefisso) uscita += riga_confronto(voce);
    }
    return uscita + "\n";
}

std::string tavola_vincite(const Sezione& sezione, const std::vector<Voce>& voci) {
    std::string uscita = "| tabella | estratti |";
    std::string sotto = "|---|--:|";
    for (int j = 0; j <= sezione.k(); ++j) {
        uscita += " " + std::to_string(j) + " |";
        sotto += "--:|";
    }
    uscita += " garantito |\n" + sotto + "---|\n";
    for (const Voce& voce : voci) {
        if (voce.nome.prefisso != sezione.prefisso) continue;
        for (const Vincite& v : voce.vincite) {
            if (v.p > sezione.estratti) continue;
            uscita += "| `" + voce.nome.testo() + "` | " + std::to_string(v.p) + " |";
            for (const std::uint64_t quanti : v.migliore) {
                uscita += quanti == 0 ? " |"
                                      : " " +
                                            percento(static_cast<double>(quanti),
                                                     static_cast<double>(v.gruppi)) +
                                            " |";
            }
            const int t = v.garantito();
            uscita += t == 0 ? " — |\n"
                             : " " + righe(v.minime[static_cast<std::size_t>(t)]) + " da " +
                                   std::to_string(t) + " |\n";
        }
    }
    return uscita + "\n";
}

std::string ulteriori(const Sezione& sezione, const std::vector<Voce>& voci) {
    std::string uscita;
    for (const Voce& voce : voci) {
        if (voce.nome.prefisso != sezione.prefisso || voce.ulteriori.empty()) continue;
        uscita += "- `" + voce.nome.testo() + "`: ";
        for (const Garanzia& g : voce.ulteriori) {
            if (&g != voce.ulteriori.data()) uscita += "; ";
            uscita += in_parole(g);
        }
        uscita += ".\n";
    }
    return uscita + "\n";
}

std::string tavola_integrali() {
    std::string uscita = "| N | sestine | terzine | quartine | cinquine |\n|--:|--:|--:|--:|--:|\n";
    for (int n = 5; n <= 15; ++n) {
        uscita += "| " + std::to_string(n) + " |";
        for (const int k : {6, 3, 4, 5}) {
            const std::uint64_t quante = development::binomiale(n, k);
            uscita += " " + (quante == 0 ? "—" : std::to_string(quante)) + " |";
        }
        uscita += "\n";
    }
    return uscita + "\n";
}

constexpr std::string_view premessa =
    "# Le garanzie delle tabelle ridotte\n\n"
    "Questo documento è scritto dal comando `ridotti documento`, che prova ogni garanzia su tutti\n"
    "i sorteggi possibili prima di stamparla. Chiunque può rifare la prova, anche su una tabella\n"
    "propria: `ridotti verifica cr0904.rid`, oppure `ridotti verifica --garanzia 4:3 mia.rid`;\n"
    "`ridotti vincite cr0904.rid` dà la tavola completa delle vincite.\n\n"
    "Una garanzia \"p → t\" si legge così: se p dei numeri della riga escono, almeno una\n"
    "combinazione giocata ne contiene t. Vale sempre, non \"quasi sempre\": nessun gruppo di p\n"
    "numeri fa eccezione. Non dice nulla, invece, su quanti dei numeri della riga usciranno.\n\n"
    "Nelle tavole di confronto: *integrale* è il numero di righe del sistema integrale e *%* le\n"
    "righe della tabella su cento di quello; *minimo trovato* è la tabella più piccola che\n"
    "conosciamo con la stessa garanzia (fra parentesi il file del disegno in\n"
    "`suite/ridotti/minimi` o in `suite/ridotti/economiche`; un asterisco se non è allegato); "
    "*limite inferiore* il\n"
    "numero sotto il quale nessuna tabella può scendere, con il modo in cui è stato ottenuto;\n"
    "*minimo noto* il migliore valore pubblicato che conosciamo, dove la garanzia è di quelle\n"
    "studiate (p uguale a t, una riga).\n\n"
    "Nelle tavole delle vincite ogni riga dice, con quel numero di estratti, in quanti casi su\n"
    "cento la combinazione migliore ne contiene 0, 1, 2 e così via; una casella vuota è un caso\n"
    "che non può capitare.\n\n";

constexpr std::string_view sulle_economiche =
    "Le tabelle economiche hanno le loro tavole in fondo a ogni capitolo: la più piccola che\n"
    "conosciamo per ogni garanzia, trovata con `ridotti cerca` e provata allo stesso modo. Le due\n"
    "ultime cifre del nome dicono la garanzia: `cr1556` è 6 → 5.\n\n";

constexpr std::string_view sugli_integrali =
    "## Integrali\n\n"
    "La tabella integrale gioca tutte le combinazioni: qualunque sia il numero degli estratti, la\n"
    "migliore li contiene tutti, fino a riempirsi.\n\n";

std::string parte_basi(const Dati& dati) {
    std::string uscita =
        "## I disegni di 230 e di 291 righe\n\n"
        "Questi due disegni nascono da pochi blocchi: applicando più volte la permutazione "
        "indicata\n"
        "a ogni blocco si ottengono tutte le righe. Quello di 291 righe per C(15,5,4) sta sotto "
        "il\n"
        "294 che è il migliore valore pubblicato che conosciamo; la tabella `cn1503` contiene "
        "quelle\n"
        "291 righe, con le posizioni rinumerate come indicato, e altre quattro, perché il suo nome "
        "ne\n"
        "promette 295. Quello di 230 ha le righe e la garanzia di `cn1403`, che è fatta di "
        "altre.\n\n";
    for (const Base& base : dati.basi) {
        uscita += "### `" + base.tabella + "`: " + righe(static_cast<std::uint64_t>(base.righe)) +
                  " su " + std::to_string(base.n) + " numeri\n\nPermutazione: `" +
                  base.permutazione + "`\n\n";
        if (!base.nella_tabella.empty()) {
            uscita += "Nella tabella le posizioni da 1 a " + std::to_string(base.n) +
                      " diventano, nell'ordine, ";
            for (const int& posizione : base.nella_tabella) {
                uscita += (&posizione == base.nella_tabella.data() ? "" : ", ") +
                          std::to_string(posizione);
            }
            uscita += ".\n\n";
        }
        uscita += "```\n";
        for (const development::Maschera blocco : base.blocchi) {
            uscita += development::posizioni(blocco) + "\n";
        }
        uscita += "```\n\n";
    }
    uscita.pop_back();
    return uscita;
}

std::string tutto(const Dati& dati) {
    std::string uscita(premessa);
    if (!dati.economiche.empty()) uscita += std::string(sulle_economiche) + sotto_il_noto(dati);
    for (const Sezione& sezione : sezioni) {
        uscita += std::string("## ") + sezione.titolo + "\n\n### Righe e garanzie\n\n";
        uscita += confronto(sezione, dati.voci);
        uscita += "### Tutto quello che è garantito\n\n" + ulteriori(sezione, dati.voci);
        uscita += "### Vincite, in casi su cento\n\n" + tavola_vincite(sezione, dati.voci);
        uscita += tavola_economiche(sezione, dati);
    }
    uscita += std::string(sugli_integrali) + tavola_integrali();
    return uscita + parte_basi(dati);
}

/// What the list of types calls a table; one that no list of its own length has may serve the
/// diagonals beside those of the next length.
std::string nome_del_tipo(const development::NomeTabella& nome) {
    using crossword::Elenco;
    const crossword::Gioco gioco =
        nome.k() == 6 ? crossword::Gioco() : crossword::Gioco::lotto(nome.k());
    const auto tipo = static_cast<std::size_t>(nome.tipo);
    const auto propri = crossword::tipi_sistema(gioco, Elenco::orizzontali, nome.n);
    if (tipo < propri.size()) return propri[tipo];
    const auto vicini = crossword::tipi_sistema(gioco, Elenco::diagonali, nome.n + 1);
    if (gioco.e_lotto() || tipo >= vicini.size()) return "(in nessuna lista)";
    return vicini[tipo] + " di " + std::to_string(nome.n + 1) + " numeri, nelle diagonali vicine";
}

std::string per_la_guida(const Dati& dati) {
    std::string uscita;
    for (const Sezione& sezione : sezioni) {
        uscita += std::string("<h3>") + sezione.titolo +
                  "</h3>\n<table>\n<tr><th>Numeri</th><th>Tipo</th><th>Combinazioni</th>"
                  "<th>% dell'integrale</th><th>Garanzia</th></tr>\n";
        for (const Voce& voce : dati.voci) {
            if (voce.nome.prefisso != sezione.prefisso) continue;
            const auto quante = static_cast<double>(voce.tabella.righe.size());
            const auto intere =
                static_cast<double>(development::binomiale(voce.nome.n, voce.nome.k()));
            uscita +=
                "<tr><td>" + std::to_string(voce.nome.n) + "</td><td>" + nome_del_tipo(voce.nome) +
                "</td><td>" + std::to_string(voce.tabella.righe.size()) + "</td><td>" +
                percento(quante, intere) + "</td><td>" + in_parole(voce.garanzia) + "</td></tr>\n";
        }
        uscita += "</table>\n";
    }
    return uscita;
}

}  // namespace

int documento(const std::vector<std::string>& parole) {
    const Opzioni opzioni = leggi_opzioni(parole, {"--guida"});
    if (opzioni.errore || opzioni.file.size() != 2) {
        lamenta(opzioni.errore ? *opzioni.errore
                               : "documento vuole la cartella delle tabelle e quella dei minimi");
        return impossibile;
    }
    Dati dati;
    int codice = raccogli(opzioni.file[0], opzioni.file[1], dati);
    if (codice == riuscito) codice = raccogli_economiche(opzioni.file[0], dati);
    if (codice != riuscito) return codice;
    stampa(opzioni.guida ? per_la_guida(dati) : tutto(dati));
    return riuscito;
}

}  // namespace ridotti
