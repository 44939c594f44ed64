// The manager's list: its three modes, its columns, its order, its tabs, its exits.
#include <QHeaderView>

#include "platform/disk.h"
#include "support/programma.h"

using support::Programma;
using systems::Form2;

namespace {

void sistema(const Programma& p, const std::string& nome, const std::string& testata) {
    p.cartella.scrivi(nome, testata + "\r\n");
}

Form2* apri_gestore(QAction* voce) {
    Programma::voce(voce);
    return Programma::gestore();
}

QStringList colonna(const Form2& form2, int quale) {
    QStringList testi;
    for (int i = 0; i < form2.ListView1->topLevelItemCount(); ++i) {
        testi << form2.ListView1->topLevelItem(i)->text(quale);
    }
    return testi;
}

void clic_titolo(const Form2& form2, int quale) {
    const QHeaderView* testa = form2.ListView1->header();
    QTest::mouseClick(testa->viewport(), Qt::LeftButton, {},
                      {testa->sectionViewportPosition(quale) + testa->sectionSize(quale) / 2,
                       testa->height() / 2});
}

void clic_scheda(const Form2& form2, int posto) {
    QTest::mouseClick(form2.TabStrip1, Qt::LeftButton, {},
                      form2.TabStrip1->tabRect(posto).center());
}

const QStringList titoli_se{"Nome del sistema", "Dimensione", "Data"};

QStringList titoli(const Form2& form2) {
    return {form2.ListView1->titolo(0), form2.ListView1->titolo(1), form2.ListView1->titolo(2)};
}

}  // namespace

TEST(Modi, Apri) {
    Programma p;
    const Form2* form2 = apri_gestore(p.form1.mnuapri);
    ASSERT_NE(form2, nullptr);
    EXPECT_EQ(form2->windowTitle(), "Tabellino");
    EXPECT_TRUE(form2->Frame2->isVisible());
    for (const platform::Frame* f : {form2->PicUtility, form2->pic_salva, form2->picimporta,
                                     form2->picduplica, form2->frmduplica}) {
        EXPECT_FALSE(f->isVisible()) << f->objectName().toStdString();
    }
    EXPECT_EQ(form2->Command5->text(), "Apri");
    EXPECT_EQ(form2->Command2->text(), "Esci");
    EXPECT_EQ(form2->TabStrip1->count(), 2);
}

TEST(Modi, Utility) {
    Programma p;
    const Form2* form2 = apri_gestore(p.form1.mnugest_sist);
    ASSERT_NE(form2, nullptr);
    EXPECT_EQ(form2->windowTitle(), "Utility");
    EXPECT_TRUE(form2->PicUtility->isVisible());
    for (const platform::Frame* f : {form2->Frame2, form2->pic_salva, form2->picimporta,
                                     form2->picduplica, form2->frmduplica}) {
        EXPECT_FALSE(f->isVisible()) << f->objectName().toStdString();
    }
    EXPECT_EQ(form2->Command1->text(), "Esci");
    EXPECT_EQ(form2->TabStrip1->count(), 2);
    const QPoint atteso = p.form1.pos() + QPoint((p.form1.width() - form2->width()) / 2,
                                                 (p.form1.height() - form2->height()) / 2);
    EXPECT_LE((form2->pos() - atteso).manhattanLength(), 2);
}

TEST(Modi, SalvaTieneSoloLaSchedaDelGioco) {
    for (const bool lotto : {false, true}) {
        Programma p;
        if (lotto) Programma::clic(p.form1.Image10);
        p.riempi();
        p.nel_gestore([lotto](Form2& form2) {
            EXPECT_TRUE(form2.isModal());
            EXPECT_TRUE(form2.pic_salva->isVisible());
            for (const platform::Frame* f :
                 {form2.PicUtility, form2.Frame2, form2.picimporta, form2.picduplica}) {
                EXPECT_FALSE(f->isVisible()) << f->objectName().toStdString();
            }
            ASSERT_EQ(form2.TabStrip1->count(), 1);
            EXPECT_EQ(form2.TabStrip1->selezionata(), lotto ? 2 : 1);
            EXPECT_EQ(form2.TabStrip1->tabText(0), lotto ? "Lotto" : "SuperEnalotto");
            clic_scheda(form2, 0);
            EXPECT_EQ(form2.cmdsalva->text(), "Salva");
            EXPECT_EQ(form2.cmdeffacer1->text(), "Annulla");
            Programma::clic(form2.cmdeffacer1);
        });
        Programma::voce(p.form1.mnusalvanome);
        EXPECT_EQ(p.form1.sessione.gioco().e_lotto(), lotto);
    }
}

