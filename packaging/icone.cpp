// Draws the program's icon in the sizes that desktops ask for.
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

/// icone DISEGNO.svg CARTELLA LATO...: writes CARTELLA/<lato>.png for each side.
int main(int argc, char** argv) {
    if (argc < 4) return 2;
    QSvgRenderer disegno(QString::fromLocal8Bit(argv[1]));
    if (!disegno.isValid()) return 1;
    for (int i = 3; i < argc; ++i) {
        const int lato = QString::fromLocal8Bit(argv[i]).toInt();
        QImage immagine(lato, lato, QImage::Format_ARGB32_Premultiplied);
        immagine.fill(Qt::transparent);
        QPainter pennello(&immagine);
        pennello.setRenderHint(QPainter::Antialiasing);
        disegno.render(&pennello);
        pennello.end();
        const QString nome =
            QString::fromLocal8Bit(argv[2]) + QLatin1Char('/') + QString::number(lato) + ".png";
        if (!immagine.save(nome, "PNG", 0)) return 1;
    }
    return 0;
}
