#include "platform/qt/controls.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyle>
#include <QToolTip>
#include <QVariant>

#include "platform/qt/disegno.h"
#include "platform/qt/interfaccia.h"
#include "platform/qt/scala.h"
#include "platform/qt/scritta_parlata.h"
#include "platform/qt/tasti.h"

namespace platform {

QString Tag(const QObject* controllo) {
    return controllo->property("Tag").toString();
}

void set_Tag(QObject* controllo, const QString& testo) {
    controllo->setProperty("Tag", testo);
}

QString membro(const QString& nome, int indice) {
    return nome + QStringLiteral("(%1)").arg(indice);
}

QColor colore(int bgr) {
    return {bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF};
}

namespace {

/// A control with an action of its own before those that all have.
class ConAzione : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;
    [[nodiscard]] QStringList actionNames() const override {
        QStringList azioni = QAccessibleWidget::actionNames();
        if (!azione().isEmpty()) azioni.prepend(azione());
        return azioni;
    }
    void doAction(const QString& quale) override {
        if (quale.isEmpty() || quale != azione()) {
            QAccessibleWidget::doAction(quale);
        } else if (widget()->isEnabled()) {
            compi();
        }
    }

protected:
    /// Its name; empty while there is none.
    [[nodiscard]] virtual QString azione() const = 0;
    virtual void compi() = 0;
};

/// Tells what a list is for beside what is chosen in it, of which alone the desktop is told else.
class NomeElenco : public ConAzione {
public:
    explicit NomeElenco(ComboBox* elenco)
        : ConAzione(elenco, QAccessible::ComboBox), elenco_(elenco) {}
    [[nodiscard]] QString text(QAccessible::Text quale) const override {
        if (quale == QAccessible::Value) return elenco_->currentText();
        if (quale == QAccessible::Description) return elenco_->spiegazione(elenco_->ListIndex());
        if (quale != QAccessible::Name) return QAccessibleWidget::text(quale);
        return QStringList{elenco_->accessibleName(), elenco_->currentText()}.join(": ");
    }

protected:
    [[nodiscard]] QString azione() const override { return showMenuAction(); }
    void compi() override { elenco_->showPopup(); }

private:
    ComboBox* elenco_;
};

/// A picture that Tab passes by does nothing: it is looked at.
class Figura : public ConAzione {
public:
    explicit Figura(Image* immagine)
        : ConAzione(immagine, QAccessible::Button), immagine_(immagine) {}
    [[nodiscard]] QAccessible::Role role() const override {
        return immagine_->focusPolicy() == Qt::NoFocus ? QAccessible::Graphic : QAccessible::Button;
    }
    [[nodiscard]] QString text(QAccessible::Text quale) const override {
        const QString testo = QAccessibleWidget::text(quale);
        // The tooltip of a picture is its name, which is not to be read twice.
        const bool gia_detto = quale == QAccessible::Description && testo == immagine_->toolTip();
        return gia_detto ? QString() : testo;
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State stato = QAccessibleWidget::state();
        stato.pressed = immagine_->isDown();
        return stato;
    }

protected:
    [[nodiscard]] QString azione() const override {
        return role() == QAccessible::Button ? pressAction() : QString();
    }
    // By a timer: a box that the command opens must not keep who asks waiting.
    void compi() override { immagine_->animateClick(); }

private:
    Image* immagine_;
};

/// A panel groups what stands on it; the system's own word for a frame is a window.
class Gruppo : public QAccessibleWidget {
public:
    explicit Gruppo(Frame* riquadro) : QAccessibleWidget(riquadro, QAccessible::Grouping) {}
};

/// Items whose explanation is made when somebody asks for it.
class VociSpiegate : public QStandardItemModel {
public:
    explicit VociSpiegate(ComboBox* elenco) : QStandardItemModel(elenco), elenco_(elenco) {}
    [[nodiscard]] QVariant data(const QModelIndex& indice, int ruolo) const override {
        const bool descritta = ruolo == Qt::AccessibleDescriptionRole && si_vede();
        if (ruolo == Qt::ToolTipRole || descritta) return elenco_->spiegazione(indice.row());
        return QStandardItemModel::data(indice, ruolo);
    }

private:
    /// To lay items out is to ask each for its description, which tells separators: as long as
    /// nobody sees them, that explains none.
    [[nodiscard]] bool si_vede() const {
        const auto* vista = elenco_->findChild<QAbstractItemView*>();
        return vista != nullptr && vista->isVisible();
    }
    ComboBox* elenco_;
};

}  // namespace

