#include <QHeaderView>

#include "check/modulo_spoglio.h"
#include "platform/application.h"

using check::frmspoglio;
using platform::px;
using support::Programma;

namespace {

class Modulo : public support::ModuloSpoglio {
protected:
    static QWidget* fuoco(const frmspoglio& f) { return f.focusWidget(); }
};

TEST_F(Modulo, TakesThePlaceOfTheMainForm) {
    frmspoglio& f = apri();
    EXPECT_EQ(f.windowTitle(), "SPOGLIO VINCITE");
    EXPECT_TRUE(f.isVisible());
    EXPECT_FALSE(p.form1.isVisible());
    EXPECT_FALSE(f.isModal());
    EXPECT_EQ(f.parentWidget(), &p.form1);
    EXPECT_EQ(platform::Tag(&f), "s");
    const QPoint atteso = p.form1.pos() + QPoint((p.form1.width() - f.width()) / 2,
                                                 (p.form1.height() - f.height()) / 2);
    EXPECT_LE((f.pos() - atteso).manhattanLength(), 2);
}

TEST_F(Modulo, ControlsCarryTheirNamesAndTexts) {
    frmspoglio& f = apri();
    for (const char* nome :
         {"lblnomesistema",  "lblnumconb",      "Combo1",       "Combo2",
          "Combo3",          "txtnum(0)",       "txtnum(6)",    "txtnumlotto(0)",
          "txtnumlotto(4)",  "Cmdspoglio",      "Cmdvincenti",  "Cmdvincentilotto",
          "cmdpunti",        "cmdsched",        "Command1",     "CmdEsci",
          "MSFlexGrid1",     "ListView1",       "piclist",      "picprog1",
          "picprog2",        "lblvinc(0)",      "lblvinc(7)",   "lblvinc_j(5)",
          "lblvinclotto(0)", "lblvinclotto(3)", "Frame2",       "Frame4",
          "Framevinclotto",  "framelotto",      "framedetlotto"}) {
        EXPECT_NE(f.findChild<QWidget*>(nome), nullptr) << nome;
    }
    EXPECT_EQ(f.Cmdspoglio->text(), "Spoglio");
    EXPECT_EQ(f.Cmdvincenti->text(), "Dettaglio Schedine Vincenti");
    EXPECT_EQ(f.Cmdvincentilotto->text(), "Dettaglio Schedine Vincenti");
    EXPECT_EQ(f.cmdpunti->text(), "Punti");
    EXPECT_EQ(f.cmdsched->text(), "N. Schedina");
    EXPECT_EQ(f.Command1->text(), "Annulla");
    EXPECT_EQ(f.CmdEsci->text(), "Esci");
    QStringList scritte;
    for (const QLabel* e : f.findChildren<QLabel*>()) scritte << e->text();
    for (const char* testo :
         {"Nome del Sitema", "Num. Comb. del Sistema", "Scegli la combinazione da esaminare",
          "Jolly", "Combinazione Vincente", "Numero di pannelli per Schedina", "Punti", "N. Comb.",
          "0", "1", "2", "3", "4", "5", "5+1", "6", "Totale Comb. Vincenti"}) {
        EXPECT_TRUE(scritte.contains(testo)) << testo;
    }
}

TEST_F(Modulo, HeadOfTheSystemFileGivesTheCountWithoutPoints) {
    frmspoglio& f = apri("1,2,3,4,5,6\r\n", 172172);
    EXPECT_EQ(f.lblnomesistema->text(), "s");
    EXPECT_EQ(f.lblnumconb->text(), "172172");
}

TEST_F(Modulo, CountComesFromTheFileOfTheGameInForce) {
    p.cartella.scrivi("s.sen", "9,5,5,\"2\",0,0,0,77\r\n");
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 12);
    EXPECT_EQ(f.lblnumconb->text(), "12");
}

TEST_F(Modulo, SystemWithoutAFileHasNoCombinations) {
    frmspoglio& f = mostra();
    EXPECT_EQ(f.lblnumconb->text(), "0");
    EXPECT_EQ(f.lblnomesistema->text(), "s");
}

TEST_F(Modulo, PanelsAreOneToFiveAndStandOnFive) {
    frmspoglio& f = apri();
    ASSERT_EQ(f.Combo2->count(), 5);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(f.Combo2->itemText(i), QString::number(i + 1));
    EXPECT_EQ(f.Combo2->Text(), "5");
}

TEST_F(Modulo, ListHasNineColumns) {
    frmspoglio& f = apri();
    const QStringList titoli{"punti", "N. Bulletin", "Points", "1°", "2°", "3°", "4°", "5°", "6°"};
    const QList<int> larghezze{0, 1500, 1000, 400, 400, 400, 400, 400, 400};
    ASSERT_EQ(f.ListView1->colonne(), 9);
    for (int c = 0; c < 9; ++c) {
        EXPECT_EQ(f.ListView1->chiave(c), "x" + QString::number(c + 1));
        EXPECT_EQ(f.ListView1->titolo(c), titoli[c]);
        EXPECT_EQ(f.ListView1->larghezza(c), larghezze[c]);
        EXPECT_EQ(f.ListView1->columnWidth(c), px(larghezze[c]));
        EXPECT_EQ(f.ListView1->verso(c), c == 0 ? Qt::AlignLeft : Qt::AlignHCenter);
    }
    EXPECT_TRUE(f.ListView1->isColumnHidden(0));
    EXPECT_EQ(f.ListView1->Width(), 4980);
    EXPECT_EQ(f.ListView1->width(), px(4980));
    EXPECT_EQ(f.ListView1->pos(), f.Frame4->pos());
}

