#include "analysis/minimo.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "analysis/cinquine.h"
#include "development/garanzie.h"

namespace analysis {

namespace {

/// The combinations with t hits or more in a set P are, by inclusion and exclusion, a sum over the
/// subsets S of P: weight(|S|) times the combinations that hold all of S.
std::int32_t peso(int elementi, int t) {
    if (elementi < t) return 0;
    const auto quanti = static_cast<std::int32_t>(development::binomiale(elementi - 1, t - 1));
    return (elementi - t) % 2 == 0 ? quanti : -quanti;
}

/// Searches that go on for longer give up; so many sets are looked at one by one in a second.
constexpr std::int64_t prove_massime = 20'000'000;

std::size_t posto(std::int32_t i) {
    return static_cast<std::size_t>(i);
}

/// Weighted counts of the sets of one to four ranks.
class Gradi {
public:
    Gradi(const Giocate& giocate, int k, int t)
        : posti_(giocate.quanti(), std::min({k, giocate.numeri, 4})) {
        const int massimo = std::min({k, giocate.numeri, 4});
        for (int j = 1; j <= 4; ++j) {
            // Longer sets weigh nothing, but are read like the others.
            gradi_[j].resize(j <= massimo ? posti_.quanti(j) + 1 : 0);
        }
        for (const Ranghi& r : giocate.combinazioni) aggiungi(r, giocate.numeri, massimo, t);
    }
    [[nodiscard]] const std::int32_t* di(int elementi) const { return gradi_[elementi].data(); }
    [[nodiscard]] bool ha(int elementi) const { return !gradi_[elementi].empty(); }
    [[nodiscard]] const Posti& posti() const { return posti_; }

    /// Sum over the subsets of at most four of the ascending ranks.
    template <typename R>
    [[nodiscard]] std::int64_t somma(const R& rango, int quanti) const {
        std::int64_t s = 0;
        for (int a = 0; a < quanti; ++a) {
            s += gradi_[1][posto(rango(a))];
            for (int b = a + 1; b < quanti && ha(2); ++b) {
                s += gradi_[2][posto(posti_.coppia(rango(a), rango(b)))];
                for (int c = b + 1; c < quanti && ha(3); ++c) {
                    const std::int32_t abc = posti_.terna(rango(a), rango(b), rango(c));
                    s += gradi_[3][posto(abc)];
                    for (int d = c + 1; d < quanti && ha(4); ++d) {
                        s += gradi_[4][posto(posti_.inizio_quaterne(abc) + rango(d))];
                    }
                }
            }
        }
        return s;
    }

private:
    void aggiungi(const Ranghi& r, int n, int massimo, int t) {
        const std::int32_t p1 = peso(1, t);
        const std::int32_t p2 = peso(2, t);
        const std::int32_t p3 = peso(3, t);
        const std::int32_t p4 = peso(4, t);
        for (int a = 0; a < n; ++a) {
            gradi_[1][r[posto(a)]] += p1;
            for (int b = a + 1; b < n && massimo >= 2; ++b) {
                const std::int32_t ab = posti_.coppia(r[posto(a)], r[posto(b)]);
                gradi_[2][posto(ab)] += p2;
                for (int c = b + 1; c < n && massimo >= 3; ++c) {
                    const std::int32_t abc = posti_.inizio_terne(ab) + r[posto(c)];
                    gradi_[3][posto(abc)] += p3;
                    for (int d = c + 1; d < n && massimo >= 4; ++d) {
                        gradi_[4][posto(posti_.inizio_quaterne(abc) + r[posto(d)])] += p4;
                    }
                }
            }
        }
    }

    Posti posti_;
    std::vector<std::int32_t> gradi_[5];
};

/// Looks for the set with the fewest. The sum over subsets of up to four is exact for every set
/// that holds no five numbers of a combination; those that do are few, and counted by themselves.
class Ricerca {
public:
    Ricerca(const Giocate& giocate, const Insiemi& insiemi, int k, int t, const Continua& continua)
        : giocate_(giocate),
          insiemi_(insiemi),
          gradi_(giocate, k, t),
          k_(k),
          t_(t),
          n_(giocate.quanti()),
          continua_(continua),
          somme_(posto(k)) {
        for (auto& somme : somme_) somme.resize(posto(n_));
    }

