// What an elaboration with "Integrale" everywhere must leave, worked out from the numbers on the
// screen without the program's own routines.
#pragma once

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace support {

/// Column first, as on the screen.
using Griglia = std::vector<std::vector<int>>;

inline void combinazioni(std::vector<int> linea, std::size_t k, std::vector<std::string>& righe) {
    std::sort(linea.begin(), linea.end());
    if (k == 0 || linea.size() < k) return;
    std::vector<std::size_t> scelti(k);
    for (std::size_t i = 0; i < k; ++i) scelti[i] = i;
    while (true) {
        std::string riga;
        for (const std::size_t i : scelti) {
            riga += (riga.empty() ? "" : ",") + std::to_string(linea[i]);
        }
        righe.push_back(riga);
        std::size_t i = k;
        while (i > 0 && scelti[i - 1] == linea.size() - k + i - 1) --i;
        if (i == 0) return;
        ++scelti[i - 1];
        for (std::size_t j = i; j < k; ++j) scelti[j] = scelti[j - 1] + 1;
    }
}

/// Lines of the grid in the order of development: rows, falling diagonals, columns, rising ones.
inline std::vector<std::vector<int>> linee(const Griglia& m, bool adiacenti) {
    const int c = static_cast<int>(m.size());
    const int r = static_cast<int>(m.front().size());
    const auto v = [&m](int x, int y) {
        return m[static_cast<std::size_t>(x)][static_cast<std::size_t>(y)];
    };
    std::vector<std::vector<int>> tutte;
    const auto scorri = [&](auto tiene, bool per_colonne) {
        std::vector<int> linea;
        for (int i = 0; i < (per_colonne ? c : r); ++i) {
            for (int j = 0; j < (per_colonne ? r : c); ++j) {
                const int x = per_colonne ? i : j;
                const int y = per_colonne ? j : i;
                if (tiene(x, y)) linea.push_back(v(x, y));
            }
        }
        tutte.push_back(linea);
    };
    const bool vicine = adiacenti && c >= 7;
    for (int y0 = 0; y0 < r; ++y0) scorri([=](int, int y) { return y == y0; }, false);
    if (c == r) {
        scorri([](int x, int y) { return x == y; }, false);
        if (vicine) {
            scorri([](int x, int y) { return x == y + 1; }, false);
            scorri([](int x, int y) { return x == y - 1; }, false);
        }
    }
    for (int x0 = 0; x0 < c; ++x0) scorri([=](int x, int) { return x == x0; }, true);
    if (c == r) {
        const int n = c - 1;
        scorri([=](int x, int y) { return x + y == n; }, true);
        if (vicine) {
            scorri([=](int x, int y) { return x + y == n - 1; }, true);
            scorri([=](int x, int y) { return x + y == n + 1; }, true);
        }
    }
    return tutte;
}

inline std::vector<std::string> sviluppo_integrale(const Griglia& m, std::size_t k,
                                                   bool adiacenti) {
    std::vector<std::string> righe;
    for (const std::vector<int>& linea : linee(m, adiacenti)) combinazioni(linea, k, righe);
    return righe;
}

inline std::vector<std::string> senza_ripetizioni(const std::vector<std::string>& righe) {
    std::vector<std::string> uniche;
    std::set<std::string> viste;
    for (const std::string& riga : righe) {
        if (viste.insert(riga).second) uniche.push_back(riga);
    }
    return uniche;
}

/// Bytes of a file of these lines.
inline std::string come_file(const std::vector<std::string>& righe) {
    std::string testo;
    for (const std::string& riga : righe) testo += riga + "\r\n";
    return testo;
}

/// Bytes of a system file.
inline std::string come_sistema(const std::string& testata, const Griglia& m) {
    std::string testo = testata + "\r\n";
    for (std::size_t y = 0; y < m.front().size(); ++y) {
        for (const std::vector<int>& colonna : m) testo += std::to_string(colonna[y]) + ",";
        testo += "\r\n";
    }
    return testo;
}

}  // namespace support
