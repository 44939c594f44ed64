#include <sys/mount.h>
#include <unistd.h>

#include "platform/ambiente.h"
#include "systems/operazioni_prova.h"

using namespace operazioni;

namespace {

INSTANTIATE_TEST_SUITE_P(Giochi, Operazioni, ::testing::Bool(),
                         [](const auto& p) { return p.param ? "Lotto" : "SuperEnalotto"; });

TEST(NomeValido, FollowsTheTableOfKeyCodes) {
    for (int codice = 1; codice < 256; ++codice) {
        const bool atteso = codice == 8 || (codice >= 48 && codice <= 57) || codice == 64 ||
                            (codice >= 65 && codice <= 90) || (codice >= 97 && codice <= 122);
        EXPECT_EQ(nome_valido("a" + std::string(1, static_cast<char>(codice)) + "z"), atteso)
            << codice;
    }
    EXPECT_TRUE(nome_valido("Posta@Casa9"));
    EXPECT_FALSE(nome_valido("un nome"));
    EXPECT_FALSE(nome_valido("perch\xC3\xA9"));
    EXPECT_FALSE(nome_valido("../fuori"));
}

TEST_P(Operazioni, LookUpAddsNoExtension) {
    scrivi(sis("a"), "S");
    scrivi("nudo", "x");
    const std::string dove = cartella.programma();
    EXPECT_TRUE(controllo_sistemi_esistenti(dove, "a"));
    EXPECT_FALSE(controllo_sistemi_esistenti(dove, "nudo"));
    EXPECT_FALSE(controllo_sistemi_esistenti(dove + "/", "NUDO"));
    EXPECT_FALSE(controllo_sistemi_esistenti(dove, sis("a")));
    fs::create_directory(cartella.file("sotto"));
    EXPECT_TRUE(controllo_sistemi_esistenti(dove, "sotto"));
    EXPECT_TRUE(controllo_sistemi_esistenti(dove, "../cruciverba/nudo"));
}

TEST_P(Operazioni, RenameMovesBothFiles) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    const Stato fermi = estranei();
    const Passi passi = rinomina(qui("a"), "Nuovo@1");
    EXPECT_EQ(passi.sistema, Esito::ok);
    EXPECT_EQ(passi.sviluppo, Esito::ok);
    EXPECT_EQ(programma(), unisci({{sis("Nuovo@1"), "S"}, {svi("Nuovo@1"), "V"}}, fermi));
}

TEST_P(Operazioni, RenameOfASystemWithoutDevelopment) {
    scrivi(sis("a"), "S");
    const Passi passi = rinomina(qui("a"), "b");
    EXPECT_EQ(passi.sistema, Esito::ok);
    EXPECT_EQ(passi.sviluppo, Esito::assente);
    EXPECT_EQ(programma(), (Stato{{sis("b"), "S"}}));
}

TEST_P(Operazioni, RenameOntoALoneSystemLeavesBothSystems) {
    scrivi(sis("a"), "S");
    scrivi(sis("b"), "T");
    EXPECT_EQ(rinomina(qui("a"), "b").sistema, Esito::errore);
    EXPECT_EQ(programma(), (Stato{{sis("a"), "S"}, {sis("b"), "T"}}));
}

TEST_P(Operazioni, DevelopmentIsRenamedBeforeTheSystem) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    scrivi(sis("b"), "T");
    EXPECT_EQ(rinomina(qui("a"), "b").sistema, Esito::errore);
    EXPECT_EQ(programma(), (Stato{{sis("a"), "S"}, {svi("b"), "V"}, {sis("b"), "T"}}));
}

TEST_P(Operazioni, RenameThatOnlyChangesTheCaseTakesIt) {
    scrivi(sis("prova"), "S");
    EXPECT_EQ(rinomina(qui("prova"), "Prova").sistema, Esito::ok);
    EXPECT_EQ(programma(), (Stato{{sis("Prova"), "S"}}));
}

TEST_P(Operazioni, RenameMovesALinkAndNotWhatItLeadsTo) {
    scrivi_altra("fuori", "X");
    fs::create_symlink(altra + "/fuori", cartella.file(sis("a")));
    rinomina(qui("a"), "b");
    EXPECT_EQ(programma(), (Stato{{sis("b"), "-> " + altra + "/fuori"}}));
    EXPECT_EQ(stato(altra), (Stato{{"fuori", "X"}}));
    // A link in the way is a file in the way.
    scrivi(sis("c"), "S");
    rinomina(qui("c"), "b");
    EXPECT_EQ(cartella.leggi(sis("c")), "S");
    EXPECT_EQ(stato(altra), (Stato{{"fuori", "X"}}));
}

