#include "development/copertura_locale.h"

#include <algorithm>
#include <limits>

namespace development {

namespace {

constexpr std::uint32_t fuori = std::numeric_limits<std::uint32_t>::max();
constexpr std::int64_t senza_fine = std::numeric_limits<std::int64_t>::max();
/// A column dropped stays out for up to so many swaps.
constexpr std::uint32_t attesa = 4;
/// Weights are halved before their sum outgrows the numbers they are counted in.
constexpr std::int64_t peso_massimo = std::int64_t{1} << 30;

}  // namespace

void Incidenza::trasponi() {
    inizio_riga.assign(quante_righe() + 1, 0);
    for (const std::uint32_t r : righe) ++inizio_riga[r + 1];
    for (std::size_t r = 0; r < quante_righe(); ++r) inizio_riga[r + 1] += inizio_riga[r];
    colonne.resize(righe.size());
    std::vector<std::uint32_t> libero(inizio_riga.begin(), inizio_riga.end() - 1);
    for (std::uint32_t c = 0; c < quante_colonne(); ++c) {
        for (std::uint32_t j = inizio_colonna[c]; j < inizio_colonna[c + 1]; ++j) {
            colonne[libero[righe[j]]++] = c;
        }
    }
}

CoperturaLocale::CoperturaLocale(const Incidenza& incidenza, std::uint64_t seme,
                                 std::int64_t costo_fisso)
    : i_(incidenza),
      sorte_(seme),
      a_costi_(std::any_of(incidenza.costo.begin(), incidenza.costo.end(),
                           [&](std::int32_t c) { return c != incidenza.costo.front(); })),
      costo_fisso_(costo_fisso),
      guadagno_(incidenza.quante_colonne(), 0),
      mossa_(incidenza.quante_colonne(), 0),
      libera_(incidenza.quante_colonne(), 0),
      posto_(incidenza.quante_colonne(), fuori),
      peso_(incidenza.peso_riga.begin(), incidenza.peso_riga.end()),
      coperte_(incidenza.quante_righe()),
      posto_scoperta_(incidenza.quante_righe()),
      costo_migliore_(senza_fine),
      scoperto_migliore_(senza_fine) {
    for (std::uint32_t r = 0; r < i_.quante_righe(); ++r) {
        posto_scoperta_[r] = r;
        scoperte_.push_back(r);
        scoperto_ += i_.peso_riga[r];
        peso_totale_ += peso_[r];
        aggiungi_a_tutte(r, peso_[r]);
    }
}

void CoperturaLocale::aggiungi_a_tutte(std::uint32_t riga, std::int32_t quanto) {
    const std::uint32_t* c = i_.colonne.data() + i_.inizio_riga[riga];
    const std::uint32_t* const fine = i_.colonne.data() + i_.inizio_riga[riga + 1];
    std::int32_t* const guadagno = guadagno_.data();
    for (; c != fine; ++c) guadagno[*c] += quanto;
}

void CoperturaLocale::cambia_perdita(std::uint32_t colonna, std::int32_t quanto) {
    perdita_[posto_[colonna]] += quanto;
}

void CoperturaLocale::metti(std::uint32_t colonna) {
    // What it gains by going in is what it would lose by going out again.
    const std::int32_t valore = guadagno_[colonna];
    for (std::uint32_t j = i_.inizio_colonna[colonna]; j < i_.inizio_colonna[colonna + 1]; ++j) {
        const std::uint32_t r = i_.righe[j];
        Coperta& coperta = coperte_[r];
        if (coperta.quante == 0) {
            aggiungi_a_tutte(r, -peso_[r]);
            const std::uint32_t ultima = scoperte_.back();
            scoperte_[posto_scoperta_[r]] = ultima;
            posto_scoperta_[ultima] = posto_scoperta_[r];
            scoperte_.pop_back();
            scoperto_ -= i_.peso_riga[r];
        } else if (coperta.quante == 1) {
            cambia_perdita(coperta.chi, -peso_[r]);
        }
        ++coperta.quante;
        coperta.chi ^= colonna;
    }
    posto_[colonna] = static_cast<std::uint32_t>(dentro_.size());
    dentro_.push_back(colonna);
    perdita_.push_back(valore);
    costo_ += i_.costo[colonna];
    mossa_[colonna] = ora_;
}

void CoperturaLocale::togli(std::uint32_t colonna) {
    const std::uint32_t posto = posto_[colonna];
    const std::int32_t valore = perdita_[posto];
    for (std::uint32_t j = i_.inizio_colonna[colonna]; j < i_.inizio_colonna[colonna + 1]; ++j) {
        const std::uint32_t r = i_.righe[j];
        Coperta& coperta = coperte_[r];
        coperta.chi ^= colonna;
        if (--coperta.quante == 0) {
            aggiungi_a_tutte(r, peso_[r]);
            posto_scoperta_[r] = static_cast<std::uint32_t>(scoperte_.size());
            scoperte_.push_back(r);
            scoperto_ += i_.peso_riga[r];
        } else if (coperta.quante == 1) {
            cambia_perdita(coperta.chi, peso_[r]);
        }
    }
    guadagno_[colonna] = valore;
    const std::uint32_t ultima = dentro_.back();
    dentro_[posto] = ultima;
    perdita_[posto] = perdita_.back();
    posto_[ultima] = posto;
    dentro_.pop_back();
    perdita_.pop_back();
    posto_[colonna] = fuori;
    costo_ -= i_.costo[colonna];
    mossa_[colonna] = ora_;
    libera_[colonna] = ora_ + 1 + sorte_.fino_a(attesa);
}

/// True when `a` gains more for its cost than `b`, or as much and waited longer.
bool CoperturaLocale::meglio(std::uint32_t a, std::uint32_t b) const {
    const std::int64_t va = a_costi_ ? std::int64_t{guadagno_[a]} * i_.costo[b] : guadagno_[a];
    const std::int64_t vb = a_costi_ ? std::int64_t{guadagno_[b]} * i_.costo[a] : guadagno_[b];
    return va != vb ? va > vb : mossa_[a] < mossa_[b];
}

std::uint32_t CoperturaLocale::da_togliere() const {
    std::uint32_t scelta = fuori;
    if (!a_costi_) {
        // The one added last stays in; found again, it is passed over.
        std::int32_t minimo = std::numeric_limits<std::int32_t>::max();
        for (std::size_t i = 0; i < perdita_.size(); ++i) {
            minimo = std::min(minimo, dentro_[i] == ultima_ ? minimo : perdita_[i]);
        }
        for (std::size_t i = 0; i < perdita_.size(); ++i) {
            if (perdita_[i] != minimo || dentro_[i] == ultima_) continue;
            if (scelta == fuori || mossa_[dentro_[i]] < mossa_[scelta]) scelta = dentro_[i];
        }
        return scelta == fuori ? dentro_.front() : scelta;
    }
    std::size_t posto = 0;
    for (std::size_t i = 0; i < dentro_.size(); ++i) {
        const std::uint32_t c = dentro_[i];
        if (c == ultima_) continue;
        const std::int64_t v = scelta == fuori ? 0 : std::int64_t{perdita_[i]} * i_.costo[scelta];
        const std::int64_t w = std::int64_t{perdita_[posto]} * i_.costo[c];
        if (scelta != fuori && (v > w || (v == w && mossa_[c] >= mossa_[scelta]))) continue;
        scelta = c;
        posto = i;
    }
    return scelta == fuori ? dentro_.front() : scelta;
}

std::uint32_t CoperturaLocale::da_mettere(std::uint32_t riga) const {
    const std::uint32_t* c = i_.colonne.data() + i_.inizio_riga[riga];
    const std::uint32_t* const fine = i_.colonne.data() + i_.inizio_riga[riga + 1];
    std::uint32_t scelta = fuori;
    std::int32_t guadagno = -1;
    for (; c != fine; ++c) {
        // Most fall behind at once, and nothing else of theirs is looked at.
        if (!a_costi_ && guadagno_[*c] < guadagno) continue;
        if (libera_[*c] > ora_ || (scelta != fuori && !meglio(*c, scelta))) continue;
        scelta = *c;
        guadagno = guadagno_[scelta];
    }
    // All of them went out only just.
    return scelta != fuori ? scelta : i_.colonne[i_.inizio_riga[riga]];
}

void CoperturaLocale::appesantisci() {
    for (const std::uint32_t r : scoperte_) {
        peso_[r] += i_.peso_riga[r];
        peso_totale_ += i_.peso_riga[r];
        aggiungi_a_tutte(r, i_.peso_riga[r]);
    }
    if (peso_totale_ > peso_massimo) alleggerisci();
}

void CoperturaLocale::alleggerisci() {
    std::fill(guadagno_.begin(), guadagno_.end(), 0);
    std::fill(perdita_.begin(), perdita_.end(), 0);
    peso_totale_ = 0;
    for (std::uint32_t r = 0; r < i_.quante_righe(); ++r) {
        peso_[r] = std::max(peso_[r] / 2, i_.peso_riga[r]);
        peso_totale_ += peso_[r];
        if (coperte_[r].quante == 0) aggiungi_a_tutte(r, peso_[r]);
        if (coperte_[r].quante == 1) cambia_perdita(coperte_[r].chi, peso_[r]);
    }
}

void CoperturaLocale::parti_da(const std::vector<std::uint32_t>& colonne) {
    while (!dentro_.empty()) togli(dentro_.back());
    for (const std::uint32_t c : colonne) {
        if (posto_[c] == fuori) metti(c);
    }
}

/// Adds the best columns until the cost is reached or nothing is left uncovered.
void CoperturaLocale::completa() {
    while (!scoperte_.empty()) {
        const auto quante = static_cast<std::uint32_t>(scoperte_.size());
        const std::uint32_t riga = scoperte_[sorte_.fino_a(quante)];
        std::uint32_t c = da_mettere(riga);
        if (dentro_.empty()) {
            const std::uint32_t da = i_.inizio_riga[riga];
            c = i_.colonne[da + sorte_.fino_a(i_.inizio_riga[riga + 1] - da)];
        }
        if (costo_fisso_ > 0 && costo_ + i_.costo[c] > costo_fisso_) break;
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
    migliore_ = dentro_;
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
    if (!dentro_.empty()) togli(da_togliere());
    const std::int64_t tetto = costo_fisso_ > 0 ? costo_fisso_ : costo_migliore_ - 1;
    while (!scoperte_.empty()) {
        const auto quante = static_cast<std::uint32_t>(scoperte_.size());
        const std::uint32_t c = da_mettere(scoperte_[sorte_.fino_a(quante)]);
        if (costo_ + i_.costo[c] > tetto) break;
        metti(c);
        ultima_ = c;
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
