// A development recomputed by the plainest means, to hold the engine's against.
#pragma once

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "development/elaborazione.h"
#include "support/cartella.h"

namespace support {

using crossword::Gioco;
using development::Conclusione;
using development::Elaborazione;
using development::Richiesta;
namespace fs = std::filesystem;

/// Numbers that keep the board's rule on grids up to 15 x 15.
inline crossword::Matrice cruciverba(int colonne, int righe) {
    crossword::Matrice m(colonne, righe);
    for (int y = 0; y < righe; ++y) {
        for (int x = 0; x < colonne; ++x) {
            m.scrivi(x, y, static_cast<std::int16_t>((x + 7 * y) % 90 + 1));
        }
    }
    return m;
}

inline std::vector<std::string> righe_di(const std::string& testo) {
    std::vector<std::string> righe;
    std::istringstream f(testo);
    for (std::string riga; std::getline(f, riga);) {
        EXPECT_TRUE(riga.ends_with('\r')) << riga;
        righe.push_back(riga);
    }
    return righe;
}

/// The crossword's lines as plain lists of numbers with the type that each one plays.
inline std::vector<std::pair<std::vector<int>, int>> linee_semplici(const Richiesta& r) {
    std::vector<std::pair<std::vector<int>, int>> linee;
    const int c = r.matrice.colonne();
    const int n = r.matrice.righe();
    const auto lungo = [&](int tipo, const auto& sta) {
        std::vector<int> numeri;
        for (int y = 0; y < n; ++y) {
            for (int x = 0; x < c; ++x) {
                if (sta(x, y)) numeri.push_back(r.matrice(x, y));
            }
        }
        linee.emplace_back(numeri, tipo);
    };
    const std::vector<int> scarti = c != n                       ? std::vector<int>{}
                                    : c < 7 || r.gioco.e_lotto() ? std::vector<int>{0}
                                                                 : std::vector<int>{0, 1, -1};
    for (int k = 0; k < n; ++k) lungo(r.tipo_righe, [k](int, int y) { return y == k; });
    for (const int s : scarti) lungo(r.tipo_diagonali, [s](int x, int y) { return x == y + s; });
    for (int k = 0; k < c; ++k) lungo(r.tipo_colonne, [k](int x, int) { return x == k; });
    for (const int s : scarti) {
        lungo(r.tipo_diagonali, [s, c](int x, int y) { return x + y == c - 1 - s; });
    }
    return linee;
}

/// The whole development by the plainest means, tables read anew for each line.
inline std::string sviluppo_semplice(const Richiesta& r) {
    std::string testo;
    for (auto& [numeri, tipo] : linee_semplici(r)) {
        std::sort(numeri.begin(), numeri.end());
        const std::string prefisso = !r.gioco.e_lotto()     ? "cr"
                                     : r.gioco.forma() == 3 ? "tr"
                                     : r.gioco.forma() == 4 ? "qt"
                                                            : "cn";
        const std::string lunghezza = std::to_string(numeri.size());
        std::ifstream tabella(r.ridotti + "/" + prefisso + (lunghezza.size() < 2 ? "0" : "") +
                              lunghezza + "0" + std::to_string(tipo) + ".rid");
        for (std::string riga; std::getline(tabella, riga);) {
            std::istringstream campi(riga);
            std::string separatore;
            for (std::string campo; std::getline(campi, campo, ',');) {
                testo += separatore + std::to_string(numeri.at(std::stoul(campo) - 1));
                separatore = ",";
            }
            testo += "\r\n";
        }
    }
    return testo;
}

inline std::string senza_ripetizioni(const std::string& testo) {
    std::set<std::string> viste;
    std::string unici;
    for (const std::string& riga : righe_di(testo)) {
        if (viste.insert(riga).second) unici += riga + "\n";
    }
    return unici;
}

class Sviluppo : public testing::Test {
protected:
    void SetUp() override {
        richiesta.cartella = cartella.programma();
        richiesta.ridotti = cartella.radice() + "/ridotti";
    }
    /// Own small tables; without them the folder of tables is empty.
    void tabella(const std::string& nome, const std::string& contenuto) const {
        std::ofstream(richiesta.ridotti + "/" + nome, std::ios::binary) << contenuto;
    }
    void spedite() { richiesta.ridotti = SUITE_DIR "/ridotti"; }
    Conclusione sviluppa() {
        fs::remove(cartella.file(richiesta.gioco.e_lotto() ? "temp.lot" : "temp.col"));
        Elaborazione lavoro(richiesta, {});
        const Conclusione esito = lavoro.sviluppa();
        righe = lavoro.righe_scritte();
        byte = lavoro.byte_scritti();
        testo = contenuto(lavoro.file_temporaneo());
        return esito;
    }
    Cartella cartella;
    Richiesta richiesta;
    std::int32_t righe = 0;
    std::int64_t byte = 0;
    std::string testo;
};

}  // namespace support
