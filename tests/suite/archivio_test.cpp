// The archive that imports make.
#include "statistics/archivio.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "archivio/importa.h"
#include "platform/ambiente.h"
#include "platform/blocco.h"
#include "platform/disk.h"
#include "suite/archivio_prova.h"

using namespace importazione;
using namespace prova;

TEST_F(ArchivioSuite, LeTabelleSonoQuelleCheIlProgrammaLegge) {
    const Rapporto r = porta(giorno("2024/01/04", 1) + giorno("2024/01/02", 40) + una_sestina);
    ASSERT_TRUE(r.riuscito);
    EXPECT_TRUE(r.scritto);
    const auto archivio = tabella("archivio");
    ASSERT_EQ(archivio.size(), 20U);
    for (std::size_t i = 0; i < 20; ++i) EXPECT_EQ(archivio[i][1], codici[i % 10]);
    EXPECT_EQ(archivio[0],
              (std::vector<std::string>{"2024-01-02", "BA", "40", "41", "42", "43", "44", "1"}));
    EXPECT_EQ(archivio[19].back(), "2");
    const auto archivion = tabella("archivion");
    ASSERT_EQ(archivion.size(), 2U);
    EXPECT_EQ(archivion[1],
              (std::vector<std::string>{"2024-01-04", "NAZ", "11", "12", "13", "14", "15", "2"}));
    EXPECT_EQ(tabella("archivios"),
              (support::Righe{{"1997-12-03", "20", "36", "39", "41", "72", "76", "88", "5", "1"}}));
    EXPECT_TRUE(difetti(archivio_).empty());
    // The fields have the names that the program looks for.
    statistics::Archivio aperto;
    ASSERT_TRUE(aperto.apri(nome_nel_programma(), true).ok());
    EXPECT_EQ(aperto.draws.Fields("1°estratto").Value(), aperto.draws.Fields(2).Value());
    EXPECT_EQ(aperto.draws.Fields("concorso").Value(), platform::Valore(2));
    ASSERT_TRUE(aperto.apri(nome_nel_programma(), false).ok());
    EXPECT_EQ(aperto.draws.Fields("6°estratto").Value(), platform::Valore(76));
    EXPECT_EQ(aperto.draws.Fields("Jolly").Value(), platform::Valore(88));
    EXPECT_EQ(aperto.draws.Fields("superstar").Value(), platform::Valore(5));
    EXPECT_EQ(aperto.draws.Fields("concorso").Value(), platform::Valore(1));
}

TEST_F(ArchivioSuite, DueVolteLoStessoNonCambiaNulla) {
    const std::string testo = giorno("2024/01/02", 1) + una_sestina;
    ASSERT_TRUE(porta(testo).scritto);
    const std::string prima = support::contenuto(archivio_);
    const Rapporto r = porta(testo);
    EXPECT_TRUE(r.riuscito);
    EXPECT_FALSE(r.scritto);
    EXPECT_EQ(r.portati.at(0).nuove, 0);
    EXPECT_EQ(r.portati.at(0).uguali, 12);
    EXPECT_TRUE(r.differenze.empty());
    EXPECT_EQ(support::contenuto(archivio_), prima);
    EXPECT_EQ(in_righe(r).back(), "L'archivio era già aggiornato.");
}

TEST_F(ArchivioSuite, UnEstrazioneDiversaRestaComEraSeNonSiChiedeDiSostituirla) {
    porta(giorno("2024/01/02", 1) + una_sestina);
    const std::string altra =
        "2024/01/02\tCA\t71\t72\t73\t74\t75\n1997-12-03,20,36,39,41,72,77,88,6\n";
    Rapporto r = porta(altra);
    EXPECT_TRUE(r.riuscito);
    EXPECT_FALSE(r.scritto);
    ASSERT_EQ(r.differenze.size(), 2U);
    EXPECT_EQ(r.differenze[0].riga, 1);
    EXPECT_EQ(r.differenze[0].testo,
              "02/01/2024 CA: 71 72 73 74 75 nel file, 2 3 4 5 6 nell'archivio");
    EXPECT_EQ(r.differenze[1].testo,
              "03/12/1997: 20 36 39 41 72 77 Jolly 88 SuperStar 6 nel file, "
              "20 36 39 41 72 76 Jolly 88 SuperStar 5 nell'archivio");
    EXPECT_EQ(tabella("archivio")[1][2], "2");
    r = porta(altra, true);
    EXPECT_TRUE(r.scritto);
    EXPECT_EQ(r.differenze.size(), 2U);
    EXPECT_EQ(tabella("archivio")[1][2], "71");
    EXPECT_EQ(tabella("archivios")[0][6], "77");
    EXPECT_EQ(tabella("archivios")[0][8], "6");
    EXPECT_FALSE(porta(altra, true).scritto);
}

