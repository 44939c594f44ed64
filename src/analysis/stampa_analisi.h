// The analysis on paper.
#pragma once

#include <span>

#include "analysis/relazione.h"
#include "platform/printer.h"
#include "printing/mod_stampa.h"

namespace analysis {

/// Prints the tables as one job; false when it was lost.
bool stampa_analisi(platform::Printer& printer, const printing::Testata& testata,
                    std::span<const Tavola> tavole);

}  // namespace analysis
