#include "lettura.h"

#include <algorithm>
#include <charconv>
#include <set>

#include "platform/runtime.h"

namespace importazione {

namespace {

using Campi = std::vector<std::string>;

constexpr std::size_t riga_massima = 1000;
constexpr int anno_primo = 1800;
constexpr int anno_ultimo = 2200;

bool cifra(char c) {
    return c >= '0' && c <= '9';
}

bool ha_lettere(std::string_view testo) {
    return std::any_of(testo.begin(), testo.end(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); });
}

/// A whole number without a sign, zeros before it allowed.
std::optional<std::int32_t> intero(std::string_view testo) {
    if (testo.empty() || testo.size() > 9 || !std::all_of(testo.begin(), testo.end(), cifra))
        return std::nullopt;
    std::int32_t n = 0;
    std::from_chars(testo.data(), testo.data() + testo.size(), n);
    return n;
}

/// Fields of a line, trimmed and without quotes.
Campi campi(std::string_view riga) {
    const char separatore = riga.find('\t') != std::string_view::npos  ? '\t'
                            : riga.find(';') != std::string_view::npos ? ';'
                                                                       : ',';
    Campi esito(1);
    bool fra_virgolette = false;
    for (const char c : riga) {
        if (c == '"') {
            fra_virgolette = !fra_virgolette;
        } else if (c == separatore && !fra_virgolette) {
            esito.emplace_back();
        } else {
            esito.back() += c;
        }
    }
    for (std::string& campo : esito) campo = std::string(platform::Trim(campo));
    return esito;
}

std::optional<std::size_t> ruota(std::string_view testo) {
    const std::string sigla = platform::LCase(testo);
    for (std::size_t i = 0; i < sigle.size(); ++i) {
        if (sigla == platform::LCase(sigle[i])) return i;
    }
    if (sigla == "ro") return 7;
    if (sigla == "rn" || sigla == "nz") return ruote_regionali;
    return std::nullopt;
}

/// What a column's name says of counting the draws; nothing when the name is unknown.
std::optional<bool> conta_le_estrazioni(const std::string& nome) {
    if (nome.starts_with("conc") || nome.starts_with("estrazione") || nome.starts_with("num") ||
        nome == "nr" || nome == "n.")
        return true;
    if (nome == "n1" || nome == "1" || nome == "primo") return false;
    return std::nullopt;
}

/// A line whose day is known, its meaning still to be told.
struct Grezza {
    int riga = 0;
    Data data;
    std::optional<std::int32_t> numero;
    bool numero_prima = false;  ///< the number stood before the day
    Campi resto;                ///< what follows the day
};

/// One reading: lines are sorted into games first, and numbers of draws told afterwards.
class Lettore {
public:
    Lettura leggi(std::string_view testo);

private:
    void riga(std::string_view testo);
    void rifiuta(int riga, std::string motivo) {
        esito_.rifiuti.push_back({riga, std::move(motivo)});
    }
    void lotto(const Grezza& g);
    void superenalotto(const Grezza& g, bool con_numero);
    /// True when the first number after the day counts the draws.
    [[nodiscard]] bool primo_e_il_numero() const;

