// The guide: its pages hang together, and its window is walked with clicks and keys.
#include <filesystem>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTreeWidget>

#include "finestra.h"
#include "pagine.h"
#include "support/cartella.h"

using namespace guida;

namespace {

QStringList tutte_le_pagine() {
    QStringList pagine;
    for (const Capitolo& capitolo : capitoli()) pagine += capitolo.pagine;
    return pagine;
}

/// What stands between the quotes of an attribute, all over a page.
QStringList valori(const QString& testo, const QString& attributo) {
    QStringList trovati;
    const QRegularExpression forma(attributo + "=\"([^\"]*)\"");
    for (auto i = forma.globalMatch(testo); i.hasNext();) trovati += i.next().captured(1);
    return trovati;
}

class FinestraGuida : public testing::Test {
protected:
    explicit FinestraGuida(const QString& pagina = "") : finestra(pagina) {
        finestra.show();
        finestra.activateWindow();
        QApplication::processEvents();
    }
    template <typename T>
    T* trova(const char* nome) {
        return finestra.findChild<T*>(nome);
    }
    void clic(const char* nome) { QTest::mouseClick(trova<QWidget>(nome), Qt::LeftButton); }
    void tasto(int chiave, Qt::KeyboardModifiers con = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(chiave), con);
    }
    void scegli(const QString& voce) {
        auto* indice = trova<QTreeWidget>("indice");
        const auto voci = indice->findItems(voce, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(voci.size(), 1) << voce.toStdString();
        QTest::mouseClick(indice->viewport(), Qt::LeftButton, {},
                          indice->visualItemRect(voci.first()).center());
    }
    void cerca_parole(const QString& testo) {
        tasto(Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), testo);
    }
    [[nodiscard]] QStringList evidenziati() {
        QStringList testi;
        for (const auto& segno : trova<Foglio>("foglio")->extraSelections())
            testi += segno.cursor.selectedText();
        return testi;
    }
    Finestra finestra;
};

}  // namespace

TEST(PagineGuida, OgniPaginaHaTitoloETesto) {
    QStringList titoli;
    for (const QString& pagina : tutte_le_pagine()) {
        EXPECT_GT(html(pagina).size(), 400) << pagina.toStdString();
        EXPECT_TRUE(html(pagina).contains("<h1>" + titolo(pagina) + "</h1>"))
            << pagina.toStdString();
        titoli += titolo(pagina);
    }
    EXPECT_EQ(titoli.removeDuplicates(), 0);
    EXPECT_EQ(titoli.size(), 25);
}

TEST(PagineGuida, NessunaPaginaRestaFuoriDallIndice) {
    titolo(prima_pagina());
    QStringList nelle_risorse =
        QDir(":/guida").entryList({"*.html"}, QDir::Files).replaceInStrings(".html", "");
    nelle_risorse.removeAll("tavola_garanzie");
    QStringList nell_indice = tutte_le_pagine();
    nell_indice.sort();
    nelle_risorse.sort();
    EXPECT_EQ(nelle_risorse, nell_indice);
}

TEST(PagineGuida, OgniCollegamentoPortaAUnaPagina) {
    int quanti = 0;
    for (const QString& pagina : tutte_le_pagine()) {
        for (const QString& meta : valori(html(pagina), "href")) {
            EXPECT_TRUE(tutte_le_pagine().contains(QString(meta).replace(".html", "")))
                << pagina.toStdString() << " -> " << meta.toStdString();
            ++quanti;
        }
    }
    EXPECT_GT(quanti, 20);
}

TEST(PagineGuida, OgniFiguraCeHaUnaDescrizioneEPesaPoco) {
    int quante = 0;
    for (const QString& pagina : tutte_le_pagine()) {
        for (const QString& nome : valori(html(pagina), "src")) {
            QFile figura(":/guida/" + nome);
            EXPECT_TRUE(figura.open(QIODevice::ReadOnly)) << nome.toStdString();
            EXPECT_LT(figura.size(), 150000) << nome.toStdString();
            ++quante;
        }
        EXPECT_EQ(valori(html(pagina), "src").size(), valori(html(pagina), "alt").size());
    }
    EXPECT_GE(quante, 8);
    EXPECT_EQ(QDir(":/guida/figure").entryList({"*.png"}).size(), quante) << "a picture is unused";
}

