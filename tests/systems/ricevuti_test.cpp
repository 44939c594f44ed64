// Which systems a drop names.
#include "systems/ricevuti.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "support/cartella.h"

using systems::Coppia;
using systems::esito_detto;
using systems::sistemi_ricevuti;

namespace {

class RicevutiTest : public testing::Test {
protected:
    RicevutiTest() { std::filesystem::create_directories(da); }
    void metti(const std::string& nome) const { std::ofstream(da + nome) << "x"; }
    [[nodiscard]] std::vector<std::string> nomi(const std::vector<std::string>& percorsi) const {
        std::vector<std::string> letti;
        for (const Coppia& c : sistemi_ricevuti(percorsi)) {
            letti.push_back(c.nome + c.gioco.estensione_sistema());
        }
        return letti;
    }
    support::Cartella cartella;
    const std::string da = cartella.radice() + "/da/";
};

using Nomi = std::vector<std::string>;

TEST_F(RicevutiTest, ASystemFileOrItsDevelopmentIsOneSystem) {
    metti("a.sen");
    metti("a.col");
    metti("b.SEL");
    EXPECT_EQ(nomi({da + "a.sen", da + "a.col", da + "b.SEL"}), (Nomi{"a.sen", "b.sel"}));
    EXPECT_EQ(nomi({da + "a.col"}), Nomi{"a.sen"});
}

TEST_F(RicevutiTest, AFolderGivesAllThatIsRightInIt) {
    metti("a.sen");
    metti("b.sel");
    metti("c.txt");
    metti("solo.col");
    std::filesystem::create_directories(da + "sotto");
    metti("sotto/d.sen");
    EXPECT_EQ(nomi({cartella.radice() + "/da"}), (Nomi{"a.sen", "b.sel"}));
}

TEST_F(RicevutiTest, WhatIsNoSystemIsPassedOver) {
    metti("c.txt");
    metti("solo.col");
    metti(".sen");
    EXPECT_EQ(nomi({da + "c.txt", da + "solo.col", da + ".sen", da + "assente.sen", "", "a.sen"}),
              Nomi{});
}

TEST(RicevutiDetti, OneLineForMany) {
    EXPECT_EQ(esito_detto(systems::Ricevuti{3, 0, 0}), "3 sistemi importati");
    EXPECT_EQ(esito_detto(systems::Ricevuti{1, 1, 1}),
              "Un sistema importato, uno rimasto com'era, uno non riuscito");
    EXPECT_EQ(esito_detto(systems::Ricevuti{0, 2, 0}),
              "Nessun sistema importato, 2 rimasti com'erano");
}

}  // namespace
