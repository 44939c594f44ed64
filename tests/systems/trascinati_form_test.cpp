// System files dropped on the main form and on the manager.
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "systems/gestore.h"

namespace {

using support::Programma;
using systems::Form2;

class TrascinatiForm : public testing::Test {
protected:
    TrascinatiForm() {
        std::filesystem::create_directories(da);
        p.riempi_e_salva("nostro");
        for (const char* nome : {"uno", "due"}) {
            std::filesystem::copy_file(p.cartella.file("nostro.sen"), da + nome + ".sen");
        }
        std::ofstream(da + "uno.col", std::ios::binary) << "1,2,3,4,5,6\r\n";
    }
    /// Drags the files over a window; true when it takes them, and then lets go.
    static bool trascina(QWidget& su, const std::vector<std::string>& file) {
        QMimeData dati;
        QList<QUrl> indirizzi;
        for (const std::string& nome : file) {
            indirizzi << QUrl::fromLocalFile(platform::q(nome));
        }
        dati.setUrls(indirizzi);
        QDragEnterEvent entra({10, 10}, Qt::MoveAction | Qt::CopyAction, &dati, Qt::LeftButton, {});
        QApplication::sendEvent(&su, &entra);
        if (!entra.isAccepted()) return false;
        EXPECT_EQ(entra.dropAction(), Qt::CopyAction);
        QDropEvent lascia({10, 10}, Qt::MoveAction | Qt::CopyAction, &dati, Qt::LeftButton, {});
        QApplication::sendEvent(&su, &lascia);
        QApplication::processEvents();
        return true;
    }
    static QStringList elencati(const Form2& f) {
        QStringList nomi;
        for (int i = 0; i < f.ListView1->topLevelItemCount(); ++i) {
            nomi << f.ListView1->topLevelItem(i)->text(0);
        }
        return nomi;
    }

    Programma p{true};
    const std::string da = p.cartella.radice() + "/da/";
};

TEST_F(TrascinatiForm, AFileOnTheMainFormIsImportedAndTheManagerShowsIt) {
    ASSERT_TRUE(trascina(p.form1, {da + "uno.sen"}));
    EXPECT_EQ(p.cartella.leggi("uno.col"), "1,2,3,4,5,6\r\n");
    Form2* f = Programma::gestore();
    ASSERT_NE(f, nullptr);
    EXPECT_TRUE(f->Frame2->isVisible());
    EXPECT_EQ(elencati(*f), (QStringList{"nostro", "uno"}));
    EXPECT_EQ(p.form1.lblpasso->text(), "Il sistema «uno» è stato importato");
    EXPECT_TRUE(std::filesystem::exists(da + "uno.sen"));
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(TrascinatiForm, AFolderOnTheManagerBringsThemAll) {
    Programma::voce(p.form1.mnugest_sist);
    ASSERT_TRUE(trascina(*Programma::gestore(), {p.cartella.radice() + "/da"}));
    Form2* f = Programma::gestore();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(elencati(*f), (QStringList{"due", "nostro", "uno"}));
    EXPECT_EQ(p.form1.lblpasso->text(), "2 sistemi importati");
}

TEST_F(TrascinatiForm, ANameThatIsTakenIsAskedAbout) {
    std::filesystem::copy_file(da + "uno.sen", p.cartella.file("uno.sen"));
    p.cartella.scrivi("uno.col", "vecchio");
    p.risposte = {platform::vbNo};
    ASSERT_TRUE(trascina(p.form1, {da + "uno.sen"}));
    EXPECT_EQ(p.cartella.leggi("uno.col"), "vecchio");
    EXPECT_EQ(Programma::gestore(), nullptr);
    EXPECT_EQ(p.form1.lblpasso->text(), "Nessun sistema importato, uno rimasto com'era");
    p.risposte = {platform::vbYes};
    ASSERT_TRUE(trascina(p.form1, {da + "uno.sen"}));
    EXPECT_EQ(p.cartella.leggi("uno.col"), "1,2,3,4,5,6\r\n");
    const auto detti = p.mostrati();
    ASSERT_EQ(detti.size(), 2U);
    EXPECT_EQ(detti[1].testo, "Esiste già un sistema con uesto nome. Sovrascrivere?");
}

TEST_F(TrascinatiForm, TheLibrarysOwnFilesStay) {
    const std::string prima = p.cartella.leggi("nostro.sen");
    ASSERT_TRUE(trascina(p.form1, {p.cartella.file("nostro.sen")}));
    EXPECT_EQ(p.cartella.leggi("nostro.sen"), prima);
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(TrascinatiForm, ASystemOfTheOtherGameLeavesTheGameInForce) {
    std::filesystem::copy_file(da + "uno.sen", da + "tre.sel");
    ASSERT_TRUE(trascina(p.form1, {da + "tre.sel"}));
    EXPECT_TRUE(p.cartella.esiste("tre.sel"));
    EXPECT_FALSE(p.form1.sessione.gioco().e_lotto());
    EXPECT_EQ(Programma::gestore(), nullptr);
    EXPECT_EQ(p.form1.lblpasso->text(), "Il sistema «tre» è stato importato");
}

TEST_F(TrascinatiForm, WhatIsNoSystemIsNotTaken) {
    std::ofstream(da + "nota.txt") << "x";
    EXPECT_FALSE(trascina(p.form1, {da + "nota.txt"}));
    EXPECT_FALSE(trascina(p.form1, {da + "assente.sen"}));
}

TEST_F(TrascinatiForm, WhileANameIsTypedForASaveNothingIsTaken) {
    p.cella(0, 0);
    p.nel_gestore([this](Form2& f) {
        EXPECT_FALSE(trascina(f, {da + "uno.sen"}));
        EXPECT_FALSE(trascina(p.form1, {da + "uno.sen"}));
        Programma::clic(f.cmdeffacer1);
    });
    Programma::voce(p.form1.mnusalvanome);
}

}  // namespace
