#include <QResizeEvent>
#include <QScrollBar>

#include "check/modulo_spoglio.h"

using check::frmspoglio;
using platform::colore;
using platform::px;
using support::manca_un_numero;
using support::Mostrato;
using support::Programma;

namespace {

const QString rosso = colore(255).name();
const QString giallo = colore(65535).name();
const QString bianco = colore(0xFFFFFF).name();

class Esito : public support::ModuloSpoglio {
protected:
    /// Checks against 1 to 6, Jolly 7.
    static void spoglia(frmspoglio& f) {
        scrivi(f.txtnum, {"7", "1", "2", "3", "4", "5", "6"});
        Programma::clic(f.Cmdspoglio);
    }
    static void spoglia_lotto(frmspoglio& f) {
        scrivi(f.txtnumlotto, {"1", "2", "3", "4", "5"});
        Programma::clic(f.Cmdspoglio);
    }
    static std::string ripeti(const std::string& riga, int volte) {
        std::string testo;
        for (int i = 0; i < volte; ++i) testo += riga + "\r\n";
        return testo;
    }
    static QString sfondo(const frmspoglio& f, int riga, int colonna) {
        return f.MSFlexGrid1->sfondo(riga, colonna).name();
    }
};

const std::string nulla = "10,20,30,40,50,60";
const std::string tre = "1,2,3,40,50,60";

TEST_F(Esito, EachCategoryHasItsLabel) {
    frmspoglio& f = apri(
        "1,2,3,4,5,6\r\n1,2,3,4,5,60\r\n1,2,3,4,5,7\r\n1,2,3,4,50,60\r\n1,2,3,4,50,60\r\n"
        "1,2,3,40,50,60\r\n1,2,30,40,50,60\r\n1,20,30,40,50,60\r\n10,20,30,40,50,60\r\n",
        9);
    spoglia(f);
    EXPECT_EQ(testi(f.lblvinc), (QStringList{"6", "1", "1", "1", "2", "1", "1", "1"}));
    EXPECT_EQ(f.lblvinc_j[5]->text(), "1");
    EXPECT_FALSE(f.Cmdspoglio->isEnabled());
    EXPECT_TRUE(f.Cmdvincenti->isEnabled());
    EXPECT_FALSE(f.picprog1->isVisible());
    EXPECT_EQ(f.picprog2->width(), f.picprog1->width());
    EXPECT_TRUE(f.isEnabled());
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(Esito, DetailGivesTheKeyboardToTheList) {
    frmspoglio& f = apri(tre + "\r\n" + nulla + "\r\n", 2);
    spoglia(f);
    ASSERT_EQ(f.focusWidget(), f.Cmdvincenti);
    QTest::keyClick(f.Cmdvincenti, Qt::Key_Space);
    ASSERT_TRUE(f.ListView1->isVisible());
    EXPECT_EQ(f.focusWidget(), f.ListView1);
    QTest::keyClick(f.ListView1, Qt::Key_Return);
    EXPECT_EQ(f.ListView1->righe(), 2);
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(Esito, DetailInLottoIsNotAddedTwiceByASecondReturn) {
    frmspoglio& f = apri_lotto("1,2,3,40,50\r\n", 1);
    spoglia_lotto(f);
    ASSERT_TRUE(f.Cmdvincentilotto->isEnabled());
    f.Cmdvincentilotto->setFocus();
    QTest::keyClick(f.Cmdvincentilotto, Qt::Key_Space);
    EXPECT_EQ(f.focusWidget(), f.ListView1);
    QTest::keyClick(f.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(f.ListView1->righe(), 1);
}

TEST_F(Esito, EmptyCategoriesStayEmpty) {
    frmspoglio& f = apri(tre + "\r\n", 1);
    spoglia(f);
    EXPECT_EQ(testi(f.lblvinc), (QStringList{"1", "", "", "1", "", "", "", ""}));
    EXPECT_EQ(f.lblvinc_j[5]->text(), "");
}

TEST_F(Esito, TwoPointsAloneOfferNoDetail) {
    frmspoglio& f = apri("1,2,30,40,50,60\r\n", 1);
    spoglia(f);
    EXPECT_EQ(f.lblvinc[2]->text(), "1");
    EXPECT_EQ(f.lblvinc[0]->text(), "0");
    EXPECT_FALSE(f.Cmdvincenti->isEnabled());
    EXPECT_FALSE(f.Cmdspoglio->isEnabled());
}

TEST_F(Esito, SixPointsWithARepeatedJollyHaveNoLabel) {
    frmspoglio& f = apri("1,2,3,4,5,6\r\n", 1);
    scrivi(f.txtnum, {"6", "1", "2", "3", "4", "5", "6"});
    Programma::clic(f.Cmdspoglio);
    EXPECT_EQ(testi(f.lblvinc), (QStringList{"1", "", "", "", "", "", "", ""}));
    Programma::clic(f.Cmdvincenti);
    EXPECT_EQ(colonna(f, 2), QStringList{"6 + 1"});
}

TEST_F(Esito, BoxThatIsEmptyIsRefusedAndAsksOnceMore) {
    frmspoglio& f = apri(tre + "\r\n", 1);
    f.MSFlexGrid1->set_testo(0, 0, "1");
    scrivi(f.txtnum, {"", "1", "2", "3", "4", "5", "6"});
    bool abilitato = true;
    int puntatore = 0;
    p.al_messaggio = [&] {
        abilitato = f.isEnabled();
        puntatore = platform::MousePointer();
    };
    Programma::clic(f.Cmdspoglio);
    p.al_messaggio = {};
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{manca_un_numero});
    EXPECT_FALSE(abilitato);
    EXPECT_EQ(puntatore, 11);
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_TRUE(f.isEnabled());
    EXPECT_TRUE(f.Cmdspoglio->isEnabled());
    EXPECT_EQ(platform::Tag(f.Cmdspoglio), "");
    EXPECT_TRUE(f.picprog1->isVisible());
    EXPECT_EQ(f.picprog2->width(), 0);
    EXPECT_EQ(f.lblvinc[0]->text(), "");
    EXPECT_EQ(sfondo(f, 0, 0), bianco);
    EXPECT_EQ(f.focusWidget(), f.Cmdspoglio);
    f.txtnum[0]->setText("7");
    Programma::clic(f.Cmdspoglio);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(f.lblvinc[0]->text(), "1");
    EXPECT_FALSE(f.Cmdspoglio->isEnabled());
}

TEST_F(Esito, NoFurtherBoxIsLookedAtAfterTheFirstRefused) {
    frmspoglio& f = apri();
    scrivi(f.txtnum, {"0", "", "x", "", "", "", ""});
    Programma::clic(f.Cmdspoglio);
    EXPECT_EQ(p.mostrati().size(), 1U);
}

TEST_F(Esito, WinningNumbersAreColouredInTheCrossword) {
    frmspoglio& f = apri();
    f.MSFlexGrid1->set_testo(0, 0, "7");
    f.MSFlexGrid1->set_testo(1, 2, "3");
    f.MSFlexGrid1->set_testo(2, 2, "33");
    spoglia(f);
    EXPECT_EQ(sfondo(f, 0, 0), rosso);
    EXPECT_EQ(sfondo(f, 1, 2), giallo);
    EXPECT_EQ(sfondo(f, 2, 2), bianco);
    EXPECT_EQ(sfondo(f, 3, 3), bianco) << "an empty cell";
    EXPECT_TRUE(f.MSFlexGrid1->isVisible());
    Programma::clic(f.Command1);
    EXPECT_EQ(sfondo(f, 0, 0), bianco);
    EXPECT_EQ(sfondo(f, 1, 2), bianco);
}

TEST_F(Esito, JollyThatRepeatsAWinningNumberIsYellow) {
    frmspoglio& f = apri();
    f.MSFlexGrid1->set_testo(0, 0, "3");
    scrivi(f.txtnum, {"03", "1", "2", "3", "4", "5", "6"});
    Programma::clic(f.Cmdspoglio);
    EXPECT_EQ(sfondo(f, 0, 0), giallo);
}

TEST_F(Esito, LottoColoursAllInYellow) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    f.MSFlexGrid1->set_testo(0, 0, "1");
    f.MSFlexGrid1->set_testo(0, 1, "5");
    spoglia_lotto(f);
    EXPECT_EQ(sfondo(f, 0, 0), giallo);
    EXPECT_EQ(sfondo(f, 0, 1), giallo);
}

TEST_F(Esito, SystemOfNoCombinationsChecksNothing) {
    frmspoglio& f = apri(tre + "\r\n", 0);
    spoglia(f);
    EXPECT_EQ(testi(f.lblvinc), (QStringList{"0", "", "", "", "", "", "", ""}));
    EXPECT_FALSE(f.Cmdvincenti->isEnabled());
}

TEST_F(Esito, DetailListsEveryCombinationOverTheCrossword) {
    frmspoglio& f = apri(nulla + "\r\n1,2,3,4,5,7\r\n" + nulla + "\r\n", 3);
    spoglia(f);
    Programma::clic(f.Cmdvincenti);
    EXPECT_FALSE(f.Frame4->isVisible());
    EXPECT_TRUE(f.ListView1->isVisible());
    EXPECT_FALSE(f.piclist->isVisible());
    EXPECT_FALSE(f.picprog1->isVisible());
    EXPECT_FALSE(f.Cmdvincenti->isEnabled());
    EXPECT_TRUE(f.isEnabled());
    EXPECT_EQ(platform::MousePointer(), 0);
    ASSERT_EQ(f.ListView1->righe(), 3);
    EXPECT_EQ(riga(f, 1), (QStringList{"000000001", "1", "5 + 1", "1", "2", "3", "4", "5", "7"}));
    EXPECT_EQ(colonna(f, 2), (QStringList{"0", "5 + 1", "0"}));
    EXPECT_EQ(f.ListView1->model()->rowCount(), 3);
}

TEST_F(Esito, TwelveRowsKeepTheListNarrow) {
    frmspoglio& f = apri(ripeti(tre, 12), 12);
    spoglia(f);
    Programma::clic(f.Cmdvincenti);
    EXPECT_EQ(f.ListView1->righe(), 12);
    EXPECT_EQ(f.ListView1->Width(), 4980);
    QApplication::processEvents();
    EXPECT_FALSE(f.ListView1->verticalScrollBar()->isVisible());
}

TEST_F(Esito, ThirteenRowsMakeRoomForTheScrollBar) {
    frmspoglio& f = apri(ripeti(tre, 13), 13);
    spoglia(f);
    Programma::clic(f.Cmdvincenti);
    EXPECT_EQ(f.ListView1->Width(), 5225);
    EXPECT_EQ(f.ListView1->width(), px(5225));
    QApplication::processEvents();
    EXPECT_TRUE(f.ListView1->verticalScrollBar()->isVisible());
    Programma::clic(f.Command1);
    EXPECT_EQ(f.ListView1->width(), px(4980));
}

TEST_F(Esito, PanelsOfTheMomentNumberTheSlips) {
    frmspoglio& f = apri(ripeti(tre, 14), 14);
    spoglia(f);
    Programma::scegli(f.Combo2, 2);
    Programma::clic(f.Cmdvincenti);
    const QStringList schede = colonna(f, 1);
    EXPECT_EQ(schede.mid(11), (QStringList{"4", "5", "5"}));
    Programma::scegli(f.Combo2, 0);
    EXPECT_EQ(colonna(f, 1), schede) << "a list that stands does not change";
}

TEST_F(Esito, ButtonsSortUpAndDownInTurn) {
    frmspoglio& f = apri("1,2,3,4,5,6\r\n" + nulla + "\r\n1,2,3,4,5,7\r\n1,2,3,4,5,60\r\n", 4);
    Programma::scegli(f.Combo2, 0);
    spoglia(f);
    Programma::clic(f.Cmdvincenti);
    Programma::clic(f.cmdpunti);
    EXPECT_EQ(colonna(f, 2), (QStringList{"0", "5", "5 + 1", "6"}));
    EXPECT_EQ(platform::Tag(f.cmdpunti), "ASC");
    Programma::clic(f.cmdpunti);
    EXPECT_EQ(colonna(f, 2), (QStringList{"6", "5 + 1", "5", "0"}));
    EXPECT_EQ(platform::Tag(f.cmdpunti), "DESC");
    Programma::clic(f.cmdsched);
    EXPECT_EQ(colonna(f, 1), (QStringList{"1", "2", "3", "4"}));
    EXPECT_EQ(platform::Tag(f.cmdsched), "ASC");
    Programma::clic(f.cmdpunti);
    EXPECT_EQ(platform::Tag(f.cmdpunti), "ASC");
    EXPECT_EQ(platform::Tag(f.cmdsched), "ASC") << "each keeps its own state";
}

TEST_F(Esito, SlipsSortAsNumbers) {
    frmspoglio& f = apri(ripeti(tre, 11), 11);
    Programma::scegli(f.Combo2, 0);
    spoglia(f);
    Programma::clic(f.Cmdvincenti);
    Programma::clic(f.cmdsched);
    Programma::clic(f.cmdsched);
    EXPECT_EQ(colonna(f, 1).first(), "11");
    EXPECT_EQ(colonna(f, 1).at(1), "10");
    EXPECT_EQ(colonna(f, 1).last(), "1");
}

TEST_F(Esito, SortingOutlivesAnnulla) {
    frmspoglio& f = apri(nulla + "\r\n" + tre + "\r\n", 2);
    Programma::clic(f.cmdpunti);
    Programma::clic(f.cmdpunti);
    spoglia(f);
    Programma::clic(f.Cmdvincenti);
    EXPECT_EQ(colonna(f, 2), (QStringList{"3", "0"}));
    Programma::clic(f.Command1);
    EXPECT_EQ(platform::Tag(f.cmdpunti), "DESC");
    spoglia(f);
    Programma::clic(f.Cmdvincenti);
    EXPECT_EQ(colonna(f, 2), (QStringList{"3", "0"}));
}

TEST_F(Esito, AnnullaReturnsToReadyFromTheList) {
    frmspoglio& f = apri(tre + "\r\n", 1);
    spoglia(f);
    Programma::clic(f.Cmdvincenti);
    Programma::clic(f.Command1);
    EXPECT_TRUE(f.Frame4->isVisible());
    EXPECT_EQ(f.childAt(f.Frame4->geometry().center())->window(), &f);
    EXPECT_TRUE(f.Frame4->isAncestorOf(f.childAt(f.Frame4->geometry().center())));
    EXPECT_EQ(f.ListView1->righe(), 0);
    EXPECT_TRUE(f.Cmdspoglio->isEnabled());
    EXPECT_FALSE(f.Cmdvincenti->isEnabled());
    EXPECT_EQ(testi(f.lblvinc), (QStringList{"", "", "", "", "", "", "", ""}));
    EXPECT_EQ(f.lblvinc_j[5]->text(), "");
    EXPECT_EQ(testi(f.txtnum), (QStringList{"", "", "", "", "", "", ""}));
    EXPECT_EQ(platform::MousePointer(), 0);
}

TEST_F(Esito, ChoosingASuperenalottoDrawTakesTheListAway) {
    frmspoglio& f = apri(ripeti(tre, 13), 13);
    spoglia(f);
    Programma::clic(f.Cmdvincenti);
    ASSERT_FALSE(f.Frame4->isVisible());
    Programma::scegli(f.Combo1, 1);
    EXPECT_TRUE(f.Frame4->isVisible());
    EXPECT_TRUE(f.Frame4->isAncestorOf(f.childAt(f.Frame4->geometry().center())));
    EXPECT_EQ(f.ListView1->righe(), 0);
    EXPECT_EQ(f.ListView1->Width(), 4980);
    EXPECT_TRUE(f.Cmdspoglio->isEnabled());
    EXPECT_FALSE(f.Cmdvincenti->isEnabled());
    EXPECT_EQ(f.txtnum[1]->text(), "1");
}

TEST_F(Esito, ChoosingALottoDrawLeavesTheListStanding) {
    frmspoglio& f = apri_lotto("1,2,30,40,50\r\n", 1);
    spoglia_lotto(f);
    Programma::clic(f.Cmdvincentilotto);
    for (const int voce : {11, 21}) {
        Programma::scegli(f.Combo3, voce);
        EXPECT_TRUE(f.ListView1->isVisible());
        EXPECT_FALSE(f.Frame4->isVisible());
        EXPECT_EQ(f.ListView1->righe(), 1);
        EXPECT_EQ(f.lblvinc[0]->text(), "1");
        EXPECT_FALSE(f.Cmdspoglio->isEnabled());
    }
    EXPECT_EQ(testi(f.txtnumlotto), (QStringList{"1", "2", "3", "4", "5"}));
}

/// Calls back at every step that a progress bar grows, while the work goes on.
class Crescita : public QObject {
public:
    explicit Crescita(std::function<void()> passo) : passo_(std::move(passo)) {}
    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() == QEvent::Resize &&
            static_cast<QResizeEvent*>(evento)->size().width() > 0)
            passo_();
        return QObject::eventFilter(oggetto, evento);
    }

private:
    std::function<void()> passo_;
};

