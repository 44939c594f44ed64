#include "development/copertura_locale.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace development {

namespace {

constexpr std::uint32_t fuori = std::numeric_limits<std::uint32_t>::max();
constexpr std::int64_t senza_fine = std::numeric_limits<std::int64_t>::max();
/// Of an empty place.
constexpr std::int32_t nessuna_perdita = std::numeric_limits<std::int32_t>::max();
/// A column dropped stays out for up to so many swaps.
constexpr std::uint32_t attesa = 4;
/// Losses are compared so many at a time.
constexpr std::uint32_t blocco = 16;
/// Weights are halved before their sum outgrows the numbers they are counted in.
constexpr std::int64_t peso_massimo = std::int64_t{1} << 30;

inline std::uint32_t senza_bit(std::uint32_t insieme, int quanti) {
    for (; quanti > 0; --quanti) insieme &= insieme - 1;
    return insieme;
}

/// Adds to each set's sum where it leaves out at most so many members of `riga`.
template <int al_piu>
void somma(const std::uint32_t* insiemi, std::size_t quanti, std::uint32_t riga, std::int32_t peso,
           std::int32_t* somme) {
    for (std::size_t j = 0; j < quanti; ++j) {
        std::uint32_t mancanti = riga & ~insiemi[j];
        for (int i = 0; i < al_piu; ++i) mancanti &= mancanti - 1;
        somme[j] += peso & -static_cast<std::int32_t>(mancanti == 0);
    }
}

void somma_coperte(const std::uint32_t* insiemi, std::size_t quanti, std::uint32_t riga, int al_piu,
                   std::int32_t peso, std::int32_t* somme) {
    switch (al_piu) {
        case 0:
            return somma<0>(insiemi, quanti, riga, peso, somme);
        case 1:
            return somma<1>(insiemi, quanti, riga, peso, somme);
        case 2:
            return somma<2>(insiemi, quanti, riga, peso, somme);
        case 3:
            return somma<3>(insiemi, quanti, riga, peso, somme);
        default:
            break;
    }
    for (std::size_t j = 0; j < quanti; ++j) {
        if (senza_bit(riga & ~insiemi[j], al_piu) == 0) somme[j] += peso;
    }
}

}  // namespace

void Incidenza::trasponi() {
    inizio_riga.assign(quante_righe() + 1, 0);
    for (const std::uint32_t r : righe) ++inizio_riga[r + 1];
    for (std::size_t r = 0; r < quante_righe(); ++r) inizio_riga[r + 1] += inizio_riga[r];
    colonne.resize(righe.size());
    std::vector<std::uint32_t> libero = inizio_riga;
    for (std::uint32_t c = 0; c < quante_colonne(); ++c) {
        for (const std::uint32_t r : righe_di(c)) colonne[libero[r]++] = c;
    }
}

CoperturaLocale::CoperturaLocale(const Incidenza& incidenza, std::uint64_t seme,
                                 std::int64_t costo_fisso)
    : i_(incidenza),
      sorte_(seme),
      a_costi_(std::any_of(incidenza.costo.begin(), incidenza.costo.end(),
                           [&](std::int32_t c) { return c != incidenza.costo.front(); })),
      costo_fisso_(costo_fisso),
      somma_(incidenza.quante_colonne(), 0),
      mossa_(incidenza.quante_colonne(), 0),
      libera_(incidenza.quante_colonne(), 0),
      righe_(incidenza.quante_righe()),
      posto_scoperta_(incidenza.quante_righe()),
      costo_migliore_(senza_fine),
      scoperto_migliore_(senza_fine) {
    for (std::uint32_t r = 0; r < i_.quante_righe(); ++r) {
        posto_scoperta_[r] = r;
        scoperte_.push_back(r);
        scoperto_ += i_.peso_riga[r];
        righe_[r].peso = i_.peso_riga[r];
        peso_totale_ += righe_[r].peso;
    }
}

