#include "platform/disk.h"

#include <algorithm>
#include <array>
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
#include "support/cartella.h"

using namespace platform;

namespace {

namespace fs = std::filesystem;

class Disk : public testing::Test {
protected:
    [[nodiscard]] std::string f(const std::string& nome) const { return cartella_.file(nome); }
    [[nodiscard]] std::vector<std::string> tutti() const {
        std::vector<std::string> nomi;
        for (const auto& voce : fs::directory_iterator(cartella_.programma())) {
            nomi.push_back(voce.path().filename());
        }
        std::sort(nomi.begin(), nomi.end());
        return nomi;
    }
    using Nomi = std::vector<std::string>;
    support::Cartella cartella_;
};

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
    EXPECT_TRUE(corrisponde("aXbXc", "a*b*c"));
    EXPECT_TRUE(corrisponde("", "*"));
    EXPECT_TRUE(corrisponde("", ""));
    EXPECT_FALSE(corrisponde("a", ""));
    EXPECT_TRUE(corrisponde("aaab", "*ab"));
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

TEST_F(Disk, AppendingMakesTheFileAndAddsToIt) {
    EXPECT_EQ(aggiungi(f("Temp.col"), "1,2\r\n"), Esito::ok);
    EXPECT_EQ(aggiungi(f("tEMP.col"), "3,4\r\n"), Esito::ok);
    EXPECT_EQ(aggiungi(f("tEMP.col"), ""), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Temp.col"), "1,2\r\n3,4\r\n");
    EXPECT_EQ(tutti(), Nomi{"Temp.col"});
}

TEST_F(Disk, WritingMakesTheFileOrEmptiesItFirst) {
    EXPECT_EQ(scrivi(f("Cst"), "lungo"), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Cst"), "lungo");
    EXPECT_EQ(scrivi(f("cST"), "x"), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Cst"), "x");
    EXPECT_EQ(scrivi(f("cST"), ""), Esito::ok);
    EXPECT_EQ(dimensione_file(f("Cst")), 0);
    EXPECT_EQ(tutti(), Nomi{"Cst"});
}

TEST_F(Disk, ReplacingKeepsTheCaseOnDiskAndLeavesNoWorkingFile) {
    EXPECT_EQ(sostituisci(f("Prova.sen"), "uno"), Esito::ok);
    EXPECT_EQ(sostituisci(cartella_.radice() + "/Cruciverba/PROVA.sen", "due"), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Prova.sen"), "due");
    EXPECT_EQ(tutti(), Nomi{"Prova.sen"});
    EXPECT_EQ(sostituisci(f("manca/x"), "due"), Esito::assente);
}

TEST_F(Disk, ReplacingALinkRenewsWhatItLeadsTo) {
    fs::create_directories(cartella_.radice() + "/altrove");
    const std::string meta = cartella_.radice() + "/altrove/meta";
    std::ofstream(meta) << "m";
    fs::create_symlink("../altrove/meta", f("link"));
    EXPECT_EQ(sostituisci(f("LINK"), "nuovo"), Esito::ok);
    EXPECT_EQ(leggi_tutto(meta), "nuovo");
    EXPECT_TRUE(fs::is_symlink(f("link")));
    cartella_.scrivi("temp.col", "12345");
    EXPECT_EQ(pubblica(f("temp.col"), dietro_il_collegamento(f("LINK")), 5), Esito::ok);
    EXPECT_EQ(leggi_tutto(meta), "12345");
    EXPECT_TRUE(fs::is_symlink(f("link")));
    EXPECT_EQ(tutti(), Nomi{"link"});
    EXPECT_EQ(Dir(cartella_.radice() + "/altrove", "*"), Nomi{"meta"});
}

/// Puts another file in the place of one that is being read.
class Scambio : public Syscalls {
public:
    Scambio(std::string da, std::string a) : da_(std::move(da)), a_(std::move(a)) {}
    Scambio(const Scambio&) = delete;
    Scambio& operator=(const Scambio&) = delete;
    ssize_t read(int fd, void* dati, std::size_t quanti) override {
        fs::rename(da_, a_, fatto_);
        return Syscalls::read(fd, dati, quanti);
    }

private:
    std::string da_;
    std::string a_;
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
    std::error_code fatto_;
};

TEST_F(Disk, ACopyBearsTheWordOfWhatWasCopied) {
    cartella_.scrivi("a.col", "vecchio");
    if (!annota(f("a.col"), "prima")) GTEST_SKIP() << "this disk keeps no words";
    cartella_.scrivi("temp.col", "nuovo");
    annota(f("temp.col"), "dopo");
    {
        const Scambio scambio(f("temp.col"), f("a.col"));
        EXPECT_EQ(FileCopy(f("a.col"), f("b.col")), Esito::ok);
    }
    EXPECT_EQ(annotazione(f("a.col")), "dopo");
    EXPECT_EQ(leggi_tutto(f("b.col")), "vecchio");
    EXPECT_EQ(annotazione(f("b.col")), "prima");
}

TEST_F(Disk, AFinishedFileReachesALinkToAnotherDisk) {
    if (fs::status("/dev/shm").type() != fs::file_type::directory) GTEST_SKIP() << "no other disk";
    const std::string meta = "/dev/shm/tabellino-prova-" + std::to_string(::getpid());
    std::ofstream(meta) << "vecchio";
    fs::create_symlink(meta, f("a.col"));
    cartella_.scrivi("temp.col", "12345");
    annota(f("temp.col"), "parola");
    const std::string parola = annotazione(f("temp.col"));
    EXPECT_EQ(pubblica(f("temp.col"), dietro_il_collegamento(f("a.col")), 5), Esito::ok);
    EXPECT_EQ(leggi_tutto(meta), "12345");
    EXPECT_EQ(annotazione(f("a.col")), parola);
    EXPECT_TRUE(fs::is_symlink(f("a.col")));
    EXPECT_EQ(tutti(), Nomi{"a.col"});
    fs::remove(meta);
}

TEST_F(Disk, ALinkThatLeadsNowhereGivesWay) {
    fs::create_symlink("manca", f("rotto"));
    EXPECT_EQ(sostituisci(f("rotto"), "nuovo"), Esito::ok);
    EXPECT_FALSE(fs::is_symlink(f("rotto")));
    EXPECT_EQ(tutti(), Nomi{"rotto"});
}

TEST_F(Disk, AReplacedFileKeepsItsMode) {
    for (const mode_t modo : {0600U, 0640U, 0444U}) {
        cartella_.scrivi("a.sen", "1");
        ASSERT_EQ(::chmod(f("a.sen").c_str(), modo), 0);
        const auto suo = [&] {
            return static_cast<unsigned>(fs::status(f("a.sen")).permissions());
        };
        EXPECT_EQ(sostituisci(f("A.sen"), "2"), Esito::ok);
        EXPECT_EQ(suo(), modo);
        cartella_.scrivi("b.sen", "3");
        EXPECT_EQ(FileCopy(f("b.sen"), f("a.sen")), Esito::ok);
        EXPECT_EQ(suo(), modo);
        cartella_.scrivi("temp.col", "12345");
        EXPECT_EQ(pubblica(f("temp.col"), f("a.sen"), 5), Esito::ok);
        EXPECT_EQ(suo(), modo);
        fs::remove(f("a.sen"));
    }
}

TEST_F(Disk, AWordGoesWithTheContentAndWithNoOther) {
    cartella_.scrivi("A.col", "1");
    if (!annota(f("a.col"), "parola")) GTEST_SKIP() << "this disk keeps no attributes";
    EXPECT_EQ(annotazione(f("a.COL")), "parola");
    EXPECT_EQ(FileCopy(f("a.col"), f("b.col"), Meta::via, "altra"), Esito::ok);
    EXPECT_EQ(annotazione(f("b.col")), "parola");
    EXPECT_EQ(Name(f("b.col"), f("c.col")), Esito::ok);
    EXPECT_EQ(annotazione(f("c.col")), "parola");
    EXPECT_EQ(sostituisci(f("c.col"), "2"), Esito::ok);
    EXPECT_EQ(annotazione(f("c.col")), "");
    EXPECT_EQ(FileCopy(f("c.col"), f("a.col"), Meta::via, "altra"), Esito::ok);
    EXPECT_EQ(annotazione(f("a.col")), "altra");
    EXPECT_EQ(annotazione(f("manca")), "");
    EXPECT_FALSE(annota(f("manca"), "parola"));
    EXPECT_EQ(tutti(), (Nomi{"A.col", "c.col"}));
}

TEST_F(Disk, PublishingMovesAFileOfTheToldSizeOnly) {
    cartella_.scrivi("temp.col", "12345");
    cartella_.scrivi("Finale.col", "vecchio");
    EXPECT_EQ(pubblica(f("temp.col"), f("finale.col"), 6), Esito::disco_pieno);
    EXPECT_EQ(cartella_.leggi("Finale.col"), "vecchio");
    EXPECT_EQ(cartella_.leggi("temp.col"), "12345");
    EXPECT_EQ(pubblica(f("TEMP.col"), f("finale.col"), 5), Esito::ok);
    EXPECT_EQ(cartella_.leggi("Finale.col"), "12345");
    EXPECT_EQ(tutti(), Nomi{"Finale.col"});
    EXPECT_EQ(pubblica(f("temp.col"), f("finale.col"), 5), Esito::assente);
}

TEST_F(Disk, ALeftoverWorkingFileOfAnotherLifeIsNotTouched) {
    const std::string resto = "temp-" + std::to_string(::getpid()) + "-0.nuovo";
    cartella_.scrivi(resto, "resto");
    EXPECT_EQ(sostituisci(f("a"), "x"), Esito::ok);
    EXPECT_EQ(cartella_.leggi(resto), "resto");
    EXPECT_EQ(cartella_.leggi("a"), "x");
}

TEST_F(Disk, WorkingNamesAreKnownAgainAndPlayersNamesAreNot) {
    EXPECT_TRUE(e_nome_di_lavoro("temp-12.nuovo"));
    EXPECT_TRUE(e_nome_di_lavoro("temp-12-3.nuovo"));
    for (const char* nome :
         {"tempo.sen", "temp.col", "temp-.nuovo", "temp-a.nuovo", "temp--1.nuovo",
          "temp-1.nuovo.sen", "temp.nuovo", "temp-nuovo", "", "atemp-1.nuovo"}) {
        EXPECT_FALSE(e_nome_di_lavoro(nome)) << nome;
    }
}

TEST_F(Disk, AWholeFileIsReadUpToTheLimit) {
    cartella_.scrivi("A.rid", "12345");
    EXPECT_EQ(leggi_tutto(f("a.RID")), "12345");
    EXPECT_EQ(leggi_tutto(f("a.rid"), 5), "12345");
    EXPECT_FALSE(leggi_tutto(f("a.rid"), 4));
    EXPECT_FALSE(leggi_tutto(f("manca")));
    cartella_.scrivi("vuoto", "");
    EXPECT_EQ(leggi_tutto(f("vuoto")), "");
}

/// Every step that could write onto, remove or wait for what is no plain file.
void nessuno_tocca(const std::string& nome, const std::string& sorgente) {
    EXPECT_EQ(scrivi(nome, "x"), Esito::errore) << nome;
    EXPECT_EQ(aggiungi(nome, "x"), Esito::errore) << nome;
    EXPECT_EQ(sostituisci(nome, "x"), Esito::errore) << nome;
    EXPECT_EQ(pubblica(sorgente, nome, 1), Esito::errore) << nome;
    EXPECT_EQ(FileCopy(sorgente, nome), Esito::errore) << nome;
    EXPECT_EQ(FileCopy(nome, sorgente), Esito::errore) << nome;
    EXPECT_EQ(Name(sorgente, nome), Esito::errore) << nome;
    EXPECT_EQ(Name(nome, sorgente + "2"), Esito::errore) << nome;
    EXPECT_EQ(pubblica(nome, sorgente, 0), Esito::errore) << nome;
    EXPECT_EQ(Kill(nome), Esito::errore) << nome;
    EXPECT_FALSE(leggi_tutto(nome)) << nome;
    EXPECT_FALSE(esiste_file(nome)) << nome;
}

TEST_F(Disk, FoldersPipesAndSocketsAreNeitherWrittenNorWaitedFor) {
    cartella_.scrivi("sorgente", "s");
    fs::create_directories(f("cartella"));
    ASSERT_EQ(::mkfifo(f("fifo").c_str(), 0600), 0);
    sockaddr_un indirizzo{};
    indirizzo.sun_family = AF_UNIX;
    const std::string presa = f("presa");
    std::copy(presa.begin(), presa.end(), indirizzo.sun_path);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&indirizzo), sizeof indirizzo), 0);
    for (const char* nome : {"cartella", "fifo", "presa"}) {
        nessuno_tocca(f(nome), f("sorgente"));
    }
    ::close(fd);
    EXPECT_EQ(tutti(), (Nomi{"cartella", "fifo", "presa", "sorgente"}));
    EXPECT_EQ(cartella_.leggi("sorgente"), "s");
    EXPECT_TRUE(fs::is_fifo(f("fifo")));
}

TEST_F(Disk, DeviceNodesAreLeftAlone) {
    // A node of its own, so that a faulty program run as root harms no real device.
    if (::mknod(f("nulla").c_str(), S_IFCHR | 0600, static_cast<dev_t>((1 << 8) | 3)) != 0) {
        GTEST_SKIP() << "device nodes cannot be made here";
    }
    cartella_.scrivi("sorgente", "s");
    nessuno_tocca(f("nulla"), f("sorgente"));
    EXPECT_TRUE(fs::is_character_file(f("nulla")));
    EXPECT_EQ(tutti(), (Nomi{"nulla", "sorgente"}));
}

TEST_F(Disk, NothingIsWrittenThroughALink) {
    cartella_.scrivi("meta", "m");
    cartella_.scrivi("sorgente", "s");
    fs::create_symlink("meta", f("link"));
    fs::create_symlink("manca", f("rotto"));
    for (const char* nome : {"link", "rotto"}) {
        EXPECT_EQ(scrivi(f(nome), "x"), Esito::errore);
        EXPECT_EQ(aggiungi(f(nome), "x"), Esito::errore);
        EXPECT_EQ(FileCopy(f("sorgente"), f(nome)), Esito::errore);
        EXPECT_TRUE(fs::is_symlink(f(nome)));
    }
    EXPECT_EQ(cartella_.leggi("meta"), "m");
    EXPECT_FALSE(cartella_.esiste("manca"));
}

}  // namespace
