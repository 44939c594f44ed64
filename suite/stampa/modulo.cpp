#include "stampa/modulo.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/text_file.h"
#include "stampa/campi_modulo.h"
#include "stampa/geometria.h"
#include "statistics/archivio.h"

namespace schedine {

namespace {

constexpr int numeri = 90;
constexpr std::size_t parola_mostrata = 30;

std::string fra(Limiti l) {
    return std::to_string(l.da) + " a " + std::to_string(l.a);
}

/// True when a mark whose centre is read there lies on the slip.
bool nel_foglio(const Modulo& m, Punto centro) {
    const Punto p = sul_foglio(m, centro);
    const Punto s = segno_stampato(m);
    const Punto f = foglio_stampato(m);
    return p.x - s.x / 2 >= 0 && p.y - s.y / 2 >= 0 && p.x + s.x / 2 <= f.x && p.y + s.y / 2 <= f.y;
}

bool nel_foglio(const Modulo& m, Posto p) {
    return nel_foglio(m, Punto{static_cast<double>(p.x), static_cast<double>(p.y)});
}

bool entro(Limiti l, Posto p) {
    return p.x >= l.da && p.x <= l.a && p.y >= l.da && p.y <= l.a;
}

/// The first fault; `quale` tells which of the fields of its name has it.
std::optional<Difetto> trova_difetto(const Modulo& m, std::size_t& quale) {
    quale = 0;
    for (const CampoPosto& c : campi_posto) {
        if (!entro(c.limiti, m.*c.dove)) {
            return Difetto{0, std::string(c.nome), "i valori vanno da " + fra(c.limiti)};
        }
    }
    if (m.griglia.x * m.griglia.y < numeri) {
        return Difetto{0, "griglia", "le caselle devono essere almeno 90"};
    }
    if (m.pannelli.empty()) return Difetto{0, "pannello", "manca"};
    for (std::size_t k = 0; k < m.pannelli.size(); ++k) {
        quale = k;
        if (!entro(limiti_scostamento, m.pannelli[k])) {
            return Difetto{0, "pannello", "i valori vanno da " + fra(limiti_scostamento)};
        }
        for (int n = 1; n <= numeri; ++n) {
            if (nel_foglio(m, cella(m, k, n))) continue;
            return Difetto{0, "pannello",
                           "nel pannello " + std::to_string(k + 1) + " il segno del numero " +
                               std::to_string(n) + " esce dal foglio"};
        }
    }
    quale = 0;
    for (const PostoRuota& r : m.ruote) {
        if (r.ruota < statistics::ruote.size() && nel_foglio(m, r.dove)) {
            ++quale;
            continue;
        }
        return Difetto{0, "ruota", "il segno esce dal foglio"};
    }
    quale = 0;
    for (const PostoPosta& p : m.poste) {
        if (p.centesimi < limiti_posta.da || p.centesimi > limiti_posta.a) {
            return Difetto{0, "posta", "i centesimi vanno da " + fra(limiti_posta)};
        }
        if (!nel_foglio(m, p.dove)) return Difetto{0, "posta", "il segno esce dal foglio"};
        ++quale;
    }
    return std::nullopt;
}

/// A value split at its commas, blanks trimmed.
std::vector<std::string> pezzi(std::string_view valore) {
    std::vector<std::string> parti;
    for (std::size_t da = 0; da <= valore.size();) {
        const std::size_t fine = std::min(valore.find(',', da), valore.size());
        parti.emplace_back(platform::Trim(valore.substr(da, fine - da)));
        da = fine + 1;
    }
    return parti;
}

/// Reads a file line by line; keeps where each field stood.
class Lettore {
public:
    explicit Lettore(Modulo& modulo) : m_(modulo) {
        m_.pannelli.clear();
        m_.ruote.clear();
        m_.poste.clear();
    }

    std::optional<Difetto> riga(std::int64_t numero, std::string_view testo);
    std::optional<Difetto> concludi();

private:
    [[nodiscard]] Difetto difetto(std::string motivo) const {
        return {riga_, std::string(campo_), std::move(motivo)};
    }
    std::optional<Difetto> intero(const std::string& testo, std::size_t quale, Limiti limiti,
                                  int& valore) const;
    std::optional<Difetto> posto(const std::vector<std::string>& parti, std::size_t da,
                                 Limiti limiti, Posto& valore) const;
    std::optional<Difetto> quanti(const std::vector<std::string>& parti, std::size_t voluti) const;
    template <typename T, std::size_t n>
    std::optional<Difetto> parola(const std::array<Parola<T>, n>& parole, const std::string& detta,
                                  T& valore) const;
    std::optional<Difetto> leggi(const std::vector<std::string>& parti);
    std::optional<Difetto> segno(const std::vector<std::string>& parti);
    std::optional<Difetto> ripetuto(const std::vector<std::string>& parti);

