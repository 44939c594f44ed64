// Copying from grids and lists.
#pragma once

#include <QString>

class QAbstractItemView;
class QApplication;

namespace platform {

/// What a copy takes: the selected rows or cells of a list, the whole of a grid that selects
/// nothing. Cells with tabulators between them, rows with line ends, as spreadsheets take it; text
/// that holds either is put on one line.
QString testo_da_copiare(const QAbstractItemView& vista);

/// From now on the copy key puts that text on the clipboard in every window of `applicazione`.
void copia_da_griglie(QApplication& applicazione);

}  // namespace platform
