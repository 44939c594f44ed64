// A print job as the player sees it: what is told of its end, the bar, giving it up.
#include <QPrinter>
#include <QProgressBar>

#include "platform/qt/scrivania.h"
#include "support/guasti.h"
#include "support/stampa.h"

using platform::q;
using printing::frmstsvl;
using support::Icona;
using support::Mostrato;
using support::Programma;
using support::Pulsanti;
using support::Stampa;

namespace {

using Mostrati = std::vector<Mostrato>;

/// A default printer, whose paper is a file, while one lives.
class Carta {
public:
    explicit Carta(const std::string& file) {
        platform::scrivania().stampante = [file] {
            auto p = std::make_unique<QPrinter>(QPrinter::HighResolution);
            p->setOutputFormat(QPrinter::PdfFormat);
            p->setOutputFileName(q(file));
            return p;
        };
    }
    ~Carta() = default;
    Carta(const Carta&) = delete;
    Carta& operator=(const Carta&) = delete;

private:
    platform::Ripristina<decltype(platform::Scrivania::stampante)> posto_{
        platform::scrivania().stampante};
};

constexpr int apri = platform::vbAltri;
constexpr int cartella = platform::vbAltri + 1;

std::string sestine(int quante) {
    std::string testo;
    for (int i = 0; i < quante; ++i) testo += std::to_string(i % 80 + 1) + ",81,82,83,84,85\r\n";
    return testo;
}

/// Runs while the job does, once its bar is on the screen.
void mentre_stampa(QPointer<frmstsvl> f, std::function<void()> fare) {
    QTimer::singleShot(0, qApp, [f, fare] {
        if (f && f->lavoro->isVisible()) {
            fare();
        } else if (f) {
            mentre_stampa(f, fare);
        }
    });
}

/// No working file and no PDF.
void nessun_pdf(const Stampa& s) {
    EXPECT_TRUE(platform::Dir(s.p.cartella.programma(), "*.pdf").empty());
    EXPECT_TRUE(platform::Dir(s.p.cartella.programma(), "temp-*").empty());
}

}  // namespace

TEST(DopoLaStampa, SiApreIlPdf) {
    Stampa s;
    s.in_linea();
    s.apri();
    s.p.risposte = {apri};
    s.conferma(0);
    EXPECT_EQ(s.aperti, QStringList{q(s.pdf("prova-prospetto.pdf"))});
    EXPECT_TRUE(s.chiuso());
}

TEST(DopoLaStampa, SiMostraLaCartella) {
    Stampa s;
    s.in_linea();
    s.apri();
    s.p.risposte = {cartella};
    s.conferma(0);
    EXPECT_EQ(s.aperti, QStringList{q(s.p.cartella.programma())});
}

TEST(DopoLaStampa, SenzaUnProgrammaPerIPdfSiDiceDovE) {
    for (const int scelta : {apri, cartella}) {
        Stampa s;
        s.si_apre = false;
        s.in_linea();
        s.apri();
        s.p.risposte = {scelta};
        s.conferma(0);
        const Mostrati mostrati = s.p.mostrati();
        ASSERT_EQ(mostrati.size(), 2U);
        EXPECT_EQ(mostrati[1].testo,
                  (scelta == apri ? "Nessun programma di questo computer apre i PDF.\nIl file è\n"
                                  : "Nessun programma di questo computer mostra le cartelle.\n"
                                    "Il file è\n") +
                      platform::da_mostrare(q(s.pdf("prova-prospetto.pdf"))));
    }
}

TEST(DopoLaStampa, SiDiceCheUnPdfHaCedutoIlPosto) {
    Stampa s;
    s.in_linea();
    for (const bool secondo : {false, true}) {
        s.apri();
        s.conferma(0);
        EXPECT_EQ(s.p.mostrati(),
                  Mostrati{s.scritto("Il prospetto", "prova-prospetto.pdf", secondo)});
    }
}

