// The walk beside a plain one that keeps no sums and counts all anew at each step.
#include "development/copertura_locale.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>

#include "development/coperture.h"
#include "development/gruppi.h"

using namespace development;

namespace {

/// The same walk from the same chances; its places, too, are taken in the same order.
class CamminoSemplice {
public:
    CamminoSemplice(const Incidenza& incidenza, std::uint64_t seme, std::int64_t costo_fisso)
        : i_(incidenza),
          sorte_(seme),
          fisso_(costo_fisso),
          a_costi_(std::ranges::any_of(i_.costo, [&](int c) { return c != i_.costo.front(); })),
          peso_(i_.peso_riga.begin(), i_.peso_riga.end()),
          mossa_(i_.quante_colonne(), 0),
          libera_(i_.quante_colonne(), 0) {
        for (std::uint32_t r = 0; r < i_.quante_righe(); ++r) scoperte_.push_back(r);
    }

    void parti_da(const std::vector<std::uint32_t>& colonne) {
        for (std::size_t p = 0; p < posti_.size(); ++p) {
            if (posti_[p]) togli(p);
        }
        for (std::size_t j = 0; j < colonne.size(); ++j) {
            const auto qui = colonne.begin() + static_cast<std::ptrdiff_t>(j);
            if (std::find(colonne.begin(), qui, *qui) == qui) metti(*qui);
        }
    }

    bool passi(std::uint64_t quanti, std::int64_t limite) {
        bool trovata = false;
        if (migliore.empty()) {
            completa();
            trovata = annota();
        }
        for (; quanti > 0 && !trovata; --quanti) {
            if (fisso_ > 0 ? scoperto_migliore == 0 : costo_migliore <= limite) break;
            trovata = passo();
        }
        return trovata;
    }

    std::vector<std::uint32_t> migliore;
    std::int64_t costo_migliore = -1;
    std::int64_t scoperto_migliore = -1;
    std::uint64_t fatti = 0;

private:
    struct Posto {
        std::uint32_t colonna;
        std::uint64_t entrata;
    };

    [[nodiscard]] std::int64_t costo() const {
        std::int64_t somma = 0;
        for (const auto& p : posti_) somma += p ? i_.costo[p->colonna] : 0;
        return somma;
    }
    [[nodiscard]] std::int64_t scoperto() const {
        std::int64_t somma = 0;
        for (const std::uint32_t r : scoperte_) somma += i_.peso_riga[r];
        return somma;
    }
    [[nodiscard]] int quante_coprono(std::uint32_t riga) const {
        int quante = 0;
        for (const auto& p : posti_) {
            if (!p) continue;
            const auto sue = i_.righe_di(p->colonna);
            quante += std::find(sue.begin(), sue.end(), riga) != sue.end() ? 1 : 0;
        }
        return quante;
    }
    [[nodiscard]] std::int64_t perdita(std::uint32_t colonna) const {
        std::int64_t somma = 0;
        for (const std::uint32_t r : i_.righe_di(colonna)) {
            somma += quante_coprono(r) == 1 ? peso_[r] : 0;
        }
        return somma;
    }
    [[nodiscard]] std::int64_t guadagno(std::uint32_t colonna) const {
        std::int64_t somma = 0;
        for (const std::uint32_t r : i_.righe_di(colonna)) {
            somma += quante_coprono(r) == 0 ? peso_[r] : 0;
        }
        return somma;
    }

