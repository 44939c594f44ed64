// Files as the program sees them: names without case, outcomes instead of exceptions.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Result of a file step.
enum class Esito {
    ok,
    assente,      ///< no such file
    disco_pieno,  ///< no space or quota left
    errore,       ///< anything else
};

/// The folder of a file, as far as its name tells: "." for a bare name.
std::string cartella_di(const std::string& nome);
/// `nome` as it stands on the disk: a component that is there only in another case is replaced
/// by that; a name that is not there comes back unchanged, one with a null in it empty.
std::string nome_su_disco(const std::string& nome);

/// `nome` as the system's own programs write it, for people to read: on one line, with its bytes
/// that are no signs as `mostrabile` tells them.
std::string da_mostrare(std::string nome);

/// True when a regular file of that name exists.
bool esiste_file(const std::string& nome);
/// True when a folder of that name exists.
bool esiste_cartella(const std::string& nome);
/// True when the folder exists and files can be made in it.
bool cartella_scrivibile(const std::string& nome);
/// Makes the folder and those above it; false when it is not there afterwards.
bool crea_cartella(const std::string& nome);

/// Size in bytes; nothing when there is no such regular file.
std::optional<std::int64_t> dimensione_file(const std::string& nome);
/// When the file of this name was first made, replaced since or not, in seconds since 1970; the
/// last change where the disk keeps no such time.
std::optional<std::int64_t> data_creazione(const std::string& nome);

/// Local date and time as "dd/mm/yy hh.mm.ss" of seconds since 1970.
std::string testo_data_ora(std::int64_t secondi);

/// Names (no folder) of the regular files of `cartella` that match `modello` ("*", "?"),
/// in order of name, case ignored.
std::vector<std::string> Dir(const std::string& cartella, std::string_view modello);
/// True when `testo` matches `modello`: "*" is any characters, "?" is one.
bool Like(std::string_view testo, std::string_view modello);
/// The same, case ignored.
bool corrisponde(std::string_view nome, std::string_view modello);

/// Deletes one file or link.
Esito Kill(const std::string& nome);
/// Renames a file; fails when `nuovo` names another file that exists, be it only just.
Esito Name(const std::string& vecchio, const std::string& nuovo);
/// What becomes of a new copy that the disk had no room for.
enum class Meta { via, resta };
/// Copies the content onto `nuovo`, whole or not at all, and its word with it, or `parola` for one
/// that has none; a new file may stay as far as it got when the disk fills.
Esito FileCopy(const std::string& vecchio, const std::string& nuovo, Meta meta = Meta::via,
               std::string_view parola = "");

/// Appends all of `dati` to the file, making it when absent, or leaves it as it was.
Esito aggiungi(const std::string& nome, std::string_view dati);
/// Writes all of `dati` to the file and syncs it; on failure an old file stays as it was and a new
/// one is not left behind.
Esito scrivi(const std::string& nome, std::string_view dati);
/// Reads a whole file of at most `limite` bytes.
std::optional<std::string> leggi_tutto(const std::string& nome,
                                       std::int64_t limite = std::int64_t{1} << 30);

/// Whether a file that takes the place of another keeps its creation date.
enum class Creazione { resta, nuova };
/// Syncs the finished file `lavoro` and moves it onto `nome` in one step, if it has `dimensione`
/// bytes.
/// The old file's mode goes on; anything but a regular file or a link at `nome` is refused.
/// `lavoro` stays on failure.
Esito pubblica(const std::string& lavoro, const std::string& nome, std::int64_t dimensione,
               Creazione creazione = Creazione::resta);
/// What a link at `nome` leads to, so that a replacement there leaves the link; `nome` as it stands
/// on the disk when it is none or leads nowhere.
std::string dietro_il_collegamento(const std::string& nome);
/// Replaces the content of `nome` whole or not at all, through a working file beside it. A link
/// stays and leads to the new content.
Esito sostituisci(const std::string& nome, std::string_view dati);

/// A word about the content of a file, which goes with it wherever this program copies or moves
/// it; empty without one, and where the disk keeps none.
std::string annotazione(const std::string& nome);
/// Gives a file its word; false where the disk keeps none.
bool annota(const std::string& nome, std::string_view parola);

/// True for the names of working files, this process's or another's.
bool e_nome_di_lavoro(std::string_view nome);
/// Deletes the working files that nobody holds any more.
void spazza(const std::string& cartella);

}  // namespace platform
