#include "platform/disk.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <linux/stat.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/runtime.h"

namespace platform {

int Syscalls::open(const char* nome, int modo, mode_t permessi) {
    return ::open(nome, modo | O_CLOEXEC, permessi);
}
ssize_t Syscalls::read(int fd, void* dati, std::size_t quanti) {
    return ::read(fd, dati, quanti);
}
ssize_t Syscalls::write(int fd, const void* dati, std::size_t quanti) {
    return ::write(fd, dati, quanti);
}
int Syscalls::fsync(int fd) {
    return ::fsync(fd);
}
int Syscalls::close(int fd) {
    return ::close(fd);
}
int Syscalls::rename(const char* vecchio, const char* nuovo) {
    return ::rename(vecchio, nuovo);
}
int Syscalls::unlink(const char* nome) {
    return ::unlink(nome);
}
int Syscalls::flock(int fd, int operazione) {
    return ::flock(fd, operazione);
}

namespace {

Syscalls di_sistema;
Syscalls* in_forza = &di_sistema;

Esito da_errno(int errore) {
    if (errore == ENOENT) return Esito::assente;
    if (errore == ENOSPC || errore == EDQUOT) return Esito::disco_pieno;
    return Esito::errore;
}

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

/// Open file that closes itself; `chiudi` tells what the closing said.
class File {
public:
    File() = default;
    File(const std::string& nome, int modo) { apri(nome, modo); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { chiudi(); }
    bool apri(const std::string& nome, int modo) {
        fd_ = syscalls().open(nome.c_str(), modo | O_NONBLOCK, 0666);
        return aperto();
    }
    [[nodiscard]] bool aperto() const { return fd_ >= 0; }
    [[nodiscard]] int fd() const { return fd_; }
    /// A signal during the closing leaves the file closed all the same.
    bool chiudi() {
        if (fd_ < 0) return true;
        const int esito = syscalls().close(fd_);
        fd_ = -1;
        return esito == 0 || errno == EINTR;
    }

private:
    int fd_ = -1;
};

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

/// Closes `file`, whose earlier steps ended with `esito`, and returns the outcome of all.
Esito concludi(File& file, Esito esito) {
    if (!file.chiudi() && esito == Esito::ok) return da_errno(errno);
    return esito;
}

/// Makes a new working file in `cartella`; `nome` stays empty when none could be made.
Esito crea_di_lavoro(const std::string& cartella, File& file, std::string& nome) {
    constexpr int tentativi = 100;
    for (int n = 0; n < tentativi; ++n) {
        const std::string prova =
            cartella + "/temp-" + std::to_string(::getpid()) + "-" + std::to_string(n) + ".nuovo";
        if (file.apri(prova, O_WRONLY | O_CREAT | O_EXCL)) {
            nome = prova;
            return Esito::ok;
        }
        if (errno != EEXIST) return da_errno(errno);
    }
    return Esito::errore;
}

// A file system gives every new file a creation time of its own and lets nobody change it, so that
// of a replaced file goes with its successor in an attribute.
constexpr const char* attributo_creazione = "user.tabellino.creazione";

std::optional<std::int64_t> creazione_annotata(const std::string& nome) {
    std::array<char, 24> testo{};
    const ssize_t n = ::getxattr(nome.c_str(), attributo_creazione, testo.data(), testo.size());
    if (n <= 0) return std::nullopt;
    std::int64_t secondi = 0;
    const auto esito = std::from_chars(testo.data(), testo.data() + n, secondi);
    if (esito.ec != std::errc() || esito.ptr != testo.data() + n) return std::nullopt;
    return secondi;
}

/// Where the disk keeps no attributes, the date is that of the last replacement.
void annota_creazione(const File& file, std::int64_t secondi) {
    const std::string testo = std::to_string(secondi);
    ::fsetxattr(file.fd(), attributo_creazione, testo.data(), testo.size(), 0);
}

/// Makes a rename outlive a power cut; a file system without folder sync loses nothing by it.
void sincronizza_cartella(const std::string& cartella) {
    const int fd = syscalls().open(cartella.c_str(), O_RDONLY | O_DIRECTORY, 0);
    if (fd < 0) return;
    syscalls().fsync(fd);
    syscalls().close(fd);
}

}  // namespace

Syscalls& syscalls() {
    return *in_forza;
}

Syscalls* cambia_syscalls(Syscalls* nuove) {
    Syscalls* prima = in_forza;
    in_forza = nuove != nullptr ? nuove : &di_sistema;
    return prima;
}

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
    struct stat s {};
    if (::lstat(da.c_str(), &s) != 0) return da_errno(errno);
    if (!collegamento_o_file(s)) return Esito::errore;
    // The same file under another case takes the new case; any other file in the way stays.
    if (a != da && ::lstat(a.c_str(), &s) == 0) return Esito::errore;
    const std::string arrivo =
        a == da ? cartella_di(a) + "/" + nuovo.substr(nuovo.rfind('/') + 1) : a;
    return syscalls().rename(da.c_str(), arrivo.c_str()) == 0 ? Esito::ok : da_errno(errno);
}

Esito FileCopy(const std::string& vecchio, const std::string& nuovo, Meta meta) {
    const std::string da = nome_su_disco(vecchio);
    const std::string a = nome_su_disco(nuovo);
    struct stat s1 {};
    struct stat s2 {};
    if (::stat(da.c_str(), &s1) != 0) return da_errno(errno);
    if (!S_ISREG(s1.st_mode)) return Esito::errore;
    const bool nuova = ::lstat(a.c_str(), &s2) != 0;
    if (!nuova && s1.st_dev == s2.st_dev && s1.st_ino == s2.st_ino) return Esito::ok;
    if (!nuova && !S_ISREG(s2.st_mode)) return Esito::errore;
    const File sorgente(da, O_RDONLY);
    // The size of what is open: another program may have put a new file in its place.
    if (!sorgente.aperto() || ::fstat(sorgente.fd(), &s1) != 0) return da_errno(errno);
    File copia;
    std::string lavoro;
    Esito esito = crea_di_lavoro(cartella_di(a), copia, lavoro);
    if (esito == Esito::ok) esito = concludi(copia, travasa(sorgente, copia));
    if (esito == Esito::ok) esito = pubblica(lavoro, a, s1.st_size);
    if (esito == Esito::ok || lavoro.empty()) return esito;
    const bool resta = esito == Esito::disco_pieno && nuova && meta == Meta::resta;
    if (!resta || syscalls().rename(lavoro.c_str(), a.c_str()) != 0)
        syscalls().unlink(lavoro.c_str());
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

Esito pubblica(const std::string& lavoro, const std::string& nome, std::int64_t dimensione,
               Creazione creazione) {
    const std::string partenza = nome_su_disco(lavoro);
    const std::string arrivo = nome_su_disco(nome);
    struct stat s {};
    std::optional<std::int64_t> vecchia;
    if (::lstat(arrivo.c_str(), &s) == 0) {
        if (!collegamento_o_file(s)) return Esito::errore;
        if (S_ISREG(s.st_mode) && creazione == Creazione::resta) vecchia = data_creazione(arrivo);
    }
    if (::lstat(partenza.c_str(), &s) != 0) return da_errno(errno);
    if (!S_ISREG(s.st_mode)) return Esito::errore;
    File file(partenza, O_RDONLY | O_NOFOLLOW);
    if (!file.aperto()) return da_errno(errno);
    if (vecchia) annota_creazione(file, *vecchia);
    Esito esito = sincronizza(file);
    // A full disk can pass unnoticed through write and sync; the size cannot lie.
    if (esito == Esito::ok && (::fstat(file.fd(), &s) != 0 || s.st_size != dimensione)) {
        esito = Esito::disco_pieno;
    }
    esito = concludi(file, esito);
    if (esito != Esito::ok) return esito;
    if (syscalls().rename(partenza.c_str(), arrivo.c_str()) != 0) return da_errno(errno);
    sincronizza_cartella(cartella_di(arrivo));
    return Esito::ok;
}

Esito sostituisci(const std::string& nome, std::string_view dati) {
    const std::string arrivo = nome_su_disco(nome);
    struct stat s {};
    if (::lstat(arrivo.c_str(), &s) == 0 && !collegamento_o_file(s)) return Esito::errore;
    File file;
    std::string lavoro;
    Esito esito = crea_di_lavoro(cartella_di(arrivo), file, lavoro);
    if (esito == Esito::ok) esito = concludi(file, scrivi_tutto(file.fd(), dati));
    if (esito == Esito::ok)
        esito = pubblica(lavoro, arrivo, static_cast<std::int64_t>(dati.size()));
    if (esito != Esito::ok && !lavoro.empty()) syscalls().unlink(lavoro.c_str());
    return esito;
}

std::string nome_di_lavoro(const std::string& cartella, int quale) {
    const std::string fine = quale == 0 ? "" : "-" + std::to_string(quale);
    return cartella + "/temp-" + std::to_string(::getpid()) + fine + ".nuovo";
}

bool lavoro_di_altri(std::string_view nome) {
    pid_t processo = 0;
    if (!e_nome_di_lavoro(nome)) return false;
    const auto [fine, errore] =
        std::from_chars(nome.data() + 5, nome.data() + nome.size(), processo);
    if (errore != std::errc() || processo <= 0 || processo == ::getpid()) return false;
    return ::kill(processo, 0) == 0 || errno == EPERM;
}

bool e_nome_di_lavoro(std::string_view nome) {
    if (!nome.starts_with("temp-") || !nome.ends_with(".nuovo")) return false;
    if (nome.size() < 12) return false;
    const std::string_view numeri = nome.substr(5, nome.size() - 11);
    return numeri.find_first_not_of("0123456789-") == std::string_view::npos && numeri[0] != '-';
}

void spazza(const std::string& cartella) {
    for (const std::string& nome : Dir(cartella, "temp-*")) {
        if (e_nome_di_lavoro(nome) && !lavoro_di_altri(nome)) Kill(cartella + "/" + nome);
    }
}

}  // namespace platform
