// Reads one table of a Jet file through the system's own driver and writes it to standard output:
// leggi_mdb FILE [TABLE]. Without a table it only tells whether the file opens.
//
// The driver is another's library. It runs here, so that the worst that can happen is the death of
// this process; the one that started it takes that for an error.
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <fcntl.h>
#include <io.h>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/leggi_mdb/uscita.h"

// Each stands on the one before.
// clang-format off
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <sql.h>
#include <sqlext.h>
#include <odbcinst.h>
// clang-format on

namespace {

using protocollo::Motivo;
using protocollo::Tipo;
using protocollo::Uscita;

std::string stretto(const std::wstring& testo) {
    const int serve = WideCharToMultiByte(CP_UTF8, 0, testo.data(), static_cast<int>(testo.size()),
                                          nullptr, 0, nullptr, nullptr);
    std::string scritto(static_cast<std::size_t>(serve), '\0');
    WideCharToMultiByte(CP_UTF8, 0, testo.data(), static_cast<int>(testo.size()), scritto.data(),
                        serve, nullptr, nullptr);
    return scritto;
}

bool riuscito(SQLRETURN esito) {
    return esito == SQL_SUCCESS || esito == SQL_SUCCESS_WITH_INFO;
}

/// The driver for these files, the newer one first; empty when none of this width is installed.
std::wstring driver() {
    constexpr std::array<std::wstring_view, 2> noti{L"Microsoft Access Driver (*.mdb, *.accdb)",
                                                    L"Microsoft Access Driver (*.mdb)"};
    std::vector<wchar_t> nomi(1U << 16U);
    WORD lunghi = 0;
    if (SQLGetInstalledDriversW(nomi.data(), static_cast<WORD>(nomi.size() - 1), &lunghi) == FALSE)
        return {};
    for (const std::wstring_view cercato : noti) {
        for (const wchar_t* nome = nomi.data(); *nome != L'\0'; nome += wcslen(nome) + 1) {
            if (cercato == nome) return nome;
        }
    }
    return {};
}

/// A name within a connection's words or a statement, its closing sign doubled.
std::wstring chiuso(const std::wstring& nome, wchar_t apre, wchar_t chiude) {
    std::wstring testo(1, apre);
    for (const wchar_t c : nome) testo.append(c == chiude ? 2 : 1, c);
    return testo + chiude;
}

/// A file's name as the driver takes it: with the system's own slashes, and with signs around it
/// only where it has some that would end it.
std::wstring per_il_driver(std::wstring file) {
    std::replace(file.begin(), file.end(), L'/', L'\\');
    return file.find_first_of(L";{}") == std::wstring::npos ? file : chiuso(file, L'{', L'}');
}

Tipo tipo_di(SQLSMALLINT tipo) {
    switch (tipo) {
        case SQL_CHAR:
        case SQL_VARCHAR:
        case SQL_LONGVARCHAR:
        case SQL_WCHAR:
        case SQL_WVARCHAR:
        case SQL_WLONGVARCHAR:
            return Tipo::testo;
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIMESTAMP:
        case SQL_DATE:
        case SQL_TIMESTAMP:
            return Tipo::data;
        default:
            return Tipo::intero;
    }
}

/// Days since 1899-12-30; nothing for a day that no calendar has.
std::optional<std::int32_t> giorni(const SQL_TIMESTAMP_STRUCT& t) {
    using namespace std::chrono;
    const year_month_day giorno{year{t.year}, month{t.month}, day{t.day}};
    if (!giorno.ok()) return std::nullopt;
    constexpr sys_days epoca = year{1899} / December / day{30};
    return static_cast<std::int32_t>((sys_days{giorno} - epoca).count());
}

class Lettura {
public:
    explicit Lettura(Uscita& uscita) : uscita_(uscita) {}

    void apri(const std::wstring& file, const std::wstring& con) {
        if (!riuscito(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &ambiente_)) ||
            !riuscito(SQLSetEnvAttr(ambiente_, SQL_ATTR_ODBC_VERSION,
                                    reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0)) ||
            !riuscito(SQLAllocHandle(SQL_HANDLE_DBC, ambiente_, &legame_)))
            uscita_.rinuncia(Motivo::lettore_assente);
        std::wstring parole = L"DRIVER=" + chiuso(con, L'{', L'}') + L";DBQ=" +
                              per_il_driver(file) + L";ReadOnly=1;Exclusive=0;";
        if (!riuscito(SQLDriverConnectW(legame_, nullptr, parole.data(), SQL_NTS, nullptr, 0,
                                        nullptr, SQL_DRIVER_NOPROMPT)))
            uscita_.rinuncia(Motivo::formato);
    }

    void tabella(const std::wstring& nome) {
        std::wstring comando = L"SELECT * FROM " + chiuso(nome, L'[', L']');
        SQLSMALLINT quante = 0;
        if (!riuscito(SQLAllocHandle(SQL_HANDLE_STMT, legame_, &istruzione_)) ||
            !riuscito(SQLExecDirectW(istruzione_, comando.data(), SQL_NTS)))
            uscita_.rinuncia(Motivo::tabella_assente);
        if (!riuscito(SQLNumResultCols(istruzione_, &quante)) || quante <= 0)
            uscita_.rinuncia(Motivo::danneggiato);
        std::vector<std::string> nomi;
        for (SQLSMALLINT c = 1; c <= quante; ++c) nomi.push_back(colonna(c));
        // How many rows there are is known at the end only; so they wait for their head.
        std::uint32_t lette = 0;
        SQLRETURN esito = SQL_SUCCESS;
        for (; riuscito(esito = SQLFetch(istruzione_)); ++lette) riga();
        if (esito != SQL_NO_DATA) uscita_.rinuncia(Motivo::danneggiato);
        testa(lette, nomi);
        righe_.concludi(lette);
    }

private:
    std::string colonna(SQLSMALLINT quale) {
        std::array<wchar_t, 256> nome{};
        SQLSMALLINT lungo = 0;
        SQLSMALLINT tipo = 0;
        SQLULEN grande = 0;
        SQLSMALLINT decimali = 0;
        SQLSMALLINT nullo = 0;
        if (!riuscito(SQLDescribeColW(istruzione_, static_cast<SQLUSMALLINT>(quale), nome.data(),
                                      static_cast<SQLSMALLINT>(nome.size()), &lungo, &tipo, &grande,
                                      &decimali, &nullo)))
            uscita_.rinuncia(Motivo::danneggiato);
        tipi_.push_back(tipo_di(tipo));
        si_o_no_.push_back(tipo == SQL_BIT);
        return stretto(nome.data());
    }

