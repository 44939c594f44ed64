// How a program was started; no Qt.
#pragma once

#include <string>
#include <vector>

namespace platform {

/// The words behind a command, UTF-8, names with plain slashes. From then on what it writes goes
/// out as it stands, and a terminal takes it for UTF-8.
std::vector<std::string> parole(int argc, char** argv);

/// The folder that a command names, as it really is: a caller may have named it by a handle that
/// will not last. Empty for a command without a folder, or with one that is not there.
std::string cartella_del_comando(const std::string& comando);

}  // namespace platform
