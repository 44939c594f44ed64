#include "platform/qt/listview.h"

#include <algorithm>

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSet>
#include <QSignalBlocker>

#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"
#include "platform/runtime.h"

namespace platform {

void CelleDiLista::initStyleOption(QStyleOptionViewItem* opzione, const QModelIndex& indice) const {
    QStyledItemDelegate::initStyleOption(opzione, indice);
    opzione->state &= ~QStyle::State_HasFocus;
}

qreal scala_colonne(const QWidget* lista) {
    const qreal f = scala(lista);
    const int a_100 = scalato(posto_a_100(lista).width(), f);
    const int piu = a_100 > 0 ? lista->width() - a_100 : 0;
    return piu > 1 ? f * lista->width() / a_100 : f;
}

void dipingi_resto(const QAbstractItemView* lista, QPainter* pittore, QRect dove, int riga) {
    if (dove.isEmpty()) return;
    QStyleOptionViewItem opzione;
    opzione.initFrom(lista);
    opzione.rect = dove;
    opzione.showDecorationSelected = true;
    opzione.viewItemPosition = QStyleOptionViewItem::End;
    const bool altra = lista->alternatingRowColors() && riga % 2 == 1;
    if (altra) opzione.features |= QStyleOptionViewItem::Alternate;
    const QAbstractItemModel* m = lista->model();
    const QModelIndex ultima = m->index(riga, m->columnCount() - 1);
    opzione.state.setFlag(QStyle::State_Selected, lista->selectionModel()->isSelected(ultima));
    const QWidget* dentro = lista->viewport();
    const QPoint puntatore = dentro->mapFromGlobal(QCursor::pos());
    opzione.state.setFlag(QStyle::State_MouseOver,
                          dentro->underMouse() && lista->indexAt(puntatore).row() == riga);
    opzione.state &= ~QStyle::State_HasFocus;
    lista->style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &opzione, pittore, lista);
    lista->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &opzione, pittore, lista);
}

void incornicia_riga(const QAbstractItemView* lista, QPainter* pittore, QRect dove, int riga) {
    if (!lista->hasFocus() || riga != lista->currentIndex().row()) return;
    QStyleOptionFocusRect fuoco;
    fuoco.initFrom(lista);
    fuoco.rect = dove;
    fuoco.state |= QStyle::State_KeyboardFocusChange;
    // The sheet takes the frame of the focus off lists, and would off this one.
    lista->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &fuoco, pittore);
}

ListView::ListView(QWidget* padre) : ConFuocoVero(padre) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setItemDelegate(new CelleDiLista(this));
    setColumnCount(0);
    header()->setStretchLastSection(false);
    header()->setSectionsClickable(true);
    header()->setHighlightSections(false);
    connect(header(), &QHeaderView::sectionClicked, this, &ListView::ColumnClick);
    connect(this, &QTreeWidget::itemClicked, this, [this] { Q_EMIT Click(); });
}

void ListView::add_colonna(const QString& titolo, int twips, Qt::Alignment verso) {
    const int colonna = static_cast<int>(larghezze_.size());
    setColumnCount(colonna + 1);
    larghezze_.append(twips);
    versi_.append(verso);
    headerItem()->setText(colonna, titolo);
    headerItem()->setTextAlignment(colonna, verso | Qt::AlignVCenter);
    set_larghezza(colonna, twips);
}

void ListView::set_titolo(int colonna, const QString& testo) {
    headerItem()->setText(colonna, testo);
}

QString ListView::titolo(int colonna) const {
    return headerItem()->text(colonna);
}

void ListView::set_larghezza(int colonna, int twips) {
    larghezze_[colonna] = twips;
    setColumnWidth(colonna, scalato(px(twips), scala_colonne(this)));
}

void ListView::misura_colonne() {
    for (int c = 0; c < larghezze_.size(); ++c) set_larghezza(c, larghezze_[c]);
}

void ListView::drawRow(QPainter* pittore, const QStyleOptionViewItem& opzione,
                       const QModelIndex& indice) const {
    QTreeWidget::drawRow(pittore, opzione, indice);
    QRect riga = opzione.rect;
    riga.setRight(viewport()->width() - 1);
    dipingi_resto(this, pittore, riga.adjusted(header()->length(), 0, 0, 0), indice.row());
    incornicia_riga(this, pittore, riga, indice.row());
}

int ListView::larghezza(int colonna) const {
    return larghezze_.value(colonna);
}

QTreeWidgetItem* ListView::add_voce(const QStringList& testi) {
    auto* voce = new QTreeWidgetItem(this, testi);
    for (int c = 0; c < versi_.size(); ++c) {
        voce->setTextAlignment(c, versi_[c] | Qt::AlignVCenter);
    }
    set_tag_voce(voce, testi.value(0));
    return voce;
}

void ListView::concludi_modifica() {
    if (state() == EditingState) setFocus();
}

void ListView::svuota() {
    concludi_modifica();
    clear();
}

QString ListView::tag_voce(const QTreeWidgetItem* voce) {
    return voce == nullptr ? QString() : voce->data(0, Qt::UserRole).toString();
}

