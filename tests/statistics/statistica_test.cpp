#include "statistics/statistica.h"

#include <gtest/gtest.h>
#include <limits>

#include "confronti.h"
#include "platform/disk.h"
#include "support/cartella.h"

using namespace statistics;
using support::ArchivioFinto;
using support::estrazioni;

namespace {

class Statistiche : public testing::Test {
protected:
    std::string file() const { return cartella_.file("mstat.dat"); }
    Barra barra() {
        return [this](std::int32_t massimo) { barre_.push_back(massimo); };
    }
    bool frequenze(std::vector<support::Record> records) {
        ArchivioFinto draws(std::move(records));
        return s_.statistica_frequenze(draws, file(), barra());
    }
    bool ritardi(std::vector<support::Record> records) {
        ArchivioFinto draws(std::move(records));
        return s_.statistica_ritardi(draws, file(), barra());
    }
    bool ritardi_lotto(std::vector<support::Record> records) {
        ArchivioFinto draws(std::move(records));
        return s_.statistica_ritardi_lotto(draws, barra());
    }
    const Voce& voce(int i) const { return s_.statistica().at(static_cast<std::size_t>(i)); }
    /// Place of a number in the ranking.
    int posto(int numero) const {
        for (int i = 1; i <= 90; ++i) {
            if (voce(i).numero == numero) return i;
        }
        return 0;
    }
    int valore_di(int numero) const { return voce(posto(numero)).valore; }

