// A print job of slips: what it covers, how it falls into pages, what it costs, and each page.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "crossword/gioco.h"
#include "platform/printer.h"
#include "stampa/geometria.h"
#include "stampa/modulo.h"
#include "stampa/sviluppo.h"

namespace schedine {

enum class Genere {
    ricopiare,  ///< panels of 90 numbers on plain paper
    elenco,     ///< dense list
    modulo,     ///< marks alone, on the player's slips
};

struct Opzioni {
    Genere genere = Genere::ricopiare;
    bool grande = false;  ///< large type in the list
    Modulo modulo;        ///< in use when the kind asks for it
    std::string sistema;
    crossword::Gioco gioco;
    int per_schedina = 5;  ///< columns of a slip; a module has its own panels instead
    double prezzo = 0;     ///< of a column; in Lotto the stake is
    std::string valuta = "Euro";
    Giocata giocata;
    std::int64_t dalla = 1;
    std::int64_t alla = 0;  ///< 0 is the last slip
};

/// What a job comes to.
struct Conto {
    std::int64_t schedine = 0;
    std::int64_t colonne = 0;
    std::int64_t fogli = 0;
    double importo = 0;
};

/// "04 17 23 38 61 90"
std::string in_chiaro(const Colonna& colonna);

class Lavoro {
public:
    /// The range is cut to the slips that there are. `sviluppo` outlives the job.
    Lavoro(Sviluppo& sviluppo, Opzioni opzioni);

    [[nodiscard]] const Opzioni& opzioni() const { return o_; }
    /// Slips of the whole development.
    [[nodiscard]] std::int64_t schedine() const;
    /// Pages of the range.
    [[nodiscard]] std::int64_t pagine() const;
    [[nodiscard]] Conto conto() const;
    /// First and last slip that have a part on a page of the range, counted from 1.
    struct Tratto {
        std::int64_t prima = 0;
        std::int64_t ultima = 0;
        int parte = 0;  ///< of a slip that takes more pages than one
    };
    [[nodiscard]] Tratto tratto(std::int64_t pagina) const;
    /// Sheet in tenths of a millimetre.
    [[nodiscard]] Punto foglio() const;
    /// Draws one page, without beginning or ending it; false when the development is no longer what
    /// it was.
    [[nodiscard]] bool disegna(platform::Printer& printer, std::int64_t pagina);
    /// Columns of one slip; false as above.
    [[nodiscard]] bool colonne(std::int64_t schedina, std::vector<Colonna>& colonne);

private:
    void impagina();
    [[nodiscard]] int per_schedina() const;
    [[nodiscard]] double costo(std::int64_t colonne) const;
    [[nodiscard]] std::string importo(std::int64_t colonne) const;
    [[nodiscard]] std::string giocata() const;

    class Ricopiare;
    class Elenco;
    void testata(platform::Printer& printer, const char* titolo, std::int64_t pagina) const;
    void disegna_modulo(platform::Printer& printer, const std::vector<Colonna>& colonne) const;

    Sviluppo& sviluppo_;
    Opzioni o_;
    int per_pagina_ = 1;           ///< whole slips of a page; 0 when one takes more pages
    int pagine_per_schedina_ = 1;  ///< of a slip that fits no page
};

/// How a job ended.
enum class Fine {
    stampato,
    fermato,  ///< the player gave it up
    perso,    ///< the printer or the disk refused
    cambiato  ///< the development is no longer what it was
};
/// Draws these pages into a document that is open or begins with them, without ending it. `fatte`
/// and `tutte` are the pages before and those of the whole job, for the progress.
Fine disegna(platform::Printer& printer, platform::Screen& screen, Lavoro& lavoro,
             std::int64_t prima, std::int64_t ultima, std::int64_t fatte, std::int64_t tutte);
/// Ends a document that was drawn so: it comes out whole or not at all.
Fine concludi(platform::Printer& printer, Fine fine);

/// A text with one slip a line, "34;04 17 23 38 61 90;...", whole or not at all. `motivo` tells why
/// it was not written; empty when the player stopped it.
bool esporta(const std::string& file, platform::Screen& screen, Lavoro& lavoro,
             std::string& motivo);

/// A page of crosses on the places of a module and a ruler, to hold against the light.
void disegna_prova(platform::Printer& printer, const Modulo& modulo);

}  // namespace schedine
