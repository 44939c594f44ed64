// Economical tables in the session: lists, counts, files and what is missing.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

#include "analysis/schema.h"
#include "development/economiche.h"
#include "development/tabelle.h"
#include "platform/disk.h"
#include "support/cartella.h"
#include "systems/ripresa.h"
#include "systems/sessione.h"

using crossword::Elenco;
using crossword::Gioco;
using systems::Elaborato;
using systems::Salvataggio;
using systems::Sessione;

namespace {

constexpr std::array tutti = {Elenco::orizzontali, Elenco::verticali, Elenco::diagonali};

class SessioneEconomiche : public testing::Test {
protected:
    void SetUp() override {
        cartella.con_tabelle();
        s.avvia();
    }
    static void riempi(Sessione& sessione) {
        for (int x = 0; x < sessione.colonne(); ++x) {
            for (int y = 0; y < sessione.righe(); ++y) {
                int numero = (x * 7 + y * 13) % 90 + 1;
                while (sessione.posa({x, y}, numero) != systems::Posata::posata)
                    numero = numero % 90 + 1;
            }
        }
    }
    /// A full crossword with these types, saved as `nome`.
    void salvato(const std::string& nome, int lato, int righe, int colonne, int diagonali) {
        s.dimensioni(lato, lato);
        ASSERT_TRUE(s.scegli_indice(Elenco::orizzontali, righe));
        ASSERT_TRUE(s.scegli_indice(Elenco::verticali, colonne));
        ASSERT_TRUE(s.scegli_indice(Elenco::diagonali, diagonali));
        riempi(s);
        ASSERT_EQ(s.salva_come(nome), Salvataggio::salvato);
    }
    void togli(const std::string& tabella) const {
        ASSERT_TRUE(std::filesystem::remove(cartella.radice() + "/ridotti/" + tabella));
    }
    [[nodiscard]] int righe_di(const std::string& file) const {
        std::istringstream testo(cartella.leggi(file));
        int quante = 0;
        for (std::string riga; std::getline(testo, riga);) ++quante;
        return quante;
    }
    [[nodiscard]] std::vector<int> indici(Elenco quale) const {
        std::vector<int> numeri;
        for (int i = 0; i < static_cast<int>(s.tipi(quale).size()); ++i)
            numeri.push_back(s.indice_in(quale, i));
        return numeri;
    }

    support::Cartella cartella;
    Sessione s{cartella.programma()};
};

TEST_F(SessioneEconomiche, SpenteFincheNonSiVoglionoERicordate) {
    EXPECT_FALSE(s.con_economiche());
    s.dimensioni(9, 9);
    for (const Elenco quale : tutti)
        EXPECT_EQ(s.tipi(quale), crossword::tipi_sistema(Gioco(), quale, 9));
    s.economiche(true);
    EXPECT_TRUE(s.con_economiche());
    EXPECT_TRUE(cartella.esiste("eco.dat"));
    EXPECT_EQ(cartella.leggi("eco.dat"), "");
    Sessione altra(cartella.programma());
    altra.avvia();
    EXPECT_TRUE(altra.con_economiche());
    altra.economiche(false);
    EXPECT_FALSE(cartella.esiste("eco.dat"));
}

TEST_F(SessioneEconomiche, LaListaContinuaDopoITipiDetti) {
    s.economiche(true);
    for (int n = 6; n <= 15; ++n) {
        s.dimensioni(n, n);
        for (const Elenco quale : tutti) {
            const auto detti = crossword::tipi_sistema(Gioco(), quale, n);
            const auto& lista = s.tipi(quale);
            ASSERT_GE(lista.size(), detti.size());
            EXPECT_TRUE(std::equal(detti.begin(), detti.end(), lista.begin()));
            for (int i = 0; i < static_cast<int>(detti.size()); ++i)
                EXPECT_EQ(s.indice_in(quale, i), i);
            for (int i = static_cast<int>(detti.size()); i < static_cast<int>(lista.size()); ++i)
                EXPECT_GE(s.indice_in(quale, i), 10);
            // Diagonals of seven numbers stand beside some of six, which are played in full.
            const bool nessuna = n == 6 || (n == 7 && quale == Elenco::diagonali);
            EXPECT_EQ(lista.size() == detti.size(), nessuna) << n;
        }
    }
    EXPECT_EQ(indici(Elenco::orizzontali),
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 33, 34, 35, 36, 44, 45, 46, 55, 56}));
    EXPECT_EQ(indici(Elenco::diagonali),
              (std::vector<int>{0, 1, 2, 3, 33, 34, 35, 36, 44, 45, 46, 55, 56}));
    const std::string& ultima = s.tipi(Elenco::orizzontali).back();
    EXPECT_TRUE(ultima.ends_with(" %) - Min.1(5) con 6 estratti")) << ultima;
    s.passa_al_lotto();
    s.dimensioni(9, 12);
    EXPECT_EQ(indici(Elenco::orizzontali),
              (std::vector<int>{0, 1, 2, 3, 22, 23, 33, 34, 35, 44, 45}));
    EXPECT_TRUE(s.tipi(Elenco::diagonali).empty());
    EXPECT_FALSE(s.scegli_indice(Elenco::diagonali, 22));
}

