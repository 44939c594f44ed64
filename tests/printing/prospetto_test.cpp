// The summary page: sizes of the grid, branches of the table, rules, price and note.
#include "printing/prospetto.h"

#include <utility>

#include "crossword/tipi.h"
#include "platform/runtime.h"
#include "support/cartella.h"
#include "support/foglio_prospetto.h"
#include "systems/sessione.h"

using namespace printing;
using support::alto;
using support::confronta;
using support::confronta_centro;
using support::esempio;
using support::Foglio;
using support::foglio_largo;
using support::largo;
using support::mezzo;
using support::Operazione;
using support::Registratore;
using support::Tipo;
using support::x0;

namespace {

constexpr float centro_quantita = x0 + 21;
constexpr float centro_tipo = x0 + 42.75F;
constexpr float centro_combinazioni = x0 + 74.25F;

struct Attesa {
    float corpo;
    float passo;
    float divisore;
};

Attesa attesa(int nc) {
    switch (nc) {
        case 14:
            return {27, 1.25F, 15};
        case 13:
            return {29, 1.25F, 10};
        case 12:
            return {32, 1.25F, 4};
        case 11:
            return {35, 1.25F, 3.5F};
        case 10:
            return {38, 1.25F, 2.5F};
        case 9:
            return {41, 1.25F, 2.25F};
        case 8:
            return {46, 1.25F, 2};
        case 7:
            return {49, 1.25F, 2};
        case 6:
            return {54, 1.5F, 1.75F};
        case 5:
            return {61, 1.5F, 1.75F};
        case 4:
            return {68, 1.5F, 1.5F};
        case 15:
            return {57, 1.5F, 1.5F};
        default:
            ADD_FAILURE();
            return {0, 0, 0};
    }
}

const std::string lungo_lotto = "5 Numeri - 4 Terzine - Garanzia Ambo con 2 Estratti";

}  // namespace

TEST(ProspettoDi, DiceCioCheLaSessioneHaContato) {
    const support::Cartella cartella;
    cartella.scrivi("a.sen", "172172,14,14,\"6\",0,0,0,171234\r\n");
    systems::Sessione sessione(cartella.programma());
    sessione.avvia();
    ASSERT_TRUE(sessione.apri("a"));
    const Prospetto p = prospetto_di(sessione, {"1.0.0", "a", "oggi"});
    EXPECT_EQ(p.testata.nome, "a");
    EXPECT_EQ(p.in_gioco, "");
    EXPECT_EQ(p.righe[0].quantita, "15");
    EXPECT_EQ(p.righe[2].quantita, "6");
    EXPECT_EQ(p.righe[0].combinazioni, "5.005");
    EXPECT_EQ(p.totale, "172.172");
    EXPECT_EQ(p.senza_ripetizioni, "171.234");
    EXPECT_EQ(p.importo, "85.617,00");
}

TEST(Prospetto, TitoloNumeriEDidascalia) {
    const Foglio f(esempio(6, 6));
    float y = 3 * alto(10) + 2 * alto(8) + 0.5F + 2 * alto(14) - 1.5F * alto(14);
    confronta_centro(f.r.testo("Cruciverba SuperEnalotto"), mezzo, y);
    EXPECT_FLOAT_EQ(f.r.testo("Cruciverba SuperEnalotto").corpo, 32);
    y += alto(32) + alto(14) - alto(14);
    confronta_centro(f.r.testo("Numeri in gioco: 37"), mezzo, y);
    EXPECT_FLOAT_EQ(f.r.testo("Numeri in gioco: 37").corpo, 12);
    EXPECT_TRUE(f.r.testo("Numeri in gioco: 37").grassetto);
    y += alto(12) + alto(14) - 2 * alto(14) + alto(14);
    EXPECT_NEAR(f.tratti.at(0).y1, y, 0.01F);
    const auto didascalia = f.r.testo("Si leggono Orizzontali, Verticali e Diagonali*");
    confronta_centro(didascalia, mezzo, f.yb + 0.5F);
    EXPECT_FLOAT_EQ(didascalia.corpo, 12);
    EXPECT_FALSE(didascalia.grassetto);
}

TEST(Prospetto, IlTitoloDelLotto) {
    const Foglio f(esempio(6, 6, true));
    EXPECT_TRUE(f.r.stampato("Cruciverba Lotto"));
    EXPECT_FALSE(f.r.stampato("Cruciverba SuperEnalotto"));
}

