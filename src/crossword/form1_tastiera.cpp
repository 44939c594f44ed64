// Numbers typed into the crossword, and undo and redo of its cells.
#include <algorithm>
#include <utility>

#include <QToolTip>

#include "app/form1.h"
#include "platform/desktop.h"

namespace app {

void Form1::MSFlexGrid1_KeyPress(int tasto) {
    const QString digitato = MSFlexGrid1->digitato();
    MSFlexGrid1->set_digitato(QString());
    if (in_elaborazione_) return;
    if (tasto == '\r' && !digitato.isEmpty()) digita(digitato.toInt());
    if (tasto < '0' || tasto > '9') return;
    const QString nuovo = digitato + QChar(tasto);
    if (nuovo.size() < 2) {
        MSFlexGrid1->set_digitato(nuovo);
    } else {
        digita(nuovo.toInt());
    }
}

void Form1::digita(int numero) {
    const bool sul_tabellone = numero >= 1 && numero <= 90;
    QPushButton* pulsante = sul_tabellone ? CMDnum[static_cast<std::size_t>(numero)] : nullptr;
    if (pulsante != nullptr && pulsante->isEnabled()) {
        CMDnum_Click(numero);
        return;
    }
    const QModelIndex cella = MSFlexGrid1->model()->index(MSFlexGrid1->Row(), MSFlexGrid1->Col());
    const QPoint sotto = MSFlexGrid1->visualRect(cella).bottomLeft();
    QToolTip::showText(MSFlexGrid1->viewport()->mapToGlobal(sotto),
                       sul_tabellone
                           ? tr("Il numero %1 sta già su una linea di questa casella.").arg(numero)
                           : tr("I numeri vanno da 1 a 90."),
                       MSFlexGrid1);
}

void Form1::nuova_matrice(int colonne, int righe) {
    const crossword::Matrice vecchia = std::exchange(matrice, crossword::Matrice(colonne, righe));
    // Emptying the same crossword can be taken back; another size or game cannot.
    if (vecchia.colonne() != colonne || vecchia.righe() != righe || matrice_di_lotto_ != lotto) {
        cronologia_.vuota();
        matrice_di_lotto_ = lotto;
        return;
    }
    cronologia_.apri();
    for (int y = 0; y < righe; ++y) {
        for (int x = 0; x < colonne; ++x) cronologia_.annota({y, x, vecchia(x, y), 0});
    }
    cronologia_.chiudi();
}

void Form1::annota(std::int16_t prima) {
    if (in_cronologia_) return;
    const int y = MSFlexGrid1->Row();
    const int x = MSFlexGrid1->Col();
    cronologia_.annota({y, x, prima, matrice(x, y)});
}

void Form1::annulla_modifica() {
    if (!in_elaborazione_) rifai(cronologia_.annulla(), true);
}

void Form1::ripeti_modifica() {
    if (!in_elaborazione_) rifai(cronologia_.ripeti(), false);
}

void Form1::rifai(const std::vector<crossword::Modifica>* azione, bool indietro) {
    if (azione == nullptr) return;
    // A crossword that was laid by other ways than its cells is not the one that was noted.
    const bool stesso = std::all_of(azione->begin(), azione->end(), [&](const auto& m) {
        return matrice(m.colonna, m.riga) == (indietro ? m.dopo : m.prima);
    });
    if (!stesso) {
        cronologia_.vuota();
        return;
    }
    in_cronologia_ = true;
    for (const crossword::Modifica& m : *azione) {
        MSFlexGrid1->cella(m.riga, m.colonna);
        const int numero = indietro ? m.prima : m.dopo;
        if (numero == 0) {
            rimuovi();
        } else {
            CMDnum_Click(numero);
        }
    }
    in_cronologia_ = false;
    aggiorna_lblngioco();
    MSFlexGrid1->cella(azione->front().riga, azione->front().colonna);
    abilita_disabilita(static_cast<std::int16_t>(MSFlexGrid1->Row()),
                       static_cast<std::int16_t>(MSFlexGrid1->Col()));
}

}  // namespace app
