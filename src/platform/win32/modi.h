// How files are opened, beside the C library's own words; for the files of this folder only.
#pragma once

#include <fcntl.h>

namespace platform::win32 {

/// A link is refused.
inline constexpr int non_seguire = 1 << 24;
/// A folder, to be locked: a file in it that is there meanwhile stands for it, since no folder can
/// be locked.
inline constexpr int una_cartella_da_bloccare = 1 << 25;

/// What `Syscalls::flock` is asked for.
inline constexpr int blocco_condiviso = 1;
inline constexpr int blocco_esclusivo = 2;

}  // namespace platform::win32
