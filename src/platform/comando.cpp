#include "platform/comando.h"

#include <cstdlib>
#include <memory>

namespace platform {

std::string cartella_del_comando(const std::string& comando) {
    const std::size_t barra = comando.rfind('/');
    if (barra == std::string::npos) return {};
    const std::unique_ptr<char, decltype(&std::free)> vera(
        ::realpath(comando.substr(0, barra + 1).c_str(), nullptr), &std::free);
    return vera != nullptr ? vera.get() : "";
}

}  // namespace platform