TEST_F(ArchivioSuite, LeEstrazioniSenzaTutteLeRuoteAspettanoFuori) {
    const std::string intero = giorno("2024/01/02", 1);
    const std::size_t meta = intero.find("2024/01/02\tNA");
    Rapporto r = porta(giorno("2023/12/30", 50) + intero.substr(0, meta));
    EXPECT_EQ(r.incomplete, 1);
    EXPECT_EQ(tabella("archivio").size(), 10U);
    EXPECT_EQ(tabella("archivion").size(), 1U);
    EXPECT_EQ(stato_ora().back(), "In attesa delle altre ruote: 1 estrazione del Lotto");
    // A file of the other wheels completes it, and the first file again changes nothing.
    r = porta(intero.substr(meta));
    EXPECT_EQ(r.incomplete, 0);
    EXPECT_EQ(tabella("archivio").size(), 20U);
    EXPECT_EQ(tabella("archivion").size(), 2U);
    EXPECT_FALSE(porta(intero.substr(0, meta)).scritto);
    EXPECT_TRUE(difetti(archivio_).empty());
}

TEST_F(ArchivioSuite, UnFilePerRuotaInUnaVoltaSola) {
    std::vector<std::string> file;
    const std::string intero = giorno("2024/01/02", 1);
    std::size_t da = 0;
    for (int i = 0; da < intero.size(); ++i) {
        const std::size_t a = intero.find('\n', da) + 1;
        file.push_back(scrivi("ruota" + std::to_string(i) + ".txt", intero.substr(da, a - da)));
        da = a;
    }
    std::vector<std::size_t> passi;
    const Rapporto r = importa(archivio_, file, false, [&](std::size_t fatti, std::size_t tutti) {
        EXPECT_EQ(tutti, 11U);
        passi.push_back(fatti);
    });
    EXPECT_TRUE(r.riuscito);
    EXPECT_EQ(passi.size(), 12U);
    EXPECT_EQ(passi.back(), 11U);
    EXPECT_EQ(tabella("archivio").size(), 10U);
    EXPECT_EQ(tabella("archivion").size(), 1U);
}

TEST_F(ArchivioSuite, INumeriDelFileRestanoSoloSeSalgonoConLeDate) {
    porta("100,1997-12-03,20,36,39,41,72,76,88,\n105,1997-12-06,2,4,25,29,30,52,24,\n");
    EXPECT_EQ(concorsi("archivios"), (std::vector<std::string>{"100", "105"}));
    // A later draw without a number makes all of them run from 1.
    porta("1997-12-10,31,2,14,23,78,88,40\n");
    EXPECT_EQ(concorsi("archivios"), (std::vector<std::string>{"1", "2", "3"}));
}

TEST_F(ArchivioSuite, INumeriCheRicomincianoOgniAnnoNonSiTengono) {
    const std::string testo =
        "104,1997-12-30,20,36,39,41,72,76,88,\n1,1998-01-03,2,4,25,29,30,52,24,\n";
    porta(testo);
    EXPECT_EQ(concorsi("archivios"), (std::vector<std::string>{"1", "2"}));
    EXPECT_FALSE(porta(testo).scritto);
}

TEST_F(ArchivioSuite, UnEstrazionePiuVecchiaRinumeraLeAltre) {
    porta(giorno("2024/01/04", 1));
    porta(giorno("2024/01/02", 30));
    const auto numeri = concorsi("archivio");
    EXPECT_EQ(numeri.front(), "1");
    EXPECT_EQ(numeri.back(), "2");
    EXPECT_EQ(tabella("archivio")[0][0], "2024-01-02");
    EXPECT_EQ(concorsi("archivion"), (std::vector<std::string>{"1", "2"}));
}