TEST_P(Operazioni, NamesThatAreNoFileOfTheFolderReachNothing) {
    scrivi(sis("a"), "S");
    scrivi_altra(sis("x"), "X");
    scrivi_altra(svi("x"), "Y");
    const Stato prima = programma();
    for (const std::string& nome : {std::string("../altra/x"), std::string(".."), std::string("."),
                                    std::string(), std::string("..\\altra\\x")}) {
        EXPECT_EQ(elimina(qui(nome)).sistema, Esito::errore) << nome;
        EXPECT_EQ(rinomina(qui(nome), "b").sistema, Esito::errore) << nome;
        EXPECT_EQ(rinomina(qui("a"), nome).sistema, Esito::errore) << nome;
        EXPECT_EQ(duplica(qui("a"), qui(nome), [] {}).sistema, Esito::errore) << nome;
        EXPECT_EQ(duplica(qui(nome), qui("b"), [] {}).sistema, Esito::errore) << nome;
        EXPECT_EQ(importa(la(nome), qui(nome)).sistema, Esito::errore) << nome;
        EXPECT_EQ(invia(qui(nome), la(nome)).sistema, Esito::errore) << nome;
    }
    EXPECT_EQ(programma(), prima);
    EXPECT_EQ(stato(altra), (Stato{{sis("x"), "X"}, {svi("x"), "Y"}}));
}

TEST_P(Operazioni, DeleteTakesThePairAndNothingElse) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    scrivi(sis("ab"), "T");
    const Stato fermi = estranei();
    const Passi passi = elimina(qui("a"));
    EXPECT_EQ(passi.sistema, Esito::ok);
    EXPECT_EQ(passi.sviluppo, Esito::ok);
    EXPECT_EQ(programma(), unisci({{sis("ab"), "T"}}, fermi));
    EXPECT_EQ(elimina(qui("a")).sistema, Esito::assente);
}

TEST_P(Operazioni, DeleteAllTakesEveryFileOfTheGame) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    scrivi(svi("orfano"), "W");
    scrivi(sis("CASO"), "T");
    scrivi("rip.dat", "");
    const Stato fermi = unisci(estranei(), {{"rip.dat", ""}});
    EXPECT_TRUE(elimina_tutti(cartella.programma(), gioco()).empty());
    EXPECT_EQ(programma(), fermi);
}

TEST_P(Operazioni, DeleteAllTakesCapitalExtensionsToo) {
    scrivi(GetParam() ? "A.SEL" : "A.SEN", "S");
    scrivi(GetParam() ? "A.LOT" : "A.COL", "V");
    elimina_tutti(cartella.programma(), gioco());
    EXPECT_TRUE(programma().empty());
}

/// Refuses to delete one file.
class SenzaUnlink : public platform::Syscalls {
public:
    explicit SenzaUnlink(std::string fine) : fine_(std::move(fine)) {}
    int unlink(const char* nome) override {
        if (std::string(nome).ends_with(fine_)) {
            errno = EACCES;
            return -1;
        }
        return Syscalls::unlink(nome);
    }

private:
    std::string fine_;
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

TEST_P(Operazioni, DeletingGoesOnPastAFileThatStaysAndTellsIt) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    scrivi(sis("b"), "T");
    const SenzaUnlink guasto(svi("a"));
    EXPECT_EQ(elimina(qui("a")).sviluppo, Esito::errore);
    EXPECT_EQ(programma(), (Stato{{svi("a"), "V"}, {sis("b"), "T"}}));
    EXPECT_EQ(elimina_tutti(cartella.programma(), gioco()), (std::vector<std::string>{svi("a")}));
    EXPECT_EQ(programma(), (Stato{{svi("a"), "V"}}));
}

TEST_P(Operazioni, DuplicateOverwritesBothFiles) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    scrivi(sis("b"), "vecchio");
    scrivi(svi("b"), "vecchio sviluppo");
    const Stato fermi = estranei();
    int pause = 0;
    const Passi passi = duplica(qui("a"), qui("b"), [&] { ++pause; });
    EXPECT_EQ(passi.sistema, Esito::ok);
    EXPECT_EQ(passi.sviluppo, Esito::ok);
    EXPECT_EQ(pause, 2);
    EXPECT_EQ(programma(),
              unisci({{sis("a"), "S"}, {svi("a"), "V"}, {sis("b"), "S"}, {svi("b"), "V"}}, fermi));
}

