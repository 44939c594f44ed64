// Saving through the manager: names and overwriting.
#include <optional>

#include <QClipboard>
#include <QToolTip>

#include "platform/ambiente.h"
#include "platform/disk.h"
#include "support/riferimento.h"
#include "systems/apertura.h"

using namespace apertura;

namespace {

const Mostrato senza_nome{"Inserire il nome del sistema.", "Tabellino", Pulsanti::ok,
                          Icona::informazione};
const Mostrato esiste_gia{"Esiste già un sistema con questo nome. Sovrascrivere?", "Tabellino",
                          Pulsanti::si_no, Icona::nessuna};
void salva_con_nome(Programma& p, const std::function<void(Form2&)>& fare) {
    p.nel_gestore(fare);
    Programma::voce(p.form1.mnusalvanome);
}

}  // namespace

TEST(SalvaApri, UnNomeCheCominciaPerTempAvverte) {
    Programma p;
    p.riempi();
    p.nel_gestore([](Form2& f) {
        const int alta = f.height();
        QTest::keyClicks(f.Text1, "tem");
        EXPECT_FALSE(f.lblavviso->isVisible());
        QTest::keyClicks(f.Text1, "Poraneo");
        EXPECT_TRUE(f.lblavviso->isVisible());
        EXPECT_TRUE(f.lblavviso->text().contains("cestino"));
        EXPECT_FALSE(f.lblavviso->geometry().intersects(f.cmdsalva->geometry()));
        EXPECT_TRUE(f.pic_salva->rect().contains(f.cmdsalva->geometry()));
        EXPECT_TRUE(f.rect().contains(f.pic_salva->geometry()));
        f.Text1->clear();
        EXPECT_FALSE(f.lblavviso->isVisible());
        EXPECT_EQ(f.height(), alta);
        Programma::clic(f.cmdeffacer1);
    });
    Programma::voce(p.form1.mnusalvanome);
}

TEST(Nome, VuotoChiedeERidaLaCasella) {
    Programma p;
    p.riempi();
    salva_con_nome(p, [&p](Form2& form2) {
        form2.cmdsalva->setFocus();
        Programma::clic(form2.cmdsalva);
        EXPECT_EQ(p.mostrati(), Mostrati{senza_nome});
        EXPECT_EQ(form2.focusWidget(), form2.Text1);
        EXPECT_TRUE(form2.isVisible());
        Programma::clic(form2.cmdeffacer1);
    });
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_TRUE(platform::Dir(p.cartella.programma(), "*.sen").empty());
}

TEST(Nome, SoloCifreELettereMinuscole) {
    Programma p;
    p.riempi();
    salva_con_nome(p, [](Form2& form2) {
        EXPECT_EQ(form2.focusWidget(), form2.Text1);
        QTest::keyClicks(form2.Text1, "aZ09");
        EXPECT_EQ(form2.Text1->text(), "az09");
        for (const char rifiutato : std::string(" !\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~")) {
            QTest::keyClick(form2.Text1, rifiutato);
        }
        for (const char* lettera : {"è", "À", "ß"}) {
            QTest::sendKeyEvent(QTest::Click, form2.Text1, Qt::Key_unknown, QString(lettera),
                                Qt::NoModifier);
        }
        EXPECT_EQ(form2.Text1->text(), "az09");
        QTest::keyClick(form2.Text1, Qt::Key_Backspace);
        EXPECT_EQ(form2.Text1->text(), "az0");
        QApplication::clipboard()->setText("../x");
        form2.Text1->paste();
        EXPECT_EQ(form2.Text1->text(), "az0");
        QTest::keyClicks(form2.txtduplica, "Bc-D");
        EXPECT_EQ(form2.txtduplica->text(), "bcd");
        Programma::clic(form2.cmdsalva);
    });
    EXPECT_EQ(p.form1.Tag(), "az0");
    EXPECT_TRUE(p.cartella.esiste("az0.sen"));
}

TEST(Nome, InvioNellaCasellaSalva) {
    Programma p;
    p.riempi();
    salva_con_nome(p, [](Form2& form2) {
        QTest::keyClicks(form2.Text1, "invio");
        QTest::keyClick(form2.Text1, Qt::Key_Return);
    });
    EXPECT_EQ(p.form1.Tag(), "invio");
}

