#include "crossword/vista.h"

#include <QSignalBlocker>
#include <QToolTip>

#include "crossword/digitazione.h"
#include "crossword/griglia.h"
#include "crossword/linee.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/pittura.h"
#include "platform/qt/scala.h"

namespace crossword {

using platform::DoEvents;
using systems::Cella;

namespace {

/// Background of the six steps of the highlight.
constexpr std::array<int, 6> colori_lista = {65535, 65280, 255, 16776960, 16761087, 16761024};
constexpr int bianco = 16777215;

/// Why the board bars a number; empty when it does not.
QString motivo(int numero, std::uint8_t sbarre) {
    QStringList dove;
    if ((sbarre & sulla_riga) != 0) dove << Vista::tr("sulla riga");
    if ((sbarre & sulla_colonna) != 0) dove << Vista::tr("sulla colonna");
    if ((sbarre & sulla_diagonale) != 0) dove << Vista::tr("su una diagonale");
    if (dove.isEmpty()) return {};
    return Vista::tr("Il %1 sta già %2 di questa casella.")
        .arg(numero)
        .arg(dove.join(Vista::tr(" e ")));
}

}  // namespace

Vista::Vista(app::Finestra& finestra, const Controlli& controlli)
    : finestra_(finestra),
      sessione_(finestra.sessione),
      c_(controlli),
      luce_(finestra.sessione, controlli.griglia, controlli.tabellone,
            platform::App().file("linee.dat")) {
    for (int i = 1; i <= 90; ++i) {
        QPushButton* numero = c_.tabellone[static_cast<std::size_t>(i)];
        numero->setText(QString::number(i));
        connect(numero, &QPushButton::clicked, this, [this, i] { CMDnum_Click(i); });
    }
    connect(c_.griglia, &platform::MSFlexGrid::SelChange, this, [this] {
        colore_griglia();
        abilita_corrente();
    });
    connect(c_.griglia, &platform::MSFlexGrid::KeyPress, this, &Vista::MSFlexGrid1_KeyPress);
    connect(c_.lista, &platform::ListBox::Click, this, &Vista::List1_Click);
    c_.griglia->setProperty(platform::Scala::da_se, true);
    c_.griglia->parentWidget()->installEventFilter(this);
}

void Vista::mostra_dimensioni() {
    colore_griglia();
    const platform::SenzaPittura ferma(c_.griglia);
    forma_griglia(c_.griglia, sessione_.colonne(), sessione_.righe());
    centra_griglia();
    c_.griglia->cella(0, 0);
}

void Vista::centra_griglia() {
    const QSize spazio = c_.griglia->parentWidget()->size() - c_.griglia->size();
    c_.griglia->move(spazio.width() / 2, spazio.height() / 2);
}

bool Vista::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::Resize && c_.griglia->Rows() > 0) {
        adatta_griglia(c_.griglia);
        centra_griglia();
    }
    return QObject::eventFilter(oggetto, evento);
}

void Vista::mostra_celle() {
    scrivi_griglia(c_.griglia, sessione_.matrice());
    luce_.aggiorna();
    const int quanti = aggiorna_lista();
    c_.quanti->setText(quanti == 0 ? QString() : QString::number(quanti));
}

Cella Vista::cella_corrente() const {
    return {c_.griglia->Col(), c_.griglia->Row()};
}

void Vista::in_cella(Cella cella) {
    c_.griglia->cella(cella.riga, cella.colonna);
}

void Vista::svuota() {
    scrivi_griglia(c_.griglia, {});
}

void Vista::colore_griglia() {
    const QSignalBlocker fermo(c_.griglia->model());
    // Both loops run to the count of rows: the columns beyond it keep their highlight.
    for (int r = 0; r < sessione_.righe(); ++r) {
        for (int c = 0; c < sessione_.righe(); ++c) {
            c_.griglia->set_sfondo(r, c, platform::colore(bianco));
        }
    }
    platform::set_Tag(c_.lista, "0");
    c_.griglia->viewport()->update();
}

void Vista::CMDnum_Click(int Index) {
    if (finestra_.in_elaborazione()) return;
    const platform::Clessidra attesa;
    DoEvents();
    const platform::FinestraFerma ferma(&finestra_);
    const Cella qui = cella_corrente();
    if (sessione_.posa(qui, Index) == systems::Posata::posata) {
        colore_griglia();
        const bool ultima_colonna = qui.colonna >= sessione_.matrice().ubound(1);
        const bool ultima_riga = qui.riga >= sessione_.matrice().ubound(2);
        c_.griglia->set_Col(ultima_colonna ? 0 : qui.colonna + 1);
        if (ultima_colonna) c_.griglia->set_Row(ultima_riga ? 0 : qui.riga + 1);
    }
    abilita_corrente();
    c_.griglia->setFocus();
    DoEvents();
}

