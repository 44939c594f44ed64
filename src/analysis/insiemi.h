// Which sets of numbers stand together in a combination, as rows of bits.
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/giocate.h"

namespace analysis {

/// A set of ranks: rank r is bit r % 64 of word r / 64.
struct Bit {
    std::uint64_t parole[2] = {0, 0};
    void accendi(int rango) { parole[rango >> 6] |= std::uint64_t{1} << (rango & 63); }
    [[nodiscard]] bool acceso(int rango) const {
        return (parole[rango >> 6] >> (rango & 63) & 1) != 0;
    }
    Bit& operator|=(const Bit& altri) {
        parole[0] |= altri.parole[0];
        parole[1] |= altri.parole[1];
        return *this;
    }
    Bit& operator&=(const Bit& altri) {
        parole[0] &= altri.parole[0];
        parole[1] &= altri.parole[1];
        return *this;
    }
    [[nodiscard]] int quanti() const {
        return __builtin_popcountll(parole[0]) + __builtin_popcountll(parole[1]);
    }
};

/// Places of the sets of one to four ascending ranks: those that share all but the last lie side
/// by side, so that a set's place is the start of its beginning plus its last rank.
class Posti {
public:
    /// For sets of at most `massimo` of `n` ranks.
    Posti(int n, int massimo);
    [[nodiscard]] int n() const { return n_; }
    [[nodiscard]] std::size_t quanti(int elementi) const {
        return quanti_[static_cast<std::size_t>(elementi)];
    }
    [[nodiscard]] std::int32_t coppia(int a, int b) const { return inizio_1_[posto(a)] + b; }
    [[nodiscard]] std::int32_t terna(int a, int b, int c) const {
        return inizio_2_[posto(coppia(a, b))] + c;
    }
    [[nodiscard]] std::int32_t quaterna(int a, int b, int c, int d) const {
        return inizio_3_[posto(terna(a, b, c))] + d;
    }
    /// Start of the pairs that begin with the rank, of the triples that begin with the pair, of
    /// the fours that begin with the triple; add the last rank.
    [[nodiscard]] std::int32_t inizio_coppie(int a) const { return inizio_1_[posto(a)]; }
    [[nodiscard]] std::int32_t inizio_terne(std::int32_t coppia) const {
        return inizio_2_[posto(coppia)];
    }
    [[nodiscard]] std::int32_t inizio_quaterne(std::int32_t terna) const {
        return inizio_3_[posto(terna)];
    }

private:
    static std::size_t posto(std::int32_t i) { return static_cast<std::size_t>(i); }
    int n_;
    std::size_t quanti_[5] = {};
    std::vector<std::int32_t> inizio_1_;
    std::vector<std::int32_t> inizio_2_;
    std::vector<std::int32_t> inizio_3_;
};

/// For each set of ranks the larger ranks that make it part of a combination.
class Insiemi {
public:
    /// Rows for the sets of one to `massimo` ranks, at most four.
    Insiemi(const Giocate& giocate, int massimo);
    [[nodiscard]] const Posti& posti() const { return posti_; }
    /// Rows of the sets of so many ranks, by their place; one more may be read past the last.
    [[nodiscard]] const Bit* righe(int elementi) const {
        return righe_[static_cast<std::size_t>(elementi)].data();
    }

private:
    Posti posti_;
    std::vector<Bit> righe_[5];
};

}  // namespace analysis
