// The archive as a database: one file, read by one of two engines.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/query.h"
#include "platform/recordset.h"

namespace platform {

namespace interno {
struct Aperto;
}

/// A handle; copies share one opening. A table is read when it is first asked for and kept.
class Database {
public:
    /// Opens a table by its name, case ignored, in stored order, at its first record. On failure
    /// the target stays as it was.
    Err OpenRecordset(std::string_view tabella, Recordset& destinazione);
    /// Opens what a query asks for, likewise.
    Err OpenRecordset(const Query& query, Recordset& destinazione);
    /// Ends the opening: its recordsets fail from now on, those of another opening do not.
    Err Close();
    /// True of an opening that reads the SQLite file though the Jet file is there: nothing on this
    /// machine reads that one.
    [[nodiscard]] bool in_vece() const;

private:
    friend Err OpenDatabase(const std::string& nome, bool esclusivo, bool sola_lettura,
                            Database& destinazione);
    Err apri(std::string_view nome, const Query* query, Recordset& destinazione);
    int tabella(std::string_view nome, std::shared_ptr<const Table>& destinazione);
    std::shared_ptr<interno::Aperto> aperto_;
};

/// The file that an opening of this name would read.
std::string file_del_database(const std::string& nome);

/// Opens the Jet file `nome`, or, where there is none or nothing reads it, the SQLite file of the
/// same name and the ending ".sqlite". Nothing is ever written, `sola_lettura` or not.
/// On failure the target stays as it was.
Err OpenDatabase(const std::string& nome, bool esclusivo, bool sola_lettura,
                 Database& destinazione);

}  // namespace platform
