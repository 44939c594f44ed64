// The crossword laid with the mouse and the keyboard: board, line rule, cursor, highlights.
#include <set>

#include "support/programma.h"

using support::Programma;

namespace {

QColor bgr(int valore) {
    return {valore & 0xFF, (valore >> 8) & 0xFF, (valore >> 16) & 0xFF};
}

const QColor bianco = bgr(16777215);

/// Numbers that the board refuses.
std::set<int> vietati(const Programma& p) {
    std::set<int> numeri;
    for (int i = 1; i <= 90; ++i) {
        if (!p.form1.CMDnum[static_cast<std::size_t>(i)]->isEnabled()) numeri.insert(i);
    }
    return numeri;
}

/// Puts a number in a cell with the mouse.
void metti(Programma& p, int riga, int colonna, int numero) {
    p.cella(riga, colonna);
    p.numero(numero);
}

void clic_lista(Programma& p, int indice) {
    const QRect dove = p.form1.List1->visualItemRect(p.form1.List1->item(indice));
    QTest::mouseClick(p.form1.List1->viewport(), Qt::LeftButton, {}, dove.center());
}

/// Cells, as row * 100 + column, that have a colour.
std::set<int> colorate(const Programma& p, const QColor& colore) {
    std::set<int> celle;
    for (int r = 0; r < p.form1.MSFlexGrid1->Rows(); ++r) {
        for (int c = 0; c < p.form1.MSFlexGrid1->Cols(); ++c) {
            if (p.form1.MSFlexGrid1->sfondo(r, c) == colore) celle.insert(r * 100 + c);
        }
    }
    return celle;
}

}  // namespace

TEST(Tabellone, NovantaNumeriInNoveRigheDaDieci) {
    Programma p;
    const QPoint primo = p.form1.CMDnum[1]->pos();
    for (int i = 1; i <= 90; ++i) {
        const QPushButton* b = p.form1.CMDnum[static_cast<std::size_t>(i)];
        EXPECT_EQ(b->text(), QString::number(i));
        EXPECT_EQ(b->size(), QSize(24, 24));
        EXPECT_EQ(b->pos() - primo, QPoint((i - 1) % 10 * 24, (i - 1) / 10 * 24)) << i;
        EXPECT_EQ(b->parent(), p.form1.Frame3);
        EXPECT_TRUE(b->isVisible() && b->isEnabled()) << i;
    }
    EXPECT_FALSE(p.form1.CMDnum[0]->isVisible());
    EXPECT_FALSE(p.form1.Frame3->rect().intersects(p.form1.CMDnum[0]->geometry()));
}

TEST(Griglia, MisureInTwipsPerOgniDimensione) {
    Programma p;
    for (int c = 6; c <= 15; ++c) {
        for (int r = 6; r <= 15; ++r) {
            p.form1.Combo1->setCurrentIndex(c - 6);
            Programma::scegli(p.form1.Combo2, r - 6);
            const int alta = r < 11 && c >= 11 ? r * 300 + 45 : r < 10 ? r * 300 + 105 : 3045;
            const int larga = r >= 11 ? c * 300 + 45 : c * 300 + 105;
            ASSERT_EQ(p.form1.MSFlexGrid1->size(), QSize(larga / 15, alta / 15)) << c << "x" << r;
            ASSERT_EQ(p.form1.MSFlexGrid1->Cols(), c);
            ASSERT_EQ(p.form1.MSFlexGrid1->Rows(), r);
            ASSERT_EQ(p.form1.sessione.matrice().ubound(1), c - 1);
            ASSERT_EQ(p.form1.sessione.matrice().ubound(2), r - 1);
            const QPoint scarto =
                p.form1.MSFlexGrid1->geometry().center() - p.form1.Frame1->rect().center();
            ASSERT_LE(scarto.manhattanLength(), 2) << c << "x" << r;
            ASSERT_EQ(p.form1.MSFlexGrid1->columnWidth(c - 1), 20);
            ASSERT_EQ(p.form1.MSFlexGrid1->rowHeight(r - 1), 20);
        }
    }
}