TEST(Modi, InSalvataggioLaTastieraCominciaDalNome) {
    Programma p;
    p.riempi();
    p.nel_gestore([](Form2& form2) {
        EXPECT_EQ(form2.focusWidget(), form2.Text1);
        QStringList giro;
        for (const QWidget* w = form2.nextInFocusChain(); w != &form2; w = w->nextInFocusChain()) {
            if (w->isVisible() && (w->focusPolicy() & Qt::TabFocus) != 0) giro << w->objectName();
        }
        EXPECT_EQ(giro.join(' ').toStdString(), "Text1 cmdsalva cmdeffacer1 TabStrip1 ListView1");
        Programma::clic(form2.cmdeffacer1);
    });
    Programma::voce(p.form1.mnusalvanome);
}

TEST(Testi, EtichettePulsantiEMenuALettera) {
    Programma p;
    const Form2* form2 = apri_gestore(p.form1.mnugest_sist);
    ASSERT_NE(form2, nullptr);
    QStringList etichette;
    for (const QLabel* e : form2->findChildren<QLabel*>()) etichette << e->text();
    for (const char* testo :
         {"Selezionare un sistema dalla lista e cliccare su Apri",
          "Per accedere alle utility relative ai sistemi, cliccare con il tasto destro sulla "
          "lista dei sistemi",
          "Inserire il nome del sistema", "Nome del sistema",
          "Selezionare il sistema che si vuole importare e cliccare su Importa",
          "Insérer le nom du système", "Copia dei file in corso. Attendere Prego"}) {
        EXPECT_TRUE(etichette.contains(QString(testo))) << testo;
    }
    EXPECT_EQ(form2->cmdimporta->text(), "Importa");
    EXPECT_EQ(form2->cmdannul->text(), "annulla");
    EXPECT_EQ(form2->cmddup_conferma->text(), "Conferma");
    EXPECT_EQ(form2->cmddup_annulla->text(), "Annulla");
    EXPECT_EQ(form2->TabStrip1->tabText(0), "SuperEnalotto");
    EXPECT_EQ(form2->TabStrip1->tabText(1), "Lotto");
    QStringList voci;
    for (const QAction* a : form2->mnuutlituy->actions()) {
        voci << (a->isSeparator() ? QString("-") : a->text());
    }
    EXPECT_EQ(voci,
              QStringList({"Duplica", "Rinomina", "Invia a . . . ", "Importa", "-",
                           "Elimina Sistema Selezionato", "Elimna Tutti i Sistemi della Lista"}));
}

TEST(Testi, OgniControlloHaIlSuoNome) {
    Programma p;
    const Form2* form2 = apri_gestore(p.form1.mnugest_sist);
    ASSERT_NE(form2, nullptr);
    EXPECT_EQ(form2->objectName(), "Form2");
    for (const char* nome :
         {"ListView1",      "TabStrip1",       "Frame2",         "Command5",   "Command2",
          "PicUtility",     "Command1",        "pic_salva",      "Text1",      "cmdsalva",
          "cmdeffacer1",    "picimporta",      "cmdimporta",     "cmdannul",   "picduplica",
          "txtduplica",     "cmddup_conferma", "cmddup_annulla", "frmduplica", "mnuutlituy",
          "mnuduplica",     "mnurinomina",     "mnuinvia",       "mnuimporta", "mnuelimina",
          "mnueliminatutti"}) {
        EXPECT_NE(form2->findChild<QObject*>(nome), nullptr) << nome;
    }
}

TEST(Elenco, CartellaVuota) {
    Programma p;
    const Form2* form2 = apri_gestore(p.form1.mnuapri);
    ASSERT_NE(form2, nullptr);
    EXPECT_EQ(form2->ListView1->topLevelItemCount(), 0);
    EXPECT_EQ(form2->numero_sistemi(), 0);
    EXPECT_EQ(platform::Tag(form2->ListView1), "0");
    EXPECT_EQ(form2->ListView1->larghezza(2), 1500);
    Programma::clic(form2->Command5);
    EXPECT_TRUE(form2->isVisible());
    EXPECT_EQ(titoli(*form2), titoli_se);
    EXPECT_EQ(platform::Tag(form2), QString::fromStdString(p.cartella.programma()) + "/");
}

