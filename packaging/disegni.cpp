// Draws the program's drawings for a system that shows pictures only.
#include <cmath>

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

namespace {

bool dipingi(const QString& disegno, const QString& cartella, const QString& fattore) {
    QSvgRenderer pennello(disegno);
    if (!pennello.isValid()) return false;
    const double volte = fattore.toDouble();
    const QSize misura = pennello.defaultSize();
    QImage immagine(static_cast<int>(std::lround(misura.width() * volte)),
                    static_cast<int>(std::lround(misura.height() * volte)),
                    QImage::Format_ARGB32_Premultiplied);
    immagine.fill(Qt::transparent);
    QPainter pittore(&immagine);
    pittore.setRenderHint(QPainter::Antialiasing);
    pennello.render(&pittore);
    pittore.end();
    const QString segno = fattore == QLatin1String("1") ? QString() : QString("@%1x").arg(fattore);
    return immagine.save(cartella + '/' + QFileInfo(disegno).baseName() + segno + ".png", "PNG", 0);
}

}  // namespace

/// disegni CARTELLA FATTORE... -- DISEGNO.svg...: writes each drawing in each factor of its size.
int main(int argc, char** argv) {
    QStringList fattori;
    int i = 2;
    while (i < argc && qstrcmp(argv[i], "--") != 0) fattori << QString::fromLocal8Bit(argv[i++]);
    if (i >= argc) return 2;
    for (++i; i < argc; ++i) {
        for (const QString& fattore : fattori) {
            if (!dipingi(QString::fromLocal8Bit(argv[i]), QString::fromLocal8Bit(argv[1]), fattore))
                return 1;
        }
    }
    return 0;
}
