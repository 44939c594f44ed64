// The draws at hand, as the main form tells of them: in the frame of the generators and in the
// menu.
#pragma once

#include <array>

#include <QAction>
#include <QPushButton>

#include "app/finestra.h"
#include "statistics/riga_archivio.h"

namespace app {

class ArchivioInVista : public QObject {
public:
    struct Controlli {
        QWidget* riquadro;  ///< takes the lines
        std::array<QPushButton*, 2> generatori;
        QAction* voce;  ///< opens the importer
    };
    /// All outlive this.
    ArchivioInVista(Finestra& finestra, const Controlli& controlli);

    /// The game, or the archive that is open, is another one.
    void aggiorna();

private:
    void cambiato();

    Finestra& finestra_;
    Controlli c_;
    /// Owned by the frame.
    std::array<statistics::RigaArchivio*, 2> righe_;
};

}  // namespace app