TEST(Prospetto, UnaSolaPaginaEUnSoloLavoro) {
    const Foglio f(esempio(15, 15));
    EXPECT_EQ(f.r.fogli, 1);
    EXPECT_EQ(f.r.di_tipo(Tipo::fine).size(), 1U);
    EXPECT_EQ(f.r.fatte[0].tipo, Tipo::puntatore);
    EXPECT_EQ(f.r.fatte[0].valore, 11);
    EXPECT_EQ(f.r.fatte[1].tipo, Tipo::eventi);
    EXPECT_EQ(f.r.di_tipo(Tipo::eventi).size(), 1U);
    const std::size_t quante = f.r.fatte.size();
    EXPECT_EQ(f.r.fatte[quante - 2].tipo, Tipo::fine);
    EXPECT_EQ(f.r.fatte[quante - 1].tipo, Tipo::puntatore);
    EXPECT_EQ(f.r.fatte[quante - 1].valore, 0);
}

TEST(Prospetto, IlLavoroPersoSiDice) {
    Registratore r;
    r.riesce = false;
    EXPECT_FALSE(stampa_prospetto(r, r, esempio(6, 6)));
    EXPECT_EQ(r.fatte.back().valore, 0);
}

TEST(Prospetto, OgniMisuraDellaGriglia) {
    for (int nc = 4; nc <= 15; ++nc) {
        SCOPED_TRACE(nc);
        const Attesa a = attesa(nc);
        const Foglio f(esempio(nc + 1, 7));
        std::vector<float> xp;
        for (int i = 0; i <= nc + 1; ++i) {
            const float w = 0.1F * a.corpo * static_cast<float>(i);
            xp.push_back(w + (w - 1) * a.passo);
        }
        const float l = mezzo - xp.back() / 2;
        for (float& x : xp) x = l + x - 1.5F;
        const auto numeri = f.numeri();
        ASSERT_EQ(numeri.size(), static_cast<std::size_t>((nc + 1) * 7));
        const float yt = f.tratti.at(0).y1;
        for (std::size_t k = 0; k < numeri.size(); ++k) {
            const std::size_t i = k % static_cast<std::size_t>(nc + 1);
            const auto j = static_cast<float>(k / static_cast<std::size_t>(nc + 1));
            const std::string numero(platform::Trim(numeri[k].testo));
            const float x = xp[i] + (xp[i + 1] - xp[i]) / 2 - largo(numero, a.corpo) / 2 -
                            0.1F * a.corpo / a.divisore;
            EXPECT_FLOAT_EQ(numeri[k].corpo, a.corpo);
            EXPECT_FALSE(numeri[k].grassetto);
            EXPECT_NEAR(numeri[k].x1, x, 0.02F);
            EXPECT_NEAR(numeri[k].y1, yt + j * alto(a.corpo), 0.02F);
        }
        // The rules stand 2.5 units to the right of the columns.
        for (std::size_t j = 0; j <= 7; ++j) {
            const float y = yt + static_cast<float>(j) * alto(a.corpo);
            confronta(f.tratti.at(j), xp.front() + 2.5F, y, xp.back() + 2.5F, y);
        }
        for (std::size_t i = 0; i < xp.size(); ++i) {
            confronta(f.tratti.at(8 + i), xp[i] + 2.5F, yt, xp[i] + 2.5F, f.yb);
        }
    }
}

TEST(Prospetto, LeCelleSonoQuelleDellaMatrice) {
    const Prospetto p = esempio(6, 10);
    const Foglio f(p);
    const auto numeri = f.numeri();
    ASSERT_EQ(numeri.size(), 60U);
    for (int k = 0; k < 60; ++k) {
        EXPECT_EQ(numeri[static_cast<std::size_t>(k)].testo,
                  " " + std::to_string(p.matrice(k % 6, k / 6)) + " ");
    }
}

TEST(Prospetto, IntestazioniDellaTabella) {
    const Foglio f(esempio(6, 6));
    confronta_centro(f.r.testo("Sistemi"), x0 + 7.5F, f.t);
    confronta_centro(f.r.testo("Quantità"), centro_quantita, f.t);
    confronta_centro(f.r.testo("Tipo"), centro_tipo, f.t);
    confronta_centro(f.r.testo("Combinazioni x Sistema"), centro_combinazioni, f.t);
    for (const char* titolo : {"Sistemi", "Quantità", "Tipo", "Combinazioni x Sistema"}) {
        EXPECT_TRUE(f.r.testo(titolo).grassetto) << titolo;
        EXPECT_FLOAT_EQ(f.r.testo(titolo).corpo, 12) << titolo;
    }
}

