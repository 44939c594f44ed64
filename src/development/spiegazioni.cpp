#include "development/spiegazioni.h"

#include <algorithm>

#include "development/economiche.h"
#include "development/garanzie.h"
#include "development/tabelle.h"
#include "platform/disk.h"
#include "platform/runtime.h"

namespace development {

using crossword::Gioco;

namespace {

/// The longest full table has 5005 rows of six positions.
constexpr std::int64_t byte_massimi = 1 << 20;

std::string minuscolo(std::string nome, bool una) {
    nome = platform::LCase(nome);
    if (una && !nome.empty()) nome.back() = 'a';
    return nome;
}

/// The guarantees of a win, each with the fewest numbers drawn that it takes.
std::string garanzie(const Tabella& tabella, Gioco gioco) {
    std::string testo;
    int fin_qui = (gioco.e_lotto() ? 2 : 3) - 1;
    for (int p = fin_qui + 1; p <= std::min(estratti_di(gioco), tabella.n); ++p) {
        const int t = vincite(tabella, p).garantito();
        if (t <= fin_qui) continue;
        fin_qui = t;
        testo += (testo.empty() ? "con " : ", con ") + std::to_string(p);
        if (testo.find("estratti") == std::string::npos) {
            testo += " estratti su " + std::to_string(tabella.n);
        }
        testo += " almeno una da " + std::to_string(t);
    }
    return testo.empty() ? "non garantisce nulla" : testo;
}

}  // namespace

std::string spiega(const Tabella& tabella, Gioco gioco) {
    const auto righe = static_cast<double>(tabella.righe.size());
    const auto tutte = static_cast<double>(binomiale(tabella.n, tabella.k));
    const std::string quante = platform::Format(righe, platform::Modello::interi) + " " +
                               minuscolo(gioco.nome_combinazioni(), righe == 1);
    if (righe == tutte) {
        return quante + ", tutte quelle possibili: con " + std::to_string(tabella.k) +
               " estratti su " + std::to_string(tabella.n) + " almeno una da " +
               std::to_string(tabella.k);
    }
    return quante + ", " + platform::Significative(righe / tutte * 100, 3) +
           " % dell'integrale: " + garanzie(tabella, gioco);
}

const std::string& Spiegazioni::di(const std::string& ridotti, Gioco gioco, int n, int tipo) {
    const std::string nome = nome_tabella(gioco, n, tipo);
    Provata& provata = provate_[nome];
    if (nome.empty()) return provata.frase;
    auto contenuto = platform::leggi_tutto(ridotti + "/" + nome, byte_massimi);
    if (!provata.frase.empty() && provata.contenuto == contenuto) return provata.frase;
    if (contenuto) {
        const Lettura letta = leggi_rigorosa(*contenuto, n, gioco.numeri());
        provata.frase = letta.errori.empty() && !letta.tabella.righe.empty()
                            ? spiega(letta.tabella, gioco)
                            : "La tabella " + nome + " è guasta: non garantisce nulla";
    } else {
        provata.frase = "La tabella " + nome + " manca o non si può leggere";
    }
    provata.contenuto = std::move(contenuto);
    return provata.frase;
}

}  // namespace development
