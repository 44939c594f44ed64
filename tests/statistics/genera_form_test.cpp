// Both "Genera" buttons, pressed as a player does.
#include <algorithm>
#include <memory>

#include "archivio_finto.h"
#include "crossword/linee.h"
#include "generazione.h"
#include "statistics/statistica.h"
#include "support/tenuto.h"

using statistics::EsitoRiempimento;
using statistics::Generazione;
using statistics::Statistico;
using support::con;
using support::Icona;
using support::Mostrato;
using support::Programma;
using support::Pulsanti;
using support::uguali;

namespace {

const Mostrato servono_cento{
    "Per poter Realizzare un sistema statistico devono essere state effettuate almeno 100 "
    "estrazioni per la ruota esaminata",
    "", Pulsanti::ok, Icona::informazione};

constexpr int nazionale = 10;

/// The crossword that the logic lays from draws held in memory.
Generazione attesa(bool lotto, const std::vector<support::Record>& records, platform::Rnd& rnd,
                   crossword::Matrice& matrice) {
    const support::Cartella altrove;
    support::ArchivioFinto draws(records);
    Statistico s;
    return statistics::genera_statistico(lotto ? crossword::Gioco::lotto() : crossword::Gioco(), s,
                                         draws, altrove.file("mstat.dat"), matrice, rnd, {});
}

/// Draws of a wheel by its index in the list.
std::vector<support::Record> della_ruota(int indice, int quante = 320) {
    const std::uint32_t seme = indice == nazionale ? 2U : 3U + static_cast<std::uint32_t>(indice);
    return support::estrazioni(quante, seme);
}

/// What every press that works leaves behind.
void a_riposo(const Programma& p) {
    const app::Form1& f = p.form1;
    EXPECT_TRUE(f.Frame3->isVisible());
    EXPECT_FALSE(f.ProgressBar1->isVisible());
    EXPECT_FALSE(f.sessione.salvato());
    EXPECT_FALSE(f.in_elaborazione());
    EXPECT_EQ(f.MSFlexGrid1->Row(), 0);
    EXPECT_EQ(f.MSFlexGrid1->Col(), 0);
    EXPECT_EQ(platform::MousePointer(), 0);
    EXPECT_TRUE(f.updatesEnabled());
    const auto vietati = crossword::numeri_sulle_linee(f.sessione.matrice(), 0, 0);
    for (std::size_t i = 1; i <= 90; ++i) {
        EXPECT_EQ(f.CMDnum[i]->isEnabled(), !vietati.test(i)) << i;
        EXPECT_EQ(platform::Tag(f.CMDnum[i]), vietati.test(i) ? "0" : "") << i;
    }
    const std::size_t diversi = crossword::numeri_in_gioco(f.sessione.matrice()).size();
    EXPECT_EQ(f.lblngioco->text(), diversi == 0 ? QString() : QString::number(diversi));
    EXPECT_EQ(f.List1->count(), static_cast<int>(diversi));
}

void in_lotto(Programma& p, int ruota) {
    Programma::clic(p.form1.Image10);
    Programma::scegli(p.form1.Combo6, ruota);
}

void vuota_con_un_clic(Programma& p) {
    p.comando(3);
}

}  // namespace

