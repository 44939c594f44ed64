#include "platform/printer_qt.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>

#include "platform/desktop.h"
#include "platform/disk.h"

namespace platform {

namespace {

constexpr int unita_al_pollice_x = 12;
constexpr int unita_al_pollice_y = 6;
constexpr int punti_al_pollice = 72;
constexpr float millimetri_al_pollice = 25.4F;
constexpr float largo_a4 = 210;
constexpr float alto_a4 = 297;
/// A whole number of dots to the point: sizes in dots are rounded, and a font thus made smaller
/// would shorten every line.
constexpr int dot_al_pollice = 20 * punti_al_pollice;
/// Side of the square in which the font is measured, large enough for its own design units.
constexpr int lato_misura = 2048;

bool solo_file = false;

QFont carattere_fisso(bool grassetto) {
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

QFontMetricsF misura(bool grassetto) {
    QFont f = carattere_fisso(grassetto);
    f.setPixelSize(lato_misura);
    return QFontMetricsF(f);
}

/// Units of a length measured in the design square.
float unita(qreal misurato, float corpo, int unita_al_pollice) {
    return static_cast<float>(misurato) * corpo * static_cast<float>(unita_al_pollice) /
           static_cast<float>(lato_misura * punti_al_pollice);
}

QString testo_qt(std::string_view testo) {
    return QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size()));
}

}  // namespace

void stampa_solo_su_file(bool solo) {
    solo_file = solo;
}

PrinterQt::PrinterQt(const QString& titolo, const QString& pdf)
    : titolo_(titolo), pdf_(pdf), metriche_{misura(false), misura(true)} {}

PrinterQt::~PrinterQt() {
    PrinterQt::scarta();
}

float PrinterQt::ScaleWidth() const {
    return largo_a4 / millimetri_al_pollice * unita_al_pollice_x;
}

float PrinterQt::ScaleHeight() const {
    return alto_a4 / millimetri_al_pollice * unita_al_pollice_y;
}

const QFontMetricsF& PrinterQt::metrica() const {
    return metriche_[FontBold ? 1 : 0];
}

float PrinterQt::TextWidth(std::string_view testo) const {
    return unita(metrica().horizontalAdvance(testo_qt(testo)), FontSize, unita_al_pollice_x);
}

float PrinterQt::TextHeight(std::string_view /*testo*/) const {
    const QFontMetricsF& m = metrica();
    return unita(m.ascent() + m.descent(), FontSize, unita_al_pollice_y);
}

void PrinterQt::inizia_lavoro() {
    const QPrinterInfo predefinita = solo_file ? QPrinterInfo() : QPrinterInfo::defaultPrinter();
    const QPageLayout intero(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF());
    if (predefinita.isNull()) {
        file_ = std::make_unique<QSaveFile>(q(nome_su_disco(s(pdf_))));
        if (!file_->open(QIODevice::WriteOnly)) return;
        auto pdf = std::make_unique<QPdfWriter>(file_.get());
        pdf->setTitle(titolo_);
        pdf->setCreator("Tabellino");
        pdf->setResolution(dot_al_pollice);
        pdf->setPageLayout(intero);
        foglio_ = std::move(pdf);
    } else {
        auto carta = std::make_unique<QPrinter>(predefinita, QPrinter::HighResolution);
        carta->setResolution(dot_al_pollice);
        carta->setFullPage(true);
        carta->setPageSize(intero.pageSize());
        carta->setPageOrientation(QPageLayout::Portrait);
        carta->setDocName(titolo_);
        carta->setCreator("Tabellino");
        stampante_ = carta.get();
        foglio_ = std::move(carta);
    }
    pittore_.begin(foglio_.get());
    in_uso_.reset();
}

void PrinterQt::inizia_pagina() {
    if (foglio_ == nullptr) {
        inizia_lavoro();
    } else if (pittore_.isActive()) {
        foglio_->newPage();
    }
}

QPointF PrinterQt::punto(float x, float y) const {
    return {static_cast<qreal>(x) * foglio_->logicalDpiX() / unita_al_pollice_x,
            static_cast<qreal>(y) * foglio_->logicalDpiY() / unita_al_pollice_y};
}

void PrinterQt::prepara_carattere() {
    // A listing has hundreds of thousands of texts in one font: looking it up for each would take
    // most of the job's time.
    const Carattere voluto{FontSize, FontBold, FontItalic};
    if (in_uso_ == voluto) return;
    in_uso_ = voluto;
    QFont f = carattere_fisso(FontBold);
    f.setItalic(FontItalic);
    f.setPointSizeF(FontSize);
    pittore_.setFont(f);
}

void PrinterQt::disegna_testo(float x, float y, std::string_view testo) {
    // A grid from a file may be too large for a font to be left for its numbers.
    if (!pittore_.isActive() || FontSize <= 0) return;
    prepara_carattere();
    pittore_.setPen(Qt::black);
    const float base = y + unita(metrica().ascent(), FontSize, unita_al_pollice_y);
    pittore_.drawText(punto(x, base), testo_qt(testo));
}

void PrinterQt::prepara_penna() {
    constexpr qreal penne_al_pollice = 600;
    const qreal spessore = DrawWidth * foglio_->logicalDpiX() / penne_al_pollice;
    pittore_.setPen(QPen(Qt::black, spessore, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    pittore_.setBrush(Qt::NoBrush);
}

void PrinterQt::disegna_tratto(float x1, float y1, float x2, float y2) {
    // A stroke without length leaves no ink, only an open page.
    if (!pittore_.isActive() || (x1 == x2 && y1 == y2)) return;
    prepara_penna();
    pittore_.drawLine(punto(x1, y1), punto(x2, y2));
}

void PrinterQt::disegna_riquadro(float x1, float y1, float x2, float y2) {
    if (!pittore_.isActive()) return;
    prepara_penna();
    pittore_.drawRect(QRectF(punto(x1, y1), punto(x2, y2)).normalized());
}

bool PrinterQt::concludi() {
    bool riuscito = pittore_.isActive() && pittore_.end();
    if (stampante_ != nullptr) riuscito = riuscito && stampante_->printerState() != QPrinter::Error;
    if (file_ != nullptr) riuscito = riuscito && file_->commit();
    const bool da_mostrare = riuscito && file_ != nullptr;
    scarta();
    if (da_mostrare) apri_documento(q(nome_su_disco(s(pdf_))));
    return riuscito;
}

void PrinterQt::scarta() {
    if (stampante_ != nullptr && pittore_.isActive()) stampante_->abort();
    if (file_ != nullptr) file_->cancelWriting();
    if (pittore_.isActive()) pittore_.end();
    stampante_ = nullptr;
    foglio_.reset();
    file_.reset();
}

}  // namespace platform
