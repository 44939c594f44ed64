// All tables of positions for lines of one length, told and economical, as they are compared.
#pragma once

#include <string>
#include <vector>

#include "analysis/relazione.h"
#include "crossword/gioco.h"
#include "development/tabella_rigorosa.h"

namespace analysis {

/// One table, whole and read.
struct TabellaInCatalogo {
    std::string nome;  ///< of the file, without the extension
    std::string tipo;  ///< as the lists have it
    development::Tabella tabella;
    development::Garanzia garanzia;
};

/// The tables of a folder for one game and length; those that are damaged are left out.
class Catalogo {
public:
    /// `ridotti` is the folder, without a final separator. Empty for a game that plays nothing.
    Catalogo(const std::string& ridotti, crossword::Gioco gioco, int n);

    [[nodiscard]] const std::vector<TabellaInCatalogo>& tabelle() const { return tabelle_; }
    /// Columns that the cheapest table sure of the same would spare; 0 when there is none cheaper.
    [[nodiscard]] int risparmio(const TabellaInCatalogo& tabella) const;
    /// Guarantee, columns, share of the full system and what could be spared, a row a table.
    [[nodiscard]] Tavola tavola() const;
    /// In how many cases on a hundred each result is the best, by numbers drawn. `quale` is a
    /// place.
    [[nodiscard]] Tavola vincite(std::size_t quale) const;
    /// Proves the guarantee over every possible draw, and says what came of it.
    [[nodiscard]] std::string prova(std::size_t quale) const;

private:
    crossword::Gioco gioco_;
    int n_ = 0;
    std::vector<TabellaInCatalogo> tabelle_;
};

}  // namespace analysis
