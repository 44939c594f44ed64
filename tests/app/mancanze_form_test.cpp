// What a start tells of a suite folder that nothing can be made in.
#include "app/mancanze.h"
#include "platform/qt/folder.h"
#include "support/programma.h"

using support::Icona;
using support::Mostrato;
using support::Programma;
using support::Pulsanti;

TEST(Mancanze, SenzaAlcunaTabellaLoSiDicePrimaDiElaborare) {
    Programma p;
    app::avvisa_mancanze(&p.form1);
    const QString tabelle =
        platform::da_mostrare(QString::fromStdString(p.cartella.radice()) + "/ridotti");
    EXPECT_EQ(p.mostrati(),
              (std::vector<Mostrato>{
                  {"Mancano le tabelle dei sistemi: nessun sistema si può elaborare.\nI file "
                   ".rid vanno nella cartella \"" +
                       tabelle + "\".",
                   "Tabellino", Pulsanti::ok, Icona::informazione}}));
}

TEST(Mancanze, ConUnaTabellaSolaNonSiDiceNulla) {
    Programma p(false, [](const support::Cartella& c) {
        std::ofstream(c.radice() + "/ridotti/CR0600.RID") << "1,2,3,4,5,6\r\n";
    });
    app::avvisa_mancanze(&p.form1);
    EXPECT_TRUE(p.mostrati().empty());
}

TEST(Mancanze, UnaCartellaCheNonSiPuoScrivereSiDice) {
    Programma p(true);
    const std::string prima = platform::App().Path;
    // A folder that could not be made is as good as one that nobody may write, and root meets it.
    std::filesystem::rename(p.cartella.programma(), p.cartella.radice() + "/spostata");
    app::avvisa_mancanze(&p.form1);
    EXPECT_EQ(p.mostrati(),
              (std::vector<Mostrato>{
                  {"Nella cartella \"" + platform::da_mostrare(QString::fromStdString(prima)) +
                       "\" non si può scrivere: i sistemi non si possono salvare né "
                       "elaborare.",
                   "Tabellino", Pulsanti::ok, Icona::informazione}}));
}
