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
    [[nodiscard]] std::string foglio() const {
        return app::foglio_aspetto(cartella.radice() + "/");
    }
};

TEST_F(Aspetto, IlNumeroScegliIlFile) {
    scrivi("skn.dat", " 3 \r\n");
    scrivi("skin1_1.skn", "uno");
    scrivi("skin1_3.skn", "QLabel { color: red }\n/* perch\xc3\xa9 */");
    EXPECT_EQ(foglio(), "QLabel { color: red }\n/* perch\xc3\xa9 */");
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
