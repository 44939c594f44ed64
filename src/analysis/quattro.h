// Bits by the hundred: four words that the processor handles as one.
#pragma once

#include <cstdint>

#include "platform/processore.h"

namespace analysis {

/// Four words at once.
using Quattro = std::uint64_t __attribute__((vector_size(32)));

/// Takes four words from anywhere.
PLATFORM_INCORPORATO void leggi(const void* da, Quattro& q) {
    using Ovunque = std::uint64_t __attribute__((vector_size(32), aligned(1), may_alias));
    q = *static_cast<const Ovunque*>(da);
}

/// True when a bit is set.
PLATFORM_INCORPORATO bool qualcuno(const Quattro& q) {
    return (q[0] | q[1] | q[2] | q[3]) != 0;
}

/// Bits set in many words, added up byte by byte and only now and then across.
class Conta {
public:
    PLATFORM_INCORPORATO void aggiungi(const Quattro& bit) {
        Quattro x = bit - (bit >> 1 & 0x5555555555555555U);
        x = (x & 0x3333333333333333U) + (x >> 2 & 0x3333333333333333U);
        byte_ += (x + (x >> 4)) & 0x0F0F0F0F0F0F0F0FU;
        if (++quante_ == 31) riporta();
    }
    PLATFORM_INCORPORATO std::uint64_t totale() {
        riporta();
        return totale_[0] + totale_[1] + totale_[2] + totale_[3];
    }

private:
    PLATFORM_INCORPORATO void riporta() {
        const Quattro coppie = (byte_ & 0x00FF00FF00FF00FFU) + (byte_ >> 8 & 0x00FF00FF00FF00FFU);
        totale_ += coppie * 0x0001000100010001U >> 48;
        byte_ = Quattro{};
        quante_ = 0;
    }
    Quattro byte_{};
    Quattro totale_{};
    int quante_ = 0;
};

}  // namespace analysis
