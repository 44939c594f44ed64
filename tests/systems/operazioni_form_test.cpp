#include <optional>

#include <QHeaderView>

#include "platform/ambiente.h"
#include "systems/gestore.h"

using namespace gestore;

namespace {

INSTANTIATE_TEST_SUITE_P(Giochi, Gestore, ::testing::Bool(), [](const auto& parametro) {
    return parametro.param ? "Lotto" : "SuperEnalotto";
});

// Rename.

TEST_P(Gestore, RenameStartsAnEditOfTheLabelWithTheNameOnTheDisk) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    f.ListView1->selezionata()->setText(0, "altro");
    inizia_rinomina(f);
    ASSERT_NE(editore(f), nullptr);
    EXPECT_EQ(editore(f)->text(), "uno");
    EXPECT_TRUE(editore(f)->hasFocus());
}

TEST_P(Gestore, RenameMovesBothFilesAndTheTag) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "V");
    p.cartella.scrivi(altrui("uno"), "altro gioco");
    Form2& f = apri();
    seleziona(f, "uno");
    rinomina(f, "Posta@2");
    EXPECT_EQ(
        programma(),
        (Stato{{sis("Posta@2"), testo(1)}, {svi("Posta@2"), "V"}, {altrui("uno"), "altro gioco"}}));
    EXPECT_EQ(nomi(f), QStringList{"Posta@2"});
    EXPECT_EQ(platform::ListView::tag_voce(f.ListView1->topLevelItem(0)), "Posta@2");
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_P(Gestore, InvalidCharacterRestoresTheOldText) {
    sistema("uno", 1);
    Form2& f = apri();
    const Stato prima = programma();
    for (const QString& nome : {QStringLiteral("un nome"), QStringLiteral("perché"),
                                QStringLiteral("../due"), QStringLiteral("a_b")}) {
        seleziona(f, "uno");
        rinomina(f, nome);
        EXPECT_EQ(p.mostrati(),
                  std::vector<Mostrato>{avviso(
                      "Impossibile rinominare. Sono stati utilizzati dei caratteri non validi.\n"
                      "Utilizzare solo lettere e cifre. Gli spazi non sono ammessi.")});
        EXPECT_EQ(nomi(f), QStringList{"uno"});
    }
    EXPECT_EQ(programma(), prima);
}

TEST_P(Gestore, RenameToANameWithADevelopmentIsRefused) {
    sistema("uno", 1);
    sistema("due", 2);
    p.cartella.scrivi(svi("due"), "V");
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    rinomina(f, "DUE");
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{avviso(
                                "Impossibile rinominare. Esiste già un sistema con questo nome.")});
    EXPECT_EQ(nomi(f), QStringList({"due", "uno"}));
    EXPECT_EQ(programma(), prima);
}

TEST_P(Gestore, RenameToALoneSystemIsNotRefusedAndTheFileKeepsItsName) {
    sistema("uno", 1);
    sistema("due", 2);
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    rinomina(f, "due");
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(nomi(f), QStringList({"due", "due"}));
    EXPECT_EQ(programma(), prima);
    f.trova_sistemi(dove());
    EXPECT_EQ(nomi(f), QStringList({"due", "uno"}));
}

TEST_P(Gestore, EmptyRenameIsHandedBackWithoutAMessage) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    rinomina(f, "");
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(nomi(f), QStringList{"uno"});
    EXPECT_EQ(programma(), prima);
}

TEST_P(Gestore, RenameGivenUpChangesNothing) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    inizia_rinomina(f);
    QTest::keyClicks(editore(f), "due");
    QTest::keyClick(editore(f), Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_EQ(nomi(f), QStringList{"uno"});
    EXPECT_TRUE(p.cartella.esiste(sis("uno")));
    EXPECT_TRUE(f.isVisible());
}

