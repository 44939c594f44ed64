// The printed analysis: heads of pages, titles in bold, a title that never stands alone at the
// foot.
#include "analysis/stampa_analisi.h"

#include <algorithm>
#include <string>
#include <vector>

#include "support/stampante.h"

using namespace analysis;
using support::Registratore;
using support::Tipo;

namespace {

const printing::Testata testata{"1.0.0", "Prova", "21/11/2026"};

Tavola tavola(const std::string& titolo, int righe) {
    Tavola t;
    t.titolo = titolo;
    t.colonne = {"Numero", "Quanti"};
    for (int i = 1; i <= righe; ++i) t.righe.push_back({std::to_string(i), "x"});
    return t;
}

/// The place of the first text that begins so.
support::Operazione che_comincia(const Registratore& r, const std::string& inizio) {
    for (const support::Operazione& o : r.testi()) {
        if (o.testo.starts_with(inizio)) return o;
    }
    ADD_FAILURE() << "not printed: " << inizio;
    return {};
}

TEST(StampaAnalisi, OnlyTheTitlesAreBold) {
    Registratore r;
    EXPECT_TRUE(stampa_analisi(r, testata, std::vector<Tavola>{tavola("Prima", 2)}));
    EXPECT_TRUE(r.stampato("ANALISI DEL SISTEMA"));
    const auto titolo = che_comincia(r, "Prima");
    EXPECT_TRUE(titolo.grassetto);
    EXPECT_FLOAT_EQ(titolo.corpo, 8);
    EXPECT_FLOAT_EQ(titolo.x1, support::x0);
    EXPECT_FALSE(che_comincia(r, "Numero").grassetto);
    EXPECT_EQ(r.di_tipo(Tipo::fine).size(), 1U);
}

TEST(StampaAnalisi, ALongTableGoesOnUnderAHeadOfItsOwn) {
    Registratore r;
    EXPECT_TRUE(stampa_analisi(r, testata, std::vector<Tavola>{tavola("Lunga", 200)}));
    ASSERT_GT(r.fogli, 2);
    for (int pagina = 1; pagina <= r.fogli; ++pagina) {
        const auto testi = r.pagina(pagina);
        EXPECT_EQ(std::count(testi.begin(), testi.end(), "ANALISI DEL SISTEMA"), 1) << pagina;
    }
    int righe = 0;
    for (const auto& o : r.testi()) {
        if (o.pagina > 1 && o.testo.ends_with(" x")) {
            EXPECT_FALSE(o.grassetto) << o.testo;
            EXPECT_FLOAT_EQ(o.corpo, 8);
        }
        EXPECT_LE(o.y1 + support::alto(o.corpo), support::foglio_alto);
        righe += o.testo.ends_with(" x") ? 1 : 0;
    }
    EXPECT_EQ(righe, 200);
}

TEST(StampaAnalisi, ATitleHasLinesUnderItOnItsPage) {
    for (int righe = 20; righe <= 90; ++righe) {
        Registratore r;
        stampa_analisi(r, testata,
                       std::vector<Tavola>{tavola("Prima", righe), tavola("Seconda", 5)});
        const auto titolo = che_comincia(r, "Seconda");
        std::size_t sotto = 0;
        for (const auto& o : r.testi()) {
            sotto += o.pagina == titolo.pagina && o.y1 > titolo.y1 && o.corpo == 8 ? 1 : 0;
        }
        EXPECT_GE(sotto, 3U) << righe;
    }
}

TEST(StampaAnalisi, AJobThatIsLostIsTold) {
    Registratore r;
    r.riesce = false;
    EXPECT_FALSE(stampa_analisi(r, testata, std::vector<Tavola>{tavola("Prima", 2)}));
}

}  // namespace
