// The archive that stands beside the program in the tests of forms.
#pragma once

#include <cstdint>
#include <string>

namespace support {

/// How many draws of each kind an archive holds.
struct Quante {
    int superenalotto = 320;
    int lotto = 320;
    int nazionale = 320;
};

/// Bytes of an archive of invented draws in the SQLite form; the same for the same seed.
std::string archivio_inventato(const Quante& quante, std::uint32_t seme);
/// The one that every form finds, made once.
const std::string& archivio_di_prova();

/// Places the bytes of an archive below a suite's root, in the stead of any that is there.
void metti_archivio(const std::string& radice, const std::string& dati);
/// Takes every archive away.
void togli_archivio(const std::string& radice);

}  // namespace support
