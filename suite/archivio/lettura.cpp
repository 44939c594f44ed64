#include "lettura.h"

#include <algorithm>
#include <set>

#include "colonne.h"
#include "platform/runtime.h"

namespace importazione {

namespace {

constexpr std::size_t riga_massima = 1000;
constexpr int righe_per_respiro = 2000;

constexpr const char* serve_intestazione =
    "; serve una prima riga con i nomi delle colonne, come "
    "data;concorso;n1;n2;n3;n4;n5;n6;jolly;superstar";

std::optional<std::size_t> ruota(std::string_view testo) {
    const std::string sigla = platform::LCase(testo);
    for (std::size_t i = 0; i < sigle.size(); ++i) {
        if (sigla == platform::LCase(sigle[i])) return i;
    }
    if (sigla == "ro") return 7;
    if (sigla == "rn" || sigla == "nz") return ruote_regionali;
    return std::nullopt;
}

/// True when the line begins with its day, or with a number before it.
bool con_data(const Campi& c) {
    return leggi_data(c[0]) || (c.size() > 1 && leggi_data(c[1]));
}

/// The wheel and its numbers; the reason why it is none, else empty.
std::string leggi_ruota(const Campi& c, const Colonne& dove, RigaLotto& r) {
    const std::string& nome = c[dove.ruota.value_or(0)];
    const auto quale = ruota(nome);
    if (!quale) return "ruota sconosciuta: " + nome;
    const bool troppi =
        std::any_of(c.begin() + static_cast<std::ptrdiff_t>(std::min(dove.quante, c.size())),
                    c.end(), [](const std::string& campo) { return !campo.empty(); });
    // Names may tell of fewer.
    if (dove.estratti.size() < r.numeri.size()) return "servono cinque numeri dopo la ruota";
    const std::size_t ultimo = *std::max_element(dove.estratti.begin(), dove.estratti.end());
    if (troppi || ultimo >= c.size()) return "servono cinque numeri dopo la ruota";
    std::set<std::int32_t> diversi;
    for (std::size_t i = 0; i < r.numeri.size(); ++i) {
        const std::string& campo = c[dove.estratti[i]];
        const auto n = intero(campo);
        if (!n || *n < 1 || *n > 90) return "numero fuori da 1-90: " + campo;
        r.numeri[i] = static_cast<std::int16_t>(*n);
        diversi.insert(*n);
    }
    r.ruota = *quale;
    return diversi.size() < r.numeri.size() ? "numero ripetuto nell'estrazione" : "";
}

/// One reading. Lines under names of columns are read at once; those of SuperEnalotto without names
/// wait for the others, which tell what their columns are.
class Lettore {
public:
    explicit Lettore(const std::function<void()>& respiro) : respiro_(respiro) {}
    Lettura leggi(std::string_view testo);

private:
    /// A SuperEnalotto line that waits; its text is the file's.
    struct Attesa {
        int riga = 0;
        std::string_view testo;
        bool numero_prima = false;
    };

    void riga(std::string_view testo);
    bool intestazione(const Campi& c);
    void con_nomi(const Campi& c, std::string_view testo);
    void senza_nomi(const Campi& c, std::string_view testo);
    void lotto(const Campi& c, std::size_t data);
    void chiudi_parte();
    void sestine();
    void conta_l_ignota();
    void rifiuta(int riga, std::string motivo) {
        if (esito_.rifiuti.size() < 2 * rifiuti_tenuti)
            esito_.rifiuti.push_back({riga, std::move(motivo)});
        ++esito_.rifiutate;
    }
    void errore(const std::string& testo) {
        if (esito_.errore.empty()) esito_.errore = testo;
    }
    [[nodiscard]] bool troppe() const {
        return esito_.rifiutate > rifiuti_massimi || riga_ > righe_massime;
    }