TEST(GeneraSuperEnalotto, LaPrimaVoltaQuestiPostiDellaClassifica) {
    Programma p;
    Programma::clic(p.form1.cmdstat);
    std::vector<int> posti;
    for (int x = 0; x < 6; ++x) {
        const auto& tabella = p.form1.sessione.statistico.statistica();
        const auto voce =
            std::find_if(tabella.begin() + 1, tabella.end(), [&](const statistics::Voce& v) {
                return v.numero == p.form1.sessione.matrice()(x, 0);
            });
        posti.push_back(static_cast<int>(voce - tabella.begin()));
    }
    EXPECT_EQ(posti, (std::vector<int>{64, 49, 53, 27, 28, 70}));
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(GeneraSuperEnalotto, OgniCasellaHaIlSuoNumeroEIlRestoARiposo) {
    Programma p;
    p.dimensioni(9, 8);
    Programma::clic(p.form1.cmdstat);
    crossword::Matrice m(9, 8);
    platform::Rnd rnd;
    ASSERT_EQ(attesa(false, support::estrazioni(320, 1), rnd, m).conclusione,
              EsitoRiempimento::completa);
    uguali(p, m);
    a_riposo(p);
    EXPECT_EQ(p.form1.Combo1->Text(), "9");
    EXPECT_EQ(p.form1.Combo2->Text(), "8");
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(GeneraSuperEnalotto, ScriveMstatConLaDataDellUltimaEstrazione) {
    Programma p;
    p.cartella.scrivi("mstat.dat", "vecchio");
    Programma::clic(p.form1.cmdstat);
    const auto data = statistics::leggi_data(p.cartella.file("mstat.dat"));
    EXPECT_EQ(data, support::giorno(319));
    statistics::Graduatoria letta{};
    ASSERT_TRUE(statistics::leggi_mstat(letta, p.cartella.file("mstat.dat")));
    for (std::size_t i = 1; i <= 90; ++i) {
        EXPECT_EQ(letta[i].numero, p.form1.sessione.statistico.statistica()[i].numero);
        EXPECT_LE(letta[i].valore, 200);
    }
}

TEST(Genera, ConLaPrimaCasellaPienaNonFaNulla) {
    for (const bool lotto : {false, true}) {
        Programma p;
        if (lotto) in_lotto(p, 0);
        p.dimensioni(7, 7);
        p.cella(0, 0);
        p.numero(44);
        p.form1.sessione.segna_salvato(true);
        p.form1.sessione.in_linea("mio");
        const crossword::Matrice prima = p.form1.sessione.matrice();
        const QString in_gioco = p.form1.lblngioco->text();
        Programma::clic(p.form1.cmdstat);
        if (lotto) Programma::clic(p.form1.cmdstat2);
        uguali(p, prima);
        EXPECT_TRUE(p.form1.sessione.salvato());
        EXPECT_EQ(p.form1.Tag(), "mio");
        EXPECT_EQ(p.form1.Combo1->Text(), "7");
        EXPECT_EQ(p.form1.lblngioco->text(), in_gioco);
        EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 1);
        EXPECT_FALSE(p.cartella.esiste("mstat.dat"));
        EXPECT_TRUE(p.mostrati().empty());
    }
}

TEST(Genera, ConLaPrimaCasellaVuotaIlRestoSiPerde) {
    Programma p;
    p.cella(3, 3);
    p.numero(44);
    p.form1.sessione.in_linea("mio");
    Programma::clic(p.form1.cmdstat);
    crossword::Matrice m(6, 6);
    platform::Rnd rnd;
    attesa(false, support::estrazioni(320, 1), rnd, m);
    uguali(p, m);
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_EQ(p.form1.lblsistema->text(), "");
}

TEST(Genera, MentreLavoraIlTabelloneENascostoELaBarraConta) {
    Programma p;
    int passi = 0;
    QObject::connect(p.form1.ProgressBar1, &QProgressBar::valueChanged, &p.form1, [&](int valore) {
        if (valore == 0) return;
        EXPECT_EQ(valore, ++passi);
        EXPECT_EQ(p.form1.ProgressBar1->maximum(), 36);
        EXPECT_TRUE(p.form1.ProgressBar1->isVisible());
        EXPECT_FALSE(p.form1.Frame3->isVisible());
        EXPECT_TRUE(p.form1.in_elaborazione());
        EXPECT_EQ(platform::MousePointer(), 11);
        EXPECT_EQ(p.form1.MSFlexGrid1->Row(), (valore - 1) / 6);
        EXPECT_EQ(p.form1.MSFlexGrid1->Col(), (valore - 1) % 6);
    });
    Programma::clic(p.form1.cmdstat);
    EXPECT_EQ(passi, 36);
}

TEST(Genera, DueVolteDaDueGriglieDiverseEDueAvviiLaStessa) {
    crossword::Matrice prima;
    crossword::Matrice seconda;
    for (int avvio = 0; avvio < 2; ++avvio) {
        Programma p;
        Programma::clic(p.form1.cmdstat);
        const crossword::Matrice una = p.form1.sessione.matrice();
        vuota_con_un_clic(p);
        Programma::clic(p.form1.cmdstat);
        EXPECT_NE(p.form1.sessione.matrice(), una);
        if (avvio == 1) {
            EXPECT_EQ(una, prima);
            EXPECT_EQ(p.form1.sessione.matrice(), seconda);
        }
        prima = una;
        seconda = p.form1.sessione.matrice();
    }
}

TEST(Genera, LaSequenzaNonRicominciaCambiandoGiocoOConUnNuovo) {
    Programma p;
    platform::Rnd rnd;
    crossword::Matrice m(6, 6);
    Programma::clic(p.form1.cmdstat);
    attesa(false, support::estrazioni(320, 1), rnd, m);
    uguali(p, m);
    in_lotto(p, 4);
    Programma::clic(p.form1.cmdstat2);
    m = crossword::Matrice(5, 5);
    attesa(true, della_ruota(4), rnd, m);
    uguali(p, m);
    p.risposte = {support::vbNo};
    p.comando(0);
    Programma::clic(p.form1.cmdstat);
    m = crossword::Matrice(5, 5);
    attesa(true, della_ruota(4), rnd, m);
    uguali(p, m);
}

TEST(GeneraLotto, OgniRuotaDalleSueEstrazioni) {
    Programma p;
    Programma::clic(p.form1.Image10);
    platform::Rnd rnd;
    for (int ruota = 0; ruota <= nazionale; ++ruota) {
        Programma::scegli(p.form1.Combo6, ruota);
        Programma::clic(p.form1.cmdstat2);
        crossword::Matrice m(5, 5);
        attesa(true, della_ruota(ruota), rnd, m);
        uguali(p, m);
        a_riposo(p);
        EXPECT_EQ(p.form1.Combo6->ListIndex(), ruota);
        vuota_con_un_clic(p);
    }
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_FALSE(p.cartella.esiste("mstat.dat"));
    EXPECT_EQ(p.form1.sessione.statistico.statistica(), statistics::Graduatoria{});
}

TEST(GeneraLotto, ILDueBottoniFannoLoStesso) {
    for (const bool secondo : {false, true}) {
        Programma p;
        in_lotto(p, 2);
        p.dimensioni(6, 7);
        Programma::clic(secondo ? p.form1.cmdstat2 : p.form1.cmdstat);
        crossword::Matrice m(6, 7);
        platform::Rnd rnd;
        attesa(true, della_ruota(2), rnd, m);
        uguali(p, m);
        a_riposo(p);
    }
}

TEST(GeneraLotto, UnaGrigliaChePerdeLaStradaRestaComeSta) {
    // On many an invented wheel some cell of 15 by 15 can be filled by no number.
    for (int ruota = 0; ruota < 10; ++ruota) {
        crossword::Matrice m(15, 15);
        platform::Rnd rnd;
        const Generazione g = attesa(true, della_ruota(ruota), rnd, m);
        if (g.conclusione == EsitoRiempimento::completa || g.sorteggi == 0) continue;
        Programma p;
        in_lotto(p, ruota);
        p.dimensioni(15, 15);
        Programma::clic(p.form1.cmdstat2);
        uguali(p, m);
        a_riposo(p);
        EXPECT_TRUE(p.mostrati().empty());
        EXPECT_NE(p.form1.lblngioco->text(), "");
        return;
    }
    FAIL() << "every wheel completes its grid";
}

TEST(GeneraLotto, LaNazionaleConMenoDiCentoEstrazioniLoDice) {
    for (const int quante : {0, 99}) {
        Programma p(false, con({320, 320, quante}));
        in_lotto(p, nazionale);
        p.dimensioni(6, 5);
        Programma::clic(p.form1.cmdstat2);
        EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{servono_cento});
        uguali(p, crossword::Matrice(6, 5));
        a_riposo(p);
        EXPECT_EQ(p.form1.lblngioco->text(), "");
        // A refusal takes no random number.
        Programma::scegli(p.form1.Combo6, 0);
        Programma::clic(p.form1.cmdstat2);
        crossword::Matrice m(6, 5);
        platform::Rnd rnd;
        attesa(true, della_ruota(0), rnd, m);
        uguali(p, m);
    }
}

