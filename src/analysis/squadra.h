// A job shared out among a few threads.
#pragma once

#include <functional>

namespace analysis {

/// Runs `lavoro` on `esecutori` threads, the caller's among them, and waits for all; it is told
/// whether it runs on the caller's. Fewer threads do where the system has none to spare.
void in_squadra(int esecutori, const std::function<void(bool chiamante)>& lavoro);

}  // namespace analysis
