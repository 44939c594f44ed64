#include "guasti/registro.h"

#include <algorithm>
#include <map>

#include "guasti/lavori.h"

namespace guasti {

namespace {

using Righe = std::map<std::string, Riga>;

Righe& righe() {
    static Righe tutte;
    return tutte;
}

constexpr const char* testa =
    "# Reliability\n"
    "\n"
    "What the program survives, counted by the tests of `tests/guasti`, which write this page:\n"
    "`scripts/reliability.sh` renews it, and `./test` fails when it is out of date. After each\n"
    "trial the temporary files are swept as before the next elaboration. Then every file must be\n"
    "the old one or the new one, whole, and nothing may be missing that the finished work keeps;\n"
    "and a development beside a system must be of that system or be known not to be. It is known\n"
    "by an attribute: where a disk keeps none, an elaboration broken off still leaves no other\n"
    "system's development, but one left behind by a plain save is not told.\n"
    "\n";

constexpr const char* titoli =
    "| fault | provoked by | while | times | lost |\n"
    "|---|---|---|---:|---|\n";

constexpr const char* coda =
    "\n"
    "Readers meet damaged files in `tests/fuzz`: every test run tries a fixed number of mutations\n"
    "of each kind of file, and `scripts/fuzz.sh SECONDS` looks for more with libFuzzer.\n"
    "`scripts/insieme.sh SECONDS` has two programs and an importer killed for as long as told.\n";

}  // namespace

Riga& riga(const std::string& guasto, const std::string& come, const std::string& lavoro,
           const std::string& detto) {
    Riga& r = righe()[guasto];
    r.come = come;
    if (std::find(r.lavori.begin(), r.lavori.end(), lavoro) == r.lavori.end())
        r.lavori.push_back(lavoro);
    if (!detto.empty()) r.detti.insert(detto);
    return r;
}

namespace {

std::string unisci(const std::vector<std::string>& parole) {
    std::string testo;
    for (const std::string& parola : parole) testo += (testo.empty() ? "" : ", ") + parola;
    return testo;
}

/// The works, those that every fault meets under one name.
std::string nomi(std::vector<std::string> lavori, const std::vector<std::string>& tutti) {
    const bool ogni = std::all_of(tutti.begin(), tutti.end(), [&](const std::string& nome) {
        return std::find(lavori.begin(), lavori.end(), nome) != lavori.end();
    });
    if (!ogni) return unisci(lavori);
    std::erase_if(lavori, [&](const std::string& nome) {
        return std::find(tutti.begin(), tutti.end(), nome) != tutti.end();
    });
    lavori.insert(lavori.begin(), "every work");
    return unisci(lavori);
}

}  // namespace

std::string pagina() {
    std::vector<std::string> tutti;
    for (const Lavoro& lavoro : lavori()) tutti.push_back(lavoro.nome);
    std::string testo = testa + ("Every work: " + unisci(tutti)) + ".\n\n" + titoli;
    for (const auto& [guasto, r] : righe()) {
        testo += "| " + guasto + " | " + r.come + " | " + nomi(r.lavori, tutti) + " | " +
                 std::to_string(r.volte) + " | ";
        testo += r.perdite == 0 ? "nothing" : "something, " + std::to_string(r.perdite) + " times";
        for (const std::string& detto : r.detti) testo += "; " + detto;
        testo += " |\n";
    }
    return testo + coda;
}

}  // namespace guasti
