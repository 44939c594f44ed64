// Print jobs on paper, or as a PDF file where the machine has no printer.
#pragma once

#include <memory>

#include <QPainter>
#include <QString>

#include "platform/qt/printer_pittore.h"

class QPageLayout;
class QPagedPaintDevice;
class QPrinter;

namespace platform {

/// Where a job went, and how it ended.
struct EsitoStampa {
    QString file;       ///< of the PDF; empty on paper
    QString stampante;  ///< empty for a file
    /// An older PDF stood there. It gave way to the new one, or stayed as it was when that was
    /// lost.
    bool altro_prima = false;
    QString motivo;  ///< why the job was lost; empty when it was not
};

/// Where a job may go.
enum class Uscita {
    carta_o_file,  ///< paper, where there is a printer
    file,
};

/// One job on the system's default printer; when there is none, into the file `pdf`, which is
/// replaced when the job ends. The page is the whole sheet, A4 unless told otherwise, made smaller
/// for a printer that cannot reach its edges.
class PrinterQt : public PrinterPittore {
public:
    PrinterQt(const QString& titolo, const QString& pdf, Uscita uscita = Uscita::carta_o_file,
              Foglio foglio = {});
    ~PrinterQt() override;

    [[nodiscard]] bool perso() const override;

    /// Of the job that began last.
    [[nodiscard]] const EsitoStampa& esito() const { return esito_; }

protected:
    void inizia_pagina() override;
    bool concludi() override;
    void scarta() override;

private:
    class FilePdf;

    void inizia_lavoro();
    void inizia_file();
    void inizia_carta(std::unique_ptr<QPrinter> carta);
    [[nodiscard]] QPageLayout disposizione() const;

    QString titolo_;
    QString pdf_;
    Uscita uscita_;
    EsitoStampa esito_;
    std::unique_ptr<FilePdf> file_;
    std::unique_ptr<QPagedPaintDevice> foglio_;
    QPrinter* stampante_ = nullptr;
    QPainter pittore_;
};

/// True when jobs go to paper.
[[nodiscard]] bool esiste_stampante();
/// From the whole A4 page to a sheet of that layout, in dots: the same, or smaller all over where
/// the sheet can be printed on.
[[nodiscard]] QTransform dentro_il_foglio(const QPageLayout& foglio, int dot_al_pollice);

}  // namespace platform
