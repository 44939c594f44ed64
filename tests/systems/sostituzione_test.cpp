// A copy onto a pair that has the name already: the old pair gives way to a whole one or not at
// all.
#include <sys/xattr.h>

#include "platform/ambiente.h"
#include "platform/disk.h"
#include "systems/operazioni_prova.h"

using namespace operazioni;

namespace {

class SostituzioneTest : public Operazioni {};

INSTANTIATE_TEST_SUITE_P(Giochi, SostituzioneTest, ::testing::Bool(),
                         [](const auto& p) { return p.param ? "Lotto" : "SuperEnalotto"; });

TEST_P(SostituzioneTest, APairThatGivesWayGoesDevelopmentAndAll) {
    scrivi(sis("a"), "S");
    scrivi(sis("b"), "T");
    scrivi(svi("b"), "W");
    const Passi passi = duplica(
        qui("a"), qui("b"), [] {}, Vecchia::tolta);
    EXPECT_EQ(passi.sistema, Esito::ok);
    EXPECT_EQ(passi.sviluppo, Esito::assente);
    EXPECT_EQ(programma(), (Stato{{sis("a"), "S"}, {sis("b"), "S"}}));
    scrivi_altra(sis("b"), "U");
    EXPECT_EQ(importa(la("b"), qui("b"), Vecchia::tolta).sistema, Esito::ok);
    EXPECT_EQ(programma(), (Stato{{sis("a"), "S"}, {sis("b"), "U"}}));
    scrivi_altra(sis("a"), "X");
    scrivi_altra(svi("a"), "Y");
    EXPECT_EQ(invia(qui("a"), la("a"), Vecchia::tolta).sistema, Esito::ok);
    EXPECT_EQ(stato(altra), (Stato{{sis("a"), "S"}, {sis("b"), "U"}}));
}

TEST_P(SostituzioneTest, ALoneDevelopmentGivesWayToo) {
    scrivi(sis("a"), "S");
    scrivi(svi("b"), "W");
    EXPECT_EQ(duplica(
                  qui("a"), qui("b"), [] {}, Vecchia::tolta)
                  .sistema,
              Esito::ok);
    EXPECT_EQ(programma(), (Stato{{sis("a"), "S"}, {sis("b"), "S"}}));
}

TEST_P(SostituzioneTest, NothingGivesWayToASystemThatIsGone) {
    scrivi(sis("b"), "T");
    scrivi(svi("b"), "W");
    scrivi(svi("a"), "V");
    const Stato prima = programma();
    for (const auto vecchia : {Vecchia::ceduta, Vecchia::tolta}) {
        EXPECT_NE(duplica(
                      qui("a"), qui("b"), [] {}, vecchia)
                      .sistema,
                  Esito::ok);
        EXPECT_EQ(programma(), prima);
        EXPECT_NE(importa(la("b"), qui("b"), vecchia).sistema, Esito::ok);
        EXPECT_EQ(programma(), prima);
    }
}

/// Refuses to read files of one folder, as a scratched stick does.
class Graffiato : public platform::Syscalls {
public:
    explicit Graffiato(std::string fine) : fine_(std::move(fine)) {}
    int open(const char* nome, int modo, unsigned permessi) override {
        const int fd = Syscalls::open(nome, modo, permessi);
        if (std::string(nome).ends_with(fine_)) guasto_ = fd;
        return fd;
    }
    ssize_t read(int fd, void* dati, std::size_t quanti) override {
        if (fd != guasto_) return Syscalls::read(fd, dati, quanti);
        errno = EIO;
        return -1;
    }

private:
    std::string fine_;
    int guasto_ = -1;
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

TEST_P(SostituzioneTest, AnUnreadableSourceCostsThePlayerNothing) {
    scrivi(sis("a"), "mio");
    scrivi(svi("a"), "mio sviluppo");
    scrivi_altra(sis("a"), "S");
    scrivi_altra(svi("a"), "V");
    const Stato prima = programma();
    for (const std::string& quale : {sis("a"), svi("a")}) {
        const Graffiato disco("altra/" + quale);
        const Passi passi = importa(la("a"), qui("a"), Vecchia::tolta);
        EXPECT_NE(passi.sistema, Esito::ok) << quale;
        EXPECT_NE(passi.sviluppo, Esito::ok) << quale;
        EXPECT_EQ(programma(), prima) << quale;
    }
}

TEST_P(SostituzioneTest, AFullDiskLeavesThePairThatWasToGiveWay) {
    scrivi(sis("a"), "SISTEMA");
    scrivi(svi("a"), std::string(1000, 'v'));
    scrivi_altra(sis("a"), "X");
    scrivi_altra(svi("a"), "Y");
    support::Disco pieno;
    pieno.spazio = 100;
    EXPECT_TRUE(invia(qui("a"), la("a"), Vecchia::tolta).disco_pieno());
    EXPECT_EQ(stato(altra), (Stato{{sis("a"), "X"}, {svi("a"), "Y"}}));
}

/// Refuses to put one file in its place.
class SenzaArrivo : public platform::Syscalls {
public:
    explicit SenzaArrivo(std::string fine) : fine_(std::move(fine)) {}
    int rename(const char* vecchio, const char* nuovo) override {
        if (!rifiutato_ && std::string(nuovo).ends_with(fine_)) {
            rifiutato_ = true;
            errno = EIO;
            return -1;
        }
        return Syscalls::rename(vecchio, nuovo);
    }

private:
    std::string fine_;
    bool rifiutato_ = false;
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

TEST_P(SostituzioneTest, APairThatCannotBeReplacedComesBackWhole) {
    scrivi(sis("a"), "S");
    scrivi(svi("a"), "V");
    scrivi(sis("b"), "T");
    scrivi(svi("b"), "W");
    const Stato prima = programma();
    {
        const SenzaArrivo guasto(sis("b"));
        EXPECT_NE(duplica(qui("a"), qui("b"), [] {}).sistema, Esito::ok);
        EXPECT_EQ(programma(), prima);
    }
    const SenzaArrivo guasto(svi("b"));
    EXPECT_NE(duplica(qui("a"), qui("b"), [] {}).sviluppo, Esito::ok);
    EXPECT_EQ(programma(), (Stato{{sis("a"), "S"}, {svi("a"), "V"}, {sis("b"), "S"}}))
        << "never the old development beside the new system";
}

TEST_P(SostituzioneTest, TheNewPairHasTheDateOfItsOwnMaking) {
    scrivi(sis("a"), "S");
    scrivi(sis("b"), "T");
    const auto ora = platform::data_creazione(cartella.file(sis("b")));
    ASSERT_TRUE(ora);
    for (const auto vecchia : {Vecchia::ceduta, Vecchia::tolta}) {
        // As a file has that was replaced before.
        const std::string dati = "T";
        ASSERT_EQ(platform::sostituisci(cartella.file(sis("b")), dati), Esito::ok);
        const std::string nota = "1000000000";
        if (::setxattr(cartella.file(sis("b")).c_str(), "user.tabellino.creazione", nota.data(),
                       nota.size(), 0) != 0) {
            GTEST_SKIP() << "this disk keeps no attributes";
        }
        EXPECT_EQ(duplica(
                      qui("a"), qui("b"), [] {}, vecchia)
                      .sistema,
                  Esito::ok);
        const auto data = platform::data_creazione(cartella.file(sis("b")));
        EXPECT_EQ(data == 1000000000, vecchia == Vecchia::ceduta);
    }
}

}  // namespace
