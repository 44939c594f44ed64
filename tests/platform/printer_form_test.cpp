// Print jobs that go into a PDF file, read back with the tools that players' viewers use.
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <vector>

#include <QPageLayout>
#include <QPrinter>
#include <QStringList>

#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/printer_qt.h"
#include "platform/qt/scrivania.h"
#include "support/cartella.h"
#include "support/guasti.h"
#include "support/pdf.h"

using platform::PrinterQt;
using platform::q;
using support::Parola;

namespace {

/// A folder to print in and the documents that were to be shown.
class StampaPdf : public testing::Test {
protected:
    void SetUp() override {
        platform::scrivania().stampa_solo_su_file = true;
        platform::scrivania().apre = [this](const QString& documento) {
            aperti_ << documento;
            return true;
        };
    }
    [[nodiscard]] std::string nome() const { return cartella_.file("prova.pdf"); }
    /// Ten pages of text, and what came of them.
    bool dieci_pagine(PrinterQt& p) const {
        for (int i = 0; i < 10; ++i) {
            if (i > 0) p.NewPage();
            for (int k = 0; k < 300; ++k) p.Print(std::to_string(i * k) + " 17 23 38 61 90");
        }
        return p.EndDoc();
    }
    /// Files of the folder.
    [[nodiscard]] std::vector<std::string> file() const {
        return platform::Dir(cartella_.programma(), "*");
    }

