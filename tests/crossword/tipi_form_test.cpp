// The lists of system types, the summary grid and the counts that follow from them.
#include "support/programma.h"

using support::Programma;

namespace {

QStringList voci(const QComboBox* elenco) {
    QStringList testi;
    for (int i = 0; i < elenco->count(); ++i) testi << elenco->itemText(i);
    return testi;
}

const QString i = "Integrale";
const QString a1 = "Autoridotto [N-1]";
const QString a2 = "Autoridotto [N-2]";
const QString a3 = "Autoridotto [N-3]";

/// Rows and columns of a SuperEnalotto crossword of size 6 to 15.
QStringList tipi_sestine(int n) {
    switch (n) {
        case 6:
            return {i};
        case 7:
            return {i, a1};
        case 8:
            return {i, a1, a2};
        case 9:
            return {i, a1, a2, a3, "12 sestine - Min.1(4) con 4 estratti"};
        case 10:
            return {i, a1, a2, a3};
        case 11:
            return {i, a1, a2, a3, "66 Sestine - Min.3(4) con 4 estratti"};
        case 12:
            return {i,
                    a1,
                    a2,
                    a3,
                    "15 sestine - Min.1(3) con 3 estratti",
                    "132 Sestine - Min.1(5) con 5 estratti"};
        case 13:
            return {i, a1, a2, a3, "250 Sestine - Min.1(5) con 5 estratti"};
        case 14:
            return {i, a1, a2, a3, "18 Sestine - Min.1(4) con 6 estratti"};
        default:
            return {i,
                    a1,
                    a2,
                    a3,
                    "34 Sestine - Min.1(3) con 3 estratti",
                    "180 Sestine - Min.1(4) con 4 estratti",
                    "70 Sestine - Min.1(4) con 5 estratti",
                    "25 Sestine - Min.1(4) con 6 estratti"};
    }
}

/// Combinations per line of each type offered, for size 6 to 15.
const std::array<std::vector<int>, 10> conti_sestine = {{{1},
                                                         {7, 1},
                                                         {28, 4, 1},
                                                         {84, 8, 3, 1, 12},
                                                         {210, 18, 5, 2},
                                                         {462, 34, 11, 2, 66},
                                                         {924, 68, 10, 4, 15, 132},
                                                         {1716, 116, 23, 4, 250},
                                                         {3003, 203, 23, 7, 18},
                                                         {5005, 315, 31, 7, 34, 180, 70, 25}}};

/// A number with points between the thousands.
QString migliaia(int n) {
    QString testo = QString::number(n);
    for (int posto = static_cast<int>(testo.size()) - 3; posto > 0; posto -= 3) {
        testo.insert(posto, '.');
    }
    return testo;
}

QColor bgr(int valore) {
    return {valore & 0xFF, (valore >> 8) & 0xFF, (valore >> 16) & 0xFF};
}

}  // namespace

TEST(Riepilogo, IntestazioniColoriEMisure) {
    Programma p;
    const platform::MSFlexGrid* g = p.form1.MSFlexGrid2;
    ASSERT_EQ(g->Rows(), 6);
    ASSERT_EQ(g->Cols(), 4);
    const QStringList prima_riga{"Sistemi", "Numero", "Tipo", "Combinazioni x Sistema"};
    const QStringList prima_colonna{"Sistemi",
                                    "Orizzontali",
                                    "Verticali",
                                    "Diagonali",
                                    "Numero Combinazioni Totali del Sistema",
                                    "Numero Combinazioni Totali del Sistema (Senza Ripetizioni)"};
    for (int c = 0; c < 4; ++c) EXPECT_EQ(g->testo(0, c), prima_riga[c]);
    for (int r = 0; r < 6; ++r) EXPECT_EQ(g->testo(r, 0), prima_colonna[r]);
    for (int r = 0; r < 6; ++r) {
        for (int c = 0; c < 4; ++c) {
            const bool testa = r == 0 || c == 0;
            EXPECT_EQ(g->sfondo(r, c), bgr(testa ? 8388608 : 16777215)) << r << "," << c;
            if (testa) {
                EXPECT_EQ(g->item(r, c)->foreground().color(), bgr(16777215));
            }
            EXPECT_TRUE(g->item(r, c)->textAlignment() & Qt::AlignHCenter);
        }
    }
    // 325, 850, 5000 and 3285 twips, fifteen to the pixel.
    for (int r = 0; r < 5; ++r) EXPECT_EQ(g->rowHeight(r), 22);
    EXPECT_EQ(g->columnWidth(1), 57);
    EXPECT_EQ(g->columnWidth(2), 333);
    EXPECT_EQ(g->columnWidth(3), 219);
    for (int r = 4; r < 6; ++r) EXPECT_EQ(g->columnSpan(r, 0), 3);
}

