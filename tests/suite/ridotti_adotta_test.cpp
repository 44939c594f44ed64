// Adopting a table: what is proven, where it goes, and what is refused.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "avvio.h"
#include "platform/disk.h"
#include "support/cartella.h"
#include "systems/sessione.h"

namespace {

/// Terzine of 5 numbers: any two drawn are in one.
const std::string ambi_di_5 = "1,2,3\r\n1,2,4\r\n1,2,5\r\n1,4,5\r\n2,3,4\r\n3,4,5\r\n";

class RidottiAdotta : public testing::Test {
protected:
    int adotta(std::vector<std::string> parole) {
        parole.insert(parole.begin(), {"adotta", "--cartella", tabelle()});
        return support::avvia(RIDOTTI, std::move(parole), cartella_.file("uscita"),
                              cartella_.file("errori"));
    }
    [[nodiscard]] std::string tabelle() const { return cartella_.radice() + "/ridotti"; }
    [[nodiscard]] std::string adottata(const std::string& nome) const {
        std::ifstream f(tabelle() + "/" + nome, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), {}};
    }
    [[nodiscard]] std::size_t quante() const { return platform::Dir(tabelle(), "*.rid").size(); }
    std::string mia(const std::string& testo, const std::string& nome = "mia.rid") {
        cartella_.scrivi(nome, testo);
        return cartella_.file(nome);
    }
    [[nodiscard]] std::string uscita() const { return cartella_.leggi("uscita"); }
    [[nodiscard]] std::string errori() const { return cartella_.leggi("errori"); }

    support::Cartella cartella_;
};

TEST_F(RidottiAdotta, PrendeIlPrimoNumeroLiberoELeListeLaOffrono) {
    // In any order of rows.
    EXPECT_EQ(adotta({mia("3,4,5\n1,2,4\n1,2,5\n1,4,5\n2,3,4\n1,2,3\n")}), 0);
    EXPECT_EQ(uscita(), platform::da_mostrare(tabelle() + "/tr0570.rid") +
                            ": 6 righe di 3 su 5 numeri; con 4 estratti almeno una riga "
                            "con 3 numeri indovinati (terno): VALE\n");
    EXPECT_EQ(adottata("tr0570.rid"), ambi_di_5);
    EXPECT_EQ(adotta({mia(ambi_di_5 + "1,3,4\r\n")}), 0);
    EXPECT_EQ(quante(), 2U);
    EXPECT_FALSE(adottata("tr0571.rid").empty());
    systems::Sessione s(cartella_.programma());
    s.avvia();
    s.economiche(true);
    s.passa_al_lotto();
    s.cambia_forma(3);
    const auto& lista = s.tipi(crossword::Elenco::orizzontali);
    ASSERT_EQ(lista.size(), 4U);
    EXPECT_EQ(lista[2], "5 Numeri - 6 Terzine (60 %) - Garanzia 1 Terno con 4 Estratti");
    EXPECT_EQ(s.indice_in(crossword::Elenco::orizzontali, 2), 70);
}

TEST_F(RidottiAdotta, UnaCheCEGiaERifiutata) {
    ASSERT_EQ(adotta({mia(ambi_di_5)}), 0);
    EXPECT_EQ(adotta({mia(ambi_di_5)}), 1);
    EXPECT_EQ(errori(), "ridotti: " + platform::da_mostrare(cartella_.file("mia.rid")) +
                            ": c'è già, e si chiama tr0570.rid\n");
    EXPECT_EQ(quante(), 1U);
}

