// The two games on one screen: what switching shows, resets and deletes.
#include "support/programma.h"

using support::Programma;

namespace {

QStringList voci(const QComboBox* elenco) {
    QStringList testi;
    for (int i = 0; i < elenco->count(); ++i) testi << elenco->itemText(i);
    return testi;
}

QStringList numeri(int da, int a) {
    QStringList testi;
    for (int i = da; i <= a; ++i) testi << QString::number(i);
    return testi;
}

constexpr const char* terzine = "Tabellino - Lotto (Sistemi in Terzine)";
constexpr const char* quartine = "Tabellino - Lotto (Sistemi in Quartine)";
constexpr const char* cinquine = "Tabellino - Lotto (Sistemi in Cinquine)";

}  // namespace

TEST(Avvio, SuperEnalottoColTitoloDiPartenza) {
    Programma p;
    EXPECT_EQ(p.form1.windowTitle(), "Sortivario Plus - Sistemi a Cruciverba");
    EXPECT_FALSE(p.form1.sessione.gioco().e_lotto());
    EXPECT_EQ(platform::Tag(p.form1.Frame9), "5");
    for (const platform::Image* i :
         {p.form1.Image7, p.form1.Image8, p.form1.Image9, p.form1.Image10}) {
        EXPECT_TRUE(i->isVisible()) << i->objectName().toStdString();
        EXPECT_TRUE(i->isEnabled());
    }
    EXPECT_EQ(p.form1.Image7->pos(), p.form1.Image8->pos());
    EXPECT_EQ(p.form1.Image9->pos(), p.form1.Image10->pos());
    EXPECT_LT(p.form1.Image7->x(), p.form1.Image9->x());
    EXPECT_FALSE(p.form1.Frame8->isVisible());
    EXPECT_FALSE(p.form1.Frame10->isVisible());
    EXPECT_EQ(voci(p.form1.Combo1), numeri(6, 15));
    EXPECT_EQ(voci(p.form1.Combo2), numeri(6, 15));
    EXPECT_EQ(p.form1.MSFlexGrid1->Cols(), 6);
    EXPECT_EQ(p.form1.MSFlexGrid1->Rows(), 6);
}

TEST(Lotto, DopoIlCambioTitoloECinquine) {
    Programma p;
    Programma::clic(p.form1.Image10);
    EXPECT_EQ(p.form1.windowTitle(), cinquine);
    EXPECT_EQ(platform::Tag(p.form1.Frame9), "5");
    EXPECT_TRUE(p.form1.sessione.gioco().e_lotto());
    EXPECT_TRUE(p.form1.Frame8->isVisible());
    EXPECT_TRUE(p.form1.Frame10->isVisible());
    EXPECT_TRUE(p.form1.Image8->isVisible());
    EXPECT_TRUE(p.form1.Image9->isVisible());
    EXPECT_FALSE(p.form1.Image7->isVisible());
    EXPECT_FALSE(p.form1.Image10->isVisible());
    EXPECT_EQ(voci(p.form1.Combo1), numeri(5, 15));
    EXPECT_EQ(voci(p.form1.Combo2), numeri(5, 15));
    EXPECT_EQ(p.form1.MSFlexGrid1->Cols(), 5);
    EXPECT_EQ(p.form1.MSFlexGrid1->Rows(), 5);
    EXPECT_EQ(p.riepilogo(3, 1), "2");
    EXPECT_EQ(p.riepilogo(1, 3), "1");
    EXPECT_TRUE(p.form1.sessione.salvato());
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_TRUE(p.form1.updatesEnabled());
}

TEST(Lotto, RicominciaSempreDaCinquine) {
    Programma p;
    Programma::clic(p.form1.Image10);
    Programma::clic(p.form1.Imageb[0]);
    ASSERT_EQ(p.form1.windowTitle(), terzine);
    Programma::clic(p.form1.Image8);
    Programma::clic(p.form1.Image10);
    EXPECT_EQ(p.form1.windowTitle(), cinquine);
    EXPECT_EQ(platform::Tag(p.form1.Frame9), "5");
    EXPECT_TRUE(p.form1.Imagey[2]->isVisible());
}

TEST(SuperEnalotto, IlRitorno) {
    Programma p;
    Programma::clic(p.form1.Image10);
    Programma::clic(p.form1.Image8);
    EXPECT_EQ(p.form1.windowTitle(), "Tabellino - SuperEnalotto");
    EXPECT_FALSE(p.form1.sessione.gioco().e_lotto());
    EXPECT_FALSE(p.form1.Frame8->isVisible());
    EXPECT_FALSE(p.form1.Frame10->isVisible());
    EXPECT_TRUE(p.form1.Image7->isVisible());
    EXPECT_TRUE(p.form1.Image10->isVisible());
    EXPECT_FALSE(p.form1.Image8->isVisible());
    EXPECT_FALSE(p.form1.Image9->isVisible());
    EXPECT_EQ(voci(p.form1.Combo1), numeri(6, 15));
    EXPECT_EQ(p.form1.MSFlexGrid1->Cols(), 6);
    EXPECT_EQ(p.riepilogo(3, 1), "6");
    EXPECT_EQ(p.riepilogo(4, 3), "14");
    EXPECT_TRUE(p.form1.sessione.salvato());
}

