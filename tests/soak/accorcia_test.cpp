// The shortening of a walk, on models whose fault is planted.
#include "soak/accorcia.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>

using soak::accorcia;
using soak::Passi;

namespace {

Passi da_uno_a(std::uint32_t n) {
    Passi passi(n);
    std::iota(passi.begin(), passi.end(), 1U);
    return passi;
}

/// Its fault asks for these steps in this order, with any others between them.
struct Modello {
    Passi servono;
    int tentativi = 0;

    bool operator()(const Passi& passi) {
        ++tentativi;
        std::size_t fatti = 0;
        for (const std::uint32_t passo : passi) {
            if (fatti < servono.size() && passo == servono[fatti]) ++fatti;
        }
        return fatti == servono.size();
    }
};

TEST(Accorcia, OnlyTheStepsThatTheFaultNeedsAreLeft) {
    for (const Passi& servono : {Passi{17}, Passi{1}, Passi{250}, Passi{3, 4}, Passi{1, 250},
                                 Passi{9, 77, 78, 200}, da_uno_a(250)}) {
        Modello modello{servono};
        EXPECT_EQ(accorcia(da_uno_a(250), std::ref(modello)), servono);
    }
}

TEST(Accorcia, AWalkThatDoesNotFailStaysAsItIs) {
    Modello modello{{251}};
    EXPECT_EQ(accorcia(da_uno_a(250), std::ref(modello)), da_uno_a(250));
    EXPECT_EQ(modello.tentativi, 1);
}

TEST(Accorcia, NothingIsLeftOfWhatFailsByItself) {
    EXPECT_EQ(accorcia(da_uno_a(30), [](const Passi&) { return true; }), Passi());
    EXPECT_EQ(accorcia({}, [](const Passi&) { return true; }), Passi());
}

TEST(Accorcia, AnActionThatOnlyASparedOneNeededGoesToo) {
    // Each number but the greatest is asked for by its successor alone.
    const auto fallisce = [](const Passi& passi) {
        const bool ultimo = std::find(passi.begin(), passi.end(), 40U) != passi.end();
        return ultimo && std::all_of(passi.begin(), passi.end(), [&](std::uint32_t p) {
                   return p == 40 || p == 39 ||
                          std::find(passi.begin(), passi.end(), p + 1) != passi.end();
               });
    };
    EXPECT_EQ(accorcia(da_uno_a(40), fallisce), Passi{40});
}

TEST(Accorcia, TheTriesGrowWithWhatIsLeftAndHardlyWithTheWalk) {
    Modello modello{{500, 9000}};
    EXPECT_EQ(accorcia(da_uno_a(10000), std::ref(modello)), (Passi{500, 9000}));
    EXPECT_LT(modello.tentativi, 120);
}

TEST(Accorcia, TheWalkIsToldAsATest) {
    EXPECT_EQ(soak::come_prova({7, 4294967295U}),
              "TEST(Soak, AWalkThatFailed) { EXPECT_EQ(cammina({7U, 4294967295U}).difetti, "
              "QString()); }");
}

}  // namespace
