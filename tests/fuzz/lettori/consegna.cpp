// The file "trans", which another program hands over.
#include "stampa/consegna.h"

#include <algorithm>

#include "fuzz/ingresso.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.radice() + "trans");
    ingresso.riempi(dati, quanti);
    const schedine::LetturaConsegna l = schedine::leggi_consegna(suite.radice());
    fuzz::esigi(l.consegna.has_value() != l.difetto.has_value());
    if (l.difetto) {
        fuzz::esigi(!l.difetto->motivo.empty() && l.difetto->testo().size() < 200);
        return 0;
    }
    // Never out of the suite, and never a name that a screen cannot show.
    for (const std::string& nome : {l.consegna->programma, l.consegna->sistema}) {
        fuzz::esigi(!nome.empty() && nome.size() <= 255 && nome != "..");
        fuzz::esigi(std::none_of(nome.begin(), nome.end(), [](char c) {
            return c == '/' || static_cast<unsigned char>(c) < ' ';
        }));
    }
    schedine::trova(suite.radice(), *l.consegna);
    return 0;
}
