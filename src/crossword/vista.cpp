#include "crossword/vista.h"

#include <QShortcut>
#include <QSignalBlocker>
#include <QToolTip>

#include "crossword/digitazione.h"
#include "crossword/griglia.h"
#include "crossword/linee.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/pittura.h"
#include "platform/qt/scala.h"
#include "platform/runtime.h"

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
    const QString ultimo = dove.takeLast();
    const QString dove_tutti =
        dove.isEmpty() ? ultimo : dove.join(", ") + Vista::tr(" e ") + ultimo;
    const bool vocale = platform::comincia_per_vocale(std::to_string(numero));
    return Vista::tr("%1%2 sta già %3 di questa casella.")
        .arg(vocale ? QStringLiteral("L'") : QStringLiteral("Il "))
        .arg(numero)
        .arg(dove_tutti);
}

constexpr int casella = platform::px(360);

void arreda_tabellone(RiquadriCruciverba& r) {
    for (int i = 0; i <= 90; ++i) {
        auto* b = new QPushButton(i == 0 ? QString() : QString::number(i), r.Frame3);
        b->setObjectName(platform::membro("CMDnum", i));
        b->setProperty("numero", true);
        // Tab passes the board by: numbers are typed into the crossword.
        b->setFocusPolicy(Qt::ClickFocus);
        b->setAccessibleName(Vista::tr("Numero %1").arg(i));
        b->setGeometry(8 + (i - 1) % 10 * casella, 25 + (i - 1) / 10 * casella, casella, casella);
        r.CMDnum[static_cast<std::size_t>(i)] = b;
    }
    r.CMDnum[0]->move(-casella, -casella);
    r.CMDnum[0]->hide();
}

void arreda_griglia(RiquadriCruciverba& r, QWidget* finestra) {
    r.MSFlexGrid1 = new platform::MSFlexGrid(r.Frame1);
    r.MSFlexGrid1->setObjectName("MSFlexGrid1");
    r.MSFlexGrid1->setAccessibleName(Vista::tr("Cruciverba"));
    r.MSFlexGrid1->cursore_visibile(true);
    r.MSFlexGrid1->barra_esterna();
    r.MSFlexGrid1->setToolTip(
        Vista::tr("Clic su un numero del tabellone, o due cifre dalla tastiera"));
    const auto comando = [&](const char* nome, const QString& testo,
                             const QList<QKeySequence>& tasti) {
        auto* a = new QAction(testo, finestra);
        a->setObjectName(nome);
        a->setShortcuts(tasti);
        finestra->addAction(a);
        r.MSFlexGrid1->addAction(a);
        return a;
    };
    r.annulla = comando("annulla", Vista::tr("&Annulla la modifica"), {Qt::CTRL | Qt::Key_Z});
    r.ripeti = comando("ripeti", Vista::tr("&Ripeti la modifica"),
                       {Qt::CTRL | Qt::Key_Y, Qt::CTRL | Qt::SHIFT | Qt::Key_Z});
    r.MSFlexGrid1->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void arreda_lista(RiquadriCruciverba& r) {
    r.List1 = platform::posto(new platform::ListBox(r.Frame5), "List1", {8, 22, 96, 180});
    r.List1->setAccessibleName(Vista::tr("Numeri in gioco"));
    QLabel* titolo = platform::etichetta(Vista::tr("Numeri  in gioco"), {8, 205, 96, 16}, r.Frame5,
                                         Qt::AlignHCenter);
    r.lblngioco = platform::valore("lblngioco", {8, 222, 96, 22}, r.Frame5, Qt::AlignHCenter);
    r.lblngioco->setAccessibleName(Vista::tr("Numeri in gioco"));
    // In a window that is higher than its width asks for, the list takes the height.
    platform::ancora({r.List1}, platform::Scala::alza);
    platform::ancora({titolo, r.lblngioco}, platform::Scala::segue_fondo);
}

RiquadriCruciverba& arreda(app::Finestra& finestra, RiquadriCruciverba& r) {
    arreda_tabellone(r);
    arreda_griglia(r, &finestra);
    arreda_lista(r);
    return r;
}

}  // namespace

