// The crossword on the main form: board, typing, undo, completion and generation.
#include <utility>

#include <QMenuBar>
#include <QSignalBlocker>
#include <QToolTip>

#include "app/form1.h"
#include "app/form1_lavoro.h"
#include "crossword/digitazione.h"
#include "crossword/linee.h"
#include "platform/desktop.h"
#include "platform/runtime.h"
#include "statistics/avviso_archivio.h"

namespace app {

using platform::DoEvents;
using platform::LockWindowUpdate;
using platform::MousePointer;
using systems::Cella;

namespace {

/// Background of the six steps of the highlight.
constexpr std::array<int, 6> colori_lista = {65535, 65280, 255, 16776960, 16761087, 16761024};
constexpr int bianco = 16777215;

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
    sessione.dimensioni(Combo1->Text().toInt(), Combo2->Text().toInt());
}

void Form1::svuota() {
    for (int r = 0; r < MSFlexGrid1->Rows(); ++r) {
        for (int c = 0; c < MSFlexGrid1->Cols(); ++c) MSFlexGrid1->set_testo(r, c, QString());
    }
}

void Form1::colore_griglia() {
    const QSignalBlocker fermo(MSFlexGrid1->model());
    // Both loops run to the count of rows: the columns beyond it keep their highlight.
    for (int r = 0; r < sessione.righe(); ++r) {
        for (int c = 0; c < sessione.righe(); ++c) {
            MSFlexGrid1->set_sfondo(r, c, platform::colore(bianco));
        }
    }
    platform::set_Tag(List1, "0");
    MSFlexGrid1->viewport()->update();
}

void Form1::CMDnum_Click(int Index) {
    if (in_elaborazione()) return;
    MousePointer(11);
    DoEvents();
    LockWindowUpdate(this);
    const Cella qui = cella_corrente();
    if (sessione.posa(qui, Index) == systems::Posata::posata) {
        colore_griglia();
        const bool ultima_colonna = qui.colonna >= sessione.matrice().ubound(1);
        const bool ultima_riga = qui.riga >= sessione.matrice().ubound(2);
        MSFlexGrid1->set_Col(ultima_colonna ? 0 : qui.colonna + 1);
        if (ultima_colonna) MSFlexGrid1->set_Row(ultima_riga ? 0 : qui.riga + 1);
    }
    abilita_corrente();
    MSFlexGrid1->setFocus();
    MousePointer(0);
    DoEvents();
    LockWindowUpdate(nullptr);
}

void Form1::rimuovi() {
    if (in_elaborazione()) return;
    sessione.rimuovi(cella_corrente());
    abilita_corrente();
}

void Form1::Form_KeyDown_Canc() {
    rimuovi();
}

void Form1::abilita_corrente() {
    abilita_disabilita(static_cast<std::int16_t>(MSFlexGrid1->Row()),
                       static_cast<std::int16_t>(MSFlexGrid1->Col()));
}

void Form1::abilita_disabilita(std::int16_t riga, std::int16_t colonna) {
    // The digit typed was for the cell as it was.
    MSFlexGrid1->set_digitato(QString());
    const bool corrente = Cella{colonna, riga} == cella_corrente();
    MousePointer(11);
    DoEvents();
    LockWindowUpdate(this);
    // An assistive tool's press comes by a timer: it may have moved the current cell meanwhile.
    const Cella dove = corrente ? cella_corrente() : Cella{colonna, riga};
    const auto sbarre = crossword::sbarre(sessione.matrice(), dove.riga, dove.colonna);
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

std::int16_t Form1::aggiorna_lista() {
    List1->Clear();
    const std::vector<int> numeri = crossword::numeri_in_gioco(sessione.matrice());
    for (const int n : numeri) {
        List1->AddItem(platform::q(crossword::testo_lista(n)));
        List1->item(List1->count() - 1)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    return static_cast<std::int16_t>(numeri.size());
}

void Form1::List1_Click() {
    if (List1->currentItem() == nullptr) return;
    const int numero = List1->currentItem()->text().toInt();
    const int passo = platform::Tag(List1).toInt();
    const int nuovo = passo < 6 ? passo + 1 : 1;
    if (nuovo == 1) colore_griglia();
    platform::set_Tag(List1, QString::number(nuovo));
    const QColor evidenza = platform::colore(colori_lista[static_cast<std::size_t>(nuovo - 1)]);
    for (int r = 0; r < MSFlexGrid1->Rows(); ++r) {
        for (int c = 0; c < MSFlexGrid1->Cols(); ++c) {
            if (sessione.matrice()(c, r) == numero) MSFlexGrid1->set_sfondo(r, c, evidenza);
        }
    }
}

// Typing and undo.

void Form1::MSFlexGrid1_KeyPress(int tasto) {
    std::string digitato = platform::s(MSFlexGrid1->digitato());
    const auto numero = crossword::digita(digitato, tasto);
    MSFlexGrid1->set_digitato(platform::q(digitato));
    if (numero && !in_elaborazione()) digita(*numero);
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

void Form1::rifai(bool indietro) {
    if (in_elaborazione()) return;
    const auto prima = indietro ? sessione.annulla() : sessione.ripeti();
    colore_griglia();
    if (prima) in_cella(*prima);
    abilita_corrente();
}

// Completion and generation.

Form1::Lavoro::Lavoro(Form1& form) : form_(form) {
    ++form_.lavori_;
}

Form1::Lavoro::~Lavoro() {
    --form_.lavori_;
    form_.ProgressBar1->hide();
}

void Form1::barra(int massimo) {
    ProgressBar1->setRange(0, qMax(1, massimo));
    ProgressBar1->setValue(0);
    ProgressBar1->show();
}

statistics::Seguito Form1::seguito(bool avanza) {
    statistics::Seguito seguito;
    seguito.barra = [this](std::int32_t massimo) { barra(massimo); };
    seguito.posata = [this, avanza](int riga, int colonna, int numero) {
        // The hidden board bars nothing meanwhile: the rules see the lines for themselves.
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

void Form1::completa_con_scelti() {
    if (in_elaborazione()) return;
    systems::Completato esito;
    {
        const Lavoro lavoro(*this);
        MSFlexGrid1->cella(0, 0);
        Frame3->hide();
        DoEvents();
        Cella ultima{-1, -1};
        Cella ferma{sessione.colonne() - 1, sessione.righe() - 1};
        const Cella fine = ferma;
        const auto mostra_posata = seguito(false).posata;
        esito = sessione.completa_con_scelti(
            [&](int riga, int colonna, int numero) {
                ultima = {colonna, riga};
                return mostra_posata(riga, colonna, numero);
            },
            &ferma);
        // Behind the last cell comes the first one.
        in_cella(esito == systems::Completato::completo && ultima == fine ? Cella{} : ferma);
        if (ultima.riga >= 0) colore_griglia();
        abilita_corrente();
        Frame3->show();
        DoEvents();
        LockWindowUpdate(nullptr);
    }
    if (chiusura_chiesta_) {
        chiudi_se_chiesto();
    } else if (esito == systems::Completato::impossibile) {
        platform::MsgBox(this, {"Impossibile completare il Cruciverba con i nuemeri scelti.\r\n"
                                "Inserire un altro numero nel tabellone.",
                                platform::Pulsanti::ok, "Tabellino"});
    }
}

void Form1::completa() {
    if (in_elaborazione()) return;
    {
        const Lavoro lavoro(*this);
        sessione.completa(seguito(false));
    }
    chiudi_se_chiesto();
}

void Form1::genera() {
    if (in_elaborazione() || sessione.matrice()(0, 0) != 0) return;
    LockWindowUpdate(this);
    MousePointer(11);
    svuota();
    MSFlexGrid1->setFocus();
    Frame3->hide();
    DoEvents();
    LockWindowUpdate(nullptr);
    platform::Err apertura;
    systems::Generato esito;
    {
        const Lavoro lavoro(*this);
        esito = sessione.genera(Combo6->ListIndex(), seguito(true), &apertura);
    }
    if (!apertura.ok()) statistics::errore_archivio(this, apertura, "Sortivario");
    if (esito == systems::Generato::poche_estrazioni) {
        platform::MsgBox(
            this, {"Per poter Realizzare un sistema statistico devono essere state effettuate "
                   "almeno 100 estrazioni per la ruota esaminata",
                   platform::Pulsanti::ok, QString(), platform::Icona::informazione});
    }
    LockWindowUpdate(this);
    Frame3->show();
    MousePointer(0);
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
