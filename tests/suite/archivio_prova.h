// An archive of draws in a folder of its own, and what imports make of it.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "archivio/importa.h"
#include "support/archivio.h"
#include "support/cartella.h"

namespace prova {

namespace fs = std::filesystem;

using namespace importazione;

inline const std::vector<std::string> codici{"BA", "CA", "FI", "GE", "MI",
                                             "NA", "PA", "RM", "TO", "VE"};

/// Lines of all ten wheels on a day, and of the national one.
inline std::string giorno(const std::string& data, int primo, bool nazionale = true) {
    std::string testo;
    std::vector<std::string> ruote = codici;
    if (nazionale) ruote.emplace_back("RN");
    for (const std::string& ruota : ruote) {
        testo += data + "\t" + ruota;
        for (int i = 0; i < 5; ++i) testo += "\t" + std::to_string(primo + i);
        testo += "\n";
        ++primo;
    }
    return testo;
}

class ArchivioSuite : public testing::Test {
protected:
    std::string scrivi(const std::string& nome, const std::string& dati) const {
        cartella_.scrivi(nome, dati);
        return cartella_.file(nome);
    }
    Rapporto porta(const std::string& testo, bool sostituisci = false) const {
        return importa(archivio_, {scrivi("da_importare.txt", testo)}, sostituisci, {});
    }
    /// Records of a table as the program reads them.
    [[nodiscard]] support::Righe tabella(const std::string& nome) const {
        return support::tutte(support::apri(support::apri(nome_nel_programma()), nome));
    }
    [[nodiscard]] std::vector<std::string> concorsi(const std::string& nome) const {
        std::vector<std::string> esito;
        for (const auto& riga : tabella(nome)) esito.push_back(riga.back());
        return esito;
    }
    /// The name that the program opens, which leads to the same file.
    [[nodiscard]] std::string nome_nel_programma() const {
        return cartella_.radice() + "/archivio/drawit.mdb";
    }
    [[nodiscard]] std::vector<std::string> stato_ora() const {
        Contenuto c;
        EXPECT_EQ(carica(archivio_, c), 0);
        return stato(c);
    }
    void dimostra() const { ASSERT_TRUE(salva(archivio_, dimostrativo())); }

    support::Cartella cartella_;
    const std::string archivio_ = cartella_.radice() + "/archivio/drawit.sqlite";
    const bool fatta_ = fs::create_directories(cartella_.radice() + "/archivio");
};

inline const std::string una_sestina = "1997-12-03,20,36,39,41,72,76,88,5\n";

}  // namespace prova