TEST(Elenco, ConOttoLaDataELarga1500ConNove1250) {
    Programma p;
    for (int i = 1; i <= 8; ++i) sistema(p, "s" + std::to_string(i) + ".sen", "0,5,5");
    Form2* form2 = apri_gestore(p.form1.mnuapri);
    ASSERT_NE(form2, nullptr);
    EXPECT_EQ(form2->numero_sistemi(), 8);
    EXPECT_EQ(form2->ListView1->larghezza(0), 1600);
    EXPECT_EQ(form2->ListView1->larghezza(1), 1500);
    EXPECT_EQ(form2->ListView1->larghezza(2), 1500);
    EXPECT_EQ(form2->ListView1->columnWidth(2), 100);
    sistema(p, "s9.sen", "0,5,5");
    form2 = apri_gestore(p.form1.mnuapri);
    ASSERT_NE(form2, nullptr);
    EXPECT_EQ(form2->numero_sistemi(), 9);
    EXPECT_EQ(platform::Tag(form2->ListView1), "9");
    EXPECT_EQ(form2->ListView1->larghezza(2), 1250);
}

TEST(Elenco, NomeDimensioneEDataDiOgniSistema) {
    Programma p;
    sistema(p, "Alto.sen", "0,7,5,\"\",0,0,-1,0");
    sistema(p, "altro.sel", "0,7,5,\"\",0,0,-1,3,0");
    p.cartella.scrivi("solo.col", "1,2,3,4,5,6\r\n");
    const Form2* form2 = apri_gestore(p.form1.mnuapri);
    ASSERT_NE(form2, nullptr);
    ASSERT_EQ(form2->ListView1->topLevelItemCount(), 1);
    const QTreeWidgetItem* voce = form2->ListView1->topLevelItem(0);
    EXPECT_EQ(voce->text(0), "Alto");
    EXPECT_EQ(platform::ListView::tag_voce(voce), "Alto");
    EXPECT_EQ(voce->text(1), "8 x 6");
    EXPECT_TRUE(QRegularExpression("^\\d\\d/\\d\\d/\\d\\d$").match(voce->text(2)).hasMatch())
        << voce->text(2).toStdString();
    EXPECT_TRUE(voce->textAlignment(0) & Qt::AlignLeft);
    EXPECT_TRUE(voce->textAlignment(1) & Qt::AlignHCenter);
    EXPECT_TRUE(voce->textAlignment(2) & Qt::AlignHCenter);
}

TEST(Elenco, LottoDiceLaForma) {
    Programma p;
    Programma::clic(p.form1.Image10);
    for (int forma = 3; forma <= 6; ++forma) {
        sistema(p, "f" + std::to_string(forma) + ".sel",
                "0,4,4,\"2\",0,0,0," + std::to_string(forma) + ",0");
    }
    const Form2* form2 = apri_gestore(p.form1.mnuapri);
    ASSERT_NE(form2, nullptr);
    EXPECT_EQ(titoli(*form2), QStringList({"Nome del sistema", "Sviluppo in", "Data"}));
    EXPECT_EQ(form2->TabStrip1->selezionata(), 2);
    EXPECT_EQ(colonna(*form2, 1), QStringList({"Terzine", "Quartine", "Cinquine", ""}));
}

TEST(Ordine, DueClicRovescianoUnAltroTitoloRicomincia) {
    Programma p;
    sistema(p, "b.sen", "0,9,5");
    sistema(p, "C.sen", "0,7,5");
    sistema(p, "a.sen", "0,8,5");
    const Form2* form2 = apri_gestore(p.form1.mnuapri);
    ASSERT_NE(form2, nullptr);
    clic_titolo(*form2, 0);
    EXPECT_EQ(colonna(*form2, 0), QStringList({"a", "b", "C"}));
    clic_titolo(*form2, 0);
    EXPECT_EQ(colonna(*form2, 0), QStringList({"C", "b", "a"}));
    clic_titolo(*form2, 1);
    EXPECT_EQ(colonna(*form2, 1), QStringList({"10 x 6", "8 x 6", "9 x 6"}));
    clic_titolo(*form2, 0);
    EXPECT_EQ(colonna(*form2, 0), QStringList({"a", "b", "C"}));
    clic_titolo(*form2, 1);
    EXPECT_EQ(colonna(*form2, 1), QStringList({"9 x 6", "8 x 6", "10 x 6"}));
}

TEST(Ordine, RestaQuandoLElencoSiRiempieDiNuovo) {
    Programma p;
    sistema(p, "a.sen", "0,9,5");
    sistema(p, "c.sen", "0,7,5");
    Form2* form2 = apri_gestore(p.form1.mnuapri);
    ASSERT_NE(form2, nullptr);
    clic_titolo(*form2, 0);
    clic_titolo(*form2, 0);
    sistema(p, "b.sen", "0,8,5");
    form2->trova_sistemi(QString::fromStdString(p.cartella.programma()));
    EXPECT_EQ(colonna(*form2, 0), QStringList({"c", "b", "a"}));
    EXPECT_EQ(form2->numero_sistemi(), 3);
    EXPECT_EQ(platform::Tag(form2->ListView1), "3");
    clic_titolo(*form2, 0);
    EXPECT_EQ(colonna(*form2, 0), QStringList({"a", "b", "c"}));
}

