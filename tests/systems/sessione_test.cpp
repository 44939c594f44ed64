// The session by itself: what it is at the start, what it refuses, the quirks it keeps.
#include "systems/sessione.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "platform/disk.h"
#include "statistics/completamento.h"
#include "support/archivio_prova.h"
#include "support/cartella.h"

using crossword::Elenco;
using crossword::Gioco;
using systems::Cambiamento;
using systems::Completato;
using systems::Elaborato;
using systems::Generato;
using systems::Posata;
using systems::Salvataggio;
using systems::Sessione;

namespace {

class SessioneTest : public testing::Test {
protected:
    void SetUp() override { s.avvia(); }
    /// Lays for each cell the next number that it may take.
    void riempi() {
        for (int i = 0; i < s.colonne() * s.righe(); ++i) {
            const systems::Cella cella{i % s.colonne(), i / s.colonne()};
            std::size_t n = 1 + static_cast<std::size_t>(i * 7 % 90);
            while (s.sbarrati(cella).test(n)) n = n % 90 + 1;
            ASSERT_EQ(s.posa(cella, static_cast<int>(n)), Posata::posata);
        }
    }
    void salvato_e_sviluppato(const std::string& nome) {
        cartella.con_tabelle();
        riempi();
        ASSERT_EQ(s.salva_come(nome), Salvataggio::salvato);
        ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
    }
    [[nodiscard]] std::string riga_righe(int colonne, int righe) const {
        std::string testo;
        for (int y = 0; y < righe; ++y) {
            for (int x = 0; x < colonne; ++x) testo += std::to_string((x + 7 * y) % 90 + 1) + ",";
            testo += "\r\n";
        }
        return testo;
    }

    support::Cartella cartella;
    Sessione s{cartella.programma()};
};

}  // namespace

TEST_F(SessioneTest, LeTabelleStannoDoveSiDice) {
    riempi();
    ASSERT_EQ(s.salva_come("a"), Salvataggio::salvato);
    EXPECT_EQ(s.ridotti(), cartella.radice() + "/ridotti");
    EXPECT_EQ(s.sviluppa({}), Elaborato::senza_file);
    Sessione altra(cartella.programma(), SUITE_DIR "/ridotti");
    altra.avvia();
    ASSERT_TRUE(altra.apri("a"));
    EXPECT_EQ(altra.sviluppa({}), Elaborato::completo);
}

TEST_F(SessioneTest, SiApreVuotaInSuperEnalotto) {
    EXPECT_EQ(s.gioco(), Gioco::superenalotto());
    EXPECT_EQ(s.matrice(), crossword::Matrice(6, 6));
    EXPECT_TRUE(s.salvato());
    EXPECT_EQ(s.nome(), "");
    EXPECT_EQ(s.totale(), 14);
    EXPECT_EQ(s.linee(Elenco::diagonali), 6);
    EXPECT_EQ(s.combinazioni(Elenco::diagonali), "2 Sist. da  1");
    EXPECT_EQ(s.prezzo().totale, "7,00");
    EXPECT_EQ(s.prezzo().quota, "7,00");
    EXPECT_EQ(s.prezzo().valuta, "Euro");
    EXPECT_FALSE(s.con_ripetizioni());
    EXPECT_FALSE(s.annullabile());
    EXPECT_EQ(cartella.leggi("cst"), "\"0,50\",\"Euro\"\r\n");
}

TEST_F(SessioneTest, LeLineeSonoLeRigheLeColonneELeDiagonaliDelQuadrato) {
    s.dimensioni(9, 7);
    EXPECT_EQ(s.linee(Elenco::orizzontali), 7);
    EXPECT_EQ(s.linee(Elenco::verticali), 9);
    EXPECT_EQ(s.linee(Elenco::diagonali), std::nullopt);
}

TEST_F(SessioneTest, NelLottoLeDiagonaliSonoDue) {
    s.passa_al_lotto();
    EXPECT_EQ(s.linee(Elenco::diagonali), 2);
    EXPECT_EQ(s.totale(), 5 + 5 + 2);
    s.dimensioni(6, 6);
    EXPECT_EQ(s.totale(), (6 + 6 + 2) * 6) << "six cinquine for a line of six numbers";
}

