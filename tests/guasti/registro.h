// Counts what the tests of this folder try and what is lost by it, for docs/reliability.md.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace guasti {

/// One fault, met by some works.
struct Riga {
    std::string come;  ///< how the fault is provoked
    std::vector<std::string> lavori;
    std::set<std::string> detti;  ///< what is given up on purpose
    long volte = 0;
    long perdite = 0;

    /// Counts one trial.
    void prova(bool salvo) {
        ++volte;
        perdite += salvo ? 0 : 1;
    }
};

/// The row of a fault, with one work more that meets it; `detto` is what that gives up.
Riga& riga(const std::string& guasto, const std::string& come, const std::string& lavoro,
           const std::string& detto = "");

/// The whole page.
std::string pagina();

}  // namespace guasti
