// Files as the program sees them: names without case, outcomes instead of exceptions.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace platform {

/// The system calls that can meet a failing device; a test puts its own in their place.
class Syscalls {
public:
    virtual ~Syscalls() = default;
    virtual int open(const char* nome, int modo, mode_t permessi);
    virtual ssize_t read(int fd, void* dati, std::size_t quanti);
    virtual ssize_t write(int fd, const void* dati, std::size_t quanti);
    virtual int fsync(int fd);
    virtual int close(int fd);
    virtual int rename(const char* vecchio, const char* nuovo);
    virtual int unlink(const char* nome);
    virtual int flock(int fd, int operazione);
};

/// The calls in force, never null.
Syscalls& syscalls();
/// Puts `nuove` in force (null: the system's own); not owned. Returns those before.
Syscalls* cambia_syscalls(Syscalls* nuove);

/// Result of a file step.
enum class Esito {
    ok,
    assente,      ///< no such file
    disco_pieno,  ///< no space or quota left
    errore,       ///< anything else
};

/// `nome` as it stands on the disk: a component that is there only in another case is replaced
/// by that; a name that is not there comes back unchanged, one with a null in it empty.
std::string nome_su_disco(const std::string& nome);

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
/// Renames a file; fails when `nuovo` names another file that exists.
Esito Name(const std::string& vecchio, const std::string& nuovo);
/// What becomes of a new copy that the disk had no room for.
enum class Meta { via, resta };
/// Copies the content onto `nuovo`, whole or not at all; a new file may stay as far as it got when
/// the disk fills.
Esito FileCopy(const std::string& vecchio, const std::string& nuovo, Meta meta = Meta::via);

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
/// Anything but a regular file or a link at `nome` is refused; `lavoro` stays on failure.
Esito pubblica(const std::string& lavoro, const std::string& nome, std::int64_t dimensione,
               Creazione creazione = Creazione::resta);
/// Replaces the content of `nome` whole or not at all, through a working file beside it.
Esito sostituisci(const std::string& nome, std::string_view dati);

/// Name of a working file in `cartella`, this process's own; swept with the others. From 100 on
/// `quale` tells several apart.
std::string nome_di_lavoro(const std::string& cartella, int quale = 0);
/// True for the names of working files, this process's or another's.
bool e_nome_di_lavoro(std::string_view nome);
/// True for a working file of another process that still runs, which may be about to use it.
bool lavoro_di_altri(std::string_view nome);
/// Deletes the working files that processes left which are no more.
void spazza(const std::string& cartella);

}  // namespace platform
