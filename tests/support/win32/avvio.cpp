#include "avvio.h"

#include "platform/win32/nomi.h"

namespace support {

namespace {

using platform::win32::citata;
using platform::win32::largo;
using platform::win32::Maniglia;
using platform::win32::nome_largo;

HANDLE nuovo(const std::string& nome) {
    SECURITY_ATTRIBUTES ereditati{sizeof ereditati, nullptr, TRUE};
    return CreateFileW(nome_largo(nome).c_str(), GENERIC_WRITE, platform::win32::con_tutti,
                       &ereditati, CREATE_ALWAYS, 0, nullptr);
}

}  // namespace

int avvia(const std::string& programma, const std::vector<std::string>& parole,
          const std::string& uscita, const std::string& errori) {
    const Maniglia detto(nuovo(uscita));
    const Maniglia lamentato(nuovo(errori));
    std::wstring linea = citata(nome_largo(programma));
    for (const std::string& parola : parole) linea += L' ' + citata(largo(parola));
    STARTUPINFOW come{};
    come.cb = sizeof come;
    come.dwFlags = STARTF_USESTDHANDLES;
    come.hStdOutput = detto;
    come.hStdError = lamentato;
    PROCESS_INFORMATION nato{};
    if (CreateProcessW(nullptr, linea.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &come,
                       &nato) == 0)
        return 127;
    const Maniglia suo(nato.hProcess);
    CloseHandle(nato.hThread);
    WaitForSingleObject(suo, INFINITE);
    DWORD codice = 0;
    GetExitCodeProcess(suo, &codice);
    return static_cast<int>(codice);
}

}  // namespace support
