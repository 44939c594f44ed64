#include "printing/mod_stampa.h"

#include "platform/runtime.h"

namespace printing {

using platform::Printer;

namespace {

/// Bytes of the first `caratteri` characters of a UTF-8 text.
std::size_t byte_di(std::string_view testo, std::size_t caratteri) {
    std::size_t i = 0;
    while (i < testo.size() && caratteri > 0) {
        ++i;
        while (i < testo.size() && (static_cast<unsigned char>(testo[i]) & 0xC0U) == 0x80U) ++i;
        --caratteri;
    }
    return i;
}

std::size_t lunghezza(std::string_view testo) {
    std::size_t quanti = 0;
    for (const char c : testo) {
        if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) ++quanti;
    }
    return quanti;
}

/// First `caratteri` characters; none when negative.
std::string sinistra(std::string_view testo, std::ptrdiff_t caratteri) {
    if (caratteri <= 0) return "";
    return std::string(testo.substr(0, byte_di(testo, static_cast<std::size_t>(caratteri))));
}

/// From the 1-based character `posizione` to the end.
std::string resto(std::string_view testo, std::ptrdiff_t posizione) {
    return std::string(testo.substr(byte_di(testo, static_cast<std::size_t>(posizione - 1))));
}

/// 1-based character position of `parola`; one past the end when it is not there.
std::ptrdiff_t posizione_di(std::string_view testo, std::string_view parola) {
    return static_cast<std::ptrdiff_t>(lunghezza(testo.substr(0, testo.find(parola)))) + 1;
}

bool in_fondo(std::string_view testo, std::ptrdiff_t posizione) {
    return posizione == static_cast<std::ptrdiff_t>(lunghezza(testo));
}

void centrato(Printer& printer, std::string_view testo, float centro) {
    printer.CurrentX = centro - printer.TextWidth(testo) / 2;
    printer.Print(testo);
}

/// System and date, in a panel whose height leaves a line of size 14 and one of size 8 to them.
void pannello_destro(Printer& printer, const Testata& testata, float sinistro, float alto) {
    constexpr float largo = 55;
    constexpr float corpo_minimo = 6;
    const float centro = sinistro + 28.25F;
    std::string nome = testata.nome;
    const float prima = printer.FontSize;
    printer.FontSize = 14;
    const float riga = printer.TextHeight("A");
    while (printer.FontSize > corpo_minimo && printer.TextWidth(nome) > largo)
        printer.FontSize -= 1;
    while (printer.TextWidth(nome) > largo) {
        nome = sinistra(nome, static_cast<std::ptrdiff_t>(lunghezza(nome)) - 2) + "…";
    }
    printer.CurrentY = alto + 0.95F + (riga - printer.TextHeight("A")) / 2;
    centrato(printer, nome, centro);
    printer.FontSize = 8;
    printer.CurrentY = alto + 0.95F + riga + 0.25F;
    centrato(printer, "Stampato il " + testata.data, centro);
    printer.FontSize = prima;
}

}  // namespace

void intestazione(Printer& printer, const Testata& testata) {
    printer.DrawWidth = 5;
    printer.FillStyle = 1;
    printer.FontItalic = false;
    printer.ScaleMode = 4;
    printer.FontName = "Courier New";
    printer.FontSize = 10;
    printer.FontBold = true;
    printer.Line(0, 0, 0, 0);  // opens the page before anything is measured
    const float y = printer.TextHeight("A") - 0.25F;
    const float x0 = bordo_sinistro(printer);
    printer.CurrentY = y;
    printer.CurrentX = x0;
    printer.LineB(x0, y - 0.25F, x0 + 90, y + 4.5F);
    printer.CurrentY = y;
    printer.LineB(x0 + 1, y, x0 + 31.5F, y + 4.25F);
    printer.CurrentY = y;
    printer.LineB(x0 + 32.5F, y, x0 + 89, y + 4.25F);
    pannello_destro(printer, testata, x0 + 32.5F, y);
    printer.CurrentY = printer.TextHeight("A");
    centrato(printer, "Tabellino", x0 + 16);
    centrato(printer, "Sistemi a Cruciverba", x0 + 16);
    for (const std::string& riga :
         {std::string("SuperEnalotto e Lotto"), "Versione " + testata.versione}) {
        printer.CurrentY += 0.25F;
        printer.FontSize = 8;
        centrato(printer, riga, x0 + 16);
        printer.FontSize = 10;
    }
    printer.FontSize = 14;
    printer.Print();
    printer.Print();
}

void titolo_riquadro(Printer& printer, std::string_view testo, std::uint8_t corpo) {
    const float prima = printer.FontSize;
    printer.FontSize = corpo;
    const float largo = printer.TextWidth(testo);
    const float x = printer.ScaleWidth() / 2 - largo / 2;
    const float y = printer.CurrentY;
    printer.LineB(x - 1.25F, y - 0.25F, x + largo + 1.25F, y + 1.75F);
    printer.CurrentY = y;
    printer.CurrentX = x;
    printer.Print(testo);
    printer.FontSize = prima;
    printer.Print();
}

void titolo_centrato(Printer& printer, std::string_view testo, std::uint8_t corpo) {
    const float prima = printer.FontSize;
    printer.FontSize = corpo;
    centrato(printer, testo, printer.ScaleWidth() / 2);
    printer.FontSize = prima;
    printer.Print();
}

void scrivi_cella(Printer& printer, std::string_view testo, float base, float da, float a,
                  bool abbassa) {
    const std::string_view rifilato = platform::Trim(testo);
    printer.CurrentX = base + da + (a - da) / 2 - printer.TextWidth(rifilato) / 2;
    const float y = printer.CurrentY;
    if (abbassa) printer.CurrentY = y + 0.5F;
    printer.Print(rifilato);
    printer.CurrentY = y;
}

void pie_pagina(Printer& printer) {
    printer.CurrentY = printer.ScaleHeight() - 2;
    const std::string testo = "Pagina " + platform::Str(printer.Page());
    printer.CurrentX = printer.ScaleWidth() / 2 + larghezza_colonna / 2 - printer.TextWidth(testo);
    printer.Print(testo);
}

std::string prima_parte(std::string_view testo) {
    const std::ptrdiff_t p = posizione_di(testo, "-");
    return in_fondo(testo, p) ? std::string(testo) : sinistra(testo, p - 2);
}

std::string seconda_parte(std::string_view testo) {
    const std::ptrdiff_t p = posizione_di(testo, "-");
    return in_fondo(testo, p) ? "" : resto(testo, p + 2);
}

std::string tipo_prima_riga(std::string_view testo) {
    const std::string dopo = resto(testo, posizione_di(testo, "Numeri - ") + 9);
    return sinistra(dopo, posizione_di(dopo, " - Garanzia") + 11);
}

std::string tipo_seconda_riga(std::string_view testo) {
    const std::ptrdiff_t p = posizione_di(testo, "Garanzia");
    return in_fondo(testo, p) ? "" : resto(testo, p + 9);
}

}  // namespace printing
