#include "crossword/luce.h"

#include <QKeyEvent>

#include "crossword/linee.h"
#include "platform/disk.h"
#include "platform/qt/tasti.h"
#include "systems/sessione.h"

namespace crossword {

namespace {

/// A key that is meant for the cells: one that is held, or a command of the window, is not.
bool per_le_celle(const QEvent& evento) {
    if (evento.type() != QEvent::KeyPress) return false;
    const auto& tasto = static_cast<const QKeyEvent&>(evento);
    const Qt::KeyboardModifiers di_comando =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !platform::solo_modificatore(tasto) && (tasto.modifiers() & di_comando) == 0;
}

}  // namespace

Luce::Luce(const systems::Sessione& sessione, platform::MSFlexGrid* griglia,
           const std::array<QPushButton*, 91>& tabellone, std::string file)
    : sessione_(sessione),
      griglia_(griglia),
      tabellone_(tabellone),
      file_(std::move(file)),
      accesa_(!platform::esiste_file(file_)) {
    griglia_->viewport()->setMouseTracking(true);
    griglia_->installEventFilter(this);
    for (std::size_t i = 1; i < tabellone_.size(); ++i) tabellone_[i]->installEventFilter(this);
    connect(griglia_, &platform::MSFlexGrid::Sopra, this, [this](int riga, int colonna) {
        sopra_ = {colonna, riga};
        in_uso_ = in_uso_ || colonna >= 0;
        aggiorna();
    });
    connect(griglia_, &QTableWidget::currentCellChanged, this, &Luce::aggiorna);
}

bool Luce::accendi(bool accesa) {
    accesa_ = accesa;
    aggiorna();
    if (!accesa) return platform::scrivi(file_, "") == platform::Esito::ok;
    platform::Kill(file_);
    return !platform::esiste_file(file_);
}

void Luce::indica(int numero) {
    rifiutato_ = numero;
    aggiorna();
}

void Luce::aggiorna() {
    const int numero = numero_ > 0 ? numero_ : rifiutato_;
    rifiutato_ = 0;
    const bool corrente = numero > 0 || sopra_.x() < 0;
    const bool in_uso = numero > 0 || (in_uso_ && griglia_->hasFocus());
    if (!accesa_ || (corrente && !in_uso)) {
        griglia_->illumina({}, {});
        return;
    }
    const Matrice& matrice = sessione_.matrice();
    const QPoint qui = corrente ? QPoint(griglia_->Col(), griglia_->Row()) : sopra_;
    QList<QPoint> celle;
    QList<QPoint> colpevoli;
    for (const Incrocio& i : celle_sulle_linee(matrice, qui.y(), qui.x())) {
        celle.append({i.x, i.y});
        if (numero > 0 && matrice(i.x, i.y) == numero) colpevoli.append({i.x, i.y});
    }
    griglia_->illumina(celle, colpevoli);
}

bool Luce::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == griglia_) {
        const bool entra = evento->type() == QEvent::FocusIn;
        const bool usa = per_le_celle(*evento);
        in_uso_ = (in_uso_ && !entra) || usa;
        if (entra || evento->type() == QEvent::FocusOut || usa) {
            // The control itself does not know yet.
            QMetaObject::invokeMethod(this, &Luce::aggiorna, Qt::QueuedConnection);
        }
        return QObject::eventFilter(oggetto, evento);
    }
    const bool entra = evento->type() == QEvent::Enter;
    if (entra || evento->type() == QEvent::Leave) {
        const auto* pulsante = static_cast<QPushButton*>(oggetto);
        numero_ = entra && !pulsante->isEnabled() ? pulsante->text().toInt() : 0;
        aggiorna();
    }
    return QObject::eventFilter(oggetto, evento);
}

}  // namespace crossword
