#include "platform/qt/flexgrid.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QtMath>

#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"

namespace platform {

namespace {

constexpr QColor accento(0xE0, 0x7B, 0x00);
constexpr QColor luce(0xFF, 0xF3, 0xDC);
constexpr QColor segno(0xFF, 0xD9, 0xD2);
constexpr QColor contorno(0xC0, 0x28, 0x1C);

/// Paints a cell by its own colours alone, with a border on the current one.
class Disegno : public QStyledItemDelegate {
public:
    explicit Disegno(MSFlexGrid* griglia) : QStyledItemDelegate(griglia), griglia_(griglia) {}

    void paint(QPainter* pittore, const QStyleOptionViewItem& opzione,
               const QModelIndex& indice) const override {
        const QVariant sfondo = indice.data(Qt::BackgroundRole);
        const QBrush fondo = sfondo.isValid() ? sfondo.value<QBrush>() : QBrush(Qt::white);
        pittore->fillRect(opzione.rect, fondo);
        const QPoint qui(indice.column(), indice.row());
        const bool indicata = griglia_->indicate().contains(qui);
        if (fondo.color() == Qt::white && (indicata || griglia_->illuminate().contains(qui))) {
            pittore->fillRect(opzione.rect, indicata ? segno : luce);
        }
        linee(pittore, opzione);
        if (indicata) contorna(pittore, opzione.rect.adjusted(0, 0, -1, -1), contorno);
        const QRect casella = opzione.rect.adjusted(0, 0, -1, -1);
        const QVariant inchiostro = indice.data(Qt::ForegroundRole);
        pittore->setPen(inchiostro.isValid() ? inchiostro.value<QBrush>().color()
                                             : opzione.palette.color(QPalette::Text));
        const bool corrente = griglia_->cursore() && indice.row() == griglia_->Row() &&
                              indice.column() == griglia_->Col();
        const bool digitando = corrente && !griglia_->digitato().isEmpty();
        const QVariant verso = indice.data(Qt::TextAlignmentRole);
        const int allineamento = verso.isValid() ? verso.toInt() : int(Qt::AlignCenter);
        const QVariant carattere = indice.data(Qt::FontRole);
        pittore->setFont(carattere.isValid() ? carattere.value<QFont>() : opzione.font);
        const bool ai_lati = (allineamento & Qt::AlignHCenter) == 0;
        const int rientro = ai_lati ? scalato(6, griglia_->fattore()) : 0;
        pittore->drawText(casella.adjusted(rientro, 0, -rientro, 0),
                          allineamento | int(Qt::AlignVCenter),
                          digitando ? griglia_->digitato() + '_' : indice.data().toString());
        if (corrente) contorna(pittore, casella, accento);
    }

private:
    void contorna(QPainter* pittore, const QRect& casella, const QColor& colore) const {
        // A large cell asks for no heavier frame.
        constexpr int massimo = 5;
        const int spessore = qBound(2, scalato(2, griglia_->fattore()), massimo);
        const int dentro = spessore / 2;
        pittore->setPen(QPen(colore, spessore));
        pittore->setBrush(Qt::NoBrush);
        pittore->drawRect(casella.adjusted(dentro, dentro, -dentro, -dentro));
    }

    /// Right and lower edge of a cell, of one width on every scale: the view's own lines are one
    /// or two pixels wide as they fall.
    void linee(QPainter* pittore, const QStyleOptionViewItem& opzione) const {
        const QTransform schermo = pittore->deviceTransform();
        const QRectF cella = schermo.mapRect(QRectF(opzione.rect));
        const QPointF fine(qRound(cella.right()), qRound(cella.bottom()));
        const qreal spessore = qMax(1, qFloor(schermo.m11()));
        const QColor colore = QColor::fromRgba(static_cast<QRgb>(
            griglia_->style()->styleHint(QStyle::SH_Table_GridLineColor, &opzione, griglia_)));
        const QTransform indietro = schermo.inverted();
        for (const QRectF& linea :
             {QRectF(fine.x() - spessore, cella.top(), spessore, fine.y() - cella.top()),
              QRectF(cella.left(), fine.y() - spessore, fine.x() - cella.left(), spessore)}) {
            pittore->fillRect(indietro.mapRect(linea), colore);
        }
    }

