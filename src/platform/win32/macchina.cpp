#include "platform/macchina.h"

#include <cstdlib>
#include <fcntl.h>
#include <shlobj.h>
#include <winioctl.h>

#include "platform/syscalls.h"
#include "platform/win32/nomi.h"
#include "platform/win32/parola.h"
#include "platform/win32/stato.h"

namespace platform::macchina {

using win32::Maniglia;
using win32::nome_largo;
using win32::nome_stretto;

namespace {

Guasto esito(bool riuscito) {
    return riuscito ? Guasto::nessuno : da_errno(win32::errno_di(GetLastError()));
}

Guasto guarda(const std::string& nome, bool segui, Voce& voce) {
    const Maniglia aperto(win32::per_guardare(nome_largo(nome), segui));
    return esito(aperto.valida() && win32::voce_di(aperto, voce));
}

std::string variabile(const wchar_t* nome) {
    const DWORD serve = GetEnvironmentVariableW(nome, nullptr, 0);
    std::wstring valore(serve, L'\0');
    valore.resize(GetEnvironmentVariableW(nome, valore.data(), serve));
    return nome_stretto(valore);
}

}  // namespace

Guasto guarda(const std::string& nome, Voce& voce) {
    return guarda(nome, true, voce);
}

Guasto guarda_il_nome(const std::string& nome, Voce& voce) {
    return guarda(nome, false, voce);
}

bool c_e(const std::string& nome) {
    const std::wstring voluto = nome_largo(nome);
    if (voluto.empty()) return false;
    return GetFileAttributesW(voluto.c_str()) != INVALID_FILE_ATTRIBUTES ||
           GetLastError() == ERROR_SHARING_VIOLATION;
}

bool nome_possibile(const std::string& nome) {
    constexpr std::size_t massimo = 32000;
    return nome.size() < massimo;
}

std::vector<std::string> voci(const std::string& cartella) {
    std::vector<std::string> nomi;
    const std::wstring voluta = nome_largo(cartella);
    if (voluta.empty()) return nomi;
    WIN32_FIND_DATAW voce{};
    HANDLE ricerca = FindFirstFileExW((voluta + (voluta.ends_with(L'\\') ? L"*" : L"\\*")).c_str(),
                                      FindExInfoBasic, &voce, FindExSearchNameMatch, nullptr, 0);
    if (ricerca == INVALID_HANDLE_VALUE) return nomi;
    do {
        nomi.push_back(win32::stretto(voce.cFileName));
    } while (FindNextFileW(ricerca, &voce) != 0);
    FindClose(ricerca);
    return nomi;
}

bool scrivibile(const std::string& cartella) {
    // The rights are asked of the system itself, which alone knows all that they depend on.
    return Maniglia(win32::per_guardare(nome_largo(cartella), true,
                                        FILE_ADD_FILE | FILE_ADD_SUBDIRECTORY))
        .valida();
}

std::optional<std::int64_t> nascita(const std::string& nome) {
    constexpr std::int64_t al_secondo = 1'000'000'000;
    const Maniglia aperto(win32::per_guardare(nome_largo(nome), true));
    FILETIME nato{};
    FILETIME cambiato{};
    if (!aperto.valida() || GetFileTime(aperto, &nato, nullptr, &cambiato) == 0)
        return std::nullopt;
    const bool tenuta = nato.dwLowDateTime != 0 || nato.dwHighDateTime != 0;
    return win32::nanosecondi(tenuta ? nato : cambiato) / al_secondo;
}

std::string percorso_reale(const std::string& nome) {
    const Maniglia aperto(win32::per_guardare(nome_largo(nome), true));
    return aperto.valida() ? nome_stretto(win32::luogo(aperto)) : "";
}

std::string meta(const std::string& nome) {
    const Maniglia aperto(win32::per_guardare(nome_largo(nome), false));
    if (!aperto.valida() || !win32::e_collegamento(aperto)) return {};
    return percorso_reale(nome);
}

std::string attributo(const std::string& nome, const char* quale) {
    return win32::leggi_parola(nome_largo(nome), quale);
}

void crea_cartella(const std::string& nome) {
    CreateDirectoryW(nome_largo(nome).c_str(), nullptr);
}

std::string cartella_temporanea(const std::string& nome) {
    constexpr int tentativi = 1000;
    std::wstring dove(MAX_PATH + 1, L'\0');
    dove.resize(GetTempPathW(static_cast<DWORD>(dove.size()), dove.data()));
    const std::wstring inizio =
        dove + win32::largo(nome) + std::to_wstring(GetCurrentProcessId()) + L"-";
    for (int n = 0; n < tentativi && !dove.empty(); ++n) {
        const std::wstring prova = inizio + std::to_wstring(n);
        if (CreateDirectoryW(prova.c_str(), nullptr) != 0) return nome_stretto(prova);
        if (GetLastError() != ERROR_ALREADY_EXISTS) break;
    }
    return {};
}

bool cestina(const std::string& nome) {
    std::wstring quali = nome_largo(nome);
    if (quali.empty()) return false;
    // A list of names, at whose end stands an empty one.
    quali += L'\0';
    SHFILEOPSTRUCTW cosa{};
    cosa.wFunc = FO_DELETE;
    cosa.pFrom = quali.c_str();
    cosa.fFlags = FOF_ALLOWUNDO | FOF_NO_UI;
    return SHFileOperationW(&cosa) == 0 && cosa.fAnyOperationsAborted == 0;
}

void sincronizza_cartella(const std::string& cartella) {
    // A disk without folder sync loses nothing by it.
    const int fd = syscalls().open(cartella.c_str(), _O_RDONLY, 0);
    if (fd < 0) return;
    syscalls().fsync(fd);
    syscalls().close(fd);
}

Guasto collega(const std::string& meta, const std::string& nome) {
    constexpr DWORD senza_privilegio = 2;
    const std::wstring verso = nome_largo(meta);
    const std::wstring qui = nome_largo(nome);
    if (CreateSymbolicLinkW(qui.c_str(), verso.c_str(), senza_privilegio) != 0)
        return Guasto::nessuno;
    return esito(CreateHardLinkW(qui.c_str(), verso.c_str(), nullptr) != 0);
}

std::int64_t processo() {
    return GetCurrentProcessId();
}

std::optional<std::tm> ora_locale(std::int64_t secondi) {
    const auto istante = static_cast<__time64_t>(secondi);
    std::tm parti{};
    return _localtime64_s(&parti, &istante) == 0 ? std::optional(parti) : std::nullopt;
}

std::string cartella_eseguibile() {
    constexpr std::size_t massimo = 32768;
    std::wstring nome(massimo, L'\0');
    nome.resize(GetModuleFileNameW(nullptr, nome.data(), static_cast<DWORD>(nome.size())));
    // As it stands on the disk, not as somebody typed it.
    std::wstring vero(massimo, L'\0');
    vero.resize(GetLongPathNameW(nome.c_str(), vero.data(), static_cast<DWORD>(vero.size())));
    const std::string percorso = nome_stretto(vero.empty() ? nome : vero);
    return percorso.substr(0, percorso.rfind('/'));
}

char barra() {
    return '\\';
}

std::string coda_dei_programmi() {
    return ".exe";
}

std::optional<bool> finestre_scure() {
    DWORD chiare = 0;
    DWORD byte = sizeof chiare;
    const LSTATUS esito = RegGetValueW(
        HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
        L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &chiare, &byte);
    return esito == ERROR_SUCCESS ? std::optional(chiare == 0) : std::nullopt;
}

std::string dati_utente() {
    if (std::string casa = variabile(L"LOCALAPPDATA"); !casa.empty()) return casa;
    wchar_t* nota = nullptr;
    std::string dove;
    if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_LocalAppData, 0, nullptr, &nota)))
        dove = nome_stretto(nota);
    CoTaskMemFree(nota);
    return dove;
}

Soprannome::Soprannome(const std::string& cartella) : nome_(cartella) {}

Soprannome::~Soprannome() = default;

std::string Soprannome::nome() const {
    return nome_;
}

}  // namespace platform::macchina