TEST_F(SessioneTest, UnaCombinazioneDiDueRigheSiGiocaUnaVoltaSoloSenzaRipetizioni) {
    cartella.con_tabelle();
    for (int x = 0; x < 6; ++x) {
        ASSERT_EQ(s.posa({x, 0}, x + 1), Posata::posata);
        ASSERT_EQ(s.posa({x, 1}, (x + 3) % 6 + 1), Posata::posata);
        for (int y = 2; y < 6; ++y) ASSERT_EQ(s.posa({x, y}, 6 * y + x + 1), Posata::posata);
    }
    ASSERT_EQ(s.salva_come("a"), Salvataggio::salvato);
    ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
    EXPECT_EQ(s.senza_ripetizioni(), 13);
    EXPECT_EQ(std::ranges::count(cartella.leggi("a.col"), '\n'), 13);
    s.ripetizioni(true);
    ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
    EXPECT_EQ(std::ranges::count(cartella.leggi("a.col"), '\n'), 14);
}

TEST_F(SessioneTest, AllAvvioVannoIFileSenzaNomeEValeRipDat) {
    cartella.scrivi(".sen", "x");
    cartella.scrivi(".col", "x");
    cartella.scrivi("rip.dat", "");
    s.avvia();
    EXPECT_FALSE(cartella.esiste(".sen"));
    EXPECT_FALSE(cartella.esiste(".col"));
    EXPECT_TRUE(s.con_ripetizioni());
}

TEST_F(SessioneTest, UnNumeroSbarratoRestaFuori) {
    EXPECT_EQ(s.posa({0, 0}, 7), Posata::posata);
    EXPECT_TRUE(s.sbarrati({5, 0}).test(7));
    for (const systems::Cella c : {systems::Cella{5, 0}, {0, 5}, {3, 3}}) {
        EXPECT_EQ(s.posa(c, 7), Posata::sbarrata);
        EXPECT_EQ(s.matrice()(c.colonna, c.riga), 0);
    }
    EXPECT_EQ(s.posa({0, 0}, 7), Posata::posata);
    EXPECT_EQ(s.posa({1, 2}, 7), Posata::posata);
    for (const int n : {-1, 0, 91, 263}) EXPECT_EQ(s.posa({4, 4}, n), Posata::fuori) << n;
    EXPECT_EQ(s.posa({6, 0}, 8), Posata::fuori);
    EXPECT_EQ(s.posa({0, -1}, 8), Posata::fuori);
    EXPECT_FALSE(s.salvato());
}

TEST_F(SessioneTest, IncompletaNonSiSalvaNeSiSviluppa) {
    EXPECT_EQ(s.salva(), Salvataggio::incompleto);
    EXPECT_EQ(s.salva_come("a"), Salvataggio::incompleto);
    EXPECT_EQ(s.sviluppa({}), Elaborato::incompleto);
    EXPECT_EQ(s.nome(), "");
    riempi();
    EXPECT_EQ(s.salva(), Salvataggio::senza_nome);
    EXPECT_EQ(s.sviluppa({}), Elaborato::senza_nome);
    for (const char* nome : {"", "..", "a/b"})
        EXPECT_EQ(s.salva_come(nome), Salvataggio::nome_vietato);
    EXPECT_FALSE(s.salvato());
    EXPECT_TRUE(platform::Dir(cartella.programma(), "*.sen").empty());
}

TEST_F(SessioneTest, SalvataERiapertaUguale) {
    s.dimensioni(9, 7);
    ASSERT_TRUE(s.scegli_tipo(Elenco::orizzontali, 4));
    riempi();
    ASSERT_EQ(s.salva_come("a"), Salvataggio::salvato);
    const std::string scritto = cartella.leggi("a.sen");
    EXPECT_EQ(scritto, systems::testo_sistema(s.sistema()));
    Sessione altra(cartella.programma());
    altra.avvia();
    ASSERT_TRUE(altra.apri("a"));
    EXPECT_EQ(altra.matrice(), s.matrice());
    EXPECT_EQ(altra.tipo(Elenco::orizzontali), 4);
    EXPECT_EQ(altra.totale(), s.totale());
    EXPECT_TRUE(altra.salvato());
    EXPECT_FALSE(altra.annullabile());
    EXPECT_EQ(altra.salva(), Salvataggio::salvato);
    EXPECT_EQ(cartella.leggi("a.sen"), scritto);
}

