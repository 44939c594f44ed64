// Developments as the check, the viewer and the listing read them: field by field.
#include "check/dettaglio.h"
#include "check/spoglio.h"
#include "fuzz/ingresso.h"
#include "viewer/indice.h"

namespace {

void spoglia(const std::string& file, crossword::Gioco gioco) {
    check::RichiestaSpoglio r;
    r.file = file;
    r.combinazioni = 300;
    r.gioco = gioco;
    r.vincente = {90, 1, 2, 3, 4, 5, 6};
    const auto avanti = [](std::int32_t) { return true; };
    check::Spoglio spoglio;
    fuzz::esigi(spoglio.conta(r, avanti));
    fuzz::esigi(spoglio.quante() <= 300);
    check::Dettaglio dettaglio;
    fuzz::esigi(dettaglio.aggiungi(r, spoglio, 3, avanti));
    fuzz::esigi(dettaglio.righe() == spoglio.quante());
    dettaglio.ordina(check::colonna_punti, check::Verso::decrescente);
    dettaglio.ordina(check::colonna_chiave, check::Verso::decrescente);
    for (int c = 0; dettaglio.righe() > 0 && c < check::colonne_dettaglio; ++c)
        fuzz::esigi(dettaglio.testo(dettaglio.righe() - 1, c).size() < 20);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("x.col"));
    const std::string& file = ingresso.riempi(dati, quanti);
    spoglia(file, crossword::Gioco::superenalotto());
    for (int numeri = 3; numeri <= 5; ++numeri) spoglia(file, crossword::Gioco::lotto(numeri));
    for (int numeri = 0; numeri <= 7; ++numeri) {
        std::int64_t posizione = 1;
        for (int pagina = 0; pagina < 3; ++pagina) {
            const viewer::Pagina letta = viewer::leggi_pagina(file, posizione, numeri);
            fuzz::esigi(letta.righe.size() <= viewer::righe_pagina);
            if (!letta.seguente) break;
            fuzz::esigi(*letta.seguente >= posizione &&
                        *letta.seguente <= static_cast<std::int64_t>(quanti) + 1);
            posizione = *letta.seguente;
        }
    }
    return 0;
}
