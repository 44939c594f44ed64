#include "stampa/anteprima.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include "platform/qt/printer_pittore.h"
#include "platform/qt/scala.h"

namespace schedine {

namespace {

constexpr std::array ingrandimenti = {10, 15, 25, 33, 50, 67, 75, 100, 125, 150, 200, 300, 400};
constexpr int vero = 100;
constexpr int aria = 12;
constexpr double al_millimetro_decimi = 10;
constexpr double millimetri_al_pollice = 25.4;
const QColor casella_vuota("#9FB0C6");

}  // namespace

QFont carattere_segni() {
    constexpr int corpo = 16;
    QFont carattere = QApplication::font();
    carattere.setPixelSize(corpo);
    carattere.setBold(true);
    return carattere;
}

/// The sheet of paper, with a shadow on the desk.
class Anteprima::Foglio : public QWidget {
public:
    explicit Foglio(Anteprima* vista) : QWidget(vista), vista_(*vista) { setObjectName("foglio"); }
    double pixel_al_millimetro = 1;

protected:
    void paintEvent(QPaintEvent* /*evento*/) override {
        if (vista_.lavoro_ == nullptr) return;
        QPainter pittore(this);
        pittore.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        const QRectF carta = QRectF(rect()).adjusted(aria, aria, -aria, -aria);
        pittore.fillRect(carta.translated(3, 3), QColor(0, 0, 0, 60));
        pittore.fillRect(carta, Qt::white);
        pittore.setClipRect(carta);
        pittore.translate(carta.topLeft());
        caselle(pittore);
        const double scala = pixel_al_millimetro * millimetri_al_pollice / platform::dot_al_pollice;
        pittore.scale(scala, scala);
        const Punto misura = vista_.lavoro_->foglio();
        platform::PrinterVideo pagina(
            pittore, {misura.x / al_millimetro_decimi, misura.y / al_millimetro_decimi});
        if (vista_.lavoro_->disegna(pagina, vista_.pagina_)) pagina.EndDoc();
    }

private:
    /// The cells of a slip of the player's, which the screen shows and the printer leaves alone.
    void caselle(QPainter& pittore) const {
        const Opzioni& o = vista_.lavoro_->opzioni();
        if (o.genere != Genere::modulo) return;
        constexpr int numeri = 90;
        const Punto segno = segno_stampato(o.modulo);
        pittore.setPen(QPen(casella_vuota, 0));
        for (std::size_t k = 0; k < o.modulo.pannelli.size(); ++k) {
            for (int n = 1; n <= numeri; ++n) {
                const Punto p = sul_foglio(o.modulo, cella(o.modulo, k, n));
                const double u = pixel_al_millimetro / al_millimetro_decimi;
                pittore.drawRect(QRectF((p.x - segno.x / 2) * u, (p.y - segno.y / 2) * u,
                                        segno.x * u, segno.y * u));
            }
        }
    }

    Anteprima& vista_;
};

Anteprima::Anteprima(QWidget* padre) : QScrollArea(padre) {
    setObjectName("anteprima");
    setAccessibleName("Anteprima di stampa");
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::NoFrame);
    foglio_ = new Foglio(this);
    setWidget(foglio_);
    viewport()->setAutoFillBackground(false);
    // The style would paint the corner between the bars in a colour of no skin.
    setCornerWidget(new QWidget(this));
    foglio_->setAutoFillBackground(false);
    setFocusPolicy(Qt::StrongFocus);
    setProperty(platform::Scala::rotella_sua, true);
    invito_ = new QLabel(this);
    invito_->setObjectName("lblinvito");
    invito_->setProperty("invito", true);
    invito_->setAlignment(Qt::AlignCenter);
    invito_->setTextFormat(Qt::PlainText);
    invito_->setWordWrap(true);
    invito_->setAttribute(Qt::WA_TransparentForMouseEvents);
    invito_->hide();
}

