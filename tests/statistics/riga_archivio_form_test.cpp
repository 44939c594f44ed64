// Where draws are used it is said what they are, and an import is noticed without a restart.
#include "analysis/frmanalisi.h"
#include "check/frmspoglio.h"
#include "platform/ambiente.h"
#include "statistics/riga_archivio.h"
#include "support/altre_finestre.h"
#include "support/archivi_veri.h"
#include "support/finestre_aperte.h"

using statistics::RigaArchivio;
using support::aperta;
using support::contenuto;
using support::Programma;

namespace {

constexpr platform::Data ultima{2026, 11, 12};
const QString inventate = "Estrazioni inventate per prova";
const QString vere = "L'ultima estrazione è del 12/11/2026, 10 giorni fa";

class RigaArchivioForm : public testing::Test {
protected:
    platform::Ripristina<std::optional<platform::Data>> giorno_{platform::ambiente().oggi,
                                                                platform::Data{2026, 11, 22}};
    void importa() const { ASSERT_TRUE(support::metti_vero(p.cartella.radice(), ultima)); }
    /// The keyboard comes back from another window.
    static void torna(QWidget& finestra) {
        QEvent evento(QEvent::WindowActivate);
        QApplication::sendEvent(&finestra, &evento);
    }
    [[nodiscard]] RigaArchivio& riga(const char* nome = "archivio") const {
        return *p.form1.Frame7->findChild<RigaArchivio*>(nome);
    }
    check::frmspoglio& spoglio() {
        p.riempi_e_salva("prova");
        p.comando(1);
        p.mostrati();
        p.comando(6);
        return *aperta<check::frmspoglio>();
    }

    Programma p{true, [](const support::Cartella& c) {
                    EXPECT_TRUE(support::metti_dimostrativo(c.radice()));
                }};
};

TEST_F(RigaArchivioForm, TheFrameOfTheGeneratorsSaysThatTheDrawsAreInvented) {
    EXPECT_TRUE(riga().isVisible());
    EXPECT_EQ(riga().lblarchivio->text(), inventate);
    EXPECT_TRUE(riga().cmdarchivio->isVisible());
    EXPECT_FALSE(riga("archivio_breve").isVisible());
    EXPECT_TRUE(p.form1.cmdstat->toolTip().endsWith(inventate));
    Programma::clic(p.form1.Image10);
    EXPECT_FALSE(riga().isVisible());
    EXPECT_TRUE(riga("archivio_breve").isVisible());
    EXPECT_TRUE(riga("archivio_breve").cmdarchivio->toolTip().startsWith(inventate));
}

TEST_F(RigaArchivioForm, TheTabulatorComesToTheButtonWhereItStands) {
    const auto dopo = [](QWidget* w) {
        w->setFocus();
        QTest::keyClick(w, Qt::Key_Tab);
        return w->window()->focusWidget();
    };
    EXPECT_EQ(dopo(p.form1.cmdstat), riga().cmdarchivio);
    EXPECT_EQ(dopo(riga().cmdarchivio), p.form1.Combo3);
    Programma::clic(p.form1.Image10);
    EXPECT_EQ(dopo(p.form1.Combo2), riga("archivio_breve").cmdarchivio);
    EXPECT_EQ(dopo(riga("archivio_breve").cmdarchivio), p.form1.cmdstat);
    Programma::clic(p.form1.Image8);
    const check::frmspoglio& f = spoglio();
    EXPECT_EQ(dopo(f.Cmdspoglio), f.riga_archivio->cmdarchivio);
    EXPECT_EQ(dopo(f.riga_archivio->cmdarchivio), f.Command1);
}

TEST_F(RigaArchivioForm, TheButtonGrowsWithItsNeighbours) {
    check::frmspoglio& f = spoglio();
    ASSERT_EQ(f.riga_archivio->cmdarchivio->height(), f.Command1->height());
    f.resize(f.size() * 2);
    QApplication::processEvents();
    EXPECT_NEAR(f.riga_archivio->cmdarchivio->height(), f.Command1->height(), 1);
    f.close();
}

TEST_F(RigaArchivioForm, WhatIsSaidFitsItsPlace) {
    const auto sta = [](const RigaArchivio& r) {
        if (r.lblarchivio->isVisible()) {
            EXPECT_GE(r.lblarchivio->height(),
                      r.lblarchivio->heightForWidth(r.lblarchivio->width()));
        }
        const QPushButton* b = r.cmdarchivio;
        if (!b->isVisible()) return;
        EXPECT_GE(b->width(), b->fontMetrics().horizontalAdvance(b->text()) + 20);
        EXPECT_TRUE(r.rect().contains(b->geometry()));
    };
    sta(riga());
    Programma::clic(p.form1.Image10);
    QApplication::processEvents();
    sta(riga("archivio_breve"));
    Programma::clic(p.form1.Image8);
    check::frmspoglio& f = spoglio();
    sta(*f.riga_archivio);
    importa();
    torna(f);
    QApplication::processEvents();
    sta(*f.riga_archivio);
}

TEST_F(RigaArchivioForm, BackFromAnImportTheMainFormTellsOfTheNewDraws) {
    importa();
    torna(p.form1);
    EXPECT_EQ(riga().lblarchivio->text(), vere);
    EXPECT_FALSE(riga().cmdarchivio->isVisible());
    EXPECT_EQ(p.form1.lblpasso->text(), "Estrazioni nuove: l" + vere.mid(1));
    Programma::clic(p.form1.Image10);
    EXPECT_FALSE(riga("archivio_breve").isVisible());
}

TEST_F(RigaArchivioForm, TheCheckFormSaysSoToo) {
    const check::frmspoglio& f = spoglio();
    EXPECT_EQ(f.riga_archivio->lblarchivio->text(), inventate);
    EXPECT_TRUE(f.riga_archivio->cmdarchivio->isVisible());
}

TEST_F(RigaArchivioForm, ADrawImportedWhileTheCheckFormStandsIsTheOneInTheBoxes) {
    check::frmspoglio& f = spoglio();
    const int prima = f.Combo1->count();
    importa();
    torna(f);
    EXPECT_EQ(f.Combo1->count(), prima + 1);
    EXPECT_TRUE(f.Combo1->Text().endsWith("12/11/2026"));
    EXPECT_EQ(f.txtnum[1]->text(), "1");
    EXPECT_EQ(f.txtnum[0]->text(), "7");
    EXPECT_EQ(f.riga_archivio->lblarchivio->text(), vere);
    EXPECT_FALSE(f.riga_archivio->cmdarchivio->isVisible());
}

TEST_F(RigaArchivioForm, AResultThatStandsIsNotTakenAwayByAnImport) {
    check::frmspoglio& f = spoglio();
    Programma::scegli(f.Combo1, 3);
    const QString scelta = f.Combo1->Text();
    Programma::clic(f.Cmdspoglio);
    const QString totale = f.lblvinc[0]->text();
    ASSERT_FALSE(totale.isEmpty());
    importa();
    torna(f);
    EXPECT_EQ(f.Combo1->Text(), scelta);
    EXPECT_EQ(f.Combo1->ListIndex(), 4);
    EXPECT_EQ(f.lblvinc[0]->text(), totale);
    // The draws behind the list are the new ones.
    Programma::scegli(f.Combo1, 0);
    EXPECT_EQ(f.txtnum[6]->text(), "6");
}

TEST_F(RigaArchivioForm, TheWheelsOfTheCheckFormAreReadAgainToo) {
    Programma::clic(p.form1.Image10);
    check::frmspoglio& f = spoglio();
    importa();
    torna(f);
    EXPECT_TRUE(f.Combo3->Text().contains("12/11/2026"));
    EXPECT_EQ(f.txtnumlotto[0]->text(), "11");
}

TEST_F(RigaArchivioForm, NumbersThatAreBeingTypedStay) {
    check::frmspoglio& f = spoglio();
    f.txtnum[1]->setFocus();
    QTest::keyClicks(f.txtnum[1], "88");
    importa();
    torna(f);
    EXPECT_EQ(f.txtnum[1]->text(), "88");
    EXPECT_EQ(f.Combo1->ListIndex(), 1);
}

TEST_F(RigaArchivioForm, TheAnalysisCountsThePastOverTheNewDraws) {
    p.riempi_e_salva("prova");
    p.comando(1);
    p.mostrati();
    Programma::voce(p.form1.mnuanalisi);
    auto* f = aperta<analysis::frmanalisi>();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->riga_archivio->lblarchivio->text(), inventate);
    importa();
    torna(*f);
    EXPECT_EQ(f->riga_archivio->lblarchivio->text(), vere);
    EXPECT_FALSE(f->anni->griglia->findItems("2026", Qt::MatchExactly).isEmpty());
}

