// The parts of the search: the lines, the estimates kept up to date, a million steps.
#include "analysis/ricerca.h"

#include <bit>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "analysis/cruciverba_prova.h"
#include "analysis/disposizione.h"
#include "development/tabelle.h"

using namespace analysis;
using crossword::Gioco;
using crossword::Matrice;
using prova::a_caso;
using prova::Caso;

namespace {

const std::string tabelle = SUITE_DIR "/ridotti";

systems::Sistema integrale(Gioco gioco, Matrice m) {
    systems::Sistema s;
    s.gioco = gioco;
    s.tipo_righe = s.tipo_colonne = s.tipo_diagonali = 0;
    s.matrice = std::move(m);
    return s;
}

/// Finds every layout as good as any other.
class Indifferente : public Stima {
public:
    void cambia(std::span<const Cambio> /*cambi*/) override {}
};

Matrice matrice(const Celle& celle, int colonne, int righe) {
    Matrice m(colonne, righe);
    for (int i = 0; i < colonne * righe; ++i) {
        m.scrivi(i % colonne, i / colonne, celle[static_cast<std::size_t>(i)]);
    }
    return m;
}

std::uint64_t gruppi_coperti(const Giocate& giocate, int t) {
    std::set<std::vector<int>> gruppi;
    for (const Ranghi& r : giocate.combinazioni) {
        prova::per_ogni_insieme(giocate.numeri, t, [&](std::uint32_t quali) {
            std::vector<int> gruppo;
            for (std::size_t i = 0; i < 6; ++i) {
                if ((quali >> i & 1) != 0) gruppo.push_back(r[i]);
            }
            gruppi.insert(gruppo);
        });
    }
    return gruppi.size();
}

}  // namespace

TEST(Ricerca, DueCaselleSonoInLineaQuandoLUnaSbarraLAltra) {
    for (const auto& [colonne, righe] : {std::pair{5, 5}, {6, 6}, {7, 7}, {8, 6}, {15, 15}}) {
        for (const Gioco gioco : {Gioco::superenalotto(), Gioco::lotto(3)}) {
            const Schema schema(integrale(gioco, Matrice(colonne, righe)), tabelle);
            for (int p = 0; p < colonne * righe; ++p) {
                Matrice m(colonne, righe);
                m.scrivi(p % colonne, p / colonne, 9);
                for (int q = 0; q < colonne * righe; ++q) {
                    if (p == q) continue;
                    const auto [a, b] = std::pair{schema.regola[static_cast<std::size_t>(p)],
                                                  schema.regola[static_cast<std::size_t>(q)]};
                    ASSERT_EQ((a & b) != 0,
                              crossword::numeri_sulle_linee(m, q / colonne, q % colonne).test(9))
                        << p << " " << q;
                }
            }
        }
    }
}

TEST(Ricerca, UnaLineaRaggiungeConOgniInsiemeCheTieneAbbastanzaDiUnaRiga) {
    TipoLinea tipo;
    tipo.n = 7;
    tipo.righe = {0b0000111, 0b1110000};
    for (int t = 1; t <= 3; ++t) {
        const std::vector<bool> si = tipo.raggiunge(t);
        ASSERT_EQ(si.size(), 128U);
        for (unsigned s = 0; s < 128; ++s) {
            const int meglio =
                std::max(std::popcount(s & 0b0000111U), std::popcount(s & 0b1110000U));
            EXPECT_EQ(si[s], meglio >= t) << s << " " << t;
        }
    }
}

