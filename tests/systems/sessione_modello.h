// A plain model of the session, for tests that hold the one against the other.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "crossword/gioco.h"
#include "systems/sessione.h"

namespace modello {

using crossword::Elenco;
using crossword::Gioco;
using systems::Cella;
using systems::Posata;
using systems::Salvataggio;

using Griglia = std::vector<std::vector<int>>;  // column first

/// Rows of a shipped table, but for the one type that is told to count otherwise.
inline int righe_tabella(const Gioco& gioco, int n, int tipo) {
    static std::map<std::string, int> note;
    if (gioco == Gioco::lotto(4) && n == 14 && tipo == 1) return 14;
    const std::string nome = std::string(gioco.prefisso_tabelle()) + (n < 10 ? "0" : "") +
                             std::to_string(n) + "0" + std::to_string(tipo) + ".rid";
    const auto nota = note.find(nome);
    if (nota != note.end()) return nota->second;
    std::ifstream f(SUITE_DIR "/ridotti/" + nome, std::ios::binary);
    const auto righe =
        std::count(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>(), '\n');
    return note[nome] = static_cast<int>(righe);
}

inline int quanti_tipi(const Gioco& gioco, bool diagonali, int n) {
    if (gioco == Gioco::lotto(3)) return 2;
    if (gioco == Gioco::lotto(4)) return n >= 11 ? 3 : 2;
    if (gioco.e_lotto()) return std::min(n - 4, 4);
    const std::array<int, 10> sestine = {1, 2, 3, 5, 4, 5, 6, 5, 5, 8};
    if (n == 7 && diagonali) return 1;
    const int tutti = sestine.at(static_cast<std::size_t>(n - 6));
    return diagonali ? std::min(tutti, 4) : tutti;
}

/// "1.234,50" of hundredths; `zero` keeps a digit before the comma.
inline std::string soldi(std::int64_t centesimi, bool zero) {
    std::string intero = centesimi < 100 && !zero ? "" : std::to_string(centesimi / 100);
    for (int i = static_cast<int>(intero.size()) - 3; i > 0; i -= 3)
        intero.insert(static_cast<std::size_t>(i), ".");
    const std::string resto = std::to_string(100 + centesimi % 100);
    return intero + "," + resto.substr(1);
}

/// What the session should be, by the plainest means.
struct Modello {
    struct Passo {
        Griglia prima;
        Griglia dopo;
        std::map<int, std::pair<int, int>> tipi;
    };
    struct File {
        Griglia celle;
        std::array<int, 3> tipi{};
        Gioco gioco;
        int senza = 0;
    };

    Gioco gioco;
    Griglia celle;
    std::array<int, 3> tipi{};
    int senza = 0;
    int quote = 1;
    int prezzate = 0;
    std::string quota;
    std::string totale_testo;
    std::string nome;
    bool salvato = true;
    std::vector<Passo> passi;
    std::size_t fatti = 0;
    std::map<std::string, File> disco;  // by name and extension
    std::set<std::string> sviluppi;

    [[nodiscard]] int colonne() const { return static_cast<int>(celle.size()); }
    [[nodiscard]] int righe() const { return static_cast<int>(celle[0].size()); }
    [[nodiscard]] bool quadrata() const { return colonne() == righe(); }
    int& cella(int x, int y) {
        return celle[static_cast<std::size_t>(x)][static_cast<std::size_t>(y)];
    }

