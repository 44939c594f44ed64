// The draws at hand, as the main form tells of them: in the frame of the generators and in the
// menu.
#pragma once

#include <array>

#include <QAction>

#include "app/finestra.h"
#include "statistics/riempimento.h"
#include "statistics/riga_archivio.h"

namespace app {

class ArchivioInVista : public QObject {
public:
    /// The frame of the generators takes the lines; `voce` opens the importer. All outlive this.
    ArchivioInVista(Finestra& finestra, const statistics::RiquadriGeneratori& generatori,
                    const QAction* voce);

    /// The game, or the archive that is open, is another one.
    void aggiorna();

private:
    void cambiato();

    Finestra& finestra_;
    const statistics::RiquadriGeneratori& generatori_;
    /// Owned by the frame.
    std::array<statistics::RigaArchivio*, 2> righe_;
};

}  // namespace app