    support::Cartella cartella_;
    QStringList aperti_;
    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
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

TEST_F(StampaPdf, FinitoIlLavoroDiceDovE) {
    PrinterQt p("prova", q(nome()));
    p.Print("x");
    EXPECT_FALSE(cartella_.esiste("prova.pdf"));
    ASSERT_TRUE(p.EndDoc());
    EXPECT_EQ(p.esito().file, q(nome()));
    EXPECT_EQ(p.esito().stampante, "");
    EXPECT_EQ(p.esito().motivo, "");
    EXPECT_FALSE(p.esito().altro_prima);
    EXPECT_TRUE(aperti_.isEmpty()) << "only when the player asks for it";
}

TEST_F(StampaPdf, UnNuovoLavoroSostituisceQuelloDiPrima) {
    for (const char* testo : {"primo", "secondo"}) {
        PrinterQt p("prova", q(nome()));
        p.Print(testo);
        ASSERT_TRUE(p.EndDoc());
        EXPECT_EQ(p.esito().altro_prima, std::string(testo) == "secondo");
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
    EXPECT_TRUE(p.perso()) << "known before the work is done";
    EXPECT_FALSE(p.EndDoc());
    EXPECT_EQ(p.esito().motivo, "la cartella non esiste");
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

// A disk that fills at any point says so, or says nothing at all: the size tells.
TEST_F(StampaPdf, UnDiscoPienoInOgniPuntoNonLasciaUnPdfTagliato) {
    for (const bool perde : {false, true}) {
        for (const std::int64_t spazio : {0, 1, 9000, 20000}) {
            SCOPED_TRACE(std::to_string(spazio) + (perde ? " lost" : ""));
            cartella_.scrivi("prova.pdf", "prima");
            PrinterQt p("prova", q(nome()));
            {
                support::Disco disco;
                disco.spazio = spazio;
                disco.perde = perde;
                EXPECT_FALSE(dieci_pagine(p));
            }
            EXPECT_EQ(p.esito().motivo, "sul disco non c'è più posto");
            EXPECT_TRUE(p.esito().altro_prima);
            EXPECT_EQ(cartella_.leggi("prova.pdf"), "prima");
            EXPECT_EQ(file(), std::vector<std::string>{"prova.pdf"});
        }
    }
}

TEST_F(StampaPdf, IlPdfVaSulDiscoPrimaDiPrendereIlSuoNome) {
    support::Disco disco;
    PrinterQt p("prova", q(nome()));
    ASSERT_TRUE(dieci_pagine(p));
    EXPECT_GE(disco.sync, 1);
    disco.fsync_fallisce = true;
    cartella_.scrivi("prova.pdf", "prima");
    PrinterQt secondo("prova", q(nome()));
    EXPECT_FALSE(dieci_pagine(secondo));
    EXPECT_EQ(cartella_.leggi("prova.pdf"), "prima");
    disco.fsync_fallisce = false;
    disco.rename_fallisce = true;
    PrinterQt terzo("prova", q(nome()));
    EXPECT_FALSE(dieci_pagine(terzo));
    EXPECT_EQ(terzo.esito().motivo, "il disco non lo ha accettato");
    EXPECT_EQ(file(), std::vector<std::string>{"prova.pdf"});
}

TEST_F(StampaPdf, UnaCartellaAlSuoPostoLoFerma) {
    std::filesystem::create_directory(nome());
    PrinterQt p("prova", q(nome()));
    p.Print("x");
    EXPECT_TRUE(p.perso());
    EXPECT_FALSE(p.EndDoc());
    EXPECT_EQ(p.esito().motivo, "al suo posto c'è una cartella con lo stesso nome");
    EXPECT_TRUE(file().empty());
}

TEST_F(StampaPdf, UnCollegamentoCedeIlPostoEIlSuoFileResta) {
    cartella_.scrivi("altro.pdf", "prima");
    std::filesystem::create_symlink(cartella_.file("altro.pdf"), nome());
    PrinterQt p("prova", q(nome()));
    p.Print("x");
    ASSERT_TRUE(p.EndDoc());
    EXPECT_EQ(cartella_.leggi("altro.pdf"), "prima");
    EXPECT_EQ(support::pagine(nome()), 1);
}

TEST_F(StampaPdf, LeLettereAccentateStannoComeLeAltre) {
    PrinterQt p("prova", q(nome()));
    p.CurrentX = 10;
    p.CurrentY = 5;
    p.Print("Quantità  è «così»");
    p.CurrentX = 10;
    p.CurrentY = 8;
    p.Print("Quantita  e 'cosi'");
    ASSERT_TRUE(p.EndDoc());
    const auto parole = support::parole(nome());
    ASSERT_EQ(parole.size(), 6U);
    EXPECT_EQ(parole[0].testo, "Quantità");
    EXPECT_EQ(parole[2].testo, "«così»");
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(parole[i].x1, parole[i + 3].x1, 0.02) << i;
        EXPECT_NEAR(parole[i].x2, parole[i + 3].x2, 0.02) << i;
        EXPECT_NEAR(parole[i].y1 + 3, parole[i + 3].y1, 0.01) << i;
    }
}

namespace {

/// A printer that ends in a file, as the machine's own would on paper.
void stampante_finta(const std::string& file) {
    platform::scrivania().stampante = [file] {
        auto carta = std::make_unique<QPrinter>(QPrinter::HighResolution);
        carta->setOutputFormat(QPrinter::PdfFormat);
        carta->setOutputFileName(q(file));
        return carta;
    };
}

QPageLayout foglio(qreal bordo, QPageSize::PageSizeId misura = QPageSize::A4) {
    QPageLayout l(QPageSize(misura), QPageLayout::Portrait, QMarginsF(), QPageLayout::Millimeter,
                  QMarginsF(bordo, bordo, bordo, bordo));
    l.setMode(QPageLayout::FullPageMode);
    return l;
}

}  // namespace

TEST_F(StampaPdf, SullaStampanteDiceIlSuoNomeENonUnFile) {
    stampante_finta(cartella_.file("carta.pdf"));
    PrinterQt p("prova", q(nome()));
    p.Print("x");
    EXPECT_TRUE(p.EndDoc());
    EXPECT_EQ(p.esito().file, "");
    EXPECT_EQ(p.esito().motivo, "");
    EXPECT_FALSE(cartella_.esiste("prova.pdf"));
    EXPECT_EQ(support::pagine(cartella_.file("carta.pdf")), 1);
}

TEST_F(StampaPdf, UnaStampanteCheNonComincia) {
    stampante_finta(cartella_.file("manca/carta.pdf"));
    PrinterQt p("prova", q(nome()));
    p.Print("x");
    EXPECT_TRUE(p.perso());
    EXPECT_FALSE(p.EndDoc());
    EXPECT_EQ(p.esito().motivo, "la stampante non risponde");
}

TEST_F(StampaPdf, DentroIBordiDellaStampanteLaPaginaSiFaPiuPiccola) {
    constexpr int dot = 1440;
    constexpr qreal dot_al_millimetro = dot / 25.4;
    EXPECT_TRUE(platform::dentro_il_foglio(foglio(0), dot).isIdentity());
    EXPECT_TRUE(platform::dentro_il_foglio(foglio(0, QPageSize::A3), dot).isIdentity())
        << "never larger";
    for (const qreal bordo : {3.0, 4.23, 12.7}) {
        const QTransform t = platform::dentro_il_foglio(foglio(bordo), dot);
        EXPECT_DOUBLE_EQ(t.m11(), t.m22());
        const QRectF pagina =
            t.mapRect(QRectF(0, 0, 210 * dot_al_millimetro, 297 * dot_al_millimetro));
        constexpr qreal punto = dot / 72.0;
        EXPECT_GE(pagina.left(), bordo * dot_al_millimetro - punto);
        EXPECT_GE(pagina.top(), bordo * dot_al_millimetro - punto);
        EXPECT_LE(pagina.right(), (210 - bordo) * dot_al_millimetro + punto);
        EXPECT_LE(pagina.bottom(), (297 - bordo) * dot_al_millimetro + punto);
        EXPECT_NEAR(pagina.center().x(), 105 * dot_al_millimetro, punto);
        EXPECT_NEAR(pagina.width(), (210 - 2 * bordo) * dot_al_millimetro, punto);
    }
    const QTransform lettera = platform::dentro_il_foglio(foglio(0, QPageSize::Letter), dot);
    EXPECT_NEAR(lettera.m11(), 279.4 / 297, 0.001);
}
