#include <filesystem>
#include <map>
#include <sys/mount.h>

#include <QLineEdit>

#include "platform/folder.h"
#include "platform/runtime.h"
#include "support/programma.h"

using platform::Icona;
using platform::Pulsanti;
using platform::vbNo;
using platform::vbYes;
using support::Mostrato;
using support::Programma;
using systems::Form2;
namespace fs = std::filesystem;

namespace {

using Stato = std::map<std::string, std::string>;

Stato stato(const std::string& cartella) {
    Stato s;
    for (const auto& voce : fs::directory_iterator(cartella)) {
        std::ifstream f(voce.path(), std::ios::binary);
        s[voce.path().filename()] = {std::istreambuf_iterator<char>(f), {}};
    }
    return s;
}

const char* const gia_esiste = "Esiste già un sistema con questo nome. Sovrascrivere?";

Mostrato domanda(const QString& testo) {
    return {testo, "Tabellino", Pulsanti::si_no};
}
Mostrato avviso(const QString& testo) {
    return {testo, "Tabellino", Pulsanti::ok};
}

/// Both games: the parameter is `lotto`.
class GestoreTest : public ::testing::TestWithParam<bool> {
protected:
    GestoreTest() {
        fs::create_directories(altra);
        if (GetParam()) p.form1.Image10_Click();
        platform::scegli_con([this](const QString& titolo, const QString& inizio) {
            titoli << titolo;
            inizi << inizio;
            return cartella_scelta;
        });
    }
    ~GestoreTest() override { platform::scegli_con({}); }

    [[nodiscard]] std::string sis(const std::string& nome) const {
        return nome + (GetParam() ? ".sel" : ".sen");
    }
    [[nodiscard]] std::string svi(const std::string& nome) const {
        return nome + (GetParam() ? ".lot" : ".col");
    }
    [[nodiscard]] std::string altrui(const std::string& nome) const {
        return nome + (GetParam() ? ".sen" : ".sel");
    }
    /// A small valid head, told apart by the count.
    [[nodiscard]] std::string testo(int quanti) const {
        return std::string("1,5,5,\"2\",0,0,0,") + (GetParam() ? "5," : "") +
               std::to_string(quanti) + "\r\n";
    }
    void sistema(const std::string& nome, int quanti) const {
        p.cartella.scrivi(sis(nome), testo(quanti));
    }
    void scrivi_altra(const std::string& nome, const std::string& dati) const {
        std::ofstream(altra + "/" + nome, std::ios::binary) << dati;
    }
    Form2& apri() {
        p.form1.mnugest_sist_Click();
        QApplication::processEvents();
        return *Programma::gestore();
    }
    static void seleziona(Form2& f, const QString& nome) {
        const auto trovate = f.ListView1->findItems(nome, Qt::MatchExactly);
        ASSERT_EQ(trovate.size(), 1) << nome.toStdString();
        f.ListView1->setCurrentItem(trovate.first());
    }
    static QStringList nomi(const Form2& f) {
        QStringList tutti;
        for (int i = 0; i < f.ListView1->topLevelItemCount(); ++i) {
            tutti << f.ListView1->topLevelItem(i)->text(0);
        }
        return tutti;
    }
    /// Chooses an item of the pop-up menu; what it queued runs too.
    static void menu(QAction* azione) {
        Programma::voce(azione);
        QApplication::processEvents();
    }
    /// The item by itself: the offscreen platform gives a menu the focus for good.
    static void inizia_rinomina(Form2& f) {
        f.mnurinomina->trigger();
        QApplication::processEvents();
    }
    static QLineEdit* editore(Form2& f) { return f.ListView1->viewport()->findChild<QLineEdit*>(); }
    /// Renames the selected system by its label.
    static void rinomina(Form2& f, const QString& nuovo) {
        inizia_rinomina(f);
        QLineEdit* casella = editore(f);
        ASSERT_NE(casella, nullptr);
        // Typed as a paste, for the letters that no key of the test has.
        casella->selectAll();
        casella->insert(nuovo);
        QTest::keyClick(casella, Qt::Key_Return);
        QApplication::processEvents();
    }
    void duplica(Form2& f, const QString& nuovo) {
        menu(f.mnuduplica);
        f.txtduplica->clear();
        QTest::keyClicks(f.txtduplica, nuovo);
        Programma::clic(f.cmddup_conferma);
    }
    Form2& importa_da(const std::string& cartella) {
        Form2& f = apri();
        cartella_scelta = QString::fromStdString(cartella);
        menu(f.mnuimporta);
        return f;
    }
    /// The program folder, less the price of a column, which the main form keeps there.
    [[nodiscard]] Stato programma() const {
        Stato s = stato(p.cartella.programma());
        s.erase("cst");
        return s;
    }
    [[nodiscard]] QString dove() const {
        return QString::fromStdString(p.cartella.programma()) + "/";
    }

