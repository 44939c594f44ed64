// The session on a disk that does not give up an older development.
#include <gtest/gtest.h>

#include "support/cartella.h"
#include "support/guasti.h"
#include "systems/passo.h"
#include "systems/sessione.h"

using systems::Elaborato;

namespace {

/// With marks on the files, and without.
class SviluppoRimasto : public testing::TestWithParam<bool> {
protected:
    SviluppoRimasto() {
        disco.senza_attributi = !GetParam();
        cartella.con_tabelle();
        s.avvia();
        for (int i = 0; i < 36; ++i) posa(i, 1 + i);
    }
    void posa(int i, int numero) {
        ASSERT_EQ(s.posa({i % 6, i / 6}, numero), systems::Posata::posata);
    }
    /// Develops, changes a number, and develops again while nothing can be deleted.
    void cambia_e_sviluppa() {
        ASSERT_EQ(s.salva_come("a"), systems::Salvataggio::salvato);
        ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
        sistema = cartella.leggi("a.sen");
        sviluppo = cartella.leggi("a.col");
        posa(0, 90);
        disco.unlink_fallisce = true;
        ASSERT_EQ(s.sviluppa({}), Elaborato::rimasto);
    }

    support::Disco disco;
    support::Cartella cartella;
    systems::Sessione s{cartella.programma()};
    std::string sistema;
    std::string sviluppo;
};

INSTANTIATE_TEST_SUITE_P(Dischi, SviluppoRimasto, testing::Bool());

}  // namespace

TEST_P(SviluppoRimasto, NonPassaPerQuelloDelCruciverbaSulloSchermo) {
    cambia_e_sviluppa();
    // System and development are a pair as before, and not what is on the screen.
    EXPECT_EQ(cartella.leggi("a.sen"), sistema);
    EXPECT_EQ(cartella.leggi("a.col"), sviluppo);
    EXPECT_TRUE(s.sviluppo_presente());
    EXPECT_FALSE(s.sviluppo_proprio());
    EXPECT_EQ(systems::prossimo_passo(s).stato, "Salvato, ma lo sviluppo è di un altro cruciverba");
}

TEST_P(SviluppoRimasto, QuandoIlDiscoLoLasciaSiRifa) {
    cambia_e_sviluppa();
    disco.unlink_fallisce = false;
    EXPECT_EQ(s.sviluppa({}), Elaborato::completo);
    EXPECT_TRUE(s.sviluppo_proprio());
    EXPECT_NE(cartella.leggi("a.col"), sviluppo);
}

TEST_P(SviluppoRimasto, RiapertoIlSistemaESuo) {
    cambia_e_sviluppa();
    ASSERT_TRUE(s.apri("a"));
    EXPECT_TRUE(s.sviluppo_proprio());
}
