// A table of the archive held in memory, four bytes a value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/data.h"

namespace platform {

/// What a field holds: null, a whole number, a text or a day.
class Valore {
public:
    Valore() = default;
    explicit Valore(std::int32_t numero) : valore_(numero) {}
    explicit Valore(std::string testo) : valore_(std::move(testo)) {}
    explicit Valore(Data data) : valore_(data) {}

    [[nodiscard]] bool nullo() const { return valore_.index() == 0; }
    /// The number, or the one that a text holds; nothing for a null, a day or another text.
    [[nodiscard]] std::optional<std::int32_t> intero() const;
    /// The value as text, a day as dd/mm/yyyy; nothing for a null.
    [[nodiscard]] std::optional<std::string> testo() const;
    [[nodiscard]] std::optional<Data> data() const;

    bool operator==(const Valore&) const = default;

private:
    std::variant<std::monostate, std::int32_t, std::string, Data> valore_;
};

/// Filled once, column by column or row by row, then only read.
class Table {
public:
    enum class Tipo : std::uint8_t { intero, testo, data };

    /// A column of rows still to come, or of as many nulls as there are rows.
    void aggiungi_colonna(std::string nome, Tipo tipo);
    /// Rows that will come, to take their memory once.
    void riserva(std::size_t righe);
    void accoda_nullo(std::size_t colonna);
    /// A number, or the days of a date.
    void accoda(std::size_t colonna, std::int32_t valore);
    void accoda(std::size_t colonna, std::string_view testo);
    /// Changes the type of a column that holds only nulls so far.
    void cambia_tipo(std::size_t colonna, Tipo tipo) { colonne_[colonna].tipo = tipo; }

    /// True once it holds more than any archive does; a reader stops there.
    [[nodiscard]] bool piena() const { return byte_ > byte_massimi; }

    [[nodiscard]] std::size_t righe() const {
        return colonne_.empty() ? 0 : colonne_.front().valori.size();
    }
    [[nodiscard]] std::size_t colonne() const { return colonne_.size(); }
    [[nodiscard]] const std::string& nome(std::size_t colonna) const {
        return colonne_[colonna].nome;
    }
    [[nodiscard]] Tipo tipo(std::size_t colonna) const { return colonne_[colonna].tipo; }
    /// Position of a column by its name, case ignored.
    [[nodiscard]] std::optional<std::size_t> colonna(std::string_view nome) const;

    [[nodiscard]] bool nullo(std::size_t colonna, std::size_t riga) const {
        const std::vector<bool>& nulli = colonne_[colonna].nulli;
        return riga < nulli.size() && nulli[riga];
    }
    /// The stored number: the value, the days, or the position among `testi`.
    [[nodiscard]] std::int32_t grezzo(std::size_t colonna, std::size_t riga) const {
        return colonne_[colonna].valori[riga];
    }
    /// The different texts of a column.
    [[nodiscard]] const std::vector<std::string>& testi(std::size_t colonna) const {
        return colonne_[colonna].testi;
    }
    [[nodiscard]] Valore valore(std::size_t colonna, std::size_t riga) const;

    /// All rows ascending by a column, nulls first, texts without case; equal ones stay as they
    /// are.
    [[nodiscard]] std::vector<std::uint32_t> in_ordine(std::size_t colonna) const;

private:
    struct Colonna {
        std::string nome;
        Tipo tipo = Tipo::intero;
        std::vector<std::int32_t> valori;
        std::vector<bool> nulli;  ///< as long as the last null needs
        std::vector<std::string> testi;
        std::map<std::string, std::int32_t, std::less<>> posti;
    };
    static constexpr std::size_t byte_massimi = std::size_t{64} << 20;

    std::vector<Colonna> colonne_;
    std::size_t byte_ = 0;  ///< about what the values take
};

}  // namespace platform
