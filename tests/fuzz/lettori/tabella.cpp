// Tables of positions, for every size of a combination, and what they make of a line.
#include <set>
#include <string_view>

#include "development/elaborazione.h"
#include "development/tabelle.h"
#include "fuzz/ingresso.h"
#include "platform/disk.h"

namespace {

void sviluppa(const fuzz::Suite& suite) {
    development::Richiesta r;
    r.matrice = crossword::Matrice(8, 1);
    for (int x = 0; x < 8; ++x) r.matrice.scrivi(x, 0, static_cast<std::int16_t>(90 - x));
    r.cartella = suite.programma();
    r.ridotti = suite.programma();
    r.tipo_colonne = -1;
    r.tipo_diagonali = -1;
    r.senza_ripetizioni = true;
    development::Elaborazione lavoro(r, {});
    fuzz::esigi(lavoro.sviluppa() == development::Conclusione::completa);
    const std::string testo = platform::leggi_tutto(lavoro.file_temporaneo()).value_or("");
    std::set<std::string_view> viste;
    for (std::string_view resto = testo; !resto.empty();) {
        const std::string_view riga = resto.substr(0, resto.find('\n') + 1);
        fuzz::esigi(viste.insert(riga).second);
        resto.remove_prefix(riga.size());
    }
    fuzz::esigi(static_cast<std::size_t>(lavoro.righe_scritte()) == viste.size());
    platform::Kill(lavoro.file_temporaneo());
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("cr0800.rid"));
    const std::string& file = ingresso.riempi(dati, quanti);
    for (int k = 3; k <= 6; ++k) {
        for (const int n : {k, 8, 90}) {
            const development::TabellaPosizioni t = development::leggi_tabella(file, k, n);
            fuzz::esigi(t.letta && t.posizioni.size() % static_cast<std::size_t>(k) == 0);
            for (const std::uint8_t p : t.posizioni) fuzz::esigi(p >= 1 && p <= n);
        }
    }
    sviluppa(suite);
    return 0;
}
