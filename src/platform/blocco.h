// Locks between programs, held by an open file and gone with the process that has it.
#pragma once

namespace platform {

enum class Presa {
    presa,
    occupata,     ///< another holds it
    impossibile,  ///< the disk knows no locks
};

/// Locks the open file for this process alone, without waiting.
Presa blocca(int fd);

}  // namespace platform