    /// True when no line through the cell holds the number elsewhere.
    bool ammesso(int x, int y, int numero) {
        const int scarto = colonne() >= 7 ? 1 : 0;
        for (int i = 0; i < colonne(); ++i) {
            for (int j = 0; j < righe(); ++j) {
                if (cella(i, j) != numero || (i == x && j == y)) continue;
                if (i == x || j == y) return false;
                if (!quadrata()) continue;
                if (i - j == x - y && std::abs(x - y) <= scarto) return false;
                if (i + j == x + y && std::abs(x + y - colonne() + 1) <= scarto) return false;
            }
        }
        return true;
    }
    [[nodiscard]] bool completo() const {
        return std::all_of(celle.begin(), celle.end(), [](const auto& colonna) {
            return std::count(colonna.begin(), colonna.end(), 0) == 0;
        });
    }
    [[nodiscard]] int totale() const {
        const int c = colonne();
        const int r = righe();
        int somma = r * righe_tabella(gioco, c, tipi[0]) + c * righe_tabella(gioco, r, tipi[1]);
        if (!quadrata()) return somma;
        somma += 2 * righe_tabella(gioco, c, tipi[2]);
        if (!gioco.e_lotto() && c > 6) somma += 4 * righe_tabella(gioco, c - 1, tipi[2]);
        return somma;
    }
    void prezza(int quante) {
        prezzate = quante;
        const std::int64_t centesimi = 50LL * quante;
        totale_testo = soldi(centesimi, false);
        quota = soldi((2 * centesimi + quote) / (2 * quote), false);
    }
    void ricalcola() {
        salvato = false;
        senza = 0;
        prezza(totale());
    }
    void cambia_quote(int quante) {
        if (quote == quante) return;
        quote = quante;
        // The points of thousands end the value that is divided.
        const std::int64_t centesimi = 50LL * prezzate;
        const std::int64_t millesimi = centesimi >= 100000 ? centesimi / 100 : centesimi * 10;
        quota = soldi((millesimi + 5 * quote) / (10 * quote), true);
    }
    void annota(const Griglia& prima, const std::array<int, 3>& tipi_prima) {
        if (prima.size() != celle.size() || prima[0].size() != celle[0].size()) {
            passi.clear();
            fatti = 0;
            return;
        }
        Passo p{prima, celle, {}};
        for (int i = 0; i < 3; ++i) {
            const auto k = static_cast<std::size_t>(i);
            if (tipi_prima[k] != tipi[k]) p.tipi[i] = {tipi_prima[k], tipi[k]};
        }
        if (p.prima == p.dopo && p.tipi.empty()) return;
        passi.resize(fatti);
        if (passi.size() == 1000) passi.erase(passi.begin());
        passi.push_back(p);
        fatti = passi.size();
    }
    void scrivi(int x, int y, int numero) {
        const Griglia prima = celle;
        cella(x, y) = numero;
        salvato = false;
        annota(prima, tipi);
    }
    void nuovo(int lato) {
        nome.clear();
        griglia(lato, lato);
        senza_passi();
        salvato = true;
    }
    void passa(const Gioco& nuovo_gioco) {
        gioco = nuovo_gioco;
        nuovo(gioco.e_lotto() ? 5 : 6);
        cambia_quote(1);
    }
    void cambia_forma(int forma) {
        if (!gioco.e_lotto()) return;
        if (!nome.empty()) sviluppi.erase(nome + ".lot");
        gioco = Gioco::lotto(forma);
        tipi = {0, 0, quadrata() ? 0 : -1};
        ricalcola();
        // The types of the steps were others.
        std::vector<Passo> restanti;
        std::size_t prima = 0;
        for (std::size_t i = 0; i < passi.size(); ++i) {
            passi[i].tipi.clear();
            if (passi[i].prima == passi[i].dopo) continue;
            if (i < fatti) ++prima;
            restanti.push_back(passi[i]);
        }
        passi = restanti;
        fatti = prima;
    }
    [[nodiscard]] std::string su_disco() const { return nome + gioco.estensione_sviluppo(); }
    void salva() {
        disco[nome + gioco.estensione_sistema()] = {celle, tipi, gioco, senza};
        salvato = true;
    }
    void apri(const std::string& quale) {
        const File f = disco.at(quale + gioco.estensione_sistema());
        // The one in line loses its Lotto development to the choice of the form.
        cambia_forma(f.gioco.forma());
        celle = f.celle;
        tipi = f.tipi;
        ricalcola();
        senza = f.senza;
        prezza(senza);
        nome = quale;
        senza_passi();
        salvato = true;
    }
    void senza_passi() {
        passi.clear();
        fatti = 0;
    }
    void griglia(int c, int r) {
        const Griglia prima = celle;
        const std::array<int, 3> tipi_prima = tipi;
        celle.assign(static_cast<std::size_t>(c), std::vector<int>(static_cast<std::size_t>(r)));
        tipi = {0, 0, c == r ? 0 : -1};
        ricalcola();
        annota(prima, tipi_prima);
    }
};

}  // namespace modello
