// How the system's own answers read in the platform's terms; for the files of this folder only.
#pragma once

#include <sys/stat.h>

#include "platform/macchina.h"

namespace platform::macchina {

/// Of a step that failed with that errno.
Guasto da_errno(int errore);
Voce da_stat(const struct stat& s);

}  // namespace platform::macchina
