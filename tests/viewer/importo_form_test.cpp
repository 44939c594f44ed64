// The price of a column, the shares, and the dialog that changes the price.
#include <QClipboard>

#include "support/programma.h"
#include "viewer/formeuro.h"

using support::Icona;
using support::Mostrato;
using support::Programma;
using support::Pulsanti;
using viewer::formeuro;

namespace {

using Mostrati = std::vector<Mostrato>;

const Mostrato vuoto{"Inserire l'importo per la giocata della singola Colonna", "Pronostar 2004",
                     Pulsanti::ok, Icona::nessuna};
const Mostrato senza_virgola{
    "Per inserire il valore in Euro il formato corretto è: x,xx\r\nEsempio: 0,50", "Pronostar 2004",
    Pulsanti::ok, Icona::nessuna};
const Mostrato registrata{"Modifica Registrata!", "Tabellino", Pulsanti::ok, Icona::nessuna};

formeuro* apri(Programma& p) {
    Programma::voce(p.form1.mnuImportocolonna);
    for (QWidget* w : QApplication::topLevelWidgets()) {
        auto* f = qobject_cast<formeuro*>(w);
        if (f != nullptr && f->isVisible()) return f;
    }
    ADD_FAILURE() << "the dialog did not open";
    return nullptr;
}

void scrivi(formeuro* f, const QString& testo) {
    f->Text1->clear();
    QTest::keyClicks(f->Text1, testo);
}

/// Presses one of the two arrows as often as told.
void quote(Programma& p, int volte, Qt::Key freccia) {
    for (int i = 0; i < volte; ++i) QTest::keyClick(p.form1.UpDown2, freccia);
}

/// Program over a folder with a price in it.
std::function<void(const support::Cartella&)> con_cst(const std::string& testo) {
    return [testo](const support::Cartella& c) { c.scrivi("cst", testo); };
}

}  // namespace

TEST(PrimoAvvio, LasciaMezzoEuro) {
    Programma p;
    EXPECT_EQ(p.cartella.leggi("cst"), "\"0,50\",\"Euro\"\r\n");
    EXPECT_EQ(p.form1.lblvaluta[0]->text(), "Euro");
    EXPECT_EQ(p.form1.lblvaluta[1]->text(), "Euro");
    EXPECT_EQ(p.form1.lblnumquote->text(), "1");
    EXPECT_EQ(p.form1.lblimportotot->text(), "7,00");
    EXPECT_EQ(p.form1.lblquote->text(), "7,00");
}

TEST(Importo, PrimaDegliAltriScriveNovecentocinquantaLire) {
    Programma p;
    std::filesystem::remove(p.cartella.file("cst"));
    p.form1.sessione.importo();
    EXPECT_EQ(p.cartella.leggi("cst"), "\"950\",\"Lire\"\r\n");
    EXPECT_EQ(p.form1.lblvaluta[0]->text(), "Lire");
    EXPECT_EQ(p.form1.lblvaluta[1]->text(), "Lire");
    EXPECT_EQ(p.form1.sessione.calcolo_importo(2), "1.900,00");
    // The caller puts the formatted total in the place of this one.
    EXPECT_EQ(p.form1.lblimportotot->text(), "1900");
}

TEST(Importo, UnFileInLireSiCapisce) {
    Programma p(false, con_cst("\"950\",\"Lire\"\r\n"));
    EXPECT_EQ(p.form1.lblvaluta[0]->text(), "Lire");
    EXPECT_EQ(p.form1.lblvaluta[1]->text(), "Lire");
    EXPECT_EQ(p.form1.lblimportotot->text(), "13.300,00");
    EXPECT_EQ(p.cartella.leggi("cst"), "\"950\",\"Lire\"\r\n");
}

TEST(Importo, UnPrezzoVuotoLasciaIlFile) {
    Programma p(false, con_cst("\"\",\"\"\r\n"));
    EXPECT_EQ(p.cartella.leggi("cst"), "\"\",\"\"\r\n");
    EXPECT_EQ(p.form1.lblvaluta[0]->text(), "Lire");
    EXPECT_EQ(p.form1.lblimportotot->text(), "7,00");
    EXPECT_EQ(apri(p)->Text1->text(), "0,50");
    EXPECT_EQ(p.cartella.leggi("cst"), "\"\",\"\"\r\n");
}

TEST(Quote, LeFrecceDividonoIlTotale) {
    Programma p;
    quote(p, 3, Qt::Key_Up);
    EXPECT_EQ(p.form1.lblnumquote->text(), "4");
    EXPECT_EQ(p.form1.lblquote->text(), "1,75");
    quote(p, 1, Qt::Key_Down);
    EXPECT_EQ(p.form1.lblnumquote->text(), "3");
    EXPECT_EQ(p.form1.lblquote->text(), "2,33");
    EXPECT_EQ(p.form1.lblimportotot->text(), "7,00");
}

