#include "platform/links.h"

#include <cstdlib>
#include <memory>
#include <sys/stat.h>

#include "platform/disk.h"

namespace platform {

namespace {

/// Path without links; empty when it leads nowhere.
std::string percorso_reale(const std::string& nome) {
    const std::unique_ptr<char, decltype(&std::free)> reale(::realpath(nome.c_str(), nullptr),
                                                            &std::free);
    return reale ? reale.get() : "";
}

std::string sopra(const std::string& nome) {
    const std::size_t barra = nome.rfind('/');
    return barra == std::string::npos ? "." : nome.substr(0, barra + 1);
}

bool uguali(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

bool esce_dalla_cartella(const std::string& nome) {
    const std::string reale = nome_su_disco(nome);
    struct stat s {};
    if (::lstat(reale.c_str(), &s) != 0 || !S_ISLNK(s.st_mode)) return false;
    const std::string meta = percorso_reale(reale);
    return meta.empty() || percorso_reale(sopra(meta)) != percorso_reale(sopra(reale));
}

bool stesso_file(const std::string& origine, const std::string& arrivo) {
    const std::string da = nome_su_disco(origine);
    const std::string a = nome_su_disco(arrivo);
    struct stat meta {};
    struct stat s {};
    if (::lstat(a.c_str(), &meta) != 0) return false;
    return (::lstat(da.c_str(), &s) == 0 && uguali(s, meta)) ||
           (::stat(da.c_str(), &s) == 0 && uguali(s, meta));
}

bool collegamento(const std::string& nome) {
    struct stat s {};
    return ::lstat(nome_su_disco(nome).c_str(), &s) == 0 && S_ISLNK(s.st_mode);
}

std::optional<Impronta> impronta(const std::string& nome) {
    struct stat s {};
    if (::stat(nome_su_disco(nome).c_str(), &s) != 0 || !S_ISREG(s.st_mode)) return std::nullopt;
    constexpr std::int64_t al_secondo = 1'000'000'000;
    return Impronta{s.st_dev, s.st_ino, s.st_size,
                    s.st_mtim.tv_sec * al_secondo + s.st_mtim.tv_nsec};
}

}  // namespace platform