TEST(Ricerca, LoSchemaGiocaLeRigheDelleTabellePerRango) {
    Caso caso(3);  // NOLINT: the same systems every run
    for (int prova = 0; prova < 60; ++prova) {
        const auto s = prova::sistema(caso, 9, 12);
        if (!s) continue;
        std::set<std::vector<int>> attese;
        for (const crossword::Linea& linea : crossword::linee_sviluppo(s->matrice, s->gioco)) {
            std::vector<std::uint8_t> numeri = linea.numeri;
            std::sort(numeri.begin(), numeri.end());
            const int n = static_cast<int>(numeri.size());
            const int tipo = linea.gruppo == crossword::Gruppo::orizzontali ? s->tipo_righe
                             : linea.gruppo == crossword::Gruppo::verticali ? s->tipo_colonne
                                                                            : s->tipo_diagonali;
            const auto t = development::leggi_tabella(
                tabelle + "/" + development::nome_tabella(s->gioco, n, tipo), s->gioco.numeri(), n);
            for (std::size_t i = 0; i < t.posizioni.size(); i += static_cast<std::size_t>(t.k)) {
                std::vector<int> riga;
                for (int j = 0; j < t.k; ++j) {
                    riga.push_back(numeri[t.posizioni[i + static_cast<std::size_t>(j)] - 1U]);
                }
                attese.insert(riga);
            }
        }
        const Giocate giocate = sviluppa(Schema(*s, tabelle), prova::celle(s->matrice));
        std::set<std::vector<int>> giocati;
        for (const Ranghi& r : giocate.combinazioni) {
            std::vector<int> riga;
            for (int i = 0; i < giocate.numeri; ++i) {
                riga.push_back(giocate.in_gioco[r[static_cast<std::size_t>(i)]]);
            }
            giocati.insert(riga);
        }
        ASSERT_EQ(giocati, attese) << prova;
    }
}

TEST(Ricerca, LeStimeSeguonoGliScambiComeFatteDiNuovo) {
    Caso caso(4);  // NOLINT: the same systems every run
    for (int prova = 0; prova < 40; ++prova) {
        const auto s = prova::sistema(caso, 9, 12);
        if (!s) continue;
        const Schema schema(*s, tabelle);
        const int t = 2 + a_caso(caso, std::min(s->gioco.numeri(), 5) - 1);
        Ricerca ricerca(schema, prova::celle(s->matrice), {}, prova % 3 == 0, caso());
        Incroci incroci(schema, t, ricerca.celle());
        for (int i = 0; i < 300; ++i) ricerca.passo(incroci);
        ASSERT_EQ(incroci.valore(), Incroci(schema, t, ricerca.celle()).valore()) << prova;
        Coperture coperture(schema, t, ricerca.celle());
        for (int i = 0; i < 100; ++i) ricerca.passo(coperture);
        ASSERT_EQ(coperture.valore(), Coperture(schema, t, ricerca.celle()).valore()) << prova;
        ASSERT_EQ(static_cast<std::uint64_t>(-coperture.valore()),
                  gruppi_coperti(sviluppa(schema, ricerca.celle()), t))
            << prova;
    }
}

TEST(Ricerca, UnMilioneDiPassiSottoLaRegola) {
    Caso caso(6);  // NOLINT: the same crosswords every run
    const std::vector<std::array<int, 3>> misure = {{5, 5, 9},  {6, 6, 12},   {7, 7, 14},
                                                    {9, 6, 10}, {15, 15, 40}, {15, 15, 90}};
    std::uint64_t fatti = 0;
    for (const auto& [colonne, righe, numeri] : misure) {
        const auto m = prova::cruciverba(caso, colonne, righe, prova::numeri_a_caso(caso, numeri));
        ASSERT_TRUE(m) << colonne;
        std::vector<bool> ferme(static_cast<std::size_t>(colonne * righe));
        for (std::size_t c = 0; c < ferme.size(); ++c) ferme[c] = a_caso(caso, 5) == 0;
        const Schema schema(integrale(Gioco::lotto(5), *m), tabelle);
        Ricerca ricerca(schema, prova::celle(*m), ferme, false, 7);
        Celle ordinate = ricerca.celle();
        std::sort(ordinate.begin(), ordinate.end());
        Indifferente stima;
        for (int i = 0; i < 170000; ++i) {
            fatti += ricerca.passo(stima) ? 1 : 0;
            if (i % 500 != 0) continue;
            ASSERT_TRUE(regolare(matrice(ricerca.celle(), colonne, righe)));
            for (std::size_t c = 0; c < ferme.size(); ++c) {
                if (!ferme[c]) continue;
                ASSERT_EQ(ricerca.celle()[c], prova::celle(*m)[c]);
            }
            Celle ora = ricerca.celle();
            std::sort(ora.begin(), ora.end());
            ASSERT_EQ(ora, ordinate);
        }
        EXPECT_EQ(ricerca.passi(), 170000U);
    }
    EXPECT_GT(fatti, 100000U);
}

