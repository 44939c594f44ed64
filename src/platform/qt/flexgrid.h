// Grid of texts with a current cell on which the cell properties act.
#pragma once

#include <functional>

#include <QTableWidget>

#include "platform/qt/fuoco.h"

class QScrollBar;

namespace platform {

class MSFlexGrid : public ConFuocoVero<QTableWidget> {
    Q_OBJECT
public:
    explicit MSFlexGrid(QWidget* padre);

    [[nodiscard]] int Rows() const { return rowCount(); }
    [[nodiscard]] int Cols() const { return columnCount(); }
    void set_Rows(int righe);
    void set_Cols(int colonne);

    /// Current cell; an assignment outside the grid fails and leaves it.
    [[nodiscard]] int Row() const { return riga_; }
    [[nodiscard]] int Col() const { return colonna_; }
    bool set_Row(int riga);
    bool set_Col(int colonna);
    bool cella(int riga, int colonna) { return set_Row(riga) && set_Col(colonna); }

    [[nodiscard]] QString Text() const { return testo(riga_, colonna_); }
    void set_Text(const QString& testo);
    /// Text of any cell, empty outside the grid; the current cell stays.
    [[nodiscard]] QString testo(int riga, int colonna) const;
    void set_testo(int riga, int colonna, const QString& testo);

    /// Widths and heights in twips.
    void ColWidth(int colonna, int twips);
    void RowHeight(int riga, int twips);

    void CellBackColor(const QColor& colore);
    /// Background of any cell; the current cell stays.
    void set_sfondo(int riga, int colonna, const QColor& colore);
    [[nodiscard]] QColor sfondo(int riga, int colonna) const;
    void CellForeColor(const QColor& colore);
    void CellAlignment(Qt::Alignment verso);

    /// Gives the grid a size, in pixels at 100 %, and shows it and its cells at `fattore`; the
    /// cells stand in the middle of what is left. A grid that never had one fills its place.
    void misura(QSize misura, qreal fattore = 1);
    /// Factor at which the cells are shown.
    [[nodiscard]] qreal fattore() const { return fattore_; }
    /// Marks the current cell with a border of its own.
    void cursore_visibile(bool visibile) { cursore_ = visibile; }
    [[nodiscard]] bool cursore() const { return cursore_; }
    /// Text being typed into the current cell, shown there until it is cleared; it goes by itself
    /// with the focus and with a key that types nothing.
    void set_digitato(const QString& testo);
    [[nodiscard]] QString digitato() const { return digitato_; }
    /// Cells, by column and row, that glow faintly, and those that are pointed out; a cell of
    /// another colour than white keeps it.
    void illumina(const QList<QPoint>& celle, const QList<QPoint>& indicate);
    [[nodiscard]] const QList<QPoint>& illuminate() const { return illuminate_; }
    [[nodiscard]] const QList<QPoint>& indicate() const { return indicate_; }
    /// What those hear of a cell who do not see it.
    struct Voce {
        QString nome;  ///< what stands in it
        QString dove;  ///< where it stands, or what it is of
    };
    /// Asked whenever somebody wants to hear of a cell; without it a cell is its text.
    void leggi_celle(std::function<Voce(int riga, int colonna)> voce) { voci_ = std::move(voce); }
    [[nodiscard]] Voce voce_cella(int riga, int colonna) const;
    /// Puts the vertical scroll bar outside, on the right, so that it covers no column.
    void barra_esterna();

Q_SIGNALS:
    /// A cell was chosen, by whatever moved the current cell other than the routines above.
    void SelChange();
    /// The pointer came over a cell, or with -1 left the cells.
    void Sopra(int riga, int colonna);
    /// A key that gives a character, or Return, Backspace or Escape, by its code; also each
    /// character of an input method.
    void KeyPress(int tasto);

protected:
    bool viewportEvent(QEvent* evento) override;
    void currentChanged(const QModelIndex& ora, const QModelIndex& prima) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void inputMethodEvent(QInputMethodEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void moveEvent(QMoveEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void hideEvent(QHideEvent* evento) override;

private:
    QTableWidgetItem* voce(int riga, int colonna);
    void completa_voci();
    void sposta();
    void sistema_barra();
    void misura_celle();

    std::function<Voce(int, int)> voci_;
    QString digitato_;
    QList<int> larghezze_;  ///< of the columns, in pixels at 100 %
    QList<int> altezze_;
    QList<QPoint> illuminate_;
    QList<QPoint> indicate_;
    QPoint sopra_{-1, -1};
    qreal fattore_ = 1;
    bool misurata_ = false;
    int riga_ = 0;
    int colonna_ = 0;
    bool da_codice_ = false;
    bool dal_mouse_ = false;
    bool cursore_ = false;
    QScrollBar* barra_ = nullptr;
};

}  // namespace platform
