#include "analysis/catalogo.h"

#include <algorithm>

#include "crossword/tipi.h"
#include "development/economiche.h"
#include "development/garanzie.h"
#include "development/tabelle.h"
#include "platform/disk.h"
#include "platform/runtime.h"

namespace analysis {

using crossword::Elenco;
using crossword::Gioco;
using development::Garanzia;

namespace {

/// The longest full table has 5005 rows of six positions.
constexpr std::int64_t byte_massimi = 1 << 20;
/// No list has more told types.
constexpr int tipi_detti = 8;

std::string intero(std::size_t n) {
    return platform::Format(static_cast<double>(n), platform::Modello::interi);
}

std::string in_breve(const Garanzia& g) {
    return std::to_string(g.t) + " con " + std::to_string(g.p) + " estratti" +
           (g.righe > 1 ? ", " + std::to_string(g.righe) + " volte" : "");
}

/// Reads a table strictly into the list, when there is one that is whole.
void aggiungi(const std::string& ridotti, const development::NomeTabella& nome,
              const std::string& tipo, Gioco gioco, const Garanzia& garanzia,
              std::vector<TabellaInCatalogo>& tabelle) {
    const std::string file = development::nome_tabella(gioco, nome.n, nome.tipo);
    const auto contenuto = platform::leggi_tutto(ridotti + "/" + file, byte_massimi);
    if (!contenuto) return;
    development::Lettura letta = development::leggi_rigorosa(*contenuto, nome.n, nome.k());
    if (!letta.errori.empty()) return;
    tabelle.push_back({file.substr(0, file.size() - 4), tipo, std::move(letta.tabella), garanzia});
}

}  // namespace

Catalogo::Catalogo(const std::string& ridotti, Gioco gioco, int n) : gioco_(gioco), n_(n) {
    if (!gioco.valido() || n < gioco.lato_minimo() || n > Gioco::lato_massimo) return;
    const auto testi = crossword::tipi_sistema(gioco, Elenco::orizzontali, n);
    for (int tipo = 0; tipo < tipi_detti; ++tipo) {
        const development::NomeTabella nome{gioco.prefisso_tabelle(), n, tipo};
        const auto garanzia = development::garanzia_dichiarata(nome);
        if (!garanzia) continue;
        const auto posto = static_cast<std::size_t>(tipo);
        aggiungi(ridotti, nome, posto < testi.size() ? testi[posto] : "In nessuna lista di righe",
                 gioco, *garanzia, tabelle_);
    }
    development::Economiche economiche;
    for (const development::Economica& e : economiche.di(ridotti, gioco, n)) {
        aggiungi(ridotti, {gioco.prefisso_tabelle(), n, e.numero},
                 "Economica: " + development::testo_economica(e, gioco, n), gioco, e.garanzia,
                 tabelle_);
    }
}

int Catalogo::risparmio(const TabellaInCatalogo& tabella) const {
    std::size_t minime = tabella.tabella.righe.size();
    for (const TabellaInCatalogo& altra : tabelle_) {
        const Garanzia& g = altra.garanzia;
        // More guessed by as few drawn, and as often, is as good.
        const bool basta = g.p <= tabella.garanzia.p && g.t >= tabella.garanzia.t &&
                           g.righe >= tabella.garanzia.righe;
        if (basta) minime = std::min(minime, altra.tabella.righe.size());
    }
    return static_cast<int>(tabella.tabella.righe.size() - minime);
}

Tavola Catalogo::tavola() const {
    Tavola t;
    t.titolo = std::string(gioco_.nome_combinazioni()) + " su " + std::to_string(n_) + " numeri";
    t.colonne = {"Tabella", "Garanzia", "Colonne", "% dell'integrale", "Si risparmiano"};
    const auto tutte = static_cast<double>(development::binomiale(n_, gioco_.numeri()));
    for (const TabellaInCatalogo& una : tabelle_) {
        const std::size_t righe = una.tabella.righe.size();
        const int meno = risparmio(una);
        t.righe.push_back({una.nome, in_breve(una.garanzia), intero(righe),
                           platform::Significative(static_cast<double>(righe) / tutte * 100, 3),
                           meno == 0 ? std::string("—") : intero(static_cast<std::size_t>(meno))});
    }
    if (tabelle_.empty()) t.note.emplace_back("Nessuna tabella.");
    return t;
}

Tavola Catalogo::vincite(std::size_t quale) const {
    Tavola t;
    if (quale >= tabelle_.size()) return t;
    const TabellaInCatalogo& una = tabelle_[quale];
    t.titolo = "Vincite di " + una.nome + ", in casi su cento";
    t.colonne = {"Estratti"};
    for (int j = una.tabella.k; j >= 1; --j) t.colonne.push_back(std::to_string(j));
    t.colonne.emplace_back("Sempre");
    const int estratti = std::min(n_, development::estratti_di(gioco_));
    for (int p = 1; p <= estratti; ++p) {
        const development::Vincite v = development::vincite(una.tabella, p);
        std::vector<std::string> riga{std::to_string(p)};
        for (int j = una.tabella.k; j >= 1; --j) {
            const auto casi = v.migliore[static_cast<std::size_t>(j)];
            riga.push_back(
                casi == 0 ? std::string()
                          : percento(static_cast<double>(casi), static_cast<double>(v.gruppi)));
        }
        const int sempre = v.garantito();
        riga.push_back(sempre == 0 ? std::string("—")
                                   : intero(v.minime[static_cast<std::size_t>(sempre)]) + " da " +
                                         std::to_string(sempre));
        t.righe.push_back(std::move(riga));
    }
    t.note.emplace_back(
        "Quanti ne indovina la combinazione migliore; in fondo, quante combinazioni lo fanno "
        "sempre. "
        "Meno colonne vogliono dire anche meno casi sopra la garanzia.");
    return t;
}

std::string Catalogo::prova(std::size_t quale) const {
    if (quale >= tabelle_.size()) return {};
    const TabellaInCatalogo& una = tabelle_[quale];
    const auto buchi = development::buchi(una.tabella, una.garanzia, 0);
    const std::string sorteggi = intero(development::binomiale(n_, una.garanzia.p));
    if (buchi.quanti == 0) {
        return una.nome + ": provata su tutti i " + sorteggi + " sorteggi di " +
               std::to_string(una.garanzia.p) + " numeri, " + in_breve(una.garanzia) +
               " vale sempre.";
    }
    return una.nome + ": " + in_breve(una.garanzia) + " NON vale in " + intero(buchi.quanti) +
           " sorteggi su " + sorteggi + ".";
}

}  // namespace analysis