TEST_F(Esito, PictureStandsInForTheListWhileItIsBuilt) {
    frmspoglio& f = apri(ripeti(tre, 3), 3);
    spoglia(f);
    int passi = 0;
    Crescita crescita([&] {
        ++passi;
        EXPECT_TRUE(f.piclist->isVisible());
        EXPECT_FALSE(f.ListView1->isVisible());
        EXPECT_TRUE(f.picprog1->isVisible());
        EXPECT_FALSE(f.isEnabled());
        EXPECT_EQ(platform::MousePointer(), 11);
    });
    f.picprog2->installEventFilter(&crescita);
    Programma::clic(f.Cmdvincenti);
    EXPECT_GT(passi, 0);
    EXPECT_FALSE(f.piclist->isVisible());
    EXPECT_TRUE(f.ListView1->isVisible());
}

TEST_F(Esito, AnnullaEmptiesTheBoxesUntilTheDrawIsChosenAnew) {
    frmspoglio& f = apri();
    Programma::clic(f.Command1);
    EXPECT_EQ(f.txtnum[1]->text(), "");
    Programma::clic(f.Cmdspoglio);
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{manca_un_numero});
    Programma::scegli(f.Combo1, 0);
    EXPECT_EQ(f.txtnum[1]->text(), "21");
}

