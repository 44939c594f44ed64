// Other programs: starting them and bringing them to the front.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// Starts a program by its full name, in its own folder, and does not wait for it. Where it does
/// not start, the name without ".exe" is tried, as programs have no such ending everywhere.
/// The number of the process, 0 when neither started.
std::int64_t Shell(const std::string& programma);

/// Brings the window titled so, or beginning so, to the front and gives it the keyboard; false
/// when there is none.
bool AppActivate(std::string_view titolo);

}  // namespace platform
