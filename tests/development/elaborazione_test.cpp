#include "development/elaborazione.h"

#include <gtest/gtest.h>
#include <random>

#include "support/sviluppo.h"

using namespace development;
using namespace support;

namespace {

TEST(OrdinaControlli, OrdinaTuttoOLaParteChiesta) {
    std::vector<std::uint8_t> v{77, 3, 90, 12, 8, 41, 40};
    ordina_controlli(v, 2, 4);
    EXPECT_EQ(v, (std::vector<std::uint8_t>{77, 3, 8, 12, 90, 41, 40}));
    ordina_controlli(v, 0, 6);
    EXPECT_EQ(v, (std::vector<std::uint8_t>{3, 8, 12, 40, 41, 77, 90}));
}

TEST(OrdinaControlli, LimitiImpossibiliNonFannoDanno) {
    std::vector<std::uint8_t> v{3, 2, 1};
    ordina_controlli(v, 2, 1);
    ordina_controlli(v, 7, 9);
    EXPECT_EQ(v, (std::vector<std::uint8_t>{3, 2, 1}));
    ordina_controlli(v, 1, 99);
    EXPECT_EQ(v, (std::vector<std::uint8_t>{3, 1, 2}));
    std::vector<std::uint8_t> vuoto;
    ordina_controlli(vuoto, 0, 0);
    EXPECT_TRUE(vuoto.empty());
}

TEST_F(Sviluppo, LePosizioniContanoNellaLineaOrdinata) {
    tabella("cr0700.rid", "1,2,3,4,5,6\r\n2,3,4,5,6,7\r\n");
    Elaborazione lavoro(richiesta, {});
    EXPECT_TRUE(lavoro.elabora({90, 12, 3, 77, 40, 8, 41}, 0));
    EXPECT_EQ(cartella.leggi("temp.col"), "3,8,12,40,41,77\r\n8,12,40,41,77,90\r\n");
    EXPECT_EQ(lavoro.righe_scritte(), 2);
    EXPECT_EQ(lavoro.byte_scritti(), 35);
}

TEST_F(Sviluppo, LeLineeSiAccodanoNelFileTemporaneoDelGioco) {
    tabella("tr0500.rid", "1,2,3\r\n");
    richiesta.gioco = Gioco::lotto(3);
    Elaborazione lavoro(richiesta, {});
    EXPECT_EQ(lavoro.file_temporaneo(), cartella.file("temp.lot"));
    EXPECT_TRUE(lavoro.elabora({5, 4, 3, 2, 1}, 0));
    EXPECT_TRUE(lavoro.elabora({10, 20, 30, 40, 50}, 0));
    EXPECT_EQ(cartella.leggi("temp.lot"), "1,2,3\r\n10,20,30\r\n");
}

TEST_F(Sviluppo, UnaLineaDiSeiIntegraleDaUnaRigaConLaSuaFine) {
    spedite();
    Elaborazione lavoro(richiesta, {});
    EXPECT_TRUE(lavoro.elabora({90, 61, 38, 23, 17, 4}, 0));
    EXPECT_EQ(cartella.leggi("temp.col"), "4,17,23,38,61,90\r\n");
}

TEST_F(Sviluppo, VentiLineeNellaSettePerSetteSediciNelLotto) {
    tabella("cr0600.rid", "1,2,3,4,5,6");
    tabella("cr0700.rid", "1,2,3,4,5,6");
    tabella("cn0700.rid", "1,2,3,4,5");
    richiesta.matrice = cruciverba(7, 7);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, 20);
    EXPECT_EQ(righe_di(testo).size(), 20U);
    richiesta.gioco = Gioco::lotto();
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, 16);
    EXPECT_EQ(righe_di(testo).size(), 16U);
}

TEST_F(Sviluppo, LaSeiPerSeiNonHaAdiacenti) {
    spedite();
    richiesta.matrice = cruciverba(6, 6);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, 14);
    EXPECT_EQ(testo, sviluppo_semplice(richiesta));
}

TEST(Temporanei, SonoTuttiINomiCheComincianoCosi) {
    EXPECT_TRUE(e_temporaneo("temp.col"));
    EXPECT_TRUE(e_temporaneo("TEMPO.lot"));
    EXPECT_FALSE(e_temporaneo("tem.col"));
    EXPECT_FALSE(e_temporaneo("mio temp.col"));
}

TEST_F(Sviluppo, SeiPerOttoRigheDaSeiEColonneDaOtto) {
    spedite();
    richiesta.matrice = cruciverba(6, 8);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, 8 * 1 + 6 * 28);
    EXPECT_EQ(testo, sviluppo_semplice(richiesta));
}

