// The game that is played and, in Lotto, its form: what differs between them, told once.
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace crossword {

/// SuperEnalotto, or Lotto in a form of so many numbers a combination. A damaged file can name a
/// form that does not exist: it is kept, and plays nothing.
class Gioco {
public:
    /// SuperEnalotto.
    constexpr Gioco() = default;
    static constexpr Gioco superenalotto() { return {}; }
    /// Lotto in terzine (3), quartine (4) or cinquine (5).
    static constexpr Gioco lotto(int forma = 5) { return {true, forma}; }

    [[nodiscard]] constexpr bool e_lotto() const { return lotto_; }
    /// The form as it was given; 5 in SuperEnalotto, which has none.
    [[nodiscard]] constexpr int forma() const { return forma_; }
    /// False for a Lotto form other than 3, 4 and 5.
    [[nodiscard]] constexpr bool valido() const { return !lotto_ || (forma_ >= 3 && forma_ <= 5); }
    /// Numbers of a combination: 6, or the form; 0 for one that does not exist.
    [[nodiscard]] constexpr int numeri() const { return !lotto_ ? 6 : valido() ? forma_ : 0; }
    /// Numbers of a winning combination: six and the Jolly, or five.
    [[nodiscard]] constexpr int estratti() const { return lotto_ ? 5 : 7; }

    /// Smallest and largest side of a crossword.
    [[nodiscard]] constexpr int lato_minimo() const { return lotto_ ? 5 : 6; }
    static constexpr int lato_massimo = 15;
    /// Diagonals that a square crossword is said to have, on the smallest one too.
    [[nodiscard]] constexpr int diagonali() const { return lotto_ ? 2 : 6; }
    /// True when a square crossword of this side develops the adjacent diagonals.
    [[nodiscard]] constexpr bool adiacenti(int lato) const { return !lotto_ && lato >= 7; }

    [[nodiscard]] constexpr const char* estensione_sistema() const {
        return lotto_ ? ".sel" : ".sen";
    }
    [[nodiscard]] constexpr const char* estensione_sviluppo() const {
        return lotto_ ? ".lot" : ".col";
    }
    /// First letters of the names of its tables of positions; empty when it plays nothing.
    [[nodiscard]] constexpr const char* prefisso_tabelle() const {
        if (!lotto_) return "cr";
        return valido() ? forme[posto()].prefisso : "";
    }
    /// "SuperEnalotto" or "Lotto".
    [[nodiscard]] constexpr const char* nome() const { return lotto_ ? "Lotto" : "SuperEnalotto"; }
    /// "Sestine", "Terzine", "Quartine" or "Cinquine"; empty for a form that does not exist.
    [[nodiscard]] constexpr const char* nome_combinazioni() const {
        if (!lotto_) return "Sestine";
        return valido() ? forme[posto()].nome : "";
    }
    /// Caption of the main form.
    [[nodiscard]] std::string titolo() const {
        std::string testo = std::string("Tabellino - ") + nome();
        if (lotto_ && valido()) testo += std::string(" (Sistemi in ") + nome_combinazioni() + ")";
        return testo;
    }

    friend constexpr bool operator==(const Gioco&, const Gioco&) = default;

private:
    struct Forma {
        const char* nome;
        const char* prefisso;
    };
    static constexpr std::array<Forma, 3> forme{
        {{"Terzine", "tr"}, {"Quartine", "qt"}, {"Cinquine", "cn"}}};

    constexpr Gioco(bool lotto, int forma) : lotto_(lotto), forma_(forma) {}
    [[nodiscard]] constexpr std::size_t posto() const {
        return static_cast<std::size_t>(forma_ - 3);
    }
    bool lotto_ = false;
    int forma_ = 5;
};

}  // namespace crossword
