// The windows on the screen, of whatever program; no Qt.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A top-level window under the window manager, minimized ones among them.
struct FinestraAperta {
    std::uint32_t id = 0;
    std::string titolo;
    bool posseduta = false;  ///< a dialog over another window
};

/// The windows of the display, the topmost first; none when there is no display or its manager
/// keeps no list. An empty name is the session's own display.
std::vector<FinestraAperta> finestre_aperte(const std::string& display = {});

/// Gives a minimized or maximized window its own size back, without the keyboard; false when the
/// display could not be asked.
bool mostra_finestra(std::uint32_t id, const std::string& display = {});

/// Restores a window when it is minimized, brings it to the front and gives it the keyboard;
/// false when the display could not be asked.
bool attiva_finestra(std::uint32_t id, const std::string& display = {});

/// The window titled so, case ignored, or else the first whose title begins so; null when there
/// is none.
const FinestraAperta* finestra_titolata(const std::vector<FinestraAperta>& finestre,
                                        std::string_view titolo);

}  // namespace platform