TEST(GeneraLotto, LaNazionaleDaCentoATrecentoEstrazioniTacendo) {
    for (const int quante : {100, 299}) {
        Programma p(false, con({320, 320, quante}));
        in_lotto(p, nazionale);
        Programma::clic(p.form1.cmdstat2);
        EXPECT_TRUE(p.mostrati().empty());
        uguali(p, crossword::Matrice(5, 5));
        a_riposo(p);
    }
    Programma p(false, con({320, 320, 300}));
    in_lotto(p, nazionale);
    Programma::clic(p.form1.cmdstat2);
    EXPECT_NE(p.form1.sessione.matrice()(0, 0), 0);
}

TEST(GeneraLotto, SoloLaNazionaleChiedeCentoEstrazioni) {
    Programma p(false, con({320, 99, 320}));
    in_lotto(p, 0);
    Programma::clic(p.form1.cmdstat2);
    EXPECT_TRUE(p.mostrati().empty());
    uguali(p, crossword::Matrice(5, 5));
}

TEST(GeneraLotto, LasciaLaRuotaELaperturaDopoRidaLaTabella) {
    Programma p;
    in_lotto(p, 1);
    Programma::clic(p.form1.cmdstat2);
    statistics::Archivio& a = p.form1.sessione.archivio;
    ASSERT_TRUE(a.draws.MoveLast().ok());
    EXPECT_EQ(a.draws.RecordCount(), 320);
    EXPECT_EQ(a.campo_1.Value(), platform::Valore("CA"));
    EXPECT_EQ(a.campo_concorso.Value(), platform::Valore(320));
    EXPECT_EQ(a.campi_estratti[5].Value(), a.draws.Fields("5°estratto").Value());
    p.form1.apri_archivio();
    EXPECT_FALSE(a.draws.Fields("Jolly").Value().nullo());
}

