#include <QScrollBar>

#include "check/modulo_spoglio.h"
#include "platform/application.h"
#include "support/tenuto.h"

using check::frmspoglio;
using support::Mostrato;
using support::Programma;

namespace {

class Estrazione : public support::ModuloSpoglio {};

TEST_F(Estrazione, SuperenalottoListsTheDrawsFromTheNewest) {
    frmspoglio& f = apri();
    ASSERT_EQ(f.Combo1->count(), 3);
    EXPECT_EQ(f.Combo1->itemText(0), "    1234    -  31/12/2010");
    EXPECT_EQ(f.Combo1->itemText(1), "    0028    -  03/02/1999");
    EXPECT_EQ(f.Combo1->itemText(2), "    0027    -  07/01/1998");
}

TEST_F(Estrazione, NewestDrawStandsInTheBoxesWhenTheFormComesUp) {
    p.form1.sessione.in_linea("s");
    frmspoglio f(p.form1);
    EXPECT_EQ(f.Combo1->ListIndex(), 0);
    EXPECT_EQ(testi(f.txtnum), (QStringList{"15", "21", "33", "44", "70", "8", "90"}));
    EXPECT_EQ(f.focusWidget(), nullptr) << "not visible yet, so the focus stays";
    EXPECT_TRUE(f.Cmdspoglio->isEnabled());
}

TEST_F(Estrazione, ShownFormAwaitsTheFirstNumber) {
    frmspoglio& f = apri();
    EXPECT_EQ(f.focusWidget(), f.txtnum[1]);
}

TEST_F(Estrazione, ChoosingADrawFillsTheBoxesInTextOrder) {
    frmspoglio& f = apri();
    Programma::scegli(f.Combo1, 2);
    EXPECT_EQ(testi(f.txtnum), (QStringList{"60", "12", "33", "45", "5", "81", "9"}));
    EXPECT_EQ(f.focusWidget(), f.txtnum[1]);
}

TEST_F(Estrazione, TypingInTheClosedListLooksForTheDraw) {
    frmspoglio& f = apri();
    f.Combo1->setFocus();
    QTest::keyClicks(f.Combo1, "2");
    EXPECT_TRUE(f.Combo1->view()->isVisible());
    QTest::keyClicks(f.Combo1->view(), "7");
    EXPECT_EQ(f.Combo1->view()->currentIndex().row(), 2);
    EXPECT_EQ(f.Combo1->ListIndex(), 0) << "nothing is chosen yet";
    QTest::keyClick(f.Combo1->view(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(f.Combo1->ListIndex(), 2);
    EXPECT_EQ(testi(f.txtnum), (QStringList{"60", "12", "33", "45", "5", "81", "9"}));
}

TEST_F(Estrazione, TypingADateInTheOpenListLooksForItsDraw) {
    frmspoglio& f = apri();
    f.Combo1->showPopup();
    QTest::keyClicks(f.Combo1->view(), "03/02/1999");
    EXPECT_EQ(f.Combo1->view()->currentIndex().row(), 1);
    QTest::keyClick(f.Combo1->view(), Qt::Key_Escape);
    EXPECT_EQ(f.Combo1->ListIndex(), 0);
}

TEST_F(Estrazione, TypingInTheListOfTheLottoFindsTheFirstWheelOfTheDraw) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    f.Combo3->setFocus();
    QTest::keyClicks(f.Combo3, "4");
    EXPECT_EQ(f.Combo3->view()->currentIndex().data().toString(),
              "    0004    -  04/01/2001  -  BA");
}

TEST_F(Estrazione, LongListHasAScrollBar) {
    frmspoglio& f = apri();
    for (int i = 0; i < 4251; ++i) f.Combo1->AddItem("    0001    -  01/01/1990");
    f.Combo1->showPopup();
    QApplication::processEvents();
    EXPECT_TRUE(f.Combo1->view()->verticalScrollBar()->isVisible());
    const int in_vista = f.Combo1->view()->viewport()->height() /
                         f.Combo1->view()->visualRect(f.Combo1->model()->index(0, 0)).height();
    EXPECT_EQ(in_vista, 15);
    f.Combo1->hidePopup();
}

TEST_F(Estrazione, ChoosingTheSameDrawAgainFillsTheBoxesAgain) {
    frmspoglio& f = apri();
    f.txtnum[3]->setText("1");
    Programma::scegli(f.Combo1, 0);
    EXPECT_EQ(f.txtnum[3]->text(), "44");
}

TEST_F(Estrazione, DrawReplacesTheBoundFields) {
    apri();
    platform::Valore valore;
    for (const platform::Field& campo : p.form1.sessione.archivio.campi_estratti) {
        EXPECT_FALSE(campo.Value(valore).ok());
    }
    EXPECT_TRUE(p.form1.sessione.archivio.campo_concorso.Value(valore).ok());
    EXPECT_EQ(valore.intero(), 1234);
}

TEST_F(Estrazione, DrawThatIsGoneLeavesTheBoxesAsTheyAre) {
    frmspoglio& f = apri();
    f.Combo1->setItemText(1, "    0999    -  03/02/1999");
    Programma::scegli(f.Combo1, 1);
    EXPECT_EQ(testi(f.txtnum), (QStringList{"", "", "", "", "", "", ""}));
    f.txtnum[2]->setText("7");
    p.form1.sessione.archivio.draws.Seek("=", 999);
    f.comb_se8();
    EXPECT_EQ(f.txtnum[2]->text(), "7");
}

TEST_F(Estrazione, PastTheEndNoBoxChanges) {
    frmspoglio& f = apri();
    p.form1.sessione.archivio.draws.MoveLast();
    p.form1.sessione.archivio.draws.MoveNext();
    scrivi(f.txtnum, {"9", "8", "7", "6", "5", "4", "3"});
    f.comb_se8();
    EXPECT_EQ(testi(f.txtnum), (QStringList{"9", "8", "7", "6", "5", "4", "3"}));
}

TEST_F(Estrazione, LottoListsTheWheelsOfEachDrawAndTheNational) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    ASSERT_EQ(f.Combo3->count(), 32);
    EXPECT_EQ(f.Combo3->itemText(0), "    0005    -  05/01/2001  -  BA");
    EXPECT_EQ(f.Combo3->itemText(9), "    0005    -  05/01/2001  -  VE");
    EXPECT_EQ(f.Combo3->itemText(10), "    0005    -  05/05/2005  -  NAZ.");
    EXPECT_EQ(f.Combo3->itemText(31), "    0003    -  03/01/2001  -  VE");
    EXPECT_EQ(f.Combo3->ListIndex(), 0);
    EXPECT_EQ(testi(f.txtnumlotto), (QStringList{"31", "42", "53", "64", "75"}));
    EXPECT_EQ(f.focusWidget(), f.txtnumlotto[0]);
}

TEST_F(Estrazione, WheelOfALottoItemIsItsLastTwoCharacters) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    Programma::scegli(f.Combo3, 11 + 8);
    EXPECT_EQ(testi(f.txtnumlotto), (QStringList{"29", "40", "51", "62", "73"}));
    EXPECT_EQ(f.focusWidget(), f.txtnumlotto[0]);
    EXPECT_EQ(p.form1.sessione.archivio.campo_1.Value().testo(), "TO");
    EXPECT_EQ(p.form1.sessione.archivio.campi_estratti[1].Value().intero(), 29);
}

