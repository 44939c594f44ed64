// The command as a program of its own.
#include <cstdlib>
#include <sys/wait.h>

#include "platform/disk.h"
#include "suite/sistema_prova.h"

using namespace prova;

namespace {

/// Exit code of the program itself with its outputs where they are sent.
int programma(const std::string& parole, const std::string& altrove) {
    const int stato = std::system((std::string(SISTEMA) + " " + parole + " " + altrove).c_str());
    return WIFEXITED(stato) ? WEXITSTATUS(stato) : -1;
}

TEST_F(Sistema, IlProgrammaEsceConISuoiCodici) {
    EXPECT_EQ(std::filesystem::path(SISTEMA).parent_path(), SUITE_DIR "/cruciverba");
    const std::string file =
        "--programma " + cartella.programma() + " -- " + metti("a", Gioco(), 6, 6);
    const std::string uscita = cartella.radice() + "/uscita";
    EXPECT_EQ(programma("conta " + file, ">" + uscita + " 2>&1"), 0);
    EXPECT_EQ(support::contenuto(uscita), comando({"conta", cartella.file("a.sen")}).uscita);
    EXPECT_EQ(programma("conta " + file + "x", ">" + uscita + " 2>&1"), 1);
    EXPECT_EQ(programma("canta", ">" + uscita + " 2>&1"), 2);
    EXPECT_EQ(programma("conta " + file, ">/dev/full 2>" + uscita), 1);
    EXPECT_EQ(support::contenuto(uscita), "sistema: l'uscita non si può scrivere\n");
    // No screen is needed for the page, nor asked for.
    EXPECT_EQ(
        programma("prospetto -o " + cartella.radice() + "/p.pdf " + file, ">" + uscita + " 2>&1"),
        0);
    EXPECT_TRUE(support::contenuto(cartella.radice() + "/p.pdf").starts_with("%PDF"));
    EXPECT_EQ(support::contenuto(uscita),
              platform::da_mostrare(cartella.file("a.sen")) + ": il prospetto è in " +
                  platform::da_mostrare(cartella.radice() + "/p.pdf") + "\n");
}

}  // namespace
