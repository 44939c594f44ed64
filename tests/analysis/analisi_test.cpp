#include "analysis/analisi.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>

#include "analysis/cinque_piu_uno.h"
#include "analysis/giocate_prova.h"
#include "analysis/storico.h"
#include "development/garanzie.h"
#include "development/tabella_rigorosa.h"

using namespace analysis;
using prova::Caso;
using prova::Riga;

namespace {

Giocate prepara(const std::vector<Riga>& righe, int numeri) {
    Giocate giocate;
    EXPECT_EQ(prepara_giocate(righe, numeri, giocate), Lettura::letta);
    return giocate;
}

Analisi analizzato(const Giocate& giocate, int estratti, int esecutori = 1) {
    Analisi analisi;
    EXPECT_TRUE(analizza(giocate, estratti, esecutori, analisi));
    return analisi;
}

/// What every set of `k` numbers gives, each set against each combination.
struct Conteggio {
    std::array<std::uint64_t, 7> migliore{};
    std::int64_t minimo = -1;                ///< combinations that reach what is guaranteed
    std::vector<std::vector<Numeri>> sotto;  ///< [t]: the sets with less than t, in order
};

Conteggio conta(const Giocate& giocate, int k, int garantito) {
    Conteggio c;
    c.sotto.resize(7);
    const std::vector<std::uint32_t> combinazioni = prova::maschere(giocate);
    prova::per_ogni_insieme(giocate.quanti(), k, [&](std::uint32_t s) {
        int migliore = 0;
        std::int64_t quante = 0;
        for (const std::uint32_t m : combinazioni) {
            const int colpi = std::popcount(m & s);
            migliore = std::max(migliore, colpi);
            quante += colpi >= garantito ? 1 : 0;
        }
        ++c.migliore[static_cast<std::size_t>(migliore)];
        if (c.minimo < 0 || quante < c.minimo) c.minimo = quante;
        Numeri numeri;
        for (int r = 0; r < giocate.quanti(); ++r) {
            if ((s >> r & 1) != 0) numeri.push_back(giocate.in_gioco[static_cast<std::size_t>(r)]);
        }
        for (int t = migliore + 1; t < 7; ++t) {
            c.sotto[static_cast<std::size_t>(t)].push_back(numeri);
        }
    });
    for (auto& quali : c.sotto) std::sort(quali.begin(), quali.end());
    return c;
}

void confronta(const Giocate& giocate, int estratti, const Analisi& a) {
    const Distribuzione& d = a.distribuzione;
    std::vector<Conteggio> conteggi(1);
    for (int k = 1; k <= estratti; ++k) {
        conteggi.push_back(conta(giocate, k, d.garantito(k)));
        const Conteggio& c = conteggi.back();
        EXPECT_EQ(d.migliore[static_cast<std::size_t>(k)], c.migliore) << "k = " << k;
        std::uint64_t tutti = 0;
        for (const std::uint64_t quanti : c.migliore) tutti += quanti;
        if (tutti == 0) continue;
        int garantito = 0;
        while (c.migliore[static_cast<std::size_t>(garantito)] == 0) ++garantito;
        EXPECT_EQ(d.garantito(k), garantito) << "k = " << k;
        const Minimo& minimo = a.minimi[static_cast<std::size_t>(k)];
        EXPECT_TRUE(minimo.esatto);
        EXPECT_EQ(minimo.combinazioni, c.minimo) << "k = " << k << ", t = " << garantito;
    }
    for (const Buchi& b : a.buchi) {
        for (int k = b.t; k <= estratti; ++k) {
            const auto& sotto =
                conteggi[static_cast<std::size_t>(k)].sotto[static_cast<std::size_t>(b.t)];
            if (sotto.empty()) continue;
            ASSERT_EQ(b.k, k) << "t = " << b.t;
            EXPECT_EQ(b.quanti, sotto.size());
            const std::size_t primi = std::min(buchi_massimi, sotto.size());
            EXPECT_EQ(b.primi,
                      std::vector<Numeri>(sotto.begin(),
                                          sotto.begin() + static_cast<std::ptrdiff_t>(primi)));
            break;
        }
    }
}

TEST(Analisi, ComeContandoOgniInsiemeSuSistemiACaso) {
    Caso caso(1);  // NOLINT: the same systems every run
    for (int prova = 0; prova < 300; ++prova) {
        const int numeri = 3 + prova % 4;
        const int in_gioco = numeri + 2 + prova::a_caso(caso, prova % 10 == 0 ? 16 : 9);
        const int lunga = std::min(in_gioco, numeri + prova::a_caso(caso, 5));
        const auto righe = prova::righe_a_caso(caso, in_gioco, 1 + prova::a_caso(caso, 6), lunga,
                                               numeri, 1 + prova::a_caso(caso, 4));
        if (righe.empty()) continue;
        const Giocate giocate = prepara(righe, numeri);
        const int estratti = numeri == 6 ? 6 : 5;
        SCOPED_TRACE(prova);
        confronta(giocate, estratti, analizzato(giocate, estratti, 1 + prova % 3));
    }
}

TEST(Analisi, TutteLeEstrazioniDelGioco) {
    Caso caso(2);  // NOLINT: the same systems every run
    for (int numeri = 3; numeri <= 6; ++numeri) {
        const Giocate giocate = prepara(prova::righe_a_caso(caso, 20, 4, 9, numeri, 2), numeri);
        const Distribuzione d = analizzato(giocate, numeri == 6 ? 6 : 5).distribuzione;
        std::uint64_t tutte = 0;
        for (int t = 0; t <= 6; ++t) tutte += d.estrazioni(t);
        EXPECT_EQ(tutte, numeri == 6 ? 622614630U : 43949268U);
        EXPECT_EQ(d.estrazioni_possibili(), tutte);
        EXPECT_EQ(d.estrazioni_almeno(0), tutte);
        // One number in play and the others not: the best combination has it.
        EXPECT_GT(d.estrazioni(1), 0U);
        EXPECT_EQ(d.estrazioni_almeno(3), d.estrazioni_almeno(2) - d.estrazioni(2));
    }
}

TEST(Analisi, UnaCombinazioneSola) {
    const Analisi a = analizzato(prepara({{4, 17, 23, 38, 61, 90}}, 6), 6);
    // The numbers of the game's own tables.
    EXPECT_EQ(a.distribuzione.estrazioni(6), 1U);
    EXPECT_EQ(a.distribuzione.estrazioni(5), 504U);
    EXPECT_EQ(a.distribuzione.estrazioni(4), 52290U);
    EXPECT_EQ(a.distribuzione.estrazioni(3), 1905680U);
    EXPECT_EQ(a.cinque_piu_uno, 6U * 84);
    EXPECT_NEAR(a.medie.combinazioni[3], 1905680.0 / 622614630, 1e-15);
    EXPECT_NEAR(a.medie.cinque_piu_uno, 6.0 / 622614630, 1e-18);
    EXPECT_NEAR(a.medie.combinazioni[5], 498.0 / 622614630, 1e-15);
}

TEST(Analisi, OgniTabellaSuUnaLineaVinceComeLaSuaTavola) {
    int tabelle = 0;
    for (const auto& voce : std::filesystem::directory_iterator(SUITE_DIR "/ridotti")) {
        const auto nome = development::leggi_nome(voce.path().string());
        if (!nome) continue;
        std::ifstream f(voce.path(), std::ios::binary);
        const std::string contenuto{std::istreambuf_iterator<char>(f), {}};
        const auto tabella = development::leggi_rigorosa(contenuto, nome->n, nome->k()).tabella;
        std::vector<Riga> righe;
        for (const development::Maschera m : tabella.righe) {
            Riga riga{};
            std::size_t i = 0;
            for (int p = 1; p <= tabella.n; ++p) {
                if ((m & development::bit_di(p)) != 0) riga[i++] = static_cast<std::int16_t>(p);
            }
            righe.push_back(riga);
        }
        const Giocate giocate = prepara(righe, tabella.k);
        const int estratti = tabella.k == 6 ? 6 : 5;
        const Analisi a = analizzato(giocate, estratti);
        for (int k = 1; k <= estratti; ++k) {
            const auto v = development::vincite(tabella, k);
            // A position that no row holds is no number in play.
            if (giocate.quanti() < tabella.n) break;
            const auto& migliore = a.distribuzione.migliore[static_cast<std::size_t>(k)];
            EXPECT_TRUE(std::equal(v.migliore.begin(), v.migliore.end(), migliore.begin()))
                << nome->testo() << " k = " << k;
            EXPECT_EQ(a.distribuzione.garantito(k), v.garantito()) << nome->testo();
            EXPECT_EQ(
                static_cast<std::uint64_t>(a.minimi[static_cast<std::size_t>(k)].combinazioni),
                v.minime[static_cast<std::size_t>(v.garantito())])
                << nome->testo() << " k = " << k;
        }
        ++tabelle;
    }
    EXPECT_EQ(tabelle, 136);
}

TEST(Analisi, CinquePiuUnoComeContando) {
    Caso caso(3);  // NOLINT: the same systems every run
    for (int prova = 0; prova < 60; ++prova) {
        const int in_gioco = 7 + prova::a_caso(caso, 7);
        const auto righe = prova::righe_a_caso(caso, in_gioco, 1 + prova::a_caso(caso, 4),
                                               std::min(in_gioco, 7 + prova::a_caso(caso, 3)), 6,
                                               1 + prova::a_caso(caso, 5));
        if (righe.empty()) continue;
        const Giocate giocate = prepara(righe, 6);
        const std::vector<std::uint32_t> combinazioni = prova::maschere(giocate);
        const int n = giocate.quanti();
        const auto vince = [&](std::uint32_t estratti, int jolly) {
            return std::any_of(combinazioni.begin(), combinazioni.end(), [&](std::uint32_t m) {
                return std::popcount(m & estratti) == 5 && (m >> jolly & 1) != 0;
            });
        };
        std::uint64_t attese = 0;
        for (int k = 5; k <= 6; ++k) {
            prova::per_ogni_insieme(n, k, [&](std::uint32_t s) {
                if (std::find(combinazioni.begin(), combinazioni.end(), s) != combinazioni.end()) {
                    return;
                }
                for (int jolly = 0; jolly < n; ++jolly) {
                    if ((s >> jolly & 1) != 0 || !vince(s, jolly)) continue;
                    attese += static_cast<std::uint64_t>(k == 6 ? 1 : 90 - n);
                }
            });
        }
        EXPECT_EQ(conta_cinque_piu_uno(giocate), attese) << prova;
    }
}

TEST(Analisi, EstrazioniACasoVannoDAccordo) {
    const char* richieste = std::getenv("TABELLINO_ESTRAZIONI");
    const int prove = richieste != nullptr ? std::atoi(richieste) : 2000;
    // Few numbers in play keep the walk short where nobody asked for more draws.
    const int altri = richieste != nullptr ? 70 : 30;
    Caso caso(4);  // NOLINT: the same draws every run
    for (const int lunga : {11, 12, 13}) {
        const Giocate giocate =
            prepara(prova::righe_a_caso(caso, altri + lunga, 32, lunga, 6, 1), 6);
        const Distribuzione d = analizzato(giocate, 6, 2).distribuzione;
        const Mappe mappe(giocate);
        std::array<int, 7> almeno{};
        for (int i = 0; i < prove; ++i) {
            Estrazione e;
            const std::vector<int> numeri = prova::numeri_a_caso(caso, 6);
            for (std::size_t n = 0; n < 6; ++n) e.numeri[n] = static_cast<std::uint8_t>(numeri[n]);
            for (int t = 0; t <= mappe.conta(e).migliore(); ++t) {
                ++almeno[static_cast<std::size_t>(t)];
            }
        }
        for (int t = 1; t <= 5; ++t) {
            const double p = static_cast<double>(d.estrazioni_almeno(t)) / 622614630;
            const double errore = std::sqrt(p * (1 - p) / prove);
            EXPECT_NEAR(almeno[static_cast<std::size_t>(t)] / static_cast<double>(prove), p,
                        5 * errore + 1.0 / prove)
                << lunga << " numbers a line, t = " << t;
        }
    }
}

TEST(Analisi, SiFermaDovunque) {
    Caso caso(5);  // NOLINT: the same system every run
    const Giocate giocate = prepara(prova::righe_a_caso(caso, 30, 6, 9, 6, 1), 6);
    int passi = 0;
    double prima = 0;
    Analisi analisi;
    ASSERT_TRUE(analizza(giocate, 6, 1, analisi, [&](double parte) {
        EXPECT_GE(parte, prima);
        EXPECT_LE(parte, 1.0);
        prima = parte;
        ++passi;
        return true;
    }));
    ASSERT_GT(passi, 20);
    for (int dopo = 0; dopo < passi; dopo += 1 + passi / 40) {
        int fatti = 0;
        EXPECT_FALSE(analizza(giocate, 6, 1, analisi, [&](double) { return fatti++ < dopo; }));
    }
}

TEST(Analisi, LAndamentoPassaPerMolteParti) {
    Caso caso(5);  // NOLINT: the same system every run
    const Giocate giocate = prepara(prova::righe_a_caso(caso, 30, 6, 9, 6, 1), 6);
    std::set<double> parti;
    Analisi analisi;
    ASSERT_TRUE(analizza(giocate, 6, 1, analisi, [&](double parte) {
        parti.insert(parte);
        return true;
    }));
    EXPECT_GT(parti.size(), 20U);
    EXPECT_LT(*parti.begin(), 0.2);
    EXPECT_GT(*parti.rbegin(), 0.8);
}

TEST(Medie, QuantoTornaDiOgniEuro) {
    const Medie medie = calcola_medie(1000, 5, 5);
    EXPECT_NEAR(medie.combinazioni[5], 1000.0 / 43949268, 1e-12);
    EXPECT_EQ(medie.cinque_piu_uno, 0);
    Premi premi;
    premi.premio[2] = 10;
    EXPECT_NEAR(ritorno(medie, premi, 1000), medie.combinazioni[2] / 100, 1e-12);
    EXPECT_EQ(ritorno(medie, premi, 0), 0);
}

}  // namespace