    const std::function<void()>& respiro_;
    Lettura esito_;
    Colonne nomi_;
    bool nominate_ = false;  ///< `nomi_` holds for the lines that follow
    std::vector<Attesa> attese_;
    Indizi indizi_;
    /// The column of an unknown name, by the draws that it stood with.
    std::vector<std::pair<std::size_t, std::int32_t>> ignoti_;
    bool visto_qualcosa_ = false;
    int date_ = 0;
    int date_rovesciate_ = 0;
    int riga_ = 0;
};

bool Lettore::intestazione(const Campi& c) {
    if (std::any_of(c.begin(), c.end(), [](const std::string& campo) { return leggi_data(campo); }))
        return false;
    const auto letta = leggi_intestazione(c);
    if (!letta) return false;
    chiudi_parte();
    if (!letta->errore.empty()) errore(letta->errore);
    nominate_ = false;
    const Colonne& nomi = letta->colonne;
    if (!nomi.estratti.empty()) {
        nomi_ = nomi;
        nominate_ = true;
    } else if (nomi.numero || nomi.data.value_or(0) > 1) {
        // Six columns without a name follow the day and the number of the draw.
        const std::size_t data = nomi.data.value_or(0);
        const bool accanto = nomi.numero && *nomi.numero + data == 1;
        if (!accanto) errore("l'intestazione non dice in quali colonne sono i numeri estratti");
        nomi_ = a_posti(accanto ? data : 0, true);
        nominate_ = true;
    }
    return true;
}

void Lettore::riga(std::string_view testo) {
    if (platform::Trim(testo).empty()) return;
    if (testo.size() > riga_massima) return rifiuta(riga_, "riga troppo lunga");
    const bool prima = !visto_qualcosa_;
    visto_qualcosa_ = true;
    const Campi c = campi(testo);
    const bool lettere = ha_lettere(testo);
    if (lettere && intestazione(c)) return;
    if (nominate_) return con_nomi(c, testo);
    if (con_data(c)) return senza_nomi(c, testo);
    if (mese_prima_del_giorno(c[0]) || (c.size() > 1 && mese_prima_del_giorno(c[1])))
        ++date_rovesciate_;
    // A title says nothing, but is no fault.
    if (!prima || !lettere) rifiuta(riga_, "data mancante o non valida");
}

void Lettore::con_nomi(const Campi& c, std::string_view testo) {
    const Colonne& dove = nomi_;
    const auto campo = [&c](std::size_t i) { return i < c.size() ? c[i] : std::string(); };
    const std::string giorno = campo(dove.data.value_or(0));
    const auto data = leggi_data(giorno);
    if (!data) {
        // The wheel's letters tell where things stand even in a line of another order.
        if (dove.ruota && con_data(c)) return senza_nomi(c, testo);
        if (mese_prima_del_giorno(giorno)) ++date_rovesciate_;
        return rifiuta(riga_, "data mancante o non valida");
    }
    ++date_;
    std::string motivo;
    if (dove.ruota) {
        RigaLotto r{riga_, *data, 0, {}, {}};
        if (dove.numero && !campo(*dove.numero).empty()) {
            r.numero = intero(campo(*dove.numero));
            if (r.numero.value_or(0) < 1) motivo = "numero di concorso non valido";
        }
        if (motivo.empty() && *dove.ruota >= c.size()) motivo = "ruota mancante";
        if (motivo.empty()) motivo = leggi_ruota(c, dove, r);
        if (motivo.empty()) esito_.lotto.push_back(r);
    } else {
        RigaSuperEnalotto r{riga_, *data, {}};
        motivo = leggi_sestina(c, dove, r.sestina);
        if (motivo.empty() && dove.ignota)
            ignoti_.emplace_back(esito_.superenalotto.size(),
                                 intero(campo(*dove.ignota)).value_or(0));
        if (motivo.empty()) esito_.superenalotto.push_back(r);
    }
    if (!motivo.empty()) rifiuta(riga_, std::move(motivo));
}

void Lettore::senza_nomi(const Campi& c, std::string_view testo) {
    ++date_;
    const auto data = leggi_data(c[0]);
    const std::size_t dove = data ? 0 : 1;
    if (dove == 1 && intero(c[0]).value_or(0) < 1)
        return rifiuta(riga_, "numero di concorso non valido");
    for (const std::size_t i : {dove + 1, dove + 2}) {
        if (i < c.size() && ha_lettere(c[i])) return lotto(c, dove);
    }
    if (data) indizi_.aggiungi(*data, c);
    attese_.push_back({riga_, testo, dove == 1});
}

void Lettore::lotto(const Campi& c, std::size_t data) {
    Colonne dove;
    RigaLotto r{riga_, *leggi_data(c[data]), 0, {}, {}};
    if (data == 1) r.numero = intero(c[0]);
    std::size_t ruota = data + 1;
    if (!ha_lettere(c[ruota])) {
        r.numero = intero(c[ruota]);
        if (r.numero.value_or(0) < 1 || data == 1)
            return rifiuta(riga_, "numero di concorso non valido");
        ++ruota;
    }
    dove.ruota = ruota;
    for (std::size_t i = 0; i < r.numeri.size(); ++i) dove.estratti.push_back(ruota + 1 + i);
    dove.quante = ruota + 1 + r.numeri.size();
    std::string motivo = leggi_ruota(c, dove, r);
    if (!motivo.empty()) return rifiuta(riga_, std::move(motivo));
    esito_.lotto.push_back(r);
}

/// Reads the lines that waited, or none of them.
void Lettore::sestine() {
    using Primo = Indizi::Primo;
    Primo primo = indizi_.primo();
    const bool sane = indizi_.sane();
    if (!sane) primo = Primo::estratto;
    UltimaColonna ultima;
    std::vector<RigaSuperEnalotto> lette;
    for (std::size_t i = 0; i < attese_.size(); ++i) {
        if (respiro_ && i % righe_per_respiro == 0) respiro_();
        const Attesa& a = attese_[i];
        const Campi c = campi(a.testo);
        const std::size_t data = a.numero_prima ? 1 : 0;
        // Without a sound line at all, what there is too much of is the number of the draw.
        const bool lunga = !sane && c.size() > a_posti(0, false).quante;
        const Colonne dove = a_posti(data, a.numero_prima || primo == Primo::numero || lunga);
        RigaSuperEnalotto r{a.riga, *leggi_data(c[data]), {}};
        std::string motivo = leggi_sestina(c, dove, r.sestina);
        ultima.aggiungi(r.data, c, dove);
        if (motivo.empty()) {
            lette.push_back(r);
        } else {
            rifiuta(a.riga, std::move(motivo));
        }
    }
    if (primo == Primo::indeciso) {
        errore(std::string("non si capisce se il primo numero dopo la data è quello del concorso o "
                           "il primo estratto") +
               serve_intestazione);
    } else if (!ultima.jolly()) {
        errore(std::string("non si capisce se l'ultima colonna è il Jolly o il SuperStar") +
               serve_intestazione);
    } else {
        esito_.superenalotto.insert(esito_.superenalotto.end(), lette.begin(), lette.end());
    }
}

/// A column that nobody knows counts the draws when its numbers do.
void Lettore::conta_l_ignota() {
    std::vector<std::pair<Data, std::int32_t>> numeri;
    for (const auto& [quale, n] : ignoti_) numeri.emplace_back(esito_.superenalotto[quale].data, n);
    if (si_susseguono(std::move(numeri))) {
        for (const auto& [quale, n] : ignoti_)
            if (n > 0) esito_.superenalotto[quale].sestina.numero = n;
    }
    ignoti_.clear();
}

/// What follows other names is read by them.
void Lettore::chiudi_parte() {
    if (!attese_.empty()) sestine();
    attese_.clear();
    indizi_ = {};
    conta_l_ignota();
}

Lettura Lettore::leggi(std::string_view testo) {
    if (testo.starts_with("\xEF\xBB\xBF")) testo.remove_prefix(3);
    while (!testo.empty() && !troppe()) {
        ++riga_;
        if (respiro_ && riga_ % righe_per_respiro == 0) respiro_();
        const std::size_t fine = testo.find_first_of("\r\n");
        riga(testo.substr(0, fine));
        if (fine == std::string_view::npos) break;
        const bool doppia =
            testo[fine] == '\r' && fine + 1 < testo.size() && testo[fine + 1] == '\n';
        testo.remove_prefix(fine + (doppia ? 2 : 1));
    }
    chiudi_parte();
    if (troppe() && esito_.riconosciuta())
        errore("il file ha troppe righe che non sono estrazioni");
    if (date_rovesciate_ * 100 > date_)
        errore(
            "le date sembrano scritte col mese prima del giorno: servono giorno/mese/anno o "
            "anno-mese-giorno");
    std::sort(esito_.rifiuti.begin(), esito_.rifiuti.end(),
              [](const Rifiuto& a, const Rifiuto& b) { return a.riga < b.riga; });
    esito_.rifiuti.resize(std::min(esito_.rifiuti.size(), rifiuti_tenuti));
    return std::move(esito_);
}

}  // namespace

Lettura leggi(std::string_view testo, const std::function<void()>& respiro) {
    return Lettore(respiro).leggi(testo);
}

}  // namespace importazione
