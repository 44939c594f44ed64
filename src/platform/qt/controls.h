// Thin controls with the classic semantics over standard Qt widgets.
#pragma once

#include <functional>
#include <memory>

#include <QAbstractButton>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QSpinBox>
#include <QString>
#include <QStringList>

namespace platform {

class Disegno;

/// The free text that a control carries.
QString Tag(const QObject* controllo);
void set_Tag(QObject* controllo, const QString& testo);

/// Name of a member of a control array, such as "CMDnum(7)".
QString membro(const QString& nome, int indice);

/// Colour of a blue-green-red value.
QColor colore(int bgr);

/// Drop-down list. Choosing an item, or assigning it, always raises `Click`, also when nothing
/// changes; an assignment that names no item is skipped.
class ComboBox : public QComboBox {
    Q_OBJECT
public:
    explicit ComboBox(QWidget* padre);
    [[nodiscard]] QString Text() const { return currentText(); }
    bool set_Text(const QString& testo);
    [[nodiscard]] int ListIndex() const { return currentIndex(); }
    bool set_ListIndex(int indice);
    /// Chooses an item, or with -1 none, without a click.
    void mostra(int indice);
    /// Gives it these items, unless it has just them, and chooses one, or with -1 none, without a
    /// click.
    void elenca(const QStringList& voci, int indice);
    void AddItem(const QString& testo);
    void Clear();
    /// Gives the items an explanation, by their index, that is asked for only when it is shown: as
    /// tooltip, as accessible description, by `Spiegato`. Called while there are no items.
    void spiega(std::function<QString(int)> spiegazione);
    [[nodiscard]] QString spiegazione(int indice) const;

    /// Finds the item that the characters typed so far mean, -1 for none.
    using Ricerca = std::function<int(const QString& digitato)>;
    /// For items that are not known by their first letters: typing one of `tasti` opens the list
    /// and moves in it by `ricerca`. Backspace takes the last one back; after a pause of two
    /// seconds they begin anew.
    void cerca_con(const QString& tasti, Ricerca ricerca);
    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    void Click();
    /// While the list is open or has the focus, the explanation of the item in question; empty
    /// afterwards.
    void Spiegato(const QString& testo);

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    bool event(QEvent* evento) override;

private:
    void adatta();
    /// True when the key belonged to the search.
    bool digita(const QKeyEvent& evento);

    QString tasti_;
    Ricerca ricerca_;
    QString digitato_;
    quint64 ultimo_tasto_ = 0;
    std::function<QString(int)> spiegazione_;
};

/// Picture that acts on a click and shows that the pointer is over it.
class Image : public QAbstractButton {
    Q_OBJECT
public:
    /// `risorsa` is an SVG, drawn at the size `misura` in the middle of the control.
    Image(const QString& risorsa, QSize misura, QWidget* padre);
    ~Image() override;
    /// Colours of the background at rest and under the pointer.
    void set_sfondi(const QColor& riposo, const QColor& sopra);
    void a_riposo();
    [[nodiscard]] bool in_rilievo() const { return rilievo_; }
    [[nodiscard]] QSize sizeHint() const override { return misura_; }

protected:
    void paintEvent(QPaintEvent* evento) override;
    void enterEvent(QEnterEvent* evento) override;
    void leaveEvent(QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void solleva(bool su);
    std::unique_ptr<Disegno> disegno_;
    QSize misura_;
    QColor riposo_;
    QColor sopra_;
    bool rilievo_ = false;
};

/// Label of one line that narrows its letters, and then says with dots that it has more to tell,
/// where the text is too long: an amount without its first digits would be another amount. Its
/// accessible name says what the value is of.
class EtichettaValore : public QLabel {
    Q_OBJECT
public:
    explicit EtichettaValore(QWidget* padre = nullptr);

protected:
    void paintEvent(QPaintEvent* evento) override;
};

/// Panel with a caption and a thin border that begins one pixel inside and is one pixel narrower
/// and lower than the panel; a style sheet sets its colours.
class Frame : public QFrame {
    Q_OBJECT
    Q_PROPERTY(QString caption READ caption WRITE set_caption)
    Q_PROPERTY(QColor fondo MEMBER fondo_)
    Q_PROPERTY(QColor linea MEMBER linea_)
    Q_PROPERTY(QColor titolo MEMBER titolo_)
public:
    Frame(const QString& didascalia, QWidget* padre);
    [[nodiscard]] QString caption() const { return didascalia_; }
    void set_caption(const QString& testo);
    /// Whether the border is drawn.
    void set_bordo(bool bordo) { bordo_ = bordo; }
    /// Hides what lies beneath it, to its very corners.
    void copre() { copre_ = true; }

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    QString didascalia_;
    QColor fondo_ = palette().color(QPalette::Base);
    QColor linea_ = palette().color(QPalette::Mid);
    QColor titolo_ = palette().color(QPalette::Link);
    bool bordo_ = true;
    bool copre_ = false;
};

/// List whose `Click` comes from the mouse and from the keyboard alike.
class ListBox : public QListWidget {
    Q_OBJECT
public:
    explicit ListBox(QWidget* padre);
    void AddItem(const QString& testo) { addItem(testo); }
    void Clear() { clear(); }

Q_SIGNALS:
    void Click();

protected:
    void keyPressEvent(QKeyEvent* evento) override;
};

/// Pair of arrows that steps a number shown elsewhere; it can be typed too.
class UpDown : public QSpinBox {
    Q_OBJECT
public:
    explicit UpDown(QWidget* padre);
    void stepBy(int passi) override;

protected:
    /// Only the digits and the keys that step the number belong to the control.
    bool event(QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;

private:
    void digita(const QString& cifre);
    QString digitato_;
};

}  // namespace platform
