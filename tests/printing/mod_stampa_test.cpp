// Page head, titles, cells, page number and the cutting of long type names.
#include "printing/mod_stampa.h"

#include "support/stampante.h"

using namespace printing;
using support::alto;
using support::confronta;
using support::confronta_centro;
using support::foglio_alto;
using support::foglio_largo;
using support::largo;
using support::mezzo;
using support::Registratore;
using support::Tipo;
using support::x0;

namespace {

const Testata testata{"1.0.0", "Prova", "21/11/2026"};

}  // namespace

TEST(Intestazione, RiquadriEPannelli) {
    Registratore r;
    intestazione(r, testata);
    const auto riquadri = r.di_tipo(Tipo::riquadro);
    const float y = alto(10) - 0.25F;
    ASSERT_EQ(riquadri.size(), 3U);
    confronta(riquadri[0], x0, y - 0.25F, x0 + 90, y + 4.5F);
    confronta(riquadri[1], x0 + 1, y, x0 + 31.5F, y + 4.25F);
    confronta(riquadri[2], x0 + 32.5F, y, x0 + 89, y + 4.25F);
}

TEST(Intestazione, ApreLaPaginaPrimaDiMisurare) {
    Registratore r;
    intestazione(r, testata);
    ASSERT_FALSE(r.fatte.empty());
    EXPECT_EQ(r.fatte[0].tipo, Tipo::tratto);
    confronta(r.fatte[0], 0, 0, 0, 0);
    EXPECT_EQ(r.di_tipo(Tipo::tratto).size(), 1U);
}

TEST(Intestazione, FissaPennaECarattere) {
    Registratore r;
    r.FontItalic = true;
    r.ScaleMode = 1;
    r.FontName = "Arial";
    r.FillStyle = 0;
    intestazione(r, testata);
    EXPECT_EQ(r.DrawWidth, 5);
    EXPECT_EQ(r.FillStyle, 1);
    EXPECT_FALSE(r.FontItalic);
    EXPECT_EQ(r.ScaleMode, 4);
    EXPECT_EQ(r.FontName, "Courier New");
}

TEST(Intestazione, QuattroRigheASinistra) {
    Registratore r;
    intestazione(r, testata);
    float y = alto(10);
    confronta_centro(r.testo("Tabellino"), x0 + 16, y);
    y += alto(10);
    confronta_centro(r.testo("Sistemi a Cruciverba"), x0 + 16, y);
    y += alto(10) + 0.25F;
    confronta_centro(r.testo("SuperEnalotto e Lotto"), x0 + 16, y);
    y += alto(8) + 0.25F;
    confronta_centro(r.testo("Versione 1.0.0"), x0 + 16, y);
    EXPECT_FLOAT_EQ(r.testo("Tabellino").corpo, 10);
    EXPECT_FLOAT_EQ(r.testo("Sistemi a Cruciverba").corpo, 10);
    EXPECT_FLOAT_EQ(r.testo("SuperEnalotto e Lotto").corpo, 8);
    EXPECT_FLOAT_EQ(r.testo("Versione 1.0.0").corpo, 8);
    for (const auto& o : r.testi()) EXPECT_TRUE(o.grassetto) << o.testo;
}

TEST(Intestazione, LasciaLaPennaSottoEIlCarattereA14) {
    Registratore r;
    intestazione(r, testata);
    EXPECT_FLOAT_EQ(r.FontSize, 14);
    EXPECT_TRUE(r.FontBold);
    EXPECT_FLOAT_EQ(r.CurrentX, 0);
    EXPECT_NEAR(r.CurrentY, 3 * alto(10) + 2 * alto(8) + 0.5F + 2 * alto(14), 0.01F);
}