TEST(Prospetto, RigheDelSuperEnalotto) {
    Prospetto p = esempio(7, 7);
    p.righe[0].quantita = "7r";
    p.righe[1].quantita = "7c";
    const Foglio f(p);
    const float y1 = f.t + 1;
    confronta_centro(f.r.testo("Orizzontali"), x0 + 7.5F, y1 + 0.5F);
    confronta_centro(f.r.testo("7r"), centro_quantita, y1 + 0.5F);
    confronta_centro(f.r.testo("Integrale"), centro_tipo, y1 + 0.5F);
    confronta_centro(f.r.testo("111"), centro_combinazioni, y1 + 0.5F);
    const float y2 = y1 + 1.5F;
    confronta_centro(f.r.testo("Verticali"), x0 + 7.5F, y2 + 0.5F);
    confronta_centro(f.r.testo("7c"), centro_quantita, y2 + 0.5F);
    confronta_centro(f.r.testo("Autoridotto [N-1]"), centro_tipo, y2 + 0.5F);
    confronta_centro(f.r.testo("222"), centro_combinazioni, y2 + 0.5F);
    const float y3 = y2 + 2;
    confronta_centro(f.r.testo("Diagonali"), x0 + 7.5F, y3 + 0.5F);
    confronta_centro(f.r.testo("6"), centro_quantita, y3 + 0.5F);
    confronta_centro(f.r.testo("2 Sist. da 924"), centro_combinazioni, y3);
    confronta_centro(f.r.testo("4 Sist. da 462"), centro_combinazioni, y3 + alto(12));
    const float y4 = y3 + alto(12) + 1.5F;
    confronta_centro(f.r.testo("Numero Totale Combinazioni del Sistema"), x0 + 29.25F, y4 + 0.5F);
    confronta_centro(f.r.testo("172.172"), centro_combinazioni, y4 + 0.5F);
    const float y5 = y4 + 1.5F;
    confronta_centro(f.r.testo("Num. Tot. Comb. del Sistema (Senza Ripetizioni)"), x0 + 29.25F,
                     y5 + 0.5F);
    confronta_centro(f.r.testo("171.999"), centro_combinazioni, y5 + 0.5F);
}

TEST(Prospetto, IlNomeDellaRigaEGrassettoIlRestoNo) {
    for (const bool lotto : {false, true}) {
        const Foglio f(esempio(7, 7, lotto));
        for (const char* testo :
             {"Orizzontali", "Verticali", "Diagonali", "Numero Totale Combinazioni del Sistema",
              "Num. Tot. Comb. del Sistema (Senza Ripetizioni)"}) {
            EXPECT_TRUE(f.r.testo(testo).grassetto) << testo;
        }
        for (const char* testo : {"7", "Integrale", "111", "222", "172.172", "171.999"}) {
            EXPECT_FALSE(f.r.testo(testo).grassetto) << testo;
        }
    }
}

TEST(Prospetto, ILunghiDelSuperEnalottoSiAccorciano) {
    Prospetto p = esempio(11, 15);
    p.righe[0].tipo = "66 Sestine - Min.3(4) con 4 estratti";
    p.righe[0].indice = 4;
    p.righe[1].tipo = "12 sestine - Min.1(4) con 4 estratti";
    p.righe[1].indice = 7;
    const Foglio f(p);
    const auto corto = f.r.testo("66 Sest. Min.3(4) con 4 estr.");
    EXPECT_FLOAT_EQ(corto.corpo, 10);
    confronta_centro(corto, centro_tipo, f.t + 1.5F);
    // Small letters are not the ones sought.
    EXPECT_FLOAT_EQ(f.r.testo("12 sestine Min.1(4) con 4 estr.").corpo, 10);
    for (const char* testo : {"111", "Verticali", "222", "Diagonali", "172.172"}) {
        EXPECT_FLOAT_EQ(f.r.testo(testo).corpo, 12) << testo;
    }
}

TEST(Prospetto, FinoAlTerzoIndiceIlTestoRestaIntero) {
    Prospetto p = esempio(11, 11);
    for (const auto k : {0U, 1U}) {
        p.righe[k].tipo = "9 Sestine - x estratti";
        p.righe[k].indice = 3;
    }
    p.righe[2].tipo = "8 Sestine - y estratti";
    p.righe[2].indice = 4;
    const Foglio f(p);
    EXPECT_FLOAT_EQ(f.r.testo("9 Sestine - x estratti").corpo, 12);
    // The diagonals are never shortened.
    EXPECT_FLOAT_EQ(f.r.testo("8 Sestine - y estratti").corpo, 12);
}

