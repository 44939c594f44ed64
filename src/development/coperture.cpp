#include "development/coperture.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <limits>
#include <mutex>
#include <numeric>
#include <optional>
#include <thread>

#include "development/copertura_locale.h"
#include "development/garanzie.h"
#include "development/gruppi.h"
#include "development/riempimento.h"
#include "platform/runtime.h"

namespace development {

namespace {

/// What the walk through rows as they are may hold, in rows covered over all columns.
constexpr std::uint64_t incidenza_massima = std::uint64_t{1} << 26;
/// Work of one turn without a group, and of the first try of a group: a swap costs about as many
/// steps as a row covers draws times the rows that cover a draw.
constexpr std::uint64_t lavoro_semplice = 60'000'000;
constexpr std::uint64_t lavoro_di_gruppo = 40'000'000;
/// Swaps without anything better after which the plain walk starts anew.
constexpr std::uint64_t pazienza = 6'000'000;
/// Groups that are tried again, each time for longer.
constexpr std::size_t gruppi_tenuti = 6;

std::uint64_t parte_intera_sopra(std::uint64_t a, std::uint64_t b) {
    return (a + b - 1) / b;
}

/// The bound of Schönheim for rows of k that cover all t-subsets of v positions.
std::uint64_t schonheim(int v, int k, int t) {
    std::uint64_t limite = 1;
    for (int i = t - 1; i >= 0; --i) {
        limite = parte_intera_sopra(static_cast<std::uint64_t>(v - i) * limite,
                                    static_cast<std::uint64_t>(k - i));
    }
    return limite;
}

/// Swaps that a work is worth.
std::uint64_t passi_per(std::uint64_t lavoro, const Incidenza& i) {
    const std::uint64_t coperture = i.righe.size();
    const std::uint64_t uno =
        coperture * coperture / (i.quante_righe() * i.quante_colonne()) + i.quante_colonne() / 64;
    return std::clamp<std::uint64_t>(lavoro / (uno + 1), 64, lavoro / 256);
}

std::string numero(std::uint64_t n) {
    return std::to_string(n);
}

}  // namespace

int limite_inferiore(const Desiderio& d) {
    const std::uint64_t conteggio =
        parte_intera_sopra(binomiale(d.n, d.p), std::max<std::uint64_t>(coperti_da_una(d), 1));
    const std::uint64_t limite =
        d.p == d.t ? std::max(conteggio, schonheim(d.n, d.k, d.t)) : conteggio;
    return static_cast<int>(std::max<std::uint64_t>(limite, 1));
}

std::string impossibile(const Desiderio& d) {
    if (d.n < 1 || d.n > numeri_cercati) return "i numeri vanno da 1 a " + numero(numeri_cercati);
    if (d.k < 1 || d.k > riga_massima)
        return "una combinazione ha da 1 a " + numero(riga_massima) + " numeri";
    if (d.k > d.n) {
        return "una combinazione di " + std::to_string(d.k) + " non sta in " + std::to_string(d.n) +
               " numeri";
    }
    if (d.t < 1 || d.p < d.t) {
        return "con " + std::to_string(d.p) + " estratti non se ne indovinano " +
               std::to_string(d.t);
    }
    if (d.p > d.n)
        return "non si estraggono " + std::to_string(d.p) + " numeri su " + std::to_string(d.n);
    if (d.t > d.k) {
        return "nessuna combinazione di " + std::to_string(d.k) + " numeri ne contiene " +
               std::to_string(d.t);
    }
    const std::uint64_t righe = binomiale(d.n, d.k);
    if (righe > incidenza_massima || righe * coperti_da_una(d) > incidenza_massima) {
        return "la ricerca è troppo grande: " + numero(righe) + " combinazioni, ognuna copre " +
               numero(coperti_da_una(d)) + " sorteggi";
    }
    const int almeno = std::max(limite_inferiore(d), d.righe);
    if (static_cast<std::size_t>(almeno) > colonne_tenute)
        return "la ricerca è troppo grande: " + std::to_string(almeno) + " righe";
    if (d.righe == 0) return {};
    if (d.righe < 0 || static_cast<std::uint64_t>(d.righe) > righe)
        return "le combinazioni possibili sono " + numero(righe);
    if (d.righe < limite_inferiore(d)) {
        return std::to_string(d.righe) + (d.righe == 1 ? " riga è poca" : " righe sono poche") +
               ": per questa garanzia ne servono almeno " + std::to_string(limite_inferiore(d));
    }
    return {};
}

std::string colonne_in_parole(std::size_t quante) {
    return quante == 1 ? "1 colonna" : numero(quante) + " colonne";
}

std::string scoperti_in_parole(std::uint64_t quanti) {
    return quanti == 1 ? "1 scoperto" : numero(quanti) + " scoperti";
}

std::string oltre_in_parole(const Desiderio& d, const std::vector<Maschera>& righe) {
    if (d.t >= std::min(d.p, d.k)) return {};
    const Vincite v = vincite({d.n, d.k, righe}, d.p);
    const auto oltre =
        std::accumulate(v.migliore.begin() + d.t + 1, v.migliore.end(), std::uint64_t{0});
    const double parte = static_cast<double>(oltre) / static_cast<double>(v.gruppi);
    return std::to_string(d.t + 1) + " o più " +
           platform::nel(platform::Significative(parte * 100, 3)) + " % dei casi";
}

bool riga_precede(Maschera a, Maschera b) {
    const Maschera diverse = a ^ b;
    return (a & diverse & (~diverse + 1)) != 0;
}

struct Ricerca {
    /// A group that gave good tables, and how long it is worth trying.
    struct Gruppo {
        std::vector<Permutazione> permutazioni;
        std::int64_t costo = 0;
        std::uint64_t volte = 1;
    };

