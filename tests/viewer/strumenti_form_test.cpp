// Going to a page, searching and exporting from the viewer.
#include <QScreen>

#include "platform/qt/folder.h"
#include "platform/qt/scala.h"
#include "platform/qt/scrivania.h"
#include "support/finestre_aperte.h"
#include "viewer/frmcerca.h"
#include "viewer/strumenti.h"

using support::aperta;
using support::Programma;
using viewer::Form3;
using viewer::frmcerca;

namespace {

class StrumentiTest : public testing::Test {
protected:
    /// Opens the viewer on lines whose first number is the line's own.
    Form3& apri(int righe) {
        std::string testo;
        for (int n = 1; n <= righe; ++n) {
            testo += std::to_string(1 + (n - 1) % 80) + ",85,86,87,88,89\r\n";
        }
        p.cartella.scrivi("s.sen", "9,5,5,\"2\",0,0,0," + std::to_string(righe) + "\r\n");
        p.cartella.scrivi("s.col", testo);
        p.form1.sessione.in_linea("s");
        p.dialoghi.app::DialoghiQt::visualizza_sviluppo(p.form1);
        Form3* f = aperta<Form3>();
        f->activateWindow();
        QApplication::processEvents();
        return *f;
    }
    void scrivi_in(const std::string& nome) {
        file = p.cartella.file(nome);
        platform::scrivania().sceglie_nuovo_file = [this](const QString& proposta) {
            proposto = proposta;
            return platform::q(file);
        };
    }
    frmcerca& cerca(Form3& f, const QString& numeri) {
        QTest::keyClick(&f, Qt::Key_F, Qt::ControlModifier);
        frmcerca* c = aperta<frmcerca>();
        c->activateWindow();
        QApplication::processEvents();
        QTest::keyClicks(c->txtnumeri, numeri);
        return *c;
    }

    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
    Programma p;
    std::string file;
    QString proposto;
};

TEST_F(StrumentiTest, TheSearchStandsOnTheSideThatHasRoom) {
    Form3& f = apri(100);
    platform::Scala::di(&f)->porta_a(0.6);
    const QRect schermo = f.screen()->availableGeometry();
    for (const int x : {schermo.left(), schermo.right() + 1 - f.frameGeometry().width()}) {
        f.move(x, schermo.top());
        f.activateWindow();
        QApplication::processEvents();
        frmcerca& c = cerca(f, "3");
        EXPECT_FALSE(c.frameGeometry().intersects(f.frameGeometry())) << x;
        EXPECT_TRUE(schermo.contains(c.frameGeometry())) << x;
        delete &c;
    }
}

TEST_F(StrumentiTest, TheButtonsStandBetweenThePageAndTheExit) {
    const Form3& f = apri(100);
    QRect prima = f.lblpag[1]->geometry();
    for (const QPushButton* b :
         {f.strumenti->cmdvai, f.strumenti->cmdcerca, f.strumenti->cmdesporta, f.Command1}) {
        EXPECT_TRUE(b->isVisible());
        EXPECT_GT(b->geometry().left(), prima.right());
        EXPECT_EQ(b->geometry().center().y(), f.Command1->geometry().center().y());
        EXPECT_GE(b->width(), b->fontMetrics().horizontalAdvance(b->text()) + 20);
        prima = b->geometry();
    }
}

TEST_F(StrumentiTest, APageIsTypedOverItsNumber) {
    Form3& f = apri(400);
    QTest::keyClick(&f, Qt::Key_G, Qt::ControlModifier);
    QLineEdit* casella = f.strumenti->txtpagina;
    ASSERT_TRUE(casella->isVisible());
    EXPECT_EQ(casella->geometry(), f.lblpag[0]->geometry());
    QTest::keyClicks(casella, "7");
    QTest::keyClick(casella, Qt::Key_Return);
    EXPECT_FALSE(casella->isVisible());
    EXPECT_EQ(f.HScroll1->value(), 7);
    EXPECT_EQ(f.lblpag[0]->text(), "7");
    ASSERT_TRUE(f.isVisible());
    Programma::clic(f.strumenti->cmdvai);
    EXPECT_EQ(casella->text(), "7");
    QTest::keyClicks(casella, "999");
    QTest::keyClick(casella, Qt::Key_Enter);
    EXPECT_EQ(f.HScroll1->value(), 10);
}

TEST_F(StrumentiTest, EscapeLeavesThePageAsItIsAndTheWindowOpen) {
    Form3& f = apri(400);
    Programma::clic(f.strumenti->cmdvai);
    QTest::keyClicks(f.strumenti->txtpagina, "5");
    QTest::keyClick(f.strumenti->txtpagina, Qt::Key_Escape);
    EXPECT_FALSE(f.strumenti->txtpagina->isVisible());
    EXPECT_EQ(f.HScroll1->value(), 1);
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(f.focusWidget(), f.Command1);
}

TEST_F(StrumentiTest, TheFoundCombinationsAreListedAndCounted) {
    Form3& f = apri(400);
    frmcerca& c = cerca(f, "3 89");
    EXPECT_EQ(c.lbltrovate->text(), "5 combinazioni con 3 e 89");
    ASSERT_EQ(c.elenco->righe(), 5);
    EXPECT_EQ(c.elenco->testo(1, 0), "83");
    EXPECT_EQ(c.elenco->testo(1, 1), "3  85  86  87  88  89");
    QTest::keyClicks(c.txtnumeri, " 81");
    EXPECT_EQ(c.lbltrovate->text(), "Nessuna combinazione con 3, 81 e 89");
    EXPECT_EQ(c.elenco->righe(), 0);
    c.txtnumeri->setText("91");
    EXPECT_EQ(c.lbltrovate->text(), "I numeri vanno da 1 a 90");
}

TEST_F(StrumentiTest, TheChosenOneIsShownOnItsPage) {
    Form3& f = apri(400);
    frmcerca& c = cerca(f, "27");
    QTest::keyClick(c.txtnumeri, Qt::Key_Return);
    EXPECT_EQ(f.HScroll1->value(), 1);
    ASSERT_EQ(f.ListView2->selectedItems().size(), 1);
    EXPECT_EQ(f.ListView2->selectedItems()[0]->text(1), "27");
    EXPECT_EQ(f.ListView4->selectedItems()[0]->text(1), "27");
    QTest::keyClick(c.elenco, Qt::Key_Down);
    EXPECT_EQ(f.HScroll1->value(), 3);
    EXPECT_TRUE(f.ListView2->selectedItems()[0]->text(1) == "27");
    EXPECT_EQ(f.ListView4->selectedItems()[0]->text(1), "107");
    QTest::keyClick(&c, Qt::Key_Escape);
    EXPECT_EQ(aperta<frmcerca>(), nullptr);
    EXPECT_TRUE(f.isVisible());
}

TEST_F(StrumentiTest, ASearchInADevelopmentThatWasReplacedFindsNothing) {
    Form3& f = apri(400);
    p.cartella.scrivi("s.col", "1,2,3,4,5,6\r\n");
    EXPECT_EQ(cerca(f, "1").elenco->righe(), 0);
}

TEST_F(StrumentiTest, TheDevelopmentGoesIntoATable) {
    const Form3& f = apri(50);
    scrivi_in("mio");
    QString aperto;
    platform::scrivania().apre = [&aperto](const QString& documento) {
        aperto = documento;
        return true;
    };
    p.risposte = {platform::vbAltri};
    Programma::clic(f.strumenti->cmdesporta);
    EXPECT_TRUE(proposto.endsWith("/s-sviluppo.csv"));
    const std::string scritto = p.cartella.leggi("mio.csv");
    EXPECT_TRUE(scritto.starts_with("combinazione,n1,n2,n3,n4,n5,n6\n1,1,85,86,87,88,89\n"));
    EXPECT_EQ(std::count(scritto.begin(), scritto.end(), '\n'), 51);
    const auto detti = p.mostrati();
    ASSERT_EQ(detti.size(), 1U);
    EXPECT_TRUE(detti[0].testo.endsWith("mio.csv\n\n50 combinazioni."));
    EXPECT_EQ(aperto, platform::q(file) + ".csv");
    EXPECT_TRUE(p.form1.lblpasso->text().startsWith("Lo sviluppo di s è nel file "));
}

TEST_F(StrumentiTest, WhereNoProgramShowsItTheFileIsTold) {
    const Form3& f = apri(50);
    scrivi_in("mio");
    QStringList chiesti;
    platform::scrivania().apre = [&chiesti](const QString& documento) {
        chiesti << documento;
        return false;
    };
    for (const int scelta : {platform::vbAltri, platform::vbAltri + 1}) {
        p.risposte = {scelta};
        Programma::clic(f.strumenti->cmdesporta);
        const auto detti = p.mostrati();
        ASSERT_EQ(detti.size(), 2U);
        EXPECT_EQ(detti[1].testo,
                  QString("Nessun programma di questo computer ") +
                      (scelta == platform::vbAltri ? "apre questo file" : "mostra le cartelle") +
                      ".\nIl file è\n" + platform::da_mostrare(platform::q(file) + ".csv"));
    }
    EXPECT_EQ(chiesti,
              (QStringList{platform::q(file) + ".csv", platform::q(p.cartella.programma())}));
}

TEST_F(StrumentiTest, AFileThatCannotBeWrittenIsTold) {
    Form3& f = apri(50);
    scrivi_in("nessuna/cartella.txt");
    QTest::keyClick(&f, Qt::Key_E, Qt::ControlModifier);
    const auto detti = p.mostrati();
    ASSERT_EQ(detti.size(), 1U);
    EXPECT_TRUE(detti[0].testo.endsWith("la cartella non esiste."));
}

TEST_F(StrumentiTest, StoppedByItsOwnButtonItWritesNothing) {
    const Form3& f = apri(200000);
    scrivi_in("lungo.csv");
    QPushButton* comando = f.strumenti->cmdesporta;
    QTimer::singleShot(0, comando, [comando] {
        EXPECT_EQ(comando->text(), "Ferma");
        Programma::clic(comando);
    });
    Programma::clic(comando);
    EXPECT_EQ(comando->text(), "Esporta…");
    EXPECT_FALSE(p.cartella.esiste("lungo.csv"));
    EXPECT_EQ(p.form1.lblpasso->text(), "Esportazione interrotta: nessun file");
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(StrumentiTest, ClosedWhileItExportsTheWindowGoes) {
    Form3& f = apri(200000);
    scrivi_in("lungo.csv");
    QTimer::singleShot(0, &f, [&f] { f.close(); });
    Programma::clic(f.strumenti->cmdesporta);
    QApplication::processEvents();
    EXPECT_EQ(aperta<Form3>(), nullptr);
    EXPECT_FALSE(p.cartella.esiste("lungo.csv"));
}

TEST_F(StrumentiTest, NothingChosenWritesNothing) {
    const Form3& f = apri(50);
    platform::scrivania().sceglie_nuovo_file = [](const QString&) { return QString(); };
    Programma::clic(f.strumenti->cmdesporta);
    EXPECT_TRUE(p.mostrati().empty());
}

}  // namespace