TEST_F(ArchivioSuite, LeRigheRifiutateSiRiportanoELeAltreEntrano) {
    const Rapporto r =
        porta("1997-12-03,20,36,39,41,72,76,88,5\n1997-12-06,32,4,25,29,30,30,24,\n");
    EXPECT_TRUE(r.scritto);
    ASSERT_EQ(r.rifiuti.size(), 1U);
    EXPECT_EQ(r.rifiuti[0].in_riga(), platform::da_mostrare(cartella_.file("da_importare.txt")) +
                                          ":2: numero ripetuto nell'estrazione");
    EXPECT_EQ(r.portati.at(0).rifiutate, 1);
    EXPECT_EQ(tabella("archivios").size(), 1U);
}

TEST_F(ArchivioSuite, UnSoloFileNonRiconosciutoENienteViEScritto) {
    const std::string buono = scrivi("buono.txt", una_sestina);
    for (const std::string& cattivo : {scrivi("testo.txt", "una lettera\nalla zia\n"),
                                       scrivi("vuoto.txt", ""), scrivi("rotto.zip", "PK\3\4rotto"),
                                       cartella_.file("non_c_e.txt"), cartella_.programma()}) {
        const Rapporto r = importa(archivio_, {buono, cattivo}, false, {});
        EXPECT_FALSE(r.riuscito) << cattivo;
        EXPECT_FALSE(r.scritto);
        EXPECT_EQ(r.errori.size(), 1U);
        EXPECT_EQ(r.errori.at(0).file, cattivo);
        EXPECT_FALSE(fs::exists(archivio_));
        EXPECT_EQ(in_righe(r).back(), "Niente è stato scritto.");
    }
}

TEST_F(ArchivioSuite, UnDiscoCheRifiutaLaScritturaLasciaLArchivioDiPrima) {
    porta(una_sestina);
    const std::string prima = support::contenuto(archivio_);
    class SenzaRinomina : public platform::Syscalls {
    public:
        int rename(const char* /*vecchio*/, const char* /*nuovo*/) override {
            errno = ENOSPC;
            return -1;
        }
    } guasto;
    auto posto = std::make_optional<platform::Ripristina<platform::Syscalls*>>(
        platform::ambiente().chiamate, &guasto);
    const Rapporto r = porta("1997-12-06,32,4,25,29,30,52,24,\n");
    posto.reset();
    EXPECT_FALSE(r.riuscito);
    EXPECT_EQ(r.errori.at(0).testo, "l'archivio non si può scrivere");
    EXPECT_EQ(support::contenuto(archivio_), prima);
    EXPECT_EQ(platform::Dir(cartella_.radice() + "/archivio", "*").size(), 1U);
}

TEST_F(ArchivioSuite, UnArchivioCheNonSiLeggeNonSiTocca) {
    support::scrivi_file(archivio_, "non un database, ma un testo qualunque");
    const std::string prima = support::contenuto(archivio_);
    const Rapporto r = porta(una_sestina);
    EXPECT_FALSE(r.riuscito);
    EXPECT_EQ(support::contenuto(archivio_), prima);
    EXPECT_EQ(r.errori.at(0).testo,
              "l'archivio non si legge: Formato di database non riconosciuto.");
}

TEST_F(ArchivioSuite, DueImportazioniInsiemeNo) {
    platform::File altra(cartella_.radice() + "/archivio", platform::File::Modo::cartella);
    ASSERT_EQ(platform::blocca(altra), platform::Presa::presa);
    const Rapporto r = porta(una_sestina);
    altra.chiudi();
    EXPECT_FALSE(r.riuscito);
    EXPECT_EQ(r.errori.at(0).testo, "un'altra importazione è in corso");
    EXPECT_TRUE(porta(una_sestina).riuscito);
}

