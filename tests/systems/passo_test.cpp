// The sentence at the foot of the main form: a state in, a sentence out.
#include "systems/passo.h"

#include <gtest/gtest.h>

#include "platform/disk.h"
#include "support/cartella.h"

using systems::esito_detto;
using systems::Operazione;
using systems::prossimo_passo;
using systems::Salvataggio;
using systems::Sessione;

namespace {

class PassoTest : public testing::Test {
protected:
    void SetUp() override {
        cartella.con_tabelle();
        s.avvia();
    }
    /// Lays for each cell but the last `lasciate` ones the next number that it may take.
    void riempi(int lasciate = 0) {
        for (int i = 0; i < s.colonne() * s.righe() - lasciate; ++i) {
            const systems::Cella cella{i % s.colonne(), i / s.colonne()};
            std::size_t n = 1 + static_cast<std::size_t>(i * 7 % 90);
            while (s.sbarrati(cella).test(n)) n = n % 90 + 1;
            ASSERT_EQ(s.posa(cella, static_cast<int>(n)), systems::Posata::posata);
        }
    }
    void elaborato() {
        riempi();
        ASSERT_EQ(s.salva_come("prova"), Salvataggio::salvato);
        ASSERT_EQ(s.sviluppa({}), systems::Elaborato::completo);
    }
    [[nodiscard]] std::string frase() const { return prossimo_passo(s).frase(); }