/// As many places again, so that whatever places fold to is a place too.
void CoperturaLocale::aggiungi_posti() {
    const std::size_t prima = dentro_.size();
    const std::size_t dopo = std::max<std::size_t>(blocco, 2 * prima);
    dentro_.resize(dopo, fuori);
    perdita_.resize(dopo, nessuna_perdita);
    entrata_.resize(dopo, 0);
    minimi_.resize(dopo / blocco);
    for (std::size_t i = dopo; i > prima; --i) vuoti_.push_back(static_cast<std::uint32_t>(i - 1));
}

void CoperturaLocale::metti(std::uint32_t colonna) {
    if (vuoti_.empty()) aggiungi_posti();
    const std::uint32_t posto = vuoti_.back();
    vuoti_.pop_back();
    std::int32_t valore = 0;
    Riga* const righe = righe_.data();
    std::int32_t* const perdita = perdita_.data();
    for (const std::uint32_t r : i_.righe_di(colonna)) {
        Riga& riga = righe[r];
        // Which rows have one column is past guessing: where it is another number, nothing is
        // taken from a place that has nothing to do with it.
        perdita[riga.chi] -= riga.peso & -static_cast<std::int32_t>(riga.quante == 1);
        if (riga.quante == 0) {
            valore += riga.peso;
            const std::uint32_t ultima = scoperte_.back();
            scoperte_[posto_scoperta_[r]] = ultima;
            posto_scoperta_[ultima] = posto_scoperta_[r];
            scoperte_.pop_back();
            scoperto_ -= i_.peso_riga[r];
        }
        ++riga.quante;
        riga.chi = static_cast<Posto>(riga.chi ^ posto);
    }
    dentro_[posto] = colonna;
    perdita_[posto] = valore;
    entrata_[posto] = ora_;
    costo_ += i_.costo[colonna];
    ultimo_ = posto;
}

void CoperturaLocale::togli(std::uint32_t posto) {
    const std::uint32_t colonna = dentro_[posto];
    Riga* const righe = righe_.data();
    std::int32_t* const perdita = perdita_.data();
    for (const std::uint32_t r : i_.righe_di(colonna)) {
        Riga& riga = righe[r];
        riga.chi = static_cast<Posto>(riga.chi ^ posto);
        --riga.quante;
        if (riga.quante == 0) {
            posto_scoperta_[r] = static_cast<std::uint32_t>(scoperte_.size());
            scoperte_.push_back(r);
            scoperto_ += i_.peso_riga[r];
        }
        perdita[riga.chi] += riga.peso & -static_cast<std::int32_t>(riga.quante == 1);
    }
    dentro_[posto] = fuori;
    perdita_[posto] = nessuna_perdita;
    vuoti_.push_back(posto);
    costo_ -= i_.costo[colonna];
    mossa_[colonna] = ora_;
    libera_[colonna] = ora_ + 1 + sorte_.fino_a(attesa);
}

/// The place to empty: not the one filled last, unless there is no other.
std::uint32_t CoperturaLocale::da_togliere() {
    std::uint32_t scelta = fuori;
    const auto quanti = static_cast<std::uint32_t>(perdita_.size());
    if (!a_costi_) {
        const std::int32_t di_ultimo = std::exchange(perdita_[ultimo_], nessuna_perdita);
        std::int32_t minimo = nessuna_perdita;
        for (std::uint32_t b = 0; b < quanti / blocco; ++b) {
            const std::int32_t* const p = perdita_.data() + static_cast<std::size_t>(b) * blocco;
            std::int32_t suo = p[0];
            for (std::uint32_t i = 1; i < blocco; ++i) suo = std::min(suo, p[i]);
            minimi_[b] = suo;
            minimo = std::min(minimo, suo);
        }
        for (std::uint32_t b = 0; b < quanti / blocco && minimo != nessuna_perdita; ++b) {
            if (minimi_[b] != minimo) continue;
            for (std::uint32_t i = b * blocco; i < (b + 1) * blocco; ++i) {
                if (perdita_[i] != minimo) continue;
                if (scelta == fuori || entrata_[i] < entrata_[scelta]) scelta = i;
            }
        }
        perdita_[ultimo_] = di_ultimo;
        return scelta == fuori ? ultimo_ : scelta;
    }
    for (std::uint32_t i = 0; i < quanti; ++i) {
        if (i == ultimo_ || dentro_[i] == fuori) continue;
        if (scelta != fuori) {
            const std::int64_t v = std::int64_t{perdita_[i]} * i_.costo[dentro_[scelta]];
            const std::int64_t w = std::int64_t{perdita_[scelta]} * i_.costo[dentro_[i]];
            if (v > w || (v == w && entrata_[i] >= entrata_[scelta])) continue;
        }
        scelta = i;
    }
    return scelta == fuori ? ultimo_ : scelta;
}

