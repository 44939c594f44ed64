// The prompts around the system in line: what each road asks, and what every answer does.
#include "support/programma.h"
#include "support/riferimento.h"

using support::Icona;
using support::Mostrato;
using support::Programma;
using support::Pulsanti;
using support::vbCancel;
using support::vbNo;
using support::vbYes;

namespace {

const Mostrato incompleto{
    "Per procedere al salvataggio del sistema occorre completare lo schema del Cruciverba",
    "Tabellino", Pulsanti::ok, Icona::informazione};
const Mostrato incompleto_nuovo{
    "Per procedere al salvataggio del sistema occorre completare lo schema del Cruciverba",
    "Cruciverba", Pulsanti::ok, Icona::nessuna};
const Mostrato incompleto_nome{
    "Per procedere al salvataggio del sistema si deve completare il Cruciverba", "Tabellino",
    Pulsanti::ok, Icona::nessuna};
const Mostrato domanda_nuovo{
    "Sono state apportate delle modifiche al sistema attualmente in linea.\n"
    "Si desidera salvare ora il sistema?",
    "Tabellino", Pulsanti::si_no_annulla, Icona::nessuna};
const Mostrato domanda_apri{
    "Sono state apportate delle modifiche al sistema in linea.\nSalvare il Sistema?", "Tabellino",
    Pulsanti::si_no_annulla, Icona::nessuna};
const Mostrato domanda_esci{"Il sistema in linea è stato modificato.\nSi desidera salvarlo?",
                            "Tabellino", Pulsanti::si_no_annulla, Icona::nessuna};

using Mostrati = std::vector<Mostrato>;

/// An empty crossword of the smallest size with nothing in line.
void aspetta_vuoto(const Programma& p) {
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_EQ(p.form1.lblsistema->text(), "");
    EXPECT_EQ(p.form1.List1->count(), 0);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(0, 0), "");
    EXPECT_EQ(p.form1.Combo1->ListIndex(), 0);
    EXPECT_EQ(p.form1.Combo2->ListIndex(), 0);
    EXPECT_TRUE(p.form1.sessione.salvato());
}

}  // namespace

