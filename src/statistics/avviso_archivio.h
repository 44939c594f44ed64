// What the player is told of draws that cannot be opened.
#pragma once

#include <QString>

#include "platform/recordset.h"

class QWidget;

namespace statistics {

/// `titolo` is that of the box for a file that another program holds.
void errore_archivio(QWidget* padre, const platform::Err& errore, const QString& titolo);

}  // namespace statistics
