// One import: files in, archive extended, report out.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "contenuto.h"

namespace importazione {

/// A line of the report, with the file it concerns and its line there (0 for the whole file).
struct Nota {
    std::string file;
    int riga = 0;
    std::string testo;
    /// "file:line: text", safe to be shown.
    [[nodiscard]] std::string in_riga() const;
};

/// What one file brought.
struct Portato {
    std::string file;
    std::int64_t nuove = 0;
    std::int64_t uguali = 0;
    std::int64_t diverse = 0;
    std::int64_t rifiutate = 0;
};

/// A report keeps so many notes of a kind; the counts of the files tell of all.
inline constexpr std::size_t note_massime = 200;

struct Rapporto {
    bool riuscito = false;
    bool scritto = false;  ///< false as well when nothing was new
    std::vector<Portato> portati;
    std::vector<Nota> rifiuti;
    /// Draws that the archive holds otherwise: kept as stored, or replaced when that was asked.
    std::vector<Nota> differenze;
    std::vector<Nota> errori;
    /// Files of a ZIP archive that hold no draws, beside others that do.
    std::vector<Nota> lasciati;
    /// Lotto days that wait for some of their ten wheels.
    int incomplete = 0;
    bool sostituito_dimostrativo = false;
    Contenuto contenuto;  ///< the archive after the import

    [[nodiscard]] std::int64_t rifiutate() const;
    [[nodiscard]] std::int64_t diverse() const;
};

/// Called before each file, now and then within it, and at the end, with the files done so far.
using Avanzamento = std::function<void(std::size_t fatti, std::size_t tutti)>;

/// Imports `file` into the archive `destinazione`, which is made when it is not there. On any
/// error nothing is written.
Rapporto importa(const std::string& destinazione, const std::vector<std::string>& file,
                 bool sostituisci, const Avanzamento& avanzamento);

/// Writes the demonstration archive unless a file stands there. Fails while an import runs, whose
/// archive it would take the place of.
bool metti_dimostrativo(const std::string& destinazione);

/// The report as the command and the window show it.
std::vector<std::string> in_righe(const Rapporto& rapporto);
/// What an archive holds, line by line.
std::vector<std::string> stato(const Contenuto& contenuto);

}  // namespace importazione