TEST(PagineGuida, LaTavolaDelleGaranzieHaTutteLeTabelle) {
    const auto tabelle = QDir(SOURCE_DIR "/suite/ridotti/tabelle").entryList({"*.rid"}).size();
    // Four tables, each with a line of headings.
    EXPECT_EQ(html("garanzie").count("<tr>"), tabelle + 4);
    EXPECT_TRUE(html("garanzie").contains("con 4 estratti almeno 3 righe con 4 numeri"));
}

TEST(PagineGuida, IlNomeRichiestoSceglieLaPagina) {
    EXPECT_EQ(pagina_o_prima("tipi"), "tipi");
    EXPECT_EQ(pagina_o_prima("TIPI "), "tipi");
    for (const char* nome : {"", "guida", "non c'è", "../tipi", "tipi.html"})
        EXPECT_EQ(pagina_o_prima(nome), "inizio") << nome;
}

TEST(PagineGuida, IlFileOpenTieneUnNomeFraVirgolette) {
    const support::Cartella cartella;
    const QString radice = QString::fromStdString(cartella.radice());
    const auto scrivi = [&](const std::string& dati) {
        std::ofstream(cartella.radice() + "/open", std::ios::binary) << dati;
    };
    EXPECT_EQ(nome_richiesto(radice), "");
    scrivi("\"spoglio\"\r\n");
    EXPECT_EQ(nome_richiesto(radice), "spoglio");
    scrivi("\"guida\"\r\n\"altro\"\r\n");
    EXPECT_EQ(nome_richiesto(radice), "guida");
    scrivi("");
    EXPECT_EQ(nome_richiesto(radice), "");
    scrivi(std::string(100000, '\0') + "\xFF\xFE");
    EXPECT_EQ(pagina_o_prima(nome_richiesto(radice)), "inizio");
}

TEST(PagineGuida, LaRadiceEDovEChiamataLaGuida) {
    const support::Cartella cartella;
    const QString radice = QString::fromStdString(cartella.radice());
    const QString comando = radice + "/guida";
    std::filesystem::create_symlink("/usr/bin/true", comando.toStdString());
    EXPECT_EQ(radice_suite(comando, "/usr/libexec"), "/usr/libexec");
    std::ofstream(cartella.radice() + "/open") << "\"tipi\"";
    EXPECT_EQ(radice_suite(comando, "/usr/libexec"), radice);
    EXPECT_EQ(radice_suite("guida", "/usr/libexec"), "/usr/libexec");
}

TEST(PagineGuida, LaPaginaUnicaSiReggeDaSola) {
    QFile file(SUITE_DIR "/guida.html");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString testo = QString::fromUtf8(file.readAll());
    for (const QString& pagina : tutte_le_pagine())
        EXPECT_TRUE(testo.contains("<h1 id=\"" + pagina + "\">" + titolo(pagina)))
            << pagina.toStdString();
    for (const QString& meta : valori(testo, "href"))
        EXPECT_TRUE(meta.startsWith('#') && tutte_le_pagine().contains(meta.mid(1)))
            << meta.toStdString();
    for (const QString& figura : valori(testo, "src"))
        EXPECT_TRUE(figura.startsWith("data:image/png;base64,")) << figura.left(40).toStdString();
}

TEST(RicercaGuida, NonGuardaMaiuscoleEAccenti) {
    EXPECT_EQ(piana("Perché È così"), "perche e cosi");
    const QString difficile = QString::fromUtf8("àÈß’ﬁ…①");
    EXPECT_EQ(piana(difficile).size(), difficile.size());
    EXPECT_EQ(parole("  Più   piu PIÙ quote "), (QStringList{"piu", "quote"}));
}

TEST(RicercaGuida, TrovaLePagineCheHannoTutteLeParole) {
    const auto trovate = cerca("RIPETIZIONI rip");
    ASSERT_FALSE(trovate.isEmpty());
    EXPECT_EQ(trovate.first().pagina, "ripetizioni");
    for (const Trovata& t : cerca("jolly pannelli")) {
        EXPECT_TRUE(piana(html(t.pagina)).contains("jolly")) << t.pagina.toStdString();
        EXPECT_TRUE(piana(html(t.pagina)).contains("pannelli")) << t.pagina.toStdString();
        EXPECT_FALSE(t.brano.isEmpty());
        EXPECT_GE(t.quante, 2);
    }
    EXPECT_TRUE(cerca("").isEmpty());
    EXPECT_TRUE(cerca("   ").isEmpty());
    EXPECT_TRUE(cerca("zxqw").isEmpty());
    EXPECT_TRUE(cerca("jolly zxqw").isEmpty());
}

