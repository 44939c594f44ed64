// How the system's own answers read in the platform's terms; for the files of this folder only.
#pragma once

#include <sys/stat.h>

#include "platform/macchina.h"

namespace platform::macchina {

/// A file system gives every new file a time of its making and lets nobody change it, so that of a
/// replaced file goes with its successor in this attribute.
inline constexpr const char* attributo_nascita = "user.tabellino.creazione";

Voce da_stat(const struct stat& s);

}  // namespace platform::macchina
