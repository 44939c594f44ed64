#include "platform/qt/printer_qt.h"

#include <algorithm>
#include <utility>

#include <QIODevice>
#include <QLibrary>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

#include "platform/file_nuovo.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scrivania.h"

namespace platform {

namespace {

constexpr float millimetri_al_pollice = 25.4F;
constexpr float largo_a4 = 210;
constexpr float alto_a4 = 297;

/// The printer that jobs go to; null when they go into a file.
std::unique_ptr<QPrinter> stampante_del_sistema() {
    if (scrivania().stampante) return scrivania().stampante();
    if (scrivania().stampa_solo_su_file) return nullptr;
    const QPrinterInfo predefinita = QPrinterInfo::defaultPrinter();
    if (predefinita.isNull()) return nullptr;
    return std::make_unique<QPrinter>(predefinita, QPrinter::HighResolution);
}

/// What the print server said of the last job, which Qt does not pass on; empty when it took it,
/// or when there is none.
QString rifiuto_del_server() {
    constexpr int primo_errore = 0x400;
    const auto stato = reinterpret_cast<int (*)()>(QLibrary::resolve("cups", 2, "cupsLastError"));
    const auto testo =
        reinterpret_cast<const char* (*)()>(QLibrary::resolve("cups", 2, "cupsLastErrorString"));
    if (stato == nullptr || testo == nullptr || stato() < primo_errore) return {};
    const char* detto = testo();
    return detto != nullptr ? QString::fromUtf8(detto) : QString();
}

}  // namespace

/// The PDF on its way to the disk.
class PrinterQt::FilePdf : public QIODevice {
public:
    explicit FilePdf(const QString& nome) : file_(s(nome)) { QIODevice::open(WriteOnly); }
    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] bool riuscito() const { return file_.esito() == Esito::ok; }
    bool pubblica() { return file_.pubblica() == Esito::ok; }
    [[nodiscard]] QString motivo() const {
        return riuscito() ? QString() : q(perche_non_si_scrive(file_.nome(), file_.esito()));
    }

protected:
    qint64 readData(char* /*dati*/, qint64 /*quanti*/) override { return -1; }
    qint64 writeData(const char* dati, qint64 quanti) override {
        file_.scrivi({dati, static_cast<std::size_t>(quanti)});
        return quanti;
    }

private:
    FileNuovo file_;
};

QTransform dentro_il_foglio(const QPageLayout& foglio, int dot) {
    QPageLayout misure = foglio;
    misure.setUnits(QPageLayout::Millimeter);
    const QMarginsF bordi = misure.minimumMargins();
    const QRectF spazio = misure.fullRect().marginsRemoved(bordi);
    const qreal scala = std::min({1.0, spazio.width() / largo_a4, spazio.height() / alto_a4});
    if (scala <= 0 || scala == 1) return {};
    const qreal dot_al_millimetro = dot / static_cast<qreal>(millimetri_al_pollice);
    const qreal x = spazio.left() + (spazio.width() - largo_a4 * scala) / 2;
    const qreal y = spazio.top() + (spazio.height() - alto_a4 * scala) / 2;
    return QTransform::fromTranslate(x * dot_al_millimetro, y * dot_al_millimetro)
        .scale(scala, scala);
}

bool esiste_stampante() {
    return stampante_del_sistema() != nullptr;
}

PrinterQt::PrinterQt(const QString& titolo, const QString& pdf, Uscita uscita, Foglio foglio)
    : PrinterPittore(foglio), titolo_(titolo), pdf_(pdf), uscita_(uscita) {}

PrinterQt::~PrinterQt() {
    PrinterQt::scarta();
}

QPageLayout PrinterQt::disposizione() const {
    if (foglio().largo == largo_a4 && foglio().alto == alto_a4) {
        return {QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()};
    }
    const QPageSize misura(QSizeF(foglio().largo, foglio().alto), QPageSize::Millimeter, {},
                           QPageSize::ExactMatch);
    return {misura, QPageLayout::Portrait, QMarginsF()};
}

bool PrinterQt::perso() const {
    return foglio_ != nullptr && (!pittore_.isActive() || (file_ != nullptr && !file_->riuscito()));
}

void PrinterQt::inizia_file() {
    file_ = std::make_unique<FilePdf>(pdf_);
    auto pdf = std::make_unique<QPdfWriter>(file_.get());
    pdf->setTitle(titolo_);
    pdf->setCreator("Tabellino");
    pdf->setResolution(dot_al_pollice);
    pdf->setPageLayout(disposizione());
    foglio_ = std::move(pdf);
    const std::string nome = nome_su_disco(s(pdf_));
    esito_.file = q(nome);
    esito_.altro_prima = esiste_file(nome);
}

void PrinterQt::inizia_carta(std::unique_ptr<QPrinter> carta) {
    carta->setResolution(dot_al_pollice);
    carta->setFullPage(true);
    carta->setPageSize(disposizione().pageSize());
    carta->setPageOrientation(QPageLayout::Portrait);
    carta->setDocName(titolo_);
    carta->setCreator("Tabellino");
    stampante_ = carta.get();
    foglio_ = std::move(carta);
    esito_.stampante = stampante_->printerName();
}

void PrinterQt::inizia_lavoro() {
    esito_ = {};
    if (auto carta = uscita_ == Uscita::file ? nullptr : stampante_del_sistema()) {
        inizia_carta(std::move(carta));
    } else {
        inizia_file();
    }
    if (!pittore_.begin(foglio_.get())) return;
    if (stampante_ != nullptr && !foglio().misura_esatta) {
        pittore_.setTransform(dentro_il_foglio(stampante_->pageLayout(), dot_al_pollice));
    }
    dipingi_su(&pittore_);
}

void PrinterQt::inizia_pagina() {
    if (foglio_ == nullptr) {
        inizia_lavoro();
    } else if (pittore_.isActive()) {
        disegna_scritture();
        foglio_->newPage();
    }
}

bool PrinterQt::concludi() {
    disegna_scritture();
    const bool disegnato = pittore_.isActive() && pittore_.end();
    if (file_ != nullptr) {
        if (disegnato) file_->pubblica();
        esito_.motivo = file_->motivo();
    } else if (stampante_ != nullptr) {
        if (!disegnato || stampante_->printerState() == QPrinter::Error) {
            esito_.motivo = "la stampante non risponde";
        } else if (stampante_->outputFileName().isEmpty()) {
            esito_.motivo = rifiuto_del_server();
        }
    }
    scarta();
    return disegnato && esito_.motivo.isEmpty();
}

void PrinterQt::scarta() {
    if (file_ != nullptr) esito_.motivo = file_->motivo();
    if (stampante_ != nullptr && pittore_.isActive()) stampante_->abort();
    if (pittore_.isActive()) pittore_.end();
    dipingi_su(nullptr);
    stampante_ = nullptr;
    foglio_.reset();
    file_.reset();
}

}  // namespace platform
