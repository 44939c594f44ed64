// The importer's window, used as a player does.
#include <filesystem>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "archivio/contenuto.h"
#include "archivio/finestra.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"
#include "platform/qt/scrivania.h"
#include "support/archivio.h"
#include "support/cartella.h"

using importazione::Finestra;

namespace {

const std::string una_sestina = "1997-12-03,20,36,39,41,72,76,88,5\n";

class FinestraArchivio : public testing::Test {
protected:
    FinestraArchivio() { std::filesystem::create_directories(cartella_.radice() + "/archivio"); }

    QString scrivi(const std::string& nome, const std::string& dati) const {
        cartella_.scrivi(nome, dati);
        return platform::q(cartella_.file(nome));
    }
    /// Drops files on the window.
    static void trascina(Finestra& f, const QStringList& file) {
        QMimeData dati;
        QList<QUrl> indirizzi;
        for (const QString& nome : file) indirizzi << QUrl::fromLocalFile(nome);
        dati.setUrls(indirizzi);
        QDragEnterEvent entra({10, 10}, Qt::CopyAction, &dati, Qt::LeftButton, {});
        QApplication::sendEvent(&f, &entra);
        ASSERT_TRUE(entra.isAccepted());
        QDropEvent lascia({10, 10}, Qt::CopyAction, &dati, Qt::LeftButton, {});
        QApplication::sendEvent(&f, &lascia);
    }

    support::Cartella cartella_;
    const std::string archivio_ = cartella_.radice() + "/archivio/drawit.sqlite";
    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
};

}  // namespace

TEST_F(FinestraArchivio, SenzaArchivioLoDice) {
    Finestra f(archivio_);
    f.show();
    EXPECT_EQ(f.lblstato->text(), "L'archivio non c'è ancora: la prima importazione lo crea.");
    EXPECT_FALSE(f.ProgressBar1->isVisible());
    for (const char* nome : {"lblstato", "lbltrascina", "cmdscegli", "cmdchiudi", "chksostituisci",
                             "ProgressBar1", "txtrapporto"}) {
        EXPECT_NE(f.findChild<QWidget*>(nome), nullptr) << nome;
    }
}

TEST_F(FinestraArchivio, IlDimostrativoSiChiamaCosi) {
    ASSERT_TRUE(importazione::salva(archivio_, importazione::dimostrativo()));
    Finestra f(archivio_);
    EXPECT_TRUE(f.lblstato->text().contains("archivio dimostrativo"));
    // Each game on a line of its own.
    for (const QString& riga : f.lblstato->text().split('\n')) {
        EXPECT_LT(f.lblstato->fontMetrics().horizontalAdvance(riga), f.lblstato->width() - 20);
    }
}

TEST_F(FinestraArchivio, ScegliereIFileLiImportaEMostraIlRapporto) {
    const QString file = scrivi("a.csv", una_sestina + "sbagliata\n");
    platform::scrivania().sceglie_file = [&] { return QStringList{file}; };
    Finestra f(archivio_);
    f.show();
    QString udito;
    platform::scrivania().legge = [&](const QString& testo) { udito = testo; };
    QTest::mouseClick(f.cmdscegli, Qt::LeftButton);
    EXPECT_TRUE(udito.endsWith("1 rifiutata Archivio aggiornato.")) << udito.toStdString();
    EXPECT_TRUE(f.lblstato->text().startsWith("SuperEnalotto: 1 estrazione"));
    const QString detto = platform::da_mostrare(file);
    EXPECT_EQ(f.txtrapporto->toPlainText(),
              detto +
                  ": 1 riga nuova, 0 già presenti, 0 diverse, 1 rifiutata\n"
                  "Archivio aggiornato.\n\nRighe rifiutate\n" +
                  detto + ":2: data mancante o non valida");
    EXPECT_FALSE(f.ProgressBar1->isVisible());
    EXPECT_EQ(platform::MousePointer(), 0);
}

TEST_F(FinestraArchivio, LaSceltaMostraPrimaIFileDiEstrazioni) {
    Finestra f(archivio_);
    f.show();
    QStringList tipi;
    QTimer::singleShot(0, &f, [&tipi] {
        auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialogo, nullptr);
        tipi = dialogo->nameFilters();
        dialogo->reject();
    });
    QTest::mouseClick(f.cmdscegli, Qt::LeftButton);
    EXPECT_EQ(tipi, (QStringList{"Estrazioni (*.csv *.tsv *.txt *.zip)", "Tutti i file (*)"}));
}

