// What those hear of the program who do not see it: cells, values, outcomes, and where the
// keyboard is.
#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>

#include "support/finestre_aperte.h"

namespace {

using support::Programma;

QString voce_di(QAccessibleInterface* chi, QAccessible::Text quale = QAccessible::Name) {
    return chi != nullptr ? chi->text(quale) : QStringLiteral("nessuno");
}

QString voce_di(QWidget* w, QAccessible::Text quale = QAccessible::Name) {
    return voce_di(QAccessible::queryAccessibleInterface(w), quale);
}

/// Hears what a screen reader is told.
class LetturaTest : public testing::Test {
protected:
    LetturaTest() {
        platform::scrivania().legge = [this](const QString& testo) { annunci_ << testo; };
    }
    /// What was read out since the last call.
    std::string detti() { return std::exchange(annunci_, {}).join('|').toStdString(); }
    [[nodiscard]] bool ha_udito() const { return !annunci_.isEmpty(); }
    static QAccessibleInterface* casella(QWidget* griglia, int riga, int colonna) {
        return QAccessible::queryAccessibleInterface(griglia)->tableInterface()->cellAt(riga,
                                                                                        colonna);
    }

    Programma p{true};

private:
    QStringList annunci_;
};

TEST_F(LetturaTest, UnaCasellaDiceIlNumeroEDoveSta) {
    p.cella(0, 0);
    p.numero(12);
    QWidget* griglia = p.form1.MSFlexGrid1;
    EXPECT_EQ(voce_di(casella(griglia, 0, 0)), "12");
    EXPECT_EQ(voce_di(casella(griglia, 0, 0), QAccessible::Description), "riga 1, colonna 1");
    EXPECT_EQ(voce_di(casella(griglia, 2, 4)), "");
    EXPECT_EQ(voce_di(casella(griglia, 2, 4), QAccessible::Description),
              "vuota, riga 3, colonna 5");
    p.form1.List1->setCurrentRow(0);
    QTest::keyClick(p.form1.List1, Qt::Key_Space);
    EXPECT_EQ(voce_di(casella(griglia, 0, 0)), "12, in evidenza");
}

TEST_F(LetturaTest, LeTestateNascosteNonDiconoNumeri) {
    for (platform::MSFlexGrid* g : {p.form1.MSFlexGrid1, p.form1.MSFlexGrid2}) {
        for (int c = 0; c < g->Cols(); ++c) {
            EXPECT_EQ(g->model()->headerData(c, Qt::Horizontal), "");
        }
        for (int r = 0; r < g->Rows(); ++r) {
            EXPECT_EQ(g->model()->headerData(r, Qt::Vertical), "");
        }
    }
}

TEST_F(LetturaTest, NelRiepilogoNessunaCasellaTace) {
    platform::MSFlexGrid* g = p.form1.MSFlexGrid2;
    for (int r = 0; r < g->Rows(); ++r) {
        for (int c = 0; c < g->Cols(); ++c) {
            EXPECT_NE(voce_di(casella(g, r, c)), "") << r << ' ' << c;
        }
    }
    EXPECT_EQ(voce_di(casella(g, 1, 2)), "Integrale");
    EXPECT_EQ(voce_di(casella(g, 2, 1)), "6");
    EXPECT_EQ(voce_di(casella(g, 2, 1), QAccessible::Description), "Verticali, Numero");
    EXPECT_EQ(voce_di(casella(g, 5, 3)), "vuota");
    EXPECT_EQ(voce_di(casella(g, 0, 1), QAccessible::Description), "");
}

TEST_F(LetturaTest, UnNumeroRifiutatoDicePercheOgniVolta) {
    p.cella(0, 0);
    p.numero(12);
    detti();
    for (int volta = 0; volta < 2; ++volta) {
        QTest::keyClicks(p.form1.MSFlexGrid1, "12");
        EXPECT_EQ(detti(), "Il 12 sta già sulla riga di questa casella.");
    }
    EXPECT_EQ(p.form1.lblpasso->text(), "Mancano 35 numeri");
    QTest::keyClicks(p.form1.MSFlexGrid1, "99");
    EXPECT_EQ(detti(), "I numeri vanno da 1 a 90.");
    p.numero(13);
    EXPECT_EQ(detti(), "Mancano 34 numeri");
    EXPECT_EQ(voce_di(p.form1.lblpasso), "Mancano 34 numeri");
}

TEST_F(LetturaTest, UnValoreDiceDiCheCosaE) {
    p.riempi_e_salva("prova");
    EXPECT_EQ(voce_di(p.form1.lblsistema), "Sistema in linea: prova");
    EXPECT_EQ(voce_di(p.form1.lblimportotot), "Importo totale: 7,00");
    EXPECT_EQ(voce_di(p.form1.lblngioco), "Numeri in gioco: " + p.form1.lblngioco->text());
}

TEST_F(LetturaTest, IlVisualizzatoreDiceLaPaginaELaRicercaQuanteNeHaTrovate) {
    p.dimensioni(8, 8);
    p.riempi_e_salva("prova");
    p.comando(1);
    p.mostrati();
    p.comando(2);
    auto* visore = support::aperta<viewer::Form3>();
    ASSERT_NE(visore, nullptr);
    detti();
    QTest::keyClick(visore, Qt::Key_PageDown);
    EXPECT_EQ(detti(), "Pagina 2 di " + visore->lblpag[1]->text().toStdString());
    Programma::clic(visore->strumenti->cmdcerca);
    auto* cerca = support::aperta<viewer::frmcerca>();
    ASSERT_NE(cerca, nullptr);
    detti();
    cerca->txtnumeri->setText("99");
    EXPECT_EQ(detti(), "I numeri vanno da 1 a 90");
    cerca->txtnumeri->setText(QString::number(p.griglia()[0][0]));
    EXPECT_EQ(detti(), cerca->lbltrovate->text().toStdString());
    EXPECT_EQ(voce_di(cerca->lbltrovate), cerca->lbltrovate->text());
    visore->close();
}

TEST_F(LetturaTest, LoSpoglioDiceQuantoSiVince) {
    p.riempi_e_salva("prova");
    p.comando(1);
    p.mostrati();
    const auto numeri = p.griglia();
    p.comando(6);
    auto* f = support::aperta<check::frmspoglio>();
    ASSERT_NE(f, nullptr);
    for (std::size_t i = 0; i < 6; ++i) f->txtnum[i + 1]->setText(QString::number(numeri[i][0]));
    f->txtnum[0]->setText(QString::number(numeri[0][1]));
    detti();
    Programma::clic(f->Cmdspoglio);
    EXPECT_EQ(voce_di(f->lblvinc[6]), "Punti 6: 1");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(f->lblvinc[0])->role(),
              QAccessible::Notification);
    EXPECT_EQ(voce_di(f->lblvinc[5]), "Punti 5");
    ASSERT_TRUE(QTest::qWaitFor([this] { return ha_udito(); }));
    const std::string udito = detti();
    EXPECT_EQ(udito.rfind("Totale Comb. Vincenti: 1. Punti 6: 1", 0), 0U) << udito;
    EXPECT_EQ(voce_di(casella(f->MSFlexGrid1, 0, 0)),
              QString::number(numeri[0][0]) + ", in evidenza");
    Programma::clic(f->Command1);
    EXPECT_EQ(voce_di(f->lblvinc[0]), "");
    Programma::clic(f->CmdEsci);
}

