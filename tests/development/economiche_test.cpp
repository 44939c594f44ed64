#include "development/economiche.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <sstream>

#include "development/coperture.h"
#include "development/garanzie.h"
#include "development/tabelle.h"
#include "support/cartella.h"

using namespace development;
using crossword::Gioco;
using support::contenuto;

namespace {

const std::string spedite = SUITE_DIR "/ridotti";
constexpr std::array giochi = {Gioco::superenalotto(), Gioco::lotto(3), Gioco::lotto(4),
                               Gioco::lotto(5)};

/// Rows of a file of numbers, commas and CR LF, read without the program's own readers.
std::vector<unsigned> insiemi_di(const std::string& file, std::size_t k) {
    std::istringstream testo(contenuto(file));
    std::vector<unsigned> righe;
    for (std::string riga; std::getline(testo, riga);) {
        EXPECT_TRUE(riga.ends_with('\r')) << file;
        std::istringstream campi(riga);
        unsigned insieme = 0;
        std::size_t quanti = 0;
        int prima = 0;
        for (std::string campo; std::getline(campi, campo, ','); ++quanti) {
            const int posizione = std::stoi(campo);
            EXPECT_GT(posizione, prima) << file;
            prima = posizione;
            insieme |= 1U << (posizione - 1);
        }
        EXPECT_EQ(quanti, k) << file;
        righe.push_back(insieme);
    }
    return righe;
}

/// Draws of p of n positions of which no row holds t.
int scoperti(const std::vector<unsigned>& righe, int n, int p, int t) {
    int quanti = 0;
    for (unsigned sorteggio = 0; sorteggio < 1U << n; ++sorteggio) {
        if (__builtin_popcount(sorteggio) != p) continue;
        const bool coperto = std::any_of(righe.begin(), righe.end(), [&](unsigned riga) {
            return __builtin_popcount(riga & sorteggio) >= t;
        });
        quanti += coperto ? 0 : 1;
    }
    return quanti;
}

/// The guarantees that each game has a table for.
std::vector<Garanzia> garanzie_di(Gioco gioco) {
    switch (gioco.numeri()) {
        case 3:
            return {{2, 2}, {3, 2}, {4, 3}, {5, 3}};
        case 4:
            return {{2, 2}, {3, 2}, {3, 3}, {4, 3}, {5, 3}, {5, 4}};
        case 5:
            return {{2, 2}, {3, 2}, {3, 3}, {4, 3}, {5, 3}, {4, 4}, {5, 4}};
        default:
            return {{3, 3}, {4, 3}, {5, 3}, {6, 3}, {4, 4}, {5, 4}, {6, 4}, {5, 5}, {6, 5}};
    }
}

/// Shortest line of a game that something can be left out of.
int prima_linea(Gioco gioco) {
    return std::max(gioco.lato_minimo(), gioco.numeri() + 1);
}

TEST(Economiche, OgniGaranziaDiOgniLunghezzaHaLaSuaTabellaProvataPerEsteso) {
    int quante = 0;
    for (const Gioco gioco : giochi) {
        for (int n = prima_linea(gioco); n <= Gioco::lato_massimo; ++n) {
            for (const Garanzia& g : garanzie_di(gioco)) {
                const int numero = g.t * 10 + g.p;
                EXPECT_EQ(garanzia_del_numero(gioco, numero), g);
                const std::string file = spedite + "/" + nome_tabella(gioco, n, numero);
                const auto righe = insiemi_di(file, static_cast<std::size_t>(gioco.numeri()));
                ASSERT_FALSE(righe.empty()) << file;
                EXPECT_EQ(scoperti(righe, n, g.p, g.t), 0) << file;
                const Desiderio d{n, gioco.numeri(), g.p, g.t};
                EXPECT_GE(std::ssize(righe), limite_inferiore(d)) << file;
                const Lettura letta = leggi_rigorosa(contenuto(file), n, gioco.numeri());
                EXPECT_TRUE(letta.errori.empty() && letta.avvisi.empty()) << file;
                EXPECT_TRUE(std::is_sorted(letta.tabella.righe.begin(), letta.tabella.righe.end(),
                                           riga_precede))
                    << file;
                ++quante;
            }
        }
    }
    int presenti = 0;
    for (const auto& voce : std::filesystem::directory_iterator(spedite)) {
        if (leggi_nome_economico(voce.path().string())) ++presenti;
    }
    EXPECT_EQ(presenti, quante);
}

TEST(Economiche, NessunaCostaPiuDellaTabellaDettaConLaStessaGaranzia) {
    Economiche economiche;
    int confrontate = 0;
    for (const Gioco gioco : giochi) {
        for (int n = prima_linea(gioco); n <= Gioco::lato_massimo; ++n) {
            const auto tutte = economiche.di(spedite, gioco, n);
            for (int tipo = 1; tipo < 8; ++tipo) {
                const std::string file = spedite + "/" + nome_tabella(gioco, n, tipo);
                const auto detta = garanzia_dichiarata({gioco.prefisso_tabelle(), n, tipo});
                if (!std::filesystem::exists(file) || !detta || detta->righe > 1) continue;
                const auto righe = leggi_tabella(file, gioco.numeri(), n).righe();
                for (const Economica& e : tutte) {
                    if (e.garanzia != *detta) continue;
                    EXPECT_LE(static_cast<std::size_t>(e.righe), righe) << file;
                    ++confrontate;
                }
            }
        }
    }
    EXPECT_GE(confrontate, 85);
}

TEST(Economiche, LeMisureNoteSonoRaggiunte) {
    Economiche economiche;
    struct Misura {
        int n;
        int numero;
        int righe;
    };
    for (const Misura& nota : {Misura{15, 56, 150},
                               {14, 56, 103},
                               {13, 56, 61},
                               {12, 56, 39},
                               {11, 56, 22},
                               {10, 56, 14},
                               {9, 56, 7},
                               {8, 56, 4},
                               {13, 46, 10},
                               {14, 46, 14},
                               {15, 46, 19},
                               {15, 45, 40},
                               {15, 44, 117},
                               {15, 33, 31},
                               {14, 36, 4},
                               {15, 36, 4},
                               {12, 36, 2},
                               {13, 55, 245},
                               {12, 55, 132}}) {
        const auto e = economiche.una(spedite, Gioco(), nota.n, nota.numero);
        ASSERT_TRUE(e) << nota.n << " " << nota.numero;
        EXPECT_LE(e->righe, nota.righe) << nota.n << " " << nota.numero;
    }
    EXPECT_LE(economiche.una(spedite, Gioco::lotto(5), 15, 44)->righe, 291);
    EXPECT_LE(economiche.una(spedite, Gioco::lotto(5), 14, 44)->righe, 229);
    EXPECT_LE(economiche.una(spedite, Gioco::lotto(5), 15, 33)->righe, 55);
}

TEST(Economiche, IlNumeroDiceLaGaranzia) {
    const Gioco s = Gioco::superenalotto();
    EXPECT_EQ(garanzia_del_numero(s, 56), (Garanzia{6, 5}));
    EXPECT_EQ(garanzia_del_numero(s, 33), (Garanzia{3, 3}));
    for (const int numero : {0, 7, 10, 19, 21, 30, 37, 65, 70, 77, 99, 100, -1}) {
        EXPECT_FALSE(garanzia_del_numero(s, numero)) << numero;
    }
    // A wheel gives five numbers.
    EXPECT_FALSE(garanzia_del_numero(Gioco::lotto(5), 46));
    EXPECT_FALSE(garanzia_del_numero(Gioco::lotto(3), 44));
    EXPECT_EQ(garanzia_del_numero(Gioco::lotto(5), 45), (Garanzia{5, 4}));
}

TEST(Economiche, IlNomeHaIlNumeroInDueCifre) {
    EXPECT_EQ(nome_tabella(Gioco(), 15, 21), "cr1521.rid");
    EXPECT_EQ(nome_tabella(Gioco::lotto(3), 9, 10), "tr0910.rid");
    const auto parti = leggi_nome_economico("/un/posto/CR1521.RID");
    ASSERT_TRUE(parti);
    EXPECT_EQ(parti->prefisso, "cr");
    EXPECT_EQ(parti->n, 15);
    EXPECT_EQ(parti->tipo, 21);
    for (const char* altro : {"", "cr1509.rid", "cr1521", "cr1521.txt", "xx1521.rid", "cr1621.rid",
                              "cr0521.rid", "cr15021.rid", "cr152.rid", "cr15-1.rid", "mia.rid"}) {
        EXPECT_FALSE(leggi_nome_economico(altro)) << altro;
    }
}

class CartellaEconomiche : public testing::Test {
protected:
    void metti(const std::string& nome, const std::string& testo) const {
        std::ofstream(ridotti() + "/" + nome, std::ios::binary) << testo;
    }
    [[nodiscard]] std::string ridotti() const { return cartella.radice() + "/ridotti"; }
    support::Cartella cartella;
    Economiche economiche;
};

/// Terzine of 5 numbers: any two drawn are in one.
constexpr const char* ambi_di_5 = "1,2,3\r\n1,2,4\r\n1,2,5\r\n1,4,5\r\n2,3,4\r\n3,4,5\r\n";

TEST_F(CartellaEconomiche, PerGaranziaELaMenoCaraPrima) {
    metti("tr0522.rid", ambi_di_5);
    metti("tr0574.rid", std::string(ambi_di_5) + "1,3,5\r\n");
    metti("tr0523.rid", "1,2,3\r\n3,4,5\r\n");
    metti("tr0573.rid", "1,2,3\r\n");
    // Others: told, of another length, of another game.
    metti("tr0501.rid", ambi_di_5);
    metti("tr0622.rid", ambi_di_5);
    metti("qt0522.rid", "1,2,3,4\r\n");
    const auto tutte = economiche.di(ridotti(), Gioco::lotto(3), 5);
    std::vector<int> numeri;
    for (const Economica& e : tutte) numeri.push_back(e.numero);
    EXPECT_EQ(numeri, (std::vector<int>{22, 23, 74, 73}));
    EXPECT_EQ(tutte[0], (Economica{22, 6, {2, 2}}));
    EXPECT_EQ(tutte[1], (Economica{23, 2, {3, 2}}));
    // A number that says nothing: what the table is sure of.
    EXPECT_EQ(tutte[2], (Economica{74, 7, {4, 3}}));
    EXPECT_EQ(tutte[3], (Economica{73, 1, {5, 3}}));
}

TEST_F(CartellaEconomiche, UnaTabellaGuastaNonSiOffreEUnaRifattaSiRiprova) {
    metti("tr0522.rid", "1,2,3\r\n1,2,9\r\n");
    metti("tr0571.rid", "");
    metti("tr0572.rid", "1,2,3\r\n1,2,3\r\n");
    EXPECT_TRUE(economiche.di(ridotti(), Gioco::lotto(3), 5).empty());
    metti("tr0522.rid", ambi_di_5);
    EXPECT_EQ(economiche.una(ridotti(), Gioco::lotto(3), 5, 22)->righe, 6);
    // What the number says does not hold: the table is known by what does.
    metti("tr0522.rid", "1,2,3\r\n");
    EXPECT_EQ(economiche.una(ridotti(), Gioco::lotto(3), 5, 22), (Economica{22, 1, {5, 3}}));
    std::filesystem::remove(ridotti() + "/tr0522.rid");
    EXPECT_FALSE(economiche.una(ridotti(), Gioco::lotto(3), 5, 22));
    EXPECT_FALSE(economiche.una(ridotti(), Gioco::lotto(9), 5, 22));
    EXPECT_FALSE(economiche.una(ridotti(), Gioco::lotto(3), 5, 1));
}

TEST(Economiche, LaVoceDiceColonneQuotaEGaranzia) {
    EXPECT_EQ(testo_economica({56, 150, {6, 5}}, Gioco(), 15),
              "150 Sestine (3 %) - Min.1(5) con 6 estratti");
    EXPECT_EQ(testo_economica({36, 1, {6, 3}}, Gioco(), 9),
              "1 Sestina (1,19 %) - Min.1(3) con 6 estratti");
    EXPECT_EQ(testo_economica({44, 291, {4, 4}}, Gioco::lotto(5), 15),
              "15 Numeri - 291 Cinquine (9,69 %) - Garanzia 1 Quaterna con 4 Estratti");
    EXPECT_EQ(testo_economica({23, 4, {3, 2}}, Gioco::lotto(3), 9),
              "9 Numeri - 4 Terzine (4,76 %) - Garanzia 1 Ambo con 3 Estratti");
}

TEST(Economiche, LaGaranziaMiglioreELaPiuAltaConMenoEstratti) {
    const Tabella cinque = integrale(6, 5);
    EXPECT_EQ(garanzia_migliore(cinque, Gioco::lotto(5)), (Garanzia{5, 5}));
    EXPECT_EQ(garanzia_migliore({15, 6, {0b111111}}, Gioco()), std::nullopt);
    EXPECT_EQ(garanzia_migliore({7, 6, {0b111111}}, Gioco()), (Garanzia{6, 5}));
}

std::string con_virgola(double valore, int decimali) {
    std::array<char, 32> cifre{};
    std::snprintf(cifre.data(), cifre.size(), "%.*f", decimali, valore);
    std::string testo(cifre.data());
    testo[testo.find('.')] = ',';
    return testo;
}

TEST(Economiche, LaGuidaConfrontaLeTabelleComeSono) {
    const std::string pagina = contenuto(SOURCE_DIR "/suite/guida/pagine/economiche.html");
    for (const char* nome : {"cr1201", "cr1256", "cr1246"}) {
        const Lettura letta =
            leggi_rigorosa(contenuto(spedite + "/" + std::string(nome) + ".rid"), 12, 6);
        const Vincite v = vincite(letta.tabella, 6);
        std::string riga = std::string("<tr><td><code>") + nome + "</code></td><td>" +
                           std::to_string(letta.tabella.righe.size()) + "</td>";
        const auto gruppi = static_cast<double>(v.gruppi);
        for (const std::size_t t : {6U, 5U, 4U}) {
            riga += "<td>" + con_virgola(100 * static_cast<double>(v.migliore[t]) / gruppi, 2) +
                    "</td>";
        }
        riga += "<td>" + con_virgola(static_cast<double>(v.righe[5]) / gruppi, 4) + "</td></tr>";
        EXPECT_NE(pagina.find(riga), std::string::npos) << riga;
    }
}

}  // namespace
