#include "platform/qt/carattere_stampa.h"

#include <algorithm>

#include <QGlyphRun>
#include <QPainter>

#include "platform/qt/desktop.h"

namespace platform {

namespace {

/// Side of the square in which the font is measured, large enough for its own design units.
constexpr int lato_misura = 2048;

bool semplice(char c) {
    return c >= ' ' && c <= '~';
}

QFontMetricsF misura(bool grassetto) {
    QFont f = CarattereStampa::carattere(grassetto);
    f.setPixelSize(lato_misura);
    return QFontMetricsF(f);
}

}  // namespace

bool testo_semplice(std::string_view testo) {
    return std::all_of(testo.begin(), testo.end(), semplice);
}

QFont CarattereStampa::carattere(bool grassetto) {
    QFont f;
    f.setFamilies({"Courier New", "Liberation Mono"});
    f.setStyleHint(QFont::TypeWriter);
    f.setFixedPitch(true);
    f.setKerning(false);
    // Hinted advances are whole device dots, and the column would drift with every letter.
    f.setHintingPreference(QFont::PreferNoHinting);
    f.setBold(grassetto);
    return f;
}

CarattereStampa::CarattereStampa(bool grassetto)
    : metrica_(misura(grassetto)),
      ascendente_(metrica_.ascent() / lato_misura),
      altezza_((metrica_.ascent() + metrica_.descent()) / lato_misura) {
    for (char c = ' '; c <= '~'; ++c) {
        larghezze_[static_cast<unsigned char>(c)] =
            metrica_.horizontalAdvance(QLatin1Char(c)) / lato_misura;
    }
}

double CarattereStampa::larghezza(char lettera) const {
    return larghezze_[static_cast<unsigned char>(lettera)];
}

double CarattereStampa::larghezza(std::string_view testo) const {
    if (!testo_semplice(testo))
        return metrica_.horizontalAdvance(q(std::string(testo))) / lato_misura;
    double largo = 0;
    for (const char c : testo) largo += larghezza(c);
    return largo;
}

void Scrittura::cambia(const QFont& carattere) {
    carattere_ = QRawFont::fromFont(carattere);
    QString tutte;
    for (char c = ' '; c <= '~'; ++c) tutte += QLatin1Char(c);
    const QList<quint32> indici = carattere_.glyphIndexesForString(tutte);
    std::copy(indici.begin(), indici.end(), glifi_.begin() + ' ');
}

void Scrittura::aggiungi(char lettera, QPointF dove) {
    // A blank leaves no ink, and whoever reads the page knows it by the gap.
    if (lettera == ' ') return;
    scelti_.push_back(glifi_[static_cast<unsigned char>(lettera)]);
    posti_.push_back(dove);
}

void Scrittura::disegna(QPainter& pittore) {
    if (scelti_.empty()) return;
    QGlyphRun scritta;
    scritta.setRawFont(carattere_);
    scritta.setRawData(scelti_.data(), posti_.data(), static_cast<int>(scelti_.size()));
    pittore.drawGlyphRun({}, scritta);
    scelti_.clear();
    posti_.clear();
}

}  // namespace platform
