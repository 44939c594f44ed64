#include "systems/ripresa.h"

#include <charconv>

#include "platform/disk.h"
#include "platform/text_file.h"
#include "systems/elenco.h"

namespace systems {

using crossword::Elenco;
using crossword::Gioco;

namespace {

/// More than the largest crossword takes.
constexpr std::int64_t limite = 4096;
constexpr std::int32_t versione = 1;

/// What the file holds.
struct Tenuto {
    Gioco gioco;
    std::array<std::int32_t, 3> tipi{};
    std::string nome;
    crossword::Matrice matrice;
};

int numeri_posati(const crossword::Matrice& matrice) {
    int quanti = 0;
    for (int y = 0; y < matrice.righe(); ++y) {
        for (int x = 0; x < matrice.colonne(); ++x) quanti += matrice(x, y) != 0 ? 1 : 0;
    }
    return quanti;
}

/// A name is kept byte by byte: the code page of text files does not hold every one.
std::string in_cifre(const std::string& nome) {
    constexpr std::string_view cifre = "0123456789abcdef";
    std::string testo;
    for (const char c : nome) {
        const auto byte = static_cast<unsigned char>(c);
        testo += {cifre[byte >> 4], cifre[byte & 15]};
    }
    return testo;
}

std::string da_cifre(const std::string& testo) {
    std::string nome;
    for (std::size_t i = 0; i + 1 < testo.size(); i += 2) {
        unsigned byte = 0;
        std::from_chars(testo.data() + i, testo.data() + i + 2, byte, 16);
        nome += static_cast<char>(byte);
    }
    return nome;
}

std::string testo(const Sessione& s) {
    platform::Record testata;
    testata.scrivi(versione).scrivi(s.gioco().e_lotto() ? s.gioco().forma() : 0);
    testata.scrivi(s.colonne()).scrivi(s.righe());
    for (const Elenco quale : {Elenco::orizzontali, Elenco::verticali, Elenco::diagonali}) {
        testata.scrivi(s.indice(quale));
    }
    testata.scrivi(in_cifre(s.nome()));
    std::string righe = testata.testo();
    for (int y = 0; y < s.righe(); ++y) {
        for (int x = 0; x < s.colonne(); ++x) righe += std::to_string(s.matrice()(x, y)) + ",";
        righe += "\r\n";
    }
    return righe;
}

std::optional<Tenuto> leggi(const std::string& nome) {
    platform::TextReader file(nome, limite);
    std::int32_t quale = 0;
    std::int32_t forma = 0;
    std::int32_t colonne = 0;
    std::int32_t righe = 0;
    Tenuto t;
    if (!file.intero(quale) || quale != versione || !file.intero(forma)) return std::nullopt;
    if (forma != 0) t.gioco = Gioco::lotto(forma);
    const bool gioca = forma == 0 || (forma >= 3 && forma <= 5);
    const auto lato = [&](std::int32_t n) {
        return n >= t.gioco.lato_minimo() && n <= Gioco::lato_massimo;
    };
    if (!gioca || !file.intero(colonne) || !file.intero(righe)) return std::nullopt;
    if (!lato(colonne) || !lato(righe)) return std::nullopt;
    for (std::int32_t& tipo : t.tipi) {
        if (!file.intero(tipo)) return std::nullopt;
    }
    std::string cifre;
    if (!file.campo(cifre)) return std::nullopt;
    t.nome = da_cifre(cifre);
    t.matrice = crossword::Matrice(colonne, righe);
    for (int y = 0; y < righe; ++y) {
        for (int x = 0; x < colonne; ++x) {
            std::int16_t numero = 0;
            if (!file.intero(numero) || numero < 0 || numero > 90) return std::nullopt;
            t.matrice.scrivi(x, y, numero);
        }
        std::string resto;
        file.campo(resto);
    }
    return t;
}

void posa(Sessione& s, const crossword::Matrice& matrice) {
    for (int y = 0; y < matrice.righe(); ++y) {
        for (int x = 0; x < matrice.colonne(); ++x) {
            if (matrice(x, y) != 0) s.posa({x, y}, matrice(x, y));
        }
    }
}

}  // namespace

Ripresa::Ripresa(Sessione& sessione)
    : sessione_(sessione), file_(sessione.cartella() + "/.tabellino-ripresa") {}

void Ripresa::tieni() {
    if (sessione_.occupata()) return;
    if (sessione_.salvato() || numeri_posati(sessione_.matrice()) == 0) {
        if (!tenuto_.empty()) dimentica();
        return;
    }
    std::string ora = testo(sessione_);
    if (ora == tenuto_) return;
    if (platform::sostituisci(file_, ora) == platform::Esito::ok) tenuto_ = std::move(ora);
}

std::optional<Interrotto> Ripresa::interrotto() const {
    const auto tenuto = leggi(file_);
    if (!tenuto) return std::nullopt;
    const int numeri = numeri_posati(tenuto->matrice);
    if (numeri == 0) return std::nullopt;
    return Interrotto{tenuto->nome, numeri};
}

bool Ripresa::riprendi() {
    const auto t = leggi(file_);
    if (!t || sessione_.occupata()) return false;
    if (t->gioco.e_lotto()) {
        sessione_.passa_al_lotto();
        sessione_.cambia_forma(t->gioco.forma());
    } else if (sessione_.gioco().e_lotto()) {
        sessione_.passa_al_superenalotto();
    }
    sessione_.dimensioni(t->matrice.colonne(), t->matrice.righe());
    const std::array quali = {Elenco::orizzontali, Elenco::verticali, Elenco::diagonali};
    for (std::size_t i = 0; i < quali.size(); ++i) sessione_.scegli_indice(quali[i], t->tipi[i]);
    posa(sessione_, t->matrice);
    sessione_.in_linea(nome_ammesso(t->nome) ? t->nome : std::string());
    sessione_.segna_salvato(false);
    tieni();
    return true;
}

void Ripresa::dimentica() {
    platform::Kill(file_);
    tenuto_.clear();
}

}  // namespace systems
