// Tables of positions, for every size of a combination, and what they make of a line.
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
    development::Elaborazione lavoro(r, {});
    lavoro.elabora({90, 5, 3, 22, 71, 8, 44, 1}, 0);
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