TEST(Riepilogo, LeListeStannoSopraLeLoroCelle) {
    Programma p;
    const std::array<QWidget*, 3> liste = {p.form1.Combo3, p.form1.Combo4, p.form1.Combo5};
    for (int k = 0; k < 3; ++k) {
        const QWidget* lista = liste[static_cast<std::size_t>(k)];
        const platform::MSFlexGrid* g = p.form1.MSFlexGrid2;
        const QRect cella = g->visualRect(g->model()->index(k + 1, 2));
        const QRect sopra(g->viewport()->mapTo(&p.form1, cella.topLeft()), cella.size());
        const QRect dove(lista->mapTo(&p.form1, QPoint(0, 0)), lista->size());
        EXPECT_TRUE(sopra.adjusted(-1, -1, 1, 1).contains(dove)) << k;
        EXPECT_GE(dove.width(), sopra.width() - 3);
        EXPECT_GE(dove.height(), sopra.height() - 3);
    }
}

TEST(Liste, SestinePerOgniMisuraConIConti) {
    Programma p;
    for (int n = 6; n <= 15; ++n) {
        p.dimensioni(n, n);
        EXPECT_EQ(voci(p.form1.Combo3), tipi_sestine(n)) << n;
        EXPECT_EQ(voci(p.form1.Combo4), tipi_sestine(n)) << n;
        const QStringList diagonali =
            n == 7 ? QStringList{i} : QStringList(tipi_sestine(n).mid(0, 4));
        EXPECT_EQ(voci(p.form1.Combo5), diagonali) << n;
        EXPECT_TRUE(p.form1.Combo5->isEnabled());
        EXPECT_EQ(p.form1.Combo3->ListIndex(), 0);
        const std::vector<int>& conti = conti_sestine[static_cast<std::size_t>(n - 6)];
        for (std::size_t t = 0; t < conti.size(); ++t) {
            Programma::scegli(p.form1.Combo3, static_cast<int>(t));
            EXPECT_EQ(p.riepilogo(1, 3), migliaia(conti[t])) << n << " type " << t;
            Programma::scegli(p.form1.Combo4, static_cast<int>(t));
            EXPECT_EQ(p.riepilogo(2, 3), migliaia(conti[t])) << n << " type " << t;
        }
    }
}

TEST(Liste, LeRigheSeguonoLeColonneELeColonneLeRighe) {
    Programma p;
    p.dimensioni(9, 12);
    EXPECT_EQ(voci(p.form1.Combo3), tipi_sestine(9));
    EXPECT_EQ(voci(p.form1.Combo4), tipi_sestine(12));
    EXPECT_EQ(p.riepilogo(1, 1), "12");
    EXPECT_EQ(p.riepilogo(2, 1), "9");
    EXPECT_EQ(p.riepilogo(1, 3), "84");
    EXPECT_EQ(p.riepilogo(2, 3), "924");
    EXPECT_EQ(p.riepilogo(4, 3), migliaia(12 * 84 + 9 * 924));
}

