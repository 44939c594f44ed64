// The slips that the print options hand to the tool of the suite.
#include "support/altre_finestre.h"
#include "support/stampa.h"

using platform::q;
using support::Icona;
using support::Mostrato;
using support::Pulsanti;
using support::Stampa;

namespace {

using Mostrati = std::vector<Mostrato>;

const Mostrato schedine_da_elaborare{
    "Per poter stampare le schedine di un sistema bisogna prima elaborarlo.", "Tabellino",
    Pulsanti::ok, Icona::informazione};

const Mostrato danneggiato{"Reinstalla Sortivario dal tuo CD-ROM.\r\nFile Danneggiato!",
                           "Sortivario 2004", Pulsanti::ok, Icona::nessuna};

const char* const strumento = "#!/bin/sh\npwd > partito.tmp\nmv partito.tmp partito\n";

}  // namespace

TEST(StampaSchedine, SenzaSviluppoAvvisa) {
    Stampa s;
    s.in_linea();
    s.nella_suite("stampa.exe", strumento, true);
    s.apri();
    s.conferma(2);
    EXPECT_EQ(s.p.mostrati(), Mostrati{schedine_da_elaborare});
    EXPECT_FALSE(s.chiuso());
    EXPECT_EQ(s.dalla_suite("trans"), "");
}

TEST(StampaSchedine, ScriveTransEAvviaLoStrumento) {
    for (const char* nome : {"stampa.exe", "stampa", "Stampa.EXE"}) {
        Stampa s;
        s.in_linea();
        s.sviluppato();
        s.nella_suite(nome, strumento, true);
        s.nella_suite("trans", "prima\r\nancora\r\n");
        s.apri();
        s.conferma(2);
        EXPECT_TRUE(s.chiuso());
        EXPECT_TRUE(s.p.mostrati().empty());
        EXPECT_EQ(s.dalla_suite("trans"), "\"cruciverba\",\"prova\"\r\n");
        EXPECT_TRUE(QTest::qWaitFor([&s] { return !s.dalla_suite("partito").empty(); })) << nome;
        EXPECT_EQ(s.dalla_suite("partito"),
                  std::filesystem::canonical(s.p.cartella.radice()).string() + "\n");
    }
}

TEST(StampaSchedine, SenzaStrumentoLoDice) {
    for (const bool guasto : {false, true}) {
        Stampa s;
        s.in_linea();
        s.sviluppato();
        if (guasto) s.nella_suite("stampa.exe", "MZ, no program here");
        s.apri();
        s.conferma(2);
        EXPECT_EQ(s.p.mostrati(), Mostrati{danneggiato});
        EXPECT_TRUE(s.chiuso());
        EXPECT_EQ(s.dalla_suite("trans"), "\"cruciverba\",\"prova\"\r\n");
    }
}

TEST(StampaSchedine, ConLoStrumentoApertoNonScriveENonAvvia) {
    Stampa s;
    s.in_linea();
    s.sviluppato();
    s.nella_suite("stampa.exe", strumento, true);
    s.nella_suite("sch", "");
    s.nella_suite("trans", "prima");
    s.apri();
    s.conferma(2);
    EXPECT_TRUE(s.chiuso());
    EXPECT_TRUE(s.p.mostrati().empty());
    EXPECT_EQ(s.dalla_suite("trans"), "prima");
    EXPECT_EQ(s.dalla_suite("partito"), "");
}

TEST(StampaSchedine, ConLoStrumentoApertoAttivaLaSuaFinestra) {
    Stampa s;
    s.in_linea();
    s.sviluppato();
    s.nella_suite("sch", "");
    support::AltreFinestre altre(
        {{2, "Tabellino", false}, {5, "Stampante", false}, {6, "Stampa", false}});
    s.apri();
    s.conferma(2);
    EXPECT_EQ(altre.fatte, std::vector<std::string>{"attiva 6"});
    EXPECT_TRUE(s.chiuso());
}

TEST(StampaSchedine, SenzaIlSegnoNonSiAttivaNulla) {
    Stampa s;
    s.in_linea();
    s.sviluppato();
    s.nella_suite("stampa.exe", strumento, true);
    support::AltreFinestre altre({{6, "stampa", false}});
    s.apri();
    s.conferma(2);
    EXPECT_TRUE(altre.fatte.empty());
    EXPECT_EQ(s.dalla_suite("trans"), "\"cruciverba\",\"prova\"\r\n");
}