TEST(GeneraSuperEnalotto, UnArchivioDi150EstrazioniBasta) {
    Programma p(false, con({150, 3, 3}));
    Programma::clic(p.form1.cmdstat);
    crossword::Matrice m(6, 6);
    platform::Rnd rnd;
    attesa(false, support::estrazioni(150, 1), rnd, m);
    uguali(p, m);
    EXPECT_EQ(p.form1.lblngioco->text(), QString::number(p.form1.List1->count()));
}

TEST(GeneraSuperEnalotto, DopoUnCambioDiGiocoConLeUltimeDuecentoDelleRuote) {
    Programma p;
    Programma::clic(p.form1.Image10);
    Programma::clic(p.form1.Image8);
    Programma::clic(p.form1.cmdstat);
    std::vector<support::Record> righe;
    std::vector<std::vector<support::Record>> ruote;
    for (int i = 0; i < 10; ++i) ruote.push_back(della_ruota(i));
    for (std::size_t c = 0; c < 320; ++c) {
        for (const auto& ruota : ruote) {
            righe.push_back(ruota[c]);
            righe.back().numeri[5] = std::nullopt;
        }
    }
    crossword::Matrice m(6, 6);
    platform::Rnd rnd;
    ASSERT_EQ(attesa(false, righe, rnd, m).conclusione, EsitoRiempimento::completa);
    uguali(p, m);
}

