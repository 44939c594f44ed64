// How well a text can be read, measured on what was painted.
#pragma once

#include <cmath>
#include <map>

#include <QImage>

namespace support {

/// Relative luminance of a colour, by the rule of the guidelines for accessible contents.
inline double luminanza(QRgb colore) {
    const auto lineare = [](int canale) {
        const double c = canale / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * lineare(qRed(colore)) + 0.7152 * lineare(qGreen(colore)) +
           0.0722 * lineare(qBlue(colore));
}

inline double contrasto(QRgb a, QRgb b) {
    const double la = luminanza(a);
    const double lb = luminanza(b);
    return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

/// Contrast between the commonest colour and the one that stands out most.
inline double contrasto_del_testo(const QImage& immagine) {
    std::map<QRgb, int> quanti;
    for (int y = 0; y < immagine.height(); ++y) {
        for (int x = 0; x < immagine.width(); ++x) ++quanti[immagine.pixel(x, y)];
    }
    QRgb fondo = 0;
    int massimo = 0;
    for (const auto& [colore, n] : quanti) {
        if (n > massimo) {
            massimo = n;
            fondo = colore;
        }
    }
    double migliore = 1;
    for (const auto& voce : quanti) migliore = qMax(migliore, contrasto(voce.first, fondo));
    return migliore;
}

}  // namespace support
