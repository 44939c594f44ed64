#include "platform/qt/printer_pittore.h"

#include <algorithm>

#include <QPainter>

namespace platform {

namespace {

constexpr int unita_al_pollice_x = 12;
constexpr int unita_al_pollice_y = 6;
constexpr float millimetri_al_pollice = 25.4F;

/// Units of a length in ems.
float unita(double em, float corpo, int unita_al_pollice) {
    constexpr int punti_al_pollice = 72;
    return static_cast<float>(em) * corpo * static_cast<float>(unita_al_pollice) / punti_al_pollice;
}

QPointF punto(float x, float y) {
    return {static_cast<qreal>(x) * dot_al_pollice / unita_al_pollice_x,
            static_cast<qreal>(y) * dot_al_pollice / unita_al_pollice_y};
}

QRectF riquadro(float x1, float y1, float x2, float y2) {
    return QRectF(punto(x1, y1), punto(x2, y2)).normalized();
}

}  // namespace

PrinterPittore::PrinterPittore(Foglio foglio)
    : foglio_(foglio), caratteri_{CarattereStampa(false), CarattereStampa(true)} {}

float PrinterPittore::ScaleWidth() const {
    return static_cast<float>(foglio_.largo) / millimetri_al_pollice * unita_al_pollice_x;
}

float PrinterPittore::ScaleHeight() const {
    return static_cast<float>(foglio_.alto) / millimetri_al_pollice * unita_al_pollice_y;
}

const CarattereStampa& PrinterPittore::carattere() const {
    return caratteri_[FontBold ? 1 : 0];
}

float PrinterPittore::TextWidth(std::string_view testo) const {
    return unita(carattere().larghezza(testo), FontSize, unita_al_pollice_x);
}

float PrinterPittore::TextHeight(std::string_view /*testo*/) const {
    return unita(carattere().altezza(), FontSize, unita_al_pollice_y);
}

void PrinterPittore::dipingi_su(QPainter* pittore) {
    pittore_ = pittore;
    in_uso_.reset();
    scrittura_ = {};
}

bool PrinterPittore::dipinge() const {
    return pittore_ != nullptr && pittore_->isActive();
}

void PrinterPittore::prepara_carattere() {
    const Carattere voluto{FontSize, FontBold, FontItalic};
    if (in_uso_ == voluto) return;
    disegna_scritture();
    in_uso_ = voluto;
    QFont f = CarattereStampa::carattere(FontBold);
    f.setItalic(FontItalic);
    f.setPixelSize(std::max(1, qRound(FontSize * dot_al_punto)));
    scrittura_.cambia(f);
    pittore_->setFont(f);
}

void PrinterPittore::disegna_scritture() {
    if (!dipinge()) return;
    pittore_->setPen(Qt::black);
    scrittura_.disegna(*pittore_);
}

void PrinterPittore::disegna_testo(float x, float y, std::string_view testo) {
    // A grid from a file may be too large for a font to be left for its numbers.
    if (!dipinge() || FontSize <= 0) return;
    prepara_carattere();
    const float base = y + unita(carattere().ascendente(), FontSize, unita_al_pollice_y);
    QPointF dove = punto(x, base);
    if (!testo_semplice(testo)) {
        disegna_scritture();
        pittore_->drawText(dove,
                           QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size())));
        return;
    }
    for (const char lettera : testo) {
        // On whole dots, which are too small to be seen, a page takes half the room.
        scrittura_.aggiungi(lettera, dove.toPoint());
        dove.rx() += carattere().larghezza(lettera) * FontSize * dot_al_punto;
    }
}

void PrinterPittore::prepara_penna() {
    constexpr qreal penne_al_pollice = 600;
    const qreal spessore = DrawWidth * dot_al_pollice / penne_al_pollice;
    if (DrawWidth == 0) {
        pittore_->setPen(Qt::NoPen);
    } else {
        pittore_->setPen(QPen(Qt::black, spessore, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    }
    pittore_->setBrush(FillStyle == 0 ? QBrush(Qt::black) : QBrush(Qt::NoBrush));
}

void PrinterPittore::disegna_tratto(float x1, float y1, float x2, float y2) {
    // A stroke without length leaves no ink, only an open page.
    if (!dipinge() || (x1 == x2 && y1 == y2)) return;
    prepara_penna();
    pittore_->drawLine(punto(x1, y1), punto(x2, y2));
}

void PrinterPittore::disegna_riquadro(float x1, float y1, float x2, float y2) {
    if (!dipinge()) return;
    prepara_penna();
    pittore_->drawRect(riquadro(x1, y1, x2, y2));
}

void PrinterPittore::disegna_ovale(float x1, float y1, float x2, float y2) {
    if (!dipinge()) return;
    prepara_penna();
    pittore_->drawEllipse(riquadro(x1, y1, x2, y2));
}

PrinterVideo::PrinterVideo(QPainter& pittore, Foglio foglio) : PrinterPittore(foglio) {
    dipingi_su(&pittore);
}

bool PrinterVideo::concludi() {
    disegna_scritture();
    return true;
}

}  // namespace platform
