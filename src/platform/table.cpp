#include "platform/table.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <numeric>

#include "platform/runtime.h"

namespace platform {

std::optional<std::int32_t> Valore::intero() const {
    if (const auto* numero = std::get_if<std::int32_t>(&valore_)) return *numero;
    if (const auto* testo = std::get_if<std::string>(&valore_)) return numero_intero(Trim(*testo));
    return std::nullopt;
}

std::optional<std::string> Valore::testo() const {
    if (const auto* numero = std::get_if<std::int32_t>(&valore_)) return std::to_string(*numero);
    if (const auto* testo = std::get_if<std::string>(&valore_)) return *testo;
    if (const auto* data = std::get_if<Data>(&valore_)) {
        std::array<char, 40> scritta{};
        std::snprintf(scritta.data(), scritta.size(), "%02d/%02d/%04d", data->giorno, data->mese,
                      data->anno);
        return scritta.data();
    }
    return std::nullopt;
}

std::optional<Data> Valore::data() const {
    if (const auto* data = std::get_if<Data>(&valore_)) return *data;
    return std::nullopt;
}

void Table::aggiungi_colonna(std::string nome, Tipo tipo) {
    Colonna colonna;
    colonna.nome = std::move(nome);
    colonna.tipo = tipo;
    colonna.valori.resize(righe());
    colonna.nulli.resize(righe(), true);
    colonne_.push_back(std::move(colonna));
}

void Table::riserva(std::size_t righe) {
    for (Colonna& colonna : colonne_) colonna.valori.reserve(righe);
}

void Table::accoda_nullo(std::size_t colonna) {
    Colonna& c = colonne_[colonna];
    byte_ += sizeof(std::int32_t);
    c.valori.push_back(0);
    c.nulli.resize(c.valori.size());
    c.nulli.back() = true;
}

void Table::accoda(std::size_t colonna, std::int32_t valore) {
    byte_ += sizeof(std::int32_t);
    colonne_[colonna].valori.push_back(valore);
}

void Table::accoda(std::size_t colonna, std::string_view testo) {
    Colonna& c = colonne_[colonna];
    auto posto = c.posti.find(testo);
    byte_ += sizeof(std::int32_t);
    if (posto == c.posti.end()) {
        constexpr std::size_t contorno = 128;
        byte_ += 2 * testo.size() + contorno;
        posto = c.posti.emplace(testo, static_cast<std::int32_t>(c.testi.size())).first;
        c.testi.emplace_back(testo);
    }
    c.valori.push_back(posto->second);
}

std::optional<std::size_t> Table::colonna(std::string_view nome) const {
    const std::string cercato = LCase(nome);
    for (std::size_t i = 0; i < colonne_.size(); ++i) {
        if (LCase(colonne_[i].nome) == cercato) return i;
    }
    return std::nullopt;
}

Valore Table::valore(std::size_t colonna, std::size_t riga) const {
    if (nullo(colonna, riga)) return {};
    const std::int32_t numero = grezzo(colonna, riga);
    switch (tipo(colonna)) {
        case Tipo::testo:
            return Valore(testi(colonna)[static_cast<std::size_t>(numero)]);
        case Tipo::data:
            return Valore(da_seriale(numero));
        default:
            return Valore(numero);
    }
}

std::vector<std::uint32_t> Table::in_ordine(std::size_t colonna) const {
    // Ranks stand for the texts, so that every comparison is one of numbers.
    const std::vector<std::string>& diversi = testi(colonna);
    std::vector<std::int32_t> rango(diversi.size());
    if (tipo(colonna) == Tipo::testo) {
        std::vector<std::string> ordinati;
        ordinati.reserve(diversi.size());
        for (const std::string& testo : diversi) ordinati.push_back(LCase(testo));
        std::sort(ordinati.begin(), ordinati.end());
        for (std::size_t i = 0; i < diversi.size(); ++i) {
            rango[i] = static_cast<std::int32_t>(
                std::lower_bound(ordinati.begin(), ordinati.end(), LCase(diversi[i])) -
                ordinati.begin());
        }
    }
    const auto chiave = [&](std::uint32_t riga) -> std::int64_t {
        if (nullo(colonna, riga)) return std::numeric_limits<std::int64_t>::min();
        const std::int32_t numero = grezzo(colonna, riga);
        return tipo(colonna) == Tipo::testo ? rango[static_cast<std::size_t>(numero)] : numero;
    };
    const auto prima = [&](std::uint32_t a, std::uint32_t b) { return chiave(a) < chiave(b); };
    std::vector<std::uint32_t> ordine(righe());
    std::iota(ordine.begin(), ordine.end(), 0U);
    if (!std::is_sorted(ordine.begin(), ordine.end(), prima))
        std::stable_sort(ordine.begin(), ordine.end(), prima);
    return ordine;
}

}  // namespace platform
