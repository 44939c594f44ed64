// Developments as the slips are made of them: strictly, line by line.
#include "fuzz/ingresso.h"
#include "stampa/sviluppo.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("x.col"));
    const std::string& file = ingresso.riempi(dati, quanti);
    for (const int numeri : {0, 3, 5, 6}) {
        schedine::Sviluppo s;
        std::vector<schedine::Colonna> colonne;
        if (const auto difetto = s.apri(file, numeri)) {
            fuzz::esigi(!difetto->motivo.empty() && difetto->testo().size() < 200);
            fuzz::esigi(!s.leggi(1, 1, colonne));
            continue;
        }
        fuzz::esigi(s.leggi(1, static_cast<int>(s.colonne()) + 5, colonne));
        fuzz::esigi(static_cast<std::int64_t>(colonne.size()) == s.colonne());
        const schedine::Colonna ultima = colonne.back();
        fuzz::esigi(s.leggi(s.colonne(), 1, colonne) && colonne.front() == ultima);
        for (int k = 0; k < 6; ++k) {
            const int n = ultima[static_cast<std::size_t>(k)];
            fuzz::esigi(k < s.numeri() ? n >= 1 && n <= 90 : n == 0);
        }
    }
    return 0;
}
