// A better layout through real clicks and keys: found, used, undone, refused, broken off.
#include "analysis/cruciverba_prova.h"
#include "analysis/frmmigliora.h"
#include "support/finestre_aperte.h"

using analysis::frmanalisi;
using analysis::frmmigliora;
using crossword::Matrice;
using support::aperta;
using support::Programma;

namespace {

class MiglioraForm : public testing::Test {
protected:
    /// A random crossword of seven by seven in line, analysed, and the dialog over the analysis.
    frmmigliora& apri(int numeri = 16) {
        p.dimensioni(7, 7);
        prova::Caso caso(3);  // NOLINT: the same crossword every run
        const auto m = prova::cruciverba(caso, 7, 7, prova::numeri_a_caso(caso, numeri));
        for (int i = 0; i < 49; ++i) p.form1.sessione.posa({i % 7, i / 7}, (*m)(i % 7, i / 7));
        return dialogo();
    }
    frmmigliora& dialogo() {
        p.cartella.scrivi(p.form1.sessione.gioco().e_lotto() ? "s.lot" : "s.col",
                          p.form1.sessione.gioco().e_lotto() ? "1,2,3,4,5\r\n" : "1,2,3,4,5,6\r\n");
        p.form1.sessione.in_linea("s");
        p.form1.sessione.segna_salvato(true);
        Programma::voce(p.form1.mnuanalisi);
        auto* analisi = aperta<frmanalisi>();
        if (analisi == nullptr) throw std::runtime_error("no analysis");
        Programma::clic(analisi->cmdmigliora);
        auto* f = aperta<frmmigliora>();
        if (f == nullptr) throw std::runtime_error("no dialog");
        f->activateWindow();
        QApplication::processEvents();
        return *f;
    }
    /// Acts, in the events of the running search, as soon as it has found something better.
    void quando_e_migliorata(std::function<void(frmmigliora&)> fare) {
        QTimer::singleShot(0, &p.form1, [this, fare] {
            auto* f = aperta<frmmigliora>();
            if (f == nullptr) return;
            const auto& voci = f->grafico->voci();
            if (!f->cmdferma->isEnabled() || voci.size() < 2 || voci[1].valore <= voci[0].valore) {
                quando_e_migliorata(fare);
                return;
            }
            fare(*f);
        });
    }
    void cerca_e_ferma(frmmigliora& f) {
        Programma::scegli(f.tempo, 2);
        quando_e_migliorata([](frmmigliora& in_corso) {
            EXPECT_FALSE(in_corso.CmdEsci->isEnabled());
            EXPECT_TRUE(in_corso.ProgressBar1->isVisible());
            Programma::clic(in_corso.cmdferma);
        });
        Programma::clic(f.cmdcerca);
    }
    [[nodiscard]] const Matrice& matrice() const { return p.form1.sessione.matrice(); }
    static analysis::Celle ordinate(const Matrice& m) {
        analysis::Celle c = prova::celle(m);
        std::sort(c.begin(), c.end());
        return c;
    }

    Programma p{true};
};

}  // namespace

TEST_F(MiglioraForm, ItStandsOverTheAnalysisAndGrowsWithinTheScreen) {
    frmmigliora& f = apri();
    const QWidget* analisi = aperta<frmanalisi>();
    const QPoint scarto = f.geometry().center() - analisi->geometry().center();
    EXPECT_LE(scarto.manhattanLength(), 4);
    const QRect schermo = f.screen()->availableGeometry();
    f.move(schermo.bottomRight() - QPoint(f.width(), f.height()));
    QApplication::processEvents();
    cerca_e_ferma(f);
    EXPECT_TRUE(f.confronto->isVisible());
    EXPECT_TRUE(schermo.contains(f.frameGeometry()));
}

