#include "development/coperture.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "development/copertura_locale.h"
#include "development/garanzie.h"
#include "development/gruppi.h"
#include "development/riempimento.h"

using namespace development;

namespace {

std::uint64_t scoperti_di(const std::vector<Maschera>& righe, const Desiderio& d) {
    return buchi({d.n, d.k, righe}, {d.p, d.t}, 0).quanti;
}

TEST(Coperture, LimitiDeiConteggiEDiSchonheim) {
    EXPECT_EQ(limite_inferiore({15, 6, 6, 5}), 91);
    EXPECT_EQ(limite_inferiore({13, 6, 6, 4}), 5);
    EXPECT_EQ(limite_inferiore({15, 5, 4, 4}), 273);
    EXPECT_EQ(limite_inferiore({12, 6, 5, 5}), 132);
    EXPECT_EQ(limite_inferiore({6, 6, 6, 6}), 1);
    EXPECT_EQ(limite_inferiore({7, 6, 6, 3}), 1);
}

TEST(Coperture, DoveIlConteggioEPiuBassoValeIlLimiteDiSchonheim) {
    EXPECT_EQ(limite_inferiore({9, 4, 2, 2}), 7);
    EXPECT_EQ(limite_inferiore({11, 5, 2, 2}), 7);
    // It holds only where all that is drawn must be in one row.
    EXPECT_EQ(limite_inferiore({9, 4, 3, 2}), 3);
}

TEST(Coperture, CioCheNonSiPuoChiedereHaIlSuoPerche) {
    const auto dice = [](const Desiderio& d, const char* parte) {
        EXPECT_NE(impossibile(d).find(parte), std::string::npos) << impossibile(d);
    };
    EXPECT_EQ(impossibile({15, 6, 6, 5}), "");
    EXPECT_EQ(impossibile({15, 6, 6, 5, 91}), "");
    EXPECT_EQ(impossibile({6, 5, 6, 5}), "") << "all of them are drawn";
    EXPECT_EQ(impossibile({20, 6, 6, 4, 32768}), "");
    dice({20, 6, 6, 4, 32769}, "la ricerca è troppo grande: 32769 righe");
    dice({15, 6, 4, 5}, "con 4 estratti non se ne indovinano 5");
    dice({15, 6, 4, 0}, "con 4 estratti non se ne indovinano 0");
    dice({5, 6, 5, 4}, "una combinazione di 6 non sta in 5 numeri");
    dice({31, 6, 6, 5}, "i numeri vanno da 1 a 30");
    dice({0, 6, 6, 5}, "i numeri vanno da 1 a 30");
    dice({30, 21, 6, 5}, "una combinazione ha da 1 a 20 numeri");
    dice({7, 6, 8, 5}, "non si estraggono 8 numeri su 7");
    dice({8, 4, 6, 5}, "nessuna combinazione di 4 numeri ne contiene 5");
    dice({15, 6, 6, 5, 90}, "90 righe sono poche: per questa garanzia ne servono almeno 91");
    dice({12, 6, 3, 3, 1}, "1 riga è poca");
    dice({6, 5, 5, 4, 7}, "le combinazioni possibili sono 6");
    dice({30, 15, 15, 5}, "la ricerca è troppo grande");
    dice({30, 6, 6, 6}, "la ricerca è troppo grande: 593775 righe");
    dice({20, 6, 3, 2, 32769}, "la ricerca è troppo grande: 32769 righe");
    EXPECT_EQ(impossibile({20, 6, 3, 2, 32768}), "");
    EXPECT_EQ(impossibile({7, 6, 7, 5}), "");
}

TEST(Coperture, LeRigheSiOrdinanoComeNeiFile) {
    const auto riga = [](std::initializer_list<int> posizioni) {
        Maschera m = 0;
        for (const int p : posizioni) m |= bit_di(p);
        return m;
    };
    EXPECT_TRUE(riga_precede(riga({1, 2, 9}), riga({1, 3, 4})));
    EXPECT_FALSE(riga_precede(riga({1, 3, 4}), riga({1, 2, 9})));
    EXPECT_FALSE(riga_precede(riga({2, 3}), riga({2, 3})));
}

TEST(Coperture, GliStessiPassiDannoLaStessaTabella) {
    const Desiderio d{10, 6, 6, 5};
    Cercatore uno(d, 7);
    Cercatore due(d, 7);
    uno.passi(3000);
    due.passi(1000);
    due.passi(2000);
    Cercatore tre(d, 7);
    tre.passi(3000);
    EXPECT_EQ(uno.migliore(), tre.migliore());
    EXPECT_EQ(scoperti_di(uno.migliore(), d), 0U);
    EXPECT_EQ(scoperti_di(due.migliore(), d), 0U);
    EXPECT_TRUE(std::is_sorted(uno.migliore().begin(), uno.migliore().end(), riga_precede));
}

struct Nota {
    Desiderio desiderio;
    std::size_t righe;
};

TEST(Coperture, TrovaLeMisureNoteDelleTabellePiccole) {
    for (const Nota& nota : {Nota{{9, 6, 6, 5}, 7}, Nota{{8, 6, 6, 5}, 4}, Nota{{10, 6, 6, 4}, 3},
                             Nota{{9, 6, 4, 4}, 12}, Nota{{8, 5, 4, 4}, 20}, Nota{{7, 3, 2, 2}, 7},
                             Nota{{10, 4, 2, 2}, 9}, Nota{{7, 6, 6, 3}, 1}}) {
        Cercatore cercatore(nota.desiderio, 1);
        for (int giro = 0; giro < 400 && cercatore.migliore().size() != nota.righe; ++giro) {
            cercatore.passi(2000);
        }
        EXPECT_EQ(cercatore.migliore().size(), nota.righe);
        EXPECT_EQ(scoperti_di(cercatore.migliore(), nota.desiderio), 0U);
        const int limite = limite_inferiore(nota.desiderio);
        EXPECT_EQ(cercatore.finito(), nota.righe == static_cast<std::size_t>(limite));
    }
}

TEST(Coperture, ConLeRigheContateContaGiustiISorteggiScoperti) {
    const Desiderio d{9, 6, 4, 4, 11};
    Cercatore cercatore(d, 3);
    cercatore.passi(20000);
    EXPECT_EQ(cercatore.migliore().size(), 11U);
    EXPECT_GT(cercatore.scoperti(), 0U);
    EXPECT_LT(cercatore.scoperti(), 12U);
    EXPECT_EQ(scoperti_di(cercatore.migliore(), d), cercatore.scoperti());
    EXPECT_FALSE(cercatore.finito());
    Cercatore larga({9, 6, 4, 4, 20}, 3);
    larga.passi(20000);
    EXPECT_TRUE(larga.finito());
    EXPECT_EQ(larga.scoperti(), 0U);
    // With none missed, rows that are not needed stay out.
    EXPECT_LE(larga.migliore().size(), 20U);
}

/// Draws that have a row with more than the guarantee.
std::uint64_t sopra(const std::vector<Maschera>& righe, const Desiderio& d) {
    const Vincite v = vincite({d.n, d.k, righe}, d.p);
    std::uint64_t quanti = 0;
    for (auto t = static_cast<std::size_t>(d.t) + 1; t < v.migliore.size(); ++t)
        quanti += v.migliore[t];
    return quanti;
}

TEST(Coperture, LeRigheCheAvanzanoCompranoUnNumeroInPiu) {
    const Desiderio d{9, 6, 6, 4, 6};
    const std::vector<Maschera> base{0b000111111, 0b111000111, 0b111111000};
    ASSERT_EQ(scoperti_di(base, d), 0U);
    const auto tutte = riempi(d, base, 1, {});
    EXPECT_EQ(tutte.size(), 6U);
    EXPECT_TRUE(std::is_sorted(tutte.begin(), tutte.end(), riga_precede));
    EXPECT_EQ(std::set<Maschera>(tutte.begin(), tutte.end()).size(), 6U);
    for (const Maschera riga : base) {
        EXPECT_EQ(std::count(tutte.begin(), tutte.end(), riga), 1);
    }
    // Each row gives 19 draws five or more, and the three of the base share none.
    EXPECT_EQ(sopra(base, d), 57U);
    EXPECT_GE(sopra(tutte, d), 76U);
    // Where all draws have five, no more rows are added.
    const auto larga = riempi({9, 6, 6, 4, 40}, base, 1, {});
    EXPECT_EQ(sopra(larga, d), 84U);
    EXPECT_LT(larga.size(), 40U);
    // Four drawn of which all are guessed cannot be bettered.
    EXPECT_EQ(riempi({9, 6, 4, 4, 30}, base, 1, {}), base);
    // Told to end, it keeps what the first look gave.
    EXPECT_EQ(riempi(d, base, 1, [] { return true; }), base);
}

TEST(Coperture, ConLeRigheContateLaRicercaSpendeAncheQuelleCheAvanzano) {
    const Desiderio d{10, 6, 6, 4, 8};
    std::vector<Maschera> ultima;
    Condotta condotta;
    condotta.trovata = [&](const std::vector<Maschera>& righe, std::uint64_t) { ultima = righe; };
    cerca(d, condotta);
    EXPECT_EQ(ultima.size(), 8U);
    EXPECT_EQ(scoperti_di(ultima, d), 0U);
    EXPECT_GT(sopra(ultima, d), 120U);
}

TEST(Coperture, RiparteDaUnaTabella) {
    const Desiderio d{9, 5, 4, 4};
    Cercatore prima(d, 1);
    prima.passi(200);
    ASSERT_FALSE(prima.migliore().empty());
    Cercatore dopo(d, 2);
    dopo.parti_da(prima.migliore());
    dopo.passi(1);
    EXPECT_LE(dopo.migliore().size(), prima.migliore().size());
    EXPECT_EQ(scoperti_di(dopo.migliore(), d), 0U);
    // What is missing is added.
    Cercatore monca(d, 2);
    monca.parti_da({prima.migliore().front()});
    monca.passi(1);
    EXPECT_EQ(scoperti_di(monca.migliore(), d), 0U);
}

TEST(Coperture, NienteDiMeglioNonAllungaIPassi) {
    // Nine are the fewest, which no bound tells: the walk never ends by itself.
    const Desiderio d{10, 4, 2, 2};
    Cercatore cercatore(d, 1);
    for (int giro = 0; giro < 400 && cercatore.migliore().size() != 9U; ++giro) {
        cercatore.passi(500);
    }
    ASSERT_EQ(cercatore.migliore().size(), 9U);
    const auto prima = cercatore.migliore();
    for (int giro = 0; giro < 4; ++giro) cercatore.passi(200);
    EXPECT_FALSE(cercatore.finito());
    EXPECT_EQ(cercatore.migliore(), prima);
}

TEST(Coperture, LaSorteEUgualeDappertutto) {
    Sorte sorte(7);
    EXPECT_EQ(sorte.prossimo(), 3032837481128323614U);
    EXPECT_EQ(sorte.prossimo(), 6311112155195301960U);
    EXPECT_EQ(sorte.fino_a(90), 3U);
}

TEST(Coperture, IGruppiDiUnSemeSonoGliStessiDappertutto) {
    Sorte sorte(9);
    std::uint64_t orma = 14695981039346656037U;
    for (int giro = 0; giro < 200; ++giro) {
        for (const Permutazione& p : gruppo_a_caso(5 + giro % 11, sorte)) {
            for (const std::uint8_t posto : p) orma = (orma ^ posto) * 1099511628211U;
        }
    }
    EXPECT_EQ(orma, 9665496180571063348U);
}

TEST(Coperture, OgniGruppoDivideLeRigheENeDaDiBuone) {
    Sorte sorte(5);
    const Desiderio d{9, 5, 4, 3};
    for (int giro = 0; giro < 60; ++giro) {
        const auto gruppo = gruppo_a_caso(d.n, sorte);
        for (const Permutazione& p : gruppo) {
            ASSERT_EQ(std::set<std::uint8_t>(p.begin(), p.end()).size(), 9U);
            ASSERT_LT(*std::max_element(p.begin(), p.end()), 9);
        }
        const Orbite o = orbite(d, gruppo);
        std::set<std::uint32_t> tutte(o.righe.begin(), o.righe.end());
        ASSERT_EQ(tutte.size(), 126U);
        ASSERT_EQ(o.righe.size(), 126U);
        std::int64_t sorteggi = 0;
        for (const std::int32_t peso : o.incidenza.peso_riga) sorteggi += peso;
        ASSERT_EQ(sorteggi, 126);
        CoperturaLocale prova(o.incidenza, 1, 0);
        while (prova.fatti() < 50 && prova.passi(50 - prova.fatti(), 1)) {
        }
        const auto righe = o.espandi(prova.migliore());
        ASSERT_EQ(std::ssize(righe), prova.costo_migliore());
    }
}

TEST(Coperture, LeParoleSonoAlSingolareEAlPlurale) {
    EXPECT_EQ(colonne_in_parole(1), "1 colonna");
    EXPECT_EQ(colonne_in_parole(0), "0 colonne");
    EXPECT_EQ(colonne_in_parole(32), "32 colonne");
    EXPECT_EQ(scoperti_in_parole(1), "1 scoperto");
    EXPECT_EQ(scoperti_in_parole(2), "2 scoperti");
    // Of the 35 triples of seven, those that are rows.
    const std::vector<Maschera> fano{0b0000111, 0b0011001, 0b1100001, 0b0101010,
                                     0b1010010, 0b1001100, 0b0110100};
    EXPECT_EQ(scoperti_di(fano, {7, 3, 3, 2}), 0U);
    EXPECT_EQ(oltre_in_parole({7, 3, 3, 2}, fano), "3 o più nel 20 % dei casi");
    EXPECT_EQ(oltre_in_parole({7, 3, 2, 2}, fano), "");
    EXPECT_EQ(oltre_in_parole({7, 3, 4, 3}, fano), "");
}

TEST(Coperture, CioCheNonSiPuoNonSiCerca) {
    Condotta condotta;
    condotta.fermo = [] { return false; };
    condotta.trovata = [](const std::vector<Maschera>&, std::uint64_t) { FAIL(); };
    cerca({7, 3, 2, 3}, condotta);
    cerca({7, 3, 2, 2, 6}, condotta);
    cerca({31, 3, 2, 2}, condotta);
}

TEST(Coperture, UnaTabellaCEPrimaCheUnGiroSiaFinito) {
    std::vector<std::size_t> dette;
    Condotta condotta;
    condotta.fili = 1;
    condotta.fermo = [&] { return !dette.empty(); };
    condotta.trovata = [&](const std::vector<Maschera>& righe, std::uint64_t) {
        EXPECT_EQ(scoperti_di(righe, {12, 6, 6, 5}), 0U);
        dette.push_back(righe.size());
    };
    cerca({12, 6, 6, 5}, condotta);
    ASSERT_FALSE(dette.empty());
    // A whole turn comes to 42 at most.
    EXPECT_GT(dette.front(), 45U);
    // And however early it is told to end.
    dette.clear();
    condotta.fermo = [] { return true; };
    cerca({12, 6, 6, 5}, condotta);
    EXPECT_FALSE(dette.empty());
}

TEST(Coperture, SuPiuFiliDiceOgniTabellaMiglioreEFinisceAlLimite) {
    const Desiderio d{7, 3, 2, 2};
    std::vector<std::size_t> dette;
    Condotta condotta;
    condotta.trovata = [&](const std::vector<Maschera>& righe, std::uint64_t scoperti) {
        EXPECT_EQ(scoperti, 0U);
        EXPECT_EQ(scoperti_di(righe, d), 0U);
        dette.push_back(righe.size());
    };
    cerca({12, 6, 5, 5},
          {.seme = 1, .fili = 2, .inizio = {}, .fermo = [] { return true; }, .trovata = {}});
    condotta.fili = 0;
    cerca(d, condotta);
    EXPECT_FALSE(dette.empty()) << "one thread at least";
    condotta.fili = 2;
    dette.clear();
    cerca(d, condotta);
    ASSERT_FALSE(dette.empty());
    EXPECT_EQ(static_cast<int>(dette.back()), limite_inferiore(d));
    EXPECT_TRUE(std::is_sorted(dette.rbegin(), dette.rend()));
}

}  // namespace