TEST(Intestazione, ADestraSistemaEData) {
    Registratore r;
    intestazione(r, testata);
    const float centro = x0 + (32.5F + 89) / 2;
    confronta_centro(r.testo("Prova"), centro, r.testo("Prova").y1);
    const auto data = r.testo("Stampato il 21/11/2026");
    confronta_centro(data, centro, data.y1);
    const float y = alto(10) - 0.25F;
    EXPECT_GT(r.testo("Prova").y1, y);
    EXPECT_GT(data.y1, r.testo("Prova").y1 + alto(14));
    EXPECT_LT(data.y1 + alto(8), y + 4.25F);
}

TEST(Intestazione, UnNomeLungoRestaNelPannello) {
    for (const std::size_t quante : {40U, 56U, 91U, 92U, 200U}) {
        Registratore r;
        std::string nome;
        for (std::size_t i = 0; i < quante; ++i) nome += "à";
        intestazione(r, {"1.0.0", nome, "21/11/2026"});
        const auto o = r.testi().at(0);
        EXPECT_GE(o.x1, x0 + 32.5F) << quante;
        EXPECT_LE(o.x1 + largo(o.testo, o.corpo), x0 + 89) << quante;
        EXPECT_EQ(o.testo.ends_with("…"), quante > 91) << quante;
        EXPECT_NEAR(r.CurrentY, 3 * alto(10) + 2 * alto(8) + 0.5F + 2 * alto(14), 0.01F);
    }
}

TEST(TitoloRiquadro, ScatolaAltaDueETestoCentrato) {
    Registratore r;
    r.FontSize = 14;
    r.CurrentY = 10;
    titolo_riquadro(r, "Titolo", 16);
    const float x = mezzo - largo("Titolo", 16) / 2;
    confronta(r.di_tipo(Tipo::riquadro).at(0), x - 1.25F, 9.75F, x + largo("Titolo", 16) + 1.25F,
              11.75F);
    confronta_centro(r.testo("Titolo"), mezzo, 10);
    EXPECT_FLOAT_EQ(r.testo("Titolo").corpo, 16);
    EXPECT_FLOAT_EQ(r.FontSize, 14);
    EXPECT_NEAR(r.CurrentY, 10 + alto(16) + alto(14), 0.01F);
}

TEST(TitoloRiquadro, LaScatolaNonSegueIlCorpo) {
    Registratore r;
    r.CurrentY = 10;
    titolo_riquadro(r, "Titolo", 40);
    const auto scatola = r.di_tipo(Tipo::riquadro).at(0);
    EXPECT_NEAR(scatola.y2 - scatola.y1, 2, 0.01F);
}

TEST(TitoloRiquadro, PiuLargoDellaPaginaNonSiTaglia) {
    Registratore r;
    const std::string lungo(100, 'x');
    titolo_riquadro(r, lungo, 16);
    EXPECT_LT(r.testo(lungo).x1, 0);
    confronta_centro(r.testo(lungo), mezzo, 0);
}

TEST(TitoloCentrato, ComeIlRiquadroSenzaScatola) {
    Registratore r;
    r.FontSize = 14;
    r.CurrentY = 10;
    titolo_centrato(r, "Titolo", 32);
    confronta_centro(r.testo("Titolo"), mezzo, 10);
    EXPECT_FLOAT_EQ(r.testo("Titolo").corpo, 32);
    EXPECT_TRUE(r.di_tipo(Tipo::riquadro).empty());
    EXPECT_FLOAT_EQ(r.FontSize, 14);
    EXPECT_NEAR(r.CurrentY, 10 + alto(32) + alto(14), 0.01F);
}

TEST(TitoloCentrato, GliSpaziDavantiContano) {
    Registratore r;
    r.FontSize = 10;
    titolo_centrato(r, "  ab", 10);
    EXPECT_NEAR(r.testo("  ab").x1, mezzo - 2, 0.01F);
}

TEST(ScriviCella, CentrataFraLeColonneEPennaFerma) {
    Registratore r;
    r.FontSize = 12;
    r.CurrentY = 20;
    scrivi_cella(r, "  abc ", 5, 15, 27, false);
    EXPECT_EQ(r.testi().at(0).testo, "abc");
    confronta_centro(r.testi().at(0), 5 + 21, 20);
    EXPECT_FLOAT_EQ(r.CurrentY, 20);
}

