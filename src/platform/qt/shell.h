// Other programs: starting them and bringing them to the front.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windows.h"

namespace platform {

/// Starts a program by its full name, in its own folder, and does not wait for it. Where it does
/// not start, the name without ".exe" is tried, as programs have no such ending everywhere, and one
/// without it as the system names programs.
/// The number of the process, 0 when neither started.
std::int64_t Shell(const std::string& programma, const std::vector<std::string>& parole = {});

/// The windows of the screen that this program shows itself on, the topmost first; none when it
/// shows nothing.
std::vector<FinestraAperta> EnumWindows();

/// Gives a window of another program its normal state back; 0 is no window.
void ShowWindow(std::uint32_t finestra);

/// Brings the window titled so, or beginning so, to the front and gives it the keyboard; false
/// when there is none.
bool AppActivate(std::string_view titolo);

}  // namespace platform
