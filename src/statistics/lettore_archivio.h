// The open draws as the statistics read them.
#pragma once

#include "statistics/archivio.h"
#include "statistics/lettore.h"

namespace statistics {

/// Reads `archivio.draws`, which outlives it and is not replaced meanwhile.
class LettoreArchivio : public LettoreEstrazioni {
public:
    explicit LettoreArchivio(Archivio& archivio);

    bool MoveFirst() override { return archivio_.draws.MoveFirst().ok(); }
    bool MoveLast() override { return archivio_.draws.MoveLast().ok(); }
    bool MoveNext() override { return archivio_.draws.MoveNext().ok(); }
    bool Move(std::int32_t n) override { return archivio_.draws.Move(n).ok(); }
    bool alla_fine() override { return archivio_.draws.eof(); }
    std::int32_t RecordCount() override { return archivio_.draws.RecordCount(); }
    std::optional<std::int32_t> estratto(int quale) override;
    std::optional<std::int32_t> Jolly() override { return Jolly_.Value().intero(); }
    std::optional<std::int32_t> superstar() override { return superstar_.Value().intero(); }
    std::optional<std::int32_t> campi_estratti(int quale) override;
    std::optional<Data> data() override;

private:
    Archivio& archivio_;
    std::array<platform::Field, 7> estratti_;  ///< places 1 to 6
    platform::Field Jolly_;
    platform::Field superstar_;
};

}  // namespace statistics