    MSFlexGrid* griglia_;
};

/// Cell that is told as its grid says.
class Casella : public QTableWidgetItem {
public:
    explicit Casella(const MSFlexGrid* griglia) : griglia_(griglia) {}
    [[nodiscard]] QVariant data(int ruolo) const override {
        if (ruolo == Qt::AccessibleTextRole) return griglia_->voce_cella(row(), column()).nome;
        if (ruolo == Qt::AccessibleDescriptionRole) {
            return griglia_->voce_cella(row(), column()).dove;
        }
        return QTableWidgetItem::data(ruolo);
    }

private:
    const MSFlexGrid* griglia_;
};

}  // namespace

MSFlexGrid::MSFlexGrid(QWidget* padre) : ConFuocoVero(padre) {
    horizontalHeader()->hide();
    verticalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setMinimumSectionSize(1);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerItem);
    setVerticalScrollMode(ScrollPerItem);
    setItemDelegate(new Disegno(this));
    setInputMethodHints(Qt::ImhDigitsOnly);
    // The cells draw their own.
    setShowGrid(false);
    connect(this, &QTableWidget::currentCellChanged, this, [this] { viewport()->update(); });
}

void MSFlexGrid::set_Rows(int righe) {
    const QScopedValueRollback guardia(da_codice_, true);
    setRowCount(qMax(0, righe));
    completa_voci();
    if (riga_ >= righe) riga_ = 0;
    sposta();
}

void MSFlexGrid::set_Cols(int colonne) {
    const QScopedValueRollback guardia(da_codice_, true);
    setColumnCount(qMax(0, colonne));
    completa_voci();
    if (colonna_ >= colonne) colonna_ = 0;
    sposta();
}

void MSFlexGrid::completa_voci() {
    // Numbers of hidden headers would be read out before each cell.
    setHorizontalHeaderLabels(QStringList(columnCount(), QStringLiteral("")));
    setVerticalHeaderLabels(QStringList(rowCount(), QStringLiteral("")));
    for (int r = 0; r < rowCount(); ++r) {
        for (int c = 0; c < columnCount(); ++c) {
            if (item(r, c) != nullptr) continue;
            auto* nuova = new Casella(this);
            nuova->setBackground(Qt::white);
            nuova->setTextAlignment(Qt::AlignCenter);
            setItem(r, c, nuova);
        }
    }
}

QTableWidgetItem* MSFlexGrid::voce(int riga, int colonna) {
    return riga < 0 || colonna < 0 ? nullptr : item(riga, colonna);
}

bool MSFlexGrid::set_Row(int riga) {
    if (riga < 0 || riga >= rowCount()) return false;
    riga_ = riga;
    sposta();
    return true;
}

bool MSFlexGrid::set_Col(int colonna) {
    if (colonna < 0 || colonna >= columnCount()) return false;
    colonna_ = colonna;
    sposta();
    return true;
}

void MSFlexGrid::sposta() {
    const QScopedValueRollback guardia(da_codice_, true);
    setCurrentCell(riga_, colonna_);
}

void MSFlexGrid::set_Text(const QString& testo) {
    set_testo(riga_, colonna_, testo);
}

QString MSFlexGrid::testo(int riga, int colonna) const {
    const QTableWidgetItem* v = riga < 0 || colonna < 0 ? nullptr : item(riga, colonna);
    return v != nullptr ? v->text() : QString();
}

MSFlexGrid::Voce MSFlexGrid::voce_cella(int riga, int colonna) const {
    return voci_ ? voci_(riga, colonna) : Voce{testo(riga, colonna), {}};
}

void MSFlexGrid::set_testo(int riga, int colonna, const QString& testo) {
    if (QTableWidgetItem* v = voce(riga, colonna)) v->setText(testo);
}

void MSFlexGrid::ColWidth(int colonna, int twips) {
    if (colonna >= larghezze_.size()) larghezze_.resize(colonna + 1);
    larghezze_[colonna] = px(twips);
    setColumnWidth(colonna, scalato(px(twips), fattore_));
}

