// Undo of whole actions, and what the actions on the menu tell.
#include "crossword/linee.h"
#include "support/programma.h"

namespace {

using support::Programma;

void comanda(Programma& p, Qt::KeyboardModifiers con) {
    // A list or a menu that was open left no window active.
    p.form1.activateWindow();
    QApplication::processEvents();
    QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Z, con);
}

void annulla(Programma& p) {
    comanda(p, Qt::ControlModifier);
}

void ripeti(Programma& p) {
    comanda(p, Qt::ControlModifier | Qt::ShiftModifier);
}

TEST(Annulla, UnSistemaGeneratoSeNeVaInUnPasso) {
    Programma p;
    p.cella(3, 3);
    p.numero(44);
    const auto prima = p.griglia();
    Programma::clic(p.form1.cmdstat);
    const auto generata = p.griglia();
    ASSERT_NE(generata, prima);
    annulla(p);
    EXPECT_EQ(p.griglia(), prima);
    EXPECT_EQ(p.form1.sessione.matrice()(3, 3), 44);
    EXPECT_EQ(p.form1.lblngioco->text(), "1");
    annulla(p);
    EXPECT_EQ(p.form1.sessione.matrice()(3, 3), 0);
    ripeti(p);
    ripeti(p);
    EXPECT_EQ(p.griglia(), generata);
}

TEST(Annulla, SvuotaRidaAncheITipi) {
    Programma p;
    p.dimensioni(8, 8);
    p.riempi(12);
    Programma::scegli(p.form1.Combo3, 2);
    Programma::scegli(p.form1.Combo4, 1);
    Programma::scegli(p.form1.Combo5, 2);
    const QString totale = p.riepilogo(4, 3);
    const auto prima = p.griglia();
    p.comando(3);
    ASSERT_EQ(p.form1.Combo3->ListIndex(), 0);
    annulla(p);
    EXPECT_EQ(p.griglia(), prima);
    EXPECT_EQ(p.form1.Combo3->ListIndex(), 2);
    EXPECT_EQ(p.form1.Combo4->ListIndex(), 1);
    EXPECT_EQ(p.form1.Combo5->ListIndex(), 2);
    EXPECT_EQ(p.riepilogo(4, 3), totale);
    EXPECT_FALSE(p.form1.sessione.salvato());
    ripeti(p);
    EXPECT_EQ(p.form1.Combo3->ListIndex(), 0);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
}

TEST(Annulla, SalvareAncheConAltroNomeTieneLaStoria) {
    Programma p;
    p.riempi_e_salva("primo");
    p.scrivi_nel_gestore("secondo");
    Programma::voce(p.form1.mnusalvanome);
    ASSERT_EQ(p.form1.Tag(), "secondo");
    const auto intera = p.griglia();
    annulla(p);
    EXPECT_EQ(p.form1.sessione.matrice()(5, 5), 0);
    EXPECT_FALSE(p.form1.sessione.salvato());
    ripeti(p);
    EXPECT_EQ(p.griglia(), intera);
}

TEST(Annulla, UnSistemaApertoNonHaStoria) {
    Programma p;
    p.riempi_e_salva("uno");
    ASSERT_TRUE(p.form1.annulla->isEnabled());
    Programma::voce(p.form1.mnuapri);
    systems::Form2* form2 = Programma::gestore();
    ASSERT_NE(form2, nullptr);
    QTest::mouseClick(form2->ListView1->viewport(), Qt::LeftButton, {},
                      form2->ListView1->visualItemRect(form2->ListView1->topLevelItem(0)).center());
    Programma::clic(form2->Command5);
    ASSERT_EQ(p.form1.Tag(), "uno");
    EXPECT_FALSE(p.form1.annulla->isEnabled());
    const auto aperta = p.griglia();
    annulla(p);
    EXPECT_EQ(p.griglia(), aperta);
}

TEST(Annulla, LeVociSonoGrigieQuandoNonCENulla) {
    Programma p;
    EXPECT_FALSE(p.form1.annulla->isEnabled());
    EXPECT_FALSE(p.form1.ripeti->isEnabled());
    p.numero(5);
    EXPECT_TRUE(p.form1.annulla->isEnabled());
    annulla(p);
    EXPECT_FALSE(p.form1.annulla->isEnabled());
    EXPECT_TRUE(p.form1.ripeti->isEnabled());
    ripeti(p);
    EXPECT_TRUE(p.form1.annulla->isEnabled());
    EXPECT_FALSE(p.form1.ripeti->isEnabled());
    p.dimensioni(7, 6);
    EXPECT_FALSE(p.form1.annulla->isEnabled());
    p.numero(5);
    Programma::voce(p.form1.mnunuovo);
    EXPECT_FALSE(p.form1.annulla->isEnabled());
}

TEST(Annulla, NonMetteUnNumeroCheUnaLineaSbarra) {
    // As a damaged system would have it.
    crossword::Matrice m(6, 6);
    m.scrivi(5, 0, 5);
    EXPECT_TRUE(crossword::rimetti({{0, 0, 5, 0, false}}, true, m));
    EXPECT_EQ(m(0, 0), 0);
}

