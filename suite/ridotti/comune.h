// What the subcommands share: exit codes, messages, tables read from files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "comune/parole.h"
#include "comune/progresso.h"
#include "comune/testo.h"
#include "crossword/gioco.h"
#include "development/garanzie.h"

namespace ridotti {

using development::in_parole;
using suite::json;
using suite::Progresso;
using suite::stampa;

/// Exit codes of the command.
inline constexpr int riuscito = 0;
inline constexpr int garanzia_mancata = 1;
inline constexpr int impossibile = 2;

/// The subcommands; each takes the words after its name.
int integrali(const std::vector<std::string>& parole);
int verifica(const std::vector<std::string>& parole);
int vincite(const std::vector<std::string>& parole);
int documento(const std::vector<std::string>& parole);
int cerca(const std::vector<std::string>& parole);
int adotta(const std::vector<std::string>& parole);

/// Words of a command line, sorted out.
struct Opzioni {
    std::vector<std::string> file;  ///< and folders
    bool json = false;
    bool guida = false;
    std::optional<development::Garanzia> garanzia;
    std::optional<std::string> errore;
};
/// Sorts out the words of a subcommand that knows the options `ammesse`.
Opzioni leggi_opzioni(const std::vector<std::string>& parole,
                      std::initializer_list<std::string_view> ammesse);

/// Reads the value of an option, where it was given, as a number from 1; why not, empty when it is.
std::string leggi_numero(const suite::Parole& parole, const std::string& nome, int& valore);

/// The folder of the tables of the suite that the command belongs to.
std::string cartella_delle_tabelle();

/// The game whose combinations have so many numbers; nothing when none has.
std::optional<crossword::Gioco> gioco_di(int k);

/// A table read from its file, with the parts of its name when it has one of the scheme.
struct TabellaLetta {
    std::string file;
    std::optional<development::NomeTabella> nome;
    development::Lettura lettura;
};
/// Reads a table; a file that cannot be read is an error of line 0.
TabellaLetta leggi_tabella(const std::string& file);
/// The same for rows of `k` of `n` positions, whatever the file's name.
TabellaLetta leggi_tabella(const std::string& file, int n, int k);

/// Prints errors and notices, a line each, as "file:line: text".
void stampa_errori(const TabellaLetta& letta);
/// Prints one message of the command itself to the standard error.
void lamenta(std::string_view testo);

/// The errors or notices as a JSON array.
std::string json(const std::vector<development::ErroreRiga>& righe);

/// "6 estratti", "1 estratto"; the same for "righe" and "casi".
std::string estratti(int p);
std::string righe(std::uint64_t quante);
std::string casi(std::uint64_t quanti);
/// A number with that many decimals after an Italian comma.
std::string decimale(double valore, int decimali);
/// A guarantee and a set of positions as JSON.
std::string json(const development::Garanzia& garanzia);
std::string json_posizioni(development::Maschera maschera);

}  // namespace ridotti
