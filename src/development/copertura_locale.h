// Weighted local search for a cheap set of columns that covers all rows.
#pragma once

#include <atomic>
#include <cstdint>
#include <utility>
#include <vector>

namespace development {

/// Rows to be covered and columns that cover them. Rows and columns may each stand for several
/// things at once: `peso_riga` and `costo` say how many.
struct Incidenza {
    std::vector<std::uint32_t> inizio_colonna{0};  ///< one more than columns
    std::vector<std::uint32_t> righe;              ///< rows of each column
    std::vector<std::uint32_t> inizio_riga;        ///< one more than rows
    std::vector<std::uint32_t> colonne;            ///< columns of each row
    std::vector<std::int32_t> costo;               ///< by column
    std::vector<std::int32_t> peso_riga;           ///< by row
    /// Where rows and columns are sets: a column covers the rows that have at most `fuori` members
    /// more, and two rows have a column in common only when they share `comuni` of theirs. Empty
    /// where the lists alone tell.
    std::vector<std::uint32_t> insieme_riga;
    std::vector<std::uint32_t> insieme_colonna;
    int fuori = 0;
    int comuni = 0;
    /// Plain pointers: the walk goes through these all the time.
    struct Fila {
        const std::uint32_t* primo;
        const std::uint32_t* oltre;
        [[nodiscard]] const std::uint32_t* begin() const { return primo; }
        [[nodiscard]] const std::uint32_t* end() const { return oltre; }
    };
    [[nodiscard]] Fila righe_di(std::uint32_t colonna) const {
        return {righe.data() + inizio_colonna[colonna], righe.data() + inizio_colonna[colonna + 1]};
    }
    [[nodiscard]] Fila colonne_di(std::uint32_t riga) const {
        return {colonne.data() + inizio_riga[riga], colonne.data() + inizio_riga[riga + 1]};
    }
    [[nodiscard]] std::size_t quante_righe() const { return peso_riga.size(); }
    [[nodiscard]] std::size_t quante_colonne() const { return costo.size(); }
    /// Fills the columns of each row from the rows of each column.
    void trasponi();
};

/// Random numbers that are the same everywhere.
class Sorte {
public:
    explicit Sorte(std::uint64_t seme) : stato_(seme * 0x9E3779B97F4A7C15ULL + 0x1234567ULL) {}
    std::uint64_t prossimo() {
        stato_ += 0x9E3779B97F4A7C15ULL;
        std::uint64_t z = stato_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    /// From 0 to `n` - 1.
    std::uint32_t fino_a(std::uint32_t n) {
        return static_cast<std::uint32_t>((prossimo() >> 32) * n >> 32);
    }

private:
    std::uint64_t stato_;
};

/// A walk holds no more columns at a time; a cover that wants more is not found.
inline constexpr std::size_t colonne_tenute = 32768;

/// Drops the column whose loss weighs least, adds the best one for a row left uncovered, and
/// makes all rows that stay uncovered weigh more. Owned by one thread.
class CoperturaLocale {
public:
    /// `costo_fisso` 0 looks for the cheapest cover; otherwise for sets of that cost at most that
    /// leave the least uncovered. `incidenza` outlives this.
    CoperturaLocale(const Incidenza& incidenza, std::uint64_t seme, std::int64_t costo_fisso);

    /// Where it says so, a walk ends after the swap in work; null for never.
    void ascolta(const std::atomic<bool>* fermo) { fermo_ = fermo; }

    /// Puts the columns in, and drops nothing.
    void parti_da(const std::vector<std::uint32_t>& colonne);
    /// So many swaps; true when something better than `migliore` was found, and the walk stops
    /// there. With `limite`, nothing at or under that cost is looked for.
    bool passi(std::uint64_t quanti, std::int64_t limite);
    [[nodiscard]] const std::vector<std::uint32_t>& migliore() const { return migliore_; }
    [[nodiscard]] std::int64_t costo_migliore() const { return costo_migliore_; }
    [[nodiscard]] std::int64_t scoperto_migliore() const { return scoperto_migliore_; }
    [[nodiscard]] std::uint64_t fatti() const { return ora_; }

private:
    void aggiungi_posti();
    [[nodiscard]] bool pieno() const { return vuoti_.empty() && dentro_.size() >= colonne_tenute; }
    void metti(std::uint32_t colonna);
    void togli(std::uint32_t posto);
    void completa();
    [[nodiscard]] std::uint32_t da_togliere();
    [[nodiscard]] std::uint32_t da_mettere(std::uint32_t riga);
    void stima(std::uint32_t riga);
    void appesantisci();
    void alleggerisci();
    bool annota();
    bool passo();

    const Incidenza& i_;
    Sorte sorte_;
    bool a_costi_ = false;
    std::int64_t costo_fisso_ = 0;
    std::int64_t costo_ = 0;
    std::int64_t scoperto_ = 0;
    std::uint64_t ora_ = 0;
    using Posto = std::uint16_t;
    struct Riga {
        std::int32_t peso = 0;
        Posto quante = 0;  ///< columns in that cover it
        Posto chi = 0;     ///< their places, folded by exclusive or
    };
    // Of the columns of the row in hand.
    std::vector<std::int32_t> guadagno_;
    std::vector<std::uint32_t> insieme_;
    std::vector<std::int32_t> somma_;    ///< by column, right where it was just made
    std::vector<std::uint64_t> mossa_;   ///< when it last went out
    std::vector<std::uint64_t> libera_;  ///< from when it may go in again
    /// A column that goes in takes a place and keeps it, and one that goes out leaves it empty.
    std::vector<std::uint32_t> dentro_;
    std::vector<std::int32_t> perdita_;  ///< of the column of each place
    std::vector<std::uint64_t> entrata_;
    std::vector<std::int32_t> minimi_;
    std::vector<std::uint32_t> vuoti_;
    std::vector<Riga> righe_;
    std::int64_t peso_totale_ = 0;
    std::vector<std::uint32_t> posto_scoperta_;
    std::vector<std::uint32_t> scoperte_;
    std::vector<std::uint32_t> migliore_;
    std::int64_t costo_migliore_ = 0;
    std::int64_t scoperto_migliore_ = 0;
    std::uint32_t ultimo_ = 0;  ///< place filled last
    const std::atomic<bool>* fermo_ = nullptr;
};

}  // namespace development
