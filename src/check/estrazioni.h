// The draws of the archive as the check lists and loads them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recordset.h"

namespace check {

/// Draws of a Lotto list.
inline constexpr int estrazioni_lotto = 100;

/// File of the archive beside the program folder, whose name is cut off its path blindly, with the
/// separator behind it if there is one.
std::string archivio_di(std::string_view percorso);

/// Item texts, newest draw first; moves the recordsets.
std::vector<std::string> elenco_superenalotto(platform::Recordset& draws);
std::vector<std::string> elenco_lotto(platform::Recordset& draws, platform::Recordset& national);

/// Parts of an item text.
std::int32_t concorso_di(std::string_view voce);
std::string_view ruota_di(std::string_view voce);
bool nazionale(std::string_view voce);

/// Item that typed characters mean in a list of draws, -1 for none. Digits are a draw's number, or
/// failing that the beginning of one. With separators ("/", "." or "-") they are a date, or as
/// much of one as is typed; a whole date without a draw means the draw that followed it.
int cerca_estrazione(const std::vector<std::string>& voci, std::string_view digitato);

/// Stands on a wheel's row of a draw; false when there is none such.
bool trova_ruota(platform::Recordset& draws, std::int32_t concorso, std::string_view ruota);

/// The numbers of the current record, the Jolly first and the six behind it in text order. An empty
/// field leaves its box as it was, and without a current record nothing changes at all.
void leggi_combinazione(const platform::Recordset& draws, std::array<std::string, 7>& caselle);

}  // namespace check
