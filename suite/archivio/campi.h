// A line of a file taken apart, and what its columns are called.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "contenuto.h"

namespace importazione {

using Campi = std::vector<std::string>;

/// Fields of a line, trimmed and without quotes, between tabs, semicolons or commas.
Campi campi(std::string_view riga);

/// True when an unaccented letter stands in the text.
bool ha_lettere(std::string_view testo);
/// A whole number without a sign, zeros before it allowed.
std::optional<std::int32_t> intero(std::string_view testo);
/// A day as yyyy-mm-dd, yyyy/mm/dd, yyyymmdd or dd/mm/yyyy, also with points.
std::optional<Data> leggi_data(std::string_view testo);
/// True for a day written as mm/dd/yyyy that can be nothing else.
bool mese_prima_del_giorno(std::string_view testo);

/// Where the parts of a draw stand in a line, as positions of fields.
struct Colonne {
    std::optional<std::size_t> data;
    std::optional<std::size_t> numero;  ///< the number of the draw
    std::optional<std::size_t> ruota;
    std::vector<std::size_t> estratti;  ///< in the order of the draw; empty when not known
    std::optional<std::size_t> jolly;
    std::optional<std::size_t> superstar;
    /// Bears a name nobody knows, beside the day: it may count the draws.
    std::optional<std::size_t> ignota;
    std::size_t quante = 0;  ///< fields that a line can have
};

/// The names of a file's columns.
struct Intestazione {
    Colonne colonne;
    std::string errore;  ///< why the names do not tell where the numbers stand; empty when they do
};

/// Takes a line for names of columns when it names the day or all the numbers.
std::optional<Intestazione> leggi_intestazione(const Campi& nomi);

}  // namespace importazione
