// The rows of the list of combinations, packed; their texts are made when they are shown.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "check/spoglio.h"

namespace check {

/// Columns of a row.
inline constexpr int colonna_chiave = 0;  ///< slip number in nine digits
inline constexpr int colonna_scheda = 1;
inline constexpr int colonna_punti = 2;
inline constexpr int colonna_numeri = 3;  ///< the first of six
inline constexpr int colonne_dettaglio = 9;

enum class Verso { crescente, decrescente };

class Dettaglio {
public:
    /// Adds a row for each place of the lists, with slips of so many panels; false when `passo`,
    /// told of the places done, asked to stop. The order last asked for is kept.
    bool aggiungi(const RichiestaSpoglio& richiesta, const Spoglio& spoglio, int pannelli,
                  const Passo& passo);
    /// Takes the rows away; the order stays in force.
    void svuota();

    [[nodiscard]] std::size_t righe() const { return schede_.size(); }
    [[nodiscard]] std::string testo(std::size_t riga, int colonna) const;

    /// Orders by the text of the key or of the points; rows of equal text stay as they were added.
    void ordina(int colonna, Verso verso);

    /// Bytes in use, with those held for nothing.
    [[nodiscard]] std::size_t memoria() const;

private:
    void riordina();
    void per_punti();
    void per_scheda();

    std::vector<std::int32_t> schede_;
    std::vector<Numeri> numeri_;
    std::vector<Punti> punti_;
    std::vector<std::uint32_t> ordine_;  ///< empty while the rows stand as they were added
    int quanti_numeri_ = 6;
    int colonna_ = -1;
    Verso verso_ = Verso::crescente;
};

/// Slip on which a combination falls.
std::int32_t scheda_di(std::int32_t combinazione, int pannelli);

}  // namespace check
