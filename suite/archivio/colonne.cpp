#include "colonne.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "platform/data.h"

namespace importazione {

namespace {

constexpr std::size_t sei = 6;
constexpr Data primo_concorso{1997, 12, 3};
constexpr Data primo_superstar{2006, 3, 28};

// Logarithms of what chance does at most in one line, or from one line to the next.
const double numeri_in_ordine = -std::log10(120.0);        // five numbers come out sorted
const double numero_mai_estratto = std::log10(85.0 / 90);  // a number is none of five
const double segue_estratto = -std::log10(89.0);           // one number follows another
const double segue_minore = -std::log10(15.0);             // so do the smallest of six
/// One in a million.
constexpr double impossibile = -6;
constexpr double possibile = -3;
/// So many lines without a repetition cannot be chance.
constexpr std::size_t righe_certe = 200;
/// One line in so many may be mistyped.
constexpr std::size_t una_su = 100;

using Numeri = std::vector<std::pair<Data, std::int32_t>>;

void in_ordine(Numeri& numeri) {
    std::sort(numeri.begin(), numeri.end());
    numeri.erase(std::unique(numeri.begin(), numeri.end()), numeri.end());
}

/// True when so few are wrong that they are mistakes of the hand.
bool sviste(std::size_t quante, std::size_t righe) {
    return quante * una_su <= righe;
}

std::int32_t giorni(const Data& a, const Data& b) {
    return platform::seriale(b) - platform::seriale(a);
}

/// True when a draw of that day can bear the number, counted from the first one of the game or of
/// the year: there have always been two to four draws a week.
bool puo_essere_di(const Data& data, std::int32_t numero) {
    const auto fra = [numero](std::int32_t passati) {
        const double settimane = passati / 7.0;
        return numero >= settimane * 1.5 - 3 && numero <= settimane * 4.5 + 4;
    };
    const std::int32_t dal_primo = giorni(primo_concorso, data);
    return numero >= 1 &&
           (fra(giorni({data.anno, 1, 1}, data)) || (dal_primo >= 0 && fra(dal_primo)));
}

/// True when the numbers never go back with the days of a year.
bool salgono(const Numeri& numeri) {
    std::size_t indietro = 0;
    for (std::size_t i = 1; i < numeri.size(); ++i) {
        const bool stesso_anno = numeri[i].first.anno == numeri[i - 1].first.anno;
        const bool avanti =
            numeri[i].second > numeri[i - 1].second && numeri[i].first != numeri[i - 1].first;
        if (stesso_anno && !avanti) ++indietro;
    }
    return sviste(indietro, numeri.size());
}

/// True when the numbers may count draws: by the days, or as a file of its own would.
bool contano(const Numeri& numeri) {
    if (numeri.empty()) return false;
    const auto fuori =
        static_cast<std::size_t>(std::count_if(numeri.begin(), numeri.end(), [](const auto& n) {
            return !puo_essere_di(n.first, n.second);
        }));
    const bool sempre_su =
        std::adjacent_find(numeri.begin(), numeri.end(), [](const auto& a, const auto& b) {
            return b.second <= a.second;
        }) == numeri.end();
    return sviste(fuori, numeri.size()) || si_susseguono(numeri) ||
           (numeri[0].second == 1 && sempre_su);
}

bool crescono(const Sestina& s) {
    return std::is_sorted(s.numeri.begin(), s.numeri.end());
}

bool vuoto(const Campi& campi, std::size_t i) {
    return i >= campi.size() || campi[i].empty() || intero(campi[i]) == 0;
}

/// A column that stands alone after the six may be the SuperStar, which repeats them at will.
Colonne al_largo(const Campi& campi, bool con_numero) {
    Colonne c = a_posti(0, con_numero);
    if (vuoto(campi, c.superstar.value_or(0))) std::swap(c.jolly, c.superstar);
    return c;
}

}  // namespace

bool si_susseguono(Numeri numeri) {
    in_ordine(numeri);
    for (std::size_t i = 1; i < numeri.size(); ++i) {
        const auto& [prima, ultimo] = numeri[i - 1];
        const bool daccapo = numeri[i].second == 1 && numeri[i].first.anno != prima.anno;
        if (numeri[i].second != ultimo + 1 && !daccapo) return false;
    }
    return numeri.size() > 1;
}

Colonne a_posti(std::size_t data, bool con_numero) {
    Colonne c;
    c.data = data;
    if (con_numero) c.numero = data == 0 ? 1 : 0;
    const std::size_t primo = data + (con_numero && data == 0 ? 2 : 1);
    for (std::size_t i = 0; i < sei; ++i) c.estratti.push_back(primo + i);
    c.jolly = primo + sei;
    c.superstar = primo + sei + 1;
    c.quante = primo + sei + 2;
    return c;
}

std::string leggi_sestina(const Campi& campi, const Colonne& dove, Sestina& sestina) {
    const bool troppi = std::any_of(
        campi.begin() + static_cast<std::ptrdiff_t>(std::min(dove.quante, campi.size())),
        campi.end(), [](const std::string& c) { return !c.empty(); });
    // Names may tell of fewer.
    if (dove.estratti.size() < sei) return "servono sei numeri, Jolly e SuperStar";
    const std::size_t ultimo = *std::max_element(dove.estratti.begin(), dove.estratti.end());
    if (troppi || ultimo >= campi.size()) return "servono sei numeri, Jolly e SuperStar";
    if (dove.numero && *dove.numero < campi.size() && !campi[*dove.numero].empty()) {
        sestina.numero = intero(campi[*dove.numero]);
        if (sestina.numero.value_or(0) < 1) return "numero di concorso non valido";
    }
    std::set<std::int16_t> diversi;
    const auto leggi = [&](std::size_t i, std::int16_t& numero) -> std::string {
        const auto n = intero(campi[i]);
        if (!n || *n < 1 || *n > 90) return "numero fuori da 1-90: " + campi[i];
        numero = static_cast<std::int16_t>(*n);
        return "";
    };
    const auto estratto = [&](std::size_t i, std::int16_t& numero) {
        std::string motivo = leggi(i, numero);
        if (motivo.empty() && !diversi.insert(numero).second)
            motivo = "numero ripetuto nell'estrazione";
        return motivo;
    };
    std::string motivo;
    for (std::size_t i = 0; i < sei && motivo.empty(); ++i)
        motivo = estratto(dove.estratti[i], sestina.numeri[i]);
    if (motivo.empty() && dove.jolly && !vuoto(campi, *dove.jolly))
        motivo = estratto(*dove.jolly, sestina.jolly.emplace());
    // The SuperStar comes from an urn of its own.
    if (motivo.empty() && dove.superstar && !vuoto(campi, *dove.superstar))
        motivo = leggi(*dove.superstar, sestina.superstar.emplace());
    return motivo;
}

void Indizi::aggiungi(const Data& data, const Campi& campi) {
    Riga r;
    r.data = data;
    r.primo = campi.size() > 1 ? intero(campi[1]).value_or(0) : 0;
    Sestina da_numero;
    Sestina da_estratto;
    r.da_numero = r.primo > 0 && leggi_sestina(campi, al_largo(campi, true), da_numero).empty();
    r.da_estratto = leggi_sestina(campi, al_largo(campi, false), da_estratto).empty();
    if (!r.da_numero && !r.da_estratto) return;
    const Colonne senza = a_posti(0, false);
    r.per_forza = r.primo > 90 || (campi.size() > senza.quante && !vuoto(campi, senza.quante));
    r.ordine_numero = crescono(da_numero);
    r.ordine_estratto = crescono(da_estratto);
    righe_.push_back(r);
}

Indizi::Primo Indizi::primo() const {
    std::size_t solo_numero = 0;
    std::size_t solo_estratto = 0;
    std::size_t per_forza = 0;
    bool ordine_numero = true;
    bool ordine_estratto = true;
    Numeri numeri;
    std::set<Data> date;
    for (const Riga& r : righe_) {
        solo_numero += r.da_numero && !r.da_estratto ? 1 : 0;
        solo_estratto += r.da_estratto && !r.da_numero ? 1 : 0;
        per_forza += r.per_forza ? 1 : 0;
        if (r.da_numero) numeri.emplace_back(r.data, r.primo);
        if (!r.da_numero || !r.da_estratto) continue;
        ordine_numero = ordine_numero && r.ordine_numero;
        ordine_estratto = ordine_estratto && r.ordine_estratto;
        date.insert(r.data);
    }
    in_ordine(numeri);
    const bool corso = salgono(numeri) && (2 * per_forza >= righe_.size() || contano(numeri));
    const bool numero = corso && sviste(solo_estratto, righe_.size());
    const bool estratto = sviste(solo_numero, righe_.size());
    if (numero != estratto) return numero ? Primo::numero : Primo::estratto;
    if (!numero) return Primo::indeciso;

    // Both ways are possible: how likely would the file be if the one or the other were wrong?
    const auto quante = static_cast<double>(date.size());
    double se_estratto = 0;
    if (ordine_numero && !ordine_estratto) se_estratto += quante * numeri_in_ordine;
    if (si_susseguono(numeri))
        se_estratto += (quante - 1) * (ordine_estratto ? segue_minore : segue_estratto);
    double se_numero = quante * numero_mai_estratto;
    if (ordine_estratto && !ordine_numero) se_numero += quante * numeri_in_ordine;
    if (se_estratto <= impossibile && se_numero > possibile) return Primo::numero;
    if (se_numero <= impossibile && se_estratto > possibile) return Primo::estratto;
    return Primo::indeciso;
}

void UltimaColonna::aggiungi(const Data& data, const Campi& campi, const Colonne& dove) {
    const std::size_t ultima = dove.jolly.value_or(0);
    sola_ = sola_ && vuoto(campi, ultima + 1);
    if (vuoto(campi, ultima)) return;
    prima_del_superstar_ = prima_del_superstar_ || data < primo_superstar;
    ++numeri_;
    const auto n = intero(campi[ultima]);
    ripetuti_ += std::any_of(dove.estratti.begin(), dove.estratti.end(),
                             [&](std::size_t i) { return intero(campi[i]) == n; })
                     ? 1
                     : 0;
}

bool UltimaColonna::jolly() const {
    if (!sola_ || numeri_ == 0 || prima_del_superstar_) return true;
    return numeri_ >= righe_certe && sviste(ripetuti_, numeri_);
}

}  // namespace importazione