TEST(Genera, SenzaArchivioLErroreENienteAltro) {
    Programma p(false, [](const support::Cartella& c) { support::togli_archivio(c.radice()); });
    p.mostrati();
    p.dimensioni(8, 7);
    Programma::clic(p.form1.cmdstat);
    EXPECT_EQ(p.mostrati(), (std::vector<Mostrato>{{"Errore n.3024 Impossibile trovare il file.",
                                                    "", Pulsanti::ok, Icona::nessuna}}));
    uguali(p, crossword::Matrice(8, 7));
    a_riposo(p);
}

TEST(Genera, LeggeLArchivioComEAlMomentoDelClic) {
    Programma p;
    support::metti_archivio(p.cartella.radice(), support::archivio_inventato({250, 3, 3}, 9));
    Programma::clic(p.form1.cmdstat);
    crossword::Matrice m(6, 6);
    platform::Rnd rnd;
    attesa(false, support::estrazioni(250, 9), rnd, m);
    uguali(p, m);
}

TEST(Genera, LaCasellaDiChiusuraFermaIlLavoro) {
    for (const bool lotto : {false, true}) {
        Programma p;
        if (lotto) in_lotto(p, 0);
        QObject::connect(p.form1.ProgressBar1, &QProgressBar::valueChanged, &p.form1,
                         [&](int valore) {
                             if (valore != 8) return;
                             p.form1.close();
                             EXPECT_TRUE(p.form1.isVisible());
                         });
        Programma::clic(lotto ? p.form1.cmdstat2 : p.form1.cmdstat);
        EXPECT_FALSE(p.form1.isVisible());
        EXPECT_FALSE(p.form1.in_elaborazione());
        const int colonne = lotto ? 5 : 6;
        EXPECT_NE(p.form1.sessione.matrice()(7 % colonne, 7 / colonne), 0);
        EXPECT_EQ(p.form1.sessione.matrice()(8 % colonne, 8 / colonne), 0);
        EXPECT_FALSE(p.form1.ProgressBar1->isVisibleTo(&p.form1));
        EXPECT_FALSE(p.form1.sessione.archivio.draws.MoveLast().ok());
    }
}

TEST(Genera, ConLArchivioTenutoDaAltriLoDiceERiempieDaQuelloDiPrima) {
    for (const bool lotto : {false, true}) {
        Programma p;
        if (lotto) in_lotto(p, 3);
        const support::Tenuto tenuto(p.cartella.radice() + "/archivio/drawit.sqlite");
        Programma::clic(lotto ? p.form1.cmdstat2 : p.form1.cmdstat);
        EXPECT_EQ(p.mostrati(),
                  (std::vector<Mostrato>{{"Database archivio già aperto", "Sortivario",
                                          Pulsanti::ok, Icona::nessuna}}));
        const int lato = lotto ? 5 : 6;
        crossword::Matrice m(lato, lato);
        platform::Rnd rnd;
        ASSERT_EQ(
            attesa(lotto, lotto ? della_ruota(3) : support::estrazioni(320, 1), rnd, m).conclusione,
            EsitoRiempimento::completa);
        uguali(p, m);
        a_riposo(p);
    }
}

TEST(GeneraLotto, SenzaUnaRuotaSceltaLaGrigliaRestaVuotaTacendo) {
    Programma p;
    in_lotto(p, 0);
    p.form1.Combo6->setCurrentIndex(-1);
    ASSERT_EQ(p.form1.Combo6->ListIndex(), -1);
    Programma::clic(p.form1.cmdstat2);
    EXPECT_TRUE(p.mostrati().empty());
    uguali(p, crossword::Matrice(5, 5));
    a_riposo(p);
}

TEST(Resetta, DimenticaLaClassifica) {
    Programma p;
    Programma::clic(p.form1.cmdstat);
    ASSERT_NE(p.form1.sessione.statistico.statistica(), statistics::Graduatoria{});
    p.form1.resetta();
    EXPECT_EQ(p.form1.sessione.statistico.statistica(), statistics::Graduatoria{});
}