TEST_F(Esito, ChoosingASuperenalottoDrawReenablesTheCheck) {
    frmspoglio& f = apri(tre + "\r\n", 1);
    spoglia(f);
    Programma::scegli(f.Combo1, 1);
    EXPECT_TRUE(f.Cmdspoglio->isEnabled());
    EXPECT_EQ(f.lblvinc[0]->text(), "");
    EXPECT_EQ(f.lblvinc[3]->text(), "");
    EXPECT_EQ(f.txtnum[1]->text(), "1");
}

TEST_F(Esito, ChoosingALottoDrawLeavesTheResultUntilAnnulla) {
    frmspoglio& f = apri_lotto("1,2,30,40,50\r\n", 1);
    spoglia_lotto(f);
    Programma::scegli(f.Combo3, 11);
    EXPECT_EQ(f.txtnumlotto[0]->text(), "21");
    EXPECT_FALSE(f.Cmdspoglio->isEnabled());
    EXPECT_EQ(f.lblvinclotto[0]->text(), "1");
    EXPECT_EQ(f.lblvinc[0]->text(), "1");
    Programma::clic(f.Command1);
    EXPECT_TRUE(f.Cmdspoglio->isEnabled());
    EXPECT_EQ(f.lblvinclotto[0]->text(), "");
    EXPECT_EQ(f.txtnumlotto[0]->text(), "");
    EXPECT_FALSE(f.Cmdvincentilotto->isEnabled());
}

