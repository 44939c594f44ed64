// Words that a disk keeps with a file, each in a stream of its own beside the content; for the
// files of this folder only.
#pragma once

#include <string>
#include <string_view>

#include "platform/win32/nomi.h"

namespace platform::win32 {

/// Empty without one, and on disks that keep none.
std::string leggi_parola(const std::wstring& file, const char* quale);
/// The file's times stay as they are; false on disks that keep none.
bool scrivi_parola(HANDLE file, const char* quale, std::string_view parola);

}  // namespace platform::win32