TEST_F(Estrazione, NationalItemReadsTheNationalTable) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    Programma::scegli(f.Combo3, 21);
    EXPECT_EQ(f.Combo3->Text(), "    0004    -  04/05/2005  -  NAZ.");
    EXPECT_EQ(testi(f.txtnumlotto), (QStringList{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(p.form1.sessione.archivio.national.Fields(7).Value().intero(), 4);
    EXPECT_EQ(f.focusWidget(), f.txtnumlotto[0]);
}

TEST_F(Estrazione, DrawMissingFromTheNationalTableLeavesTheBoxesBlank) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    f.Combo3->setItemText(10, "    0999    -  05/05/2005  -  NAZ.");
    Programma::scegli(f.Combo3, 10);
    EXPECT_EQ(testi(f.txtnumlotto), (QStringList{"", "", "", "", ""}));
}

TEST_F(Estrazione, NationalQueryThatFailsLeavesTheBoxesBlank) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    Programma::scegli(f.Combo3, 10);
    EXPECT_EQ(f.txtnumlotto[0]->text(), "6");
    // The record of that draw is still the current one.
    p.form1.sessione.archivio.database = {};
    Programma::scegli(f.Combo3, 21);
    EXPECT_EQ(testi(f.txtnumlotto), (QStringList{"", "", "", "", ""}));
    EXPECT_EQ(f.focusWidget(), f.txtnumlotto[0]);
}

TEST_F(Estrazione, WheelThatIsNotThereLeavesTheBoxesAsTheyAre) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    const QStringList prima = testi(f.txtnumlotto);
    for (const char* voce :
         {"    0004    -  05/05/2005  -  XX", "    0999    -  05/05/2005  -  BA"}) {
        f.Combo3->setItemText(5, voce);
        Programma::scegli(f.Combo3, 5);
        EXPECT_EQ(testi(f.txtnumlotto), prima) << voce;
    }
}