void Vista::rimuovi() {
    if (finestra_.in_elaborazione()) return;
    sessione_.rimuovi(cella_corrente());
    abilita_corrente();
}

void Vista::abilita_corrente() {
    const Cella qui = cella_corrente();
    abilita_disabilita(static_cast<std::int16_t>(qui.riga), static_cast<std::int16_t>(qui.colonna));
}

void Vista::abilita_disabilita(std::int16_t riga, std::int16_t colonna) {
    // The digit typed was for the cell as it was.
    c_.griglia->set_digitato(QString());
    const bool corrente = Cella{colonna, riga} == cella_corrente();
    const platform::Clessidra attesa;
    DoEvents();
    const platform::FinestraFerma ferma(&finestra_);
    // An assistive tool's press comes by a timer: it may have moved the current cell meanwhile.
    const Cella dove = corrente ? cella_corrente() : Cella{colonna, riga};
    const auto sbarre = crossword::sbarre(sessione_.matrice(), dove.riga, dove.colonna);
    for (std::size_t i = 0; i <= 90; ++i) {
        QPushButton* numero = c_.tabellone[i];
        const bool vietato = sbarre[i] != nessuna;
        if (numero->isEnabled() == vietato) numero->setEnabled(!vietato);
        platform::set_Tag(numero, vietato ? "0" : QString());
        numero->setToolTip(motivo(static_cast<int>(i), sbarre[i]));
        if (i > 0) numero->setVisible(true);
    }
    DoEvents();
}

std::int16_t Vista::aggiorna_lista() {
    c_.lista->Clear();
    const std::vector<int> numeri = numeri_in_gioco(sessione_.matrice());
    for (const int n : numeri) {
        c_.lista->AddItem(platform::q(testo_lista(n)));
        c_.lista->item(c_.lista->count() - 1)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    return static_cast<std::int16_t>(numeri.size());
}

void Vista::List1_Click() {
    if (c_.lista->currentItem() == nullptr) return;
    const int numero = c_.lista->currentItem()->text().toInt();
    const int passo = platform::Tag(c_.lista).toInt();
    const int nuovo = passo < 6 ? passo + 1 : 1;
    if (nuovo == 1) colore_griglia();
    platform::set_Tag(c_.lista, QString::number(nuovo));
    const QColor evidenza = platform::colore(colori_lista[static_cast<std::size_t>(nuovo - 1)]);
    for (int r = 0; r < c_.griglia->Rows(); ++r) {
        for (int c = 0; c < c_.griglia->Cols(); ++c) {
            if (sessione_.matrice()(c, r) == numero) c_.griglia->set_sfondo(r, c, evidenza);
        }
    }
}

void Vista::MSFlexGrid1_KeyPress(int tasto) {
    std::string digitato = platform::s(c_.griglia->digitato());
    const auto numero = crossword::digita(digitato, tasto);
    c_.griglia->set_digitato(platform::q(digitato));
    if (numero && !finestra_.in_elaborazione()) digita(*numero);
}

void Vista::digita(int numero) {
    const bool sul_tabellone = numero >= 1 && numero <= 90;
    QPushButton* pulsante =
        sul_tabellone ? c_.tabellone[static_cast<std::size_t>(numero)] : nullptr;
    if (pulsante != nullptr && pulsante->isEnabled()) {
        CMDnum_Click(numero);
        return;
    }
    if (sul_tabellone) luce_.indica(numero);
    const Cella qui = cella_corrente();
    const QModelIndex cella = c_.griglia->model()->index(qui.riga, qui.colonna);
    const QPoint sotto = c_.griglia->visualRect(cella).bottomLeft();
    QToolTip::showText(c_.griglia->viewport()->mapToGlobal(sotto),
                       pulsante != nullptr ? pulsante->toolTip() : tr("I numeri vanno da 1 a 90."),
                       c_.griglia);
}

void Vista::rifai(bool indietro) {
    if (finestra_.in_elaborazione()) return;
    const auto prima = indietro ? sessione_.annulla() : sessione_.ripeti();
    colore_griglia();
    if (prima) in_cella(*prima);
    abilita_corrente();
}

}  // namespace crossword
