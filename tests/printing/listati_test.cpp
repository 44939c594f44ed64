// The listing of a development: bands, blocks, pages and the file of columns per slip.
#include "printing/listati.h"

#include <algorithm>
#include <optional>

#include "platform/ambiente.h"
#include "platform/disk.h"
#include "support/cartella.h"
#include "support/stampante.h"

using namespace printing;
using support::alto;
using support::Cartella;
using support::confronta_centro;
using support::foglio_alto;
using support::foglio_largo;
using support::largo;
using support::Operazione;
using support::Registratore;
using support::Tipo;
using support::x0;

namespace {

/// Height at which the listing begins, below head and title.
float inizio() {
    return 3 * alto(10) + 2 * alto(8) + 0.5F + 2 * alto(14) + alto(16) + alto(14);
}

std::string sestine(int quante) {
    std::string testo;
    for (int i = 1; i <= quante; ++i) {
        testo += std::to_string(i % 80 + 1) + ",81,82,83,84,85\r\n";
    }
    return testo;
}

/// The text of line `i`, counted from 1, as it is printed.
std::string riga(int i) {
    const int primo = i % 80 + 1;
    return (primo <= 9 ? "0" : "") + std::to_string(primo) + " 81 82 83 84 85";
}

class Listati : public testing::Test {
protected:
    [[nodiscard]] Sviluppo sviluppo(int forma = 5) const {
        return {{"1.0.0", "prova", "21/11/2026"}, cartella_.programma(), "prova", forma};
    }
    bool superenalotto(const std::string& colonne) {
        cartella_.scrivi("prova.col", colonne);
        return stampa_sviluppo_superenalotto(r_, r_, sviluppo());
    }
    bool lotto(const std::string& colonne, int forma) {
        cartella_.scrivi("prova.lot", colonne);
        return stampa_sviluppo_lotto(r_, r_, sviluppo(forma));
    }
    [[nodiscard]] std::vector<Operazione> che_cominciano(std::string_view testo) const {
        std::vector<Operazione> scelte;
        for (const Operazione& o : r_.testi()) {
            if (o.testo.starts_with(testo)) scelte.push_back(o);
        }
        return scelte;
    }
    [[nodiscard]] std::size_t piedi() const { return che_cominciano("Pagina ").size(); }
    /// The lines of numbers, in order.
    [[nodiscard]] std::vector<Operazione> linee() const {
        std::vector<Operazione> scelte;
        for (const Operazione& o : r_.testi()) {
            if (o.testo.size() >= 8 && o.testo[2] == ' ' && o.testo[5] == ' ') scelte.push_back(o);
        }
        return scelte;
    }

    Cartella cartella_;
    Registratore r_;
};

}  // namespace

TEST_F(Listati, TitoloECarattere) {
    ASSERT_TRUE(superenalotto(sestine(3)));
    const auto titolo = r_.testo("Sviluppo Sistema a Cruciverba SuperEnalotto:prova");
    EXPECT_FLOAT_EQ(titolo.corpo, 16);
    EXPECT_EQ(r_.di_tipo(Tipo::riquadro).size(), 4U);
    for (const auto& o : linee()) {
        EXPECT_FLOAT_EQ(o.corpo, 8);
        EXPECT_TRUE(o.grassetto);
    }
}

TEST_F(Listati, TitoloDelLotto) {
    ASSERT_TRUE(lotto("1,2,3\r\n", 3));
    EXPECT_TRUE(r_.stampato("Sviluppo Sistema a Cruciverba Lotto:prova"));
}

TEST_F(Listati, OrdineDelLavoro) {
    ASSERT_TRUE(superenalotto(sestine(3)));
    EXPECT_EQ(r_.fatte[0].tipo, Tipo::puntatore);
    EXPECT_EQ(r_.fatte[0].valore, 11);
    EXPECT_EQ(r_.fatte[1].tipo, Tipo::eventi);
    EXPECT_EQ(r_.di_tipo(Tipo::eventi).size(), 1U);
    const std::size_t quante = r_.fatte.size();
    EXPECT_EQ(r_.fatte[quante - 2].tipo, Tipo::fine);
    EXPECT_EQ(r_.fatte[quante - 1].tipo, Tipo::puntatore);
    EXPECT_EQ(r_.fatte[quante - 1].valore, 0);
}

