// Report list with columns, sortable by text, and a strip of tabs.
#pragma once

#include <QLabel>
#include <QStyledItemDelegate>
#include <QTabBar>
#include <QTreeWidget>

#include "platform/qt/fuoco.h"

namespace platform {

/// Factor of the columns of a list: what it has beyond its size at 100 % is theirs.
qreal scala_colonne(const QWidget* lista);
/// Paints in `dove` what the columns of a list leave of a row: as the row is, chosen, under the
/// pointer or one of those that alternate.
void dipingi_resto(const QAbstractItemView* lista, QPainter* pittore, QRect dove, int riga);
/// Frames the row in `dove`, from edge to edge, when it is the one that the keys are on.
void incornicia_riga(const QAbstractItemView* lista, QPainter* pittore, QRect dove, int riga);

/// Cells without a frame of their own: the row has one, as far as the edge.
class CelleDiLista : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* opzione, const QModelIndex& indice) const override;
};

class ListView : public ConFuocoVero<QTreeWidget> {
    Q_OBJECT
public:
    explicit ListView(QWidget* padre);

    /// Adds a column; width in twips.
    void add_colonna(const QString& titolo, int twips, Qt::Alignment verso);
    void set_titolo(int colonna, const QString& testo);
    [[nodiscard]] QString titolo(int colonna) const;
    void set_larghezza(int colonna, int twips);
    /// Width as it was assigned, in twips.
    [[nodiscard]] int larghezza(int colonna) const;

    /// Adds a row; the tag of the item is its first text. Returns the item, owned by the list.
    QTreeWidgetItem* add_voce(const QStringList& testi);
    void svuota();
    /// Tag of an item, empty for a null one.
    [[nodiscard]] static QString tag_voce(const QTreeWidgetItem* voce);
    static void set_tag_voce(QTreeWidgetItem* voce, const QString& testo);
    [[nodiscard]] QTreeWidgetItem* selezionata() const;
    /// Chooses the row that the keys are on, where none is chosen, with a `Click`. False when there
    /// was nothing to choose.
    bool scegli_incorniciata();

    /// Sorts by the text of a column, case ignored; rows of equal text keep their order.
    void ordina(int colonna, Qt::SortOrder verso);
    /// Sorts again as last asked, after rows were added; nothing before the first sorting.
    void riordina();
    /// What is read in the list while it has no rows.
    void invita(const QString& testo);

Q_SIGNALS:
    void ColumnClick(int colonna);
    /// An item was clicked, or chosen with the keyboard.
    void Click();
    /// Right button, or the context menu key; position in screen coordinates.
    void TastoDestro(const QPoint& dove);

protected:
    bool event(QEvent* evento) override;
    void drawRow(QPainter* pittore, const QStyleOptionViewItem& opzione,
                 const QModelIndex& indice) const override;
    void contextMenuEvent(QContextMenuEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    void misura_colonne();
    void rivedi_invito();
    /// Ends an edit as a click elsewhere does, before its row goes.
    void concludi_modifica();
    QLabel* invito_ = nullptr;
    QList<int> larghezze_;
    QList<Qt::Alignment> versi_;
    int colonna_ordine_ = -1;
    Qt::SortOrder verso_ordine_ = Qt::AscendingOrder;
};

/// Tabs told by a number that outlives the removal of another tab.
class TabStrip : public QTabBar {
    Q_OBJECT
public:
    explicit TabStrip(QWidget* padre);
    /// Adds a tab of the given number, from 1.
    void add_scheda(int numero, const QString& testo);
    void rimuovi_scheda(int numero);
    /// Selects without raising `Click`.
    void seleziona(int numero);
    [[nodiscard]] int selezionata() const;

Q_SIGNALS:
    void Click(int numero);
};

}  // namespace platform