TEST(Liste, NomiDelLotto) {
    Programma p;
    Programma::clic(p.form1.Image10);
    const auto a = [&p](int forma, int n) {
        Programma::clic(p.form1.Imageb[static_cast<std::size_t>(forma)]);
        p.dimensioni(n, n);
        EXPECT_EQ(voci(p.form1.Combo3), voci(p.form1.Combo4));
        EXPECT_EQ(voci(p.form1.Combo3), voci(p.form1.Combo5));
        return voci(p.form1.Combo3);
    };
    EXPECT_EQ(a(0, 5), QStringList({i, "5 Numeri - 4 Terzine - Garanzia Ambo con 2 Estratti"}));
    EXPECT_EQ(a(0, 15), QStringList({i, "15 Numeri - 35 Terzine - Garanzia Ambo con 2 Estratti"}));
    EXPECT_EQ(a(1, 5), QStringList({i, a1}));
    EXPECT_EQ(a(1, 8), QStringList({i, "8 Numeri - 6 Quartine - Garanzia Ambo 1 con 2 Estratti"}));
    EXPECT_EQ(a(1, 9), QStringList({i, "9 Numeri - 8 Quartine - Garanzia 1 Ambo con 3 Estratti"}));
    EXPECT_EQ(a(1, 14), QStringList({i, "14 Numeri - 18 Quartine - Garanzia 1 Ambo con 2 Estratti",
                                     "14 Numeri - 91 Quartine - Garanzia 1 Terno con 3 Estratti"}));
    EXPECT_EQ(a(2, 5), QStringList{i});
    EXPECT_EQ(a(2, 6), QStringList({i, a1}));
    EXPECT_EQ(a(2, 7), QStringList({i, "7 Numeri - 3 Cinquine - Garanzia 1 Ambo con 2 Estratti",
                                    "7 Numeri - 5 Cinquine - Garanzia 1 Terno con 3 Estratti"}));
    EXPECT_EQ(a(2, 15),
              QStringList({i, "15 Numeri - 13 Cinquine - Garanzia 1 Ambo con 2 Estratti",
                           "15 Numeri - 56 Cinquine - Garanzia 1 Terno con 3 Estratti",
                           "15 Numeri - 295 Cinquine - Garanzia 1 Quaterna con 4 Estratti"}));
}

TEST(Conti, QuartineQuattordiciContaQuattordiciSebbeneDicaDiciotto) {
    Programma p;
    Programma::clic(p.form1.Image10);
    Programma::clic(p.form1.Imageb[1]);
    p.dimensioni(14, 14);
    Programma::scegli(p.form1.Combo3, 1);
    EXPECT_EQ(p.riepilogo(1, 3), "14");
    Programma::scegli(p.form1.Combo4, 1);
    Programma::scegli(p.form1.Combo5, 1);
    EXPECT_EQ(p.riepilogo(3, 3), "14");
    EXPECT_EQ(p.riepilogo(4, 3), migliaia(14 * 14 * 2 + 14 * 2));
}

TEST(Conti, SeiPerSeiQuattordici) {
    Programma p;
    EXPECT_EQ(p.riepilogo(4, 3), "14");
    EXPECT_EQ(p.riepilogo(3, 3), "2 Sist. da  1");
    EXPECT_EQ(p.riepilogo(3, 1), "6");
    EXPECT_EQ(p.riepilogo(1, 1), "6");
    EXPECT_EQ(p.riepilogo(2, 1), "6");
    EXPECT_EQ(p.riepilogo(5, 3), "");
}

TEST(Conti, SettePerSetteCentosedici) {
    Programma p;
    p.dimensioni(7, 7);
    EXPECT_EQ(p.riepilogo(4, 3), "116");
    EXPECT_EQ(p.riepilogo(3, 3), "2 Sist. da 7  -  4 Sist. da 1");
}

TEST(Conti, QuindiciPerQuindici172172) {
    Programma p;
    p.dimensioni(15, 15);
    EXPECT_EQ(p.riepilogo(4, 3), "172.172");
    EXPECT_EQ(p.riepilogo(3, 3), "2 Sist. da 5005  -  4 Sist. da 3003");
    EXPECT_EQ(p.form1.lblimportotot->text(), "86.086,00");
}