TEST(Regola, SeiPerSeiVietaRigaColonnaEDiagonalePrincipale) {
    Programma p;
    metti(p, 2, 0, 11);  // row
    metti(p, 2, 5, 12);  // row
    metti(p, 0, 2, 13);  // column
    metti(p, 5, 2, 14);  // column
    metti(p, 0, 0, 15);  // main diagonal
    metti(p, 5, 5, 16);  // main diagonal
    metti(p, 0, 1, 17);  // a neighbour of the main diagonal, which counts from 7 x 7 on
    metti(p, 0, 5, 18);  // anti-diagonal
    metti(p, 1, 3, 19);
    p.cella(2, 2);
    EXPECT_EQ(vietati(p), (std::set<int>{11, 12, 13, 14, 15, 16}));
}

TEST(Regola, SeiPerSeiAntidiagonale) {
    Programma p;
    metti(p, 0, 5, 18);
    metti(p, 5, 0, 19);
    metti(p, 4, 0, 20);
    p.cella(2, 3);
    EXPECT_EQ(vietati(p), (std::set<int>{18, 19}));
}

TEST(Regola, SettePerSetteVietaLaDiagonaleAdiacente) {
    Programma p;
    p.dimensioni(7, 7);
    metti(p, 0, 1, 21);
    metti(p, 5, 6, 22);
    metti(p, 0, 0, 23);
    p.cella(2, 3);
    EXPECT_EQ(vietati(p), (std::set<int>{21, 22}));
}

TEST(Regola, SettePerSetteVietaLaDiagonaleAdiacenteAncheNelLotto) {
    Programma p;
    Programma::clic(p.form1.Image10);
    p.dimensioni(7, 7);
    metti(p, 0, 1, 21);
    metti(p, 5, 6, 22);
    metti(p, 0, 0, 23);
    p.cella(2, 3);
    EXPECT_EQ(vietati(p), (std::set<int>{21, 22}));
}

TEST(Regola, LeQuattroDiagonaliAdiacenti) {
    struct Caso {
        int riga, colonna, riga_compagna, colonna_compagna;
    };
    // n is 6: x + y = 7, x + y = 5, x = y + 1, x = y - 1, and both ends of each.
    const std::vector<Caso> casi = {{3, 4, 6, 1}, {3, 4, 1, 6}, {2, 3, 5, 0}, {2, 3, 0, 5},
                                    {2, 3, 0, 1}, {2, 3, 5, 6}, {4, 3, 1, 0}, {4, 3, 6, 5}};
    for (const Caso& caso : casi) {
        Programma p;
        p.dimensioni(7, 7);
        metti(p, caso.riga_compagna, caso.colonna_compagna, 33);
        p.cella(caso.riga, caso.colonna);
        EXPECT_EQ(vietati(p), std::set<int>{33})
            << caso.riga << "," << caso.colonna << " with " << caso.riga_compagna << ","
            << caso.colonna_compagna;
    }
}

TEST(Regola, SeiPerOttoNonHaDiagonaliECombo5Spento) {
    Programma p;
    p.dimensioni(6, 8);
    metti(p, 0, 0, 41);
    metti(p, 0, 4, 42);
    metti(p, 0, 1, 43);
    p.cella(2, 2);
    EXPECT_TRUE(vietati(p).empty());
    EXPECT_FALSE(p.form1.Combo5->isEnabled());
    EXPECT_EQ(p.form1.Combo5->count(), 0);
}

TEST(Regola, UnNumeroVietatoNonSiPuoPremere) {
    Programma p;
    metti(p, 0, 0, 5);
    EXPECT_FALSE(p.form1.CMDnum[5]->isEnabled());
    EXPECT_EQ(platform::Tag(p.form1.CMDnum[5]), "0");
    p.numero(5);
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(0, 1), "");
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 1);
    p.cella(3, 4);
    EXPECT_TRUE(p.form1.CMDnum[5]->isEnabled());
    EXPECT_EQ(platform::Tag(p.form1.CMDnum[5]), "");
}

TEST(Cursore, ScorreLaRigaEDopoLUltimaCasellaTornaAllaPrima) {
    Programma p;
    p.dimensioni(8, 6);
    p.cella(0, 6);
    p.numero(1);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 7);
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 0);
    p.numero(2);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 1);
    metti(p, 5, 7, 3);
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 0);
    EXPECT_EQ(p.form1.focusWidget(), p.form1.MSFlexGrid1);
}

