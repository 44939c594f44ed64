// The search for a table and its adoption, through real clicks: found, stopped, refused, closed.
#include <filesystem>

#include "analysis/frmcercatabella.h"
#include "analysis/frmtabelle.h"
#include "development/garanzie.h"
#include "support/finestre_aperte.h"

using analysis::frmcercatabella;
using analysis::frmtabelle;
using support::aperta;
using support::Programma;

namespace {

/// The first column, within the border, that differs from the ground.
int inchiostro(QWidget* w) {
    const QImage vista = w->grab().toImage();
    const int y = vista.height() / 2;
    for (int x = 3; x < vista.width(); ++x) {
        for (int dy = -4; dy <= 4; ++dy) {
            if (vista.pixelColor(x, y + dy).lightness() < 160) return x;
        }
    }
    return -1;
}

class CercaTabellaForm : public testing::Test {
protected:
    /// The window of the tables on a game, by its place in the list, and on lines of `n` numbers.
    frmtabelle& tabelle(int gioco, int n) {
        Programma::voce(p.form1.mnutabelle);
        auto* f = aperta<frmtabelle>();
        if (f == nullptr) throw std::runtime_error("no window");
        Programma::scegli(f->gioco, gioco);
        Programma::scegli(f->numeri, f->numeri->findText(QString::number(n)));
        return *f;
    }
    static frmcercatabella& cerca_da(frmtabelle& f, const QString& nome) {
        f.catalogo->griglia->selectRow(riga(f, nome));
        Programma::clic(f.cmdcerca);
        auto* dialogo = aperta<frmcercatabella>();
        if (dialogo == nullptr) throw std::runtime_error("no dialog");
        dialogo->activateWindow();
        QApplication::processEvents();
        return *dialogo;
    }
    /// Of tables of three numbers over a line of seven, three drawn and so many guessed.
    frmcercatabella& terzine_di_7(int indovinati, int colonne) {
        frmcercatabella& d = cerca_da(tabelle(1, 7), "tr0701");
        Programma::scegli(d.estratti, 1);
        Programma::scegli(d.indovinati, indovinati - 2);
        d.colonne->setValue(colonne);
        return d;
    }
    /// Row of a table in the catalogue; -1 when it is not there.
    static int riga(const frmtabelle& f, const QString& nome) {
        for (int y = 0; y < f.catalogo->griglia->rowCount(); ++y) {
            if (f.catalogo->griglia->item(y, 0)->text() == nome) return y;
        }
        return -1;
    }
    /// Acts, in the events of the running search, as soon as it has a table.
    void quando_ne_ha_una(std::function<void(frmcercatabella&)> fare) {
        QTimer::singleShot(0, &p.form1, [this, fare] {
            auto* f = aperta<frmcercatabella>();
            if (f == nullptr) return;
            if (!f->cmdferma->isEnabled() || f->trovata().empty()) {
                quando_ne_ha_una(fare);
                return;
            }
            fare(*f);
        });
    }
    /// Stops the search once it has a table of so many rows.
    void fermata_a(frmcercatabella& f, std::size_t righe) {
        if (f.trovata().size() <= righe) {
            Programma::clic(f.cmdferma);
            return;
        }
        QTimer::singleShot(0, &p.form1, [this, righe] {
            if (auto* in_corso = aperta<frmcercatabella>()) fermata_a(*in_corso, righe);
        });
    }
    [[nodiscard]] std::string nella_cartella(const std::string& nome) const {
        return p.cartella.radice() + "/ridotti/" + nome;
    }

    Programma p{true};
};

}  // namespace

TEST_F(CercaTabellaForm, TextOfTheCountStandsAsInTheLists) {
    frmcercatabella& d = terzine_di_7(2, 10);
    Programma::scegli(d.tempo, 0);
    ASSERT_EQ(d.tempo->currentText(), "10 secondi");
    ASSERT_EQ(d.colonne->text(), "10");
    EXPECT_NEAR(inchiostro(d.colonne), inchiostro(d.tempo), 1);
    d.close();
}

