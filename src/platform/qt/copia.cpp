#include "platform/qt/copia.h"

#include <map>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTableView>
#include <QTreeView>

namespace platform {

namespace {

/// Columns as they stand on the screen, without the hidden ones.
QList<int> colonne_visibili(const QAbstractItemView& vista) {
    const auto* tabella = qobject_cast<const QTableView*>(&vista);
    const auto* albero = qobject_cast<const QTreeView*>(&vista);
    const QHeaderView* testata = tabella != nullptr  ? tabella->horizontalHeader()
                                 : albero != nullptr ? albero->header()
                                                     : nullptr;
    if (testata == nullptr) return {0};
    QList<int> colonne;
    for (int i = 0; i < testata->count(); ++i) {
        const int colonna = testata->logicalIndex(i);
        if (!testata->isSectionHidden(colonna)) colonne << colonna;
    }
    return colonne;
}

QString riga_di(const QAbstractItemModel& modello, int riga, const QList<int>& colonne) {
    QStringList celle;
    for (const int colonna : colonne) {
        celle << modello.index(riga, colonna).data(Qt::DisplayRole).toString().simplified();
    }
    return celle.join('\t');
}

class Copia : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() != QEvent::KeyPress) return false;
        const auto* vista = qobject_cast<const QAbstractItemView*>(oggetto);
        if (vista == nullptr || !static_cast<QKeyEvent*>(evento)->matches(QKeySequence::Copy)) {
            return false;
        }
        const QString testo = testo_da_copiare(*vista);
        if (!testo.isEmpty()) QGuiApplication::clipboard()->setText(testo);
        return true;
    }
};

}  // namespace

QString testo_da_copiare(const QAbstractItemView& vista) {
    if (vista.model() == nullptr) return {};
    const QAbstractItemModel& modello = *vista.model();
    // Selected columns by row; rows of a list count whole.
    std::map<int, QList<int>> scelte;
    const bool intera = vista.selectionMode() == QAbstractItemView::NoSelection;
    const QList<int> visibili = colonne_visibili(vista);
    if (intera) {
        for (int riga = 0; riga < modello.rowCount(); ++riga) scelte[riga] = visibili;
    } else {
        for (const QModelIndex& i : vista.selectionModel()->selectedIndexes()) {
            const bool righe = vista.selectionBehavior() == QAbstractItemView::SelectRows;
            if (righe) {
                scelte[i.row()] = visibili;
            } else {
                scelte[i.row()] << i.column();
            }
        }
    }
    QString testo;
    for (const auto& [riga, colonne] : scelte) testo += riga_di(modello, riga, colonne) + '\n';
    return testo;
}

void copia_da_griglie(QApplication& applicazione) {
    applicazione.installEventFilter(new Copia(&applicazione));
}

}  // namespace platform
