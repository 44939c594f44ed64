// The past in words, and tables as plain text.
#include <algorithm>

#include "analysis/relazione.h"
#include "platform/runtime.h"

namespace analysis {

using crossword::Gioco;

namespace {

std::string intero(std::uint64_t n) {
    return n == 0 ? "0" : platform::Format(static_cast<double>(n), platform::Modello::interi);
}

std::string concorso(const Estrazione& e) {
    return std::to_string(e.concorso) + " del " + e.data;
}

std::uint64_t vinte(const Categoria& c, const EsitoEstrazione& esito) {
    return c.con_jolly ? esito.cinque_piu_uno
                       : esito.combinazioni[static_cast<std::size_t>(c.punti)];
}

/// Index of the highest category that the draw has; behind the last when it has none.
std::size_t migliore(const std::vector<Categoria>& tutte, const EsitoEstrazione& esito) {
    const auto prima = std::find_if(tutte.begin(), tutte.end(),
                                    [&](const Categoria& c) { return vinte(c, esito) > 0; });
    return static_cast<std::size_t>(prima - tutte.begin());
}

/// The categories that win.
std::vector<Categoria> vincenti(Gioco gioco) {
    std::vector<Categoria> tutte = categorie(gioco);
    tutte.erase(std::remove_if(tutte.begin(), tutte.end(),
                               [&](const Categoria& c) { return c.punti < vincita_minima(gioco); }),
                tutte.end());
    return tutte;
}

std::string quanti_giorni(std::size_t quanti) {
    return intero(quanti) + (quanti == 1 ? " concorso" : " concorsi");
}

/// Characters of a text, for columns that line up.
std::size_t lungo(const std::string& testo) {
    return static_cast<std::size_t>(std::count_if(testo.begin(), testo.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

void a_capo(const std::string& testo, std::size_t larghezza, std::vector<std::string>& righe) {
    std::string riga;
    for (std::size_t da = 0; da < testo.size();) {
        const std::size_t a = std::min(testo.find(' ', da), testo.size());
        const std::string parola = testo.substr(da, a - da);
        if (!riga.empty() && lungo(riga) + 1 + lungo(parola) > larghezza) {
            righe.push_back(riga);
            riga.clear();
        }
        riga += (riga.empty() ? "" : " ") + parola;
        da = a + 1;
    }
    if (!riga.empty()) righe.push_back(riga);
}

/// The first column stands on the left, the others on the right.
std::string allinea(const std::vector<std::string>& celle, const std::vector<std::size_t>& larghe) {
    std::string riga;
    for (std::size_t c = 0; c < celle.size() && c < larghe.size(); ++c) {
        const std::string vuoto(larghe[c] - std::min(larghe[c], lungo(celle[c])), ' ');
        riga += c == 0 ? celle[c] + vuoto : "  " + vuoto + celle[c];
    }
    riga.erase(riga.find_last_not_of(' ') + 1);
    return riga;
}

}  // namespace

std::vector<Anno> per_anni(const Storico& s, std::span<const Estrazione> estrazioni, int minimo) {
    constexpr std::size_t cifre_anno = 4;
    std::vector<Anno> anni;
    for (std::size_t i = 0; i < estrazioni.size() && i < s.esiti.size(); ++i) {
        const std::string& data = estrazioni[i].data;
        const std::string anno =
            data.size() >= cifre_anno ? data.substr(data.size() - cifre_anno) : "?";
        if (anni.empty() || anni.back().nome != anno) anni.push_back({anno, 0, 0, 0});
        const int punti = s.esiti[i].migliore();
        ++anni.back().estrazioni;
        if (punti >= minimo) ++anni.back().vincenti;
        anni.back().migliore = std::max(anni.back().migliore, punti);
    }
    return anni;
}

Tavola tavola_categorie(const Storico& s, std::span<const Estrazione> estrazioni, Gioco gioco) {
    Tavola t;
    t.titolo = "Che cosa avrebbe vinto nel passato";
    t.colonne = {"Categoria", "Combinazioni vincenti", "Estrazioni in cui è la migliore"};
    const std::vector<Categoria> tutte = vincenti(gioco);
    std::vector<std::uint64_t> meglio(tutte.size() + 1, 0);
    for (const EsitoEstrazione& esito : s.esiti) ++meglio[migliore(tutte, esito)];
    for (std::size_t i = 0; i < tutte.size(); ++i) {
        const std::uint64_t quante = tutte[i].con_jolly
                                         ? s.cinque_piu_uno
                                         : s.combinazioni[static_cast<std::size_t>(tutte[i].punti)];
        t.righe.push_back({tutte[i].nome, intero(quante), intero(meglio[i])});
    }
    if (estrazioni.empty()) {
        t.note.emplace_back("L'archivio non ha estrazioni da esaminare.");
        return t;
    }
    t.note.push_back(
        "Con una vincita: " + intero(s.vincenti) + " delle " + intero(estrazioni.size()) +
        " estrazioni, " +
        percento(static_cast<double>(s.vincenti), static_cast<double>(estrazioni.size())) +
        ", dal " + estrazioni.front().data + " al " + estrazioni.back().data + ".");
    if (s.digiuno > 0) {
        t.note.push_back("La serie più lunga senza vincite: " + quanti_giorni(s.digiuno) +
                         ", dal concorso " + concorso(estrazioni[s.digiuno_da]) + " al " +
                         concorso(estrazioni[s.digiuno_a]) + ".");
    }
    t.note.push_back(s.digiuno_attuale == 0
                         ? std::string("L'ultimo concorso ha una vincita.")
                         : "Dall'ultima vincita: " + quanti_giorni(s.digiuno_attuale) + ".");
    t.note.emplace_back(
        "Le estrazioni passate non dicono nulla delle prossime: i numeri non hanno "
        "memoria.");
    return t;
}

Tavola tavola_migliori(const Storico& s, std::span<const Estrazione> estrazioni, Gioco gioco) {
    Tavola t;
    t.titolo = "Le dieci estrazioni migliori";
    t.colonne = {"Concorso", "Data"};
    if (gioco.e_lotto()) t.colonne.emplace_back("Ruota");
    const std::vector<Categoria> tutte = vincenti(gioco);
    for (const Categoria& c : tutte) t.colonne.push_back(c.nome);
    for (const std::size_t i : s.migliori) {
        if (i >= estrazioni.size() || i >= s.esiti.size()) continue;
        const Estrazione& e = estrazioni[i];
        std::vector<std::string> riga{std::to_string(e.concorso), e.data};
        if (gioco.e_lotto()) riga.push_back(e.ruota);
        for (const Categoria& c : tutte) {
            const std::uint64_t quante = vinte(c, s.esiti[i]);
            riga.push_back(quante > 0 ? intero(quante) : "");
        }
        t.righe.push_back(std::move(riga));
    }
    if (t.righe.empty()) t.note.emplace_back("Nessuna estrazione ha una vincita.");
    return t;
}

Tavola tavola_anni(const Storico& s, std::span<const Estrazione> estrazioni, Gioco gioco) {
    Tavola t;
    t.titolo = "Anno per anno";
    t.colonne = {"Anno", "Estrazioni", "Con una vincita", "Su cento", "La migliore"};
    for (const Anno& anno : per_anni(s, estrazioni, vincita_minima(gioco))) {
        t.righe.push_back(
            {anno.nome, intero(anno.estrazioni), intero(anno.vincenti),
             percento(static_cast<double>(anno.vincenti), static_cast<double>(anno.estrazioni)),
             nome_risultato(gioco, anno.migliore)});
    }
    return t;
}

std::vector<Tavola> tavole_passato(const Storico& s, std::span<const Estrazione> estrazioni,
                                   Gioco gioco, const std::string& ruota) {
    std::vector<Tavola> tutte{tavola_categorie(s, estrazioni, gioco),
                              tavola_migliori(s, estrazioni, gioco),
                              tavola_anni(s, estrazioni, gioco)};
    if (!ruota.empty()) tutte.front().titolo += " (ruota: " + ruota + ")";
    return tutte;
}

std::vector<std::string> righe_di_testo(std::span<const Tavola> tavole, std::size_t larghezza) {
    std::vector<std::string> righe;
    for (const Tavola& t : tavole) {
        if (!righe.empty()) righe.emplace_back();
        righe.push_back(t.titolo);
        righe.emplace_back(std::min(lungo(t.titolo), larghezza), '-');
        if (!t.righe.empty()) {
            std::vector<std::size_t> larghe;
            for (std::size_t c = 0; c < t.colonne.size(); ++c) {
                larghe.push_back(lungo(t.colonne[c]));
                for (const auto& riga : t.righe) larghe[c] = std::max(larghe[c], lungo(riga[c]));
            }
            righe.push_back(allinea(t.colonne, larghe));
            for (const auto& riga : t.righe) righe.push_back(allinea(riga, larghe));
        }
        for (const std::string& nota : t.note) a_capo(nota, larghezza, righe);
    }
    return righe;
}

}  // namespace analysis
