#include "crossword/tabellone.h"

#include <QApplication>

#include "platform/qt/scala.h"

namespace crossword {

namespace {

constexpr int colonne = 10;
constexpr int righe = 9;

}  // namespace

Tabellone::Tabellone(const std::array<QPushButton*, 91>& numeri)
    : QObject(numeri[1]->parentWidget()),
      numeri_(numeri),
      riquadro_(numeri[1]->parentWidget()),
      primo_(numeri[1]->geometry()),
      lato_(primo_.width()) {
    for (QPushButton* numero : numeri_) numero->setProperty(platform::Scala::da_se, true);
    riquadro_->installEventFilter(this);
}

bool Tabellone::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::Resize || evento->type() == platform::Scala::cambiata()) {
        disponi();
    }
    return QObject::eventFilter(oggetto, evento);
}

void Tabellone::disponi() {
    const qreal f = platform::scala(riquadro_);
    const int margine = platform::scalato(primo_.x(), f);
    const int titolo = platform::scalato(primo_.y(), f);
    // The last row stands nearer to the edge than the first to the title.
    const QSize posto = riquadro_->size() - QSize(2 * margine, titolo + margine);
    const int lato = qMin(posto.width() / colonne, posto.height() / righe);
    const QPoint angolo(margine + (posto.width() - lato * colonne) / 2,
                        titolo + (posto.height() - lato * righe) / 2);
    for (int i = 1; i < static_cast<int>(numeri_.size()); ++i) {
        QPushButton* numero = numeri_[static_cast<std::size_t>(i)];
        const QPoint cella((i - 1) % colonne, (i - 1) / colonne);
        numero->setGeometry(QRect(angolo + cella * lato, QSize(lato, lato)));
    }
    const bool come_detto = f == 1 && lato == primo_.width();
    if (lato == lato_ && come_detto == come_detto_) return;
    lato_ = lato;
    come_detto_ = come_detto;
    const qreal cresce = qreal(lato) / primo_.width();
    for (QPushButton* numero : numeri_) {
        numero->setFont(come_detto ? QFont()
                                   : platform::scalato(QApplication::font(), cresce, numero));
    }
}

}  // namespace crossword