TEST_F(Esito, LottoCountsEachCombinationOnce) {
    frmspoglio& f = apri_lotto(
        "1,2,3,4,5\r\n1,2,3,4,50\r\n1,2,3,40,50\r\n1,2,30,40,50\r\n1,20,30,40,50\r\n", 5);
    spoglia_lotto(f);
    EXPECT_EQ(testi(f.lblvinclotto), (QStringList{"1", "1", "1", "1"}));
    EXPECT_EQ(f.lblvinc[0]->text(), "4");
    EXPECT_TRUE(f.Cmdvincentilotto->isEnabled());
    EXPECT_FALSE(f.Cmdvincenti->isEnabled());
    EXPECT_FALSE(f.Cmdspoglio->isEnabled());
}

TEST_F(Esito, LottoWithoutWinnersShowsZeroAndNoDetail) {
    frmspoglio& f = apri_lotto("1,20,30\r\n2,20,30\r\n", 2, 3);
    spoglia_lotto(f);
    EXPECT_EQ(testi(f.lblvinclotto), (QStringList{"", "", "", ""}));
    EXPECT_EQ(f.lblvinc[0]->text(), "0");
    EXPECT_FALSE(f.Cmdvincentilotto->isEnabled());
    EXPECT_GT(f.picprog1->width(), 0);
    EXPECT_EQ(f.picprog2->width(), f.picprog1->width());
}