void MSFlexGrid::RowHeight(int riga, int twips) {
    if (riga >= altezze_.size()) altezze_.resize(riga + 1);
    altezze_[riga] = px(twips);
    setRowHeight(riga, scalato(px(twips), fattore_));
}

void MSFlexGrid::CellBackColor(const QColor& colore) {
    if (QTableWidgetItem* v = voce(riga_, colonna_)) v->setBackground(colore);
}

void MSFlexGrid::set_sfondo(int riga, int colonna, const QColor& colore) {
    if (QTableWidgetItem* v = voce(riga, colonna)) v->setBackground(colore);
}

QColor MSFlexGrid::sfondo(int riga, int colonna) const {
    const QTableWidgetItem* v = riga < 0 || colonna < 0 ? nullptr : item(riga, colonna);
    return v != nullptr ? v->background().color() : QColor();
}

void MSFlexGrid::misura_celle() {
    const auto da_a = [](const QList<int>& lati, int quante, qreal fattore, auto scrivi) {
        int base = 0;
        for (int i = 0; i < qMin(quante, int(lati.size())); ++i) {
            const int da = scalato(base, fattore);
            base += lati[i];
            scrivi(i, scalato(base, fattore) - da);
        }
        return base;
    };
    qreal x = fattore_;
    qreal y = fattore_;
    if (!misurata_) {
        fattore_ = x = y = scala(this);
        // Cells that fill the grid at 100 % fill it at every size.
        const QSize base = posto_a_100(this).size() - QSize(2, 2);
        const auto nulla = [](int, int) {};
        const int tutte = da_a(larghezze_, columnCount(), 1, nulla);
        const int alte = da_a(altezze_, rowCount(), 1, nulla);
        if (tutte == base.width()) x = qreal(width() - 2) / tutte;
        if (alte == base.height()) y = qreal(height() - 2) / alte;
    }
    // Told of each, the view would be painted once more a moment later.
    const QSignalBlocker colonne(horizontalHeader());
    const QSignalBlocker righe(verticalHeader());
    da_a(larghezze_, columnCount(), x, [this](int c, int largo) { setColumnWidth(c, largo); });
    da_a(altezze_, rowCount(), y, [this](int r, int alto) { setRowHeight(r, alto); });
    updateGeometries();
    viewport()->update();
}

void MSFlexGrid::misura(QSize a_100, qreal fattore) {
    misurata_ = true;
    if (fattore != fattore_) {
        fattore_ = fattore;
        setFont(fattore == 1 ? QFont() : scalato(QApplication::font(), fattore, this));
    }
    misura_celle();
    const QSize misura = a_100 * fattore;
    resize(misura);
    const int dx = qMax(0, misura.width() - 2 - horizontalHeader()->length());
    const int dy = qMax(0, misura.height() - 2 - verticalHeader()->length());
    // The table sets its own margins anew at every layout; padding is left alone.
    const QString foglio = QStringLiteral("QTableView { padding: %1px %2px %3px %4px; }")
                               .arg(dy / 2)
                               .arg(dx - dx / 2)
                               .arg(dy - dy / 2)
                               .arg(dx / 2);
    // The same one polishes the table anew too.
    if (foglio != styleSheet()) setStyleSheet(foglio);
}

void MSFlexGrid::CellForeColor(const QColor& colore) {
    if (QTableWidgetItem* v = voce(riga_, colonna_)) v->setForeground(colore);
}

void MSFlexGrid::CellAlignment(Qt::Alignment verso) {
    if (QTableWidgetItem* v = voce(riga_, colonna_)) v->setTextAlignment(verso);
}

void MSFlexGrid::currentChanged(const QModelIndex& ora, const QModelIndex& prima) {
    ConFuocoVero::currentChanged(ora, prima);
    if (da_codice_ || !ora.isValid()) return;
    riga_ = ora.row();
    colonna_ = ora.column();
    if (!dal_mouse_) Q_EMIT SelChange();
}

