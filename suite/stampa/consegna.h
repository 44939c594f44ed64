// What the calling program hands over, and the developments that there are.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "crossword/gioco.h"
#include "stampa/difetto.h"
#include "stampa/sviluppo.h"

namespace schedine {

/// The job that the file "trans" asks for.
struct Consegna {
    std::string programma;  ///< folder of the calling program, below the root
    std::string sistema;    ///< name without extension
};

struct LetturaConsegna {
    std::optional<Consegna> consegna;
    /// Why the file names nothing; nothing when it is not there.
    std::optional<Difetto> difetto;
};

/// Reads "trans" in the root, which ends in a separator.
LetturaConsegna leggi_consegna(const std::string& radice);

/// A system with a development.
struct Scelta {
    std::string cartella;  ///< of the program that keeps it
    std::string nome;
    crossword::Gioco gioco;  ///< without its form in Lotto until it is opened

    [[nodiscard]] std::string file() const;
    friend bool operator==(const Scelta&, const Scelta&) = default;
};

/// The systems with a development in a program's folder, SuperEnalotto first, by name.
std::vector<Scelta> scelte(const std::string& cartella);
/// Those of the name that was handed over: none, one, or one of each game.
std::vector<Scelta> trova(const std::string& radice, const Consegna& consegna);

/// Opens the development of a system, whose game then has its form.
std::optional<Difetto> apri(Scelta& scelta, Sviluppo& sviluppo);

/// Columns of a slip: what "col.dat" says in SuperEnalotto, five in Lotto and where it says
/// nothing. Writes nothing.
struct PerSchedina {
    int colonne = 5;
    bool guasto = false;  ///< "col.dat" is there and holds no such number
};
PerSchedina colonne_per_schedina(const std::string& cartella, crossword::Gioco gioco);

}  // namespace schedine