    void testa(std::uint32_t righe, const std::vector<std::string>& nomi) {
        uscita_.metti(protocollo::testa);
        uscita_.metti(righe);
        uscita_.metti(static_cast<std::uint16_t>(nomi.size()));
        for (std::size_t i = 0; i < nomi.size(); ++i) {
            uscita_.metti(tipi_[i]);
            uscita_.metti_testo(nomi[i]);
        }
        uscita_.scrivi();
    }

    void riga() {
        righe_.metti(protocollo::riga);
        for (std::size_t i = 0; i < tipi_.size(); ++i) {
            const auto colonna = static_cast<SQLUSMALLINT>(i + 1);
            if (tipi_[i] == Tipo::testo) {
                testo(colonna);
                continue;
            }
            const auto numero = tipi_[i] == Tipo::data ? data(colonna) : intero(colonna, i);
            righe_.metti(static_cast<std::uint8_t>(numero ? 1 : 0));
            if (numero) righe_.metti(*numero);
        }
    }

    void testo(SQLUSMALLINT colonna) {
        SQLLEN lungo = 0;
        const SQLRETURN esito =
            SQLGetData(istruzione_, colonna, SQL_C_WCHAR, letto_.data(),
                       static_cast<SQLLEN>(letto_.size() * sizeof(wchar_t)), &lungo);
        if (!riuscito(esito) || lungo == SQL_NULL_DATA) {
            righe_.metti(std::uint8_t{0});
            return;
        }
        letto_.back() = L'\0';
        righe_.metti(std::uint8_t{1});
        righe_.metti_testo(stretto(letto_.data()));
    }

    std::optional<std::int32_t> data(SQLUSMALLINT colonna) {
        SQL_TIMESTAMP_STRUCT t{};
        SQLLEN lungo = 0;
        if (!riuscito(SQLGetData(istruzione_, colonna, SQL_C_TYPE_TIMESTAMP, &t, sizeof t, &lungo)))
            return std::nullopt;
        return lungo == SQL_NULL_DATA ? std::nullopt : giorni(t);
    }

    /// A whole number of 32 bits; nothing for a value that has none.
    std::optional<std::int32_t> intero(SQLUSMALLINT colonna, std::size_t i) {
        double letto = 0;
        SQLLEN lungo = 0;
        if (!riuscito(SQLGetData(istruzione_, colonna, SQL_C_DOUBLE, &letto, sizeof letto, &lungo)))
            return std::nullopt;
        const double vicino = std::nearbyint(letto);
        const bool sta = vicino >= std::numeric_limits<std::int32_t>::min() &&
                         vicino <= std::numeric_limits<std::int32_t>::max();
        if (lungo == SQL_NULL_DATA || !sta) return std::nullopt;
        const auto numero = static_cast<std::int32_t>(vicino);
        // The engine's own yes is minus one.
        return si_o_no_[i] && numero != 0 ? -1 : numero;
    }

    Uscita& uscita_;
    Uscita righe_;
    SQLHANDLE ambiente_ = nullptr;
    SQLHANDLE legame_ = nullptr;
    SQLHANDLE istruzione_ = nullptr;
    std::vector<Tipo> tipi_;
    std::vector<bool> si_o_no_;
    std::vector<wchar_t> letto_ = std::vector<wchar_t>(1U << 15U);
};

/// What this process may spend, since a damaged file can ask for anything.
void limita() {
    constexpr std::size_t memoria = std::size_t{512} << 20U;
    constexpr LONGLONG al_secondo = 10'000'000;
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limiti{};
    limiti.BasicLimitInformation.LimitFlags =
        JOB_OBJECT_LIMIT_PROCESS_MEMORY | JOB_OBJECT_LIMIT_PROCESS_TIME;
    limiti.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart = 10 * al_secondo;
    limiti.ProcessMemoryLimit = memoria;
    HANDLE lavoro = CreateJobObjectW(nullptr, nullptr);
    SetInformationJobObject(lavoro, JobObjectExtendedLimitInformation, &limiti, sizeof limiti);
    AssignProcessToJobObject(lavoro, GetCurrentProcess());
}

}  // namespace

int main() {
    _setmode(1, _O_BINARY);
    // A death is told by silence, never by a box.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    limita();
    int quante = 0;
    wchar_t** parole = CommandLineToArgvW(GetCommandLineW(), &quante);
    if (parole == nullptr || quante < 2) return 2;
    const std::wstring con = driver();
    Uscita uscita;
    if (con.empty()) uscita.rinuncia(Motivo::lettore_assente);
    Lettura lettura(uscita);
    lettura.apri(parole[1], con);
    if (quante < 3) {
        uscita.concludi(0);
    } else {
        lettura.tabella(parole[2]);
    }
    // Nothing is freed: the process ends here, and freeing is one more thing that could fail.
    ExitProcess(0);
}
