// Reduced tables read strictly: names, rows with their errors, files of further guarantees.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace development {

/// A set of positions, position i being bit i - 1.
using Maschera = std::uint64_t;

/// Largest position and longest row that a table under proof may have.
inline constexpr int posizione_massima = 64;
inline constexpr int riga_massima = 20;

/// The parts of a table's file name.
struct NomeTabella {
    std::string prefisso;  ///< "cr", "tr", "qt" or "cn"
    int n = 0;
    int tipo = 0;
    /// Numbers in a row, which the prefix decides.
    [[nodiscard]] int k() const;
    /// "cr0904", without the extension.
    [[nodiscard]] std::string testo() const;
};

/// Parts of a file name, its folder ignored; nothing when it does not follow the scheme.
std::optional<NomeTabella> leggi_nome(std::string_view file);
/// The names of every "Integrale" table, in order of game and length.
std::vector<NomeTabella> nomi_integrali();

/// A proven shape: rows of k ascending positions from 1 to n, no row twice.
struct Tabella {
    int n = 0;
    int k = 0;
    std::vector<Maschera> righe;
};

/// The set of one position.
inline Maschera bit_di(int posizione) {
    return Maschera{1} << (posizione - 1);
}

/// Calls `f` with every set of `p` of the positions 1 to `n`, in lexicographic order.
template <typename F>
void per_ogni_gruppo(int n, int p, const F& f) {
    if (p < 0 || p > n) return;
    std::vector<int> scelte(static_cast<std::size_t>(p));
    Maschera gruppo = 0;
    for (int i = 0; i < p; ++i) {
        scelte[static_cast<std::size_t>(i)] = i + 1;
        gruppo |= bit_di(i + 1);
    }
    while (true) {
        f(gruppo);
        int i = p - 1;
        while (i >= 0 && scelte[static_cast<std::size_t>(i)] == n - p + i + 1) --i;
        if (i < 0) return;
        int prossima = scelte[static_cast<std::size_t>(i)] + 1;
        for (; i < p; ++i) {
            gruppo ^= bit_di(scelte[static_cast<std::size_t>(i)]);
            scelte[static_cast<std::size_t>(i)] = prossima++;
        }
        for (int j = 0; j < p; ++j) gruppo |= bit_di(scelte[static_cast<std::size_t>(j)]);
    }
}

/// All rows of k positions of 1 to n, in lexicographic order.
Tabella integrale(int n, int k);
/// The positions of a set, comma-separated.
std::string posizioni(Maschera maschera);
/// The file of a table: a row a line, CR LF.
std::string testo_tabella(const Tabella& tabella);

/// Something wrong in a line of a file, counted from 1.
struct ErroreRiga {
    int riga = 0;
    std::string testo;
};

/// Outcome of a strict reading; the table is whole only when there are no errors.
struct Lettura {
    Tabella tabella;
    std::vector<ErroreRiga> errori;
    std::vector<ErroreRiga> avvisi;
};

/// Reads the text of a table. A `n` of 0 takes the largest position found, a `k` of 0 the length
/// of the first row.
Lettura leggi_rigorosa(std::string_view contenuto, int n, int k);

/// With p of the n numbers drawn, at least `righe` rows hold t of them or more; with `oppure`,
/// `righe` rows hold t or one holds more.
struct Garanzia {
    int p = 0;
    int t = 0;
    int righe = 1;
    bool oppure = false;
    bool operator==(const Garanzia&) const = default;
};

/// What the table of that name is sold to give; nothing for a name that is in no list.
std::optional<Garanzia> garanzia_dichiarata(const NomeTabella& nome);
/// Reads "p:t" or "p:t:righe".
std::optional<Garanzia> leggi_garanzia(std::string_view testo);

/// One line of the list of further guarantees.
struct GaranziaDiTabella {
    std::string tabella;
    Garanzia garanzia;
};
/// Reads the list (header, then table,p,t,rows,or_one_row_higher), whose last column set to 1
/// means one row more than the fourth column says, or one row of t + 1.
struct ElencoGaranzie {
    std::vector<GaranziaDiTabella> voci;
    std::vector<ErroreRiga> errori;
};
ElencoGaranzie leggi_elenco(std::string_view contenuto);

}  // namespace development
