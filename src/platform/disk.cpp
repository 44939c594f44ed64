#include "platform/disk.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <linux/stat.h>
#include <memory>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/lavoro.h"
#include "platform/runtime.h"

namespace platform {

namespace {

std::string cartella_di(const std::string& nome) {
    const std::size_t barra = nome.rfind('/');
    if (barra == std::string::npos) return ".";
    return barra == 0 ? "/" : nome.substr(0, barra);
}

/// Position after the UTF-8 character at `i`.
std::size_t dopo_carattere(std::string_view s, std::size_t i) {
    ++i;
    while (i < s.size() && (static_cast<unsigned char>(s[i]) & 0xC0) == 0x80) ++i;
    return i;
}

bool stato(const std::string& nome, struct stat& s) {
    return ::stat(nome_su_disco(nome).c_str(), &s) == 0;
}

/// Entry of `cartella` whose name equals `nome` but for case; empty when there is none.
std::string voce_senza_caso(const std::string& cartella, std::string_view nome) {
    DIR* d = ::opendir(cartella.c_str());
    if (d == nullptr) return "";
    const std::string cercato = LCase(nome);
    std::string trovato;
    while (const dirent* voce = ::readdir(d)) {
        if (LCase(voce->d_name) == cercato && (trovato.empty() || trovato > voce->d_name)) {
            trovato = voce->d_name;
        }
    }
    ::closedir(d);
    return trovato;
}

bool collegamento_o_file(const struct stat& s) {
    return S_ISREG(s.st_mode) || S_ISLNK(s.st_mode);
}

/// True when nothing but a plain file, or nothing at all, stands at `nome`, links not followed.
/// A device, pipe or link there must neither be written nor be waited for.
bool libero_o_file(const std::string& nome) {
    struct stat s {};
    return ::lstat(nome.c_str(), &s) != 0 || S_ISREG(s.st_mode);
}

Esito scrivi_tutto(int fd, std::string_view dati) {
    while (!dati.empty()) {
        const ssize_t n = syscalls().write(fd, dati.data(), dati.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return da_errno(errno);
        if (n == 0) return Esito::disco_pieno;
        dati.remove_prefix(static_cast<std::size_t>(n));
    }
    return Esito::ok;
}

/// Appends what is left of `sorgente` to `copia`.
Esito travasa(const File& sorgente, const File& copia) {
    std::string blocco(std::size_t{1} << 18, '\0');
    for (;;) {
        const ssize_t n = syscalls().read(sorgente.fd(), blocco.data(), blocco.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return da_errno(errno);
        if (n == 0) return Esito::ok;
        const Esito esito = scrivi_tutto(
            copia.fd(), std::string_view(blocco).substr(0, static_cast<std::size_t>(n)));
        if (esito != Esito::ok) return esito;
    }
}

Esito sincronizza(const File& file) {
    int esito = 0;
    do {
        esito = syscalls().fsync(file.fd());
    } while (esito != 0 && errno == EINTR);
    return esito == 0 ? Esito::ok : da_errno(errno);
}

// A file system gives every new file a creation time of its own and lets nobody change it, so that
// of a replaced file goes with its successor in an attribute.
constexpr const char* attributo_creazione = "user.tabellino.creazione";
constexpr const char* attributo_parola = "user.tabellino.parola";

/// Value of an attribute, empty without it.
std::string attributo(const std::string& nome, const char* quale) {
    std::array<char, 256> testo{};
    const ssize_t n = ::getxattr(nome.c_str(), quale, testo.data(), testo.size());
    return {testo.data(), n > 0 ? static_cast<std::size_t>(n) : 0};
}

std::string attributo(const File& file, const char* quale) {
    std::array<char, 256> testo{};
    const ssize_t n = ::fgetxattr(file.fd(), quale, testo.data(), testo.size());
    return {testo.data(), n > 0 ? static_cast<std::size_t>(n) : 0};
}

bool scrivi_attributo(const File& file, const char* quale, std::string_view testo) {
    return syscalls().fsetxattr(file.fd(), quale, testo.data(), testo.size()) == 0;
}

std::optional<std::int64_t> creazione_annotata(const std::string& nome) {
    const std::string testo = attributo(nome, attributo_creazione);
    std::int64_t secondi = 0;
    const auto esito = std::from_chars(testo.data(), testo.data() + testo.size(), secondi);
    if (esito.ec != std::errc() || esito.ptr != testo.data() + testo.size()) return std::nullopt;
    return secondi;
}

/// A rename that leaves a file at `a` alone; on disks without such a call as nearly so as they do.
int rinomina_senza_coprire(const std::string& da, const std::string& a) {
    if (syscalls().rename_noreplace(da.c_str(), a.c_str()) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) return -1;
    if (syscalls().link(da.c_str(), a.c_str()) == 0) return syscalls().unlink(da.c_str());
    if (errno == EEXIST) return -1;
    struct stat s {};
    if (::lstat(a.c_str(), &s) == 0) {
        errno = EEXIST;
        return -1;
    }
    return syscalls().rename(da.c_str(), a.c_str());
}

/// Gives a file another case of its own name, by way of a third name where the disk takes both
/// for one: a name that is listed, should the second step never come.
int rinomina_nel_caso(const std::string& da, const std::string& a) {
    if (rinomina_senza_coprire(da, a) == 0) return 0;
    if (errno != EEXIST) return -1;
    const std::size_t punto = a.rfind('.');
    const std::size_t dove = punto == std::string::npos || punto < a.rfind('/') ? a.size() : punto;
    const std::string terzo = a.substr(0, dove) + "-" + a.substr(dove);
    if (rinomina_senza_coprire(da, terzo) != 0) return -1;
    if (rinomina_senza_coprire(terzo, a) == 0) return 0;
    const int errore = errno;
    rinomina_senza_coprire(terzo, da);
    errno = errore;
    return -1;
}

/// Makes a rename outlive a power cut; a file system without folder sync loses nothing by it.
void sincronizza_cartella(const std::string& cartella) {
    const int fd = syscalls().open(cartella.c_str(), O_RDONLY | O_DIRECTORY, 0);
    if (fd < 0) return;
    syscalls().fsync(fd);
    syscalls().close(fd);
}

}  // namespace

std::string nome_su_disco(const std::string& nome) {
    struct stat s {};
    // The system would cut the name at a null and hit another file.
    if (nome.find('\0') != std::string::npos) return "";
    if (nome.empty() || nome.size() >= PATH_MAX || ::lstat(nome.c_str(), &s) == 0) return nome;
    if (nome.back() == '/') {
        const std::size_t fine = nome.find_last_not_of('/');
        return fine == std::string::npos ? nome : nome_su_disco(nome.substr(0, fine + 1)) + "/";
    }
    const std::size_t barra = nome.rfind('/');
    const std::string ultimo = barra == std::string::npos ? nome : nome.substr(barra + 1);
    const std::string cartella =
        barra == std::string::npos ? "." : nome_su_disco(cartella_di(nome));
    const std::string voce = voce_senza_caso(cartella, ultimo);
    const std::string finale = voce.empty() ? ultimo : voce;
    if (barra == std::string::npos) return finale;
    return cartella.back() == '/' ? cartella + finale : cartella + "/" + finale;
}

bool esiste_file(const std::string& nome) {
    struct stat s {};
    return stato(nome, s) && S_ISREG(s.st_mode);
}

bool esiste_cartella(const std::string& nome) {
    struct stat s {};
    return stato(nome, s) && S_ISDIR(s.st_mode);
}

bool cartella_scrivibile(const std::string& nome) {
    return esiste_cartella(nome) && ::access(nome_su_disco(nome).c_str(), W_OK | X_OK) == 0;
}

bool crea_cartella(const std::string& nome) {
    if (esiste_cartella(nome)) return true;
    if (nome.empty() || nome.size() >= PATH_MAX) return false;
    const std::string sopra = cartella_di(nome);
    if (sopra != nome && sopra != "." && !crea_cartella(sopra)) return false;
    ::mkdir(nome_su_disco(nome).c_str(), 0777);
    return esiste_cartella(nome);
}

std::optional<std::int64_t> dimensione_file(const std::string& nome) {
    struct stat s {};
    if (!stato(nome, s) || !S_ISREG(s.st_mode)) return std::nullopt;
    return s.st_size;
}

std::optional<std::int64_t> data_creazione(const std::string& nome) {
    struct statx s {};
    const std::string reale = nome_su_disco(nome);
    if (const auto annotata = creazione_annotata(reale)) return annotata;
    if (::syscall(SYS_statx, AT_FDCWD, reale.c_str(), 0, STATX_BTIME | STATX_MTIME, &s) != 0) {
        return std::nullopt;
    }
    return (s.stx_mask & STATX_BTIME) != 0 ? s.stx_btime.tv_sec : s.stx_mtime.tv_sec;
}

std::string testo_data_ora(std::int64_t secondi) {
    const auto istante = static_cast<time_t>(secondi);
    std::tm parti{};
    char testo[32] = "";
    if (::localtime_r(&istante, &parti) == nullptr) return "";
    return std::string(testo, std::strftime(testo, sizeof testo, "%d/%m/%y %H.%M.%S", &parti));
}

bool corrisponde(std::string_view nome, std::string_view modello) {
    return Like(LCase(nome), LCase(modello));
}

bool Like(std::string_view n, std::string_view m) {
    std::size_t i = 0;
    std::size_t j = 0;
    std::size_t stella = std::string::npos;
    std::size_t ripresa = 0;
    while (i < n.size()) {
        if (j < m.size() && m[j] == '?') {
            i = dopo_carattere(n, i);
            ++j;
        } else if (j < m.size() && m[j] != '*' && m[j] == n[i]) {
            ++i;
            ++j;
        } else if (j < m.size() && m[j] == '*') {
            stella = j++;
            ripresa = i;
        } else if (stella != std::string::npos) {
            j = stella + 1;
            i = ripresa = dopo_carattere(n, ripresa);
        } else {
            return false;
        }
    }
    while (j < m.size() && m[j] == '*') ++j;
    return j == m.size();
}

std::vector<std::string> Dir(const std::string& cartella, std::string_view modello) {
    std::vector<std::string> nomi;
    const std::string reale = nome_su_disco(cartella.empty() ? "." : cartella);
    DIR* d = ::opendir(reale.c_str());
    if (d == nullptr) return nomi;
    while (const dirent* voce = ::readdir(d)) {
        if (!corrisponde(voce->d_name, modello)) continue;
        struct stat s {};
        if (::stat((reale + "/" + voce->d_name).c_str(), &s) == 0 && S_ISREG(s.st_mode)) {
            nomi.emplace_back(voce->d_name);
        }
    }
    ::closedir(d);
    std::sort(nomi.begin(), nomi.end(), [](const std::string& a, const std::string& b) {
        const std::string x = LCase(a);
        const std::string y = LCase(b);
        return x != y ? x < y : a < b;
    });
    return nomi;
}

Esito Kill(const std::string& nome) {
    struct stat s {};
    const std::string reale = nome_su_disco(nome);
    if (::lstat(reale.c_str(), &s) != 0) return da_errno(errno);
    if (!collegamento_o_file(s)) return Esito::errore;
    return syscalls().unlink(reale.c_str()) == 0 ? Esito::ok : da_errno(errno);
}

Esito Name(const std::string& vecchio, const std::string& nuovo) {
    const std::string da = nome_su_disco(vecchio);
    const std::string a = nome_su_disco(nuovo);
    struct stat s1 {};
    struct stat s2 {};
    if (::lstat(da.c_str(), &s1) != 0) return da_errno(errno);
    if (!collegamento_o_file(s1)) return Esito::errore;
    // The same file under another case takes the new case; any other file in the way stays.
    const bool c_e = ::lstat(a.c_str(), &s2) == 0;
    const bool stesso =
        c_e && s1.st_dev == s2.st_dev && s1.st_ino == s2.st_ino && LCase(da) == LCase(a);
    if (c_e && !stesso) return Esito::errore;
    const std::string arrivo =
        stesso ? cartella_di(a) + "/" + nuovo.substr(nuovo.rfind('/') + 1) : a;
    if (arrivo == da) return Esito::ok;
    const int esito = stesso ? rinomina_nel_caso(da, arrivo) : rinomina_senza_coprire(da, arrivo);
    return esito == 0 ? Esito::ok : da_errno(errno);
}

Esito copia_in(const std::string& origine, Lavoro& lavoro, std::int64_t& dimensione,
               std::string_view parola) {
    if (lavoro.esito() != Esito::ok) return lavoro.esito();
    const std::string da = nome_su_disco(origine);
    struct stat s {};
    if (::stat(da.c_str(), &s) != 0) return da_errno(errno);
    if (!S_ISREG(s.st_mode)) return Esito::errore;
    const File sorgente(da, O_RDONLY);
    // The size of what is open: another program may have put a new file in its place.
    if (!sorgente.aperto() || ::fstat(sorgente.fd(), &s) != 0) return da_errno(errno);
    dimensione = s.st_size;
    Esito esito = travasa(sorgente, lavoro.file());
    // Of what was copied: by its name it would be that of a file put there meanwhile.
    const std::string sua = attributo(sorgente, attributo_parola);
    if (!sua.empty() || !parola.empty())
        scrivi_attributo(lavoro.file(), attributo_parola, sua.empty() ? parola : sua);
    if (esito == Esito::ok) esito = sincronizza(lavoro.file());
    // A full disk can pass unnoticed through write and sync; the size cannot lie.
    if (esito == Esito::ok && (::fstat(lavoro.file().fd(), &s) != 0 || s.st_size != dimensione)) {
        esito = Esito::disco_pieno;
    }
    return concludi(lavoro.file(), esito);
}

Esito FileCopy(const std::string& vecchio, const std::string& nuovo, Meta meta,
               std::string_view parola) {
    const std::string da = nome_su_disco(vecchio);
    const std::string a = nome_su_disco(nuovo);
    struct stat s1 {};
    struct stat s2 {};
    if (::stat(da.c_str(), &s1) != 0) return da_errno(errno);
    if (!S_ISREG(s1.st_mode)) return Esito::errore;
    const bool nuova = ::lstat(a.c_str(), &s2) != 0;
    if (!nuova && s1.st_dev == s2.st_dev && s1.st_ino == s2.st_ino) return Esito::ok;
    if (!nuova && !S_ISREG(s2.st_mode)) return Esito::errore;
    Lavoro lavoro(cartella_di(a));
    std::int64_t dimensione = 0;
    Esito esito = copia_in(da, lavoro, dimensione, parola);
    if (esito == Esito::ok) esito = lavoro.pubblica(a, dimensione);
    const bool resta = esito == Esito::disco_pieno && nuova && meta == Meta::resta;
    if (resta && !lavoro.nome().empty() && rinomina_senza_coprire(lavoro.nome(), a) == 0)
        lavoro.lascia();
    return esito;
}

Esito aggiungi(const std::string& nome, std::string_view dati) {
    const std::string reale = nome_su_disco(nome);
    if (!libero_o_file(reale)) return Esito::errore;
    File file(reale, O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW);
    struct stat s {};
    if (!file.aperto() || ::fstat(file.fd(), &s) != 0) return da_errno(errno);
    const Esito esito = scrivi_tutto(file.fd(), dati);
    // Half an append would leave a torn line for the next one to join.
    if (esito != Esito::ok && ::ftruncate(file.fd(), s.st_size) != 0) return esito;
    return concludi(file, esito);
}

Esito scrivi(const std::string& nome, std::string_view dati) {
    const std::string reale = nome_su_disco(nome);
    struct stat s {};
    if (::lstat(reale.c_str(), &s) == 0) {
        return S_ISREG(s.st_mode) ? sostituisci(nome, dati) : Esito::errore;
    }
    File file(reale, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.aperto()) return da_errno(errno);
    Esito esito = scrivi_tutto(file.fd(), dati);
    if (esito == Esito::ok) esito = sincronizza(file);
    esito = concludi(file, esito);
    if (esito != Esito::ok) syscalls().unlink(reale.c_str());
    return esito;
}

std::optional<std::string> leggi_tutto(const std::string& nome, std::int64_t limite) {
    struct stat s {};
    const std::string reale = nome_su_disco(nome);
    if (::stat(reale.c_str(), &s) != 0 || !S_ISREG(s.st_mode)) return std::nullopt;
    const File file(reale, O_RDONLY);
    if (!file.aperto() || ::fstat(file.fd(), &s) != 0 || !S_ISREG(s.st_mode)) return std::nullopt;
    if (s.st_size > limite) return std::nullopt;
    std::string dati(static_cast<std::size_t>(s.st_size), '\0');
    std::size_t letti = 0;
    while (letti < dati.size()) {
        const ssize_t n = syscalls().read(file.fd(), dati.data() + letti, dati.size() - letti);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return std::nullopt;
        if (n == 0) break;
        letti += static_cast<std::size_t>(n);
    }
    dati.resize(letti);
    return dati;
}

namespace {

/// Moves a finished file to a place on another disk.
Esito trasloca(const std::string& da, const std::string& a, std::int64_t dimensione,
               Creazione creazione) {
    Lavoro lavoro(cartella_di(a));
    std::int64_t copiati = 0;
    Esito esito = copia_in(da, lavoro, copiati);
    if (esito == Esito::ok && copiati != dimensione) esito = Esito::errore;
    if (esito == Esito::ok) esito = lavoro.pubblica(a, dimensione, creazione);
    if (esito == Esito::ok) syscalls().unlink(da.c_str());
    return esito;
}

}  // namespace

Esito pubblica(const std::string& lavoro, const std::string& nome, std::int64_t dimensione,
               Creazione creazione) {
    const std::string partenza = nome_su_disco(lavoro);
    const std::string arrivo = nome_su_disco(nome);
    struct stat vecchio {};
    struct stat s {};
    const bool c_era = ::lstat(arrivo.c_str(), &vecchio) == 0;
    if (c_era && !collegamento_o_file(vecchio)) return Esito::errore;
    if (::lstat(partenza.c_str(), &s) != 0) return da_errno(errno);
    if (!S_ISREG(s.st_mode)) return Esito::errore;
    File file(partenza, O_RDONLY | O_NOFOLLOW);
    if (!file.aperto()) return da_errno(errno);
    if (c_era && S_ISREG(vecchio.st_mode)) {
        // Where the disk keeps no attributes, the date is that of the last replacement; where it
        // keeps no modes, there is none to lose.
        const auto vecchia = creazione == Creazione::resta ? data_creazione(arrivo) : std::nullopt;
        if (vecchia) scrivi_attributo(file, attributo_creazione, std::to_string(*vecchia));
        static_cast<void>(::fchmod(file.fd(), vecchio.st_mode & 07777));
    }
    Esito esito = sincronizza(file);
    // A full disk can pass unnoticed through write and sync; the size cannot lie.
    if (esito == Esito::ok && (::fstat(file.fd(), &s) != 0 || s.st_size != dimensione)) {
        esito = Esito::disco_pieno;
    }
    esito = concludi(file, esito);
    if (esito != Esito::ok) return esito;
    if (syscalls().rename(partenza.c_str(), arrivo.c_str()) != 0) {
        return errno == EXDEV ? trasloca(partenza, arrivo, dimensione, creazione) : da_errno(errno);
    }
    sincronizza_cartella(cartella_di(arrivo));
    return Esito::ok;
}

std::string dietro_il_collegamento(const std::string& nome) {
    const std::string reale = nome_su_disco(nome);
    struct stat s {};
    if (::lstat(reale.c_str(), &s) != 0 || !S_ISLNK(s.st_mode)) return reale;
    const std::unique_ptr<char, decltype(&std::free)> vero(::realpath(reale.c_str(), nullptr),
                                                           &std::free);
    return vero == nullptr ? reale : vero.get();
}

Esito sostituisci(const std::string& nome, std::string_view dati) {
    const std::string arrivo = dietro_il_collegamento(nome);
    struct stat s {};
    if (::lstat(arrivo.c_str(), &s) == 0 && !collegamento_o_file(s)) return Esito::errore;
    Lavoro lavoro(cartella_di(arrivo));
    if (lavoro.esito() != Esito::ok) return lavoro.esito();
    const Esito esito = concludi(lavoro.file(), scrivi_tutto(lavoro.file().fd(), dati));
    return esito == Esito::ok ? lavoro.pubblica(arrivo, static_cast<std::int64_t>(dati.size()))
                              : esito;
}

std::string annotazione(const std::string& nome) {
    return attributo(nome_su_disco(nome), attributo_parola);
}

bool annota(const std::string& nome, std::string_view parola) {
    const File file(nome_su_disco(nome), O_RDONLY | O_NOFOLLOW);
    return file.aperto() && scrivi_attributo(file, attributo_parola, parola);
}

}  // namespace platform