TEST(RicercaGuida, ILuoghiSonoQuelliDelTesto) {
    const QString testo = "Città, citta e cit";
    const QVector<QPair<int, int>> attesi = {{0, 5}, {7, 5}};
    EXPECT_EQ(luoghi(testo, parole("CITTÀ")), attesi);
    EXPECT_TRUE(luoghi(testo, {}).isEmpty());
}

TEST_F(FinestraGuida, SiIntitolaGuidaEParteDallaPrimaPagina) {
    EXPECT_EQ(finestra.windowTitle(), "Guida");
    EXPECT_EQ(finestra.pagina(), "inizio");
    EXPECT_EQ(trova<QTreeWidget>("indice")->currentItem()->text(0), "Benvenuti in Tabellino");
}

TEST_F(FinestraGuida, LIndiceApreLePagineELeSegue) {
    scegli("Lo spoglio delle vincite");
    EXPECT_EQ(finestra.pagina(), "spoglio");
    finestra.apri("stampa");
    EXPECT_EQ(trova<QTreeWidget>("indice")->currentItem()->text(0), "La stampa");
    // A chapter is no page.
    scegli("Il sistema");
    EXPECT_EQ(finestra.pagina(), "stampa");
}

TEST_F(FinestraGuida, IndietroEAvanti) {
    EXPECT_FALSE(trova<QWidget>("indietro")->isEnabled());
    scegli("I file e dove stanno");
    scegli("La tastiera");
    clic("indietro");
    EXPECT_EQ(finestra.pagina(), "file");
    tasto(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(finestra.pagina(), "inizio");
    EXPECT_FALSE(trova<QWidget>("indietro")->isEnabled());
    tasto(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(finestra.pagina(), "file");
    clic("avanti");
    EXPECT_EQ(finestra.pagina(), "tastiera");
    EXPECT_FALSE(trova<QWidget>("avanti")->isEnabled());
    tasto(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(finestra.pagina(), "inizio");
}

TEST_F(FinestraGuida, ICollegamentiSiSeguonoDallaTastiera) {
    trova<Foglio>("foglio")->setFocus();
    tasto(Qt::Key_Tab);
    tasto(Qt::Key_Return);
    EXPECT_EQ(finestra.pagina(), "cruciverba");
}

TEST_F(FinestraGuida, LaRicercaElencaEdEvidenzia) {
    cerca_parole("pannelli");
    auto* trovate = trova<QListWidget>("trovate");
    ASSERT_GE(trovate->count(), 1);
    EXPECT_TRUE(trovate->isVisible());
    EXPECT_FALSE(trova<QTreeWidget>("indice")->isVisible());
    EXPECT_TRUE(trova<QLabel>("esito")->text().contains("trovat"));
    tasto(Qt::Key_Return);
    EXPECT_EQ(finestra.pagina(), trovate->item(0)->data(Qt::UserRole).toString());
    ASSERT_FALSE(evidenziati().isEmpty());
    for (const QString& testo : evidenziati()) EXPECT_EQ(piana(testo), "pannelli");
}

TEST_F(FinestraGuida, F3PassaDaUnLuogoAllAltro) {
    finestra.apri("tipi");
    cerca_parole("garanzia");
    auto* foglio = trova<Foglio>("foglio");
    const auto segni = foglio->extraSelections();
    ASSERT_GT(segni.size(), 2);
    tasto(Qt::Key_F3);
    EXPECT_EQ(foglio->textCursor().position(), segni[0].cursor.selectionStart());
    tasto(Qt::Key_F3);
    EXPECT_EQ(foglio->textCursor().position(), segni[1].cursor.selectionStart());
    tasto(Qt::Key_F3, Qt::ShiftModifier);
    tasto(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(foglio->textCursor().position(), segni.last().cursor.selectionStart());
}

TEST_F(FinestraGuida, UnaRicercaVanaLoDice) {
    cerca_parole("zxqw");
    EXPECT_EQ(trova<QListWidget>("trovate")->count(), 0);
    EXPECT_EQ(trova<QLabel>("esito")->text(), "Nessuna pagina contiene queste parole.");
    tasto(Qt::Key_Return);
    EXPECT_EQ(finestra.pagina(), "inizio");
}

TEST_F(FinestraGuida, EscChiudeLaRicerca) {
    cerca_parole("cruciverba");
    EXPECT_FALSE(evidenziati().isEmpty());
    tasto(Qt::Key_Escape);
    EXPECT_TRUE(trova<QTreeWidget>("indice")->isVisible());
    EXPECT_FALSE(trova<QLabel>("esito")->isVisible());
    EXPECT_TRUE(evidenziati().isEmpty());
    EXPECT_TRUE(trova<Foglio>("foglio")->hasFocus());
}

TEST_F(FinestraGuida, F6PassaDallIndiceAllaPagina) {
    trova<Foglio>("foglio")->setFocus();
    tasto(Qt::Key_F6);
    EXPECT_TRUE(trova<QTreeWidget>("indice")->hasFocus());
    tasto(Qt::Key_Down);
    EXPECT_EQ(finestra.pagina(), "cruciverba");
    tasto(Qt::Key_F6);
    EXPECT_TRUE(trova<Foglio>("foglio")->hasFocus());
}

TEST_F(FinestraGuida, ICaratteriSiIngrandiscono) {
    auto* foglio = trova<Foglio>("foglio");
    const int prima = foglio->document()->defaultFont().pixelSize();
    clic("piu");
    EXPECT_EQ(foglio->document()->defaultFont().pixelSize(), prima + 2);
    tasto(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(foglio->document()->defaultFont().pixelSize(), prima);
    for (int i = 0; i < 30; ++i) clic("meno");
    EXPECT_GE(foglio->document()->defaultFont().pixelSize(), 9);
}

TEST_F(FinestraGuida, LeFigureStannoNellaPagina) {
    auto* foglio = trova<Foglio>("foglio");
    const auto larga = [&] {
        const QVariant figura =
            foglio->document()->resource(QTextDocument::ImageResource, QUrl("figure/form1.png"));
        const auto i = figura.value<QImage>();
        return i.width() / i.devicePixelRatio();
    };
    for (const int largo : {640, 1080, 780, 640}) {
        finestra.resize(largo, 500);
        QApplication::processEvents();
        EXPECT_EQ(foglio->horizontalScrollBar()->maximum(), 0) << largo;
        EXPECT_LE(larga(), foglio->viewport()->width()) << largo;
        EXPECT_GE(larga(), foglio->viewport()->width() * 9 / 10) << largo;
    }
}

TEST_F(FinestraGuida, OgniControlloHaUnNomePerChiNonVede) {
    for (const char* nome : {"ricerca", "indice", "trovate", "foglio", "indietro", "avanti",
                             "inizio", "meno", "piu", "stampa"}) {
        ASSERT_NE(trova<QWidget>(nome), nullptr) << nome;
        EXPECT_FALSE(trova<QWidget>(nome)->accessibleName().isEmpty()) << nome;
        EXPECT_NE(trova<QWidget>(nome)->focusPolicy() & Qt::TabFocus, 0) << nome;
    }
}

TEST_F(FinestraGuida, OgniAspettoLasciaLaPaginaLeggibile) {
    for (const char* aspetto : {"1", "2", "3"}) {
        QFile file(QString(SOURCE_DIR "/suite/skin/skin1_%1.skn").arg(aspetto));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << aspetto;
        finestra.setStyleSheet(QString::fromUtf8(file.readAll()));
        QApplication::processEvents();
        const QPalette colori = trova<Foglio>("foglio")->palette();
        EXPECT_EQ(colori.color(QPalette::Text), QColor("#10203A")) << aspetto;
        const QImage immagine = trova<Foglio>("foglio")->viewport()->grab().toImage();
        EXPECT_EQ(immagine.pixelColor(2, 2), QColor(Qt::white)) << aspetto;
    }
}

TEST_F(FinestraGuida, OgniPaginaSiStampa) {
    const support::Cartella cartella;
    for (const QString& pagina : tutte_le_pagine()) {
        finestra.apri(pagina);
        const std::string nome = cartella.file(pagina.toStdString() + ".pdf");
        QPdfWriter carta(QString::fromStdString(nome));
        carta.setPageSize(QPageSize(QPageSize::A4));
        finestra.stampa(carta);
        const std::string pdf = cartella.leggi(pagina.toStdString() + ".pdf");
        EXPECT_TRUE(pdf.starts_with("%PDF")) << nome;
        EXPECT_GT(pdf.size(), 5000U) << nome;
        // Letters of a readable size fill more than one sheet with the longest table.
        if (pagina != "garanzie") continue;
        const QByteArray dati = QByteArray::fromStdString(pdf);
        EXPECT_GT(dati.count("/Type /Page\n"), 2);
    }
}
