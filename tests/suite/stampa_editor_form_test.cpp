// The window that tells where the cells of a player's slip are.
#include <filesystem>
#include <fstream>

#include <QImage>
#include <QTimer>

#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"
#include "platform/qt/printer_qt.h"
#include "platform/qt/scrivania.h"
#include "stampa/editor.h"
#include "stampa/tavolo.h"
#include "support/cartella.h"
#include "support/pdf.h"

using platform::q;
using schedine::Editor;
using schedine::Punto;

namespace {

class EditorModulo : public testing::Test {
protected:
    EditorModulo() {
        platform::scrivania().stampa_solo_su_file = true;
        platform::scrivania().risponde = [this](const platform::Messaggio& m) {
            messaggi << m.testo;
            return m.pulsanti == platform::Pulsanti::si_no ? risposta : platform::vbOK;
        };
    }
    Editor& apri(const QString& nome = {}) {
        e = std::make_unique<Editor>(radice(), nome, nullptr);
        e->show();
        e->activateWindow();
        QApplication::processEvents();
        return *e;
    }
    void clic(Punto p) {
        QTest::mouseClick(e->tavolo, Qt::LeftButton, {}, e->tavolo->sul_tavolo(p).toPoint());
    }
    static void premi(QWidget* w) { QTest::mouseClick(w, Qt::LeftButton); }
    void scrivi(const char* campo, const QString& testo) {
        auto* t = e->findChild<QLineEdit*>(campo);
        ASSERT_NE(t, nullptr) << campo;
        t->setFocus();
        t->selectAll();
        QTest::keyClicks(t, testo);
    }
    [[nodiscard]] std::string radice() const { return cartella.radice() + "/"; }
    [[nodiscard]] schedine::Modulo salvato(const std::string& nome) const {
        schedine::Modulo m;
        const auto difetto = schedine::leggi_modulo(schedine::file_modulo(radice(), nome), m);
        EXPECT_FALSE(difetto) << difetto->testo();
        return m;
    }

    support::Cartella cartella;
    QStringList messaggi;
    int risposta = platform::vbYes;
    std::unique_ptr<Editor> e;
    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
};

}  // namespace

TEST_F(EditorModulo, UnoNuovoSiSalvaERitornaUguale) {
    apri();
    EXPECT_EQ(e->lbldifetto->text(), "Le misure sono in ordine.");
    premi(e->cmdsalva);
    EXPECT_EQ(messaggi, QStringList{"Date un nome al modulo."});
    QTest::keyClicks(e->txtnome, "la mia");
    premi(e->cmdsalva);
    EXPECT_EQ(e->salvato(), "la mia");
    EXPECT_EQ(salvato("la mia"), schedine::Modulo());
    apri("la mia");
    scrivi("passo_x", "61");
    premi(e->cmdsalva);
    EXPECT_EQ(salvato("la mia").passo.x, 61);
    EXPECT_EQ(messaggi.size(), 1);
}

TEST_F(EditorModulo, QuattroClicDannoLaGriglia) {
    apri();
    premi(e->cmdangoli);
    EXPECT_TRUE(e->lblguida->text().contains("in alto a sinistra"));
    clic({150, 260});
    EXPECT_TRUE(e->lblguida->text().contains("in alto a destra"));
    clic({600, 260});
    clic({600, 500});
    EXPECT_TRUE(e->lblguida->text().contains("in basso a sinistra"));
    clic({150, 500});
    // A pixel of the desk is some three tenths of a millimetre.
    EXPECT_NEAR(e->modulo().origine.x, 150, 2);
    EXPECT_NEAR(e->modulo().origine.y, 260, 2);
    EXPECT_EQ(e->modulo().passo, (schedine::Posto{50, 30}));
    clic({300, 300});
    EXPECT_NEAR(e->modulo().origine.x, 150, 2) << "a click that nothing waits for does nothing";
}

TEST_F(EditorModulo, UnClicAggiungeUnPannello) {
    apri();
    e->txtposti->setPlainText("pannello = 0, 0");
    premi(e->cmdpannello);
    clic({100, 900});
    ASSERT_EQ(e->modulo().pannelli.size(), 2U);
    EXPECT_NEAR(e->modulo().pannelli[1].x, 0, 2);
    EXPECT_NEAR(e->modulo().pannelli[1].y, 700, 2);
}