TEST_P(Operazioni, DuplicateWithoutDevelopmentLeavesTheOldOneOfTheTarget) {
    scrivi(sis("a"), "S");
    scrivi(sis("b"), "T");
    scrivi(svi("b"), "W");
    EXPECT_EQ(duplica(qui("a"), qui("b"), [] {}).sviluppo, Esito::assente);
    EXPECT_EQ(programma(), (Stato{{sis("a"), "S"}, {sis("b"), "S"}, {svi("b"), "W"}}));
}

TEST_P(Operazioni, DuplicateCopiesTheDevelopmentFirst) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    Stato in_mezzo;
    int pause = 0;
    duplica(qui("a"), qui("b"), [&] {
        ++pause;
        if (in_mezzo.empty()) in_mezzo = programma();
    });
    EXPECT_EQ(pause, 2);
    EXPECT_EQ(in_mezzo, (Stato{{sis("a"), "S"}, {svi("a"), "V"}, {svi("b"), "V"}}));
}

TEST_P(Operazioni, DuplicateOntoItselfChangesNothing) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    const Stato prima = programma();
    duplica(qui("a"), qui("A"), [] {});
    EXPECT_EQ(programma(), prima);
    duplica(
        qui("a"), qui("A"), [] {}, Vecchia::tolta);
    EXPECT_EQ(programma(), prima);
}

TEST_P(Operazioni, SameFolderUnderAnotherNameIsTheSameFolder) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    const Stato prima = programma();
    fs::create_directory_symlink(cartella.programma(), altra + "/giro");
    const Coppia giro{altra + "/giro/", "a", gioco()};
    importa(giro, qui("a"), Vecchia::tolta);
    EXPECT_EQ(programma(), prima);
    EXPECT_EQ(invia(qui("a"), giro, Vecchia::tolta).sistema, Esito::ok);
    EXPECT_EQ(programma(), prima);
}

TEST_P(Operazioni, ImportCopiesBothFilesSystemFirst) {
    scrivi_altra(sis("a"), "S");
    scrivi_altra(svi("a"), "V");
    const Passi passi = importa(la("a"), qui("a"));
    EXPECT_EQ(passi.sistema, Esito::ok);
    EXPECT_EQ(passi.sviluppo, Esito::ok);
    EXPECT_EQ(programma(), (Stato{{sis("a"), "S"}, {svi("a"), "V"}}));
    EXPECT_EQ(stato(altra), programma());
}

TEST_P(Operazioni, ImportWithoutDevelopmentCopiesTheSystemAlone) {
    scrivi_altra(sis("a"), "S");
    EXPECT_EQ(importa(la("a"), qui("a")).sviluppo, Esito::assente);
    EXPECT_EQ(programma(), (Stato{{sis("a"), "S"}}));
}

TEST_P(Operazioni, SendingSweepsWhatAKilledProgramLeftInTheOtherFolder) {
    scrivi(sis("a"), "S");
    scrivi_altra("temp-1-0.nuovo", "half of it");
    scrivi_altra("temp.txt", "of somebody else");
    EXPECT_EQ(invia(qui("a"), la("a")).sistema, Esito::ok);
    EXPECT_EQ(stato(altra), (Stato{{sis("a"), "S"}, {"temp.txt", "of somebody else"}}));
}

TEST_P(Operazioni, CopiesNeverFollowALinkOutOfTheFolder) {
    std::ofstream(cartella.radice() + "/segreto") << "X";
    fs::create_symlink(cartella.radice() + "/segreto", altra + "/" + sis("a"));
    scrivi(sis("a"), "mio");
    EXPECT_EQ(importa(la("a"), qui("a"), Vecchia::tolta).sistema, Esito::errore);
    EXPECT_EQ(programma(), (Stato{{sis("a"), "mio"}}));
    fs::create_symlink(cartella.radice() + "/segreto", cartella.file(sis("c")));
    duplica(qui("c"), qui("d"), [] {});
    EXPECT_FALSE(cartella.esiste(sis("d")));
    invia(qui("c"), la("c"));
    EXPECT_FALSE(fs::exists(altra + "/" + sis("c")));
}

TEST_P(Operazioni, CopiesNeverWriteThroughALink) {
    std::ofstream(cartella.radice() + "/meta") << "X";
    scrivi(sis("a"), "S");
    fs::create_symlink(cartella.radice() + "/meta", cartella.file(sis("b")));
    duplica(qui("a"), qui("b"), [] {});
    EXPECT_EQ(stato(cartella.radice()).at("meta"), "X");
    fs::create_symlink(cartella.radice() + "/nuova", altra + "/" + sis("a"));
    EXPECT_EQ(invia(qui("a"), la("a")).sistema, Esito::errore);
    EXPECT_FALSE(fs::exists(cartella.radice() + "/nuova"));
}

