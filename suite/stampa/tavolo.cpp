#include "stampa/tavolo.h"

#include <algorithm>

#include <QImageReader>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace schedine {

namespace {

constexpr double passo_ingrandimento = 1.25;
constexpr double minimo = 0.1;
constexpr double massimo = 1.5;
constexpr int aria = 8;
const QColor colore_casella("#0B3FB5");
const QColor colore_prima("#D9534F");
const QColor colore_clic("#E07B00");

}  // namespace

Tavolo::Tavolo(QWidget* padre) : QWidget(padre) {
    setObjectName("tavolo");
    setAccessibleName("La schedina con le sue caselle");
    setCursor(Qt::CrossCursor);
    misura();
}

bool Tavolo::immagine(const QString& file) {
    // More than a screen and a clicking hand can tell apart.
    constexpr int lato_massimo = 3000;
    QImageReader lettore(file);
    lettore.setAutoTransform(true);
    const QSize misura = lettore.size();
    if (misura.isValid() && std::max(misura.width(), misura.height()) > lato_massimo) {
        lettore.setScaledSize(misura.scaled(lato_massimo, lato_massimo, Qt::KeepAspectRatio));
    }
    QImage letta = lettore.read();
    if (letta.isNull()) return false;
    immagine_ = std::move(letta);
    update();
    return true;
}

void Tavolo::mostra(const Modulo& modulo) {
    modulo_ = modulo;
    misura();
}

void Tavolo::punti(const std::vector<Punto>& punti) {
    punti_ = punti;
    update();
}

void Tavolo::misura() {
    setFixedSize(qRound(modulo_.foglio.x * al_decimo_) + 2 * aria,
                 qRound(modulo_.foglio.y * al_decimo_) + 2 * aria);
    update();
}

void Tavolo::ingrandisci(int passi) {
    for (; passi > 0; --passi) al_decimo_ = std::min(massimo, al_decimo_ * passo_ingrandimento);
    for (; passi < 0; ++passi) al_decimo_ = std::max(minimo, al_decimo_ / passo_ingrandimento);
    misura();
}

QPointF Tavolo::sul_tavolo(Punto p) const {
    return {p.x * al_decimo_ + aria, p.y * al_decimo_ + aria};
}

void Tavolo::paintEvent(QPaintEvent* /*evento*/) {
    QPainter pittore(this);
    pittore.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QRectF carta = QRectF(rect()).adjusted(aria, aria, -aria, -aria);
    pittore.fillRect(carta, Qt::white);
    if (!immagine_.isNull()) pittore.drawImage(carta, immagine_);
    constexpr int numeri = 90;
    const double largo = modulo_.segno.x * al_decimo_;
    const double alto = modulo_.segno.y * al_decimo_;
    const auto casella = [&](Punto p, const QColor& colore) {
        pittore.setPen(QPen(colore, 1.2));
        const QPointF c = sul_tavolo(p);
        pittore.drawRect(QRectF(c.x() - largo / 2, c.y() - alto / 2, largo, alto));
    };
    for (std::size_t k = 0; k < modulo_.pannelli.size(); ++k) {
        // The first number stands out, so that the order of the numbers is seen.
        for (int n = 1; n <= numeri; ++n) {
            casella(cella(modulo_, k, n), n == 1 ? colore_prima : colore_casella);
        }
    }
    const auto posto = [](Posto p) {
        return Punto{static_cast<double>(p.x), static_cast<double>(p.y)};
    };
    for (const PostoRuota& r : modulo_.ruote) casella(posto(r.dove), colore_casella);
    for (const PostoPosta& p : modulo_.poste) casella(posto(p.dove), colore_casella);
    pittore.setPen(QPen(colore_clic, 2));
    constexpr int raggio = 5;
    for (const Punto& p : punti_) pittore.drawEllipse(sul_tavolo(p), raggio, raggio);
}

void Tavolo::mousePressEvent(QMouseEvent* evento) {
    if (evento->button() != Qt::LeftButton || !al_clic) return;
    const QPointF dove = evento->position() - QPointF(aria, aria);
    al_clic({dove.x() / al_decimo_, dove.y() / al_decimo_});
}

void Tavolo::wheelEvent(QWheelEvent* evento) {
    if (!evento->modifiers().testFlag(Qt::ControlModifier)) {
        QWidget::wheelEvent(evento);
        return;
    }
    ingrandisci(evento->angleDelta().y() > 0 ? 1 : -1);
}

}  // namespace schedine
