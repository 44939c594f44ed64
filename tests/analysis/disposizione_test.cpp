// The search for a better layout: what it keeps, what it never does, what it says of itself.
#include "analysis/disposizione.h"

#include <gtest/gtest.h>
#include <map>

#include "analysis/cruciverba_prova.h"
#include "platform/ambiente.h"

using namespace analysis;
using crossword::Gioco;
using crossword::Matrice;
using prova::a_caso;
using prova::Caso;

namespace {

const std::string tabelle = SUITE_DIR "/ridotti";

std::map<int, int> volte(const Matrice& m) {
    std::map<int, int> quante;
    for (const std::uint8_t n : prova::celle(m)) ++quante[n];
    return quante;
}

/// How unevenly often the numbers stand.
int squilibrio(const Matrice& m) {
    int somma = 0;
    for (const auto& [numero, quante] : volte(m)) somma += quante * quante;
    return somma;
}

RichiestaDisposizione richiesta(const systems::Sistema& s, std::uint64_t passi) {
    RichiestaDisposizione r;
    r.sistema = s;
    r.ridotti = tabelle;
    r.passi = passi;
    return r;
}

/// A full crossword of the smallest side, all "Integrale".
systems::Sistema piccolo(int numeri = 14, int lato = 7, Gioco gioco = Gioco::superenalotto()) {
    Caso caso(5);  // NOLINT: the same crossword every run
    systems::Sistema s;
    s.gioco = gioco;
    s.tipo_righe = s.tipo_colonne = s.tipo_diagonali = 0;
    s.matrice = prova::cruciverba(caso, lato, lato, prova::numeri_a_caso(caso, numeri)).value();
    return s;
}

void tiene(const RichiestaDisposizione& r, const Disposizione& d) {
    const Matrice& prima = r.sistema.matrice;
    ASSERT_TRUE(regolare(d.matrice));
    ASSERT_EQ(d.matrice.colonne(), prima.colonne());
    ASSERT_EQ(d.matrice.righe(), prima.righe());
    EXPECT_EQ(crossword::numeri_in_gioco(d.matrice), crossword::numeri_in_gioco(prima));
    if (r.pareggia) {
        EXPECT_LE(squilibrio(d.matrice), squilibrio(prima));
    } else {
        EXPECT_EQ(volte(d.matrice), volte(prima));
    }
    for (std::size_t c = 0; c < r.ferme.size(); ++c) {
        const int x = static_cast<int>(c) % prima.colonne();
        const int y = static_cast<int>(c) / prima.colonne();
        if (r.ferme[c]) {
            EXPECT_EQ(d.matrice(x, y), prima(x, y));
        }
    }
    const std::uint64_t vincenti = d.prima.distribuzione.estrazioni_almeno(r.scopo);
    if (d.esito == Disposta::migliorata) {
        EXPECT_GT(d.dopo.distribuzione.estrazioni_almeno(r.scopo), vincenti);
    } else {
        ASSERT_EQ(d.esito, Disposta::uguale);
        EXPECT_EQ(d.matrice, prima);
        EXPECT_EQ(d.dopo.distribuzione.estrazioni_almeno(r.scopo), vincenti);
    }
}

/// The chances told are those of the crosswords told, by a plain count.
void conta_di_nuovo(const RichiestaDisposizione& r, const Disposizione& d) {
    const Schema schema(r.sistema, r.ridotti);
    const Giocate prima = sviluppa(schema, prova::celle(r.sistema.matrice));
    const Giocate dopo = sviluppa(schema, prova::celle(d.matrice));
    EXPECT_EQ(prima.righe(), dopo.righe());
    EXPECT_EQ(d.prima.combinazioni, prima.combinazioni.size());
    EXPECT_EQ(d.dopo.combinazioni, dopo.combinazioni.size());
    EXPECT_EQ(d.prima.distribuzione.estrazioni_almeno(r.scopo),
              prova::estrazioni_almeno(prima, schema.estratti, r.scopo));
    EXPECT_EQ(d.dopo.distribuzione.estrazioni_almeno(r.scopo),
              prova::estrazioni_almeno(dopo, schema.estratti, r.scopo));
}

}  // namespace