TEST_F(FinestraArchivio, AnnullareLaSceltaNonFaNulla) {
    platform::scrivania().sceglie_file = [] { return QStringList(); };
    Finestra f(archivio_);
    f.show();
    QTest::mouseClick(f.cmdscegli, Qt::LeftButton);
    EXPECT_EQ(f.txtrapporto->toPlainText(), "");
    EXPECT_FALSE(std::filesystem::exists(archivio_));
}

TEST_F(FinestraArchivio, TrascinareIFileLiImporta) {
    Finestra f(archivio_);
    f.show();
    trascina(f,
             {scrivi("a.csv", una_sestina), scrivi("b.csv", "1997-12-06,32,4,25,29,30,52,24,\n")});
    EXPECT_TRUE(f.lblstato->text().startsWith("SuperEnalotto: 2 estrazioni"));
}

TEST_F(FinestraArchivio, LaSpuntaSostituisceLeDiverse) {
    Finestra f(archivio_);
    f.show();
    const QString altra = scrivi("b.csv", "1997-12-03,20,36,39,41,72,77,88,5\n");
    trascina(f, {scrivi("a.csv", una_sestina)});
    trascina(f, {altra});
    EXPECT_TRUE(f.txtrapporto->toPlainText().contains("Estrazioni diverse da quelle presenti"));
    EXPECT_FALSE(f.txtrapporto->toPlainText().contains("(sostituita)"));
    QTest::mouseClick(f.chksostituisci, Qt::LeftButton, {}, QPoint(8, 14));
    ASSERT_TRUE(f.chksostituisci->isChecked());
    trascina(f, {altra});
    EXPECT_TRUE(f.txtrapporto->toPlainText().contains("(sostituita)"));
}

TEST_F(FinestraArchivio, UnErroreSiLeggeNelRapporto) {
    Finestra f(archivio_);
    f.show();
    trascina(f, {scrivi("a.txt", "una lettera alla zia\n")});
    EXPECT_TRUE(f.txtrapporto->toPlainText().startsWith("Niente è stato scritto.\n\nErrori\n"));
    EXPECT_FALSE(std::filesystem::exists(archivio_));
}

TEST_F(FinestraArchivio, ChiudiChiude) {
    Finestra f(archivio_);
    f.show();
    QTest::mouseClick(f.cmdchiudi, Qt::LeftButton);
    EXPECT_FALSE(f.isVisible());
}

TEST_F(FinestraArchivio, LInvitoLasciaIlPostoAlRapporto) {
    Finestra f(archivio_);
    f.show();
    const auto* invito = f.findChild<QLabel*>("lblinvito");
    ASSERT_NE(invito, nullptr);
    EXPECT_TRUE(invito->isVisible());
    trascina(f, {scrivi("a.csv", una_sestina)});
    EXPECT_FALSE(invito->isVisible());
}

/// Colour of the place for the files, clear of its edge and of its words.
QColor fondo(Finestra& f) {
    return f.lbltrascina->grab().toImage().pixelColor(20, 8);
}

TEST_F(FinestraArchivio, IColoriSonoQuelliDellAspetto) {
    struct Caso {
        const char* aspetto;
        const char* finestra;
        const char* fermo;
        const char* sopra;
        const char* rapporto;
    };
    for (const Caso& c : {Caso{"1", "#E9F1F8", "#F4F9FE", "#FFF8EC", "#FFFFFF"},
                          Caso{"2", "#F6F5F2", "#FBFAF8", "#FFF8EC", "#FFFFFF"},
                          Caso{"3", "#161E2A", "#1F2A3A", "#3A2E14", "#131A25"}}) {
        SCOPED_TRACE(c.aspetto);
        Finestra f(archivio_);
        f.setStyleSheet(QString::fromStdString(
            support::contenuto(SOURCE_DIR "/suite/skin/skin1_" + std::string(c.aspetto) + ".skn")));
        f.show();
        EXPECT_EQ(f.grab().toImage().pixelColor(3, 3), QColor(c.finestra));
        EXPECT_EQ(f.txtrapporto->grab().toImage().pixelColor(20, 100), QColor(c.rapporto));
        EXPECT_EQ(fondo(f), QColor(c.fermo));
        QMimeData dati;
        dati.setUrls({QUrl::fromLocalFile("/a.csv")});
        QDragEnterEvent entra({10, 10}, Qt::CopyAction, &dati, Qt::LeftButton, {});
        QApplication::sendEvent(&f, &entra);
        EXPECT_EQ(fondo(f), QColor(c.sopra));
        QDragLeaveEvent esce;
        QApplication::sendEvent(&f, &esce);
        EXPECT_EQ(fondo(f), QColor(c.fermo));
    }
}