TEST_P(Gestore, RenameThatOnlyChangesTheCaseWaitsOnTheDevelopment) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    rinomina(f, "UNO");
    EXPECT_EQ(programma(), (Stato{{sis("UNO"), testo(1)}}));
    p.cartella.scrivi(svi("UNO"), "V");
    rinomina(f, "Uno");
    EXPECT_EQ(p.mostrati().size(), 1U);
    EXPECT_EQ(nomi(f), QStringList{"UNO"});
    EXPECT_EQ(programma(), (Stato{{sis("UNO"), testo(1)}, {svi("UNO"), "V"}}));
}

TEST_P(Gestore, RenameWithNothingSelectedDoesNothing) {
    sistema("uno", 1);
    Form2& f = apri();
    f.ListView1->clearSelection();
    inizia_rinomina(f);
    EXPECT_EQ(editore(f), nullptr);
}

TEST_P(Gestore, EnterInTheLabelDoesNotOpenTheSystem) {
    sistema("uno", 1);
    p.form1.mnuapri_Click();
    QApplication::processEvents();
    Form2& f = *Programma::gestore();
    seleziona(f, "uno");
    rinomina(f, "due");
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_EQ(nomi(f), QStringList{"due"});
}

TEST_P(Gestore, TabClickedDuringARenameCommitsItLikeAnyOtherClick) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    inizia_rinomina(f);
    ASSERT_NE(editore(f), nullptr);
    editore(f)->setText("due");
    platform::TabStrip* schede = f.TabStrip1;
    const int altra_scheda = GetParam() ? 0 : 1;
    QTest::mouseClick(schede, Qt::LeftButton, {}, schede->tabRect(altra_scheda).center());
    EXPECT_TRUE(p.cartella.esiste(sis("due")));
    EXPECT_FALSE(p.cartella.esiste(sis("uno")));
    EXPECT_NE(p.form1.sessione.gioco().e_lotto(), GetParam());
    QTest::mouseClick(schede, Qt::LeftButton, {}, schede->tabRect(1 - altra_scheda).center());
    EXPECT_EQ(nomi(f), QStringList{"due"});
}

TEST_P(Gestore, HeadingClickedDuringARenameCommitsItToo) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    inizia_rinomina(f);
    ASSERT_NE(editore(f), nullptr);
    editore(f)->setText("due");
    QTest::mouseClick(f.ListView1->header()->viewport(), Qt::LeftButton, {}, QPoint(20, 8));
    QApplication::processEvents();
    EXPECT_EQ(nomi(f), QStringList{"due"});
    EXPECT_TRUE(p.cartella.esiste(sis("due")));
}

TEST_P(Gestore, KeysRenameAndDeleteTheSelectedSystem) {
    sistema("uno", 1);
    sistema("due", 2);
    Form2& f = apri();
    f.activateWindow();
    QApplication::processEvents();
    f.ListView1->setFocus();
    f.ListView1->clearSelection();
    f.ListView1->setCurrentItem(nullptr);
    QTest::keyClick(f.ListView1, Qt::Key_Delete);
    QTest::keyClick(f.ListView1, Qt::Key_F2);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(editore(f), nullptr);
    seleziona(f, "uno");
    QTest::keyClick(f.ListView1, Qt::Key_F2);
    QApplication::processEvents();
    ASSERT_NE(editore(f), nullptr);
    // In the label the key deletes letters.
    QTest::keyClick(editore(f), Qt::Key_Delete);
    EXPECT_EQ(editore(f)->text(), "");
    QTest::keyClick(editore(f), Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_TRUE(p.mostrati().empty());
    p.risposte = {vbYes};
    QTest::keyClick(f.ListView1, Qt::Key_Delete);
    EXPECT_EQ(p.mostrati(),
              std::vector<Mostrato>{domanda("Il sistema scelto sarà eliminato. Confermi?")});
    EXPECT_EQ(programma(), (Stato{{sis("due"), testo(2)}}));
}

TEST_P(Gestore, AKeyChoosesTheSystemThatIsFramed) {
    sistema("uno", 1);
    Form2& f = apri();
    f.activateWindow();
    QApplication::processEvents();
    f.ListView1->setFocus();
    f.ListView1->clearSelection();
    f.ListView1->setCurrentItem(f.ListView1->topLevelItem(0), 0, QItemSelectionModel::NoUpdate);
    QTest::keyClick(f.ListView1, Qt::Key_F2);
    QApplication::processEvents();
    ASSERT_NE(editore(f), nullptr);
    EXPECT_EQ(editore(f)->text(), "uno");
}

TEST_P(Gestore, KeysChangeNothingWhereASystemIsChosen) {
    sistema("uno", 1);
    p.form1.mnuapri_Click();
    QApplication::processEvents();
    Form2& f = *Programma::gestore();
    f.activateWindow();
    QApplication::processEvents();
    f.ListView1->setFocus();
    seleziona(f, "uno");
    QTest::keyClick(f.ListView1, Qt::Key_Delete);
    QTest::keyClick(f.ListView1, Qt::Key_F2);
    QApplication::processEvents();
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(editore(f), nullptr);
    EXPECT_EQ(programma(), (Stato{{sis("uno"), testo(1)}}));
}

// Duplicate.

TEST_P(Gestore, DuplicateOpensItsPanelOverADisabledList) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    menu(f.mnuduplica);
    EXPECT_TRUE(f.picduplica->isVisible());
    EXPECT_FALSE(f.frmduplica->isVisible());
    EXPECT_FALSE(f.ListView1->isEnabled());
    EXPECT_EQ(f.focusWidget(), f.txtduplica);
    QTest::keyClicks(f.txtduplica, "Due@ 3");
    EXPECT_EQ(f.txtduplica->text(), "due3");
    Programma::clic(f.cmddup_annulla);
    EXPECT_FALSE(f.picduplica->isVisible());
    EXPECT_TRUE(f.ListView1->isEnabled());
    EXPECT_EQ(f.txtduplica->text(), "");
}

