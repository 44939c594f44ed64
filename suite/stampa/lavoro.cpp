#include "stampa/lavoro.h"

#include <algorithm>
#include <utility>

#include "platform/file_nuovo.h"
#include "platform/runtime.h"
#include "stampa/impaginazione.h"
#include "stampa/penna.h"
#include "statistics/archivio.h"

namespace schedine {

namespace {

constexpr double centesimi_all_euro = 100;

std::int64_t per_eccesso(std::int64_t quante, std::int64_t di) {
    return (quante + di - 1) / di;
}

}  // namespace

std::string in_chiaro(const Colonna& colonna) {
    std::string testo;
    for (const int numero : colonna) {
        if (numero == 0) break;
        if (!testo.empty()) testo += ' ';
        if (numero < 10) testo += '0';
        testo += std::to_string(numero);
    }
    return testo;
}

Lavoro::Lavoro(Sviluppo& sviluppo, Opzioni opzioni) : sviluppo_(sviluppo), o_(std::move(opzioni)) {
    const std::int64_t tutte = schedine();
    if (o_.alla < 1 || o_.alla > tutte) o_.alla = tutte;
    o_.dalla = std::clamp(o_.dalla, std::int64_t{1}, std::max(std::int64_t{1}, o_.alla));
    impagina();
}

void Lavoro::impagina() {
    if (o_.genere == Genere::modulo) return;
    const Impaginazione i = o_.genere == Genere::ricopiare
                                ? impagina_pannelli(per_schedina())
                                : impagina_elenco(per_schedina(), o_.grande);
    per_pagina_ = i.per_pagina;
    pagine_per_schedina_ = i.pagine_per_schedina;
}

int Lavoro::per_schedina() const {
    const auto pannelli = static_cast<int>(o_.modulo.pannelli.size());
    return std::max(1, o_.genere == Genere::modulo ? pannelli : o_.per_schedina);
}

std::int64_t Lavoro::schedine() const {
    return per_eccesso(sviluppo_.colonne(), per_schedina());
}

std::int64_t Lavoro::pagine() const {
    const std::int64_t quante = o_.alla - o_.dalla + 1;
    return per_pagina_ > 0 ? per_eccesso(quante, per_pagina_) : quante * pagine_per_schedina_;
}

double Lavoro::costo(std::int64_t colonne) const {
    const double una = o_.gioco.e_lotto() ? o_.giocata.centesimi / centesimi_all_euro : o_.prezzo;
    return static_cast<double>(colonne) * una;
}

Conto Lavoro::conto() const {
    const std::int64_t c = per_schedina();
    Conto conto;
    conto.schedine = o_.alla - o_.dalla + 1;
    conto.colonne = std::min(sviluppo_.colonne(), o_.alla * c) - (o_.dalla - 1) * c;
    conto.fogli = pagine();
    conto.importo = costo(conto.colonne);
    return conto;
}

std::string Lavoro::importo(std::int64_t colonne) const {
    const double quanto = costo(colonne);
    if (quanto <= 0) return {};
    return o_.valuta + " " + platform::Format(quanto, platform::Modello::decimali_zero);
}

std::string Lavoro::giocata() const {
    if (!o_.gioco.e_lotto()) return {};
    constexpr std::size_t per_esteso = 3;
    std::string testo;
    for (const std::size_t r : o_.giocata.ruote) {
        const statistics::Ruota& ruota = statistics::ruote[r];
        const bool nome = o_.giocata.ruote.size() <= per_esteso;
        testo += (testo.empty() ? "" : " ") + std::string(nome ? ruota.nome : ruota.codice);
    }
    if (o_.giocata.centesimi > 0) {
        testo += (testo.empty() ? "Posta " : "  Posta ") +
                 platform::Format(o_.giocata.centesimi / centesimi_all_euro,
                                  platform::Modello::decimali_zero);
    }
    return testo;
}

Lavoro::Tratto Lavoro::tratto(std::int64_t pagina) const {
    if (per_pagina_ == 0) {
        const std::int64_t schedina = o_.dalla + (pagina - 1) / pagine_per_schedina_;
        return {schedina, schedina, static_cast<int>((pagina - 1) % pagine_per_schedina_)};
    }
    const std::int64_t prima = o_.dalla + (pagina - 1) * per_pagina_;
    return {prima, std::min(o_.alla, prima + per_pagina_ - 1), 0};
}

Punto Lavoro::foglio() const {
    constexpr Punto a4{2100, 2970};
    return o_.genere == Genere::modulo ? foglio_stampato(o_.modulo) : a4;
}

bool Lavoro::colonne(std::int64_t schedina, std::vector<Colonna>& colonne) {
    const int c = per_schedina();
    return sviluppo_.leggi((schedina - 1) * c + 1, c, colonne);
}

void Lavoro::disegna_modulo(platform::Printer& printer, const std::vector<Colonna>& colonne) const {
    Penna penna(printer);
    const Punto misura = segno_stampato(o_.modulo);
    constexpr double al_millimetro = 10;
    const double largo = misura.x / al_millimetro;
    const double alto = misura.y / al_millimetro;
    const bool croce = o_.modulo.forma == Forma::croce;
    // The outline of a filled mark would make it larger than it is told.
    penna.spessore(croce ? 10 : 0);
    penna.pieno(!croce);
    // Opens the page also of a slip without marks.
    printer.Line(0, 0, 0, 0);
    for (const Punto& centro : segni(o_.modulo, colonne, o_.giocata)) {
        const double x = centro.x / al_millimetro - largo / 2;
        const double y = centro.y / al_millimetro - alto / 2;
        if (croce) {
            penna.tratto(x, y, x + largo, y + alto);
            penna.tratto(x, y + alto, x + largo, y);
        } else if (o_.modulo.forma == Forma::ovale) {
            penna.ovale(x, y, largo, alto);
        } else {
            penna.riquadro(x, y, largo, alto);
        }
    }
    penna.pieno(false);
}

Fine disegna(platform::Printer& printer, platform::Screen& screen, Lavoro& lavoro,
             std::int64_t prima, std::int64_t ultima, std::int64_t fatte, std::int64_t tutte) {
    Fine fine = Fine::stampato;
    for (std::int64_t pagina = prima; pagina <= ultima && fine == Fine::stampato; ++pagina) {
        if (pagina > prima) printer.NewPage();
        const std::int64_t ora = fatte + pagina - prima;
        if (!lavoro.disegna(printer, pagina)) {
            fine = Fine::cambiato;
        } else if (printer.perso()) {
            fine = Fine::perso;
        } else if (!screen.avanza(static_cast<int>(ora + 1),
                                  static_cast<double>(ora + 1) / static_cast<double>(tutte))) {
            fine = Fine::fermato;
        }
    }
    return fine;
}

Fine concludi(platform::Printer& printer, Fine fine) {
    if (fine == Fine::stampato) return printer.EndDoc() ? Fine::stampato : Fine::perso;
    printer.KillDoc();
    return fine;
}

bool esporta(const std::string& file, platform::Screen& screen, Lavoro& lavoro,
             std::string& motivo) {
    constexpr std::int64_t ogni = 256;
    platform::FileNuovo nuovo(file);
    std::vector<Colonna> colonne;
    const std::int64_t dalla = lavoro.opzioni().dalla;
    const std::int64_t alla = lavoro.opzioni().alla;
    for (std::int64_t s = dalla; s <= alla; ++s) {
        if (!lavoro.colonne(s, colonne)) {
            motivo = "lo sviluppo nel frattempo è cambiato";
            return false;
        }
        std::string riga = std::to_string(s);
        for (const Colonna& c : colonne) riga += ";" + in_chiaro(c);
        nuovo.scrivi(riga + "\r\n");
        const double parte =
            static_cast<double>(s - dalla + 1) / static_cast<double>(alla - dalla + 1);
        if (s % ogni == 0 && !screen.avanza(static_cast<int>(s), parte)) return false;
        if (nuovo.esito() != platform::Esito::ok) break;
    }
    const platform::Esito esito = nuovo.pubblica();
    if (esito == platform::Esito::ok) return true;
    motivo = platform::perche_non_si_scrive(file, esito);
    return false;
}

}  // namespace schedine