TEST_F(ArchivioSuite, IlDimostrativoAspettaCheUnImportazioneFinisca) {
    platform::File altra(cartella_.radice() + "/archivio", platform::File::Modo::cartella);
    ASSERT_EQ(platform::blocca(altra), platform::Presa::presa);
    EXPECT_FALSE(metti_dimostrativo(archivio_));
    EXPECT_FALSE(platform::esiste_file(archivio_));
    altra.chiudi();
    EXPECT_TRUE(metti_dimostrativo(archivio_));
    EXPECT_TRUE(difetti(archivio_).empty());
}

TEST_F(ArchivioSuite, IlDimostrativoHa320EstrazioniPerTipoDal1900) {
    dimostra();
    EXPECT_EQ(tabella("archivio").size(), 3200U);
    EXPECT_EQ(tabella("archivion").size(), 320U);
    EXPECT_EQ(tabella("archivios").size(), 320U);
    EXPECT_EQ(tabella("archivios")[0][0], "1900-01-06");
    EXPECT_TRUE(difetti(archivio_).empty());
    const auto righe = stato_ora();
    ASSERT_EQ(righe.size(), 3U);
    EXPECT_EQ(righe[0],
              "SuperEnalotto: 320 estrazioni dal 06/01/1900 al 17/02/1906, concorsi da 1 a 320 "
              "(archivio dimostrativo)");
    EXPECT_EQ(dimostrativo(), dimostrativo());
}

TEST_F(ArchivioSuite, LaPrimaImportazioneDiUnGiocoSostituisceLeSueEstrazioniInventate) {
    dimostra();
    Rapporto r = porta(una_sestina);
    EXPECT_TRUE(r.sostituito_dimostrativo);
    EXPECT_EQ(tabella("archivios").size(), 1U);
    // An empty table would stop every start with an error: the other game keeps its own.
    EXPECT_EQ(tabella("archivio").size(), 3200U);
    EXPECT_EQ(stato_ora()[0],
              "SuperEnalotto: 1 estrazione dal 03/12/1997 al 03/12/1997, "
              "concorsi da 1 a 1");
    EXPECT_NE(stato_ora()[1].find("dimostrativo"), std::string::npos);
    r = porta(giorno("2024/01/02", 1));
    EXPECT_TRUE(r.sostituito_dimostrativo);
    EXPECT_EQ(tabella("archivio").size(), 10U);
    EXPECT_FALSE(porta(giorno("2024/01/04", 1)).sostituito_dimostrativo);
    EXPECT_EQ(tabella("archivio").size(), 20U);
}

TEST_F(ArchivioSuite, VerificaTrovaIDifetti) {
    const auto guasta = [&](const std::string& comando) {
        porta(giorno("2024/01/02", 1) + giorno("2024/01/04", 20) + una_sestina);
        support::esegui_sql(archivio_, comando);
        const auto trovati = difetti(archivio_);
        fs::remove(archivio_);
        return trovati;
    };
    using Difetti = std::vector<std::string>;
    EXPECT_EQ(guasta("UPDATE archivios SET \"3°estratto\"=91"),
              Difetti{"archivios, record 1: numero fuori da 1-90"});
    EXPECT_EQ(guasta("UPDATE archivion SET \"2°estratto\"=\"1°estratto\" WHERE concorso=2"),
              Difetti{"archivion, record 2: numero ripetuto"});
    EXPECT_EQ(guasta("UPDATE archivio SET RUOTA='CA' WHERE _rowid_=1"),
              Difetti{"archivio, record 1: ruota fuori ordine"});
    EXPECT_EQ(guasta("UPDATE archivion SET concorso=1"),
              Difetti{"archivion, record 2: concorso fuori ordine"});
    EXPECT_EQ(guasta("UPDATE archivion SET data='2024-01-02'"),
              Difetti{"archivion, record 2: data fuori ordine"});
    EXPECT_FALSE(guasta("DELETE FROM archivio WHERE _rowid_=20").empty());
    EXPECT_EQ(guasta("DROP TABLE archivion"),
              Difetti{"archivion: Impossibile trovare la tabella o la query."});
    EXPECT_EQ(guasta("ALTER TABLE archivios ADD COLUMN altra"),
              Difetti{"archivios: colonne diverse da quelle attese"});
    EXPECT_EQ(guasta("UPDATE archivios SET data=NULL"),
              Difetti{"archivios, record 1: senza data o senza concorso"});
}
