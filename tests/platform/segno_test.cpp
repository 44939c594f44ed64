// The file that tells that a program runs.
#include "platform/segno.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/disk.h"
#include "support/cartella.h"

using platform::Segno;

namespace {

class SegnoVivo : public testing::Test {
protected:
    /// Another process with the marker, killed when this returns it.
    void uccidi_un_altro() const {
        int via[2] = {};
        ASSERT_EQ(::pipe(via), 0);
        const pid_t figlio = ::fork();
        if (figlio == 0) {
            const Segno suo(nome_);
            const char esito = suo.occupato() ? 'n' : 's';
            if (::write(via[1], &esito, 1) == 1) ::pause();
            ::_exit(1);
        }
        char esito = ' ';
        EXPECT_EQ(::read(via[0], &esito, 1), 1);
        EXPECT_EQ(esito, 's');
        EXPECT_TRUE(platform::esiste_file(nome_));
        EXPECT_TRUE(Segno(nome_).occupato());
        EXPECT_TRUE(platform::esiste_file(nome_)) << "the second took the first one's away";
        ::kill(figlio, SIGKILL);
        ::waitpid(figlio, nullptr, 0);
        ::close(via[0]);
        ::close(via[1]);
    }

    support::Cartella cartella_;
    std::string nome_ = cartella_.radice() + "/sch";
};

}  // namespace

TEST_F(SegnoVivo, CEFinoAllaFine) {
    {
        const Segno segno(nome_);
        EXPECT_FALSE(segno.occupato());
        EXPECT_TRUE(platform::esiste_file(nome_));
        EXPECT_TRUE(Segno(nome_).occupato());
        EXPECT_TRUE(platform::esiste_file(nome_));
    }
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(nome_)));
}

TEST_F(SegnoVivo, DiUnProcessoUccisoNonSiVede) {
    uccidi_un_altro();
    EXPECT_FALSE(platform::esiste_file(nome_));
    const Segno segno(nome_);
    EXPECT_FALSE(segno.occupato());
    EXPECT_TRUE(platform::esiste_file(nome_));
}

TEST_F(SegnoVivo, UnAvanzoSiSpazza) {
    std::ofstream(nome_) << "";
    {
        const Segno segno(nome_);
        EXPECT_FALSE(segno.occupato());
    }
    EXPECT_FALSE(platform::esiste_file(nome_));
}

TEST_F(SegnoVivo, DoveNonSiPuoFareNonFermaNessuno) {
    std::filesystem::create_directories(nome_ + "/dentro");
    {
        const Segno segno(nome_);
        EXPECT_FALSE(segno.occupato());
    }
    EXPECT_TRUE(std::filesystem::exists(nome_ + "/dentro"));
    EXPECT_FALSE(Segno(cartella_.radice() + "/manca/sch").occupato());
}
