#include "platform/win32/parola.h"

#include <array>

namespace platform::win32 {

namespace {

std::wstring flusso(const std::wstring& file, const char* quale) {
    return file.empty() ? file : file + L":" + largo(quale);
}

/// Elsewhere such a name would be that of a file of its own, or of none.
bool tiene_flussi(HANDLE file) {
    DWORD sa = 0;
    return GetVolumeInformationByHandleW(file, nullptr, 0, nullptr, nullptr, &sa, nullptr, 0) !=
               0 &&
           (sa & FILE_NAMED_STREAMS) != 0;
}

}  // namespace

std::string leggi_parola(const std::wstring& file, const char* quale) {
    if (file.empty()) return {};
    const Maniglia aperta(CreateFileW(flusso(file, quale).c_str(), GENERIC_READ, con_tutti, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    std::array<char, 256> testo{};
    DWORD letti = 0;
    if (!aperta.valida() ||
        ReadFile(aperta, testo.data(), static_cast<DWORD>(testo.size()), &letti, nullptr) == 0)
        return {};
    return {testo.data(), letti};
}

bool scrivi_parola(HANDLE file, const char* quale, std::string_view parola) {
    const std::wstring nome = luogo(file);
    if (nome.empty() || !tiene_flussi(file)) return false;
    FILETIME cambiato{};
    const bool saputo = GetFileTime(file, nullptr, nullptr, &cambiato) != 0;
    bool scritta = false;
    {
        const Maniglia aperta(CreateFileW(flusso(nome, quale).c_str(), GENERIC_WRITE, con_tutti,
                                          nullptr, CREATE_ALWAYS, 0, nullptr));
        DWORD scritti = 0;
        scritta = aperta.valida() &&
                  WriteFile(aperta, parola.data(), static_cast<DWORD>(parola.size()), &scritti,
                            nullptr) != 0 &&
                  scritti == parola.size();
    }
    // The word is none of the content, whose time tells whether it changed.
    const Maniglia scrivano(ReOpenFile(file, FILE_WRITE_ATTRIBUTES, con_tutti, 0));
    if (scritta && saputo && scrivano.valida()) SetFileTime(scrivano, nullptr, nullptr, &cambiato);
    return scritta;
}

}  // namespace platform::win32
