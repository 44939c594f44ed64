#include <filesystem>

#include <QHeaderView>
#include <QSignalSpy>
#include <QWheelEvent>

#include "platform/application.h"
#include "support/programma.h"
#include "viewer/form3.h"

using platform::px;
using support::Programma;
using viewer::Form3;

namespace {

class Visore : public ::testing::Test {
protected:
    /// Numbers of line `n`, counted from 1.
    static QStringList numeri(int n, int quanti) {
        QStringList testi;
        for (int k = 0; k < quanti; ++k) testi << QString::number(1 + (n * 11 + k * 7) % 90);
        return testi;
    }
    void sviluppo(const std::string& file, int righe, int quanti) const {
        std::string testo;
        for (int n = 1; n <= righe; ++n) {
            testo += numeri(n, quanti).join(',').toStdString() + "\r\n";
        }
        p.cartella.scrivi(file, testo);
    }
    /// Opens the viewer on a SuperEnalotto development with its own count in the system file.
    Form3& apri(int righe, int conteggio) {
        p.cartella.scrivi("s.sen", "9,5,5,\"2\",0,0,0," + std::to_string(conteggio) + "\r\n");
        sviluppo("s.col", righe, 6);
        return mostra();
    }
    Form3& apri(int righe) { return apri(righe, righe); }
    Form3& mostra() {
        p.form1.sessione.in_linea("s");
        p.dialoghi.app::DialoghiQt::visualizza_sviluppo(p.form1);
        QApplication::processEvents();
        auto* f = p.form1.findChild<Form3*>();
        if (f == nullptr) throw std::runtime_error("no viewer");
        return *f;
    }
    static QStringList riga(const platform::ListView* lista, int i) {
        QStringList testi;
        for (int c = 0; c < lista->columnCount(); ++c) {
            testi << lista->topLevelItem(i)->text(c);
        }
        return testi;
    }
    static int righe(const platform::ListView* lista) { return lista->topLevelItemCount(); }
    static void rotella(QWidget* dove, int quanto) {
        QWheelEvent giro(QPointF(5, 5), dove->mapToGlobal(QPointF(5, 5)), QPoint(),
                         QPoint(0, quanto), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&giro);
        qApp->notify(dove, &giro);
    }

