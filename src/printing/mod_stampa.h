// What everything printed shares: page head, titles, table cells, page number, long type names.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/printer.h"

namespace printing {

/// Width of the drawing column, centred on the page.
constexpr float larghezza_colonna = 90;

/// What the head of a page says of this job.
struct Testata {
    std::string versione;  ///< "1.0.0"
    std::string nome;      ///< of the system
    std::string data;      ///< of printing
};

/// Left edge of the drawing column.
[[nodiscard]] inline float bordo_sinistro(const platform::Printer& printer) {
    return printer.ScaleWidth() / 2 - larghezza_colonna / 2;
}

/// Head of a page; leaves the pen below it and the font at 14, bold.
void intestazione(platform::Printer& printer, const Testata& testata);
/// Centred title in a box two units high.
void titolo_riquadro(platform::Printer& printer, std::string_view testo, std::uint8_t corpo);
/// Centred title.
void titolo_centrato(platform::Printer& printer, std::string_view testo, std::uint8_t corpo);
/// Text centred between two columns of a table, half a unit lower when asked; the pen stays at
/// its height.
void scrivi_cella(platform::Printer& printer, std::string_view testo, float base, float da, float a,
                  bool abbassa);
/// Page number at the foot, flush right.
void pie_pagina(platform::Printer& printer);

/// Parts of a text before and after its "-".
std::string prima_parte(std::string_view testo);
std::string seconda_parte(std::string_view testo);
/// The two printed lines of the name of a reduced system.
std::string tipo_prima_riga(std::string_view testo);
std::string tipo_seconda_riga(std::string_view testo);

}  // namespace printing
