// Opening through the manager: what comes back on the screen.
#include <optional>

#include "platform/ambiente.h"
#include "platform/disk.h"
#include "support/riferimento.h"
#include "systems/apertura.h"

using namespace apertura;

namespace {

/// A crossword of one number a cell, 1 upwards, for a file.
std::string righe_file(int colonne, int righe) {
    std::string testo;
    for (int y = 0; y < righe; ++y) {
        for (int x = 0; x < colonne; ++x) testo += std::to_string((y * colonne + x) % 90 + 1) + ",";
        testo += "\r\n";
    }
    return testo;
}

}  // namespace

TEST(ApriSistema, RidaTuttoQuelloCheEraSalvato) {
    Programma p(true);
    p.dimensioni(9, 7);
    Programma::scegli(p.form1.Combo3, 2);
    Programma::scegli(p.form1.Combo4, 0);
    p.riempi_e_salva("ampio");
    p.comando(1);
    const auto numeri = p.griglia();
    const QString senza = p.riepilogo(5, 3);
    const QString prezzo = p.form1.lblimportotot->text();
    ASSERT_NE(senza, "");
    Programma::voce(p.form1.mnunuovo);
    p.mostrati();
    apri(p, "ampio");
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(p.griglia(), numeri);
    EXPECT_EQ(p.form1.Combo1->Text(), "9");
    EXPECT_EQ(p.form1.Combo2->Text(), "7");
    EXPECT_EQ(p.form1.Combo3->ListIndex(), 2);
    EXPECT_EQ(p.form1.Combo4->ListIndex(), 0);
    EXPECT_EQ(p.form1.Combo5->ListIndex(), -1);
    EXPECT_EQ(p.riepilogo(1, 3), "3");
    EXPECT_EQ(p.riepilogo(4, 3), "84");
    EXPECT_EQ(p.riepilogo(5, 3), senza);
    EXPECT_EQ(p.form1.lblimportotot->text(), prezzo);
    EXPECT_EQ(p.form1.Tag(), "ampio");
    EXPECT_EQ(platform::Tag(&p.form1), "ampio");
    EXPECT_EQ(p.form1.lblngioco->text(), QString::number(p.form1.List1->count()));
    EXPECT_GT(p.form1.List1->count(), 0);
    EXPECT_TRUE(p.form1.sessione.salvato());
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 0);
    // The first cell is current, so the number beside it is refused.
    EXPECT_FALSE(p.form1.CMDnum[static_cast<std::size_t>(numeri[1][0])]->isEnabled());
    EXPECT_TRUE(p.form1.CMDnum[static_cast<std::size_t>(numeri[0][0])]->isEnabled());
}

TEST(ApriSistema, ConContoZeroRigaCinqueVuotaEPrezzoDiNessunaColonna) {
    Programma p;
    p.riempi_e_salva("mai");
    Programma::voce(p.form1.mnunuovo);
    apri(p, "mai");
    EXPECT_EQ(p.riepilogo(5, 3), "");
    EXPECT_EQ(p.form1.lblimportotot->text(), ",00");
    EXPECT_EQ(p.form1.lblquote->text(), ",00");
    EXPECT_EQ(p.riepilogo(4, 3), "14");
}

TEST(ApriSistema, LottoSceglieLaForma) {
    for (int forma = 3; forma <= 5; ++forma) {
        Programma p;
        p.cartella.scrivi("voce.sel", "0,5,5,\"2\",1,1,1," + std::to_string(forma) + ",1234\r\n" +
                                          righe_file(6, 6));
        Programma::clic(p.form1.Image10);
        apri(p, "voce");
        EXPECT_EQ(platform::Tag(p.form1.Frame9), QString::number(forma));
        const auto k = static_cast<std::size_t>(forma - 3);
        EXPECT_TRUE(p.form1.Imagey[k]->isVisible());
        EXPECT_FALSE(p.form1.Imageb[k]->isVisible());
        const std::array<const char*, 3> titoli = {"Tabellino - Lotto (Sistemi in Terzine)",
                                                   "Tabellino - Lotto (Sistemi in Quartine)",
                                                   "Tabellino - Lotto (Sistemi in Cinquine)"};
        EXPECT_EQ(p.form1.windowTitle(), titoli[k]);
        EXPECT_EQ(p.form1.Combo1->Text(), "6");
        EXPECT_EQ(p.form1.Combo3->ListIndex(), 1);
        EXPECT_EQ(p.riepilogo(5, 3), "1.234");
        EXPECT_EQ(p.form1.lblimportotot->text(), "617,00");
    }
}

