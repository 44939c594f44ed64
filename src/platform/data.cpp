#include "platform/data.h"

#include <chrono>

#include "platform/runtime.h"

namespace platform {

namespace {

using std::chrono::sys_days;

constexpr sys_days epoca = std::chrono::year{1899} / std::chrono::December / std::chrono::day{30};

}  // namespace

bool esiste(const Data& data) {
    using namespace std::chrono;
    return data.anno >= 100 && data.anno <= 9999 && data.mese >= 1 && data.mese <= 12 &&
           data.giorno >= 1 && data.giorno <= 31 &&
           year_month_day{year{data.anno}, month{static_cast<unsigned>(data.mese)},
                          day{static_cast<unsigned>(data.giorno)}}
               .ok();
}

std::int32_t seriale(const Data& data) {
    const std::chrono::year_month_day giorno{std::chrono::year{data.anno},
                                             std::chrono::month{static_cast<unsigned>(data.mese)},
                                             std::chrono::day{static_cast<unsigned>(data.giorno)}};
    return static_cast<std::int32_t>((sys_days{giorno} - epoca).count());
}

Data da_seriale(std::int32_t giorni) {
    const std::chrono::year_month_day giorno{epoca + std::chrono::days{giorni}};
    return {static_cast<int>(giorno.year()),
            static_cast<int>(static_cast<unsigned>(giorno.month())),
            static_cast<int>(static_cast<unsigned>(giorno.day()))};
}

std::optional<Data> da_iso(std::string_view testo) {
    if (testo.size() < 10 || testo[4] != '-' || testo[7] != '-' ||
        (testo.size() > 10 && testo[10] != ' ' && testo[10] != 'T')) {
        return std::nullopt;
    }
    const auto anno = numero_intero(testo.substr(0, 4));
    const auto mese = numero_intero(testo.substr(5, 2));
    const auto giorno = numero_intero(testo.substr(8, 2));
    if (!anno || !mese || !giorno) return std::nullopt;
    const Data data{*anno, *mese, *giorno};
    return esiste(data) ? std::optional(data) : std::nullopt;
}

}  // namespace platform
