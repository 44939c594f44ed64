// The printed page drawn by a painter: what paper, file and screen have in common.
#pragma once

#include <array>
#include <optional>

#include "platform/printer.h"
#include "platform/qt/carattere_stampa.h"

namespace platform {

/// Size of a sheet in millimetres.
struct Foglio {
    double largo = 210;
    double alto = 297;
    /// Its page is never made smaller, though a printer may not reach the edges.
    bool misura_esatta = false;
};

/// Dots of a page: a whole number of them to the point, since sizes in dots are rounded, and a
/// font thus made smaller would shorten every line.
inline constexpr int dot_al_punto = 20;
inline constexpr int dot_al_pollice = dot_al_punto * 72;

/// Draws in dots on the painter that a derived class sets; without one it only measures.
class PrinterPittore : public Printer {
public:
    explicit PrinterPittore(Foglio foglio = {});

    [[nodiscard]] float ScaleWidth() const override;
    [[nodiscard]] float ScaleHeight() const override;
    [[nodiscard]] float TextWidth(std::string_view testo) const override;
    [[nodiscard]] float TextHeight(std::string_view testo) const override;

protected:
    [[nodiscard]] const Foglio& foglio() const { return foglio_; }
    /// Takes a painter, or null; what was gathered for the one before is forgotten.
    void dipingi_su(QPainter* pittore);
    [[nodiscard]] bool dipinge() const;
    /// Text is gathered, and drawn before the page ends.
    void disegna_scritture();
    void disegna_testo(float x, float y, std::string_view testo) override;
    void disegna_tratto(float x1, float y1, float x2, float y2) override;
    void disegna_riquadro(float x1, float y1, float x2, float y2) override;
    void disegna_ovale(float x1, float y1, float x2, float y2) override;

private:
    [[nodiscard]] const CarattereStampa& carattere() const;
    void prepara_carattere();
    void prepara_penna();

    Foglio foglio_;
    QPainter* pittore_ = nullptr;
    /// Font that the painter holds.
    struct Carattere {
        float corpo = 0;
        bool grassetto = false;
        bool corsivo = false;
        bool operator==(const Carattere&) const = default;
    };
    std::optional<Carattere> in_uso_;
    Scrittura scrittura_;
    std::array<CarattereStampa, 2> caratteri_;
};

/// One page shown on a painter whose unit is the dot.
class PrinterVideo : public PrinterPittore {
public:
    PrinterVideo(QPainter& pittore, Foglio foglio);

protected:
    void inizia_pagina() override {}
    bool concludi() override;
    void scarta() override {}
};

}  // namespace platform
