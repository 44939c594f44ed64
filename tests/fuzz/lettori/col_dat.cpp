// The number of columns on a slip, and the slips that follow from it.
#include "check/dettaglio.h"
#include "fuzz/ingresso.h"
#include "printing/listati.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("col.dat"));
    ingresso.riempi(dati, quanti);
    const int colonne = printing::colonne_schedina(suite.programma());
    for (const std::int32_t combinazione : {1, 172172, 2147483647})
        fuzz::esigi(check::scheda_di(combinazione, colonne) >= 0);
    return 0;
}
