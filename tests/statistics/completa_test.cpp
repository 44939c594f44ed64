#include <gtest/gtest.h>

#include "confronti.h"
#include "statistics/completamento.h"
#include "support/cartella.h"

using namespace statistics;
using crossword::Matrice;
using support::ArchivioFinto;
using support::griglia;
using support::iniziata;

namespace {

class Completa : public testing::Test {
protected:
    Completa() : records_(support::estrazioni(4200, 8)) {
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 6; ++x)
                piena_.scrivi(x, y, static_cast<std::int16_t>(1 + x + 6 * y));
        }
    }
    Conclusione completa() {
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

TEST_F(Completa, without_mstat_it_counts_frequencies_writes_the_file_and_starts_empty) {
    matrice_ = piena_;
    ASSERT_EQ(completa(), Conclusione::completa);
    EXPECT_TRUE(cartella_.esiste("mstat.dat"));
    EXPECT_EQ(posate_, 36);
    EXPECT_NE(matrice_, piena_);
    EXPECT_EQ(matrice_(0, 0), s_.statistica()[1].numero);
    EXPECT_GT(s_.statistica()[1].valore, s_.statistica()[90].valore);
    EXPECT_EQ(leggi_data(cartella_.file("mstat.dat")), records_.back().data);
}

TEST_F(Completa, with_a_current_mstat_the_numbers_laid_are_kept) {
    ASSERT_EQ(completa(), Conclusione::completa);
    const std::string scritto = cartella_.leggi("mstat.dat");
    const std::int16_t primo = s_.statistica()[1].numero;
    matrice_ = Matrice(6, 6);
    matrice_.scrivi(3, 2, primo);
    posate_ = 0;
    ASSERT_EQ(completa(), Conclusione::completa);
    EXPECT_EQ(posate_, 35);
    EXPECT_EQ(matrice_(3, 2), primo);
    EXPECT_EQ(cartella_.leggi("mstat.dat"), scritto);
}

TEST_F(Completa, a_full_grid_is_only_copied) {
    ASSERT_EQ(completa(), Conclusione::completa);
    matrice_ = piena_;
    posate_ = 0;
    ASSERT_EQ(completa(), Conclusione::completa);
    EXPECT_EQ(posate_, 0);
    EXPECT_EQ(matrice_, piena_);
}

TEST_F(Completa, a_later_draw_makes_the_file_out_of_date) {
    ASSERT_EQ(completa(), Conclusione::completa);
    records_.push_back(records_.front());
    records_.back().data = {2099, 1, 1};
    matrice_ = piena_;
    ASSERT_EQ(completa(), Conclusione::completa);
    EXPECT_NE(matrice_, piena_);
    EXPECT_EQ(leggi_data(cartella_.file("mstat.dat")), (Data{2099, 1, 1}));
}

TEST_F(Completa, what_cannot_be_had_leaves_the_crossword) {
    matrice_ = piena_;
    records_.resize(100);
    EXPECT_EQ(completa(), Conclusione::abbandonata);
    cartella_.scrivi("mstat.dat", "#2090-01-01#\r\n1,2,3\r\n");
    EXPECT_EQ(completa(), Conclusione::abbandonata);
    records_.clear();
    EXPECT_EQ(completa(), Conclusione::abbandonata);
    EXPECT_EQ(matrice_, piena_);
    EXPECT_EQ(posate_, 0);
}

TEST(CompletaConScelti, on_an_empty_crossword_the_first_cell_ends_it) {
    Matrice m(6, 6);
    EXPECT_EQ(completa_con_scelti(m, {}), Conclusione::abbandonata);
    EXPECT_EQ(m, Matrice(6, 6));
}

TEST(CompletaConScelti, the_list_goes_column_after_column_and_keeps_repetitions) {
    Matrice m(6, 6);
    m.scrivi(1, 0, 30);
    m.scrivi(0, 3, 20);
    m.scrivi(0, 1, 10);
    m.scrivi(4, 4, 10);
    EXPECT_EQ(numeri_scelti(m), (std::vector<int>{10, 20, 30, 10}));
}

TEST(CompletaConScelti, the_first_number_of_the_list_that_fits_is_taken_row_after_row) {
    Matrice m(6, 5);
    for (int x = 0; x < 6; ++x) m.scrivi(x, 4, static_cast<std::int16_t>(40 + x));
    int posati = 0;
    EXPECT_EQ(completa_con_scelti(m,
                                  [&](int riga, int colonna, int numero) {
                                      EXPECT_EQ(riga * 6 + colonna, posati++);
                                      EXPECT_EQ(m(colonna, riga), numero);
                                      return true;
                                  }),
              Conclusione::abbandonata);
    EXPECT_EQ(posati, 10);
    EXPECT_EQ(support::testo(m),
              "41 40 43 42 45 44\n"
              "42 43 40 41 0 0\n"
              "0 0 0 0 0 0\n"
              "0 0 0 0 0 0\n"
              "40 41 42 43 44 45\n");
}

TEST(CompletaConScelti, a_cell_that_admits_none_ends_it_with_what_was_laid) {
    Matrice m(6, 6);
    m.scrivi(0, 0, 7);
    m.scrivi(5, 0, 8);
    EXPECT_EQ(completa_con_scelti(m, {}), Conclusione::abbandonata);
    EXPECT_EQ(support::testo(m).substr(0, 12), "7 0 0 0 0 8\n");
    m = Matrice(6, 6);
    m.scrivi(0, 5, 7);
    EXPECT_EQ(completa_con_scelti(m, {}), Conclusione::abbandonata);
    EXPECT_EQ(m(0, 0), 0);
}

TEST(CompletaConScelti, equals_trying_every_number_in_turn) {
    support::Sorte sorte(17);
    int complete = 0;
    for (int prova = 0; prova < 150; ++prova) {
        const int colonne = 5 + sorte.sotto(8);
        const int righe = prova % 2 == 0 ? colonne : 5 + sorte.sotto(8);
        Matrice m = iniziata(sorte, colonne, righe, 10 + sorte.sotto(60));
        auto g = griglia(m);
        std::vector<int> lista;
        for (const auto& colonna : g) {
            for (const int n : colonna) {
                if (n != 0) lista.push_back(n);
            }
        }
        bool riuscito = true;
        for (int y = 0; y < righe && riuscito; ++y) {
            for (int x = 0; x < colonne && riuscito; ++x) {
                int& cella = semplice::a(semplice::a(g, x), y);
                for (std::size_t i = 0; cella == 0 && i < lista.size(); ++i) {
                    if (!semplice::segnato(g, x, y, lista[i])) cella = lista[i];
                }
                riuscito = cella != 0;
            }
        }
        EXPECT_EQ(completa_con_scelti(m, {}) == Conclusione::completa, riuscito);
        EXPECT_EQ(support::testo(m), support::testo(g));
        complete += riuscito ? 1 : 0;
    }
    EXPECT_GT(complete, 20);
    EXPECT_LT(complete, 140);
}

TEST(CompletaConScelti, numbers_off_the_board_are_never_pressed_and_a_stop_is_obeyed) {
    Matrice m(6, 6);
    m.scrivi(0, 5, 300);
    m.scrivi(1, 5, -4);
    EXPECT_EQ(completa_con_scelti(m, {}), Conclusione::abbandonata);
    m.scrivi(2, 5, 9);
    EXPECT_EQ(completa_con_scelti(m, [](int, int, int) { return false; }), Conclusione::interrotta);
    EXPECT_EQ(m(0, 0), 9);
    EXPECT_EQ(m(1, 0), 0);
}

}  // namespace