TEST(Disposizione, CinquecentoSistemiACasoTengonoTuttoENonPeggiorano) {
    Caso caso(1);  // NOLINT: the same systems every run
    std::map<Disposta, int> esiti;
    int provati = 0;
    while (provati < 500) {
        const auto s = prova::sistema(caso, provati % 10 == 0 ? 12 : 8, 5);
        if (!s) continue;
        RichiestaDisposizione r = richiesta(*s, 300 + static_cast<unsigned>(a_caso(caso, 700)));
        r.scopo = 2 + a_caso(caso, std::min(s->gioco.numeri(), 5) - 1);
        r.seme = caso();
        r.pareggia = a_caso(caso, 4) == 0;
        if (a_caso(caso, 2) == 0) {
            for (int c = 0; c < s->matrice.colonne() * s->matrice.righe(); ++c) {
                r.ferme.push_back(a_caso(caso, 3) == 0);
            }
        }
        SCOPED_TRACE(provati);
        const Disposizione d = disponi(r);
        tiene(r, d);
        if (crossword::numeri_in_gioco(s->matrice).size() <= 13) conta_di_nuovo(r, d);
        ++esiti[d.esito];
        ++provati;
    }
    EXPECT_GT(esiti[Disposta::migliorata], 250);
    EXPECT_GT(esiti[Disposta::uguale], 0);
}

TEST(Disposizione, LoStessoSemeFaLoStessoCruciverba) {
    RichiestaDisposizione r = richiesta(piccolo(), 20000);
    const Disposizione prima = disponi(r);
    const Disposizione dopo = disponi(r);
    EXPECT_EQ(prima.esito, Disposta::migliorata);
    EXPECT_EQ(prima.matrice, dopo.matrice);
    EXPECT_EQ(prima.passi, dopo.passi);
    r.seme = 2;
    EXPECT_NE(disponi(r).matrice, prima.matrice);
}

TEST(Disposizione, VinceDiPiuDiQuantoEServitoAMostrarlo) {
    const Disposizione d = disponi(richiesta(piccolo(18), 200000));
    ASSERT_EQ(d.esito, Disposta::migliorata);
    EXPECT_GT(d.dopo.almeno(3), 1.1 * d.prima.almeno(3));
    EXPECT_GE(d.passi, 200000U);
    EXPECT_LT(d.passi, 201000U);
}

TEST(Disposizione, DiceQuandoCercaEQuandoConta) {
    int cercando = 0;
    int contando = 0;
    disponi(richiesta(piccolo(18), 20000), [&](const Andamento& a) {
        ++(a.conteggio ? contando : cercando);
        return Ordine::continua;
    });
    EXPECT_GT(cercando, 50);
    EXPECT_GT(contando, 0);
}

TEST(Disposizione, FermataTieneIlMeglioTrovatoEAnnullataLasciaTutto) {
    for (const Ordine ordine : {Ordine::basta, Ordine::annulla}) {
        for (const int quando : {1, 2, 5, 40, 200}) {
            const RichiestaDisposizione r = richiesta(piccolo(), 0);
            int volta = 0;
            const Disposizione d = disponi(
                r, [&](const Andamento&) { return ++volta < quando ? Ordine::continua : ordine; });
            if (ordine == Ordine::annulla) {
                EXPECT_EQ(d.esito, Disposta::annullata);
                EXPECT_EQ(d.matrice, r.sistema.matrice);
            } else {
                tiene(r, d);
            }
        }
    }
}

TEST(Disposizione, LAndamentoCresceFinoAQuantoSiContaAllaFine) {
    const RichiestaDisposizione r = richiesta(piccolo(18), 50000);
    Andamento ultimo;
    int volte_dette = 0;
    const Disposizione d = disponi(r, [&](const Andamento& a) {
        EXPECT_GE(a.parte, ultimo.parte);
        EXPECT_GE(a.migliore, ultimo.migliore);
        EXPECT_GE(a.migliore, a.prima);
        ultimo = a;
        ++volte_dette;
        return Ordine::continua;
    });
    EXPECT_GT(volte_dette, 500);
    EXPECT_EQ(ultimo.parte, 1);
    EXPECT_EQ(ultimo.prima, d.prima.almeno(3));
    EXPECT_GT(ultimo.migliore, ultimo.prima);
    EXPECT_LE(ultimo.migliore, d.dopo.almeno(3));
}