TEST_F(SessioneTest, ElaborataIlConteggioVaNelFileENelPrezzo) {
    salvato_e_sviluppato("a");
    EXPECT_TRUE(s.sviluppo_presente());
    EXPECT_EQ(s.senza_ripetizioni(), 14);
    EXPECT_EQ(s.prezzo().totale, "7,00");
    EXPECT_TRUE(s.salvato());
    EXPECT_TRUE(cartella.leggi("a.sen").starts_with("14,5,5,\"6\",0,0,0,14\r\n"));
    EXPECT_TRUE(platform::Dir(cartella.programma(), "temp*").empty());
}

TEST_F(SessioneTest, ConLeRipetizioniIlConteggioApertoResta) {
    salvato_e_sviluppato("a");
    s.ripetizioni(true);
    ASSERT_TRUE(s.apri("a"));
    ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
    EXPECT_EQ(s.senza_ripetizioni(), 14);
    s.totale_combinazioni();
    ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
    EXPECT_EQ(s.senza_ripetizioni(), 0);
}

TEST_F(SessioneTest, FermataLaElaborazioneRestaLoSviluppoDiPrima) {
    salvato_e_sviluppato("a");
    const std::string prima = cartella.leggi("a.col");
    systems::SeguitoSviluppo seguito;
    seguito.avanzamento = [](std::int32_t) { return false; };
    EXPECT_EQ(s.sviluppa(seguito), Elaborato::interrotto);
    EXPECT_EQ(cartella.leggi("a.col"), prima);
    EXPECT_FALSE(s.occupata());
}

TEST_F(SessioneTest, FermataLaElaborazioneIlCruciverbaSulloSchermoESalvatoLoStesso) {
    salvato_e_sviluppato("a");
    s.dimensioni(7, 7);
    riempi();
    ASSERT_FALSE(s.salvato());
    systems::SeguitoSviluppo seguito;
    seguito.avanzamento = [](std::int32_t) { return false; };
    EXPECT_EQ(s.sviluppa(seguito), Elaborato::interrotto);
    EXPECT_TRUE(s.salvato());
    Sessione altra(cartella.programma());
    altra.avvia();
    ASSERT_TRUE(altra.apri("a"));
    EXPECT_EQ(altra.matrice(), s.matrice());
}

TEST_F(SessioneTest, CambiataESalvataSaCheLoSviluppoESuperatoFinoAllaRiapertura) {
    salvato_e_sviluppato("a");
    EXPECT_FALSE(s.sviluppo_superato());
    EXPECT_TRUE(s.sviluppo_proprio());
    std::size_t n = 1;
    while (s.sbarrati({0, 0}).test(n) || s.matrice()(0, 0) == static_cast<int>(n)) ++n;
    ASSERT_EQ(s.posa({0, 0}, static_cast<int>(n)), Posata::posata);
    EXPECT_FALSE(s.sviluppo_superato());
    ASSERT_EQ(s.salva(), Salvataggio::salvato);
    EXPECT_TRUE(s.sviluppo_superato());
    ASSERT_TRUE(s.apri("a"));
    EXPECT_FALSE(s.sviluppo_superato());
    if (!platform::annotazione(cartella.file("a.col")).empty()) {
        EXPECT_FALSE(s.sviluppo_proprio());
    }
    s.totale_combinazioni();
    ASSERT_EQ(s.salva(), Salvataggio::salvato);
    EXPECT_TRUE(s.sviluppo_superato());
    ASSERT_EQ(s.sviluppa({}), Elaborato::completo);
    EXPECT_FALSE(s.sviluppo_superato());
    EXPECT_TRUE(s.sviluppo_proprio());
    s.totale_combinazioni();
    ASSERT_EQ(s.salva_come("b"), Salvataggio::salvato);
    EXPECT_FALSE(s.sviluppo_superato()) << "a name that never had one";
}

TEST_F(SessioneTest, SenzaTabelleNienteSviluppo) {
    riempi();
    ASSERT_EQ(s.salva_come("a"), Salvataggio::salvato);
    cartella.scrivi("a.col", "vecchio");
    EXPECT_EQ(s.sviluppa({}), Elaborato::senza_file);
    EXPECT_FALSE(s.sviluppo_presente());
    EXPECT_EQ(s.senza_ripetizioni(), 0);
    EXPECT_EQ(s.prezzo().totale, ",00");
}