    void metti(std::uint32_t colonna) {
        if (vuoti_.empty()) {
            vuoti_.push_back(posti_.size());
            posti_.emplace_back();
        }
        ultimo_ = vuoti_.back();
        vuoti_.pop_back();
        for (const std::uint32_t r : i_.righe_di(colonna)) {
            const auto dove = std::find(scoperte_.begin(), scoperte_.end(), r);
            if (dove == scoperte_.end()) continue;
            *dove = scoperte_.back();
            scoperte_.pop_back();
        }
        posti_[ultimo_] = {colonna, fatti};
    }
    void togli(std::size_t posto) {
        const std::uint32_t colonna = posti_[posto]->colonna;
        posti_[posto].reset();
        vuoti_.push_back(posto);
        for (const std::uint32_t r : i_.righe_di(colonna)) {
            if (quante_coprono(r) == 0) scoperte_.push_back(r);
        }
        mossa_[colonna] = fatti;
        libera_[colonna] = fatti + 1 + sorte_.fino_a(4);
    }
    /// Least is lost for its cost, then the longest in; never the last one in while others are.
    [[nodiscard]] std::size_t da_togliere() const {
        std::optional<std::size_t> scelto;
        for (std::size_t p = 0; p < posti_.size(); ++p) {
            if (!posti_[p] || p == ultimo_) continue;
            if (scelto) {
                const auto sua = perdita(posti_[p]->colonna) * costo_di(posti_[*scelto]->colonna);
                const auto altra = perdita(posti_[*scelto]->colonna) * costo_di(posti_[p]->colonna);
                if (sua > altra) continue;
                if (sua == altra && posti_[p]->entrata >= posti_[*scelto]->entrata) continue;
            }
            scelto = p;
        }
        return scelto.value_or(ultimo_);
    }
    /// Most is gained for its cost, then the longest at rest; of those that may go in.
    [[nodiscard]] std::uint32_t da_mettere(std::uint32_t riga) const {
        std::optional<std::uint32_t> scelta;
        for (const std::uint32_t c : i_.colonne_di(riga)) {
            if (libera_[c] > fatti) continue;
            if (scelta) {
                const auto suo = guadagno(c) * costo_di(*scelta);
                const auto altro = guadagno(*scelta) * costo_di(c);
                if (suo < altro || (suo == altro && mossa_[c] >= mossa_[*scelta])) continue;
            }
            scelta = c;
        }
        return scelta.value_or(*i_.colonne_di(riga).begin());
    }
    [[nodiscard]] std::int64_t costo_di(std::uint32_t colonna) const {
        return a_costi_ ? i_.costo[colonna] : 1;
    }
    std::uint32_t una_scoperta() {
        return scoperte_[sorte_.fino_a(static_cast<std::uint32_t>(scoperte_.size()))];
    }
    void completa() {
        while (!scoperte_.empty()) {
            const std::uint32_t riga = una_scoperta();
            std::uint32_t c = da_mettere(riga);
            if (costo() == 0) {
                const auto sue = i_.colonne_di(riga);
                c = sue.begin()[sorte_.fino_a(static_cast<std::uint32_t>(sue.end() - sue.begin()))];
            }
            if (fisso_ > 0 && costo() + i_.costo[c] > fisso_) break;
            metti(c);
        }
        while (fisso_ > 0 && costo() > fisso_) togli(da_togliere());
    }
    bool annota() {
        if (fisso_ == 0 && !scoperte_.empty()) return false;
        const auto nuova = std::pair(scoperto(), costo());
        if (costo_migliore >= 0 && nuova >= std::pair(scoperto_migliore, costo_migliore)) {
            return false;
        }
        std::tie(scoperto_migliore, costo_migliore) = nuova;
        migliore.clear();
        for (const auto& p : posti_) {
            if (p) migliore.push_back(p->colonna);
        }
        return true;
    }
    void appesantisci() {
        for (const std::uint32_t r : scoperte_) peso_[r] += i_.peso_riga[r];
        std::int64_t tutti = 0;
        for (const std::int64_t peso : peso_) tutti += peso;
        if (tutti <= std::int64_t{1} << 30) return;
        for (std::size_t r = 0; r < peso_.size(); ++r) {
            peso_[r] = std::max<std::int64_t>(peso_[r] / 2, i_.peso_riga[r]);
        }
    }
    bool passo() {
        ++fatti;
        bool trovata = false;
        while (fisso_ == 0 && scoperte_.empty()) {
            trovata = annota() || trovata;
            togli(da_togliere());
        }
        if (costo() > 0) togli(da_togliere());
        while (!scoperte_.empty()) {
            const std::uint32_t c = da_mettere(una_scoperta());
            if (costo() + i_.costo[c] > (fisso_ > 0 ? fisso_ : costo_migliore - 1)) break;
            metti(c);
            appesantisci();
        }
        return annota() || trovata;
    }

