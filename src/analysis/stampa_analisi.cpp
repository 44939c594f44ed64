#include "analysis/stampa_analisi.h"

namespace analysis {

namespace {

/// Characters that fit the column of a page in this size.
constexpr float corpo = 8;
constexpr std::size_t larghezza = 112;
constexpr float fondo = 6;
/// Lines that a table's title has at least under it on its page.
constexpr std::size_t righe_unite = 4;

void pagina(platform::Printer& printer, const printing::Testata& testata) {
    printing::intestazione(printer, testata);
    printing::titolo_riquadro(printer, "ANALISI DEL SISTEMA", 16);
    printer.FontSize = corpo;
    printer.FontBold = false;
    printer.CurrentY += 1;
}

}  // namespace

bool stampa_analisi(platform::Printer& printer, const printing::Testata& testata,
                    std::span<const Tavola> tavole) {
    pagina(printer, testata);
    for (const Tavola& tavola : tavole) {
        const std::vector<std::string> righe = righe_di_testo({&tavola, 1}, larghezza);
        for (std::size_t i = 0; i < righe.size(); ++i) {
            const float alta = printer.TextHeight(righe[i]);
            const float serve = alta * static_cast<float>(i == 0 ? righe_unite : 1);
            if (printer.CurrentY + serve > printer.ScaleHeight() - fondo) {
                printing::pie_pagina(printer);
                printer.NewPage();
                pagina(printer, testata);
            }
            printer.FontBold = i == 0;
            printer.CurrentX = printing::bordo_sinistro(printer);
            printer.Print(righe[i]);
        }
        printer.CurrentY += 1;
    }
    printing::pie_pagina(printer);
    return printer.EndDoc();
}

}  // namespace analysis
