#include "sistema/stampa.h"

#include "platform/disk.h"
#include "platform/qt/caratteri.h"
#include "platform/qt/desktop.h"
#include "platform/qt/printer_qt.h"

namespace sistema {

namespace {

/// Nobody watches.
class SenzaSchermo : public platform::Screen {
public:
    void MousePointer(int /*valore*/) override {}
    void DoEvents() override {}
};

}  // namespace

std::string stampa_in_pdf(const printing::Prospetto& prospetto, const std::string& pdf) {
    platform::porta_caratteri();
    platform::PrinterQt printer(platform::q(prospetto.testata.nome), platform::q(pdf),
                                platform::Uscita::file);
    SenzaSchermo schermo;
    if (printing::stampa_prospetto(printer, schermo, prospetto)) return {};
    const std::string motivo = platform::s(printer.esito().motivo);
    return "il file " + platform::da_mostrare(pdf) + " non si può scrivere" +
           (motivo.empty() ? "" : ": " + motivo);
}

}  // namespace sistema
