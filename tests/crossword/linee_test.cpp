#include "crossword/linee.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <utility>

using namespace crossword;

namespace {

/// Predicate of the cells (x, y) of one line.
using Sta = std::function<bool(int, int)>;

/// Lines of a grid by their equations, in the order in which a development lists them.
struct Equazione {
    Gruppo gruppo;
    Sta sta;
};

std::vector<Equazione> equazioni(int c, int r, bool adiacenti) {
    std::vector<Equazione> e;
    const int n = c - 1;
    const auto differenza = [&e](int d) {
        e.push_back({Gruppo::diagonali, [d](int x, int y) { return x - y == d; }});
    };
    const auto somma = [&e](int s) {
        e.push_back({Gruppo::diagonali, [s](int x, int y) { return x + y == s; }});
    };
    for (int k = 0; k < r; ++k) {
        e.push_back({Gruppo::orizzontali, [k](int, int y) { return y == k; }});
    }
    if (c == r) differenza(0);
    if (c == r && c >= 7 && adiacenti) differenza(1);
    if (c == r && c >= 7 && adiacenti) differenza(-1);
    for (int k = 0; k < c; ++k) {
        e.push_back({Gruppo::verticali, [k](int x, int) { return x == k; }});
    }
    if (c == r) somma(n);
    if (c == r && c >= 7 && adiacenti) somma(n - 1);
    if (c == r && c >= 7 && adiacenti) somma(n + 1);
    return e;
}

/// A grid whose cells all differ, up to 90 of them, then start again.
Matrice numerata(int c, int r, int da = 0) {
    Matrice m(c, r);
    for (int y = 0; y < r; ++y) {
        for (int x = 0; x < c; ++x) {
            m.scrivi(x, y, static_cast<std::int16_t>((y * c + x + da) % 90 + 1));
        }
    }
    return m;
}

std::bitset<91> vietati_per_definizione(const Matrice& m, int r, int c) {
    std::bitset<91> vietati;
    for (const Equazione& linea : equazioni(m.colonne(), m.righe(), true)) {
        if (!linea.sta(c, r)) continue;
        for (int y = 0; y < m.righe(); ++y) {
            for (int x = 0; x < m.colonne(); ++x) {
                if (linea.sta(x, y) && !(x == c && y == r)) {
                    vietati.set(static_cast<std::size_t>(m(x, y)));
                }
            }
        }
    }
    return vietati;
}

/// Cells that bar their number from the cell of row `r`, column `c`.
std::set<std::pair<int, int>> caselle(int lato_x, int lato_y, int r, int c) {
    std::set<std::pair<int, int>> trovate;
    for (int y = 0; y < lato_y; ++y) {
        for (int x = 0; x < lato_x; ++x) {
            Matrice m(lato_x, lato_y);
            m.scrivi(x, y, 33);
            if (numeri_sulle_linee(m, r, c).test(33)) trovate.insert({x, y});
        }
    }
    return trovate;
}

TEST(NumeriSulleLinee, ComeLaDefinizioneInOgniCasellaDiOgniMisura) {
    for (int c = 5; c <= 15; ++c) {
        for (int r = 5; r <= 15; ++r) {
            // Three numberings, so that grids of more than 90 cells hide nothing.
            for (const int da : {0, 37, 61}) {
                const Matrice m = numerata(c, r, da);
                for (int y = 0; y < r; ++y) {
                    for (int x = 0; x < c; ++x) {
                        ASSERT_EQ(numeri_sulle_linee(m, y, x), vietati_per_definizione(m, y, x))
                            << c << " x " << r << ", column " << x << ", row " << y;
                    }
                }
            }
        }
    }
}

TEST(NumeriSulleLinee, NellaSeiPerSeiRigaColonnaEDiagonaleSoltanto) {
    std::set<std::pair<int, int>> attese;
    for (int i = 0; i < 6; ++i) {
        attese.insert({2, i});
        attese.insert({i, 2});
        attese.insert({i, i});
    }
    attese.erase({2, 2});
    EXPECT_EQ(caselle(6, 6, 2, 2), attese);
}

TEST(NumeriSulleLinee, NellaSettePerSetteAncheLaDiagonaleAdiacente) {
    std::set<std::pair<int, int>> attese;
    for (int i = 0; i < 7; ++i) {
        attese.insert({3, i});
        attese.insert({i, 2});
        if (i < 6) attese.insert({i + 1, i});
        if (i < 6) attese.insert({i, 5 - i});
    }
    attese.erase({3, 2});
    EXPECT_EQ(caselle(7, 7, 2, 3), attese);
}

TEST(NumeriSulleLinee, NellaSeiPerOttoNessunaDiagonale) {
    std::set<std::pair<int, int>> attese;
    for (int y = 0; y < 8; ++y) attese.insert({2, y});
    for (int x = 0; x < 6; ++x) attese.insert({x, 2});
    attese.erase({2, 2});
    EXPECT_EQ(caselle(6, 8, 2, 2), attese);
}

TEST(NumeriSulleLinee, UnaCasellaSuPiuLineeLeSubisceTutte) {
    // The middle cell of a 7 x 7 grid lies on both long diagonals.
    const auto viste = caselle(7, 7, 3, 3);
    EXPECT_EQ(viste.size(), 24U);
    EXPECT_TRUE(viste.contains({0, 0}));
    EXPECT_TRUE(viste.contains({6, 0}));
}

TEST(NumeriSulleLinee, IlNumeroDellaCasellaStessaRestaPermesso) {
    Matrice m(7, 7);
    m.scrivi(3, 2, 18);
    EXPECT_FALSE(numeri_sulle_linee(m, 2, 3).test(18));
    m.scrivi(3, 6, 18);
    EXPECT_TRUE(numeri_sulle_linee(m, 2, 3).test(18));
}

TEST(NumeriSulleLinee, UnaCasellaVuotaSegnaLoZero) {
    EXPECT_TRUE(numeri_sulle_linee(Matrice(6, 6), 0, 0).test(0));
    EXPECT_FALSE(numeri_sulle_linee(numerata(6, 6), 0, 0).test(0));
}

TEST(NumeriSulleLinee, NumeriGuastiECaselleInesistentiNonFannoDanno) {
    Matrice m(7, 7);
    m.scrivi(1, 0, 91);
    m.scrivi(2, 0, -1);
    m.scrivi(3, 0, 32767);
    EXPECT_EQ(numeri_sulle_linee(m, 0, 0).count(), 1U);
    EXPECT_EQ(numeri_sulle_linee(numerata(7, 7), 40, -3), std::bitset<91>(1));
    EXPECT_TRUE(numeri_sulle_linee(Matrice(), 0, 0).none());
}

TEST(CelleSulleLinee, SonoQuelleCheSbarranoEFuoriDallaGrigliaNessuna) {
    for (const auto& [colonne, righe] : {std::pair{6, 6}, std::pair{7, 7}, std::pair{8, 6}}) {
        const Matrice m(colonne, righe);
        for (int r = 0; r < righe; ++r) {
            for (int c = 0; c < colonne; ++c) {
                std::set<std::pair<int, int>> trovate;
                for (const crossword::Incrocio& i : crossword::celle_sulle_linee(m, r, c))
                    trovate.insert({i.x, i.y});
                EXPECT_EQ(trovate, caselle(colonne, righe, r, c)) << r << "," << c;
            }
        }
        EXPECT_TRUE(crossword::celle_sulle_linee(m, -1, 0).empty());
        EXPECT_TRUE(crossword::celle_sulle_linee(m, 0, colonne).empty());
    }
}

TEST(LineeSviluppo, ComeLaDefinizioneInOgniMisuraEGioco) {
    for (const Gioco gioco : {Gioco::superenalotto(), Gioco::lotto()}) {
        for (int c = 5; c <= 15; ++c) {
            for (int r = 5; r <= 15; ++r) {
                const Matrice m = numerata(c, r);
                const auto linee = linee_sviluppo(m, gioco);
                const auto attese = equazioni(c, r, !gioco.e_lotto());
                ASSERT_EQ(linee.size(), attese.size()) << c << " x " << r;
                for (std::size_t i = 0; i < linee.size(); ++i) {
                    std::multiset<int> numeri;
                    for (int y = 0; y < r; ++y) {
                        for (int x = 0; x < c; ++x) {
                            if (attese[i].sta(x, y)) numeri.insert(m(x, y));
                        }
                    }
                    ASSERT_EQ(std::multiset<int>(linee[i].numeri.begin(), linee[i].numeri.end()),
                              numeri);
                    ASSERT_EQ(linee[i].gruppo, attese[i].gruppo);
                }
            }
        }
    }
}

/// Lines of each group, in the order in which groups follow one another.
std::vector<std::pair<Gruppo, int>> gruppi(const std::vector<Linea>& linee) {
    std::vector<std::pair<Gruppo, int>> trovati;
    for (const Linea& linea : linee) {
        if (trovati.empty() || trovati.back().first != linea.gruppo) {
            trovati.emplace_back(linea.gruppo, 0);
        }
        ++trovati.back().second;
    }
    return trovati;
}

using Gruppi = std::vector<std::pair<Gruppo, int>>;
constexpr auto o = Gruppo::orizzontali;
constexpr auto v = Gruppo::verticali;
constexpr auto d = Gruppo::diagonali;

TEST(LineeSviluppo, VentiNellaSettePerSetteDelSuperenalotto) {
    const auto linee = linee_sviluppo(numerata(7, 7), Gioco());
    EXPECT_EQ(linee.size(), 20U);
    EXPECT_EQ(gruppi(linee), (Gruppi{{o, 7}, {d, 3}, {v, 7}, {d, 3}}));
}

TEST(LineeSviluppo, SediciNellaSettePerSetteDelLotto) {
    const auto linee = linee_sviluppo(numerata(7, 7), Gioco::lotto());
    EXPECT_EQ(linee.size(), 16U);
    EXPECT_EQ(gruppi(linee), (Gruppi{{o, 7}, {d, 1}, {v, 7}, {d, 1}}));
}

TEST(LineeSviluppo, NessunaAdiacenteNellaSeiPerSei) {
    EXPECT_EQ(gruppi(linee_sviluppo(numerata(6, 6), Gioco())),
              (Gruppi{{o, 6}, {d, 1}, {v, 6}, {d, 1}}));
}

TEST(LineeSviluppo, RettangolareRigheDaSeiEColonneDaOtto) {
    const auto linee = linee_sviluppo(numerata(6, 8), Gioco());
    EXPECT_EQ(gruppi(linee), (Gruppi{{o, 8}, {v, 6}}));
    for (const Linea& linea : linee) EXPECT_EQ(linea.numeri.size(), linea.gruppo == o ? 6U : 8U);
}

TEST(LineeSviluppo, DiagonaliIntereEAdiacentiConILoroNumeri) {
    Matrice m(7, 7);
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 7; ++x) m.scrivi(x, y, static_cast<std::int16_t>(10 * x + y + 1));
    }
    const auto linee = linee_sviluppo(m, Gioco());
    using Numeri = std::vector<std::uint8_t>;
    const auto ordinati = [&linee](std::size_t i) {
        Numeri numeri = linee[i].numeri;
        std::sort(numeri.begin(), numeri.end());
        return numeri;
    };
    EXPECT_EQ(ordinati(7), (Numeri{1, 12, 23, 34, 45, 56, 67}));
    EXPECT_EQ(ordinati(8), (Numeri{11, 22, 33, 44, 55, 66}));
    EXPECT_EQ(ordinati(9), (Numeri{2, 13, 24, 35, 46, 57}));
    EXPECT_EQ(ordinati(17), (Numeri{7, 16, 25, 34, 43, 52, 61}));
    EXPECT_EQ(ordinati(18), (Numeri{6, 15, 24, 33, 42, 51}));
    EXPECT_EQ(ordinati(19), (Numeri{17, 26, 35, 44, 53, 62}));
}