/// What each column of a row would gain by going in. Only these are ever asked for, so that no
/// change of a weight has to be told to all columns.
void CoperturaLocale::stima(std::uint32_t riga) {
    const std::uint32_t* const colonne = i_.colonne.data() + i_.inizio_riga[riga];
    const std::size_t quante = i_.inizio_riga[riga + 1] - i_.inizio_riga[riga];
    guadagno_.resize(quante);
    std::int32_t* const guadagno = guadagno_.data();
    const bool insiemi = !i_.insieme_riga.empty();
    // Beyond so many uncovered rows the columns' own lists are shorter; sets go four at a time.
    if (scoperte_.size() / (insiemi ? 4 : 1) >= i_.righe.size() / i_.quante_colonne()) {
        for (std::size_t j = 0; j < quante; ++j) {
            guadagno[j] = 0;
            for (const std::uint32_t r : i_.righe_di(colonne[j])) {
                const Riga& altra = righe_[r];
                guadagno[j] += altra.quante == 0 ? altra.peso : 0;
            }
        }
        return;
    }
    if (!insiemi) {
        for (std::size_t j = 0; j < quante; ++j) somma_[colonne[j]] = 0;
        for (const std::uint32_t r : scoperte_) {
            const std::int32_t peso = righe_[r].peso;
            for (const std::uint32_t c : i_.colonne_di(r)) somma_[c] += peso;
        }
        for (std::size_t j = 0; j < quante; ++j) guadagno[j] = somma_[colonne[j]];
        return;
    }
    insieme_.resize(quante);
    for (std::size_t j = 0; j < quante; ++j) {
        guadagno[j] = 0;
        insieme_[j] = i_.insieme_colonna[colonne[j]];
    }
    const std::uint32_t questa = i_.insieme_riga[riga];
    for (const std::uint32_t r : scoperte_) {
        const std::uint32_t altra = i_.insieme_riga[r];
        if (i_.comuni > 0 && senza_bit(questa & altra, i_.comuni - 1) == 0) continue;
        somma_coperte(insieme_.data(), quante, altra, i_.fuori, righe_[r].peso, guadagno);
    }
}

std::uint32_t CoperturaLocale::da_mettere(std::uint32_t riga) {
    stima(riga);
    const std::uint32_t* const colonne = i_.colonne.data() + i_.inizio_riga[riga];
    const auto quante = static_cast<std::uint32_t>(guadagno_.size());
    std::uint32_t scelta = fuori;
    if (a_costi_) {
        for (std::uint32_t j = 0; j < quante; ++j) {
            const std::uint32_t c = colonne[j];
            if (libera_[c] > ora_) continue;
            if (scelta != fuori) {
                const std::uint32_t altra = colonne[scelta];
                const std::int64_t v = std::int64_t{guadagno_[j]} * i_.costo[altra];
                const std::int64_t w = std::int64_t{guadagno_[scelta]} * i_.costo[c];
                if (v < w || (v == w && mossa_[c] >= mossa_[altra])) continue;
            }
            scelta = j;
        }
    }
    while (scelta == fuori && !a_costi_) {
        std::int32_t massimo = -1;
        for (std::uint32_t j = 0; j < quante; ++j) massimo = std::max(massimo, guadagno_[j]);
        if (massimo < 0) break;
        for (std::uint32_t j = 0; j < quante; ++j) {
            if (guadagno_[j] != massimo) continue;
            guadagno_[j] = -1;
            if (libera_[colonne[j]] > ora_) continue;
            if (scelta == fuori || mossa_[colonne[j]] < mossa_[colonne[scelta]]) scelta = j;
        }
    }
    // All of them went out only just.
    return colonne[scelta != fuori ? scelta : 0];
}