TEST_P(Operazioni, ALinkInsideItsFolderIsCopiedByItsContent) {
    scrivi(sis("a"), "S");
    fs::create_symlink(sis("a"), cartella.file(sis("b")));
    EXPECT_EQ(invia(qui("b"), la("b")).sistema, Esito::ok);
    EXPECT_EQ(stato(altra), (Stato{{sis("b"), "S"}}));
}

TEST_P(Operazioni, ALinkToTheSystemItselfIsNoReasonToLoseIt) {
    scrivi(sis("a"), "S");
    fs::create_symlink(sis("a"), cartella.file(sis("b")));
    duplica(
        qui("b"), qui("a"), [] {}, Vecchia::tolta);
    EXPECT_EQ(cartella.leggi(sis("a")), "S");
}

TEST_P(Operazioni, SendCopiesBothFiles) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    const Passi passi = invia(qui("a"), la("a"));
    EXPECT_EQ(passi.sistema, Esito::ok);
    EXPECT_EQ(passi.sviluppo, Esito::ok);
    EXPECT_EQ(stato(altra), (Stato{{sis("a"), "S"}, {svi("a"), "V"}}));
    EXPECT_EQ(programma(), stato(altra));
}

TEST_P(Operazioni, SendGoesOnAfterAnErrorThatIsNoFullDisk) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    fs::create_directory(altra + "/" + sis("a"));
    const Passi passi = invia(qui("a"), la("a"));
    EXPECT_EQ(passi.sistema, Esito::errore);
    EXPECT_EQ(passi.sviluppo, Esito::ok);
    EXPECT_FALSE(passi.disco_pieno());
    EXPECT_TRUE(fs::exists(altra + "/" + svi("a")));
}

TEST_P(Operazioni, FullDiskAndFullQuotaLeaveTheSystemAndAPartOfTheDevelopment) {
    for (const int errore : {ENOSPC, EDQUOT}) {
        fs::remove_all(altra);
        fs::create_directories(altra);
        scrivi(sis("a"), "SISTEMA");
        scrivi(svi("a"), std::string(1000, 'v'));
        support::Disco pieno;
        pieno.spazio = 100;
        pieno.errore = errore;
        const Passi passi = invia(qui("a"), la("a"));
        EXPECT_TRUE(passi.disco_pieno());
        EXPECT_EQ(passi.sistema, Esito::ok);
        EXPECT_EQ(stato(altra), (Stato{{sis("a"), "SISTEMA"}, {svi("a"), std::string(93, 'v')}}));
    }
}

TEST_P(Operazioni, DiskThatIsFullForTheSystemStopsTheSend) {
    scrivi(sis("a"), "SISTEMA");
    scrivi(svi("a"), "V");
    support::Disco pieno;
    pieno.spazio = 3;
    const Passi passi = invia(qui("a"), la("a"));
    EXPECT_EQ(passi.sistema, Esito::disco_pieno);
    EXPECT_EQ(passi.sviluppo, Esito::assente);
    EXPECT_EQ(stato(altra), (Stato{{sis("a"), "SIS"}}));
}

/// A small file system of its own, gone at the end of the test.
class Dischetto {
public:
    explicit Dischetto(const std::string& dove) : dove_(dove) {
        montato_ = ::mount("tmpfs", dove.c_str(), "tmpfs", 0, "size=64k") == 0;
    }
    ~Dischetto() {
        if (montato_) ::umount(dove_.c_str());
    }
    Dischetto(const Dischetto&) = delete;
    Dischetto& operator=(const Dischetto&) = delete;
    [[nodiscard]] bool montato() const { return montato_; }

private:
    std::string dove_;
    bool montato_ = false;
};

TEST_P(Operazioni, SendOntoARealFullFileSystem) {
    const Dischetto disco(altra);
    if (!disco.montato()) GTEST_SKIP() << "may not mount; the injected full disk has run instead";
    scrivi(sis("a"), "SISTEMA");
    scrivi(svi("a"), std::string(200000, 'v'));
    const Stato prima = programma();
    const Passi passi = invia(qui("a"), la("a"));
    EXPECT_EQ(passi.sistema, Esito::ok);
    EXPECT_EQ(passi.sviluppo, Esito::disco_pieno);
    const Stato arrivo = stato(altra);
    EXPECT_EQ(arrivo.at(sis("a")), "SISTEMA");
    ASSERT_TRUE(arrivo.contains(svi("a")));
    EXPECT_LT(arrivo.at(svi("a")).size(), 200000U);
    EXPECT_EQ(arrivo.at(svi("a")).find_first_not_of('v'), std::string::npos);
    EXPECT_EQ(arrivo.size(), 2U);
    EXPECT_EQ(programma(), prima);
}

}  // namespace
