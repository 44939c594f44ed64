// The line at the foot of the main form follows the player.
#include <QAccessible>
#include <QProgressBar>
#include <QSignalSpy>

#include "app/piede.h"
#include "platform/qt/folder.h"
#include "platform/qt/scrivania.h"
#include "support/programma.h"

using support::Programma;

namespace {

class PiedeForm : public testing::Test {
protected:
    /// Empties the first cell, by keys.
    void svuota_casella() {
        p.form1.activateWindow();
        QApplication::processEvents();
        p.cella(0, 0);
        QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Delete);
    }
    [[nodiscard]] QString passo() const { return p.form1.lblpasso->text(); }

    Programma p{true};
};

TEST_F(PiedeForm, TheWholeRoadByMouse) {
    EXPECT_TRUE(passo().startsWith("Cruciverba vuoto")) << passo().toStdString();
    EXPECT_TRUE(p.form1.lblpasso->isVisible());
    p.riempi(24);
    EXPECT_EQ(passo(), "Mancano 12 numeri");
    p.riempi();
    EXPECT_EQ(passo(), "Cruciverba completo: salvatelo (Ctrl+S)");
    p.scrivi_nel_gestore("prova");
    Programma::voce(p.form1.mnusalva);
    EXPECT_EQ(passo(), "Salvato: elaboratelo (F5)");
    p.comando(1);
    EXPECT_EQ(passo(),
              "Elaborato: 14 combinazioni, 7,00 Euro · F6 le mostra, F7 le controlla, F9 le "
              "analizza");
    EXPECT_FALSE(p.form1.ProgressBar1->isVisible());
    EXPECT_TRUE(p.form1.lblpasso->isVisible());
    p.mostrati();
}

TEST_F(PiedeForm, EachNewStepIsToldToThoseWhoDoNotSee) {
    QSignalSpy detti(qobject_cast<platform::Annuncio*>(p.form1.lblpasso),
                     &platform::Annuncio::detto);
    p.cella(0, 0);
    p.numero(7);
    p.numero(8);
    ASSERT_EQ(detti.size(), 2);
    EXPECT_EQ(detti[0][0].toString(), "Mancano 35 numeri");
    EXPECT_EQ(detti[1][0].toString(), "Mancano 34 numeri");
    const auto* a = QAccessible::queryAccessibleInterface(p.form1.lblpasso);
    EXPECT_EQ(a->text(QAccessible::Name), "Mancano 34 numeri");
    // Screen readers speak of what appears without the focus the notifications alone.
    EXPECT_EQ(a->role(), QAccessible::Notification);
    EXPECT_EQ(a->text(QAccessible::Description), "");
}

TEST_F(PiedeForm, TheStepAndTheAnalysisStandSideBySide) {
    p.riempi_e_salva("prova");
    p.comando(1);
    p.mostrati();
    p.form1.mostra_analisi(
        "Analisi: 3 punti o meglio nello 0,3146 % delle estrazioni; con 6 numeri usciti almeno "
        "6 punti");
    QApplication::processEvents();
    const QLabel* passo_visto = p.form1.lblpasso;
    const QLabel* analisi = p.form1.lblanalisi;
    EXPECT_EQ(passo(), "Elaborato: 14 combinazioni, 7,00 Euro");
    EXPECT_TRUE(passo_visto->isVisible() && analisi->isVisible());
    EXPECT_FALSE(passo_visto->geometry().intersects(analisi->geometry()));
    EXPECT_GE(passo_visto->width(), passo_visto->sizeHint().width());
    EXPECT_GE(analisi->width(), analisi->sizeHint().width());
    svuota_casella();
    EXPECT_EQ(passo(), "Manca un numero");
    EXPECT_FALSE(analisi->isVisible());
}

TEST_F(PiedeForm, TheExplanationOfATypeHasItAllForItself) {
    p.form1.Combo4->setFocus();
    EXPECT_FALSE(p.form1.lblpasso->isVisible());
    EXPECT_TRUE(p.form1.lblanalisi->isVisible());
    p.form1.MSFlexGrid1->setFocus();
    EXPECT_TRUE(p.form1.lblpasso->isVisible());
}

TEST_F(PiedeForm, WhatTheManagerDidIsToldAndTheNextChangeTakesItsPlace) {
    p.riempi_e_salva("prova");
    p.comando(1);
    p.mostrati();
    Programma::voce(p.form1.mnugest_sist);
    systems::Form2* f = Programma::gestore();
    ASSERT_NE(f, nullptr);
    f->ListView1->setCurrentItem(f->ListView1->topLevelItem(0));
    p.risposte = {platform::vbYes};
    Programma::voce(f->mnuelimina);
    EXPECT_EQ(passo(), "Il sistema «prova» è stato eliminato");
    f->close();
    svuota_casella();
    EXPECT_EQ(passo(), "Manca un numero");
    p.mostrati();
}

TEST_F(PiedeForm, WhereASystemWasSentIsTold) {
    p.riempi_e_salva("prova");
    const std::string usb = p.cartella.radice() + "/usb";
    std::filesystem::create_directories(usb);
    Programma::voce(p.form1.mnugest_sist);
    systems::Form2* f = Programma::gestore();
    f->ListView1->setCurrentItem(f->ListView1->topLevelItem(0));
    const platform::Ripristina scelta(
        platform::scrivania().sceglie_cartella,
        [&](const QString&, const QString&) { return platform::q(usb); });
    Programma::voce(f->mnuinvia);
    QTest::qWait(0);
    EXPECT_EQ(passo(), "Il sistema «prova» è stato inviato in " +
                           platform::da_mostrare(platform::q(usb) + "/"));
    if (systems::Form2* nuovo = Programma::gestore()) nuovo->close();
}

TEST_F(PiedeForm, AGenerationIsToldUntilTheNextThingHappens) {
    Programma::clic(p.form1.cmdstat);
    EXPECT_TRUE(passo().startsWith("Generato")) << passo().toStdString();
    p.scrivi_nel_gestore("prova");
    Programma::voce(p.form1.mnusalva);
    EXPECT_EQ(passo(), "Salvato: elaboratelo (F5)");
    p.comando(1);
    EXPECT_TRUE(passo().startsWith("Elaborato"));
    EXPECT_FALSE(p.form1.lblanalisi->isVisible());
    p.mostrati();
}

TEST_F(PiedeForm, GenerateSaysWhyItDoesNothingOverAStartedCrossword) {
    p.cella(0, 0);
    p.numero(7);
    const auto prima = p.form1.sessione.matrice();
    Programma::clic(p.form1.cmdstat);
    EXPECT_EQ(p.form1.sessione.matrice(), prima);
    EXPECT_TRUE(passo().startsWith("Non generato: la prima casella")) << passo().toStdString();
    p.numero(8);
    EXPECT_EQ(passo(), "Mancano 34 numeri");
}

TEST_F(PiedeForm, ASaveThatTheDiskRefusesIsTold) {
    p.riempi_e_salva("prova");
    // A folder in the place of the system file lets nothing be written.
    std::filesystem::remove(p.cartella.file("prova.sen"));
    std::filesystem::create_directories(p.cartella.file("prova.sen"));
    p.form1.Combo3->set_ListIndex(0);
    p.cella(0, 0);
    Programma::voce(p.form1.mnusalva);
    EXPECT_EQ(passo(), "Il sistema non è stato scritto: il disco non lo ha accettato");
}

}  // namespace
