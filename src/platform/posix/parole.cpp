#include "platform/comando.h"

namespace platform {

std::vector<std::string> parole(int argc, char** argv) {
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

}  // namespace platform
