// The skin that the suite's skin folder picks.
#include "app/aspetto.h"

#include <gtest/gtest.h>

#include "support/cartella.h"

namespace {

class Aspetto : public ::testing::Test {
protected:
    support::Cartella cartella;

    void scrivi(const std::string& nome, const std::string& testo) {
        std::ofstream(cartella.radice() + "/skin/" + nome, std::ios::binary) << testo;
    }
    [[nodiscard]] std::string foglio(bool scuro = false) const {
        return app::foglio_aspetto(cartella.radice() + "/", scuro);
    }
};

TEST_F(Aspetto, IlNumeroScegliIlFile) {
    scrivi("skn.dat", " 3 \r\n");
    scrivi("skin1_1.skn", "uno");
    scrivi("skin1_3.skn", "QLabel { color: red }\n/* perch\xc3\xa9 */");
    EXPECT_EQ(foglio(), "QLabel { color: red }\n/* perch\xc3\xa9 */");
}

TEST_F(Aspetto, ComeIlSistemaSegueIlDesktop) {
    scrivi("skin1_1.skn", "classico");
    scrivi("skin1_3.skn", "scuro");
    ASSERT_TRUE(app::scegli_aspetto(cartella.radice() + "/", app::Aspetto::come_il_sistema));
    EXPECT_EQ(foglio(false), "classico");
    EXPECT_EQ(foglio(true), "scuro");
    scrivi("skin1_0.skn", "zero");
    EXPECT_EQ(foglio(true), "zero");
}

TEST_F(Aspetto, LaSceltaSiRilegge) {
    const std::string radice = cartella.radice() + "/";
    EXPECT_EQ(app::aspetto_scelto(radice), std::nullopt);
    for (const app::Aspetto a : {app::Aspetto::classico, app::Aspetto::chiaro, app::Aspetto::scuro,
                                 app::Aspetto::come_il_sistema}) {
        EXPECT_TRUE(app::scegli_aspetto(radice, a));
        EXPECT_EQ(app::aspetto_scelto(radice), static_cast<std::uint8_t>(a));
    }
    std::filesystem::remove_all(radice + "skin");
    EXPECT_FALSE(app::scegli_aspetto(radice, app::Aspetto::chiaro));
}

TEST_F(Aspetto, SenzaUnoDeiDueFileNonCENulla) {
    EXPECT_EQ(foglio(), "");
    scrivi("skin1_1.skn", "uno");
    EXPECT_EQ(foglio(), "");
    scrivi("skn.dat", "2\r\n");
    EXPECT_EQ(foglio(), "");
}

TEST_F(Aspetto, UnNumeroCheNonEUnByteNonScegliNulla) {
    scrivi("skin1_44.skn", "quarantaquattro");
    scrivi("skin1_0.skn", "zero");
    scrivi("skn.dat", "300\r\n");
    EXPECT_EQ(foglio(), "");
    scrivi("skn.dat", "-1\r\n");
    EXPECT_EQ(foglio(), "");
    scrivi("skn.dat", "");
    EXPECT_EQ(foglio(), "");
}

TEST_F(Aspetto, UnFileSmisuratoNonSiLegge) {
    scrivi("skn.dat", "1\r\n");
    scrivi("skin1_1.skn", std::string((1U << 20) + 1, ' '));
    EXPECT_EQ(foglio(), "");
}

}  // namespace
