// How a program was started; no Qt.
#pragma once

#include <string>

namespace platform {

/// The folder that a command names, as it really is: a caller may have named it by a handle that
/// will not last. Empty for a command without a folder, or with one that is not there.
std::string cartella_del_comando(const std::string& comando);

}  // namespace platform
