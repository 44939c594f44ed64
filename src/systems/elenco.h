// The list of saved systems, and the names they may have.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "crossword/gioco.h"

namespace systems {

/// One row of the list.
struct Voce {
    std::string nome;        ///< file name less its extension, case as on the disk
    std::string dimensione;  ///< "8 x 6", or in Lotto "Terzine", "Quartine", "Cinquine" or empty
    std::string data;        ///< eight characters of the creation date
};

/// Systems of the game whose files stand in `cartella`. Heads and dates are read from the files
/// of the same name in `programma`; one that cannot be read keeps the values of the one before.
std::vector<Voce> trova_sistemi(const std::string& cartella, const std::string& programma,
                                crossword::Gioco gioco);

/// Creation date and time of a file as "dd/mm/yy hh.mm.ss" in local time, empty without it.
std::string ShowFileInfo(const std::string& nome);

/// Key filter of the boxes that take a name: the character to enter, or 0 when refused.
int tasto_nome(int codice);

/// True for a text that can be the name of a file of the program folder and of no other.
bool nome_ammesso(std::string_view nome);

}  // namespace systems
