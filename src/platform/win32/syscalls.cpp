#include "platform/syscalls.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <io.h>
#include <vector>

#include "platform/win32/modi.h"
#include "platform/win32/nomi.h"
#include "platform/win32/parola.h"

namespace platform {

using win32::con_tutti;
using win32::fallito;
using win32::Maniglia;
using win32::maniglia_del_file;
using win32::nome_largo;
using win32::risposta;

namespace {

/// The C library keeps the system's own error beside errno, which tells less.
std::ptrdiff_t dalla_libreria(int esito) {
    if (esito >= 0) return esito;
    if (const unsigned long errore = _doserrno; errore != 0) errno = win32::errno_di(errore);
    return -1;
}

/// Scanners and indexers hold a file for a moment after it was written: a step that they are in
/// the way of is tried again, and no longer than a player would not notice.
template <typename Passo>
int con_pazienza(const Passo& passo) {
    constexpr int tentativi = 6;
    constexpr DWORD pausa_ms = 20;
    for (int n = 1;; ++n) {
        if (passo()) return 0;
        const DWORD errore = GetLastError();
        const bool passeggero = errore == ERROR_SHARING_VIOLATION || errore == ERROR_ACCESS_DENIED;
        if (!passeggero || n == tentativi) return risposta(false);
        Sleep(pausa_ms);
    }
}

DWORD diritti_di(int modo) {
    switch (modo & (_O_RDONLY | _O_WRONLY | _O_RDWR)) {
        case _O_WRONLY:
            return GENERIC_WRITE;
        case _O_RDWR:
            return GENERIC_READ | GENERIC_WRITE;
        default:
            return GENERIC_READ;
    }
}

DWORD disposizione_di(int modo) {
    if ((modo & _O_CREAT) == 0) return OPEN_EXISTING;
    return (modo & _O_EXCL) != 0 ? CREATE_NEW : OPEN_ALWAYS;
}

/// Renames in one step that those who read the old file do not bar, as far as the disk knows it.
bool rinomina_come_posix(const std::wstring& da, const std::wstring& a) {
    struct Voluto {
        DWORD come;
        HANDLE radice;
        DWORD byte;
        wchar_t nome[1];
    };
    constexpr auto rinomina_estesa = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
    constexpr DWORD copri_come_posix = 1U | 2U;
    const Maniglia file(win32::per_guardare(da, false, DELETE | SYNCHRONIZE));
    if (!file.valida()) return false;
    const std::size_t byte = a.size() * sizeof(wchar_t);
    std::vector<std::uint64_t> posto((sizeof(Voluto) + byte) / sizeof(std::uint64_t) + 1);
    auto* voluto = reinterpret_cast<Voluto*>(posto.data());
    voluto->come = copri_come_posix;
    voluto->byte = static_cast<DWORD>(byte);
    std::memcpy(voluto->nome, a.data(), byte);
    return SetFileInformationByHandle(file, rinomina_estesa, voluto,
                                      static_cast<DWORD>(posto.size() * sizeof(std::uint64_t))) !=
           0;
}

HANDLE al_posto_della_cartella(const std::wstring& cartella) {
    return CreateFileW((cartella + L"\\.tabellino-blocco").c_str(), GENERIC_READ | GENERIC_WRITE,
                       con_tutti, nullptr, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

bool non_lo_conosce(DWORD errore) {
    return win32::errno_di(errore) == EINVAL || errore == ERROR_INVALID_LEVEL;
}

}  // namespace

int Syscalls::open(const char* nome, int modo, unsigned /*permessi*/) {
    const std::wstring voluto = nome_largo(nome);
    if (voluto.empty()) {
        errno = *nome == '\0' ? ENOENT : ENOTDIR;
        return -1;
    }
    if ((modo & win32::non_seguire) != 0) {
        const Maniglia stesso(win32::per_guardare(voluto, false));
        if (stesso.valida() && win32::e_collegamento(stesso)) {
            errno = ELOOP;
            return -1;
        }
    }
    // A folder opens too, as elsewhere, and its reading fails.
    HANDLE aperto = (modo & win32::una_cartella_da_bloccare) != 0
                        ? al_posto_della_cartella(voluto)
                        : CreateFileW(voluto.c_str(), diritti_di(modo), con_tutti, nullptr,
                                      disposizione_di(modo), FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (aperto == INVALID_HANDLE_VALUE) return fallito();
    const int fd = _open_osfhandle(reinterpret_cast<std::intptr_t>(aperto),
                                   _O_BINARY | _O_NOINHERIT | (modo & _O_APPEND));
    if (fd < 0) CloseHandle(aperto);
    return fd;
}

std::ptrdiff_t Syscalls::read(int fd, void* dati, std::size_t quanti) {
    return dalla_libreria(
        _read(fd, dati, static_cast<unsigned>(std::min(quanti, std::size_t{1} << 30U))));
}

std::ptrdiff_t Syscalls::write(int fd, const void* dati, std::size_t quanti) {
    return dalla_libreria(
        _write(fd, dati, static_cast<unsigned>(std::min(quanti, std::size_t{1} << 30U))));
}

int Syscalls::fsync(int fd) {
    if (FlushFileBuffers(maniglia_del_file(fd)) != 0) return 0;
    if (GetLastError() != ERROR_ACCESS_DENIED) return fallito();
    // What was opened for reading is flushed by who may write.
    const Maniglia scrivano(
        ReOpenFile(maniglia_del_file(fd), GENERIC_WRITE, con_tutti, FILE_FLAG_BACKUP_SEMANTICS));
    return risposta(scrivano.valida() && FlushFileBuffers(scrivano) != 0);
}

int Syscalls::close(int fd) {
    return static_cast<int>(dalla_libreria(_close(fd)));
}

int Syscalls::rename(const char* vecchio, const char* nuovo) {
    const std::wstring da = nome_largo(vecchio);
    const std::wstring a = nome_largo(nuovo);
    return con_pazienza([&] {
        if (rinomina_come_posix(da, a)) return true;
        if (!non_lo_conosce(GetLastError())) return false;
        return MoveFileExW(da.c_str(), a.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    });
}

int Syscalls::rename_noreplace(const char* vecchio, const char* nuovo) {
    const std::wstring da = nome_largo(vecchio);
    const std::wstring a = nome_largo(nuovo);
    return con_pazienza(
        [&] { return MoveFileExW(da.c_str(), a.c_str(), MOVEFILE_WRITE_THROUGH) != 0; });
}

int Syscalls::link(const char* vecchio, const char* nuovo) {
    return risposta(
        CreateHardLinkW(nome_largo(nuovo).c_str(), nome_largo(vecchio).c_str(), nullptr) != 0);
}

int Syscalls::unlink(const char* nome) {
    const std::wstring voluto = nome_largo(nome);
    const DWORD attributi = GetFileAttributesW(voluto.c_str());
    constexpr DWORD a_una_cartella = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    const bool rimando =
        attributi != INVALID_FILE_ATTRIBUTES && (attributi & a_una_cartella) == a_una_cartella;
    return con_pazienza([&] {
        return (rimando ? RemoveDirectoryW(voluto.c_str()) : DeleteFileW(voluto.c_str())) != 0;
    });
}

int Syscalls::flock(int fd, int operazione) {
    // Far behind any content: these locks bar readers and writers, not only other locks.
    OVERLAPPED dove{};
    dove.OffsetHigh = 1U << 29U;
    const DWORD come = LOCKFILE_FAIL_IMMEDIATELY |
                       (operazione == win32::blocco_esclusivo ? LOCKFILE_EXCLUSIVE_LOCK : 0U);
    if (LockFileEx(maniglia_del_file(fd), come, 0, 1, 0, &dove) != 0) return 0;
    const DWORD errore = GetLastError();
    errno = errore == ERROR_LOCK_VIOLATION || errore == ERROR_IO_PENDING ? EWOULDBLOCK : ENOLCK;
    return -1;
}

int Syscalls::fcntl_lock(int fd) {
    OVERLAPPED dove{};
    dove.OffsetHigh = 1U << 18U;
    constexpr DWORD come = LOCKFILE_FAIL_IMMEDIATELY | LOCKFILE_EXCLUSIVE_LOCK;
    if (LockFileEx(maniglia_del_file(fd), come, 0, 1, 0, &dove) != 0) return 0;
    errno = GetLastError() == ERROR_LOCK_VIOLATION ? EAGAIN : ENOLCK;
    return -1;
}

int Syscalls::fsetxattr(int fd, const char* nome, const void* dati, std::size_t quanti) {
    if (win32::scrivi_parola(maniglia_del_file(fd), nome, {static_cast<const char*>(dati), quanti}))
        return 0;
    errno = ENOTSUP;
    return -1;
}

Syscalls& di_sistema() {
    static Syscalls del_sistema;
    return del_sistema;
}

}  // namespace platform