TEST_F(SessioneEconomiche, AcceseESpenteLaSceltaResta) {
    salvato("a", 9, 4, 2, 1);
    const std::string scritto = systems::testo_sistema(s.sistema());
    const auto totale = s.totale();
    int avvisi = 0;
    s.osserva([&](const systems::Cambiamento& c) {
        ++avvisi;
        EXPECT_EQ(c, (systems::Cambiamento{.tipi = true}));
    });
    s.economiche(true);
    s.economiche(true);
    EXPECT_EQ(avvisi, 1);
    EXPECT_EQ(s.tipo(Elenco::orizzontali), 4);
    EXPECT_EQ(s.tipo(Elenco::verticali), 2);
    EXPECT_EQ(s.tipo(Elenco::diagonali), 1);
    EXPECT_TRUE(s.salvato());
    s.economiche(false);
    EXPECT_EQ(systems::testo_sistema(s.sistema()), scritto);
    EXPECT_EQ(s.totale(), totale);
    EXPECT_TRUE(s.salvato());
    s.osserva({});
    // One of theirs is shown on, with the word.
    s.economiche(true);
    ASSERT_TRUE(s.scegli_indice(Elenco::orizzontali, 56));
    const std::string voce =
        s.tipi(Elenco::orizzontali)[static_cast<std::size_t>(s.tipo(Elenco::orizzontali))];
    s.economiche(false);
    EXPECT_EQ(s.indice(Elenco::orizzontali), 56);
    EXPECT_EQ(s.tipi(Elenco::orizzontali).size(), 6U);
    EXPECT_EQ(s.tipi(Elenco::orizzontali).back(), "Economica: " + voce);
    EXPECT_EQ(s.tipo(Elenco::orizzontali), 5);
}

TEST_F(SessioneEconomiche, ContiESviluppoSonoQuelliDelleTabelle) {
    s.economiche(true);
    s.ripetizioni(true);
    salvato("a", 9, 56, 46, 33);
    development::Economiche e;
    const std::string ridotti = cartella.radice() + "/ridotti";
    const auto righe = [&](int n, int numero) { return e.una(ridotti, Gioco(), n, numero)->righe; };
    const int diagonali = righe(9, 33) * 2 + righe(8, 33) * 4;
    EXPECT_EQ(s.combinazioni(Elenco::orizzontali), std::to_string(righe(9, 56)));
    EXPECT_EQ(s.combinazioni(Elenco::verticali), std::to_string(righe(9, 46)));
    EXPECT_EQ(s.combinazioni(Elenco::diagonali), "2 Sist. da " + std::to_string(righe(9, 33)) +
                                                     "  -  4 Sist. da " +
                                                     std::to_string(righe(8, 33)));
    EXPECT_EQ(s.totale(), 9 * righe(9, 56) + 9 * righe(9, 46) + diagonali);
    ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
    EXPECT_EQ(righe_di("a.col"), s.totale());
    EXPECT_TRUE(s.sviluppo_proprio());
    // The analysis plays the same lines.
    const analysis::Schema schema(s.sistema(), ridotti);
    std::size_t giocate = 0;
    for (const auto& linea : schema.linee) giocate += schema.tipi[linea.tipo].righe.size();
    EXPECT_EQ(static_cast<int>(giocate), s.totale());
}