ComboBox::ComboBox(QWidget* padre) : QComboBox(padre) {
    parla_per<ComboBox, NomeElenco>();
    connect(this, &QComboBox::activated, this, [this] {
        adatta();
        Q_EMIT Click();
    });
}

bool ComboBox::set_Text(const QString& testo) {
    return set_ListIndex(findText(testo));
}

bool ComboBox::set_ListIndex(int indice) {
    if (indice < 0 || indice >= count()) return false;
    setCurrentIndex(indice);
    adatta();
    Q_EMIT Click();
    return true;
}

void ComboBox::mostra(int indice) {
    setCurrentIndex(indice);
    adatta();
}

void ComboBox::elenca(const QStringList& voci, int indice) {
    bool uguali = count() == voci.size();
    for (int i = 0; uguali && i < count(); ++i) uguali = itemText(i) == voci[i];
    if (!uguali) {
        Clear();
        for (const QString& voce : voci) AddItem(voce);
    }
    mostra(indice);
}

void ComboBox::AddItem(const QString& testo) {
    // The first item added must not select itself: nothing is chosen until code says so.
    const int prima = currentIndex();
    addItem(testo);
    setCurrentIndex(prima);
}

void ComboBox::Clear() {
    clear();
    adatta();
}

void ComboBox::cerca_con(const QString& tasti, Ricerca ricerca) {
    tasti_ = tasti;
    ricerca_ = std::move(ricerca);
    view()->installEventFilter(this);
}

void ComboBox::showPopup() {
    digitato_.clear();
    if (spiegazione_) Q_EMIT Spiegato(spiegazione(currentIndex()));
    QComboBox::showPopup();
}

void ComboBox::keyPressEvent(QKeyEvent* evento) {
    if (!digita(*evento)) QComboBox::keyPressEvent(evento);
}

bool ComboBox::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress && digita(*static_cast<QKeyEvent*>(evento))) return true;
    return QComboBox::eventFilter(oggetto, evento);
}

bool ComboBox::digita(const QKeyEvent& evento) {
    constexpr quint64 pausa = 2000;
    const QString testo = evento.text();
    const bool indietro = evento.key() == Qt::Key_Backspace && !digitato_.isEmpty();
    const bool cerca = testo.size() == 1 && tasti_.contains(testo) &&
                       (evento.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
    if (!ricerca_ || (!cerca && !indietro)) return false;
    if (!view()->isVisible()) showPopup();
    if (evento.timestamp() - ultimo_tasto_ > pausa) digitato_.clear();
    ultimo_tasto_ = evento.timestamp();
    if (indietro) {
        digitato_.chop(1);
    } else {
        digitato_ += testo;
    }
    const int voce = digitato_.isEmpty() ? -1 : ricerca_(digitato_);
    if (voce < 0) return true;
    const QModelIndex trovata = model()->index(voce, modelColumn(), rootModelIndex());
    view()->setCurrentIndex(trovata);
    view()->scrollTo(trovata, QAbstractItemView::PositionAtCenter);
    return true;
}

void ComboBox::spiega(std::function<QString(int)> spiegazione) {
    spiegazione_ = std::move(spiegazione);
    setModel(new VociSpiegate(this));
    connect(this, &QComboBox::highlighted, this,
            [this](int indice) { Q_EMIT Spiegato(this->spiegazione(indice)); });
    connect(this, &QComboBox::currentIndexChanged, this, [this](int indice) {
        if (hasFocus()) Q_EMIT Spiegato(this->spiegazione(indice));
    });
}

QString ComboBox::spiegazione(int indice) const {
    return spiegazione_ && indice >= 0 && indice < count() ? spiegazione_(indice) : QString();
}

void ComboBox::hidePopup() {
    QComboBox::hidePopup();
    if (spiegazione_) Q_EMIT Spiegato(hasFocus() ? spiegazione(currentIndex()) : QString());
}

void ComboBox::focusInEvent(QFocusEvent* evento) {
    QComboBox::focusInEvent(evento);
    // Behind a box that is put away stands what the box, or the job before it, came to.
    const bool riaperta = evento->reason() == Qt::ActiveWindowFocusReason;
    if (spiegazione_ && !riaperta) Q_EMIT Spiegato(spiegazione(currentIndex()));
}

void ComboBox::focusOutEvent(QFocusEvent* evento) {
    QComboBox::focusOutEvent(evento);
    // The list that opens takes the focus away and is still this control's.
    if (spiegazione_ && evento->reason() != Qt::PopupFocusReason) Q_EMIT Spiegato(QString());
}

void ComboBox::resizeEvent(QResizeEvent* evento) {
    QComboBox::resizeEvent(evento);
    adatta();
}

bool ComboBox::event(QEvent* evento) {
    if (evento->type() == QEvent::ToolTip && spiegazione_) {
        QToolTip::showText(static_cast<QHelpEvent*>(evento)->globalPos(),
                           spiegazione(currentIndex()), this);
        return true;
    }
    const bool esito = QComboBox::event(evento);
    if (evento->type() == QEvent::Polish || evento->type() == QEvent::FontChange) adatta();
    return esito;
}

void ComboBox::adatta() {
    // Long type names are set narrower rather than cut off.
    const int freccia = scalato(30, scala(this));
    QFont carattere = font();
    carattere.setStretch(100);
    const int largo = QFontMetrics(carattere).horizontalAdvance(currentText());
    const int posto = width() - freccia;
    const int stretto = largo > posto && posto > 0 ? qMax(70, posto * 100 / largo) : 100;
    if (stretto != font().stretch()) {
        carattere.setStretch(stretto);
        setFont(carattere);
    }
}

Image::Image(const QString& risorsa, QSize misura, QWidget* padre)
    : QAbstractButton(padre),
      disegno_(std::make_unique<Disegno>(risorsa)),
      misura_(misura),
      riposo_(Qt::transparent),
      sopra_(Qt::transparent) {
    parla_per<Image, Figura>();
    setFocusPolicy(Qt::TabFocus);
    setAutoFillBackground(false);
    connect(this, &QAbstractButton::pressed, this, [this] { update(); });
}

Image::~Image() = default;

void Image::set_sfondi(const QColor& riposo, const QColor& sopra) {
    riposo_ = riposo;
    sopra_ = sopra;
    solleva(rilievo_);
}

void Image::solleva(bool su) {
    rilievo_ = su;
    QPalette tavolozza = palette();
    tavolozza.setColor(QPalette::Window, su ? sopra_ : riposo_);
    setPalette(tavolozza);
    update();
}

void Image::a_riposo() {
    solleva(false);
}

void Image::enterEvent(QEnterEvent* evento) {
    if (isEnabled()) solleva(true);
    QAbstractButton::enterEvent(evento);
}

void Image::leaveEvent(QEvent* evento) {
    solleva(false);
    QAbstractButton::leaveEvent(evento);
}

void Image::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) {
        // A key held down gives its command once.
        if (!evento->isAutoRepeat()) click();
        return;
    }
    QAbstractButton::keyPressEvent(evento);
}

