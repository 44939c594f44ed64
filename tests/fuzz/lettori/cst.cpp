// The price of a column and what is reckoned with it.
#include "fuzz/ingresso.h"
#include "viewer/importo.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("cst"));
    ingresso.riempi(dati, quanti);
    for (const viewer::Lettore lettore : {viewer::Lettore::importo, viewer::Lettore::formeuro}) {
        const viewer::Importo importo = viewer::leggi_cst(suite.programma(), lettore);
        fuzz::esigi(!importo.prezzo.empty());
        for (const std::int32_t colonne : {0, 1, 172172, 2147483647}) {
            const viewer::Totale totale =
                viewer::calcola_totale(colonne, importo.prezzo, importo.valuta);
            // A price beyond all bounds has no text; any other has both.
            fuzz::esigi(totale.formattato.empty() == totale.semplice.empty());
            viewer::quota_da_testo(totale.formattato, "3");
        }
    }
    return 0;
}
