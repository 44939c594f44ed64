// The search for a small table, led from the command line.
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>

#include "comune.h"
#include "comune/parole.h"
#include "development/coperture.h"
#include "platform/disk.h"
#include "platform/terminale.h"

namespace ridotti {

using development::Desiderio;
using development::Maschera;

namespace {

using Orologio = std::chrono::steady_clock;

constexpr double secondi_soliti = 60;
constexpr double secondi_massimi = 30.0 * 24 * 60 * 60;
/// The best table is on the disk this long after it was found, at most.
constexpr std::chrono::milliseconds ritardo_massimo{1000};

/// What was asked for.
struct Ordine {
    Desiderio desiderio;
    double secondi = secondi_soliti;
    std::uint64_t seme = 1;
    std::vector<Maschera> inizio;
    std::string arrivo;
};

bool intero(const std::string& testo, std::uint64_t& valore) {
    const auto [fine, errore] = std::from_chars(testo.data(), testo.data() + testo.size(), valore);
    return errore == std::errc() && fine == testo.data() + testo.size();
}

/// Reads "SECONDS" with decimals behind a point or a comma.
std::string leggi_tempo(const suite::Parole& parole, double& secondi) {
    const std::string* detto = parole.valore("--tempo");
    if (detto == nullptr) return {};
    std::string testo = *detto;
    std::replace(testo.begin(), testo.end(), ',', '.');
    double letto = 0;
    const auto [fine, errore] = std::from_chars(testo.data(), testo.data() + testo.size(), letto);
    if (errore != std::errc() || fine != testo.data() + testo.size() || !(letto > 0) ||
        letto > secondi_massimi) {
        return "--tempo vuole un numero di secondi, al più trenta giorni: \"" + *detto +
               "\" non lo è";
    }
    secondi = letto;
    return {};
}

std::string leggi_ordine(const suite::Parole& parole, Ordine& ordine) {
    Desiderio& d = ordine.desiderio;
    for (const char* nome : {"--numeri", "--combinazione", "--garanzia", "-o"}) {
        if (!parole.ha(nome)) return std::string("cerca vuole anche ") + nome;
    }
    if (!parole.file.empty()) return "cerca scrive dove dice -o: \"" + parole.file[0] + "\" avanza";
    for (auto& [nome, valore] : {std::pair<const char*, int*>{"--numeri", &d.n},
                                 {"--combinazione", &d.k},
                                 {"--righe", &d.righe}}) {
        if (std::string errore = leggi_numero(parole, nome, *valore); !errore.empty())
            return errore;
    }
    const std::string& detta = *parole.valore("--garanzia");
    const std::size_t punti = detta.find(':');
    std::uint64_t p = 0;
    std::uint64_t t = 0;
    if (punti == std::string::npos || !intero(detta.substr(0, punti), p) ||
        !intero(detta.substr(punti + 1), t) || p > 1000 || t > 1000) {
        return "--garanzia vuole p:t, t numeri indovinati con p estratti: \"" + detta +
               "\" non lo è";
    }
    d.p = static_cast<int>(p);
    d.t = static_cast<int>(t);
    if (std::string errore = leggi_tempo(parole, ordine.secondi); !errore.empty()) return errore;
    if (const std::string* seme = parole.valore("--seme");
        seme != nullptr && !intero(*seme, ordine.seme)) {
        return "--seme vuole un numero: \"" + *seme + "\" non lo è";
    }
    ordine.arrivo = *parole.valore("-o");
    return development::impossibile(d);
}

/// Takes the table to go on from; false when it is none, which is then said.
bool leggi_inizio(const std::string& file, Ordine& ordine) {
    TabellaLetta letta = leggi_tabella(file, ordine.desiderio.n, ordine.desiderio.k);
    stampa_errori(letta);
    ordine.inizio = std::move(letta.lettura.tabella.righe);
    return letta.lettura.errori.empty();
}

/// The best table so far: told at once, written now and then, so that no stop loses it.
class Arrivo {
public:
    Arrivo(std::string file, int n, int k)
        : file_(std::move(file)),
          tabella_{n, k, {}},
          terminale_(platform::uscita_su_un_terminale()) {}

