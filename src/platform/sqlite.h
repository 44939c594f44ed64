// SQLite files, read whole tables at a time and never written.
#pragma once

#include <string>
#include <string_view>

#include "platform/table.h"

namespace platform {

/// Tells whether the file is an SQLite database; 0 or DAO's number of the error.
int verifica_sqlite(const std::string& file);
/// True when another program's journal stands beside the file: written onto a new file in its
/// place, it would damage it.
bool in_uso_altrui(const std::string& file);
/// Reads a whole table in stored order; days stand there as yyyy-mm-dd. 0 or DAO's number.
int leggi_sqlite(const std::string& file, std::string_view nome, Table& tabella);

}  // namespace platform