TEST(Conti, TipoDelleDiagonaliAncheSulleAdiacenti) {
    Programma p;
    p.dimensioni(9, 9);
    Programma::scegli(p.form1.Combo5, 3);
    EXPECT_EQ(p.riepilogo(3, 3), "2 Sist. da 1  -  4 Sist. da 1");
    EXPECT_EQ(p.riepilogo(4, 3), migliaia(9 * 84 * 2 + 2 + 4));
    Programma::scegli(p.form1.Combo5, 2);
    EXPECT_EQ(p.riepilogo(3, 3), "2 Sist. da 3  -  4 Sist. da 1");
}

TEST(Conti, LottoRaddoppiaLaDiagonale) {
    Programma p;
    Programma::clic(p.form1.Image10);
    p.dimensioni(8, 8);
    EXPECT_EQ(p.riepilogo(3, 1), "2");
    EXPECT_EQ(p.riepilogo(3, 3), "56");
    EXPECT_EQ(p.riepilogo(4, 3), migliaia(8 * 56 * 2 + 2 * 56));
}

TEST(Conti, RettangolareSenzaDiagonali) {
    Programma p;
    p.dimensioni(8, 8);
    ASSERT_NE(p.riepilogo(3, 3), "");
    p.dimensioni(6, 8);
    EXPECT_FALSE(p.form1.Combo5->isEnabled());
    EXPECT_EQ(p.form1.Combo5->count(), 0);
    EXPECT_EQ(p.riepilogo(3, 1), "");
    EXPECT_EQ(p.riepilogo(3, 3), "");
    EXPECT_EQ(p.riepilogo(5, 3), "");
    EXPECT_EQ(p.riepilogo(4, 3), migliaia(8 * 1 + 6 * 28));
}

TEST(Conti, CambiareTipoTogliIlTotaleSenzaRipetizioniEModificaIlSistema) {
    for (const int quale : {0, 1, 2}) {
        Programma p;
        p.dimensioni(8, 8);
        p.apri_cosi([](systems::Sistema& s) { s.senza_ripetizioni = 99; });
        p.form1.sessione.segna_salvato(true);
        const std::array<platform::ComboBox*, 3> liste = {p.form1.Combo3, p.form1.Combo4,
                                                          p.form1.Combo5};
        Programma::scegli(liste[static_cast<std::size_t>(quale)], 1);
        EXPECT_EQ(p.riepilogo(5, 3), "");
        EXPECT_FALSE(p.form1.sessione.salvato());
    }
}

TEST(Conti, AncheScegliereDiNuovoLoStessoTipo) {
    Programma p;
    p.apri_cosi([](systems::Sistema& s) { s.senza_ripetizioni = 99; });
    p.form1.sessione.segna_salvato(true);
    Programma::scegli(p.form1.Combo3, 0);
    EXPECT_EQ(p.riepilogo(5, 3), "");
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST(Conti, UnNumeroCambiatoLasciaIlTotaleSenzaRipetizioni) {
    Programma p;
    p.riempi(1);
    p.apri_cosi([](systems::Sistema& s) { s.senza_ripetizioni = 13; });
    p.cella(0, 0);
    p.numero(77);
    EXPECT_EQ(p.riepilogo(5, 3), "13");
    EXPECT_EQ(p.form1.lblimportotot->text(), "6,50");
}

TEST(Colonne, ControloColonneGuardaIlFileDelGioco) {
    Programma p;
    p.cartella.scrivi("a.col", "");
    p.cartella.scrivi("b.lot", "");
    const auto esiste = [&p](const char* nome) {
        p.form1.sessione.in_linea(nome);
        return p.form1.sessione.sviluppo_presente();
    };
    EXPECT_TRUE(esiste("a"));
    EXPECT_FALSE(esiste("b"));
    // The change of game takes away the Lotto development of the name in line.
    p.form1.sessione.in_linea("");
    Programma::clic(p.form1.Image10);
    EXPECT_FALSE(esiste("a"));
    EXPECT_TRUE(esiste("b"));
}