    void trovata(const std::vector<Maschera>& righe_trovate, std::uint64_t scoperti) {
        tabella_.righe = righe_trovate;
        scoperti_ = scoperti;
        da_scrivere_ = true;
        stampa((terminale_ ? "\r\033[K" : "") + stato() + "\n");
        std::fflush(stdout);
        if (Orologio::now() - scritta_ >= ritardo_massimo) scrivi();
    }
    /// Called all the time.
    void aspetta() {
        if (da_scrivere_ && Orologio::now() - scritta_ >= ritardo_massimo) scrivi();
        const auto ora = static_cast<int>(secondi());
        if (!terminale_ || ora == mostrato_) return;
        mostrato_ = ora;
        stampa("\r\033[K" + std::to_string(ora) + " s");
        std::fflush(stdout);
    }
    /// Writes what is not on the disk yet; false when it could not be.
    bool chiudi() {
        if (terminale_) stampa("\r\033[K");
        if (da_scrivere_) scrivi();
        return !da_scrivere_;
    }
    [[nodiscard]] const std::vector<Maschera>& righe_trovate() const { return tabella_.righe; }
    [[nodiscard]] std::uint64_t scoperti() const { return scoperti_; }
    [[nodiscard]] double secondi() const {
        return std::chrono::duration<double>(Orologio::now() - inizio_).count();
    }

private:
    [[nodiscard]] std::string stato() const {
        return development::colonne_in_parole(tabella_.righe.size()) + ", " +
               development::scoperti_in_parole(scoperti_) + ", " + decimale(secondi(), 1) + " s";
    }
    void scrivi() {
        scritta_ = Orologio::now();
        da_scrivere_ = platform::sostituisci(file_, development::testo_tabella(tabella_)) !=
                       platform::Esito::ok;
    }

    std::string file_;
    development::Tabella tabella_;
    std::uint64_t scoperti_ = 0;
    bool terminale_;
    bool da_scrivere_ = false;
    int mostrato_ = -1;
    Orologio::time_point inizio_ = Orologio::now();
    Orologio::time_point scritta_ = inizio_ - ritardo_massimo;
};

/// What the search came to.
int concludi(const Ordine& ordine, Arrivo& arrivo) {
    if (!arrivo.chiudi()) {
        lamenta("non posso scrivere " + platform::da_mostrare(ordine.arrivo));
        return impossibile;
    }
    if (arrivo.righe_trovate().empty()) {
        lamenta("nessuna tabella trovata in tempo");
        return garanzia_mancata;
    }
    const Desiderio& d = ordine.desiderio;
    const int limite = development::limite_inferiore(d);
    const auto quante = static_cast<int>(arrivo.righe_trovate().size());
    stampa(platform::da_mostrare(ordine.arrivo) + ": " + righe(static_cast<std::uint64_t>(quante)) +
           " di " + std::to_string(d.k) + " su " + std::to_string(d.n) + " numeri; " +
           in_parole({d.p, d.t}) + ": ");
    if (arrivo.scoperti() > 0) {
        stampa("NON VALE, " + casi(arrivo.scoperti()) + " su " +
               std::to_string(development::binomiale(d.n, d.p)) + "\n");
        return garanzia_mancata;
    }
    if (d.righe > 0) {
        const std::string oltre = development::oltre_in_parole(d, arrivo.righe_trovate());
        if (!oltre.empty()) stampa(oltre + "; ");
    }
    stampa(quante == limite ? "VALE, e con meno righe non è possibile\n"
                            : "VALE; meno di " + righe(static_cast<std::uint64_t>(limite)) +
                                  " non è possibile\n");
    return riuscito;
}

}  // namespace

int cerca(const std::vector<std::string>& parole) {
    const std::array<suite::Opzione, 8> ammesse{{{"--numeri", true},
                                                 {"--combinazione", true},
                                                 {"--garanzia", true},
                                                 {"--righe", true},
                                                 {"--tempo", true},
                                                 {"--seme", true},
                                                 {"--da", true},
                                                 {"-o", true}}};
    const suite::Parole lette = suite::leggi_parole(parole, ammesse);
    Ordine ordine;
    const std::string errore = lette.errore ? *lette.errore : leggi_ordine(lette, ordine);
    if (!errore.empty()) {
        lamenta(errore);
        return impossibile;
    }
    if (const std::string* da = lette.valore("--da"); da != nullptr && !leggi_inizio(*da, ordine))
        return impossibile;
    platform::ascolta_interruzione();
    Arrivo arrivo(ordine.arrivo, ordine.desiderio.n, ordine.desiderio.k);
    development::Condotta condotta;
    condotta.seme = ordine.seme;
    condotta.inizio = ordine.inizio;
    condotta.fermo = [&] {
        arrivo.aspetta();
        return platform::interrotto() || arrivo.secondi() >= ordine.secondi;
    };
    condotta.trovata = [&](const std::vector<Maschera>& trovate, std::uint64_t scoperti) {
        arrivo.trovata(trovate, scoperti);
    };
    development::cerca(ordine.desiderio, condotta);
    return concludi(ordine, arrivo);
}

}  // namespace ridotti
