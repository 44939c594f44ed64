// A fresh folder laid out as a suite root, removed at the end of the test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <string>

#include "platform/application.h"

namespace support {

/// A name of UTF-8, as the library's own files take it on every system.
inline std::filesystem::path percorso(const std::string& nome) {
    return std::u8string(nome.begin(), nome.end());
}

/// All bytes of a file; none when it is not there.
inline std::string contenuto(const std::string& nome) {
    std::ifstream f(percorso(nome), std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

class Cartella {
public:
    Cartella() {
        std::string modello =
            (std::filesystem::temp_directory_path() / "tabellinoXXXXXX").generic_string();
        radice_ = mkdtemp(modello.data());
        std::filesystem::create_directories(programma());
        std::filesystem::create_directories(radice_ + "/ridotti");
        std::filesystem::create_directories(radice_ + "/skin");
        prima_ = platform::App().Path;
        platform::App().Path = programma();
    }
    Cartella(const Cartella&) = delete;
    Cartella& operator=(const Cartella&) = delete;
    ~Cartella() {
        platform::App().Path = prima_;
        std::error_code errore;
        std::filesystem::remove_all(radice_, errore);
    }

    [[nodiscard]] const std::string& radice() const { return radice_; }
    [[nodiscard]] std::string programma() const { return radice_ + "/cruciverba"; }
    /// Full name of a file of the program folder.
    [[nodiscard]] std::string file(const std::string& nome) const {
        return programma() + "/" + nome;
    }
    void scrivi(const std::string& nome, const std::string& dati) const {
        std::ofstream(percorso(file(nome)), std::ios::binary) << dati;
    }
    [[nodiscard]] std::string leggi(const std::string& nome) const { return contenuto(file(nome)); }
    [[nodiscard]] bool esiste(const std::string& nome) const {
        return std::filesystem::exists(percorso(file(nome)));
    }
    /// Copies the built tables into this root.
    void con_tabelle() const {
        std::filesystem::copy(SUITE_DIR "/ridotti", radice_ + "/ridotti",
                              std::filesystem::copy_options::recursive |
                                  std::filesystem::copy_options::overwrite_existing);
    }

private:
    std::string radice_;
    std::string prima_;
};

}  // namespace support
