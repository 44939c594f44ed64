// The windows of other programs, as a test plays them.
#pragma once

#include <string>
#include <vector>

#include "platform/qt/shell.h"

namespace support {

/// While one lives these are the windows on the screen; what is asked of them is noted.
class AltreFinestre {
public:
    explicit AltreFinestre(std::vector<platform::Finestra> aperte) {
        platform::finestre_con(
            {[aperte] { return aperte; },
             [this](std::uint32_t id) { fatte.push_back("mostra " + std::to_string(id)); },
             [this](std::uint32_t id) {
                 fatte.push_back("attiva " + std::to_string(id));
                 return true;
             }});
    }
    ~AltreFinestre() { platform::finestre_con({}); }
    AltreFinestre(const AltreFinestre&) = delete;
    AltreFinestre& operator=(const AltreFinestre&) = delete;
    std::vector<std::string> fatte;
};

}  // namespace support
