// The archive as the main form opens, keeps and closes it.
#include "platform/application.h"
#include "statistics/archivio.h"
#include "statistics/lettore_archivio.h"
#include "support/archivio.h"
#include "support/programma.h"
#include "support/tenuto.h"

using platform::Valore;
using support::Icona;
using support::Mostrato;
using support::Programma;
using support::Pulsanti;

namespace {

const Mostrato assente{"Errore n.3024 Impossibile trovare il file.", "", Pulsanti::ok,
                       Icona::nessuna};

}  // namespace

TEST(ApriArchivio, AllAvvioLaTabellaDelSuperEnalottoSullUltimoRecord) {
    Programma p;
    EXPECT_TRUE(p.mostrati().empty());
    statistics::Archivio& a = p.form1.sessione.archivio;
    EXPECT_EQ(a.draws.RecordCount(), 320);
    EXPECT_EQ(a.campo_concorso.Value(), Valore(320));
    EXPECT_EQ(a.draws.Fields("concorso").Value(), Valore(320));
    EXPECT_FALSE(a.draws.Fields("Jolly").Value().nullo());
    EXPECT_EQ(a.campo_data.Value(), a.draws.Fields(0).Value());
    EXPECT_TRUE(a.campo_data.Value().data());
    EXPECT_EQ(a.campo_1.Value(), a.draws.Fields("1°estratto").Value());
    // Of the six numbers the bound places hold the second to the sixth.
    for (int i = 1; i <= 5; ++i) {
        EXPECT_EQ(a.campi_estratti[static_cast<std::size_t>(i)].Value(),
                  a.draws.Fields(std::to_string(i + 1) + "°estratto").Value());
    }
    EXPECT_TRUE(a.campi_estratti[0].Value().nullo());
    EXPECT_EQ(a.national.RecordCount(), 320);
    EXPECT_EQ(a.national.Fields("concorso").Value(), Valore(320));
}

TEST(ApriArchivio, InLottoFinoAlPrimoRitornoRestaLaTabellaDelSuperEnalotto) {
    Programma p;
    Programma::clic(p.form1.Image10);
    p.form1.apri_archivio();
    EXPECT_FALSE(p.form1.sessione.archivio.draws.Fields("Jolly").Value().nullo());
}

TEST(ApriArchivio, TornatiAlSuperEnalottoLaTabellaDelleRuote) {
    Programma p;
    Programma::clic(p.form1.Image10);
    Programma::clic(p.form1.Image8);
    p.form1.apri_archivio();
    statistics::Archivio& a = p.form1.sessione.archivio;
    EXPECT_FALSE(p.form1.sessione.gioco().e_lotto());
    EXPECT_EQ(a.draws.RecordCount(), 3200);
    EXPECT_EQ(a.campo_concorso.Value(), Valore(320));
    EXPECT_EQ(a.draws.Fields("concorso").Value(), Valore(320));
    EXPECT_EQ(a.campo_1.Value(), Valore("VE"));
    for (int i = 1; i <= 5; ++i) {
        EXPECT_EQ(a.campi_estratti[static_cast<std::size_t>(i)].Value(),
                  a.draws.Fields(std::to_string(i) + "°estratto").Value());
    }
}

TEST(ApriArchivio, SenzaArchivioLErroreESiParte) {
    Programma p(false, [](const support::Cartella& c) { support::togli_archivio(c.radice()); });
    EXPECT_EQ(p.mostrati(), std::vector<Mostrato>{assente});
    EXPECT_TRUE(p.form1.isVisible());
    EXPECT_TRUE(p.form1.sessione.salvato());
    EXPECT_FALSE(p.form1.sessione.archivio.draws.MoveLast().ok());
}

TEST(ApriArchivio, TenutoDaAltriInEsclusivaLoDice) {
    Programma p;
    {
        const support::Tenuto tenuto(p.cartella.radice() + "/archivio/drawit.sqlite");
        p.form1.apri_archivio();
    }
    EXPECT_EQ(p.mostrati(), (std::vector<Mostrato>{{"Database archivio già aperto", "Sortivario",
                                                    Pulsanti::ok, Icona::nessuna}}));
    // The handles stay as they were.
    EXPECT_TRUE(p.form1.sessione.archivio.draws.MoveLast().ok());
    EXPECT_EQ(p.form1.sessione.archivio.campo_concorso.Value(), Valore(320));
}

