// The summary page through the printer of the program.
#pragma once

#include <string>

#include "printing/prospetto.h"

namespace sistema {

/// Prints the page into a PDF file, replaced when the page is whole; why not, empty when it did.
/// Needs Qt's application object.
std::string stampa_in_pdf(const printing::Prospetto& prospetto, const std::string& pdf);

}  // namespace sistema