TEST_F(Listati, UnaBandaHaCinqueBlocchi) {
    ASSERT_TRUE(superenalotto(sestine(25)));
    const auto titoli = che_cominciano("Schedina n.");
    const auto righe = linee();
    ASSERT_EQ(titoli.size(), 5U);
    ASSERT_EQ(righe.size(), 25U);
    const float yb = inizio() + 1;
    for (std::size_t b = 0; b < 5; ++b) {
        const float xi = x0 + static_cast<float>(b) * 18.25F;
        EXPECT_EQ(titoli[b].testo, "Schedina n. " + std::to_string(b + 1));
        confronta_centro(titoli[b], xi + 8.5F, yb);
        for (std::size_t j = 0; j < 5; ++j) {
            const auto& o = righe[b * 5 + j];
            EXPECT_EQ(o.testo, riga(static_cast<int>(b * 5 + j) + 1));
            EXPECT_NEAR(o.x1, xi + 1.5F, 0.01F);
            EXPECT_NEAR(o.y1, yb + static_cast<float>(j + 1) * alto(8), 0.01F);
        }
    }
}

TEST_F(Listati, LaBandaSeguenteComincaSottoIlQuintoBlocco) {
    ASSERT_TRUE(superenalotto(sestine(30)));
    const auto titoli = che_cominciano("Schedina n.");
    ASSERT_EQ(titoli.size(), 6U);
    EXPECT_NEAR(titoli[5].y1, inizio() + 1 + 6 * alto(8) + 1, 0.01F);
    EXPECT_EQ(titoli[5].testo, "Schedina n. 6");
}

TEST_F(Listati, IlTitoloSiMisuraInMinuscolo) {
    ASSERT_TRUE(superenalotto(sestine(1)));
    const auto& m = r_.misurati;
    EXPECT_NE(std::find(m.begin(), m.end(), "schedina n. 1"), m.end());
    EXPECT_EQ(std::find(m.begin(), m.end(), "Schedina n. 1"), m.end());
}

TEST_F(Listati, IlGruppoSiMisuraComeSiStampa) {
    ASSERT_TRUE(lotto("1,2,3\r\n", 3));
    const auto& m = r_.misurati;
    EXPECT_NE(std::find(m.begin(), m.end(), "Gruppo n. 1"), m.end());
    confronta_centro(r_.testo("Gruppo n. 1"), x0 + 8.5F, inizio() + 1);
}

TEST_F(Listati, VenticinqueSenzaPieVentiquattroEVentiseiCon) {
    ASSERT_TRUE(superenalotto(sestine(25)));
    EXPECT_EQ(piedi(), 0U);
    for (const int quante : {24, 26, 1, 21, 5}) {
        r_.fatte.clear();
        ASSERT_TRUE(superenalotto(sestine(quante)));
        EXPECT_EQ(piedi(), 1U) << quante;
        const auto pie = r_.testo("Pagina  1");
        EXPECT_NEAR(pie.x1 + largo(pie.testo, 8), x0 + 90, 0.01F);
        EXPECT_NEAR(pie.y1, foglio_alto - 2, 0.01F);
        EXPECT_FLOAT_EQ(pie.corpo, 8);
        EXPECT_EQ(linee().size(), static_cast<std::size_t>(quante));
    }
}

TEST_F(Listati, VentiseiAprelaSecondaBandaConUnBlocco) {
    ASSERT_TRUE(superenalotto(sestine(26)));
    const auto titoli = che_cominciano("Schedina n.");
    ASSERT_EQ(titoli.size(), 6U);
    EXPECT_EQ(linee().back().testo, riga(26));
    EXPECT_NEAR(linee().back().x1, x0 + 1.5F, 0.01F);
}