TEST_F(Sviluppo, OgniGruppoConIlSuoTipoENelSuoOrdine) {
    tabella("cr0701.rid", "1,2,3,4,5,6");
    tabella("cr0702.rid", "2,3,4,5,6,7");
    tabella("cr0703.rid", "1,3,4,5,6,7");
    tabella("cr0603.rid", "1,2,3,4,5,6");
    richiesta.matrice = cruciverba(7, 7);
    richiesta.tipo_righe = 1;
    richiesta.tipo_colonne = 2;
    richiesta.tipo_diagonali = 3;
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    const auto uscite = righe_di(testo);
    ASSERT_EQ(uscite.size(), 20U);
    EXPECT_EQ(uscite[0], "1,2,3,4,5,6\r");
    EXPECT_EQ(uscite[6], "43,44,45,46,47,48\r");
    EXPECT_EQ(uscite[7], "1,17,25,33,41,49\r");
    EXPECT_EQ(uscite[8], "2,10,18,26,34,42\r");
    EXPECT_EQ(uscite[9], "8,16,24,32,40,48\r");
    EXPECT_EQ(uscite[10], "8,15,22,29,36,43\r");
    EXPECT_EQ(uscite[16], "14,21,28,35,42,49\r");
    EXPECT_EQ(uscite[17], "7,19,25,31,37,43\r");
    EXPECT_EQ(uscite[18], "6,12,18,24,30,36\r");
    EXPECT_EQ(uscite[19], "14,20,26,32,38,44\r");
}

TEST_F(Sviluppo, IntegraleDiQuindiciPerQuindiciComeIlContoSemplice) {
    spedite();
    richiesta.matrice = cruciverba(15, 15);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, 172172);
    const std::string attesa = sviluppo_semplice(richiesta);
    EXPECT_EQ(righe_di(attesa).size(), 172172U);
    EXPECT_TRUE(testo == attesa);
    EXPECT_EQ(byte, static_cast<std::int64_t>(attesa.size()));
    richiesta.senza_ripetizioni = true;
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    const std::string unica = senza_ripetizioni(attesa);
    EXPECT_LT(unica.size(), attesa.size());
    EXPECT_TRUE(testo == unica);
    EXPECT_EQ(righe, std::count(unica.begin(), unica.end(), '\n'));
    EXPECT_EQ(byte, std::ssize(unica));
}

TEST_F(Sviluppo, OgniFormaDelLottoComeIlContoSemplice) {
    spedite();
    for (const int forma : {3, 4, 5}) {
        for (const auto& [c, r] : {std::pair{5, 5}, {7, 7}, {9, 12}, {15, 15}}) {
            richiesta.gioco = Gioco::lotto(forma);
            richiesta.matrice = cruciverba(c, r);
            richiesta.tipo_colonne = r > 6 ? 1 : 0;
            richiesta.tipo_diagonali = r > 6 ? 1 : 0;
            EXPECT_EQ(sviluppa(), Conclusione::completa);
            const std::string attesa = sviluppo_semplice(richiesta);
            EXPECT_FALSE(attesa.empty());
            EXPECT_TRUE(testo == attesa) << forma << ' ' << c << " x " << r;
        }
    }
}

TEST_F(Sviluppo, DueRigheDegliStessiNumeriContanoUnaVoltaODue) {
    spedite();
    richiesta.matrice = cruciverba(6, 8);
    for (int x = 0; x < 6; ++x) {
        richiesta.matrice.scrivi(x, 0, static_cast<std::int16_t>(80 + x));
        richiesta.matrice.scrivi(x, 7, static_cast<std::int16_t>(85 - x));
    }
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    const auto uscite = righe_di(testo);
    EXPECT_EQ(std::count(uscite.begin(), uscite.end(), "80,81,82,83,84,85\r"), 2);
    const std::int32_t tutte = righe;
    richiesta.senza_ripetizioni = true;
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, tutte - 1);
    const auto uniche = righe_di(testo);
    EXPECT_EQ(uniche.front(), "80,81,82,83,84,85\r");
    EXPECT_EQ(std::count(uniche.begin(), uniche.end(), "80,81,82,83,84,85\r"), 1);
}

TEST_F(Sviluppo, SenzaLaTabellaDelleRigheRestanoLeAltreLinee) {
    tabella("cr0800.rid", "1,2,3,4,5,6\r\n");
    richiesta.matrice = cruciverba(6, 8);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, 6);
    EXPECT_EQ(righe_di(testo).front(), "1,8,15,22,29,36\r");
}

TEST_F(Sviluppo, SenzaNessunaTabellaNessunFile) {
    richiesta.matrice = cruciverba(7, 7);
    EXPECT_EQ(sviluppa(), Conclusione::senza_file);
    EXPECT_FALSE(cartella.esiste("temp.col"));
    cartella.scrivi("a.col", "vecchio");
    EXPECT_FALSE(completa_sviluppo(cartella.file("temp.col"), cartella.file("a.col"), 0));
    EXPECT_FALSE(cartella.esiste("a.col"));
}

TEST_F(Sviluppo, UnTipoNonSceltoNonHaTabella) {
    tabella("cr060-1.rid", "1,2,3,4,5,6\r\n");
    tabella("cr0600.rid", "1,2,3,4,5,6\r\n");
    richiesta.matrice = cruciverba(6, 6);
    richiesta.tipo_righe = -1;
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, 8);
}