TEST(Quote, UnTastoTenutoNonSpezzaIlNumeroCheSiScrive) {
    Programma p;
    p.form1.UpDown2->setFocus();
    QTest::keyClick(p.form1.UpDown2, Qt::Key_1);
    for (const int tenuto : {Qt::Key_Shift, Qt::Key_NumLock}) {
        QKeyEvent giu(QEvent::KeyPress, tenuto, Qt::NoModifier);
        QApplication::sendEvent(p.form1.UpDown2, &giu);
    }
    QTest::keyClick(p.form1.UpDown2, Qt::Key_2);
    EXPECT_EQ(p.form1.lblnumquote->text(), "12");
}

TEST(Quote, ConIlMouse) {
    Programma p;
    const QSize lato = p.form1.UpDown2->size();
    QTest::mouseClick(p.form1.UpDown2, Qt::LeftButton, {}, {lato.width() / 2, 4});
    EXPECT_EQ(p.form1.lblnumquote->text(), "2");
    QTest::mouseClick(p.form1.UpDown2, Qt::LeftButton, {}, {lato.width() / 2, lato.height() - 4});
    EXPECT_EQ(p.form1.lblnumquote->text(), "1");
}

TEST(Quote, DaUnoANovecentonovantanove) {
    Programma p;
    quote(p, 1, Qt::Key_Down);
    EXPECT_EQ(p.form1.UpDown2->value(), 1);
    p.form1.UpDown2->setValue(998);
    quote(p, 3, Qt::Key_Up);
    EXPECT_EQ(p.form1.UpDown2->value(), 999);
    EXPECT_EQ(p.form1.lblnumquote->text(), "999");
}

TEST(Quote, SottoUnoLoZeroDipendeDaChiScrive) {
    Programma p;
    quote(p, 27, Qt::Key_Up);
    EXPECT_EQ(p.form1.lblquote->text(), "0,25");
    Programma::scegli(p.form1.Combo3, 0);
    EXPECT_EQ(p.form1.lblquote->text(), ",25");
}

TEST(Quote, IlTotaleConIlPuntoSiLeggeFinoAlSecondo) {
    Programma p;
    p.dimensioni(15, 15);
    ASSERT_EQ(p.form1.lblimportotot->text(), "86.086,00");
    EXPECT_EQ(p.form1.lblquote->text(), "86.086,00");
    quote(p, 1, Qt::Key_Up);
    EXPECT_EQ(p.form1.lblquote->text(), "43,04");
    Programma::scegli(p.form1.Combo3, 0);
    EXPECT_EQ(p.form1.lblquote->text(), "43.043,00");
}

TEST(Quote, ArrotondaLaMetaInSu) {
    Programma p;
    p.dimensioni(7, 7);
    quote(p, 15, Qt::Key_Up);
    EXPECT_EQ(p.form1.lblimportotot->text(), "58,00");
    EXPECT_EQ(p.form1.lblquote->text(), "3,63");
}

TEST(FormEuro, TitoloNomiETesti) {
    Programma p;
    const formeuro* f = apri(p);
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->objectName(), "formeuro");
    EXPECT_EQ(f->windowTitle(), "Importo colonna");
    EXPECT_FALSE(f->isModal());
    EXPECT_EQ(f->Command1->text(), "Esci");
    EXPECT_EQ(f->Command2->text(), "Salva Modifica");
    EXPECT_EQ(f->Command3->text(), "Annulla");
    EXPECT_EQ(f->Command4->text(), "Default");
    for (const char* nome : {"Text1", "Command1", "Command2", "Command3", "Command4"}) {
        EXPECT_NE(f->findChild<QWidget*>(nome), nullptr) << nome;
    }
    ASSERT_NE(f->findChild<QLabel*>("Label1"), nullptr);
    EXPECT_EQ(f->findChild<QLabel*>("Label1")->text(), "Importo per singola colonna");
    EXPECT_EQ(f->findChild<QLabel*>("Label2")->text(), "Euro");
    EXPECT_EQ(f->Text1->text(), "0,50");
}

TEST(FormEuro, PassanoSoloCifreEVirgola) {
    Programma p;
    formeuro* f = apri(p);
    scrivi(f, "1a2.,-3 x,4");
    EXPECT_EQ(f->Text1->text(), "12,3,4");
    QTest::keyClick(f->Text1, Qt::Key_Backspace);
    EXPECT_EQ(f->Text1->text(), "12,3,");
}

TEST(FormEuro, VuotoRifiuta) {
    Programma p;
    formeuro* f = apri(p);
    f->Text1->clear();
    Programma::clic(f->Command2);
    EXPECT_EQ(p.mostrati(), Mostrati{vuoto});
    EXPECT_EQ(f->focusWidget(), f->Text1);
    EXPECT_EQ(p.cartella.leggi("cst"), "\"0,50\",\"Euro\"\r\n");
}

TEST(FormEuro, SenzaVirgolaRifiuta) {
    Programma p;
    formeuro* f = apri(p);
    scrivi(f, "1");
    Programma::clic(f->Command2);
    EXPECT_EQ(p.mostrati(), Mostrati{senza_virgola});
    EXPECT_EQ(f->focusWidget(), f->Text1);
    EXPECT_EQ(f->Text1->text(), "1");
    EXPECT_EQ(p.cartella.leggi("cst"), "\"0,50\",\"Euro\"\r\n");
}

