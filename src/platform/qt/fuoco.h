// Where assistive programs believe the keyboard to be within a list.
#pragma once

#include <QAbstractItemView>
#include <QAccessible>

namespace platform {

/// Tells that the keyboard is on the current item of a list that has just got it: the list itself
/// only tells its name, and does so once its own event is over.
inline void di_corrente(QAbstractItemView* lista) {
    if (!QAccessible::isActive()) return;
    const auto di = [lista] {
        const QModelIndex qui = lista->currentIndex();
        if (!lista->hasFocus() || !qui.isValid()) return;
        QAccessibleInterface* sua = QAccessible::queryAccessibleInterface(lista);
        QAccessibleTableInterface* tavola = sua != nullptr ? sua->tableInterface() : nullptr;
        if (tavola == nullptr) return;
        const QAccessibleInterface* voce = tavola->cellAt(qui.row(), qui.column());
        if (voce == nullptr) return;
        QAccessibleEvent fuoco(lista, QAccessible::Focus);
        fuoco.setChild(sua->indexOfChild(voce));
        QAccessible::updateAccessibility(&fuoco);
    };
    QMetaObject::invokeMethod(lista, di, Qt::QueuedConnection);
}

/// A list that claims the keyboard only where it has it: Qt's own do whenever their current item
/// changes, even where the program writes them.
template <class Vista>
class ConFuocoVero : public Vista {
public:
    using Vista::Vista;

protected:
    void currentChanged(const QModelIndex& ora, const QModelIndex& prima) override {
        if (this->hasFocus()) {
            Vista::currentChanged(ora, prima);
            return;
        }
        // Beside the claim they only paint the two rows.
        QAbstractItemView::currentChanged(ora, prima);  // NOLINT(bugprone-parent-virtual-call)
        this->viewport()->update();
    }
    void focusInEvent(QFocusEvent* evento) override {
        Vista::focusInEvent(evento);
        di_corrente(this);
    }
};

}  // namespace platform