TEST_F(RidottiAdotta, IlNumeroDiUnaCancellataNonVaAUnAltra) {
    ASSERT_EQ(adotta({mia(ambi_di_5)}), 0);
    std::filesystem::remove(tabelle() + "/tr0570.rid");
    ASSERT_EQ(adotta({mia("3,4,5\r\n")}), 0);
    EXPECT_EQ(adottata("tr0570.rid"), "");
    EXPECT_EQ(adottata("tr0571.rid"), "3,4,5\r\n");
    // One that came by another way had its number too.
    std::ofstream(tabelle() + "/tr0572.rid") << "1,2,4\r\n";
    ASSERT_EQ(adotta({mia("1,2,5\r\n")}), 0);
    EXPECT_EQ(adottata("tr0573.rid"), "1,2,5\r\n");
    std::filesystem::remove(tabelle() + "/tr0572.rid");
    ASSERT_EQ(adotta({mia("1,3,5\r\n")}), 0);
    EXPECT_EQ(adottata("tr0572.rid"), "");
    EXPECT_EQ(adottata("tr0574.rid"), "1,3,5\r\n");
    // Other lengths count for themselves, away from one that stands beside them.
    for (const char* nome : {"/tr0571.rid", "/tr0573.rid", "/tr0574.rid"})
        std::filesystem::remove(tabelle() + nome);
    ASSERT_EQ(adotta({"--numeri", "6", mia("1,2,3\r\n4,5,6\r\n1,4,6\r\n2,3,5\r\n")}), 0)
        << errori();
    EXPECT_NE(adottata("tr0670.rid"), "");
}

TEST_F(RidottiAdotta, QuelloCheNonSiPuoScrivereSiDice) {
    std::filesystem::create_directories(tabelle() + "/adottate/piena");
    EXPECT_EQ(adotta({mia(ambi_di_5)}), 2);
    EXPECT_EQ(errori(), "ridotti: non posso scrivere " +
                            platform::da_mostrare(tabelle() + "/adottate") + "\n");
    EXPECT_EQ(quante(), 0U);
    std::filesystem::remove_all(tabelle() + "/adottate");
    std::filesystem::create_directories(tabelle() + "/tr0570.rid/piena");
    EXPECT_EQ(adotta({mia(ambi_di_5)}), 2);
    EXPECT_EQ(errori(), "ridotti: non posso scrivere " +
                            platform::da_mostrare(tabelle() + "/tr0570.rid") + "\n");
}

TEST_F(RidottiAdotta, LeDueLunghezzeDelleDiagonaliHannoLoStessoNumero) {
    cartella_.con_tabelle();
    const auto della_suite = [&](const std::string& nome) {
        const std::string testo = adottata(nome);
        return testo.substr(testo.find('\n') + 1) + testo.substr(0, testo.find('\n') + 1);
    };
    // Others that stand in the way.
    ASSERT_EQ(adotta({mia(della_suite("cr1003.rid") + "1,2,3,4,5,7\r\n")}), 0);
    const std::string lunga = adottata("cr1056.rid") + "5,6,7,8,9,10\r\n";
    const std::string corta = adottata("cr0956.rid") + "4,5,6,7,8,9\r\n";
    std::filesystem::remove(tabelle() + "/cr1070.rid");
    ASSERT_EQ(adotta({mia(lunga)}), 0) << errori();
    ASSERT_EQ(adotta({mia(corta)}), 0) << errori();
    EXPECT_FALSE(adottata("cr1071.rid").empty());
    EXPECT_FALSE(adottata("cr0971.rid").empty());
    systems::Sessione s(cartella_.programma());
    s.avvia();
    s.dimensioni(10, 10);
    EXPECT_TRUE(s.scegli_indice(crossword::Elenco::diagonali, 71));
    EXPECT_TRUE(s.tabelle_mancanti().empty());
}

