// The pen of the printer: where it stands after each sign, and when a page begins.
#include "platform/printer.h"

#include <array>

#include "support/stampante.h"

using support::alto;
using support::Registratore;

TEST(Penna, PrintScendeDiUnaRigaETornaAZero) {
    Registratore r;
    r.FontSize = 12;
    r.CurrentX = 7;
    r.CurrentY = 3;
    r.Print("ciao");
    EXPECT_FLOAT_EQ(r.testi().at(0).x1, 7);
    EXPECT_FLOAT_EQ(r.testi().at(0).y1, 3);
    EXPECT_FLOAT_EQ(r.CurrentX, 0);
    EXPECT_FLOAT_EQ(r.CurrentY, 3 + alto(12));
}

TEST(Penna, PrintVuotoScendeSenzaInchiostro) {
    Registratore r;
    r.FontSize = 14;
    r.CurrentX = 5;
    r.Print();
    r.Print("");
    EXPECT_TRUE(r.testi().empty());
    EXPECT_EQ(r.fogli, 1);
    EXPECT_FLOAT_EQ(r.CurrentX, 0);
    EXPECT_FLOAT_EQ(r.CurrentY, 2 * alto(14));
}

TEST(Penna, UnNumeroHaUnoSpazioPrimaEUnoDopo) {
    Registratore r;
    r.Print(std::int64_t{42});
    r.Print(std::int64_t{-7});
    EXPECT_EQ(r.testi().at(0).testo, " 42 ");
    EXPECT_EQ(r.testi().at(1).testo, "-7 ");
}

TEST(Penna, LineLasciaLaPennaAllaFine) {
    Registratore r;
    r.Line(1, 2, 30, 4);
    EXPECT_FLOAT_EQ(r.CurrentX, 30);
    EXPECT_FLOAT_EQ(r.CurrentY, 4);
    r.LineB(5, 6, 7, 8);
    EXPECT_FLOAT_EQ(r.CurrentX, 7);
    EXPECT_FLOAT_EQ(r.CurrentY, 8);
    r.Oval(9, 10, 11, 12);
    EXPECT_FLOAT_EQ(r.CurrentX, 11);
    EXPECT_FLOAT_EQ(r.CurrentY, 12);
    // Drawn from corner to corner, each as what it is.
    const auto dove = [&r](support::Tipo tipo) {
        const auto o = r.di_tipo(tipo).at(0);
        return std::array{o.x1, o.y1, o.x2, o.y2};
    };
    EXPECT_EQ(dove(support::Tipo::tratto), (std::array{1.0F, 2.0F, 30.0F, 4.0F}));
    EXPECT_EQ(dove(support::Tipo::riquadro), (std::array{5.0F, 6.0F, 7.0F, 8.0F}));
    EXPECT_EQ(dove(support::Tipo::ovale), (std::array{9.0F, 10.0F, 11.0F, 12.0F}));
}

TEST(Penna, LaPaginaComincaColPrimoSegno) {
    Registratore r;
    r.CurrentY = 5;
    r.FontSize = 20;
    EXPECT_GT(r.TextWidth("a"), 0);
    EXPECT_EQ(r.fogli, 0);
    r.Line(0, 0, 0, 0);
    EXPECT_EQ(r.fogli, 1);
    r.NewPage();
    EXPECT_EQ(r.fogli, 1);
    EXPECT_EQ(r.Page(), 2);
    EXPECT_FLOAT_EQ(r.CurrentX, 0);
    EXPECT_FLOAT_EQ(r.CurrentY, 0);
    r.Print("b");
    EXPECT_EQ(r.fogli, 2);
    EXPECT_EQ(r.testi().at(0).pagina, 2);
    r.EndDoc();
    EXPECT_EQ(r.Page(), 1);
}
