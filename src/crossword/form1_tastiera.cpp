// Numbers typed into the crossword, and undo and redo of its cells.
#include <utility>

#include <QToolTip>

#include "app/form1.h"
#include "crossword/digitazione.h"
#include "platform/desktop.h"

namespace app {

void Form1::MSFlexGrid1_KeyPress(int tasto) {
    std::string digitato = platform::s(MSFlexGrid1->digitato());
    const auto numero = crossword::digita(digitato, tasto);
    MSFlexGrid1->set_digitato(platform::q(digitato));
    if (numero && !in_elaborazione_) digita(*numero);
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
                       pulsante != nullptr ? pulsante->toolTip() : tr("I numeri vanno da 1 a 90."),
                       MSFlexGrid1);
}

std::array<int, 3> Form1::tipi() const {
    return {Combo3->ListIndex(), Combo4->ListIndex(), Combo5->ListIndex()};
}

void Form1::annota(const crossword::Matrice& prima, const std::array<int, 3>& tipi_prima) {
    // Only the same crossword can be taken back to what it was.
    if (prima.colonne() != matrice.colonne() || prima.righe() != matrice.righe()) {
        cronologia_.vuota();
    } else {
        const std::array<int, 3> tipi_dopo = tipi();
        cronologia_.apri();
        cronologia_.annota(prima, matrice);
        for (std::size_t i = 0; i < 3; ++i) {
            cronologia_.annota({0, static_cast<int>(i), static_cast<std::int16_t>(tipi_prima[i]),
                                static_cast<std::int16_t>(tipi_dopo[i]), true});
        }
        cronologia_.chiudi();
    }
    aggiorna_annulla();
}

void Form1::annota(std::int16_t prima) {
    const int y = MSFlexGrid1->Row();
    const int x = MSFlexGrid1->Col();
    cronologia_.annota({y, x, prima, matrice(x, y)});
    aggiorna_annulla();
}

void Form1::aggiorna_annulla() {
    annulla->setEnabled(cronologia_.annullabile());
    ripeti->setEnabled(cronologia_.ripetibile());
}

void Form1::annulla_modifica() {
    if (!in_elaborazione_ && !in_completamento_) rifai(cronologia_.annulla(), true);
}

void Form1::ripeti_modifica() {
    if (!in_elaborazione_ && !in_completamento_) rifai(cronologia_.ripeti(), false);
}

void Form1::rifai(const std::vector<crossword::Modifica>* voluta, bool indietro) {
    if (voluta == nullptr) return;
    const std::vector<crossword::Modifica> azione = *voluta;
    // A crossword that was laid by other ways is not the one that was noted.
    const bool rimessa = crossword::rimetti(azione, indietro, matrice);
    if (!rimessa) cronologia_.vuota();
    aggiorna_annulla();
    if (!rimessa) return;
    salvato = false;
    colore_griglia();
    const std::array<platform::ComboBox*, 3> liste = {Combo3, Combo4, Combo5};
    bool cursore = false;
    for (const crossword::Modifica& m : azione) {
        if (m.tipo) {
            liste[static_cast<std::size_t>(m.colonna)]->set_ListIndex(indietro ? m.prima : m.dopo);
            continue;
        }
        const int numero = matrice(m.colonna, m.riga);
        MSFlexGrid1->set_testo(m.riga, m.colonna,
                               numero == 0 ? QString() : QString::number(numero));
        if (!std::exchange(cursore, true)) MSFlexGrid1->cella(m.riga, m.colonna);
    }
    aggiorna_lblngioco();
    abilita_disabilita(static_cast<std::int16_t>(MSFlexGrid1->Row()),
                       static_cast<std::int16_t>(MSFlexGrid1->Col()));
}

}  // namespace app
