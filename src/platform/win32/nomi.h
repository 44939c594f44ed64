// How names and errors cross the wall: inside the program a name is UTF-8 with plain slashes,
// outside it is what the system's wide calls take. For the files of this folder only.
#pragma once

#include <string>
#include <string_view>

// Before everything else that may want the system's header.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
// The second stands on the first.
// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on

namespace platform::win32 {

/// UTF-16 of UTF-8, lone surrogates kept; empty for bytes that are no text.
std::wstring largo(std::string_view testo);
/// The way back; never fails.
std::string stretto(std::wstring_view testo);

/// A name as the wide calls take it, whole and of any length; empty for one that no file of this
/// system can have: a device's, one with a stream or with signs that are not allowed.
std::wstring nome_largo(const std::string& nome);
/// A name that the system told, with plain slashes and without the mark of long ones.
std::string nome_stretto(std::wstring_view nome);

/// A word as programs of this system read it back from their line.
std::wstring citata(const std::wstring& parola);

/// The errno of an error of the system.
int errno_di(unsigned long errore);
/// Notes the last error in errno; -1.
int fallito();
/// 0, or what the last error was.
int risposta(bool riuscito);

/// A handle as a number that fits where the platform keeps one, and back.
int numero_di(HANDLE maniglia);
HANDLE maniglia_di(int numero);
/// The handle behind a file of the C library.
HANDLE maniglia_del_file(int fd);

/// Closes itself at its end.
class Maniglia {
public:
    explicit Maniglia(HANDLE maniglia) : maniglia_(maniglia) {}
    Maniglia(const Maniglia&) = delete;
    Maniglia& operator=(const Maniglia&) = delete;
    ~Maniglia() {
        if (valida()) CloseHandle(maniglia_);
    }
    [[nodiscard]] bool valida() const {
        return maniglia_ != INVALID_HANDLE_VALUE && maniglia_ != nullptr;
    }
    // NOLINTNEXTLINE(google-explicit-constructor): it stands wherever a handle does
    operator HANDLE() const { return maniglia_; }
    HANDLE lascia() {
        HANDLE sua = maniglia_;
        maniglia_ = INVALID_HANDLE_VALUE;
        return sua;
    }

private:
    HANDLE maniglia_;
};

/// Everybody else may read, write, rename and delete meanwhile, as under POSIX.
inline constexpr DWORD con_tutti = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Opens what stands under a name to ask about it: nobody is in its way, nor it in anybody's.
HANDLE per_guardare(const std::wstring& nome, bool segui, DWORD diritti = FILE_READ_ATTRIBUTES);
/// Tells a link from the other things that are kept in the same way, as files of a cloud are.
bool e_collegamento(HANDLE aperto);

/// Where an open file is, empty when the system does not tell.
std::wstring luogo(HANDLE aperto);

}  // namespace platform::win32