TEST(ApriSistema, UnaFormaCheNonEsisteNonNeSceglieNessuna) {
    Programma p;
    p.cartella.scrivi("buono.sel", "0,4,4,\"2\",0,0,0,4,0\r\n" + righe_file(5, 5));
    p.cartella.scrivi("guasto.sel", "0,4,4,\"2\",0,0,0,7,0\r\n" + righe_file(5, 5));
    p.cartella.scrivi("buono.lot", "1,2,3,4\r\n");
    Programma::clic(p.form1.Image10);
    apri(p, "buono");
    apri(p, "guasto");
    EXPECT_EQ(platform::Tag(p.form1.Frame9), "7");
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_FALSE(p.form1.Imagey[i]->isVisible()) << i;
        EXPECT_TRUE(p.form1.Imageb[i]->isVisible()) << i;
    }
    EXPECT_EQ(p.form1.Combo3->count(), 0);
    EXPECT_FALSE(p.cartella.esiste("buono.lot"));
    EXPECT_EQ(p.form1.Tag(), "guasto");
}

TEST(ApriSistema, LottoScegliendoLaFormaCancellaLoSviluppoDiQuelloCheEraInLinea) {
    Programma p;
    for (const char* nome : {"uno", "due"}) {
        p.cartella.scrivi(std::string(nome) + ".sel",
                          "0,4,4,\"2\",0,0,0,5,0\r\n" + righe_file(5, 5));
        p.cartella.scrivi(std::string(nome) + ".lot", "1,2,3,4,5\r\n");
    }
    Programma::clic(p.form1.Image10);
    apri(p, "uno");
    EXPECT_TRUE(p.cartella.esiste("uno.lot"));
    apri(p, "due");
    EXPECT_FALSE(p.cartella.esiste("uno.lot"));
    EXPECT_TRUE(p.cartella.esiste("due.lot"));
}

TEST(ApriSistema, LaPrimaMisuraDellElencoDipendeDalGioco) {
    Programma p;
    p.cartella.scrivi("sei.sen", "0,6,8,\"\",0,0,-1,0\r\n" + righe_file(9, 7));
    p.cartella.scrivi("sei.sel", "0,6,8,\"\",0,0,-1,5,0\r\n" + righe_file(9, 7));
    apri(p, "sei");
    EXPECT_EQ(p.form1.Combo1->Text(), "9");
    EXPECT_EQ(p.form1.Combo2->Text(), "7");
    Programma::clic(p.form1.Image10);
    apri(p, "sei");
    EXPECT_EQ(p.form1.Combo1->Text(), "9");
    EXPECT_EQ(p.form1.Combo2->Text(), "7");
}

TEST(ApriSistema, IlPrimoCampoNonConta) {
    Programma p;
    p.cartella.scrivi("falso.sen", "999999,5,5,\"6\",0,0,0,7\r\n" + righe_file(6, 6));
    apri(p, "falso");
    EXPECT_EQ(p.riepilogo(4, 3), "14");
    EXPECT_EQ(p.riepilogo(5, 3), "7");
}

TEST(ApriSistema, UnElencoVuotoNonFaNulla) {
    Programma p;
    p.riempi(2);
    p.risposte = {vbNo};
    Programma::voce(p.form1.mnuapri);
    Form2* form2 = Programma::gestore();
    ASSERT_NE(form2, nullptr);
    Programma::clic(form2->Command5);
    EXPECT_TRUE(form2->isVisible());
    EXPECT_EQ(p.form1.List1->count(), 2);
}

TEST(ApriSistema, SenzaScegliereNonFaNulla) {
    Programma p;
    p.riempi_e_salva("uno");
    Programma::voce(p.form1.mnuapri);
    Form2* form2 = Programma::gestore();
    ASSERT_NE(form2, nullptr);
    form2->ListView1->clearSelection();
    Programma::clic(form2->Command5);
    EXPECT_TRUE(form2->isVisible());
}

