// Completion of the crossword on the screen with the numbers already chosen.
#include "app/form1.h"
#include "platform/desktop.h"
#include "statistics/completamento.h"

namespace app {

using platform::DoEvents;
using platform::LockWindowUpdate;

bool Form1::completa_cella(const std::vector<int>& scelti) {
    abilita_disabilita(static_cast<std::int16_t>(MSFlexGrid1->Row()),
                       static_cast<std::int16_t>(MSFlexGrid1->Col()));
    for (const int numero : scelti) {
        // Only the numbers of the board can be pressed, whatever a damaged system holds.
        if (numero < 1 || numero > 90) continue;
        if (!CMDnum[static_cast<std::size_t>(numero)]->isEnabled()) continue;
        CMDnum_Click(numero);
        return true;
    }
    return false;
}

bool Form1::completa_caselle() {
    const platform::LavoroLungo lavoro;
    const std::vector<int> scelti = statistics::numeri_scelti(matrice);
    in_completamento_ = true;
    MSFlexGrid1->cella(0, 0);
    Frame3->hide();
    DoEvents();
    cronologia_.apri();
    bool completato = true;
    for (int r = 0; r < righe() && completato; ++r) {
        for (int c = 0; c < colonne() && completato && !chiusura_chiesta_; ++c) {
            MSFlexGrid1->cella(r, c);
            if (MSFlexGrid1->Text().isEmpty()) completato = completa_cella(scelti);
        }
    }
    cronologia_.chiudi();
    aggiorna_annulla();
    // The walk over full cells told the board nothing: it must bar for the cell it stopped at.
    abilita_disabilita(static_cast<std::int16_t>(MSFlexGrid1->Row()),
                       static_cast<std::int16_t>(MSFlexGrid1->Col()));
    Frame3->show();
    DoEvents();
    LockWindowUpdate(nullptr);
    in_completamento_ = false;
    return completato;
}

void Form1::completa_con_scelti() {
    if (in_elaborazione_ || in_completamento_) return;
    const bool completato = completa_caselle();
    if (chiusura_chiesta_) {
        chiudi_se_chiesto();
        return;
    }
    if (completato) return;
    platform::MsgBox(this, {"Impossibile completare il Cruciverba con i nuemeri scelti.\r\n"
                            "Inserire un altro numero nel tabellone.",
                            platform::Pulsanti::ok, "Tabellino"});
}

}  // namespace app