void MSFlexGrid::mousePressEvent(QMouseEvent* evento) {
    const int riga = riga_;
    const int colonna = colonna_;
    {
        const QScopedValueRollback guardia(dal_mouse_, true);
        QTableWidget::mousePressEvent(evento);
    }
    // Every button moves the current cell; with the left one, choosing it again counts too.
    const bool scelta = evento->button() == Qt::LeftButton && indexAt(evento->pos()).isValid();
    if (scelta || riga_ != riga || colonna_ != colonna) Q_EMIT SelChange();
}

void MSFlexGrid::keyPressEvent(QKeyEvent* evento) {
    // Keys that are no moves belong to the form, above all Canc and the mnemonics.
    switch (evento->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            set_digitato(QString());
            QTableWidget::keyPressEvent(evento);
            break;
        default:
            if (evento->text().size() == 1 &&
                (evento->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0) {
                Q_EMIT KeyPress(evento->text().front().unicode());
            } else if (!evento->text().isEmpty()) {
                set_digitato(QString());
            }
            evento->ignore();
    }
}

void MSFlexGrid::inputMethodEvent(QInputMethodEvent* evento) {
    // A keyboard on the screen writes texts, not keys; the view would search its cells for them.
    for (const QChar c : evento->commitString()) Q_EMIT KeyPress(c.unicode());
    evento->accept();
}

void MSFlexGrid::focusOutEvent(QFocusEvent* evento) {
    set_digitato(QString());
    QTableWidget::focusOutEvent(evento);
}

void MSFlexGrid::set_digitato(const QString& testo) {
    if (testo == digitato_) return;
    digitato_ = testo;
    viewport()->update();
}

void MSFlexGrid::illumina(const QList<QPoint>& celle, const QList<QPoint>& indicate) {
    if (celle == illuminate_ && indicate == indicate_) return;
    illuminate_ = celle;
    indicate_ = indicate;
    viewport()->update();
}

bool MSFlexGrid::viewportEvent(QEvent* evento) {
    QPoint ora = sopra_;
    if (evento->type() == QEvent::MouseMove) {
        const QModelIndex i = indexAt(static_cast<QMouseEvent*>(evento)->pos());
        ora = i.isValid() ? QPoint(i.column(), i.row()) : QPoint(-1, -1);
    } else if (evento->type() == QEvent::Leave || evento->type() == QEvent::Hide) {
        ora = QPoint(-1, -1);
    }
    if (ora != sopra_) {
        sopra_ = ora;
        Q_EMIT Sopra(ora.y(), ora.x());
    }
    return QTableWidget::viewportEvent(evento);
}

void MSFlexGrid::barra_esterna() {
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    barra_ = new QScrollBar(Qt::Vertical, parentWidget());
    barra_->setFocusPolicy(Qt::NoFocus);
    barra_->setProperty(Scala::da_se, true);
    QScrollBar* interna = verticalScrollBar();
    connect(interna, &QScrollBar::rangeChanged, this, [this](int da, int a) {
        barra_->setRange(da, a);
        barra_->setPageStep(verticalScrollBar()->pageStep());
        sistema_barra();
    });
    barra_->setRange(interna->minimum(), interna->maximum());
    connect(interna, &QScrollBar::valueChanged, barra_, &QScrollBar::setValue);
    connect(barra_, &QScrollBar::valueChanged, interna, &QScrollBar::setValue);
    sistema_barra();
}

void MSFlexGrid::sistema_barra() {
    if (barra_ == nullptr) return;
    const qreal f = scala(this);
    barra_->setGeometry(x() + width() + scalato(2, f), y(), scalato(12, f), height());
    barra_->setVisible(isVisible() && barra_->maximum() > barra_->minimum());
}

void MSFlexGrid::resizeEvent(QResizeEvent* evento) {
    QTableWidget::resizeEvent(evento);
    if (!misurata_ && (fattore_ != 1 || scala(this) != 1)) misura_celle();
    sistema_barra();
}

void MSFlexGrid::moveEvent(QMoveEvent* evento) {
    QTableWidget::moveEvent(evento);
    sistema_barra();
}

void MSFlexGrid::showEvent(QShowEvent* evento) {
    QTableWidget::showEvent(evento);
    sistema_barra();
}

void MSFlexGrid::hideEvent(QHideEvent* evento) {
    QTableWidget::hideEvent(evento);
    sistema_barra();
}

}  // namespace platform