TEST(ApriSistema, FileSparitoOCortoVaAvantiConGliZeri) {
    Programma p;
    p.cartella.scrivi("corto.sen", "14,5,5,\"6\",0,0,0,3\r\n1,2,3,4,5,6,\r\n7,8,");
    p.cartella.scrivi("sparito.sen", "14,5,5,\"6\",0,0,0,3\r\n");
    apri(p, "corto");
    EXPECT_EQ(p.form1.sessione.matrice()(5, 0), 6);
    EXPECT_EQ(p.form1.sessione.matrice()(1, 1), 8);
    EXPECT_EQ(p.form1.sessione.matrice()(2, 1), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(1, 2), "");
    EXPECT_EQ(p.form1.lblngioco->text(), "8");
    bool completo = true;
    completo = p.form1.sessione.completo();
    EXPECT_FALSE(completo);
    Programma::voce(p.form1.mnuapri);
    Form2* form2 = Programma::gestore();
    ASSERT_NE(form2, nullptr);
    scegli_voce(*form2, "sparito");
    std::filesystem::remove(p.cartella.file("sparito.sen"));
    Programma::clic(form2->Command5);
    EXPECT_EQ(p.form1.Tag(), "sparito");
    EXPECT_EQ(p.form1.lblngioco->text(), "");
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(ApriSistema, MisureOltreGliElenchiLascianoQuelleDiPrima) {
    Programma p;
    p.cartella.scrivi("enorme.sen", "0,250,254,\"6\",0,0,0,0\r\n1,2,3\r\n");
    p.cartella.scrivi("fuori.sen", "0,99999,-3,\"6\",9,-7,x,99999999999\r\n1,2,3\r\n");
    p.dimensioni(7, 8);
    p.form1.sessione.segna_salvato(true);
    for (const char* nome : {"enorme", "fuori"}) {
        apri(p, nome);
        EXPECT_EQ(p.form1.Combo1->Text(), "7") << nome;
        EXPECT_EQ(p.form1.Combo2->Text(), "8") << nome;
        EXPECT_EQ(p.form1.MSFlexGrid1->Cols(), 7);
        EXPECT_EQ(p.form1.Combo3->ListIndex(), 0);
        // The grid shows what fits it, whatever stood in its cells before.
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 7; ++x) {
                const int n = p.form1.sessione.matrice()(x, y);
                EXPECT_EQ(p.form1.MSFlexGrid1->testo(y, x), n == 0 ? "" : QString::number(n));
            }
        }
        EXPECT_EQ(p.form1.Tag(), nome);
        p.cella(0, 0);
        p.numero(90);
        p.form1.sessione.segna_salvato(true);
    }
}

TEST(ApriSistema, IlCruciverbaPiuGrandeDegliElenchiRestaIntero) {
    Programma p;
    std::string file = "14,15,15,\"6\",0,0,0,12\r\n";
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) file += std::to_string((x + 5 * y) % 90 + 1) + ",";
        file += "\r\n";
    }
    p.cartella.scrivi("grande.sen", file);
    apri(p, "grande");
    EXPECT_EQ(p.form1.MSFlexGrid1->Cols(), 6);
    EXPECT_EQ(p.form1.sessione.matrice().colonne(), 16);
    EXPECT_EQ(p.form1.sessione.matrice().righe(), 16);
    EXPECT_EQ(p.form1.lblngioco->text(), "90");
    p.form1.sessione.segna_salvato(false);
    Programma::voce(p.form1.mnusalva);
    EXPECT_EQ(p.cartella.leggi("grande.sen"), file);
}

TEST(ApriSistema, UnCruciverbaPiuPiccoloDegliElenchiECompleto) {
    Programma p;
    const std::string file =
        "0,4,4,\"6\",0,0,0,0\r\n1,2,3,4,5,\r\n6,7,8,9,10,\r\n11,12,13,14,15,\r\n"
        "16,17,18,19,20,\r\n21,22,23,24,25,\r\n";
    p.cartella.scrivi("piccolo.sen", file);
    apri(p, "piccolo");
    bool completo = false;
    completo = p.form1.sessione.completo();
    EXPECT_TRUE(completo);
    EXPECT_EQ(p.form1.lblngioco->text(), "25");
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(4, 4), "25");
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(5, 5), "");
}

TEST(ApriSistema, InvioApreLaRigaCheSembraScelta) {
    Programma p;
    p.cartella.scrivi("uno.sen", "1,5,5,\"2\",0,0,0,0\r\n" + righe_file(6, 6));
    p.cartella.scrivi("zeta.sen", "1,5,5,\"2\",0,0,0,0\r\n" + righe_file(6, 6));
    Programma::voce(p.form1.mnuapri);
    Form2* form2 = Programma::gestore();
    ASSERT_NE(form2, nullptr);
    form2->activateWindow();
    QApplication::processEvents();
    ASSERT_EQ(form2->focusWidget(), form2->ListView1);
    QTest::keyClick(form2->ListView1, Qt::Key_Return);
    EXPECT_EQ(p.form1.Tag(), "uno");
    EXPECT_EQ(Programma::gestore(), nullptr);
}

TEST(ApriSistema, DoppioClicApre) {
    Programma p;
    p.riempi_e_salva("uno");
    Programma::voce(p.form1.mnunuovo);
    Programma::voce(p.form1.mnuapri);
    Form2* form2 = Programma::gestore();
    ASSERT_NE(form2, nullptr);
    const QPoint dove =
        form2->ListView1->visualItemRect(form2->ListView1->topLevelItem(0)).center();
    QTest::mouseClick(form2->ListView1->viewport(), Qt::LeftButton, {}, dove);
    QTest::mouseDClick(form2->ListView1->viewport(), Qt::LeftButton, {}, dove);
    EXPECT_EQ(p.form1.Tag(), "uno");
}