TEST_F(Modulo, CrosswordIsACopyCentredInItsFrame) {
    p.dimensioni(9, 7);
    ASSERT_EQ(p.form1.sessione.posa({8, 6}, 44), systems::Posata::posata);
    ASSERT_EQ(p.form1.sessione.posa({1, 2}, 7), systems::Posata::posata);
    frmspoglio& f = apri();
    EXPECT_EQ(f.MSFlexGrid1->Cols(), 9);
    EXPECT_EQ(f.MSFlexGrid1->Rows(), 7);
    EXPECT_EQ(f.MSFlexGrid1->size(), p.form1.MSFlexGrid1->size());
    EXPECT_EQ(f.MSFlexGrid1->testo(6, 8), "44");
    EXPECT_EQ(f.MSFlexGrid1->testo(2, 1), "7");
    EXPECT_EQ(f.MSFlexGrid1->testo(0, 0), "");
    for (int x = 0; x < 9; ++x) {
        EXPECT_EQ(f.MSFlexGrid1->columnWidth(x), px(300));
        EXPECT_EQ(f.MSFlexGrid1->item(0, x)->textAlignment() & Qt::AlignHCenter, Qt::AlignHCenter);
    }
    EXPECT_EQ(f.MSFlexGrid1->rowHeight(0), px(300));
    EXPECT_EQ(f.MSFlexGrid1->x(), f.Frame4->width() / 2 - f.MSFlexGrid1->width() / 2);
    EXPECT_EQ(f.MSFlexGrid1->y(), f.Frame4->height() / 2 - f.MSFlexGrid1->height() / 2);
    EXPECT_TRUE(f.MSFlexGrid1->isVisible());
}

TEST_F(Modulo, ReadyStateOffersTheCheckAlone) {
    frmspoglio& f = apri();
    EXPECT_TRUE(f.Cmdspoglio->isEnabled());
    EXPECT_FALSE(f.Cmdvincenti->isEnabled());
    EXPECT_FALSE(f.Cmdvincentilotto->isEnabled());
    EXPECT_TRUE(f.Frame4->isVisible());
    EXPECT_FALSE(f.piclist->isVisible());
    EXPECT_FALSE(f.picprog1->isVisible());
    EXPECT_EQ(f.ListView1->righe(), 0);
}

TEST_F(Modulo, FramesOfTheLottoStayHiddenInSuperenalotto) {
    frmspoglio& f = apri();
    for (const QWidget* w : {f.Framevinclotto, f.framelotto, f.framedetlotto}) {
        EXPECT_FALSE(w->isVisible()) << w->objectName().toStdString();
    }
}

TEST_F(Modulo, FramesOfTheLottoCoverTheControlsBeneath) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    EXPECT_EQ(f.framedetlotto->x(), px(30));
    const auto copre = [&f](const QWidget* sopra, const QWidget* sotto) {
        const QRect dove(sotto->mapTo(&f, QPoint(0, 0)), sotto->size());
        const QRect sua(sopra->mapTo(&f, QPoint(0, 0)), sopra->size());
        EXPECT_TRUE(sopra->isVisible());
        EXPECT_TRUE(sua.contains(dove)) << sotto->objectName().toStdString();
    };
    copre(f.Framevinclotto, f.Combo1);
    for (const QLineEdit* casella : f.txtnum) copre(f.Framevinclotto, casella);
    for (std::size_t i = 1; i < f.lblvinc.size(); ++i) copre(f.framelotto, f.lblvinc[i]);
    copre(f.framelotto, f.lblvinc_j[5]);
    copre(f.framedetlotto, f.Cmdvincenti);
    EXPECT_EQ(f.childAt(f.lblvinc[0]->mapTo(&f, QPoint(5, 5))), f.lblvinc[0]);
    EXPECT_EQ(f.Combo1->count(), 0);
}

TEST_F(Modulo, KeyboardGoesThroughTheSixNumbersThenTheJolly) {
    frmspoglio& f = apri();
    const std::vector<QWidget*> attesi{f.txtnum[1], f.txtnum[2], f.txtnum[3], f.txtnum[4],
                                       f.txtnum[5], f.txtnum[6], f.txtnum[0], f.Cmdspoglio,
                                       f.Command1,  f.CmdEsci,   f.cmdsched,  f.cmdpunti};
    f.txtnum[1]->setFocus();
    for (QWidget* atteso : attesi) {
        EXPECT_EQ(fuoco(f), atteso) << atteso->objectName().toStdString();
        QTest::keyClick(fuoco(f), Qt::Key_Tab);
    }
    QWidget* w = f.txtnum[1];
    std::vector<QWidget*> ordine;
    for (int i = 0; i < 60; ++i, w = w->nextInFocusChain()) ordine.push_back(w);
    const auto posto = [&](QWidget* cercato) {
        return std::find(ordine.begin(), ordine.end(), cercato) - ordine.begin();
    };
    EXPECT_LT(posto(f.Cmdspoglio), posto(f.Cmdvincenti));
    EXPECT_LT(posto(f.Cmdvincenti), posto(f.Command1));
}

