// The archive of draws through the reader that runs as a process of its own.
#include "platform/jet.h"

#include "fuzz/archivio.h"
#include "platform/ambiente.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("x.mdb"));
    platform::ambiente().lettore_jet.programma = LETTORE_JET;
    ingresso.riempi(dati, quanti);
    fuzz::apri_archivio(suite.file("x.mdb"));
    return 0;
}
