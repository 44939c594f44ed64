#include "statistics/lettore_archivio.h"

namespace statistics {

LettoreArchivio::LettoreArchivio(Archivio& archivio) : archivio_(archivio) {
    for (std::size_t i = 1; i <= 6; ++i) {
        estratti_[i] = archivio_.draws.Fields(std::to_string(i) + "°estratto");
    }
    Jolly_ = archivio_.draws.Fields("Jolly");
    superstar_ = archivio_.draws.Fields("superstar");
}

std::optional<std::int32_t> LettoreArchivio::estratto(int quale) {
    if (quale < 1 || quale > 6) return std::nullopt;
    return estratti_[static_cast<std::size_t>(quale)].Value().intero();
}

std::optional<std::int32_t> LettoreArchivio::campi_estratti(int quale) {
    if (quale < 1 || quale > 5) return std::nullopt;
    return archivio_.campi_estratti[static_cast<std::size_t>(quale)].Value().intero();
}

std::optional<Data> LettoreArchivio::data() {
    return archivio_.draws.Fields(0).Value().data();
}

}  // namespace statistics
