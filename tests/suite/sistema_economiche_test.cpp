// The command with systems that play economical tables.
#include <fstream>

#include "suite/sistema_prova.h"

using namespace prova;

namespace {

class SistemaEconomiche : public Sistema {
protected:
    /// A system whose rows play the economical table of that number.
    std::string con_righe(int numero, Gioco gioco = Gioco()) {
        const std::string file = metti("a", gioco, 9, 9);
        systems::Sistema s = systems::leggi_sistema(cartella.programma(), "a", gioco);
        s.tipo_righe = numero;
        systems::scrivi_sistema(cartella.programma(), "a", s);
        return file;
    }
};

TEST_F(SistemaEconomiche, ContaESviluppaSenzaCheSianoAccese) {
    const std::string a = con_righe(56);
    const auto v = comando.json({"conta", a})[0];
    EXPECT_EQ(v["linee"]["orizzontali"]["indice"].intero(), 56);
    EXPECT_EQ(v["linee"]["orizzontali"]["tipo"].testo,
              "Economica: 7 Sestine (8,33 %) - Min.1(5) con 6 estratti");
    EXPECT_EQ(v["totale"].intero(), 9 * 7 + 9 * 84 + 2 * 84 + 4 * 28);
    EXPECT_EQ(comando({"sviluppa", "--scrivi", a}).codice, 0);
    EXPECT_TRUE(cartella.esiste("a.col"));
    EXPECT_EQ(systems::leggi_sistema(cartella.programma(), "a", Gioco()).tipo_righe, 56);
    EXPECT_EQ(comando({"analisi", a}).codice, 0);
    EXPECT_EQ(comando({"spoglio", "--numeri", "1,2,3,4,5,7", "--jolly", "6", a}).codice, 0);
}

TEST_F(SistemaEconomiche, SenzaLaTabellaNonSviluppaEDiceQuale) {
    const std::string a = con_righe(56);
    const std::string tabella = cartella.radice() + "/ridotti/cr0956.rid";
    std::ofstream(tabella) << "1,2,3\r\n";
    Detto detto = comando({"sviluppa", "--scrivi", a});
    EXPECT_EQ(detto.codice, 1);
    EXPECT_NE(detto.errori.find("la tabella cr0956.rid in "), std::string::npos) << detto.errori;
    EXPECT_NE(detto.errori.find("è guasta"), std::string::npos) << detto.errori;
    std::filesystem::remove(tabella);
    detto = comando({"sviluppa", "--scrivi", a});
    EXPECT_EQ(detto.codice, 1);
    EXPECT_NE(detto.errori.find("manca la tabella cr0956.rid"), std::string::npos) << detto.errori;
    EXPECT_FALSE(cartella.esiste("a.col"));
    const auto v = comando.json({"conta", a})[0];
    EXPECT_EQ(v["linee"]["orizzontali"]["tipo"].testo, "Manca la tabella cr0956.rid");
    EXPECT_EQ(v["linee"]["orizzontali"]["combinazioni"].testo, "");
}

}  // namespace
