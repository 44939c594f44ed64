// Price of a column, total of a system and its shares.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace viewer {

/// Content of the file "cst".
struct Importo {
    std::string prezzo;  ///< text with a comma as decimal sign
    std::string valuta;  ///< "Euro" or, from older installations, "Lire"
};

/// Who reads the price; each has its own answer to a missing file.
enum class Lettore {
    importo,          ///< 950 Lire, written when the file is absent
    calcolo_importo,  ///< 0,50 Euro, written when the file is absent
    formeuro,         ///< as calcolo_importo
    annulla,          ///< 0,50 Euro, nothing written
};

/// Price and currency in force; an empty price gives the reader's own values.
Importo leggi_cst(const std::string& cartella, Lettore lettore);
/// Replaces the file; false when the disk refused.
bool scrivi_cst(const std::string& cartella, const Importo& importo);

/// Value of a price text: commas read as points, up to what is no number any more.
double valore_prezzo(const std::string& testo);

/// Texts of a total.
struct Totale {
    std::string formattato;            ///< "86.086,00"
    std::string semplice;              ///< "86086"
    std::optional<std::string> quota;  ///< one share; nothing when there are no shares
};
Totale calcola_totale(std::int32_t colonne, const std::string& prezzo, const std::string& quote);

/// One share of the total as it stands on the screen; nothing when there are no shares.
std::optional<std::string> quota_da_testo(const std::string& totale, const std::string& quote);

/// Key filter of the price box: digits and the comma, and what is no character.
bool tasto_prezzo(int codice);

}  // namespace viewer