TEST(Prospetto, SeiPerSeiPerdeIlNumeroDelleDiagonali) {
    Prospetto p = esempio(6, 6);
    p.righe[2].combinazioni = "2 Sist. da  1";
    const Foglio f(p);
    confronta_centro(f.r.testo("2 Sist. da"), centro_combinazioni, f.t + 4.5F);
    confronta_centro(f.r.testo("172.172"), centro_combinazioni, f.t + 4.5F + alto(12) + 2);
}

TEST(Prospetto, CelleVuoteSiStampanoVuote) {
    Prospetto p = esempio(6, 10);
    p.righe[2] = {"", "", -1, ""};
    p.senza_ripetizioni.clear();
    const Foglio f(p);
    EXPECT_TRUE(f.r.stampato("Diagonali"));
    confronta_centro(f.r.testo("172.172"), centro_combinazioni, f.t + 4.5F + alto(12) + 2);
    for (const auto& o : f.r.testi()) EXPECT_FALSE(o.testo.empty());
}

TEST(Prospetto, LottoSuUnaRiga) {
    const Foglio f(esempio(6, 6, true));
    confronta_centro(f.r.testo("Integrale"), centro_tipo, f.t + 1.5F);
    confronta_centro(f.r.testo("111"), centro_combinazioni, f.t + 1.5F);
    confronta_centro(f.r.testo("Autoridotto [N-1]"), centro_tipo, f.t + 3);
    confronta_centro(f.r.testo("222"), centro_combinazioni, f.t + 3);
    const float y3 = f.t + 2.5F + 2.125F;
    confronta_centro(f.r.testo("Diagonali"), x0 + 7.5F, y3 + 0.5F);
    confronta_centro(f.r.testo("333"), centro_combinazioni, y3 + 0.5F);
    confronta_centro(f.r.testo("172.172"), centro_combinazioni, y3 + 2.3F + 0.5F);
    confronta_centro(f.r.testo("171.999"), centro_combinazioni, y3 + 2.3F + 2);
}

TEST(Prospetto, LottoSuDueRighe) {
    Prospetto p = esempio(5, 5, true);
    p.righe[0].tipo = lungo_lotto;
    p.righe[0].indice = 1;
    const Foglio f(p);
    const float y = f.t + 1;
    const auto prima = f.r.testo("4 Terzine - Garanzia");
    const auto seconda = f.r.testo("Ambo con 2 Estratti");
    confronta_centro(prima, centro_tipo, y + 0.375F);
    confronta_centro(seconda, centro_tipo, y + 0.375F - 1 + alto(12) + 0.5F);
    EXPECT_FLOAT_EQ(prima.corpo, 8);
    EXPECT_FLOAT_EQ(seconda.corpo, 8);
    confronta_centro(f.r.testo("111"), centro_combinazioni, y + 0.5F);
    EXPECT_FLOAT_EQ(f.r.testo("111").corpo, 12);
    confronta_centro(f.r.testo("Verticali"), x0 + 7.5F, y + 2);
}

TEST(Prospetto, LottoDueRigheAncheNelleVerticali) {
    Prospetto p = esempio(5, 5, true);
    p.righe[1].tipo = lungo_lotto;
    p.righe[1].indice = 1;
    const Foglio f(p);
    const float y = f.t + 2.5F;
    confronta_centro(f.r.testo("4 Terzine - Garanzia"), centro_tipo, y + 0.375F);
    confronta_centro(f.r.testo("222"), centro_combinazioni, y + 0.5F);
    confronta_centro(f.r.testo("Diagonali"), x0 + 7.5F, y + 2.125F + 0.5F);
}

TEST(Prospetto, LottoDiagonaliSuDueRighe) {
    Prospetto p = esempio(5, 5, true);
    p.righe[2].tipo = lungo_lotto;
    p.righe[2].indice = 1;
    const Foglio f(p);
    const float y = f.t + 2.5F + 2.125F;
    const auto prima = f.r.testo("4 Terzine - Garanzia");
    confronta_centro(prima, centro_tipo, y);
    EXPECT_FLOAT_EQ(prima.corpo, 12);
    confronta_centro(f.r.testo("Ambo con 2 Estratti"), centro_tipo, y + alto(12));
    confronta_centro(f.r.testo("333"), centro_combinazioni, y + alto(12) - 0.5F);
    confronta_centro(f.r.testo("172.172"), centro_combinazioni, y + alto(12) + 1.3F + 0.5F);
}