TEST(ApriArchivio, NonUnDatabaseEUnAltroErrore) {
    Programma p(false, [](const support::Cartella& c) {
        support::metti_archivio(c.radice(), "non un database, ma un testo qualunque");
    });
    EXPECT_EQ(p.mostrati(),
              (std::vector<Mostrato>{{"Errore n.3343 Formato di database non riconosciuto.", "",
                                      Pulsanti::ok, Icona::nessuna}}));
}

TEST(ApriArchivio, LaNazionaleVuotaNonEUnErrore) {
    Programma p(false, [](const support::Cartella& c) {
        support::metti_archivio(c.radice(), support::archivio_inventato({3, 3, 0}, 5));
    });
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(p.form1.sessione.archivio.national.RecordCount(), 0);
    EXPECT_EQ(p.form1.sessione.archivio.campo_concorso.Value(), Valore(3));
}

TEST(ApriArchivio, UnaTabellaVuotaEUnErroreSulMoveLast) {
    Programma p(false, [](const support::Cartella& c) {
        support::metti_archivio(c.radice(), support::archivio_inventato({0, 3, 3}, 5));
    });
    EXPECT_EQ(p.mostrati(), (std::vector<Mostrato>{{"Errore n.3021 Nessun record corrente.", "",
                                                    Pulsanti::ok, Icona::nessuna}}));
}

TEST(ApriArchivio, SenzaLaTabellaNazionaleLErroreEILegamiRestano) {
    Programma p(false, [](const support::Cartella& c) {
        support::esegui_sql(c.radice() + "/archivio/drawit.sqlite", "DROP TABLE archivion");
    });
    const auto detti = p.mostrati();
    ASSERT_EQ(detti.size(), 1U);
    EXPECT_TRUE(detti[0].testo.startsWith("Errore n.3078 ")) << detti[0].testo.toStdString();
    EXPECT_EQ(detti[0].titolo, "");
    statistics::Archivio& a = p.form1.sessione.archivio;
    EXPECT_EQ(a.campo_concorso.Value(), Valore(1)) << "on the first record still";
    EXPECT_EQ(a.campi_estratti[5].Value(), a.draws.Fields("6°estratto").Value());
    EXPECT_TRUE(a.draws.MoveLast().ok());
    EXPECT_FALSE(a.national.MoveLast().ok());
}

TEST(ApriArchivio, UnPercorsoColSeparatoreFinaleDaUnaRadiceTroppoLunga) {
    Programma p;
    systems::Sessione sessione(p.cartella.programma() + "/");
    EXPECT_EQ(sessione.apri_archivio().Number, 3024);
}

TEST(ApriArchivio, AllUscitaSiChiude) {
    Programma p;
    p.form1.close();
    EXPECT_EQ(p.form1.sessione.archivio.draws.MoveLast().Number, platform::errore_chiuso);
    EXPECT_EQ(p.form1.sessione.archivio.national.MoveLast().Number, platform::errore_chiuso);
}

TEST(Ruote, NellOrdineELeLoroSigle) {
    Programma p;
    const QStringList nomi{"Bari",    "Cagliari", "Firenze", "Genova",  "Milano",   "Napoli",
                           "Palermo", "Roma",     "Torino",  "Venezia", "Nazionale"};
    const std::vector<std::string> sigle{"BA", "CA", "FI", "GE", "MI",       "NA",
                                         "PA", "RM", "TO", "VE", "NAZIONALE"};
    ASSERT_EQ(p.form1.Combo6->count(), 11);
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(p.form1.Combo6->itemText(i), nomi[i]);
        EXPECT_EQ(statistics::codice_ruota(i), sigle[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(statistics::codice_ruota(-1), "");
    EXPECT_EQ(statistics::codice_ruota(11), "");
    EXPECT_EQ(p.form1.Combo6->ListIndex(), 0);
}
