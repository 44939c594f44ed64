// What stands in a PDF file, told by the tools of poppler.
#pragma once

#include <array>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// What a command writes.
inline std::string esito_comando(const std::string& comando) {
    std::string testo;
    FILE* f = ::popen(comando.c_str(), "r");
    if (f == nullptr) return testo;
    std::array<char, 65536> pezzo{};
    for (std::size_t n = 0; (n = std::fread(pezzo.data(), 1, pezzo.size(), f)) > 0;) {
        testo.append(pezzo.data(), n);
    }
    EXPECT_EQ(::pclose(f), 0) << comando;
    return testo;
}

/// A word with its box, in units of 1/12 by 1/6 inch.
struct Parola {
    std::string testo;
    int pagina = 0;
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
};

/// The words of all pages in the order in which they were drawn.
inline std::vector<Parola> parole(const std::string& nome) {
    std::istringstream righe(esito_comando("pdftotext -raw -bbox '" + nome + "' -"));
    std::vector<Parola> trovate;
    int pagina = 0;
    for (std::string riga; std::getline(righe, riga);) {
        if (riga.find("<page ") != std::string::npos) ++pagina;
        Parola p;
        int inizio = 0;
        const std::size_t word = riga.find("<word ");
        const std::size_t fine = riga.find("</word>");
        if (word == std::string::npos || fine == std::string::npos ||
            std::sscanf(riga.c_str() + word,
                        R"(<word xMin="%lf" yMin="%lf" xMax="%lf" yMax="%lf">%n)", &p.x1, &p.y1,
                        &p.x2, &p.y2, &inizio) != 4) {
            continue;
        }
        const std::size_t testo = word + static_cast<std::size_t>(inizio);
        trovate.push_back(
            {riga.substr(testo, fine - testo), pagina, p.x1 / 6, p.y1 / 12, p.x2 / 6, p.y2 / 12});
    }
    return trovate;
}

/// A line of `pdfinfo`, after its name.
inline std::string notizia(const std::string& nome, const std::string& quale) {
    std::istringstream righe(esito_comando("pdfinfo '" + nome + "'"));
    for (std::string riga; std::getline(righe, riga);) {
        if (riga.starts_with(quale + ":")) return riga.substr(quale.size() + 1);
    }
    ADD_FAILURE() << "not told: " << quale;
    return "0";
}

inline int pagine(const std::string& nome) {
    return std::stoi(notizia(nome, "Pages"));
}

/// Width and height of the first page in points.
inline std::pair<double, double> misura_pagina(const std::string& nome) {
    std::istringstream testo(notizia(nome, "Page size"));
    double largo = 0;
    double alto = 0;
    std::string per;
    testo >> largo >> per >> alto;
    return {largo, alto};
}

/// Grey picture of one page.
struct Immagine {
    int largo = 0;
    int alto = 0;
    std::string dati;
    /// Whether there is ink at a pixel or beside it.
    [[nodiscard]] bool scuro(double x, double y) const {
        constexpr unsigned char soglia = 128;
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                const int px = static_cast<int>(x) + dx;
                const int py = static_cast<int>(y) + dy;
                if (px < 0 || py < 0 || px >= largo || py >= alto) continue;
                const auto i = static_cast<std::size_t>(py) * static_cast<std::size_t>(largo) +
                               static_cast<std::size_t>(px);
                if (static_cast<unsigned char>(dati[i]) < soglia) return true;
            }
        }
        return false;
    }
};

inline Immagine fotografa(const std::string& nome, int pagina, int punti_al_pollice) {
    const std::string numero = std::to_string(pagina);
    const std::string pgm =
        esito_comando("pdftoppm -gray -r " + std::to_string(punti_al_pollice) + " -f " + numero +
                      " -l " + numero + " '" + nome + "' 2>/dev/null");
    Immagine foto;
    std::istringstream testa(pgm);
    std::string segno;
    int massimo = 0;
    testa >> segno >> foto.largo >> foto.alto >> massimo;
    foto.dati = pgm.substr(static_cast<std::size_t>(testa.tellg()) + 1);
    EXPECT_EQ(foto.dati.size(),
              static_cast<std::size_t>(foto.largo) * static_cast<std::size_t>(foto.alto));
    return foto;
}

}  // namespace support
