// Print jobs on paper, or as a PDF file where the machine has no printer.
#pragma once

#include <array>
#include <memory>
#include <optional>

#include <QFontMetricsF>
#include <QPainter>
#include <QString>

#include "platform/printer.h"

class QPagedPaintDevice;
class QPrinter;
class QSaveFile;

namespace platform {

/// One job on the system's default printer; when there is none, into the file `pdf`, which is
/// replaced when the job ends and then shown by the desktop. The page is the whole A4 sheet.
class PrinterQt : public Printer {
public:
    PrinterQt(const QString& titolo, const QString& pdf);
    ~PrinterQt() override;

    [[nodiscard]] float ScaleWidth() const override;
    [[nodiscard]] float ScaleHeight() const override;
    [[nodiscard]] float TextWidth(std::string_view testo) const override;
    [[nodiscard]] float TextHeight(std::string_view testo) const override;

protected:
    void inizia_pagina() override;
    void disegna_testo(float x, float y, std::string_view testo) override;
    void disegna_tratto(float x1, float y1, float x2, float y2) override;
    void disegna_riquadro(float x1, float y1, float x2, float y2) override;
    bool concludi() override;
    void scarta() override;

private:
    void inizia_lavoro();
    [[nodiscard]] QPointF punto(float x, float y) const;
    void prepara_carattere();
    [[nodiscard]] const QFontMetricsF& metrica() const;
    void prepara_penna();

    QString titolo_;
    QString pdf_;
    std::unique_ptr<QSaveFile> file_;
    std::unique_ptr<QPagedPaintDevice> foglio_;
    QPrinter* stampante_ = nullptr;
    QPainter pittore_;
    /// Font that the painter holds.
    struct Carattere {
        float corpo = 0;
        bool grassetto = false;
        bool corsivo = false;
        bool operator==(const Carattere&) const = default;
    };
    std::optional<Carattere> in_uso_;
    std::array<QFontMetricsF, 2> metriche_;
};

/// With true no job goes to paper, whatever printers the machine has.
void stampa_solo_su_file(bool solo);

}  // namespace platform
