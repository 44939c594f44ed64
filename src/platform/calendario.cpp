#include "platform/calendario.h"

#include <ctime>

#include "platform/ambiente.h"
#include "platform/macchina.h"

namespace platform {

Data oggi() {
    if (ambiente().oggi) return *ambiente().oggi;
    const auto locale = macchina::ora_locale(std::time(nullptr));
    return locale ? Data{locale->tm_year + 1900, locale->tm_mon + 1, locale->tm_mday} : Data{};
}

}  // namespace platform
