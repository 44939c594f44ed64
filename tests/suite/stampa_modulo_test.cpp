// The file that tells the places of a player's slip.
#include <gtest/gtest.h>
#include <string>

#include "stampa/modulo.h"
#include "support/cartella.h"

using schedine::Modulo;

namespace {

const std::string in_ordine =
    "# la mia schedina\r\n"
    "gioco = lotto\r\n"
    "foglio = 820, 2000   # larghezza e altezza\r\n"
    "ingresso = sinistra\r\n"
    "origine = 60, 120\r\n"
    "passo = 45, 30\r\n"
    "griglia = 10, 9\r\n"
    "ordine = colonne dal basso\r\n"
    "pannello = 0, 0\r\n"
    "pannello = 0, 320\r\n"
    "segno = ovale, 30, 15\r\n"
    "ruota = Bari, 100, 1500\r\n"
    "ruota = nazionale, 100, 1600\r\n"
    "posta = 100, 300, 1500\r\n"
    "correzione = -3, 4\r\n"
    "scala = 10020, 9990\r\n";

class ModuloSchedine : public testing::Test {
protected:
    std::string difetto(const std::string& dati) {
        cartella_.scrivi("x.mod", dati);
        const auto d = schedine::leggi_modulo(cartella_.file("x.mod"), m_);
        return d ? d->testo() : "";
    }
    /// The fault of the file in order with one line replaced.
    std::string con(const std::string& vecchia, const std::string& nuova) {
        std::string dati = in_ordine;
        const std::size_t dove = dati.find(vecchia);
        EXPECT_NE(dove, std::string::npos) << vecchia;
        return difetto(dati.replace(dove, vecchia.size(), nuova));
    }

    support::Cartella cartella_;
    Modulo m_;
};

}  // namespace

TEST_F(ModuloSchedine, SiLeggeTutto) {
    ASSERT_EQ(difetto(in_ordine), "");
    EXPECT_TRUE(m_.lotto);
    EXPECT_EQ(m_.foglio, (schedine::Posto{820, 2000}));
    EXPECT_EQ(m_.ingresso, schedine::Ingresso::sinistra);
    EXPECT_EQ(m_.ordine, schedine::Ordine::colonne_dal_basso);
    EXPECT_EQ(m_.pannelli, (std::vector<schedine::Posto>{{0, 0}, {0, 320}}));
    EXPECT_EQ(m_.forma, schedine::Forma::ovale);
    EXPECT_EQ(m_.segno, (schedine::Posto{30, 15}));
    ASSERT_EQ(m_.ruote.size(), 2U);
    EXPECT_EQ(m_.ruote[1].ruota, 10U);
    EXPECT_EQ(m_.poste, (std::vector<schedine::PostoPosta>{{100, {300, 1500}}}));
    EXPECT_EQ(m_.correzione, (schedine::Posto{-3, 4}));
    EXPECT_EQ(m_.scala, (schedine::Posto{10020, 9990}));
}

TEST_F(ModuloSchedine, QuelloCheSiScriveSiRilegge) {
    ASSERT_EQ(difetto(in_ordine), "");
    const Modulo letto = m_;
    EXPECT_EQ(difetto(schedine::testo_modulo(letto)), "");
    EXPECT_EQ(m_, letto);
    EXPECT_EQ(difetto(schedine::testo_modulo(Modulo())), "");
    EXPECT_EQ(m_, Modulo());
    EXPECT_FALSE(schedine::verifica(Modulo()));
}

TEST_F(ModuloSchedine, QuelCheMancaSiDice) {
    for (const char* campo : {"foglio", "origine", "passo", "griglia", "segno", "pannello"}) {
        std::string dati;
        for (std::size_t i = 0; i < in_ordine.size();) {
            const std::size_t fine = in_ordine.find('\n', i) + 1;
            const std::string riga = in_ordine.substr(i, fine - i);
            if (!riga.starts_with(campo)) dati += riga;
            i = fine;
        }
        EXPECT_EQ(difetto(dati), std::string("campo ") + campo + ": manca");
    }
    EXPECT_EQ(difetto(""), "campo foglio: manca");
}

