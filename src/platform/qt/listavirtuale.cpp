#include "platform/qt/listavirtuale.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QPainter>

#include "platform/qt/desktop.h"
#include "platform/qt/listview.h"
#include "platform/qt/scala.h"

namespace platform {

namespace {

constexpr int altezza_riga = 20;

}  // namespace

class ListaVirtuale::Modello : public QAbstractTableModel {
public:
    struct Colonna {
        QString chiave;
        QString titolo;
        int twips = 0;
        Qt::Alignment verso;
    };

    Modello(const Righe& righe, QObject* padre) : QAbstractTableModel(padre), righe_(righe) {}

    int rowCount(const QModelIndex& padre) const override { return padre.isValid() ? 0 : quante_; }
    int columnCount(const QModelIndex& padre) const override {
        return padre.isValid() ? 0 : static_cast<int>(colonne_.size());
    }
    QVariant data(const QModelIndex& indice, int ruolo) const override {
        if (!indice.isValid() || indice.row() >= quante_) return {};
        if (ruolo == Qt::DisplayRole) return righe_.testo(indice.row(), indice.column());
        if (ruolo == Qt::TextAlignmentRole) return allineamento(indice.column());
        return {};
    }
    QVariant headerData(int sezione, Qt::Orientation senso, int ruolo) const override {
        if (senso != Qt::Horizontal || sezione < 0 || sezione >= colonne_.size()) return {};
        if (ruolo == Qt::DisplayRole) return colonne_[sezione].titolo;
        if (ruolo == Qt::TextAlignmentRole) return allineamento(sezione);
        return {};
    }

    void add(const Colonna& colonna) {
        const int posto = static_cast<int>(colonne_.size());
        beginInsertColumns({}, posto, posto);
        colonne_.append(colonna);
        endInsertColumns();
    }
    void aggiorna() {
        beginResetModel();
        quante_ = righe_.quante();
        endResetModel();
    }
    [[nodiscard]] const QList<Colonna>& colonne() const { return colonne_; }
    [[nodiscard]] int quante() const { return quante_; }
    [[nodiscard]] const Righe& sorgente() const { return righe_; }

private:
    [[nodiscard]] QVariant allineamento(int colonna) const {
        return int(colonne_[colonna].verso | Qt::AlignVCenter);
    }
    const Righe& righe_;
    QList<Colonna> colonne_;
    int quante_ = 0;
};

ListaVirtuale::ListaVirtuale(const Righe& righe, QWidget* padre)
    : ConFuocoVero(padre), modello_(new Modello(righe, this)) {
    setModel(modello_);
    setItemDelegate(new CelleDiLista(this));
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Sizes of its own for each row would be asked for one by one.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(altezza_riga);
    verticalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(0);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
}

ListaVirtuale::~ListaVirtuale() = default;

bool ListaVirtuale::event(QEvent* evento) {
    if (evento->type() == Scala::cambiata()) {
        verticalHeader()->setDefaultSectionSize(scalato(altezza_riga, scala(this)));
        misura_colonne();
    }
    return QTableView::event(evento);
}

void ListaVirtuale::resizeEvent(QResizeEvent* evento) {
    QTableView::resizeEvent(evento);
    misura_colonne();
}

// Rows end at the edge, wherever their columns do.
void ListaVirtuale::paintEvent(QPaintEvent* evento) {
    QTableView::paintEvent(evento);
    const int prima = rowAt(0);
    if (prima < 0) return;
    const int fine = horizontalHeader()->length();
    QPainter pittore(viewport());
    for (int r = prima; r < righe() && rowViewportPosition(r) < viewport()->height(); ++r) {
        const QRect riga(0, rowViewportPosition(r), viewport()->width(), rowHeight(r));
        dipingi_resto(this, &pittore, riga.adjusted(fine, 0, 0, 0), r);
        incornicia_riga(this, &pittore, riga, r);
    }
}

void ListaVirtuale::misura_colonne() {
    const bool riempie = horizontalHeader()->stretchLastSection();
    const qreal k = riempie ? scala(this) : scala_colonne(this);
    for (int c = 0; c < colonne(); ++c) {
        const int largo = scalato(px(larghezza(c)), k);
        if (largo != columnWidth(c)) setColumnWidth(c, largo);
    }
}

void ListaVirtuale::add_colonna(const QString& chiave, const QString& titolo, int twips,
                                Qt::Alignment verso) {
    modello_->add({chiave, titolo, twips, verso});
    const int colonna = colonne() - 1;
    misura_colonne();
    setColumnHidden(colonna, twips == 0);
}

int ListaVirtuale::colonne() const {
    return static_cast<int>(modello_->colonne().size());
}

QString ListaVirtuale::chiave(int colonna) const {
    return modello_->colonne().value(colonna).chiave;
}

QString ListaVirtuale::titolo(int colonna) const {
    return modello_->colonne().value(colonna).titolo;
}

Qt::Alignment ListaVirtuale::verso(int colonna) const {
    return modello_->colonne().value(colonna).verso;
}

int ListaVirtuale::larghezza(int colonna) const {
    return modello_->colonne().value(colonna).twips;
}

void ListaVirtuale::set_Width(int twips) {
    twips_ = twips;
    resize(px(twips), height());
}

int ListaVirtuale::righe() const {
    return modello_->quante();
}

QString ListaVirtuale::testo(int riga, int colonna) const {
    return modello_->data(modello_->index(riga, colonna), Qt::DisplayRole).toString();
}

void ListaVirtuale::aggiorna() {
    modello_->aggiorna();
    scrollToTop();
}

}  // namespace platform
