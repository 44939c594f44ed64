// The economical tables as the player meets them: the menu, the lists, the word when one is gone.
#include <filesystem>

#include "support/programma.h"

using support::Programma;

namespace {

QStringList voci(const QComboBox* elenco) {
    QStringList testi;
    for (int i = 0; i < elenco->count(); ++i) testi << elenco->itemText(i);
    return testi;
}

}  // namespace

TEST(TabelleEconomiche, LaVoceAccendeLeListeESiRicorda) {
    Programma p(true);
    p.dimensioni(9, 9);
    const QStringList detti = voci(p.form1.Combo3);
    EXPECT_TRUE(p.form1.mnuEconomiche->isCheckable());
    EXPECT_FALSE(p.form1.mnuEconomiche->isChecked());
    Programma::voce(p.form1.mnuEconomiche);
    EXPECT_TRUE(p.form1.mnuEconomiche->isChecked());
    EXPECT_TRUE(p.cartella.esiste("eco.dat"));
    for (const platform::ComboBox* lista : {p.form1.Combo3, p.form1.Combo4}) {
        EXPECT_EQ(voci(lista).mid(0, detti.size()), detti);
        EXPECT_EQ(lista->count(), detti.size() + 9);
        EXPECT_EQ(lista->ListIndex(), 0);
    }
    EXPECT_EQ(p.form1.Combo5->count(), 13);
    EXPECT_EQ(p.form1.Combo3->itemText(13), "7 Sestine (8,33 %) - Min.1(5) con 6 estratti");
    Programma::voce(p.form1.mnuEconomiche);
    EXPECT_FALSE(p.form1.mnuEconomiche->isChecked());
    EXPECT_FALSE(p.cartella.esiste("eco.dat"));
    EXPECT_EQ(voci(p.form1.Combo3), detti);
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(TabelleEconomiche, SceltaContaSiElaboraESiRiapreSpenta) {
    Programma p(true);
    Programma::voce(p.form1.mnuEconomiche);
    p.dimensioni(9, 9);
    Programma::scegli(p.form1.Combo3, 13);
    EXPECT_EQ(p.form1.MSFlexGrid2->testo(1, 3), "7");
    p.riempi_e_salva("a");
    EXPECT_NE(p.cartella.leggi("a.sen").find(",56,0,0,"), std::string::npos);
    p.form1.cmd_elabora();
    EXPECT_EQ(p.messaggi.back().testo, "Elaborazione completata.");
    EXPECT_TRUE(p.cartella.esiste("a.col"));
    Programma::voce(p.form1.mnuEconomiche);
    ASSERT_TRUE(p.form1.sessione.apri("a"));
    EXPECT_EQ(p.form1.Combo3->currentText(),
              "Economica: 7 Sestine (8,33 %) - Min.1(5) con 6 estratti");
    EXPECT_EQ(p.form1.MSFlexGrid2->testo(1, 3), "7");
}

TEST(TabelleEconomiche, QuellaCheMancaSiDiceENonSiElabora) {
    Programma p(true);
    Programma::voce(p.form1.mnuEconomiche);
    p.dimensioni(9, 9);
    Programma::scegli(p.form1.Combo3, 13);
    p.riempi_e_salva("a");
    std::filesystem::remove(p.cartella.radice() + "/ridotti/cr0956.rid");
    ASSERT_TRUE(p.form1.sessione.apri("a"));
    EXPECT_EQ(p.form1.Combo3->currentText(), "Manca la tabella cr0956.rid");
    EXPECT_EQ(p.form1.MSFlexGrid2->testo(1, 3), "");
    EXPECT_EQ(p.form1.MSFlexGrid2->testo(4, 3), "");
    const std::size_t prima = p.messaggi.size();
    p.comando(1);
    ASSERT_EQ(p.messaggi.size(), prima + 1);
    EXPECT_EQ(p.messaggi.back().testo,
              "Il sistema usa una tabella economica che manca o è guasta: cr0956.rid.\n"
              "Rimettetela nella cartella \"ridotti\", oppure scegliete un altro tipo di sistema.");
    EXPECT_FALSE(p.cartella.esiste("a.col"));
    Programma::scegli(p.form1.Combo3, 1);
    EXPECT_NE(p.form1.MSFlexGrid2->testo(4, 3), "");
}
