#include "stampa/sviluppo.h"

#include <charconv>
#include <string_view>

#include "platform/disk.h"

namespace schedine {

namespace {

constexpr std::int64_t passo = 128;
constexpr int minimo_numeri = 3;
constexpr int massimo_numeri = 6;
constexpr int numero_massimo = 90;

int campi(std::string_view riga) {
    int quanti = 1;
    for (const char c : riga) quanti += c == ',' ? 1 : 0;
    return quanti;
}

/// Why a field is no number of a column; empty when it is one, put into `numero`.
std::string rifiuto(std::string_view campo, int prima, int& numero) {
    constexpr std::size_t cifre = 9;
    if (campo.empty()) return "manca il numero";
    const bool intero = campo.find_first_not_of("0123456789") == std::string_view::npos;
    if (!intero || campo.size() > cifre) return "non è un numero da 1 a 90";
    std::from_chars(campo.data(), campo.data() + campo.size(), numero);
    if (numero < 1 || numero > numero_massimo) {
        return "il numero " + std::to_string(numero) + " non va da 1 a 90";
    }
    if (numero == prima) return "il numero " + std::to_string(numero) + " è ripetuto";
    if (numero < prima) {
        return "il numero " + std::to_string(numero) + " viene dopo il " + std::to_string(prima);
    }
    return {};
}

/// Reads one line strictly; a fault tells its field.
std::optional<Difetto> leggi_riga(std::string_view riga, int numeri, Colonna& colonna) {
    colonna.fill(0);
    int prima = 0;
    for (int k = 0; k < numeri; ++k) {
        const std::size_t virgola = riga.find(',');
        const std::string_view campo = riga.substr(0, virgola);
        int numero = 0;
        if (std::string motivo = rifiuto(campo, prima, numero); !motivo.empty()) {
            return Difetto{0, std::to_string(k + 1), std::move(motivo)};
        }
        colonna[static_cast<std::size_t>(k)] = static_cast<std::uint8_t>(numero);
        prima = numero;
        const bool ultimo = k == numeri - 1;
        if (virgola == std::string_view::npos && !ultimo) {
            return Difetto{
                0, std::to_string(k + 2),
                "la riga finisce qui, ma i numeri devono essere " + std::to_string(numeri)};
        }
        if (virgola != std::string_view::npos && ultimo) {
            return Difetto{0, std::to_string(k + 2),
                           "i numeri devono essere " + std::to_string(numeri) + " e non di più"};
        }
        riga.remove_prefix(ultimo ? riga.size() : virgola + 1);
    }
    return std::nullopt;
}

}  // namespace

std::optional<Difetto> Sviluppo::apri(const std::string& file, int numeri) {
    numeri_ = numeri;
    colonne_ = 0;
    impronta_ = 0;
    inizi_.clear();
    const auto byte = platform::dimensione_file(file);
    if (!byte || !lettore_.apri(file)) return Difetto{0, "", "il file non si può leggere"};
    byte_ = *byte;
    auto difetto = controlla();
    if (difetto) {
        lettore_.chiudi();
        colonne_ = 0;
    }
    return difetto;
}

std::optional<Difetto> Sviluppo::controlla() {
    std::string riga;
    Colonna colonna{};
    while (!lettore_.eof()) {
        if (colonne_ % passo == 0) inizi_.push_back(lettore_.seek());
        lettore_.riga(riga);
        ++colonne_;
        if (numeri_ == 0) numeri_ = campi(riga);
        if (riga.empty()) return Difetto{colonne_, "", "la riga è vuota"};
        if (numeri_ < minimo_numeri || numeri_ > massimo_numeri) {
            return Difetto{colonne_, "", "non è una riga di uno sviluppo"};
        }
        if (auto difetto = leggi_riga(riga, numeri_, colonna)) {
            difetto->riga = colonne_;
            return difetto;
        }
        constexpr std::uint64_t primo = 1099511628211U;
        for (const std::uint8_t numero : colonna) impronta_ = (impronta_ ^ numero) * primo;
    }
    if (colonne_ == 0) return Difetto{0, "", "lo sviluppo è vuoto"};
    // Without its end the last number may be half of what it was.
    const bool fine = lettore_.seek(byte_) && lettore_.riga(riga) && riga.empty();
    if (!fine) return Difetto{colonne_, "", "il file è troncato: la riga non ha la sua fine"};
    return std::nullopt;
}

bool Sviluppo::leggi(std::int64_t prima, int quante, std::vector<Colonna>& colonne) {
    colonne.clear();
    if (!lettore_.aperto() || prima < 1 || prima > colonne_) return false;
    const auto posto = static_cast<std::size_t>((prima - 1) / passo);
    if (!lettore_.seek(inizi_[posto])) return false;
    for (std::int64_t i = (prima - 1) % passo; i > 0; --i) lettore_.salta_riga();
    std::string riga;
    Colonna colonna{};
    for (std::int64_t n = prima; n <= colonne_ && quante > 0; ++n, --quante) {
        if (!lettore_.riga(riga) || leggi_riga(riga, numeri_, colonna)) return false;
        colonne.push_back(colonna);
    }
    return true;
}

}  // namespace schedine