TEST_F(ModuloSchedine, DiceRigaECampoDelDifetto) {
    EXPECT_EQ(con("passo = 45, 30", "passo = 45"),
              "riga 6, campo passo: i valori devono essere 2, separati da virgole");
    EXPECT_EQ(con("passo = 45, 30", "passo = -45, 30"),
              "riga 6, campo passo: il valore 1 non va da 5 a 1000");
    EXPECT_EQ(con("passo = 45, 30", "passo = 45, 99999999999999999999"),
              "riga 6, campo passo: il valore 2 non va da 5 a 1000");
    EXPECT_EQ(con("passo = 45, 30", "passo = 45, 3.5"),
              "riga 6, campo passo: il valore 2 non è un numero intero");
    EXPECT_EQ(con("passo = 45, 30", "passo = 45, "), "riga 6, campo passo: il valore 2 manca");
    EXPECT_EQ(con("passo = 45, 30", "passo 45, 30"), "riga 6: manca il segno =");
    EXPECT_EQ(con("passo = 45, 30", "passi = 45, 30"),
              "riga 6, campo passi: il campo è sconosciuto");
    EXPECT_EQ(con("passo = 45, 30", std::string(500, 'z') + " = 45, 30"),
              "riga 6: il campo è sconosciuto");
    EXPECT_EQ(con("passo = 45, 30", "foglio = 45, 30"),
              "riga 6, campo foglio: c'è già alla riga 3");
    EXPECT_EQ(con("ingresso = sinistra", "ingresso = destra"),
              "riga 4, campo ingresso: deve essere una di queste parole: testa, sinistra");
    EXPECT_EQ(con("segno = ovale, 30, 15", "segno = stella, 30, 15"),
              "riga 11, campo segno: deve essere una di queste parole: rettangolo, ovale, croce");
    EXPECT_EQ(con("ruota = Bari, 100, 1500", "ruota = Atene, 100, 1500"),
              "riga 12, campo ruota: il valore 1 non è il nome di una ruota");
    EXPECT_EQ(con("posta = 100, 300, 1500", "posta = 0, 300, 1500"),
              "riga 14, campo posta: il valore 1 non va da 1 a 1000000");
    EXPECT_EQ(con("scala = 10020, 9990", "scala = 20000, 9990"),
              "riga 16, campo scala: il valore 1 non va da 9000 a 11000");
}

TEST_F(ModuloSchedine, IlSegnoFuoriDalFoglioSiDice) {
    EXPECT_EQ(con("griglia = 10, 9", "griglia = 9, 9"),
              "riga 7, campo griglia: le caselle devono essere almeno 90");
    EXPECT_EQ(con("origine = 60, 120", "origine = 600, 120"),
              "riga 9, campo pannello: nel pannello 1 il segno del numero 46 esce dal foglio");
    EXPECT_EQ(con("pannello = 0, 320", "pannello = 0, 1900"),
              "riga 10, campo pannello: nel pannello 2 il segno del numero 1 esce dal foglio");
    EXPECT_EQ(con("ruota = Bari, 100, 1500", "ruota = Bari, 100, 2500"),
              "riga 12, campo ruota: il segno esce dal foglio");
    EXPECT_EQ(con("ruota = nazionale, 100, 1600", "ruota = nazionale, 100, 2500"),
              "riga 13, campo ruota: il segno esce dal foglio");
    EXPECT_EQ(con("posta = 100, 300, 1500", "posta = 100, 2, 1500"),
              "riga 14, campo posta: il segno esce dal foglio");
}

TEST_F(ModuloSchedine, TroppiPannelliETroppiByte) {
    std::string molti = in_ordine;
    for (int i = 0; i < 70; ++i) molti += "pannello = 0, 0\r\n";
    EXPECT_EQ(difetto(molti), "riga 75, campo pannello: i pannelli sono più di 60");
    EXPECT_EQ(difetto(in_ordine + std::string(70000, '#')),
              "il file è troppo grande per essere un modulo");
    EXPECT_EQ(difetto(std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)),
              "riga 1: manca il segno =");
}

TEST_F(ModuloSchedine, ISuoiFileStannoNellaLoroCartella) {
    const std::string radice = cartella_.radice() + "/";
    EXPECT_TRUE(schedine::moduli(radice).empty());
    std::filesystem::create_directories(radice + "schedine");
    std::ofstream(schedine::file_modulo(radice, "mia")) << in_ordine;
    std::ofstream(radice + "schedine/altro.txt") << "";
    EXPECT_EQ(schedine::moduli(radice), std::vector<std::string>{"mia"});
    EXPECT_FALSE(schedine::leggi_modulo(schedine::file_modulo(radice, "mia"), m_));
}
