#include "systems/file_sistema.h"

#include "platform/application.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/text_file.h"
#include "systems/appartenenza.h"

namespace systems {

using crossword::Gioco;

namespace {

std::string nome_file(const std::string& cartella, const std::string& nome, Gioco gioco) {
    return cartella + "/" + nome + gioco.estensione_sistema();
}

/// A type index is read as text and turned into a number only when it is used.
std::int32_t indice(platform::TextReader& file) {
    std::string testo;
    file.campo(testo);
    return platform::CLng(platform::Val(testo)).value_or(-1);
}

struct Testata {
    std::uint8_t ultima_riga = 0;
    std::uint8_t ultima_colonna = 0;
};

Testata leggi_testata(platform::TextReader& file, Gioco gioco, Sistema& sistema) {
    Testata testata;
    file.intero(sistema.totale);
    file.intero(testata.ultima_riga);
    file.intero(testata.ultima_colonna);
    file.campo(sistema.diagonali);
    sistema.tipo_righe = indice(file);
    sistema.tipo_colonne = indice(file);
    sistema.tipo_diagonali = indice(file);
    if (gioco.e_lotto()) {
        std::int16_t forma = 0;
        file.intero(forma);
        sistema.gioco = Gioco::lotto(forma);
    }
    file.intero(sistema.senza_ripetizioni);
    return testata;
}

}  // namespace

std::string testo_sistema(const Sistema& sistema) {
    platform::Record testata;
    testata.scrivi(sistema.totale)
        .scrivi(sistema.matrice.ubound(2))
        .scrivi(sistema.matrice.ubound(1))
        .scrivi(sistema.diagonali)
        .scrivi(sistema.tipo_righe)
        .scrivi(sistema.tipo_colonne)
        .scrivi(sistema.tipo_diagonali);
    if (sistema.gioco.e_lotto()) testata.scrivi(sistema.gioco.forma());
    testata.scrivi(sistema.senza_ripetizioni);
    std::string testo = testata.testo();
    for (int y = 0; y <= sistema.matrice.ubound(2); ++y) {
        for (int x = 0; x <= sistema.matrice.ubound(1); ++x) {
            testo += std::to_string(sistema.matrice(x, y)) + ",";
        }
        testo += "\r\n";
    }
    return testo;
}

bool scrivi_sistema(const std::string& cartella, const std::string& nome, const Sistema& sistema) {
    // Another program must not find its system changed under an elaboration.
    const platform::Turno turno(cartella);
    ricorda_origine({cartella, nome, sistema.gioco});
    return platform::sostituisci(nome_file(cartella, nome, sistema.gioco),
                                 testo_sistema(sistema)) == platform::Esito::ok;
}

Sistema leggi_sistema(const std::string& cartella, const std::string& nome, Gioco gioco) {
    // More than the largest crossword takes.
    constexpr std::int64_t limite = std::int64_t{1} << 20;
    Sistema sistema;
    platform::TextReader file(nome_file(cartella, nome, gioco), limite);
    const Testata testata = leggi_testata(file, gioco, sistema);
    sistema.matrice = crossword::Matrice(testata.ultima_colonna + 1, testata.ultima_riga + 1);
    for (int y = 0; y <= testata.ultima_riga && !file.eof(); ++y) {
        for (int x = 0; x <= testata.ultima_colonna; ++x) {
            std::int16_t numero = 0;
            file.intero(numero);
            sistema.matrice.scrivi(x, y, numero);
        }
        // The empty field behind the last comma of the row, and the line end with it.
        std::string resto;
        file.campo(resto);
    }
    return sistema;
}

std::optional<std::int32_t> leggi_conteggio(const std::string& cartella, const std::string& nome,
                                            Gioco gioco) {
    platform::TextReader file(nome_file(cartella, nome, gioco), platform::TextReader::testa);
    if (!file.aperto()) return std::nullopt;
    Sistema sistema;
    leggi_testata(file, gioco, sistema);
    return sistema.senza_ripetizioni;
}

bool esiste_sviluppo(const std::string& cartella, const std::string& nome, Gioco gioco) {
    return platform::esiste_file(cartella + "/" + nome + gioco.estensione_sviluppo());
}

}  // namespace systems
