// The command that imports draws, as a player runs it.
#include <fcntl.h>
#include <unistd.h>
#include <utility>

#include "archivio/comando.h"
#include "avvio.h"
#include "platform/disk.h"
#include "statistics/archivio.h"
#include "suite/archivio_prova.h"

using namespace importazione;
using namespace prova;

namespace {

struct Risposta {
    int codice = -1;
    std::string uscita;
    std::string errori;
};

class Comando : public ArchivioSuite {
protected:
    Risposta esegui(std::vector<std::string> parole, bool con_archivio = true) const {
        if (con_archivio) {
            parole.insert(parole.begin() + 1, {"--archivio", archivio_});
        }
        const std::string uscita = cartella_.file("uscita");
        const std::string errori = cartella_.file("errori");
        const int codice = support::avvia(programma_, std::move(parole), uscita, errori);
        return {codice, support::contenuto(uscita), support::contenuto(errori)};
    }

    std::string programma_ = ARCHIVIO;
};

/// The command as it is installed, whose files are in the user's own folder.
class ComandoInstallato : public Comando {
protected:
    ComandoInstallato() {
        fs::create_directories(cartella_.file("bin"));
        programma_ = cartella_.file("bin/archivio") + fs::path(ARCHIVIO).extension().string();
        std::error_code altro_disco;
        fs::create_hard_link(ARCHIVIO, programma_, altro_disco);
        if (altro_disco) fs::copy_file(ARCHIVIO, programma_);
        ::setenv("XDG_DATA_HOME", dati_.c_str(), 1);
    }
    ~ComandoInstallato() override { ::unsetenv("XDG_DATA_HOME"); }

    const std::string dati_ = cartella_.file("dati");
};

}  // namespace

TEST_F(Comando, ImportaDiceCheCosaHaFattoEdEsceCon0) {
    const std::string file = scrivi("a.csv", una_sestina);
    const Risposta r = esegui({"importa", file});
    EXPECT_EQ(r.codice, 0);
    EXPECT_EQ(r.errori, "");
    EXPECT_EQ(r.uscita, platform::da_mostrare(file) +
                            ": 1 riga nuova, 0 già presenti, 0 diverse, 0 rifiutate\n"
                            "Archivio aggiornato.\n"
                            "SuperEnalotto: 1 estrazione dal 03/12/1997 al 03/12/1997, concorsi "
                            "da 1 a 1\n"
                            "Lotto: nessuna estrazione\n"
                            "Ruota Nazionale: nessuna estrazione\n");
}

TEST_F(Comando, ConRigheRifiutateOLasciateEsceCon1) {
    const Risposta r = esegui({"importa", scrivi("a.csv", una_sestina + "zero\n")});
    EXPECT_EQ(r.codice, 1);
    EXPECT_EQ(r.errori,
              platform::da_mostrare(cartella_.file("a.csv")) + ":2: data mancante o non valida\n");
    const std::string altra = scrivi("b.csv", "1997-12-03,20,36,39,41,72,77,88,5\n");
    EXPECT_EQ(esegui({"importa", altra}).codice, 1);
    EXPECT_EQ(esegui({"importa", "--sostituisci", altra}).codice, 0);
    EXPECT_EQ(esegui({"importa", altra}).codice, 0);
}

TEST_F(Comando, QuelCheNonSiPuoFareEsceCon2) {
    EXPECT_EQ(esegui({"importa", cartella_.file("non_c_e")}).codice, 2);
    EXPECT_EQ(esegui({"importa"}).codice, 2);
    const Risposta assente = esegui({"stato"});
    EXPECT_EQ(assente.codice, 2);
    EXPECT_EQ(assente.errori,
              "archivio: " + platform::da_mostrare(archivio_) + ": Impossibile trovare il file.\n");
    EXPECT_EQ(esegui({"verifica"}).codice, 2);
    EXPECT_EQ(esegui({"stato", "altro"}).codice, 2);
    EXPECT_EQ(esegui({"stato", "--sostituisci"}).codice, 2);
    EXPECT_EQ(esegui({"importa", "--boh", "x"}).codice, 2);
    EXPECT_EQ(esegui({"boh"}).codice, 2);
    EXPECT_EQ(esegui({"stato", "--archivio"}, false).codice, 2);
}

