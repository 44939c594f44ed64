#include "analysis/relazione.h"

#include <algorithm>

#include "analysis/cinque_piu_uno.h"
#include "development/garanzie.h"
#include "platform/runtime.h"

namespace analysis {

using crossword::Gioco;
using development::binomiale;
using platform::Significative;

namespace {

std::string intero(double n) {
    return n == 0 ? "0" : platform::Format(n, platform::Modello::interi);
}

std::string intero(std::uint64_t n) {
    return intero(static_cast<double>(n));
}

std::string quante(std::uint64_t n, const char* una, const char* molte) {
    return intero(n) + " " + (n == 1 ? una : molte);
}

/// "1 su 3,85", in words where it is no chance at all.
std::string una_su(double parte, double tutte) {
    if (parte == 0) return "mai";
    if (parte == tutte) return "sempre";
    std::string testo = Significative(tutte / parte, 3);
    for (int cifre = 4; testo == "1" && cifre <= 14; ++cifre) {
        testo = Significative(tutte / parte, cifre);
    }
    return "1 su " + testo;
}

std::string euro(double quanti) {
    return platform::Format(quanti, platform::Modello::decimali_zero);
}

std::string elenco(const Numeri& numeri) {
    std::string testo;
    for (const std::uint8_t n : numeri) testo += (testo.empty() ? "" : " ") + std::to_string(n);
    return testo;
}

std::uint64_t insiemi(const Distribuzione& d, int k) {
    return binomiale(d.in_gioco, k);
}

/// The largest set of numbers in play that can come out at once.
int estraibili(const Distribuzione& d) {
    return std::min(d.estratti, d.in_gioco);
}

}  // namespace

std::string nome_risultato(Gioco gioco, int punti) {
    if (punti >= 2) {
        for (const Categoria& c : categorie(gioco)) {
            if (c.punti == punti && !c.con_jolly) return c.nome;
        }
    }
    const std::string cosa = gioco.e_lotto() ? " numer" : " punt";
    if (punti == 0) return "nessun" + (gioco.e_lotto() ? std::string(" numero") : " punto");
    return std::to_string(punti) + cosa + (punti == 1 ? "o" : "i");
}

int vincita_minima(Gioco gioco) {
    return gioco.e_lotto() ? 2 : 3;
}

std::string percento(double parte, double tutte) {
    if (!(tutte > 0)) return "";
    const double p = parte / tutte * 100;
    std::string testo = Significative(p, 4);
    // All but a few draws are not all of them.
    for (int cifre = 5; parte < tutte && testo == "100" && cifre <= 14; ++cifre) {
        testo = Significative(p, cifre);
    }
    return testo + " %";
}

Tavola tavola_sistema(const Analisi& a, Gioco gioco) {
    Tavola t;
    t.titolo = "Che cosa gioca il sistema";
    t.colonne = {"Voce", "Quanto"};
    t.righe = {{"Gioco", gioco.nome()},
               {"Numeri in gioco", intero(static_cast<double>(a.distribuzione.in_gioco))},
               {"Combinazioni giocate", intero(std::uint64_t{a.righe})},
               {"Combinazioni diverse", intero(std::uint64_t{a.combinazioni})}};
    if (gioco.e_lotto()) t.righe[0][1] += std::string(" in ") + gioco.nome_combinazioni();
    if (a.guaste > 0) {
        t.note.push_back(
            quante(static_cast<std::uint64_t>(a.guaste),
                   "riga dello sviluppo non è una combinazione ed è stata saltata.",
                   "righe dello sviluppo non sono combinazioni e sono state saltate."));
    }
    return t;
}

Tavola tavola_garanzie(const Analisi& a, Gioco gioco) {
    const Distribuzione& d = a.distribuzione;
    Tavola t;
    t.titolo = "Che cosa è garantito";
    t.colonne = {"Numeri del sistema usciti", "Garantito", "In quante combinazioni",
                 "Insiemi provati"};
    bool stima = false;
    for (int k = 1; k <= estraibili(d); ++k) {
        const int g = d.garantito(k);
        const Minimo& m = a.minimi[static_cast<std::size_t>(k)];
        std::string dove = "–";
        if (g > 0) {
            dove = "almeno " + quante(static_cast<std::uint64_t>(m.combinazioni), "combinazione",
                                      "combinazioni");
            if (!m.esatto) dove += " (forse più)";
            stima = stima || !m.esatto;
        }
        t.righe.push_back({std::to_string(k),
                           g > 0 ? "almeno " + nome_risultato(gioco, g) : "niente", dove,
                           intero(insiemi(d, k))});
    }
    t.note.emplace_back(
        "Gli usciti sono i numeri del sistema che si trovano fra gli estratti, quali che siano.");
    if (stima) t.note.emplace_back("«Forse più»: le combinazioni non sono meno di quelle dette.");
    return t;
}

Tavola tavola_insiemi(const Analisi& a, Gioco gioco) {
    const Distribuzione& d = a.distribuzione;
    Tavola t;
    t.titolo = "Il risultato migliore, per ogni insieme di numeri usciti";
    t.colonne = {"Usciti"};
    for (int p = 0; p <= d.massimo(); ++p) t.colonne.push_back(nome_risultato(gioco, p));
    for (int k = 1; k <= estraibili(d); ++k) {
        std::vector<std::string> riga{std::to_string(k)};
        for (int p = 0; p <= d.massimo(); ++p) {
            const std::uint64_t n =
                d.migliore[static_cast<std::size_t>(k)][static_cast<std::size_t>(p)];
            riga.push_back(p > k ? "" : intero(n));
        }
        t.righe.push_back(std::move(riga));
    }
    return t;
}

Tavola tavola_buchi(const Analisi& a, Gioco gioco) {
    const Distribuzione& d = a.distribuzione;
    Tavola t;
    t.titolo = "I buchi: gli insiemi più piccoli che lasciano senza";
    t.colonne = {"Senza", "Numeri usciti", "Insiemi scoperti", "Su cento"};
    for (const Buchi& b : a.buchi) {
        if (b.k == 0) {
            t.righe.push_back({nome_risultato(gioco, b.t), "–", "nessuno", "0 %"});
            continue;
        }
        t.righe.push_back(
            {nome_risultato(gioco, b.t), std::to_string(b.k), intero(b.quanti),
             percento(static_cast<double>(b.quanti), static_cast<double>(insiemi(d, b.k)))});
    }
    t.note.emplace_back(
        "Un insieme scoperto: escono tutti i suoi numeri, e nessuna combinazione "
        "arriva al risultato detto.");
    return t;
}

Tavola tavola_esempi(const Analisi& a, Gioco gioco) {
    Tavola t;
    t.titolo = "Esempi di insiemi scoperti";
    t.colonne = {"Senza", "Numeri usciti"};
    for (const Buchi& b : a.buchi) {
        for (const Numeri& numeri : b.primi) {
            t.righe.push_back({nome_risultato(gioco, b.t), elenco(numeri)});
        }
    }
    return t;
}

Tavola tavola_estrazioni(const Analisi& a, Gioco gioco) {
    const Distribuzione& d = a.distribuzione;
    const auto tutte = static_cast<double>(d.estrazioni_possibili());
    Tavola t;
    t.titolo = "Tutte le " + intero(tutte) + " estrazioni possibili";
    t.colonne = {"Risultato migliore", "Estrazioni", "Su cento",
                 "Questo o meglio",    "Su cento",   "Una su"};
    for (int p = d.massimo(); p >= 0; --p) {
        const auto esatte = static_cast<double>(d.estrazioni(p));
        const auto almeno = static_cast<double>(d.estrazioni_almeno(p));
        t.righe.push_back({nome_risultato(gioco, p), intero(esatte), percento(esatte, tutte),
                           intero(almeno), percento(almeno, tutte), una_su(almeno, tutte)});
    }
    if (!gioco.e_lotto()) {
        const auto con = static_cast<double>(a.cinque_piu_uno);
        const auto jolly = static_cast<double>(estrazioni_con_jolly);
        t.note.push_back("5 + 1: " + intero(con) + " delle " + intero(jolly) +
                         " estrazioni con il loro Jolly, " + percento(con, jolly) + ", " +
                         una_su(con, jolly) + ". Qui sopra stanno fra i 5 punti.");
    }
    t.note.emplace_back("Conti esatti, estrazione per estrazione: nulla è stimato.");
    return t;
}

std::string frase_ritorno(const Analisi& a, const Premi& premi, double spesa) {
    const double r = ritorno(a.medie, premi, spesa);
    if (!(r > 0)) {
        return "Scrivete i premi per sapere quanto torna in media di ogni euro speso.";
    }
    const std::string quanto =
        "Per ogni euro speso tornano in media " + Significative(r, 2) + " euro: ";
    if (r < 1) {
        return quanto + "meno di uno. A lungo andare si perde, come sempre con i premi veri.";
    }
    return quanto + "con i premi veri è sempre meno di uno. Controllate quelli scritti.";
}

Tavola tavola_medie(const Analisi& a, Gioco gioco, const Premi& premi, double spesa) {
    Tavola t;
    t.titolo = "In media, a ogni estrazione";
    t.colonne = {"Categoria", "Combinazioni vincenti", "Premio in euro", "Ritorno in euro"};
    for (const Categoria& c : categorie(gioco)) {
        const double media = c.media(a.medie);
        const double premio = c.premio(premi);
        t.righe.push_back({c.nome, Significative(media, 3), testo_premio(premio),
                           premio > 0 ? euro(media * premio) : std::string()});
    }
    t.note.push_back("Spesa per estrazione: " + euro(spesa) + " euro.");
    t.note.push_back(frase_ritorno(a, premi, spesa));
    return t;
}

std::vector<Tavola> tavole_analisi(const Analisi& a, Gioco gioco, const Premi& premi,
                                   double spesa) {
    return {tavola_sistema(a, gioco),
            tavola_garanzie(a, gioco),
            tavola_insiemi(a, gioco),
            tavola_estrazioni(a, gioco),
            tavola_medie(a, gioco, premi, spesa),
            tavola_buchi(a, gioco),
            tavola_esempi(a, gioco)};
}

std::string riassunto(const Analisi& a, Gioco gioco) {
    const Distribuzione& d = a.distribuzione;
    const auto tutte = static_cast<double>(d.estrazioni_possibili());
    const int minimo = vincita_minima(gioco);
    const auto vince = static_cast<double>(d.estrazioni_almeno(minimo));
    std::string testo = "Analisi: " + nome_risultato(gioco, minimo) + " o meglio " +
                        platform::nel(percento(vince, tutte)) + " delle estrazioni";
    if (vince == 0) testo = "Analisi: nessuna estrazione dà " + nome_risultato(gioco, minimo);
    const int k = estraibili(d);
    const int g = d.garantito(k);
    testo += "; con " + std::to_string(k) + " numeri usciti " +
             (g > 0 ? "almeno " + nome_risultato(gioco, g) : std::string("nulla di garantito"));
    return testo;
}

}  // namespace analysis
