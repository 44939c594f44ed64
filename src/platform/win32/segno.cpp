#include "platform/segno.h"

#include "platform/win32/nomi.h"

namespace platform {

Segno::Segno(const std::string& nome) : nome_(nome) {
    // One that a program of an earlier day left is taken over and goes with this one.
    HANDLE file = CreateFileW(win32::nome_largo(nome).c_str(), GENERIC_WRITE | DELETE,
                              FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                              FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    fatto_ = file != INVALID_HANDLE_VALUE;
    occupato_ = !fatto_ && GetLastError() == ERROR_SHARING_VIOLATION;
    tenuto_ = win32::numero_di(file);
}

Segno::~Segno() {
    if (tenuto_ >= 0) CloseHandle(win32::maniglia_di(tenuto_));
}

}  // namespace platform