Vista::Vista(app::Finestra& finestra, RiquadriCruciverba& riquadri)
    : finestra_(finestra),
      sessione_(finestra.sessione),
      c_(arreda(finestra, riquadri)),
      luce_(finestra.sessione, c_.MSFlexGrid1, c_.CMDnum, platform::App().file("linee.dat")) {
    for (int i = 1; i <= 90; ++i) {
        QPushButton* numero = c_.CMDnum[static_cast<std::size_t>(i)];
        connect(numero, &QPushButton::clicked, this, [this, i] { CMDnum_Click(i); });
    }
    connect(c_.MSFlexGrid1, &platform::MSFlexGrid::SelChange, this, [this] {
        colore_griglia();
        abilita_corrente();
    });
    connect(c_.MSFlexGrid1, &platform::MSFlexGrid::KeyPress, this, &Vista::MSFlexGrid1_KeyPress);
    connect(c_.List1, &platform::ListBox::Click, this, &Vista::List1_Click);
    connect(c_.annulla, &QAction::triggered, this, [this] { rifai(true); });
    connect(c_.ripeti, &QAction::triggered, this, [this] { rifai(false); });
    connect(new QShortcut(QKeySequence(Qt::Key_Delete), &finestra), &QShortcut::activated, this,
            &Vista::rimuovi);
    c_.MSFlexGrid1->setProperty(platform::Scala::da_se, true);
    c_.MSFlexGrid1->parentWidget()->installEventFilter(this);
}

void Vista::mostra(const systems::Cambiamento& cambiato) {
    if (cambiato.cronologia) {
        c_.annulla->setEnabled(sessione_.annullabile());
        c_.ripeti->setEnabled(sessione_.ripetibile());
    }
    if (cambiato.dimensioni) mostra_dimensioni();
    if (cambiato.celle) mostra_celle();
    if (cambiato.dimensioni) abilita_corrente();
}

void Vista::mostra_dimensioni() {
    colore_griglia();
    const platform::SenzaPittura ferma(c_.MSFlexGrid1);
    forma_griglia(c_.MSFlexGrid1, sessione_.colonne(), sessione_.righe());
    centra_griglia();
    c_.MSFlexGrid1->cella(0, 0);
}

void Vista::centra_griglia() {
    const QSize spazio = c_.MSFlexGrid1->parentWidget()->size() - c_.MSFlexGrid1->size();
    c_.MSFlexGrid1->move(spazio.width() / 2, spazio.height() / 2);
}

bool Vista::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::Resize && c_.MSFlexGrid1->Rows() > 0) {
        adatta_griglia(c_.MSFlexGrid1);
        centra_griglia();
    }
    return QObject::eventFilter(oggetto, evento);
}

void Vista::mostra_celle() {
    scrivi_griglia(c_.MSFlexGrid1, sessione_.matrice());
    luce_.aggiorna();
    const int quanti = aggiorna_lista();
    c_.lblngioco->setText(quanti == 0 ? QString() : QString::number(quanti));
}

Cella Vista::cella_corrente() const {
    return {c_.MSFlexGrid1->Col(), c_.MSFlexGrid1->Row()};
}

void Vista::in_cella(Cella cella) {
    c_.MSFlexGrid1->cella(cella.riga, cella.colonna);
}

void Vista::svuota() {
    scrivi_griglia(c_.MSFlexGrid1, {});
}

