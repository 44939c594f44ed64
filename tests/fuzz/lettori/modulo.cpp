// The file that tells the places of a player's slip.
#include "fuzz/ingresso.h"
#include "stampa/geometria.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("x.mod"));
    static fuzz::Ingresso riscritto(suite.file("y.mod"));
    schedine::Modulo m;
    if (const auto difetto = schedine::leggi_modulo(ingresso.riempi(dati, quanti), m)) {
        fuzz::esigi(!difetto->motivo.empty() && difetto->testo().size() < 200);
        return 0;
    }
    fuzz::esigi(!schedine::verifica(m));
    const schedine::Punto foglio = schedine::foglio_stampato(m);
    const std::vector<schedine::Colonna> colonne(m.pannelli.size(), {1, 2, 45, 46, 89, 90});
    for (const auto& p : schedine::segni(m, colonne, {{0, 10}, 100}))
        fuzz::esigi(p.x > 0 && p.y > 0 && p.x < foglio.x && p.y < foglio.y);
    schedine::Modulo riletto;
    fuzz::esigi(!schedine::leggi_modulo(riscritto.riempi(schedine::testo_modulo(m)), riletto));
    fuzz::esigi(riletto == m);
    return 0;
}
