#include "development/ripetizioni.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

#include "development/elaborazione.h"
#include "support/guasti.h"
#include "support/sviluppo.h"

using namespace development;
using namespace support;

namespace {

TEST(CombinazioniViste, OgnunaENuovaUnaVoltaSola) {
    CombinazioniViste viste(3);
    EXPECT_TRUE(viste.aggiungi(7));
    EXPECT_TRUE(viste.aggiungi(8));
    EXPECT_FALSE(viste.aggiungi(7));
    EXPECT_TRUE(viste.aggiungi(9));
    EXPECT_FALSE(viste.aggiungi(9));
    EXPECT_FALSE(viste.aggiungi(8));
}

TEST(CombinazioniViste, ComeIlContoPiuSempliceFinoAllUltimoPosto) {
    std::mt19937_64 caso(3);
    for (const std::size_t quante : {1U, 2U, 31U, 250U, 5000U}) {
        CombinazioniViste viste(quante);
        std::set<Combinazione> semplici;
        while (semplici.size() < quante) {
            const Combinazione c = caso() % (2 * quante) + 1;
            viste.avvicina(c);
            ASSERT_EQ(viste.aggiungi(c), semplici.insert(c).second) << quante;
        }
        for (const Combinazione c : semplici) ASSERT_FALSE(viste.aggiungi(c)) << quante;
    }
}

class SenzaRipetizioni : public Sviluppo {
protected:
    void SetUp() override {
        Sviluppo::SetUp();
        richiesta.senza_ripetizioni = true;
    }
    /// A crossword whose rows are the lines told.
    void righe_del_cruciverba(const std::vector<std::vector<int>>& righe_date) {
        richiesta.matrice = crossword::Matrice(static_cast<int>(righe_date.front().size()),
                                               static_cast<int>(righe_date.size()));
        for (std::size_t y = 0; y < righe_date.size(); ++y) {
            for (std::size_t x = 0; x < righe_date[y].size(); ++x) {
                richiesta.matrice.scrivi(static_cast<int>(x), static_cast<int>(y),
                                         static_cast<std::int16_t>(righe_date[y][x]));
            }
        }
    }
};

TEST_F(SenzaRipetizioni, OgniCombinazioneAlPostoDellaPrimaVolta) {
    tabella("cr0600.rid", "1,2,3,4,5,6\r\n");
    const std::vector<int> ripetuta{80, 81, 82, 83, 84, 85};
    const std::vector<int> altra{1, 2, 3, 4, 5, 6};
    righe_del_cruciverba({ripetuta, altra, ripetuta, {7, 8, 9, 10, 11, 12}, altra, ripetuta});
    richiesta.tipo_colonne = -1;
    richiesta.tipo_diagonali = -1;
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(testo, "80,81,82,83,84,85\r\n1,2,3,4,5,6\r\n7,8,9,10,11,12\r\n");
    EXPECT_EQ(righe, 3);
    EXPECT_EQ(byte, std::ssize(testo));
}

TEST_F(SenzaRipetizioni, IlPrimoNumeroELUltimoDistinguono) {
    tabella("cr0600.rid", "1,2,3,4,5,6\r\n");
    righe_del_cruciverba({{1, 2, 3, 4, 5, 6},
                          {11, 2, 3, 4, 5, 6},
                          {1, 2, 3, 4, 5, 66},
                          {1, 2, 3, 4, 5, 60},
                          {1, 2, 3, 4, 56, 6},
                          {1, 12, 3, 4, 5, 6}});
    richiesta.tipo_colonne = -1;
    richiesta.tipo_diagonali = -1;
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, 6);
}