TEST_F(Listati, IBlocchiVuotiNonSiAprono) {
    ASSERT_TRUE(superenalotto(sestine(20)));
    EXPECT_EQ(che_cominciano("Schedina n.").size(), 4U);
    EXPECT_EQ(piedi(), 1U);
}

TEST_F(Listati, FormatoDeiNumeri) {
    ASSERT_TRUE(superenalotto("4,17,23,38,61,90\r\n"));
    EXPECT_TRUE(r_.stampato("04 17 23 38 61 90"));
}

TEST_F(Listati, OgniRigaNelSuoBloccoEPosto) {
    for (const int c : {1, 3, 5, 7}) {
        r_.fatte.clear();
        cartella_.scrivi("col.dat", "\"" + std::to_string(c) + "\"\r\n");
        ASSERT_TRUE(superenalotto(sestine(79)));
        const auto righe = linee();
        const auto titoli = che_cominciano("Schedina n.");
        ASSERT_EQ(righe.size(), 79U);
        ASSERT_EQ(titoli.size(), static_cast<std::size_t>((79 + c - 1) / c));
        for (int n = 1; n <= 79; ++n) {
            const auto& o = righe[static_cast<std::size_t>(n) - 1];
            const auto& titolo = titoli[static_cast<std::size_t>((n - 1) / c)];
            EXPECT_EQ(o.testo, riga(n));
            EXPECT_NEAR(o.x1, x0 + static_cast<float>((n - 1) / c % 5) * 18.25F + 1.5F, 0.01F);
            EXPECT_NEAR(o.y1, titolo.y1 + static_cast<float>((n - 1) % c + 1) * alto(8), 0.01F);
            EXPECT_EQ(o.pagina, titolo.pagina);
        }
    }
}

TEST_F(Listati, ConTreColonneQuindiciRigheFannoUnaBanda) {
    cartella_.scrivi("col.dat", "\"3\"\r\n");
    ASSERT_TRUE(superenalotto(sestine(15)));
    EXPECT_EQ(piedi(), 0U);
    EXPECT_EQ(che_cominciano("Schedina n.").size(), 5U);
}

TEST_F(Listati, ConDieciColonneLeBandeCrescono) {
    cartella_.scrivi("col.dat", "\"10\"\r\n");
    ASSERT_TRUE(superenalotto(sestine(51)));
    const auto titoli = che_cominciano("Schedina n.");
    ASSERT_EQ(titoli.size(), 6U);
    EXPECT_NEAR(titoli[5].y1 - titoli[0].y1, 1 + 11 * alto(8), 0.01F);
}

TEST_F(Listati, RientriDelLotto) {
    const std::vector<std::pair<int, std::string>> casi = {
        {3, "1,2,33\r\n"}, {4, "1,2,33,44\r\n"}, {5, "1,2,33,44,55\r\n"}};
    const std::vector<std::string> attese = {"01 02 33", "01 02 33 44", "01 02 33 44 55"};
    for (std::size_t k = 0; k < 3; ++k) {
        r_.fatte.clear();
        ASSERT_TRUE(lotto(casi[k].second, casi[k].first));
        EXPECT_NEAR(r_.testo(attese[k]).x1, x0 + 5 - static_cast<float>(k), 0.01F);
    }
}

TEST_F(Listati, IlLottoHaSempreCinqueRighe) {
    cartella_.scrivi("col.dat", "\"2\"\r\n");
    std::string righe;
    for (int i = 0; i < 26; ++i) righe += "11,22,33\r\n";
    ASSERT_TRUE(lotto(righe, 3));
    EXPECT_EQ(che_cominciano("Gruppo n.").size(), 6U);
    EXPECT_EQ(piedi(), 1U);
    r_.fatte.clear();
    ASSERT_TRUE(lotto(righe.substr(0, 250), 3));
    EXPECT_EQ(che_cominciano("Gruppo n.").size(), 5U);
    EXPECT_EQ(piedi(), 0U);
}