TEST_F(EditorModulo, IlDifettoSiDiceENonSiSalva) {
    apri();
    e->show();
    QString udito;
    platform::scrivania().legge = [&](const QString& testo) { udito = testo; };
    scrivi("passo_x", "0");
    EXPECT_EQ(e->lbldifetto->text(), "campo passo: il valore 1 non va da 5 a 1000");
    EXPECT_EQ(udito, e->lbldifetto->text());
    EXPECT_FALSE(e->cmdsalva->isEnabled());
    EXPECT_FALSE(e->cmdprova->isEnabled());
    scrivi("passo_x", "60");
    EXPECT_TRUE(e->cmdsalva->isEnabled());
    e->txtposti->setPlainText("pannello = 0, 0\nruota = Atene, 1, 2");
    EXPECT_EQ(e->lbldifetto->text(), "riga 2, campo ruota: il valore 1 non è il nome di una ruota");
}

TEST_F(EditorModulo, UnImmagineCheNonLoEHaUnaParola) {
    apri();
    cartella.scrivi("falsa.png", "\x89PNG\r\n non lo è");
    const QString falsa = q(cartella.file("falsa.png"));
    platform::scrivania().sceglie_file = [&] { return QStringList{falsa}; };
    premi(e->cmdimmagine);
    EXPECT_EQ(messaggi, QStringList{"Questo file non è un'immagine che si possa leggere:\n" +
                                    platform::da_mostrare(falsa)});
    const QString vera = q(cartella.file("vera.png"));
    QImage immagine(100, 200, QImage::Format_RGB32);
    immagine.fill(QColor("#40A060"));
    ASSERT_TRUE(immagine.save(vera));
    platform::scrivania().sceglie_file = [&] { return QStringList{vera}; };
    premi(e->cmdimmagine);
    EXPECT_EQ(messaggi.size(), 1);
    EXPECT_EQ(e->tavolo->grab().toImage().pixelColor(20, 20), QColor("#40A060"));
}

TEST_F(EditorModulo, LaPaginaDiProvaEsceAMisura) {
    const std::string file = cartella.radice() + "/prova.pdf";
    platform::scrivania().sceglie_nuovo_file = [&](const QString&) { return q(file); };
    apri();
    premi(e->cmdprova);
    EXPECT_EQ(support::pagine(file), 1);
    EXPECT_NEAR(support::misura_pagina(file).first, 1000 / 254.0 * 72, 0.6);
    const support::Immagine foto = support::fotografa(file, 1, 300);
    const Punto p = schedine::cella(e->modulo(), 0, 90);
    EXPECT_TRUE(foto.scuro(p.x / 254 * 300, p.y / 254 * 300));
}

TEST_F(EditorModulo, NonSalvatoChiede) {
    apri();
    premi(e->cmdchiudi);
    EXPECT_TRUE(messaggi.isEmpty());
    apri();
    scrivi("passo_x", "61");
    risposta = platform::vbNo;
    premi(e->cmdchiudi);
    EXPECT_TRUE(e->isVisible());
    risposta = platform::vbYes;
    premi(e->cmdchiudi);
    EXPECT_FALSE(e->isVisible());
}

TEST_F(EditorModulo, UnNomeCheCeGiaChiede) {
    apri();
    QTest::keyClicks(e->txtnome, "mia");
    premi(e->cmdsalva);
    apri();
    QTest::keyClicks(e->txtnome, "mia");
    risposta = platform::vbNo;
    premi(e->cmdsalva);
    EXPECT_EQ(messaggi, QStringList{"Il modulo «mia» c'è già. Si sostituisce?"});
    EXPECT_TRUE(e->isVisible());
}

TEST_F(EditorModulo, DiUnFileGuastoMostraQuelloCheHaLetto) {
    std::filesystem::create_directories(radice() + "schedine");
    std::ofstream(radice() + "schedine/mia.mod") << "foglio = 777, 888\npasso = 0, 3\n";
    apri("mia");
    EXPECT_EQ(e->txtcampo[0][0]->text(), "777");
    EXPECT_TRUE(e->lblguida->text().contains("riga 2, campo passo"));
    EXPECT_FALSE(e->cmdsalva->isEnabled());
    risposta = platform::vbYes;
    premi(e->cmdchiudi);
    EXPECT_EQ(messaggi.size(), 1) << "what is not in order is not saved either";
}
