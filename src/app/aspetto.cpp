#include "app/aspetto.h"

#include "platform/disk.h"
#include "platform/text_file.h"

namespace app {

std::string foglio_aspetto(const std::string& radice) {
    const std::string cartella = radice + "skin/";
    platform::TextReader scelta(cartella + "skn.dat", platform::TextReader::testa);
    std::uint8_t quale = 0;
    if (!scelta.intero(quale)) return {};
    constexpr std::int64_t limite = std::int64_t{1} << 20;
    return platform::leggi_tutto(cartella + "skin1_" + std::to_string(quale) + ".skn", limite)
        .value_or(std::string());
}

}  // namespace app