    Programma p;
};

TEST_F(Visore, ReadingStateIsTheSmallWindow) {
    p.form1.sessione.in_linea("s");
    Form3 f(p.form1);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Sviluppo");
    EXPECT_EQ(f.size(), QSize(px(5820), px(1110)));
    EXPECT_TRUE(f.Frame1->isVisible());
    EXPECT_FALSE(f.Frame2->isVisible());
    EXPECT_EQ(f.Frame1->caption(), "Lettura dati in corso");
    EXPECT_EQ(f.Label4->text(), "Lettura dei dati in corso");
    EXPECT_FALSE(f.HScroll1->isEnabled());
    EXPECT_FALSE(f.pronto());
    EXPECT_FALSE(f.isModal());
    EXPECT_EQ(f.parentWidget(), &p.form1);
}

TEST_F(Visore, PagesAreReadButNotShownBeforeTheIndexIsBuilt) {
    sviluppo("s.col", 60, 6);
    p.form1.sessione.in_linea("s");
    Form3 f(p.form1);
    platform::set_Tag(&f, "s");
    f.popola_griglia(1, true);
    EXPECT_EQ(righe(f.ListView1), 0);
}

TEST_F(Visore, BrowsingStateIsTheLargeWindow) {
    Form3& f = apri(2345);
    EXPECT_EQ(f.size(), QSize(px(9135), px(7600)));
    EXPECT_FALSE(f.Frame1->isVisible());
    EXPECT_FALSE(f.ProgressBar1->isVisible());
    EXPECT_TRUE(f.Frame2->isVisible());
    EXPECT_TRUE(f.HScroll1->isEnabled());
    EXPECT_TRUE(f.pronto());
    EXPECT_EQ(f.lblsistema->text(), "s");
    EXPECT_EQ(f.lbltot->text(), "2.345");
    EXPECT_EQ(f.lblpag[0]->text(), "1");
    EXPECT_EQ(f.lblpag[1]->text(), "59");
    EXPECT_EQ(f.HScroll1->minimum(), 1);
    EXPECT_EQ(f.HScroll1->maximum(), 59);
    EXPECT_EQ(f.HScroll1->value(), 1);
    EXPECT_EQ(platform::Tag(f.HScroll1), "1");
    EXPECT_EQ(f.ProgressBar1->maximum(), 61);
    EXPECT_EQ(f.focusWidget(), f.Command1);
    EXPECT_TRUE(f.updatesEnabled());
    EXPECT_TRUE(p.form1.updatesEnabled());
    const QPoint atteso = p.form1.pos() + QPoint((p.form1.width() - f.width()) / 2,
                                                 (p.form1.height() - f.height()) / 2);
    EXPECT_LE((f.pos() - atteso).manhattanLength(), 2);
}

TEST_F(Visore, ControlsCarryTheirNamesAndTexts) {
    Form3& f = apri(10);
    for (const char* nome :
         {"ListView1", "ListView2", "ListView3",    "ListView4",  "HScroll1",  "Label1(0)",
          "Label1(1)", "Label1(2)", "Label1(3)",    "Label2(0)",  "Label2(1)", "Label3(0)",
          "Label3(1)", "lblpag(0)", "lblpag(1)",    "lblsistema", "lbltot",    "Command1",
          "Frame1",    "Frame2",    "ProgressBar1", "Shape1",     "Label4"}) {
        EXPECT_NE(f.findChild<QWidget*>(nome), nullptr) << nome;
    }
    EXPECT_EQ(f.Label1[0]->text(), "Numero");
    EXPECT_EQ(f.Label1[1]->text(), "Combinazioni del sistema");
    EXPECT_EQ(f.Label1[2]->text(), "Numero");
    EXPECT_EQ(f.Label1[3]->text(), "Combinazioni del Sistema");
    EXPECT_EQ(f.Label2[0]->text(), "Nome del Sistema");
    EXPECT_EQ(f.Label2[1]->text(), "Numero combinazioni del Sistema");
    EXPECT_EQ(f.Label3[0]->text(), "Pagina");
    EXPECT_EQ(f.Label3[1]->text(), "di");
    EXPECT_EQ(f.Command1->text(), "Esci");
    EXPECT_EQ(f.HScroll1->width(), px(8430));
    EXPECT_EQ(f.ListView3->geometry().left(), px(270));
    EXPECT_EQ(f.ListView1->geometry().left(), px(1350));
    EXPECT_EQ(f.ListView4->geometry().left(), px(4605));
    EXPECT_EQ(f.ListView2->geometry().left(), px(5685));
    EXPECT_EQ(f.ListView1->size(), QSize(px(3030), px(5205)));
    EXPECT_EQ(f.ListView2->size(), QSize(px(3030), px(5205)));
    EXPECT_EQ(f.ListView3->size(), QSize(px(1080), px(5205)));
    EXPECT_EQ(f.ListView4->size(), QSize(px(1080), px(5205)));
    EXPECT_EQ(f.ListView1->font().family(), "Arial");
}

TEST_F(Visore, ColumnsHaveTheirHeadsAndWidths) {
    Form3& f = apri(10);
    for (platform::ListView* lista : {f.ListView1, f.ListView2}) {
        ASSERT_EQ(lista->columnCount(), 7);
        for (int c = 0; c < 7; ++c) {
            EXPECT_EQ(lista->titolo(c), "x" + QString::number(c + 1));
            EXPECT_EQ(lista->larghezza(c), c == 0 ? 0 : 500);
            EXPECT_EQ(lista->columnWidth(c), c == 0 ? 0 : px(500));
        }
        EXPECT_EQ(lista->topLevelItemCount() > 0
                      ? lista->topLevelItem(0)->textAlignment(1) & Qt::AlignHCenter
                      : Qt::AlignHCenter,
                  Qt::AlignHCenter);
    }
    for (platform::ListView* lista : {f.ListView3, f.ListView4}) {
        ASSERT_EQ(lista->columnCount(), 2);
        EXPECT_EQ(lista->titolo(1), "x2");
        EXPECT_EQ(lista->columnWidth(0), 0);
        EXPECT_EQ(lista->columnWidth(1), px(1000));
    }
}

TEST_F(Visore, FullPageFillsBothBlocksWithRunningNumbers) {
    Form3& f = apri(130);
    f.HScroll1->setValue(2);
    for (platform::ListView* l : {f.ListView1, f.ListView2, f.ListView3, f.ListView4}) {
        EXPECT_EQ(righe(l), 20) << l->objectName().toStdString();
    }
    EXPECT_EQ(riga(f.ListView3, 0), QStringList({"", "41"}));
    EXPECT_EQ(riga(f.ListView3, 19), QStringList({"", "60"}));
    EXPECT_EQ(riga(f.ListView4, 0), QStringList({"", "61"}));
    EXPECT_EQ(riga(f.ListView4, 19), QStringList({"", "80"}));
    EXPECT_EQ(riga(f.ListView1, 0), QStringList({""}) + numeri(41, 6));
    EXPECT_EQ(riga(f.ListView2, 19), QStringList({""}) + numeri(80, 6));
    EXPECT_EQ(f.lblpag[0]->text(), "2");
    EXPECT_EQ(platform::Tag(f.HScroll1), "2");
}

TEST_F(Visore, CountOfFortyIsOnePage) {
    Form3& f = apri(40);
    EXPECT_EQ(f.pagine(), 1);
    EXPECT_EQ(f.HScroll1->maximum(), 1);
    EXPECT_EQ(righe(f.ListView2), 20);
}

TEST_F(Visore, CountOfFortyOneHasASecondPageOfOneLine) {
    Form3& f = apri(41);
    EXPECT_EQ(f.pagine(), 2);
    f.HScroll1->setValue(2);
    ASSERT_EQ(righe(f.ListView1), 1);
    ASSERT_EQ(righe(f.ListView3), 1);
    EXPECT_EQ(riga(f.ListView3, 0), QStringList({"", "41"}));
    EXPECT_EQ(righe(f.ListView2), 0);
    EXPECT_EQ(righe(f.ListView4), 0);
}

TEST_F(Visore, LastPageOfTwentyLinesLeavesTheRightBlockEmpty) {
    Form3& f = apri(60);
    f.HScroll1->setValue(2);
    EXPECT_EQ(righe(f.ListView1), 20);
    EXPECT_EQ(righe(f.ListView2), 0);
    EXPECT_EQ(righe(f.ListView4), 0);
}

TEST_F(Visore, TerzineFillThreeColumns) {
    p.form1.Image10_Click();
    p.form1.Imageb_Click(0);
    p.cartella.scrivi("s.sel", "9,4,4,\"2\",0,0,0,3,50\r\n");
    sviluppo("s.lot", 50, 3);
    Form3& f = mostra();
    EXPECT_EQ(f.lbltot->text(), "50");
    EXPECT_EQ(riga(f.ListView1, 7), QStringList({""}) + numeri(8, 3) + QStringList({"", "", ""}));
    EXPECT_EQ(righe(f.ListView2), 20);
}

TEST_F(Visore, QuartineAndCinquineFollowTheFormInForce) {
    p.form1.Image10_Click();
    p.cartella.scrivi("s.sel", "9,4,4,\"2\",0,0,0,4,50\r\n");
    for (int quanti = 4; quanti <= 5; ++quanti) {
        p.form1.sessione.cambia_forma(quanti);
        sviluppo("s.lot", 50, quanti);
        Form3& f = mostra();
        QStringList attesa = QStringList({""}) + numeri(1, quanti);
        while (attesa.size() < 7) attesa << "";
        EXPECT_EQ(riga(f.ListView1, 0), attesa);
    }
}

TEST_F(Visore, AnyOtherLottoFormLeavesThePageEmpty) {
    p.form1.Image10_Click();
    p.cartella.scrivi("s.sel", "9,4,4,\"2\",0,0,0,7,50\r\n");
    sviluppo("s.lot", 50, 3);
    p.form1.sessione.cambia_forma(7);
    Form3& f = mostra();
    EXPECT_EQ(righe(f.ListView1), 0);
    EXPECT_EQ(f.lblpag[1]->text(), "2");
    EXPECT_TRUE(f.Frame2->isVisible());
}

TEST_F(Visore, MovingEitherWayLeavesThePositionsAsTheyWere) {
    Form3& f = apri(200);
    const auto tutte = [&f] {
        std::vector<std::int64_t> v;
        for (int i = 1; i <= 6; ++i) v.push_back(f.posizioni().posizione(i));
        return v;
    };
    const auto prima = tutte();
    for (const int pagina : {2, 3, 5, 4, 1, 4, 5}) {
        f.HScroll1->setValue(pagina);
        EXPECT_EQ(tutte(), prima) << pagina;
        EXPECT_EQ(riga(f.ListView3, 0)[1], QString::number((pagina - 1) * 40 + 1));
    }
}

TEST_F(Visore, StoredCountRulesThePagesAndPagesPastTheFileShowNothing) {
    Form3& f = apri(80, 200);
    EXPECT_EQ(f.pagine(), 5);
    EXPECT_EQ(f.lblpag[1]->text(), "5");
    EXPECT_EQ(f.HScroll1->maximum(), 5);
    f.HScroll1->setValue(5);
    EXPECT_EQ(righe(f.ListView1), 0);
    EXPECT_EQ(f.lblpag[0]->text(), "5");
    f.HScroll1->setValue(2);
    EXPECT_EQ(righe(f.ListView2), 20);
    f.HScroll1->setValue(3);
    EXPECT_EQ(righe(f.ListView1), 0);
    f.HScroll1->setValue(4);
    EXPECT_EQ(righe(f.ListView1), 0);
    f.HScroll1->setValue(1);
    EXPECT_EQ(righe(f.ListView1), 20);
}

TEST_F(Visore, LinesBeyondTheStoredCountHaveNoPage) {
    Form3& f = apri(500, 41);
    EXPECT_EQ(f.HScroll1->maximum(), 2);
    f.HScroll1->setValue(2);
    EXPECT_EQ(riga(f.ListView4, 19), QStringList({"", "80"}));
}

TEST_F(Visore, CountOfZeroShowsNoPagesAndStillTheFirstForty) {
    Form3& f = apri(100, 0);
    EXPECT_EQ(f.pagine(), 0);
    EXPECT_EQ(f.lblpag[0]->text(), "1");
    EXPECT_EQ(f.lblpag[1]->text(), "0");
    EXPECT_EQ(f.lbltot->text(), "");
    EXPECT_EQ(righe(f.ListView1), 20);
    EXPECT_EQ(righe(f.ListView2), 20);
    EXPECT_EQ(f.HScroll1->value(), 1);
}

TEST_F(Visore, MissingFilesLeaveTheWindowEmptyWithoutAMessage) {
    Form3& f = mostra();
    EXPECT_TRUE(p.messaggi.empty());
    EXPECT_TRUE(f.Frame2->isVisible());
    EXPECT_EQ(f.lblpag[1]->text(), "0");
    EXPECT_EQ(righe(f.ListView1), 0);
}

TEST_F(Visore, EveryWayOfTurningGoesThroughTheScrollBar) {
    Form3& f = apri(400);
    QSignalSpy cambi(f.HScroll1, &QScrollBar::valueChanged);
    const auto tasto = [&f](QWidget* dove, Qt::Key t) {
        QTest::keyClick(dove, t);
        return f.HScroll1->value();
    };
    EXPECT_EQ(tasto(f.Command1, Qt::Key_PageDown), 2);
    EXPECT_EQ(tasto(f.Command1, Qt::Key_End), 10);
    EXPECT_EQ(tasto(f.Command1, Qt::Key_PageDown), 10);
    EXPECT_EQ(tasto(f.ListView1, Qt::Key_PageUp), 9);
    EXPECT_EQ(tasto(f.ListView2, Qt::Key_Home), 1);
    EXPECT_EQ(tasto(f.HScroll1, Qt::Key_PageDown), 2);
    EXPECT_EQ(tasto(&f, Qt::Key_PageUp), 1);
    for (QWidget* dove : std::initializer_list<QWidget*>{
             f.ListView1->viewport(), f.ListView4->viewport(), f.HScroll1, f.Frame2, f.Command1}) {
        rotella(dove, -120);
        EXPECT_EQ(f.HScroll1->value(), 2) << dove->objectName().toStdString();
        rotella(dove, 120);
        EXPECT_EQ(f.HScroll1->value(), 1) << dove->objectName().toStdString();
    }
    EXPECT_EQ(cambi.count(), 16);
    EXPECT_EQ(riga(f.ListView3, 0), QStringList({"", "1"}));
}

TEST_F(Visore, SmallTurnsOfTheWheelAddUpToOnePage) {
    Form3& f = apri(400);
    for (int i = 0; i < 3; ++i) rotella(f.Frame2, -30);
    EXPECT_EQ(f.HScroll1->value(), 1);
    rotella(f.Frame2, -30);
    EXPECT_EQ(f.HScroll1->value(), 2);
    rotella(f.Frame2, -240);
    EXPECT_EQ(f.HScroll1->value(), 4);
    rotella(f.Frame2, -90);
    rotella(f.Frame2, 30);
    rotella(f.Frame2, 90);
    EXPECT_EQ(f.HScroll1->value(), 3);
}

TEST_F(Visore, PageChangeGivesTheFocusToTheButton) {
    Form3& f = apri(400);
    f.ListView2->setFocus();
    f.HScroll1->setValue(3);
    EXPECT_EQ(f.focusWidget(), f.Command1);
}

TEST_F(Visore, GameOfTheMainFormChosenMeanwhileLeavesThePagesAsTheyAre) {
    Form3& f = apri(400);
    p.form1.Image10_Click();
    f.HScroll1->setValue(2);
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(riga(f.ListView1, 0), QStringList{""} + numeri(41, 6));
}

TEST_F(Visore, FormOfTheMainFormChosenMeanwhileLeavesThePagesAsTheyAre) {
    Programma::clic(p.form1.Image10);
    p.cartella.scrivi("s.sel", "9,4,4,\"0\",0,0,0,5,100\r\n");
    sviluppo("s.lot", 100, 5);
    Form3& f = mostra();
    // The form of another system, so that the development stays.
    p.form1.sessione.in_linea("altro");
    Programma::clic(p.form1.Imageb[0]);
    f.HScroll1->setValue(2);
    EXPECT_EQ(riga(f.ListView1, 0), QStringList{""} + numeri(41, 5) + QStringList{""});
}

TEST_F(Visore, FileThatAnotherProgramReplacesClosesTheViewerAtTheNextPage) {
    Form3& f = apri(400);
    sviluppo("s.col", 300, 5);
    f.HScroll1->setValue(9);
    EXPECT_EQ(righe(f.ListView1), 0) << "nothing that stands in no development";
    EXPECT_FALSE(f.isVisible());
}

TEST_F(Visore, FileThatVanishesClosesTheViewerAtTheNextPage) {
    Form3& f = apri(400);
    std::filesystem::remove(p.cartella.file("s.col"));
    f.HScroll1->setValue(2);
    EXPECT_EQ(righe(f.ListView1), 0);
    EXPECT_FALSE(f.isVisible());
}

/// The viewer over a system of the library, and what the player may do to it meanwhile.
class VisoreAperto : public ::testing::Test {
protected:
    VisoreAperto() {
        p.riempi_e_salva("uno");
        p.comando(1);
        p.comando(2);
        p.mostrati();
    }
    [[nodiscard]] bool aperto() const {
        const auto* f = p.form1.findChild<Form3*>();
        return f != nullptr && f->isVisible();
    }
    systems::Form2& gestore() {
        Programma::voce(p.form1.mnugest_sist);
        systems::Form2& f = *Programma::gestore();
        f.ListView1->setCurrentItem(f.ListView1->topLevelItem(0));
        return f;
    }