void Anteprima::invita(const QString& testo) {
    invito_->setText(testo);
    invito_->setVisible(!testo.isEmpty());
    centra_invito();
}

void Anteprima::centra_invito() {
    // Lines of a length that is easily read, whatever the window's.
    constexpr int caratteri = 60;
    const int largo =
        std::min(width() - 2 * aria, caratteri * invito_->fontMetrics().averageCharWidth());
    invito_->setGeometry((width() - largo) / 2, 0, largo, height());
}

double Anteprima::al_millimetro() const {
    constexpr double minimo = 60;
    constexpr double massimo = 400;
    double dot = screen()->physicalDotsPerInch();
    // A screen that tells no size, or none that can be, is taken for the usual one.
    if (!(dot >= minimo && dot <= massimo)) dot = screen()->logicalDotsPerInch();
    return dot / millimetri_al_pollice;
}

void Anteprima::mostra(Lavoro* lavoro, qint64 pagina) {
    lavoro_ = lavoro;
    pagina_ = pagina;
    misura();
    foglio_->update();
}

void Anteprima::misura() {
    if (lavoro_ == nullptr) {
        foglio_->resize(0, 0);
        return;
    }
    const Punto decimi = lavoro_->foglio();
    const double largo = decimi.x / al_millimetro_decimi * al_millimetro();
    const double alto = decimi.y / al_millimetro_decimi * al_millimetro();
    if (intero_) {
        const QSize posto = maximumViewportSize();
        const double scala =
            std::min((posto.width() - 2 * aria) / largo, (posto.height() - 2 * aria) / alto);
        ingrandimento_ = std::clamp(static_cast<int>(std::floor(scala * vero)),
                                    ingrandimenti.front(), ingrandimenti.back());
    }
    const double scala = static_cast<double>(ingrandimento_) / vero;
    foglio_->pixel_al_millimetro = al_millimetro() * scala;
    foglio_->resize(qRound(largo * scala) + 2 * aria, qRound(alto * scala) + 2 * aria);
    foglio_->update();
    Q_EMIT Ingrandito();
}

void Anteprima::ingrandisci(int passi) {
    intero_ = false;
    for (; passi > 0; --passi) {
        const auto* su =
            std::upper_bound(ingrandimenti.begin(), ingrandimenti.end(), ingrandimento_);
        if (su != ingrandimenti.end()) ingrandimento_ = *su;
    }
    for (; passi < 0; ++passi) {
        const auto* giu =
            std::lower_bound(ingrandimenti.begin(), ingrandimenti.end(), ingrandimento_);
        if (giu != ingrandimenti.begin()) ingrandimento_ = *(giu - 1);
    }
    misura();
}

void Anteprima::a_grandezza_vera() {
    intero_ = false;
    ingrandimento_ = vero;
    misura();
}

void Anteprima::intero(bool intero) {
    intero_ = intero;
    misura();
}

void Anteprima::resizeEvent(QResizeEvent* evento) {
    QScrollArea::resizeEvent(evento);
    centra_invito();
    if (intero_) misura();
}

void Anteprima::wheelEvent(QWheelEvent* evento) {
    if (!evento->modifiers().testFlag(Qt::ControlModifier)) {
        QScrollArea::wheelEvent(evento);
        return;
    }
    ingrandisci(evento->angleDelta().y() > 0 ? 1 : -1);
    evento->accept();
}

void Anteprima::keyPressEvent(QKeyEvent* evento) {
    // A page that is seen whole has nothing to scroll: the keys turn it.
    const QScrollBar* barra = verticalScrollBar();
    const bool giu = evento->key() == Qt::Key_PageDown && barra->value() == barra->maximum();
    const bool su = evento->key() == Qt::Key_PageUp && barra->value() == barra->minimum();
    if (giu || su) {
        Q_EMIT Pagina(giu ? 1 : -1);
        return;
    }
    QScrollArea::keyPressEvent(evento);
}

}  // namespace schedine