TEST_F(MiglioraForm, EscapeStopsTheSearchAndThenCloses) {
    frmmigliora& f = apri();
    Programma::scegli(f.tempo, 2);
    f.activateWindow();
    QApplication::processEvents();
    quando_e_migliorata([](frmmigliora& in_corso) { QTest::keyClick(&in_corso, Qt::Key_Escape); });
    Programma::clic(f.cmdcerca);
    EXPECT_TRUE(f.isVisible());
    EXPECT_TRUE(f.cmdusa->isEnabled());
    QTest::keyClick(&f, Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_EQ(aperta<frmmigliora>(), nullptr);
}

TEST_F(MiglioraForm, UsaLaysWhatWasFoundAsOneStepThatCanBeUndone) {
    frmmigliora& f = apri();
    EXPECT_EQ(f.windowTitle(), "Migliora la disposizione");
    EXPECT_FALSE(f.cmdusa->isEnabled());
    EXPECT_FALSE(f.cmdferma->isEnabled());
    const Matrice prima = matrice();
    cerca_e_ferma(f);
    ASSERT_TRUE(f.trovata());
    EXPECT_TRUE(f.lblstato->text().startsWith("3 punti o meglio nel "))
        << f.lblstato->text().toStdString();
    EXPECT_TRUE(f.confronto->isVisible());
    EXPECT_EQ(f.confronto->griglia->rowCount(), 7);
    EXPECT_EQ(f.confronto->griglia->item(2, 0)->text(), "3 punti o meglio");
    EXPECT_TRUE(f.confronto->griglia->item(2, 3)->text().startsWith("+"));
    EXPECT_EQ(matrice(), prima) << "nothing is laid before it is asked for";
    Programma::clic(f.cmdusa);
    QApplication::processEvents();
    EXPECT_EQ(aperta<frmmigliora>(), nullptr);
    EXPECT_EQ(aperta<frmanalisi>(), nullptr);
    EXPECT_NE(matrice(), prima);
    EXPECT_TRUE(analysis::regolare(matrice()));
    EXPECT_EQ(ordinate(matrice()), ordinate(prima));
    EXPECT_FALSE(p.form1.sessione.salvato());
    EXPECT_TRUE(p.form1.lblanalisi->text().endsWith("Ctrl+Z: come prima"));
    EXPECT_EQ(p.form1.MSFlexGrid1->model()->index(0, 0).data().toString().toInt(), matrice()(0, 0));
    p.form1.annulla->trigger();
    EXPECT_EQ(matrice(), prima);
    p.form1.ripeti->trigger();
    EXPECT_NE(matrice(), prima);
}

TEST_F(MiglioraForm, AnnullaLeavesAllAsItWas) {
    frmmigliora& f = apri();
    const Matrice prima = matrice();
    cerca_e_ferma(f);
    ASSERT_TRUE(f.trovata());
    Programma::clic(f.CmdEsci);
    EXPECT_EQ(aperta<frmmigliora>(), nullptr);
    EXPECT_NE(aperta<frmanalisi>(), nullptr);
    EXPECT_EQ(matrice(), prima);
    EXPECT_TRUE(p.form1.sessione.salvato());
}

TEST_F(MiglioraForm, NumbersThatAreHeldStay) {
    frmmigliora& f = apri();
    const Matrice prima = matrice();
    const auto clic = [&f](int riga, int colonna) {
        const QRect dove = f.griglia->visualItemRect(f.griglia->item(riga, colonna));
        QTest::mouseClick(f.griglia->viewport(), Qt::LeftButton, {}, dove.center());
    };
    const QString numero = QString::number(prima(2, 1));
    clic(1, 2);
    EXPECT_EQ(f.griglia->item(1, 2)->text(), "[" + numero + "]");
    EXPECT_EQ(f.griglia->item(1, 2)->data(Qt::AccessibleTextRole).toString(), numero + ", fermo");
    clic(1, 2);
    EXPECT_EQ(f.griglia->item(1, 2)->text(), numero);
    f.griglia->setFocus();
    for (int riga = 0; riga < 5; ++riga) {
        f.griglia->setCurrentCell(riga, 4);
        QTest::keyClick(f.griglia, Qt::Key_Space);
        EXPECT_TRUE(f.griglia->item(riga, 4)->text().startsWith("["));
    }
    cerca_e_ferma(f);
    ASSERT_TRUE(f.trovata());
    Programma::clic(f.cmdusa);
    for (int riga = 0; riga < 5; ++riga) EXPECT_EQ(matrice()(4, riga), prima(4, riga));
    EXPECT_NE(matrice(), prima);
}

TEST_F(MiglioraForm, ASecondSearchGoesOnAndAnotherAimBeginsAnew) {
    frmmigliora& f = apri();
    cerca_e_ferma(f);
    ASSERT_TRUE(f.trovata());
    const double prima = f.grafico->voci()[0].valore;
    const double trovata = f.grafico->voci()[1].valore;
    cerca_e_ferma(f);
    ASSERT_TRUE(f.trovata());
    EXPECT_EQ(f.grafico->voci()[0].valore, prima);
    EXPECT_GE(f.grafico->voci()[1].valore, trovata);
    Programma::scegli(f.scopo, 2);
    EXPECT_FALSE(f.trovata());
    EXPECT_FALSE(f.cmdusa->isEnabled());
    EXPECT_FALSE(f.confronto->isVisible());
    EXPECT_EQ(f.grafico->voci().size(), 1);
}

TEST_F(MiglioraForm, AGeneratedCrosswordKeepsItsClassesOfDelay) {
    for (const bool lotto : {false, true}) {
        Programma q{true};
        if (lotto) Programma::clic(q.form1.Image10);
        if (lotto) Programma::scegli(q.form1.Combo6, 3);
        q.dimensioni(7, 7);
        Programma::clic(lotto ? q.form1.cmdstat2 : q.form1.cmdstat);
        const Matrice prima = q.form1.sessione.matrice();
        const auto classi = q.form1.sessione.classi_generate();
        ASSERT_TRUE(classi);
        EXPECT_TRUE(q.form1.lblpasso->text().startsWith("Generato: salvatelo (Ctrl+S); Ctrl+M"));
        q.form1.mnumigliora->trigger();
        auto* f = aperta<frmmigliora>();
        ASSERT_NE(f, nullptr);
        EXPECT_TRUE(f->chkclassi->isVisible());
        EXPECT_TRUE(f->chkclassi->isChecked());
        cerca_e_ferma(*f);
        ASSERT_TRUE(f->trovata());
        Programma::clic(f->cmdusa);
        EXPECT_TRUE(q.form1.isVisible());
        EXPECT_NE(q.form1.sessione.matrice(), prima);
        EXPECT_TRUE(stesse_classi(prima, q.form1.sessione.matrice(), *classi));
        EXPECT_EQ(q.form1.sessione.classi_generate(), classi);
        q.form1.annulla->trigger();
        EXPECT_EQ(q.form1.sessione.matrice(), prima);
        EXPECT_EQ(q.form1.sessione.classi_generate(), classi);
    }
}

TEST_F(MiglioraForm, OneLaidByHandHasNoClassesToKeep) {
    Programma q{true};
    q.riempi();
    EXPECT_FALSE(q.form1.sessione.classi_generate());
    q.form1.mnumigliora->trigger();
    auto* f = aperta<frmmigliora>();
    ASSERT_NE(f, nullptr);
    EXPECT_FALSE(f->chkclassi->isVisible());
}

TEST_F(MiglioraForm, WhereANumberIsMissingItSaysSoAndDoesNotOpen) {
    Programma q{true};
    Programma::clic(q.form1.cmdstat);
    q.form1.sessione.rimuovi({0, 0});
    EXPECT_FALSE(q.form1.sessione.classi_generate());
    q.form1.mnumigliora->trigger();
    EXPECT_EQ(aperta<frmmigliora>(), nullptr);
    EXPECT_EQ(q.form1.lblpasso->text(),
              "Si dispone meglio un cruciverba completo: mancano dei numeri");
}

TEST_F(MiglioraForm, ClosedWhileItSearchesItGoesAndTheCrosswordStays) {
    frmmigliora& f = apri();
    const Matrice prima = matrice();
    Programma::scegli(f.tempo, 2);
    bool visto = false;
    quando_e_migliorata([&](frmmigliora& in_corso) {
        visto = true;
        in_corso.close();
    });
    Programma::clic(f.cmdcerca);
    EXPECT_TRUE(visto);
    EXPECT_EQ(aperta<frmmigliora>(), nullptr);
    EXPECT_NE(aperta<frmanalisi>(), nullptr);
    EXPECT_EQ(matrice(), prima);
    EXPECT_TRUE(p.form1.sessione.salvato());
}

TEST_F(MiglioraForm, ClosedWithTheMainFormWhileItSearches) {
    frmmigliora& f = apri();
    const Matrice prima = matrice();
    Programma::scegli(f.tempo, 2);
    quando_e_migliorata([this](frmmigliora&) { p.form1.close(); });
    Programma::clic(f.cmdcerca);
    EXPECT_EQ(aperta<frmmigliora>(), nullptr);
    EXPECT_EQ(aperta<frmanalisi>(), nullptr);
    EXPECT_FALSE(p.form1.isVisible());
    EXPECT_EQ(matrice(), prima);
}

TEST_F(MiglioraForm, ACrosswordAgainstTheRuleIsTold) {
    p.riempi();
    p.apri_cosi([](systems::Sistema& s) { s.matrice.scrivi(1, 0, s.matrice(0, 0)); });
    frmmigliora& f = dialogo();
    Programma::clic(f.cmdcerca);
    EXPECT_TRUE(f.lblstato->text().startsWith("Il cruciverba non segue la regola"));
    EXPECT_FALSE(f.trovata());
    EXPECT_FALSE(f.cmdusa->isEnabled());
    EXPECT_TRUE(f.cmdcerca->isEnabled());
}

TEST_F(MiglioraForm, TheAimsAreThoseOfTheForm) {
    Programma::clic(p.form1.Image10);
    Programma::clic(p.form1.Imageb[0]);
    ASSERT_EQ(p.form1.sessione.gioco(), crossword::Gioco::lotto(3));
    p.riempi();
    frmmigliora& f = dialogo();
    ASSERT_EQ(f.scopo->count(), 2);
    EXPECT_EQ(f.scopo->itemText(0), "ambo o meglio");
    EXPECT_EQ(f.scopo->itemText(1), "terno o meglio");
    EXPECT_EQ(f.scopo->ListIndex(), 1);
}
