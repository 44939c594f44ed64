// Draws the program's drawings as pictures: the icon in the sizes that desktops ask for, all of
// them for a system that shows pictures only.
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

namespace {

bool dipingi(const QString& file, const QString& cartella, const QString& misura) {
    QSvgRenderer disegno(file);
    if (!disegno.isValid()) return false;
    const bool volte = misura.endsWith('x');
    const QSize grande = volte ? disegno.defaultSize() * misura.chopped(1).toDouble()
                               : QSize(misura.toInt(), misura.toInt());
    QImage immagine(grande, QImage::Format_ARGB32_Premultiplied);
    immagine.fill(Qt::transparent);
    QPainter pittore(&immagine);
    pittore.setRenderHint(QPainter::Antialiasing);
    disegno.render(&pittore);
    pittore.end();
    const QString segno = misura == QLatin1String("1x") ? QString() : '@' + misura;
    const QString nome = volte ? QFileInfo(file).baseName() + segno : misura;
    return immagine.save(cartella + '/' + nome + ".png", "PNG", 0);
}

}  // namespace

/// disegni CARTELLA MISURA... -- DISEGNO.svg...: writes each drawing in each measure: "48" is
/// CARTELLA/48.png, that wide and high; "1.5x" is <drawing>@1.5x.png, so many times its own size.
int main(int argc, char** argv) {
    QStringList misure;
    int i = 2;
    while (i < argc && qstrcmp(argv[i], "--") != 0) misure << QString::fromLocal8Bit(argv[i++]);
    if (i >= argc) return 2;
    for (++i; i < argc; ++i) {
        for (const QString& misura : misure) {
            if (!dipingi(QString::fromLocal8Bit(argv[i]), QString::fromLocal8Bit(argv[1]), misura))
                return 1;
        }
    }
    return 0;
}
