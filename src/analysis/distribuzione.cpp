#include "analysis/distribuzione.h"

#include <atomic>
#include <mutex>
#include <vector>

#include "analysis/cammino.h"
#include "analysis/squadra.h"
#include "development/garanzie.h"

namespace analysis {

using development::binomiale;

Maschere::Maschere(int n) {
    for (int r = 0; r < n; ++r) {
        solo[static_cast<std::size_t>(r)].accendi(r);
        for (int x = r + 1; x < n; ++x) dopo[static_cast<std::size_t>(r)].accendi(x);
    }
}

namespace {

/// The beginnings of two ranks, shared out among the threads.
class Lavoro {
public:
    Lavoro(int n, int estratti) {
        for (int a = 0; a < n; ++a) {
            for (int b = a + 1; b < n; ++b) {
                inizi_.push_back({a, b, binomiale(n - 1 - b, estratti - 2)});
                tutto_ += inizi_.back().peso;
            }
        }
    }
    struct Inizio {
        int a = 0;
        int b = 0;
        std::uint64_t peso = 0;
    };
    /// Null when none is left or the work was stopped.
    const Inizio* prossimo() {
        if (ferma_) return nullptr;
        const std::size_t i = prossimo_++;
        return i < inizi_.size() ? &inizi_[i] : nullptr;
    }
    void fatto(const Inizio& inizio) { fatto_ += inizio.peso; }
    [[nodiscard]] double parte() const {
        return tutto_ == 0 ? 1.0 : static_cast<double>(fatto_) / static_cast<double>(tutto_);
    }
    void ferma() { ferma_ = true; }
    [[nodiscard]] bool fermato() const { return ferma_; }

private:
    std::vector<Inizio> inizi_;
    std::uint64_t tutto_ = 0;
    std::atomic<std::size_t> prossimo_ = 0;
    std::atomic<std::uint64_t> fatto_ = 0;
    std::atomic<bool> ferma_ = false;
};

template <int D, int T>
PLATFORM_AMPIO void coppia_ampia(const Cammino<D, T>& cammino, int a, int b, Almeno& almeno) {
    cammino.coppia(a, b, almeno);
}
template <int D, int T>
void coppia_comune(const Cammino<D, T>& cammino, int a, int b, Almeno& almeno) {
    cammino.coppia(a, b, almeno);
}

void somma(Almeno& totali, const Almeno& altri) {
    for (std::size_t k = 0; k < totali.size(); ++k) {
        for (std::size_t t = 0; t < totali[k].size(); ++t) totali[k][t] += altri[k][t];
    }
}

/// Walks beginnings until none is left; only the thread that asked has an `avanzamento`.
template <int D, int T>
void percorri(const Cammino<D, T>& cammino, Lavoro& lavoro, const AvanzamentoConteggio& avanzamento,
              Almeno& almeno) {
    const bool ampio = platform::processore_ampio();
    while (const Lavoro::Inizio* inizio = lavoro.prossimo()) {
        if (ampio) {
            coppia_ampia(cammino, inizio->a, inizio->b, almeno);
        } else {
            coppia_comune(cammino, inizio->a, inizio->b, almeno);
        }
        lavoro.fatto(*inizio);
        if (avanzamento && !avanzamento(lavoro.parte())) lavoro.ferma();
    }
}

template <int D, int T>
bool conta(const Insiemi& insiemi, int esecutori, Almeno& almeno,
           const AvanzamentoConteggio& avanzamento) {
    const int n = insiemi.posti().n();
    const Maschere maschere(n);
    for (int a = 0; a < n; ++a) {
        almeno[2][2] += static_cast<std::uint64_t>(insiemi.righe(1)[a].quanti());
    }
    const Cammino<D, T> cammino(insiemi, maschere);
    Lavoro lavoro(n, D);
    std::mutex chiave;
    in_squadra(esecutori, [&](bool chiamante) {
        Almeno suoi{};
        percorri(cammino, lavoro, chiamante ? avanzamento : AvanzamentoConteggio(), suoi);
        const std::lock_guard<std::mutex> guardia(chiave);
        somma(almeno, suoi);
    });
    return !lavoro.fermato();
}

/// By the numbers of a draw and of a combination, of which those levels are walked that a whole
/// draw does not make.
bool conta_livelli(const Giocate& giocate, const Insiemi& insiemi, int estratti, int esecutori,
                   Almeno& almeno, const AvanzamentoConteggio& avanzamento) {
    if (estratti == 6) return conta<6, 5>(insiemi, esecutori, almeno, avanzamento);
    if (giocate.numeri == 3) return conta<5, 3>(insiemi, esecutori, almeno, avanzamento);
    return conta<5, 4>(insiemi, esecutori, almeno, avanzamento);
}

}  // namespace

bool calcola_distribuzione(const Giocate& giocate, const Insiemi& insiemi, int estratti,
                           int esecutori, Distribuzione& distribuzione,
                           const AvanzamentoConteggio& avanzamento) {
    Distribuzione& d = distribuzione;
    d = Distribuzione();
    d.numeri = giocate.numeri;
    d.estratti = estratti;
    d.in_gioco = giocate.quanti();
    Almeno almeno{};
    if (!conta_livelli(giocate, insiemi, estratti, esecutori, almeno, avanzamento)) return false;
    for (int k = 0; k <= estratti; ++k) {
        auto& quali = almeno[static_cast<std::size_t>(k)];
        quali[0] = binomiale(d.in_gioco, k);
        if (k > 0) quali[1] = quali[0];
    }
    // A whole draw that is a combination is counted by the combinations.
    if (d.numeri == estratti) {
        const auto e = static_cast<std::size_t>(estratti);
        almeno[e][e] = giocate.combinazioni.size();
    }
    for (std::size_t k = 0; k < almeno.size(); ++k) {
        for (std::size_t t = 0; t < almeno[k].size(); ++t) {
            const std::uint64_t sopra = t + 1 < almeno[k].size() ? almeno[k][t + 1] : 0;
            d.migliore[k][t] = almeno[k][t] - sopra;
        }
    }
    return true;
}

int Distribuzione::garantito(int k) const {
    int t = 0;
    while (t < massimo() && sotto(k, t + 1) == 0) ++t;
    return binomiale(in_gioco, k) == 0 ? 0 : t;
}

std::uint64_t Distribuzione::sotto(int k, int t) const {
    std::uint64_t quanti = 0;
    for (int j = 0; j < t; ++j) {
        quanti += migliore[static_cast<std::size_t>(k)][static_cast<std::size_t>(j)];
    }
    return quanti;
}

std::uint64_t Distribuzione::estrazioni(int t) const {
    std::uint64_t quante = 0;
    for (int k = 0; k <= estratti; ++k) {
        quante += migliore[static_cast<std::size_t>(k)][static_cast<std::size_t>(t)] *
                  binomiale(numeri_del_gioco - in_gioco, estratti - k);
    }
    return quante;
}

std::uint64_t Distribuzione::estrazioni_almeno(int t) const {
    std::uint64_t quante = 0;
    for (int j = t; j <= 6; ++j) quante += estrazioni(j);
    return quante;
}

std::uint64_t Distribuzione::estrazioni_possibili() const {
    return binomiale(numeri_del_gioco, estratti);
}

}  // namespace analysis