TEST_F(Listati, LaPaginaPienaSiVedeDallaPenna) {
    ASSERT_TRUE(superenalotto(sestine(25 * 30 + 1)));
    // A band more as long as the page's foot, less 6, is below the pen and 0.75.
    const float banda = 1 + 6 * alto(8);
    std::size_t bande = 0;
    for (float y = inizio(); foglio_alto - 6 > y + 0.75F; y += banda) ++bande;
    std::vector<std::size_t> titoli(5);
    for (const auto& o : che_cominciano("Schedina n.")) {
        ++titoli[static_cast<std::size_t>(o.pagina)];
    }
    EXPECT_EQ(titoli[1], bande * 5);
    EXPECT_EQ(titoli[2], bande * 5);
    EXPECT_EQ(che_cominciano("Sviluppo Sistema").size(), static_cast<std::size_t>(r_.fogli));
    EXPECT_EQ(che_cominciano("Tabellino").size(), static_cast<std::size_t>(r_.fogli));
    const auto pie = che_cominciano("Pagina ");
    ASSERT_EQ(pie.size(), static_cast<std::size_t>(r_.fogli));
    for (std::size_t i = 0; i < pie.size(); ++i) {
        EXPECT_EQ(pie[i].testo, "Pagina  " + std::to_string(i + 1));
        EXPECT_EQ(pie[i].pagina, static_cast<int>(i) + 1);
        EXPECT_FLOAT_EQ(pie[i].corpo, 8);
    }
    // The numbers of the blocks go on over the pages.
    EXPECT_EQ(che_cominciano("Schedina n.").back().testo, "Schedina n. 151");
}

TEST_F(Listati, QuanteBandeStannoInUnaPagina) {
    // 33 tells the pen's 0.75 from none at all, 21 tells it from 1 and the foot's 6 from 7.
    for (const auto& [colonne, bande] : {std::pair{5, 10}, std::pair{21, 4}, std::pair{33, 2}}) {
        SCOPED_TRACE(colonne);
        r_.fatte.clear();
        cartella_.scrivi("col.dat", "\"" + std::to_string(colonne) + "\"\r\n");
        ASSERT_TRUE(superenalotto(sestine(colonne * 5 * (2 * bande + 1))));
        std::vector<int> blocchi(4);
        for (const auto& o : che_cominciano("Schedina n.")) {
            ASSERT_LE(o.pagina, 3);
            ++blocchi[static_cast<std::size_t>(o.pagina)];
        }
        EXPECT_EQ(blocchi, (std::vector<int>{0, bande * 5, bande * 5, 5}));
    }
}

TEST_F(Listati, LeBandeComincianoUgualiSuOgniPagina) {
    ASSERT_TRUE(superenalotto(sestine(25 * 30)));
    std::vector<float> prime;
    int pagina = 0;
    for (const auto& o : che_cominciano("Schedina n.")) {
        if (o.pagina != pagina) prime.push_back(o.y1);
        pagina = o.pagina;
    }
    ASSERT_GE(prime.size(), 3U);
    for (const float y : prime) EXPECT_NEAR(y, inizio() + 1, 0.01F);
}

TEST_F(Listati, BandeAltissimeSforano) {
    cartella_.scrivi("col.dat", "\"200\"\r\n");
    ASSERT_TRUE(superenalotto(sestine(1001)));
    EXPECT_EQ(linee().size(), 1001U);
    EXPECT_EQ(r_.fogli, 2);
}

TEST_F(Listati, SenzaSviluppoIlLavoroSiLascia) {
    EXPECT_FALSE(stampa_sviluppo_superenalotto(r_, r_, sviluppo()));
    EXPECT_TRUE(r_.stampato("Sviluppo Sistema a Cruciverba SuperEnalotto:prova"));
    EXPECT_TRUE(r_.di_tipo(Tipo::fine).empty());
    EXPECT_EQ(r_.di_tipo(Tipo::scarto).size(), 1U);
    EXPECT_EQ(r_.fatte.back().tipo, Tipo::puntatore);
    EXPECT_EQ(r_.fatte.back().valore, 0);
    EXPECT_FALSE(cartella_.esiste("col.dat")) << "asked for too early";
    EXPECT_FALSE(stampa_sviluppo_lotto(r_, r_, sviluppo()));
}

