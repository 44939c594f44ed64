// Unsaved numbers that outlive the program.
#include "systems/ripresa.h"

#include <csignal>
#include <ctime>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/disk.h"
#include "platform/runtime.h"
#include "support/cartella.h"

namespace systems {
namespace {

using crossword::Elenco;
using crossword::Gioco;

class RipresaTest : public ::testing::Test {
protected:
    /// From 0 to `n` - 1.
    int a_caso(int n) { return rnd_.fino_a(n) - 1; }
    /// Lays what the rule allows in some cells of a crossword of any game and size.
    void lavora(Sessione& s) {
        const int forma = a_caso(4) + 2;
        if (forma > 2) {
            s.passa_al_lotto();
            s.cambia_forma(forma);
        }
        const int minimo = s.gioco().lato_minimo();
        s.dimensioni(minimo + a_caso(16 - minimo), minimo + a_caso(16 - minimo));
        s.scegli_tipo(Elenco::orizzontali, a_caso(2));
        s.scegli_tipo(Elenco::verticali, a_caso(2));
        const int quanti = 1 + a_caso(80);
        for (int i = 0; i < quanti; ++i) posa_uno(s);
    }
    void posa_uno(Sessione& s) { s.posa({a_caso(s.colonne()), a_caso(s.righe())}, 1 + a_caso(90)); }
    static void uguali(const Sessione& a, const Sessione& b) {
        EXPECT_EQ(a.gioco(), b.gioco());
        EXPECT_EQ(a.matrice(), b.matrice());
        EXPECT_EQ(a.nome(), b.nome());
        EXPECT_EQ(a.totale(), b.totale());
        EXPECT_EQ(a.prezzo().totale, b.prezzo().totale);
        for (const Elenco e : {Elenco::orizzontali, Elenco::verticali, Elenco::diagonali}) {
            EXPECT_EQ(a.tipo(e), b.tipo(e));
        }
    }
    [[nodiscard]] std::string tenuto() const {
        return platform::leggi_tutto(cartella_.file(".tabellino-ripresa")).value_or("");
    }
    [[nodiscard]] bool c_e() const {
        return platform::esiste_file(cartella_.file(".tabellino-ripresa"));
    }
    support::Cartella cartella_;
    platform::Rnd rnd_;
};

TEST_F(RipresaTest, WhatWasUnsavedComesBackAsItWas) {
    for (int i = 0; i < 200; ++i) {
        Sessione prima(cartella_.programma());
        prima.avvia();
        lavora(prima);
        const std::string nome = i % 3 == 0 ? "" : i % 3 == 1 ? "prova" : "caff\xe8 \"\n,\x1b";
        prima.in_linea(nome);
        prima.segna_salvato(false);
        Ripresa(prima).tieni();

        Sessione dopo(cartella_.programma());
        dopo.avvia();
        Ripresa ripresa(dopo);
        const auto interrotto = ripresa.interrotto();
        ASSERT_TRUE(interrotto) << tenuto();
        EXPECT_EQ(interrotto->nome, nome);
        EXPECT_TRUE(ripresa.riprendi());
        uguali(prima, dopo);
        EXPECT_FALSE(dopo.salvato());
        EXPECT_FALSE(dopo.annullabile());
        EXPECT_TRUE(c_e());
        ripresa.dimentica();
    }
}

TEST_F(RipresaTest, NothingIsKeptOfWhatIsSavedOrEmpty) {
    Sessione s(cartella_.programma());
    s.avvia();
    Ripresa ripresa(s);
    ripresa.tieni();
    EXPECT_FALSE(c_e());
    s.segna_salvato(false);
    ripresa.tieni();
    EXPECT_FALSE(c_e());
    s.posa({0, 0}, 7);
    ripresa.tieni();
    EXPECT_TRUE(c_e());
    EXPECT_EQ(ripresa.interrotto()->numeri, 1);
    s.segna_salvato(true);
    ripresa.tieni();
    EXPECT_FALSE(c_e());
    s.posa({1, 0}, 8);
    ripresa.tieni();
    EXPECT_EQ(ripresa.interrotto()->numeri, 2);
    s.nuovo();
    ripresa.tieni();
    EXPECT_FALSE(c_e());
    EXPECT_FALSE(ripresa.interrotto());
    EXPECT_FALSE(ripresa.riprendi());
}

TEST_F(RipresaTest, WhatDidNotChangeIsNotWrittenAgain) {
    Sessione s(cartella_.programma());
    s.avvia();
    Ripresa ripresa(s);
    s.posa({0, 0}, 7);
    ripresa.tieni();
    cartella_.scrivi(".tabellino-ripresa", "altro");
    ripresa.tieni();
    EXPECT_EQ(tenuto(), "altro");
    s.posa({1, 0}, 8);
    ripresa.tieni();
    EXPECT_NE(tenuto(), "altro");
}

TEST_F(RipresaTest, ADamagedFileLaysNothingAgainstTheRule) {
    Sessione s(cartella_.programma());
    s.avvia();
    s.dimensioni(9, 9);
    for (int i = 0; i < 60; ++i) posa_uno(s);
    Ripresa(s).tieni();
    const std::string intero = tenuto();
    for (int i = 0; i < 400; ++i) {
        std::string guasto = intero;
        const int colpi = 1 + a_caso(4);
        for (int c = 0; c < colpi; ++c) {
            const auto dove = static_cast<std::size_t>(a_caso(static_cast<int>(guasto.size())));
            if (a_caso(3) == 0) {
                guasto.resize(dove + 1);
            } else {
                guasto[dove] = static_cast<char>(a_caso(3) == 0 ? a_caso(256) : '0' + a_caso(10));
            }
        }
        cartella_.scrivi(".tabellino-ripresa", guasto);
        Sessione dopo(cartella_.programma());
        dopo.avvia();
        if (!Ripresa(dopo).riprendi()) continue;
        for (int y = 0; y < dopo.righe(); ++y) {
            for (int x = 0; x < dopo.colonne(); ++x) {
                const int n = dopo.matrice()(x, y);
                ASSERT_TRUE(n >= 0 && n <= 90);
                ASSERT_TRUE(n == 0 || !dopo.sbarrati({x, y}).test(static_cast<std::size_t>(n)));
            }
        }
    }
}

TEST_F(RipresaTest, AGameThatDoesNotExistIsNotTakenUp) {
    Sessione s(cartella_.programma());
    s.avvia();
    s.passa_al_lotto();
    s.cambia_forma(3);
    s.posa({0, 0}, 7);
    Ripresa(s).tieni();
    const std::string intero = tenuto();
    const std::size_t forma = intero.find('3');
    ASSERT_NE(forma, std::string::npos);
    for (const char c : {'1', '2', '3', '4', '5', '6', '7'}) {
        std::string altro = intero;
        altro[forma] = c;
        cartella_.scrivi(".tabellino-ripresa", altro);
        Sessione dopo(cartella_.programma());
        dopo.avvia();
        EXPECT_EQ(Ripresa(dopo).riprendi(), c >= '3' && c <= '5') << c;
    }
}

TEST_F(RipresaTest, TwoHundredKillsLeaveWhatWasLaid) {
    for (int i = 0; i < 200; ++i) {
        std::array<int, 2> tubo{};
        ASSERT_EQ(::pipe(tubo.data()), 0);
        const pid_t figlio = ::fork();
        if (figlio == 0) {
            Sessione s(cartella_.programma());
            s.avvia();
            Ripresa ripresa(s);
            // The n-th step lays n in the n-th cell, so that any moment can be told from the file.
            for (int n = 1;; n = n % 36 + 1) {
                s.posa({(n - 1) % 6, (n - 1) / 6}, n);
                ripresa.tieni();
                if (n == 1) ::close(tubo[1]);
                if (n == 36) s.svuota();
            }
        }
        ::close(tubo[1]);
        char fine = 0;
        while (::read(tubo[0], &fine, 1) > 0) {
        }
        ::close(tubo[0]);
        const timespec attesa{0, a_caso(3000) * 1000};
        ::nanosleep(&attesa, nullptr);
        ::kill(figlio, SIGKILL);
        ::waitpid(figlio, nullptr, 0);

        Sessione dopo(cartella_.programma());
        dopo.avvia();
        Ripresa ripresa(dopo);
        ASSERT_TRUE(ripresa.riprendi()) << i << ": " << tenuto();
        const int quanti = ripresa.interrotto()->numeri;
        for (int n = 1; n <= 36; ++n) {
            ASSERT_EQ(dopo.matrice()((n - 1) % 6, (n - 1) / 6), n <= quanti ? n : 0) << i;
        }
    }
}

}  // namespace
}  // namespace systems