TEST_F(Comando, AiutoStatoVerificaEDimostrativo) {
    const Risposta aiuto = esegui({"--aiuto"}, false);
    EXPECT_EQ(aiuto.codice, 0);
    for (const char* parola : {"importa", "stato", "verifica", "--sostituisci", "--archivio"}) {
        EXPECT_NE(aiuto.uscita.find(parola), std::string::npos) << parola;
    }
    EXPECT_EQ(esegui({"dimostrativo"}).codice, 0);
    const Risposta stato = esegui({"stato"});
    EXPECT_EQ(stato.codice, 0);
    EXPECT_NE(stato.uscita.find("archivio dimostrativo"), std::string::npos);
    EXPECT_EQ(esegui({"verifica"}).uscita, "L'archivio è in ordine.\n");
    support::esegui_sql(archivio_, "UPDATE archivios SET concorso=1");
    const Risposta difettoso = esegui({"verifica"});
    EXPECT_EQ(difettoso.codice, 1);
    EXPECT_NE(difettoso.uscita.find("concorso fuori ordine"), std::string::npos);
}

TEST_F(Comando, IlDimostrativoNonPrendeIlPostoDiNessuno) {
    porta(una_sestina);
    EXPECT_EQ(esegui({"dimostrativo"}).codice, 0);
    EXPECT_EQ(tabella("archivios").size(), 1U);
}

TEST_F(Comando, ConUnDatabaseDellaSuiteAccantoAvverte) {
    porta(una_sestina);
    EXPECT_EQ(esegui({"stato"}).uscita.find("Attenzione"), std::string::npos);
    support::scrivi_file(cartella_.radice() + "/archivio/DrawIt.mdb", "x");
    EXPECT_NE(esegui({"stato"}).uscita.find("Attenzione: finché c'è "), std::string::npos);
}

TEST(Suite, PortaUnArchivioDimostrativoInOrdine) {
    const std::string file = SUITE_DIR "/archivio/drawit.sqlite";
    EXPECT_TRUE(difetti(file).empty());
    EXPECT_EQ(archivio_della_suite(SUITE_DIR "/cruciverba"), file);
    statistics::Archivio aperto;
    EXPECT_TRUE(
        aperto.apri(statistics::file_archivio(platform::radice(SUITE_DIR "/cruciverba")), false)
            .ok());
}

TEST_F(ComandoInstallato, AiutoEParoleSbagliateNonScrivonoSulDisco) {
    using Parole = std::vector<std::string>;
    for (const Parole& aiuto : {Parole{"--aiuto"}, Parole{"--help"}, Parole{"-h"}}) {
        const Risposta r = esegui(aiuto, false);
        EXPECT_EQ(r.codice, 0) << aiuto[0];
        EXPECT_TRUE(r.uscita.starts_with("Uso: archivio ")) << aiuto[0];
    }
    for (const Parole& sbagliate :
         {Parole{"boh"}, Parole{"importa"}, Parole{"stato", "--boh"}, Parole{"verifica", "altro"},
          Parole{"stato", "--archivio"}, Parole{"stato", "--archivio", ""},
          Parole{"dimostrativo", "--", "--archivio"}}) {
        const Risposta r = esegui(sbagliate, false);
        EXPECT_EQ(r.codice, 2) << sbagliate.back();
        EXPECT_TRUE(r.errori.starts_with("archivio: ")) << r.errori;
    }
    EXPECT_FALSE(fs::exists(dati_));
}

TEST_F(ComandoInstallato, UnComandoInRegolaTrovaLaCartellaDelProgramma) {
    EXPECT_EQ(esegui({"dimostrativo"}, false).codice, 0);
    EXPECT_TRUE(fs::exists(dati_ + "/sortivario/archivio/drawit.sqlite"));
    EXPECT_EQ(esegui({"stato"}, false).codice, 0);
}

TEST_F(Comando, DopoIDueTrattiOgniParolaEUnFile) {
    const Risposta r = esegui({"importa", "--", "--aiuto"});
    EXPECT_EQ(r.codice, 2);
    EXPECT_TRUE(r.errori.starts_with("--aiuto: ")) << r.errori;
}
