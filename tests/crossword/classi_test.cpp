// Groups of numbers on the rows and columns of a crossword.
#include "crossword/classi.h"

#include <gtest/gtest.h>

namespace crossword {
namespace {

Matrice griglia(const std::array<int, 4>& numeri) {
    Matrice m(2, 2);
    for (int i = 0; i < 4; ++i) {
        m.scrivi(i % 2, i / 2, static_cast<std::int16_t>(numeri[static_cast<std::size_t>(i)]));
    }
    return m;
}

/// Odd numbers are one group, even ones the other.
Classi pari_e_dispari() {
    Classi classi{};
    for (std::size_t n = 1; n < classi.size(); ++n) classi[n] = n % 2 == 0 ? 2 : 1;
    return classi;
}

}  // namespace

TEST(Classi, OtherNumbersOfTheSameGroupsOnEachLineAreTheSame) {
    const Classi classi = pari_e_dispari();
    const Matrice m = griglia({1, 2, 4, 3});
    EXPECT_TRUE(stesse_classi(m, m, classi));
    EXPECT_TRUE(stesse_classi(m, griglia({3, 4, 2, 1}), classi));
    EXPECT_TRUE(stesse_classi(m, griglia({90, 89, 3, 2}), classi));
}

TEST(Classi, ARowOrAColumnWithMoreOfOneGroupIsAnother) {
    const Classi classi = pari_e_dispari();
    EXPECT_FALSE(stesse_classi(griglia({1, 2, 4, 3}), griglia({1, 3, 4, 2}), classi));
    EXPECT_FALSE(stesse_classi(griglia({1, 3, 2, 4}), griglia({1, 2, 3, 4}), classi));
    EXPECT_FALSE(stesse_classi(griglia({1, 2, 3, 4}), griglia({1, 3, 2, 4}), classi));
}

TEST(Classi, OtherSizesAndEmptyCellsAreNeverTheSame) {
    const Classi classi{};
    EXPECT_TRUE(stesse_classi(griglia({1, 2, 3, 4}), griglia({4, 3, 2, 1}), classi));
    EXPECT_FALSE(stesse_classi(Matrice(2, 3), griglia({1, 2, 3, 4}), classi));
    EXPECT_FALSE(stesse_classi(griglia({1, 2, 3, 0}), griglia({1, 2, 3, 0}), classi));
    EXPECT_FALSE(stesse_classi(griglia({1, 2, 3, 91}), griglia({1, 2, 3, 91}), classi));
}

}  // namespace crossword
