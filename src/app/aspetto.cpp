#include "app/aspetto.h"

#include "platform/disk.h"
#include "platform/text_file.h"

namespace app {

namespace {

std::string file_scelta(const std::string& radice) {
    return radice + "skin/skn.dat";
}

}  // namespace

std::optional<std::uint8_t> aspetto_scelto(const std::string& radice) {
    platform::TextReader scelta(file_scelta(radice), platform::TextReader::testa);
    std::uint8_t quale = 0;
    if (!scelta.intero(quale)) return std::nullopt;
    return quale;
}

bool scegli_aspetto(const std::string& radice, Aspetto aspetto) {
    const std::string testo = std::to_string(static_cast<int>(aspetto)) + "\r\n";
    return platform::sostituisci(file_scelta(radice), testo) == platform::Esito::ok;
}

std::string foglio_aspetto(const std::string& radice, bool desktop_scuro) {
    const auto scelto = aspetto_scelto(radice);
    if (!scelto) return {};
    const auto foglio = [&radice](int quale) {
        constexpr std::int64_t limite = std::int64_t{1} << 20;
        return platform::leggi_tutto(radice + "skin/skin1_" + std::to_string(quale) + ".skn",
                                     limite);
    };
    const auto proprio = foglio(*scelto);
    if (proprio || *scelto != static_cast<int>(Aspetto::come_il_sistema)) {
        return proprio.value_or(std::string());
    }
    const Aspetto quale = desktop_scuro ? Aspetto::scuro : Aspetto::classico;
    return foglio(static_cast<int>(quale)).value_or(std::string());
}

}  // namespace app
