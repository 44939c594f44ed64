// What a crash left unsaved is offered once, at the next start.
#include "support/programma.h"
#include "systems/ripresa.h"

using support::Mostrato;
using support::Programma;
using support::Pulsanti;

namespace {

class RipresaForm : public ::testing::Test {
protected:
    /// As a run that was killed leaves it.
    void interrompi(const std::string& nome = "") const {
        systems::Sessione s(p.cartella.programma());
        s.avvia();
        s.posa({0, 0}, 7);
        s.posa({1, 0}, 8);
        s.in_linea(nome);
        systems::Ripresa(s).tieni();
    }
    [[nodiscard]] bool c_e() const {
        return platform::esiste_file(p.cartella.file(".tabellino-ripresa"));
    }
    Programma p;
};

TEST_F(RipresaForm, AfterAProperEndNothingIsAsked) {
    p.form1.offri_ripresa();
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(RipresaForm, AcceptedTheNumbersAreLaidAndUnsaved) {
    interrompi();
    p.risposte = {support::vbYes};
    p.form1.offri_ripresa();
    const Mostrato domanda{
        "L'ultima volta il programma si è interrotto prima di un salvataggio.\n"
        "Il cruciverba non aveva ancora un nome e conteneva 2 numeri.\n\nRiprenderlo?",
        "Tabellino", Pulsanti::si_no};
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{domanda});
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(0, 0), "7");
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(0, 1), "8");
    EXPECT_FALSE(p.form1.sessione.salvato());
}

TEST_F(RipresaForm, TheNameComesBackToo) {
    interrompi("prova");
    p.risposte = {support::vbYes};
    p.form1.offri_ripresa();
    const auto mostrati = p.mostrati();
    ASSERT_EQ(mostrati.size(), 1U);
    EXPECT_TRUE(mostrati[0].testo.contains("era del sistema prova e conteneva 2 numeri"));
    EXPECT_EQ(p.form1.Tag(), "prova");
}

TEST_F(RipresaForm, ANameOfAnyLettersAndASingleNumberAreTold) {
    systems::Sessione s(p.cartella.programma());
    s.avvia();
    s.posa({0, 0}, 7);
    s.in_linea("a%2b");
    systems::Ripresa(s).tieni();
    p.risposte = {support::vbNo};
    p.form1.offri_ripresa();
    const auto mostrati = p.mostrati();
    ASSERT_EQ(mostrati.size(), 1U);
    EXPECT_TRUE(mostrati[0].testo.contains("del sistema a%2b e conteneva un numero."));
}

TEST_F(RipresaForm, LasciataSenzaRispostaNonPerdeNulla) {
    interrompi();
    const auto scritta = platform::scrivania().risponde;
    bool vale_si = false;
    platform::scrivania().risponde = [&](const platform::Messaggio& m) {
        vale_si = m.lasciata_vale_si;
        return platform::vbYes;
    };
    p.form1.offri_ripresa();
    EXPECT_TRUE(vale_si);
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(0, 0), "7");
    platform::scrivania().risponde = scritta;
}

TEST_F(RipresaForm, RefusedItIsForgotten) {
    interrompi();
    p.risposte = {support::vbNo};
    p.form1.offri_ripresa();
    p.mostrati();
    EXPECT_FALSE(c_e());
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(0, 0), "");
    p.form1.offri_ripresa();
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(RipresaForm, AProperEndForgetsIt) {
    interrompi();
    p.risposte = {support::vbYes};
    p.form1.offri_ripresa();
    p.mostrati();
    EXPECT_TRUE(c_e());
    p.form1.close();
    EXPECT_FALSE(c_e());
}

TEST_F(RipresaForm, WhatIsLaidIsKeptAsideWithoutASave) {
    p.form1.offri_ripresa();
    p.cella(0, 0);
    p.numero(5);
    EXPECT_FALSE(c_e());
    auto* orologio = p.form1.findChild<QTimer*>("ripresa");
    ASSERT_NE(orologio, nullptr);
    EXPECT_TRUE(orologio->isActive());
    EXPECT_LE(orologio->interval(), 5000);
    orologio->setInterval(0);
    QApplication::processEvents();
    EXPECT_TRUE(c_e());
}

}  // namespace