TEST_P(Gestore, DuplicateNeedsANameAndNotItsOwn) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    duplica(f, "");
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{avviso("Inserire il nome da dare al sistema!")});
    EXPECT_EQ(f.focusWidget(), f.txtduplica);
    duplica(f, "uno");
    EXPECT_EQ(p.mostrati(),
              std::vector<Mostrato>{avviso("Impossibile copiare un sistema con il proprio nome!")});
    EXPECT_EQ(f.focusWidget(), f.txtduplica);
    EXPECT_TRUE(f.picduplica->isVisible());
    EXPECT_FALSE(f.ListView1->isEnabled());
    EXPECT_EQ(programma(), prima);
}

TEST_P(Gestore, DuplicateCopiesBothFilesAndKeepsTheTypedName) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "V");
    Form2& f = apri();
    seleziona(f, "uno");
    duplica(f, "due");
    EXPECT_EQ(
        programma(),
        (Stato{
            {sis("uno"), testo(1)}, {svi("uno"), "V"}, {sis("due"), testo(1)}, {svi("due"), "V"}}));
    EXPECT_EQ(nomi(f), QStringList({"due", "uno"}));
    EXPECT_FALSE(f.picduplica->isVisible());
    EXPECT_FALSE(f.frmduplica->isVisible());
    EXPECT_TRUE(f.ListView1->isEnabled());
    EXPECT_TRUE(f.updatesEnabled());
    menu(f.mnuduplica);
    EXPECT_EQ(f.txtduplica->text(), "due");
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_P(Gestore, DuplicateToAnotherSystemOverwritesItUnasked) {
    sistema("uno", 1);
    sistema("due", 2);
    p.cartella.scrivi(svi("due"), "vecchio");
    Form2& f = apri();
    seleziona(f, "uno");
    duplica(f, "due");
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(programma(),
              (Stato{{sis("uno"), testo(1)}, {sis("due"), testo(1)}, {svi("due"), "vecchio"}}));
}

TEST_P(Gestore, DuplicateToItsOwnNameInAnotherCaseLeavesTheSystem) {
    sistema("Uno", 1);
    p.cartella.scrivi(svi("Uno"), "V");
    p.cartella.scrivi("uno", "senza estensione");
    Form2& f = apri();
    seleziona(f, "Uno");
    const Stato prima = programma();
    p.risposte = {vbYes};
    duplica(f, "uno");
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{domanda(gia_esiste)});
    EXPECT_EQ(programma(), prima);
    EXPECT_EQ(nomi(f), QStringList{"Uno"});
}