TEST(Schede, CambianoGiocoTitoloEdElenco) {
    Programma p;
    sistema(p, "uno.sen", "0,5,5");
    sistema(p, "due.sel", "0,4,4,\"2\",0,0,0,4,0");
    p.riempi(3);
    p.risposte = {support::vbNo};
    Form2* form2 = apri_gestore(p.form1.mnuapri);
    ASSERT_NE(form2, nullptr);
    p.mostrati();
    clic_scheda(*form2, 1);
    EXPECT_TRUE(p.form1.sessione.gioco().e_lotto());
    EXPECT_EQ(titoli(*form2), QStringList({"Nome del sistema", "Sistemi in", "Data"}));
    EXPECT_EQ(colonna(*form2, 0), QStringList({"due"}));
    EXPECT_EQ(p.form1.windowTitle(), "Tabellino - Lotto (Sistemi in Cinquine)");
    EXPECT_EQ(p.form1.List1->count(), 0);
    EXPECT_TRUE(p.form1.sessione.salvato());
    clic_scheda(*form2, 0);
    EXPECT_FALSE(p.form1.sessione.gioco().e_lotto());
    EXPECT_EQ(titoli(*form2), titoli_se);
    EXPECT_EQ(colonna(*form2, 0), QStringList({"uno"}));
    EXPECT_EQ(p.form1.windowTitle(), "Tabellino - SuperEnalotto");
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(Schede, ConIlPulsanteSpentoNonSuccedeNulla) {
    Programma p;
    sistema(p, "uno.sen", "0,5,5");
    p.form1.Image10->setEnabled(false);
    const Form2* form2 = apri_gestore(p.form1.mnuapri);
    ASSERT_NE(form2, nullptr);
    clic_scheda(*form2, 1);
    EXPECT_FALSE(p.form1.sessione.gioco().e_lotto());
    EXPECT_EQ(titoli(*form2), titoli_se);
    EXPECT_EQ(colonna(*form2, 0), QStringList({"uno"}));
}

TEST(Clic, InAperturaIlTagPrendeIlTesto) {
    Programma p;
    sistema(p, "uno.sen", "0,5,5");
    for (QAction* voce : {p.form1.mnuapri, p.form1.mnugest_sist}) {
        const Form2* form2 = apri_gestore(voce);
        ASSERT_NE(form2, nullptr);
        QTreeWidgetItem* riga = form2->ListView1->topLevelItem(0);
        platform::ListView::set_tag_voce(riga, "altro");
        QTest::mouseClick(form2->ListView1->viewport(), Qt::LeftButton, {},
                          form2->ListView1->visualItemRect(riga).center());
        EXPECT_EQ(platform::ListView::tag_voce(riga), voce == p.form1.mnuapri ? "uno" : "altro");
    }
}

TEST(TastoDestro, ApreIlMenuInTuttiIModi) {
    Programma p;
    const auto destro = [](const Form2& form2) {
        QContextMenuEvent evento(QContextMenuEvent::Mouse, {5, 5},
                                 form2.ListView1->viewport()->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(form2.ListView1->viewport(), &evento);
        EXPECT_TRUE(form2.mnuutlituy->isVisible());
        form2.mnuutlituy->close();
    };
    destro(*apri_gestore(p.form1.mnuapri));
    destro(*apri_gestore(p.form1.mnugest_sist));
    p.riempi();
    p.nel_gestore([&destro](Form2& form2) {
        destro(form2);
        Programma::clic(form2.cmdeffacer1);
    });
    Programma::voce(p.form1.mnusalvanome);
}

TEST(Uscite, OgniPulsanteChiudeELasciaLaFinestraViva) {
    Programma p;
    Programma::clic(apri_gestore(p.form1.mnuapri)->Command2);
    EXPECT_EQ(Programma::gestore(), nullptr);
    Programma::clic(apri_gestore(p.form1.mnugest_sist)->Command1);
    EXPECT_EQ(Programma::gestore(), nullptr);
    p.riempi();
    p.annulla_nel_gestore();
    Programma::voce(p.form1.mnusalvanome);
    EXPECT_EQ(Programma::gestore(), nullptr);
    EXPECT_TRUE(p.form1.updatesEnabled());
    EXPECT_TRUE(p.mostrati().empty());
}
