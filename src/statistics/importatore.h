// The program that imports draws.
#pragma once

#include "crossword/gioco.h"

class QWidget;

namespace statistics {

/// Starts it beside this program, for the draws of a game, or brings its window to the front where
/// it stands already; says so over `padre` when it is not there.
void apri_importatore(QWidget* padre, crossword::Gioco gioco);

}  // namespace statistics