    Ricerca(const Desiderio& desiderio, std::uint64_t seme, std::shared_ptr<const Orbite> singole)
        : d(desiderio), sorte(seme), semplice(std::move(singole)) {
        per_ogni_gruppo_di_bit([this](Maschera riga) { maschere.push_back(riga); });
        ricomincia();
    }

    template <typename F>
    void per_ogni_gruppo_di_bit(const F& f) const {
        for (Maschera riga = (Maschera{1} << d.k) - 1; riga < Maschera{1} << d.n;) {
            f(riga);
            const Maschera minimo = riga & (~riga + 1);
            const Maschera salita = riga + minimo;
            riga = (((salita ^ riga) >> 2) / minimo) | salita;
        }
    }

    [[nodiscard]] bool finito() const {
        if (righe_migliori.empty()) return false;
        return d.righe > 0 ? scoperti == 0 : std::ssize(righe_migliori) <= limite_inferiore(d);
    }

    void ricomincia() {
        cammino.emplace(semplice->incidenza, sorte.prossimo(), d.righe);
        cammino->ascolta(fermo);
        migliorata_a = 0;
    }

    void parti_da(const std::vector<Maschera>& righe) {
        std::vector<std::uint32_t> colonne;
        for (const Maschera riga : righe) {
            const auto dove = std::lower_bound(maschere.begin(), maschere.end(), riga);
            if (dove != maschere.end() && *dove == riga) {
                colonne.push_back(static_cast<std::uint32_t>(dove - maschere.begin()));
            }
        }
        cammino->parti_da(colonne);
    }

    /// Takes rows of the table as the best, when they are.
    void accogli(const std::vector<std::uint32_t>& righe, std::int64_t quanti_scoperti) {
        const bool prima = righe_migliori.empty();
        const auto mancanti = static_cast<std::uint64_t>(quanti_scoperti);
        if (!prima && (mancanti > scoperti ||
                       (mancanti == scoperti && righe.size() >= righe_migliori.size()))) {
            return;
        }
        righe_migliori.clear();
        for (const std::uint32_t r : righe) righe_migliori.push_back(maschere[r]);
        std::sort(righe_migliori.begin(), righe_migliori.end(), riga_precede);
        scoperti = mancanti;
    }

