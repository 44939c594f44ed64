#include "platform/codepage.h"

#include <array>
#include <cstdint>

namespace platform {

namespace {

// Bytes 0x80 to 0x9F; the rest of the code page is Latin-1.
constexpr std::array<char16_t, 32> alti = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

void aggiungi_utf8(std::string& testo, std::uint32_t c) {
    if (c < 0x80) {
        testo.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        testo.push_back(static_cast<char>(0xC0 | (c >> 6)));
        testo.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        testo.push_back(static_cast<char>(0xE0 | (c >> 12)));
        testo.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        testo.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

/// Reads one character at `i` and moves `i` past it; 0xFFFD when it is no UTF-8.
std::uint32_t leggi_utf8(std::string_view testo, std::size_t& i) {
    const auto primo = static_cast<unsigned char>(testo[i++]);
    if (primo < 0x80) return primo;
    const int seguito = primo >= 0xF0 ? 3 : primo >= 0xE0 ? 2 : primo >= 0xC0 ? 1 : 0;
    if (seguito == 0 || primo > 0xF4) return 0xFFFD;
    std::uint32_t c = primo & (0x3FU >> seguito);
    for (int k = 0; k < seguito; ++k) {
        if (i >= testo.size() || (static_cast<unsigned char>(testo[i]) & 0xC0) != 0x80) {
            return 0xFFFD;
        }
        c = (c << 6) | (static_cast<unsigned char>(testo[i++]) & 0x3FU);
    }
    // A longer form than needed could smuggle in a quote or a line end.
    constexpr std::array<std::uint32_t, 4> minimo = {0, 0x80, 0x800, 0x10000};
    return c < minimo[static_cast<std::size_t>(seguito)] ? 0xFFFD : c;
}

/// Controls, invisible marks of direction and ends of lines.
bool comanda(std::uint32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x61C || (c >= 0x200E && c <= 0x200F) ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) ||
           (c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF;
}

char byte_di(std::uint32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    for (std::size_t k = 0; k < alti.size(); ++k) {
        if (c != 0xFFFD && alti[k] == c) return static_cast<char>(0x80 + k);
    }
    return '?';
}

}  // namespace

std::string da_cp1252(std::string_view byte) {
    std::string testo;
    testo.reserve(byte.size());
    for (const char carattere : byte) {
        const auto c = static_cast<unsigned char>(carattere);
        aggiungi_utf8(testo, (c >= 0x80 && c < 0xA0) ? alti[c - 0x80U] : c);
    }
    return testo;
}

std::string a_cp1252(std::string_view utf8) {
    std::string byte;
    byte.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) byte.push_back(byte_di(leggi_utf8(utf8, i)));
    return byte;
}

std::string mostrabile(std::string_view utf8) {
    constexpr std::string_view cifre = "0123456789ABCDEF";
    constexpr std::string_view sostituto = "\xEF\xBF\xBD";
    std::string testo;
    testo.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const std::size_t inizio = i;
        const std::uint32_t c = leggi_utf8(utf8, i);
        const std::string_view pezzo = utf8.substr(inizio, i - inizio);
        if (!comanda(c) && (c != 0xFFFD || pezzo == sostituto)) {
            testo += pezzo;
            continue;
        }
        for (const char byte : pezzo) {
            const auto b = static_cast<unsigned char>(byte);
            testo += {'\\', 'x', cifre[b >> 4U], cifre[b & 0xFU]};
        }
    }
    return testo;
}

}  // namespace platform
