// Where links lead, for the steps that must neither follow nor destroy them.
#pragma once

#include <string>

namespace platform {

/// True when `nome` is a link to somewhere outside its own folder, or to nothing.
bool esce_dalla_cartella(const std::string& nome);

/// True when deleting `arrivo` would take `origine` away too: both names mean one file.
bool stesso_file(const std::string& origine, const std::string& arrivo);

}  // namespace platform
