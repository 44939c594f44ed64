// A whole crossword laid by the program, from the draws of the archive.
#include <utility>

#include "app/form1.h"
#include "platform/application.h"
#include "platform/desktop.h"
#include "statistics/completamento.h"
#include "statistics/lettore_archivio.h"

namespace app {

using platform::DoEvents;
using platform::LockWindowUpdate;

namespace {

std::string file_mstat() {
    return platform::App().file("mstat.dat");
}

}  // namespace

statistics::Seguito Form1::seguito(bool avanza) {
    statistics::Seguito seguito;
    seguito.barra = [this](std::int32_t massimo) {
        ProgressBar1->setRange(0, qMax(1, massimo));
        ProgressBar1->setValue(0);
        ProgressBar1->show();
    };
    seguito.posata = [this, avanza](int riga, int colonna, int numero) {
        // The hidden board bars nothing meanwhile: the quotas see the lines for themselves.
        MSFlexGrid1->cella(riga, colonna);
        MSFlexGrid1->set_Text(QString::number(numero));
        if (avanza) {
            // A bar paints itself, and the grid with it, at every value: here pending events do.
            ProgressBar1->setUpdatesEnabled(false);
            ProgressBar1->setValue(ProgressBar1->value() + 1);
            ProgressBar1->setUpdatesEnabled(true);
        }
        DoEvents();
        return !chiusura_chiesta_;
    };
    return seguito;
}

bool Form1::estrazioni_della_ruota() {
    const std::string_view ruota = statistics::codice_ruota(Combo6->ListIndex());
    if (!archivio.database.OpenRecordset(statistics::query_ruota(ruota), archivio.draws).ok())
        return false;
    if (ruota == statistics::nazionale) {
        statistics::LettoreArchivio lettore(archivio);
        if (!statistics::bastano_estrazioni(lettore)) {
            platform::MsgBox(
                this, {"Per poter Realizzare un sistema statistico devono essere state effettuate "
                       "almeno 100 estrazioni per la ruota esaminata",
                       platform::Pulsanti::ok, QString(), platform::Icona::informazione});
            return false;
        }
    }
    return archivio.lega(7).ok();
}

void Form1::genera_statistico() {
    if (!archivio.draws.MoveLast().ok()) return;
    if (lotto && !estrazioni_della_ruota()) return;
    const platform::LavoroLungo lavoro;
    in_elaborazione_ = true;
    statistics::LettoreArchivio lettore(archivio);
    statistics::genera_statistico(gioco(), statistico, lettore, file_mstat(), matrice, rnd_,
                                  seguito(true));
    in_elaborazione_ = false;
    ProgressBar1->hide();
}

void Form1::completa() {
    if (in_elaborazione_) return;
    {
        const platform::LavoroLungo lavoro;
        in_elaborazione_ = true;
        statistics::LettoreArchivio lettore(archivio);
        statistics::completa(statistico, lettore, file_mstat(), matrice, seguito(false));
        in_elaborazione_ = false;
        ProgressBar1->hide();
    }
    chiudi_se_chiesto();
}

void Form1::genera() {
    if (in_elaborazione_ || !MSFlexGrid1->testo(0, 0).isEmpty()) return;
    LockWindowUpdate(this);
    const int colonne_scelte = Combo1->ListIndex();
    const int righe_scelte = Combo2->ListIndex();
    platform::MousePointer(11);
    // The sizes pass by the smallest ones and come back: what was done before can still be undone.
    const crossword::Matrice prima = matrice;
    const std::array<int, 3> tipi_prima = tipi();
    crossword::Cronologia passato = std::exchange(cronologia_, {});
    resetta();
    Combo1->set_ListIndex(colonne_scelte);
    Combo2->set_ListIndex(righe_scelte);
    cronologia_ = std::move(passato);
    Frame3->hide();
    DoEvents();
    LockWindowUpdate(nullptr);
    apri_archivio();
    platform::MousePointer(11);
    genera_statistico();
    annota(prima, tipi_prima);
    LockWindowUpdate(this);
    Frame3->show();
    aggiorna_lblngioco();
    salvato = false;
    MSFlexGrid1->cella(0, 0);
    abilita_disabilita(0, 0);
    platform::MousePointer(0);
    DoEvents();
    LockWindowUpdate(nullptr);
}

void Form1::cmdstat_Click() {
    genera();
    chiudi_se_chiesto();
}

void Form1::cmdstat2_Click() {
    genera();
    DoEvents();
    chiudi_se_chiesto();
}

void Form1::chiudi_se_chiesto() {
    if (!chiusura_chiesta_) return;
    chiusura_chiesta_ = false;
    close();
}

}  // namespace app
