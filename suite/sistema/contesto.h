// What the verbs of the command share: the world around it, and what one of them answers.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/storico.h"
#include "crossword/gioco.h"
#include "platform/database.h"
#include "printing/prospetto.h"

namespace sistema {

/// Exit codes of the command.
inline constexpr int riuscito = 0;
inline constexpr int non_riuscito = 1;  ///< something could not be done
inline constexpr int uso_errato = 2;

/// The world around the command; what a test puts in its place.
struct Mezzi {
    /// Finds the program folder, which may write; asked by a command in order alone.
    std::function<std::string()> programma;
    std::function<void(std::string_view)> uscita;
    std::function<void(std::string_view)> errori;
    /// True once the player asked to stop. May be empty.
    std::function<bool()> fermato;
    /// Prints the page into a PDF file; why not, empty when it did.
    std::function<std::string(const printing::Prospetto&, const std::string& pdf)> stampa;
};

/// The past draws, each kind read once.
class Passato {
public:
    explicit Passato(std::string radice) : radice_(std::move(radice)) {}
    /// Draws of the game, in Lotto of the wheel with that code or of all; why not, empty when they
    /// were read. `estrazioni` lives as long as this.
    std::string leggi(crossword::Gioco gioco, const std::string& ruota,
                      const std::vector<analysis::Estrazione>*& estrazioni);

private:
    std::string radice_;
    bool aperto_ = false;
    platform::Database database_;
    std::map<std::pair<bool, std::string>, std::vector<analysis::Estrazione>> lette_;
};

/// One run of the command.
struct Contesto {
    Contesto(const Mezzi& a, std::string cartella);

    const Mezzi& ambiente;
    std::string programma;    ///< program folder, without a final separator
    std::size_t sistemi = 0;  ///< how many were named
    bool json = false;
    int quote = 1;
    bool qui = false;  ///< develop here instead of reading what stands beside the system
    Passato passato;

    [[nodiscard]] bool fermato() const { return ambiente.fermato && ambiente.fermato(); }
};

/// What a verb has to say of one system.
struct Risposta {
    std::string testo;
    std::string json;    ///< members of an object, without its brackets
    std::string errore;  ///< why it was not done; the rest is empty then
};

}  // namespace sistema
