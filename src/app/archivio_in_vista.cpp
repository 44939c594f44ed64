#include "app/archivio_in_vista.h"

#include "statistics/importatore.h"

namespace app {

using statistics::RigaArchivio;

ArchivioInVista::ArchivioInVista(Finestra& finestra,
                                 const statistics::RiquadriGeneratori& generatori,
                                 const QAction* voce)
    : finestra_(finestra),
      generatori_(generatori),
      righe_{new RigaArchivio(finestra, generatori.Frame7, RigaArchivio::Forma::in_superenalotto),
             new RigaArchivio(finestra, generatori.Frame7, RigaArchivio::Forma::breve_in_lotto)} {
    // In Lotto the wheels leave room in the row of the title alone.
    righe_[0]->setGeometry(12, 56, 194, 48);
    righe_[1]->setGeometry(112, 2, 98, 20);
    for (RigaArchivio* riga : righe_) {
        connect(riga, &RigaArchivio::cambiato, this, &ArchivioInVista::cambiato);
    }
    connect(voce, &QAction::triggered, this,
            [this] { statistics::apri_importatore(&finestra_, finestra_.sessione.gioco()); });
}

void ArchivioInVista::aggiorna() {
    for (RigaArchivio* riga : righe_) riga->aggiorna();
    for (QPushButton* generatore : {generatori_.cmdstat, generatori_.cmdstat2}) {
        generatore->setToolTip(tr("Dispone un cruciverba intero dai ritardi dei numeri.\n") +
                               righe_[0]->frase());
    }
}

void ArchivioInVista::cambiato() {
    const auto prima = finestra_.sessione.archivio.aperta;
    finestra_.sessione.rinfresca_archivio();
    aggiorna();
    if (finestra_.sessione.archivio.aperta != prima) {
        finestra_.mostra_esito(tr("Estrazioni nuove: ") + righe_[0]->frase().toLower().left(1) +
                               righe_[0]->frase().mid(1));
    }
}

}  // namespace app