TEST_F(CercaTabellaForm, TrovaLaPiuPiccolaLaAdottaELaMostra) {
    std::filesystem::remove(nella_cartella("tr0722.rid"));
    frmtabelle& f = tabelle(1, 7);
    frmcercatabella& d = cerca_da(f, "tr0701");
    EXPECT_EQ(d.windowTitle(), "Cerca una tabella");
    EXPECT_EQ(d.estratti->currentText(), "2");
    EXPECT_EQ(d.indovinati->currentText(), "2");
    EXPECT_EQ(d.lblstato->text(), "Servono almeno 7 colonne.");
    EXPECT_FALSE(d.cmdferma->isEnabled());
    EXPECT_FALSE(d.cmdadotta->isEnabled());
    Programma::clic(d.cmdcerca);
    EXPECT_EQ(d.trovata().size(), 7U);
    EXPECT_EQ(d.lblstato->text(),
              "7 colonne, con 2 estratti almeno una riga con 2 numeri indovinati (ambo). Con meno "
              "non è possibile. tr0701 ne ha 7.");
    EXPECT_EQ(riga(f, "tr0770"), -1) << "nothing is adopted before it is asked for";
    Programma::clic(d.cmdadotta);
    EXPECT_EQ(d.lblstato->text(),
              "Adottata: tr0770.rid, negli elenchi con la garanzia più alta: con 5 estratti almeno "
              "una riga con 3 numeri indovinati (terno).");
    EXPECT_TRUE(std::filesystem::exists(nella_cartella("tr0770.rid")));
    EXPECT_FALSE(d.cmdadotta->isEnabled());
    ASSERT_GE(riga(f, "tr0770"), 0);
    EXPECT_EQ(f.catalogo->griglia->currentRow(), riga(f, "tr0770"));
    // The same rows are not taken twice.
    Programma::clic(d.cmdcerca);
    Programma::clic(d.cmdadotta);
    EXPECT_EQ(d.lblstato->text(), "Non adottata: c'è già, e si chiama tr0770.rid.");
    EXPECT_FALSE(std::filesystem::exists(nella_cartella("tr0771.rid")));
}

TEST_F(CercaTabellaForm, DiceQuantoSiRisparmiaSuUnaTabellaDetta) {
    frmtabelle& f = tabelle(0, 9);
    frmcercatabella& d = cerca_da(f, "cr0901");
    EXPECT_EQ(d.estratti->currentText(), "6");
    EXPECT_EQ(d.indovinati->currentText(), "5");
    Programma::scegli(d.tempo, 3);
    quando_ne_ha_una([this](frmcercatabella& in_corso) {
        EXPECT_FALSE(in_corso.CmdEsci->isEnabled());
        EXPECT_FALSE(in_corso.cmdcerca->isEnabled());
        EXPECT_TRUE(in_corso.ProgressBar1->isVisible());
        fermata_a(in_corso, 7);
    });
    Programma::clic(d.cmdcerca);
    EXPECT_TRUE(d.CmdEsci->isEnabled());
    EXPECT_FALSE(d.ProgressBar1->isVisible());
    EXPECT_EQ(d.lblstato->text(),
              "7 colonne, con 6 estratti almeno una riga con 5 numeri indovinati (cinquina). Meno "
              "di 5 colonne non è possibile. cr0901 ne ha 8: se ne risparmia una.");
}