TEST_F(Sviluppo, UnaPosizioneSbagliataLasciaCadereIlRestoDiQuellaLinea) {
    tabella("cr0600.rid", "1,2,3,4,5,6\r\n1,2,3,4,5,7\r\n1,2,3,4,5,6\r\n");
    tabella("cr0800.rid", "1,2,3,4,5,6\r\n3,4,5,6,7,8\r\n1,2,3");
    richiesta.matrice = cruciverba(6, 8);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, 8 * 1 + 6 * 2);
}

TEST_F(Sviluppo, UnaTabellaSenzaRigheDaUnFileVuoto) {
    tabella("cr0600.rid", "");
    richiesta.matrice = cruciverba(6, 6);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_TRUE(cartella.esiste("temp.col"));
    EXPECT_EQ(byte, 0);
}

TEST_F(Sviluppo, NumeriGuastiNonEsconoDallaMemoria) {
    tabella("cr0600.rid", "1,2,3,4,5,6\r\n1,2,3,4,5,6\r\n1,2,3,4,5,6\r\n");
    richiesta.matrice = cruciverba(6, 6);
    for (int x = 0; x < 6; ++x) {
        richiesta.matrice.scrivi(x, 0, static_cast<std::int16_t>(250 + x));
        richiesta.matrice.scrivi(x, 1, static_cast<std::int16_t>(x % 2 == 0 ? 32767 : -1));
    }
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe_di(testo)[0], "250,251,252,253,254,255\r");
    EXPECT_EQ(righe_di(testo)[3], "0,0,0,0,0,0\r");
}

TEST_F(Sviluppo, TabelleECruciverbaACasoNonFannoDanno) {
    std::mt19937 caso(5);
    const std::string lettere = "0123456789,,,,\r\n";
    for (int giro = 0; giro < 60; ++giro) {
        std::string guasta(caso() % 500, '\0');
        for (char& c : guasta) {
            c = giro % 2 == 0 ? static_cast<char>(caso()) : lettere[caso() % lettere.size()];
        }
        const int lato = 1 + static_cast<int>(caso() % 20);
        tabella(nome_tabella(Gioco(), lato, 0), guasta);
        richiesta.matrice = crossword::Matrice(lato, lato);
        for (int i = 0; i < lato * lato; ++i) {
            richiesta.matrice.scrivi(i % lato, i / lato, static_cast<std::int16_t>(caso()));
        }
        sviluppa();
        ASSERT_EQ(static_cast<std::int64_t>(testo.size()), byte);
        ASSERT_EQ(std::count(testo.begin(), testo.end(), '\n'), righe);
    }
}

TEST_F(Sviluppo, LeMisurePiuGrandiDiUnFileGuastoFiniscono) {
    tabella("cr25600.rid", "1,2,3,4,5,255\r\n");
    richiesta.matrice = crossword::Matrice(256, 256);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    EXPECT_EQ(righe, 256 + 1 + 256 + 1);
    richiesta.matrice = crossword::Matrice();
    EXPECT_EQ(sviluppa(), Conclusione::senza_file);
}

TEST_F(Sviluppo, AvanzaOgniDuecentocinquantaRigheEAOgniLinea) {
    spedite();
    richiesta.matrice = cruciverba(10, 6);
    std::vector<std::int32_t> passi;
    Elaborazione lavoro(richiesta, [&passi](std::int32_t n) {
        passi.push_back(n);
        return true;
    });
    EXPECT_EQ(lavoro.sviluppa(), Conclusione::completa);
    std::vector<std::int32_t> attesi;
    for (int i = 1; i <= 6 * 210 + 10; ++i) {
        if (i % 250 == 0) attesi.push_back(i);
        if (i % 210 == 0 && i <= 1260) attesi.push_back(i);
        if (i > 1260) attesi.push_back(i);
    }
    EXPECT_EQ(passi, attesi);
}

TEST_F(Sviluppo, SiFermaAOgniPassoENonToccaLoSviluppoDiPrima) {
    spedite();
    richiesta.matrice = cruciverba(10, 6);
    cartella.scrivi("a.col", "vecchio");
    for (int fino_a = 1; fino_a <= 21; ++fino_a) {
        fs::remove(cartella.file("temp.col"));
        int volte = 0;
        Elaborazione lavoro(richiesta, [&](std::int32_t) { return ++volte < fino_a; });
        EXPECT_EQ(lavoro.sviluppa(), Conclusione::interrotta);
        EXPECT_EQ(volte, fino_a);
    }
    EXPECT_EQ(cartella.leggi("a.col"), "vecchio");
}

TEST_F(Sviluppo, UnaLineaVuotaNonSiSviluppa) {
    Elaborazione lavoro(richiesta, {});
    EXPECT_FALSE(lavoro.elabora({}, 0));
    EXPECT_FALSE(cartella.esiste("temp.col"));
}

}  // namespace