TEST_F(Listati, OgniGiocoLeggeIlSuoFile) {
    cartella_.scrivi("prova.lot", "1,2,3,4,5\r\n");
    EXPECT_FALSE(stampa_sviluppo_superenalotto(r_, r_, sviluppo()));
    cartella_.scrivi("prova.col", sestine(1));
    std::filesystem::remove(cartella_.file("prova.lot"));
    EXPECT_FALSE(stampa_sviluppo_lotto(r_, r_, sviluppo()));
}

TEST_F(Listati, UnoSviluppoVuotoHaSoloLaTesta) {
    ASSERT_TRUE(superenalotto(""));
    EXPECT_TRUE(che_cominciano("Schedina").empty());
    EXPECT_EQ(piedi(), 0U);
    EXPECT_EQ(r_.fogli, 1);
}

TEST_F(Listati, ZeroColonneSoloTitoliQuanteSonoLeRighe) {
    cartella_.scrivi("col.dat", "\"\"\r\n");
    ASSERT_TRUE(superenalotto(sestine(12)));
    EXPECT_TRUE(linee().empty());
    EXPECT_EQ(che_cominciano("Schedina n.").size(), 12U);
    EXPECT_EQ(piedi(), 1U);
    EXPECT_EQ(r_.di_tipo(Tipo::fine).size(), 1U);
    r_.fatte.clear();
    ASSERT_TRUE(superenalotto(sestine(10)));
    EXPECT_EQ(che_cominciano("Schedina n.").size(), 10U);
    EXPECT_EQ(piedi(), 0U);
}

TEST_F(Listati, UnaFormaSconosciutaFinisceLoStesso) {
    for (const int forma : {0, 2, 6}) {
        r_.fatte.clear();
        ASSERT_TRUE(lotto("1,2,3\r\n4,5,6\r\n", forma));
        EXPECT_EQ(che_cominciano("Gruppo n.").size(), 2U);
        EXPECT_TRUE(linee().empty());
    }
}

TEST_F(Listati, RigheGuasteNonFermano) {
    ASSERT_TRUE(superenalotto("a,b,1,2,3,99999\r\n5,6\r\n7\r\n\r\n,,,,,,,,\r\n1"));
    EXPECT_EQ(r_.di_tipo(Tipo::fine).size(), 1U);
    EXPECT_TRUE(r_.stampato("00 00 01 02 03 00"));
}

TEST_F(Listati, IlLavoroPersoSiDice) {
    r_.riesce = false;
    EXPECT_FALSE(superenalotto(sestine(1)));
    EXPECT_EQ(r_.fatte.back().valore, 0);
}

TEST_F(Listati, ColDatSiCreaConCinque) {
    EXPECT_EQ(colonne_schedina(cartella_.programma()), 5);
    EXPECT_EQ(cartella_.leggi("col.dat"), "\"5\"\r\n");
}

TEST_F(Listati, ColDatSiLeggeESiLascia) {
    const std::vector<std::pair<std::string, int>> casi = {{"\"10\"\r\n", 10}, {"7", 7},
                                                           {"\"\"\r\n", 0},    {"", 0},
                                                           {"\"256\"\r\n", 0}, {"\"255\"\r\n", 255},
                                                           {"\"-1\"\r\n", 0},  {"\"abc\"\r\n", 0},
                                                           {"\"3x\"\r\n", 3},  {"\"2.5\"\r\n", 2}};
    for (const auto& [testo, quante] : casi) {
        cartella_.scrivi("col.dat", testo);
        EXPECT_EQ(colonne_schedina(cartella_.programma()), quante) << testo;
        EXPECT_EQ(cartella_.leggi("col.dat"), testo);
    }
}

TEST_F(Listati, DoveNonSiScriveColDatValeCinque) {
    EXPECT_EQ(colonne_schedina(cartella_.file("manca")), 5);
}