void Vista::colore_griglia() {
    const QSignalBlocker fermo(c_.MSFlexGrid1->model());
    // Both loops run to the count of rows: the columns beyond it keep their highlight.
    for (int r = 0; r < sessione_.righe(); ++r) {
        for (int c = 0; c < sessione_.righe(); ++c) {
            c_.MSFlexGrid1->set_sfondo(r, c, platform::colore(bianco));
        }
    }
    platform::set_Tag(c_.List1, "0");
    c_.MSFlexGrid1->viewport()->update();
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
        c_.MSFlexGrid1->set_Col(ultima_colonna ? 0 : qui.colonna + 1);
        if (ultima_colonna) c_.MSFlexGrid1->set_Row(ultima_riga ? 0 : qui.riga + 1);
    }
    abilita_corrente();
    c_.MSFlexGrid1->setFocus();
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
    c_.MSFlexGrid1->set_digitato(QString());
    const bool corrente = Cella{colonna, riga} == cella_corrente();
    const platform::Clessidra attesa;
    DoEvents();
    const platform::FinestraFerma ferma(&finestra_);
    // An assistive tool's press comes by a timer: it may have moved the current cell meanwhile.
    const Cella dove = corrente ? cella_corrente() : Cella{colonna, riga};
    const auto sbarre = crossword::sbarre(sessione_.matrice(), dove.riga, dove.colonna);
    for (std::size_t i = 0; i <= 90; ++i) {
        QPushButton* numero = c_.CMDnum[i];
        const bool vietato = sbarre[i] != nessuna;
        if (numero->isEnabled() == vietato) numero->setEnabled(!vietato);
        platform::set_Tag(numero, vietato ? "0" : QString());
        numero->setToolTip(motivo(static_cast<int>(i), sbarre[i]));
        if (i > 0) numero->setVisible(true);
    }
    DoEvents();
}

std::int16_t Vista::aggiorna_lista() {
    c_.List1->Clear();
    const std::vector<int> numeri = numeri_in_gioco(sessione_.matrice());
    for (const int n : numeri) {
        c_.List1->AddItem(platform::q(testo_lista(n)));
        c_.List1->item(c_.List1->count() - 1)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    return static_cast<std::int16_t>(numeri.size());
}

void Vista::List1_Click() {
    if (c_.List1->currentItem() == nullptr) return;
    const int numero = c_.List1->currentItem()->text().toInt();
    const int passo = platform::Tag(c_.List1).toInt();
    const int nuovo = passo < 6 ? passo + 1 : 1;
    if (nuovo == 1) colore_griglia();
    platform::set_Tag(c_.List1, QString::number(nuovo));
    const QColor evidenza = platform::colore(colori_lista[static_cast<std::size_t>(nuovo - 1)]);
    for (int r = 0; r < c_.MSFlexGrid1->Rows(); ++r) {
        for (int c = 0; c < c_.MSFlexGrid1->Cols(); ++c) {
            if (sessione_.matrice()(c, r) == numero) c_.MSFlexGrid1->set_sfondo(r, c, evidenza);
        }
    }
}

void Vista::MSFlexGrid1_KeyPress(int tasto) {
    std::string digitato = platform::s(c_.MSFlexGrid1->digitato());
    const auto numero = crossword::digita(digitato, tasto);
    c_.MSFlexGrid1->set_digitato(platform::q(digitato));
    if (numero && !finestra_.in_elaborazione()) digita(*numero);
}

void Vista::digita(int numero) {
    const bool sul_tabellone = numero >= 1 && numero <= 90;
    QPushButton* pulsante = sul_tabellone ? c_.CMDnum[static_cast<std::size_t>(numero)] : nullptr;
    if (pulsante != nullptr && pulsante->isEnabled()) {
        CMDnum_Click(numero);
        return;
    }
    if (sul_tabellone) luce_.indica(numero);
    const Cella qui = cella_corrente();
    const QModelIndex cella = c_.MSFlexGrid1->model()->index(qui.riga, qui.colonna);
    const QPoint sotto = c_.MSFlexGrid1->visualRect(cella).bottomLeft();
    const QString perche =
        pulsante != nullptr ? pulsante->toolTip() : tr("I numeri vanno da 1 a 90.");
    QToolTip::showText(c_.MSFlexGrid1->viewport()->mapToGlobal(sotto), perche, c_.MSFlexGrid1);
    finestra_.annuncia(perche);
}

void Vista::rifai(bool indietro) {
    if (finestra_.in_elaborazione()) return;
    const auto prima = indietro ? sessione_.annulla() : sessione_.ripeti();
    colore_griglia();
    if (prima) in_cella(*prima);
    abilita_corrente();
}

}  // namespace crossword