TEST(Prospetto, OgniTipoDelLottoPrendeLaSuaStrada) {
    for (int forma = 3; forma <= 5; ++forma) {
        for (int n = 5; n <= 15; ++n) {
            const auto tipi = crossword::tipi_sistema(crossword::Gioco::lotto(forma),
                                                      crossword::Elenco::orizzontali, n);
            for (std::size_t k = 0; k < tipi.size(); ++k) {
                SCOPED_TRACE(tipi[k]);
                Prospetto p = esempio(n, n, true);
                for (RigaProspetto& riga : p.righe) {
                    riga.tipo = tipi[k];
                    riga.indice = static_cast<int>(k);
                }
                const Foglio f(p);
                const bool una = k == 0 || tipi[k] == "Autoridotto [N-1]";
                EXPECT_EQ(f.r.stampato(tipi[k]), una);
                int seconde = 0;
                for (const auto& o : f.r.testi()) {
                    if (o.testo.ends_with("Estratti") && !o.testo.starts_with("5")) ++seconde;
                }
                EXPECT_EQ(seconde, una ? 0 : 3);
                EXPECT_NEAR(f.r.testo("172.172").y1, f.t + (una ? 7.425F : 5.425F + alto(12) + 1),
                            0.01F);
            }
        }
    }
}

TEST(Prospetto, NessunTipoEsceDallaColonna) {
    for (const bool lotto : {false, true}) {
        for (int n = lotto ? 5 : 6; n <= 15; ++n) {
            for (int forma = 3; forma <= 5; ++forma) {
                const auto tipi = crossword::tipi_sistema(
                    lotto ? crossword::Gioco::lotto(forma) : crossword::Gioco(),
                    crossword::Elenco::orizzontali, n);
                for (std::size_t k = 0; k < tipi.size(); ++k) {
                    Prospetto p = esempio(n, n, lotto);
                    for (RigaProspetto& riga : p.righe) {
                        riga.tipo = tipi[k];
                        riga.indice = static_cast<int>(k);
                    }
                    if (!lotto && k > 3) p.righe[2] = {"", "Integrale", 0, ""};
                    const Foglio f(p);
                    for (const auto& o : f.r.testi()) {
                        if (o.y1 < f.t + 1 || o.y1 > f.t + 7.25F || o.x1 < x0 + 27) continue;
                        const float fine = o.x1 + largo(o.testo, o.corpo);
                        EXPECT_LE(fine, x0 + (o.x1 < x0 + 58.5F ? 58.5F : 90)) << o.testo;
                    }
                }
            }
        }
    }
}

TEST(Prospetto, FilettiDellaTabellaSempreDallaTesta) {
    for (const bool lotto : {false, true}) {
        for (const auto& [colonne, righe] :
             {std::pair(6, 6), std::pair(6, 10), std::pair(15, 15)}) {
            const Foglio f(esempio(colonne, righe, lotto));
            const std::size_t inizio = static_cast<std::size_t>(colonne + righe) + 2;
            ASSERT_EQ(f.tratti.size(), inizio + 12);
            std::size_t k = inizio;
            for (const float y : {-0.25F, 1.25F, 2.75F, 4.25F, 7.25F, 8.75F, 10.25F}) {
                confronta(f.tratti[k++], x0, f.t + y, x0 + 90, f.t + y);
            }
            for (const auto& [x, fino] :
                 {std::pair(0.0F, 10.25F), std::pair(15.0F, 7.25F), std::pair(27.0F, 7.25F),
                  std::pair(58.5F, 10.25F), std::pair(90.0F, 10.25F)}) {
                confronta(f.tratti[k++], x0 + x, f.t - 0.25F, x0 + x, f.t + fino);
            }
        }
    }
}

TEST(Prospetto, DopoIFilettiUnaRigaVuota) {
    const Foglio f(esempio(6, 6));
    const float y = f.t + 10.25F + alto(12);
    confronta_centro(f.r.testo("2 QUOTE DA EURO 43.043,00 CADAUNA"), mezzo, y);
}

TEST(Prospetto, OgniQuadratoStaNelFoglio) {
    for (const bool lotto : {false, true}) {
        for (int n = lotto ? 5 : 6; n <= 15; ++n) {
            const Foglio f(esempio(n, n, lotto));
            for (const auto& o : f.r.testi()) {
                EXPECT_LE(o.y1 + alto(o.corpo), support::foglio_alto) << n << ' ' << o.testo;
            }
        }
    }
}

TEST(Prospetto, GriglieFuoriMisura) {
    for (const auto& [colonne, righe] : {std::pair(1, 1), std::pair(100, 3), std::pair(256, 256)}) {
        const Foglio f(esempio(colonne, righe));
        EXPECT_TRUE(f.r.stampato("172.172"));
    }
    Registratore r;
    Prospetto p = esempio(6, 6);
    p.matrice = crossword::Matrice();
    EXPECT_TRUE(stampa_prospetto(r, r, p));
}
