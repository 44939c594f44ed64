// Where assistive programs believe the keyboard to be within a list.
#pragma once

#include <QAbstractItemView>
#include <QAccessible>

namespace platform {

/// Tells that the keyboard is on the current item of a list that has just got it: the list itself
/// only tells its name.
inline void di_corrente(QAbstractItemView& lista) {
    const QModelIndex qui = lista.currentIndex();
    if (!QAccessible::isActive() || !qui.isValid()) return;
    QAccessibleInterface* sua = QAccessible::queryAccessibleInterface(&lista);
    QAccessibleTableInterface* tavola = sua != nullptr ? sua->tableInterface() : nullptr;
    if (tavola == nullptr) return;
    const QAccessibleInterface* voce = tavola->cellAt(qui.row(), qui.column());
    if (voce == nullptr) return;
    QAccessibleEvent fuoco(&lista, QAccessible::Focus);
    fuoco.setChild(sua->indexOfChild(voce));
    QAccessible::updateAccessibility(&fuoco);
}

}  // namespace platform
