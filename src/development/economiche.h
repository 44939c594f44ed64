// The economical tables: numbered from 10 on, in no told list, known by what they are proven to
// give.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "crossword/gioco.h"
#include "development/tabella_rigorosa.h"

namespace development {

/// Numbers that an economical table may have. Those below `prima_propria` belong to the suite,
/// which makes them of the guarantee: ten times the numbers guessed and the numbers drawn.
inline constexpr int prima_economica = 10;
inline constexpr int prima_propria = 70;
inline constexpr int ultima_economica = 99;

/// Numbers of a draw that a line can win by.
constexpr int estratti_di(crossword::Gioco gioco) {
    return gioco.e_lotto() ? 5 : 6;
}

/// True for a type number that is an economical table's.
constexpr bool e_economica(int tipo) {
    return tipo >= prima_economica && tipo <= ultima_economica;
}

/// The guarantee that a number below `prima_propria` stands for; nothing when it stands for none
/// that the game could win by.
std::optional<Garanzia> garanzia_del_numero(crossword::Gioco gioco, int numero);

/// Parts of the file name of an economical table, such as "cr1556.rid", its folder ignored; nothing
/// for any other name.
std::optional<NomeTabella> leggi_nome_economico(std::string_view file);

/// The best that a table is sure to give with the numbers that the game draws: the most numbers
/// guessed, and those by the fewest drawn. Nothing for a table that is sure of less than two.
std::optional<Garanzia> garanzia_migliore(const Tabella& tabella, crossword::Gioco gioco);

/// A table as a list offers it.
struct Economica {
    int numero = 0;
    int righe = 0;
    Garanzia garanzia;
    bool operator==(const Economica&) const = default;
};

/// "150 Sestine (3 %) - Min.1(5) con 6 estratti", in the manner of the told types.
std::string testo_economica(const Economica& economica, crossword::Gioco gioco, int n);

/// The economical tables of a folder. Each is proven when it is first met, and again when its bytes
/// have changed.
class Economiche {
public:
    /// Those for lines of `n` numbers that are whole and sure of something, by guarantee and the
    /// cheapest first. `ridotti` is the folder, without a final separator.
    std::vector<Economica> di(const std::string& ridotti, crossword::Gioco gioco, int n);
    /// One of them; nothing when it is missing, damaged or sure of nothing.
    std::optional<Economica> una(const std::string& ridotti, crossword::Gioco gioco, int n,
                                 int numero);

private:
    struct Provata {
        std::string contenuto;
        std::optional<Economica> economica;
    };
    std::map<std::string, Provata> provate_;  ///< by full name
};

}  // namespace development
