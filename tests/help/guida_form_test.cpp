// The menu "Guida": the guide's launcher, the web site and the about box.
#include "help/frmAbout.h"
#include "help/guida.h"
#include "support/programma.h"

namespace {

using support::Programma;

std::string contenuto(const std::string& nome) {
    std::ifstream file(nome, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

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

TEST(Guida, SenzaIlProgrammaNonDiceNulla) {
    Programma p;
    p.voce(p.form1.mnuaiuto);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(contenuto(p.cartella.radice() + "/open"), "\"guida\"\r\n");
}

TEST(Guida, IlSitoSiApreNelProgrammaDelDesktop) {
    Programma p;
    QStringList aperti;
    platform::apri_con([&aperti](const QString& documento) {
        aperti << documento;
        return true;
    });
    p.voce(p.form1.mnuweb);
    platform::apri_con({});
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
