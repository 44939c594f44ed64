// What a scale writes: the style sheet, places, bounds, letters and the room between.
#include <algorithm>
#include <cmath>
#include <utility>

#include <QApplication>
#include <QHeaderView>
#include <QLayout>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTableView>
#include <QWidget>
#include <QtMath>

#include "platform/qt/foglio_scalato.h"
#include "platform/qt/scala.h"

namespace platform {

namespace {

/// A size by `fattore`, but what has no bound keeps none.
QSize per(QSize misura, qreal fattore) {
    const auto lato = [fattore](int x) { return x >= QWIDGETSIZE_MAX ? x : qRound(x * fattore); };
    return {lato(misura.width()), lato(misura.height())};
}

}  // namespace

// In steps of a twentieth, down: polishing a whole window anew is the dearest part of a change, and
// reading the sheet anew at each step the next.
void Scala::vesti() {
    constexpr qreal passi = 20;
    const QWidget* sotto = finestra_->parentWidget();
    const Scala* sua = sotto != nullptr ? di(sotto) : nullptr;
    Fonte fonte{0, foglio_, {}, {}};
    if (fattore_ != 1 || (sua != nullptr && sua->fattore_ != 1)) {
        fonte.fattore = std::floor(fattore_ * passi + 1e-6) / passi;
        fonte.generale = qApp->styleSheet();
        fonte.skin = foglio_;
        for (const QWidget* w = sotto; w != nullptr; w = w->parentWidget()) {
            const Scala* di_sotto = di(w);
            fonte.skin.prepend(di_sotto != nullptr ? di_sotto->foglio_ : w->styleSheet());
        }
    }
    const QString ora = finestra_->styleSheet();
    if (fonte == fonte_ && ora == foglio_scritto_) return;
    fonte_ = fonte;
    QString foglio = foglio_;
    if (fonte.fattore > 0) {
        foglio += "\n" + misure_scalate(fonte.generale, fonte.fattore) +
                  misure_scalate(fonte.skin, fonte.fattore);
    }
    if (foglio == ora) return;
    foglio_scritto_ = foglio;
    const QScopedValueRollback guardia(in_corso_, true);
    finestra_->setStyleSheet(foglio);
    // Fonts that the sheet sets have come back.
    for (Posto& p : posti_) p.punti_scritti = 0;
    for (QObject* figlio : finestra_->children()) {
        const auto* altra = qobject_cast<QWidget*>(figlio);
        Scala* di_altra = altra != nullptr && altra->isWindow() ? di(altra) : nullptr;
        if (di_altra != nullptr && di_altra != this) di_altra->vesti();
    }
}

void Scala::rivesti() {
    riposo_.stop();
    // Fonts that the style sheet sets come back with it, where no other size is in force.
    if (fattore_ == 1) scrivi_caratteri();
    vesti();
    if (fattore_ != 1) scrivi_caratteri();
}

void Scala::adegua() {
    if (in_corso_ || !misurata_) return;
    prendi_fattore(finestra_->size());
    const QScopedValueRollback guardia(in_corso_, true);
    Q_EMIT dispone();
    disponi();
    const qreal prima = std::exchange(disposto_, fattore_);
    if (prima == fattore_) return;
    if (con_disposizione_) {
        for (Posto& p : posti_) {
            if (p.controllo) scrivi_limiti(p, prima);
        }
        scrivi_spazi();
        finestra_->setMinimumSize(base_minima_ * fattore_);
        rifai_disposizione();
    }
    for (const Posto& p : posti_) {
        if (!p.controllo) continue;
        QEvent avviso(cambiata());
        QCoreApplication::sendEvent(p.controllo, &avviso);
    }
    for (QWidget* w : finestra_->findChildren<QWidget*>()) {
        if (!w->property(da_se).toBool()) continue;
        QEvent avviso(cambiata());
        QCoreApplication::sendEvent(w, &avviso);
    }
}

// A write of the program's own is taken for a new place at 100 %.
void Scala::accogli(Posto& posto) {
    const QRect ora = posto.controllo->geometry();
    const QRect& scritto = posto.scritto;
    if (ora.x() != scritto.x()) posto.base.moveLeft(ora.x());
    if (ora.y() != scritto.y()) posto.base.moveTop(ora.y());
    if (ora.width() != scritto.width()) posto.base.setWidth(ora.width());
    if (ora.height() != scritto.height()) posto.base.setHeight(ora.height());
    posto.scritto = ora;
}

void Scala::disponi() {
    for (Posto& p : posti_) {
        if (p.controllo && p.assoluto) disponi_uno(p);
    }
}

void Scala::disponi_uno(Posto& posto) {
    if (posto.controllo->geometry() != posto.scritto) accogli(posto);
    const QRect& b = posto.base;
    const auto bordo = [this](int dove) { return qRound(dove * fattore_); };
    QRect r(QPoint(bordo(b.x()), bordo(b.y())),
            QPoint(bordo(b.x() + b.width()) - 1, bordo(b.y() + b.height()) - 1));
    const QWidget* padre = posto.controllo->parentWidget();
    const Scala::Posto* suo = this->posto(padre);
    const QSize base = padre == area()         ? base_area_
                       : suo == nullptr        ? padre->size()
                       : suo->dentro.isValid() ? suo->dentro
                                               : suo->base.size();
    const QSize resto =
        (padre->size() - QSize(bordo(base.width()), bordo(base.height()))).expandedTo(QSize(0, 0));
    const int a = posto.come;
    const bool in_mezzo = padre == area();
    if ((a & segue_destra) != 0) {
        r.translate(resto.width(), 0);
    } else if ((a & allarga) != 0) {
        r.setRight(r.right() + resto.width());
    } else if ((a & in_proporzione) != 0) {
        const qreal largo =
            fattore_ + (resto.width() > 1 ? qreal(resto.width()) / base.width() : 0);
        r.setLeft(qRound(b.x() * largo));
        r.setRight(qRound((b.x() + b.width()) * largo) - 1);
    } else if (in_mezzo && (a & sta_a_sinistra) == 0) {
        r.translate(resto.width() / 2, 0);
    }
    if ((a & segue_fondo) != 0) r.translate(0, resto.height());
    if ((a & alza) != 0) r.setBottom(r.bottom() + resto.height());
    if (in_mezzo && (a & (segue_fondo | alza | sta_in_alto)) == 0) {
        r.translate(0, resto.height() / 2);
    }
    if (r != posto.controllo->geometry()) posto.controllo->setGeometry(r);
    posto.scritto = r;
}

// What the program wrote meanwhile it wrote for the scale that was in force.
void Scala::scrivi_limiti(Posto& posto, qreal prima) {
    QWidget* w = posto.controllo;
    if (w->minimumSize() != posto.minima_scritta) posto.minima = per(w->minimumSize(), 1 / prima);
    if (w->maximumSize() != posto.massima_scritta) posto.massima = per(w->maximumSize(), 1 / prima);
    w->setMinimumSize(per(posto.minima, fattore_));
    w->setMaximumSize(per(posto.massima, fattore_));
    posto.minima_scritta = w->minimumSize();
    posto.massima_scritta = w->maximumSize();
    if (auto* tabella = qobject_cast<QTableView*>(w)) {
        // Down, lest rows that fit at 100 % need a scroll bar.
        const QSize cella(qFloor(posto.cella.width() * fattore_ + 1e-6),
                          qFloor(posto.cella.height() * fattore_ + 1e-6));
        for (auto [testata, lato] : {std::pair(tabella->horizontalHeader(), cella.width()),
                                     std::pair(tabella->verticalHeader(), cella.height())}) {
            testata->setMinimumSectionSize(qMin(lato, testata->minimumSectionSize()));
        }
        tabella->horizontalHeader()->setDefaultSectionSize(cella.width());
        tabella->verticalHeader()->setDefaultSectionSize(cella.height());
    }
}

void Scala::raccogli_spazi() {
    if (!con_disposizione_) return;
    for (QLayout* l : finestra_->findChildren<QLayout*>()) {
        // A window that stands over this one has a scale of its own.
        if (l->parentWidget() == nullptr || l->parentWidget()->window() != finestra_) continue;
        const bool nota =
            std::any_of(spazi_.cbegin(), spazi_.cend(), [l](const Spazi& s) { return s.chi == l; });
        if (!nota) spazi_.append({l, l->contentsMargins(), l->spacing()});
    }
}

void Scala::scrivi_spazi() {
    for (const Spazi& s : qAsConst(spazi_)) {
        if (!s.chi) continue;
        const auto lato = [this](int x) { return qRound(x * fattore_); };
        s.chi->setContentsMargins(lato(s.margini.left()), lato(s.margini.top()),
                                  lato(s.margini.right()), lato(s.margini.bottom()));
        if (s.spazio >= 0) s.chi->setSpacing(lato(s.spazio));
    }
}

// Layouts in one another keep what they reckoned before letters and bounds were others.
void Scala::rifai_disposizione() {
    for (const Posto& p : qAsConst(posti_)) {
        if (p.controllo) p.controllo->updateGeometry();
    }
}

void Scala::scrivi_caratteri() {
    for (Posto& p : posti_) {
        if (p.controllo) scrivi_carattere(p, fattore_);
    }
}

void Scala::scrivi_carattere(Posto& posto, qreal fattore) {
    QWidget* w = posto.controllo;
    if (qobject_cast<QScrollBar*>(w) != nullptr) return;
    if (fattore == 1) {
        posto.punti_scritti = 0;
        w->setFont(posto.proprio ? posto.carattere : QFont());
        return;
    }
    const QFont suo = scalato(posto.carattere, fattore, w);
    // Written again, it would undo the narrow letters of a control that made them so.
    if (suo.pointSizeF() == posto.punti_scritti) return;
    posto.punti_scritti = suo.pointSizeF();
    if (posto.proprio) {
        w->setFont(suo);
        return;
    }
    QFont solo_misura;
    solo_misura.setPointSizeF(suo.pointSizeF());
    w->setFont(solo_misura);
}

}  // namespace platform
