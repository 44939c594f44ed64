#include "platform/calendario.h"

#include <ctime>

namespace platform {

namespace {

std::optional<Data>& giorno_in_forza() {
    static std::optional<Data> giorno;
    return giorno;
}

}  // namespace

Data oggi() {
    if (giorno_in_forza()) return *giorno_in_forza();
    const std::time_t ora = std::time(nullptr);
    std::tm locale{};
    if (::localtime_r(&ora, &locale) == nullptr) return {};
    return {locale.tm_year + 1900, locale.tm_mon + 1, locale.tm_mday};
}

void oggi_sia(std::optional<Data> giorno) {
    giorno_in_forza() = giorno;
}

}  // namespace platform
