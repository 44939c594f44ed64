// Makes a failing walk short: what its fault does not need is left out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace soak {

/// The seed of each action.
using Passi = std::vector<std::uint32_t>;

/// `passi` without what `fallisce` can do without: halves are left out first, then ever less, until
/// no single action can be spared. A walk that does not fail stays as it is.
inline Passi accorcia(Passi passi, const std::function<bool(const Passi&)>& fallisce) {
    if (!fallisce(passi)) return passi;
    std::size_t quanti = passi.size() / 2;
    while (quanti > 0) {
        bool meno = false;
        for (std::size_t da = 0; da < passi.size();) {
            Passi senza = passi;
            const auto primo = senza.begin() + static_cast<std::ptrdiff_t>(da);
            const std::size_t tolti = std::min(quanti, passi.size() - da);
            senza.erase(primo, primo + static_cast<std::ptrdiff_t>(tolti));
            if (fallisce(senza)) {
                passi = senza;
                meno = true;
            } else {
                da += tolti;
            }
        }
        // What went may have been all that an earlier action was needed for.
        if (quanti > 1 || !meno) quanti /= 2;
    }
    return passi;
}

/// The walk as a test that can stand in the sources.
inline std::string come_prova(const Passi& passi) {
    std::string elenco;
    for (const std::uint32_t passo : passi) {
        elenco += (elenco.empty() ? "" : ", ") + std::to_string(passo) + "U";
    }
    return "TEST(Soak, AWalkThatFailed) { EXPECT_EQ(cammina({" + elenco +
           "}).difetti, QString()); }";
}

}  // namespace soak
