// Archives as the importer writes them: invented, or with draws that count as drawn.
#pragma once

#include <string>

#include "archivio/contenuto.h"

namespace support {

inline std::string file_archivio_di(const std::string& radice) {
    return radice + "/archivio/drawit.sqlite";
}

inline bool metti_dimostrativo(const std::string& radice) {
    return importazione::salva(file_archivio_di(radice), importazione::dimostrativo());
}

/// The draws of the invented one, told as drawn, and one more of each game on `ultima`.
inline bool metti_vero(const std::string& radice, const platform::Data& ultima) {
    importazione::Contenuto c = importazione::dimostrativo();
    c.lotto_dimostrativo = false;
    c.superenalotto_dimostrativo = false;
    importazione::Sestina s;
    s.numeri = {1, 2, 3, 4, 5, 6};
    s.jolly = 7;
    c.superenalotto[ultima] = s;
    for (auto& ruota : c.lotto[ultima].ruote) ruota = importazione::Cinquina{11, 12, 13, 14, 15};
    return importazione::salva(file_archivio_di(radice), c);
}

}  // namespace support
