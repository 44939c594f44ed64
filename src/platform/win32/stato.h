// How the system's own answers read in the platform's terms; for the files of this folder only.
#pragma once

#include "platform/macchina.h"
#include "platform/win32/nomi.h"

namespace platform::win32 {

/// What is open; false when the system does not tell.
bool voce_di(HANDLE aperto, macchina::Voce& voce);

/// The system counts in tenths of a microsecond since 1601.
std::int64_t nanosecondi(const FILETIME& tempo);
FILETIME tempo_di(std::int64_t secondi);

}  // namespace platform::win32
