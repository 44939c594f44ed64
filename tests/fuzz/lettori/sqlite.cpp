// The archive of draws through the engine in the program.
#include "fuzz/archivio.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("x.sqlite"));
    ingresso.riempi(dati, quanti);
    fuzz::apri_archivio(suite.file("x.mdb"));
    return 0;
}
