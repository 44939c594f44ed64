#include "platform/file.h"

#include <io.h>

#include "platform/syscalls.h"
#include "platform/win32/modi.h"
#include "platform/win32/parola.h"
#include "platform/win32/stato.h"

namespace platform {

using win32::Maniglia;
using win32::maniglia_del_file;

namespace {

int modo_di(File::Modo modo) {
    switch (modo) {
        case File::Modo::leggi_se_file:
            return _O_RDONLY | win32::non_seguire;
        case File::Modo::cambia:
            return _O_RDWR | win32::non_seguire;
        case File::Modo::aggiungi:
            return _O_WRONLY | _O_CREAT | _O_APPEND | win32::non_seguire;
        case File::Modo::nuovo:
            return _O_RDWR | _O_CREAT | _O_EXCL;
        case File::Modo::cartella:
            return _O_RDONLY | win32::una_cartella_da_bloccare;
        default:
            return _O_RDONLY;
    }
}

/// Whoever may read a file may also be the one to change what is told about it.
HANDLE per_i_tempi(int fd) {
    return ReOpenFile(maniglia_del_file(fd), FILE_WRITE_ATTRIBUTES | FILE_READ_ATTRIBUTES,
                      win32::con_tutti, 0);
}

}  // namespace

bool File::apri(const std::string& nome, Modo modo) {
    chiudi();
    fd_ = syscalls().open(nome.c_str(), modo_di(modo), 0666);
    return esito(aperto());
}

bool File::tronca(std::int64_t byte) {
    FILE_END_OF_FILE_INFO fine{};
    fine.EndOfFile.QuadPart = byte;
    return esito(
        win32::risposta(SetFileInformationByHandle(maniglia_del_file(fd_), FileEndOfFileInfo, &fine,
                                                   sizeof fine) != 0) == 0);
}

bool File::vai(std::int64_t dove) {
    return esito(_lseeki64(fd_, dove, SEEK_SET) >= 0);
}

bool File::guarda(macchina::Voce& voce) {
    return esito(win32::risposta(win32::voce_di(maniglia_del_file(fd_), voce)) == 0);
}

bool File::permessi(unsigned permessi) {
    constexpr unsigned scrivere = 0222;
    const Maniglia file(per_i_tempi(fd_));
    FILE_BASIC_INFO stato{};
    if (!file.valida() ||
        GetFileInformationByHandleEx(file, FileBasicInfo, &stato, sizeof stato) == 0)
        return esito(win32::risposta(false) == 0);
    const DWORD prima = stato.FileAttributes;
    stato.FileAttributes &= ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
    if ((permessi & scrivere) == 0) stato.FileAttributes |= FILE_ATTRIBUTE_READONLY;
    if (stato.FileAttributes == 0) stato.FileAttributes = FILE_ATTRIBUTE_NORMAL;
    if (stato.FileAttributes == prima) return true;
    return esito(win32::risposta(SetFileInformationByHandle(file, FileBasicInfo, &stato,
                                                            sizeof stato) != 0) == 0);
}

bool File::nasce(std::int64_t secondi) {
    const Maniglia file(per_i_tempi(fd_));
    const FILETIME tempo = win32::tempo_di(secondi);
    return esito(
        win32::risposta(file.valida() && SetFileTime(file, &tempo, nullptr, nullptr) != 0) == 0);
}

std::string File::attributo(const char* quale) const {
    return win32::leggi_parola(win32::luogo(maniglia_del_file(fd_)), quale);
}

}  // namespace platform