TEST(Salva, NuovoCompletoChiedeIlNomeAlGestore) {
    Programma p;
    p.riempi();
    p.nel_gestore([](systems::Form2& form2) {
        EXPECT_TRUE(form2.isModal());
        EXPECT_TRUE(form2.pic_salva->isVisible());
        QTest::keyClicks(form2.Text1, "primo");
        Programma::clic(form2.cmdsalva);
    });
    Programma::voce(p.form1.mnusalva);
    EXPECT_EQ(p.form1.Tag(), "primo");
    EXPECT_EQ(platform::Tag(&p.form1), "primo");
    EXPECT_EQ(p.form1.lblsistema->text(), "primo");
    EXPECT_TRUE(p.form1.sessione.salvato());
    EXPECT_EQ(p.cartella.leggi("primo.sen"),
              support::come_sistema("14,5,5,\"6\",0,0,0,0", p.griglia()));
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(Salva, IncompletoAvvertaSoltanto) {
    Programma p;
    p.riempi(35);
    Programma::voce(p.form1.mnusalva);
    EXPECT_EQ(p.mostrati(), Mostrati{incompleto});
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_FALSE(p.form1.sessione.salvato());
    EXPECT_TRUE(platform::Dir(p.cartella.programma(), "*.sen").empty());
}

TEST(Salva, ConUnNomeRiscriveSenzaGestore) {
    Programma p;
    p.riempi_e_salva("uno");
    p.cella(0, 0);
    p.numero(p.form1.MSFlexGrid1->testo(0, 0).toInt() == 90 ? 89 : 90);
    ASSERT_FALSE(p.form1.sessione.salvato());
    Programma::voce(p.form1.mnusalva);
    EXPECT_TRUE(p.form1.sessione.salvato());
    EXPECT_EQ(p.cartella.leggi("uno.sen"),
              support::come_sistema("14,5,5,\"6\",0,0,0,0", p.griglia()));
}

TEST(Salva, GestoreCongedatoNonSalvaMaRisultaRiuscito) {
    Programma p;
    p.riempi();
    p.annulla_nel_gestore();
    bool esito = false;
    p.form1.salva_sistema(esito);
    EXPECT_TRUE(esito);
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_FALSE(p.form1.sessione.salvato());
    EXPECT_TRUE(platform::Dir(p.cartella.programma(), "*.sen").empty());
}

TEST(Salva, LaMatriceRettangolareVaRigaPerRiga) {
    Programma p;
    p.dimensioni(6, 8);
    p.riempi_e_salva("largo");
    EXPECT_EQ(p.cartella.leggi("largo.sen"),
              support::come_sistema("176,7,5,\"\",0,0,-1,0", p.griglia()));
}

TEST(Salva, LaLetturaDelRiepilogoFinisceSulleDiagonali) {
    Programma p;
    p.riempi();
    for (const char* nome : {"uno", "due"}) {
        p.form1.MSFlexGrid2->cella(0, 0);
        p.scrivi_nel_gestore(nome);
        Programma::voce(p.form1.mnusalvanome);
        EXPECT_EQ(p.form1.MSFlexGrid2->Row(), 3);
        EXPECT_EQ(p.form1.MSFlexGrid2->Col(), 1);
    }
    p.form1.MSFlexGrid2->cella(0, 0);
    Programma::voce(p.form1.mnusalva);
    EXPECT_EQ(p.form1.MSFlexGrid2->Row(), 3);
    EXPECT_EQ(p.form1.MSFlexGrid2->Col(), 1);
}

TEST(Salva, NelLottoScriveSelConLaForma) {
    Programma p;
    Programma::clic(p.form1.Image10);
    Programma::clic(p.form1.Imageb[1]);
    p.riempi_e_salva("quattro");
    EXPECT_EQ(p.cartella.leggi("quattro.sel"),
              support::come_sistema("60,4,4,\"2\",0,0,0,4,0", p.griglia()));
    EXPECT_FALSE(p.cartella.esiste("quattro.sen"));
}

TEST(Salva, DopoUnCambioLoSviluppoVecchioSiVedeAncora) {
    Programma p(true);
    p.riempi_e_salva("vecchio");
    p.comando(1);
    const std::string prima = p.cartella.leggi("vecchio.col");
    ASSERT_FALSE(prima.empty());
    p.cella(0, 0);
    std::size_t n = 1;
    while (!p.form1.CMDnum[n]->isEnabled() ||
           p.form1.MSFlexGrid1->testo(0, 0) == QString::number(n)) {
        ++n;
    }
    p.numero(static_cast<int>(n));
    Programma::voce(p.form1.mnusalva);
    EXPECT_TRUE(p.form1.sessione.salvato());
    p.mostrati();
    p.dialoghi.finti = true;
    p.comando(2);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(p.dialoghi.sviluppi, 1);
    EXPECT_EQ(p.cartella.leggi("vecchio.col"), prima);
}

TEST(SalvaConNome, IncompletoAvverte) {
    Programma p;
    Programma::voce(p.form1.mnusalvanome);
    EXPECT_EQ(p.mostrati(), Mostrati{incompleto_nome});
}

TEST(SalvaConNome, CambiaIlNomeInLineaELasciaIlVecchio) {
    Programma p;
    p.riempi_e_salva("uno");
    p.scrivi_nel_gestore("due");
    Programma::voce(p.form1.mnusalvanome);
    EXPECT_EQ(p.form1.Tag(), "due");
    EXPECT_EQ(p.cartella.leggi("uno.sen"), p.cartella.leggi("due.sen"));
}

TEST(NuovoDalMenu, SvuotaSubitoSenzaDomande) {
    Programma p;
    p.dimensioni(7, 7);
    p.riempi(3);
    ASSERT_FALSE(p.form1.sessione.salvato());
    Programma::voce(p.form1.mnunuovo);
    EXPECT_TRUE(p.mostrati().empty());
    aspetta_vuoto(p);
}

TEST(NuovoDalMenu, LasciaLeQuoteCheLImmagineRimette) {
    Programma p;
    p.form1.UpDown2->setValue(7);
    Programma::voce(p.form1.mnunuovo);
    EXPECT_EQ(p.form1.UpDown2->value(), 7);
    p.comando(0);
    EXPECT_EQ(p.form1.UpDown2->value(), 1);
}

TEST(NuovoDalMenu, TogliIlNomeInLinea) {
    Programma p;
    p.riempi_e_salva("uno");
    Programma::voce(p.form1.mnunuovo);
    aspetta_vuoto(p);
    EXPECT_EQ(platform::Tag(&p.form1), "");
    EXPECT_TRUE(p.cartella.esiste("uno.sen"));
}

TEST(NuovoDallImmagine, SalvatoNonChiede) {
    Programma p;
    p.riempi_e_salva("uno");
    p.comando(0);
    EXPECT_TRUE(p.mostrati().empty());
    aspetta_vuoto(p);
    EXPECT_EQ(p.form1.UpDown2->value(), 1);
}

TEST(NuovoDallImmagine, NoSvuota) {
    Programma p;
    p.riempi(3);
    p.risposte = {vbNo};
    p.comando(0);
    EXPECT_EQ(p.mostrati(), Mostrati{domanda_nuovo});
    aspetta_vuoto(p);
}

TEST(NuovoDallImmagine, AnnullaLasciaTutto) {
    Programma p;
    p.riempi(3);
    const auto prima = p.griglia();
    p.risposte = {vbCancel};
    p.comando(0);
    EXPECT_EQ(p.mostrati(), Mostrati{domanda_nuovo});
    EXPECT_EQ(p.griglia(), prima);
    EXPECT_EQ(p.form1.List1->count(), 3);
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST(NuovoDallImmagine, SiConSchemaIncompletoLasciaTutto) {
    Programma p;
    p.riempi(3);
    const auto prima = p.griglia();
    p.risposte = {vbYes};
    p.comando(0);
    EXPECT_EQ(p.mostrati(), (Mostrati{domanda_nuovo, incompleto_nuovo}));
    EXPECT_EQ(p.griglia(), prima);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), prima[0][0]);
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST(NuovoDallImmagine, SiConSchemaCompletoMostraIlGestoreInSalvataggioESvuota) {
    Programma p;
    p.riempi();
    p.nel_gestore([](systems::Form2& form2) {
        EXPECT_TRUE(form2.isModal());
        EXPECT_TRUE(form2.pic_salva->isVisible());
        QTest::keyClicks(form2.Text1, "tenuto");
        Programma::clic(form2.cmdsalva);
    });
    p.risposte = {vbYes};
    p.comando(0);
    EXPECT_EQ(p.mostrati(), Mostrati{domanda_nuovo});
    EXPECT_TRUE(p.cartella.esiste("tenuto.sen"));
    aspetta_vuoto(p);
}

TEST(NuovoDallImmagine, SiEGestoreCongedatoSvuotaUgualmente) {
    Programma p;
    p.riempi();
    p.annulla_nel_gestore();
    p.risposte = {vbYes};
    p.comando(0);
    EXPECT_TRUE(platform::Dir(p.cartella.programma(), "*.sen").empty());
    aspetta_vuoto(p);
}

TEST(Apri, SalvatoNonChiede) {
    Programma p;
    Programma::voce(p.form1.mnuapri);
    EXPECT_TRUE(p.mostrati().empty());
    ASSERT_NE(Programma::gestore(), nullptr);
    EXPECT_FALSE(Programma::gestore()->isModal());
    EXPECT_EQ(Programma::gestore()->windowTitle(), "Tabellino");
    EXPECT_TRUE(Programma::gestore()->Frame2->isVisible());
}

TEST(Apri, AnnullaNonApreNulla) {
    Programma p;
    p.riempi(2);
    p.risposte = {vbCancel};
    Programma::voce(p.form1.mnuapri);
    EXPECT_EQ(p.mostrati(), Mostrati{domanda_apri});
    EXPECT_EQ(Programma::gestore(), nullptr);
}

TEST(Apri, NoApreSenzaSalvare) {
    Programma p;
    p.riempi(2);
    p.risposte = {vbNo};
    Programma::voce(p.form1.mnuapri);
    EXPECT_EQ(p.mostrati(), Mostrati{domanda_apri});
    EXPECT_NE(Programma::gestore(), nullptr);
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST(Apri, SiConSchemaIncompletoAvverteENonApre) {
    Programma p;
    p.riempi(2);
    p.risposte = {vbYes};
    Programma::voce(p.form1.mnuapri);
    EXPECT_EQ(p.mostrati(), (Mostrati{domanda_apri, incompleto}));
    EXPECT_EQ(Programma::gestore(), nullptr);
}

TEST(Apri, SiConSchemaCompletoSalvaEApre) {
    Programma p;
    p.riempi();
    p.scrivi_nel_gestore("salvo");
    p.risposte = {vbYes};
    Programma::voce(p.form1.mnuapri);
    EXPECT_EQ(p.mostrati(), Mostrati{domanda_apri});
    EXPECT_TRUE(p.cartella.esiste("salvo.sen"));
    ASSERT_NE(Programma::gestore(), nullptr);
    EXPECT_TRUE(Programma::gestore()->Frame2->isVisible());
    EXPECT_EQ(Programma::gestore()->ListView1->topLevelItemCount(), 1);
}

TEST(Apri, SiEGestoreCongedatoApreUgualmente) {
    Programma p;
    p.riempi();
    p.annulla_nel_gestore();
    p.risposte = {vbYes};
    Programma::voce(p.form1.mnuapri);
    EXPECT_NE(Programma::gestore(), nullptr);
}

/// "Esci" of the menu and the exit image ask alike.
class Uscita : public ::testing::TestWithParam<bool> {
protected:
    static void esci(Programma& p) {
        if (GetParam()) {
            Programma::voce(p.form1.mnuEsci);
        } else {
            p.comando(8);
        }
    }
};

INSTANTIATE_TEST_SUITE_P(MenuEImmagine, Uscita, ::testing::Bool());

TEST_P(Uscita, SalvatoChiudeSubito) {
    Programma p;
    esci(p);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_FALSE(p.form1.isVisible());
}

TEST_P(Uscita, AnnullaResta) {
    Programma p;
    p.riempi(1);
    p.risposte = {vbCancel};
    esci(p);
    EXPECT_EQ(p.mostrati(), Mostrati{domanda_esci});
    EXPECT_TRUE(p.form1.isVisible());
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST_P(Uscita, NoChiudeSenzaSalvare) {
    Programma p;
    p.riempi();
    p.risposte = {vbNo};
    esci(p);
    EXPECT_EQ(p.mostrati(), Mostrati{domanda_esci});
    EXPECT_FALSE(p.form1.isVisible());
    EXPECT_TRUE(platform::Dir(p.cartella.programma(), "*.sen").empty());
}

TEST_P(Uscita, SiSalvaEChiude) {
    Programma p;
    p.riempi();
    p.scrivi_nel_gestore("fine");
    p.risposte = {vbYes};
    esci(p);
    EXPECT_EQ(p.mostrati(), Mostrati{domanda_esci});
    EXPECT_FALSE(p.form1.isVisible());
    EXPECT_TRUE(p.cartella.esiste("fine.sen"));
}

TEST_P(Uscita, SiConSchemaIncompletoAvverteEChiudeUgualmente) {
    Programma p;
    p.riempi(5);
    p.risposte = {vbYes};
    esci(p);
    EXPECT_EQ(p.mostrati(), (Mostrati{domanda_esci, incompleto}));
    EXPECT_FALSE(p.form1.isVisible());
}

TEST(CasellaDiChiusura, NonChiedeMai) {
    Programma p;
    p.riempi();
    ASSERT_FALSE(p.form1.sessione.salvato());
    p.form1.close();
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_FALSE(p.form1.isVisible());
}

TEST(CasellaDiChiusura, ChiudeAncheIDialoghi) {
    Programma p;
    Programma::voce(p.form1.mnugest_sist);
    Programma::voce(p.form1.mnuImportocolonna);
    ASSERT_NE(Programma::gestore(), nullptr);
    p.form1.close();
    for (const QWidget* w : QApplication::topLevelWidgets()) {
        EXPECT_FALSE(w->isVisible()) << w->objectName().toStdString();
    }
}

TEST(CambioDiMisura, NonChiede) {
    Programma p;
    p.riempi_e_salva("uno");
    p.cella(0, 0);
    p.comando(4);
    ASSERT_FALSE(p.form1.sessione.salvato());
    Programma::scegli(p.form1.Combo1, 3);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(p.form1.List1->count(), 0);
    EXPECT_EQ(p.form1.Tag(), "uno");
}

TEST(GestioneSistemi, ApreIlGestoreInUtilitySenzaChiedere) {
    Programma p;
    p.riempi(1);
    Programma::voce(p.form1.mnugest_sist);
    EXPECT_TRUE(p.mostrati().empty());
    systems::Form2* form2 = Programma::gestore();
    ASSERT_NE(form2, nullptr);
    EXPECT_EQ(form2->windowTitle(), "Utility");
    EXPECT_FALSE(form2->isModal());
    EXPECT_EQ(form2->parentWidget(), &p.form1);
    EXPECT_TRUE(form2->PicUtility->isVisible());
    EXPECT_FALSE(form2->Frame2->isVisible());
    EXPECT_FALSE(form2->pic_salva->isVisible());
}
