#include "platform/figlio.h"

#include <algorithm>

#include "platform/win32/nomi.h"

namespace platform {

using win32::citata;
using win32::Maniglia;

namespace {

using Orologio = std::chrono::steady_clock;

/// What is in it dies with this process.
HANDLE compagnia() {
    static const Maniglia una([] {
        HANDLE lavoro = CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limiti{};
        limiti.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(lavoro, JobObjectExtendedLimitInformation, &limiti, sizeof limiti);
        return lavoro;
    }());
    return una;
}

}  // namespace

Figlio::~Figlio() {
    if (fd_ >= 0) CloseHandle(win32::maniglia_di(fd_));
    if (pid_ <= 0) return;
    const Maniglia suo(win32::maniglia_di(static_cast<int>(pid_)));
    constexpr DWORD attesa_ms = 5000;
    TerminateProcess(suo, 1);
    WaitForSingleObject(suo, attesa_ms);
}

bool Figlio::avvia(const std::string& programma, const std::vector<std::string>& argomenti) {
    SECURITY_ATTRIBUTES ereditati{sizeof ereditati, nullptr, TRUE};
    HANDLE legge = nullptr;
    HANDLE scrive = nullptr;
    if (CreatePipe(&legge, &scrive, nullptr, 0) == 0) return false;
    const Maniglia bocca(scrive);
    fd_ = win32::numero_di(legge);
    SetHandleInformation(scrive, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    const Maniglia nulla(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, win32::con_tutti,
                                     &ereditati, OPEN_EXISTING, 0, nullptr));
    std::wstring nome = win32::nome_largo(programma);
    if (!nome.ends_with(L".exe")) nome += L".exe";
    std::wstring linea = citata(nome);
    for (const std::string& argomento : argomenti) linea += L' ' + citata(win32::largo(argomento));
    STARTUPINFOW come{};
    come.cb = sizeof come;
    come.dwFlags = STARTF_USESTDHANDLES;
    come.hStdInput = nulla;
    come.hStdOutput = scrive;
    come.hStdError = nulla;
    PROCESS_INFORMATION nato{};
    constexpr DWORD modo = CREATE_NO_WINDOW | CREATE_SUSPENDED;
    if (CreateProcessW(nome.c_str(), linea.data(), nullptr, nullptr, TRUE, modo, nullptr, nullptr,
                       &come, &nato) == 0)
        return false;
    AssignProcessToJobObject(compagnia(), nato.hProcess);
    ResumeThread(nato.hThread);
    CloseHandle(nato.hThread);
    pid_ = win32::numero_di(nato.hProcess);
    return true;
}

Figlio::Fine Figlio::uscita(const Limiti& limiti, std::string& dati) {
    constexpr DWORD pausa_ms = 2;
    HANDLE tubo = win32::maniglia_di(fd_);
    const auto fine = Orologio::now() + limiti.attesa_totale;
    std::vector<char> pezzo(std::size_t{1} << 16U);
    auto muto_da = Orologio::now();
    while (true) {
        if (Orologio::now() >= std::min(fine, muto_da + limiti.attesa_muta)) return Fine::scaduto;
        DWORD pronti = 0;
        // The other end is closed: by the child's end too.
        if (PeekNamedPipe(tubo, nullptr, 0, nullptr, &pronti, nullptr) == 0)
            return GetLastError() == ERROR_BROKEN_PIPE ? Fine::finito : Fine::perduto;
        if (pronti == 0) {
            Sleep(pausa_ms);
            continue;
        }
        DWORD letti = 0;
        if (ReadFile(tubo, pezzo.data(), static_cast<DWORD>(pezzo.size()), &letti, nullptr) == 0)
            return GetLastError() == ERROR_BROKEN_PIPE ? Fine::finito : Fine::perduto;
        dati.append(pezzo.data(), letti);
        if (dati.size() > limiti.uscita_massima) return Fine::troppo;
        muto_da = Orologio::now();
    }
}

}  // namespace platform
