#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>

#include "platform/comando.h"
#include "platform/win32/nomi.h"

namespace platform {

namespace {

UINT pagina_prima = 0;

/// What commands write is UTF-8, byte for byte, on a console and in a file alike.
void scrivi_come_sta() {
    for (FILE* flusso : {stdin, stdout, stderr}) {
        if (_fileno(flusso) >= 0) _setmode(_fileno(flusso), _O_BINARY);
    }
    DWORD modo = 0;
    if (GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &modo) == 0 &&
        GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &modo) == 0)
        return;
    pagina_prima = GetConsoleOutputCP();
    // The page is the console's, which outlives this program.
    if (pagina_prima != CP_UTF8 && SetConsoleOutputCP(CP_UTF8) != 0)
        std::atexit([] { SetConsoleOutputCP(pagina_prima); });
}

}  // namespace

std::vector<std::string> parole(int /*argc*/, char** /*argv*/) {
    scrivi_come_sta();
    int quante = 0;
    wchar_t** date = CommandLineToArgvW(GetCommandLineW(), &quante);
    std::vector<std::string> lette;
    // The words of the system itself: those of the C library went through its code page.
    for (int i = 1; i < quante; ++i) lette.push_back(win32::nome_stretto(date[i]));
    LocalFree(date);
    return lette;
}

}  // namespace platform
