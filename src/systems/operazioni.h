// File steps of the library: rename, duplicate, delete, import, send. No step asks or shows.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "crossword/gioco.h"
#include "platform/disk.h"

namespace systems {

/// The two files of a system of one game in one folder.
struct Coppia {
    std::string cartella;  ///< with or without a final separator
    std::string nome;
    crossword::Gioco gioco;

    [[nodiscard]] std::string sistema() const;
    [[nodiscard]] std::string sviluppo() const;
};

/// What became of each file of a pair; `assente` for one that was not there.
struct Passi {
    platform::Esito sistema = platform::Esito::assente;
    platform::Esito sviluppo = platform::Esito::assente;
    [[nodiscard]] bool disco_pieno() const {
        return sistema == platform::Esito::disco_pieno || sviluppo == platform::Esito::disco_pieno;
    }
};

/// Called between the steps of a copy.
using Pausa = std::function<void()>;

/// True when a rename accepts every character of the name. Capitals and the at sign pass here,
/// unlike in the boxes for names.
bool nome_valido(std::string_view nome);

/// True when the folder holds no file of exactly that name; no extension is added.
bool controllo_sistemi_esistenti(const std::string& cartella, const std::string& nome);

/// Renames the development, then the system. A file that has the new name already stays.
Passi rinomina(const Coppia& vecchia, const std::string& nuovo);

/// Deletes the development, then the system.
Passi elimina(const Coppia& coppia);

/// Deletes every development, then every system, of the game. Returns the names that stayed.
std::vector<std::string> elimina_tutti(const std::string& cartella, crossword::Gioco gioco);

/// What becomes of a pair that has the name already. It stays as it is until both copies are there
/// whole, and then both give way; a file that is the one to be copied stays.
enum class Vecchia {
    ceduta,  ///< the player was not asked: without a successor its development stays
    tolta,   ///< the player agreed that it goes, development and all
};

/// Copies the development, then the system.
Passi duplica(const Coppia& origine, const Coppia& arrivo, const Pausa& pausa,
              Vecchia vecchia = Vecchia::ceduta);

/// Copies the system, then the development.
Passi importa(const Coppia& origine, const Coppia& arrivo, Vecchia vecchia = Vecchia::ceduta);
/// Asked before an import takes the place of a system of that name.
inline constexpr const char* domanda_importa =
    "Esiste già un sistema con uesto nome. Sovrascrivere?";

/// Copies the system, then the development; on a full disk it stops and leaves what it got to of
/// a pair that is new there.
Passi invia(const Coppia& origine, const Coppia& arrivo, Vecchia vecchia = Vecchia::ceduta);

}  // namespace systems