void Image::paintEvent(QPaintEvent* /*evento*/) {
    QPainter pittore(this);
    pittore.setRenderHint(QPainter::Antialiasing);
    const QRectF bordo = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal f = scala(this);
    const qreal angoli = 4 * f;
    const bool visibile = riposo_.alpha() > 0;
    if (visibile) {
        pittore.setPen(rilievo_ || hasFocus() ? QPen(QColor(0, 0, 128), 1) : QPen(Qt::NoPen));
        pittore.setBrush(palette().color(QPalette::Window));
        pittore.drawRoundedRect(bordo, angoli, angoli);
        if (rilievo_ && !isDown()) {
            pittore.setPen(QPen(QColor(0, 0, 128, 150), 2 * f));
            const qreal y = height() - 1.5 * f;
            pittore.drawLine(QPointF(angoli, y), QPointF(width() - angoli, y));
        }
    }
    const QSize misura = misura_ * f;
    const QSize resto = (size() - misura) / 2;
    const QPointF angolo(resto.width(), resto.height());
    const QPointF giu = isDown() ? QPointF(f, f) : QPointF(0, 0);
    disegno_->dipingi(pittore, QRectF(angolo + giu, QSizeF(misura)));
    if (hasFocus() && !visibile) {
        pittore.setBrush(Qt::NoBrush);
        pittore.setPen(QPen(QColor(224, 123, 0), 1, Qt::DotLine));
        pittore.drawRoundedRect(bordo, angoli, angoli);
    }
}

EtichettaValore::EtichettaValore(QWidget* padre) : QLabel(padre) {
    parla_per_scritte();
}

