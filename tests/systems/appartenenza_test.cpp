// Developments and the systems that they are of.
#include "systems/appartenenza.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "platform/disk.h"
#include "support/cartella.h"
#include "support/guasti.h"

using namespace systems;

namespace {

namespace fs = std::filesystem;

Sistema sistema(int primo, crossword::Gioco gioco) {
    Sistema s;
    s.gioco = gioco;
    s.totale = 12;
    s.diagonali = "6";
    s.tipo_righe = s.tipo_colonne = s.tipo_diagonali = 0;
    s.matrice = crossword::Matrice(6, 6);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 6; ++x)
            s.matrice.scrivi(x, y, static_cast<std::int16_t>((primo + x + 6 * y) % 90 + 1));
    }
    return s;
}

class Appartenenza : public testing::TestWithParam<bool> {
protected:
    Appartenenza() {
        for (const char* nome : {"cr0600.rid", "cn0600.rid"})
            std::ofstream(cartella_.radice() + "/ridotti/" + nome)
                << (nome[1] == 'r' ? "1,2,3,4,5,6\r\n" : "1,2,3,4,5\r\n");
        cartella_.scrivi("sonda", "x");
        con_attributi_ = platform::annota(cartella_.file("sonda"), "x");
        fs::remove(cartella_.file("sonda"));
    }
    [[nodiscard]] static crossword::Gioco gioco() {
        return GetParam() ? crossword::Gioco::lotto() : crossword::Gioco();
    }
    static Sistema sistema(int primo) { return ::sistema(primo, gioco()); }
    [[nodiscard]] Coppia coppia(const std::string& nome) const {
        return {cartella_.programma(), nome, gioco()};
    }
    bool salva(const std::string& nome, const Sistema& s) const {
        return scrivi_sistema(cartella_.programma(), nome, s);
    }
    /// Develops `s` and puts it beside the file `nome`.
    bool sviluppa(const std::string& nome, const Sistema& s) const {
        development::Richiesta r;
        r.matrice = s.matrice;
        r.gioco = gioco();
        r.tipo_righe = s.tipo_righe;
        r.cartella = cartella_.programma();
        r.ridotti = cartella_.radice() + "/ridotti";
        r.senza_ripetizioni = true;
        development::Elaborazione lavoro(r, {});
        EXPECT_EQ(lavoro.sviluppa(), development::Conclusione::completa);
        return concludi_sviluppo(coppia(nome), s, lavoro, true);
    }
    Sistema elabora(const std::string& nome, int primo) const {
        Sistema s = sistema(primo);
        s.senza_ripetizioni = 14;
        EXPECT_TRUE(salva_per_elaborare(coppia(nome), s));
        EXPECT_TRUE(sviluppa(nome, s));
        return s;
    }
    [[nodiscard]] bool proprio(const std::string& nome) const {
        return sviluppo_proprio(coppia(nome));
    }
    support::Cartella cartella_;
    bool con_attributi_ = false;
};

INSTANTIATE_TEST_SUITE_P(Giochi, Appartenenza, testing::Bool());

TEST_P(Appartenenza, ImprontaCambiaConTuttoCioCheCambiaLeCombinazioni) {
    const Sistema s = sistema(1);
    const std::string sua = impronta(s);
    EXPECT_EQ(sua.size(), 16U);
    Sistema altro = s;
    altro.totale = 99;
    altro.diagonali = "x";
    altro.senza_ripetizioni = 7;
    EXPECT_EQ(impronta(altro), sua);
    altro = s;
    altro.matrice.scrivi(5, 5, 90);
    EXPECT_NE(impronta(altro), sua);
    for (std::int32_t Sistema::*tipo :
         {&Sistema::tipo_righe, &Sistema::tipo_colonne, &Sistema::tipo_diagonali}) {
        altro = s;
        altro.*tipo = 1;
        EXPECT_NE(impronta(altro), sua);
    }
    altro = s;
    altro.gioco = crossword::Gioco::lotto(3);
    EXPECT_NE(impronta(altro), sua);
    // A rectangle has no diagonals.
    altro.matrice = crossword::Matrice(6, 7);
    const std::string rettangolo = impronta(altro);
    altro.tipo_diagonali = 4;
    EXPECT_EQ(impronta(altro), rettangolo);
}

TEST_P(Appartenenza, UnFileRilettoHaLaStessaImpronta) {
    const Sistema s = sistema(3);
    ASSERT_TRUE(salva("a", s));
    EXPECT_EQ(impronta(leggi_sistema(cartella_.programma(), "a", gioco())), impronta(s));
}

TEST_P(Appartenenza, SenzaSegnoCiSiFida) {
    ASSERT_TRUE(salva("a", sistema(1)));
    EXPECT_TRUE(proprio("a"));
    std::ofstream(coppia("a").sviluppo()) << "1,2,3,4,5,6\r\n";
    EXPECT_TRUE(proprio("a"));
    EXPECT_TRUE(proprio("manca"));
}

