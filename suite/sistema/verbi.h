// The verbs of the command, one file each.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "analysis/relazione.h"
#include "comune/json.h"
#include "comune/parole.h"
#include "sistema/aperto.h"
#include "sistema/contesto.h"

namespace sistema {

/// What a verb does with one system.
using Fare = std::function<Risposta(Aperto&)>;
/// Makes `fare` of the words of a verb; what is wrong with them, empty when nothing is. `contesto`
/// outlives `fare`.
using Prepara = std::string (*)(const suite::Parole& parole, Contesto& contesto, Fare& fare);

std::string conta(const suite::Parole& parole, Contesto& contesto, Fare& fare);
std::string sviluppa(const suite::Parole& parole, Contesto& contesto, Fare& fare);
std::string spoglio(const suite::Parole& parole, Contesto& contesto, Fare& fare);
std::string esporta(const suite::Parole& parole, Contesto& contesto, Fare& fare);
std::string analisi(const suite::Parole& parole, Contesto& contesto, Fare& fare);
std::string prospetto(const suite::Parole& parole, Contesto& contesto, Fare& fare);
std::string migliora(const suite::Parole& parole, Contesto& contesto, Fare& fare);
std::string sostituisci(const suite::Parole& parole, Contesto& contesto, Fare& fare);

// What several of them share.

/// Where -o leads: a file, or a folder for one file of each system.
class Destinazione {
public:
    /// What is wrong with the option, empty when nothing is; `serve` when it must be given.
    std::string leggi(const suite::Parole& parole, const Contesto& contesto, bool serve);
    [[nodiscard]] bool data() const { return !dove_.empty(); }
    /// The file for a system: in a folder, its name with `coda` behind it.
    [[nodiscard]] std::string per(const Aperto& aperto, const std::string& coda) const;
    /// Why nothing is written there, empty when it may be: neither file of the system is.
    [[nodiscard]] static std::string vietata(const Aperto& aperto, const std::string& file);

private:
    std::string dove_;
    bool cartella_ = false;
};

/// The pair that a file name means; why not, empty when it may be written.
std::string arrivo(const std::string& file, const Aperto& aperto, bool sovrascrivi,
                   systems::Coppia& coppia);
/// Writes the system of the session as that pair; why not, empty when it did.
std::string scrivi(const Aperto& aperto, const systems::Coppia& coppia);
/// Why a file was not written.
std::string non_scritto(const std::string& file);

/// "1.234".
std::string intero(std::uint64_t n);
/// "1.234 combinazioni".
std::string combinazioni(std::uint64_t n);
/// What the system costs: "7,00 Euro, in 2 quote da 3,50 Euro".
std::string importo(const systems::Prezzo& prezzo);
/// The same as members of an object.
void importo(const systems::Prezzo& prezzo, suite::Json& json);

/// A list of different numbers from 1 to 90 between commas; empty for any other text.
std::vector<int> leggi_numeri(const std::string& testo);

/// The file of a system as titles show it.
std::string titolo(const Aperto& aperto);
/// Game, sizes and numbers in play, as members of an object.
void descrivi(const systems::Sessione& sessione, suite::Json& json);
/// Tables as the command prints them.
std::string in_righe(std::span<const analysis::Tavola> tavole);

/// A wheel, or all of them where none is named.
struct Ruota {
    std::string codice;
    std::string nome = "tutte";
    bool data = false;
};
/// Reads --ruota; what is wrong with it, empty when nothing is.
std::string leggi_ruota(const suite::Parole& parole, Ruota& ruota);
/// Why this system has no such wheel, empty when it may have.
std::string ruota_fuori_luogo(const Ruota& ruota, const Aperto& aperto);

/// Threads for a long count.
int esecutori();

}  // namespace sistema