    Modulo& m_;
    std::int64_t riga_ = 0;
    std::string campo_;
    /// Lines of each field.
    std::map<std::string, std::vector<std::int64_t>, std::less<>> righe_;
};

std::optional<Difetto> Lettore::intero(const std::string& testo, std::size_t quale, Limiti limiti,
                                       int& valore) const {
    int letto = 0;
    const char* fine = testo.data() + testo.size();
    const auto esito = std::from_chars(testo.data(), fine, letto);
    const std::string dove = "il valore " + std::to_string(quale + 1);
    if (testo.empty()) return difetto(dove + " manca");
    if (esito.ec == std::errc::invalid_argument || esito.ptr != fine) {
        return difetto(dove + " non è un numero intero");
    }
    if (esito.ec != std::errc() || letto < limiti.da || letto > limiti.a) {
        return difetto(dove + " non va da " + fra(limiti));
    }
    valore = letto;
    return std::nullopt;
}

std::optional<Difetto> Lettore::quanti(const std::vector<std::string>& parti,
                                       std::size_t voluti) const {
    if (parti.size() == voluti) return std::nullopt;
    return difetto("i valori devono essere " + std::to_string(voluti) + ", separati da virgole");
}

std::optional<Difetto> Lettore::posto(const std::vector<std::string>& parti, std::size_t da,
                                      Limiti limiti, Posto& valore) const {
    if (auto d = intero(parti[da], da, limiti, valore.x)) return d;
    return intero(parti[da + 1], da + 1, limiti, valore.y);
}

template <typename T, std::size_t n>
std::optional<Difetto> Lettore::parola(const std::array<Parola<T>, n>& parole,
                                       const std::string& detta, T& valore) const {
    std::string ammesse;
    for (const auto& p : parole) {
        if (platform::LCase(detta) == p.nome) {
            valore = p.valore;
            return std::nullopt;
        }
        ammesse += (ammesse.empty() ? "" : ", ") + std::string(p.nome);
    }
    return difetto("deve essere una di queste parole: " + ammesse);
}

std::optional<Difetto> Lettore::segno(const std::vector<std::string>& parti) {
    constexpr std::size_t voluti = 3;
    if (auto d = quanti(parti, voluti)) return d;
    if (auto d = parola(parole_forma, parti[0], m_.forma)) return d;
    return posto(parti, 1, campi_posto[4].limiti, m_.segno);
}

/// The fields that may stand more than once.
std::optional<Difetto> Lettore::ripetuto(const std::vector<std::string>& parti) {
    constexpr std::size_t con_nome = 3;
    constexpr std::size_t massimo = 100;
    if (campo_ == "pannello") {
        if (m_.pannelli.size() == pannelli_massimi) {
            return difetto("i pannelli sono più di " + std::to_string(pannelli_massimi));
        }
        if (auto d = quanti(parti, 2)) return d;
        return posto(parti, 0, limiti_scostamento, m_.pannelli.emplace_back());
    }
    if (auto d = quanti(parti, con_nome)) return d;
    if (m_.ruote.size() + m_.poste.size() == massimo) return difetto("i posti sono troppi");
    if (campo_ == "posta") {
        PostoPosta& p = m_.poste.emplace_back();
        if (auto d = intero(parti[0], 0, limiti_posta, p.centesimi)) return d;
        return posto(parti, 1, limiti_posto, p.dove);
    }
    for (std::size_t i = 0; i < statistics::ruote.size(); ++i) {
        if (platform::LCase(parti[0]) != platform::LCase(statistics::ruote[i].nome)) continue;
        return posto(parti, 1, limiti_posto, m_.ruote.emplace_back(PostoRuota{i, {}}).dove);
    }
    return difetto("il valore 1 non è il nome di una ruota");
}

std::optional<Difetto> Lettore::leggi(const std::vector<std::string>& parti) {
    if (campo_ == "pannello" || campo_ == "ruota" || campo_ == "posta") return ripetuto(parti);
    if (campo_ == "segno") return segno(parti);
    for (const CampoPosto& c : campi_posto) {
        if (campo_ != c.nome) continue;
        if (auto d = quanti(parti, 2)) return d;
        return posto(parti, 0, c.limiti, m_.*c.dove);
    }
    if (campo_ == "gioco") return parola(parole_gioco, parti[0], m_.lotto);
    if (campo_ == "ingresso") return parola(parole_ingresso, parti[0], m_.ingresso);
    if (campo_ == "ordine") return parola(parole_ordine, parti[0], m_.ordine);
    return difetto("il campo è sconosciuto");
}

std::optional<Difetto> Lettore::riga(std::int64_t numero, std::string_view testo) {
    riga_ = numero;
    campo_.clear();
    testo = platform::Trim(testo.substr(0, testo.find('#')));
    if (testo.empty()) return std::nullopt;
    const std::size_t uguale = testo.find('=');
    if (uguale == std::string_view::npos) return difetto("manca il segno =");
    campo_ = platform::LCase(platform::Trim(testo.substr(0, uguale)));
    // Bytes of any kind must not fill the player's screen.
    if (campo_.empty() || campo_.size() > parola_mostrata ||
        campo_.find_first_not_of("abcdefghijklmnopqrstuvwxyz_ ") != std::string::npos) {
        campo_.clear();
        return difetto("il campo è sconosciuto");
    }
    const bool piu_volte = campo_ == "pannello" || campo_ == "ruota" || campo_ == "posta";
    std::vector<std::int64_t>& prima = righe_[campo_];
    if (!prima.empty() && !piu_volte) {
        return difetto("c'è già alla riga " + std::to_string(prima.front()));
    }
    prima.push_back(numero);
    return leggi(pezzi(testo.substr(uguale + 1)));
}

std::optional<Difetto> Lettore::concludi() {
    for (const CampoPosto& c : campi_posto) {
        if (c.necessario && !righe_.contains(c.nome)) {
            return Difetto{0, std::string(c.nome), "manca"};
        }
    }
    std::size_t quale = 0;
    auto d = trova_difetto(m_, quale);
    if (!d) return d;
    const auto righe = righe_.find(d->campo);
    if (righe != righe_.end() && quale < righe->second.size()) d->riga = righe->second[quale];
    return d;
}

}  // namespace

std::optional<Difetto> leggi_modulo(const std::string& file, Modulo& modulo) {
    platform::TextReader lettore(file, platform::TextReader::testa);
    if (!lettore.aperto()) return Difetto{0, "", "il file non si può leggere"};
    if (platform::dimensione_file(file).value_or(0) > platform::TextReader::testa) {
        return Difetto{0, "", "il file è troppo grande per essere un modulo"};
    }
    std::string testo;
    for (std::string riga; lettore.riga(riga);) testo += riga + "\n";
    return interpreta(testo, modulo);
}

std::optional<Difetto> interpreta(std::string_view testo, Modulo& modulo) {
    modulo = {};
    Lettore campi(modulo);
    for (std::int64_t riga = 1; !testo.empty(); ++riga) {
        const std::size_t fine = std::min(testo.find('\n'), testo.size());
        if (auto difetto = campi.riga(riga, testo.substr(0, fine))) return difetto;
        testo.remove_prefix(std::min(fine + 1, testo.size()));
    }
    return campi.concludi();
}

std::optional<Difetto> verifica(const Modulo& modulo) {
    std::size_t quale = 0;
    return trova_difetto(modulo, quale);
}

std::string testo_modulo(const Modulo& m) {
    const auto coppia = [](Posto p) { return std::to_string(p.x) + ", " + std::to_string(p.y); };
    std::string t = "# Modulo per la stampa delle schedine. Le misure sono in decimi di\r\n";
    t += "# millimetro, dall'angolo in alto a sinistra della schedina.\r\n";
    const auto scrivi = [&t](std::string_view campo, const std::string& valore) {
        t += std::string(campo) + " = " + valore + "\r\n";
    };
    scrivi("gioco", std::string(parola(parole_gioco, m.lotto)));
    scrivi("ingresso", std::string(parola(parole_ingresso, m.ingresso)));
    scrivi("ordine", std::string(parola(parole_ordine, m.ordine)));
    for (const CampoPosto& c : campi_posto) {
        const std::string prima =
            c.nome == "segno" ? std::string(parola(parole_forma, m.forma)) + ", " : "";
        scrivi(c.nome, prima + coppia(m.*c.dove));
    }
    for (const Posto& p : m.pannelli) scrivi("pannello", coppia(p));
    for (const PostoRuota& r : m.ruote) {
        scrivi("ruota", std::string(statistics::ruote[r.ruota].nome) + ", " + coppia(r.dove));
    }
    for (const PostoPosta& p : m.poste) {
        scrivi("posta", std::to_string(p.centesimi) + ", " + coppia(p.dove));
    }
    return t;
}

std::string file_modulo(const std::string& radice, const std::string& nome) {
    return radice + std::string(cartella_moduli) + "/" + nome + std::string(estensione_modulo);
}

std::vector<std::string> moduli(const std::string& radice) {
    std::vector<std::string> nomi;
    for (const std::string& file : platform::Dir(radice + std::string(cartella_moduli),
                                                 "*" + std::string(estensione_modulo))) {
        nomi.push_back(file.substr(0, file.size() - estensione_modulo.size()));
    }
    return nomi;
}

}  // namespace schedine
