#include "development/garanzie.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

#include "support/cartella.h"

using namespace development;

namespace {

Tabella tabella(const std::string& nome) {
    const auto parti = leggi_nome(nome);
    EXPECT_TRUE(parti.has_value());
    const Lettura lettura = leggi_rigorosa(
        support::contenuto(SUITE_DIR "/ridotti/" + nome + ".rid"), parti->n, parti->k());
    EXPECT_TRUE(lettura.errori.empty());
    return lettura.tabella;
}

/// The only error of a text, as "line: text".
std::string errore(std::string_view testo, int n, int k) {
    const Lettura lettura = leggi_rigorosa(testo, n, k);
    if (lettura.errori.size() != 1) return std::to_string(lettura.errori.size()) + " errori";
    return std::to_string(lettura.errori[0].riga) + ": " + lettura.errori[0].testo;
}

TEST(NomeTabella, SegueLoSchema) {
    const auto sestine = leggi_nome("/un/posto/cr0904.rid");
    ASSERT_TRUE(sestine.has_value());
    EXPECT_EQ(sestine->prefisso, "cr");
    EXPECT_EQ(sestine->n, 9);
    EXPECT_EQ(sestine->tipo, 4);
    EXPECT_EQ(sestine->k(), 6);
    EXPECT_EQ(leggi_nome("CN1503.RID")->testo(), "cn1503");
    EXPECT_EQ(leggi_nome("tr0501")->k(), 3);
    EXPECT_EQ(leggi_nome("qt15012.rid")->tipo, 12);
    for (const char* altro : {"", "cr", "cr904.rid", "cr0914.rid", "xx0904.rid", "cr0504.rid",
                              "cr9904.rid", "cr-904.rid", "cr09004.rid", "cr0904.txt", "mia.rid"}) {
        EXPECT_FALSE(leggi_nome(altro).has_value()) << altro;
    }
}

TEST(NomeTabella, FinoASessantaquattroNumeriEDueCifreDiTipo) {
    ASSERT_TRUE(leggi_nome("cr6400.rid").has_value());
    EXPECT_EQ(leggi_nome("cr6400.rid")->n, 64);
    EXPECT_EQ(leggi_nome("cr09012.rid")->tipo, 12);
    for (const char* altro : {"cr6500.rid", "cr090100.rid", "cr0901000.rid", "cr09.rid", "cr090"}) {
        EXPECT_FALSE(leggi_nome(altro).has_value()) << altro;
    }
}

TEST(NomeTabella, IntegraliDiOgniGioco) {
    const auto nomi = nomi_integrali();
    ASSERT_EQ(nomi.size(), 43U);
    EXPECT_EQ(nomi.front().testo(), "cr0600");
    EXPECT_EQ(nomi[9].testo(), "cr1500");
    EXPECT_EQ(nomi[10].testo(), "tr0500");
    EXPECT_EQ(nomi.back().testo(), "cn1500");
}

TEST(Integrale, RigheInOrdineLessicografico) {
    EXPECT_EQ(testo_tabella(integrale(5, 4)),
              "1,2,3,4\r\n1,2,3,5\r\n1,2,4,5\r\n1,3,4,5\r\n2,3,4,5\r\n");
    EXPECT_EQ(integrale(15, 6).righe.size(), 5005U);
    EXPECT_EQ(testo_tabella(integrale(6, 6)), "1,2,3,4,5,6\r\n");
}

TEST(LetturaRigorosa, MisureDalContenutoQuandoIlNomeNonLeDa) {
    const Lettura lettura = leggi_rigorosa("1,2,3\r\n2,4,64\r\n", 0, 0);
    EXPECT_TRUE(lettura.errori.empty());
    EXPECT_TRUE(lettura.avvisi.empty());
    EXPECT_EQ(lettura.tabella.n, 64);
    EXPECT_EQ(lettura.tabella.k, 3);
    ASSERT_EQ(lettura.tabella.righe.size(), 2U);
    EXPECT_EQ(posizioni(lettura.tabella.righe[1]), "2,4,64");
}

TEST(LetturaRigorosa, OgniFineDiRiga) {
    EXPECT_EQ(leggi_rigorosa("1,2\n1,3\r2,3\r\n", 3, 2).tabella.righe.size(), 3U);
    // A text that ends between the two signs, whatever lies beyond it.
    const std::string_view intero = "1,2\r\n1,3\r\n";
    const Lettura tagliata = leggi_rigorosa(intero.substr(0, intero.size() - 1), 3, 2);
    EXPECT_TRUE(tagliata.errori.empty());
    EXPECT_EQ(tagliata.tabella.righe.size(), 2U);
}

TEST(LetturaRigorosa, ErroriConLaLoroRiga) {
    EXPECT_EQ(errore("", 9, 3), "1: il file è vuoto");
    EXPECT_EQ(errore("1,2,3\r\n1,2,4\r\n1,2,3\r\n", 9, 3), "3: ripete la riga 1");
    EXPECT_EQ(errore("1,2,3\r\n0,2,4\r\n", 9, 3), "2: la posizione 0 non sta fra 1 e 9");
    EXPECT_EQ(errore("1,2,3\r\n2,4,10\r\n", 9, 3), "2: la posizione 10 non sta fra 1 e 9");
    EXPECT_EQ(errore("2,4,65\r\n", 0, 0), "1: la posizione 65 non sta fra 1 e 64");
    EXPECT_EQ(errore("1,2,99999999999999999999999\r\n", 9, 3),
              "1: la posizione 99999999999999999999 non sta fra 1 e 9");
    EXPECT_EQ(errore("1,5,4\r\n", 9, 3), "1: posizioni non crescenti: dopo 5 viene 4");
    EXPECT_EQ(errore("1,5,5\r\n", 9, 3), "1: la posizione 5 è ripetuta");
    EXPECT_EQ(errore("1,5\r\n", 9, 3), "1: 2 posizioni invece di 3");
    EXPECT_EQ(errore("4\r\n", 9, 3), "1: 1 posizione invece di 3");
    EXPECT_EQ(errore("1,2,3,4\r\n", 9, 3), "1: 4 posizioni invece di 3");
    EXPECT_EQ(errore("1,2,3\r\n\r\n1,2,4\r\n", 9, 3), "2: riga vuota");
    EXPECT_EQ(errore("1,,3\r\n", 9, 3), "1: manca una posizione");
    EXPECT_EQ(errore("1,2,3,\r\n", 9, 3), "1: manca una posizione");
    EXPECT_EQ(errore("1,2,x\r\n", 9, 3), "1: carattere non ammesso: x");
    EXPECT_EQ(errore("1, 2,3\r\n", 9, 3), "1: carattere non ammesso: codice 32");
    EXPECT_EQ(errore("-1,2,3\r\n", 9, 3), "1: carattere non ammesso: -");
    EXPECT_EQ(errore(std::string_view("1,2,\0\r\n", 7), 9, 3),
              "1: carattere non ammesso: codice 0");
    EXPECT_EQ(errore("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21\r\n", 0, 0),
              "1: più di 20 posizioni in una riga");
}

TEST(LetturaRigorosa, FinoAVentiPosizioniInUnaRiga) {
    const Lettura lettura =
        leggi_rigorosa("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20\r\n", 0, 0);
    EXPECT_TRUE(lettura.errori.empty());
    EXPECT_EQ(lettura.tabella.k, 20);
    EXPECT_EQ(lettura.tabella.n, 20);
}

TEST(LetturaRigorosa, DiceUnCarattereCheSiVedeEIlCodiceDegliAltri) {
    EXPECT_EQ(errore("1,2,!\r\n", 9, 3), "1: carattere non ammesso: !");
    EXPECT_EQ(errore("1,2,~\r\n", 9, 3), "1: carattere non ammesso: ~");
    EXPECT_EQ(errore("1,2,/\r\n", 9, 3), "1: carattere non ammesso: /");
    EXPECT_EQ(errore("1,2,:\r\n", 9, 3), "1: carattere non ammesso: :");
    EXPECT_EQ(errore("1,2,\x7f\r\n", 9, 3), "1: carattere non ammesso: codice 127");
    EXPECT_EQ(errore("1,2,\xe8\r\n", 9, 3), "1: carattere non ammesso: codice 232");
}

TEST(LetturaRigorosa, VentiErroriSiDiconoTuttiSenzaParlareDiAltri) {
    std::string testo;
    for (int i = 0; i < 20; ++i) testo += "niente\n";
    const Lettura lettura = leggi_rigorosa(testo + "1,2,3\n", 9, 3);
    ASSERT_EQ(lettura.errori.size(), 20U);
    EXPECT_EQ(lettura.errori.back().testo, "carattere non ammesso: n");
    const Lettura oltre = leggi_rigorosa(testo + "niente\n", 9, 3);
    ASSERT_EQ(oltre.errori.size(), 21U);
    EXPECT_EQ(oltre.errori.back().testo, "altri errori da qui in poi, non elencati");
}

TEST(LetturaRigorosa, SenzaLUltimaFineDiRigaAvvisaELegge) {
    const Lettura lettura = leggi_rigorosa("1,2,3\r\n1,2,4", 9, 3);
    EXPECT_TRUE(lettura.errori.empty());
    ASSERT_EQ(lettura.avvisi.size(), 1U);
    EXPECT_EQ(lettura.avvisi[0].riga, 2);
    EXPECT_EQ(lettura.tabella.righe.size(), 2U);
}

TEST(LetturaRigorosa, SiFermaDopoVentiErrori) {
    std::string testo;
    for (int i = 0; i < 1000; ++i) testo += "niente\n";
    const Lettura lettura = leggi_rigorosa(testo, 9, 3);
    ASSERT_EQ(lettura.errori.size(), 21U);
    EXPECT_EQ(lettura.errori.back().riga, 21);
}

TEST(Garanzia, SiLeggeDaUnTesto) {
    EXPECT_EQ(leggi_garanzia("6:4"), (Garanzia{6, 4, 1, false}));
    EXPECT_EQ(leggi_garanzia("4:4:3"), (Garanzia{4, 4, 3, false}));
    for (const char* altra : {"", "4", "3:4", "4:0", "4:4:0", "4:4:1:1", "a:b", "4:4:", "4:-1",
                              "99999999999:2", " 4:4"}) {
        EXPECT_FALSE(leggi_garanzia(altra).has_value()) << altra;
    }
}

TEST(Garanzia, DichiarataSoloDaiNomiDelleListe) {
    EXPECT_EQ(garanzia_dichiarata(*leggi_nome("cr1104")), (Garanzia{4, 4, 3, false}));
    EXPECT_EQ(garanzia_dichiarata(*leggi_nome("cr1403")), (Garanzia{6, 3, 1, false}));
    EXPECT_EQ(garanzia_dichiarata(*leggi_nome("qt0501")), (Garanzia{4, 3, 1, false}));
    EXPECT_EQ(garanzia_dichiarata(*leggi_nome("tr0500")), (Garanzia{3, 3, 1, false}));
    for (const char* altra : {"cr0601", "cr0705", "cr1604", "cr1600", "tr0502", "qt0602", "qt1103",
                              "cn0602", "cn1504", "cr1508"}) {
        EXPECT_FALSE(garanzia_dichiarata(*leggi_nome(altra)).has_value()) << altra;
    }
}

TEST(Garanzia, DichiarataDallaLineaPiuCortaDiOgniFamiglia) {
    for (const char* nessuna : {"tr0400", "qt0400", "tr0401", "qt1002", "cn0501", "cn0603"}) {
        EXPECT_FALSE(garanzia_dichiarata(*leggi_nome(nessuna)).has_value()) << nessuna;
    }
    EXPECT_EQ(garanzia_dichiarata(*leggi_nome("qt1102")), (Garanzia{3, 3, 1, false}));
    EXPECT_EQ(garanzia_dichiarata(*leggi_nome("cn0703")), (Garanzia{4, 4, 1, false}));
    EXPECT_EQ(garanzia_dichiarata(*leggi_nome("cn1500")), (Garanzia{5, 5, 1, false}));
}

TEST(ElencoGaranzie, OgniNumeroFinoAlSuoLimite) {
    const auto legge = [](const std::string& riga) {
        return leggi_elenco("table,p,t,rows,or_one_row_higher\n" + riga + "\n").voci.size() == 1;
    };
    EXPECT_TRUE(legge("cr0904,1,1,1,0"));
    EXPECT_TRUE(legge("cr0904,6,6,1000000,1"));
    for (const char* riga : {"cr0904,4,0,1,0", "cr0904,0,0,1,0", "cr0904,4,4,0,0", "cr0904,4,4,0,1",
                             "cr0904,4,4,1000001,0", "cr0904,7,7,1,0", "cr0904,4,4,1,0,0"}) {
        EXPECT_FALSE(legge(riga)) << riga;
    }
}

TEST(ElencoGaranzie, RigheGuasteColNumero) {
    const ElencoGaranzie elenco = leggi_elenco(
        "table,p,t,rows,or_one_row_higher\ncr0904,4,4,1,0\ncr0904,6,5,1,1\ncr0904,4,4,1\n"
        "boh,4,4,1,0\ncr0904,4,5,1,0\ncr0904,4,4,1,2\ncr0904,7,4,1,0\n");
    ASSERT_EQ(elenco.voci.size(), 2U);
    EXPECT_EQ(elenco.voci[0].garanzia, (Garanzia{4, 4, 1, false}));
    EXPECT_EQ(elenco.voci[1].garanzia, (Garanzia{6, 5, 2, true}));
    ASSERT_EQ(elenco.errori.size(), 5U);
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(elenco.errori[i].riga, static_cast<int>(i) + 4);
    EXPECT_EQ(leggi_elenco("altro\n").errori.size(), 1U);
}

TEST(Binomiale, Valori) {
    EXPECT_EQ(binomiale(15, 6), 5005U);
    EXPECT_EQ(binomiale(5, 6), 0U);
    EXPECT_EQ(binomiale(5, 0), 1U);
    EXPECT_EQ(binomiale(64, 32), 1832624140942590534U);
}

TEST(Vincite, LeDueStradeDannoLoStesso) {
    for (const char* nome : {"cr0904", "cr1503", "tr0701", "qt0802", "cn0703"}) {
        const Tabella t = tabella(nome);
        const auto tutte = tutte_le_vincite(t);
        for (const Vincite& v : tutte) {
            const Vincite altra = vincite(t, v.p);
            EXPECT_EQ(v.gruppi, altra.gruppi);
            EXPECT_EQ(v.gruppi, binomiale(t.n, v.p));
            EXPECT_EQ(v.migliore, altra.migliore) << nome << " " << v.p;
            EXPECT_EQ(v.righe, altra.righe) << nome << " " << v.p;
            EXPECT_EQ(v.minime, altra.minime) << nome << " " << v.p;
            EXPECT_EQ(v.senza_superiori, altra.senza_superiori) << nome << " " << v.p;
            for (int j = 0; j <= t.k; ++j) {
                EXPECT_EQ(v.righe[static_cast<std::size_t>(j)],
                          t.righe.size() * binomiale(t.k, j) * binomiale(t.n - t.k, v.p - j));
            }
        }
    }
}

TEST(Vincite, FinoAlPrimoNumeroDiEstrattiCheDaUnaRigaIntera) {
    const auto tutte = tutte_le_vincite(tabella("cr0904"));
    ASSERT_FALSE(tutte.empty());
    EXPECT_EQ(tutte.front().p, 1);
    EXPECT_EQ(tutte.back().garantito(), 6);
    for (std::size_t i = 0; i + 1 < tutte.size(); ++i) EXPECT_LT(tutte[i].garantito(), 6);
}

TEST(Vincite, OltreVentiPosizioniFinoASeiEstratti) {
    const Tabella t = leggi_rigorosa("1,2,3\r\n4,5,21\r\n", 0, 0).tabella;
    std::uint64_t ultimo = 0;
    const auto tutte = tutte_le_vincite(t, [&](std::uint64_t fatti, std::uint64_t totale) {
        EXPECT_GT(fatti, ultimo);
        EXPECT_LE(fatti, totale);
        ultimo = fatti;
    });
    ASSERT_EQ(tutte.size(), 6U);
    // Two of one row and one of the other 18 numbers: 2 x 3 x 18; none of the six: 15 over 3.
    EXPECT_EQ(tutte[2].migliore, (std::vector<std::uint64_t>{455, 765, 108, 2}));
    EXPECT_GT(ultimo, 0U);
}

TEST(Vincite, LivelliEMinimiAMano) {
    const Tabella t = leggi_rigorosa("1,2\n3,4\n", 4, 2).tabella;
    const Vincite v = vincite(t, 2);
    EXPECT_EQ(v.migliore, (std::vector<std::uint64_t>{0, 4, 2}));
    EXPECT_EQ(v.righe, (std::vector<std::uint64_t>{2, 8, 2}));
    EXPECT_EQ(v.minime, (std::vector<std::uint64_t>{2, 1, 0}));
    EXPECT_EQ(v.garantito(), 1);
    EXPECT_TRUE(v.vale({2, 1, 1, false}));
    EXPECT_FALSE(v.vale({2, 1, 2, false}));
    EXPECT_TRUE(v.vale({2, 1, 2, true}));
    EXPECT_FALSE(v.vale({2, 1, 3, true}));
    EXPECT_FALSE(v.vale({2, 2, 1, false}));
    EXPECT_FALSE(v.vale({3, 1, 1, false}));
    EXPECT_FALSE(v.vale({2, 3, 1, false}));
    EXPECT_FALSE(vincite(t, 5).vale({5, 1, 1, false}));
}

TEST(Buchi, InOrdineEContatiOltreIlLimite) {
    const Tabella t = leggi_rigorosa("1,2\n3,4\n", 4, 2).tabella;
    const Buchi mancati = buchi(t, {2, 2, 1, false}, 3);
    EXPECT_EQ(mancati.quanti, 4U);
    ASSERT_EQ(mancati.primi.size(), 3U);
    EXPECT_EQ(posizioni(mancati.primi[0]), "1,3");
    EXPECT_EQ(posizioni(mancati.primi[1]), "1,4");
    EXPECT_EQ(posizioni(mancati.primi[2]), "2,3");
    EXPECT_EQ(buchi(t, {2, 1, 2, true}, 9).quanti, 0U);
    const Tabella una = leggi_rigorosa("1,2\n", 4, 2).tabella;
    EXPECT_EQ(buchi(una, {2, 1, 2, true}, 9).quanti, 5U) << "one row of just t is no higher one";
    EXPECT_EQ(buchi(t, {2, 1, 2, false}, 9).quanti, 2U);
}

TEST(InParole, DiceIlMenoEDoveCELOppure) {
    EXPECT_EQ(in_parole({1, 1, 1, false}),
              "con 1 estratto almeno una riga con 1 numero indovinato");
    EXPECT_EQ(in_parole({4, 3, 2, false}),
              "con 4 estratti almeno 2 righe con 3 numeri indovinati (terno)");
    EXPECT_EQ(in_parole({5, 4, 2, true}),
              "con 5 estratti almeno 2 righe con 4 numeri indovinati (quaterna), oppure una riga "
              "con 5 numeri indovinati (cinquina)");
}

/// In these designs every subset is covered once, so a missing row leaves exactly its own.
class DisegnoStretto : public testing::TestWithParam<const char*> {};

TEST_P(DisegnoStretto, SenzaUnaRigaQualsiasiLaGaranziaManca) {
    const Tabella intera = tabella(GetParam());
    const Garanzia garanzia = *garanzia_dichiarata(*leggi_nome(GetParam()));
    EXPECT_EQ(buchi(intera, garanzia, 9).quanti, 0U);
    const std::uint64_t suoi = binomiale(intera.k, garanzia.t);
    for (std::size_t i = 0; i < intera.righe.size(); ++i) {
        Tabella guasta = intera;
        const Maschera tolta = guasta.righe[i];
        guasta.righe.erase(guasta.righe.begin() + static_cast<std::ptrdiff_t>(i));
        const Buchi mancati = buchi(guasta, garanzia, 100);
        EXPECT_EQ(mancati.quanti, suoi);
        for (const Maschera buco : mancati.primi) EXPECT_EQ(buco & tolta, buco);
        EXPECT_FALSE(vincite(guasta, garanzia.p).vale(garanzia));
    }
}

INSTANTIATE_TEST_SUITE_P(Steiner, DisegnoStretto,
                         testing::Values("tr0701", "tr0901", "tr1301", "tr1501", "qt0802", "qt1301",
                                         "cr1104", "cr1205", "cn1103"),
                         [](const auto& parametro) { return std::string(parametro.param); });

}  // namespace
