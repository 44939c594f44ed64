#include "analysis/confronto.h"

#include <algorithm>
#include <cmath>

#include "platform/runtime.h"

namespace analysis {

using crossword::Gioco;

namespace {

std::string euro(double quanti) {
    return platform::Format(quanti, platform::Modello::decimali_zero);
}

std::string intero(std::size_t quanti) {
    return quanti == 0 ? "0"
                       : platform::Format(static_cast<double>(quanti), platform::Modello::interi);
}

/// "+13,6 %", by how much the second is more than the first.
std::string differenza(double prima, double dopo) {
    if (prima == dopo || prima == 0) return prima == dopo ? "nessuna" : "";
    const double p = (dopo / prima - 1) * 100;
    return (p < 0 ? "-" : "+") + platform::Significative(std::abs(p), 3) + " %";
}

std::string o_meglio(Gioco gioco, int punti) {
    return nome_risultato(gioco, punti) + " o meglio";
}

std::string ogni_quante(double chance) {
    return platform::Significative(1 / chance, 3) + " estrazioni";
}

}  // namespace

std::string frase_disposta(const Disposizione& d, Gioco gioco, int scopo) {
    switch (d.esito) {
        case Disposta::migliorata:
            break;
        case Disposta::uguale:
            return "Non è stata trovata una disposizione che vinca più spesso: il cruciverba resta "
                   "com'è";
        case Disposta::incompleta:
            return "Per disporre meglio i numeri bisogna prima completare lo schema del cruciverba";
        case Disposta::fuori_regola:
            return "Il cruciverba non segue la regola: un numero sta due volte su una linea, o non "
                   "è fra 1 e 90";
        case Disposta::senza_tabelle:
            return "Nessuna linea del cruciverba gioca combinazioni: mancano le tabelle dei tipi "
                   "scelti";
        case Disposta::senza_scopo:
            return "Nessuna combinazione può fare " + std::to_string(scopo) +
                   (gioco.e_lotto() ? " numeri" : " punti");
        default:
            return "Ricerca annullata: il cruciverba resta com'era";
    }
    const double prima = d.prima.almeno(scopo);
    const double dopo = d.dopo.almeno(scopo);
    std::string frase = o_meglio(gioco, scopo) + " " + platform::nel(percento(dopo, 1)) +
                        " delle estrazioni invece che " + platform::nel(percento(prima, 1));
    if (prima > 0) {
        frase += ": una vincita ogni " + ogni_quante(dopo) + ", non ogni " + ogni_quante(prima);
    }
    return frase;
}

Tavola tavola_confronto(const Misura& prima, const Misura& dopo, Gioco gioco, int scopo,
                        const Costo& costo) {
    Tavola t{"La disposizione di adesso e quella nuova",
             {"Estrazioni con", "Adesso", "Nuova", "Differenza"},
             {},
             {}};
    // What a whole draw gives hangs on the number of different combinations alone.
    for (int k = std::min(prima.distribuzione.massimo(), 5); k >= 2; --k) {
        const double a = prima.almeno(k);
        const double b = dopo.almeno(k);
        t.righe.push_back({o_meglio(gioco, k), percento(a, 1), percento(b, 1), differenza(a, b)});
    }
    const double spesa = costo.di(prima);
    const double nuova = costo.di(dopo);
    t.righe.push_back({"combinazioni diverse", intero(prima.combinazioni),
                       intero(dopo.combinazioni),
                       differenza(static_cast<double>(prima.combinazioni),
                                  static_cast<double>(dopo.combinazioni))});
    t.righe.push_back({"spesa, in euro", euro(spesa), euro(nuova), differenza(spesa, nuova)});
    if (prima.almeno(scopo) > 0) {
        const double a = spesa / prima.almeno(scopo);
        const double b = nuova / dopo.almeno(scopo);
        t.righe.push_back({"spesa per una vincita, in euro", euro(a), euro(b), differenza(a, b)});
        t.note.push_back("Per una vincita da " + o_meglio(gioco, scopo) + " si spendono in media " +
                         euro(b) + " euro invece di " + euro(a) + ".");
    }
    t.note.emplace_back(
        "I numeri, i tipi e quante combinazioni si sviluppano restano gli stessi, e in media ne "
        "vincono quante prima: si vince più spesso, e più di rado con più combinazioni insieme.");
    if (!costo.con_ripetizioni && dopo.combinazioni > prima.combinazioni) {
        t.note.push_back("Le combinazioni ripetute sono " +
                         intero(dopo.combinazioni - prima.combinazioni) +
                         " in meno: senza ripetizioni il sistema costa " + euro(nuova - spesa) +
                         " euro in più.");
    }
    return t;
}

}  // namespace analysis
