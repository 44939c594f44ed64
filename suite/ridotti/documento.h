// The data that the document of the guarantees is made of.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "development/garanzie.h"

namespace ridotti {

/// A chapter: one prefix, with the numbers its game draws.
struct Sezione {
    const char* prefisso;
    const char* titolo;
    int estratti;
    int da;
    [[nodiscard]] int k() const { return development::NomeTabella{prefisso, 0, 0}.k(); }
};

/// How small a table of the same guarantee can be.
struct Minimo {
    int trovato = 0;
    int limite = 0;
    std::string tipo_limite;
    std::string disegno;  ///< file of the smallest one, empty when it is not kept
};

/// One reduced table with all that is told of it.
struct Voce {
    development::NomeTabella nome;
    development::Tabella tabella;
    development::Garanzia garanzia;
    std::vector<development::Garanzia> ulteriori;
    std::vector<development::Vincite> vincite;
    Minimo minimo;
};

/// A design told by few blocks and the permutation that makes the others of them.
struct Base {
    std::string tabella;
    int n = 0;
    int righe = 0;
    std::string permutazione;
    std::vector<development::Maschera> blocchi;
    /// The position that each one becomes in the shipped table; empty when the table is another.
    std::vector<int> nella_tabella;
};

/// One economical table of the suite.
struct Economica {
    development::NomeTabella nome;
    std::string file;  ///< its name, without the extension
    development::Tabella tabella;
    development::Garanzia garanzia;
};

struct Dati {
    std::vector<Voce> voci;
    std::vector<Economica> economiche;
    std::vector<Base> basi;
};

/// Reads and proves everything; complains and returns the command's exit code.
int raccogli(const std::string& tabelle, const std::string& minimi, Dati& dati);

/// Reads and proves the economical tables of the folder, as `raccogli` does with the told ones.
int raccogli_economiche(const std::string& tabelle, Dati& dati);
/// Their chapter of a section, empty when it has none.
std::string tavola_economiche(const Sezione& sezione, const Dati& dati);
/// Those that are smaller than the best published, in a sentence; empty when there are none.
std::string sotto_il_noto(const Dati& dati);

/// Best known size of a published covering of v positions by rows of k; 0 where there is none.
int minimo_noto(int v, int k, const development::Garanzia& garanzia);

}  // namespace ridotti
