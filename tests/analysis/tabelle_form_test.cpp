// The window of the tables, through its lists and buttons.
#include <QHeaderView>

#include "analysis/frmtabelle.h"
#include "support/programma.h"

using support::Programma;

namespace {

analysis::frmtabelle* apri(Programma& p) {
    Programma::voce(p.form1.mnutabelle);
    return p.form1.findChild<analysis::frmtabelle*>();
}

QString cella(const analysis::VistaTavola* vista, int riga, int colonna) {
    return vista->griglia->item(riga, colonna)->text();
}

}  // namespace

TEST(Tabelle, SiApreSulGiocoESulLatoDelCruciverba) {
    Programma p(true);
    p.dimensioni(8, 9);
    analysis::frmtabelle* form = apri(p);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->windowTitle(), "Tabelle");
    EXPECT_EQ(form->gioco->currentText(), "SuperEnalotto");
    EXPECT_EQ(form->numeri->currentText(), "9");
    EXPECT_EQ(form->catalogo->griglia->rowCount(), 14);
    EXPECT_EQ(cella(form->catalogo, 0, 0), "cr0900");
    EXPECT_EQ(form->lblstato->text(), "Integrale");
    EXPECT_FALSE(form->vincite->isVisible());
    // Another opening takes its place.
    analysis::frmtabelle* altro = apri(p);
    EXPECT_EQ(p.form1.findChildren<analysis::frmtabelle*>().size(), 1);
    Programma::clic(altro->CmdEsci);
    EXPECT_FALSE(altro->isVisible());
    altro = apri(p);
    QTest::keyClick(altro, Qt::Key_Escape);
    EXPECT_FALSE(altro->isVisible());
}

TEST(Tabelle, VinciteEProvaDellaRigaScelta) {
    Programma p(true);
    p.dimensioni(9, 9);
    analysis::frmtabelle* form = apri(p);
    form->catalogo->griglia->selectRow(13);
    EXPECT_EQ(form->lblstato->text(), "Economica: 7 Sestine (8,33 %) - Min.1(5) con 6 estratti");
    Programma::clic(form->cmdvincite);
    EXPECT_TRUE(form->vincite->isVisible());
    EXPECT_EQ(form->vincite->griglia->rowCount(), 6);
    EXPECT_EQ(cella(form->vincite, 5, 7), "1 da 5");
    Programma::clic(form->cmdprova);
    EXPECT_EQ(form->lblstato->text(),
              "cr0956: provata su tutti i 84 sorteggi di 6 numeri, 5 con 6 estratti vale sempre.");
    form->catalogo->griglia->selectRow(1);
    EXPECT_FALSE(form->vincite->isVisible());
    EXPECT_EQ(form->lblstato->text(), "Autoridotto [N-1]");
}

TEST(Tabelle, LeCelleHannoIlMargineDelleTestate) {
    Programma p(true);
    analysis::frmtabelle* form = apri(p);
    QTableWidget* g = form->catalogo->griglia;
    g->clearSelection();
    g->setFocus();
    QApplication::processEvents();
    // Columns that hold ink, of a picture on one ground.
    const auto inchiostro = [](const QImage& vista) {
        const int fondo = vista.pixelColor(2, 2).lightness();
        int prima = vista.width();
        int ultima = -1;
        for (int x = 2; x < vista.width() - 2; ++x) {
            for (int y = 3; y < vista.height() - 3; ++y) {
                if (std::abs(vista.pixelColor(x, y).lightness() - fondo) < 60) continue;
                prima = std::min(prima, x);
                ultima = std::max(ultima, x);
            }
        }
        return std::pair(prima, vista.width() - 1 - ultima);
    };
    const auto di = [&](int c) {
        const QRect cella = g->visualRect(g->model()->index(0, c));
        const QRect testa(cella.x(), 0, cella.width(), g->horizontalHeader()->height());
        return std::pair(inchiostro(g->viewport()->grab(cella).toImage()),
                         inchiostro(g->horizontalHeader()->viewport()->grab(testa).toImage()));
    };
    const auto [cella, testa] = di(0);
    EXPECT_NEAR(cella.first, 8, 2);
    EXPECT_NEAR(cella.first, testa.first, 2);
    const auto [destra, testa_destra] = di(g->columnCount() - 1);
    EXPECT_NEAR(destra.second, 8, 2);
    EXPECT_NEAR(destra.second, testa_destra.second, 2);
}

TEST(Tabelle, AltroGiocoEAltraLunghezza) {
    Programma p(true);
    p.dimensioni(15, 15);
    analysis::frmtabelle* form = apri(p);
    Programma::scegli(form->gioco, 1);
    EXPECT_EQ(form->numeri->currentText(), "15");
    EXPECT_EQ(cella(form->catalogo, 0, 0), "tr1500");
    Programma::scegli(form->numeri, 0);
    EXPECT_EQ(cella(form->catalogo, 0, 0), "tr0500");
    EXPECT_EQ(cella(form->catalogo, 0, 2), "10");
}

TEST(Tabelle, SenzaTabelleNonOffreNulla) {
    Programma p;
    analysis::frmtabelle* form = apri(p);
    EXPECT_EQ(form->catalogo->griglia->rowCount(), 0);
    EXPECT_FALSE(form->cmdvincite->isEnabled());
    EXPECT_FALSE(form->cmdprova->isEnabled());
    EXPECT_EQ(form->catalogo->note->text(), "Nessuna tabella.");
}
