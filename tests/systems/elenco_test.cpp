#include "systems/elenco.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <sys/xattr.h>

#include "platform/disk.h"
#include "support/cartella.h"
#include "support/guasti.h"
#include "systems/file_sistema.h"

using namespace systems;
using crossword::Gioco;

namespace {

class Elenco : public testing::Test {
protected:
    std::vector<Voce> trova(Gioco gioco = Gioco()) {
        return trova_sistemi(cartella.programma(), cartella.programma(), gioco);
    }
    /// Second column of the only system, whose file has this head.
    std::string dimensione(const std::string& testa, Gioco gioco = Gioco()) {
        cartella.scrivi(gioco.e_lotto() ? "a.sel" : "a.sen", testa + "\r\n");
        const auto voci = trova(gioco);
        return voci.size() == 1 ? voci[0].dimensione : "?";
    }
    support::Cartella cartella;
};

std::vector<std::string> nomi(const std::vector<Voce>& voci) {
    std::vector<std::string> tutti;
    for (const Voce& voce : voci) tutti.push_back(voce.nome);
    return tutti;
}

TEST_F(Elenco, DiUnFileBucatoSiLeggeLaTestaSoltanto) {
    for (const char* nome : {"a.sen", "b.sel"}) {
        cartella.scrivi(nome, "14,7,5");
        std::filesystem::resize_file(cartella.file(nome), std::uintmax_t{1} << 32);
    }
    const support::Disco disco;
    EXPECT_EQ(trova().size(), 1U);
    EXPECT_EQ(trova(crossword::Gioco::lotto()).size(), 1U);
    static_cast<void>(leggi_conteggio(cartella.programma(), "a", {}));
    EXPECT_LE(disco.letti, 3 << 16);
    static_cast<void>(leggi_sistema(cartella.programma(), "a", {}));
    EXPECT_LE(disco.letti, 2 << 20);
}

TEST_F(Elenco, UnNomeCheNonEUtf8SiTrovaESiLegge) {
    const std::string nome = "citt\xE0";
    cartella.scrivi(nome + ".sen", "14,7,5,\"6\",0,0,0,9\r\n");
    const auto voci = trova();
    ASSERT_EQ(voci.size(), 1U);
    EXPECT_EQ(voci[0].nome, nome);
    EXPECT_EQ(voci[0].dimensione, "8 x 6");
    EXPECT_EQ(leggi_conteggio(cartella.programma(), nome, {}), 9);
}

TEST_F(Elenco, UnaCartellaVuotaNonHaSistemi) {
    EXPECT_TRUE(trova().empty());
    EXPECT_TRUE(trova(Gioco::lotto()).empty());
    EXPECT_TRUE(trova_sistemi(cartella.file("manca"), cartella.programma(), Gioco()).empty());
}

TEST_F(Elenco, SoltantoISistemiDelGioco) {
    for (const char* nome : {"uno.sen", "due.sel", "tre.col", "quattro.lot", "temp.txt"}) {
        cartella.scrivi(nome, "0,5,5,\"2\",0,0,0,5,0\r\n");
    }
    EXPECT_EQ(nomi(trova()), (std::vector<std::string>{"uno"}));
    EXPECT_EQ(nomi(trova(Gioco::lotto())), (std::vector<std::string>{"due"}));
}

TEST_F(Elenco, IlNomeTieneLeMaiuscoleEPerdeQuattroCaratteri) {
    cartella.scrivi("Mio.Sistema.SEN", "0,5,5\r\n");
    cartella.scrivi("perch\xC3\xA9.sen", "0,5,5\r\n");
    EXPECT_EQ(nomi(trova()), (std::vector<std::string>{"Mio.Sistema", "perch\xC3\xA9"}));
}

TEST_F(Elenco, LeCartelleNonSonoSistemi) {
    std::filesystem::create_directory(cartella.file("a.sen"));
    EXPECT_TRUE(trova().empty());
}

TEST_F(Elenco, RighePerColonneNelSuperenalotto) {
    EXPECT_EQ(dimensione("86,7,5,\"\",0,0,0,0"), "8 x 6");
    EXPECT_EQ(dimensione("0,14,9,\"\",0,0,0,0"), "15 x 10");
    EXPECT_EQ(dimensione("0,255,255,\"\",0,0,0,0"), "256 x 256");
}

TEST_F(Elenco, LaFormaNelLotto) {
    EXPECT_EQ(dimensione("0,5,5,\"2\",0,0,0,3,0", Gioco::lotto()), "Terzine");
    EXPECT_EQ(dimensione("0,5,5,\"2\",0,0,0,4,0", Gioco::lotto()), "Quartine");
    EXPECT_EQ(dimensione("0,5,5,\"2\",0,0,0,5,0", Gioco::lotto()), "Cinquine");
    for (const char* altra : {"0", "2", "6", "255", "x"}) {
        EXPECT_EQ(dimensione(std::string("0,5,5,\"2\",0,0,0,") + altra + ",0", Gioco::lotto()), "")
            << altra;
    }
}

TEST_F(Elenco, ICampiNonTenutiNonFermanoLaLettura) {
    EXPECT_EQ(dimensione("999999999999,5,5,\"molto\",70000,-70000,1e400,4,0", Gioco::lotto()),
              "Quartine");
    EXPECT_EQ(dimensione("-1e400,5,7,\"molto\""), "6 x 8");
}

TEST_F(Elenco, UnFileIlleggibileTieneIValoriDiPrimaOUnoPerUno) {
    cartella.scrivi("a.sen", "");
    cartella.scrivi("b.sen", "0,7,5,\"\",0,0,0,0\r\n");
    cartella.scrivi("c.sen", "");
    cartella.scrivi("d.sen", "0,9");
    cartella.scrivi("e.sen", "0,x,y\r\n");
    const auto voci = trova();
    ASSERT_EQ(voci.size(), 5U);
    EXPECT_EQ(voci[0].dimensione, "1 x 1");
    EXPECT_EQ(voci[1].dimensione, "8 x 6");
    EXPECT_EQ(voci[2].dimensione, "8 x 6");
    EXPECT_EQ(voci[3].dimensione, "10 x 6");
    EXPECT_EQ(voci[4].dimensione, "1 x 1");
}

TEST_F(Elenco, LaFormaDiUnFileCortoEQuellaDiPrima) {
    cartella.scrivi("a.sel", "0,5,5\r\n");
    cartella.scrivi("b.sel", "0,5,5,\"2\",0,0,0,3,0\r\n");
    cartella.scrivi("c.sel", "0,5,5\r\n");
    const auto voci = trova(Gioco::lotto());
    ASSERT_EQ(voci.size(), 3U);
    EXPECT_EQ(voci[0].dimensione, "");
    EXPECT_EQ(voci[1].dimensione, "Terzine");
    EXPECT_EQ(voci[2].dimensione, "Terzine");
}

TEST_F(Elenco, LaTestaELaDataVengonoDallaCartellaDelProgramma) {
    const std::string altra = cartella.radice() + "/altra";
    std::filesystem::create_directory(altra);
    cartella.scrivi("a.sen", "0,7,5\r\n");
    std::ofstream(altra + "/a.sen") << "0,9,9\r\n";
    std::ofstream(altra + "/b.sen") << "0,9,9\r\n";
    const auto voci = trova_sistemi(altra, cartella.programma(), Gioco());
    ASSERT_EQ(voci.size(), 2U);
    EXPECT_EQ(voci[0].dimensione, "8 x 6");
    EXPECT_EQ(voci[1].nome, "b");
    EXPECT_EQ(voci[1].dimensione, "8 x 6");
    EXPECT_EQ(voci[1].data, voci[0].data);
    const auto sola = trova_sistemi(altra, cartella.file("manca"), Gioco());
    EXPECT_EQ(sola[0].dimensione, "1 x 1");
    EXPECT_EQ(sola[0].data, "");
}

TEST_F(Elenco, LaDataHaOttoCaratteriGiornoMeseAnno) {
    cartella.scrivi("a.sen", "0,5,5\r\n");
    const auto voci = trova();
    ASSERT_EQ(voci.size(), 1U);
    EXPECT_EQ(voci[0].data.size(), 8U);
    const auto creata = platform::data_creazione(cartella.file("a.sen"));
    ASSERT_TRUE(creata.has_value());
    EXPECT_EQ(voci[0].data, platform::testo_data_ora(*creata).substr(0, 8));
    EXPECT_EQ(ShowFileInfo(cartella.file("a.sen")), platform::testo_data_ora(*creata));
    EXPECT_EQ(ShowFileInfo(cartella.file("manca.sen")), "");
}

TEST_F(Elenco, UnSistemaSalvatoDiNuovoTieneLaDataDellaPrimaVolta) {
    Sistema sistema;
    sistema.matrice = crossword::Matrice(6, 6);
    ASSERT_TRUE(scrivi_sistema(cartella.programma(), "a", sistema));
    // The fifth of May 1999, about noon, noted as by a saving of then.
    if (::setxattr(cartella.file("a.sen").c_str(), "user.tabellino.creazione", "925905600", 9, 0) !=
        0) {
        GTEST_SKIP() << "this disk keeps no attributes";
    }
    ASSERT_TRUE(scrivi_sistema(cartella.programma(), "a", sistema));
    ASSERT_EQ(trova().size(), 1U);
    EXPECT_EQ(trova()[0].data, "05/05/99");
}

TEST_F(Elenco, ByteACasoNonFannoDanno) {
    std::mt19937 caso(17);
    for (int giro = 0; giro < 200; ++giro) {
        std::string testo(caso() % 100, '\0');
        for (char& c : testo) c = static_cast<char>(caso());
        cartella.scrivi("a.sen", testo);
        cartella.scrivi("a.sel", testo);
        ASSERT_EQ(trova().size(), 1U);
        ASSERT_EQ(trova(Gioco::lotto()).size(), 1U);
        ASSERT_NE(trova()[0].dimensione.find(" x "), std::string::npos);
    }
}

TEST(TastoNome, CifreEMinuscoleSoltanto) {
    for (int codice = -300; codice <= 70000; ++codice) {
        int atteso = 0;
        if (codice == 8 || (codice >= 48 && codice <= 57) || (codice >= 97 && codice <= 122)) {
            atteso = codice;
        } else if (codice >= 65 && codice <= 90) {
            atteso = codice + 32;
        }
        ASSERT_EQ(tasto_nome(codice), atteso) << codice;
    }
}

TEST(NomeAmmesso, NessunNomeEsceDallaCartella) {
    for (const char* buono : {"a", "mio sistema", "perch\xC3\xA9", "a.b", "..."}) {
        EXPECT_TRUE(nome_ammesso(buono)) << buono;
    }
    for (const std::string_view cattivo :
         {std::string_view(""), std::string_view("."), std::string_view(".."),
          std::string_view("a/b"), std::string_view("/a"), std::string_view("a\\b"),
          std::string_view("a\0b", 3)}) {
        EXPECT_FALSE(nome_ammesso(cattivo)) << cattivo;
    }
}

}  // namespace
