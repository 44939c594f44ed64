#include "analysis/squadra.h"

#include <system_error>
#include <thread>
#include <vector>

namespace analysis {

void in_squadra(int esecutori, const std::function<void(bool chiamante)>& lavoro) {
    std::vector<std::thread> compagni;
    for (int i = 1; i < esecutori; ++i) {
        try {
            compagni.emplace_back([&lavoro] { lavoro(false); });
        } catch (const std::system_error&) {
            break;
        }
    }
    lavoro(true);
    for (std::thread& compagno : compagni) compagno.join();
}

}  // namespace analysis
