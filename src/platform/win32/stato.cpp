#include "platform/win32/stato.h"

namespace platform::win32 {

using macchina::Voce;

namespace {

constexpr std::int64_t al_secondo = 10'000'000;
constexpr std::int64_t dal_1601_al_1970 = 11'644'473'600;

std::uint64_t insieme(DWORD alto, DWORD basso) {
    return static_cast<std::uint64_t>(alto) << 32U | basso;
}

}  // namespace

std::int64_t nanosecondi(const FILETIME& tempo) {
    const auto decimi =
        static_cast<std::int64_t>(insieme(tempo.dwHighDateTime, tempo.dwLowDateTime));
    return (decimi - dal_1601_al_1970 * al_secondo) * 100;
}

FILETIME tempo_di(std::int64_t secondi) {
    const auto decimi = static_cast<std::uint64_t>((secondi + dal_1601_al_1970) * al_secondo);
    return {static_cast<DWORD>(decimi), static_cast<DWORD>(decimi >> 32U)};
}

bool voce_di(HANDLE aperto, Voce& voce) {
    BY_HANDLE_FILE_INFORMATION s{};
    if (GetFileInformationByHandle(aperto, &s) == 0) return false;
    Voce letta;
    if ((s.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        letta.genere = Voce::Genere::cartella;
    } else if (GetFileType(aperto) == FILE_TYPE_DISK) {
        letta.genere = Voce::Genere::file;
    }
    if (e_collegamento(aperto)) letta.genere = Voce::Genere::collegamento;
    letta.disco = s.dwVolumeSerialNumber;
    letta.nodo = insieme(s.nFileIndexHigh, s.nFileIndexLow);
    letta.nomi = s.nNumberOfLinks;
    FILE_STANDARD_INFO stato{};
    // Its last name lives until the last who has it open, and nobody else can come to it.
    if (GetFileInformationByHandleEx(aperto, FileStandardInfo, &stato, sizeof stato) != 0 &&
        stato.DeletePending != 0)
        letta.nomi = 0;
    letta.byte = static_cast<std::int64_t>(insieme(s.nFileSizeHigh, s.nFileSizeLow));
    letta.cambiato = nanosecondi(s.ftLastWriteTime);
    letta.permessi = (s.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0 ? 0444 : 0666;
    voce = letta;
    return true;
}

}  // namespace platform::win32
