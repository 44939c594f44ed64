#include "systems/lista_tipi.h"

#include "development/tabelle.h"
#include "platform/disk.h"

namespace systems {

using crossword::Elenco;
using development::Economica;

bool ListaTipi::con_adiacenti(const FonteTipi& fonte) const {
    return quale_ == Elenco::diagonali && fonte.gioco.adiacenti(n_);
}

void ListaTipi::vuota() {
    testi_.clear();
    voci_.clear();
}

void ListaTipi::carica(const FonteTipi& fonte, Elenco quale, int n) {
    quale_ = quale;
    n_ = n;
    testi_ = crossword::tipi_sistema(fonte.gioco, quale, n);
    voci_.clear();
    for (int i = 0; i < static_cast<int>(testi_.size()); ++i) voci_.push_back({i, {}});
    if (!fonte.economiche || testi_.empty()) return;
    for (const Economica& e : fonte.tabelle->di(fonte.ridotti, fonte.gioco, n)) {
        accoda(fonte, e, true);
    }
}

/// A type of the diagonals also plays lines one shorter: both tables must give the same.
void ListaTipi::accoda(const FonteTipi& fonte, const Economica& e, bool in_lista) {
    Conto conto{e.righe, {}};
    if (con_adiacenti(fonte)) {
        const auto corta = fonte.tabelle->una(fonte.ridotti, fonte.gioco, n_ - 1, e.numero);
        if (!corta || corta->garanzia != e.garanzia) return;
        conto.corte = corta->righe;
    }
    testi_.push_back((in_lista ? "" : "Economica: ") +
                     development::testo_economica(e, fonte.gioco, n_));
    voci_.push_back({e.numero, conto});
}

int ListaTipi::indice(int posto) const {
    if (posto < 0 || posto >= static_cast<int>(voci_.size())) return -1;
    return voci_[static_cast<std::size_t>(posto)].indice;
}

int ListaTipi::posto(int indice) const {
    for (std::size_t i = 0; i < voci_.size(); ++i) {
        if (voci_[i].indice == indice) return static_cast<int>(i);
    }
    return -1;
}

bool ListaTipi::aggiungi(const FonteTipi& fonte, int indice) {
    if (testi_.empty() || !development::e_economica(indice) || posto(indice) >= 0) return false;
    if (const auto e = fonte.tabelle->una(fonte.ridotti, fonte.gioco, n_, indice)) {
        accoda(fonte, *e, fonte.economiche);
    }
    if (posto(indice) < 0) {
        const std::string nome = mancante(fonte, indice);
        testi_.push_back(platform::esiste_file(fonte.ridotti + "/" + nome)
                             ? "La tabella " + nome + " è guasta"
                             : "Manca la tabella " + nome);
        voci_.push_back({indice, {}});
    }
    return true;
}

std::optional<ListaTipi::Conto> ListaTipi::conto(int indice) const {
    const int dove = posto(indice);
    return dove < 0 ? std::nullopt : voci_[static_cast<std::size_t>(dove)].conto;
}

std::string ListaTipi::mancante(const FonteTipi& fonte, int indice) const {
    if (!development::e_economica(indice)) return {};
    const auto intera = fonte.tabelle->una(fonte.ridotti, fonte.gioco, n_, indice);
    if (!intera) return development::nome_tabella(fonte.gioco, n_, indice);
    if (!con_adiacenti(fonte)) return {};
    const auto corta = fonte.tabelle->una(fonte.ridotti, fonte.gioco, n_ - 1, indice);
    const bool giusta = corta && corta->garanzia == intera->garanzia;
    return giusta ? std::string() : development::nome_tabella(fonte.gioco, n_ - 1, indice);
}

}  // namespace systems
