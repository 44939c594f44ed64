// Print jobs that go into a PDF file, read back with the tools that players' viewers use.
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <vector>

#include <QStringList>

#include "platform/desktop.h"
#include "platform/printer_qt.h"
#include "support/cartella.h"
#include "support/pdf.h"

using platform::PrinterQt;
using platform::q;
using support::Parola;

namespace {

/// A folder to print in and the documents that were to be shown.
class StampaPdf : public testing::Test {
protected:
    void SetUp() override {
        platform::stampa_solo_su_file(true);
        platform::apri_con([this](const QString& documento) {
            aperti_ << documento;
            return true;
        });
    }
    void TearDown() override { platform::apri_con({}); }
    [[nodiscard]] std::string nome() const { return cartella_.file("prova.pdf"); }

    support::Cartella cartella_;
    QStringList aperti_;
};

}  // namespace

TEST_F(StampaPdf, LaPaginaEIlFoglioA4Intero) {
    PrinterQt p("prova", q(nome()));
    EXPECT_NEAR(p.ScaleWidth(), 99.21F, 0.01F);
    EXPECT_NEAR(p.ScaleHeight(), 70.16F, 0.01F);
    p.Print("x");
    ASSERT_TRUE(p.EndDoc());
    const auto [largo, alto] = support::misura_pagina(nome());
    EXPECT_NEAR(largo, 595.3, 0.5);
    EXPECT_NEAR(alto, 841.9, 0.5);
}

TEST_F(StampaPdf, SeiDecimiDiQuadratoELineaDi11328) {
    PrinterQt p("prova", q(nome()));
    for (const float corpo : {8.0F, 10.0F, 14.0F, 27.0F, 61.0F}) {
        for (const bool grassetto : {false, true}) {
            p.FontSize = corpo;
            p.FontBold = grassetto;
            EXPECT_NEAR(p.TextWidth("0"), corpo * 0.1F, corpo * 0.0002F);
            EXPECT_NEAR(p.TextWidth("Quantità"), corpo * 0.8F, corpo * 0.001F);
            EXPECT_NEAR(p.TextWidth("   "), corpo * 0.3F, corpo * 0.001F);
            EXPECT_NEAR(p.TextWidth("  ab "), corpo * 0.5F, corpo * 0.001F);
            EXPECT_NEAR(p.TextHeight("0"), corpo * 1.1328F / 12, corpo * 0.0001F);
        }
    }
    EXPECT_FLOAT_EQ(p.TextWidth(""), 0);
}

TEST_F(StampaPdf, OgniTestoStaDovEMesso) {
    PrinterQt p("prova", q(nome()));
    p.FontSize = 8;
    p.FontBold = true;
    for (int i = 0; i < 5; ++i) {
        p.CurrentX = 4.6F + static_cast<float>(i) * 18.25F;
        p.CurrentY = 12;
        p.Print("04 17 23 38 61 90");
    }
    p.FontSize = 32;
    p.FontBold = false;
    p.CurrentX = 20;
    p.CurrentY = 30;
    p.Print("Cruciverba");
    ASSERT_TRUE(p.EndDoc());
    const std::vector<Parola> parole = support::parole(nome());
    ASSERT_EQ(parole.size(), 31U);
    for (std::size_t i = 0; i < 30; ++i) {
        const double x =
            4.6 + static_cast<double>(i / 6) * 18.25 + static_cast<double>(i % 6) * 2.4;
        EXPECT_NEAR(parole[i].x1, x, 0.02) << i;
        EXPECT_NEAR(parole[i].x2, x + 1.6, 0.02) << i;
        EXPECT_NEAR(parole[i].y1, 12, 0.05) << i;
    }
    EXPECT_EQ(parole[30].testo, "Cruciverba");
    EXPECT_NEAR(parole[30].x1, 20, 0.03);
    EXPECT_NEAR(parole[30].x2, 20 + 32, 0.03);
    EXPECT_NEAR(parole[30].y1, 30, 0.1);
    EXPECT_NEAR(parole[30].y2, 30 + 32 * 1.1328 / 12, 0.1);
}

