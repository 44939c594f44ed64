#include "analysis/buchi.h"

namespace analysis {

namespace {

class Ricerca {
public:
    Ricerca(const Giocate& giocate, const Insiemi& insiemi, int k, int t, std::size_t limite,
            const Continua& continua)
        : giocate_(giocate),
          insiemi_(insiemi),
          k_(k),
          t_(t),
          limite_(limite),
          continua_(continua) {}

    std::optional<std::vector<Numeri>> esegui() {
        scendi({}, -1);
        if (ferma_) return std::nullopt;
        return trovati_;
    }

private:
    /// Goes on from the ranks chosen; `vietati` are those that would make t hits with them.
    void scendi(const Bit& vietati, int ultimo) {
        if (static_cast<int>(scelti_.size()) == k_) {
            Numeri numeri;
            for (const int rango : scelti_) {
                numeri.push_back(giocate_.in_gioco[static_cast<std::size_t>(rango)]);
            }
            trovati_.push_back(std::move(numeri));
            return;
        }
        for (int e = ultimo + 1; e < giocate_.quanti() && trovati_.size() < limite_; ++e) {
            if (vietati.acceso(e)) continue;
            if (scelti_.size() == 1 && continua_ && !continua_()) ferma_ = true;
            if (ferma_) return;
            Bit suoi = vietati;
            suoi |= nuovi_vietati(e);
            scelti_.push_back(e);
            scendi(suoi, e);
            scelti_.pop_back();
        }
    }

    /// The ranks that `e` bars: those that complete t of a combination with it and t - 2 chosen.
    [[nodiscard]] Bit nuovi_vietati(int e) const {
        Bit quali;
        const Bit* righe = insiemi_.righe(t_ - 1);
        const Posti& posti = insiemi_.posti();
        const std::size_t j = scelti_.size();
        if (t_ == 2) return righe[e];
        for (std::size_t a = 0; a < j; ++a) {
            if (t_ == 3) quali |= righe[posti.coppia(scelti_[a], e)];
            for (std::size_t b = a + 1; b < j && t_ > 3; ++b) {
                if (t_ == 4) quali |= righe[posti.terna(scelti_[a], scelti_[b], e)];
                for (std::size_t c = b + 1; c < j && t_ > 4; ++c) {
                    quali |= righe[posti.quaterna(scelti_[a], scelti_[b], scelti_[c], e)];
                }
            }
        }
        return quali;
    }

    const Giocate& giocate_;
    const Insiemi& insiemi_;
    int k_;
    int t_;
    std::size_t limite_;
    const Continua& continua_;
    bool ferma_ = false;
    std::vector<int> scelti_;
    std::vector<Numeri> trovati_;
};

}  // namespace

std::optional<std::vector<Numeri>> insiemi_sotto(const Giocate& giocate, const Insiemi& insiemi,
                                                 int k, int t, std::size_t limite,
                                                 const Continua& continua) {
    return Ricerca(giocate, insiemi, k, t, limite, continua).esegui();
}

}  // namespace analysis