    const Incidenza& i_;
    Sorte sorte_;
    std::int64_t fisso_;
    bool a_costi_;
    std::vector<std::int64_t> peso_;
    std::vector<std::uint64_t> mossa_;
    std::vector<std::uint64_t> libera_;
    std::vector<std::optional<Posto>> posti_;
    std::vector<std::size_t> vuoti_;
    std::vector<std::uint32_t> scoperte_;
    std::size_t ultimo_ = 0;
};

/// Both walks, step by step; `da`, when there is one, is what both begin with.
void di_pari_passo(const Incidenza& i, std::uint64_t seme, std::int64_t fisso, int passi,
                   const std::vector<std::uint32_t>& da = {}) {
    CoperturaLocale svelto(i, seme, fisso);
    CamminoSemplice semplice(i, seme, fisso);
    if (!da.empty()) {
        svelto.parti_da(da);
        semplice.parti_da(da);
    }
    for (int p = 0; p < passi; ++p) {
        ASSERT_EQ(svelto.passi(1, 1), semplice.passi(1, 1)) << "step " << p;
        ASSERT_EQ(svelto.migliore(), semplice.migliore) << "step " << p;
        ASSERT_EQ(svelto.costo_migliore(), semplice.costo_migliore) << "step " << p;
        ASSERT_EQ(svelto.scoperto_migliore(), semplice.scoperto_migliore) << "step " << p;
        ASSERT_EQ(svelto.fatti(), semplice.fatti) << "step " << p;
        // Begun again from what it has, with one column twice.
        if (p % 40 == 39 && !svelto.migliore().empty()) {
            std::vector<std::uint32_t> tre(svelto.migliore());
            tre.resize(std::min<std::size_t>(tre.size(), 3));
            tre.push_back(tre.front());
            svelto.parti_da(tre);
            semplice.parti_da(tre);
        }
    }
}

/// Rows and columns by chance; each row has a column.
Incidenza a_caso(Sorte& sorte, std::uint32_t righe, std::uint32_t colonne, std::int32_t peso,
                 std::uint32_t costi) {
    Incidenza i;
    for (std::uint32_t r = 0; r < righe; ++r) {
        i.peso_riga.push_back(peso * static_cast<std::int32_t>(1 + sorte.fino_a(3)));
    }
    for (std::uint32_t c = 0; c < colonne; ++c) {
        for (std::uint32_t r = 0; r < righe; ++r) {
            if (r % colonne == c || sorte.fino_a(5) == 0) i.righe.push_back(r);
        }
        i.inizio_colonna.push_back(static_cast<std::uint32_t>(i.righe.size()));
        i.costo.push_back(static_cast<std::int32_t>(1 + sorte.fino_a(costi)));
    }
    i.trasponi();
    return i;
}

TEST(CoperturaLocale, OgniRigaHaLeSueColonneInOrdine) {
    Sorte sorte(2);
    const Incidenza i = a_caso(sorte, 23, 11, 1, 1);
    ASSERT_EQ(i.colonne.size(), i.righe.size());
    for (std::uint32_t r = 0; r < 23; ++r) {
        std::vector<std::uint32_t> sue;
        for (std::uint32_t c = 0; c < 11; ++c) {
            const auto righe = i.righe_di(c);
            if (std::find(righe.begin(), righe.end(), r) != righe.end()) sue.push_back(c);
        }
        EXPECT_EQ(std::vector(i.colonne_di(r).begin(), i.colonne_di(r).end()), sue);
    }
}

TEST(CoperturaLocale, CamminaComeUnaCheContaTuttoDaCapo) {
    Sorte sorte(1);
    for (std::uint64_t seme = 1; seme <= 12; ++seme) {
        const Incidenza pari = a_caso(sorte, 30, 40, 1, 1);
        di_pari_passo(pari, seme, 0, 200);
        di_pari_passo(pari, seme, 4, 200, {0, 1, 2, 3, 4, 5, 6});
        const Incidenza a_costi = a_caso(sorte, 30, 40, 1, 4);
        di_pari_passo(a_costi, seme, 0, 200);
        di_pari_passo(a_costi, seme, 9, 200, {0, 1, 2, 3, 4, 5, 6});
    }
}

TEST(CoperturaLocale, CamminaCosiAncheQuandoIPesiSiDimezzano) {
    Sorte sorte(3);
    for (std::uint64_t seme = 1; seme <= 6; ++seme) {
        // Weights outgrow their bound within some steps.
        di_pari_passo(a_caso(sorte, 20, 24, 12'000'000, 1), seme, 3, 300);
    }
}

TEST(CoperturaLocale, CamminaPerInsiemiComePerElenchi) {
    Sorte sorte(4);
    for (const Desiderio& d : {Desiderio{9, 5, 4, 3}, Desiderio{8, 4, 4, 2}, Desiderio{8, 5, 5, 2},
                               Desiderio{8, 4, 3, 3}, Desiderio{9, 6, 5, 4}}) {
        const Orbite singole = orbite(d, {});
        di_pari_passo(singole.incidenza, 5, 0, 120);
        di_pari_passo(singole.incidenza, 6, 3, 120);
        di_pari_passo(orbite(d, gruppo_a_caso(d.n, sorte)).incidenza, 7, 0, 120);
    }
}

}  // namespace
