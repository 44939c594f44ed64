#include "campi.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/runtime.h"

namespace importazione {

namespace {

constexpr int anno_primo = 1800;
constexpr int anno_ultimo = 2200;

bool cifra(char c) {
    return c >= '0' && c <= '9';
}

bool lettera(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The three numbers of a day as they stand.
std::optional<std::array<std::int32_t, 3>> parti_di(std::string_view testo) {
    const std::size_t primo = testo.find_first_of("-/.");
    if (primo == std::string_view::npos) return std::nullopt;
    const std::size_t secondo = testo.find(testo[primo], primo + 1);
    if (secondo == std::string_view::npos) return std::nullopt;
    const std::array<std::string_view, 3> pezzi = {testo.substr(0, primo),
                                                   testo.substr(primo + 1, secondo - primo - 1),
                                                   testo.substr(secondo + 1)};
    // The year has four digits, at one end.
    const std::size_t anno = pezzi[0].size() < 3 ? 2 : 0;
    std::array<std::int32_t, 3> parti{};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto n = intero(pezzi[i]);
        if (!n || pezzi[i].size() > (i == anno ? 4U : 2U)) return std::nullopt;
        parti[i] = *n;
    }
    return parti;
}

std::optional<Data> giorno(int anno, int mese, int quale) {
    const Data data{anno, mese, quale};
    return anno >= anno_primo && anno <= anno_ultimo && platform::esiste(data) ? std::optional(data)
                                                                               : std::nullopt;
}

/// A time after the day says nothing of the draw.
std::string_view senza_ora(std::string_view testo) {
    return testo.substr(0, testo.find_first_of(" T"));
}

// What a name can say of its column.
enum class Ruolo {
    ignoto,
    data,
    numero,
    forse_numero,
    ruota,
    estratto,
    estratti,
    jolly,
    superstar
};

struct Nome {
    Ruolo ruolo = Ruolo::ignoto;
    std::size_t quale = 0;  ///< of a number drawn, from 1
};

/// Words and numbers of a name: "1°estratto" is "1" and "estratto".
std::vector<std::string> parole_di(std::string_view nome) {
    std::vector<std::string> parole;
    char prima = ' ';
    for (const char c : platform::LCase(nome)) {
        if (lettera(c) || cifra(c)) {
            const bool segue = (lettera(c) && lettera(prima)) || (cifra(c) && cifra(prima));
            if (!segue) parole.emplace_back();
            parole.back() += c;
        }
        prima = c;
    }
    return parole;
}

template <std::size_t N>
bool fra(const std::string& parola, const std::array<std::string_view, N>& note) {
    return std::find(note.begin(), note.end(), parola) != note.end();
}

constexpr std::array<std::string_view, 14> di_un_numero{
    "n",        "nr",       "no",   "num",   "numero", "numeri", "number",
    "estratto", "estratti", "estr", "palla", "ball",   "o",      "a"};
constexpr std::array<std::string_view, 8> di_un_conto{"n",   "nr",     "nro", "no",
                                                      "num", "numero", "id",  "number"};
constexpr std::array<std::string_view, 6> di_piu_numeri{"numeri",       "estratti", "sestina",
                                                        "combinazione", "cinquina", "numbers"};
constexpr std::array<std::string_view, 6> ordinali{"primo",  "secondo", "terzo",
                                                   "quarto", "quinto",  "sesto"};

/// The place of a number drawn that a name tells; 0 when it tells none.
std::size_t posto_di(const std::vector<std::string>& parole) {
    std::size_t posto = 0;
    for (const std::string& p : parole) {
        const auto* const ordinale = std::find(ordinali.begin(), ordinali.end(), p);
        std::size_t detto = 0;
        if (ordinale != ordinali.end()) {
            detto = static_cast<std::size_t>(ordinale - ordinali.begin()) + 1;
        } else if (cifra(p[0])) {
            detto = static_cast<std::size_t>(intero(p).value_or(0));
            if (detto < 1 || detto > ordinali.size()) return 0;
        } else if (!fra(p, di_un_numero)) {
            return 0;
        }
        if (detto != 0 && posto != 0) return 0;
        if (detto != 0) posto = detto;
    }
    return posto;
}

Nome nome_di(std::string_view testo) {
    const std::vector<std::string> parole = parole_di(testo);
    const auto una = [&](auto&& giusta) {
        return std::any_of(parole.begin(), parole.end(), giusta);
    };
    const auto comincia = [&](std::string_view inizio) {
        return una([&](const std::string& p) { return p.starts_with(inizio); });
    };
    if (parole.empty()) return {};
    if (una([](const std::string& p) { return p.find("star") != p.npos || p == "ss"; }))
        return {Ruolo::superstar};
    if (comincia("jol") || parole == std::vector<std::string>{"j"}) return {Ruolo::jolly};
    if (comincia("dat")) return {Ruolo::data};
    if (comincia("ruot") || comincia("wheel")) return {Ruolo::ruota};
    if (const std::size_t posto = posto_di(parole); posto != 0) return {Ruolo::estratto, posto};
    if (una([](const std::string& p) { return cifra(p[0]); })) return {};
    if (comincia("conc")) return {Ruolo::numero};
    if (parole.size() == 1 && fra(parole[0], di_piu_numeri)) return {Ruolo::estratti};
    const bool conto = std::all_of(parole.begin(), parole.end(), [](const std::string& p) {
        return fra(p, di_un_conto) || p == "estrazione" || p == "estr";
    });
    return {conto ? Ruolo::forse_numero : Ruolo::ignoto};
}

constexpr const char* due_volte = "l'intestazione dà lo stesso nome a due colonne";
constexpr const char* non_dice = "l'intestazione non dice in quali colonne sono i numeri estratti";

/// Puts names in their places.
class Lettore {
public:
    explicit Lettore(const Campi& nomi) {
        for (const std::string& nome : nomi) nomi_.push_back(nome_di(nome));
        esito_.colonne.quante = nomi.size();
    }
    std::optional<Intestazione> leggi();

private:
    void conto();
    void parti();
    void numeri();
    bool stesi_da(std::size_t primo);
    void ignota();
    [[nodiscard]] bool libera(std::size_t i) const {
        return i >= nomi_.size() || nomi_[i].ruolo == Ruolo::ignoto;
    }
    [[nodiscard]] std::size_t quanti() const { return esito_.colonne.ruota ? 5 : 6; }