TEST(Cursore, LeFrecceCambianoCasellaERipetonoLaRegola) {
    Programma p;
    metti(p, 0, 0, 9);
    p.cella(1, 1);
    ASSERT_FALSE(p.form1.CMDnum[9]->isEnabled());
    QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Right);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 2);
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 1);
    EXPECT_TRUE(p.form1.CMDnum[9]->isEnabled());
    QTest::keyClick(p.form1.MSFlexGrid1, Qt::Key_Up);
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 0);
    EXPECT_FALSE(p.form1.CMDnum[9]->isEnabled());
}

TEST(Numeri, QuelloDellaCasellaRestaPermesso) {
    Programma p;
    metti(p, 0, 0, 30);
    metti(p, 0, 1, 31);
    p.cella(0, 0);
    EXPECT_TRUE(p.form1.CMDnum[30]->isEnabled());
    EXPECT_FALSE(p.form1.CMDnum[31]->isEnabled());
    p.numero(30);
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(0, 0), "30");
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 30);
}

TEST(Numeri, UnoNuovoPrendeIlPostoSenzaDomande) {
    Programma p;
    metti(p, 1, 2, 30);
    metti(p, 1, 2, 77);
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(1, 2), "77");
    EXPECT_EQ(p.form1.sessione.matrice()(2, 1), 77);
    EXPECT_EQ(p.form1.List1->count(), 1);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST(Lista, SetteQuarantacinqueSetteDannoDueVoci) {
    Programma p;
    metti(p, 0, 0, 7);
    metti(p, 0, 1, 45);
    metti(p, 1, 3, 7);
    ASSERT_EQ(p.form1.List1->count(), 2);
    EXPECT_EQ(p.form1.List1->item(0)->text(), "   7");
    EXPECT_EQ(p.form1.List1->item(1)->text(), "  45");
    EXPECT_TRUE(p.form1.List1->item(0)->textAlignment() & Qt::AlignRight);
    EXPECT_EQ(p.form1.lblngioco->text(), "2");
}

TEST(Canc, SvuotaLaCasellaDaQualunqueControllo) {
    Programma p;
    int controlli = 0;
    for (QWidget* w : p.form1.findChildren<QWidget*>()) {
        if (!w->isVisible() || !w->isEnabled() || w->focusPolicy() == Qt::NoFocus) continue;
        metti(p, 2, 3, 60);
        p.cella(2, 3);
        ASSERT_EQ(p.form1.sessione.matrice()(3, 2), 60);
        p.form1.sessione.segna_salvato(true);
        w->setFocus();
        if (QApplication::focusWidget() == nullptr) continue;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        EXPECT_EQ(p.form1.sessione.matrice()(3, 2), 0) << w->objectName().toStdString();
        EXPECT_EQ(p.form1.MSFlexGrid1->testo(2, 3), "") << w->objectName().toStdString();
        EXPECT_EQ(p.form1.lblngioco->text(), "") << w->objectName().toStdString();
        EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 2);
        EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 3);
        EXPECT_FALSE(p.form1.sessione.salvato());
        ++controlli;
    }
    EXPECT_GT(controlli, 100);
}

TEST(Comandi, LImmagineQuattroTogliIlNumeroERicontaLaLista) {
    Programma p;
    metti(p, 0, 0, 1);
    metti(p, 0, 1, 2);
    p.cella(0, 0);
    p.comando(4);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    EXPECT_EQ(p.form1.lblngioco->text(), "1");
    EXPECT_EQ(p.form1.List1->count(), 1);
    p.cella(0, 1);
    p.comando(4);
    EXPECT_EQ(p.form1.lblngioco->text(), "");
}

