#include "platform/application.h"

#include <array>
#include <cstdio>

#include "platform/disk.h"
#include "platform/macchina.h"
#include "platform/win32/nomi.h"

namespace platform {

using win32::Maniglia;
using win32::nome_largo;

namespace {

/// A file that is there as long as one program has it, and no second one can have.
HANDLE solo_mio(const std::string& nome) {
    return CreateFileW(nome_largo(nome).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                       OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

/// True of a failure that ends when the other one ends: its file is there, or about to go, which
/// is told in the same words as that nobody may write there.
bool di_un_altro(const std::string& nome) {
    const DWORD errore = GetLastError();
    return errore == ERROR_SHARING_VIOLATION ||
           (errore == ERROR_ACCESS_DENIED && macchina::scrivibile(cartella_di(nome)));
}

/// A name of the folder that all users of the machine have in common, by whatever path they come.
std::wstring nome_comune(const std::string& cartella, bool& in_rete) {
    const Maniglia aperta(win32::per_guardare(nome_largo(cartella), true));
    BY_HANDLE_FILE_INFORMATION s{};
    if (!aperta.valida() || GetFileInformationByHandle(aperta, &s) == 0) return {};
    const std::wstring dove = win32::luogo(aperta);
    in_rete = dove.starts_with(L"\\\\?\\UNC\\");
    std::array<wchar_t, 64> nome{};
    std::swprintf(nome.data(), nome.size(), L"Global\\tabellino-%08lx-%08lx%08lx",
                  s.dwVolumeSerialNumber, s.nFileIndexHigh, s.nFileIndexLow);
    return nome.data();
}

}  // namespace

bool Application::PrevInstance() {
    if (blocco_ >= 0) return false;
    bool in_rete = false;
    const std::wstring nome = nome_comune(Path, in_rete);
    if (nome.empty()) return false;
    // Both live with the process, so that a killed program never bars the next start; the other
    // machines of a network know of this one by a file alone.
    HANDLE preso =
        in_rete ? solo_mio(file(".tabellino-istanza")) : CreateMutexW(nullptr, FALSE, nome.c_str());
    const bool altra =
        in_rete ? preso == INVALID_HANDLE_VALUE && di_un_altro(file(".tabellino-istanza"))
                : GetLastError() == ERROR_ALREADY_EXISTS ||
                      (preso == nullptr && GetLastError() == ERROR_ACCESS_DENIED);
    if (altra && preso != nullptr && preso != INVALID_HANDLE_VALUE) CloseHandle(preso);
    if (!altra) blocco_ = win32::numero_di(preso);
    return altra;
}

Application::~Application() {
    if (blocco_ >= 0) CloseHandle(win32::maniglia_di(blocco_));
}

bool Turno::prova() {
    HANDLE file = solo_mio(nome_);
    preso_ = file != INVALID_HANDLE_VALUE;
    if (preso_) fd_ = win32::numero_di(file);
    return !preso_ && di_un_altro(nome_);
}

Turno::Turno(const std::string& cartella, std::chrono::milliseconds attesa)
    : nome_(cartella + "/.tabellino-turno") {
    constexpr DWORD pausa_ms = 5;
    const auto fine = std::chrono::steady_clock::now() + attesa;
    while (prova() && std::chrono::steady_clock::now() < fine) Sleep(pausa_ms);
}

Turno::~Turno() {
    if (preso_) CloseHandle(win32::maniglia_di(fd_));
}

}  // namespace platform
