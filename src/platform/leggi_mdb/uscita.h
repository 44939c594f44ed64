// How a reader of Jet files speaks to the one that started it; every system's reader has it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

#include "platform/leggi_mdb/protocollo.h"

namespace protocollo {

/// Buffered standard output; a reader that is gone ends the process.
class Uscita {
public:
    template <typename T>
    void metti(T valore) {
        dati_.append(reinterpret_cast<const char*>(&valore), sizeof(T));
    }
    void metti_testo(std::string_view testo) {
        testo = testo.substr(0, std::numeric_limits<std::uint16_t>::max());
        metti(static_cast<std::uint16_t>(testo.size()));
        dati_.append(testo);
    }
    void forse_scrivi() {
        constexpr std::size_t pezzo = std::size_t{1} << 16U;
        if (dati_.size() >= pezzo) scrivi();
    }
    void scrivi() {
        const std::size_t scritti = std::fwrite(dati_.data(), 1, dati_.size(), stdout);
        if (scritti != dati_.size() || std::fflush(stdout) != 0) std::_Exit(1);
        dati_.clear();
    }
    /// Ends what was said of so many rows.
    void concludi(std::uint32_t righe) {
        metti(fine);
        metti(righe);
        scrivi();
    }
    /// What was not written yet gives way to the error.
    [[noreturn]] void rinuncia(Motivo motivo) {
        dati_.clear();
        metti(errore);
        metti(motivo);
        scrivi();
        std::_Exit(1);
    }

private:
    std::string dati_;
};

}  // namespace protocollo
