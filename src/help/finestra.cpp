#include "help/finestra.h"

#include "platform/disk.h"

namespace help {

namespace {

/// The first `quanti` characters of a UTF-8 text.
std::string_view primi(std::string_view testo, std::size_t quanti) {
    std::size_t i = 0;
    for (; i < testo.size(); ++i) {
        const bool inizio = (static_cast<unsigned char>(testo[i]) & 0xC0U) != 0x80U;
        if (inizio && quanti-- == 0) break;
    }
    return testo.substr(0, i);
}

}  // namespace

std::uint32_t trova_finestra(const std::vector<platform::FinestraAperta>& finestre,
                             std::string_view modello, bool maiuscole_distinte) {
    const auto confronta = maiuscole_distinte ? platform::Like : platform::corrisponde;
    for (const platform::FinestraAperta& f : finestre) {
        if (!f.posseduta && confronta(primi(f.titolo, 128), modello)) return f.id;
    }
    return 0;
}

}  // namespace help
