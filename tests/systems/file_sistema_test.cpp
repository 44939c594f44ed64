#include "systems/file_sistema.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

#include "support/cartella.h"
#include "support/guasti.h"

using namespace systems;
using crossword::Gioco;

namespace {

namespace fs = std::filesystem;

/// The shape with 3 rows of 4 columns.
Sistema esempio(Gioco gioco = Gioco()) {
    Sistema s;
    s.totale = 1200;
    s.diagonali = "2";
    s.tipo_righe = 0;
    s.tipo_colonne = 1;
    s.tipo_diagonali = 2;
    s.gioco = gioco;
    s.senza_ripetizioni = 980;
    s.matrice = crossword::Matrice(4, 3);
    const std::int16_t numeri[] = {1, 12, 23, 34, 45, 56, 67, 78, 89, 90, 2, 3};
    for (int i = 0; i < 12; ++i) s.matrice.scrivi(i % 4, i / 4, numeri[i]);
    return s;
}

const std::string griglia = "1,12,23,34,\r\n45,56,67,78,\r\n89,90,2,3,\r\n";
const std::string testo_sen = "1200,2,3,\"2\",0,1,2,980\r\n" + griglia;
const std::string testo_sel = "1200,2,3,\"2\",0,1,2,4,980\r\n" + griglia;

class FileSistema : public testing::Test {
protected:
    Sistema leggi(const std::string& testo, Gioco gioco = Gioco()) {
        cartella.scrivi(gioco.e_lotto() ? "a.sel" : "a.sen", testo);
        return leggi_sistema(cartella.programma(), "a", gioco);
    }
    support::Cartella cartella;
};

void uguali(const Sistema& letto, const Sistema& atteso) {
    EXPECT_EQ(letto.totale, atteso.totale);
    EXPECT_EQ(letto.diagonali, atteso.diagonali);
    EXPECT_EQ(letto.tipo_righe, atteso.tipo_righe);
    EXPECT_EQ(letto.tipo_colonne, atteso.tipo_colonne);
    EXPECT_EQ(letto.tipo_diagonali, atteso.tipo_diagonali);
    EXPECT_EQ(letto.senza_ripetizioni, atteso.senza_ripetizioni);
    EXPECT_EQ(letto.matrice, atteso.matrice);
    EXPECT_EQ(letto.gioco, atteso.gioco);
}

TEST_F(FileSistema, IByteDiUnSenEDiUnSel) {
    EXPECT_EQ(testo_sistema(esempio()), testo_sen);
    EXPECT_EQ(testo_sistema(esempio(Gioco::lotto(4))), testo_sel);
}

TEST_F(FileSistema, ScrittoConLEstensioneDelGioco) {
    EXPECT_TRUE(scrivi_sistema(cartella.programma(), "a", esempio()));
    EXPECT_EQ(cartella.leggi("a.sen"), testo_sen);
    EXPECT_FALSE(cartella.esiste("a.sel"));
    EXPECT_TRUE(scrivi_sistema(cartella.programma(), "a", esempio(Gioco::lotto(4))));
    EXPECT_EQ(cartella.leggi("a.sel"), testo_sel);
    EXPECT_EQ(cartella.leggi("a.sen"), testo_sen);
}

TEST_F(FileSistema, MaiSviluppatoHaZeroInFondoEDiagonaliVuoteRestanoVuote) {
    Sistema s;
    s.matrice = crossword::Matrice(1, 1);
    EXPECT_EQ(testo_sistema(s), "0,0,0,\"\",-1,-1,-1,0\r\n0,\r\n");
    s.gioco = Gioco::lotto();
    EXPECT_EQ(testo_sistema(s), "0,0,0,\"\",-1,-1,-1,5,0\r\n0,\r\n");
}

TEST_F(FileSistema, RilettoUgualeInOgniMisura) {
    for (const bool lotto : {false, true}) {
        for (int c = 5; c <= 15; ++c) {
            for (int r = 5; r <= 15; ++r) {
                Sistema s = esempio(lotto ? Gioco::lotto(3 + c % 3) : Gioco());
                s.matrice = crossword::Matrice(c, r);
                for (int i = 0; i < c * r; ++i) {
                    s.matrice.scrivi(i % c, i / c, static_cast<std::int16_t>(i % 91));
                }
                ASSERT_TRUE(scrivi_sistema(cartella.programma(), "a", s));
                uguali(leggi_sistema(cartella.programma(), "a", lotto ? Gioco::lotto() : Gioco()),
                       s);
            }
        }
    }
}

TEST_F(FileSistema, LaRigaDelFileELaRigaDellaGriglia) {
    const Sistema s = leggi(testo_sen);
    EXPECT_EQ(s.matrice(3, 0), 34);
    EXPECT_EQ(s.matrice(0, 2), 89);
    EXPECT_EQ(s.matrice.ubound(1), 3);
    EXPECT_EQ(s.matrice.ubound(2), 2);
}

TEST_F(FileSistema, UnSelConTuttiICampi) {
    uguali(leggi(testo_sel, Gioco::lotto()), esempio(Gioco::lotto(4)));
}

TEST_F(FileSistema, UnSelLettoComeSenPrendeLaFormaPerIlConto) {
    EXPECT_EQ(leggi(testo_sel).senza_ripetizioni, 4);
}

TEST_F(FileSistema, IlPrimoCampoNonDecideNiente) {
    for (const char* primo : {"0", "-5", "99999999999", "1e400", "parola", "\"x\""}) {
        const Sistema s = leggi(primo + testo_sen.substr(4));
        EXPECT_EQ(s.senza_ripetizioni, 980) << primo;
        EXPECT_EQ(s.matrice, esempio().matrice) << primo;
    }
}

TEST_F(FileSistema, IlSoloLfChiudeLaRigaComeCrLf) {
    std::string testo = testo_sen;
    std::erase(testo, '\r');
    uguali(leggi(testo), esempio());
}

TEST_F(FileSistema, CampiCheNonSonoNumeriValgonoZero) {
    const Sistema s = leggi("x,1,1,\"2\",a,b,c,d\r\nuno,2,\r\n3,\"\",\r\n");
    EXPECT_EQ(s.totale, 0);
    EXPECT_EQ(s.tipo_righe, 0);
    EXPECT_EQ(s.tipo_diagonali, 0);
    EXPECT_EQ(s.senza_ripetizioni, 0);
    EXPECT_EQ(s.matrice(0, 0), 0);
    EXPECT_EQ(s.matrice(1, 0), 2);
    EXPECT_EQ(s.matrice(0, 1), 3);
    EXPECT_EQ(s.matrice(1, 1), 0);
}

TEST_F(FileSistema, UnaCasellaFuoriMisuraEZeroELeAltreRestanoAlPosto) {
    const Sistema s = leggi("0,0,2,\"\",0,0,0,0\r\n1,99999,3,\r\n");
    EXPECT_EQ(s.matrice(0, 0), 1);
    EXPECT_EQ(s.matrice(1, 0), 0);
    EXPECT_EQ(s.matrice(2, 0), 3);
}

TEST_F(FileSistema, UnFileCheMancaDaZeri) {
    for (const Gioco gioco : {Gioco::superenalotto(), Gioco::lotto()}) {
        const Sistema s = leggi_sistema(cartella.programma(), "manca", gioco);
        EXPECT_EQ(s.totale, 0);
        EXPECT_EQ(s.diagonali, "");
        EXPECT_EQ(s.tipo_righe, 0);
        EXPECT_EQ(s.tipo_colonne, 0);
        EXPECT_EQ(s.tipo_diagonali, 0);
        EXPECT_EQ(s.senza_ripetizioni, 0);
        EXPECT_EQ(s.matrice, crossword::Matrice(1, 1));
    }
    EXPECT_EQ(leggi_sistema(cartella.programma(), "manca", Gioco::lotto()).gioco, Gioco::lotto(0));
}

TEST_F(FileSistema, TagliatoInOgniPuntoSiLeggeFinDoveArriva) {
    for (std::size_t n = 0; n <= testo_sel.size(); ++n) {
        const Sistema s = leggi(testo_sel.substr(0, n), Gioco::lotto());
        ASSERT_LE(s.matrice.colonne(), 4);
        ASSERT_LE(s.matrice.righe(), 3);
    }
    const Sistema s = leggi(testo_sel.substr(0, testo_sel.find("67")), Gioco::lotto());
    EXPECT_EQ(s.matrice(1, 1), 56);
    EXPECT_EQ(s.matrice(2, 1), 0);
    EXPECT_EQ(s.matrice(3, 2), 0);
}

TEST_F(FileSistema, MisureEnormiNonPassano256Per256) {
    EXPECT_EQ(leggi("0,255,255,\"\",0,0,0,0\r\n").matrice, crossword::Matrice(256, 256));
    EXPECT_EQ(leggi("0,256,300,\"\",0,0,0,0\r\n").matrice, crossword::Matrice(1, 1));
    EXPECT_EQ(leggi("0,-1,2000000000,\"\",0,0,0,0\r\n").matrice, crossword::Matrice(1, 1));
}

TEST_F(FileSistema, ByteACasoNonFannoDanno) {
    std::mt19937 caso(13);
    const std::string lettere = "0123456789,,,,\"\r\n-e. ";
    for (int giro = 0; giro < 400; ++giro) {
        const Gioco gioco = giro % 3 == 0 ? Gioco::lotto() : Gioco();
        std::string testo = testo_sel;
        if (giro % 2 == 0) {
            for (int i = 0; i < 6; ++i) testo[caso() % testo.size()] = static_cast<char>(caso());
        } else {
            testo.assign(caso() % 200, '\0');
            for (char& c : testo) c = lettere[caso() % lettere.size()];
        }
        const Sistema s = leggi(testo, gioco);
        ASSERT_TRUE(s.matrice.colonne() >= 1 && s.matrice.colonne() <= 256);
        ASSERT_TRUE(s.matrice.righe() >= 1 && s.matrice.righe() <= 256);
        ASSERT_EQ(leggi_conteggio(cartella.programma(), "a", gioco), s.senza_ripetizioni);
    }
}

TEST_F(FileSistema, IlConteggioELUltimoCampoDellaTesta) {
    cartella.scrivi("a.sen", testo_sen);
    cartella.scrivi("b.sel", testo_sel);
    EXPECT_EQ(leggi_conteggio(cartella.programma(), "a", Gioco()), 980);
    EXPECT_EQ(leggi_conteggio(cartella.programma(), "b", Gioco::lotto()), 980);
    EXPECT_FALSE(leggi_conteggio(cartella.programma(), "a", Gioco::lotto()).has_value());
    EXPECT_FALSE(leggi_conteggio(cartella.programma(), "manca", Gioco()).has_value());
}

TEST_F(FileSistema, LoSviluppoSiCercaConLEstensioneDelGioco) {
    cartella.scrivi("a.col", "");
    cartella.scrivi("B.LOT", "");
    EXPECT_TRUE(esiste_sviluppo(cartella.programma(), "a", Gioco()));
    EXPECT_FALSE(esiste_sviluppo(cartella.programma(), "a", Gioco::lotto()));
    EXPECT_TRUE(esiste_sviluppo(cartella.programma(), "b", Gioco::lotto()));
    EXPECT_FALSE(esiste_sviluppo(cartella.programma(), "b", Gioco()));
    fs::create_directory(cartella.file("c.col"));
    EXPECT_FALSE(esiste_sviluppo(cartella.programma(), "c", Gioco()));
}

TEST_F(FileSistema, SovrascriveIlNomeCheDifferisceNelleMaiuscole) {
    cartella.scrivi("Mio.SEN", "vecchio");
    EXPECT_TRUE(scrivi_sistema(cartella.programma(), "mio", esempio()));
    EXPECT_EQ(cartella.leggi("Mio.SEN"), testo_sen);
    EXPECT_FALSE(cartella.esiste("mio.sen"));
}

TEST_F(FileSistema, IlDiscoCheRifiutaLasciaIlVecchioIntero) {
    cartella.scrivi("a.sen", "vecchio");
    for (std::int64_t spazio = 0; spazio < std::ssize(testo_sen); ++spazio) {
        for (const bool perde : {false, true}) {
            support::Disco disco;
            disco.spazio = spazio;
            disco.perde = perde;
            ASSERT_FALSE(scrivi_sistema(cartella.programma(), "a", esempio()));
            ASSERT_EQ(cartella.leggi("a.sen"), "vecchio");
        }
    }
    {
        support::Disco disco;
        disco.rename_fallisce = true;
        EXPECT_FALSE(scrivi_sistema(cartella.programma(), "a", esempio()));
    }
    support::Disco disco;
    disco.fsync_fallisce = true;
    EXPECT_FALSE(scrivi_sistema(cartella.programma(), "a", esempio()));
    EXPECT_EQ(cartella.leggi("a.sen"), "vecchio");
    EXPECT_EQ(std::distance(fs::directory_iterator(cartella.programma()), {}), 1);
}

TEST_F(FileSistema, ChiMuoreMentreSalvaLasciaIlVecchioOIlNuovo) {
    bool finito = false;
    bool morto = false;
    for (int vita = 1; !finito && vita < 100; ++vita) {
        cartella.scrivi("a.sen", "vecchio");
        const pid_t figlio = fork();
        if (figlio == 0) {
            support::Disco disco;
            disco.vita = vita;
            _exit(scrivi_sistema(cartella.programma(), "a", esempio()) ? 0 : 1);
        }
        int stato = 0;
        ASSERT_EQ(waitpid(figlio, &stato, 0), figlio);
        finito = WIFEXITED(stato);
        morto = morto || WIFSIGNALED(stato);
        const std::string rimasto = cartella.leggi("a.sen");
        ASSERT_TRUE(rimasto == testo_sen || (rimasto == "vecchio" && !finito)) << vita;
    }
    EXPECT_TRUE(finito && morto);
}

TEST_F(FileSistema, InUnaCartellaCheMancaNonSiScrive) {
    EXPECT_FALSE(scrivi_sistema(cartella.file("manca"), "a", esempio()));
}

}  // namespace
