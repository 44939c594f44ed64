// One list of types: what it shows, and the number that each place stands for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "crossword/tipi.h"
#include "development/economiche.h"

namespace systems {

/// What the lists are filled from.
struct FonteTipi {
    crossword::Gioco gioco;
    std::string ridotti;  ///< folder of the tables, without a final separator
    bool economiche = false;
    development::Economiche* tabelle = nullptr;
};

/// The told types come first, each at the place of its number; behind them the economical tables,
/// which the system file knows by their number alone.
class ListaTipi {
public:
    /// Combinations that an economical table gives a line, and one of the adjacent diagonals.
    struct Conto {
        std::int32_t intere = 0;
        std::optional<std::int32_t> corte;
        bool operator==(const Conto&) const = default;
    };

    /// Fills the list for lines of `n` numbers.
    void carica(const FonteTipi& fonte, crossword::Elenco quale, int n);
    void vuota();
    [[nodiscard]] const std::vector<std::string>& testi() const { return testi_; }
    /// Number of the type at a place; -1 for none.
    [[nodiscard]] int indice(int posto) const;
    /// Place of a type's number; -1 when it is not in the list.
    [[nodiscard]] int posto(int indice) const;
    /// Puts an economical table into a list that has it not: one that is not there says so. False
    /// for a number that is none, and for an empty list.
    bool aggiungi(const FonteTipi& fonte, int indice);
    /// Counts of an economical table; nothing while it cannot be used.
    [[nodiscard]] std::optional<Conto> conto(int indice) const;
    /// File of the table that an economical type lacks, empty when it lacks none.
    [[nodiscard]] std::string mancante(const FonteTipi& fonte, int indice) const;

private:
    struct Voce {
        int indice = 0;
        std::optional<Conto> conto;
    };
    [[nodiscard]] bool con_adiacenti(const FonteTipi& fonte) const;
    void accoda(const FonteTipi& fonte, const development::Economica& economica, bool in_lista);

    crossword::Elenco quale_ = crossword::Elenco::orizzontali;
    int n_ = 0;
    std::vector<std::string> testi_;
    std::vector<Voce> voci_;
};

}  // namespace systems
