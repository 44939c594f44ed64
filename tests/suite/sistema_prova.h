// The command over a suite of its own, with what it says kept apart.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "sistema/comando.h"
#include "support/archivio_prova.h"
#include "support/cartella.h"
#include "support/json.h"
#include "support/sviluppo.h"
#include "systems/sessione.h"

namespace prova {

using crossword::Gioco;
using support::Valore;

struct Detto {
    int codice = -1;
    std::string uscita;
    std::string errori;
};

class Comando {
public:
    explicit Comando(const support::Cartella& cartella) {
        ambiente.programma = [&cartella] { return cartella.programma(); };
        ambiente.uscita = [this](std::string_view testo) { detto_.uscita += testo; };
        ambiente.errori = [this](std::string_view testo) { detto_.errori += testo; };
    }
    Comando(const Comando&) = delete;
    Comando& operator=(const Comando&) = delete;

    Detto operator()(const std::vector<std::string>& parole) {
        detto_ = {};
        detto_.codice = sistema::comando(parole, ambiente);
        return detto_;
    }
    /// The same with --json; what was printed must be such.
    support::Valore json(std::vector<std::string> parole, int codice = 0) {
        parole.emplace_back("--json");
        const Detto detto = (*this)(parole);
        EXPECT_EQ(detto.codice, codice) << detto.errori;
        const auto letto = support::leggi_json(detto.uscita);
        EXPECT_TRUE(letto.has_value()) << detto.uscita.substr(0, 400);
        return letto.value_or(support::Valore());
    }

    sistema::Mezzi ambiente;

private:
    Detto detto_;
};

/// Names and bytes of all files below a folder.
inline std::map<std::string, std::string> fotografia(const std::string& cartella) {
    std::map<std::string, std::string> tutti;
    for (const auto& voce : std::filesystem::recursive_directory_iterator(cartella)) {
        if (voce.is_regular_file())
            tutti[voce.path().string()] = support::contenuto(voce.path().string());
    }
    return tutti;
}

class Sistema : public testing::Test {
protected:
    Sistema() {
        cartella.con_tabelle();
        support::metti_archivio(cartella.radice(), support::archivio_di_prova());
    }
    /// Saves a system under a name; its file.
    std::string metti(const std::string& nome, crossword::Gioco gioco, int colonne, int righe,
                      int primo = 0) const {
        systems::Sistema s;
        s.gioco = gioco;
        s.tipo_righe = s.tipo_colonne = 0;
        s.tipo_diagonali = colonne == righe ? 0 : -1;
        if (colonne == righe) s.diagonali = std::to_string(gioco.diagonali());
        s.matrice = crossword::Matrice(colonne, righe);
        for (int y = 0; y < righe; ++y) {
            for (int x = 0; x < colonne; ++x) {
                s.matrice.scrivi(x, y, static_cast<std::int16_t>((x + 7 * y + primo) % 90 + 1));
            }
        }
        cartella.scrivi(nome + gioco.estensione_sistema(), systems::testo_sistema(s));
        return cartella.file(nome + gioco.estensione_sistema());
    }
    /// Develops a system that is there, as the program does.
    void elabora(const std::string& nome, crossword::Gioco gioco, bool ripetizioni = false) const {
        systems::Sessione s(cartella.programma());
        s.avvia();
        if (gioco.e_lotto()) s.passa_al_lotto();
        s.ripetizioni(ripetizioni);
        ASSERT_TRUE(s.apri(nome));
        ASSERT_EQ(s.sviluppa({}), systems::Elaborato::completo);
    }
    /// Saved and developed.
    std::string pronto(const std::string& nome, crossword::Gioco gioco = {}, int colonne = 7,
                       int righe = 7, int primo = 0) const {
        std::string file = metti(nome, gioco, colonne, righe, primo);
        elabora(nome, gioco);
        return file;
    }

    support::Cartella cartella;
    Comando comando{cartella};
};

}  // namespace prova
