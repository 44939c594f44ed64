#include "systems/file_sistema.h"

#include "development/elaborazione.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/text_file.h"

namespace systems {

namespace {

std::string nome_file(const std::string& cartella, const std::string& nome, bool lotto) {
    return cartella + "/" + nome + estensione_sistema(lotto);
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

Testata leggi_testata(platform::TextReader& file, bool lotto, Sistema& sistema) {
    Testata testata;
    file.intero(sistema.totale);
    file.intero(testata.ultima_riga);
    file.intero(testata.ultima_colonna);
    file.campo(sistema.diagonali);
    sistema.tipo_righe = indice(file);
    sistema.tipo_colonne = indice(file);
    sistema.tipo_diagonali = indice(file);
    if (lotto) {
        std::int16_t forma = 0;
        file.intero(forma);
        sistema.forma = forma;
    }
    file.intero(sistema.senza_ripetizioni);
    return testata;
}

}  // namespace

std::string testo_sistema(const Sistema& sistema, bool lotto) {
    platform::Record testata;
    testata.scrivi(sistema.totale)
        .scrivi(sistema.matrice.ubound(2))
        .scrivi(sistema.matrice.ubound(1))
        .scrivi(sistema.diagonali)
        .scrivi(sistema.tipo_righe)
        .scrivi(sistema.tipo_colonne)
        .scrivi(sistema.tipo_diagonali);
    if (lotto) testata.scrivi(sistema.forma);
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

bool scrivi_sistema(const std::string& cartella, const std::string& nome, const Sistema& sistema,
                    bool lotto) {
    return platform::sostituisci(nome_file(cartella, nome, lotto), testo_sistema(sistema, lotto)) ==
           platform::Esito::ok;
}

Sistema leggi_sistema(const std::string& cartella, const std::string& nome, bool lotto) {
    Sistema sistema;
    platform::TextReader file(nome_file(cartella, nome, lotto));
    const Testata testata = leggi_testata(file, lotto, sistema);
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
                                            bool lotto) {
    platform::TextReader file(nome_file(cartella, nome, lotto));
    if (!file.aperto()) return std::nullopt;
    Sistema sistema;
    leggi_testata(file, lotto, sistema);
    return sistema.senza_ripetizioni;
}

bool esiste_sviluppo(const std::string& cartella, const std::string& nome, bool lotto) {
    return platform::esiste_file(cartella + "/" + nome + development::estensione_sviluppo(lotto));
}

}  // namespace systems