TEST_P(Appartenenza, UnoSviluppoVecchioSiRiconosceDopoUnSalvataggio) {
    if (!con_attributi_) GTEST_SKIP() << "this disk keeps no attributes";
    const Sistema s = elabora("a", 1);
    EXPECT_TRUE(proprio("a"));
    ASSERT_TRUE(salva("a", sistema(2)));
    EXPECT_FALSE(proprio("a"));
    ASSERT_TRUE(salva("a", s));
    EXPECT_TRUE(proprio("a"));
    // Changed there and back, and saved without its count: nothing of it would be checked.
    ASSERT_TRUE(salva("a", sistema(1)));
    EXPECT_FALSE(proprio("a"));
}

TEST_P(Appartenenza, AncheQuelloDiUnaVersioneCheNonSegnava) {
    if (!con_attributi_) GTEST_SKIP() << "this disk keeps no attributes";
    ASSERT_TRUE(salva("a", sistema(1)));
    std::ofstream(coppia("a").sviluppo()) << "1,2,3,4,5,6\r\n";
    ASSERT_TRUE(salva("a", sistema(1)));
    EXPECT_TRUE(proprio("a"));
    ASSERT_TRUE(salva("a", sistema(2)));
    EXPECT_FALSE(proprio("a"));
    // One that was alone is no new system's.
    std::ofstream(coppia("solo").sviluppo()) << "1,2,3,4,5,6\r\n";
    ASSERT_TRUE(salva("solo", sistema(1)));
    EXPECT_FALSE(proprio("solo"));
}

TEST_P(Appartenenza, WhatCannotBeTakenAwayKeepsItsSystem) {
    ASSERT_TRUE(salva("a", sistema(1)));
    cartella_.scrivi("a" + std::string(gioco().estensione_sviluppo()), "di prima");
    {
        support::Disco disco;
        disco.unlink_fallisce = true;
        EXPECT_FALSE(salva_per_elaborare(coppia("a"), sistema(2)));
    }
    EXPECT_EQ(leggi_sistema(cartella_.programma(), "a", gioco()).matrice, sistema(1).matrice);
    EXPECT_TRUE(salva_per_elaborare(coppia("a"), sistema(2)));
    EXPECT_FALSE(platform::esiste_file(coppia("a").sviluppo()));
}

TEST_P(Appartenenza, ElaborandoUnSistemaCambiatoLoSviluppoVecchioVaViaPerPrimo) {
    const Sistema s = elabora("a", 1);
    EXPECT_TRUE(salva_per_elaborare(coppia("a"), s));
    EXPECT_TRUE(fs::exists(coppia("a").sviluppo()));
    {
        // Not even a disk that then refuses the system leaves them together.
        support::Disco disco;
        disco.spazio = 0;
        EXPECT_FALSE(salva_per_elaborare(coppia("a"), sistema(2)));
    }
    EXPECT_FALSE(fs::exists(coppia("a").sviluppo()));
    EXPECT_EQ(platform::leggi_tutto(coppia("a").sistema()), testo_sistema(s));
}

TEST_P(Appartenenza, NessunoSviluppoSiPubblicaAccantoAUnAltroSistema) {
    elabora("a", 1);
    EXPECT_FALSE(sviluppa("a", sistema(2)));
    EXPECT_FALSE(fs::exists(coppia("a").sviluppo()));
    EXPECT_EQ(platform::Dir(cartella_.programma(), "temp*").size(), 0U);
}

TEST_P(Appartenenza, SenzaAttributiTuttoVaComePrima) {
    support::Disco disco;
    disco.senza_attributi = true;
    elabora("a", 1);
    EXPECT_TRUE(proprio("a"));
    ASSERT_TRUE(salva("a", sistema(2)));
    EXPECT_TRUE(proprio("a"));
}

TEST_P(Appartenenza, ISegniVannoConLeCopieEINomi) {
    if (!con_attributi_) GTEST_SKIP() << "this disk keeps no attributes";
    elabora("a", 1);
    ASSERT_TRUE(salva("b", sistema(2)));
    ASSERT_TRUE(salva("vecchio", sistema(3)));
    std::ofstream(coppia("vecchio").sviluppo()) << "1,2,3,4,5,6\r\n";
    duplica(coppia("a"), coppia("c"), [] {});
    EXPECT_TRUE(proprio("c"));
    ASSERT_TRUE(salva("c", sistema(4)));
    duplica(coppia("c"), coppia("d"), [] {});
    EXPECT_FALSE(proprio("d"));
    // The source has no development, so the target keeps its own, which is no longer its.
    duplica(coppia("b"), coppia("a"), [] {});
    EXPECT_FALSE(proprio("a"));
    duplica(coppia("b"), coppia("vecchio"), [] {});
    EXPECT_FALSE(proprio("vecchio"));
    // A development that is renamed beside another's system.
    ASSERT_TRUE(salva("e", sistema(5)));
    std::ofstream(coppia("e").sviluppo()) << "1,2,3,4,5,6\r\n";
    ASSERT_TRUE(salva("f", sistema(6)));
    rinomina(coppia("e"), "f");
    EXPECT_TRUE(fs::exists(coppia("f").sviluppo()));
    EXPECT_FALSE(proprio("f"));
}

}  // namespace