TEST(DopoLaStampa, SullaCartaSiDiceLaStampante) {
    Stampa s;
    s.in_linea();
    s.apri();
    const Carta carta(s.pdf("carta.out"));
    s.conferma(0);
    const Mostrati mostrati = s.p.mostrati();
    ASSERT_EQ(mostrati.size(), 1U);
    EXPECT_TRUE(mostrati[0].testo.startsWith("Il prospetto è stato mandato alla stampante «"));
    nessun_pdf(s);
}

TEST(StampaPersa, SulDiscoPienoSiDiceELaFinestraResta) {
    for (const int opzione : {0, 1}) {
        Stampa s;
        s.in_linea();
        s.sviluppato();
        s.p.cartella.scrivi("col.dat", "\"5\"\r\n");
        s.apri();
        {
            support::Disco disco;
            disco.spazio = 100;
            s.conferma(opzione);
        }
        EXPECT_EQ(s.p.mostrati(),
                  (Mostrati{opzione == 0 ? s.perso("Il prospetto", "prova-prospetto.pdf",
                                                   "sul disco non c'è più posto")
                                         : s.perso("Lo sviluppo", "prova-sviluppo.pdf",
                                                   "sul disco non c'è più posto")}));
        EXPECT_FALSE(s.chiuso());
        nessun_pdf(s);
        // With room again it goes on from the same dialog.
        s.conferma(opzione);
        EXPECT_TRUE(s.chiuso());
    }
}

TEST(StampaPersa, IlPdfDiPrimaRestaELoSiDice) {
    Stampa s;
    s.in_linea();
    s.p.cartella.scrivi("prova-prospetto.pdf", "prima");
    s.apri();
    support::Disco disco;
    disco.rename_fallisce = true;
    s.conferma(0);
    EXPECT_EQ(s.p.mostrati(), Mostrati{s.perso("Il prospetto", "prova-prospetto.pdf",
                                               "il disco non lo ha accettato", true)});
    EXPECT_EQ(s.p.cartella.leggi("prova-prospetto.pdf"), "prima");
}

TEST(StampaPersa, UnaCartellaAlPostoDelFile) {
    Stampa s;
    s.in_linea();
    std::filesystem::create_directory(s.pdf("prova-prospetto.pdf"));
    s.apri();
    s.conferma(0);
    EXPECT_EQ(s.p.mostrati(),
              Mostrati{s.perso("Il prospetto", "prova-prospetto.pdf",
                               "al suo posto c'è una cartella con lo stesso nome")});
    EXPECT_FALSE(s.chiuso());
}

TEST(StampaPersa, LaStampanteCheRifiuta) {
    Stampa s;
    s.in_linea();
    s.apri();
    const Carta carta(s.pdf("manca/carta.out"));
    s.conferma(0);
    const Mostrati mostrati = s.p.mostrati();
    ASSERT_EQ(mostrati.size(), 1U);
    EXPECT_TRUE(mostrati[0].testo.startsWith("Il prospetto non è stato stampato.\n\n"));
    EXPECT_TRUE(mostrati[0].testo.endsWith("la stampante non risponde."));
    EXPECT_FALSE(s.chiuso());
}

TEST(StampaPersa, SeTransNonSiScriveLoDice) {
    Stampa s;
    s.in_linea();
    s.sviluppato();
    const std::string trans = s.p.cartella.radice() + "/trans";
    std::filesystem::create_directory(trans);
    s.apri();
    s.conferma(2);
    EXPECT_EQ(s.p.mostrati(), (Mostrati{{"Le schedine non sono state stampate.\n\n" + q(trans) +
                                             "\nal suo posto c'è una cartella con lo stesso nome.",
                                         "Tabellino", Pulsanti::ok, Icona::informazione}}));
    EXPECT_FALSE(s.chiuso());
}

