// A pen in millimetres over the printed page.
#pragma once

#include <string_view>

#include "platform/printer.h"

namespace schedine {

/// Where a text begins, stands or ends.
enum class Verso { da, centro, a };

class Penna {
public:
    explicit Penna(platform::Printer& printer) : r_(printer) {}

    static float ux(double mm) { return static_cast<float>(mm * 12 / 25.4); }
    static float uy(double mm) { return static_cast<float>(mm * 6 / 25.4); }

    void carattere(float corpo, bool grassetto) {
        r_.FontSize = corpo;
        r_.FontBold = grassetto;
    }
    /// Thickness of strokes in 1/600 inch.
    void spessore(int dot) { r_.DrawWidth = dot; }
    void pieno(bool pieno) { r_.FillStyle = pieno ? 0 : 1; }
    /// Text whose top is at `y`.
    void testo(double x, double y, std::string_view testo, Verso verso = Verso::da) {
        float dove = ux(x);
        if (verso != Verso::da) dove -= r_.TextWidth(testo) / (verso == Verso::centro ? 2 : 1);
        r_.CurrentX = dove;
        r_.CurrentY = uy(y);
        r_.Print(testo);
    }
    [[nodiscard]] double largo(std::string_view testo) const {
        return static_cast<double>(r_.TextWidth(testo)) * 25.4 / 12;
    }
    [[nodiscard]] double alto() const { return static_cast<double>(r_.TextHeight("A")) * 25.4 / 6; }
    void tratto(double x1, double y1, double x2, double y2) {
        r_.Line(ux(x1), uy(y1), ux(x2), uy(y2));
    }
    void riquadro(double x, double y, double largo, double alto) {
        r_.LineB(ux(x), uy(y), ux(x + largo), uy(y + alto));
    }
    void ovale(double x, double y, double largo, double alto) {
        r_.Oval(ux(x), uy(y), ux(x + largo), uy(y + alto));
    }

private:
    platform::Printer& r_;
};

}  // namespace schedine
