// The steps on files of the library, over a program folder and another one, in both games.
#pragma once

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>

#include "support/cartella.h"
#include "support/guasti.h"
#include "systems/operazioni.h"

namespace operazioni {

using namespace systems;
using crossword::Gioco;
using platform::Esito;
namespace fs = std::filesystem;

/// Names and bytes of a folder, links by where they lead.
using Stato = std::map<std::string, std::string>;

inline Stato stato(const std::string& cartella) {
    Stato s;
    for (const auto& voce : fs::directory_iterator(cartella)) {
        if (voce.is_symlink()) {
            s[voce.path().filename().string()] = "-> " + fs::read_symlink(voce.path()).string();
            continue;
        }
        if (voce.is_directory()) {
            s[voce.path().filename().string()] = "/";
            continue;
        }
        std::ifstream f(voce.path(), std::ios::binary);
        s[voce.path().filename().string()] = {std::istreambuf_iterator<char>(f), {}};
    }
    return s;
}

/// Both games: the parameter is `lotto`.
class Operazioni : public ::testing::TestWithParam<bool> {
protected:
    Operazioni() { fs::create_directories(altra); }
    [[nodiscard]] std::string sis(const std::string& nome) const {
        return nome + (GetParam() ? ".sel" : ".sen");
    }
    [[nodiscard]] std::string svi(const std::string& nome) const {
        return nome + (GetParam() ? ".lot" : ".col");
    }
    void scrivi(const std::string& nome, const std::string& dati) const {
        cartella.scrivi(nome, dati);
    }
    void scrivi_altra(const std::string& nome, const std::string& dati) const {
        std::ofstream(altra + "/" + nome, std::ios::binary) << dati;
    }
    [[nodiscard]] Coppia qui(const std::string& nome) const {
        return {cartella.programma(), nome, gioco()};
    }
    [[nodiscard]] Coppia la(const std::string& nome) const { return {altra, nome, gioco()}; }
    static Gioco gioco() { return GetParam() ? Gioco::lotto() : Gioco(); }
    [[nodiscard]] Stato programma() const { return stato(cartella.programma()); }
    /// The files of the other game under the same names, which no step may touch.
    Stato estranei() const {
        const Stato s = GetParam() ? Stato{{"a.sen", "E"}, {"a.col", "F"}}
                                   : Stato{{"a.sel", "E"}, {"a.lot", "F"}};
        for (const auto& [nome, dati] : s) scrivi(nome, dati);
        return s;
    }
    static Stato unisci(Stato a, const Stato& b) {
        a.insert(b.begin(), b.end());
        return a;
    }

    support::Cartella cartella;
    std::string altra = cartella.radice() + "/altra";
};

}  // namespace operazioni