TEST_F(Estrazione, NumbersOfTwoDigitsMoveTheFocusOn) {
    frmspoglio& f = apri();
    f.txtnum[1]->setFocus();
    for (const char* numero : {"01", "02", "03", "04", "05", "06"}) {
        QTest::keyClicks(f.focusWidget(), numero);
    }
    EXPECT_EQ(f.focusWidget(), f.txtnum[0]) << "the Jolly comes after the six numbers";
    QTest::keyClicks(f.focusWidget(), "07");
    EXPECT_EQ(f.focusWidget(), f.Cmdspoglio);
    EXPECT_EQ(testi(f.txtnum), (QStringList{"07", "01", "02", "03", "04", "05", "06"}));
}

TEST_F(Estrazione, NumberOfOneDigitStaysInItsBox) {
    frmspoglio& f = apri();
    f.txtnum[2]->setFocus();
    QTest::keyClicks(f.txtnum[2], "7");
    EXPECT_EQ(f.focusWidget(), f.txtnum[2]);
    QTest::keyClicks(f.txtnum[2], "1");
    EXPECT_EQ(f.focusWidget(), f.txtnum[3]);
}

TEST_F(Estrazione, LottoBoxesGoRound) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    f.txtnumlotto[0]->setFocus();
    for (const char* numero : {"11", "12", "13", "14"}) QTest::keyClicks(f.focusWidget(), numero);
    EXPECT_EQ(f.focusWidget(), f.txtnumlotto[4]);
    QTest::keyClicks(f.focusWidget(), "15");
    EXPECT_EQ(f.focusWidget(), f.txtnumlotto[0]);
    EXPECT_EQ(testi(f.txtnumlotto), (QStringList{"11", "12", "13", "14", "15"}));
}

TEST_F(Estrazione, EnteringABoxSelectsItsText) {
    frmspoglio& f = apri();
    f.txtnum[4]->setFocus();
    EXPECT_EQ(f.txtnum[4]->selectedText(), f.txtnum[4]->text());
    Programma::clic(f.txtnum[5]);
    EXPECT_EQ(f.txtnum[5]->selectedText(), f.txtnum[5]->text());
    EXPECT_EQ(f.focusWidget(), f.txtnum[5]);
    // A click in the box that is entered already puts the cursor.
    Programma::clic(f.txtnum[5]);
    EXPECT_EQ(f.txtnum[5]->selectedText(), "");
}

class SenzaArchivio : public Estrazione {
protected:
    void SetUp() override { support::togli_archivio(p.cartella.radice()); }
};

TEST_F(SenzaArchivio, OpeningThatFailsIsToldAndTheNumbersAreTyped) {
    frmspoglio& f = apri();
    const std::vector<Mostrato> detti = p.mostrati();
    ASSERT_EQ(detti.size(), 1U);
    EXPECT_TRUE(detti[0].testo.startsWith("Errore n.3024 ")) << detti[0].testo.toStdString();
    EXPECT_EQ(detti[0].titolo, "");
    EXPECT_EQ(f.Combo1->count(), 0);
    scrivi(f.txtnum, {"7", "1", "2", "3", "4", "5", "6"});
    Programma::clic(f.Cmdspoglio);
    EXPECT_EQ(f.lblvinc[0]->text(), "1");
}

TEST_F(SenzaArchivio, HandlesStayAsTheyWere) {
    const auto prima = p.form1.sessione.archivio.draws.Fields(9).Value().intero();
    ASSERT_TRUE(prima);
    apri();
    p.mostrati();
    EXPECT_EQ(p.form1.sessione.archivio.draws.Fields(9).Value().intero(), prima);
}

TEST_F(Estrazione, ArchiveHeldByAnotherIsTold) {
    const support::Tenuto tenuto(p.cartella.radice() + "/archivio/drawit.sqlite");
    frmspoglio& f = apri();
    EXPECT_EQ(p.mostrati(),
              (std::vector<Mostrato>{{"Database archivio già aperto", "Tabellino",
                                      support::Pulsanti::ok, support::Icona::nessuna}}));
    EXPECT_EQ(f.Combo1->count(), 0);
}

TEST_F(Estrazione, ArchiveIsFoundFromAPathThatEndsInASeparator) {
    platform::App().Path = p.cartella.programma() + "/";
    frmspoglio& f = apri();
    EXPECT_EQ(f.Combo1->count(), 3);
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(Estrazione, GameFlagDecidesTheTableAlsoAfterAChangeOfGame) {
    Programma::clic(p.form1.Image10);
    Programma::clic(p.form1.Image8);
    p.mostrati();
    frmspoglio& f = apri();
    EXPECT_EQ(f.Combo1->count(), 3);
    EXPECT_EQ(testi(f.txtnum), (QStringList{"15", "21", "33", "44", "70", "8", "90"}));
}

}  // namespace
