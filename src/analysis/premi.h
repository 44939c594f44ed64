// The prizes that the player types, kept in a small file of the program folder.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/medie.h"
#include "crossword/gioco.h"

namespace analysis {

/// A result of a combination that can be paid.
struct Categoria {
    std::string chiave;  ///< "2" to "6", or "5+1"
    std::string nome;    ///< as the player knows it: "5 + 1", "ambo"
    int punti = 0;
    bool con_jolly = false;

    /// What it has in averages and in prizes.
    [[nodiscard]] double media(const Medie& medie) const;
    [[nodiscard]] double premio(const Premi& premi) const;
    [[nodiscard]] double& premio(Premi& premi) const;
};

/// The categories of the game, the highest first: SuperEnalotto from 6 to 2, a form of Lotto from
/// what a whole combination makes to the ambo.
std::vector<Categoria> categorie(crossword::Gioco gioco);

/// Price of a combination in Euro, whatever the currency that the program folder keeps it in.
double prezzo_in_euro(const std::string& cartella);

/// Prize in Euro from a text such as "25" or "25,40": up to ten digits and two decimals; nothing
/// for any other text.
std::optional<double> leggi_premio(std::string_view testo);
/// The same as text, empty for none.
std::string testo_premio(double premio);

/// Prizes kept for the game; a line of the file that is none is passed over.
Premi leggi_premi(const std::string& cartella, crossword::Gioco gioco);
/// Keeps those of the game beside those of the others; false when the disk refused.
bool scrivi_premi(const std::string& cartella, crossword::Gioco gioco, const Premi& premi);

}  // namespace analysis