    Lettura esito_;
    std::vector<Grezza> sestine_;
    std::optional<bool> intestazione_con_numero_;
    bool intestazione_possibile_ = true;
    int riga_ = 0;
};

void Lettore::riga(std::string_view testo) {
    if (platform::Trim(testo).empty()) return;
    if (testo.size() > riga_massima) return rifiuta(riga_, "riga troppo lunga");
    const bool prima = intestazione_possibile_;
    intestazione_possibile_ = false;
    const Campi c = campi(testo);
    Grezza g;
    g.riga = riga_;
    std::size_t dove = 0;
    auto data = leggi_data(c[0]);
    if (!data && c.size() > 1) {
        data = leggi_data(c[1]);
        dove = 1;
    }
    if (!data) {
        if (!prima || !ha_lettere(testo)) return rifiuta(riga_, "data mancante o non valida");
        // Names of columns: only where the number of the draw stands is of use.
        for (std::size_t i = 0; i + 1 < c.size(); ++i) {
            if (platform::LCase(c[i]).starts_with("dat"))
                intestazione_con_numero_ = conta_le_estrazioni(platform::LCase(c[i + 1]));
        }
        return;
    }
    g.data = *data;
    if (dove == 1) {
        g.numero = intero(c[0]);
        g.numero_prima = true;
        if (!g.numero || *g.numero < 1) return rifiuta(riga_, "numero di concorso non valido");
    }
    g.resto.assign(c.begin() + static_cast<std::ptrdiff_t>(dove) + 1, c.end());
    const bool lettere_prime = !g.resto.empty() && ha_lettere(g.resto[0]);
    if (lettere_prime || (g.resto.size() > 1 && ha_lettere(g.resto[1]))) {
        lotto(g);
    } else {
        sestine_.push_back(std::move(g));
    }
}

void Lettore::lotto(const Grezza& g) {
    RigaLotto r;
    r.riga = g.riga;
    r.data = g.data;
    r.numero = g.numero;
    Campi resto = g.resto;
    if (!ha_lettere(resto[0])) {
        r.numero = intero(resto[0]);
        if (!r.numero || *r.numero < 1 || g.numero_prima)
            return rifiuta(g.riga, "numero di concorso non valido");
        resto.erase(resto.begin());
    }
    const auto quale = ruota(resto[0]);
    if (!quale) return rifiuta(g.riga, "ruota sconosciuta: " + resto[0]);
    while (resto.size() > 6 && resto.back().empty()) resto.pop_back();
    if (resto.size() != 6) return rifiuta(g.riga, "servono cinque numeri dopo la ruota");
    std::set<std::int32_t> diversi;
    for (std::size_t i = 0; i < 5; ++i) {
        const auto n = intero(resto[i + 1]);
        if (!n || *n < 1 || *n > 90)
            return rifiuta(g.riga, "numero fuori da 1-90: " + resto[i + 1]);
        r.numeri[i] = static_cast<std::int16_t>(*n);
        diversi.insert(*n);
    }
    if (diversi.size() < 5) return rifiuta(g.riga, "numero ripetuto nell'estrazione");
    r.ruota = *quale;
    esito_.lotto.push_back(r);
}

bool Lettore::primo_e_il_numero() const {
    if (intestazione_con_numero_) return *intestazione_con_numero_;
    std::vector<std::pair<Data, std::int32_t>> primi;
    for (const Grezza& g : sestine_) {
        if (g.numero_prima || g.resto.empty()) continue;
        const auto n = intero(g.resto[0]);
        if (!n) continue;
        // No number drawn is so high.
        if (*n > 90) return true;
        primi.emplace_back(g.data, *n);
    }
    std::sort(primi.begin(), primi.end());
    for (std::size_t i = 1; i < primi.size(); ++i) {
        const bool segue = primi[i].second == primi[i - 1].second + 1 || primi[i].second == 1;
        if (!segue) return false;
    }
    return primi.size() > 1;
}

void Lettore::superenalotto(const Grezza& g, bool con_numero) {
    RigaSuperEnalotto r{g.riga, g.data, {}};
    r.sestina.numero = g.numero;
    Campi resto = g.resto;
    while (resto.size() > 8 && resto.back().empty()) resto.pop_back();
    // Beyond six numbers, Jolly and SuperStar only the number of the draw can stand.
    if (!g.numero_prima && ((con_numero && resto.size() > 6) || resto.size() > 8)) {
        r.sestina.numero = intero(resto[0]);
        if (!r.sestina.numero || *r.sestina.numero < 1)
            return rifiuta(g.riga, "numero di concorso non valido");
        resto.erase(resto.begin());
    }
    if (resto.size() < 6 || resto.size() > 8)
        return rifiuta(g.riga, "servono sei numeri, Jolly e SuperStar");
    std::set<std::int32_t> diversi;
    for (std::size_t i = 0; i < resto.size(); ++i) {
        if (i >= 6 && (resto[i].empty() || intero(resto[i]) == 0)) continue;
        const auto n = intero(resto[i]);
        if (!n || *n < 1 || *n > 90) return rifiuta(g.riga, "numero fuori da 1-90: " + resto[i]);
        const auto numero = static_cast<std::int16_t>(*n);
        if (i < 6) r.sestina.numeri[i] = numero;
        if (i == 6) r.sestina.jolly = numero;
        if (i == 7) r.sestina.superstar = numero;
        // The SuperStar comes from an urn of its own.
        if (i < 7 && !diversi.insert(*n).second)
            return rifiuta(g.riga, "numero ripetuto nell'estrazione");
    }
    esito_.superenalotto.push_back(r);
}

Lettura Lettore::leggi(std::string_view testo) {
    if (testo.starts_with("\xEF\xBB\xBF")) testo.remove_prefix(3);
    while (!testo.empty()) {
        ++riga_;
        const std::size_t fine = testo.find_first_of("\r\n");
        riga(testo.substr(0, fine));
        if (fine == std::string_view::npos) break;
        const bool doppia =
            testo[fine] == '\r' && fine + 1 < testo.size() && testo[fine + 1] == '\n';
        testo.remove_prefix(fine + (doppia ? 2 : 1));
    }
    const bool con_numero = primo_e_il_numero();
    for (const Grezza& g : sestine_) superenalotto(g, con_numero);
    std::sort(esito_.rifiuti.begin(), esito_.rifiuti.end(),
              [](const Rifiuto& a, const Rifiuto& b) { return a.riga < b.riga; });
    return std::move(esito_);
}

}  // namespace

std::optional<Data> leggi_data(std::string_view testo) {
    // A time after the day says nothing of the draw.
    testo = testo.substr(0, testo.find_first_of(" T"));
    std::array<std::int32_t, 3> parti{};
    if (testo.size() == 8 && std::all_of(testo.begin(), testo.end(), cifra)) {
        parti = {*intero(testo.substr(0, 4)), *intero(testo.substr(4, 2)),
                 *intero(testo.substr(6, 2))};
    } else {
        const std::size_t primo = testo.find_first_of("-/");
        if (primo == std::string_view::npos) return std::nullopt;
        const std::size_t secondo = testo.find(testo[primo], primo + 1);
        if (secondo == std::string_view::npos) return std::nullopt;
        const std::array<std::string_view, 3> pezzi = {testo.substr(0, primo),
                                                       testo.substr(primo + 1, secondo - primo - 1),
                                                       testo.substr(secondo + 1)};
        for (std::size_t i = 0; i < 3; ++i) {
            const auto n = intero(pezzi[i]);
            if (!n || pezzi[i].size() > 4) return std::nullopt;
            parti[i] = *n;
        }
        if (pezzi[0].size() < 3) std::swap(parti[0], parti[2]);
    }
    const Data data{parti[0], parti[1], parti[2]};
    if (data.anno < anno_primo || data.anno > anno_ultimo || data.mese < 1 || data.mese > 12 ||
        data.giorno < 1 || data.giorno > 31)
        return std::nullopt;
    // A day that the month does not have comes back as another.
    return platform::da_seriale(platform::seriale(data)) == data ? std::optional(data)
                                                                 : std::nullopt;
}

Lettura leggi(std::string_view testo) {
    return Lettore().leggi(testo);
}

}  // namespace importazione
