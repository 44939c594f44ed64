// The commands as this system starts them: words with any letters, outputs byte for byte.
#include <gtest/gtest.h>
#include <string>

#include "avvio.h"
#include "platform/disk.h"
#include "support/cartella.h"

using namespace platform;

namespace {

class ComandiWin32 : public testing::Test {
protected:
    int esegui(const std::vector<std::string>& parole) {
        const int codice =
            support::avvia(RIDOTTI, parole, cartella_.file("uscita"), cartella_.file("errori"));
        uscita_ = cartella_.leggi("uscita");
        errori_ = cartella_.leggi("errori");
        return codice;
    }
    support::Cartella cartella_;
    std::string uscita_;
    std::string errori_;
};

TEST_F(ComandiWin32, AccentsGoOutAsTheyStand) {
    EXPECT_EQ(esegui({"--aiuto"}), 0);
    EXPECT_NE(uscita_.find("la probabilità di ogni vincita"), std::string::npos);
    EXPECT_EQ(uscita_.find('\r'), std::string::npos);
}

TEST_F(ComandiWin32, AFileIsNamedWithAnyLettersAndEitherSlash) {
    const std::string nome = cartella_.file("è così – 漢.rid");
    ASSERT_EQ(sostituisci(nome, "1,2,3,4,5,6\r\n"), Esito::ok);
    EXPECT_EQ(esegui({"verifica", "--garanzia", "6:6", nome}), 0) << errori_;
    std::string rovesciato = nome;
    for (char& c : rovesciato) c = c == '/' ? '\\' : c;
    EXPECT_EQ(esegui({"verifica", "--garanzia", "6:6", rovesciato}), 0) << errori_;
    EXPECT_NE(esegui({"verifica", "--garanzia", "6:6", nome + "x"}), 0);
    EXPECT_TRUE(errori_.starts_with(da_mostrare(nome) + "x:")) << errori_;
}

TEST_F(ComandiWin32, WhatACommandWritesHasTheToldLineEnds) {
    const std::string dove = cartella_.file("tabelle");
    ASSERT_EQ(esegui({"integrali", dove}), 0) << errori_;
    EXPECT_EQ(leggi_tutto(dove + "/cr0600.rid"), "1,2,3,4,5,6\r\n");
}

}  // namespace
