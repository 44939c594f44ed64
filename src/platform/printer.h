// The printed page, as the printing routines see it: a pen, a font and a job; no Qt.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// One print job in character units: 1/12 inch across, 1/6 inch down. The pen and the font are
/// plain values of their own; what draws only knows where and in which font.
class Printer {
public:
    Printer() = default;
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;
    virtual ~Printer() = default;

    int ScaleMode = 4;
    float CurrentX = 0;
    float CurrentY = 0;
    std::string FontName = "Courier New";
    float FontSize = 10;
    bool FontBold = false;
    bool FontItalic = false;
    /// Width of a stroke in dots of 1/600 inch; with 0 a box or an oval has no outline.
    int DrawWidth = 1;
    /// 1 leaves the inside of a box or an oval as it is, 0 fills it.
    int FillStyle = 1;

    [[nodiscard]] virtual float ScaleWidth() const = 0;
    [[nodiscard]] virtual float ScaleHeight() const = 0;
    /// Size of a text in the current font; blanks count.
    [[nodiscard]] virtual float TextWidth(std::string_view testo) const = 0;
    [[nodiscard]] virtual float TextHeight(std::string_view testo) const = 0;

    /// Text at the pen, then a line end: one line of the font down, back to 0 across.
    void Print(std::string_view testo = {});
    /// A number with a blank before it for its sign and one behind.
    void Print(std::int64_t numero);
    /// A straight stroke; the pen stays on its end.
    void Line(float x1, float y1, float x2, float y2);
    /// The outline of a box between two corners; the pen stays on the second.
    void LineB(float x1, float y1, float x2, float y2);
    /// The outline of the oval inside a box; the pen stays on the second corner.
    void Oval(float x1, float y1, float x2, float y2);

    /// Number of the page being drawn, from 1.
    [[nodiscard]] int Page() const { return pagina_; }
    void NewPage();
    /// True when the job is lost already, and drawing on would be for nothing.
    [[nodiscard]] virtual bool perso() const { return false; }
    /// Ends the job and releases it to the printer; false when it was lost on the way.
    bool EndDoc();
    /// Ends the job without a trace.
    void KillDoc();

protected:
    /// Begins a sheet; the first one begins the job.
    virtual void inizia_pagina() = 0;
    virtual void disegna_testo(float x, float y, std::string_view testo) = 0;
    virtual void disegna_tratto(float x1, float y1, float x2, float y2) = 0;
    virtual void disegna_riquadro(float x1, float y1, float x2, float y2) = 0;
    virtual void disegna_ovale(float x1, float y1, float x2, float y2) = 0;
    virtual bool concludi() = 0;
    virtual void scarta() = 0;

private:
    void apri_pagina();
    void azzera();

    int pagina_ = 1;
    bool iniziata_ = false;
};

/// What a job does to the screen while it runs.
class Screen {
public:
    virtual ~Screen() = default;
    /// 0 is the default pointer, 11 the hourglass.
    virtual void MousePointer(int valore) = 0;
    virtual void DoEvents() = 0;
    /// Told now and then how far a long job has come, events run; false gives it up.
    virtual bool avanza(int /*pagina*/, double /*parte*/) { return true; }
};

/// While one lives `schermo`, which outlives it, shows an hourglass.
class InAttesa {
public:
    explicit InAttesa(Screen& schermo) : schermo_(schermo) { schermo_.MousePointer(11); }
    ~InAttesa() { schermo_.MousePointer(0); }
    InAttesa(const InAttesa&) = delete;
    InAttesa& operator=(const InAttesa&) = delete;

private:
    Screen& schermo_;
};

}  // namespace platform