TEST_F(Esito, LottoRefusesAnEmptyBox) {
    frmspoglio& f = apri_lotto("1,2,3\r\n", 1, 3);
    scrivi(f.txtnumlotto, {"1", "2", "3", "4", ""});
    Programma::clic(f.Cmdspoglio);
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{manca_un_numero});
    EXPECT_TRUE(f.Cmdspoglio->isEnabled());
    EXPECT_EQ(f.lblvinc[0]->text(), "");
    spoglia_lotto(f);
    EXPECT_EQ(f.lblvinclotto[1]->text(), "1");
}

TEST_F(Esito, FormOfTheMainFormGivesTheWidthOfTheRecords) {
    frmspoglio& f = apri_lotto("1,2,30\r\n3,4,5\r\n10,20,40\r\n", 3, 3);
    spoglia_lotto(f);
    EXPECT_EQ(testi(f.lblvinclotto), (QStringList{"1", "1", "", ""}));
    Programma::clic(f.Cmdvincentilotto);
    EXPECT_EQ(riga(f, 0), (QStringList{"000000001", "1", "2", "1", "2", "30", "", "", ""}));
    EXPECT_EQ(riga(f, 1), (QStringList{"000000001", "1", "3", "3", "4", "5", "", "", ""}));
    EXPECT_EQ(f.ListView1->righe(), 2);
}

