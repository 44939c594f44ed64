// Which column is which, where no names tell it: decided from all the lines, or not at all.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "campi.h"

namespace importazione {

/// A SuperEnalotto line whose day is in the field `data`, with the number of the draw in the field
/// before or after it or without one: six numbers, Jolly and SuperStar follow.
Colonne a_posti(std::size_t data, bool con_numero);

/// Reads the numbers of a line; the reason why it is none, else empty.
std::string leggi_sestina(const Campi& campi, const Colonne& dove, Sestina& sestina);

/// What a line says of its columns; the first number after the day is looked at in both ways.
class Indizi {
public:
    /// A line that begins with its day.
    void aggiungi(const Data& data, const Campi& campi);

    /// True when a line is a draw in one way at least.
    [[nodiscard]] bool sane() const { return !righe_.empty(); }

    enum class Primo { numero, estratto, indeciso };
    /// What the first number after the day is: the draw's number or one drawn. Decided where the
    /// other way is impossible, or less likely than one in a million.
    [[nodiscard]] Primo primo() const;

private:
    struct Riga {
        Data data;
        std::int32_t primo = 0;
        bool da_numero = false;    ///< a sound draw when the first number counts the draws
        bool da_estratto = false;  ///< a sound draw when it was drawn
        bool per_forza = false;    ///< it can have been drawn in no way
        bool ordine_numero = false;
        bool ordine_estratto = false;
    };
    std::vector<Riga> righe_;
};

/// What a column after the six numbers is when it stands there alone, Jolly or SuperStar.
class UltimaColonna {
public:
    void aggiungi(const Data& data, const Campi& campi, const Colonne& dove);
    /// False when it may well be the SuperStar.
    [[nodiscard]] bool jolly() const;

private:
    bool sola_ = true;
    bool prima_del_superstar_ = false;
    std::size_t numeri_ = 0;
    std::size_t ripetuti_ = 0;
};

/// True for numbers, each with its day, that go up one by one or begin anew with the year.
bool si_susseguono(std::vector<std::pair<Data, std::int32_t>> numeri);

}  // namespace importazione
