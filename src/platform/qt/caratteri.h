// The faces that texts are measured in, for a system that has none of them.
#pragma once

namespace platform {

/// Makes those among the resources known to Qt, once; none is there where packages bring them.
void porta_caratteri();

}  // namespace platform
