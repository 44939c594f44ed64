#include <sys/mount.h>

#include <QFileDialog>
#include <QHeaderView>

#include "platform/ambiente.h"
#include "platform/qt/scrivania.h"
#include "support/guasti.h"
#include "systems/gestore.h"

using namespace gestore;

namespace {

class Trasferimento : public Gestore {};

INSTANTIATE_TEST_SUITE_P(Giochi, Trasferimento, ::testing::Bool(), [](const auto& parametro) {
    return parametro.param ? "Lotto" : "SuperEnalotto";
});

// Import.

TEST_P(Trasferimento, ImportShowsTheChosenFolder) {
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

TEST_P(Trasferimento, ImportCopiesThePairAndReopensTheManagerToOpen) {
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

TEST_P(Trasferimento, ImportWithoutADevelopmentCopiesTheSystemAlone) {
    scrivi_altra(sis("fuori"), testo(2));
    Form2& f = importa_da(altra);
    seleziona(f, "fuori");
    Programma::clic(f.cmdimporta);
    EXPECT_EQ(programma(), (Stato{{sis("fuori"), testo(2)}}));
}

TEST_P(Trasferimento, ImportOverANameAsksFirst) {
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

TEST_P(Trasferimento, ImportFromTheLibraryItselfLeavesTheSystem) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "V");
    Form2& f = importa_da(p.cartella.programma());
    seleziona(f, "uno");
    const Stato prima = programma();
    p.risposte = {vbYes};
    Programma::clic(f.cmdimporta);
    EXPECT_EQ(programma(), prima);
}

TEST_P(Trasferimento, ImportWithNothingSelectedDoesNothing) {
    scrivi_altra(sis("fuori"), testo(2));
    Form2& f = importa_da(altra);
    f.ListView1->clearSelection();
    Programma::clic(f.cmdimporta);
    EXPECT_TRUE(f.isVisible());
    EXPECT_TRUE(programma().empty());
}

TEST_P(Trasferimento, SecondChoiceOfAFolderStillImportsIntoTheLibrary) {
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

TEST_P(Trasferimento, ImportFromTheSavingManagerLeavesTheNewOneOpen) {
    scrivi_altra(sis("fuori"), testo(2));
    cartella_scelta = QString::fromStdString(altra);
    p.riempi();
    p.form1.sessione.segna_salvato(true);
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

TEST_P(Trasferimento, SendCopiesThePairAndReopensTheManager) {
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

TEST_P(Trasferimento, SendOverANameAsksAndNoLeavesTheHourglass) {
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

TEST_P(Trasferimento, SendWithNothingSelectedLeavesTheHourglass) {
    sistema("uno", 1);
    Form2& f = apri();
    f.ListView1->clearSelection();
    cartella_scelta = QString::fromStdString(altra);
    menu(f.mnuinvia);
    EXPECT_EQ(platform::MousePointer(), 11);
    EXPECT_TRUE(stato(altra).empty());
    EXPECT_TRUE(f.isVisible());
}

TEST_P(Trasferimento, SendIntoTheLibraryItselfLeavesTheSystem) {
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

TEST_P(Trasferimento, CancelingTheFolderDialogChangesNothing) {
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

/// Answers the folder dialog itself, with no answer put in its place.
QString nel_dialogo(const QString& inizio, const std::function<void(QFileDialog&)>& fare) {
    const platform::Ripristina vero(platform::scrivania().sceglie_cartella, nullptr);
    QTimer::singleShot(0, qApp, [fare] {
        auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialogo, nullptr);
        fare(*dialogo);
    });
    return platform::scegli_cartella(nullptr, "Titolo", inizio);
}

TEST_P(Trasferimento, FolderDialogHasItsTitleAndStartsWhereItIsTold) {
    const QString inizio = QString::fromStdString(altra);
    platform::MousePointer(11);
    const QString scelta = nel_dialogo(inizio, [&](QFileDialog& d) {
        EXPECT_EQ(d.windowTitle(), "Titolo");
        EXPECT_EQ(d.directory().absolutePath(), inizio);
        EXPECT_EQ(d.fileMode(), QFileDialog::Directory);
        EXPECT_EQ(platform::MousePointer(), 0);
        d.selectFile(inizio);
        QMetaObject::invokeMethod(&d, "accept");
    });
    EXPECT_EQ(scelta, inizio);
    EXPECT_EQ(platform::MousePointer(), 11);
}

TEST_P(Trasferimento, FolderDialogShowsItsHeadsWhole) {
    nel_dialogo(dove(), [](QFileDialog& d) {
        const auto* lista = d.findChild<QTreeView*>("treeView");
        ASSERT_NE(lista, nullptr);
        const QHeaderView* teste = lista->header();
        for (int c = 0; c < teste->count(); ++c) {
            EXPECT_GE(teste->sectionSize(c), teste->sectionSizeHint(c)) << c;
        }
        EXPECT_EQ(teste->sectionResizeMode(0), QHeaderView::Stretch);
        d.reject();
    });
}

TEST_P(Trasferimento, FolderDialogGivenUpReturnsNothing) {
    EXPECT_EQ(nel_dialogo(dove(), [](QFileDialog& d) { d.reject(); }), "");
}

TEST_P(Trasferimento, FullDiskIsToldOnceAndTheManagerComesBack) {
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
        support::Disco pieno;
        pieno.spazio = montato ? 1000000 : 60000;
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

TEST_P(Trasferimento, NoticeStandsInFrontDuringACopy) {
    sistema("uno", 1);
    p.cartella.scrivi(svi("uno"), "V");
    Form2& f = apri();
    seleziona(f, "uno");
    // The copy writes the file through the system calls, and there the notice must be up.
    struct Guarda : platform::Syscalls {
        explicit Guarda(const Form2& g) : f(g) {}
        ssize_t write(int fd, const void* dati, std::size_t quanti) override {
            visto = f.frmduplica->isVisible() && f.picduplica->isVisible();
            puntatore = platform::MousePointer();
            return Syscalls::write(fd, dati, quanti);
        }
        const Form2& f;
        platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
        bool visto = false;
        int puntatore = -1;
    };
    {
        const Guarda guarda(f);
        duplica(f, "due");
        EXPECT_TRUE(guarda.visto);
    }
    seleziona(f, "due");
    cartella_scelta = QString::fromStdString(altra);
    {
        const Guarda guarda(f);
        menu(f.mnuinvia);
        EXPECT_TRUE(guarda.visto);
        EXPECT_EQ(guarda.puntatore, 11);
    }
    scrivi_altra(sis("tre"), testo(3));
    Form2& g = importa_da(altra);
    seleziona(g, "tre");
    const Guarda guarda(g);
    Programma::clic(g.cmdimporta);
    EXPECT_TRUE(guarda.visto);
}

}  // namespace