TEST_F(StampaPdf, ITrattiSiVedono) {
    PrinterQt p("prova", q(nome()));
    p.DrawWidth = 5;
    p.Line(0, 0, 0, 0);
    p.Line(10, 10, 90, 10);
    p.Line(10, 10, 10, 40);
    p.LineB(20, 20, 80, 30);
    ASSERT_TRUE(p.EndDoc());
    const support::Immagine foto = support::fotografa(nome(), 1, 144);
    const auto nero = [&foto](double x, double y) { return foto.scuro(x * 12, y * 24); };
    EXPECT_TRUE(nero(50, 10));
    EXPECT_TRUE(nero(10, 25));
    EXPECT_TRUE(nero(20, 25));
    EXPECT_TRUE(nero(80, 25));
    EXPECT_TRUE(nero(50, 20));
    EXPECT_TRUE(nero(50, 30));
    EXPECT_FALSE(nero(50, 25)) << "the box is an outline";
    EXPECT_FALSE(nero(0.1, 0.05)) << "a stroke without length leaves no dot";
}

TEST_F(StampaPdf, LePagineComincianoDaSole) {
    PrinterQt p("prova", q(nome()));
    p.Print("uno");
    p.NewPage();
    p.Print("due");
    p.NewPage();
    ASSERT_TRUE(p.EndDoc());
    const auto parole = support::parole(nome());
    ASSERT_EQ(parole.size(), 2U);
    EXPECT_EQ(parole[0].pagina, 1);
    EXPECT_EQ(parole[1].pagina, 2);
    EXPECT_EQ(support::pagine(nome()), 2);
}

TEST_F(StampaPdf, FinitoIlLavoroSiApre) {
    PrinterQt p("prova", q(nome()));
    p.Print("x");
    EXPECT_FALSE(cartella_.esiste("prova.pdf"));
    EXPECT_TRUE(aperti_.isEmpty());
    ASSERT_TRUE(p.EndDoc());
    EXPECT_EQ(aperti_, QStringList{q(nome())});
}

TEST_F(StampaPdf, UnNuovoLavoroSostituisceQuelloDiPrima) {
    for (const char* testo : {"primo", "secondo"}) {
        PrinterQt p("prova", q(nome()));
        p.Print(testo);
        ASSERT_TRUE(p.EndDoc());
    }
    const auto parole = support::parole(nome());
    ASSERT_EQ(parole.size(), 1U);
    EXPECT_EQ(parole[0].testo, "secondo");
}

TEST_F(StampaPdf, UnLavoroLasciatoNonLasciaTracce) {
    cartella_.scrivi("prova.pdf", "prima");
    {
        PrinterQt p("prova", q(nome()));
        p.Print("x");
        p.KillDoc();
    }
    {
        PrinterQt p("prova", q(nome()));
        p.Print("x");
    }
    EXPECT_EQ(cartella_.leggi("prova.pdf"), "prima");
    EXPECT_TRUE(aperti_.isEmpty());
    std::size_t quanti = 0;
    for (const auto& voce : std::filesystem::directory_iterator(cartella_.programma())) {
        quanti += voce.is_regular_file() ? 1 : 0;
    }
    EXPECT_EQ(quanti, 1U);
}

TEST_F(StampaPdf, DopoUnLavoroNeVieneUnAltro) {
    PrinterQt p("prova", q(nome()));
    p.Print("x");
    p.KillDoc();
    p.Print("y");
    ASSERT_TRUE(p.EndDoc());
    ASSERT_EQ(support::parole(nome()).size(), 1U);
    EXPECT_EQ(support::parole(nome())[0].testo, "y");
}

TEST_F(StampaPdf, DoveNonSiScriveIlLavoroSiPerde) {
    PrinterQt p("prova", q(cartella_.file("manca/prova.pdf")));
    p.Print("x");
    p.Line(1, 1, 2, 2);
    p.NewPage();
    p.LineB(1, 1, 2, 2);
    EXPECT_FALSE(p.EndDoc());
    EXPECT_TRUE(aperti_.isEmpty());
}

TEST_F(StampaPdf, SulDiscoPienoRestaIlFileDiPrima) {
    cartella_.scrivi("prova.pdf", "prima");
    rlimit prima{};
    ::getrlimit(RLIMIT_FSIZE, &prima);
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit poco{2000, prima.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &poco);
    PrinterQt p("prova", q(nome()));
    for (int i = 0; i < 40; ++i) {
        p.Print("abc");
        p.NewPage();
    }
    const bool riuscito = p.EndDoc();
    ::setrlimit(RLIMIT_FSIZE, &prima);
    ::signal(SIGXFSZ, SIG_DFL);
    EXPECT_FALSE(riuscito);
    EXPECT_EQ(cartella_.leggi("prova.pdf"), "prima");
    EXPECT_TRUE(aperti_.isEmpty());
}