TEST_F(Modulo, KeyboardOfTheLottoSkipsWhatIsCovered) {
    frmspoglio& f = apri_lotto("1,2,3,4,5\r\n", 1);
    f.txtnumlotto[0]->setFocus();
    for (QWidget* atteso :
         std::vector<QWidget*>{f.txtnumlotto[0], f.txtnumlotto[1], f.txtnumlotto[2],
                               f.txtnumlotto[3], f.txtnumlotto[4], f.Cmdspoglio, f.Command1}) {
        EXPECT_EQ(fuoco(f), atteso) << atteso->objectName().toStdString();
        QTest::keyClick(fuoco(f), Qt::Key_Tab);
    }
}

TEST_F(Modulo, EsciBringsTheMainFormBack) {
    frmspoglio& f = apri();
    Programma::clic(f.CmdEsci);
    EXPECT_TRUE(p.form1.isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(modulo(), nullptr);
}

TEST_F(Modulo, CloseBoxAndEscapeAreTheSameWayOut) {
    apri().close();
    EXPECT_TRUE(p.form1.isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(modulo(), nullptr);
    QTest::keyClick(&apri(), Qt::Key_Escape);
    EXPECT_TRUE(p.form1.isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(modulo(), nullptr);
}

TEST_F(Modulo, MainFormComesBackWhereItStood) {
    p.form1.move(37, 41);
    const QPoint dove = p.form1.pos();
    Programma::clic(apri().CmdEsci);
    EXPECT_EQ(p.form1.pos(), dove);
}

TEST_F(Modulo, ClosingWhileACheckRunsWaitsForItsEnd) {
    std::string testo;
    for (int i = 0; i < 172172; ++i) testo += "10,20,30,40,50,60\r\n";
    frmspoglio& f = apri(testo, 172172);
    scrivi(f.txtnum, {"7", "1", "2", "3", "4", "5", "6"});
    QTimer::singleShot(0, &f, [&f] { f.close(); });
    Programma::clic(f.Cmdspoglio);
    QApplication::processEvents();
    EXPECT_TRUE(p.form1.isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(modulo(), nullptr);
    EXPECT_EQ(platform::MousePointer(), 0);
}

TEST_F(Modulo, NextCheckStartsWithAFreshForm) {
    frmspoglio& f = apri();
    Programma::clic(f.Cmdspoglio);
    EXPECT_FALSE(f.Cmdspoglio->isEnabled());
    Programma::clic(f.CmdEsci);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    frmspoglio& altra = apri();
    EXPECT_TRUE(altra.Cmdspoglio->isEnabled());
    EXPECT_EQ(altra.lblvinc[0]->text(), "");
}

TEST_F(Modulo, NoOtherWindowStaysOverIt) {
    p.cartella.scrivi("s.sen", "9,5,5,\"2\",0,0,0,2\r\n");
    p.cartella.scrivi("s.col", "1,2,3,4,5,6\r\n10,20,30,40,50,60\r\n");
    p.form1.sessione.in_linea("s");
    p.dialoghi.app::DialoghiQt::visualizza_sviluppo(p.form1);
    p.dialoghi.app::DialoghiQt::stampa(p.form1);
    p.dialoghi.gestore_utility(p.form1);
    p.dialoghi.importo_colonna(p.form1);
    QApplication::processEvents();
    const frmspoglio& f = mostra();
    QStringList aperte;
    for (const QWidget* w : QApplication::topLevelWidgets()) {
        if (w->isVisible()) aperte << w->objectName();
    }
    EXPECT_EQ(aperte, QStringList{"frmspoglio"});
    EXPECT_TRUE(f.isVisible());
}

TEST_F(Modulo, KeepsTheGameAndFormThatItWasLoadedWith) {
    frmspoglio& f = apri_lotto("1,2,3\r\n4,5,6\r\n7,8,9\r\n", 3, 3);
    scrivi(f.txtnumlotto, {"1", "2", "50", "60", "70"});
    p.form1.sessione.passa_al_superenalotto();
    Programma::clic(f.Cmdspoglio);
    EXPECT_EQ(f.lblvinclotto[0]->text(), "1");
    EXPECT_EQ(f.lblvinc[0]->text(), "1");
    EXPECT_TRUE(f.Cmdvincentilotto->isEnabled());
    EXPECT_TRUE(p.mostrati().empty()) << "no hidden box is asked for";
}

TEST_F(Modulo, ClosingTheMainFormTakesTheCheckWithIt) {
    apri();
    p.form1.close();
    EXPECT_EQ(modulo(), nullptr);
    EXPECT_FALSE(p.form1.isVisible());
}

}  // namespace
