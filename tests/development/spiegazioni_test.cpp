#include "development/spiegazioni.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "crossword/tipi.h"
#include "development/garanzie.h"
#include "support/cartella.h"

using namespace development;
using crossword::Gioco;

namespace {

const std::string spedite = SUITE_DIR "/ridotti";

TEST(Spiegazioni, CioCheLaTabellaGarantisce) {
    Spiegazioni s;
    EXPECT_EQ(s.di(spedite, Gioco::superenalotto(), 7, 1),
              "1 sestina, 14,3 % dell'integrale: con 4 estratti su 7 almeno una da 3, con 5 almeno "
              "una da 4, con 6 almeno una da 5");
    EXPECT_EQ(s.di(spedite, Gioco::superenalotto(), 8, 0),
              "28 sestine, tutte quelle possibili: con 6 estratti su 8 almeno una da 6");
    EXPECT_EQ(s.di(spedite, Gioco::lotto(3), 5, 1),
              "4 terzine, 40 % dell'integrale: con 2 estratti su 5 almeno una da 2, con 4 almeno "
              "una da 3");
    EXPECT_EQ(s.di(spedite, Gioco::lotto(9), 5, 1), "");
}

TEST(Spiegazioni, OgniTipoHaLaSuaGaranziaProvata) {
    Spiegazioni s;
    for (const Gioco gioco :
         {Gioco::superenalotto(), Gioco::lotto(3), Gioco::lotto(4), Gioco::lotto(5)}) {
        for (int n = gioco.lato_minimo(); n <= Gioco::lato_massimo; ++n) {
            const auto tipi = crossword::tipi_sistema(gioco, crossword::Elenco::orizzontali, n);
            for (int tipo = 1; tipo < static_cast<int>(tipi.size()); ++tipo) {
                const NomeTabella nome{gioco.prefisso_tabelle(), n, tipo};
                const auto dichiarata = garanzia_dichiarata(nome);
                ASSERT_TRUE(dichiarata) << nome.testo();
                const std::string& frase = s.di(spedite, gioco, n, tipo);
                // A higher guarantee may come with as few numbers.
                bool detta = false;
                for (int p = 2; p <= dichiarata->p; ++p) {
                    for (int t = dichiarata->t; t <= p; ++t) {
                        const std::string con = "con " + std::to_string(p);
                        const std::string una = " almeno una da " + std::to_string(t);
                        detta = detta || frase.find(con + una) != std::string::npos ||
                                frase.find(con + " estratti su " + std::to_string(n) + una) !=
                                    std::string::npos;
                    }
                }
                EXPECT_TRUE(detta) << nome.testo() << ": " << frase;
            }
        }
    }
}

TEST(Spiegazioni, DallaTabellaCheStaNelDisco) {
    const support::Cartella cartella;
    const std::string ridotti = cartella.radice() + "/ridotti";
    const auto scrivi = [&](const std::string& righe) {
        std::ofstream(ridotti + "/tr0501.rid", std::ios::binary) << righe;
    };
    Spiegazioni s;
    const Gioco terzine = Gioco::lotto(3);
    EXPECT_EQ(s.di(ridotti, terzine, 5, 1), "La tabella tr0501.rid manca o non si può leggere");
    scrivi("1,2,3\r\n");
    EXPECT_EQ(s.di(ridotti, terzine, 5, 1),
              "1 terzina, 10 % dell'integrale: con 4 estratti su 5 almeno una da 2, con 5 almeno "
              "una da 3");
    scrivi("1,2,9\r\n");
    EXPECT_EQ(s.di(ridotti, terzine, 5, 1), "La tabella tr0501.rid è guasta: non garantisce nulla");
    scrivi("1,2,3\r\n1,4,5\r\n");
    EXPECT_EQ(s.di(ridotti, terzine, 5, 1).substr(0, 31), "2 terzine, 20 % dell'integrale:");
    const std::string frase = s.di(ridotti, terzine, 5, 1);
    EXPECT_EQ(frase.substr(0, 31), "2 terzine, 20 % dell'integrale:") << "as it was";
    scrivi("");
    EXPECT_EQ(s.di(ridotti, terzine, 5, 1), "La tabella tr0501.rid è guasta: non garantisce nulla");
    std::filesystem::remove(ridotti + "/tr0501.rid");
    EXPECT_EQ(s.di(ridotti, terzine, 5, 1), "La tabella tr0501.rid manca o non si può leggere");
    // An empty table is there, and says something else than one that is not.
    scrivi("");
    EXPECT_EQ(s.di(ridotti, terzine, 5, 1), "La tabella tr0501.rid è guasta: non garantisce nulla");
}

}  // namespace