TEST_F(SenzaRipetizioni, LeRigheRipetuteDiUnaTabellaContanoUnaVolta) {
    tabella("cr0700.rid", "1,2,3,4,5,6\r\n2,3,4,5,6,7\r\n1,2,3,4,5,6\r\n1,2,3,4,5,7\r\n");
    richiesta.matrice = cruciverba(7, 6);
    richiesta.tipo_colonne = -1;
    richiesta.tipo_diagonali = -1;
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(testo, senza_ripetizioni(sviluppo_semplice(richiesta)));
    EXPECT_EQ(righe, 18);
}

TEST_F(SenzaRipetizioni, SenzaCombinazioniRipetuteIlFileELoStesso) {
    spedite();
    richiesta.matrice = cruciverba(6, 8);
    richiesta.senza_ripetizioni = false;
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    const std::string con = testo;
    richiesta.senza_ripetizioni = true;
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(testo, con);
}

TEST_F(SenzaRipetizioni, ComeIlContoSempliceAncheSuNumeriCheNessunoMette) {
    tabella("cr0600.rid", "1,2,3,4,5,6\r\n");
    tabella("cr0800.rid", "1,2,3,4,5,6\r\n3,4,5,6,7,8\r\n1,2,3,4,7,8\r\n");
    std::mt19937 caso(5);
    for (int giro = 0; giro < 40; ++giro) {
        richiesta.matrice = crossword::Matrice(6, 8);
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 6; ++x) {
                const auto numero = static_cast<std::int16_t>(caso() % (giro % 2 == 0 ? 4 : 256));
                richiesta.matrice.scrivi(x, y, numero);
            }
        }
        ASSERT_EQ(sviluppa(), Conclusione::completa);
        ASSERT_EQ(testo, senza_ripetizioni(sviluppo_semplice(richiesta)));
        ASSERT_EQ(byte, std::ssize(testo));
        ASSERT_EQ(righe, std::count(testo.begin(), testo.end(), '\n'));
    }
}

TEST_F(SenzaRipetizioni, AvanzaConTutteLeCombinazioniNonSoltantoLeNuove) {
    std::string stessa;
    for (int i = 0; i < 100; ++i) stessa += "1,2,3,4,5,6\r\n";
    tabella("cr0600.rid", stessa);
    richiesta.matrice = cruciverba(6, 6);
    richiesta.tipo_colonne = -1;
    richiesta.tipo_diagonali = -1;
    std::vector<std::int32_t> passi;
    Elaborazione lavoro(richiesta, [&passi](std::int32_t n) {
        passi.push_back(n);
        return true;
    });
    EXPECT_EQ(lavoro.sviluppa(), Conclusione::completa);
    EXPECT_EQ(lavoro.righe_scritte(), 6);
    passi.erase(std::unique(passi.begin(), passi.end()), passi.end());
    EXPECT_EQ(passi, (std::vector<std::int32_t>{100, 200, 250, 300, 400, 500, 600}));
}

TEST_F(SenzaRipetizioni, IlDiscoPienoEUnGuastoInOgniPunto) {
    tabella("cr0600.rid", "1,2,3,4,5,6\r\n");
    richiesta.matrice = cruciverba(6, 6);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    const std::int64_t intero = byte;
    for (std::int64_t spazio = 0; spazio < intero; spazio += 5) {
        support::Disco disco;
        disco.spazio = spazio;
        EXPECT_EQ(sviluppa(), Conclusione::guasta) << spazio;
    }
}

TEST_F(SenzaRipetizioni, SenzaTabelleNonNasceUnFile) {
    richiesta.matrice = cruciverba(6, 6);
    EXPECT_EQ(sviluppa(), Conclusione::senza_file);
    EXPECT_FALSE(cartella.esiste("temp.col"));
}

TEST_F(SenzaRipetizioni, UnaTabellaVuotaDaUnFileVuoto) {
    tabella("cr0600.rid", "");
    richiesta.matrice = cruciverba(6, 6);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_TRUE(cartella.esiste("temp.col"));
    EXPECT_EQ(righe, 0);
    EXPECT_EQ(byte, 0);
}

}  // namespace