TEST(MentreStampa, LaBarraCopreIlRestoESiFerma) {
    Stampa s;
    s.in_linea();
    s.sviluppato(sestine(60000));
    s.apri();
    bool visto = false;
    mentre_stampa(s.f, [&] {
        visto = true;
        EXPECT_TRUE(s.f->barra->isVisible());
        EXPECT_TRUE(s.f->lblpagina->text().startsWith("Pagina "));
        EXPECT_TRUE(s.f->lavoro->geometry().contains(s.f->Command3->geometry()));
        Programma::clic(s.f->cmdferma);
    });
    s.conferma(1);
    EXPECT_TRUE(visto);
    EXPECT_FALSE(s.chiuso());
    EXPECT_FALSE(s.f->lavoro->isVisible());
    EXPECT_TRUE(s.p.mostrati().empty());
    EXPECT_EQ(platform::MousePointer(), 0);
    nessun_pdf(s);
}

TEST(MentreStampa, EscFermaENonChiude) {
    Stampa s;
    s.in_linea();
    s.sviluppato(sestine(60000));
    s.apri();
    mentre_stampa(s.f, [&] { QTest::keyClick(s.f, Qt::Key_Escape); });
    s.conferma(1);
    EXPECT_FALSE(s.chiuso());
    nessun_pdf(s);
    QTest::keyClick(s.f, Qt::Key_Escape);
    EXPECT_TRUE(s.chiuso());
}

TEST(MentreStampa, IlRestoNonSiSente) {
    Stampa s;
    s.in_linea();
    s.sviluppato(sestine(60000));
    s.apri();
    mentre_stampa(s.f, [&] {
        Programma::clic(s.f->Command1);
        Programma::clic(s.p.form1.Image10);
        QTest::keyClick(s.f->txtdalla[0], Qt::Key_9);
        EXPECT_EQ(s.f->txtdalla[0]->text(), "1");
        EXPECT_FALSE(s.p.form1.sessione.gioco().e_lotto());
        EXPECT_TRUE(s.f->isVisible());
    });
    s.conferma(1);
    EXPECT_TRUE(s.chiuso());
    EXPECT_EQ(s.p.mostrati(), Mostrati{s.scritto("Lo sviluppo", "prova-sviluppo.pdf")});
}

TEST(MentreStampa, LaChiusuraLoFerma) {
    Stampa s;
    s.in_linea();
    s.sviluppato(sestine(60000));
    s.apri();
    mentre_stampa(s.f, [&] { s.f->close(); });
    s.conferma(1);
    EXPECT_TRUE(s.chiuso());
    EXPECT_TRUE(s.p.mostrati().empty());
    nessun_pdf(s);
}

TEST(MentreStampa, AncheQuellaDelProgramma) {
    Stampa s;
    s.in_linea();
    s.sviluppato(sestine(60000));
    s.apri();
    mentre_stampa(s.f, [&] { s.p.form1.close(); });
    s.conferma(1);
    EXPECT_TRUE(s.f.isNull());
    EXPECT_TRUE(s.p.mostrati().empty());
    EXPECT_EQ(platform::MousePointer(), 0);
    nessun_pdf(s);
}

TEST(OpzioniStampa, IPulsantiInFranceseDiconoACheServono) {
    Stampa s;
    s.in_linea();
    const frmstsvl* f = s.apri();
    EXPECT_EQ(f->cmdstampa->accessibleName(),
              "Imprimer: stampa subito lo sviluppo del SuperEnalotto");
    EXPECT_EQ(f->Command1->accessibleName(), "Effacer: chiudi senza stampare");
    EXPECT_EQ(f->cmdstampa->toolTip(), "Stampa subito lo sviluppo del SuperEnalotto");
    EXPECT_EQ(f->Command1->toolTip(), "Chiudi senza stampare");
}

TEST(OpzioniStampa, IlTabulatorePassaLeScelteEPoiIPulsanti) {
    Stampa s;
    s.in_linea();
    frmstsvl* f = s.apri();
    ASSERT_EQ(f->focusWidget(), f->cmdstampa);
    for (const QWidget* atteso : std::initializer_list<const QWidget*>{
             f->Option1[0], f->txtdalla[0], f->txtdalla[1], f->Command2, f->Command3, f->Command1,
             f->cmdstampa}) {
        QTest::keyClick(f->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(f->focusWidget(), atteso) << atteso->objectName().toStdString();
    }
}