TEST(Annulla, ITipiDiUnAltraFormaNonTornano) {
    Programma p;
    Programma::clic(p.form1.Image10);
    p.dimensioni(8, 8);
    p.numero(5);
    Programma::scegli(p.form1.Combo3, 3);
    p.comando(3);
    Programma::clic(p.form1.Imageb[0]);
    Programma::scegli(p.form1.Combo3, 1);
    annulla(p);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 5);
    EXPECT_EQ(p.form1.Combo3->ListIndex(), 1);
}

TEST(CifraAMeta, OgniAltraAzioneLaDimentica) {
    const std::vector<std::function<void(Programma&)>> azioni{
        [](Programma& p) { p.numero(30); },
        [](Programma& p) { p.form1.CMDnum_Click(30); },
        [](Programma& p) { QTest::keyClick(&p.form1, Qt::Key_Delete); },
        [](Programma& p) { p.comando(4); },
        [](Programma& p) { p.comando(7); },
        [](Programma& p) { annulla(p); },
        [](Programma& p) { ripeti(p); },
        [](Programma& p) { p.form1.mnuinfo->trigger(); },
        [](Programma& p) { p.form1.List1->setFocus(); },
        [](Programma& p) { QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Left); },
        [](Programma& p) { QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Escape); },
    };
    for (std::size_t i = 0; i < azioni.size(); ++i) {
        Programma p;
        p.dialoghi.finti = true;
        p.cella(0, 0);
        p.numero(1);
        p.cella(0, 0);
        QTest::keyClicks(p.form1.MSFlexGrid1, "4");
        ASSERT_EQ(p.form1.MSFlexGrid1->digitato(), "4");
        azioni[i](p);
        EXPECT_EQ(p.form1.MSFlexGrid1->digitato(), "") << i;
        p.cella(3, 3);
        QTest::keyClicks(p.form1.MSFlexGrid1, "2");
        EXPECT_EQ(p.form1.sessione.matrice()(3, 3), 0) << i;
        p.messaggi.clear();
    }
}

TEST(CifraAMeta, LeCifreDiUnaTastieraSulloSchermoArrivano) {
    Programma p;
    p.cella(2, 2);
    for (const char* scritto : {"4", "2", "37"}) {
        QInputMethodEvent evento;
        evento.setCommitString(scritto);
        QApplication::sendEvent(p.form1.MSFlexGrid1, &evento);
    }
    EXPECT_EQ(p.form1.sessione.matrice()(2, 2), 42);
    EXPECT_EQ(p.form1.sessione.matrice()(3, 2), 37);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 4);
    EXPECT_TRUE(p.form1.MSFlexGrid1->testAttribute(Qt::WA_InputMethodEnabled));
}

TEST(Tabellone, UnNumeroGrigioDicePerche) {
    Programma p;
    p.cella(0, 0);
    p.numero(12);
    EXPECT_EQ(p.form1.CMDnum[12]->toolTip(), "Il 12 sta già sulla riga di questa casella.");
    EXPECT_EQ(p.form1.CMDnum[13]->toolTip(), "");
    p.cella(3, 3);
    EXPECT_EQ(p.form1.CMDnum[12]->toolTip(), "Il 12 sta già su una diagonale di questa casella.");
    p.cella(3, 0);
    EXPECT_EQ(p.form1.CMDnum[12]->toolTip(), "Il 12 sta già sulla colonna di questa casella.");
    p.comando(3);
    EXPECT_EQ(p.form1.CMDnum[12]->toolTip(), "");
    // Numbers as they are read, and more than two lines as they are listed.
    p.cella(0, 0);
    for (const int n : {8, 10, 11, 80}) p.numero(n);
    EXPECT_EQ(p.form1.CMDnum[8]->toolTip(), "L'8 sta già sulla riga di questa casella.");
    EXPECT_EQ(p.form1.CMDnum[10]->toolTip(), "Il 10 sta già sulla riga di questa casella.");
    EXPECT_EQ(p.form1.CMDnum[11]->toolTip(), "L'11 sta già sulla riga di questa casella.");
    EXPECT_EQ(p.form1.CMDnum[80]->toolTip(), "L'80 sta già sulla riga di questa casella.");
    p.cella(1, 4);
    p.numero(1);
    p.cella(3, 3);
    p.numero(1);
    p.cella(3, 4);
    EXPECT_EQ(p.form1.CMDnum[1]->toolTip(),
              "L'1 sta già sulla riga e sulla colonna di questa casella.");
    for (const auto& [riga, colonna] : {std::pair(3, 1), std::pair(1, 3), std::pair(5, 5)}) {
        p.cella(riga, colonna);
        p.numero(2);
    }
    p.cella(3, 3);
    EXPECT_EQ(p.form1.CMDnum[2]->toolTip(),
              "Il 2 sta già sulla riga, sulla colonna e su una diagonale di questa casella.");
}

}  // namespace
