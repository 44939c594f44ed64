#include "platform/disk.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/ambiente.h"
#include "platform/disk_prova.h"
#include "platform/links.h"
#include "platform/runtime.h"
#include "platform/syscalls.h"

using namespace platform;
using prova::Disk;
namespace fs = std::filesystem;

namespace {

TEST_F(Disk, ANameInAnotherCaseIsFoundInEveryComponent) {
    fs::create_directories(f("Sotto/Ancora"));
    cartella_.scrivi("Sotto/Ancora/Prova.SEN", "x");
    EXPECT_EQ(nome_su_disco(f("sOTTO/aNCORA/pROVA.sen")), f("Sotto/Ancora/Prova.SEN"));
    EXPECT_EQ(nome_su_disco(f("SOTTO/nuovo.sen")), f("Sotto/nuovo.sen"));
    EXPECT_EQ(nome_su_disco(f("sotto//ancora/")), f("Sotto/Ancora/"));
    EXPECT_TRUE(esiste_file(f("sotto/ancora/PROVA.sen")));
    EXPECT_TRUE(esiste_cartella(f("sotto/ANCORA")));
    EXPECT_EQ(dimensione_file(f("sotto/ancora/prova.sen")), 1);
}

TEST_F(Disk, AccentedLettersMatchWithoutCaseToo) {
    cartella_.scrivi("Città È.sen", "x");
    EXPECT_TRUE(esiste_file(f("CITTÀ è.SEN")));
}

TEST_F(Disk, ANameThatIsNotThereStaysAsItIs) {
    EXPECT_EQ(nome_su_disco(f("Nuovo.sen")), f("Nuovo.sen"));
    EXPECT_EQ(nome_su_disco("/manca/del/Tutto"), "/manca/del/Tutto");
    EXPECT_EQ(nome_su_disco("Relativo"), "Relativo");
    EXPECT_EQ(nome_su_disco(""), "");
    EXPECT_EQ(nome_su_disco("/"), "/");
    EXPECT_EQ(nome_su_disco("/TMP/Manca"), "/tmp/Manca");
}

TEST_F(Disk, OfTwoNamesThatDifferInCaseTheExactOneIsMeant) {
    cartella_.scrivi("a.sen", "1");
    cartella_.scrivi("A.sen", "2");
    EXPECT_EQ(leggi_tutto(f("a.sen")), "1");
    EXPECT_EQ(leggi_tutto(f("A.sen")), "2");
    EXPECT_EQ(leggi_tutto(f("A.SEN")), "2");
}

TEST_F(Disk, ImpossibleNamesHitNoFile) {
    cartella_.scrivi("a", "x");
    const std::string nullo = f("a") + std::string(1, '\0') + ".sen";
    const std::string lungo = f(std::string(300, 'a'));
    std::string profondo = cartella_.programma();
    while (profondo.size() < 1'000'000) {
        profondo += "/x";
    }
    for (const std::string& nome : {nullo, lungo, profondo, std::string()}) {
        EXPECT_FALSE(esiste_file(nome));
        EXPECT_FALSE(esiste_cartella(nome));
        EXPECT_FALSE(crea_cartella(nome));
        EXPECT_FALSE(leggi_tutto(nome));
        EXPECT_FALSE(data_creazione(nome));
        EXPECT_NE(Kill(nome), Esito::ok);
        EXPECT_NE(Name(nome, f("b")), Esito::ok);
        EXPECT_NE(Name(f("a"), nome), Esito::ok);
        EXPECT_NE(FileCopy(f("a"), nome), Esito::ok);
        EXPECT_NE(aggiungi(nome, "y"), Esito::ok);
        EXPECT_NE(scrivi(nome, "y"), Esito::ok);
        EXPECT_NE(sostituisci(nome, "y"), Esito::ok);
        EXPECT_NE(pubblica(f("a"), nome, 1), Esito::ok);
    }
    EXPECT_EQ(tutti(), Nomi{"a"});
    EXPECT_EQ(cartella_.leggi("a"), "x");
}

TEST_F(Disk, AFileIsNoFolderAndAFolderNoFile) {
    cartella_.scrivi("a", "x");
    EXPECT_TRUE(esiste_file(f("a")));
    EXPECT_FALSE(esiste_cartella(f("a")));
    EXPECT_FALSE(esiste_file(cartella_.programma()));
    EXPECT_TRUE(esiste_cartella(cartella_.programma()));
    EXPECT_FALSE(dimensione_file(cartella_.programma()));
    EXPECT_FALSE(dimensione_file(f("manca")));
    EXPECT_FALSE(esiste_file(f("manca")));
}

TEST_F(Disk, FoldersAreMadeWithThoseAboveThem) {
    EXPECT_TRUE(crea_cartella(f("Uno/due/tre")));
    EXPECT_TRUE(crea_cartella(f("Uno/due/tre")));
    EXPECT_TRUE(crea_cartella(f("uno/DUE/quattro/")));
    EXPECT_TRUE(fs::is_directory(f("Uno/due/quattro")));
    EXPECT_EQ(tutti(), Nomi{"Uno"});
    cartella_.scrivi("file", "x");
    EXPECT_FALSE(crea_cartella(f("file")));
    EXPECT_FALSE(crea_cartella(f("file/sotto")));
}

TEST_F(Disk, AFolderIsWritableWhenFilesCanBeMadeInIt) {
    EXPECT_TRUE(cartella_scrivibile(cartella_.programma()));
    EXPECT_FALSE(cartella_scrivibile(f("manca")));
    cartella_.scrivi("file", "x");
    EXPECT_FALSE(cartella_scrivibile(f("file")));
    EXPECT_FALSE(cartella_scrivibile(""));
}

TEST_F(Disk, AFileHasACreationDate) {
    const std::int64_t prima = ::time(nullptr);
    cartella_.scrivi("Prova.sen", "x");
    const auto data = data_creazione(f("prova.sen"));
    ASSERT_TRUE(data);
    EXPECT_LE(std::abs(*data - prima), 60);
    EXPECT_FALSE(data_creazione(f("manca")));
}

/// Date noted beside the content of a file that took another's place; empty without one.
std::string data_annotata(const std::string& nome) {
    std::array<char, 32> testo{};
    const ssize_t n =
        ::getxattr(nome.c_str(), "user.tabellino.creazione", testo.data(), testo.size());
    return {testo.data(), n > 0 ? static_cast<std::size_t>(n) : 0};
}

TEST_F(Disk, AReplacedFileKeepsItsCreationDateAndACopyHasItsOwn) {
    cartella_.scrivi("a.sen", "1");
    if (::setxattr(f("a.sen").c_str(), "user.prova", "1", 1, 0) != 0) {
        GTEST_SKIP() << "this disk keeps no attributes";
    }
    const auto nascita = data_creazione(f("a.sen"));
    ASSERT_TRUE(nascita);
    ASSERT_EQ(sostituisci(f("a.sen"), "2"), Esito::ok);
    EXPECT_EQ(data_annotata(f("a.sen")), std::to_string(*nascita));
    // A day of long ago, which no clock gives: it stays however often the file is replaced.
    ASSERT_EQ(::setxattr(f("a.sen").c_str(), "user.tabellino.creazione", "86400", 5, 0), 0);
    ASSERT_EQ(sostituisci(f("a.sen"), "3"), Esito::ok);
    ASSERT_EQ(sostituisci(f("A.SEN"), "4"), Esito::ok);
    EXPECT_EQ(data_creazione(f("a.sen")), 86400);
    ASSERT_EQ(FileCopy(f("a.sen"), f("b.sen")), Esito::ok);
    EXPECT_GT(data_creazione(f("b.sen")), 86400);
    ASSERT_EQ(FileCopy(f("b.sen"), f("a.sen")), Esito::ok);
    EXPECT_EQ(data_creazione(f("a.sen")), 86400);
    ASSERT_EQ(Name(f("a.sen"), f("c.sen")), Esito::ok);
    EXPECT_EQ(data_creazione(f("c.sen")), 86400);
    ASSERT_EQ(Kill(f("c.sen")), Esito::ok);
    ASSERT_EQ(sostituisci(f("c.sen"), "5"), Esito::ok);
    EXPECT_GT(data_creazione(f("c.sen")), 86400);
}

TEST_F(Disk, ANotedDateThatIsNoneDoesNotCount) {
    cartella_.scrivi("a.sen", "1");
    const auto nascita = data_creazione(f("a.sen"));
    for (const std::string annotata : {"", "x", "12x", "99999999999999999999999999999999"}) {
        if (::setxattr(f("a.sen").c_str(), "user.tabellino.creazione", annotata.data(),
                       annotata.size(), 0) != 0) {
            GTEST_SKIP() << "this disk keeps no attributes";
        }
        EXPECT_EQ(data_creazione(f("a.sen")), nascita) << annotata;
    }
}

TEST(DiskDate, IsTextOfDayMonthAndTwoDigitYear) {
    ::setenv("TZ", "UTC", 1);
    ::tzset();
    EXPECT_EQ(testo_data_ora(1087040415), "12/06/04 11.40.15");
    EXPECT_EQ(testo_data_ora(0), "01/01/70 00.00.00");
    ::unsetenv("TZ");
    ::tzset();
    EXPECT_LE(testo_data_ora(std::int64_t{1} << 62).size(), 40U);
}

TEST(DiskPattern, KnowsStarAndQuestionMarkWithoutCase) {
    EXPECT_TRUE(corrisponde("Prova.SEN", "*.sen"));
    EXPECT_TRUE(corrisponde(".sen", "*.sen"));
    EXPECT_FALSE(corrisponde("prova.sen2", "*.sen"));
    EXPECT_FALSE(corrisponde("provasen", "*.sen"));
    EXPECT_TRUE(corrisponde("TEMPO.col", "temp*"));
    EXPECT_FALSE(corrisponde("atemp", "temp*"));
    EXPECT_TRUE(corrisponde("ab", "a?"));
    EXPECT_FALSE(corrisponde("a", "a?"));
    EXPECT_TRUE(Like("aa", std::string_view("*a?").substr(0, 2))) << "nothing beyond the pattern";
    EXPECT_TRUE(corrisponde("aXbXc", "a*b*c"));
    EXPECT_TRUE(corrisponde("", "*"));
    EXPECT_TRUE(corrisponde("", ""));
    EXPECT_FALSE(corrisponde("a", ""));
    EXPECT_TRUE(corrisponde("aaab", "*ab"));
    EXPECT_TRUE(corrisponde("ababbab.", "*abab*bab*"));
    EXPECT_FALSE(corrisponde("ababx", "*abab*bab*")) << "no letter counts for two stars";
}

TEST(DiskPattern, AQuestionMarkStandsForOneLetterNotOneByte) {
    EXPECT_TRUE(corrisponde("è.sen", "?.sen"));
    EXPECT_TRUE(corrisponde("caffè.sen", "*?.SEN"));
    EXPECT_FALSE(corrisponde("è.sen", "??.sen"));
}

TEST(DiskPattern, OfManyStarsEnds) {
    EXPECT_FALSE(corrisponde(std::string(255, 'a'), std::string(100, '*') + "b"));
    std::string stelle;
    for (int i = 0; i < 100; ++i) {
        stelle += "*a";
    }
    EXPECT_FALSE(corrisponde(std::string(255, 'a'), stelle + "b"));
}

TEST_F(Disk, ADirectoryListsRegularFilesInOrderOfName) {
    for (const char* nome :
         {"b.sen", "B2.sen", "A.sen", "c.SEN", "a.sen", ".sen", "10.sen", "2.sen", "x.sel"}) {
        cartella_.scrivi(nome, "");
    }
    fs::create_directories(f("cartella.sen"));
    ASSERT_EQ(::mkfifo(f("fifo.sen").c_str(), 0600), 0);
    fs::create_symlink("b.sen", f("link.sen"));
    fs::create_symlink("manca", f("rotto.sen"));
    const Nomi attesi = {".sen",  "10.sen", "2.sen", "A.sen",   "a.sen",
                         "b.sen", "B2.sen", "c.SEN", "link.sen"};
    EXPECT_EQ(Dir(cartella_.programma(), "*.sen"), attesi);
    EXPECT_EQ(Dir(cartella_.radice() + "/CRUCIVERBA", "*.SEN"), attesi);
    EXPECT_EQ(Dir(cartella_.programma(), "x.sel"), Nomi{"x.sel"});
    EXPECT_TRUE(Dir(cartella_.programma(), "y*").empty());
    EXPECT_TRUE(Dir(f("manca"), "*").empty());
}

TEST_F(Disk, KillDeletesOneFileWithoutCase) {
    cartella_.scrivi("Prova.sen", "x");
    cartella_.scrivi("Prova.col", "x");
    EXPECT_EQ(Kill(f("pROVA.SEN")), Esito::ok);
    EXPECT_EQ(tutti(), Nomi{"Prova.col"});
    EXPECT_EQ(Kill(f("prova.sen")), Esito::assente);
}

TEST_F(Disk, KillTakesALinkAndLeavesWhatItLeadsTo) {
    cartella_.scrivi("a", "x");
    fs::create_symlink("a", f("link"));
    EXPECT_EQ(Kill(f("link")), Esito::ok);
    EXPECT_EQ(tutti(), Nomi{"a"});
}

TEST_F(Disk, ALinkAndWhatItLeadsToAreOneFileOnlyFromTheLinksSide) {
    cartella_.scrivi("a", "x");
    cartella_.scrivi("b", "x");
    fs::create_symlink("a", f("link"));
    EXPECT_TRUE(stesso_file(f("A"), f("a")));
    EXPECT_TRUE(stesso_file(f("link"), f("link")));
    EXPECT_TRUE(stesso_file(f("link"), f("a")));
    EXPECT_FALSE(stesso_file(f("a"), f("link"))) << "deleting the link leaves the file";
    EXPECT_FALSE(stesso_file(f("a"), f("b")));
    EXPECT_FALSE(stesso_file(f("link"), f("b")));
    EXPECT_FALSE(stesso_file(f("manca"), f("a")));
    EXPECT_FALSE(stesso_file(f("a"), f("manca")));
}

TEST_F(Disk, TheWordOnAFileIsToldAsKeptWhereItIs) {
    cartella_.scrivi("Prova.col", "x");
    const bool tenuta = annota(f("prova.col"), "parola");
    EXPECT_EQ(annotazione(f("prova.col")), tenuta ? "parola" : "");
    const bool si_puo = ::setxattr(f("Prova.col").c_str(), "user.prova", "1", 1, 0) == 0;
    EXPECT_EQ(tenuta, si_puo) << "and says so";
    EXPECT_EQ(cartella_.leggi("Prova.col"), "x");
    EXPECT_FALSE(annota(f("manca.col"), "parola"));
    EXPECT_EQ(tutti(), Nomi{"Prova.col"});
}

TEST_F(Disk, NameRenamesWithoutCaseAndNeverOverwrites) {
    cartella_.scrivi("Vecchio.sen", "v");
    cartella_.scrivi("Altro.sen", "a");
    EXPECT_EQ(Name(f("vecchio.SEN"), f("altro.SEN")), Esito::errore);
    EXPECT_EQ(cartella_.leggi("Altro.sen"), "a");
    EXPECT_EQ(cartella_.leggi("Vecchio.sen"), "v");
    EXPECT_EQ(Name(f("vecchio.SEN"), f("Nuovo.sen")), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Nuovo.sen"), "v");
    EXPECT_EQ(Name(f("vecchio.sen"), f("x")), Esito::assente);
    EXPECT_EQ(Name(f("Nuovo.sen"), f("manca/x")), Esito::assente);
    EXPECT_EQ(tutti(), (Nomi{"Altro.sen", "Nuovo.sen"}));
}

/// A disk that takes two cases of a name for one, and may fail at the second step.
class DiscoSenzaCaso : public Syscalls {
public:
    int rename_noreplace(const char* vecchio, const char* nuovo) override {
        const bool stesso = LCase(vecchio) == LCase(nuovo);
        if (!stesso && ++passi != guasto) return Syscalls::rename_noreplace(vecchio, nuovo);
        errno = stesso ? EEXIST : EIO;
        return -1;
    }
    int passi = 0;
    int guasto = 0;
};

TEST_F(Disk, WhereCasesAreOneNameTheNewCaseGoesByAThirdName) {
    cartella_.scrivi("prova.sen", "v");
    DiscoSenzaCaso disco;
    const Ripristina chiamate(ambiente().chiamate, &disco);
    EXPECT_EQ(Name(f("prova.sen"), f("Prova.SEN")), Esito::ok);
    EXPECT_EQ(tutti(), Nomi{"Prova.SEN"});
    EXPECT_EQ(disco.passi, 2);
    // The second step fails: the old name comes back, and that it did is told.
    disco = {};
    disco.guasto = 2;
    EXPECT_EQ(Name(f("Prova.SEN"), f("prova.sen")), Esito::errore);
    EXPECT_EQ(tutti(), Nomi{"Prova.SEN"});
    EXPECT_EQ(cartella_.leggi("Prova.SEN"), "v");
}

TEST_F(Disk, NameGivesAFileTheNewCaseOfItsOwnName) {
    cartella_.scrivi("prova.sen", "v");
    EXPECT_EQ(Name(f("prova.sen"), cartella_.radice() + "/CRUCIVERBA/Prova.SEN"), Esito::ok);
    EXPECT_EQ(tutti(), Nomi{"Prova.SEN"});
    EXPECT_EQ(Name(f("prova.sen"), f("Prova.SEN")), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Prova.SEN"), "v");
}

TEST_F(Disk, ACopyHasTheSameContent) {
    const std::string dati(1'000'000, 'q');
    cartella_.scrivi("Da.col", dati);
    EXPECT_EQ(FileCopy(f("da.COL"), f("A.col")), Esito::ok);
    EXPECT_TRUE(cartella_.leggi("A.col") == dati);
    EXPECT_EQ(FileCopy(f("manca"), f("b")), Esito::assente);
    EXPECT_FALSE(cartella_.esiste("b"));
}

TEST_F(Disk, ACopyOntoAnotherFileReplacesItUnderItsOwnCase) {
    cartella_.scrivi("da.col", "nuovo");
    cartella_.scrivi("Arrivo.COL", "vecchio e lungo");
    EXPECT_EQ(FileCopy(f("da.col"), f("arrivo.col")), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Arrivo.COL"), "nuovo");
    EXPECT_EQ(tutti(), (Nomi{"Arrivo.COL", "da.col"}));
}

TEST_F(Disk, ACopyOntoItselfInAnotherCaseLeavesTheFile) {
    cartella_.scrivi("da.col", "dati");
    struct stat prima {};
    struct stat dopo {};
    ASSERT_EQ(::stat(f("da.col").c_str(), &prima), 0);
    EXPECT_EQ(FileCopy(f("da.col"), f("DA.col")), Esito::ok);
    EXPECT_EQ(FileCopy(f("da.col"), f("da.col")), Esito::ok);
    ASSERT_EQ(::stat(f("da.col").c_str(), &dopo), 0);
    EXPECT_EQ(dopo.st_ino, prima.st_ino);
    EXPECT_EQ(cartella_.leggi("da.col"), "dati");
    EXPECT_EQ(tutti(), Nomi{"da.col"});
}

TEST_F(Disk, ANameForPeopleCommandsNoTerminal) {
    EXPECT_EQ(da_mostrare("èa\x1b[2J.sen"), "èa\\x1B[2J.sen");
    EXPECT_EQ(da_mostrare("\xE8.sen"), "\\xE8.sen");
}

}  // namespace
