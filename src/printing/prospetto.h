// Summary page of the system in line.
#pragma once

#include <array>
#include <string>

#include "crossword/gioco.h"
#include "crossword/matrice.h"
#include "printing/mod_stampa.h"
#include "systems/sessione.h"

namespace printing {

/// One row of the table of systems, as the screen shows it.
struct RigaProspetto {
    std::string quantita;
    std::string tipo;
    int indice = -1;  ///< number of the type
    std::string combinazioni;
};

/// All that the page says.
struct Prospetto {
    Testata testata;
    crossword::Gioco gioco;
    crossword::Matrice matrice;
    std::string in_gioco;                ///< count of different numbers
    std::array<RigaProspetto, 3> righe;  ///< rows, columns, diagonals
    std::string totale;
    std::string senza_ripetizioni;
    std::string quote;
    std::string quota;
    std::string valuta;
    std::string importo;
};

/// What the page says of the system that is open.
Prospetto prospetto_di(const systems::Sessione& sessione, const Testata& testata);

/// Prints the page as one job; false when the printer lost it.
bool stampa_prospetto(platform::Printer& printer, platform::Screen& screen,
                      const Prospetto& prospetto);

}  // namespace printing