void EtichettaValore::paintEvent(QPaintEvent* evento) {
    const int largo = fontMetrics().horizontalAdvance(text());
    const int m = margin();
    const QRect dove = contentsRect().adjusted(m, m, -m, -m);
    const int posto = dove.width();
    if (largo <= posto || posto <= 0) {
        QLabel::paintEvent(evento);
        return;
    }
    constexpr int piu_stretto = 70;
    QPainter pittore(this);
    drawFrame(&pittore);
    QFont stretto = font();
    stretto.setStretch(qMax(piu_stretto, posto * 100 / largo));
    pittore.setFont(stretto);
    const QString testo =
        QFontMetrics(stretto, this).elidedText(text(), Qt::ElideRight, posto, Qt::TextSingleLine);
    style()->drawItemText(&pittore, dove, static_cast<int>(alignment()), palette(), isEnabled(),
                          testo, foregroundRole());
}

Frame::Frame(const QString& didascalia, QWidget* padre) : QFrame(padre), didascalia_(didascalia) {
    parla_per<Frame, Gruppo>();
    setAccessibleName(didascalia.trimmed());
}

void Frame::set_caption(const QString& testo) {
    didascalia_ = testo;
    setAccessibleName(testo.trimmed());
    update();
}

void Frame::paintEvent(QPaintEvent* evento) {
    QFrame::paintEvent(evento);
    QPainter pittore(this);
    if (copre_) pittore.fillRect(rect(), fondo_);
    if (!bordo_) return;
    pittore.setRenderHint(QPainter::Antialiasing);
    const QRectF cornice(1.5, 1.5, width() - 2, height() - 2);
    const qreal f = scala(this);
    pittore.setPen(QPen(linea_, 1));
    pittore.setBrush(fondo_);
    pittore.drawRoundedRect(cornice, 4 * f, 4 * f);
    if (didascalia_.isEmpty()) return;
    QFont carattere = font();
    carattere.setPixelSize(11);
    carattere.setBold(true);
    pittore.setFont(scalato(carattere, f, this));
    pittore.setPen(titolo_);
    const int rientro = scalato(9, f);
    pittore.drawText(QRect(rientro, scalato(3, f), width() - 2 * rientro, scalato(16, f)),
                     Qt::AlignLeft | Qt::AlignVCenter, didascalia_.trimmed());
}

ListBox::ListBox(QWidget* padre) : QListWidget(padre) {
    connect(this, &QListWidget::itemClicked, this, [this] { Q_EMIT Click(); });
}

void ListBox::keyPressEvent(QKeyEvent* evento) {
    const int prima = currentRow();
    QListWidget::keyPressEvent(evento);
    const bool conferma = evento->key() == Qt::Key_Space || evento->key() == Qt::Key_Return;
    if (currentRow() >= 0 && (currentRow() != prima || conferma)) Q_EMIT Click();
}

UpDown::UpDown(QWidget* padre) : QSpinBox(padre) {
    setRange(1, 999);
    // The number has a label of its own: what is typed shows there.
    lineEdit()->hide();
    setKeyboardTracking(false);
    setContextMenuPolicy(Qt::NoContextMenu);
    lineEdit()->setContextMenuPolicy(Qt::NoContextMenu);
}

void UpDown::stepBy(int passi) {
    digitato_.clear();
    QSpinBox::stepBy(passi);
}

bool UpDown::event(QEvent* evento) {
    if (evento->type() == QEvent::ShortcutOverride) {
        evento->ignore();
        return false;
    }
    return QSpinBox::event(evento);
}

void UpDown::focusOutEvent(QFocusEvent* evento) {
    digitato_.clear();
    QSpinBox::focusOutEvent(evento);
}

void UpDown::digita(const QString& cifre) {
    const int numero = cifre.toInt();
    digitato_ = numero < minimum() ? QString() : cifre;
    if (!digitato_.isEmpty()) setValue(numero);
}

void UpDown::keyPressEvent(QKeyEvent* evento) {
    const int tasto = evento->key();
    const bool cifra = tasto >= Qt::Key_0 && tasto <= Qt::Key_9 &&
                       (evento->modifiers() & ~Qt::KeypadModifier) == 0;
    if (tasto == Qt::Key_PageUp || tasto == Qt::Key_PageDown) {
        stepBy(tasto == Qt::Key_PageUp ? 1 : -1);
    } else if (tasto == Qt::Key_Up || tasto == Qt::Key_Down) {
        QSpinBox::keyPressEvent(evento);
    } else if (cifra) {
        const QString una(QChar('0' + tasto - Qt::Key_0));
        // A digit that makes the number too large begins another one.
        digita((digitato_ + una).toInt() <= maximum() ? digitato_ + una : una);
    } else if (tasto == Qt::Key_Backspace && !digitato_.isEmpty()) {
        digita(digitato_.chopped(1));
    } else {
        if (!solo_modificatore(*evento)) digitato_.clear();
        evento->ignore();
    }
}

}  // namespace platform