TEST(CambioDiGioco, PerdeINumeriSenzaDomande) {
    for (const bool andata : {true, false}) {
        Programma p;
        if (!andata) Programma::clic(p.form1.Image10);
        p.riempi(4);
        ASSERT_FALSE(p.form1.sessione.salvato());
        Programma::clic(andata ? p.form1.Image10 : p.form1.Image8);
        EXPECT_TRUE(p.mostrati().empty());
        EXPECT_EQ(p.form1.List1->count(), 0);
        EXPECT_EQ(p.form1.lblngioco->text(), "");
        EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
        EXPECT_TRUE(p.form1.sessione.salvato());
    }
}

TEST(CambioDiGioco, TogliIlSistemaInLinea) {
    Programma p;
    p.riempi_e_salva("uno");
    Programma::clic(p.form1.Image10);
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_EQ(p.form1.lblsistema->text(), "");
    EXPECT_TRUE(p.cartella.esiste("uno.sen"));
}

TEST(Forma, TitoloTagImmaginiEListe) {
    Programma p;
    Programma::clic(p.form1.Image10);
    p.dimensioni(8, 8);
    const std::array<const char*, 3> titoli = {terzine, quartine, cinquine};
    const std::array<const char*, 3> integrale = {"56", "70", "56"};
    for (const int scelta : {0, 1, 2, 0}) {
        const auto k = static_cast<std::size_t>(scelta);
        Programma::clic(p.form1.Imageb[k]);
        EXPECT_EQ(p.form1.windowTitle(), titoli[k]);
        EXPECT_EQ(platform::Tag(p.form1.Frame9), QString::number(scelta + 3));
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(p.form1.Imagey[i]->isVisible(), i == k);
            EXPECT_EQ(p.form1.Imageb[i]->isVisible(), i != k);
        }
        EXPECT_EQ(p.form1.Imagey[k]->x(), 7);
        for (int riga = 1; riga <= 3; ++riga) EXPECT_EQ(p.riepilogo(riga, 3), integrale[k]);
        EXPECT_FALSE(p.form1.sessione.salvato());
        EXPECT_EQ(p.form1.Combo1->Text(), "8");
    }
}

TEST(Forma, NonTocaINumeri) {
    Programma p;
    Programma::clic(p.form1.Image10);
    p.riempi(4);
    const auto prima = p.griglia();
    Programma::clic(p.form1.Imageb[1]);
    EXPECT_EQ(p.griglia(), prima);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), prima[0][0]);
}

TEST(Forma, SuUnaGrigliaRettangolareCombo5RestaVuoto) {
    Programma p;
    Programma::clic(p.form1.Image10);
    p.dimensioni(7, 9);
    Programma::clic(p.form1.Imageb[0]);
    EXPECT_EQ(p.form1.Combo5->count(), 0);
    EXPECT_EQ(p.form1.Combo3->itemText(1), "7 Numeri - 7 Terzine - Garanzia Ambo con 2 Estratti");
    EXPECT_EQ(p.form1.Combo4->itemText(1), "9 Numeri - 12 Terzine - Garanzia Ambo con 2 Estratti");
}

TEST(Forma, QuellaGiaSceltaCancellaUgualmenteIlLot) {
    Programma p;
    Programma::clic(p.form1.Image10);
    p.riempi_e_salva("uno");
    p.cartella.scrivi("uno.lot", "1,2,3,4,5\r\n");
    p.cartella.scrivi("due.lot", "1,2,3,4,5\r\n");
    p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
    Programma::clic(p.form1.Imagey[2]);
    EXPECT_FALSE(p.cartella.esiste("uno.lot"));
    EXPECT_TRUE(p.cartella.esiste("due.lot"));
    EXPECT_TRUE(p.cartella.esiste("uno.col"));
    EXPECT_EQ(p.form1.windowTitle(), cinquine);
    EXPECT_EQ(p.form1.Tag(), "uno");
}

TEST(Forma, PassandoAlLottoIlLotDelSistemaInLineaSparisce) {
    Programma p;
    p.riempi_e_salva("uno");
    p.cartella.scrivi("uno.lot", "1,2,3,4,5\r\n");
    p.cartella.scrivi("due.lot", "1,2,3,4,5\r\n");
    Programma::clic(p.form1.Image10);
    EXPECT_FALSE(p.cartella.esiste("uno.lot"));
    EXPECT_TRUE(p.cartella.esiste("due.lot"));
}

TEST(Forma, SenzaSistemaInLineaNonCancellaNulla) {
    Programma p;
    Programma::clic(p.form1.Image10);
    p.cartella.scrivi(".lot", "x");
    Programma::clic(p.form1.Imageb[0]);
    EXPECT_TRUE(p.cartella.esiste(".lot"));
}

TEST(Reset, RimetteLaMisuraMinoreELeQuote) {
    Programma p;
    p.dimensioni(10, 9);
    p.form1.UpDown2->setValue(7);
    p.form1.Combo3->setFocus();
    p.form1.sessione.segna_salvato(true);
    p.comando(0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Cols(), 6);
    EXPECT_EQ(p.form1.MSFlexGrid1->Rows(), 6);
    EXPECT_EQ(p.form1.UpDown2->value(), 1);
    EXPECT_EQ(p.form1.lblnumquote->text(), "1");
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 0);
    EXPECT_EQ(p.form1.focusWidget(), p.form1.MSFlexGrid1);
    EXPECT_TRUE(p.form1.sessione.salvato());
}