TEST(ScriviCella, AbbassataDiMezzaUnita) {
    Registratore r;
    r.CurrentY = 20;
    scrivi_cella(r, "abc", 5, 15, 27, true);
    confronta_centro(r.testi().at(0), 26, 20.5F);
    EXPECT_FLOAT_EQ(r.CurrentY, 20);
}

TEST(ScriviCella, UnTestoPiuLargoEsceDaiDueLati) {
    Registratore r;
    r.FontSize = 10;
    scrivi_cella(r, "dodici lettere", 0, 10, 14, false);
    EXPECT_NEAR(r.testi().at(0).x1, 5, 0.01F);
}

TEST(ScriviCella, IlTestoVuotoNonLasciaNulla) {
    Registratore r;
    r.CurrentY = 3;
    scrivi_cella(r, "", 0, 10, 14, true);
    EXPECT_TRUE(r.testi().empty());
    EXPECT_FLOAT_EQ(r.CurrentY, 3);
}

TEST(PiePagina, AFiloDelBordoDestroConDueSpazi) {
    Registratore r;
    for (int i = 1; i < 12; ++i) r.NewPage();
    r.FontSize = 8;
    pie_pagina(r);
    const auto o = r.testo("Pagina  12");
    EXPECT_NEAR(o.x1 + largo(o.testo, 8), x0 + 90, 0.01F);
    EXPECT_NEAR(o.y1, foglio_alto - 2, 0.01F);
}

TEST(Parti, PrimaEDopoIlTrattino) {
    EXPECT_EQ(prima_parte("2 Sist. da 924  -  4 Sist. da 462"), "2 Sist. da 924 ");
    EXPECT_EQ(seconda_parte("2 Sist. da 924  -  4 Sist. da 462"), " 4 Sist. da 462");
}

TEST(Parti, TrattinoInFondo) {
    EXPECT_EQ(prima_parte("abc-"), "abc-");
    EXPECT_EQ(seconda_parte("abc-"), "");
}

TEST(Parti, SenzaTrattinoCadeLUltimoCarattere) {
    EXPECT_EQ(prima_parte("2 Sist. da  1"), "2 Sist. da  ");
    EXPECT_EQ(seconda_parte("2 Sist. da  1"), "");
    EXPECT_EQ(prima_parte("cosà"), "cos");
}

TEST(Parti, TestiCortissimi) {
    EXPECT_EQ(prima_parte(""), "");
    EXPECT_EQ(seconda_parte(""), "");
    EXPECT_EQ(prima_parte("-ab"), "");
    EXPECT_EQ(seconda_parte("-ab"), "b");
    EXPECT_EQ(prima_parte("-"), "-");
    EXPECT_EQ(seconda_parte("a-b"), "");
}

TEST(TipoRighe, NomeLungoSuDueRighe) {
    const char* nome = "5 Numeri - 4 Terzine - Garanzia Ambo con 2 Estratti";
    EXPECT_EQ(tipo_prima_riga(nome), "4 Terzine - Garanzia ");
    EXPECT_EQ(tipo_seconda_riga(nome), "Ambo con 2 Estratti");
}

TEST(TipoRighe, SenzaLaParolaCercata) {
    EXPECT_EQ(tipo_prima_riga("7 Numeri - quattro parole a caso"), "quattro parole a caso");
    EXPECT_EQ(tipo_prima_riga("Integrale"), "");
    EXPECT_EQ(tipo_seconda_riga("Integrale"), "");
    EXPECT_EQ(tipo_seconda_riga("Garanzia"), "");
    EXPECT_EQ(tipo_prima_riga(""), "");
    EXPECT_EQ(tipo_seconda_riga(""), "");
}

TEST(TipoRighe, LeMaiuscoleContano) {
    EXPECT_EQ(tipo_seconda_riga("5 Numeri - garanzia Ambo"), "");
}
