// What a test may replace of the desktop: each part that is empty leaves the desktop's own in
// force.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include <QString>
#include <QStringList>

#include "platform/ambiente.h"
#include "platform/windows.h"

class QPrinter;

namespace platform {

struct Messaggio;

struct Scrivania {
    /// Answers in place of the message boxes.
    std::function<int(const Messaggio&)> risponde;
    /// Reads texts out in place of the screen reader.
    std::function<void(const QString& testo)> legge;
    /// Shows a document in place of the desktop's programs; false when it could not.
    std::function<bool(const QString& documento)> apre;

    /// Choose in place of the dialogs for a folder, files to read, a file to write.
    std::function<QString(const QString& titolo, const QString& inizio)> sceglie_cartella;
    std::function<QStringList()> sceglie_file;
    std::function<QString(const QString& proposta)> sceglie_nuovo_file;

    /// The windows of other programs, and what is asked of them.
    std::function<std::vector<FinestraAperta>()> finestre;
    std::function<void(std::uint32_t)> mostra_finestra;
    std::function<bool(std::uint32_t)> attiva_finestra;

    /// Makes the printer that jobs go to; one that makes none sends them into a file.
    std::function<std::unique_ptr<QPrinter>()> stampante;
    /// No job goes to paper, whatever printers the machine has.
    bool stampa_solo_su_file = false;
};

/// That of `ambiente()`.
Scrivania& scrivania();

}  // namespace platform
