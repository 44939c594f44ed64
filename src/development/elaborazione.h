// From a crossword to its development file.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "crossword/linee.h"
#include "crossword/matrice.h"
#include "development/ripetizioni.h"
#include "development/tabelle.h"

namespace development {

/// What to develop and where.
struct Richiesta {
    crossword::Matrice matrice;
    crossword::Gioco gioco;
    int tipo_righe = 0;  ///< type numbers; one below 0 names no table
    int tipo_colonne = 0;
    int tipo_diagonali = 0;
    bool senza_ripetizioni = false;  ///< each combination at its first appearance only
    std::string cartella;            ///< program folder, no trailing separator
    std::string ridotti;             ///< folder of the tables, no trailing separator
};

/// Called as the work goes on with the combinations developed so far; false asks the job to stop.
using AvanzamentoSviluppo = std::function<bool(std::int32_t righe)>;

enum class Conclusione {
    completa,    ///< the lines that have a table stand in the working file
    senza_file,  ///< no table could be read, so there is no working file
    guasta,      ///< the disk refused some lines
    interrotta,  ///< asked to stop
};

/// Ascending order of the elements `da` to `a`, both included.
template <typename T>
void ordina_controlli(std::vector<T>& v, std::size_t da, std::size_t a) {
    if (da >= v.size() || a < da) return;
    const auto inizio = v.begin() + static_cast<std::ptrdiff_t>(da);
    const auto fine = v.begin() + static_cast<std::ptrdiff_t>(std::min(a, v.size() - 1)) + 1;
    std::sort(inizio, fine);
}

/// Walks the lines of one crossword, appending their combinations to the working file.
class Elaborazione {
public:
    /// `avanzamento` may be empty.
    Elaborazione(Richiesta richiesta, AvanzamentoSviluppo avanzamento);

    /// Develops every line into a working file that must not exist yet.
    Conclusione sviluppa();
    /// Appends the combinations of one line by the table of `tipo`; false when the line was
    /// abandoned for want of a table or because the disk refused it.
    bool elabora(std::vector<std::uint8_t> linea, int tipo);

    /// temp.col or temp.lot in the program folder.
    [[nodiscard]] std::string file_temporaneo() const;
    /// Bytes that the working file must have.
    [[nodiscard]] std::int64_t byte_scritti() const { return byte_scritti_; }
    /// Combinations in the working file.
    [[nodiscard]] std::int32_t righe_scritte() const { return righe_scritte_; }

private:
    [[nodiscard]] int tipo_di(const crossword::Linea& linea) const;
    const TabellaPosizioni& tabella(int n, int tipo);
    void aggiungi_righe(const std::vector<std::uint8_t>& linea, const TabellaPosizioni& t);
    void togli_ripetizioni();

    Richiesta richiesta_;
    AvanzamentoSviluppo avanzamento_;
    std::map<std::string, TabellaPosizioni> tabelle_;
    // The lines in the file and the combinations of the crossword's line in work.
    std::vector<char> testo_;
    std::size_t byte_linea_ = 0;
    std::vector<Combinazione> combinazioni_;
    std::optional<CombinazioniViste> viste_;
    std::int32_t righe_sviluppate_ = 0;
    std::int64_t byte_scritti_ = 0;
    std::int32_t righe_scritte_ = 0;
    bool esiste_ = false;
    bool guasta_ = false;
    bool interrotta_ = false;
};

/// True for a name, in whatever case, that begins as those of the working files do.
bool e_temporaneo(std::string_view nome);

/// Deletes the working files in the folder; any other file with a temporary name,
/// which may be a player's, is given to `cestina` and stays if that returns false.
void elimina_temporanei(const std::string& cartella,
                        const std::function<bool(const std::string&)>& cestina);

/// Gives the finished working file its final name in one step; without one, or when it has not
/// `dimensione` bytes, an old development goes all the same and none takes its place.
bool completa_sviluppo(const std::string& temporaneo, const std::string& finale,
                       std::int64_t dimensione);

}  // namespace development
