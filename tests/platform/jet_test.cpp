#include "platform/jet.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/ambiente.h"
#include "platform/runtime.h"
#include "support/archivio.h"
#include "support/cartella.h"

using namespace platform;
using support::apri;
using support::errore_apertura;
using support::fixture_jet;

namespace {

namespace fs = std::filesystem;

constexpr std::size_t pagina = 4096;

std::size_t due(const std::string& dati, std::size_t i) {
    return static_cast<unsigned char>(dati[i]) |
           static_cast<std::size_t>(static_cast<unsigned char>(dati[i + 1])) << 8;
}

void metti(std::string& dati, std::size_t i, std::size_t valore, int byte) {
    for (int b = 0; b < byte; ++b)
        dati[i + static_cast<std::size_t>(b)] = static_cast<char>(valore >> (8 * b));
}

/// Starts of the data pages of the table that has most of them.
std::vector<std::size_t> pagine_piu_numerose(const std::string& dati) {
    std::map<std::string, std::vector<std::size_t>> di_tabella;
    for (std::size_t p = 0; p + pagina <= dati.size(); p += pagina) {
        if (dati[p] == 1) di_tabella[dati.substr(p + 4, 4)].push_back(p);
    }
    std::vector<std::size_t> migliori;
    for (const auto& [tabella, pagine] : di_tabella) {
        if (pagine.size() > migliori.size()) migliori = pagine;
    }
    return migliori;
}

class Jet : public testing::Test {
protected:
    Jet() { support::lettore_costruito(); }

    /// Error number of opening a file of these bytes and all its tables.
    int leggi(const std::string& dati) const {
        support::scrivi_file(nome_, dati);
        return leggi_tutto_il_file();
    }
    [[nodiscard]] int leggi_tutto_il_file() const {
        Database db;
        Recordset rs;
        int errore = OpenDatabase(nome_, false, true, db).Number;
        for (const char* tabella : {"archivio", "archivion", "archivios"}) {
            if (errore == 0) errore = db.OpenRecordset(tabella, rs).Number;
        }
        return errore;
    }
    /// Puts a shell script in the reader's place.
    void lettore_finto(const std::string& comandi) const {
        const std::string nome = cartella_.file("finto");
        support::scrivi_file(nome, "#!/bin/sh\n" + comandi + "\n");
        fs::permissions(nome, fs::perms::owner_all);
        ambiente().lettore_jet.programma = nome;
    }

