// Choice of a folder or of files, and how they are shown.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace platform {

/// Lets the user choose a folder, in a modal dialog of that title that opens at `inizio`.
/// Returns its path, empty when cancelled. Every choice of a folder goes through here.
QString scegli_cartella(QWidget* proprietario, const QString& titolo, const QString& inizio);

/// Lets the user choose one or more files, in a modal dialog that shows those of the kinds `tipi`
/// ("Name (*.a *.b)") first and all on demand; empty when cancelled.
QStringList scegli_file(QWidget* proprietario, const QString& titolo, const QString& inizio,
                        const QString& tipi);

/// Lets the user name a file to be written, of the kinds `tipi` ("Name (*.a);;Other (*.b)"),
/// `proposta` first;
/// asks before one that is there. Empty when cancelled.
QString scegli_nuovo_file(QWidget* proprietario, const QString& titolo, const QString& proposta,
                          const QString& tipi);

/// The name of a file or folder as the system's own programs show it.
QString da_mostrare(const QString& nome);

}  // namespace platform