TEST_F(LetturaTest, UnImmagineCheNonFaNullaSiGuardaSoltanto) {
    QAccessibleInterface* muta = QAccessible::queryAccessibleInterface(p.form1.Image7);
    EXPECT_EQ(muta->role(), QAccessible::Graphic);
    EXPECT_FALSE(
        muta->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    QAccessibleInterface* esci = QAccessible::queryAccessibleInterface(p.form1.Image3[0]);
    EXPECT_EQ(esci->role(), QAccessible::Button);
    EXPECT_EQ(voce_di(esci), "Nuovo cruciverba (Ctrl+N)");
    EXPECT_EQ(voce_di(esci, QAccessible::Description), "");
}

TEST_F(LetturaTest, ChiPremeConUnAusilioDaIlComando) {
    p.cella(0, 0);
    p.numero(12);
    QAccessible::queryAccessibleInterface(p.form1.Image3[3])
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(p.form1.MSFlexGrid1->testo(0, 0), QString());
}

TEST_F(LetturaTest, NessunaDescrizioneRipeteIlNome) {
    support::FinestreAperte(p, [](QWidget& finestra, const std::string& nome) {
        for (QWidget* w : finestra.findChildren<QWidget*>()) {
            if (!w->isVisible() || w->focusPolicy() == Qt::NoFocus) continue;
            const QString detto = voce_di(w);
            EXPECT_TRUE(detto.isEmpty() || voce_di(w, QAccessible::Description) != detto)
                << nome << ": " << detto.toStdString();
        }
        for (platform::Frame* f : finestra.findChildren<platform::Frame*>()) {
            EXPECT_EQ(QAccessible::queryAccessibleInterface(f)->role(), QAccessible::Grouping);
        }
    }).tutte();
}

}  // namespace
