#include "viewer/importo.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>

#include "support/cartella.h"
#include "support/guasti.h"

using namespace viewer;

namespace {

class Cst : public testing::Test {
protected:
    Importo leggi(Lettore lettore) { return leggi_cst(cartella.programma(), lettore); }
    void aspetta(Lettore lettore, const char* prezzo, const char* valuta) {
        const Importo letto = leggi(lettore);
        EXPECT_EQ(letto.prezzo, prezzo);
        EXPECT_EQ(letto.valuta, valuta);
    }
    support::Cartella cartella;
};

TEST_F(Cst, AssenteImportoScrive950Lire) {
    aspetta(Lettore::importo, "950", "Lire");
    EXPECT_EQ(cartella.leggi("cst"), "\"950\",\"Lire\"\r\n");
}

TEST_F(Cst, AssenteCalcoloImportoEFormeuroScrivonoMezzoEuro) {
    for (const Lettore lettore : {Lettore::calcolo_importo, Lettore::formeuro}) {
        std::filesystem::remove(cartella.file("cst"));
        aspetta(lettore, "0,50", "Euro");
        EXPECT_EQ(cartella.leggi("cst"), "\"0,50\",\"Euro\"\r\n");
    }
}

TEST_F(Cst, AssenteAnnullaNonScrive) {
    aspetta(Lettore::annulla, "0,50", "Euro");
    EXPECT_FALSE(cartella.esiste("cst"));
}

TEST_F(Cst, IlPrimoLettoreDecidePerTutti) {
    leggi(Lettore::importo);
    aspetta(Lettore::calcolo_importo, "950", "Lire");
    EXPECT_EQ(calcola_totale(2, leggi(Lettore::calcolo_importo).prezzo, "1").semplice, "1900");
    std::filesystem::remove(cartella.file("cst"));
    leggi(Lettore::calcolo_importo);
    aspetta(Lettore::importo, "0,50", "Euro");
}

TEST_F(Cst, PrezzoVuotoDaIValoriDelLettoreELasciaIlFile) {
    for (const char* testo : {"", "\"\",\"Euro\"\r\n", "\r\n", ",\"Lire\"\r\n"}) {
        cartella.scrivi("cst", testo);
        aspetta(Lettore::importo, "950", "Lire");
        aspetta(Lettore::calcolo_importo, "0,50", "Euro");
        aspetta(Lettore::formeuro, "0,50", "Euro");
        aspetta(Lettore::annulla, "0,50", "Euro");
        EXPECT_EQ(cartella.leggi("cst"), testo);
    }
}

TEST_F(Cst, IlFileDiUnaVecchiaInstallazioneRestaInLire) {
    cartella.scrivi("cst", "\"1000\",\"Lire\"\r\n");
    for (const Lettore lettore :
         {Lettore::importo, Lettore::calcolo_importo, Lettore::formeuro, Lettore::annulla}) {
        aspetta(lettore, "1000", "Lire");
    }
}

TEST_F(Cst, UnFileCortoHaLaValutaVuota) {
    cartella.scrivi("cst", "\"0,75\"");
    aspetta(Lettore::importo, "0,75", "");
}

TEST_F(Cst, ScrittoERiletto) {
    EXPECT_TRUE(scrivi_cst(cartella.programma(), {"1,25", "Euro"}));
    EXPECT_EQ(cartella.leggi("cst"), "\"1,25\",\"Euro\"\r\n");
    aspetta(Lettore::calcolo_importo, "1,25", "Euro");
}

TEST_F(Cst, IlDiscoPienoLasciaIlPrezzoDiPrima) {
    ASSERT_TRUE(scrivi_cst(cartella.programma(), {"1,25", "Euro"}));
    support::Disco disco;
    disco.spazio = 5;
    EXPECT_FALSE(scrivi_cst(cartella.programma(), {"2,50", "Euro"}));
    EXPECT_EQ(cartella.leggi("cst"), "\"1,25\",\"Euro\"\r\n");
}

TEST_F(Cst, ByteACasoNonFannoDanno) {
    std::mt19937 caso(19);
    for (int giro = 0; giro < 300; ++giro) {
        std::string testo(caso() % 60, '\0');
        for (char& c : testo) {
            c = giro % 2 == 0 ? static_cast<char>(caso()) : "0123456789,\"eE-\r\n"[caso() % 17];
        }
        cartella.scrivi("cst", testo);
        const Importo letto = leggi(Lettore::calcolo_importo);
        ASSERT_FALSE(letto.prezzo.empty());
        const Totale totale = calcola_totale(172172, letto.prezzo, letto.valuta);
        quota_da_testo(totale.semplice, letto.prezzo);
        ASSERT_EQ(cartella.leggi("cst"), testo);
    }
}

TEST(ValorePrezzo, LaVirgolaEIlPuntoDecimale) {
    EXPECT_EQ(valore_prezzo("0,50"), 0.5);
    EXPECT_EQ(valore_prezzo("0,5"), 0.5);
    EXPECT_EQ(valore_prezzo("950"), 950);
    EXPECT_EQ(valore_prezzo(",5"), 0.5);
    EXPECT_EQ(valore_prezzo("1,25 euro"), 1.25);
    EXPECT_EQ(valore_prezzo("1,2,5"), 1.2);
    EXPECT_EQ(valore_prezzo(",,5"), 0);
    EXPECT_EQ(valore_prezzo(""), 0);
}

TEST(CalcolaTotale, ITreTestiDiUnTotale) {
    const Totale t = calcola_totale(172172, "0,50", "1");
    EXPECT_EQ(t.formattato, "86.086,00");
    EXPECT_EQ(t.semplice, "86086");
    EXPECT_EQ(t.quota, "86.086,00");
}

TEST(CalcolaTotale, CinqueDecimiECinquantaCentesimiDannoLoStesso) {
    EXPECT_EQ(calcola_totale(117, "0,5", "3").formattato, "58,50");
    EXPECT_EQ(calcola_totale(117, "0,50", "3").formattato, "58,50");
    EXPECT_EQ(calcola_totale(117, "0,5", "3").semplice, "58,5");
    EXPECT_EQ(calcola_totale(117, "0,50", "3").quota, "19,50");
}

TEST(CalcolaTotale, SottoLUnitaSenzaZeroDavanti) {
    const Totale t = calcola_totale(1, "0,50", "2");
    EXPECT_EQ(t.formattato, ",50");
    EXPECT_EQ(t.semplice, "0,5");
    EXPECT_EQ(t.quota, ",25");
    EXPECT_EQ(calcola_totale(0, "0,50", "1").formattato, ",00");
    EXPECT_EQ(calcola_totale(0, "0,50", "1").semplice, "0");
}

TEST(CalcolaTotale, ArrotondaLontanoDalloZero) {
    EXPECT_EQ(calcola_totale(58, "1", "16").quota, "3,63");
    EXPECT_EQ(calcola_totale(1, "0,125", "1").formattato, ",13");
}

TEST(CalcolaTotale, SenzaQuoteIlTotaleResta) {
    for (const char* quote : {"0", "", "x"}) {
        const Totale t = calcola_totale(116, "0,50", quote);
        EXPECT_EQ(t.formattato, "58,00");
        EXPECT_FALSE(t.quota.has_value()) << quote;
    }
}

TEST(CalcolaTotale, PrezziSmisuratiNonFannoDanno) {
    const Totale t = calcola_totale(2147483647, std::string(400, '9'), "1");
    EXPECT_EQ(t.formattato, "");
    EXPECT_EQ(t.semplice, "");
    EXPECT_EQ(calcola_totale(0, std::string(400, '9'), "1").formattato, "");
}

TEST(QuotaDaTesto, ConLoZeroDavanti) {
    EXPECT_EQ(quota_da_testo("0,5", "2"), "0,25");
    EXPECT_EQ(quota_da_testo("86086", "2"), "43.043,00");
    EXPECT_EQ(quota_da_testo("58", "16"), "3,63");
    EXPECT_EQ(quota_da_testo("", "2"), "0,00");
}

TEST(QuotaDaTesto, UnTotaleCoiPuntiSiFermaAlSecondo) {
    EXPECT_EQ(quota_da_testo("86.086,00", "1"), "86,09");
    EXPECT_EQ(quota_da_testo("86.086,00", "2"), "43,04");
}

TEST(QuotaDaTesto, SenzaQuoteNiente) {
    EXPECT_FALSE(quota_da_testo("100", "0").has_value());
    EXPECT_FALSE(quota_da_testo("100", "").has_value());
}

TEST(TastoPrezzo, CifreVirgolaEQuelCheNonEUnCarattere) {
    for (int codice = 0; codice <= 70000; ++codice) {
        const bool passa =
            codice < 32 || codice == 44 || (codice >= 48 && codice <= 57) || codice >= 256;
        ASSERT_EQ(tasto_prezzo(codice), passa) << codice;
    }
}

}  // namespace