    support::Cartella cartella_;
    Statistico s_;
    std::vector<std::int32_t> barre_;
};

support::Record con(std::array<int, 6> numeri) {
    support::Record r;
    for (std::size_t i = 0; i < 6; ++i) r.numeri.at(i) = numeri.at(i);
    return r;
}

std::vector<support::Record> ripetuta(std::array<int, 6> numeri, int volte) {
    return std::vector<support::Record>(static_cast<std::size_t>(volte), con(numeri));
}

TEST_F(Statistiche, SuperenalottoDelaysEqualTheSecondComputation) {
    for (const int quante : {1, 2, 150, 198, 199, 200, 201, 320, 4251}) {
        const auto records = estrazioni(quante, 7);
        ASSERT_TRUE(ritardi(records)) << quante;
        auto attesa = semplice::ritardi(records, 200, 6);
        semplice::bande(attesa);
        EXPECT_EQ(support::testo(s_.statistica()), support::testo(attesa)) << quante;
    }
}

TEST_F(Statistiche, LottoDelaysAndClassesEqualTheSecondComputation) {
    for (const int quante : {300, 301, 320, 7500}) {
        s_.azzera();
        const auto records = estrazioni(quante, 11);
        ASSERT_TRUE(ritardi_lotto(records)) << quante;
        auto attesa = semplice::ritardi(records, 300, 5);
        semplice::classi(attesa);
        EXPECT_EQ(support::testo(s_.statistica()), support::testo(attesa)) << quante;
        EXPECT_FALSE(cartella_.esiste("mstat.dat"));
    }
}

TEST_F(Statistiche, PinnedOrderOfOneInventedArchive) {
    ASSERT_TRUE(ritardi(estrazioni(320, 7)));
    EXPECT_EQ(support::ordine(s_.statistica()),
              "45 51 79 52 75 41 12 11 61 27 76 31 89 71 64 43 82 42 5 22 77 60 66 21 36 28 "
              "90 8 84 19 23 65 4 38 87 32 33 80 50 26 62 63 9 17 48 34 67 10 40 69 78 2 49 "
              "85 47 59 6 88 30 16 46 29 57 44 37 72 53 74 73 24 68 1 18 13 7 3 86 39 83 35 "
              "54 56 20 58 55 70 25 81 14 15");
    EXPECT_EQ(support::impronta(support::testo(s_.statistica())), 3915389877U);
}

TEST_F(Statistiche, ANumberOfTheLastDrawRanksLastAndOneNeverSeenFirst) {
    auto records = ripetuta({1, 2, 3, 4, 5, 6}, 199);
    records.insert(records.begin(), con({7, 8, 9, 10, 11, 12}));
    records.insert(records.begin(), con({13, 14, 15, 16, 17, 18}));
    ASSERT_TRUE(ritardi(records));
    for (int n = 1; n <= 6; ++n) {
        EXPECT_EQ(valore_di(n), 0);
        EXPECT_GE(posto(n), 85);
    }
    for (int n = 7; n <= 12; ++n) EXPECT_EQ(valore_di(n), 199);
    // The draw before the window does not count.
    for (int n = 13; n <= 90; ++n) {
        EXPECT_EQ(valore_di(n), 200);
        EXPECT_LE(posto(n), 78);
    }
}

TEST_F(Statistiche, AWindowBeginningBeforeTheFirstDrawCountsOneFailedRead) {
    ASSERT_TRUE(ritardi(ripetuta({1, 2, 3, 4, 5, 6}, 150)));
    EXPECT_EQ(valore_di(1), 200 - 151);
    EXPECT_EQ(valore_di(7), 200);
}

TEST_F(Statistiche, ALottoWheelWithLessThan300DrawsIsGivenUpAndRanksNothing) {
    EXPECT_FALSE(ritardi_lotto(estrazioni(299, 3)));
    EXPECT_EQ(s_.statistica(), Graduatoria{});
    EXPECT_TRUE(ritardi_lotto(estrazioni(300, 3)));
}

TEST_F(Statistiche, NoDrawsAtAllIsGivenUp) {
    EXPECT_FALSE(ritardi({}));
    EXPECT_FALSE(ritardi_lotto({}));
    EXPECT_FALSE(frequenze({}));
    EXPECT_FALSE(cartella_.esiste("mstat.dat"));
}

TEST_F(Statistiche, AllDelaysEqualStillGiveOneFixedOrder) {
    ASSERT_TRUE(ritardi(ripetuta({0, 0, 0, 0, 0, 0}, 200)));
    EXPECT_EQ(support::ordine(s_.statistica()),
              "60 61 59 57 58 62 66 67 65 63 64 49 50 48 46 47 51 55 56 54 52 53 68 83 84 82 "
              "80 81 85 89 90 88 86 87 72 73 71 69 70 74 78 79 77 75 76 15 16 14 12 13 17 21 "
              "22 20 18 19 4 5 3 1 2 6 10 11 9 7 8 23 38 39 37 35 36 40 44 45 43 41 42 27 28 "
              "26 24 25 29 33 34 32 30 31");
    for (int i = 1; i <= 90; ++i) EXPECT_EQ(voce(i).valore, 200);
}

TEST_F(Statistiche, TheSortLeavesTiesAsTheSecondComputationDoes) {
    support::Sorte caso(5);
    for (int prova = 0; prova < 400; ++prova) {
        const int da = 1 + caso.sotto(90);
        const int a = da + caso.sotto(91 - da);
        const int diversi = 1 + caso.sotto(12);
        Graduatoria t{};
        semplice::Elenco e(91);
        for (std::size_t i = 0; i <= 90; ++i) {
            t[i].numero = static_cast<std::int16_t>(i);
            e[i].numero = static_cast<int>(i);
            t[i].valore = e[i].valore = caso.sotto(diversi);
        }
        ordina_statistica(t, da, a);
        semplice::ordina(e, da, a);
        ASSERT_EQ(support::testo(t), support::testo(e)) << prova;
    }
}

TEST(OrdinaStatistica, TheHalfOfAnOddSumGoesToTheEvenEntry) {
    // Always down would give 5 4 6 2 1 3, always up 4 5 2 6 1 3.
    Graduatoria t{};
    const std::array<int, 7> valori = {0, 1, 2, 1, 3, 3, 2};
    for (std::size_t i = 1; i <= 6; ++i) {
        t.at(i).numero = static_cast<std::int16_t>(i);
        t.at(i).valore = valori.at(i);
    }
    ordina_statistica(t, 1, 6);
    std::string ordine;
    for (std::size_t i = 1; i <= 6; ++i) ordine += std::to_string(t.at(i).numero);
    EXPECT_EQ(ordine, "456231");
}

TEST(OrdinaStatistica, WholeRecordsMove) {
    Graduatoria t{};
    t[1] = {10, 1, true, 3, false, Classe::c};
    t[2] = {20, 2, false, 4, true, Classe::ab};
    ordina_statistica(t, 1, 2);
    EXPECT_EQ(t[1], (Voce{20, 2, false, 4, true, Classe::ab}));
    EXPECT_EQ(t[2], (Voce{10, 1, true, 3, false, Classe::c}));
}

TEST_F(Statistiche, GradingGivesSevenBandsOfTenAndOneOfTwenty) {
    ASSERT_TRUE(ritardi(estrazioni(250, 1)));
    for (const auto& [i, fascia] : {std::pair{1, 1},
                                    {10, 1},
                                    {11, 2},
                                    {20, 2},
                                    {61, 7},
                                    {70, 7},
                                    {71, 8},
                                    {80, 8},
                                    {81, 8},
                                    {90, 8}}) {
        EXPECT_EQ(voce(i).fascia, fascia) << i;
    }
}

TEST_F(Statistiche, AfterLottoADelayBelow6HasNoClassAndTheTwentyEndsAreD) {
    // Every draw brings the same five, and older draws leave each group of five one delay.
    std::vector<support::Record> records(300, con({0, 0, 0, 0, 0, 0}));
    int indietro = 0;
    for (int n = 1; n <= 90; n += 5) {
        records.at(static_cast<std::size_t>(299 - indietro)) =
            con({n, n + 1, n + 2, n + 3, n + 4, 0});
        indietro += 2;
    }
    ASSERT_TRUE(ritardi_lotto(records));
    for (int i = 1; i <= 90; ++i) {
        // Groups by rank: the best two and the last two are the extremes.
        const int ritardo = (90 - i) / 5 * 2;
        std::string attesa = ritardo < 6 ? "" : ritardo < 15 ? "ab" : ritardo < 28 ? "b" : "c";
        if (i <= 10 || i >= 81) attesa = "d";
        EXPECT_EQ(support::nome(voce(i).classe), attesa) << i;
        EXPECT_EQ(voce(i).valore, attesa == "d" ? 0 : ritardo) << i;
        EXPECT_EQ(voce(i).fascia, 0) << i;
    }
}

TEST(Classifica, TheBoundsOfTheClasses) {
    Graduatoria t{};
    const std::array<int, 7> valori = {5, 6, 14, 15, 27, 28, 300};
    for (std::size_t i = 0; i < 7; ++i) t.at(20 + i).valore = valori.at(i);
    classifica(t);
    const std::array<Classe, 7> attese = {Classe::nessuna, Classe::ab, Classe::ab, Classe::b,
                                          Classe::b,       Classe::c,  Classe::c};
    for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(t.at(20 + i).classe, attese.at(i)) << i;
}

TEST_F(Statistiche, With4040DrawsOrFewerTheBarHasAMaximumOf1AndNoDrawCounts) {
    EXPECT_FALSE(frequenze(ripetuta({1, 2, 3, 4, 5, 6}, 4039)));
    EXPECT_EQ(s_.statistica(), Graduatoria{});
    ASSERT_TRUE(frequenze(ripetuta({1, 2, 3, 4, 5, 6}, 4040)));
    EXPECT_EQ(valore_di(1), 0);
    EXPECT_EQ(barre_, (std::vector<std::int32_t>{1, 1}));
    ASSERT_TRUE(frequenze(ripetuta({1, 2, 3, 4, 5, 6}, 4042)));
    EXPECT_EQ(valore_di(1), 2);
    EXPECT_EQ(valore_di(7), 0);
    EXPECT_EQ(barre_.back(), 2);
}

TEST_F(Statistiche, FrequenciesAreNeverCleared) {
    auto records = ripetuta({0, 0, 0, 0, 0, 0}, 4040);
    const auto contati = estrazioni(60, 2);
    records.insert(records.end(), contati.begin(), contati.end());
    ASSERT_TRUE(frequenze(records));
    std::array<int, 91> prima{};
    for (int n = 1; n <= 90; ++n) prima.at(static_cast<std::size_t>(n)) = valore_di(n);
    int somma = 0;
    for (const int v : prima) somma += v;
    EXPECT_EQ(somma, 60 * 6);
    ASSERT_TRUE(ritardi(records));
    s_.azzera();
    ASSERT_TRUE(frequenze(records));
    for (int n = 1; n <= 90; ++n) {
        EXPECT_EQ(valore_di(n), 2 * prima.at(static_cast<std::size_t>(n))) << n;
        EXPECT_EQ(voce(n).fascia, std::min((n + 9) / 10, 8));
    }
}

TEST_F(Statistiche, AFrequencyThatOutgrows16BitsEndsTheWork) {
    EXPECT_TRUE(frequenze(ripetuta({1, 1, 1, 1, 1, 1}, 4040 + 5461)));
    EXPECT_EQ(valore_di(1), 5461 * 6);
    EXPECT_FALSE(frequenze(ripetuta({1, 1, 1, 1, 1, 1}, 4041)));
}

TEST_F(Statistiche, AnEmptySuperstarOrNumberDoesNotStopARead) {
    auto records = ripetuta({1, 2, 3, 4, 5, 6}, 200);
    records.back().superstar = std::nullopt;
    records.back().Jolly = std::nullopt;
    records.back().numeri.at(5) = std::nullopt;
    ASSERT_TRUE(ritardi(records));
    EXPECT_EQ(valore_di(5), 0);
    EXPECT_EQ(valore_di(6), 1);
}

TEST(LeggiEstrazione, JollyFirstNumbersThenSuperstar) {
    auto r = con({11, 12, 13, 14, 15, 16});
    r.Jolly = 10;
    r.superstar = 17;
    auto vuoto = con({21, 22, 23, 24, 25, 26});
    vuoto.numeri.at(2) = 70000;
    ArchivioFinto draws({r, vuoto});
    ASSERT_TRUE(draws.MoveFirst());
    bool letta = false;
    EXPECT_EQ(leggi_estrazione(draws, letta), (Estrazione{10, 11, 12, 13, 14, 15, 16, 17}));
    EXPECT_TRUE(letta);
    EXPECT_EQ(leggi_estrazione(draws, letta), (Estrazione{0, 21, 22, 0, 24, 25, 26, 0}));
    EXPECT_TRUE(letta);
    EXPECT_EQ(leggi_estrazione(draws, letta), Estrazione{});
    EXPECT_FALSE(letta);
    EXPECT_TRUE(draws.alla_fine());
}

TEST_F(Statistiche, ANumberOutside0To90EndsTheWork) {
    for (const int n : {-1, 91, 32767}) {
        auto records = ripetuta({1, 2, 3, 4, 5, 6}, 4100);
        records.back().numeri.at(4) = n;
        EXPECT_FALSE(ritardi(records)) << n;
        EXPECT_FALSE(ritardi_lotto(records)) << n;
        EXPECT_FALSE(frequenze(records)) << n;
    }
    auto records = ripetuta({1, 2, 3, 4, 5, 6}, 300);
    records.back().numeri.at(4) = std::nullopt;
    EXPECT_FALSE(ritardi_lotto(records));
}

TEST_F(Statistiche, TheBarOfTheDelays) {
    ASSERT_TRUE(ritardi(estrazioni(320, 1)));
    ASSERT_TRUE(ritardi(estrazioni(4251, 1)));
    ASSERT_TRUE(ritardi_lotto(estrazioni(320, 1)));
    EXPECT_EQ(barre_, (std::vector<std::int32_t>{1, 211, 320}));
}

TEST_F(Statistiche, MstatHoldsTheDateAndNinetyLinesOfThreeNumbers) {
    auto records = ripetuta({1, 2, 3, 4, 5, 6}, 250);
    records.back().data = {2004, 6, 12};
    ASSERT_TRUE(ritardi(records));
    std::string atteso = "#2004-06-12#\r\n";
    for (int i = 1; i <= 90; ++i) {
        atteso += std::to_string(voce(i).numero) + "," + std::to_string(voce(i).valore) + "," +
                  std::to_string(voce(i).fascia) + "\r\n";
    }
    EXPECT_EQ(cartella_.leggi("mstat.dat"), atteso);
}

TEST_F(Statistiche, MstatIsRewrittenByDelaysOverFrequencies) {
    auto records = ripetuta({1, 2, 3, 4, 5, 6}, 4045);
    ASSERT_TRUE(frequenze(records));
    EXPECT_TRUE(cartella_.leggi("mstat.dat").find("\r\n1,5,1\r\n") != std::string::npos);
    records.back().data = {2010, 1, 2};
    ASSERT_TRUE(ritardi(records));
    const std::string dopo = cartella_.leggi("mstat.dat");
    EXPECT_TRUE(dopo.starts_with("#2010-01-02#\r\n"));
    EXPECT_EQ(dopo.find("\r\n1,5,1\r\n"), std::string::npos);
    EXPECT_NE(dopo.find("\r\n1,0,8\r\n"), std::string::npos);
}

TEST_F(Statistiche, MstatThatCannotBeWrittenEndsTheWork) {
    ArchivioFinto draws(estrazioni(250, 1));
    const std::string altrove = cartella_.file("assente/mstat.dat");
    EXPECT_FALSE(s_.statistica_ritardi(draws, altrove, {}));
    EXPECT_FALSE(platform::esiste_file(altrove));
}

TEST_F(Statistiche, MstatReadsBackWithoutTheMarksThatItDoesNotHold) {
    ASSERT_TRUE(ritardi(estrazioni(250, 1)));
    Graduatoria scritta = s_.statistica();
    Graduatoria letta{};
    letta.fill({1, 2, true, 3, true, Classe::d});
    ASSERT_TRUE(leggi_mstat(letta, file()));
    EXPECT_EQ(letta, scritta);
    EXPECT_EQ(letta[0], Voce{});
}

TEST_F(Statistiche, MstatAcceptsSpacingAndRefusesWhatBreaksOff) {
    std::string righe = "  #2004-06-12#  \n";
    for (int i = 1; i < 90; ++i) righe += " " + std::to_string(91 - i) + " ,\t5 , 2 \n";
    cartella_.scrivi("mstat.dat", righe);
    Graduatoria t{};
    EXPECT_FALSE(leggi_mstat(t, file()));
    cartella_.scrivi("mstat.dat", righe + "1, 5,40000");
    EXPECT_FALSE(leggi_mstat(t, file()));
    cartella_.scrivi("mstat.dat", righe + "1, 5,2");
    ASSERT_TRUE(leggi_mstat(t, file()));
    EXPECT_EQ(t[90], (Voce{1, 5, false, 2, false, Classe::nessuna}));
    EXPECT_EQ(t[1].numero, 90);
    EXPECT_EQ(leggi_data(file()), (Data{2004, 6, 12}));
    EXPECT_FALSE(leggi_mstat(t, cartella_.file("assente")));
    EXPECT_EQ(t, Graduatoria{});
}

TEST_F(Statistiche, TheDateOfMstat) {
    for (const char* giusta : {"#2004-02-29#\r\n", "2004-02-29", "# 2004-02-29 21:30:00 #,1"}) {
        cartella_.scrivi("mstat.dat", giusta);
        EXPECT_EQ(leggi_data(file()), (Data{2004, 2, 29})) << giusta;
    }
    for (const char* errata :
         {"", "#NULL#", "##", "#", "#2003-02-29#", "#2004-13-01#", "#2004-0-1#", "#2004-04-31#",
          "#2004-6#", "#2004-6-x#", "#-2004-6-1#", "1,2,3", "#99999999999-01-01#", "#1900-02-29#",
          "#20-01-01#"}) {
        cartella_.scrivi("mstat.dat", errata);
        EXPECT_FALSE(leggi_data(file()).has_value()) << errata;
    }
    EXPECT_FALSE(leggi_data(cartella_.file("assente")).has_value());
}

TEST_F(Statistiche, ALastDrawWithoutADateIsWrittenAsNone) {
    class SenzaData : public ArchivioFinto {
    public:
        using ArchivioFinto::ArchivioFinto;
        std::optional<Data> data() override { return std::nullopt; }
    } senza(estrazioni(3, 1));
    ASSERT_TRUE(scrivi_mstat({}, senza, file()));
    EXPECT_TRUE(cartella_.leggi("mstat.dat").starts_with("#NULL#\r\n0,0,0\r\n"));
}

}  // namespace