TEST_F(Esito, SlipsOfTheLottoCountTheWholeSystem) {
    frmspoglio& f = apri_lotto(ripeti("10,20,30,40", 6) + "1,2,30,40\r\n", 7, 4);
    spoglia_lotto(f);
    Programma::clic(f.Cmdvincentilotto);
    EXPECT_EQ(colonna(f, 1), QStringList{"2"});
}

TEST_F(Esito, SecondDetailOfTheLottoAddsTheRowsAgain) {
    frmspoglio& f = apri_lotto(ripeti("1,2,30,40,50", 7), 7);
    spoglia_lotto(f);
    Programma::clic(f.Cmdvincentilotto);
    EXPECT_TRUE(f.Cmdvincentilotto->isEnabled());
    EXPECT_EQ(f.ListView1->righe(), 7);
    EXPECT_EQ(f.ListView1->Width(), 4980);
    Programma::clic(f.Cmdvincentilotto);
    EXPECT_EQ(f.ListView1->righe(), 14);
    EXPECT_TRUE(f.ListView1->isVisible());
    EXPECT_EQ(f.ListView1->Width(), 4980) << "only what the check found counts";
}

TEST_F(Esito, WinnersAboveTwelveWidenTheListOfTheLotto) {
    frmspoglio& f = apri_lotto(ripeti("1,2,30,40,50", 13), 13);
    spoglia_lotto(f);
    Programma::clic(f.Cmdvincentilotto);
    EXPECT_EQ(f.ListView1->Width(), 5225);
}

TEST_F(Esito, LargestSystemIsListedAndScrolledToItsEnd) {
    std::string testo;
    for (int i = 0; i < 172172; ++i) testo += i == 172171 ? "1,2,3,4,5,6\r\n" : nulla + "\r\n";
    frmspoglio& f = apri(testo, 172172);
    spoglia(f);
    EXPECT_EQ(f.lblvinc[6]->text(), "1");
    Programma::clic(f.Cmdvincenti);
    ASSERT_EQ(f.ListView1->righe(), 172172);
    EXPECT_EQ(riga(f, 172171),
              (QStringList{"000034435", "34435", "6", "1", "2", "3", "4", "5", "6"}));
    f.ListView1->setFocus();
    QTest::keyClick(f.ListView1, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(f.ListView1->currentIndex().row(), 172171);
    Programma::clic(f.cmdpunti);
    Programma::clic(f.cmdpunti);
    EXPECT_EQ(riga(f, 0).at(2), "6");
}

TEST_F(Esito, FocusOfTheCheckGoesToTheNextControlThatTakesIt) {
    frmspoglio& f = apri(tre + "\r\n", 1);
    f.Cmdspoglio->setFocus();
    scrivi(f.txtnum, {"7", "1", "2", "3", "4", "5", "6"});
    f.Cmdspoglio->setFocus();
    QTest::keyClick(f.Cmdspoglio, Qt::Key_Space);
    EXPECT_EQ(f.focusWidget(), f.Cmdvincenti);
}

}  // namespace