TEST_F(SessioneEconomiche, InOgniFormaDelLottoIlFileTieneIlNumero) {
    s.passa_al_lotto();
    for (const int forma : {3, 4, 5}) {
        s.cambia_forma(forma);
        for (const bool accese : {true, false}) {
            s.economiche(accese);
            salvato("a", 8, 22, 1, 23);
            const std::string scritto = cartella.leggi("a.sel");
            EXPECT_NE(scritto.find(",22,1,23," + std::to_string(forma)), std::string::npos);
            const auto totale = s.totale();
            ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
            for (const bool dopo : {true, false}) {
                Sessione altra(cartella.programma());
                altra.avvia();
                altra.economiche(dopo);
                altra.passa_al_lotto();
                ASSERT_TRUE(altra.apri("a"));
                EXPECT_EQ(altra.indice(Elenco::orizzontali), 22);
                EXPECT_EQ(altra.indice(Elenco::verticali), 1);
                EXPECT_EQ(altra.indice(Elenco::diagonali), 23);
                EXPECT_EQ(altra.totale(), totale);
                EXPECT_TRUE(altra.sviluppo_proprio());
                EXPECT_EQ(altra.salva(), Salvataggio::salvato);
                altra.totale_combinazioni();
                EXPECT_EQ(altra.totale(), totale);
            }
        }
    }
}

TEST_F(SessioneEconomiche, UnaTabellaInMenoNonSpostaQuelleSalvate) {
    s.economiche(true);
    salvato("a", 10, 46, 0, 0);
    const int prima = s.tipo(Elenco::orizzontali);
    // One that comes before it in the list.
    togli("cr1033.rid");
    Sessione altra(cartella.programma());
    altra.avvia();
    ASSERT_TRUE(altra.apri("a"));
    EXPECT_EQ(altra.tipo(Elenco::orizzontali), prima - 1);
    EXPECT_EQ(altra.indice(Elenco::orizzontali), 46);
    EXPECT_EQ(altra.totale(), s.totale());
}

TEST_F(SessioneEconomiche, QuellaCheMancaSiDiceENessunAltraNePrendeIlPosto) {
    s.economiche(true);
    salvato("a", 9, 56, 0, 0);
    ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
    const std::string sistema = cartella.leggi("a.sen");
    const std::string sviluppo = cartella.leggi("a.col");
    togli("cr0956.rid");
    // Gone while the system is open.
    EXPECT_EQ(s.sviluppa({}), Elaborato::senza_tabella);
    EXPECT_EQ(s.tabelle_mancanti(), std::vector<std::string>{"cr0956.rid"});
    for (const bool accese : {true, false}) {
        Sessione altra(cartella.programma());
        altra.avvia();
        altra.economiche(accese);
        ASSERT_TRUE(altra.apri("a"));
        EXPECT_EQ(altra.indice(Elenco::orizzontali), 56);
        EXPECT_EQ(
            altra.tipi(
                Elenco::orizzontali)[static_cast<std::size_t>(altra.tipo(Elenco::orizzontali))],
            "Manca la tabella cr0956.rid");
        EXPECT_EQ(altra.combinazioni(Elenco::orizzontali), "");
        EXPECT_EQ(altra.totale(), 0);
        EXPECT_EQ(altra.sviluppa({}), Elaborato::senza_tabella);
        EXPECT_EQ(cartella.leggi("a.sen"), sistema);
        EXPECT_EQ(cartella.leggi("a.col"), sviluppo);
        EXPECT_EQ(altra.salva(), Salvataggio::salvato);
        EXPECT_NE(cartella.leggi("a.sen").find(",56,0,0,"), std::string::npos);
        // Another type, and all is well again.
        ASSERT_TRUE(altra.scegli_tipo(Elenco::orizzontali, 0));
        EXPECT_TRUE(altra.tabelle_mancanti().empty());
        EXPECT_GT(altra.totale(), 0);
        cartella.scrivi("a.sen", sistema);
    }
}

TEST_F(SessioneEconomiche, CambiataLaTabellaISuoiContiSonoQuelliNuovi) {
    s.economiche(true);
    salvato("a", 9, 46, 0, 0);
    const auto totale = s.totale();
    const auto uno = std::stoi(s.combinazioni(Elenco::orizzontali));
    // The same guarantee, and one row more.
    std::ofstream(cartella.radice() + "/ridotti/cr0946.rid", std::ios::binary | std::ios::app)
        << "1,2,3,4,5,6\r\n";
    s.rinnova_tipi();
    EXPECT_EQ(s.combinazioni(Elenco::orizzontali), std::to_string(uno + 1));
    EXPECT_EQ(s.totale(), totale + 9);
}

TEST_F(SessioneEconomiche, UnaGuastaValeUnaCheManca) {
    salvato("a", 9, 46, 0, 0);
    std::ofstream(cartella.radice() + "/ridotti/cr0946.rid", std::ios::binary)
        << "1,2,3,4,5,6\r\n1,2\r\n";
    EXPECT_EQ(s.sviluppa({}), Elaborato::senza_tabella);
    ASSERT_TRUE(s.apri("a"));
    EXPECT_EQ(s.tipi(Elenco::orizzontali).back(), "La tabella cr0946.rid è guasta");
    EXPECT_EQ(s.totale(), 0);
}

