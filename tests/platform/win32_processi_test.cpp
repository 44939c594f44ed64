// What a second program on the same folder sees of the first, and of one that was killed: this very
// program, started once more, is the other one.
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "platform/application.h"
#include "platform/disk.h"
#include "platform/figlio.h"
#include "platform/lavoro.h"
#include "platform/segno.h"
#include "platform/win32/nomi.h"
#include "support/archivio.h"
#include "support/cartella.h"

using namespace platform;

namespace {

/// The other program: what it has been asked for, and where.
class Altro {
public:
    Altro(const std::string& cosa, const std::string& dove) : pronto_(dove + "/.pronto") {
        _putenv_s("PROVA_COSA", cosa.c_str());
        _putenv_s("PROVA_DOVE", dove.c_str());
        figlio_ = std::make_unique<Figlio>();
        EXPECT_TRUE(figlio_->avvia(
            cartella_eseguibile() + "/test_core",
            {"--gtest_also_run_disabled_tests", "--gtest_filter=Altro.DISABLED_FaEdAspetta"}));
        // There is nothing to wait on but the file that it makes.
        for (int n = 0; n < 12000 && !esiste_file(pronto_); ++n) Sleep(5);
    }
    Altro(const Altro&) = delete;
    Altro& operator=(const Altro&) = delete;
    ~Altro() { uccidi(); }

    [[nodiscard]] std::string esito() const { return leggi_tutto(pronto_).value_or("<manca>"); }
    void uccidi() {
        figlio_.reset();
        Kill(pronto_);
    }

private:
    std::string pronto_;
    std::unique_ptr<Figlio> figlio_;
};

class ProcessiWin32 : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> nomi() const {
        std::vector<std::string> tutti = Dir(qui_, "*");
        std::erase(tutti, ".pronto");
        return tutti;
    }
    support::Cartella cartella_;
    const std::string qui_ = cartella_.programma();
};

}  // namespace

/// Not a test but what the other program does: it tells its outcome, and stays until it is killed.
TEST(Altro, DISABLED_FaEdAspetta) {
    const std::string cosa = std::getenv("PROVA_COSA");
    const std::string dove = std::getenv("PROVA_DOVE");
    const auto aspetta = [&](bool esito) {
        sostituisci(dove + "/.pronto", esito ? "1" : "0");
        Sleep(INFINITE);
    };
    if (cosa == "istanza") {
        Application app;
        app.Path = dove;
        aspetta(app.PrevInstance());
    } else if (cosa == "turno") {
        const Turno turno(dove);
        aspetta(turno.preso());
    } else if (cosa == "lavoro") {
        const Lavoro lavoro(dove);
        aspetta(lavoro.esito() == Esito::ok);
    } else if (cosa == "segno") {
        const Segno segno(dove + "/sch");
        aspetta(!segno.occupato());
    } else if (cosa == "archivio") {
        sqlite3* db = nullptr;
        sqlite3_open((dove + "/drawit.sqlite").c_str(), &db);
        // So small a cache that the changed pages go to the file ahead of the commit.
        aspetta(sqlite3_exec(db, "PRAGMA cache_size=1; BEGIN; UPDATE archivio SET concorso = 7;",
                             nullptr, nullptr, nullptr) == SQLITE_OK);
    } else if (cosa == "sostituisce") {
        sostituisci(dove + "/.pronto", "1");
        for (char c = 'a';; c = c == 'z' ? 'a' : static_cast<char>(c + 1))
            sostituisci(dove + "/a.col", std::string(100'000, c));
    }
}

TEST_F(ProcessiWin32, ASecondProgramOnTheFolderSeesTheFirstUntilItIsKilled) {
    Altro primo("istanza", qui_);
    EXPECT_EQ(primo.esito(), "0");
    {
        Application app;
        app.Path = qui_;
        EXPECT_TRUE(app.PrevInstance());
        app.Path = cartella_.radice();
        EXPECT_FALSE(app.PrevInstance());
    }
    primo.uccidi();
    Application app;
    app.Path = qui_;
    EXPECT_FALSE(app.PrevInstance());
    const Altro secondo("istanza", qui_);
    EXPECT_EQ(secondo.esito(), "1");
    EXPECT_TRUE(nomi().empty());
}

TEST_F(ProcessiWin32, TheTurnOfAKilledProgramIsTakenOver) {
    Altro altro("turno", qui_);
    EXPECT_EQ(altro.esito(), "1");
    EXPECT_FALSE(Turno(qui_, std::chrono::milliseconds(0)).preso());
    EXPECT_TRUE(Turno(cartella_.radice(), std::chrono::milliseconds(0)).preso());
    altro.uccidi();
    EXPECT_TRUE(Turno(qui_).preso());
    EXPECT_TRUE(nomi().empty());
}

TEST_F(ProcessiWin32, WhatAnotherHoldsIsSweptWhenItIsKilled) {
    Altro altro("lavoro", qui_);
    EXPECT_EQ(altro.esito(), "1");
    spazza(qui_);
    EXPECT_EQ(nomi().size(), 1U);
    altro.uccidi();
    spazza(qui_);
    EXPECT_TRUE(nomi().empty());
}

TEST_F(ProcessiWin32, AnothersMarkerIsSeenUntilItIsKilled) {
    Altro altro("segno", qui_);
    EXPECT_EQ(altro.esito(), "1");
    EXPECT_TRUE(esiste_file(qui_ + "/sch"));
    EXPECT_TRUE(Segno(qui_ + "/sch").occupato());
    EXPECT_TRUE(esiste_file(qui_ + "/sch"));
    altro.uccidi();
    EXPECT_FALSE(esiste_file(qui_ + "/sch"));
    EXPECT_FALSE(Segno(qui_ + "/sch").occupato());
}

TEST_F(ProcessiWin32, AnArchiveWhoseWriterWasKilledIsAsItWasBefore) {
    const support::Estrazioni attese = support::da_csv();
    support::scrivi_sqlite(qui_ + "/drawit.sqlite", attese);
    Altro altro("archivio", qui_);
    EXPECT_EQ(altro.esito(), "1");
    altro.uccidi();
    ASSERT_TRUE(esiste_file(qui_ + "/drawit.sqlite-journal"));
    EXPECT_EQ(support::tutte(support::apri(support::apri(qui_ + "/drawit.mdb"), "archivio")),
              attese.archivio);
}

TEST_F(ProcessiWin32, AReplacementThatIsKilledLeavesTheOldOrTheNew) {
    for (int volta = 0; volta < 10; ++volta) {
        cartella_.scrivi("a.col", std::string(100'000, '0'));
        Altro altro("sostituisce", qui_);
        // At another step each time.
        Sleep(static_cast<DWORD>(volta));
        altro.uccidi();
        const std::string dati = cartella_.leggi("a.col");
        ASSERT_EQ(dati.size(), 100'000U) << volta;
        EXPECT_EQ(dati.find_first_not_of(dati[0]), std::string::npos) << volta;
        spazza(qui_);
        EXPECT_EQ(nomi(), std::vector<std::string>{"a.col"}) << volta;
    }
}
