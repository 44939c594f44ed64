// Windows of any size: what is in them, what overlaps and what is cut.
#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

#include "platform/qt/controls.h"
#include "platform/qt/scala.h"

namespace support {

inline bool con_disposizione(const QWidget& finestra) {
    return finestra.layout() != nullptr && finestra.objectName() != "Form1";
}

/// Gives a window the size for a factor, whatever the screen has room for.
inline void porta(QWidget& finestra, double fattore) {
    const QSize base = platform::posto_a_100(&finestra).size();
    // Layouts take their scale from the keys alone.
    if (con_disposizione(finestra)) {
        platform::Scala::di(&finestra)->porta_a(fattore);
        QApplication::processEvents();
        return;
    }
    finestra.resize((QSizeF(base) * fattore).toSize());
    QApplication::processEvents();
}

/// The controls that a player sees, each with the rectangle that it has in the window.
inline QList<QPair<QWidget*, QRect>> controlli(QWidget& finestra) {
    QList<QPair<QWidget*, QRect>> trovati;
    for (QWidget* w : finestra.findChildren<QWidget*>()) {
        const bool intero = qobject_cast<QAbstractButton*>(w) || qobject_cast<QLabel*>(w) ||
                            qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
                            qobject_cast<QAbstractItemView*>(w) || qobject_cast<QSpinBox*>(w);
        if (!intero || qobject_cast<QHeaderView*>(w) || !w->isVisible() ||
            w->window() != &finestra || w->width() == 0)
            continue;
        if (qobject_cast<QComboBox*>(w->parentWidget()) ||
            qobject_cast<QSpinBox*>(w->parentWidget()))
            continue;
        trovati.append({w, QRect(w->mapTo(&finestra, QPoint()), w->size())});
    }
    return trovati;
}

inline QSet<QPair<QWidget*, QWidget*>> sovrapposti(QWidget& finestra) {
    QSet<QPair<QWidget*, QWidget*>> coppie;
    const auto tutti = controlli(finestra);
    for (int i = 0; i < tutti.size(); ++i) {
        for (int j = i + 1; j < tutti.size(); ++j) {
            if (tutti[i].first->isAncestorOf(tutti[j].first)) continue;
            if (tutti[i].second.intersects(tutti[j].second)) {
                coppie.insert({tutti[i].first, tutti[j].first});
            }
        }
    }
    return coppie;
}

/// Labels and buttons whose text is larger than the place that they have for it.
inline QSet<QWidget*> tagliati(QWidget& finestra) {
    QSet<QWidget*> trovati;
    for (const auto& [w, dove] : controlli(finestra)) {
        QString testo;
        int largo = w->contentsRect().width();
        if (const auto* e = qobject_cast<QLabel*>(w)) {
            if (e->text().isEmpty() || !e->pixmap(Qt::ReturnByValue).isNull()) continue;
            if (e->wordWrap()) {
                const QRect serve = e->fontMetrics().boundingRect(
                    QRect(0, 0, largo, 10000), Qt::TextWordWrap | int(e->alignment()), e->text());
                if (serve.height() > e->height() + 1) trovati.insert(w);
                continue;
            }
            // A value narrows its letters instead.
            if (qobject_cast<const platform::EtichettaValore*>(w) != nullptr) continue;
            testo = e->text();
        } else if (const auto* b = qobject_cast<QAbstractButton*>(w)) {
            testo = b->text().remove('&');
        }
        if (testo.isEmpty()) continue;
        const QFontMetricsF metrica(w->font());
        if (metrica.horizontalAdvance(testo) > largo + 0.5) trovati.insert(w);
        if (metrica.height() > w->height() + 1) trovati.insert(w);
    }
    return trovati;
}

}  // namespace support
