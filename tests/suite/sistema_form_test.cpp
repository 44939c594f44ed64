// The page that the command prints is the window's.
#include "platform/disk.h"
#include "sistema/stampa.h"
#include "suite/sistema_prova.h"
#include "support/stampa.h"

namespace {

TEST(SistemaStampa, IlProspettoEQuelloDellaFinestra) {
    support::Stampa s;
    prova::Comando comando(s.p.cartella);
    comando.ambiente.stampa = sistema::stampa_in_pdf;
    s.p.cartella.con_tabelle();
    const std::string pdf = s.p.cartella.radice() + "/mio.pdf";
    for (const bool lotto : {false, true}) {
        if (lotto) support::Programma::clic(s.p.form1.Image10);
        s.p.dimensioni(8, 8);
        s.p.riempi_e_salva(lotto ? "lotto" : "prova");
        s.p.comando(1);
        ASSERT_NE(s.apri(), nullptr);
        s.conferma(0);
        const std::string nome = lotto ? "lotto" : "prova";
        const prova::Detto detto =
            comando({"prospetto", "-o", pdf, s.p.cartella.file(nome + (lotto ? ".sel" : ".sen"))});
        ASSERT_EQ(detto.codice, 0) << detto.errori;
        const std::string suo = s.pdf(nome + "-prospetto.pdf");
        EXPECT_EQ(support::pagine(pdf), 1);
        EXPECT_EQ(support::fotografa(pdf, 1, 100).dati, support::fotografa(suo, 1, 100).dati);
        EXPECT_EQ(support::esito_comando("pdftotext -layout '" + pdf + "' -"),
                  support::esito_comando("pdftotext -layout '" + suo + "' -"));
    }
}

TEST(SistemaStampa, DoveNonSiPuoScrivereLoDice) {
    support::Stampa s;
    prova::Comando comando(s.p.cartella);
    comando.ambiente.stampa = sistema::stampa_in_pdf;
    s.p.riempi_e_salva("prova");
    const std::string file = s.p.cartella.file("prova.sen");
    const prova::Detto detto =
        comando({"prospetto", "-o", s.p.cartella.radice() + "/manca/mio.pdf", file});
    EXPECT_EQ(detto.codice, 1);
    EXPECT_TRUE(detto.errori.starts_with("sistema: " + platform::da_mostrare(file) + ": il file "))
        << detto.errori;
    EXPECT_NE(detto.errori.find("non si può scrivere"), std::string::npos) << detto.errori;
}

}  // namespace
