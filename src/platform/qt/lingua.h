// The language of what Qt says by itself: menus of fields, dialogs for files and printing.
#pragma once

namespace platform {

/// Makes Qt speak Italian, whatever the desktop's language; once, after the application is made.
/// False when neither the installed translation nor the one of the program can be read.
bool parla_italiano();

}  // namespace platform
