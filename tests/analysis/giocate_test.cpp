#include "analysis/giocate.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "support/cartella.h"

using namespace analysis;

namespace {

class Giocato : public testing::Test {
protected:
    Lettura leggi(const std::string& testo, int numeri = 6) {
        cartella.scrivi("s.col", testo);
        return leggi_giocate(cartella.file("s.col"), numeri, giocate);
    }
    support::Cartella cartella;
    Giocate giocate;
};

TEST(LetturaDetta, OgniEsitoHaLeSueParole) {
    EXPECT_EQ(parola(Lettura::letta), "");
    EXPECT_EQ(parola(Lettura::assente),
              "Lo sviluppo del sistema non si può leggere. Elaborate di nuovo il sistema.");
    EXPECT_EQ(parola(Lettura::vuota),
              "Lo sviluppo del sistema non contiene combinazioni. Elaborate di nuovo il sistema.");
    EXPECT_EQ(parola(Lettura::troppo_grande),
              "Lo sviluppo ha più di 1.048.576 combinazioni: sono troppe per un'analisi.");
    EXPECT_EQ(parola(Lettura::cambiata),
              "Lo sviluppo è cambiato mentre veniva letto. Ripetete l'analisi.");
    EXPECT_EQ(parola(Lettura::interrotta), "Analisi interrotta.");
}

TEST_F(Giocato, RanghiDeiNumeriInGiocoNellOrdineDelFile) {
    ASSERT_EQ(leggi("4,17,23,38,61,90\r\n1,4,17,23,38,61\r\n"), Lettura::letta);
    EXPECT_EQ(giocate.in_gioco, (std::vector<std::uint8_t>{1, 4, 17, 23, 38, 61, 90}));
    EXPECT_EQ(giocate.combinazioni, (std::vector<Ranghi>{{1, 2, 3, 4, 5, 6}, {0, 1, 2, 3, 4, 5}}));
    EXPECT_EQ(giocate.righe(), 2U);
    EXPECT_EQ(giocate.guaste, 0);
}

TEST_F(Giocato, LeRipetuteStannoAParte) {
    ASSERT_EQ(leggi("1,2,3\r\n1,2,4\r\n1,2,3\r\n1,2,3\r\n", 3), Lettura::letta);
    EXPECT_EQ(giocate.combinazioni.size(), 2U);
    EXPECT_EQ(giocate.ripetute.size(), 2U);
    EXPECT_EQ(giocate.righe(), 4U);
}

TEST_F(Giocato, RigheGuasteSiSaltanoESiContano) {
    ASSERT_EQ(leggi("1,2,3,4,5,6\r\n1,2,3,4,5,91\r\n1,2,3,4,5,5\r\n0,2,3,4,5,6\r\n"
                    "2,1,3,4,5,6\r\n-1,2,3,4,5,6\r\n7,8,9,10,11,99999\r\n1,2,3,4,5,7\r\n1,2\r\n"),
              Lettura::letta);
    EXPECT_EQ(giocate.combinazioni.size(), 2U);
    EXPECT_EQ(giocate.guaste, 7);
}

TEST_F(Giocato, AssenteVuotoESenzaCombinazioni) {
    EXPECT_EQ(leggi_giocate(cartella.file("altro.col"), 6, giocate), Lettura::assente);
    EXPECT_EQ(leggi_giocate(cartella.programma(), 6, giocate), Lettura::assente);
    EXPECT_EQ(leggi("1,2,3,4,5,6\r\n", 7), Lettura::assente);
    EXPECT_EQ(leggi("1,2,3,4,5,6\r\n", 2), Lettura::assente);
    EXPECT_EQ(leggi(""), Lettura::vuota);
    EXPECT_EQ(leggi("non sono numeri, e nemmeno questi\r\n"), Lettura::vuota);
    EXPECT_EQ(leggi(std::string(100000, '\0')), Lettura::vuota);
}

TEST_F(Giocato, TroppeCombinazioniSiRifiutanoAMemoriaMisurata) {
    std::string testo;
    for (std::size_t i = 0; i <= combinazioni_massime; ++i) testo += "1,2,3\r\n";
    EXPECT_EQ(leggi(testo, 3), Lettura::troppo_grande);
    // A sparse file of four gigabytes holds no combination at all.
    const std::string vuoto = cartella.file("vuoto.col");
    std::ofstream(vuoto).close();
    std::filesystem::resize_file(vuoto, std::uintmax_t{1} << 32);
    EXPECT_EQ(leggi_giocate(vuoto, 6, giocate, [] { return false; }), Lettura::troppo_grande);
}

TEST_F(Giocato, SiFermaQuandoRichiesto) {
    std::string testo;
    for (int i = 0; i < 20000; ++i) testo += "1,2,3,4,5,6\r\n";
    cartella.scrivi("s.col", testo);
    int passi = 0;
    EXPECT_EQ(leggi_giocate(cartella.file("s.col"), 6, giocate, [&] { return ++passi < 3; }),
              Lettura::interrotta);
    EXPECT_EQ(passi, 3);
}

TEST_F(Giocato, UnFileCheCambiaMentreSiLegge) {
    std::string testo;
    for (int i = 0; i < 5000; ++i) testo += "1,2,3,4,5,6\r\n";
    cartella.scrivi("s.col", testo);
    const std::string nome = cartella.file("s.col");
    const auto allunga = [&] {
        std::ofstream(nome, std::ios::app | std::ios::binary) << "1,2,3,4,5,7\r\n";
        return true;
    };
    EXPECT_EQ(leggi_giocate(nome, 6, giocate, allunga), Lettura::cambiata);
    const auto sostituisci = [&] {
        std::ofstream(nome + "2", std::ios::binary) << "1,2,3,4,5,7\r\n";
        std::filesystem::rename(nome + "2", nome);
        return true;
    };
    EXPECT_EQ(leggi_giocate(nome, 6, giocate, sostituisci), Lettura::cambiata);
    EXPECT_EQ(leggi_giocate(nome, 6, giocate), Lettura::letta);
}

}  // namespace