TEST(FormEuro, SalvaRicontaEConferma) {
    Programma p;
    p.form1.sessione.segna_salvato(true);
    p.apri_cosi([](systems::Sistema& s) { s.senza_ripetizioni = 13; });
    formeuro* f = apri(p);
    scrivi(f, "1,25");
    Programma::clic(f->Command2);
    EXPECT_EQ(p.mostrati(), Mostrati{registrata});
    EXPECT_EQ(p.cartella.leggi("cst"), "\"1,25\",\"Euro\"\r\n");
    EXPECT_EQ(f->Text1->text(), "1,25");
    EXPECT_EQ(p.form1.lblimportotot->text(), "17,50");
    EXPECT_EQ(p.form1.lblquote->text(), "17,50");
    EXPECT_EQ(p.riepilogo(5, 3), "");
    EXPECT_FALSE(p.form1.sessione.salvato());
    EXPECT_TRUE(f->isVisible());
}

TEST(FormEuro, CinqueDecimiComeCinquantaCentesimi) {
    Programma p;
    formeuro* f = apri(p);
    scrivi(f, "0,5");
    Programma::clic(f->Command2);
    EXPECT_EQ(p.form1.lblimportotot->text(), "7,00");
    EXPECT_EQ(p.cartella.leggi("cst"), "\"0,5\",\"Euro\"\r\n");
}

TEST(FormEuro, DueVirgoleSiFermanoAllaSeconda) {
    Programma p;
    formeuro* f = apri(p);
    scrivi(f, ",,5");
    Programma::clic(f->Command2);
    EXPECT_EQ(p.mostrati(), Mostrati{registrata});
    EXPECT_EQ(p.form1.lblimportotot->text(), ",00");
    scrivi(f, "1,2,5");
    Programma::clic(f->Command2);
    EXPECT_EQ(p.form1.lblimportotot->text(), "16,80");
}

TEST(FormEuro, SalvareDaLireDaEuroAncheNelleEtichette) {
    Programma p(false, con_cst("\"950\",\"Lire\"\r\n"));
    formeuro* f = apri(p);
    EXPECT_EQ(f->Text1->text(), "950");
    scrivi(f, "0,50");
    Programma::clic(f->Command2);
    EXPECT_EQ(p.cartella.leggi("cst"), "\"0,50\",\"Euro\"\r\n");
    EXPECT_EQ(p.form1.lblvaluta[0]->text(), "Euro");
    EXPECT_EQ(p.form1.lblvaluta[1]->text(), "Euro");
}

TEST(FormEuro, AnnullaRileggeIlPrezzo) {
    Programma p(false, con_cst("\"0,75\",\"Euro\"\r\n"));
    formeuro* f = apri(p);
    scrivi(f, "9,99");
    Programma::clic(f->Command3);
    EXPECT_EQ(f->Text1->text(), "0,75");
    EXPECT_TRUE(f->isVisible());
    std::filesystem::remove(p.cartella.file("cst"));
    Programma::clic(f->Command3);
    EXPECT_EQ(f->Text1->text(), "0,50");
    EXPECT_FALSE(p.cartella.esiste("cst"));
}

TEST(FormEuro, DefaultNonSalva) {
    Programma p(false, con_cst("\"0,75\",\"Euro\"\r\n"));
    formeuro* f = apri(p);
    Programma::clic(f->Command4);
    EXPECT_EQ(f->Text1->text(), "0,50");
    EXPECT_EQ(p.cartella.leggi("cst"), "\"0,75\",\"Euro\"\r\n");
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(FormEuro, SenzaFileAprendoLoScrive) {
    Programma p;
    std::filesystem::remove(p.cartella.file("cst"));
    EXPECT_EQ(apri(p)->Text1->text(), "0,50");
    EXPECT_EQ(p.cartella.leggi("cst"), "\"0,50\",\"Euro\"\r\n");
}

TEST(FormEuro, EsciChiudeSoloLei) {
    Programma p;
    const QPointer<formeuro> f = apri(p);
    Programma::clic(f->Command1);
    EXPECT_TRUE(f.isNull() || !f->isVisible());
    EXPECT_TRUE(p.form1.isVisible());
}

TEST(Importo, UnPrezzoConSegniEstraneiSiPuoCorreggere) {
    Programma p(false, con_cst("\"0.5x\",\"Euro\"\r\n"));
    formeuro* f = apri(p);
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->Text1->text(), "0.5x");
    QTest::keyClick(f->Text1, Qt::Key_End);
    QTest::keyClicks(f->Text1, "a.7-");
    EXPECT_EQ(f->Text1->text(), "0.5x7");
    for (int i = 0; i < 4; ++i) QTest::keyClick(f->Text1, Qt::Key_Backspace);
    QTest::keyClicks(f->Text1, ",75");
    EXPECT_EQ(f->Text1->text(), "0,75");
    f->Text1->selectAll();
    QApplication::clipboard()->setText("abc");
    f->Text1->paste();
    EXPECT_EQ(f->Text1->text(), "0,75");
    f->close();
}