TEST_F(SessioneTest, MentreLavoraRifiutaOgniCambiamento) {
    salvato_e_sviluppato("a");
    const crossword::Matrice prima = s.matrice();
    int volte = 0;
    const auto prova = [&] {
        ++volte;
        EXPECT_TRUE(s.occupata());
        EXPECT_EQ(s.posa({0, 0}, 90), Posata::occupata);
        s.rimuovi({0, 0});
        s.svuota();
        s.nuovo();
        s.azzera();
        s.dimensioni(8, 8);
        s.passa_al_lotto();
        s.passa_al_superenalotto();
        s.cambia_forma(3);
        EXPECT_FALSE(s.apri("a"));
        EXPECT_FALSE(s.annulla().has_value());
        EXPECT_FALSE(s.ripeti().has_value());
        EXPECT_FALSE(s.scegli_tipo(Elenco::orizzontali, 0));
        EXPECT_EQ(s.salva(), Salvataggio::occupata);
        EXPECT_EQ(s.salva_come("b"), Salvataggio::occupata);
        EXPECT_EQ(s.sviluppa({}), Elaborato::occupata);
        EXPECT_EQ(s.completa_con_scelti({}), Completato::occupata);
        EXPECT_EQ(s.genera(0, {}), Generato::occupata);
        return true;
    };
    systems::SeguitoSviluppo seguito;
    seguito.avanzamento = [&](std::int32_t) { return prova(); };
    EXPECT_EQ(s.sviluppa(seguito), Elaborato::completo);
    EXPECT_EQ(volte, 14);
    EXPECT_EQ(s.matrice(), prima);
    EXPECT_EQ(s.nome(), "a");
}

TEST_F(SessioneTest, UnaParolaSolaPerOgniAzione) {
    std::vector<Cambiamento> viste;
    s.osserva([&](const Cambiamento& c) { viste.push_back(c); });
    s.passa_al_lotto();
    ASSERT_EQ(viste.size(), 1U);
    EXPECT_TRUE(viste[0].gioco && viste[0].dimensioni && viste[0].tipi && viste[0].conteggi);
    // An emptying goes unsaved and comes back saved on its way: what it is at the end counts.
    EXPECT_TRUE(s.salvato());
    viste.clear();
    s.posa({0, 0}, 5);
    ASSERT_EQ(viste.size(), 1U);
    EXPECT_EQ(viste[0], (Cambiamento{.celle = true, .salvato = true, .cronologia = true}));
    viste.clear();
    EXPECT_EQ(s.posa({1, 0}, 5), Posata::sbarrata);
    EXPECT_TRUE(viste.empty());
}

TEST_F(SessioneTest, ChiOsservaPuoAgire) {
    int volte = 0;
    s.osserva([&](const Cambiamento&) {
        if (++volte == 1) s.posa({1, 0}, 6);
    });
    s.posa({0, 0}, 5);
    EXPECT_EQ(volte, 2);
    EXPECT_EQ(s.matrice()(1, 0), 6);
}

TEST_F(SessioneTest, LoSvuotamentoSiAnnullaCoiTipi) {
    s.dimensioni(9, 9);
    riempi();
    ASSERT_TRUE(s.scegli_tipo(Elenco::verticali, 4));
    const crossword::Matrice prima = s.matrice();
    s.svuota();
    EXPECT_EQ(s.tipo(Elenco::verticali), 0);
    EXPECT_EQ(s.matrice(), crossword::Matrice(9, 9));
    EXPECT_EQ(s.annulla(), (systems::Cella{0, 0}));
    EXPECT_EQ(s.matrice(), prima);
    EXPECT_EQ(s.tipo(Elenco::verticali), 4);
}

TEST_F(SessioneTest, IlCambioDiGiocoPortaViaIlLotDelNomeInLinea) {
    riempi();
    ASSERT_EQ(s.salva_come("a"), Salvataggio::salvato);
    cartella.scrivi("a.lot", "x");
    s.passa_al_lotto();
    EXPECT_FALSE(cartella.esiste("a.lot"));
    EXPECT_TRUE(cartella.esiste("a.sen"));
    EXPECT_EQ(s.nome(), "");
    EXPECT_EQ(s.matrice(), crossword::Matrice(5, 5));
    EXPECT_EQ(s.gioco(), Gioco::lotto(5));
}

TEST_F(SessioneTest, LaFormaInForzaPortaViaLoSviluppoLoStesso) {
    s.passa_al_lotto();
    salvato_e_sviluppato("a");
    ASSERT_TRUE(cartella.esiste("a.lot"));
    s.cambia_forma(5);
    EXPECT_FALSE(cartella.esiste("a.lot"));
    EXPECT_FALSE(s.salvato());
}

