// The archive of past draws as all forms share it: where it lies, what is open, the wheels.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "platform/database.h"
#include "platform/links.h"

namespace statistics {

/// A wheel with the code that the archive gives it.
struct Ruota {
    std::string_view nome;
    std::string_view codice;
};

/// In the order of the list of wheels; the last is no row of the regional table.
inline constexpr std::array<Ruota, 11> ruote{{{"Bari", "BA"},
                                              {"Cagliari", "CA"},
                                              {"Firenze", "FI"},
                                              {"Genova", "GE"},
                                              {"Milano", "MI"},
                                              {"Napoli", "NA"},
                                              {"Palermo", "PA"},
                                              {"Roma", "RM"},
                                              {"Torino", "TO"},
                                              {"Venezia", "VE"},
                                              {"Nazionale", "NAZIONALE"}}};
inline constexpr std::string_view nazionale = ruote[10].codice;

/// Code of the wheel at an index of the list, empty outside it.
std::string_view codice_ruota(int indice);

/// Draws of a wheel in the order of their numbers; none of a code that the archive does not know.
platform::Query query_ruota(std::string_view codice);
/// The national wheel's draw of that number.
platform::Query query_nazionale(std::int32_t concorso);

/// The archive below the suite's root `radice`, which ends in a separator.
std::string file_archivio(std::string_view radice);

/// That file as it is now, whichever engine reads it; nothing when there is none.
std::optional<platform::Impronta> impronta_archivio(const std::string& file);

/// One database and at most two recordsets at a time, with the fields of the current draw.
struct Archivio {
    platform::Database database;
    platform::Recordset draws;
    platform::Recordset national;
    platform::Field campo_concorso;
    platform::Field campo_data;
    platform::Field campo_1;  ///< at ordinal 1
    /// Places 1 to 5 hold ordinals 2 to 6.
    std::array<platform::Field, 6> campi_estratti;

    /// The file as it was when the tables that are open were opened; nothing before.
    std::optional<platform::Impronta> aperta;

    /// Binds the fields on `draws`.
    platform::Err lega(int ordinale_concorso);
    /// Opens `file`, the wheels' table or that of the six numbers as `draws`, and the national
    /// wheel; each stands on its last record. What fails leaves the handles from there on as they
    /// were.
    platform::Err apri(const std::string& file, bool tabella_ruote);
    /// Ends the opening; reads fail from then on.
    void chiudi();
};

}  // namespace statistics