TEST_F(SessioneEconomiche, LeDiagonaliVoglionoAncheLaTabellaPiuCorta) {
    s.economiche(true);
    salvato("a", 9, 0, 0, 56);
    const auto intero = s.totale();
    togli("cr0856.rid");
    ASSERT_TRUE(s.apri("a"));
    EXPECT_EQ(s.tipi(Elenco::diagonali).back(), "Manca la tabella cr0856.rid");
    EXPECT_EQ(s.combinazioni(Elenco::diagonali), "");
    EXPECT_EQ(s.sviluppa({}), Elaborato::senza_tabella);
    // One that gives something else does not do.
    std::filesystem::copy_file(cartella.radice() + "/ridotti/cr0836.rid",
                               cartella.radice() + "/ridotti/cr0856.rid");
    s.dimensioni(9, 9);
    const auto lista = indici(Elenco::diagonali);
    EXPECT_EQ(std::find(lista.begin(), lista.end(), 56), lista.end());
    EXPECT_LT(s.totale(), intero + 9 * 84 * 2);
    // In Lotto no shorter line is played.
    s.passa_al_lotto();
    togli("cn0822.rid");
    s.dimensioni(9, 9);
    EXPECT_TRUE(s.scegli_indice(Elenco::diagonali, 22));
    EXPECT_TRUE(s.tabelle_mancanti().empty());
}

TEST_F(SessioneEconomiche, NumeriCheNonSonoDiNessunoLascianoIlPrimo) {
    salvato("a", 6, 0, 0, 0);
    const std::string prima = cartella.leggi("a.sen");
    for (const std::string tipo : {"8", "9", "100", "-5", "150", "32767", "99999999"}) {
        std::string testo = prima;
        testo.replace(testo.find(",0,0,0,"), 7, "," + tipo + ",0,0,");
        cartella.scrivi("a.sen", testo);
        ASSERT_TRUE(s.apri("a"));
        EXPECT_EQ(s.indice(Elenco::orizzontali), 0) << tipo;
        EXPECT_EQ(s.tipi(Elenco::orizzontali).size(), 1U);
    }
    EXPECT_FALSE(s.scegli_indice(Elenco::orizzontali, -1));
    EXPECT_FALSE(s.scegli_tipo(Elenco::orizzontali, 1));
}

TEST_F(SessioneEconomiche, SvuotataERipresaRitrovanoIlTipo) {
    s.economiche(true);
    s.dimensioni(9, 9);
    ASSERT_TRUE(s.scegli_indice(Elenco::verticali, 45));
    riempi(s);
    s.svuota();
    EXPECT_EQ(s.indice(Elenco::verticali), 0);
    s.economiche(false);
    ASSERT_TRUE(s.annulla());
    EXPECT_EQ(s.indice(Elenco::verticali), 45);
    EXPECT_EQ(s.tipi(Elenco::verticali).back().substr(0, 11), "Economica: ");
    systems::Ripresa ripresa(s);
    ripresa.tieni();
    Sessione altra(cartella.programma());
    altra.avvia();
    systems::Ripresa sua(altra);
    ASSERT_TRUE(sua.riprendi());
    EXPECT_EQ(altra.indice(Elenco::verticali), 45);
    EXPECT_EQ(altra.totale(), s.totale());
}

TEST_F(SessioneEconomiche, OgniTabellaDiOgniListaSiSviluppaComeConta) {
    s.economiche(true);
    s.ripetizioni(true);
    for (const Gioco gioco :
         {Gioco::superenalotto(), Gioco::lotto(3), Gioco::lotto(4), Gioco::lotto(5)}) {
        if (gioco.e_lotto()) {
            s.passa_al_lotto();
            s.cambia_forma(gioco.forma());
        }
        salvato("a", gioco.e_lotto() ? 7 : 9, 0, 0, 0);
        for (const Elenco quale : tutti) {
            for (int i = 1; i < static_cast<int>(s.tipi(quale).size()); ++i) {
                if (s.indice_in(quale, i) < 10) continue;
                ASSERT_TRUE(s.scegli_tipo(quale, i));
                ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
                EXPECT_EQ(righe_di(gioco.e_lotto() ? "a.lot" : "a.col"), s.totale());
            }
            s.scegli_tipo(quale, 0);
        }
    }
}

}  // namespace
