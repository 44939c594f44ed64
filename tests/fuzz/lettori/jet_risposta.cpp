// What the reader of Jet files says, true or not: a script that repeats a file stands for it.
#include <fstream>

#include "fuzz/ingresso.h"
#include "platform/ambiente.h"
#include "platform/jet.h"

namespace {

/// A program that says what stands in `file`.
std::string pappagallo(const fuzz::Suite& suite, const std::string& file) {
    const std::string nome = suite.file("pappagallo");
    std::ofstream(nome) << "#!/bin/sh\nexec /bin/cat '" + file + "'\n";
    std::filesystem::permissions(nome, std::filesystem::perms::owner_all);
    return nome;
}

/// A file that looks like a Jet database as far as the program itself looks.
std::string testa_di_jet(const fuzz::Suite& suite) {
    std::string dati("\0\1\0\0Standard Jet DB\0\1", 21);
    dati.resize(4096);
    const std::string nome = suite.file("x.mdb");
    std::ofstream(nome, std::ios::binary) << dati;
    return nome;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("risposta"));
    static const std::string programma = pappagallo(suite, suite.file("risposta"));
    static const std::string file = testa_di_jet(suite);
    platform::ambiente().lettore_jet.programma = programma;
    ingresso.riempi(dati, quanti);
    platform::Table tabella;
    if (platform::leggi_jet(file, "archivio", tabella) != 0) return 0;
    for (std::size_t c = 0; c < tabella.colonne(); ++c)
        fuzz::esigi(tabella.nome(c).size() <= quanti);
    return 0;
}
