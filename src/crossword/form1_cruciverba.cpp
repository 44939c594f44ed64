// The crossword on the screen: grid, board of numbers, list of numbers in play.
#include <QSignalBlocker>

#include "app/form1.h"
#include "crossword/linee.h"
#include "platform/desktop.h"
#include "platform/runtime.h"

namespace app {

using platform::DoEvents;
using platform::LockWindowUpdate;
using platform::MousePointer;

namespace {

/// Background of the six steps of the highlight.
constexpr std::array<int, 6> colori_lista = {65535, 65280, 255, 16776960, 16761087, 16761024};
constexpr int bianco = 16777215;

/// Size of the grid for so many cells, in twips: at most ten rows show at a time.
int altezza_griglia(int righe, int colonne) {
    if (righe < 11 && colonne >= 11) return righe * 300 + 45;
    return righe < 10 ? righe * 300 + 105 : 3045;
}

int larghezza_griglia(int righe, int colonne) {
    return colonne * 300 + (righe >= 11 ? 45 : 105);
}

/// Why the board bars a number; empty when it does not.
QString motivo(int numero, std::uint8_t sbarre) {
    QStringList dove;
    if ((sbarre & crossword::sulla_riga) != 0) dove << Form1::tr("sulla riga");
    if ((sbarre & crossword::sulla_colonna) != 0) dove << Form1::tr("sulla colonna");
    if ((sbarre & crossword::sulla_diagonale) != 0) dove << Form1::tr("su una diagonale");
    if (dove.isEmpty()) return {};
    return Form1::tr("Il %1 sta già %2 di questa casella.")
        .arg(numero)
        .arg(dove.join(Form1::tr(" e ")));
}

}  // namespace

void Form1::modifica_griglia(std::uint8_t /*non_usato*/) {
    const crossword::Matrice prima = matrice;
    const std::array<int, 3> tipi_prima = tipi();
    List1->Clear();
    colore_griglia();
    lblngioco->setText(QString());
    const int c = colonne();
    const int r = righe();
    matrice = crossword::Matrice(c, r);
    statistico.azzera();
    MSFlexGrid1->setUpdatesEnabled(false);
    MSFlexGrid1->set_Rows(r);
    MSFlexGrid1->set_Cols(c);
    for (int i = 0; i < c; ++i) MSFlexGrid1->ColWidth(i, 300);
    for (int i = 0; i < r; ++i) MSFlexGrid1->RowHeight(i, 300);
    MSFlexGrid1->misura(
        {platform::px(larghezza_griglia(r, c)), platform::px(altezza_griglia(r, c))});
    MSFlexGrid1->move((Frame1->width() - MSFlexGrid1->width()) / 2,
                      (Frame1->height() - MSFlexGrid1->height()) / 2);
    svuota();
    MSFlexGrid1->setUpdatesEnabled(true);
    MSFlexGrid2->set_testo(1, 1, Combo2->Text());
    std::uint8_t quale = 2;
    carica_combo(gioco(), quale, static_cast<std::int16_t>(r));
    MSFlexGrid2->set_testo(2, 1, Combo1->Text());
    quale = 1;
    carica_combo(gioco(), quale, static_cast<std::int16_t>(c));
    if (Combo1->Text() == Combo2->Text()) {
        MSFlexGrid2->set_testo(3, 1, QString::number(gioco().diagonali()));
        quale = 3;
        carica_combo(gioco(), quale, static_cast<std::int16_t>(c));
        Combo5->setEnabled(true);
    } else {
        Combo5->Clear();
        Combo5->setEnabled(false);
        MSFlexGrid2->set_testo(3, 1, QString());
        MSFlexGrid2->set_testo(3, 3, QString());
        MSFlexGrid2->set_testo(5, 3, QString());
    }
    for (int i = 1; i <= 90; ++i) {
        QPushButton* numero = CMDnum[static_cast<std::size_t>(i)];
        numero->setEnabled(true);
        numero->setToolTip(QString());
        platform::set_Tag(numero, QString());
    }
    MSFlexGrid1->cella(0, 0);
    annota(prima, tipi_prima);
}

void Form1::svuota() {
    for (int r = 0; r < MSFlexGrid1->Rows(); ++r) {
        for (int c = 0; c < MSFlexGrid1->Cols(); ++c) MSFlexGrid1->set_testo(r, c, QString());
    }
    for (int i = 1; i <= 90; ++i) CMDnum[static_cast<std::size_t>(i)]->setVisible(true);
}

void Form1::colore_griglia() {
    const QSignalBlocker fermo(MSFlexGrid1->model());
    // Both loops run to the count of rows: the columns beyond it keep their highlight.
    for (int r = 0; r < righe(); ++r) {
        for (int c = 0; c < righe(); ++c) {
            MSFlexGrid1->set_sfondo(r, c, platform::colore(bianco));
        }
    }
    platform::set_Tag(List1, "0");
    MSFlexGrid1->viewport()->update();
}

bool Form1::posa(int numero) {
    const int x = MSFlexGrid1->Col();
    const int y = MSFlexGrid1->Row();
    const std::int16_t prima = matrice(x, y);
    if (!crossword::posa(matrice, x, y, numero)) return false;
    annota(prima);
    colore_griglia();
    salvato = false;
    MSFlexGrid1->set_Text(QString::number(numero));
    return true;
}

void Form1::CMDnum_Click(int Index) {
    if (in_elaborazione_) return;
    MousePointer(11);
    DoEvents();
    LockWindowUpdate(this);
    if (posa(Index)) {
        if (MSFlexGrid1->Col() < matrice.ubound(1)) {
            MSFlexGrid1->set_Col(MSFlexGrid1->Col() + 1);
        } else {
            MSFlexGrid1->set_Col(0);
            MSFlexGrid1->set_Row(MSFlexGrid1->Row() < matrice.ubound(2) ? MSFlexGrid1->Row() + 1
                                                                        : 0);
        }
    }
    abilita_disabilita(static_cast<std::int16_t>(MSFlexGrid1->Row()),
                       static_cast<std::int16_t>(MSFlexGrid1->Col()));
    aggiorna_lblngioco();
    MSFlexGrid1->setFocus();
    MousePointer(0);
    DoEvents();
    LockWindowUpdate(nullptr);
}

void Form1::rimuovi() {
    if (in_elaborazione_) return;
    salvato = false;
    const std::int16_t prima = matrice(MSFlexGrid1->Col(), MSFlexGrid1->Row());
    MSFlexGrid1->set_Text(QString());
    matrice.scrivi(MSFlexGrid1->Col(), MSFlexGrid1->Row(), 0);
    annota(prima);
    abilita_disabilita(static_cast<std::int16_t>(MSFlexGrid1->Row()),
                       static_cast<std::int16_t>(MSFlexGrid1->Col()));
}

void Form1::abilita_disabilita(std::int16_t riga, std::int16_t colonna) {
    // The digit typed was for the cell as it was.
    MSFlexGrid1->set_digitato(QString());
    const bool corrente = riga == MSFlexGrid1->Row() && colonna == MSFlexGrid1->Col();
    MousePointer(11);
    DoEvents();
    LockWindowUpdate(this);
    // An assistive tool's press comes by a timer: it may have moved the current cell meanwhile.
    const auto sbarre = corrente
                            ? crossword::sbarre(matrice, MSFlexGrid1->Row(), MSFlexGrid1->Col())
                            : crossword::sbarre(matrice, riga, colonna);
    for (std::size_t i = 0; i <= 90; ++i) {
        QPushButton* numero = CMDnum[i];
        const bool vietato = sbarre[i] != crossword::nessuna;
        if (numero->isEnabled() == vietato) numero->setEnabled(!vietato);
        platform::set_Tag(numero, vietato ? "0" : QString());
        numero->setToolTip(motivo(static_cast<int>(i), sbarre[i]));
        if (i > 0) numero->setVisible(true);
    }
    MousePointer(0);
    DoEvents();
    LockWindowUpdate(nullptr);
}

void Form1::cruciverba_completo(bool& esito) const {
    esito = crossword::cruciverba_completo(matrice);
}

std::int16_t Form1::aggiorna_lista() {
    List1->Clear();
    const std::vector<int> numeri = crossword::numeri_in_gioco(matrice);
    for (const int n : numeri) {
        List1->AddItem(platform::q(crossword::testo_lista(n)));
        List1->item(List1->count() - 1)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    return static_cast<std::int16_t>(numeri.size());
}

void Form1::List1_Click() {
    if (List1->currentItem() == nullptr) return;
    const double numero = platform::Val(platform::s(List1->currentItem()->text()));
    const int passo = platform::Tag(List1).toInt();
    const int nuovo = passo < 6 ? passo + 1 : 1;
    if (nuovo == 1) colore_griglia();
    platform::set_Tag(List1, QString::number(nuovo));
    const QColor evidenza = platform::colore(colori_lista[static_cast<std::size_t>(nuovo - 1)]);
    for (int r = 0; r < MSFlexGrid1->Rows(); ++r) {
        for (int c = 0; c < MSFlexGrid1->Cols(); ++c) {
            if (platform::Val(platform::s(MSFlexGrid1->testo(r, c))) == numero) {
                MSFlexGrid1->set_sfondo(r, c, evidenza);
            }
        }
    }
}

}  // namespace app
