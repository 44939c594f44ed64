// Number and text semantics of the classic run time, in one place.
//
// A conversion that fails returns nothing, and the caller leaves its target as it was.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Value of the longest numeric prefix of `testo`, blanks ignored; 0 when there is none, infinite
/// when no real number is that large, so that every conversion of it fails.
double Val(std::string_view testo);

/// The number that all of `testo` is; nothing for any other text.
std::optional<std::int32_t> numero_intero(std::string_view testo);

/// Decimal text of `valore` with a blank before a number that is not negative.
std::string Str(std::int64_t valore);

/// Whole-number conversions: round half to even, nothing when out of range.
std::optional<std::uint8_t> CByte(double valore);
std::optional<std::int16_t> CInt(double valore);
std::optional<std::int32_t> CLng(double valore);

/// Sets `destinazione` when `esito` holds a value, else leaves it; false when it was left.
template <typename T>
bool assegna(T& destinazione, const std::optional<T>& esito) {
    if (esito) destinazione = *esito;
    return esito.has_value();
}

/// The number formats in use, with Italian signs whatever the locale.
enum class Modello {
    interi,         ///< "###,###": points between thousands, 0 is empty
    decimali,       ///< "###,###.00": two decimals, no zero before the comma
    decimali_zero,  ///< "###,##0.00": two decimals, at least one digit before the comma
};

/// `valore` in the given format, rounded half away from zero on 15 significant digits; empty when
/// infinite.
std::string Format(double valore, Modello modello);

/// `valore` with at least `cifre` significant digits, and no zeros at the end of its decimals: all
/// whole digits with points between thousands, and as many decimals as it takes; "0" for 0, empty
/// when infinite.
std::string Significative(double valore, int cifre);

/// True of a number in Italian signs that is read with a vowel first: 1, 8, 11, 80 and so on, not
/// 1.000.
bool comincia_per_vocale(std::string_view numero);

/// Such a number after its "in": "nel 12,3 %", "nell'8,4 %", "nello 0,3 %".
std::string nel(std::string_view numero);

/// Plain text of a number, up to 15 significant digits, with a decimal comma; empty when infinite.
std::string CStr(double valore);

/// Number shown in a grid cell: the first point is cut, the rest read as a whole number;
/// 0 when it does not fit 32 bits.
std::int32_t leggi_numero(std::string_view testo);

/// `testo` with every `vecchio` replaced by `nuovo`.
std::string Replace(std::string_view testo, char vecchio, char nuovo);

/// `testo` without blanks at both ends.
std::string_view Trim(std::string_view testo);

/// Lower-case form used to compare names: ASCII and the accented letters of Western Europe.
std::string LCase(std::string_view testo);

/// The run time's 24-bit generator; never seeded, so every start gives the same sequence.
class Rnd {
public:
    /// Next state, 0 to 2^24 - 1; the classic value is this divided by 2^24.
    std::uint32_t prossimo() {
        stato_ = (stato_ * 1140671485U + 12820163U) & 0xFFFFFFU;
        return stato_;
    }
    /// Next whole number from 1 to `n`, exactly floor(n * value) + 1.
    std::int32_t fino_a(std::int32_t n) {
        return static_cast<std::int32_t>((static_cast<std::uint64_t>(n) * prossimo()) >> 24) + 1;
    }

private:
    std::uint32_t stato_ = 327680;
};

}  // namespace platform
