#include "platform/windows.h"

#include "platform/win32/nomi.h"

namespace platform {

namespace {

HWND finestra_di(std::uint32_t id) {
    // Of a window's handle only 32 bits count.
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(static_cast<std::int32_t>(id)));
}

std::wstring titolo_di(HWND finestra) {
    const int lunghezza = GetWindowTextLengthW(finestra);
    std::wstring titolo(static_cast<std::size_t>(lunghezza) + 1, L'\0');
    titolo.resize(static_cast<std::size_t>(
        GetWindowTextW(finestra, titolo.data(), static_cast<int>(titolo.size()))));
    return titolo;
}

BOOL CALLBACK aggiungi(HWND finestra, LPARAM lista) {
    // A program's hidden windows are its own affair.
    if (IsWindowVisible(finestra) == 0) return TRUE;
    FinestraAperta f;
    f.id = static_cast<std::uint32_t>(reinterpret_cast<std::intptr_t>(finestra));
    f.titolo = win32::stretto(titolo_di(finestra));
    HWND sopra = GetWindow(finestra, GW_OWNER);
    f.posseduta = sopra != nullptr && IsWindowVisible(sopra) != 0;
    reinterpret_cast<std::vector<FinestraAperta>*>(lista)->push_back(std::move(f));
    return TRUE;
}

}  // namespace

std::vector<FinestraAperta> finestre_aperte(const std::string& /*display*/) {
    std::vector<FinestraAperta> finestre;
    EnumWindows(aggiungi, reinterpret_cast<LPARAM>(&finestre));
    return finestre;
}

bool mostra_finestra(std::uint32_t id, const std::string& /*display*/) {
    // Not waited for: the other program may be busy.
    return ShowWindowAsync(finestra_di(id), SW_SHOWNOACTIVATE) != 0 || IsWindow(finestra_di(id));
}

bool attiva_finestra(std::uint32_t id, const std::string& /*display*/) {
    HWND finestra = finestra_di(id);
    if (IsWindow(finestra) == 0) return false;
    if (IsIconic(finestra) != 0) ShowWindowAsync(finestra, SW_RESTORE);
    // The player's click gave this program the right to hand the keyboard on.
    SetForegroundWindow(finestra);
    return true;
}

}  // namespace platform
