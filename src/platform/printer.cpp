#include "platform/printer.h"

#include "platform/runtime.h"

namespace platform {

void Printer::apri_pagina() {
    if (iniziata_) return;
    iniziata_ = true;
    inizia_pagina();
}

void Printer::azzera() {
    CurrentX = 0;
    CurrentY = 0;
    iniziata_ = false;
}

void Printer::Print(std::string_view testo) {
    apri_pagina();
    if (!testo.empty()) disegna_testo(CurrentX, CurrentY, testo);
    CurrentY += TextHeight(testo);
    CurrentX = 0;
}

void Printer::Print(std::int64_t numero) {
    Print(Str(numero) + " ");
}

void Printer::Line(float x1, float y1, float x2, float y2) {
    apri_pagina();
    disegna_tratto(x1, y1, x2, y2);
    CurrentX = x2;
    CurrentY = y2;
}

void Printer::LineB(float x1, float y1, float x2, float y2) {
    apri_pagina();
    disegna_riquadro(x1, y1, x2, y2);
    CurrentX = x2;
    CurrentY = y2;
}

void Printer::Oval(float x1, float y1, float x2, float y2) {
    apri_pagina();
    disegna_ovale(x1, y1, x2, y2);
    CurrentX = x2;
    CurrentY = y2;
}

void Printer::NewPage() {
    apri_pagina();
    azzera();
    ++pagina_;
}

bool Printer::EndDoc() {
    azzera();
    pagina_ = 1;
    return concludi();
}

void Printer::KillDoc() {
    azzera();
    pagina_ = 1;
    scarta();
}

}  // namespace platform
