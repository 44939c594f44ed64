// What the file of the windows keeps, and what it is not believed.
#include "platform/ricordi.h"

#include <gtest/gtest.h>

#include "support/cartella.h"

using platform::ricorda;
using platform::ricordo;
using platform::Ricordo;

namespace {

class RicordiTest : public ::testing::Test {
protected:
    /// True when a file of this line alone keeps something of the window "a".
    bool tiene(const std::string& riga) {
        cartella.scrivi("finestre.dat", riga + "\r\n");
        return ricordo(file, "a").has_value();
    }

    support::Cartella cartella;
    std::string file = cartella.file("finestre.dat");
};

TEST_F(RicordiTest, EachWindowComesBackAsItWasLeft) {
    const Ricordo prima{-5, 7, 640, 480, true, false, 150};
    const Ricordo seconda{0, 0, 1, 32000, false, true, 0};
    EXPECT_TRUE(ricorda(file, "Form1", prima));
    EXPECT_TRUE(ricorda(file, "Form2", seconda));
    EXPECT_EQ(ricordo(file, "Form1"), prima);
    EXPECT_EQ(ricordo(file, "Form2"), seconda);
    EXPECT_EQ(ricordo(file, "Form3"), std::nullopt);
    EXPECT_EQ(cartella.leggi("finestre.dat"),
              "\"Form1\",-5,7,640,480,1,0,150\r\n\"Form2\",0,0,1,32000,0,1\r\n");
}

TEST_F(RicordiTest, OneWindowIsForgottenAndTheOthersStay) {
    const Ricordo uno{1, 2, 3, 4, true, true, 0};
    ASSERT_TRUE(ricorda(file, "a", uno));
    ASSERT_TRUE(ricorda(file, "b", uno));
    EXPECT_TRUE(ricorda(file, "a", std::nullopt));
    EXPECT_EQ(ricordo(file, "a"), std::nullopt);
    EXPECT_EQ(ricordo(file, "b"), uno);
    EXPECT_TRUE(ricorda(file, "manca", std::nullopt));
    EXPECT_EQ(ricordo(file, "b"), uno);
}

TEST_F(RicordiTest, WithoutAFileNothingIsRemembered) {
    EXPECT_EQ(ricordo(file, "a"), std::nullopt);
    EXPECT_FALSE(ricorda(cartella.file("manca/finestre.dat"), "a", Ricordo{1, 2, 3, 4}));
}

TEST_F(RicordiTest, EveryNumberIsOneThatAWindowCanHave) {
    EXPECT_TRUE(tiene("\"a\",-32000,-32000,1,1,0,0"));
    EXPECT_TRUE(tiene("\"a\",32000,32000,32000,32000,1,1,1000"));
    for (const char* riga :
         {"\"a\",-32001,0,9,9,0,0", "\"a\",32001,0,9,9,0,0", "\"a\",0,-32001,9,9,0,0",
          "\"a\",0,32001,9,9,0,0", "\"a\",0,0,0,9,0,0", "\"a\",0,0,32001,9,0,0",
          "\"a\",0,0,9,0,0,0", "\"a\",0,0,9,32001,0,0", "\"a\",0,0,9,9,-1,0", "\"a\",0,0,9,9,2,0",
          "\"a\",0,0,9,9,0,-1", "\"a\",0,0,9,9,0,2", "\"a\",0,0,9,9,0,0,-1",
          "\"a\",0,0,9,9,0,0,1001"}) {
        EXPECT_FALSE(tiene(riga)) << riga;
    }
}

TEST_F(RicordiTest, ADamagedLineIsPassedOver) {
    for (const char* riga :
         {"", "\"", "a,0,0,9,9,0,0", "\"a,0,0,9,9,0,0", "\"a\"", "\"a\",", "\"a\",0,0,9,9,0",
          "\"a\",0,0,9,9,0,0,100,1", "\"a\",0,,9,9,0,0", "\"a\",0,-,9,9,0,0", "\"a\",0,x,9,9,0,0",
          "\"a\",0,1x,9,9,0,0", "\"a\",0,--1,9,9,0,0", "\"a\",0, 1,9,9,0,0",
          "\"a\",0,00000001,9,9,0,0", "\"a\",0,99999999999999999999,9,9,0,0"}) {
        EXPECT_FALSE(tiene(riga)) << riga;
        EXPECT_FALSE(tiene(std::string(riga) + "\r\n\"b\",0,0,9,9,0,0")) << riga;
        EXPECT_EQ(ricordo(file, "b"), (Ricordo{0, 0, 9, 9})) << riga;
    }
    EXPECT_TRUE(tiene("\"a\",0,0000001,9,9,0,0"));
}

TEST_F(RicordiTest, AWindowThatStandsTwiceIsAsItsLastLineTells) {
    EXPECT_TRUE(tiene("\"a\",1,1,9,9,0,0\r\n\"a\",2,2,9,9,0,0"));
    EXPECT_EQ(ricordo(file, "a"), (Ricordo{2, 2, 9, 9}));
}

TEST_F(RicordiTest, OfAFloodSixtyFourWindowsAreRead) {
    std::string tutte;
    for (int i = 100; i < 200; ++i) tutte += "\"" + std::to_string(i) + "\",0,0,9,9,0,0\r\n";
    cartella.scrivi("finestre.dat", tutte);
    EXPECT_TRUE(ricordo(file, "163"));
    EXPECT_FALSE(ricordo(file, "164"));
    const Ricordo ultima{1, 2, 3, 4};
    EXPECT_TRUE(ricorda(file, "zeta", ultima));
    EXPECT_EQ(ricordo(file, "zeta"), ultima);
    EXPECT_TRUE(ricordo(file, "163"));
    EXPECT_TRUE(ricorda(file, "163", ultima));
    EXPECT_EQ(ricordo(file, "163"), ultima);
    EXPECT_TRUE(ricordo(file, "101")) << "one that stands there already takes nobody's place";
}

}  // namespace