TEST_F(RidottiAdotta, QuelloCheNonValeERifiutatoColPerche) {
    const auto rifiutata = [&](const std::vector<std::string>& parole, int codice) {
        EXPECT_EQ(adotta(parole), codice);
        EXPECT_EQ(quante(), 0U);
        EXPECT_EQ(uscita(), "");
        return errori();
    };
    const std::string file = cartella_.file("mia.rid");
    const std::string detto = platform::da_mostrare(file);
    EXPECT_EQ(rifiutata({"--garanzia", "2:2", mia("1,2,3\r\n3,4,5\r\n")}, 1),
              "ridotti: " + detto +
                  ": non vale con 2 estratti almeno una riga con 2 numeri indovinati (ambo): 4 "
                  "casi scoperti, il primo è 1,4\n");
    EXPECT_EQ(rifiutata({"--garanzia", "2:3", mia(ambi_di_5)}, 2),
              "ridotti: --garanzia vuole p:t: \"2:3\" non lo è\n");
    EXPECT_EQ(rifiutata({"--garanzia", "4:2:2", mia(ambi_di_5)}, 2),
              "ridotti: --garanzia vuole p:t: \"4:2:2\" non lo è\n");
    EXPECT_EQ(rifiutata({"--garanzia", "6:2", mia(ambi_di_5)}, 1),
              "ridotti: " + detto + ": non si estraggono 6 numeri su 5\n");
    EXPECT_EQ(rifiutata({"--numeri", "15", mia("1,2,3,4,5\r\n")}, 1),
              "ridotti: " + detto + ": non garantisce nulla\n");
    EXPECT_EQ(rifiutata({mia("1,2,3\r\n1,2\r\n3,2,1\r\n")}, 2),
              detto + ":2: 2 posizioni invece di 3\n" + detto +
                  ":3: posizioni non crescenti: dopo 3 viene 2\n");
    EXPECT_EQ(rifiutata({mia("1,2,3\r\n1,2,3\r\n")}, 2), detto + ":2: ripete la riga 1\n");
    EXPECT_EQ(rifiutata({mia("")}, 2), detto + ":1: il file è vuoto\n");
    EXPECT_EQ(rifiutata({mia("1,2\r\n2,3\r\n")}, 1),
              "ridotti: " + detto + ": nessun gioco ha combinazioni di 2 numeri\n");
    EXPECT_EQ(rifiutata({mia("1,2,3,4,5,6\r\n")}, 1),
              "ridotti: " + detto + ": una linea di 6 numeri non si riduce: vanno da 7 a 15\n");
    EXPECT_EQ(rifiutata({mia("1,2,16\r\n")}, 1),
              "ridotti: " + detto + ": una linea di 16 numeri non si riduce: vanno da 5 a 15\n");
    EXPECT_EQ(rifiutata({cartella_.file("assente.rid")}, 2),
              platform::da_mostrare(cartella_.file("assente.rid")) + ": il file non esiste\n");
    EXPECT_EQ(rifiutata({}, 2), "ridotti: manca il nome della tabella\n");
    EXPECT_EQ(rifiutata({"a", "b"}, 2), "ridotti: adotta vuole una sola tabella\n");
    EXPECT_EQ(rifiutata({"--numeri", "0", mia(ambi_di_5)}, 2),
              "ridotti: --numeri vuole un numero: \"0\" non lo è\n");
    EXPECT_EQ(rifiutata({"--cartella", "/non/esiste", file}, 2),
              "ridotti: la cartella delle tabelle non c'è: " +
                  platform::da_mostrare("/non/esiste") + "\n");
}

TEST_F(RidottiAdotta, FinitiINumeriLoDice) {
    for (int numero = 70; numero <= 99; ++numero) {
        std::ofstream(tabelle() + "/tr05" + std::to_string(numero) + ".rid") << "1,2,3\r\n";
    }
    EXPECT_EQ(adotta({mia(ambi_di_5)}), 1);
    EXPECT_EQ(errori(), "ridotti: " + platform::da_mostrare(cartella_.file("mia.rid")) +
                            ": tutti i numeri per le tabelle proprie sono presi, o lo sono stati: "
                            "quello di una tabella cancellata non si dà a un'altra\n");
    EXPECT_EQ(quante(), 30U);
}

}  // namespace
