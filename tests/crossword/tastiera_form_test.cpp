// Typing into the crossword, and undo and redo.
#include <algorithm>

#include "platform/qt/controls.h"
#include "support/programma.h"

namespace {

using support::Programma;

void digita(Programma& p, const char* tasti) {
    QTest::keyClicks(p.form1.MSFlexGrid1, tasti);
}

void tasto(Programma& p, Qt::Key quale, Qt::KeyboardModifiers con = {}) {
    QTest::keyClick(&p.form1, quale, con);
}

TEST(Digitazione, DueCifreVannoNellaCasella) {
    Programma p;
    p.cella(0, 0);
    digita(p, "4");
    EXPECT_EQ(p.form1.MSFlexGrid1->digitato(), "4");
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    digita(p, "2");
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 42);
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(0, 0), "42");
    EXPECT_EQ(p.form1.MSFlexGrid1->digitato(), "");
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 1);
    EXPECT_EQ(p.form1.lblngioco->text(), "1");
    EXPECT_FALSE(p.form1.sessione.salvato());
    digita(p, "07");
    EXPECT_EQ(p.form1.sessione.matrice()(1, 0), 7);
}

TEST(Digitazione, UnaCifraEInvio) {
    Programma p;
    p.cella(2, 3);
    digita(p, "9");
    QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Return);
    EXPECT_EQ(p.form1.sessione.matrice()(3, 2), 9);
    QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Return);
    EXPECT_EQ(p.form1.sessione.matrice()(4, 2), 0);
}

TEST(Digitazione, UnNumeroVietatoSiRifiutaComeSulTabellone) {
    Programma p;
    p.cella(0, 0);
    digita(p, "12");
    ASSERT_FALSE(p.form1.CMDnum[12]->isEnabled());
    digita(p, "12");
    EXPECT_EQ(p.form1.sessione.matrice()(1, 0), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 1);
    for (const char* fuori : {"91", "99", "00"}) digita(p, fuori);
    EXPECT_EQ(p.form1.sessione.matrice()(1, 0), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->digitato(), "");
}

TEST(Digitazione, AltriTastiEIlCursoreLasciaPerdereLaCifra) {
    Programma p;
    p.cella(0, 0);
    digita(p, "1");
    QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Backspace);
    EXPECT_EQ(p.form1.MSFlexGrid1->digitato(), "");
    digita(p, "1");
    QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Right);
    EXPECT_EQ(p.form1.MSFlexGrid1->digitato(), "");
    digita(p, "23");
    EXPECT_EQ(p.form1.sessione.matrice()(1, 0), 23);
}

TEST(Annulla, NumeroPosatoSostituitoETolto) {
    Programma p;
    p.cella(0, 0);
    p.numero(5);
    p.cella(0, 0);
    p.numero(6);
    p.cella(0, 0);
    tasto(p, Qt::Key_Delete);
    ASSERT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    p.form1.sessione.segna_salvato(true);
    tasto(p, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 6);
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(0, 0), "6");
    EXPECT_FALSE(p.form1.sessione.salvato());
    EXPECT_EQ(p.form1.lblngioco->text(), "1");
    tasto(p, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 5);
    tasto(p, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    EXPECT_EQ(p.form1.lblngioco->text(), "");
    tasto(p, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    for (int i = 0; i < 2; ++i) tasto(p, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 6);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 0);
    EXPECT_TRUE(p.form1.CMDnum[6]->isEnabled());
}