void CoperturaLocale::appesantisci() {
    for (const std::uint32_t r : scoperte_) {
        righe_[r].peso += i_.peso_riga[r];
        peso_totale_ += i_.peso_riga[r];
    }
    if (peso_totale_ > peso_massimo) alleggerisci();
}

void CoperturaLocale::alleggerisci() {
    for (std::size_t i = 0; i < dentro_.size(); ++i) {
        if (dentro_[i] != fuori) perdita_[i] = 0;
    }
    peso_totale_ = 0;
    for (std::uint32_t r = 0; r < i_.quante_righe(); ++r) {
        righe_[r].peso = std::max(righe_[r].peso / 2, i_.peso_riga[r]);
        peso_totale_ += righe_[r].peso;
        if (righe_[r].quante == 1) perdita_[righe_[r].chi] += righe_[r].peso;
    }
}

void CoperturaLocale::parti_da(const std::vector<std::uint32_t>& colonne) {
    for (std::uint32_t i = 0; i < dentro_.size(); ++i) {
        if (dentro_[i] != fuori) togli(i);
    }
    std::vector<bool> messa(i_.quante_colonne(), false);
    for (const std::uint32_t c : colonne) {
        if (messa[c] || pieno()) continue;
        messa[c] = true;
        metti(c);
    }
}

/// Adds the best columns until the cost is reached or nothing is left uncovered.
void CoperturaLocale::completa() {
    while (!scoperte_.empty()) {
        const auto quante = static_cast<std::uint32_t>(scoperte_.size());
        const std::uint32_t riga = scoperte_[sorte_.fino_a(quante)];
        std::uint32_t c = da_mettere(riga);
        if (costo_ == 0) {
            const std::uint32_t da = i_.inizio_riga[riga];
            c = i_.colonne[da + sorte_.fino_a(i_.inizio_riga[riga + 1] - da)];
        }
        if (pieno() || (costo_fisso_ > 0 && costo_ + i_.costo[c] > costo_fisso_)) break;
        metti(c);
    }
    while (costo_fisso_ > 0 && costo_ > costo_fisso_) togli(da_togliere());
}

bool CoperturaLocale::annota() {
    if (scoperto_ > scoperto_migliore_ ||
        (scoperto_ == scoperto_migliore_ && costo_ >= costo_migliore_)) {
        return false;
    }
    if (costo_fisso_ == 0 && scoperto_ > 0) return false;
    migliore_.clear();
    std::copy_if(dentro_.begin(), dentro_.end(), std::back_inserter(migliore_),
                 [](std::uint32_t c) { return c != fuori; });
    costo_migliore_ = costo_;
    scoperto_migliore_ = scoperto_;
    return true;
}

bool CoperturaLocale::passo() {
    ++ora_;
    bool trovata = false;
    if (costo_fisso_ == 0) {
        while (scoperte_.empty()) {
            trovata = annota() || trovata;
            togli(da_togliere());
        }
    }
    if (costo_ > 0) togli(da_togliere());
    const std::int64_t tetto = costo_fisso_ > 0 ? costo_fisso_ : costo_migliore_ - 1;
    while (!scoperte_.empty()) {
        const auto quante = static_cast<std::uint32_t>(scoperte_.size());
        const std::uint32_t c = da_mettere(scoperte_[sorte_.fino_a(quante)]);
        if (pieno() || costo_ + i_.costo[c] > tetto) break;
        metti(c);
        appesantisci();
    }
    return annota() || trovata;
}

bool CoperturaLocale::passi(std::uint64_t quanti, std::int64_t limite) {
    bool trovata = false;
    if (migliore_.empty()) {
        completa();
        trovata = annota();
    }
    for (std::uint64_t i = 0; i < quanti && !trovata; ++i) {
        if (costo_fisso_ > 0 ? scoperto_migliore_ == 0 : costo_migliore_ <= limite) break;
        if (fermo_ != nullptr && fermo_->load(std::memory_order_relaxed)) break;
        trovata = passo();
    }
    return trovata;
}

}  // namespace development
