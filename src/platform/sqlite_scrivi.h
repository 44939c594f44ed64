// SQLite files, written whole.
#pragma once

#include <string>
#include <vector>

#include "platform/table.h"

namespace platform {

/// A table under its name, with the field its index is on; empty for none.
struct Foglio {
    std::string nome;
    Table tabella;
    std::string indice;
};

/// Puts a file with these tables in the place of `file`, whole or not at all; not while another
/// program has that one in use.
bool scrivi_sqlite(const std::string& file, const std::vector<Foglio>& fogli);

}  // namespace platform