TEST_F(SessioneTest, UnaFormaCheNonEsisteRestaNelFile) {
    const std::string testo = "9,4,4,\"2\",-1,-1,-1,7,0\r\n" + riga_righe(5, 5);
    cartella.scrivi("a.sel", testo);
    s.passa_al_lotto();
    ASSERT_TRUE(s.apri("a"));
    EXPECT_EQ(s.gioco(), Gioco::lotto(7));
    EXPECT_TRUE(s.tipi(Elenco::orizzontali).empty());
    EXPECT_EQ(s.tipo(Elenco::orizzontali), -1);
    EXPECT_EQ(s.salva(), Salvataggio::salvato);
    EXPECT_NE(cartella.leggi("a.sel").find(",-1,-1,-1,7,0\r\n"), std::string::npos);
}

TEST_F(SessioneTest, MisureCheIlGiocoNonHaRestanoDietroLaGriglia) {
    const std::string testo = "14,2,19,\"\",0,0,-1,0\r\n" + riga_righe(20, 3);
    cartella.scrivi("a.sen", testo);
    ASSERT_TRUE(s.apri("a"));
    EXPECT_EQ(s.colonne(), 6);
    EXPECT_EQ(s.righe(), 6);
    EXPECT_EQ(s.matrice().colonne(), 20);
    EXPECT_EQ(s.matrice().righe(), 3);
    EXPECT_EQ(s.salva(), Salvataggio::salvato);
    EXPECT_EQ(cartella.leggi("a.sen"), "14,2,19,\"6\",0,0,0,0\r\n" + riga_righe(20, 3));
}

TEST_F(SessioneTest, UnConteggioGuastoSiSalvaComeSiLegge) {
    cartella.scrivi("a.sen", "14,5,5,\"6\",0,0,0,2345678\r\n" + riga_righe(6, 6));
    ASSERT_TRUE(s.apri("a"));
    EXPECT_EQ(s.senza_ripetizioni(), 2345678);
    EXPECT_EQ(s.sistema().senza_ripetizioni, platform::leggi_numero("2.345.678"));
}

TEST_F(SessioneTest, LaQuotaSiPrendeDalTotaleComeSiLegge) {
    s.dimensioni(15, 15);
    ASSERT_EQ(s.totale(), 172172);
    EXPECT_EQ(s.prezzo().totale, "86.086,00");
    s.quote(2);
    EXPECT_EQ(s.prezzo().quota, "43,04");
    s.totale_combinazioni();
    EXPECT_EQ(s.prezzo().quota, "43.043,00");
    s.quote(5000);
    EXPECT_EQ(s.prezzo().quote, "999");
    s.quote(0);
    EXPECT_EQ(s.prezzo().quote, "1");
    s.quote(7);
    s.azzera();
    EXPECT_EQ(s.prezzo().quote, "1");
}

TEST_F(SessioneTest, TornataAlSuperEnalottoLeggeLaTabellaDelleRuote) {
    support::metti_archivio(cartella.radice(), support::archivio_di_prova());
    ASSERT_TRUE(s.apri_archivio().ok());
    EXPECT_EQ(s.archivio.draws.RecordCount(), 320);
    s.passa_al_lotto();
    ASSERT_TRUE(s.apri_archivio().ok());
    EXPECT_EQ(s.archivio.draws.RecordCount(), 320);
    s.passa_al_superenalotto();
    ASSERT_TRUE(s.apri_archivio().ok());
    EXPECT_EQ(s.archivio.draws.RecordCount(), 3200);
}

TEST_F(SessioneTest, GenerataNellaRegolaESiAnnullaInUnPasso) {
    support::metti_archivio(cartella.radice(), support::archivio_di_prova());
    s.dimensioni(8, 8);
    s.posa({3, 3}, 44);
    int posate = 0;
    statistics::Seguito seguito;
    seguito.posata = [&](int, int, int) { return ++posate > 0; };
    s.in_linea("vecchio");
    s.quote(3);
    Cambiamento detto;
    s.osserva([&](const Cambiamento& c) { detto = c; });
    EXPECT_EQ(s.genera(0, seguito), Generato::completo);
    s.osserva({});
    EXPECT_TRUE(detto.celle);
    EXPECT_TRUE(s.classi_generate()) << "as long as nothing is laid otherwise";
    EXPECT_EQ(s.nome(), "");
    EXPECT_EQ(s.prezzo().quote, "1");
    EXPECT_EQ(posate, 64);
    EXPECT_TRUE(s.completo());
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            EXPECT_FALSE(s.sbarrati({x, y}).test(static_cast<std::size_t>(s.matrice()(x, y))));
        }
    }
    EXPECT_EQ(s.genera(0, seguito), Generato::gia_iniziato);
    s.annulla();
    EXPECT_EQ(s.matrice()(3, 3), 44);
    EXPECT_EQ(s.matrice()(0, 0), 0);
}