    support::Cartella cartella_;
    const std::string nome_ = cartella_.file("x.mdb");
    const std::string intero_ = support::contenuto(fixture_jet + "drawit.mdb");
    platform::Ripristina<platform::LettoreJet> lettore_{platform::ambiente().lettore_jet};
};

/// One of the files that hold the same rows otherwise.
class JetFixture : public Jet, public testing::WithParamInterface<const char*> {};

TEST_P(JetFixture, EveryRowEqualsTheCsv) {
    const std::string quale = GetParam();
    support::Estrazioni attese = support::da_csv(quale == "before-1900" ? "-1871" : "");
    if (quale == "archivion-empty" || quale == "all-empty") attese.archivion.clear();
    if (quale == "all-empty") {
        attese.archivio.clear();
        attese.archivios.clear();
    }
    const Database db = apri(fixture_jet + quale + ".mdb");
    if (quale == "descending") {
        for (auto* righe : {&attese.archivio, &attese.archivion, &attese.archivios}) {
            std::stable_sort(righe->begin(), righe->end(), [](const auto& x, const auto& y) {
                return std::stoi(x.back()) > std::stoi(y.back());
            });
        }
    }
    EXPECT_EQ(support::tutte(apri(db, "archivio")), attese.archivio);
    EXPECT_EQ(support::tutte(apri(db, "archivion")), attese.archivion);
    EXPECT_EQ(support::tutte(apri(db, "archivios")), attese.archivios);
}

TEST_P(JetFixture, DamagedCopiesAreAnsweredWhateverTheyHold) {
    const std::string intero = support::contenuto(fixture_jet + GetParam() + ".mdb");
    Rnd rnd;
    const auto dove = [&] {
        return static_cast<std::size_t>(rnd.fino_a(static_cast<int>(intero.size())) - 1);
    };
    int fallite = 0;
    for (int prova = 0; prova < 200; ++prova) {
        std::string dati = intero;
        const int quanti = rnd.fino_a(50);
        switch (prova % 4) {
            case 0:  // anywhere
                for (int i = 0; i < quanti; ++i)
                    dati[dove()] = static_cast<char>(rnd.fino_a(256) - 1);
                break;
            case 1:  // where pages begin
                for (int i = 0; i < quanti; ++i)
                    dati[dove() / pagina * pagina + static_cast<std::size_t>(rnd.fino_a(64) - 1)] =
                        static_cast<char>(rnd.fino_a(256) - 1);
                break;
            case 2:  // a page in another's place
                dati.replace(dove() / pagina * pagina, pagina,
                             intero.substr(dove() / pagina * pagina, pagina));
                break;
            default:  // cut between two pages, a page lost
                dati.resize(dove() / pagina * pagina);
                if (const std::size_t p = dove() / pagina * pagina; p < dati.size())
                    dati.replace(p, pagina, std::string(pagina, '\0'));
        }
        fallite += leggi(dati) != 0 ? 1 : 0;
    }
    EXPECT_GT(fallite, 50);
    EXPECT_LT(fallite, 200);
    ambiente().lettore_jet = {};
}

INSTANTIATE_TEST_SUITE_P(fixtures, JetFixture,
                         testing::Values("drawit", "no-index", "index-tail", "concorso-int",
                                         "text-always", "ref-maps", "interleaved", "deleted",
                                         "tdef-by-name", "short-date", "descending",
                                         "archivion-empty", "all-empty", "before-1900"),
                         [](const auto& caso) {
                             std::string nome = caso.param;
                             std::replace(nome.begin(), nome.end(), '-', '_');
                             return nome;
                         });

TEST_F(Jet, EveryTypeOfValueIsReadAndNullIsNotEmpty) {
    const Recordset rs = apri(apri(fixture_jet + "campi.mdb"), "campi");
    EXPECT_EQ(support::tutte(rs),
              (support::Righe{
                  {"-1", "255", "-32768", "2147483647", "2", "4", "1899-12-30", "perché no"},
                  {"0", "0", "32767", "-2147483648", "-2", "<null>", "1899-12-29", ""},
                  {"-1", "<null>", "<null>", "<null>", "<null>", "<null>", "<null>", "<null>"},
                  {"0", "1", "2", "3", "4", "<null>", "2004-06-12", "€ 日本"}}));
}

TEST_F(Jet, FilesThatAreNoJetDatabaseAreTold) {
    for (const std::string& dati :
         {std::string(), std::string(1, '\0'), std::string(65536, '\0'),
          std::string("<!DOCTYPE html>"), "\x7f" + intero_.substr(1), intero_.substr(0, 2000),
          intero_.substr(0, pagina), intero_.substr(0, 20) + std::string(8172, 'x')}) {
        EXPECT_EQ(leggi(dati), 3343) << dati.size();
    }
}

TEST_F(Jet, ATruncatedFileIsNeverReadShort) {
    for (const std::size_t meno : {std::size_t{1}, std::size_t{1096}, pagina - 1})
        EXPECT_EQ(leggi(intero_.substr(0, intero_.size() - meno)), 3343);
    // No index page stands behind the rows here, so that every cut loses some.
    const std::string senza = support::contenuto(fixture_jet + "no-index.mdb");
    EXPECT_EQ(leggi(senza), 0);
    int danneggiati = 0;
    for (std::size_t quanti = pagina; quanti < pagine_piu_numerose(senza).back();
         quanti += pagina) {
        const int errore = leggi(senza.substr(0, quanti));
        EXPECT_NE(errore, 0) << quanti;
        danneggiati += errore == 3049 ? 1 : 0;
    }
    EXPECT_GT(danneggiati, 5);
}

TEST_F(Jet, ATableWithAnotherCountOfRowsIsRefused) {
    int provate = 0;
    for (std::size_t p = 0; p < intero_.size(); p += pagina) {
        const std::size_t righe = due(intero_, p + 16);
        if (intero_[p] != 2 || (righe != 1000 && righe != 50 && righe != 200)) continue;
        for (const std::size_t altre : {righe - 1, righe + 1, std::size_t{0}}) {
            std::string dati = intero_;
            metti(dati, p + 16, altre, 4);
            EXPECT_EQ(leggi(dati), 3049) << righe << " " << altre;
        }
        ++provate;
    }
    EXPECT_EQ(provate, 3);
}

TEST_F(Jet, ARecordThatOutgrewItsPageKeepsItsPlace) {
    std::string dati = intero_;
    const auto pagine = pagine_piu_numerose(dati);
    const std::size_t da = pagine.front();
    const std::size_t a = pagine.back();
    // The fourth record goes to free room of the last page; a pointer stays behind.
    const std::size_t slot = da + 14 + 3 * 2;
    const std::size_t inizio = due(dati, slot);
    const std::size_t lunghezza = due(dati, slot - 2) - inizio;
    const std::size_t quante = due(dati, a + 12);
    const std::size_t nuovo = due(dati, a + 14 + (quante - 1) * 2) - lunghezza;
    ASSERT_GT(nuovo, 14 + (quante + 1) * 2);
    dati.replace(a + nuovo, lunghezza, dati.substr(da + inizio, lunghezza));
    metti(dati, a + 14 + quante * 2, nuovo | 0x8000, 2);
    metti(dati, a + 12, quante + 1, 2);
    metti(dati, slot, inizio | 0x4000, 2);
    metti(dati, da + inizio, (a / pagina) << 8 | quante, 4);
    EXPECT_EQ(leggi(dati), 0);
    EXPECT_EQ(support::tutte(apri(apri(nome_), "archivio")), support::da_csv().archivio);
}

TEST_F(Jet, AReaderThatIsNotThereIsTold) {
    ambiente().lettore_jet.programma = cartella_.file("nessuno");
    EXPECT_EQ(leggi(intero_), 3170);
    ambiente().lettore_jet.programma.clear();
    EXPECT_EQ(leggi(intero_), 3170);
}

TEST_F(Jet, TheReaderIsBesideTheProgramOrWhereItIsInstalled) {
    const std::string usr = cartella_.file("usr");
    const std::string bin = usr + "/bin";
    const std::string accanto = bin + "/leggi_mdb";
    const std::string installato = usr + "/libexec/tabellino/leggi_mdb";
    fs::create_directories(bin);
    fs::create_directories(usr + "/libexec/tabellino");
    EXPECT_EQ(trova_lettore(bin), accanto);
    support::scrivi_file(installato, "x");
    EXPECT_TRUE(fs::equivalent(trova_lettore(bin), installato));
    support::scrivi_file(accanto, "x");
    EXPECT_EQ(trova_lettore(bin), accanto);
}

TEST_F(Jet, AReaderThatDiesOrTalksNonsenseCountsAsADamagedFile) {
    for (const char* comandi :
         {"kill -9 $$", "exit 0", "exit 1", "printf F", "printf 'F\\001\\000\\000\\000'",
          "printf 'F\\000\\000\\000\\000F'", "printf E", "printf 'E\\003'", "printf boh",
          "printf 'T\\377\\377\\377\\377\\377\\377'",
          "printf 'T\\001\\000\\000\\000\\001\\000\\000\\001\\000nR\\001\\001\\000\\000\\000'",
          "printf 'T\\001\\000\\000\\000\\001\\000\\001\\001\\000nR\\001\\377\\377xF'"}) {
        lettore_finto(comandi);
        EXPECT_EQ(leggi(intero_), 3049) << comandi;
    }
}

TEST_F(Jet, AReaderThatPromisesRowsTakesNoMemoryForThem) {
    // 60,000 columns of no name and as many rows as there can be, then a mebibyte of nulls: at a
    // row for each byte the table would take a quarter of a terabyte.
    lettore_finto("printf 'T\\377\\377\\377\\377\\140\\352'; exec head -c 1240000 /dev/zero");
    EXPECT_EQ(leggi(intero_), 3049);
}

TEST_F(Jet, AReaderThatSaysNothingIsStopped) {
    lettore_finto("exec tail -f /dev/null");
    ambiente().lettore_jet.attesa_muta = std::chrono::milliseconds(50);
    EXPECT_EQ(leggi(intero_), 3234);
    // One that closed its output and does not end is stopped as well.
    lettore_finto("printf 'F\\000\\000\\000\\000'; exec tail -f /dev/null >&2");
    EXPECT_EQ(verifica_jet(nome_), 0);
}

TEST_F(Jet, AReaderThatNeverEndsTalkingIsStopped) {
    lettore_finto("while :; do echo R; done");
    ambiente().lettore_jet.attesa_totale = std::chrono::milliseconds(100);
    EXPECT_EQ(leggi(intero_), 3234);
    lettore_finto("exec cat /dev/zero");
    ambiente().lettore_jet.attesa_totale = std::chrono::hours(1);
    ambiente().lettore_jet.uscita_massima = 1000000;
    EXPECT_EQ(leggi(intero_), 3049);
}

TEST_F(Jet, AFileFoundDamagedIsNotTriedAgain) {
    lettore_finto("[ $# -eq 1 ] && exec '" + ambiente().lettore_jet.programma +
                  "' \"$1\"; kill -9 $$");
    support::scrivi_file(nome_, intero_);
    Database db = apri(nome_);
    Recordset rs;
    EXPECT_EQ(db.OpenRecordset("archivio", rs).Number, 3049);
    support::lettore_costruito();
    EXPECT_EQ(db.OpenRecordset("archivios", rs).Number, 3049);
    EXPECT_EQ(apri(apri(nome_), "archivios").RecordCount(), 200);
}

TEST_F(Jet, ADiskThatWasTooSlowOnceIsAskedAgain) {
    // The first answer comes, the next one does not, as of a disk that goes to sleep.
    lettore_finto("[ $# -eq 1 ] && exec '" + ambiente().lettore_jet.programma +
                  "' \"$1\"; exec tail -f /dev/null");
    support::scrivi_file(nome_, intero_);
    Database db = apri(nome_);
    Recordset rs;
    ambiente().lettore_jet.attesa_muta = std::chrono::milliseconds(50);
    EXPECT_EQ(db.OpenRecordset("archivio", rs).Number, 3234);
    support::lettore_costruito();
    EXPECT_EQ(db.OpenRecordset("archivio", rs).Number, 0);
}

TEST_F(Jet, NoProcessAndNoDescriptorIsLeftBehind) {
    const auto aperti = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    };
    const auto prima = aperti();
    EXPECT_EQ(leggi(intero_), 0);
    EXPECT_NE(leggi(intero_.substr(0, 10 * pagina)), 0);
    ambiente().lettore_jet.attesa_muta = std::chrono::milliseconds(20);
    lettore_finto("exec tail -f /dev/null");
    EXPECT_EQ(leggi(intero_), 3234);
    EXPECT_EQ(aperti(), prima);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(Jet, TheSurroundingsDoNotChangeWhatIsRead) {
    ::setenv("MDBICONV", "ASCII", 1);
    ::setenv("MDB_ICONV", "ASCII", 1);
    struct sigaction ignora {};
    struct sigaction prima {};
    ignora.sa_handler = SIG_IGN;
    ::sigaction(SIGCHLD, &ignora, &prima);
    const Database db = apri(fixture_jet + "drawit.mdb");
    EXPECT_FALSE(apri(db, "archivios").Fields("1°estratto").Value().nullo());
    ::sigaction(SIGCHLD, &prima, nullptr);
    ::unsetenv("MDBICONV");
    ::unsetenv("MDB_ICONV");
}

TEST_F(Jet, TheReaderLimitsItsOwnMemoryTimeAndFiles) {
    const std::string tubo = cartella_.file("tubo");
    ASSERT_EQ(::mkfifo(tubo.c_str(), 0600), 0);
    std::string programma = ambiente().lettore_jet.programma;
    std::string argomento = tubo;
    char* argv[] = {programma.data(), argomento.data(), nullptr};
    pid_t pid = -1;
    ASSERT_EQ(::posix_spawn(&pid, programma.c_str(), nullptr, nullptr, argv, environ), 0);
    // The reader has set its limits when it opens its file.
    const int fd = ::open(tubo.c_str(), O_WRONLY);
    const std::string limiti = support::contenuto("/proc/" + std::to_string(pid) + "/limits");
    ::close(fd);
    ::waitpid(pid, nullptr, 0);
    const auto riga = [&](const std::string& nome) {
        std::istringstream s(limiti.substr(std::min(limiti.find(nome), limiti.size())));
        std::string valore;
        s.ignore(26) >> valore;
        return valore;
    };
    EXPECT_EQ(riga("Max address space"), "268435456");
    EXPECT_EQ(riga("Max cpu time"), "3");
    EXPECT_EQ(riga("Max core file size"), "0");
    EXPECT_EQ(riga("Max file size"), "0");
}

}  // namespace
