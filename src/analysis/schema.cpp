#include "analysis/schema.h"

#include <algorithm>
#include <array>
#include <bit>
#include <map>
#include <utility>

#include "crossword/linee.h"
#include "development/tabelle.h"

namespace analysis {

using crossword::Gioco;
using crossword::Gruppo;

namespace {

/// A grid that holds in each cell the cell's own place, counted from 1.
crossword::Matrice posti(int colonne, int righe) {
    crossword::Matrice m(colonne, righe);
    for (int y = 0; y < righe; ++y) {
        for (int x = 0; x < colonne; ++x) {
            m.scrivi(x, y, static_cast<std::int16_t>(y * colonne + x + 1));
        }
    }
    return m;
}

std::vector<std::uint8_t> celle_di(const crossword::Linea& linea) {
    std::vector<std::uint8_t> celle = linea.numeri;
    for (std::uint8_t& c : celle) --c;
    return celle;
}

/// The rows of a table that are combinations, each once.
std::vector<std::uint16_t> righe_di(const development::TabellaPosizioni& tabella) {
    std::vector<std::uint16_t> righe;
    const auto k = static_cast<std::size_t>(tabella.k);
    for (std::size_t i = 0; i < tabella.posizioni.size(); i += k) {
        unsigned riga = 0;
        bool ascendente = true;
        for (std::size_t j = i; j < i + k; ++j) {
            ascendente = ascendente && (j == i || tabella.posizioni[j - 1] < tabella.posizioni[j]);
            riga |= 1U << (tabella.posizioni[j] - 1);
        }
        if (ascendente) righe.push_back(static_cast<std::uint16_t>(riga));
    }
    std::sort(righe.begin(), righe.end());
    righe.erase(std::unique(righe.begin(), righe.end()), righe.end());
    return righe;
}

int tipo_di(const systems::Sistema& sistema, Gruppo gruppo) {
    switch (gruppo) {
        case Gruppo::orizzontali:
            return sistema.tipo_righe;
        case Gruppo::verticali:
            return sistema.tipo_colonne;
        default:
            return sistema.tipo_diagonali;
    }
}

}  // namespace

std::vector<bool> TipoLinea::raggiunge(int t) const {
    std::vector<bool> si(std::size_t{1} << n);
    for (const std::uint16_t riga : righe) {
        // All subsets of the row, the larger first.
        for (unsigned parte = riga; parte != 0; parte = (parte - 1U) & riga) {
            if (std::popcount(parte) == t) si[parte] = true;
        }
    }
    for (unsigned s = 1; s < si.size(); ++s) {
        for (unsigned resto = s; resto != 0 && !si[s]; resto &= resto - 1) {
            si[s] = si[s & ~(resto & (~resto + 1))];
        }
    }
    return si;
}

Schema::Schema(const systems::Sistema& sistema, const std::string& ridotti)
    : colonne(sistema.matrice.colonne()),
      righe(sistema.matrice.righe()),
      numeri(sistema.gioco.numeri()),
      estratti(sistema.gioco.e_lotto() ? 5 : 6) {
    if (colonne > Gioco::lato_massimo || righe > Gioco::lato_massimo) return;
    const crossword::Matrice m = posti(colonne, righe);
    regola.resize(static_cast<std::size_t>(colonne) * static_cast<std::size_t>(righe));
    giocate.resize(regola.size());
    // The rule knows the adjacent diagonals in both games, and SuperEnalotto develops them all.
    std::uint64_t bit = 1;
    for (const crossword::Linea& linea : linee_sviluppo(m, Gioco::superenalotto())) {
        for (const std::uint8_t c : celle_di(linea)) regola[c] |= bit;
        bit <<= 1;
    }
    std::map<std::string, std::size_t> noti;
    for (const crossword::Linea& linea : linee_sviluppo(m, sistema.gioco)) {
        const int n = static_cast<int>(linea.numeri.size());
        const int tipo = tipo_di(sistema, linea.gruppo);
        const std::string nome = development::nome_tabella(sistema.gioco, n, tipo);
        if (nome.empty() || tipo < 0) continue;
        const auto [noto, nuovo] = noti.emplace(nome, tipi.size());
        if (nuovo) {
            const std::string file = ridotti + "/" + nome;
            tipi.push_back({n, righe_di(development::leggi_tabella(file, numeri, n))});
        }
        if (tipi[noto->second].righe.empty()) continue;
        linee.push_back({noto->second, celle_di(linea)});
        for (const std::uint8_t c : linee.back().celle) {
            giocate[c] |= std::uint64_t{1} << (linee.size() - 1);
        }
    }
}

Giocate sviluppa(const Schema& schema, std::span<const std::uint8_t> celle) {
    std::vector<std::array<std::int16_t, 6>> righe;
    for (const LineaGiocata& linea : schema.linee) {
        Celle numeri;
        for (const std::uint8_t c : linea.celle) numeri.push_back(celle[c]);
        std::sort(numeri.begin(), numeri.end());
        for (unsigned riga : schema.tipi[linea.tipo].righe) {
            auto& combinazione = righe.emplace_back();
            for (std::size_t i = 0; riga != 0; riga &= riga - 1) {
                combinazione[i++] = numeri[static_cast<std::size_t>(std::countr_zero(riga))];
            }
        }
    }
    Giocate giocate;
    prepara_giocate(righe, schema.numeri, giocate);
    return giocate;
}

}  // namespace analysis