    support::Cartella cartella;
    Sessione s{cartella.programma()};
};

const std::string salvato = "Salvato: elaboratelo (F5)";
const std::string elaborato_14 =
    "Elaborato: 14 combinazioni, 7,00 Euro · F6 le mostra, F7 le controlla, F9 le analizza";

TEST_F(PassoTest, AnEmptyCrosswordSaysHowToBegin) {
    EXPECT_EQ(frase(),
              "Cruciverba vuoto: scegliete un numero dal tabellone, o «Genera» ne dispone "
              "uno intero");
}

TEST_F(PassoTest, NumbersThatAreMissingAreCounted) {
    riempi(12);
    EXPECT_EQ(frase(), "Mancano 12 numeri");
    riempi(1);
    EXPECT_EQ(frase(), "Manca un numero");
}

TEST_F(PassoTest, TheRoadFromFullToElaborated) {
    riempi();
    EXPECT_EQ(frase(), "Cruciverba completo: salvatelo (Ctrl+S)");
    ASSERT_EQ(s.salva_come("prova"), Salvataggio::salvato);
    EXPECT_EQ(frase(), salvato);
    ASSERT_EQ(s.sviluppa({}), systems::Elaborato::completo);
    EXPECT_EQ(frase(), elaborato_14);
}

TEST_F(PassoTest, AnotherTypeAsksForASaveAndAnElaboration) {
    s.dimensioni(8, 8);
    elaborato();
    ASSERT_TRUE(s.scegli_tipo(crossword::Elenco::orizzontali, 1));
    EXPECT_EQ(frase(), "Sistema cambiato: salvatelo (Ctrl+S)");
    ASSERT_EQ(s.salva(), Salvataggio::salvato);
    EXPECT_EQ(frase(), "Salvato dopo l'elaborazione: elaboratelo di nuovo (F5)");
    s.nuovo();
    ASSERT_TRUE(s.apri("prova"));
    EXPECT_EQ(frase(), "Salvato, ma lo sviluppo è di un altro cruciverba: elaboratelo (F5)");
}

TEST_F(PassoTest, AnOpenedSystemStandsWhereItWasLeft) {
    elaborato();
    s.nuovo();
    ASSERT_TRUE(s.apri("prova"));
    EXPECT_EQ(frase(), elaborato_14);
    ASSERT_EQ(platform::Kill(cartella.file("prova.col")), platform::Esito::ok);
    EXPECT_EQ(frase(), salvato);
}

TEST_F(PassoTest, WithRepetitionsAllCombinationsCount) {
    s.ripetizioni(true);
    elaborato();
    EXPECT_EQ(frase(), elaborato_14);
    s.nuovo();
    ASSERT_TRUE(s.apri("prova"));
    EXPECT_EQ(frase(),
              "Elaborato: 14 combinazioni · F6 le mostra, F7 le controlla, F9 le analizza");
}

TEST_F(PassoTest, WhatIsShownOfALongJobIsItsBar) {
    riempi();
    ASSERT_EQ(s.salva_come("prova"), Salvataggio::salvato);
    std::string intanto = "nothing";
    systems::SeguitoSviluppo seguito;
    seguito.avanzamento = [&](std::int32_t) {
        intanto = frase();
        return true;
    };
    ASSERT_EQ(s.sviluppa(seguito), systems::Elaborato::completo);
    EXPECT_EQ(intanto, "");
}

TEST(EsitoDetto, WhatWentWellOrHasABoxIsNotTold) {
    EXPECT_EQ(esito_detto(Salvataggio::salvato), "");
    EXPECT_EQ(esito_detto(Salvataggio::incompleto), "");
    EXPECT_EQ(esito_detto(Salvataggio::non_scritto),
              "Il sistema non è stato scritto: il disco non lo ha accettato");
    EXPECT_EQ(esito_detto(systems::Elaborato::completo), "");
    EXPECT_EQ(esito_detto(systems::Elaborato::senza_file),
              "Nessuna combinazione: mancano le tabelle di questi tipi di sistema");
    EXPECT_EQ(esito_detto(systems::Elaborato::rimasto),
              "Il disco non ha accettato lo sviluppo, e tiene quello di prima");
    EXPECT_EQ(esito_detto(systems::Generato::poche_estrazioni), "");
    EXPECT_FALSE(esito_detto(systems::Generato::completo).empty());
    EXPECT_FALSE(esito_detto(systems::Generato::gia_iniziato).empty());
    EXPECT_FALSE(esito_detto(systems::Generato::abbandonato).empty());
}

TEST(EsitoDetto, ALongJobTellsHowItWasCutShort) {
    EXPECT_EQ(esito_detto(systems::Elaborato::guasto),
              "Nessuno sviluppo: il disco non lo ha accettato");
    EXPECT_EQ(esito_detto(systems::Elaborato::interrotto), "Elaborazione interrotta");
    EXPECT_EQ(esito_detto(systems::Generato::interrotto), "Generazione interrotta");
    EXPECT_EQ(esito_detto(systems::Generato::abbandonato),
              "Il sistema non è stato generato: l'archivio delle estrazioni non basta");
}

TEST(EsitoDetto, AFullDiskIsToldBeforeAllElse) {
    using platform::Esito;
    EXPECT_EQ(esito_detto(Operazione::importato, "mio", {Esito::errore, Esito::disco_pieno}),
              "Il sistema «mio» non è stato importato: sul disco non c'è più posto");
}

TEST(EsitoDetto, AnOperationTellsWhatBecameOfThePair) {
    using platform::Esito;
    EXPECT_EQ(esito_detto(Operazione::inviato, "mio", {Esito::ok, Esito::assente}, "/usb"),
              "Il sistema «mio» è stato inviato in /usb");
    EXPECT_EQ(esito_detto(Operazione::eliminato, "mio", {Esito::ok, Esito::ok}),
              "Il sistema «mio» è stato eliminato");
    EXPECT_EQ(esito_detto(Operazione::importato, "mio", {}), "");
    EXPECT_EQ(esito_detto(Operazione::copiato, "mio", {Esito::ok, Esito::disco_pieno}),
              "Il sistema «mio» non è stato copiato: sul disco non c'è più posto");
    EXPECT_EQ(esito_detto(Operazione::rinominato, "mio", {Esito::errore, Esito::ok}),
              "Il sistema «mio» non è stato rinominato per intero: il disco non lo ha accettato");
}

}  // namespace
