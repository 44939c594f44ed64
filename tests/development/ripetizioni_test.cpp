#include "development/ripetizioni.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <sstream>

#include "support/cartella.h"
#include "support/guasti.h"

using namespace development;

namespace {

class TogliRipetizioni : public testing::Test {
protected:
    std::optional<SenzaRipetizioni> togli(const std::string& testo,
                                          const Avanzamento& avanzamento = {}) {
        cartella.scrivi("temp.col", testo);
        return togli_ripetizioni(cartella.file("temp.col"), cartella.file("unici"), avanzamento);
    }
    support::Cartella cartella;
};

/// Lines of `testo` at their first appearance, by the plainest means.
std::string attesi(const std::string& testo) {
    std::set<std::string> viste;
    std::string unici;
    std::istringstream righe(testo);
    for (std::string riga; std::getline(righe, riga);) {
        if (viste.insert(riga).second) unici += riga + "\n";
    }
    return unici;
}

TEST_F(TogliRipetizioni, senza_ripetizioni_il_file_resta_com_era) {
    const std::string testo = "4,5,6,7,8,9\r\n1,2,3,4,5,6\r\n10,20,30,40,50,60\r\n";
    const auto esito = togli(testo);
    ASSERT_TRUE(esito.has_value());
    EXPECT_EQ(esito->combinazioni, 3);
    EXPECT_EQ(esito->byte, static_cast<std::int64_t>(testo.size()));
    EXPECT_EQ(cartella.leggi("unici"), testo);
    EXPECT_EQ(cartella.leggi("temp.col"), testo);
}

TEST_F(TogliRipetizioni, ogni_combinazione_al_posto_della_prima_volta) {
    const auto esito = togli("7,8,9\r\n1,2,3\r\n7,8,9\r\n4,5,6\r\n1,2,3\r\n7,8,9\r\n");
    ASSERT_TRUE(esito.has_value());
    EXPECT_EQ(esito->combinazioni, 3);
    EXPECT_EQ(esito->byte, 21);
    EXPECT_EQ(cartella.leggi("unici"), "7,8,9\r\n1,2,3\r\n4,5,6\r\n");
}

TEST_F(TogliRipetizioni, il_primo_numero_e_l_ultimo_distinguono) {
    const std::string testo =
        "1,2,3,4,5,6\r\n11,2,3,4,5,6\r\n1,2,3,4,5,66\r\n1,2,3,4,5,60\r\n1,23,4\r\n12,3,4\r\n";
    ASSERT_TRUE(togli(testo).has_value());
    EXPECT_EQ(cartella.leggi("unici"), testo);
}

TEST_F(TogliRipetizioni, una_riga_che_comincia_un_altra_non_la_ripete) {
    const std::string testo = "1,2,3,4,55\r\n1,2,3,4,5\r\n1,2,3,4\r\n1,2,3\r\n1,2\r\n1\r\n";
    EXPECT_EQ(togli(testo)->combinazioni, 6);
    EXPECT_EQ(cartella.leggi("unici"), testo);
}

TEST_F(TogliRipetizioni, l_ultima_riga_senza_fine_la_riceve) {
    EXPECT_EQ(togli("1,2,3\r\n4,5,6")->combinazioni, 2);
    EXPECT_EQ(cartella.leggi("unici"), "1,2,3\r\n4,5,6\r\n");
    EXPECT_EQ(togli("1,2,3\r\n1,2,3")->combinazioni, 1);
    EXPECT_EQ(cartella.leggi("unici"), "1,2,3\r\n");
}

TEST_F(TogliRipetizioni, un_file_vuoto_ne_da_uno_vuoto) {
    const auto esito = togli("");
    ASSERT_TRUE(esito.has_value());
    EXPECT_EQ(esito->combinazioni, 0);
    EXPECT_EQ(esito->byte, 0);
    EXPECT_TRUE(cartella.esiste("unici"));
    EXPECT_EQ(cartella.leggi("unici"), "");
}

TEST_F(TogliRipetizioni, come_il_conto_piu_semplice_su_molte_righe) {
    std::mt19937 caso(3);
    for (const unsigned quanti : {1U, 31U, 32U, 33U, 250U, 5000U}) {
        std::string testo;
        for (unsigned i = 0; i < quanti; ++i) {
            testo += std::to_string(caso() % 9);
            for (unsigned j = 0; j < quanti % 6; ++j) testo += "," + std::to_string(caso() % 12);
            testo += "\r\n";
        }
        const auto esito = togli(testo);
        ASSERT_TRUE(esito.has_value());
        const std::string unici = attesi(testo);
        EXPECT_EQ(cartella.leggi("unici"), unici);
        EXPECT_EQ(esito->byte, static_cast<std::int64_t>(unici.size()));
        EXPECT_EQ(esito->combinazioni, std::count(unici.begin(), unici.end(), '\n'));
    }
}

TEST_F(TogliRipetizioni, righe_lunghe_uguali_agli_estremi_restano_distinte) {
    std::string testo;
    for (int i = 0; i < 300; ++i) {
        testo += std::string(30, '7') + std::to_string(1000 + i) + std::string(30, '7') + "\r\n";
    }
    EXPECT_EQ(togli(testo + testo)->combinazioni, 300);
    EXPECT_EQ(cartella.leggi("unici"), testo);
}

TEST_F(TogliRipetizioni, byte_a_caso_non_fanno_danno) {
    std::mt19937 caso(11);
    for (int giro = 0; giro < 300; ++giro) {
        std::string testo(caso() % 400, '\0');
        for (char& c : testo) c = giro % 2 == 0 ? static_cast<char>(caso()) : "1,\r\n"[caso() % 4];
        const auto esito = togli(testo);
        ASSERT_TRUE(esito.has_value());
        if (!testo.empty() && testo.back() != '\n') testo += "\r\n";
        ASSERT_EQ(cartella.leggi("unici"), attesi(testo));
    }
}

TEST_F(TogliRipetizioni, avanza_ogni_duecentocinquanta_righe_lette) {
    std::string testo;
    for (int i = 0; i < 501; ++i) testo += "1,2,3\r\n";
    std::vector<std::int32_t> passi;
    EXPECT_TRUE(togli(testo, [&passi](std::int32_t n) {
                    passi.push_back(n);
                    return true;
                }).has_value());
    EXPECT_EQ(passi, (std::vector<std::int32_t>{250, 500}));
}

TEST_F(TogliRipetizioni, si_ferma_quando_e_chiesto_e_non_scrive) {
    std::string testo;
    for (int i = 0; i < 501; ++i) testo += "1,2,3\r\n";
    int volte = 0;
    EXPECT_FALSE(togli(testo, [&volte](std::int32_t) { return ++volte < 2; }).has_value());
    EXPECT_EQ(volte, 2);
    EXPECT_FALSE(cartella.esiste("unici"));
    EXPECT_EQ(cartella.leggi("temp.col"), testo);
}

TEST_F(TogliRipetizioni, niente_senza_il_file_di_partenza) {
    EXPECT_FALSE(togli_ripetizioni(cartella.file("manca"), cartella.file("unici"), {}).has_value());
    EXPECT_FALSE(cartella.esiste("unici"));
    EXPECT_FALSE(togli_ripetizioni(cartella.programma(), cartella.file("unici"), {}).has_value());
}

TEST_F(TogliRipetizioni, un_resto_di_un_altra_volta_non_si_mescola) {
    cartella.scrivi("unici", "9,9,9\r\n");
    ASSERT_TRUE(togli("1,2,3\r\n").has_value());
    EXPECT_EQ(cartella.leggi("unici"), "1,2,3\r\n");
}

TEST_F(TogliRipetizioni, il_disco_pieno_non_lascia_un_file_a_meta) {
    const std::string testo = "1,2,3\r\n4,5,6\r\n7,8,9\r\n";
    for (std::int64_t spazio = 0; spazio < 21; ++spazio) {
        cartella.scrivi("temp.col", testo);
        support::Disco disco;
        disco.spazio = spazio;
        EXPECT_FALSE(
            togli_ripetizioni(cartella.file("temp.col"), cartella.file("unici"), {}).has_value());
        EXPECT_FALSE(cartella.esiste("unici")) << spazio;
    }
}

TEST_F(TogliRipetizioni, un_disco_che_perde_si_vede_dalla_misura) {
    const std::string testo = "1,2,3\r\n4,5,6\r\n";
    cartella.scrivi("temp.col", testo);
    cartella.scrivi("a.col", "vecchio");
    support::Disco disco;
    disco.spazio = 9;
    disco.perde = true;
    const auto esito = togli_ripetizioni(cartella.file("temp.col"), cartella.file("unici"), {});
    ASSERT_TRUE(esito.has_value());
    EXPECT_EQ(esito->byte, 14);
    EXPECT_FALSE(completa_sviluppo(cartella.file("unici"), cartella.file("a.col"), esito->byte));
    EXPECT_FALSE(cartella.esiste("a.col"));
}

TEST_F(TogliRipetizioni, una_cartella_al_posto_del_file_nuovo_resta) {
    std::filesystem::create_directory(cartella.file("unici"));
    EXPECT_FALSE(togli("1,2,3\r\n").has_value());
    EXPECT_TRUE(std::filesystem::is_directory(cartella.file("unici")));
}

}  // namespace