TEST_F(RigaArchivioForm, InventedDrawsInTheSteadOfAFileThatNothingReadsAreSaid) {
    platform::LettoreJet nessuno;
    nessuno.programma = p.cartella.file("manca");
    const platform::Ripristina finto(platform::ambiente().lettore_jet, nessuno);
    std::filesystem::copy_file(SOURCE_DIR "/tests/fixtures/jet/drawit.mdb",
                               p.cartella.radice() + "/archivio/drawit.mdb");
    ASSERT_TRUE(p.form1.sessione.apri_archivio().ok());
    riga().aggiorna();
    EXPECT_EQ(riga().lblarchivio->text(),
              "Estrazioni inventate (drawit.mdb vuole il driver di Access)");
    EXPECT_TRUE(riga().cmdarchivio->isVisible());
    QApplication::processEvents();
    EXPECT_GE(riga().lblarchivio->height(),
              riga().lblarchivio->heightForWidth(riga().lblarchivio->width()));
}

TEST_F(RigaArchivioForm, TheImporterOpensAtTheGameInForce) {
    const std::string programma = p.cartella.programma() + "/archivio";
    const std::string detto = p.cartella.programma() + "/detto";
    std::ofstream(programma) << "#!/bin/sh\necho \"$@\" > detto.tmp\nmv detto.tmp detto\n";
    std::filesystem::permissions(programma, std::filesystem::perms::owner_all);
    const auto arriva = [&detto](const std::string& parole) {
        return QTest::qWaitFor([&] { return contenuto(detto) == parole + "\n"; }, 10000);
    };
    support::AltreFinestre nessuna({});
    Programma::clic(riga().cmdarchivio);
    EXPECT_TRUE(arriva("--gioco superenalotto"));
    Programma::clic(p.form1.Image10);
    Programma::voce(p.form1.mnuarchivio);
    EXPECT_TRUE(arriva("--gioco lotto"));
}

TEST_F(RigaArchivioForm, AnImporterThatStandsComesToTheFront) {
    support::AltreFinestre altre({{7, "Tabellino - Archivio delle estrazioni", false}});
    Programma::voce(p.form1.mnuarchivio);
    EXPECT_EQ(altre.fatte, std::vector<std::string>{"attiva 7"});
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(RigaArchivioForm, AMissingImporterIsTold) {
    support::AltreFinestre nessuna({});
    Programma::voce(p.form1.mnuarchivio);
    const auto detto = p.mostrati();
    ASSERT_EQ(detto.size(), 1U);
    EXPECT_TRUE(detto[0].testo.startsWith("Il programma \"archivio\""));
}

}  // namespace
