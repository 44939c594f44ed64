#include <vector>

#include <QImage>
#include <QPainter>

#include "platform/qt/disegno.h"

namespace platform {

/// Pictures of one drawing, the smallest first.
struct Disegno::Interno {
    std::vector<QImage> immagini;
};

Disegno::Disegno(const QString& risorsa) : interno_(std::make_unique<Interno>()) {
    const qsizetype punto = risorsa.lastIndexOf('.');
    for (const char* segno : {"", "@1.5x", "@2x", "@3x", "@4x"}) {
        QImage immagine;
        if (immagine.load(risorsa.left(punto) + segno + risorsa.mid(punto), "PNG"))
            interno_->immagini.push_back(std::move(immagine));
    }
}

Disegno::~Disegno() = default;

void Disegno::dipingi(QPainter& pittore, const QRectF& dove) const {
    if (interno_->immagini.empty()) return;
    const qreal serve = dove.width() * pittore.device()->devicePixelRatioF();
    const QImage* scelta = &interno_->immagini.back();
    // From a larger one, so that nothing is blurred.
    for (const QImage& immagine : interno_->immagini) {
        if (immagine.width() < serve) continue;
        scelta = &immagine;
        break;
    }
    pittore.save();
    pittore.setRenderHint(QPainter::SmoothPixmapTransform);
    pittore.drawImage(dove, *scelta);
    pittore.restore();
}

}  // namespace platform
