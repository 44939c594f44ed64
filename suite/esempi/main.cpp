// Lays, develops and saves the sample systems that come with the program.
#include <cstdio>
#include <string>
#include <vector>

#include "platform/comando.h"
#include "platform/disk.h"
#include "systems/sessione.h"

using crossword::Elenco;
using systems::Sessione;

namespace {

/// One sample as a player would choose it.
struct Esempio {
    const char* nome;
    crossword::Gioco gioco;
    int colonne;
    int righe;
    int tipo_righe;
    int tipo_colonne;
    int tipo_diagonali;  ///< -1 where the grid has no diagonals
    bool elaborato;
    std::vector<int> numeri;
};

/// The first of each game is developed, so that viewer, check and print work at the first click;
/// the second waits for the player's own first elaboration.
const std::vector<Esempio> esempi = {
    {"primipassi",
     crossword::Gioco::superenalotto(),
     6,
     6,
     0,
     0,
     0,
     true,
     {3, 7, 12, 18, 21, 26, 33, 38, 41, 47, 54, 56, 62, 69, 73, 78, 85, 90}},
    {"ridotto", crossword::Gioco::superenalotto(), 9, 6, 4, 0, -1, false, {2,  5,  9,  14, 17, 19,
                                                                           23, 28, 30, 34, 37, 42,
                                                                           45, 48, 51, 55, 58, 61,
                                                                           66, 68, 71, 74, 77, 80,
                                                                           83, 86, 89}},
    {"terzine",
     crossword::Gioco::lotto(3),
     5,
     5,
     1,
     1,
     1,
     true,
     {4, 11, 16, 22, 29, 35, 40, 46, 53, 59, 64, 70, 75, 81, 87}},
    {"cinquine", crossword::Gioco::lotto(5), 8, 8, 2, 2, 2, false, {1,  6,  10, 13, 18, 20, 25,
                                                                    27, 32, 36, 39, 43, 44, 49,
                                                                    52, 57, 60, 63, 65, 67, 72,
                                                                    76, 79, 82, 84, 88, 90, 8,
                                                                    15, 24, 31, 50}},
};

/// Lays the cells from the `posto`-th on, each number only where the board would allow it.
bool disponi(const Esempio& e, Sessione& sessione, int posto) {
    if (posto == e.colonne * e.righe) return true;
    const systems::Cella cella{posto % e.colonne, posto / e.colonne};
    const int quanti = static_cast<int>(e.numeri.size());
    for (int i = 0; i < quanti; ++i) {
        // Each row starts further on, so that the numbers spread over the grid.
        const auto k = static_cast<std::size_t>((posto + cella.riga * 4 + i) % quanti);
        if (sessione.posa(cella, e.numeri[k]) != systems::Posata::posata) continue;
        if (disponi(e, sessione, posto + 1)) return true;
        sessione.rimuovi(cella);
    }
    return false;
}

bool crea(const Esempio& e, const std::string& cartella) {
    Sessione sessione(cartella);
    sessione.avvia();
    if (e.gioco.e_lotto()) {
        sessione.passa_al_lotto();
        sessione.cambia_forma(e.gioco.forma());
    }
    sessione.dimensioni(e.colonne, e.righe);
    sessione.scegli_tipo(Elenco::orizzontali, e.tipo_righe);
    sessione.scegli_tipo(Elenco::verticali, e.tipo_colonne);
    if (e.tipo_diagonali >= 0) sessione.scegli_tipo(Elenco::diagonali, e.tipo_diagonali);
    return disponi(e, sessione, 0) &&
           sessione.salva_come(e.nome) == systems::Salvataggio::salvato &&
           (!e.elaborato || sessione.sviluppa({}) == systems::Elaborato::completo);
}

}  // namespace

/// esempi CARTELLA: makes all samples in the folder, with the tables of the suite that it is in.
int main(int argc, char** argv) {
    const std::vector<std::string> parole = platform::parole(argc, argv);
    if (parole.size() != 1) {
        std::fputs("Uso: esempi CARTELLA\n", stderr);
        return 2;
    }
    if (!platform::crea_cartella(parole[0])) return 2;
    for (const Esempio& e : esempi) {
        if (crea(e, parole[0])) continue;
        std::fprintf(stderr, "esempi: %s non è riuscito\n", e.nome);
        return 1;
    }
    // The price is the player's to find at his first start.
    platform::Kill(parole[0] + "/cst");
    return 0;
}
