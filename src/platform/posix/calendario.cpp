#include "platform/calendario.h"

#include <ctime>

#include "platform/ambiente.h"

namespace platform {

Data oggi() {
    if (ambiente().oggi) return *ambiente().oggi;
    const std::time_t ora = std::time(nullptr);
    std::tm locale{};
    if (::localtime_r(&ora, &locale) == nullptr) return {};
    return {locale.tm_year + 1900, locale.tm_mon + 1, locale.tm_mday};
}

}  // namespace platform
