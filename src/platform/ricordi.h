// Where the player left each window; no Qt.
#pragma once

#include <optional>
#include <string>

namespace platform {

/// Place and size of a window on the desktop, in its pixels, without the window manager's frame.
struct Ricordo {
    int x = 0;
    int y = 0;
    int larghezza = 0;
    int altezza = 0;
    bool spostata = false;  ///< false: the window stands where the program puts it
    bool massima = false;
    int fattore = 0;  ///< scale in per cent of a window that layouts fill; 0: the program's own
    bool operator==(const Ricordo&) const = default;
};

/// What `file` keeps of the window `nome`; nothing when it keeps nothing that a window can be.
std::optional<Ricordo> ricordo(const std::string& file, const std::string& nome);

/// Keeps it, or with none forgets it; the other windows' stay. False when it cannot be written.
bool ricorda(const std::string& file, const std::string& nome,
             const std::optional<Ricordo>& finestra);

}  // namespace platform
