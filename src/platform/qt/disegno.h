// A drawing among the resources, shown in any size.
#pragma once

#include <memory>

#include <QString>

class QPainter;
class QRectF;

namespace platform {

class Disegno {
public:
    explicit Disegno(const QString& risorsa);
    Disegno(const Disegno&) = delete;
    Disegno& operator=(const Disegno&) = delete;
    ~Disegno();
    void dipingi(QPainter& pittore, const QRectF& dove) const;

private:
    struct Interno;
    std::unique_ptr<Interno> interno_;
};

}  // namespace platform
