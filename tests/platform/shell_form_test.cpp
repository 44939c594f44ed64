#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "platform/qt/shell.h"
#include "support/cartella.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

TEST(Shell, ProgramsStartFromAFolderOfAnyBytes) {
    const support::Cartella cartella;
    for (const char* nome : {"suite", "la mia suite", "perché", "caff\xe8"}) {
        const fs::path dove = fs::path(cartella.radice()) / nome;
        fs::create_directories(dove);
        fs::copy_file("/bin/true", dove / "aiuto");
        EXPECT_NE(Shell((dove / "aiuto").string()), 0);
        EXPECT_NE(Shell((dove / "Aiuto.exe").string()), 0);
        EXPECT_EQ(Shell((dove / "altro").string()), 0);
        std::ofstream(dove / "rotto") << "no program";
        EXPECT_EQ(Shell((dove / "rotto").string()), 0);
    }
}

}  // namespace
}  // namespace platform
