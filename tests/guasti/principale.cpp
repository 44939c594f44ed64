// Runs the tests; then the page that they counted is held against the one in the tree, or put in
// its place when "--scrivi" is given.
#include <cstdio>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <stdlib.h>
#include <unistd.h>

#include "guasti/registro.h"

namespace {

const char* const documento = SOURCE_DIR "/docs/reliability.md";

std::string contenuto(const std::string& nome) {
    std::ifstream f(nome, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

/// What other tools wrote below, under headings of its own.
std::string seguito(const std::string& tutto) {
    const std::size_t inizio = tutto.find("\n## ");
    return inizio == std::string::npos ? std::string() : tutto.substr(inizio);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // In memory: thousands of syncs would wait for a disk.
    if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 1);
    const int esito = RUN_ALL_TESTS();
    const std::string vecchia = contenuto(documento);
    const std::string pagina = guasti::pagina() + seguito(vecchia);
    if (argc > 1 && std::strcmp(argv[1], "--scrivi") == 0) {
        std::ofstream(documento, std::ios::binary) << pagina;
        return esito;
    }
    // A choice of tests counts only its own rows.
    if (esito != 0 || GTEST_FLAG_GET(filter) != "*" || pagina == vecchia) return esito;
    std::printf("docs/reliability.md is out of date; scripts/reliability.sh renews it:\n%s",
                pagina.c_str());
    return 1;
}
