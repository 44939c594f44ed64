#include "platform/win32/nomi.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <io.h>

namespace platform::win32 {

namespace {

constexpr char32_t fuori = 0xFFFFFFFF;

/// The character at `i`, which moves behind it; `fuori` for bytes that are none.
char32_t prossimo(std::string_view testo, std::size_t& i) {
    const auto primo = static_cast<unsigned char>(testo[i++]);
    if (primo < 0x80) return primo;
    const int seguenti = primo >= 0xF0 ? 3 : primo >= 0xE0 ? 2 : 1;
    if (primo < 0xC2 || primo > 0xF4) return fuori;
    char32_t valore = primo & (0x3FU >> seguenti);
    for (int n = 0; n < seguenti; ++n) {
        if (i >= testo.size() || (static_cast<unsigned char>(testo[i]) & 0xC0U) != 0x80U)
            return fuori;
        valore = valore << 6U | (static_cast<unsigned char>(testo[i++]) & 0x3FU);
    }
    constexpr std::array<char32_t, 4> minimi{0, 0x80, 0x800, 0x10000};
    return valore >= minimi[static_cast<std::size_t>(seguenti)] && valore <= 0x10FFFF ? valore
                                                                                      : fuori;
}

bool alto(wchar_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool basso(wchar_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

void aggiungi(std::string& testo, char32_t c) {
    const auto coda = [&](unsigned spostamento) {
        testo += static_cast<char>(0x80U | (c >> spostamento & 0x3FU));
    };
    if (c < 0x80) {
        testo += static_cast<char>(c);
    } else if (c < 0x800) {
        testo += static_cast<char>(0xC0U | c >> 6U);
        coda(0);
    } else if (c < 0x10000) {
        testo += static_cast<char>(0xE0U | c >> 12U);
        coda(6);
        coda(0);
    } else {
        testo += static_cast<char>(0xF0U | c >> 18U);
        coda(12);
        coda(6);
        coda(0);
    }
}

bool lettera(wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

/// True of a name with signs that no name may have; a colon stands behind a drive's letter alone.
bool vietato(const std::wstring& nome) {
    for (std::size_t i = 0; i < nome.size(); ++i) {
        if (nome[i] < L' ' || std::wstring_view(L"<>\"|?*").find(nome[i]) != std::wstring::npos)
            return true;
        if (nome[i] == L':' && (i != 1 || !lettera(nome[0]))) return true;
    }
    return false;
}

// A quota that is used up; the cross compiler's headers do not tell it.
constexpr unsigned long disco_esaurito_per_uno = 1295;

constexpr std::wstring_view lungo = L"\\\\?\\";
constexpr std::wstring_view lungo_in_rete = L"\\\\?\\UNC\\";

}  // namespace

std::wstring largo(std::string_view testo) {
    std::wstring scritto;
    scritto.reserve(testo.size());
    for (std::size_t i = 0; i < testo.size();) {
        const char32_t c = prossimo(testo, i);
        if (c == fuori) return {};
        if (c < 0x10000) {
            scritto += static_cast<wchar_t>(c);
        } else {
            scritto += static_cast<wchar_t>(0xD800U + ((c - 0x10000U) >> 10U));
            scritto += static_cast<wchar_t>(0xDC00U + ((c - 0x10000U) & 0x3FFU));
        }
    }
    return scritto;
}

std::string stretto(std::wstring_view testo) {
    std::string scritto;
    scritto.reserve(testo.size());
    for (std::size_t i = 0; i < testo.size(); ++i) {
        char32_t c = testo[i];
        if (alto(testo[i]) && i + 1 < testo.size() && basso(testo[i + 1]))
            c = 0x10000U + ((c - 0xD800U) << 10U) + (testo[++i] - 0xDC00U);
        aggiungi(scritto, c);
    }
    return scritto;
}

std::wstring nome_largo(const std::string& nome) {
    std::wstring voluto = largo(nome);
    if (voluto.empty() || vietato(voluto)) return {};
    for (wchar_t& c : voluto) {
        if (c == L'/') c = L'\\';
    }
    // A drive alone is its root: nobody here means the folder that a shell left there.
    if (voluto.size() == 2 && voluto[1] == L':') voluto += L'\\';
    const DWORD serve = GetFullPathNameW(voluto.c_str(), 0, nullptr, nullptr);
    std::wstring intero(serve, L'\0');
    const DWORD lunghi = GetFullPathNameW(voluto.c_str(), serve, intero.data(), nullptr);
    if (lunghi == 0 || lunghi >= serve) return {};
    intero.resize(lunghi);
    if (intero.starts_with(L"\\\\.\\")) return {};
    // Room for what a call may add of its own; folders have less of it than files.
    constexpr std::size_t breve = MAX_PATH - 14;
    if (intero.size() < breve) return intero;
    return intero.starts_with(L"\\\\") ? std::wstring(lungo_in_rete) + intero.substr(2)
                                       : std::wstring(lungo) + intero;
}

std::string nome_stretto(std::wstring_view nome) {
    std::string scritto;
    if (nome.starts_with(lungo_in_rete)) {
        scritto = "//" + stretto(nome.substr(lungo_in_rete.size()));
    } else {
        scritto = stretto(nome.starts_with(lungo) ? nome.substr(lungo.size()) : nome);
    }
    for (char& c : scritto) {
        if (c == '\\') c = '/';
    }
    return scritto;
}

std::wstring citata(const std::wstring& parola) {
    std::wstring scritta = L"\"";
    std::size_t barre = 0;
    for (const wchar_t c : parola) {
        if (c == L'"') scritta.append(barre + 1, L'\\');
        barre = c == L'\\' ? barre + 1 : 0;
        scritta += c;
    }
    return scritta.append(barre, L'\\') + L'"';
}

int errno_di(unsigned long errore) {
    switch (errore) {
        case ERROR_SUCCESS:
            return 0;
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_NOT_READY:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
            return ENOENT;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_DIRECTORY:
            return ENOTDIR;
        case ERROR_FILENAME_EXCED_RANGE:
            return ENAMETOOLONG;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
        case ERROR_PRIVILEGE_NOT_HELD:
        case ERROR_CANNOT_MAKE:
            return EACCES;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_BUSY:
        case ERROR_DELETE_PENDING:
        case ERROR_USER_MAPPED_FILE:
            return EBUSY;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return EEXIST;
        case ERROR_NOT_SAME_DEVICE:
            return EXDEV;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case disco_esaurito_per_uno:
            return ENOSPC;
        case ERROR_INVALID_HANDLE:
            return EBADF;
        case ERROR_INVALID_PARAMETER:
        case ERROR_INVALID_FUNCTION:
        case ERROR_NOT_SUPPORTED:
        case ERROR_CALL_NOT_IMPLEMENTED:
            return EINVAL;
        default:
            return EIO;
    }
}

int fallito() {
    errno = errno_di(GetLastError());
    return -1;
}

int risposta(bool riuscito) {
    return riuscito ? 0 : fallito();
}

int numero_di(HANDLE maniglia) {
    return maniglia == nullptr || maniglia == INVALID_HANDLE_VALUE
               ? -1
               : static_cast<int>(reinterpret_cast<std::intptr_t>(maniglia));
}

HANDLE maniglia_di(int numero) {
    // Of a handle's bits only those of an int count, on 64-bit systems too.
    return numero < 0 ? INVALID_HANDLE_VALUE
                      : reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(numero));
}

HANDLE maniglia_del_file(int fd) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(fd));
}

HANDLE per_guardare(const std::wstring& nome, bool segui, DWORD diritti) {
    const DWORD come = FILE_FLAG_BACKUP_SEMANTICS | (segui ? 0 : FILE_FLAG_OPEN_REPARSE_POINT);
    if (nome.empty()) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    return CreateFileW(nome.c_str(), diritti, con_tutti, nullptr, OPEN_EXISTING, come, nullptr);
}

bool e_collegamento(HANDLE aperto) {
    FILE_ATTRIBUTE_TAG_INFO segno{};
    return GetFileInformationByHandleEx(aperto, FileAttributeTagInfo, &segno, sizeof segno) != 0 &&
           (segno.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           (segno.ReparseTag == IO_REPARSE_TAG_SYMLINK ||
            segno.ReparseTag == IO_REPARSE_TAG_MOUNT_POINT);
}

std::wstring luogo(HANDLE aperto) {
    const DWORD serve = GetFinalPathNameByHandleW(aperto, nullptr, 0, FILE_NAME_NORMALIZED);
    std::wstring nome(serve, L'\0');
    const DWORD lunghi =
        GetFinalPathNameByHandleW(aperto, nome.data(), serve, FILE_NAME_NORMALIZED);
    nome.resize(lunghi < serve ? lunghi : 0);
    return nome;
}

}  // namespace platform::win32