TEST(Disposizione, RifiutaCioCheNonPuoDisporre) {
    systems::Sistema s = piccolo();
    s.matrice.scrivi(3, 3, 0);
    EXPECT_EQ(disponi(richiesta(s, 100)).esito, Disposta::incompleta);
    s.matrice.scrivi(3, 3, s.matrice(2, 3));
    EXPECT_EQ(disponi(richiesta(s, 100)).esito, Disposta::fuori_regola);
    s.matrice.scrivi(3, 3, 91);
    EXPECT_EQ(disponi(richiesta(s, 100)).esito, Disposta::fuori_regola);
    s.matrice.scrivi(3, 3, -5);
    EXPECT_EQ(disponi(richiesta(s, 100)).esito, Disposta::fuori_regola);
    s.matrice = Matrice(16, 1);
    for (int x = 0; x < 16; ++x) s.matrice.scrivi(x, 0, static_cast<std::int16_t>(x + 1));
    EXPECT_EQ(disponi(richiesta(s, 100)).esito, Disposta::fuori_regola);
    s.matrice = Matrice();
    EXPECT_EQ(disponi(richiesta(s, 100)).esito, Disposta::senza_tabelle);
    s = piccolo();
    RichiestaDisposizione r = richiesta(s, 100);
    r.ridotti = "/nessuna";
    EXPECT_EQ(disponi(r).esito, Disposta::senza_tabelle);
    r = richiesta(s, 100);
    for (const int scopo : {-1, 0, 1, 6}) {
        r.scopo = scopo;
        EXPECT_EQ(disponi(r).esito, Disposta::senza_scopo);
    }
    r.sistema.gioco = Gioco::lotto(3);
    r.scopo = 4;
    EXPECT_EQ(disponi(r).esito, Disposta::senza_scopo);
    r.sistema.gioco = Gioco::lotto(7);
    EXPECT_EQ(disponi(r).esito, Disposta::senza_tabelle);
}

TEST(Disposizione, ConTutteLeCaselleFermeRestaComEra) {
    RichiestaDisposizione r = richiesta(piccolo(), 0);
    r.ferme.assign(49, true);
    const Disposizione d = disponi(r);
    EXPECT_EQ(d.esito, Disposta::uguale);
    EXPECT_EQ(d.matrice, r.sistema.matrice);
    EXPECT_GT(d.prima.almeno(3), 0);
}

TEST(Disposizione, LeTabelleCheMancanoNonContano) {
    systems::Sistema s = piccolo();
    s.tipo_righe = 7;  // of which lines of seven have no table
    const RichiestaDisposizione r = richiesta(s, 3000);
    const Disposizione d = disponi(r);
    tiene(r, d);
    EXPECT_LE(d.dopo.combinazioni, 67U);
}

TEST(Disposizione, PareggiaPortaINumeriPiuAllaPari) {
    Caso caso(9);  // NOLINT: the same crossword every run
    systems::Sistema s = piccolo(20, 8);
    RichiestaDisposizione r = richiesta(s, 60000);
    const Disposizione fisse = disponi(r);
    r.pareggia = true;
    const Disposizione libere = disponi(r);
    tiene(r, libere);
    EXPECT_LT(squilibrio(libere.matrice), squilibrio(s.matrice));
    EXPECT_GT(libere.dopo.almeno(3), fisse.prima.almeno(3));
}

TEST(Disposizione, ConISecondiFinisceQuandoLoDiceLOrologio) {
    int chiesto = 0;
    const platform::Ripristina orologio(platform::ambiente().orologio,
                                        [&] { return static_cast<double>(++chiesto); });
    RichiestaDisposizione r = richiesta(piccolo(), 0);
    r.secondi = 5000;
    double parte = 0;
    const Disposizione d = disponi(r, [&](const Andamento& a) {
        EXPECT_GE(a.parte, parte);
        parte = a.parte;
        return Ordine::continua;
    });
    tiene(r, d);
    EXPECT_EQ(parte, 1);
    // Each question of the search is a second here, and it asks no more once they are over.
    EXPECT_GT(chiesto, 3000);
    EXPECT_LT(chiesto, 6000);
}
