#include "platform/ricordi.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>

#include "platform/disk.h"
#include "platform/text_file.h"

namespace platform {

namespace {

constexpr std::size_t finestre_massime = 64;

bool ammesso(std::int32_t valore, std::int32_t da, std::int32_t a) {
    return valore >= da && valore <= a;
}

/// All that the file keeps; a damaged line is passed over.
std::map<std::string, Ricordo> leggi(const std::string& file) {
    constexpr std::int32_t lontano = 32000;
    std::map<std::string, Ricordo> tutti;
    TextReader testo(file, TextReader::testa);
    while (!testo.eof() && tutti.size() < finestre_massime) {
        std::string riga;
        if (!testo.riga(riga)) break;
        std::array<std::int32_t, 7> n{};
        std::size_t letti = 0;
        const std::size_t chiuso = riga.find("\",", 1);
        if (chiuso == std::string::npos || riga.front() != '"') continue;
        std::size_t da = chiuso + 2;
        while (letti < n.size() && da < riga.size()) {
            const std::size_t fine = std::min(riga.find(',', da), riga.size());
            const std::string campo = riga.substr(da, fine - da);
            const std::size_t cifre = campo.starts_with('-') ? 1 : 0;
            const bool intero = campo.size() > cifre && campo.size() < 8 &&
                                campo.find_first_not_of("0123456789", cifre) == std::string::npos;
            if (!intero) break;
            n[letti++] = std::stoi(campo);
            da = fine + 1;
        }
        // The scale came later, and stands only where a window has one.
        const bool buono = letti + 1 >= n.size() && da >= riga.size() &&
                           ammesso(n[0], -lontano, lontano) && ammesso(n[1], -lontano, lontano) &&
                           ammesso(n[2], 1, lontano) && ammesso(n[3], 1, lontano) &&
                           ammesso(n[4], 0, 1) && ammesso(n[5], 0, 1) && ammesso(n[6], 0, 1000);
        if (!buono) continue;
        tutti[riga.substr(1, chiuso - 1)] = {n[0], n[1], n[2], n[3], n[4] == 1, n[5] == 1, n[6]};
    }
    return tutti;
}

}  // namespace

std::optional<Ricordo> ricordo(const std::string& file, const std::string& nome) {
    const auto tutti = leggi(file);
    const auto suo = tutti.find(nome);
    return suo == tutti.end() ? std::nullopt : std::optional(suo->second);
}

bool ricorda(const std::string& file, const std::string& nome,
             const std::optional<Ricordo>& finestra) {
    auto tutti = leggi(file);
    if (finestra) {
        // Of a file that is full another window gives way, or the newest would never be read.
        if (tutti.size() >= finestre_massime && !tutti.contains(nome)) tutti.erase(tutti.begin());
        tutti[nome] = *finestra;
    } else {
        tutti.erase(nome);
    }
    std::string testo;
    for (const auto& [di_chi, r] : tutti) {
        Record riga;
        riga.scrivi(di_chi);
        for (const int n : {r.x, r.y, r.larghezza, r.altezza}) riga.scrivi(std::int64_t{n});
        riga.scrivi(std::int64_t{r.spostata}).scrivi(std::int64_t{r.massima});
        if (r.fattore > 0) riga.scrivi(std::int64_t{r.fattore});
        testo += riga.testo();
    }
    return sostituisci(file, testo) == Esito::ok;
}

}  // namespace platform
