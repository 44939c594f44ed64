#include <gtest/gtest.h>

#include "archivio_finto.h"
#include "statistics/completamento.h"
#include "support/cartella.h"

using namespace statistics;
using crossword::Matrice;
using support::ArchivioFinto;

namespace {

class Completa : public testing::Test {
protected:
    Completa() : records_(support::estrazioni(4200, 8)) {
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 6; ++x)
                piena_.scrivi(x, y, static_cast<std::int16_t>(1 + x + 6 * y));
        }
    }
    EsitoRiempimento completa() {
        ArchivioFinto draws(records_);
        return statistics::completa(s_, draws, cartella_.file("mstat.dat"), matrice_,
                                    {{}, [this](int, int, int) { return ++posate_ > 0; }});
    }
    std::vector<support::Record> records_;
    support::Cartella cartella_;
    Statistico s_;
    Matrice matrice_{6, 6};
    Matrice piena_{6, 6};
    int posate_ = 0;
};

TEST_F(Completa, WithoutMstatItCountsFrequenciesWritesTheFileAndStartsEmpty) {
    matrice_ = piena_;
    ASSERT_EQ(completa(), EsitoRiempimento::completa);
    EXPECT_TRUE(cartella_.esiste("mstat.dat"));
    EXPECT_EQ(posate_, 36);
    EXPECT_NE(matrice_, piena_);
    EXPECT_EQ(matrice_(0, 0), s_.statistica()[1].numero);
    EXPECT_GT(s_.statistica()[1].valore, s_.statistica()[90].valore);
    EXPECT_EQ(leggi_data(cartella_.file("mstat.dat")), records_.back().data);
}

TEST_F(Completa, WithACurrentMstatTheNumbersLaidAreKept) {
    ASSERT_EQ(completa(), EsitoRiempimento::completa);
    const std::string scritto = cartella_.leggi("mstat.dat");
    const std::int16_t primo = s_.statistica()[1].numero;
    matrice_ = Matrice(6, 6);
    matrice_.scrivi(3, 2, primo);
    posate_ = 0;
    ASSERT_EQ(completa(), EsitoRiempimento::completa);
    EXPECT_EQ(posate_, 35);
    EXPECT_EQ(matrice_(3, 2), primo);
    EXPECT_EQ(cartella_.leggi("mstat.dat"), scritto);
}

TEST_F(Completa, AFullGridIsOnlyCopied) {
    ASSERT_EQ(completa(), EsitoRiempimento::completa);
    matrice_ = piena_;
    posate_ = 0;
    ASSERT_EQ(completa(), EsitoRiempimento::completa);
    EXPECT_EQ(posate_, 0);
    EXPECT_EQ(matrice_, piena_);
}

TEST_F(Completa, ALaterDrawMakesTheFileOutOfDate) {
    ASSERT_EQ(completa(), EsitoRiempimento::completa);
    records_.push_back(records_.front());
    records_.back().data = {2099, 1, 1};
    matrice_ = piena_;
    ASSERT_EQ(completa(), EsitoRiempimento::completa);
    EXPECT_NE(matrice_, piena_);
    EXPECT_EQ(leggi_data(cartella_.file("mstat.dat")), (Data{2099, 1, 1}));
}

TEST_F(Completa, WhatCannotBeHadLeavesTheCrossword) {
    matrice_ = piena_;
    records_.resize(100);
    EXPECT_EQ(completa(), EsitoRiempimento::abbandonata);
    cartella_.scrivi("mstat.dat", "#2090-01-01#\r\n1,2,3\r\n");
    EXPECT_EQ(completa(), EsitoRiempimento::abbandonata);
    records_.clear();
    EXPECT_EQ(completa(), EsitoRiempimento::abbandonata);
    EXPECT_EQ(matrice_, piena_);
    EXPECT_EQ(posate_, 0);
}

TEST(NumeriScelti, TheListGoesColumnAfterColumnAndKeepsRepetitions) {
    Matrice m(6, 6);
    m.scrivi(1, 0, 30);
    m.scrivi(0, 3, 20);
    m.scrivi(0, 1, 10);
    m.scrivi(4, 4, 10);
    EXPECT_EQ(numeri_scelti(m), (std::vector<int>{10, 20, 30, 10}));
}

}  // namespace
