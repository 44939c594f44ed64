// A printer that keeps what is drawn on it, with the measures of a fixed-width font.
#pragma once

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/printer.h"

namespace support {

enum class Tipo { testo, tratto, riquadro, ovale, fine, scarto, puntatore, eventi };

/// One thing done, with the page and the font in force.
struct Operazione {
    Tipo tipo = Tipo::testo;
    float x1 = 0;
    float y1 = 0;
    float x2 = 0;
    float y2 = 0;
    std::string testo;
    float corpo = 0;
    bool grassetto = false;
    int pagina = 1;
    int valore = 0;
    bool pieno = false;  ///< filled
};

inline void PrintTo(const Operazione& o, std::ostream* uscita) {
    static const char* const nomi[] = {"text", "stroke",  "box",     "oval",
                                       "end",  "discard", "pointer", "events"};
    *uscita << nomi[static_cast<int>(o.tipo)] << " (" << o.x1 << ", " << o.y1 << ")-(" << o.x2
            << ", " << o.y2 << ") \"" << o.testo << "\" size " << o.corpo
            << (o.grassetto ? " bold" : "") << " page " << o.pagina << " value " << o.valore;
}

inline std::size_t caratteri(std::string_view testo) {
    std::size_t quanti = 0;
    for (const char c : testo) quanti += (static_cast<unsigned char>(c) & 0xC0U) != 0x80U ? 1 : 0;
    return quanti;
}

/// Width of a text: 0.6 em a letter.
inline float largo(std::string_view testo, float corpo) {
    return static_cast<float>(caratteri(testo)) * 0.1F * corpo;
}
/// Height of a line: 1.1328 em.
inline float alto(float corpo) {
    return 1.1328F * corpo / 12;
}

constexpr float foglio_largo = 99.2126F;
constexpr float mezzo = foglio_largo / 2;
constexpr float foglio_alto = 70.1575F;
/// Left edge of the drawing column.
constexpr float x0 = foglio_largo / 2 - 45;

class Registratore : public platform::Printer, public platform::Screen {
public:
    [[nodiscard]] float ScaleWidth() const override { return foglio_largo; }
    [[nodiscard]] float ScaleHeight() const override { return foglio_alto; }
    [[nodiscard]] float TextWidth(std::string_view testo) const override {
        misurati.emplace_back(testo);
        return largo(testo, FontSize);
    }
    [[nodiscard]] float TextHeight(std::string_view /*testo*/) const override {
        return alto(FontSize);
    }
    void MousePointer(int valore) override { nota(Tipo::puntatore).valore = valore; }
    void DoEvents() override { nota(Tipo::eventi); }
    bool avanza(int pagina, double parte) override {
        avanzamenti.emplace_back(pagina, parte);
        return static_cast<int>(avanzamenti.size()) != ferma_dopo;
    }
    [[nodiscard]] bool perso() const override { return persa; }

    [[nodiscard]] std::vector<Operazione> di_tipo(Tipo tipo) const {
        std::vector<Operazione> scelte;
        for (const Operazione& o : fatte) {
            if (o.tipo == tipo) scelte.push_back(o);
        }
        return scelte;
    }
    [[nodiscard]] std::vector<Operazione> testi() const { return di_tipo(Tipo::testo); }
    /// The first text that is `cercato`; a failure when there is none.
    [[nodiscard]] Operazione testo(std::string_view cercato) const {
        for (const Operazione& o : fatte) {
            if (o.tipo == Tipo::testo && o.testo == cercato) return o;
        }
        ADD_FAILURE() << "not printed: " << cercato;
        return {};
    }
    [[nodiscard]] bool stampato(std::string_view cercato) const {
        for (const Operazione& o : fatte) {
            if (o.tipo == Tipo::testo && o.testo == cercato) return true;
        }
        return false;
    }
    /// Texts that stand on a page, in order.
    [[nodiscard]] std::vector<std::string> pagina(int numero) const {
        std::vector<std::string> suoi;
        for (const Operazione& o : fatte) {
            if (o.tipo == Tipo::testo && o.pagina == numero) suoi.push_back(o.testo);
        }
        return suoi;
    }

    std::vector<Operazione> fatte;
    /// Texts whose width was asked, in order.
    mutable std::vector<std::string> misurati;
    /// Sheets begun.
    int fogli = 0;
    /// Pages and parts of the job that were told while it ran.
    std::vector<std::pair<int, double>> avanzamenti;
    /// The job is given up at this telling, counted from 1.
    int ferma_dopo = 0;
    bool persa = false;
    /// What the end of the job answers.
    bool riesce = true;

protected:
    void inizia_pagina() override { ++fogli; }
    void disegna_testo(float x, float y, std::string_view testo) override {
        Operazione& o = nota(Tipo::testo);
        o.testo = testo;
        o.x1 = x;
        o.y1 = y;
    }
    void disegna_tratto(float x1, float y1, float x2, float y2) override {
        Operazione& o = nota(Tipo::tratto);
        o.x1 = x1;
        o.y1 = y1;
        o.x2 = x2;
        o.y2 = y2;
    }
    void disegna_riquadro(float x1, float y1, float x2, float y2) override {
        disegna_tratto(x1, y1, x2, y2);
        fatte.back().tipo = Tipo::riquadro;
    }
    void disegna_ovale(float x1, float y1, float x2, float y2) override {
        disegna_tratto(x1, y1, x2, y2);
        fatte.back().tipo = Tipo::ovale;
    }
    bool concludi() override {
        nota(Tipo::fine);
        return riesce;
    }
    void scarta() override { nota(Tipo::scarto); }

private:
    Operazione& nota(Tipo tipo) {
        Operazione o;
        o.tipo = tipo;
        o.corpo = FontSize;
        o.grassetto = FontBold;
        o.pagina = Page();
        o.pieno = FillStyle == 0;
        fatte.push_back(o);
        return fatte.back();
    }
};

/// A stroke or box between two corners, to a hundredth of a unit.
inline void confronta(const Operazione& o, float x1, float y1, float x2, float y2) {
    EXPECT_NEAR(o.x1, x1, 0.01F) << testing::PrintToString(o);
    EXPECT_NEAR(o.y1, y1, 0.01F) << testing::PrintToString(o);
    EXPECT_NEAR(o.x2, x2, 0.01F) << testing::PrintToString(o);
    EXPECT_NEAR(o.y2, y2, 0.01F) << testing::PrintToString(o);
}

/// A text whose middle stands at `centro` and whose top at `y`.
inline void confronta_centro(const Operazione& o, float centro, float y) {
    EXPECT_NEAR(o.x1 + largo(o.testo, o.corpo) / 2, centro, 0.01F) << testing::PrintToString(o);
    EXPECT_NEAR(o.y1, y, 0.01F) << testing::PrintToString(o);
}

}  // namespace support