TEST(Comandi, LImmagineTreSvuotaAllaStessaMisura) {
    Programma p;
    p.dimensioni(7, 9);
    p.riempi();
    p.cella(4, 3);
    p.comando(3);
    EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->Cols(), 7);
    EXPECT_EQ(p.form1.MSFlexGrid1->Rows(), 9);
    EXPECT_EQ(p.form1.List1->count(), 0);
    EXPECT_EQ(p.form1.lblngioco->text(), "");
    for (int x = 0; x < 7; ++x) {
        for (int y = 0; y < 9; ++y) {
            ASSERT_EQ(p.form1.sessione.matrice()(x, y), 0);
            ASSERT_EQ(p.form1.MSFlexGrid1->testo(y, x), "");
        }
    }
    EXPECT_TRUE(vietati(p).empty());
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(Misura, UnCambioPerdeTuttoSenzaDomande) {
    Programma p;
    p.riempi();
    Programma::scegli(p.form1.Combo2, 1);
    EXPECT_EQ(p.form1.List1->count(), 0);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST(Misura, UnCambioDimenticaLaClassificaComeLImmagineTre) {
    for (const bool immagine : {false, true}) {
        Programma p;
        p.form1.sessione.statistico.statistica()[1].numero = 42;
        if (immagine) {
            p.comando(3);
        } else {
            Programma::scegli(p.form1.Combo2, 1);
        }
        EXPECT_EQ(p.form1.sessione.statistico.statistica()[1].numero, 0) << immagine;
    }
}

TEST(Misura, ScegliereLaStessaSvuotaUgualmente) {
    Programma p;
    metti(p, 0, 0, 5);
    Programma::scegli(p.form1.Combo1, 0);
    EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 0);
    EXPECT_EQ(p.form1.List1->count(), 0);
}

TEST(Evidenza, SeiColoriPoiDaCapo) {
    Programma p;
    p.dimensioni(7, 7);
    for (int n = 1; n <= 7; ++n) metti(p, 0, n - 1, n);
    metti(p, 3, 5, 1);
    const std::array<int, 6> colori = {65535, 65280, 255, 16776960, 16761087, 16761024};
    for (int i = 0; i < 6; ++i) {
        clic_lista(p, i);
        EXPECT_EQ(platform::Tag(p.form1.List1), QString::number(i + 1));
        const std::set<int> attese = i == 0 ? std::set<int>{0, 305} : std::set<int>{i};
        EXPECT_EQ(colorate(p, bgr(colori[static_cast<std::size_t>(i)])), attese);
    }
    // The earlier ones of the round still stand; the seventh click starts a new round.
    EXPECT_EQ(colorate(p, bgr(65535)), (std::set<int>{0, 305}));
    clic_lista(p, 6);
    EXPECT_EQ(platform::Tag(p.form1.List1), "1");
    EXPECT_EQ(colorate(p, bgr(65535)), std::set<int>{6});
    EXPECT_EQ(colorate(p, bianco).size(), 48U);
}

TEST(Evidenza, SiTogliConUnaCasellaOUnNumero) {
    Programma p;
    metti(p, 0, 0, 7);
    clic_lista(p, 0);
    ASSERT_EQ(colorate(p, bgr(65535)).size(), 1U);
    p.cella(4, 4);
    EXPECT_EQ(colorate(p, bianco).size(), 36U);
    EXPECT_EQ(platform::Tag(p.form1.List1), "0");
    clic_lista(p, 0);
    ASSERT_EQ(colorate(p, bgr(65535)).size(), 1U);
    p.numero(8);
    EXPECT_EQ(colorate(p, bianco).size(), 36U);
}

TEST(Evidenza, ConPiuColonneCheRigheLeUltimeRestano) {
    Programma p;
    p.dimensioni(9, 6);
    metti(p, 0, 2, 7);
    metti(p, 1, 8, 7);
    clic_lista(p, 0);
    ASSERT_EQ(colorate(p, bgr(65535)), (std::set<int>{2, 108}));
    p.cella(5, 5);
    EXPECT_EQ(colorate(p, bgr(65535)), std::set<int>{108});
}

TEST(Evidenza, ConPiuRigheCheColonneTutteTornanoBianche) {
    Programma p;
    p.dimensioni(6, 9);
    metti(p, 8, 5, 7);
    clic_lista(p, 0);
    p.cella(0, 0);
    EXPECT_EQ(colorate(p, bianco).size(), 54U);
}

TEST(Completo, SoloSenzaCaselleVuote) {
    Programma p;
    bool esito = true;
    esito = p.form1.sessione.completo();
    EXPECT_FALSE(esito);
    p.riempi(35);
    esito = p.form1.sessione.completo();
    EXPECT_FALSE(esito);
    p.riempi();
    esito = p.form1.sessione.completo();
    EXPECT_TRUE(esito);
}