TEST(Ricerca, NumbersOfAGroupTakeThePlacesOfThatGroupOnly) {
    Caso caso(12);  // NOLINT: the same crosswords every run
    crossword::Classi classi{};
    for (std::size_t n = 1; n < classi.size(); ++n) {
        classi[n] = static_cast<std::uint8_t>(a_caso(caso, 3));
    }
    for (const bool pareggia : {false, true}) {
        const auto m = prova::cruciverba(caso, 8, 8, prova::numeri_a_caso(caso, 24));
        ASSERT_TRUE(m);
        const Schema schema(integrale(Gioco::superenalotto(), *m), tabelle);
        Ricerca ricerca(schema, prova::celle(*m), {}, pareggia, 5, classi);
        Indifferente stima;
        int fatti = 0;
        for (int i = 0; i < 20000; ++i) {
            fatti += ricerca.passo(stima) ? 1 : 0;
            if (i % 100 == 0) {
                ASSERT_TRUE(stesse_classi(*m, matrice(ricerca.celle(), 8, 8), classi));
            }
        }
        EXPECT_GT(fatti, 200);
        EXPECT_NE(ricerca.celle(), prova::celle(*m));
    }
}

TEST(Ricerca, DoveNessunoScambioELecitoRestanoLeCatene) {
    // A Latin square without diagonals, but for its seventh row: every swap breaks a line.
    Matrice m(6, 7);
    for (int i = 0; i < 42; ++i) {
        m.scrivi(i % 6, i / 6, static_cast<std::int16_t>((i % 6 + i / 6) % 7 + 1));
    }
    ASSERT_TRUE(regolare(m));
    const Schema schema(integrale(Gioco::lotto(3), m), tabelle);
    Ricerca ricerca(schema, prova::celle(m), {}, false, 1);
    Indifferente stima;
    int fatti = 0;
    for (int i = 0; i < 20000; ++i) fatti += ricerca.passo(stima) ? 1 : 0;
    EXPECT_GT(fatti, 20);
    EXPECT_NE(ricerca.celle(), prova::celle(m));
    EXPECT_TRUE(regolare(matrice(ricerca.celle(), 6, 7)));
}

TEST(Ricerca, QuandoLaStimaCalaIlContoCresce) {
    Caso caso(8);  // NOLINT: the same crosswords every run
    for (int prova = 0; prova < 10; ++prova) {
        const auto m = prova::cruciverba(caso, 7, 7, prova::numeri_a_caso(caso, 16));
        if (!m) continue;
        const Schema schema(integrale(Gioco::superenalotto(), *m), tabelle);
        const auto vincenti = [&](const Celle& celle) {
            return prova::estrazioni_almeno(sviluppa(schema, celle), 6, 3);
        };
        Ricerca ricerca(schema, prova::celle(*m), {}, false, caso());
        const std::uint64_t prima = vincenti(ricerca.celle());
        const auto cala = [&](Stima&& stima) {
            const std::int64_t valore = stima.valore();
            int volte = 0;
            ricerca.giro(stima, 1, [&] { return ++volte / 200.0; });
            EXPECT_LT(ricerca.valore_migliore(), valore);
            EXPECT_GT(vincenti(ricerca.migliori()), prima);
        };
        cala(Incroci(schema, 3, ricerca.celle()));
        ricerca.riparti(prova::celle(*m));
        cala(Coperture(schema, 3, ricerca.celle()));
    }
}