    void turno_semplice(std::uint64_t quanti) {
        const std::uint64_t inizio = cammino->fatti();
        while (cammino->fatti() - inizio < quanti && !finito()) {
            const std::uint64_t prima = cammino->fatti();
            const std::uint64_t restano = quanti - (prima - inizio);
            if (cammino->passi(restano, limite_inferiore(d))) {
                accogli(cammino->migliore(), cammino->scoperto_migliore());
                migliorata_a = cammino->fatti();
            } else if (cammino->fatti() == prima || cammino->fatti() - prima < restano) {
                break;
            }
        }
        if (cammino->fatti() - migliorata_a > pazienza) ricomincia();
    }

    void turno_di_gruppo() {
        Gruppo gruppo;
        if (gruppi.size() >= gruppi_tenuti / 2 && sorte.fino_a(2) == 0) {
            const std::size_t quale = sorte.fino_a(static_cast<std::uint32_t>(gruppi.size()));
            gruppo = gruppi[quale];
            gruppi.erase(gruppi.begin() + static_cast<std::ptrdiff_t>(quale));
            gruppo.volte *= 3;
        } else {
            gruppo = {gruppo_a_caso(d.n, sorte), 0, 1};
        }
        const Orbite o = orbite(d, gruppo.permutazioni);
        CoperturaLocale prova(o.incidenza, sorte.prossimo(), 0);
        prova.ascolta(fermo);
        const std::uint64_t tutti = gruppo.volte * passi_per(lavoro_di_gruppo, o.incidenza);
        bool trovata = true;
        while (trovata && prova.fatti() < tutti) {
            trovata = prova.passi(tutti - prova.fatti(), limite_inferiore(d));
        }
        const std::size_t prima = righe_migliori.size();
        accogli(o.espandi(prova.migliore()), 0);
        // What symmetry found, the plain walk may still better.
        if (righe_migliori.size() != prima) parti_da(righe_migliori);
        gruppo.costo = gruppo.costo == 0 ? prova.costo_migliore()
                                         : std::min(gruppo.costo, prova.costo_migliore());
        gruppi.push_back(std::move(gruppo));
        std::sort(gruppi.begin(), gruppi.end(),
                  [](const Gruppo& a, const Gruppo& b) { return a.costo < b.costo; });
        if (gruppi.size() > gruppi_tenuti) gruppi.pop_back();
    }

    /// One turn of either kind: swaps done.
    std::uint64_t turno(std::uint64_t al_piu) {
        const std::uint64_t quanti =
            std::min(al_piu, passi_per(lavoro_semplice, semplice->incidenza));
        if (di_gruppo && d.righe == 0) {
            turno_di_gruppo();
        } else {
            turno_semplice(quanti);
        }
        di_gruppo = !di_gruppo;
        return quanti;
    }

    Desiderio d;
    Sorte sorte;
    std::shared_ptr<const Orbite> semplice;
    std::vector<Maschera> maschere;  ///< the rows that a table may have, in order of number
    std::optional<CoperturaLocale> cammino;
    std::vector<Gruppo> gruppi;
    std::vector<Maschera> righe_migliori;
    std::uint64_t scoperti = 0;
    std::uint64_t migliorata_a = 0;
    bool di_gruppo = false;
    const std::atomic<bool>* fermo = nullptr;
};

Cercatore::Cercatore(const Desiderio& desiderio, std::uint64_t seme)
    : interno_(std::make_unique<Ricerca>(desiderio, seme,
                                         std::make_shared<const Orbite>(orbite(desiderio, {})))) {}

Cercatore::~Cercatore() = default;

void Cercatore::parti_da(const std::vector<Maschera>& righe) {
    interno_->parti_da(righe);
}

void Cercatore::passi(std::uint64_t quanti) {
    while (quanti > 0 && !interno_->finito()) quanti -= interno_->turno(quanti);
}

bool Cercatore::finito() const {
    return interno_->finito();
}

const std::vector<Maschera>& Cercatore::migliore() const {
    return interno_->righe_migliori;
}

std::uint64_t Cercatore::scoperti() const {
    return interno_->scoperti;
}

namespace {

/// The threads of one search and the best that any of them found.
class Squadra {
public:
    Squadra(const Desiderio& desiderio, const Condotta& condotta)
        : d_(desiderio),
          condotta_(condotta),
          singole_(std::make_shared<const Orbite>(orbite(desiderio, {}))),
          al_lavoro_(std::max(condotta.fili, 1)) {}