void ListView::set_tag_voce(QTreeWidgetItem* voce, const QString& testo) {
    if (voce != nullptr) voce->setData(0, Qt::UserRole, testo);
}

QTreeWidgetItem* ListView::selezionata() const {
    const QList<QTreeWidgetItem*> scelte = selectedItems();
    return scelte.isEmpty() ? nullptr : scelte.first();
}

bool ListView::scegli_incorniciata() {
    if (selezionata() != nullptr || currentItem() == nullptr) return false;
    currentItem()->setSelected(true);
    Q_EMIT Click();
    return true;
}

void ListView::invita(const QString& testo) {
    invito_ = new QLabel(testo);
    invito_->setProperty(Scala::da_se, true);
    invito_->setParent(viewport());
    invito_->setObjectName("lblinvito");
    invito_->setProperty("invito", true);
    invito_->setAlignment(Qt::AlignCenter);
    invito_->setWordWrap(true);
    invito_->setAttribute(Qt::WA_TransparentForMouseEvents);
    // Nothing of the list itself, which goes before its model empties for the last time.
    const auto secondo_le_righe = [e = invito_, m = model()] { e->setVisible(m->rowCount() == 0); };
    connect(model(), &QAbstractItemModel::rowsInserted, invito_, secondo_le_righe);
    connect(model(), &QAbstractItemModel::rowsRemoved, invito_, secondo_le_righe);
    connect(model(), &QAbstractItemModel::modelReset, invito_, secondo_le_righe);
    rivedi_invito();
}

void ListView::rivedi_invito() {
    if (invito_ == nullptr) return;
    constexpr int margine = 8;
    invito_->setGeometry(viewport()->rect().adjusted(margine, margine, -margine, -margine));
    invito_->setVisible(topLevelItemCount() == 0);
}

void ListView::resizeEvent(QResizeEvent* evento) {
    QTreeWidget::resizeEvent(evento);
    misura_colonne();
    rivedi_invito();
}

bool ListView::event(QEvent* evento) {
    if (evento->type() == Scala::cambiata()) misura_colonne();
    return QTreeWidget::event(evento);
}

void ListView::contextMenuEvent(QContextMenuEvent* evento) {
    if (evento->reason() == QContextMenuEvent::Keyboard) scegli_incorniciata();
    Q_EMIT TastoDestro(evento->globalPos());
}

void ListView::keyPressEvent(QKeyEvent* evento) {
    static const QSet<int> frecce{Qt::Key_Up,       Qt::Key_Down, Qt::Key_PageUp,
                                  Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    const bool invio = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
    // The first key chooses the row that is framed instead of leaving it; Return goes on to the
    // default button, which is to find it chosen.
    const bool sceglie = invio || frecce.contains(evento->key());
    if (sceglie && scegli_incorniciata() && !invio) return;
    const QTreeWidgetItem* prima = currentItem();
    QTreeWidget::keyPressEvent(evento);
    if (currentItem() != prima) Q_EMIT Click();
}

void ListView::ordina(int colonna, Qt::SortOrder verso) {
    concludi_modifica();
    colonna_ordine_ = colonna;
    verso_ordine_ = verso;
    riordina();
}

void ListView::riordina() {
    if (colonna_ordine_ < 0) return;
    QTreeWidgetItem* scelta = selezionata();
    QList<QTreeWidgetItem*> voci;
    while (topLevelItemCount() > 0) voci.append(takeTopLevelItem(0));
    const auto chiave = [this](const QTreeWidgetItem* voce) {
        return LCase(s(voce->text(colonna_ordine_)));
    };
    std::stable_sort(voci.begin(), voci.end(),
                     [&](const QTreeWidgetItem* a, const QTreeWidgetItem* b) {
                         return verso_ordine_ == Qt::AscendingOrder ? chiave(a) < chiave(b)
                                                                    : chiave(b) < chiave(a);
                     });
    addTopLevelItems(voci);
    if (scelta != nullptr) setCurrentItem(scelta);
}

TabStrip::TabStrip(QWidget* padre) : QTabBar(padre) {
    setDrawBase(true);
    setExpanding(false);
    connect(this, &QTabBar::currentChanged, this, [this](int indice) {
        if (indice >= 0) Q_EMIT Click(tabData(indice).toInt());
    });
}

void TabStrip::add_scheda(int numero, const QString& testo) {
    const QSignalBlocker muto(this);
    setTabData(addTab(testo), numero);
}

void TabStrip::rimuovi_scheda(int numero) {
    const QSignalBlocker muto(this);
    for (int i = count() - 1; i >= 0; --i) {
        if (tabData(i).toInt() == numero) removeTab(i);
    }
}

void TabStrip::seleziona(int numero) {
    const QSignalBlocker muto(this);
    for (int i = 0; i < count(); ++i) {
        if (tabData(i).toInt() == numero) setCurrentIndex(i);
    }
}

int TabStrip::selezionata() const {
    return tabData(currentIndex()).toInt();
}

}  // namespace platform
