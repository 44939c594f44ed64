// Lays, develops and saves the sample systems that come with the program.
#include <cstdio>
#include <string>
#include <vector>

#include "crossword/linee.h"
#include "crossword/matrice.h"
#include "crossword/tipi.h"
#include "development/elaborazione.h"
#include "platform/disk.h"
#include "systems/file_sistema.h"

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
    std::vector<std::int16_t> numeri;
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
bool disponi(const Esempio& e, crossword::Matrice& m, int posto) {
    if (posto == e.colonne * e.righe) return true;
    const int x = posto % e.colonne;
    const int y = posto / e.colonne;
    const auto barrati = crossword::numeri_sulle_linee(m, y, x);
    const int quanti = static_cast<int>(e.numeri.size());
    for (int i = 0; i < quanti; ++i) {
        // Each row starts further on, so that the numbers spread over the grid.
        const auto numero = e.numeri[static_cast<std::size_t>((posto + y * 4 + i) % quanti)];
        if (barrati[static_cast<std::size_t>(numero)]) continue;
        m.scrivi(x, y, numero);
        if (disponi(e, m, posto + 1)) return true;
        m.scrivi(x, y, 0);
    }
    return false;
}

std::int32_t totale(const Esempio& e) {
    crossword::Matsis matsis;
    matsis.INIZIZLAIZZA_MATSIS(e.gioco);
    const int primo = e.gioco.lato_minimo();
    std::int32_t somma = e.righe * matsis(e.colonne - primo, e.tipo_righe).value_or(0) +
                         e.colonne * matsis(e.righe - primo, e.tipo_colonne).value_or(0);
    if (e.tipo_diagonali < 0) return somma;
    if (e.gioco.e_lotto()) return somma + 2 * matsis(e.righe - primo, e.tipo_diagonali).value_or(0);
    return somma + crossword::combinazioni_diagonali(matsis, e.righe, e.tipo_diagonali).value_or(0);
}

/// Develops without repetitions, as the program does unless told otherwise; the count, or 0.
std::int32_t elabora(const Esempio& e, const crossword::Matrice& matrice,
                     const std::string& cartella, const std::string& ridotti) {
    development::Richiesta richiesta;
    richiesta.matrice = matrice;
    richiesta.gioco = e.gioco;
    richiesta.tipo_righe = e.tipo_righe;
    richiesta.tipo_colonne = e.tipo_colonne;
    richiesta.tipo_diagonali = e.tipo_diagonali;
    richiesta.cartella = cartella;
    richiesta.ridotti = ridotti;
    richiesta.senza_ripetizioni = true;
    development::Elaborazione lavoro(richiesta, {});
    if (lavoro.sviluppa() != development::Conclusione::completa) return 0;
    const std::string finale = cartella + "/" + e.nome + e.gioco.estensione_sviluppo();
    const bool fatto =
        development::completa_sviluppo(lavoro.file_temporaneo(), finale, lavoro.byte_scritti());
    return fatto ? lavoro.righe_scritte() : 0;
}

bool crea(const Esempio& e, const std::string& cartella, const std::string& ridotti) {
    systems::Sistema sistema;
    sistema.matrice = crossword::Matrice(e.colonne, e.righe);
    if (!disponi(e, sistema.matrice, 0)) return false;
    sistema.totale = totale(e);
    sistema.diagonali = e.tipo_diagonali < 0 ? "" : std::to_string(e.gioco.diagonali());
    sistema.tipo_righe = e.tipo_righe;
    sistema.tipo_colonne = e.tipo_colonne;
    sistema.tipo_diagonali = e.tipo_diagonali;
    sistema.gioco = e.gioco;
    if (e.elaborato) {
        sistema.senza_ripetizioni = elabora(e, sistema.matrice, cartella, ridotti);
        if (sistema.senza_ripetizioni == 0) return false;
    }
    return systems::scrivi_sistema(cartella, e.nome, sistema);
}

}  // namespace

/// esempi CARTELLA RIDOTTI: makes all samples in the folder.
int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("Uso: esempi CARTELLA RIDOTTI\n", stderr);
        return 2;
    }
    if (!platform::crea_cartella(argv[1])) return 2;
    for (const Esempio& e : esempi) {
        if (crea(e, argv[1], argv[2])) continue;
        std::fprintf(stderr, "esempi: %s non è riuscito\n", e.nome);
        return 1;
    }
    return 0;
}
