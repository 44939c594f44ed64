// System files of both games, read whole, for their count alone and for the list.
#include <algorithm>

#include "fuzz/ingresso.h"
#include "systems/elenco.h"
#include "systems/file_sistema.h"

using crossword::Gioco;

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso superenalotto(suite.file("x.sen"));
    static fuzz::Ingresso lotto(suite.file("x.sel"));
    static fuzz::Ingresso riletto(suite.file("y.sel"));
    superenalotto.riempi(dati, quanti);
    lotto.riempi(dati, quanti);
    for (const Gioco quale : {Gioco::superenalotto(), Gioco::lotto()}) {
        const systems::Sistema s = systems::leggi_sistema(suite.programma(), "x", quale);
        fuzz::esigi(s.matrice.colonne() >= 1 && s.matrice.colonne() <= 256 &&
                    s.matrice.righe() >= 1 && s.matrice.righe() <= 256);
        fuzz::esigi(systems::leggi_conteggio(suite.programma(), "x", quale) == s.senza_ripetizioni);
        fuzz::esigi(!systems::trova_sistemi(suite.programma(), suite.programma(), quale).empty());
        // A crossword that was read is written and read back unchanged.
        if (!quale.e_lotto() || s.matrice.colonne() * s.matrice.righe() > 400) continue;
        riletto.riempi(systems::testo_sistema(s));
        const systems::Sistema t = systems::leggi_sistema(suite.programma(), "y", quale);
        fuzz::esigi(t.totale == s.totale && t.tipo_righe == s.tipo_righe && t.gioco == s.gioco);
        fuzz::esigi(t.matrice.colonne() == s.matrice.colonne());
        for (int y = 0; y < s.matrice.righe(); ++y) {
            for (int x = 0; x < s.matrice.colonne(); ++x)
                fuzz::esigi(t.matrice(x, y) == s.matrice(x, y));
        }
    }
    return 0;
}