TEST_P(Gestore, FileWithoutExtensionAsksBeforeTheDuplicate) {
    sistema("uno", 1);
    sistema("due", 2);
    p.cartella.scrivi(svi("due"), "vecchio");
    p.cartella.scrivi("due", "senza estensione");
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    p.risposte = {vbNo};
    duplica(f, "due");
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{domanda(gia_esiste)});
    EXPECT_EQ(programma(), prima);
    EXPECT_EQ(f.txtduplica->text(), "");
    EXPECT_TRUE(f.picduplica->isVisible());
    EXPECT_FALSE(f.ListView1->isEnabled());
    p.risposte = {vbYes};
    QTest::keyClicks(f.txtduplica, "due");
    Programma::clic(f.cmddup_conferma);
    EXPECT_EQ(programma(),
              (Stato{{"due", "senza estensione"}, {sis("uno"), testo(1)}, {sis("due"), testo(1)}}));
}

// Delete.

TEST_P(Gestore, DeleteAsksAndTakesThePair) {
    sistema("uno", 1);
    sistema("due", 2);
    p.cartella.scrivi(svi("uno"), "V");
    p.cartella.scrivi(altrui("uno"), "altro gioco");
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    p.risposte = {vbNo, vbYes};
    menu(f.mnuelimina);
    EXPECT_EQ(programma(), prima);
    menu(f.mnuelimina);
    const Mostrato chiesto = domanda("Il sistema scelto sarà eliminato. Confermi?");
    EXPECT_EQ(p.mostrati(), (std::vector<Mostrato>{chiesto, chiesto}));
    EXPECT_EQ(programma(), (Stato{{sis("due"), testo(2)}, {altrui("uno"), "altro gioco"}}));
    EXPECT_EQ(nomi(f), QStringList{"due"});
}

TEST_P(Gestore, DeleteWithNothingSelectedAsksAndTakesNothing) {
    sistema("uno", 1);
    Form2& f = apri();
    f.ListView1->clearSelection();
    const Stato prima = programma();
    p.risposte = {vbYes};
    menu(f.mnuelimina);
    EXPECT_EQ(p.mostrati().size(), 1U);
    EXPECT_EQ(programma(), prima);
}

TEST_P(Gestore, DeleteAllTakesEveryFileOfTheGameAndNoOther) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "V");
    p.cartella.scrivi(svi("orfano"), "W");
    p.cartella.scrivi(altrui("uno"), "altro gioco");
    p.cartella.scrivi(GetParam() ? "uno.col" : "uno.lot", "altro sviluppo");
    Form2& f = apri();
    const Stato prima = programma();
    /// The pointer while the files go.
    struct Guarda : platform::Syscalls {
        int unlink(const char* nome) override {
            puntatore = platform::MousePointer();
            return Syscalls::unlink(nome);
        }
        int puntatore = -1;
    } guarda;
    int durante = -1;
    p.al_messaggio = [&] { durante = platform::MousePointer(); };
    p.risposte = {vbNo, vbYes};
    menu(f.mnueliminatutti);
    EXPECT_EQ(programma(), prima);
    auto posto = std::make_optional<platform::Ripristina<platform::Syscalls*>>(
        platform::ambiente().chiamate, &guarda);
    menu(f.mnueliminatutti);
    posto.reset();
    EXPECT_EQ(guarda.puntatore, 11);
    const Mostrato chiesto =
        domanda("Questa operazione eliminerà tutti i sistemi in archivio. Confermi?");
    EXPECT_EQ(p.mostrati(), (std::vector<Mostrato>{chiesto, chiesto}));
    EXPECT_EQ(programma(), (Stato{{altrui("uno"), "altro gioco"},
                                  {GetParam() ? "uno.col" : "uno.lot", "altro sviluppo"}}));
    EXPECT_TRUE(nomi(f).isEmpty());
    EXPECT_EQ(durante, 0);
    EXPECT_EQ(platform::MousePointer(), 0);
}

}  // namespace