TEST_F(Listati, SiLeggeMentreSiStampa) {
    /// Notes at each reading how much has been drawn by then.
    class Spia : public platform::Syscalls {
    public:
        explicit Spia(const Registratore& r) : r_(r) {}
        ssize_t read(int fd, void* dati, std::size_t quanti) override {
            disegnati.push_back(r_.fatte.size());
            return Syscalls::read(fd, dati, quanti);
        }
        std::vector<std::size_t> disegnati;

    private:
        const Registratore& r_;
    };
    cartella_.scrivi("col.dat", "\"5\"\r\n");
    cartella_.scrivi("prova.col", sestine(40000));
    Spia spia(r_);
    auto posto = std::make_optional<platform::Ripristina<platform::Syscalls*>>(
        platform::ambiente().chiamate, &spia);
    const bool riuscito = stampa_sviluppo_superenalotto(r_, r_, sviluppo());
    posto.reset();
    ASSERT_TRUE(riuscito);
    EXPECT_EQ(linee().size(), 40000U);
    ASSERT_GE(spia.disegnati.size(), 4U);
    for (std::size_t i = 3; i < spia.disegnati.size(); ++i) {
        EXPECT_GT(spia.disegnati[i], spia.disegnati[i - 1]) << i;
    }
}

TEST_F(Listati, AOgniPaginaDiceAChePuntoE) {
    EXPECT_TRUE(superenalotto(sestine(2000)));
    ASSERT_EQ(static_cast<int>(r_.avanzamenti.size()) + 1, r_.fogli);
    double prima = 0;
    int pagina = 1;
    for (const auto& [quale, parte] : r_.avanzamenti) {
        EXPECT_EQ(quale, pagina++);
        EXPECT_GT(parte, prima);
        EXPECT_LT(parte, 1);
        prima = parte;
    }
}

TEST_F(Listati, AOgniPaginaDiceQuantaParteDelFileHaStampato) {
    std::string righe;
    for (int i = 0; i < 2000; ++i) righe += "11,22,33\r\n";
    ASSERT_TRUE(lotto(righe, 3));
    std::vector<int> stampate(static_cast<std::size_t>(r_.fogli) + 1);
    for (const Operazione& o : linee()) ++stampate[static_cast<std::size_t>(o.pagina)];
    ASSERT_GE(r_.avanzamenti.size(), 2U);
    int finora = 0;
    for (const auto& [quale, parte] : r_.avanzamenti) {
        finora += stampate[static_cast<std::size_t>(quale)];
        EXPECT_DOUBLE_EQ(parte, finora / 2000.0);
    }
}

TEST_F(Listati, SenzaColonneLaParteEQuellaDeiTitoli) {
    cartella_.scrivi("col.dat", "\"\"\r\n");
    ASSERT_TRUE(superenalotto(sestine(1000)));
    ASSERT_GE(r_.avanzamenti.size(), 2U);
    std::vector<int> titoli(static_cast<std::size_t>(r_.fogli) + 1);
    for (const Operazione& o : che_cominciano("Schedina n.")) {
        ++titoli[static_cast<std::size_t>(o.pagina)];
    }
    int finora = 0;
    for (const auto& [quale, parte] : r_.avanzamenti) {
        finora += titoli[static_cast<std::size_t>(quale)];
        EXPECT_DOUBLE_EQ(parte, finora / 1000.0);
    }
}

TEST_F(Listati, UnLavoroFermatoNonLasciaNulla) {
    r_.ferma_dopo = 2;
    EXPECT_FALSE(superenalotto(sestine(2000)));
    EXPECT_EQ(r_.fogli, 2);
    EXPECT_EQ(r_.di_tipo(Tipo::fine).size(), 0U);
    EXPECT_EQ(r_.di_tipo(Tipo::scarto).size(), 1U);
    EXPECT_EQ(r_.di_tipo(Tipo::puntatore).back().valore, 0);
}

TEST_F(Listati, UnLavoroPersoNonSiDisegnaFinoInFondo) {
    r_.persa = true;
    EXPECT_FALSE(superenalotto(sestine(2000)));
    EXPECT_EQ(r_.fogli, 1);
    EXPECT_EQ(r_.di_tipo(Tipo::scarto).size(), 1U);
}