    std::vector<Nome> nomi_;
    Intestazione esito_;
};

/// A word that can mean many things counts the draws only where it stands once and nothing better
/// does.
void Lettore::conto() {
    const auto quanti_di = [this](Ruolo r) {
        return std::count_if(nomi_.begin(), nomi_.end(),
                             [r](const Nome& n) { return n.ruolo == r; });
    };
    const bool vale = quanti_di(Ruolo::numero) == 0 && quanti_di(Ruolo::forse_numero) == 1;
    for (Nome& n : nomi_) {
        if (n.ruolo == Ruolo::forse_numero) n.ruolo = vale ? Ruolo::numero : Ruolo::ignoto;
    }
}

void Lettore::parti() {
    Colonne& c = esito_.colonne;
    for (std::size_t i = 0; i < nomi_.size(); ++i) {
        std::optional<std::size_t>* posto = nomi_[i].ruolo == Ruolo::data        ? &c.data
                                            : nomi_[i].ruolo == Ruolo::numero    ? &c.numero
                                            : nomi_[i].ruolo == Ruolo::ruota     ? &c.ruota
                                            : nomi_[i].ruolo == Ruolo::jolly     ? &c.jolly
                                            : nomi_[i].ruolo == Ruolo::superstar ? &c.superstar
                                                                                 : nullptr;
        if (posto == nullptr) continue;
        if (*posto) esito_.errore = due_volte;
        *posto = i;
    }
}

/// Numbers side by side in columns that have no other name.
bool Lettore::stesi_da(std::size_t primo) {
    for (std::size_t i = 0; i < quanti(); ++i) {
        const std::size_t dove = primo + i;
        const bool suo = dove < nomi_.size() &&
                         ((nomi_[dove].ruolo == Ruolo::estratto && nomi_[dove].quale == i + 1) ||
                          (i == 0 && nomi_[dove].ruolo == Ruolo::estratti));
        if (!suo && !libera(dove)) return false;
        esito_.colonne.estratti.push_back(dove);
    }
    esito_.colonne.quante = std::max(esito_.colonne.quante, primo + quanti());
    return true;
}

void Lettore::numeri() {
    Colonne& c = esito_.colonne;
    std::vector<std::optional<std::size_t>> detti(ordinali.size());
    std::optional<std::size_t> primo;
    for (std::size_t i = 0; i < nomi_.size(); ++i) {
        if (nomi_[i].ruolo == Ruolo::estratti && !primo) primo = i;
        if (nomi_[i].ruolo != Ruolo::estratto) continue;
        auto& posto = detti[nomi_[i].quale - 1];
        if (posto) esito_.errore = due_volte;
        posto = i;
    }
    const auto dopo = detti.begin() + static_cast<std::ptrdiff_t>(quanti());
    const auto detto = [](const auto& d) { return d.has_value(); };
    if (std::all_of(detti.begin(), dopo, detto) && std::none_of(dopo, detti.end(), detto)) {
        for (auto d = detti.begin(); d != dopo; ++d) c.estratti.push_back(d->value_or(0));
        return;
    }
    // The names that are there tell where the first one would stand.
    for (std::size_t k = 0; k < detti.size(); ++k) {
        if (!detti[k]) continue;
        if (*detti[k] < k || (primo && *primo != *detti[k] - k)) {
            esito_.errore = non_dice;
            return;
        }
        primo = *detti[k] - k;
    }
    if (!primo && c.ruota) primo = *c.ruota + 1;
    if (!primo && c.jolly && *c.jolly >= quanti()) {
        const std::size_t da = *c.jolly - quanti();
        // Exactly six without a name before it, else which of them is not told.
        if (da == 0 || !libera(da - 1)) primo = da;
    }
    if (primo ? !stesi_da(*primo) : c.jolly || c.superstar) esito_.errore = non_dice;
}

void Lettore::ignota() {
    Colonne& c = esito_.colonne;
    if (c.numero || !c.data || c.estratti.empty()) return;
    for (const std::size_t i : {*c.data + 1, *c.data - 1}) {
        const bool prima = i < *std::min_element(c.estratti.begin(), c.estratti.end());
        if (i < nomi_.size() && libera(i) && prima) c.ignota = i;
    }
}

std::optional<Intestazione> Lettore::leggi() {
    conto();
    parti();
    numeri();
    const bool numeri_detti = esito_.errore.empty() && !esito_.colonne.estratti.empty();
    // A title may hold a day or a number, but not a whole line of names.
    const std::size_t poche = esito_.colonne.data ? 3 : quanti();
    if (nomi_.size() <= poche || (!esito_.colonne.data && !numeri_detti)) return std::nullopt;
    ignota();
    return esito_;
}

}  // namespace

bool ha_lettere(std::string_view testo) {
    return std::any_of(testo.begin(), testo.end(), lettera);
}

std::optional<std::int32_t> intero(std::string_view testo) {
    if (testo.empty() || testo.size() > 9 || !std::all_of(testo.begin(), testo.end(), cifra))
        return std::nullopt;
    std::int32_t n = 0;
    std::from_chars(testo.data(), testo.data() + testo.size(), n);
    return n;
}

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

std::optional<Data> leggi_data(std::string_view testo) {
    testo = senza_ora(testo);
    if (testo.size() == 8 && std::all_of(testo.begin(), testo.end(), cifra)) {
        return giorno(*intero(testo.substr(0, 4)), *intero(testo.substr(4, 2)),
                      *intero(testo.substr(6, 2)));
    }
    const auto p = parti_di(testo);
    if (!p) return std::nullopt;
    const bool anno_in_fondo = testo.find_first_of("-/.") < 3;
    return anno_in_fondo ? giorno((*p)[2], (*p)[1], (*p)[0]) : giorno((*p)[0], (*p)[1], (*p)[2]);
}

bool mese_prima_del_giorno(std::string_view testo) {
    testo = senza_ora(testo);
    const auto p = parti_di(testo);
    return p && testo.find_first_of("-/.") < 3 && (*p)[1] > 12 &&
           giorno((*p)[2], (*p)[0], (*p)[1]).has_value();
}

std::optional<Intestazione> leggi_intestazione(const Campi& nomi) {
    return Lettore(nomi).leggi();
}

}  // namespace importazione