    Programma p;
    std::string altra = p.cartella.radice() + "/altra";
    QString cartella_scelta;
    QStringList titoli;
    QStringList inizi;
};

INSTANTIATE_TEST_SUITE_P(Giochi, GestoreTest, ::testing::Bool(), [](const auto& parametro) {
    return parametro.param ? "Lotto" : "SuperEnalotto";
});

// Rename.

TEST_P(GestoreTest, RenameStartsAnEditOfTheLabelWithTheNameOnTheDisk) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    f.ListView1->selezionata()->setText(0, "altro");
    inizia_rinomina(f);
    ASSERT_NE(editore(f), nullptr);
    EXPECT_EQ(editore(f)->text(), "uno");
    EXPECT_TRUE(editore(f)->hasFocus());
}

TEST_P(GestoreTest, RenameMovesBothFilesAndTheTag) {
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

TEST_P(GestoreTest, InvalidCharacterRestoresTheOldText) {
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

TEST_P(GestoreTest, RenameToANameWithADevelopmentIsRefused) {
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

TEST_P(GestoreTest, RenameToALoneSystemIsNotRefusedAndTheFileKeepsItsName) {
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

TEST_P(GestoreTest, EmptyRenameIsHandedBackWithoutAMessage) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    rinomina(f, "");
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(nomi(f), QStringList{"uno"});
    EXPECT_EQ(programma(), prima);
}

TEST_P(GestoreTest, RenameGivenUpChangesNothing) {
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

TEST_P(GestoreTest, RenameThatOnlyChangesTheCaseWaitsOnTheDevelopment) {
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

TEST_P(GestoreTest, RenameWithNothingSelectedDoesNothing) {
    sistema("uno", 1);
    Form2& f = apri();
    f.ListView1->clearSelection();
    inizia_rinomina(f);
    EXPECT_EQ(editore(f), nullptr);
}

TEST_P(GestoreTest, EnterInTheLabelDoesNotOpenTheSystem) {
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

// Duplicate.

TEST_P(GestoreTest, DuplicateOpensItsPanelOverADisabledList) {
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

TEST_P(GestoreTest, DuplicateNeedsANameAndNotItsOwn) {
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

TEST_P(GestoreTest, DuplicateCopiesBothFilesAndKeepsTheTypedName) {
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

TEST_P(GestoreTest, DuplicateToAnotherSystemOverwritesItUnasked) {
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

TEST_P(GestoreTest, DuplicateToItsOwnNameInAnotherCaseLeavesTheSystem) {
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

TEST_P(GestoreTest, FileWithoutExtensionAsksBeforeTheDuplicate) {
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

TEST_P(GestoreTest, DeleteAsksAndTakesThePair) {
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

TEST_P(GestoreTest, DeleteWithNothingSelectedAsksAndTakesNothing) {
    sistema("uno", 1);
    Form2& f = apri();
    f.ListView1->clearSelection();
    const Stato prima = programma();
    p.risposte = {vbYes};
    menu(f.mnuelimina);
    EXPECT_EQ(p.mostrati().size(), 1U);
    EXPECT_EQ(programma(), prima);
}

TEST_P(GestoreTest, DeleteAllTakesEveryFileOfTheGameAndNoOther) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "V");
    p.cartella.scrivi(svi("orfano"), "W");
    p.cartella.scrivi(altrui("uno"), "altro gioco");
    p.cartella.scrivi(GetParam() ? "uno.col" : "uno.lot", "altro sviluppo");
    Form2& f = apri();
    const Stato prima = programma();
    int durante = -1;
    p.al_messaggio = [&] { durante = platform::MousePointer(); };
    p.risposte = {vbNo, vbYes};
    menu(f.mnueliminatutti);
    EXPECT_EQ(programma(), prima);
    menu(f.mnueliminatutti);
    const Mostrato chiesto =
        domanda("Questa operazione eliminerà tutti i sistemi in archivio. Confermi?");
    EXPECT_EQ(p.mostrati(), (std::vector<Mostrato>{chiesto, chiesto}));
    EXPECT_EQ(programma(), (Stato{{altrui("uno"), "altro gioco"},
                                  {GetParam() ? "uno.col" : "uno.lot", "altro sviluppo"}}));
    EXPECT_TRUE(nomi(f).isEmpty());
    EXPECT_EQ(durante, 0);
    EXPECT_EQ(platform::MousePointer(), 0);
}

// Import.

TEST_P(GestoreTest, ImportShowsTheChosenFolder) {
    sistema("casa", 1);
    scrivi_altra(sis("fuori"), testo(2));
    scrivi_altra(altrui("no"), "");
    Form2& f = importa_da(altra);
    EXPECT_EQ(titoli, QStringList{"Selezionare la cartella in cui si trova il sistema che si "
                                  "vuole importare e cliccare su OK"});
    EXPECT_EQ(inizi, QStringList{dove()});
    EXPECT_EQ(nomi(f), QStringList{"fuori"});
    EXPECT_EQ(platform::Tag(&f), QString::fromStdString(altra) + "/");
    EXPECT_EQ(platform::Tag(f.cmdimporta), dove());
    EXPECT_TRUE(f.picimporta->isVisible());
    EXPECT_TRUE(f.updatesEnabled());
}

TEST_P(GestoreTest, ImportCopiesThePairAndReopensTheManagerToOpen) {
    scrivi_altra(sis("fuori"), testo(2));
    scrivi_altra(svi("fuori"), "V");
    Form2& f = importa_da(altra);
    seleziona(f, "fuori");
    Programma::clic(f.cmdimporta);
    EXPECT_EQ(programma(), (Stato{{sis("fuori"), testo(2)}, {svi("fuori"), "V"}}));
    EXPECT_EQ(stato(altra), programma());
    Form2* nuovo = Programma::gestore();
    ASSERT_NE(nuovo, nullptr);
    EXPECT_TRUE(nuovo->Frame2->isVisible());
    EXPECT_FALSE(nuovo->picimporta->isVisible());
    EXPECT_EQ(nomi(*nuovo), QStringList{"fuori"});
    EXPECT_TRUE(nuovo->updatesEnabled());
    EXPECT_EQ(nuovo->windowTitle(), "Tabellino");
}

TEST_P(GestoreTest, ImportWithoutADevelopmentCopiesTheSystemAlone) {
    scrivi_altra(sis("fuori"), testo(2));
    Form2& f = importa_da(altra);
    seleziona(f, "fuori");
    Programma::clic(f.cmdimporta);
    EXPECT_EQ(programma(), (Stato{{sis("fuori"), testo(2)}}));
}

TEST_P(GestoreTest, ImportOverANameAsksFirst) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "vecchio");
    scrivi_altra(sis("uno"), testo(2));
    Form2& f = importa_da(altra);
    seleziona(f, "uno");
    const Stato prima = programma();
    f.txtduplica->setText("resto");
    p.risposte = {vbNo, vbYes};
    Programma::clic(f.cmdimporta);
    const Mostrato chiesto = domanda("Esiste già un sistema con uesto nome. Sovrascrivere?");
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{chiesto});
    EXPECT_EQ(programma(), prima);
    EXPECT_EQ(f.txtduplica->text(), "");
    EXPECT_TRUE(f.isVisible());
    Programma::clic(f.cmdimporta);
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{chiesto});
    EXPECT_EQ(programma(), (Stato{{sis("uno"), testo(2)}}));
}

TEST_P(GestoreTest, ImportFromTheLibraryItselfLeavesTheSystem) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "V");
    Form2& f = importa_da(p.cartella.programma());
    seleziona(f, "uno");
    const Stato prima = programma();
    p.risposte = {vbYes};
    Programma::clic(f.cmdimporta);
    EXPECT_EQ(programma(), prima);
}

TEST_P(GestoreTest, ImportWithNothingSelectedDoesNothing) {
    scrivi_altra(sis("fuori"), testo(2));
    Form2& f = importa_da(altra);
    f.ListView1->clearSelection();
    Programma::clic(f.cmdimporta);
    EXPECT_TRUE(f.isVisible());
    EXPECT_TRUE(programma().empty());
}

TEST_P(GestoreTest, SecondChoiceOfAFolderStillImportsIntoTheLibrary) {
    const std::string terza = p.cartella.radice() + "/terza";
    fs::create_directories(terza);
    scrivi_altra(sis("fuori"), testo(2));
    Form2& f = importa_da(terza);
    cartella_scelta = QString::fromStdString(altra);
    menu(f.mnuimporta);
    seleziona(f, "fuori");
    Programma::clic(f.cmdimporta);
    EXPECT_EQ(programma(), (Stato{{sis("fuori"), testo(2)}}));
    EXPECT_TRUE(stato(terza).empty());
}

TEST_P(GestoreTest, ImportFromTheSavingManagerLeavesTheNewOneOpen) {
    scrivi_altra(sis("fuori"), testo(2));
    cartella_scelta = QString::fromStdString(altra);
    p.form1.matrice = crossword::Matrice(1, 1);
    p.form1.matrice.scrivi(0, 0, 1);
    p.nel_gestore([this](Form2& f) {
        menu(f.mnuimporta);
        seleziona(f, "fuori");
        Programma::clic(f.cmdimporta);
    });
    p.form1.mnusalvanome_Click();
    QApplication::processEvents();
    Form2* nuovo = Programma::gestore();
    ASSERT_NE(nuovo, nullptr);
    EXPECT_TRUE(nuovo->Frame2->isVisible());
    EXPECT_EQ(nomi(*nuovo), QStringList{"fuori"});
}

// Send.

TEST_P(GestoreTest, SendCopiesThePairAndReopensTheManager) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "V");
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    cartella_scelta = QString::fromStdString(altra) + "/";
    menu(f.mnuinvia);
    EXPECT_EQ(titoli, QStringList{"Selezionare il percorso di destinazione e cliccare su OK"});
    EXPECT_EQ(stato(altra), prima);
    EXPECT_EQ(programma(), prima);
    Form2* nuovo = Programma::gestore();
    ASSERT_NE(nuovo, nullptr);
    EXPECT_EQ(nuovo->windowTitle(), "Utility");
    EXPECT_TRUE(nuovo->PicUtility->isVisible());
    EXPECT_FALSE(nuovo->picduplica->isVisible());
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_P(GestoreTest, SendOverANameAsksAndNoLeavesTheHourglass) {
    sistema("uno", 1);
    scrivi_altra(sis("uno"), testo(2));
    scrivi_altra(svi("uno"), "vecchio");
    Form2& f = apri();
    seleziona(f, "uno");
    cartella_scelta = QString::fromStdString(altra);
    const Stato prima = stato(altra);
    p.risposte = {vbNo, vbYes};
    menu(f.mnuinvia);
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{domanda(gia_esiste)});
    EXPECT_EQ(stato(altra), prima);
    EXPECT_EQ(platform::MousePointer(), 11);
    EXPECT_TRUE(f.isVisible());
    menu(f.mnuinvia);
    EXPECT_EQ(stato(altra), (Stato{{sis("uno"), testo(1)}}));
    EXPECT_EQ(platform::MousePointer(), 0);
    p.mostrati();
}

TEST_P(GestoreTest, SendWithNothingSelectedLeavesTheHourglass) {
    sistema("uno", 1);
    Form2& f = apri();
    f.ListView1->clearSelection();
    cartella_scelta = QString::fromStdString(altra);
    menu(f.mnuinvia);
    EXPECT_EQ(platform::MousePointer(), 11);
    EXPECT_TRUE(stato(altra).empty());
    EXPECT_TRUE(f.isVisible());
}

TEST_P(GestoreTest, SendIntoTheLibraryItselfLeavesTheSystem) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "V");
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    cartella_scelta = QString::fromStdString(p.cartella.programma());
    p.risposte = {vbYes};
    menu(f.mnuinvia);
    EXPECT_EQ(programma(), prima);
}

TEST_P(GestoreTest, CancelingTheFolderDialogChangesNothing) {
    sistema("uno", 1);
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    cartella_scelta.clear();
    menu(f.mnuimporta);
    menu(f.mnuinvia);
    EXPECT_EQ(titoli.size(), 2);
    EXPECT_EQ(programma(), prima);
    EXPECT_EQ(nomi(f), QStringList{"uno"});
    EXPECT_EQ(platform::Tag(&f), dove());
    EXPECT_FALSE(f.picimporta->isVisible());
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_TRUE(f.isVisible());
}

/// Refuses every write once so many bytes are written, as a full device does.
class DiscoPieno : public platform::Syscalls {
public:
    explicit DiscoPieno(std::size_t spazio) : spazio_(spazio) {
        prima_ = platform::cambia_syscalls(this);
    }
    ~DiscoPieno() override { platform::cambia_syscalls(prima_); }
    ssize_t write(int fd, const void* dati, std::size_t quanti) override {
        if (spazio_ == 0) {
            errno = ENOSPC;
            return -1;
        }
        const ssize_t n = Syscalls::write(fd, dati, std::min(quanti, spazio_));
        if (n > 0) spazio_ -= static_cast<std::size_t>(n);
        return n;
    }

private:
    std::size_t spazio_;
    platform::Syscalls* prima_;
};

TEST_P(GestoreTest, FullDiskIsToldOnceAndTheManagerComesBack) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), std::string(200000, 'v'));
    Form2& f = apri();
    seleziona(f, "uno");
    const Stato prima = programma();
    cartella_scelta = QString::fromStdString(altra);
    // A real full file system where the test may mount one, else the injected failure.
    const bool montato = ::mount("tmpfs", altra.c_str(), "tmpfs", 0, "size=64k") == 0;
    RecordProperty("full_disk", montato ? "tmpfs" : "injected");
    {
        const DiscoPieno pieno(montato ? 1000000 : 60000);
        menu(f.mnuinvia);
    }
    const Stato arrivo = stato(altra);
    if (montato) ::umount(altra.c_str());
    EXPECT_EQ(p.mostrati(),
              (std::vector<Mostrato>{{"Spazio insufficente. Impossibile portare a termine "
                                      "l'operazione.",
                                      "Tabellino", Pulsanti::ok, Icona::informazione}}));
    EXPECT_EQ(platform::MousePointer(), 0);
    ASSERT_NE(Programma::gestore(), nullptr);
    EXPECT_EQ(Programma::gestore()->windowTitle(), "Utility");
    EXPECT_EQ(programma(), prima);
    EXPECT_EQ(arrivo.at(sis("uno")), testo(1));
    EXPECT_LT(arrivo.at(svi("uno")).size(), 200000U);
    EXPECT_EQ(arrivo.size(), 2U);
}

TEST_P(GestoreTest, NoticeStandsInFrontDuringACopy) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "V");
    Form2& f = apri();
    seleziona(f, "uno");
    // The copy reads the file through the system calls, and there the notice must be up.
    struct Guarda : platform::Syscalls {
        explicit Guarda(Form2& g) : f(g) { prima = platform::cambia_syscalls(this); }
        ~Guarda() override { platform::cambia_syscalls(prima); }
        ssize_t write(int fd, const void* dati, std::size_t quanti) override {
            visto = f.frmduplica->isVisible() && f.picduplica->isVisible();
            return Syscalls::write(fd, dati, quanti);
        }
        Form2& f;
        platform::Syscalls* prima = nullptr;
        bool visto = false;
    };
    {
        Guarda guarda(f);
        duplica(f, "due");
        EXPECT_TRUE(guarda.visto);
    }
    seleziona(f, "due");
    Guarda guarda(f);
    cartella_scelta = QString::fromStdString(altra);
    menu(f.mnuinvia);
    EXPECT_TRUE(guarda.visto);
}

}  // namespace
