// The windows of other programs, as a test plays them.
#pragma once

#include <string>
#include <vector>

#include "platform/qt/scrivania.h"

namespace support {

/// While one lives these are the windows on the screen; what is asked of them is noted.
class AltreFinestre {
public:
    explicit AltreFinestre(std::vector<platform::FinestraAperta> aperte) {
        platform::Scrivania& desktop = platform::scrivania();
        desktop.finestre = [aperte] { return aperte; };
        desktop.mostra_finestra = [this](std::uint32_t id) {
            fatte.push_back("mostra " + std::to_string(id));
        };
        desktop.attiva_finestra = [this](std::uint32_t id) {
            fatte.push_back("attiva " + std::to_string(id));
            return true;
        };
    }
    ~AltreFinestre() = default;
    AltreFinestre(const AltreFinestre&) = delete;
    AltreFinestre& operator=(const AltreFinestre&) = delete;
    std::vector<std::string> fatte;

private:
    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
};

}  // namespace support