    std::optional<Minimo> esegui() {
        if (k_ == 5 && giocate_.numeri == 5) combinazioni_intere();
        if (k_ >= 5 && giocate_.numeri == 6) con_cinquine();
        // Where every set must hold five of a combination, all are done.
        if (!ferma_ && t_ < 5) {
            for (int x = 0; x < n_; ++x) somme_[0][posto(x)] = gradi_.di(1)[x];
            scendi(0, 0, -1);
        }
        if (ferma_) return std::nullopt;
        if (prove_ > prove_massime) return Minimo{1, false};
        return Minimo{minimo_, true};
    }

private:
    bool ancora() {
        if (continua_ && !continua_()) ferma_ = true;
        return !ferma_ && prove_ <= prove_massime;
    }

    /// Combinations of five as the set drawn.
    void combinazioni_intere() {
        for (const Ranghi& r : giocate_.combinazioni) {
            const auto rango = [&](int i) { return int{r[posto(i)]}; };
            minimo_ = std::min(minimo_, gradi_.somma(rango, 5) + peso(5, t_));
        }
    }

    /// The sets that hold five numbers of a combination of six.
    void con_cinquine() {
        const std::vector<Cinquina> cinquine = cinquine_ordinate(giocate_);
        std::vector<std::int32_t> quante(k_ == 6 ? giocate_.combinazioni.size() : 0);
        per_uguali(cinquine, [&](std::span<const Cinquina> uguali) {
            uniche_.push_back({uguali.front(), static_cast<std::int32_t>(uguali.size())});
            if (k_ == 6) {
                for (const Cinquina& c : uguali) quante[c.combinazione()] += uniche_.back().volte;
            } else {
                minimo_ = std::min(minimo_, valore(uniche_.back()));
            }
        });
        if (k_ == 5) return;
        for (std::size_t i = 0; i < quante.size(); ++i) {
            const Ranghi& r = giocate_.combinazioni[i];
            const auto rango = [&](int x) { return int{r[posto(x)]}; };
            const std::int64_t suo =
                gradi_.somma(rango, 6) + std::int64_t{peso(5, t_)} * quante[i] + peso(6, t_);
            minimo_ = std::min(minimo_, suo);
        }
        std::int64_t viste = 0;
        for (const Unica& u : uniche_) {
            if (++viste % 4096 == 0 && !ancora()) return;
            // More numbers never win less.
            if (valore(u) < minimo_) con_un_altro(u);
        }
    }

    struct Unica {
        Cinquina cinquina;
        std::int32_t volte = 0;
    };
    [[nodiscard]] std::int64_t valore(const Unica& u) const {
        const auto rango = [&](int i) { return u.cinquina.rango(posto(i)); };
        return gradi_.somma(rango, 5) + std::int64_t{peso(5, t_)} * u.volte;
    }

    /// The sets of the five and one number more that are no combination.
    void con_un_altro(const Unica& u) {
        prove_ += n_;
        for (int altro = 0; altro < n_; ++altro) {
            std::array<int, 6> r{};
            int i = 0;
            bool dentro = false;
            for (std::size_t x = 0; x < 5; ++x) {
                const int suo = u.cinquina.rango(x);
                dentro = dentro || suo == altro;
                if (i == static_cast<int>(x) && suo > altro) r[posto(i++)] = altro;
                r[posto(i++)] = suo;
            }
            if (i == 5) r[5] = altro;
            if (dentro) continue;
            const auto rango = [&](int x) { return r[posto(x)]; };
            std::int64_t cinque = 0;
            for (int fuori = 0; fuori < 6; ++fuori) cinque += volte(r, fuori);
            if (cinque >= 6 && combinazione(r)) continue;
            minimo_ = std::min(minimo_, gradi_.somma(rango, 6) + peso(5, t_) * cinque);
        }
    }

