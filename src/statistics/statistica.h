// The ranking of the 90 numbers by how often, or how long ago, they were drawn.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "statistics/lettore.h"

namespace statistics {

/// Class of delay in Lotto; `ab` counts in both a and b.
enum class Classe : std::uint8_t { nessuna, ab, b, c, d };

/// One entry of the ranking.
struct Voce {
    std::int16_t numero = 0;
    std::int32_t valore = 0;  ///< frequency or delay
    bool libero = false;      ///< may be placed in the cell under work
    std::int16_t fascia = 0;  ///< band, 1 to 8
    bool usato = false;       ///< placed in this pass
    Classe classe = Classe::nessuna;
    friend bool operator==(const Voce&, const Voce&) = default;
};

/// Entry 0 stays empty, 1 to 90 hold the numbers.
using Graduatoria = std::array<Voce, 91>;

/// One draw: 0 the Jolly, 1 to 6 the numbers, 7 the superstar; what cannot be read is 0.
using Estrazione = std::array<std::int16_t, 8>;

/// Shows a progress bar at 0 with this maximum; may be empty.
using Barra = std::function<void(std::int32_t massimo)>;

/// Sorts the entries `da` to `a` by descending value. Equal values end in the order this very
/// sort leaves, which is part of the result.
void ordina_statistica(Graduatoria& tabella, int da, int a);

/// Bands of ten numbers from the top, 1 to 7, and 8 for the last twenty.
void gradua(Graduatoria& tabella);

/// Puts the ten first and the ten last outside the other classes, and classes the rest by delay.
void classifica(Graduatoria& tabella);

/// Reads the record under `draws` and moves on; `letta` is false when that move failed.
Estrazione leggi_estrazione(LettoreEstrazioni& draws, bool& letta);

/// Writes the date of the last draw and the ranking; false when either cannot be had.
bool scrivi_mstat(const Graduatoria& tabella, LettoreEstrazioni& draws, const std::string& file);
/// Reads a ranking back over an emptied table; false when the file breaks off before its end.
bool leggi_mstat(Graduatoria& tabella, const std::string& file);
/// Date in the first line of the file; nothing when there is none.
std::optional<Data> leggi_data(const std::string& file);

/// Ranking and counters of one run of the program. A statistic that returns false met a draw
/// it could not read: the work that asked for it ends.
class Statistico {
public:
    [[nodiscard]] Graduatoria& statistica() { return statistica_; }
    [[nodiscard]] const Graduatoria& statistica() const { return statistica_; }
    /// Forgets the ranking.
    void azzera() { statistica_ = {}; }

    /// Frequencies from record 4041 on, graded and written to `file`. The counters are never
    /// cleared: a second call adds to the first.
    bool statistica_frequenze(LettoreEstrazioni& draws, const std::string& file,
                              const Barra& barra);
    /// Delays in the last 200 records, graded and written to `file`.
    bool statistica_ritardi(LettoreEstrazioni& draws, const std::string& file, const Barra& barra);
    /// Delays in the last 300 records of a wheel, with their classes; no file is written.
    bool statistica_ritardi_lotto(LettoreEstrazioni& draws, const Barra& barra);

private:
    bool conta_frequenze(const Estrazione& estrazione);
    bool ritardo(std::int32_t numero, int n);
    void ordina_ritardi();

    Graduatoria statistica_{};
    std::array<std::int16_t, 91> frequenze_{};
    std::array<std::int16_t, 91> ritardi_{};
    int limite_ritardo_ = 0;
};

}  // namespace statistics