TEST(LineeSviluppo, NumeriCheNonSonoByteNonPassanoPerAltri) {
    Matrice m(6, 6);
    m.scrivi(0, 0, 300);
    m.scrivi(1, 0, -1);
    m.scrivi(2, 0, 255);
    EXPECT_EQ(linee_sviluppo(m, Gioco())[0].numeri,
              (std::vector<std::uint8_t>{0, 0, 255, 0, 0, 0}));
}

TEST(Sbarre, DiconoSuQualiLineeStaUnNumero) {
    Matrice m(6, 6);
    m.scrivi(0, 3, 10);
    m.scrivi(2, 0, 20);
    m.scrivi(5, 5, 30);
    m.scrivi(4, 4, 10);
    m.scrivi(2, 2, 40);
    const auto s = sbarre(m, 3, 3);
    EXPECT_EQ(s[10], sulla_riga | sulla_diagonale);
    EXPECT_EQ(s[20], nessuna);
    EXPECT_EQ(s[30], sulla_diagonale);
    EXPECT_EQ(sbarre(m, 2, 2)[20], sulla_colonna);
    EXPECT_EQ(sbarre(m, 2, 2)[40], nessuna);
}

TEST(Posa, UnNumeroCheStaSuUnaLineaNonEntra) {
    Matrice m(7, 7);
    ASSERT_TRUE(posa(m, 0, 0, 5));
    const Matrice prima = m;
    for (const auto& [x, y] : {std::pair{6, 0}, {0, 6}, {3, 3}}) EXPECT_FALSE(posa(m, x, y, 5));
    for (const int fuori : {-1, 0, 91, 65541}) EXPECT_FALSE(posa(m, 2, 1, fuori));
    EXPECT_FALSE(posa(m, 7, 1, 9));
    EXPECT_FALSE(posa(m, 1, -1, 9));
    EXPECT_EQ(m, prima);
    EXPECT_TRUE(posa(m, 0, 0, 5));
    EXPECT_TRUE(posa(m, 0, 0, 6));
    EXPECT_TRUE(posa(m, 2, 1, 5));
    EXPECT_FALSE(posa(m, 3, 2, 5));
    EXPECT_EQ(m(2, 1), 5);
}

TEST(LineeSviluppo, UnaMatriceCancellataNonHaLinee) {
    EXPECT_TRUE(linee_sviluppo(Matrice(), Gioco()).empty());
    EXPECT_TRUE(linee_sviluppo(Matrice(), Gioco::lotto()).empty());
}

}  // namespace
