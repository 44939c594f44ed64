#include "crossword/tipi.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <utility>

#include "development/tabelle.h"

using namespace crossword;

namespace {

using Testi = std::vector<std::string>;

const std::map<int, Testi> sestine = {
    {6, {"Integrale"}},
    {7, {"Integrale", "Autoridotto [N-1]"}},
    {8, {"Integrale", "Autoridotto [N-1]", "Autoridotto [N-2]"}},
    {9,
     {"Integrale", "Autoridotto [N-1]", "Autoridotto [N-2]", "Autoridotto [N-3]",
      "12 sestine - Min.1(4) con 4 estratti"}},
    {10, {"Integrale", "Autoridotto [N-1]", "Autoridotto [N-2]", "Autoridotto [N-3]"}},
    {11,
     {"Integrale", "Autoridotto [N-1]", "Autoridotto [N-2]", "Autoridotto [N-3]",
      "66 Sestine - Min.3(4) con 4 estratti"}},
    {12,
     {"Integrale", "Autoridotto [N-1]", "Autoridotto [N-2]", "Autoridotto [N-3]",
      "15 sestine - Min.1(3) con 3 estratti", "132 Sestine - Min.1(5) con 5 estratti"}},
    {13,
     {"Integrale", "Autoridotto [N-1]", "Autoridotto [N-2]", "Autoridotto [N-3]",
      "250 Sestine - Min.1(5) con 5 estratti"}},
    {14,
     {"Integrale", "Autoridotto [N-1]", "Autoridotto [N-2]", "Autoridotto [N-3]",
      "18 Sestine - Min.1(4) con 6 estratti"}},
    {15,
     {"Integrale", "Autoridotto [N-1]", "Autoridotto [N-2]", "Autoridotto [N-3]",
      "34 Sestine - Min.1(3) con 3 estratti", "180 Sestine - Min.1(4) con 4 estratti",
      "70 Sestine - Min.1(4) con 5 estratti", "25 Sestine - Min.1(4) con 6 estratti"}},
};

const std::map<int, Testi> terzine = {
    {5, {"Integrale", "5 Numeri - 4 Terzine - Garanzia Ambo con 2 Estratti"}},
    {6, {"Integrale", "6 Numeri - 6 Terzine - Garanzia Ambo con 2 Estratti"}},
    {7, {"Integrale", "7 Numeri - 7 Terzine - Garanzia Ambo con 2 Estratti"}},
    {8, {"Integrale", "8 Numeri - 11 Terzine - Garanzia Ambo con 2 Estratti"}},
    {9, {"Integrale", "9 Numeri - 12 Terzine - Garanzia Ambo con 2 Estratti"}},
    {10, {"Integrale", "10 Numeri - 17 Terzine - Garanzia Ambo con 2 Estratti"}},
    {11, {"Integrale", "11 Numeri - 19 Terzine - Garanzia Ambo con 2 Estratti"}},
    {12, {"Integrale", "12 Numeri - 24 Terzine - Garanzia Ambo con 2 Estratti"}},
    {13, {"Integrale", "13 Numeri - 26 Terzine - Garanzia Ambo con 2 Estratti"}},
    {14, {"Integrale", "14 Numeri - 33 Terzine - Garanzia Ambo con 2 Estratti"}},
    {15, {"Integrale", "15 Numeri - 35 Terzine - Garanzia Ambo con 2 Estratti"}},
};

const std::map<int, Testi> quartine = {
    {5, {"Integrale", "Autoridotto [N-1]"}},
    {6, {"Integrale", "6 Numeri - 3 Quartine - Garanzia 1 Ambo con 2 Estratti"}},
    {7, {"Integrale", "7 Numeri - 5 Quartine - Garanzia 1 Ambo con 2 Estratti"}},
    {8, {"Integrale", "8 Numeri - 6 Quartine - Garanzia Ambo 1 con 2 Estratti"}},
    {9, {"Integrale", "9 Numeri - 8 Quartine - Garanzia 1 Ambo con 3 Estratti"}},
    {10, {"Integrale", "10 Numeri - 9 Quartine - Garanzia 1 Ambo con 2 Estratti"}},
    {11,
     {"Integrale", "11 Numeri - 11 Quartine - Garanzia 1 Ambo con 2 Estratti",
      "11 Numeri - 47 Quartine - Garanzia 1 Terno con 3 Estratti"}},
    {12,
     {"Integrale", "12 Numeri - 12 Quartine - Garanzia 1 Ambo con 2 Estratti",
      "12 Numeri - 57 Quartine - Garanzia 1 Terno con 3 Estratti"}},
    {13,
     {"Integrale", "13 Numeri - 13 Quartine - Garanzia 1 Ambo con 2 Estratti",
      "13 Numeri - 78 Quartine - Garanzia 1 Terno con 3 Estratti"}},
    {14,
     {"Integrale", "14 Numeri - 18 Quartine - Garanzia 1 Ambo con 2 Estratti",
      "14 Numeri - 91 Quartine - Garanzia 1 Terno con 3 Estratti"}},
    {15,
     {"Integrale", "15 Numeri - 19 Quartine - Garanzia 1 Ambo con 2 Estratti",
      "15 Numeri - 124 Quartine - Garanzia 1 Terno con 3 Estratti"}},
};

const std::map<int, Testi> cinquine = {
    {5, {"Integrale"}},
    {6, {"Integrale", "Autoridotto [N-1]"}},
    {7,
     {"Integrale", "7 Numeri - 3 Cinquine - Garanzia 1 Ambo con 2 Estratti",
      "7 Numeri - 5 Cinquine - Garanzia 1 Terno con 3 Estratti"}},
    {8,
     {"Integrale", "8 Numeri - 4 Cinquine - Garanzia 1 Ambo con 2 Estratti",
      "8 Numeri - 8 Cinquine - Garanzia 1 Terno con 3 Estratti",
      "8 Numeri - 20 Cinquine - Garanzia 1 Quaterna con 4 Estratti"}},
    {9,
     {"Integrale", "9 Numeri - 5 Cinquine - Garanzia 1 Ambo con 2 Estratti",
      "9 Numeri - 12 Cinquine - Garanzia 1 Terno con 3 Estratti",
      "9 Numeri - 30 Cinquine - Garanzia 1 Quaterna con 4 Estratti"}},
    {10,
     {"Integrale", "10 Numeri - 6 Cinquine - Garanzia 1 Ambo con 2 Estratti",
      "10 Numeri - 17 Cinquine - Garanzia 1 Terno con 3 Estratti",
      "10 Numeri - 51 Cinquine - Garanzia 1 Quaterna con 4 Estratti"}},
    {11,
     {"Integrale", "11 Numeri - 7 Cinquine - Garanzia 1 Ambo con 2 Estratti",
      "11 Numeri - 20 Cinquine - Garanzia 1 Terno con 3 Estratti",
      "11 Numeri - 66 Cinquine - Garanzia 1 Quaterna con 4 Estratti"}},
    {12,
     {"Integrale", "12 Numeri - 9 Cinquine - Garanzia 1 Ambo con 2 Estratti",
      "12 Numeri - 29 Cinquine - Garanzia 1 Terno con 3 Estratti",
      "12 Numeri - 113 Cinquine - Garanzia 1 Quaterna con 4 Estratti"}},
    {13,
     {"Integrale", "13 Numeri - 10 Cinquine - Garanzia 1 Ambo con 2 Estratti",
      "13 Numeri - 34 Cinquine - Garanzia 1 Terno con 3 Estratti",
      "13 Numeri - 157 Cinquine - Garanzia 1 Quaterna con 4 Estratti"}},
    {14,
     {"Integrale", "14 Numeri - 12 Cinquine - Garanzia 1 Ambo con 2 Estratti",
      "14 Numeri - 43 Cinquine - Garanzia 1 Terno con 3 Estratti",
      "14 Numeri - 230 Cinquine - Garanzia 1 Quaterna con 4 Estratti"}},
    {15,
     {"Integrale", "15 Numeri - 13 Cinquine - Garanzia 1 Ambo con 2 Estratti",
      "15 Numeri - 56 Cinquine - Garanzia 1 Terno con 3 Estratti",
      "15 Numeri - 295 Cinquine - Garanzia 1 Quaterna con 4 Estratti"}},
};

void controlla_testi(Gioco gioco, const std::map<int, Testi>& attesi) {
    for (const auto& [n, testi] : attesi) {
        EXPECT_EQ(tipi_sistema(gioco, Elenco::orizzontali, n), testi) << n;
        EXPECT_EQ(tipi_sistema(gioco, Elenco::verticali, n), testi) << n;
        Testi primi(testi.begin(), testi.begin() + std::min<std::ptrdiff_t>(4, std::ssize(testi)));
        if (!gioco.e_lotto() && n == 7) primi = {"Integrale"};
        EXPECT_EQ(tipi_sistema(gioco, Elenco::diagonali, n), primi) << n;
    }
}

TEST(TipiSistema, Sestine) {
    controlla_testi(Gioco(), sestine);
}
TEST(TipiSistema, Terzine) {
    controlla_testi(Gioco::lotto(3), terzine);
}
TEST(TipiSistema, Quartine) {
    controlla_testi(Gioco::lotto(4), quartine);
}
TEST(TipiSistema, Cinquine) {
    controlla_testi(Gioco::lotto(5), cinquine);
}

TEST(TipiSistema, LaSettePerSetteOffreAlleDiagonaliIlSoloIntegrale) {
    EXPECT_EQ(tipi_sistema(Gioco(), Elenco::diagonali, 7), Testi{"Integrale"});
    EXPECT_EQ(tipi_sistema(Gioco(), Elenco::orizzontali, 7).size(), 2U);
}

TEST(TipiSistema, LeDiagonaliNonPassanoIQuattroTipi) {
    EXPECT_EQ(tipi_sistema(Gioco(), Elenco::diagonali, 15),
              (Testi{"Integrale", "Autoridotto [N-1]", "Autoridotto [N-2]", "Autoridotto [N-3]"}));
}

TEST(TipiSistema, FuoriDalleMisureElencoVuoto) {
    for (const auto quale : {Elenco::orizzontali, Elenco::verticali, Elenco::diagonali}) {
        for (const int n : {-2147483647, -1, 0, 5, 16, 2147483647}) {
            EXPECT_TRUE(tipi_sistema(Gioco(), quale, n).empty()) << n;
        }
        for (const int forma : {3, 4, 5}) {
            for (const int n : {-2147483647, 0, 4, 16, 2147483647}) {
                EXPECT_TRUE(tipi_sistema(Gioco::lotto(forma), quale, n).empty()) << n;
            }
        }
        EXPECT_TRUE(tipi_sistema(Gioco::lotto(2), quale, 10).empty());
        EXPECT_TRUE(tipi_sistema(Gioco::lotto(6), quale, 10).empty());
    }
}

/// Counts by length, in order of type.
using Conti = std::map<int, std::vector<int>>;

const Conti conti_sestine = {{6, {1}},
                             {7, {7, 1, 1, 1}},
                             {8, {28, 4, 1, 1}},
                             {9, {84, 8, 3, 1, 12}},
                             {10, {210, 18, 5, 2}},
                             {11, {462, 34, 11, 2, 66}},
                             {12, {924, 68, 10, 4, 15, 132}},
                             {13, {1716, 116, 23, 4, 250}},
                             {14, {3003, 203, 23, 7, 18}},
                             {15, {5005, 315, 31, 7, 34, 180, 70, 25}}};
const Conti conti_terzine = {{5, {10, 4}},    {6, {20, 6}},    {7, {35, 7}},    {8, {56, 11}},
                             {9, {84, 12}},   {10, {120, 17}}, {11, {165, 19}}, {12, {220, 24}},
                             {13, {286, 26}}, {14, {364, 33}}, {15, {455, 35}}};
const Conti conti_quartine = {{5, {5, 1}},          {6, {15, 3}},         {7, {35, 5}},
                              {8, {70, 6, 14}},     {9, {126, 8}},        {10, {210, 9}},
                              {11, {330, 11, 47}},  {12, {495, 12, 57}},  {13, {715, 13, 78}},
                              {14, {1001, 14, 91}}, {15, {1365, 19, 124}}};
const Conti conti_cinquine = {{5, {1}},
                              {6, {6, 1}},
                              {7, {21, 3, 5, 9}},
                              {8, {56, 4, 8, 20}},
                              {9, {126, 5, 12, 30}},
                              {10, {252, 6, 17, 51}},
                              {11, {462, 7, 20, 66}},
                              {12, {792, 9, 29, 113}},
                              {13, {1287, 10, 34, 157}},
                              {14, {2002, 12, 43, 230}},
                              {15, {3003, 13, 56, 295}}};

struct Attesi {
    Gioco gioco;
    const Conti* conti;
    const std::map<int, Testi>* testi;
};
const Attesi giochi[] = {{Gioco(), &conti_sestine, &sestine},
                         {Gioco::lotto(3), &conti_terzine, &terzine},
                         {Gioco::lotto(4), &conti_quartine, &quartine},
                         {Gioco::lotto(5), &conti_cinquine, &cinquine}};

int primo(const Attesi& attesi) {
    return attesi.gioco.e_lotto() ? 5 : 6;
}

int binomiale(int n, int k) {
    int b = 1;
    for (int i = 1; i <= k; ++i) b = b * (n - k + i) / i;
    return b;
}

/// Rows of a shipped table, counted by its line ends; -1 without one.
int righe_spedite(const Gioco& gioco, int n, int tipo) {
    std::ifstream f(SUITE_DIR "/ridotti/" + development::nome_tabella(gioco, n, tipo),
                    std::ios::binary);
    if (!f) return -1;
    return static_cast<int>(
        std::count(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>(), '\n'));
}

TEST(MatsisConteggi, OgniNumeroDiOgniGiocoEZeroAltrove) {
    for (const Attesi& attesi : giochi) {
        Matsis matsis;
        matsis.INIZIZLAIZZA_MATSIS(attesi.gioco);
        for (int i = 0; i < 11; ++i) {
            const auto conti = attesi.conti->find(i + primo(attesi));
            for (int t = 0; t < 8; ++t) {
                const bool scritto = conti != attesi.conti->end() && t < std::ssize(conti->second);
                const int atteso = scritto ? conti->second[static_cast<std::size_t>(t)] : 0;
                EXPECT_EQ(matsis(i, t), atteso) << attesi.gioco.titolo() << ' ' << i << ' ' << t;
            }
        }
    }
}

TEST(MatsisConteggi, IntegraleEIlCoefficienteBinomiale) {
    for (const Attesi& attesi : giochi) {
        Matsis matsis;
        matsis.INIZIZLAIZZA_MATSIS(attesi.gioco);
        for (int n = primo(attesi); n <= 15; ++n) {
            EXPECT_EQ(matsis(n - primo(attesi), 0),
                      binomiale(n, attesi.gioco.e_lotto() ? attesi.gioco.forma() : 6));
        }
    }
}

TEST(MatsisConteggi, UgualiAlleRigheDelleTabelleSpedite) {
    for (const Attesi& attesi : giochi) {
        for (const auto& [n, conti] : *attesi.conti) {
            for (std::size_t t = 0; t < conti.size(); ++t) {
                // The quartine of 14 numbers count 14 and play the 18 of their caption.
                const bool eccezione = attesi.gioco == Gioco::lotto(4) && n == 14 && t == 1;
                EXPECT_EQ(righe_spedite(attesi.gioco, n, static_cast<int>(t)),
                          eccezione ? 18 : conti[t])
                    << attesi.gioco.forma() << ' ' << n << ' ' << t;
            }
        }
    }
}

TEST(MatsisConteggi, IlNumeroInTestaAUnTipoEIlConteggio) {
    for (const Attesi& attesi : giochi) {
        for (const auto& [n, testi] : *attesi.testi) {
            for (std::size_t t = 1; t < testi.size(); ++t) {
                if (testi[t].starts_with("Autoridotto")) continue;
                const std::size_t da = attesi.gioco.e_lotto() ? testi[t].find("- ") + 2 : 0;
                const int quante = std::atoi(testi[t].c_str() + da);
                const bool eccezione = attesi.gioco == Gioco::lotto(4) && n == 14 && t == 1;
                EXPECT_EQ(eccezione ? 14 : quante, attesi.conti->at(n)[t]) << testi[t];
            }
        }
    }
}

TEST(MatsisConteggi, ValoriSenzaVoceNellaListaRestano) {
    Matsis matsis;
    matsis.INIZIZLAIZZA_MATSIS(Gioco::lotto(4));
    EXPECT_EQ(matsis(8 - 5, 2), 14);
    EXPECT_EQ(matsis(14 - 5, 1), 14);
    matsis.INIZIZLAIZZA_MATSIS(Gioco::lotto(5));
    EXPECT_EQ(matsis(7 - 5, 3), 9);
}

TEST(MatsisConteggi, ScriveISuoiPostiELasciaGliAltri) {
    Matsis matsis;
    matsis.INIZIZLAIZZA_MATSIS(Gioco());
    matsis.INIZIZLAIZZA_MATSIS(Gioco::lotto(3));
    EXPECT_EQ(matsis(0, 0), 10);
    EXPECT_EQ(matsis(0, 1), 4);
    EXPECT_EQ(matsis(1, 2), 1);
    EXPECT_EQ(matsis(9, 7), 25);
    EXPECT_EQ(matsis(10, 0), 455);
    matsis.INIZIZLAIZZA_MATSIS(Gioco());
    EXPECT_EQ(matsis(0, 0), 1);
    EXPECT_EQ(matsis(0, 1), 4);
    EXPECT_EQ(matsis(10, 0), 455);
}

TEST(MatsisConteggi, UnaFormaCheNonEsisteNonScrive) {
    Matsis matsis;
    for (const int forma : {-1, 0, 2, 6}) matsis.INIZIZLAIZZA_MATSIS(Gioco::lotto(forma));
    for (int i = 0; i < 11; ++i) {
        for (int t = 0; t < 8; ++t) EXPECT_EQ(matsis(i, t), 0);
    }
}

TEST(MatsisConteggi, NienteFuoriDagliUndiciPerOttoPosti) {
    Matsis matsis;
    matsis.INIZIZLAIZZA_MATSIS(Gioco());
    EXPECT_TRUE(matsis(10, 7).has_value());
    for (const auto& [i, t] : {std::pair{-1, 0}, {0, -1}, {11, 0}, {0, 8}}) {
        EXPECT_FALSE(matsis(i, t).has_value());
    }
}

class Diagonali : public testing::Test {
protected:
    void SetUp() override { matsis.INIZIZLAIZZA_MATSIS(Gioco()); }
    Matsis matsis;
};

TEST_F(Diagonali, TestoDellaSeiPerSeiConDueSpazi) {
    EXPECT_EQ(testo_diagonali(matsis, 6, 0), "2 Sist. da  1");
}

TEST_F(Diagonali, TestoConLeAdiacenti) {
    EXPECT_EQ(testo_diagonali(matsis, 7, 0), "2 Sist. da 7  -  4 Sist. da 1");
    EXPECT_EQ(testo_diagonali(matsis, 15, 0), "2 Sist. da 5005  -  4 Sist. da 3003");
    EXPECT_EQ(testo_diagonali(matsis, 9, 3), "2 Sist. da 1  -  4 Sist. da 1");
}

TEST_F(Diagonali, LeSeiPerSeiSonoDue) {
    EXPECT_EQ(combinazioni_diagonali(matsis, 6, 0), 2);
}

TEST_F(Diagonali, DueIntereEQuattroAdiacenti) {
    for (int n = 7; n <= 15; ++n) {
        for (int t = 0; t < 4; ++t) {
            const auto& lunghe = conti_sestine.at(n);
            const auto& corte = conti_sestine.at(n - 1);
            const auto conto = [t](const std::vector<int>& c) {
                return t < std::ssize(c) ? c[static_cast<std::size_t>(t)] : 0;
            };
            EXPECT_EQ(combinazioni_diagonali(matsis, n, t), conto(lunghe) * 2 + conto(corte) * 4);
        }
    }
}

TEST_F(Diagonali, ITotaliDelleGriglieIntere) {
    // Rows and columns at N, then the diagonals.
    EXPECT_EQ(6 * 1 * 2 + combinazioni_diagonali(matsis, 6, 0).value_or(0), 14);
    EXPECT_EQ(7 * 7 * 2 + combinazioni_diagonali(matsis, 7, 0).value_or(0), 116);
    EXPECT_EQ(15 * 5005 * 2 + combinazioni_diagonali(matsis, 15, 0).value_or(0), 172172);
}

TEST_F(Diagonali, SenzaPostoInTabellaNiente) {
    for (const auto& [n, t] : {std::pair{5, 0}, {7, -1}, {7, 8}, {17, 0}, {-9, 0}}) {
        EXPECT_FALSE(testo_diagonali(matsis, n, t).has_value()) << n << ' ' << t;
        EXPECT_FALSE(combinazioni_diagonali(matsis, n, t).has_value()) << n << ' ' << t;
    }
}

}  // namespace
