#include "platform/terminale.h"

#include <atomic>

#include "platform/win32/nomi.h"

namespace platform {

namespace {

std::atomic<bool> fermare = false;

/// True of a console that understands the signs by which a line is written over.
bool console(DWORD quale) {
    HANDLE uscita = GetStdHandle(quale);
    DWORD modo = 0;
    if (GetConsoleMode(uscita, &modo) == 0) return false;
    constexpr DWORD segni = 0x0004;
    return (modo & segni) != 0 || SetConsoleMode(uscita, modo | segni) != 0;
}

BOOL WINAPI ascolta(DWORD quale) {
    if (fermare.exchange(true)) return FALSE;
    // A console that closes ends the program when this returns: so long it has to put things in
    // order.
    constexpr DWORD concesso_ms = 4500;
    if (quale != CTRL_C_EVENT && quale != CTRL_BREAK_EVENT) Sleep(concesso_ms);
    return TRUE;
}

}  // namespace

bool errori_su_un_terminale() {
    return console(STD_ERROR_HANDLE);
}

bool uscita_su_un_terminale() {
    return console(STD_OUTPUT_HANDLE);
}

void ascolta_interruzione() {
    SetConsoleCtrlHandler(ascolta, TRUE);
}

bool interrotto() {
    return fermare;
}

}  // namespace platform