TEST(Sovrascrivi, NoLasciaTuttoELaFinestraAperta) {
    Programma p;
    p.cartella.scrivi("uno.sen", "0,5,5,\"6\",0,0,0,0\r\n");
    p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
    p.riempi();
    p.risposte = {vbNo};
    salva_con_nome(p, [](Form2& form2) {
        QTest::keyClicks(form2.Text1, "uno");
        Programma::clic(form2.cmdsalva);
        EXPECT_TRUE(form2.isVisible());
        Programma::clic(form2.cmdeffacer1);
    });
    EXPECT_EQ(p.mostrati(), Mostrati{esiste_gia});
    EXPECT_EQ(p.cartella.leggi("uno.sen"), "0,5,5,\"6\",0,0,0,0\r\n");
    EXPECT_TRUE(p.cartella.esiste("uno.col"));
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST(Sovrascrivi, SiTogliLoSviluppoDelGioco) {
    Programma p;
    p.cartella.scrivi("uno.sen", "0,5,5,\"6\",0,0,0,0\r\n");
    p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
    p.cartella.scrivi("uno.lot", "1,2,3,4,5\r\n");
    p.riempi();
    p.risposte = {vbYes};
    p.scrivi_nel_gestore("uno");
    Programma::voce(p.form1.mnusalva);
    EXPECT_EQ(p.mostrati(), Mostrati{esiste_gia});
    EXPECT_FALSE(p.cartella.esiste("uno.col"));
    EXPECT_TRUE(p.cartella.esiste("uno.lot"));
    EXPECT_EQ(p.cartella.leggi("uno.sen"),
              support::come_sistema("14,5,5,\"6\",0,0,0,0", p.griglia()));
    EXPECT_TRUE(p.form1.sessione.salvato());
}

TEST(Sovrascrivi, LoSviluppoVecchioSparisceAvantiCheIlSistemaSiScriva) {
    /// Whether the development still stood when the new system file took its name.
    struct Guarda : platform::Syscalls {
        int rename(const char* vecchio, const char* nuovo) override {
            if (std::string_view(nuovo).ends_with("/uno.sen")) stava.push_back(c_era());
            return Syscalls::rename(vecchio, nuovo);
        }
        std::function<bool()> c_era;
        std::vector<bool> stava;
    } guarda;
    Programma p;
    guarda.c_era = [&p] { return p.cartella.esiste("uno.col"); };
    p.cartella.scrivi("uno.sen", "0,5,5,\"6\",0,0,0,0\r\n");
    p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
    p.riempi();
    p.risposte = {vbYes};
    p.scrivi_nel_gestore("uno");
    auto posto = std::make_optional<platform::Ripristina<platform::Syscalls*>>(
        platform::ambiente().chiamate, &guarda);
    Programma::voce(p.form1.mnusalvanome);
    posto.reset();
    EXPECT_EQ(guarda.stava, std::vector<bool>{false});
}

TEST(Sovrascrivi, NelLottoTogliLotELasciaCol) {
    Programma p;
    p.cartella.scrivi("uno.sel", "0,4,4,\"2\",0,0,0,5,0\r\n");
    p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
    p.cartella.scrivi("uno.lot", "1,2,3,4,5\r\n");
    Programma::clic(p.form1.Image10);
    p.riempi();
    p.risposte = {vbYes};
    p.scrivi_nel_gestore("uno");
    Programma::voce(p.form1.mnusalva);
    EXPECT_EQ(p.mostrati(), Mostrati{esiste_gia});
    EXPECT_TRUE(p.cartella.esiste("uno.col"));
    EXPECT_FALSE(p.cartella.esiste("uno.lot"));
}

TEST(Sovrascrivi, SoloLeMaiuscoleDiversoELoStessoNome) {
    Programma p;
    p.cartella.scrivi("Uno.sen", "0,5,5,\"6\",0,0,0,0\r\n");
    p.riempi();
    p.risposte = {vbYes};
    p.scrivi_nel_gestore("uno");
    Programma::voce(p.form1.mnusalva);
    EXPECT_EQ(p.mostrati(), Mostrati{esiste_gia});
    EXPECT_EQ(platform::Dir(p.cartella.programma(), "*.sen").size(), 1U);
}

TEST(Sovrascrivi, UnNomeNuovoNelLottoLasciaStareIlSen) {
    Programma p;
    p.cartella.scrivi("uno.sen", "0,5,5,\"6\",0,0,0,0\r\n");
    Programma::clic(p.form1.Image10);
    p.riempi();
    p.scrivi_nel_gestore("uno");
    Programma::voce(p.form1.mnusalva);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(p.cartella.leggi("uno.sen"), "0,5,5,\"6\",0,0,0,0\r\n");
    EXPECT_TRUE(p.cartella.esiste("uno.sel"));
}

TEST(SalvaConNome, UnCarattereCheNonVaDiceQualiVanno) {
    Programma p;
    p.riempi();
    p.nel_gestore([](Form2& form2) {
        QTest::keyClicks(form2.Text1, "a");
        EXPECT_EQ(QToolTip::text(), "");
        QTest::keyClicks(form2.Text1, "_");
        EXPECT_EQ(form2.Text1->text(), "a");
        EXPECT_EQ(QToolTip::text(), "Il nome prende solo lettere senza accenti e cifre.");
        QToolTip::hideText();
        Programma::clic(form2.cmdeffacer1);
    });
    Programma::voce(p.form1.mnusalva);
}
