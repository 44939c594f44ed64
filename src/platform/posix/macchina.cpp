#include "platform/macchina.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <linux/stat.h>
#include <memory>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/posix/stato.h"
#include "platform/syscalls.h"

namespace platform::macchina {

Voce da_stat(const struct stat& s) {
    constexpr std::int64_t al_secondo = 1'000'000'000;
    Voce voce;
    if (S_ISREG(s.st_mode)) voce.genere = Voce::Genere::file;
    if (S_ISDIR(s.st_mode)) voce.genere = Voce::Genere::cartella;
    if (S_ISLNK(s.st_mode)) voce.genere = Voce::Genere::collegamento;
    voce.disco = s.st_dev;
    voce.nodo = s.st_ino;
    voce.nomi = s.st_nlink;
    voce.byte = s.st_size;
    voce.cambiato = s.st_mtim.tv_sec * al_secondo + s.st_mtim.tv_nsec;
    voce.permessi = s.st_mode & 07777;
    return voce;
}

namespace {

Guasto con_stat(int risposta, const struct stat& s, Voce& voce) {
    if (risposta != 0) return da_errno(errno);
    voce = da_stat(s);
    return Guasto::nessuno;
}

std::optional<std::int64_t> nascita_detta(const std::string& nome) {
    const std::string testo = attributo(nome, attributo_nascita);
    std::int64_t secondi = 0;
    const auto letto = std::from_chars(testo.data(), testo.data() + testo.size(), secondi);
    if (letto.ec != std::errc() || letto.ptr != testo.data() + testo.size()) return std::nullopt;
    return secondi;
}

}  // namespace

Guasto guarda(const std::string& nome, Voce& voce) {
    struct stat s {};
    return con_stat(::stat(nome.c_str(), &s), s, voce);
}

Guasto guarda_il_nome(const std::string& nome, Voce& voce) {
    struct stat s {};
    return con_stat(::lstat(nome.c_str(), &s), s, voce);
}

bool c_e(const std::string& nome) {
    struct stat s {};
    return ::lstat(nome.c_str(), &s) == 0;
}

bool nome_possibile(const std::string& nome) {
    return nome.size() < PATH_MAX;
}

std::vector<std::string> voci(const std::string& cartella) {
    std::vector<std::string> nomi;
    DIR* d = ::opendir(cartella.c_str());
    if (d == nullptr) return nomi;
    while (const dirent* voce = ::readdir(d)) nomi.emplace_back(voce->d_name);
    ::closedir(d);
    return nomi;
}

bool scrivibile(const std::string& cartella) {
    return ::access(cartella.c_str(), W_OK | X_OK) == 0;
}

std::optional<std::int64_t> nascita(const std::string& nome) {
    if (const auto detta = nascita_detta(nome)) return detta;
    struct statx s {};
    if (::syscall(SYS_statx, AT_FDCWD, nome.c_str(), 0, STATX_BTIME | STATX_MTIME, &s) != 0)
        return std::nullopt;
    return (s.stx_mask & STATX_BTIME) != 0 ? s.stx_btime.tv_sec : s.stx_mtime.tv_sec;
}

std::string percorso_reale(const std::string& nome) {
    const std::unique_ptr<char, decltype(&std::free)> reale(::realpath(nome.c_str(), nullptr),
                                                            &std::free);
    return reale ? reale.get() : "";
}

std::string meta(const std::string& nome) {
    std::array<char, PATH_MAX> testo{};
    const ssize_t n = ::readlink(nome.c_str(), testo.data(), testo.size());
    return {testo.data(), n > 0 ? static_cast<std::size_t>(n) : 0};
}

std::string attributo(const std::string& nome, const char* quale) {
    std::array<char, 256> testo{};
    const ssize_t n = ::getxattr(nome.c_str(), quale, testo.data(), testo.size());
    return {testo.data(), n > 0 ? static_cast<std::size_t>(n) : 0};
}

void crea_cartella(const std::string& nome) {
    ::mkdir(nome.c_str(), 0777);
}

std::string cartella_temporanea(const std::string& nome) {
    std::error_code errore;
    const std::filesystem::path dove = std::filesystem::temp_directory_path(errore);
    std::string modello = (dove / (nome + "XXXXXX")).string();
    return errore || ::mkdtemp(modello.data()) == nullptr ? "" : modello;
}

bool cestina(const std::string& /*nome*/) {
    return false;
}

void sincronizza_cartella(const std::string& cartella) {
    // A file system without folder sync loses nothing by it.
    const int fd = syscalls().open(cartella.c_str(), O_RDONLY | O_DIRECTORY, 0);
    if (fd < 0) return;
    syscalls().fsync(fd);
    syscalls().close(fd);
}

Guasto collega(const std::string& meta, const std::string& nome) {
    return ::symlink(meta.c_str(), nome.c_str()) == 0 ? Guasto::nessuno : da_errno(errno);
}

std::int64_t processo() {
    return ::getpid();
}

std::optional<std::tm> ora_locale(std::int64_t secondi) {
    const auto istante = static_cast<time_t>(secondi);
    std::tm parti{};
    return ::localtime_r(&istante, &parti) != nullptr ? std::optional(parti) : std::nullopt;
}

std::string cartella_eseguibile() {
    const std::string percorso = meta("/proc/self/exe");
    return percorso.substr(0, percorso.rfind('/'));
}

char barra() {
    return '/';
}

std::string coda_dei_programmi() {
    return "";
}

std::optional<bool> finestre_scure() {
    return std::nullopt;
}

std::string dati_utente() {
    const auto variabile = [](const char* nome) -> std::string {
        const char* valore = std::getenv(nome);
        return valore != nullptr ? valore : "";
    };
    const std::string xdg = variabile("XDG_DATA_HOME");
    // The desktop's rule: a relative path there is invalid and counts as unset.
    if (!xdg.empty() && xdg.front() == '/') return xdg;
    std::string casa = variabile("HOME");
    if (casa.empty() || casa.front() != '/') {
        const passwd* utente = ::getpwuid(::getuid());
        casa = utente != nullptr && utente->pw_dir != nullptr ? utente->pw_dir : "";
    }
    return casa + "/.local/share";
}

Soprannome::Soprannome(const std::string& cartella)
    : fd_(::open(cartella.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {}

Soprannome::~Soprannome() {
    if (fd_ >= 0) ::close(fd_);
}

std::string Soprannome::nome() const {
    return fd_ < 0 ? "" : "/proc/" + std::to_string(::getpid()) + "/fd/" + std::to_string(fd_);
}

}  // namespace platform::macchina
