// What a second program on the same folder sees of the first, and of one that was killed.
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
        figlio_ = std::make_unique<Figlio>();
        EXPECT_TRUE(figlio_->avvia(ALTRO, {cosa, dove}));
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
