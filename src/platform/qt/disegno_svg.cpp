#include <QSvgRenderer>

#include "platform/qt/disegno.h"

namespace platform {

struct Disegno::Interno {
    explicit Interno(const QString& risorsa) : disegno(risorsa) {}
    QSvgRenderer disegno;
};

Disegno::Disegno(const QString& risorsa) : interno_(std::make_unique<Interno>(risorsa)) {}

Disegno::~Disegno() = default;

void Disegno::dipingi(QPainter& pittore, const QRectF& dove) const {
    interno_->disegno.render(&pittore, dove);
}

}  // namespace platform