TEST_F(CercaTabellaForm, EscapeFermaLaRicercaEPoiChiude) {
    frmtabelle& f = tabelle(0, 13);
    frmcercatabella& d = cerca_da(f, "cr1301");
    Programma::scegli(d.tempo, 3);
    // The list that was opened had the keyboard.
    d.activateWindow();
    QApplication::processEvents();
    quando_ne_ha_una([](frmcercatabella& in_corso) { QTest::keyClick(&in_corso, Qt::Key_Escape); });
    Programma::clic(d.cmdcerca);
    EXPECT_TRUE(d.isVisible());
    EXPECT_FALSE(d.trovata().empty());
    EXPECT_EQ(development::buchi({13, 6, d.trovata()}, {6, 5}, 0).quanti, 0U);
    EXPECT_TRUE(d.cmdadotta->isEnabled());
    QTest::keyClick(&d, Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_EQ(aperta<frmcercatabella>(), nullptr);
}

TEST_F(CercaTabellaForm, ChiusaMentreCercaSiFermaESiChiude) {
    frmtabelle& f = tabelle(0, 13);
    frmcercatabella& d = cerca_da(f, "cr1301");
    Programma::scegli(d.tempo, 3);
    quando_ne_ha_una([](frmcercatabella& in_corso) { in_corso.close(); });
    Programma::clic(d.cmdcerca);
    QApplication::processEvents();
    EXPECT_EQ(aperta<frmcercatabella>(), nullptr);
    EXPECT_TRUE(f.isVisible());
}

TEST_F(CercaTabellaForm, CioCheNonSiPuoHaIlSuoPerche) {
    frmtabelle& f = tabelle(0, 9);
    frmcercatabella& d = cerca_da(f, "cr0901");
    d.colonne->setValue(1);
    EXPECT_EQ(d.lblstato->text(),
              "Non si può: 1 riga è poca: per questa garanzia ne servono almeno 5.");
    Programma::clic(d.cmdcerca);
    EXPECT_TRUE(d.trovata().empty());
    EXPECT_FALSE(d.cmdadotta->isEnabled());
    // More drawn, and no more guessed than there were.
    Programma::scegli(d.estratti, 0);
    EXPECT_EQ(d.indovinati->count(), 1);
    EXPECT_EQ(d.indovinati->currentText(), "2");
}

TEST_F(CercaTabellaForm, ConLeColonneContateDiceQuanteVolteManca) {
    frmcercatabella& d = terzine_di_7(3, 34);
    EXPECT_EQ(d.lblstato->text(),
              "Non si può: 34 righe sono poche: per questa garanzia ne servono "
              "almeno 35.");
    d.colonne->setValue(35);
    Programma::clic(d.cmdcerca);
    EXPECT_EQ(d.trovata().size(), 35U);
}

TEST_F(CercaTabellaForm, LeColonneCheAvanzanoDiconoCheCosaComprano) {
    frmcercatabella& d = terzine_di_7(2, 10);
    Programma::clic(d.cmdcerca);
    EXPECT_EQ(d.trovata().size(), 10U);
    EXPECT_EQ(d.lblstato->text(),
              "10 colonne, con 3 estratti almeno una riga con 2 numeri indovinati (ambo). Meno di "
              "3 colonne non è possibile. 3 o più nel 28,6 % dei casi.");
}

TEST_F(CercaTabellaForm, UnaColonnaSolaStaAlSingolare) {
    EXPECT_EQ(cerca_da(tabelle(0, 6), "cr0600").lblstato->text(), "Serve almeno 1 colonna.");
}

TEST_F(CercaTabellaForm, NonSiEstraggonoPiuNumeriDiQuantiNeHannoGiocoELinea) {
    const auto elenco = [](const platform::ComboBox* c) {
        QStringList voci;
        for (int i = 0; i < c->count(); ++i) voci << c->itemText(i);
        return voci.join(" ");
    };
    frmcercatabella& d = cerca_da(tabelle(0, 9), "cr0901");
    EXPECT_EQ(elenco(d.estratti), "2 3 4 5 6");
    EXPECT_EQ(elenco(d.indovinati), "2 3 4 5 6");
    EXPECT_EQ(d.colonne->maximum(), 84);
    d.close();
    QApplication::processEvents();
    frmcercatabella& lotto = cerca_da(tabelle(1, 7), "tr0701");
    EXPECT_EQ(elenco(lotto.estratti), "2 3 4 5");
    Programma::scegli(lotto.estratti, 3);
    EXPECT_EQ(elenco(lotto.indovinati), "2 3") << "no more than a combination has";
    EXPECT_EQ(lotto.colonne->maximum(), 35);
}

TEST_F(CercaTabellaForm, UnaTabellaDiUnFileSiProvaESiAdotta) {
    p.cartella.scrivi("mia.rid", "1,2,3\r\n1,4\r\n");
    platform::scrivania().sceglie_file = [this] {
        return QStringList{QString::fromStdString(p.cartella.file("mia.rid"))};
    };
    frmtabelle& f = tabelle(1, 5);
    Programma::clic(f.cmdadotta);
    EXPECT_EQ(f.lblstato->text(), "Non adottata: riga 2: 2 posizioni invece di 3.");
    p.cartella.scrivi("mia.rid", "1,2,3\r\n");
    const int prima = f.catalogo->griglia->rowCount();
    Programma::clic(f.cmdadotta);
    EXPECT_EQ(f.lblstato->text(),
              "Adottata: tr0570.rid, con 5 estratti almeno una riga con 3 numeri indovinati "
              "(terno).");
    EXPECT_EQ(f.catalogo->griglia->rowCount(), prima + 1);
    EXPECT_EQ(f.catalogo->griglia->currentRow(), riga(f, "tr0570"));
    Programma::clic(f.cmdadotta);
    EXPECT_EQ(f.lblstato->text(), "Non adottata: c'è già, e si chiama tr0570.rid.");
    platform::scrivania().sceglie_file = [] { return QStringList(); };
    Programma::clic(f.cmdadotta);
    EXPECT_EQ(f.catalogo->griglia->rowCount(), prima + 1);
}

TEST_F(CercaTabellaForm, LAdottataStaSubitoNelleListeDelCruciverba) {
    p.dimensioni(9, 9);
    Programma::voce(p.form1.mnuEconomiche);
    const int prima = p.form1.Combo3->count();
    p.cartella.scrivi("mia.rid", "1,2,3,4,5,6\r\n1,2,3,7,8,9\r\n4,5,6,7,8,9\r\n1,2,4,5,7,8\r\n");
    platform::scrivania().sceglie_file = [this] {
        return QStringList{QString::fromStdString(p.cartella.file("mia.rid"))};
    };
    frmtabelle& f = tabelle(0, 9);
    Programma::clic(f.cmdadotta);
    EXPECT_EQ(p.form1.Combo3->count(), prima + 1) << f.lblstato->text().toStdString();
    EXPECT_EQ(p.form1.Combo3->ListIndex(), 0);
}
