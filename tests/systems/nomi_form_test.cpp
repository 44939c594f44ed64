// Names that no text holds: bytes of an old code page, and control bytes.
#include "systems/gestore.h"

using namespace gestore;

namespace {

class NomiStrani : public Gestore {
protected:
    static constexpr const char* nomi_strani[] = {"caff\xe8", "a\x1b[31mb", "\x01\x7f"};
};

INSTANTIATE_TEST_SUITE_P(Giochi, NomiStrani, ::testing::Bool(), [](const auto& parametro) {
    return parametro.param ? "Lotto" : "SuperEnalotto";
});

TEST_P(NomiStrani, SuchASystemOpensAndIsSavedWhereItWas) {
    p.riempi();
    p.scrivi_nel_gestore("base");
    Programma::voce(p.form1.mnusalva);
    const std::string dati = stato(p.cartella.programma())[sis("base")];
    ASSERT_FALSE(dati.empty());
    for (const std::string nome : nomi_strani) {
        p.cartella.scrivi(sis(nome), dati);
        Programma::voce(p.form1.mnunuovo);
        Programma::voce(p.form1.mnuapri);
        seleziona(*Programma::gestore(), platform::q(nome));
        Programma::clic(Programma::gestore()->Command5);
        EXPECT_EQ(platform::s(p.form1.Tag()), nome);
        EXPECT_EQ(p.form1.sessione.matrice()(0, 0), 1);
        p.cartella.scrivi(sis(nome), "");
        Programma::voce(p.form1.mnusalva);
        EXPECT_EQ(stato(p.cartella.programma())[sis(nome)], dati);
        fs::remove(p.cartella.file(sis(nome)));
    }
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_P(NomiStrani, ItIsDuplicatedRenamedAndDeleted) {
    for (const std::string nome : nomi_strani) {
        sistema(nome, 7);
        p.cartella.scrivi(svi(nome), "V");
        Form2& f = apri();
        seleziona(f, platform::q(nome));
        duplica(f, "copia");
        EXPECT_EQ(programma(), (Stato{{sis("copia"), testo(7)},
                                      {svi("copia"), "V"},
                                      {sis(nome), testo(7)},
                                      {svi(nome), "V"}}));
        seleziona(f, platform::q(nome));
        rinomina(f, "nuovo");
        EXPECT_EQ(programma(), (Stato{{sis("copia"), testo(7)},
                                      {svi("copia"), "V"},
                                      {sis("nuovo"), testo(7)},
                                      {svi("nuovo"), "V"}}));
        f.close();
        for (const char* via : {"copia", "nuovo"}) {
            fs::remove(p.cartella.file(sis(via)));
            fs::remove(p.cartella.file(svi(via)));
        }
    }
    p.mostrati();
}

TEST_P(NomiStrani, ItIsImported) {
    for (const std::string nome : nomi_strani) {
        scrivi_altra(sis(nome), testo(7));
        scrivi_altra(svi(nome), "V");
        Form2& f = importa_da(altra);
        seleziona(f, platform::q(nome));
        Programma::clic(f.cmdimporta);
        EXPECT_EQ(programma(), (Stato{{sis(nome), testo(7)}, {svi(nome), "V"}}));
        fs::remove(p.cartella.file(sis(nome)));
        fs::remove(p.cartella.file(svi(nome)));
        fs::remove(altra + "/" + sis(nome));
        fs::remove(altra + "/" + svi(nome));
    }
    p.mostrati();
}

}  // namespace