TEST_F(SessioneTest, CompletaRiempieIlCruciverbaSenzaSegnarloCambiato) {
    support::metti_archivio(cartella.radice(), support::archivio_inventato({4200, 10, 10}, 1));
    ASSERT_TRUE(s.apri_archivio().ok());
    s.completa({});
    EXPECT_TRUE(s.completo());
    EXPECT_TRUE(s.salvato());
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 6; ++x) {
            EXPECT_FALSE(s.sbarrati({x, y}).test(static_cast<std::size_t>(s.matrice()(x, y))));
        }
    }
}

TEST_F(SessioneTest, SenzaArchivioNonGenera) {
    platform::Err errore;
    EXPECT_EQ(s.genera(0, {}, &errore), Generato::abbandonato);
    EXPECT_FALSE(errore.ok());
    EXPECT_EQ(s.matrice(), crossword::Matrice(6, 6));
    EXPECT_FALSE(s.salvato());
}

TEST_F(SessioneTest, LaNazionaleVuoleCentoEstrazioni) {
    support::metti_archivio(cartella.radice(), support::archivio_inventato({320, 320, 99}, 1));
    s.passa_al_lotto();
    EXPECT_EQ(s.genera(10, {}), Generato::poche_estrazioni);
    EXPECT_EQ(s.matrice(), crossword::Matrice(5, 5));
}

TEST_F(SessioneTest, InterrottaRestaCioCheHaPosato) {
    s.posa({0, 0}, 1);
    s.posa({0, 1}, 2);
    EXPECT_EQ(s.completa_con_scelti([](int, int, int) { return false; }), Completato::interrotto);
    EXPECT_EQ(s.matrice()(1, 0), 2);
    EXPECT_EQ(s.matrice()(2, 0), 0);
    EXPECT_EQ(s.annulla(), (systems::Cella{1, 0}));
    EXPECT_EQ(s.matrice()(1, 0), 0);
}

TEST_F(SessioneTest, CompletataDiceCheLeCelleSonoCambiate) {
    s.posa({0, 0}, 1);
    s.posa({0, 1}, 2);
    Cambiamento detto;
    s.osserva([&](const Cambiamento& c) { detto = c; });
    s.completa_con_scelti({});
    EXPECT_TRUE(detto.celle);
    EXPECT_TRUE(detto.cronologia);
    s.osserva({});
}

TEST_F(SessioneTest, DisponeUnCruciverbaInteroInUnPassoSoloSottoLaRegola) {
    riempi();
    const crossword::Matrice prima = s.matrice();
    crossword::Matrice nuova = prima;
    // Two rows change places; nothing stands on the diagonals twice afterwards.
    for (int x = 0; x < 6; ++x) {
        nuova.scrivi(x, 0, prima(x, 1));
        nuova.scrivi(x, 1, prima(x, 0));
    }
    ASSERT_TRUE(s.disponi(nuova));
    EXPECT_EQ(s.matrice(), nuova);
    EXPECT_FALSE(s.salvato());
    EXPECT_EQ(s.totale(), 14);
    EXPECT_TRUE(s.annulla().has_value());
    EXPECT_EQ(s.matrice(), prima);
    EXPECT_TRUE(s.ripeti().has_value());
    EXPECT_EQ(s.matrice(), nuova);
    // Against the rule, not full, of another size: nothing changes.
    crossword::Matrice doppia = nuova;
    doppia.scrivi(1, 0, nuova(0, 0));
    EXPECT_FALSE(s.disponi(doppia));
    crossword::Matrice vuota = nuova;
    vuota.scrivi(5, 5, 0);
    EXPECT_FALSE(s.disponi(vuota));
    EXPECT_FALSE(s.disponi(crossword::Matrice(7, 6)));
    EXPECT_EQ(s.matrice(), nuova);
}
