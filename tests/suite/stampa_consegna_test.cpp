// What the slip program is handed, and the developments that it finds.
#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include "stampa/consegna.h"
#include "support/cartella.h"

using crossword::Gioco;
using schedine::Scelta;

namespace {

class ConsegnaSchedine : public testing::Test {
protected:
    void trans(const std::string& dati) const {
        std::ofstream(radice() + "trans", std::ios::binary) << dati;
    }
    [[nodiscard]] std::string radice() const { return cartella_.radice() + "/"; }
    [[nodiscard]] std::string difetto(const std::string& dati) const {
        trans(dati);
        const auto letta = schedine::leggi_consegna(radice());
        EXPECT_NE(letta.consegna.has_value(), letta.difetto.has_value());
        return letta.difetto ? letta.difetto->testo() : "";
    }
    [[nodiscard]] std::vector<std::string> nomi(const std::vector<Scelta>& scelte) const {
        std::vector<std::string> trovati;
        for (const Scelta& s : scelte) trovati.push_back(s.nome + s.gioco.estensione_sviluppo());
        return trovati;
    }

    support::Cartella cartella_;
};

using Nomi = std::vector<std::string>;

}  // namespace

TEST_F(ConsegnaSchedine, SenzaFileNonCENulla) {
    const auto letta = schedine::leggi_consegna(radice());
    EXPECT_FALSE(letta.consegna);
    EXPECT_FALSE(letta.difetto);
}

TEST_F(ConsegnaSchedine, SiLeggeComeIlProgrammaLaScrive) {
    trans("\"cruciverba\",\"prova 1\"\r\n");
    const auto letta = schedine::leggi_consegna(radice());
    ASSERT_TRUE(letta.consegna);
    EXPECT_EQ(letta.consegna->programma, "cruciverba");
    EXPECT_EQ(letta.consegna->sistema, "prova 1");
    trans("\"cruciverba\",\"uno, due\"\r\n");
    EXPECT_EQ(schedine::leggi_consegna(radice()).consegna->sistema, "uno, due");
}

TEST_F(ConsegnaSchedine, QualunqueByteHaUnaParola) {
    EXPECT_EQ(difetto("\"cruciverba\",\"prova\"\r\n"), "");
    EXPECT_EQ(difetto(""), "riga 1: la riga è vuota");
    EXPECT_EQ(difetto("\r\n\"cruciverba\",\"prova\"\r\n"), "riga 1: la riga è vuota");
    EXPECT_EQ(difetto("\"cruciverba\"\r\n"), "riga 1, campo 2: manca il nome del sistema");
    EXPECT_EQ(difetto("\"cruciverba\",\"\"\r\n"), "riga 1, campo 2: non è il nome di un sistema");
    EXPECT_EQ(difetto("\"\",\"prova\"\r\n"), "riga 1, campo 1: non è il nome di un programma");
    EXPECT_EQ(difetto("\"../x\",\"prova\"\r\n"), "riga 1, campo 1: non è il nome di un programma");
    EXPECT_EQ(difetto("\"cruciverba\",\"../../etc/passwd\"\r\n"),
              "riga 1, campo 2: non è il nome di un sistema");
    EXPECT_EQ(difetto("\"altro\",\"prova\"\r\n"),
              "riga 1, campo 1: il programma non ha una cartella nella suite");
    EXPECT_EQ(difetto(std::string(300, 'a') + ",b\r\n"),
              "riga 1, campo 1: non è il nome di un programma");
    EXPECT_EQ(difetto(std::string("\0\x01\xFF,\x02", 5)),
              "riga 1, campo 1: non è il nome di un programma");
    EXPECT_EQ(difetto("\"cruciverba\",\"a\x07\"\r\n"),
              "riga 1, campo 2: non è il nome di un sistema");
}

TEST_F(ConsegnaSchedine, TrovaLoSviluppoNeiDueGiochi) {
    const schedine::Consegna consegna{"cruciverba", "prova"};
    EXPECT_TRUE(schedine::trova(radice(), consegna).empty());
    cartella_.scrivi("prova.lot", "1,2,3\r\n");
    EXPECT_EQ(nomi(schedine::trova(radice(), consegna)), Nomi{"prova.lot"});
    cartella_.scrivi("prova.col", "1,2,3,4,5,6\r\n");
    EXPECT_EQ(nomi(schedine::trova(radice(), consegna)), (Nomi{"prova.col", "prova.lot"}));
}

TEST_F(ConsegnaSchedine, OffreISistemiElaborati) {
    cartella_.scrivi("b.sen", "");
    cartella_.scrivi("b.col", "1,2,3,4,5,6\r\n");
    cartella_.scrivi("a.sel", "");
    cartella_.scrivi("a.lot", "1,2,3\r\n");
    cartella_.scrivi("non elaborato.sen", "");
    cartella_.scrivi("solo.col", "1,2,3,4,5,6\r\n");
    EXPECT_EQ(nomi(schedine::scelte(cartella_.programma())), (Nomi{"b.col", "a.lot"}));
}

TEST_F(ConsegnaSchedine, LaFormaDelLottoVieneDalSistema) {
    cartella_.scrivi("a.sel", "10,0,0,\"\",0,0,0,4,1\r\n");
    cartella_.scrivi("a.lot", "1,2,3,4\r\n");
    Scelta scelta{cartella_.programma(), "a", Gioco::lotto()};
    schedine::Sviluppo s;
    ASSERT_FALSE(schedine::apri(scelta, s));
    EXPECT_EQ(scelta.gioco.forma(), 4);
    cartella_.scrivi("a.lot", "1,2,3\r\n");
    const auto difetto = schedine::apri(scelta, s);
    ASSERT_TRUE(difetto);
    EXPECT_EQ(difetto->testo(),
              "riga 1, campo 4: la riga finisce qui, ma i numeri devono essere 4");
    // Alone, a development tells its form itself, but none of sestine.
    cartella_.scrivi("solo.lot", "1,2,3\r\n");
    scelta.nome = "solo";
    ASSERT_FALSE(schedine::apri(scelta, s));
    EXPECT_EQ(scelta.gioco.forma(), 3);
    cartella_.scrivi("solo.lot", "1,2,3,4,5,6\r\n");
    EXPECT_TRUE(schedine::apri(scelta, s));
}

TEST_F(ConsegnaSchedine, LeColonneVengonoDalFileCheNonSiScrive) {
    const std::string cartella = cartella_.programma();
    EXPECT_EQ(schedine::colonne_per_schedina(cartella, Gioco::superenalotto()).colonne, 5);
    EXPECT_FALSE(cartella_.esiste("col.dat"));
    cartella_.scrivi("col.dat", "\"3\"\r\n");
    EXPECT_EQ(schedine::colonne_per_schedina(cartella, Gioco::superenalotto()).colonne, 3);
    EXPECT_EQ(schedine::colonne_per_schedina(cartella, Gioco::lotto()).colonne, 5);
    for (const char* guasto : {"\"0\"\r\n", "", "\"256\"\r\n", "\"x\"\r\n"}) {
        cartella_.scrivi("col.dat", guasto);
        const auto per = schedine::colonne_per_schedina(cartella, Gioco::superenalotto());
        EXPECT_EQ(per.colonne, 5) << guasto;
        EXPECT_TRUE(per.guasto) << guasto;
    }
}
