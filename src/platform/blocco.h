// Locks between programs, held by an open file and gone with the process that has it.
#pragma once

#include "platform/file.h"

namespace platform {

enum class Presa {
    presa,
    occupata,     ///< another holds it
    impossibile,  ///< the disk knows no locks
};

/// Locks the open file for this process alone, without waiting.
Presa blocca(int fd);
inline Presa blocca(const File& file) {
    return blocca(file.fd());
}

/// True when another holds the open file for himself, or holds it at all where `esclusivo` is
/// wanted; else this process holds it, as far as the disk knows locks.
bool in_mano_altrui(const File& file, std::int64_t dimensione, bool esclusivo);

/// Keeps the lock of a file that is closed meanwhile.
class Custode {
public:
    Custode() = default;
    Custode(const Custode&) = delete;
    Custode& operator=(const Custode&) = delete;
    ~Custode() { lascia(); }
    void tieni(const File& file);
    void lascia();

private:
    int fd_ = -1;
};

}  // namespace platform
