// The menu "Guida": the guide's launcher, the web site and the about box.
#include "help/finestra.h"
#include "help/frmAbout.h"
#include "help/guida.h"
#include "platform/qt/scrivania.h"
#include "support/altre_finestre.h"
#include "support/programma.h"

namespace {

using support::AltreFinestre;
using support::contenuto;
using support::Programma;

/// Waits for what another process writes.
std::string quando_arriva(const std::string& nome) {
    const bool arrivato = QTest::qWaitFor([&] { return !contenuto(nome).empty(); }, 10000);
    return arrivato ? contenuto(nome) : "nothing came";
}

TEST(Guida, SiAvviaDallaRadiceEDiceCheCosaAprire) {
    Programma p;
    const std::string radice = p.cartella.radice();
    const std::string programma = radice + "/guida";
    std::ofstream(programma) << "#!/bin/sh\ncat open > prova.tmp\npwd >> prova.tmp\n"
                                "mv prova.tmp prova\n";
    std::filesystem::permissions(programma, std::filesystem::perms::owner_all);
    std::ofstream(radice + "/open") << "\"una riga di prima\"\r\n\"altro\"\r\n";
    p.voce(p.form1.mnuaiuto);
    EXPECT_EQ(quando_arriva(radice + "/prova"), "\"guida\"\r\n" + radice + "\n");
    EXPECT_EQ(contenuto(radice + "/open"), "\"guida\"\r\n");
}

TEST(Guida, ConLaFinestraAllaVistaNonSiScriveESiAttiva) {
    Programma p;
    const std::string radice = p.cartella.radice();
    std::ofstream(radice + "/guida") << "#!/bin/sh\n: > avviata\n";
    std::filesystem::permissions(radice + "/guida", std::filesystem::perms::owner_all);
    AltreFinestre altre({{4, "Tabellino", false}, {7, "GUIDA", false}});
    p.voce(p.form1.mnuaiuto);
    EXPECT_EQ(altre.fatte, (std::vector<std::string>{"mostra 7", "attiva 7"}));
    EXPECT_FALSE(std::filesystem::exists(radice + "/open"));
    EXPECT_FALSE(std::filesystem::exists(radice + "/avviata"));
}

TEST(Guida, SiAttivaQuellaGiustaAncheSottoUnAltraCheCominciaCosi) {
    Programma p;
    AltreFinestre altre({{9, "Guida di Roma", false}, {7, "Guida", false}});
    p.voce(p.form1.mnuaiuto);
    EXPECT_EQ(altre.fatte, (std::vector<std::string>{"mostra 9", "attiva 7"}));
    EXPECT_FALSE(std::filesystem::exists(p.cartella.radice() + "/open"));
}

TEST(Guida, UnTitoloQualunqueCheCominciaCosiBasta) {
    Programma p;
    AltreFinestre altre({{9, "Guidatori d'Italia", false}});
    p.voce(p.form1.mnuaiuto);
    EXPECT_EQ(altre.fatte, (std::vector<std::string>{"mostra 9", "attiva 9"}));
    EXPECT_FALSE(std::filesystem::exists(p.cartella.radice() + "/open"));
}

TEST(Guida, LaPaginaUnicaNelBrowserNonPassaPerLaGuida) {
    const std::string pagina = contenuto(SUITE_DIR "/guida.html");
    const std::size_t da = pagina.find("<title>") + 7;
    const std::string titolo = pagina.substr(da, pagina.find("</title>") - da);
    EXPECT_EQ(titolo, "Tabellino - guida");
    EXPECT_EQ(help::trova_finestra({{3, titolo, false}}, "guida*", false), 0U);
}

TEST(Guida, SenzaFinestraNonSiMostraNulla) {
    Programma p;
    AltreFinestre altre({{4, "La guida", false}});
    p.voce(p.form1.mnuaiuto);
    EXPECT_TRUE(altre.fatte.empty());
    EXPECT_EQ(contenuto(p.cartella.radice() + "/open"), "\"guida\"\r\n");
}

TEST(Guida, SenzaIlProgrammaNonDiceNulla) {
    Programma p;
    p.voce(p.form1.mnuaiuto);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(contenuto(p.cartella.radice() + "/open"), "\"guida\"\r\n");
}

TEST(Guida, IlSitoSiApreNelProgrammaDelDesktop) {
    Programma p;
    QStringList aperti;
    const platform::Ripristina desktop(platform::scrivania());
    platform::scrivania().apre = [&aperti](const QString& documento) {
        aperti << documento;
        return true;
    };
    p.voce(p.form1.mnuweb);
    EXPECT_EQ(aperti, QStringList{platform::q(p.cartella.radice() + "/guida.html")});
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(Informazioni, TestiVersioneEChiusura) {
    Programma p;
    platform::App().Major = 4;
    platform::App().Minor = 5;
    platform::App().Revision = 6;
    bool vista = false;
    QTimer::singleShot(0, qApp, [&vista] {
        auto* f = qobject_cast<help::frmAbout*>(QApplication::activeModalWidget());
        ASSERT_NE(f, nullptr);
        vista = true;
        EXPECT_EQ(f->windowTitle(), "Informazioni su Tabellino");
        EXPECT_EQ(f->lblTitle->text(), "Tabellino");
        EXPECT_EQ(f->lblVersion->text(), "Versione 4.5.6");
        EXPECT_EQ(f->lblDescription->text(),
                  "Software per la creazione e la gestione di Sitemi a Cruciverba per il "
                  "SuperEnalotto. Tabellino è parte integrante di \"Sortivario 2004\"");
        EXPECT_EQ(f->Label1->text(), "Tabellino è parte integrante di Sortivario Plus");
        QTest::mouseClick(f->cmdOK, Qt::LeftButton);
        EXPECT_FALSE(f->isVisible());
    });
    p.form1.mnuinfo->trigger();
    EXPECT_TRUE(vista);
    EXPECT_TRUE(p.form1.findChildren<help::frmAbout*>().isEmpty());
}

}  // namespace
