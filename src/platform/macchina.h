// What the platform asks of the machine's own system: a narrow interface of plain steps, which each
// system has an implementation of in a folder of its own. Names are taken as they stand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace platform::macchina {

/// Why a step failed.
enum class Guasto {
    nessuno,
    assente,      ///< nothing of that name
    percorso,     ///< a name that cannot lead anywhere
    permesso,     ///< not allowed
    occupato,     ///< in use by another
    esiste,       ///< something of that name is there
    altro_disco,  ///< the two names are on different disks
    pieno,        ///< no space or quota left
    altro,
};
/// Of a call that failed with that errno.
Guasto da_errno(int errore);

/// What stands under a name.
struct Voce {
    enum class Genere { file, cartella, collegamento, altro };
    Genere genere = Genere::altro;
    std::uint64_t disco = 0;
    std::uint64_t nodo = 0;  ///< tells it from everything else on the disk
    std::uint64_t nomi = 0;  ///< how many names it has; 0 once it was deleted
    std::int64_t byte = 0;
    std::int64_t cambiato = 0;  ///< nanoseconds since 1970, of its content
    unsigned permessi = 0;

    [[nodiscard]] bool file() const { return genere == Genere::file; }
    [[nodiscard]] bool cartella() const { return genere == Genere::cartella; }
    [[nodiscard]] bool collegamento() const { return genere == Genere::collegamento; }
    [[nodiscard]] bool collegamento_o_file() const { return file() || collegamento(); }
    [[nodiscard]] bool stesso(const Voce& altra) const {
        return disco == altra.disco && nodo == altra.nodo;
    }
};

/// Looks at what a name leads to; `voce` stays on failure.
Guasto guarda(const std::string& nome, Voce& voce);
/// Looks at what stands under the name itself, a link not followed.
Guasto guarda_il_nome(const std::string& nome, Voce& voce);
/// True when anything stands under the name itself.
bool c_e(const std::string& nome);
/// False of a name that is longer than any can be.
bool nome_possibile(const std::string& nome);
/// The names in a folder, in no order; none of one that cannot be read.
std::vector<std::string> voci(const std::string& cartella);
/// True when files can be made in the folder.
bool scrivibile(const std::string& cartella);
/// When the file was made, or what `File::nasce` told, in seconds since 1970; its last change where
/// the disk keeps no such time.
std::optional<std::int64_t> nascita(const std::string& nome);
/// The whole name without links, empty when it leads nowhere.
std::string percorso_reale(const std::string& nome);
/// Where a link leads, empty when it is none.
std::string meta(const std::string& nome);
/// A word that the disk keeps with a file, empty without one.
std::string attributo(const std::string& nome, const char* quale);

void crea_cartella(const std::string& nome);
/// Makes a folder for a while, whose name begins so; empty when none can be made.
std::string cartella_temporanea(const std::string& nome);
Guasto togli(const std::string& nome);
/// Takes a file away by the system's own bin, for good where the disk has none; false where the
/// system has no such call of its own, or it failed.
bool cestina(const std::string& nome);
Guasto rinomina(const std::string& vecchio, const std::string& nuovo);
/// Leaves what is at `nuovo` alone; on disks without such a step as nearly so as they do.
Guasto rinomina_senza_coprire(const std::string& vecchio, const std::string& nuovo);
/// Makes a rename in the folder outlive a power cut, where the disk can.
void sincronizza_cartella(const std::string& cartella);
/// Makes a link at `nome` that leads to `meta`.
Guasto collega(const std::string& meta, const std::string& nome);

/// The number of this process.
std::int64_t processo();
/// The local calendar's date and time.
std::optional<std::tm> ora_locale(std::int64_t secondi);
/// Folder of the running executable, empty when the system does not tell.
std::string cartella_eseguibile();
/// What stands between a folder and what is in it where the system's own programs write names.
char barra();
/// The ending of a program's file.
std::string coda_dei_programmi();
/// Whether the user wants dark windows; nothing where the system has no such wish of its own.
std::optional<bool> finestre_scure();
/// Where the user's own programs keep their data.
std::string dati_utente();

/// A name in plain characters for a folder whose own may hold any bytes, as long as this lives;
/// empty when there is none.
class Soprannome {
public:
    explicit Soprannome(const std::string& cartella);
    Soprannome(const Soprannome&) = delete;
    Soprannome& operator=(const Soprannome&) = delete;
    ~Soprannome();
    [[nodiscard]] std::string nome() const;

private:
    std::string nome_;
    int fd_ = -1;
};

}  // namespace platform::macchina