    void cerca() {
        std::vector<std::thread> fili;
        for (int i = 0; i < std::max(condotta_.fili, 1); ++i)
            fili.emplace_back([this, i] { lavora(i); });
        racconta();
        for (std::thread& filo : fili) filo.join();
        spendi_le_altre();
    }

private:
    /// One thread's walk; every other one begins with a group.
    void lavora(int quale) {
        Ricerca filo(d_, condotta_.seme + static_cast<std::uint64_t>(quale) * 7919, singole_);
        filo.fermo = &fermo_;
        filo.di_gruppo = quale % 2 == 1;
        filo.ricomincia();
        if (!condotta_.inizio.empty()) filo.parti_da(condotta_.inizio);
        // A whole turn may take long: so there is a table to tell of before its end.
        filo.turno_semplice(1);
        confronta(filo);
        while (!fermo_ && !filo.finito()) {
            filo.turno(std::numeric_limits<std::uint64_t>::max());
            confronta(filo);
        }
        const std::lock_guard chiusa(porta_);
        --al_lavoro_;
        if (filo.finito()) fermo_ = true;
        novita_.notify_one();
    }

    /// The better of what this thread has and what all have goes to the other side.
    void confronta(Ricerca& filo) {
        if (filo.righe_migliori.empty()) return;
        const std::lock_guard chiusa(porta_);
        const auto mia = std::pair(filo.scoperti, filo.righe_migliori.size());
        const auto di_tutti = std::pair(scoperti_, migliore_.size());
        if (migliore_.empty() || mia < di_tutti) {
            migliore_ = filo.righe_migliori;
            scoperti_ = filo.scoperti;
            nuova_ = true;
            novita_.notify_one();
        } else if (di_tutti < mia) {
            filo.righe_migliori = migliore_;
            filo.scoperti = scoperti_;
            filo.parti_da(migliore_);
        }
    }

    /// Tells of each better table until all threads have ended.
    void racconta() {
        std::unique_lock chiusa(porta_);
        while (al_lavoro_ > 0 || nuova_) {
            novita_.wait_for(chiusa, std::chrono::milliseconds(50),
                             [&] { return nuova_ || al_lavoro_ == 0; });
            if (std::exchange(nuova_, false) && condotta_.trovata) {
                const std::vector<Maschera> righe = migliore_;
                const std::uint64_t mancanti = scoperti_;
                chiusa.unlock();
                condotta_.trovata(righe, mancanti);
                chiusa.lock();
            }
            if (condotta_.fermo && condotta_.fermo()) fermo_ = true;
        }
    }

    /// Rows asked for that the guarantee does not need buy what they can above it.
    void spendi_le_altre() {
        if (d_.righe == 0 || migliore_.empty() || scoperti_ > 0) return;
        const std::vector<Maschera> tutte = riempi(d_, migliore_, condotta_.seme, condotta_.fermo);
        if (tutte.size() > migliore_.size() && condotta_.trovata) condotta_.trovata(tutte, 0);
    }

    const Desiderio& d_;
    const Condotta& condotta_;
    std::shared_ptr<const Orbite> singole_;
    std::atomic<bool> fermo_ = false;
    std::mutex porta_;
    std::condition_variable novita_;
    std::vector<Maschera> migliore_;
    std::uint64_t scoperti_ = 0;
    int al_lavoro_;
    bool nuova_ = false;
};

}  // namespace

void cerca(const Desiderio& desiderio, const Condotta& condotta) {
    if (impossibile(desiderio).empty()) Squadra(desiderio, condotta).cerca();
}

}  // namespace development