    /// Combinations that hold the five ranks left without the one at `fuori`.
    [[nodiscard]] std::int32_t volte(const std::array<int, 6>& r, int fuori) const {
        Ranghi ranghi{};
        for (int i = 0; i < 6; ++i) ranghi[posto(i)] = static_cast<std::uint8_t>(r[posto(i)]);
        std::array<int, 5> q{};
        for (int i = 0, j = 0; i < 6; ++i) {
            if (i != fuori) q[posto(j++)] = r[posto(i)];
        }
        if (!coperta(q)) return 0;
        const std::uint64_t cercata = Cinquina(ranghi, 0, posto(fuori)).ranghi();
        const auto trovata = std::lower_bound(
            uniche_.begin(), uniche_.end(), cercata,
            [](const Unica& u, std::uint64_t c) { return u.cinquina.ranghi() < c; });
        return trovata != uniche_.end() && trovata->cinquina.ranghi() == cercata ? trovata->volte
                                                                                 : 0;
    }
    [[nodiscard]] bool combinazione(const std::array<int, 6>& r) const {
        // All six fives stand in combinations; the set is one when the first five take the sixth.
        Ranghi ranghi{};
        for (int i = 0; i < 6; ++i) ranghi[posto(i)] = static_cast<std::uint8_t>(r[posto(i)]);
        return std::binary_search(giocate_ordinate().begin(), giocate_ordinate().end(), ranghi);
    }
    [[nodiscard]] const std::vector<Ranghi>& giocate_ordinate() const {
        if (ordinate_.empty()) {
            ordinate_ = giocate_.combinazioni;
            std::sort(ordinate_.begin(), ordinate_.end());
        }
        return ordinate_;
    }
    [[nodiscard]] bool coperta(const std::array<int, 5>& q) const {
        return insiemi_.righe(4)[insiemi_.posti().quaterna(q[0], q[1], q[2], q[3])].acceso(q[4]);
    }

    /// Goes through the sets that begin with the `j` ranks chosen, whose sum is `valore`.
    void scendi(int j, std::int64_t valore, int ultimo) {
        const std::vector<std::int32_t>& somme = somme_[posto(j)];
        if (j == k_ - 1) {
            for (int x = ultimo + 1; x < n_; ++x) prova(j, x, valore + somme[posto(x)]);
            return;
        }
        for (int e = ultimo + 1; e < n_; ++e) {
            const std::int64_t suo = valore + somme[posto(e)];
            if (suo >= minimo_) continue;
            if (j == 2 && !ancora()) return;
            scelti_[posto(j)] = e;
            aggiungi(j, e);
            scendi(j + 1, suo, e);
            if (ferma_ || prove_ > prove_massime) return;
        }
    }

    /// What each larger rank adds to the `j` chosen and `e`.
    void aggiungi(int j, int e) {
        std::int32_t* meta = somme_[posto(j) + 1].data();
        const std::int32_t* da = somme_[posto(j)].data();
        const Posti& posti = gradi_.posti();
        std::array<const std::int32_t*, 16> file{};
        std::size_t quante = 0;
        if (gradi_.ha(2)) file[quante++] = gradi_.di(2) + posti.inizio_coppie(e);
        for (int x = 0; x < j && gradi_.ha(3); ++x) {
            const std::int32_t xe = posti.coppia(scelti_[posto(x)], e);
            file[quante++] = gradi_.di(3) + posti.inizio_terne(xe);
            for (int y = 0; y < x && gradi_.ha(4); ++y) {
                const std::int32_t yxe = posti.terna(scelti_[posto(y)], scelti_[posto(x)], e);
                file[quante++] = gradi_.di(4) + posti.inizio_quaterne(yxe);
            }
        }
        for (int x = e + 1; x < n_; ++x) meta[x] = da[x];
        for (std::size_t i = 0; i < quante; ++i) {
            const std::int32_t* fila = file[i];
            for (int x = e + 1; x < n_; ++x) meta[x] += fila[x];
        }
    }

    /// A whole set: counts unless it holds five of a combination.
    void prova(int j, int x, std::int64_t valore) {
        if (valore >= minimo_) return;
        ++prove_;
        scelti_[posto(j)] = x;
        if (giocate_.numeri >= 5 && k_ >= 5) {
            for (int fuori = k_ == 5 ? 5 : 0; fuori < 6; ++fuori) {
                std::array<int, 5> q{};
                for (int i = 0, f = 0; i < k_; ++i) {
                    if (i != fuori) q[posto(f++)] = scelti_[posto(i)];
                }
                if (coperta(q)) return;
            }
        }
        minimo_ = valore;
    }

    const Giocate& giocate_;
    const Insiemi& insiemi_;
    Gradi gradi_;
    int k_;
    int t_;
    int n_;
    const Continua& continua_;
    std::int64_t minimo_ = std::numeric_limits<std::int32_t>::max();
    std::int64_t prove_ = 0;
    bool ferma_ = false;
    std::vector<Unica> uniche_;
    mutable std::vector<Ranghi> ordinate_;
    std::array<int, 6> scelti_{};
    std::vector<std::vector<std::int32_t>> somme_;
};

}  // namespace

std::optional<Minimo> minimo_vincenti(const Giocate& giocate, const Insiemi& insiemi, int k, int t,
                                      const Continua& continua) {
    return Ricerca(giocate, insiemi, k, t, continua).esegui();
}

}  // namespace analysis
