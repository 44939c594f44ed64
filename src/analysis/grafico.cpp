#include "analysis/grafico.h"

#include <cmath>

#include <QHelpEvent>
#include <QLocale>
#include <QPainter>
#include <QToolTip>

#include "platform/qt/scala.h"

namespace analysis {

namespace {

/// Measures at the scale of the window.
struct Misure {
    explicit Misure(const QWidget* w) : f(platform::scala(w)) {}
    qreal f;
    int bordo = in(10);
    int passo = in(22);
    int spessore = in(12);
    int altezza_ritte = in(170);
    int sotto = in(20);   ///< for the names of standing bars
    int a_lato = in(44);  ///< for the scale of standing bars
    [[nodiscard]] int in(int lunghezza) const { return platform::scalato(lunghezza, f); }
};

/// The least "round" number that is not below.
double tondo_sopra(double valore) {
    if (!(valore > 0)) return 1;
    const double decina = std::pow(10, std::floor(std::log10(valore)));
    for (const double volte : {1.0, 2.0, 4.0, 5.0, 10.0}) {
        if (valore <= volte * decina) return volte * decina;
    }
    return valore;
}

}  // namespace

Grafico::Grafico(Qt::Orientation verso, QWidget* padre) : QWidget(padre), verso_(verso) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize Grafico::sizeHint() const {
    const auto quante = static_cast<int>(voci_.size());
    const Misure m(this);
    return {m.in(400), verso_ == Qt::Vertical ? m.altezza_ritte : 2 * m.bordo + quante * m.passo};
}

void Grafico::mostra(const QString& titolo, const QList<Voce>& voci) {
    voci_ = voci;
    QStringList detti;
    for (const Voce& voce : voci) detti << voce.nome + ": " + voce.testo;
    setAccessibleName(titolo);
    setAccessibleDescription(detti.join("; "));
    updateGeometry();
    update();
}

QRect Grafico::campo() const {
    const Misure m(this);
    return rect().adjusted(m.bordo + m.a_lato, m.bordo + m.in(4), -m.bordo, -m.bordo - m.sotto);
}

int Grafico::voce_a(QPoint punto) const {
    const auto quante = static_cast<int>(voci_.size());
    if (quante == 0) return -1;
    const Misure m(this);
    const int quale = verso_ == Qt::Horizontal
                          ? (punto.y() - m.bordo) / m.passo
                          : (punto.x() - campo().left()) * quante / qMax(1, campo().width());
    const bool dentro =
        verso_ == Qt::Horizontal ? punto.y() >= m.bordo : punto.x() >= campo().left();
    return dentro && quale < quante ? quale : -1;
}

bool Grafico::event(QEvent* evento) {
    if (evento->type() == platform::Scala::cambiata()) updateGeometry();
    if (evento->type() != QEvent::ToolTip) return QWidget::event(evento);
    const auto* aiuto = static_cast<QHelpEvent*>(evento);
    if (const int quale = voce_a(aiuto->pos()); quale >= 0) {
        QToolTip::showText(aiuto->globalPos(), voci_[quale].nome + ": " + voci_[quale].testo, this);
    } else {
        QToolTip::hideText();
    }
    return true;
}

void Grafico::paintEvent(QPaintEvent* /*evento*/) {
    QPainter pittore(this);
    pittore.setRenderHint(QPainter::Antialiasing);
    pittore.setPen(linea_);
    pittore.setBrush(fondo_);
    pittore.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    // Edges of bars fall on whole pixels, where smoothing would only blur them.
    pittore.setRenderHint(QPainter::Antialiasing, false);
    double massimo = 0;
    for (const Voce& voce : voci_) massimo = qMax(massimo, voce.valore);
    if (verso_ == Qt::Horizontal) {
        dipingi_distese(pittore, massimo);
    } else {
        dipingi_ritte(pittore, massimo);
    }
}

void Grafico::dipingi_distese(QPainter& pittore, double massimo) const {
    int nomi = 0;
    int valori = 0;
    for (const Voce& voce : voci_) {
        nomi = qMax(nomi, fontMetrics().horizontalAdvance(voce.nome));
        valori = qMax(valori, fontMetrics().horizontalAdvance(voce.testo));
    }
    const Misure m(this);
    const int sinistra = m.bordo + nomi + m.in(10);
    const int largo = qMax(1, width() - sinistra - valori - m.in(8) - m.bordo);
    int y = m.bordo;
    for (const Voce& voce : voci_) {
        pittore.setPen(scritta_);
        pittore.drawText(QRect(m.bordo, y, nomi, m.passo), Qt::AlignRight | Qt::AlignVCenter,
                         voce.nome);
        int barra = massimo > 0 ? qRound(voce.valore / massimo * largo) : 0;
        // Even the rarest result that can happen leaves a trace.
        if (voce.valore > 0) barra = qMax(1, barra);
        pittore.fillRect(sinistra, y + (m.passo - m.spessore) / 2, barra, m.spessore, barra_);
        pittore.drawText(QRect(sinistra + barra + m.in(8), y, valori + 2, m.passo),
                         Qt::AlignLeft | Qt::AlignVCenter, voce.testo);
        y += m.passo;
    }
}

void Grafico::dipingi_ritte(QPainter& pittore, double massimo) const {
    const QRect dove = campo();
    const Misure m(this);
    const double cima = tondo_sopra(massimo);
    for (int quarto = 0; quarto <= 2; ++quarto) {
        const int y = dove.bottom() - dove.height() * quarto / 2;
        pittore.setPen(linea_);
        pittore.drawLine(dove.left(), y, dove.right(), y);
        pittore.setPen(scritta_);
        pittore.drawText(QRect(m.bordo, y - m.in(9), m.a_lato - m.in(6), m.in(18)),
                         Qt::AlignRight | Qt::AlignVCenter,
                         QLocale(QLocale::Italian)
                             .toString(cima * quarto / 2, 'f', cima < 2 && quarto == 1 ? 1 : 0));
    }
    const auto quante = static_cast<int>(voci_.size());
    if (quante == 0) return;
    const auto x_di = [&](int i) { return dove.left() + dove.width() * i / quante; };
    // Every name that has room, and never a part of one.
    const int nome = fontMetrics().horizontalAdvance("0000") + m.in(12);
    const int ogni = qMax(1, (nome * quante + dove.width() - 1) / qMax(1, dove.width()));
    for (int i = 0; i < quante; ++i) {
        const int x = x_di(i);
        const int largo = x_di(i + 1) - x;
        const int vuoto = largo >= 6 ? largo / 5 : largo > 1 ? 1 : 0;
        int alto = qRound(voci_[i].valore / cima * dove.height());
        if (voci_[i].valore > 0) alto = qMax(1, alto);
        pittore.fillRect(x + vuoto / 2, dove.bottom() - alto, qMax(1, largo - vuoto), alto, barra_);
        if (i % ogni != 0) continue;
        pittore.setPen(scritta_);
        const QRect sua(x + largo / 2 - nome, dove.bottom() + m.in(3), 2 * nome, m.sotto);
        pittore.drawText(sua, Qt::AlignHCenter | Qt::AlignTop, voci_[i].nome);
    }
}

}  // namespace analysis
