// What the reader of Jet files writes to its standard output, in the machine's own byte order:
// the table's head, its rows, the end; or, at any place, an error.
#pragma once

#include <cstdint>

namespace protocollo {

/// 'T', u32 rows, u16 columns; for each column u8 type, u16 length and name in UTF-8.
inline constexpr char testa = 'T';
/// 'R' and for each column u8 0 for a null, or 1 and i32 (number, days) or u16 length and UTF-8.
inline constexpr char riga = 'R';
/// 'F', u32 rows written.
inline constexpr char fine = 'F';
/// 'E', u8 reason.
inline constexpr char errore = 'E';

enum class Tipo : std::uint8_t { intero, testo, data };
enum class Motivo : std::uint8_t { formato = 1, tabella_assente, danneggiato, lettore_assente };

}  // namespace protocollo
