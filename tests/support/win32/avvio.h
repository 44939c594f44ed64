// Runs a program and waits for it.
#pragma once

#include <string>
#include <vector>

namespace support {

/// With its outputs in the files named, made anew; its exit code, 127 when it did not start.
int avvia(const std::string& programma, const std::vector<std::string>& parole,
          const std::string& uscita, const std::string& errori);

}  // namespace support