    Programma p{true};
};

TEST_F(VisoreAperto, ClosesAtANewElaboration) {
    ASSERT_TRUE(aperto());
    p.comando(1);
    EXPECT_FALSE(aperto());
}

TEST_F(VisoreAperto, ClosesWhenTheSystemIsDeleted) {
    p.risposte = {support::vbYes};
    gestore().mnuelimina->trigger();
    EXPECT_FALSE(aperto());
}

TEST_F(VisoreAperto, ClosesWhenAllSystemsAreDeleted) {
    p.risposte = {support::vbYes};
    gestore().mnueliminatutti->trigger();
    EXPECT_FALSE(aperto());
}

TEST_F(VisoreAperto, ClosesWhenTheSystemIsRenamed) {
    systems::Form2& f = gestore();
    f.mnurinomina->trigger();
    QApplication::processEvents();
    auto* casella = f.ListView1->viewport()->findChild<QLineEdit*>();
    ASSERT_NE(casella, nullptr);
    casella->setText("due");
    QTest::keyClick(casella, Qt::Key_Return);
    QApplication::processEvents();
    ASSERT_TRUE(p.cartella.esiste("due.col"));
    EXPECT_FALSE(aperto());
}

TEST_F(VisoreAperto, ClosesWhenAnotherIsSavedOverTheSystem) {
    p.risposte = {support::vbYes};
    p.scrivi_nel_gestore("uno");
    Programma::voce(p.form1.mnusalvanome);
    ASSERT_FALSE(p.cartella.esiste("uno.col"));
    EXPECT_FALSE(aperto());
}

TEST_F(VisoreAperto, ClosesWhenTheFormOfTheLottoVoidsTheDevelopment) {
    Programma::clic(p.form1.Image10);
    EXPECT_TRUE(aperto()) << "the other game voids nothing";
    p.riempi_e_salva("lotto");
    p.comando(1);
    p.comando(2);
    p.mostrati();
    ASSERT_TRUE(aperto());
    Programma::clic(p.form1.Imageb[0]);
    EXPECT_FALSE(aperto());
}

TEST_F(VisoreAperto, StaysWhenAnotherSystemIsTouched) {
    std::filesystem::copy_file(p.cartella.file("uno.sen"), p.cartella.file("zeta.sen"));
    p.risposte = {support::vbYes};
    systems::Form2& f = gestore();
    f.ListView1->setCurrentItem(f.ListView1->topLevelItem(1));
    f.mnuelimina->trigger();
    ASSERT_FALSE(p.cartella.esiste("zeta.sen"));
    EXPECT_TRUE(aperto());
}

TEST_F(Visore, ButtonClosesTheForm) {
    Form3& f = apri(400);
    Programma::clic(f.Command1);
    EXPECT_FALSE(f.isVisible());
    EXPECT_FALSE(f.pronto());
}

TEST_F(Visore, OpeningAgainBuildsTheIndexAnew) {
    apri(400);
    const Form3& f = apri(41);
    EXPECT_EQ(p.form1.findChildren<Form3*>().size(), 1);
    EXPECT_EQ(f.lblpag[1]->text(), "2");
    EXPECT_EQ(f.posizioni().pagine(), 2U);
}

TEST_F(Visore, ClosesWithTheMainForm) {
    apri(400);
    p.form1.close();
    EXPECT_EQ(p.form1.findChild<Form3*>(), nullptr);
}

}  // namespace