TEST(Annulla, IlCompletamentoEUnAzioneSola) {
    Programma p;
    p.riempi(30);
    const auto prima = p.griglia();
    p.comando(5);
    ASSERT_NE(p.griglia(), prima);
    p.messaggi.clear();
    const auto dopo = p.griglia();
    tasto(p, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(p.griglia(), prima);
    tasto(p, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(p.griglia(), dopo);
}

TEST(Annulla, UnCruciverbaSvuotatoTorna) {
    Programma p;
    p.riempi(12);
    const auto prima = p.griglia();
    p.comando(3);
    EXPECT_EQ(p.form1.lblngioco->text(), "");
    tasto(p, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(p.griglia(), prima);
    EXPECT_EQ(p.form1.lblngioco->text(), "12");
}

TEST(Annulla, MaiOltreUnCambioDiMisuraDiGiocoODiSistema) {
    Programma p;
    p.cella(0, 0);
    p.numero(5);
    p.dimensioni(7, 6);
    p.dimensioni(6, 6);
    tasto(p, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    p.numero(8);
    p.form1.sessione.in_linea("altro");
    tasto(p, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 8);
}

TEST(Annulla, MaiDaUnGiocoAllAltro) {
    Programma p;
    p.dimensioni(6, 6);
    p.cella(0, 0);
    p.numero(5);
    p.form1.sessione.segna_salvato(true);
    p.clic(p.form1.Image10);
    p.dimensioni(6, 6);
    for (int i = 0; i < 3; ++i) tasto(p, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    EXPECT_EQ(p.form1.List1->count(), 0);
}

TEST(Tastiera, DalCruciverbaSiPassaAllaListaSenzaIlTabellone) {
    Programma p;
    p.form1.MSFlexGrid1->setFocus();
    QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Tab);
    EXPECT_EQ(p.form1.focusWidget(), p.form1.List1);
}

TEST(Tastiera, IlGiroDelTabulatoreNonSiFermaSuCioCheNonAgisce) {
    Programma p;
    p.form1.MSFlexGrid1->setFocus();
    QStringList giro;
    do {
        giro << p.form1.focusWidget()->objectName();
        QTest::keyClick(p.form1.focusWidget(), Qt::Key_Tab);
    } while (p.form1.focusWidget() != p.form1.MSFlexGrid1 && giro.size() < 50);
    QStringList atteso{"MSFlexGrid1", "List1",  "Image8", "Image10", "Combo1", "Combo2",
                       "cmdstat",     "Combo3", "Combo4", "Combo5",  "UpDown2"};
    for (int i = 0; i <= 8; ++i) atteso << QString("Image3(%1)").arg(i);
    EXPECT_EQ(giro.join(' ').toStdString(), atteso.join(' ').toStdString());
}

TEST(Tastiera, IComandiDelLavoroHannoUnTasto) {
    Programma p;
    p.dialoghi.finti = true;
    tasto(p, Qt::Key_F5);
    EXPECT_EQ(p.mostrati().size(), 1U);
    tasto(p, Qt::Key_F8);
    ASSERT_EQ(p.messaggi.size(), 1U);
    EXPECT_EQ(p.mostrati().front().testo, "Nessun sistema in linea.");
}

TEST(Tastiera, LaFormaSceltaNonFermaIlTabulatore) {
    Programma p;
    p.clic(p.form1.Image10);
    QStringList giro;
    p.form1.MSFlexGrid1->setFocus();
    do {
        giro << p.form1.focusWidget()->objectName();
        QTest::keyClick(p.form1.focusWidget(), Qt::Key_Tab);
    } while (p.form1.focusWidget() != p.form1.MSFlexGrid1 && giro.size() < 50);
    EXPECT_TRUE(giro.contains("Imageb(0)"));
    EXPECT_TRUE(giro.contains("Imageb(1)"));
    EXPECT_TRUE(giro.filter("Imagey").isEmpty());
}

TEST(Tastiera, DopoNuovoSiScriveNelCruciverba) {
    Programma p;
    p.form1.Combo3->setFocus();
    Programma::voce(p.form1.mnunuovo);
    EXPECT_EQ(p.form1.focusWidget(), p.form1.MSFlexGrid1);
}

TEST(Finestra, SoloUnaFissaNonOffreDiIngrandirla) {
    Programma p;
    Programma::voce(p.form1.mnuImportocolonna);
    Programma::voce(p.form1.mnugest_sist);
    int quante = 0;
    for (const QWidget* w : QApplication::topLevelWidgets()) {
        if (!w->isVisible() || w->windowType() == Qt::Popup) continue;
        ++quante;
        const bool fissa = w->minimumSize() == w->maximumSize();
        EXPECT_EQ(w->windowFlags().testFlag(Qt::WindowMaximizeButtonHint), !fissa)
            << w->objectName().toStdString();
    }
    EXPECT_GE(quante, 3);
}

TEST(Forma, OgniImmagineHaLaSuaScritta) {
    Programma p;
    p.clic(p.form1.Image10);
    const QStringList nomi{"Terzine", "Quartine", "Cinquine"};
    for (int i = 0; i < 3; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const QList<QLabel*> scritte = p.form1.Frame8->findChildren<QLabel*>();
        const auto scritta = std::find_if(scritte.begin(), scritte.end(),
                                          [&](const QLabel* e) { return e->text() == nomi[i]; });
        ASSERT_NE(scritta, scritte.end());
        EXPECT_FALSE((*scritta)->geometry().intersects(p.form1.Imageb[k]->geometry()));
        EXPECT_LE((*scritta)->sizeHint().width(), (*scritta)->width());
        EXPECT_TRUE(p.form1.Frame8->rect().contains((*scritta)->geometry()));
        EXPECT_EQ((*scritta)->y(), p.form1.Imageb[k]->y());
        // The pictures are drawn three times as wide as high.
        const QSize misura = p.form1.Imageb[k]->sizeHint();
        EXPECT_EQ(misura.width(), misura.height() * 3);
    }
}

TEST(Lista, IlNumeroSceltoNonSiSposta) {
    Programma p;
    for (const int n : {11, 12}) p.numero(n);
    const auto ultimo_scuro = [&p](int voce) {
        const QRect posto = p.form1.List1->visualItemRect(p.form1.List1->item(voce));
        const QImage vista = p.form1.List1->viewport()->grab(posto).toImage();
        int destro = -1;
        for (int y = 2; y < vista.height() - 2; ++y) {
            for (int x = 0; x < vista.width() - 2; ++x) {
                if (qGray(vista.pixel(x, y)) < 120) destro = qMax(destro, x);
            }
        }
        return destro;
    };
    p.form1.List1->clearSelection();
    const int prima = ultimo_scuro(0);
    ASSERT_GT(prima, 0);
    p.form1.List1->setCurrentRow(0);
    EXPECT_EQ(ultimo_scuro(0), prima);
}

}  // namespace
