// Elaborations that meet what an earlier one left, a full disk or their own end.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "development/elaborazione.h"
#include "platform/lavoro.h"
#include "support/guasti.h"
#include "support/sviluppo.h"

using namespace development;
using namespace support;

namespace {

class EliminaTemporanei : public testing::Test {
protected:
    void elimina(bool riesce = true) {
        elimina_temporanei(cartella.programma(), [&](const std::string& nome) {
            cestinati.push_back(nome);
            if (riesce) fs::remove(nome);
            return riesce;
        });
    }
    support::Cartella cartella;
    std::vector<std::string> cestinati;
};

TEST_F(EliminaTemporanei, IFileDiLavoroSparisconoSenzaCestino) {
    for (const char* nome : {"temp.col", "TEMP.LOT", "temp.mdb", "Temp.ldb", "temp-99999999.nuovo",
                             "temp-99999999-3.nuovo"}) {
        cartella.scrivi(nome, "x");
    }
    elimina();
    EXPECT_TRUE(cestinati.empty());
    EXPECT_TRUE(fs::is_empty(cartella.programma()));
}

TEST_F(EliminaTemporanei, IlFileDiUnProgrammaAlLavoroResta) {
    const platform::Lavoro tenuto(cartella.programma());
    const std::string lasciato = "temp-" + std::to_string(::getppid()) + "-0.nuovo";
    cartella.scrivi(lasciato, "x");
    elimina();
    EXPECT_TRUE(fs::exists(tenuto.nome()));
    EXPECT_FALSE(cartella.esiste(lasciato));
    EXPECT_TRUE(cestinati.empty());
}

TEST_F(EliminaTemporanei, IlSistemaTempoDiUnGiocatoreVaNelCestino) {
    for (const char* nome : {"tempo.sen", "tempo.col", "Temp", "temp.sel", "temp-x.nuovo"}) {
        cartella.scrivi(nome, "x");
    }
    elimina();
    std::sort(cestinati.begin(), cestinati.end());
    EXPECT_EQ(cestinati,
              (std::vector<std::string>{cartella.file("Temp"), cartella.file("temp-x.nuovo"),
                                        cartella.file("temp.sel"), cartella.file("tempo.col"),
                                        cartella.file("tempo.sen")}));
}

TEST_F(EliminaTemporanei, SenzaCestinoUnFileDelGiocatoreResta) {
    cartella.scrivi("tempo.sen", "x");
    elimina(false);
    elimina_temporanei(cartella.programma(), {});
    EXPECT_EQ(cestinati.size(), 1U);
    EXPECT_EQ(cartella.leggi("tempo.sen"), "x");
}

TEST_F(EliminaTemporanei, GliAltriFileELeCartelleRestano) {
    for (const char* nome : {"atemp.col", "tem.col", "a.sen", "rip.dat"}) {
        cartella.scrivi(nome, "x");
    }
    fs::create_directory(cartella.file("temporali"));
    elimina();
    EXPECT_TRUE(cestinati.empty());
    EXPECT_EQ(std::distance(fs::directory_iterator(cartella.programma()), {}), 5);
}

class CompletaSviluppo : public testing::Test {
protected:
    void SetUp() override {
        cartella.scrivi("temp.col", "nuovo");
        cartella.scrivi("a.col", "vecchio!");
    }
    bool completa(std::int64_t dimensione = 5) {
        return completa_sviluppo(cartella.file("temp.col"), cartella.file("a.col"), dimensione);
    }
    support::Cartella cartella;
};

TEST_F(CompletaSviluppo, IlNuovoPrendeIlPostoDelVecchio) {
    support::Disco disco;
    EXPECT_TRUE(completa());
    EXPECT_EQ(cartella.leggi("a.col"), "nuovo");
    EXPECT_FALSE(cartella.esiste("temp.col"));
    EXPECT_GE(disco.sync, 1);
}

TEST_F(CompletaSviluppo, AncheSenzaUnVecchio) {
    fs::remove(cartella.file("a.col"));
    EXPECT_TRUE(completa());
    EXPECT_EQ(cartella.leggi("a.col"), "nuovo");
}

TEST_F(CompletaSviluppo, IlNomeInAltreLettereELoStessoFile) {
    fs::rename(cartella.file("a.col"), cartella.file("A.COL"));
    EXPECT_TRUE(completa());
    EXPECT_EQ(cartella.leggi("A.COL"), "nuovo");
    EXPECT_FALSE(cartella.esiste("a.col"));
}

TEST_F(CompletaSviluppo, DiMisuraSbagliataNonNeRestaNessuno) {
    EXPECT_FALSE(completa(6));
    EXPECT_FALSE(cartella.esiste("a.col"));
}

TEST_F(CompletaSviluppo, SeIlDiscoRifiutaIlVecchioVaViaLoStesso) {
    {
        support::Disco disco;
        disco.rename_fallisce = true;
        EXPECT_FALSE(completa());
    }
    EXPECT_FALSE(cartella.esiste("a.col"));
    cartella.scrivi("a.col", "vecchio!");
    support::Disco disco;
    disco.fsync_fallisce = true;
    EXPECT_FALSE(completa());
    EXPECT_FALSE(cartella.esiste("a.col"));
}

TEST_F(CompletaSviluppo, UnaCartellaDiQuelNomeResta) {
    fs::remove(cartella.file("a.col"));
    fs::create_directory(cartella.file("a.col"));
    EXPECT_FALSE(completa());
    EXPECT_TRUE(fs::is_directory(cartella.file("a.col")));
}

using SviluppoGuasto = Sviluppo;

/// The whole elaboration of a small crossword, as a program would run it.
bool elabora_tutto(const Richiesta& richiesta, const std::string& finale) {
    Elaborazione lavoro(richiesta, {});
    return lavoro.sviluppa() == Conclusione::completa &&
           completa_sviluppo(lavoro.file_temporaneo(), finale, lavoro.byte_scritti());
}

TEST_F(SviluppoGuasto, IlDiscoPienoLasciaSoltantoLineeIntere) {
    spedite();
    richiesta.matrice = cruciverba(6, 8);
    EXPECT_EQ(sviluppa(), Conclusione::completa);
    const std::string intero = testo;
    for (std::int64_t spazio = 0; spazio < std::ssize(intero); spazio += 13) {
        fs::remove(cartella.file("temp.col"));
        support::Disco disco;
        disco.spazio = spazio;
        Elaborazione lavoro(richiesta, {});
        EXPECT_EQ(lavoro.sviluppa(), Conclusione::guasta) << spazio;
        const std::string scritto = cartella.leggi("temp.col");
        EXPECT_TRUE(scritto.empty() || scritto.ends_with("\r\n")) << spazio;
    }
}

TEST_F(SviluppoGuasto, UnDiscoChePerdeLeRigheEGuasto) {
    spedite();
    richiesta.matrice = cruciverba(6, 8);
    support::Disco disco;
    disco.spazio = 100;
    disco.perde = true;
    EXPECT_EQ(sviluppa(), Conclusione::guasta);
}

TEST_F(SviluppoGuasto, UnaCartellaAlPostoDelFileTemporaneoEUnGuasto) {
    spedite();
    richiesta.matrice = cruciverba(6, 6);
    fs::create_directories(cartella.file("temp.col/dentro"));
    Elaborazione lavoro(richiesta, {});
    EXPECT_EQ(lavoro.sviluppa(), Conclusione::guasta);
}

TEST_F(SviluppoGuasto, ChiMuoreAMetaLasciaIlVecchioOIlNuovoIntero) {
    tabella("cr0600.rid", "1,2,3,4,5,6\r\n");
    tabella("cr0800.rid", "1,2,3,4,5,6\r\n3,4,5,6,7,8\r\n");
    richiesta.matrice = cruciverba(6, 8);
    richiesta.senza_ripetizioni = true;
    const std::string finale = cartella.file("a.col");
    const std::string nuovo = senza_ripetizioni(sviluppo_semplice(richiesta));
    bool finito = false;
    bool morto = false;
    for (int vita = 1; !finito && vita < 1000; ++vita) {
        elimina_temporanei(cartella.programma(), {});
        cartella.scrivi("a.col", "vecchio");
        const pid_t figlio = fork();
        if (figlio == 0) {
            support::Disco disco;
            disco.vita = vita;
            _exit(elabora_tutto(richiesta, finale) ? 0 : 1);
        }
        int stato = 0;
        ASSERT_EQ(waitpid(figlio, &stato, 0), figlio);
        finito = WIFEXITED(stato);
        morto = morto || WIFSIGNALED(stato);
        const std::string rimasto = cartella.leggi("a.col");
        ASSERT_TRUE(rimasto == nuovo || (rimasto == "vecchio" && !finito)) << vita;
        EXPECT_EQ(finito ? WEXITSTATUS(stato) : 0, 0);
    }
    EXPECT_TRUE(finito && morto);
    elimina_temporanei(cartella.programma(), {});
    EXPECT_EQ(std::distance(fs::directory_iterator(cartella.programma()), {}), 1);
}

TEST_F(SviluppoGuasto, UnNuovoLavoroNonRisenteDiQuelloFallito) {
    spedite();
    richiesta.matrice = cruciverba(6, 6);
    cartella.scrivi("temp.col", "1,2,3\r\n");
    cartella.scrivi("temp.mdb", "x");
    elimina_temporanei(cartella.programma(), {});
    ASSERT_TRUE(elabora_tutto(richiesta, cartella.file("a.col")));
    elimina_temporanei(cartella.programma(), {});
    EXPECT_EQ(cartella.leggi("a.col"), senza_ripetizioni(sviluppo_semplice(richiesta)));
    EXPECT_EQ(std::distance(fs::directory_iterator(cartella.programma()), {}), 1);
}

}  // namespace
