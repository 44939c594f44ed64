// The foot of the summary page: shares, price and the note on the diagonals.
#include "printing/prospetto.h"
#include "support/foglio_prospetto.h"

using printing::Prospetto;
using support::alto;
using support::confronta_centro;
using support::esempio;
using support::Foglio;
using support::mezzo;
using support::Tipo;

TEST(Prezzo, PiuQuote) {
    const Foglio f(esempio(6, 6));
    const auto quote = f.r.testo("2 QUOTE DA EURO 43.043,00 CADAUNA");
    EXPECT_FLOAT_EQ(quote.corpo, 14);
    EXPECT_FALSE(quote.grassetto);
    const auto totale = f.r.testo("IMPORTO TOTALE DEL SISTEMA: Euro 86.086,00");
    EXPECT_FLOAT_EQ(totale.corpo, 16);
    confronta_centro(totale, mezzo, quote.y1 + alto(14) + alto(12));
    const auto riquadri = f.r.di_tipo(Tipo::riquadro);
    ASSERT_EQ(riquadri.size(), 5U);
    EXPECT_NEAR(riquadri[3].y1, quote.y1 - 0.25F, 0.01F);
    EXPECT_NEAR(riquadri[4].y1, totale.y1 - 0.25F, 0.01F);
}

TEST(Prezzo, UnaQuotaSola) {
    for (const char* uno : {"1", " 1", "1,5"}) {
        Prospetto p = esempio(6, 6);
        p.quote = uno;
        const Foglio f(p);
        EXPECT_TRUE(f.r.stampato(std::string(uno) + " QUOTA DA EURO 43.043,00")) << uno;
    }
    for (const char* altro : {"", "0", "10", "1.5"}) {
        Prospetto p = esempio(6, 6);
        p.quote = altro;
        const Foglio f(p);
        EXPECT_TRUE(f.r.stampato(std::string(altro) + " QUOTE DA EURO 43.043,00 CADAUNA")) << altro;
    }
}

TEST(Prezzo, LeLireSonoMaiuscoleSoloNelleQuote) {
    Prospetto p = esempio(6, 6);
    p.valuta = "Lire";
    p.quote = "1";
    const Foglio f(p);
    EXPECT_TRUE(f.r.stampato("1 QUOTA DA LIRE 43.043,00"));
    EXPECT_TRUE(f.r.stampato("IMPORTO TOTALE DEL SISTEMA: Lire 86.086,00"));
}

TEST(Prezzo, IlLottoNonNeHa) {
    const Foglio f(esempio(6, 6, true));
    EXPECT_EQ(f.r.di_tipo(Tipo::riquadro).size(), 3U);
    for (const auto& o : f.r.testi()) {
        EXPECT_EQ(o.testo.find("QUOT"), std::string::npos);
        EXPECT_EQ(o.testo.find("IMPORTO"), std::string::npos);
    }
    const auto nota =
        f.r.testo("* Si devono prendere in considerazione solo le 2 diagonali principali.");
    confronta_centro(nota, mezzo, f.t + 10.25F + alto(12));
}

TEST(Nota, SuperEnalottoQuadratoGrande) {
    const Foglio f(esempio(7, 7));
    const auto prima =
        f.r.testo("* Si devono prendere in considerazione le 2 diagonali principali e");
    const auto seconda =
        f.r.testo("  le 4 diagonali immediatamente adiacenti (2 X ognuna delle principali)");
    const auto totale = f.r.testo("IMPORTO TOTALE DEL SISTEMA: Euro 86.086,00");
    confronta_centro(prima, mezzo, totale.y1 + alto(16) + alto(12) - 0.5F);
    confronta_centro(seconda, mezzo, prima.y1 + alto(10) + alto(12) - 1);
    EXPECT_FLOAT_EQ(prima.corpo, 10);
    EXPECT_FLOAT_EQ(seconda.corpo, 10);
    EXPECT_FALSE(prima.grassetto);
}

TEST(Nota, OgniGiocoEMisura) {
    const std::string due = "* Si devono prendere in considerazione le 2 diagonali principali";
    const std::string quadrati =
        "* I Sistemi diagonali vengono sviluppati solo con i Cruciverba quadrati";
    const std::string lotto =
        "* Si devono prendere in considerazione solo le 2 diagonali principali.";
    struct Caso {
        int colonne;
        int righe;
        bool lotto;
        std::string nota;
    };
    const std::vector<Caso> casi = {
        {6, 6, false, due},           {7, 7, false, due + " e"}, {15, 15, false, due + " e"},
        {5, 5, false, quadrati},      {6, 7, false, quadrati},   {15, 6, false, quadrati},
        {5, 5, true, lotto},          {15, 15, true, lotto},     {6, 7, true, quadrati + "."},
        {7, 6, true, quadrati + "."},
    };
    for (const Caso& c : casi) {
        const Foglio f(esempio(c.colonne, c.righe, c.lotto));
        std::vector<std::string> note;
        for (const auto& o : f.r.testi()) {
            if (o.testo.starts_with("* ")) note.push_back(o.testo);
        }
        EXPECT_EQ(note, std::vector<std::string>{c.nota}) << c.colonne << 'x' << c.righe;
    }
}
