// A development that is not of the system in line: what the program says before it is used.
#include <QProgressBar>
#include <QRadioButton>

#include "platform/disk.h"
#include "printing/frmstsvl.h"
#include "support/guasti.h"
#include "support/riferimento.h"
#include "systems/apertura.h"
#include "systems/appartenenza.h"

using namespace apertura;

namespace {

const Mostrato d_altri{
    "Lo sviluppo di questo sistema è di un altro cruciverba: le sue colonne non sono quelle da "
    "giocare.\nElaborare ora?",
    "Tabellino", Pulsanti::si_no, Icona::nessuna};
const Mostrato completata{"Elaborazione completata.", "Tabellino", Pulsanti::ok,
                          Icona::informazione};
const Mostrato salvare{"Per elaborare il sistema occore prima salvarlo.Vuoi salvare ora?",
                       "Cruciverba", Pulsanti::si_no, Icona::nessuna};

/// Changes the first cell to the next number that it may hold.
void tocca(Programma& p) {
    p.cella(0, 0);
    std::size_t n = 1;
    while (!p.form1.CMDnum[n]->isEnabled() ||
           p.form1.MSFlexGrid1->testo(0, 0) == QString::number(n)) {
        ++n;
    }
    p.numero(static_cast<int>(n));
}

std::string sviluppo_di(const Programma& p) {
    return support::come_file(
        support::senza_ripetizioni(support::sviluppo_integrale(p.griglia(), 6, true)));
}

/// A system that was elaborated, changed and saved, in a program started anew.
class Superato : public ::testing::Test {
protected:
    Superato() {
        p.riempi_e_salva("uno");
        p.comando(1);
        vecchio = p.cartella.leggi("uno.col");
        tocca(p);
        Programma::voce(p.form1.mnusalva);
        Programma::voce(p.form1.mnunuovo);
        p.mostrati();
        p.dialoghi.finti = true;
    }
    bool segnato() const { return !platform::annotazione(p.cartella.file("uno.col")).empty(); }
    Programma p{true};
    std::string vecchio;
};

TEST_F(Superato, AprendoloLoSiDiceESiOffreDiElaborare) {
    if (!segnato()) GTEST_SKIP() << "this disk keeps no attributes";
    p.risposte = {vbYes};
    apri(p, "uno");
    EXPECT_EQ(p.mostrati(), (Mostrati{d_altri, completata}));
    EXPECT_EQ(p.form1.Tag(), "uno");
    EXPECT_NE(p.cartella.leggi("uno.col"), vecchio);
    EXPECT_EQ(p.cartella.leggi("uno.col"), sviluppo_di(p));
    for (const int comando : {2, 6}) p.comando(comando);
    EXPECT_EQ(p.dialoghi.sviluppi + p.dialoghi.spogli, 2);
    apri(p, "uno");
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(Superato, ChiDiceNoNonLoVedeNonLoSpogliaENonLoStampa) {
    if (!segnato()) GTEST_SKIP() << "this disk keeps no attributes";
    p.risposte = {vbNo, vbNo, vbNo};
    apri(p, "uno");
    for (const int comando : {2, 6}) p.comando(comando);
    EXPECT_EQ(p.mostrati(), (Mostrati{d_altri, d_altri, d_altri}));
    EXPECT_EQ(p.dialoghi.sviluppi + p.dialoghi.spogli, 0);
    EXPECT_EQ(platform::MousePointer(), 0);
    p.dialoghi.finti = false;
    p.comando(7);
    auto* stampa = p.form1.findChild<printing::frmstsvl*>();
    ASSERT_NE(stampa, nullptr);
    for (const std::size_t quale : {1U, 2U}) {
        p.risposte = {vbNo};
        Programma::clic(stampa->Option1[quale]);
        Programma::clic(stampa->Command2);
        EXPECT_EQ(p.mostrati(), Mostrati{d_altri});
        EXPECT_TRUE(stampa->isVisible());
    }
    EXPECT_EQ(p.cartella.leggi("uno.col"), vecchio);
    EXPECT_FALSE(p.cartella.esiste("uno-sviluppo.pdf"));
    EXPECT_FALSE(platform::esiste_file(p.cartella.radice() + "/trans"));
}

TEST_F(Superato, ChiDiceSiNelMomentoDellUsoVaAvanti) {
    if (!segnato()) GTEST_SKIP() << "this disk keeps no attributes";
    for (const int comando : {2, 6}) {
        p.risposte = {vbNo};
        apri(p, "uno");
        p.mostrati();
        p.risposte = {vbYes};
        p.comando(comando);
        EXPECT_EQ(p.mostrati(), (Mostrati{d_altri, completata}));
        EXPECT_EQ(p.cartella.leggi("uno.col"), sviluppo_di(p));
        tocca(p);
        Programma::voce(p.form1.mnusalva);
    }
    EXPECT_EQ(p.dialoghi.sviluppi, 1);
    EXPECT_EQ(p.dialoghi.spogli, 1);
}

TEST(Elaborazione, QuellaInterrottaDiUnSistemaCambiatoNonLasciaQuelloVecchio) {
    Programma p(true);
    p.dimensioni(12, 12);
    p.riempi_e_salva("uno");
    p.comando(1);
    ASSERT_TRUE(p.cartella.esiste("uno.col"));
    const std::string prima = p.cartella.leggi("uno.sen");
    tocca(p);
    p.mostrati();
    bool fatto = false;
    QObject::connect(p.form1.ProgressBar1, &QProgressBar::valueChanged, &p.form1, [&](int valore) {
        if (fatto || valore < 500) return;
        fatto = true;
        p.form1.close();
    });
    p.risposte = {vbYes};
    p.comando(1);
    EXPECT_EQ(p.mostrati(), Mostrati{salvare});
    EXPECT_FALSE(p.form1.isVisible());
    EXPECT_NE(p.cartella.leggi("uno.sen"), prima);
    EXPECT_FALSE(p.cartella.esiste("uno.col"));
}

TEST(Elaborazione, UnoSviluppoSenzaSegnoSiApreSenzaDomande) {
    Programma p(true);
    p.riempi_e_salva("uno");
    p.cartella.scrivi("uno.col", "1,2,3,4,5,6\r\n");
    p.dialoghi.finti = true;
    Programma::voce(p.form1.mnunuovo);
    apri(p, "uno");
    for (const int comando : {2, 6}) p.comando(comando);
    EXPECT_TRUE(p.mostrati().empty());
    EXPECT_EQ(p.dialoghi.sviluppi + p.dialoghi.spogli, 2);
}

TEST(Nomi, UnNomeCheNonEUtf8SiApreSiElaboraESiSalva) {
    Programma p(true);
    p.riempi_e_salva("uno");
    const auto griglia = p.griglia();
    const std::string nome = "citt\xE0";
    ASSERT_EQ(platform::Name(p.cartella.file("uno.sen"), p.cartella.file(nome + ".sen")),
              platform::Esito::ok);
    Programma::voce(p.form1.mnunuovo);
    apri(p, platform::q(nome));
    EXPECT_EQ(p.griglia(), griglia);
    EXPECT_EQ(platform::s(p.form1.Tag()), nome);
    p.comando(1);
    EXPECT_EQ(p.cartella.leggi(nome + ".col"), sviluppo_di(p));
    EXPECT_EQ(platform::Dir(p.cartella.programma(), "*.sen"),
              std::vector<std::string>{nome + ".sen"});
}

TEST(Nomi, IByteCheNonSonoUtf8TornanoComeErano) {
    std::string tutti;
    for (int i = 1; i < 256; ++i) tutti.push_back(static_cast<char>(i));
    for (const std::string& testo :
         {std::string("citt\xE0"), tutti, std::string("\xC3\xA0\xC3"), std::string("\xED\xB2\x80"),
          std::string("\xF0\x9F\x8E\xB2\xFF"), std::string("\xEF\xBF\xBD"),
          std::string("caff\xC3\xA8")}) {
        EXPECT_EQ(platform::s(platform::q(testo)), testo);
    }
    EXPECT_EQ(platform::q("caffè"), QString::fromUtf8("caffè"));
}

TEST(Rimasto, CioCheIlDiscoNonLasciaNonSiMostraPerQuelloNuovo) {
    Programma p(true);
    p.dialoghi.finti = true;
    p.riempi_e_salva("uno");
    p.comando(1);
    tocca(p);
    p.mostrati();
    support::Disco disco;
    disco.unlink_fallisce = true;
    p.risposte = {vbYes};
    p.comando(1);
    EXPECT_EQ(p.mostrati(), (Mostrati{salvare, completata}));
    EXPECT_EQ(p.form1.lblpasso->text(),
              "Il disco non ha accettato lo sviluppo, e tiene quello di prima");
    p.risposte = {vbNo, vbYes};
    p.comando(2);
    p.comando(2);
    EXPECT_EQ(p.mostrati(), (Mostrati{d_altri, d_altri, completata}));
    EXPECT_EQ(p.dialoghi.sviluppi, 0);
}

}  // namespace
