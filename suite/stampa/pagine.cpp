// The pages of a job as they are drawn.
#include "platform/runtime.h"
#include "stampa/impaginazione.h"
#include "stampa/lavoro.h"
#include "stampa/penna.h"

namespace schedine {

namespace {

constexpr int spessore_fine = 2;
constexpr int spessore_medio = 6;
constexpr int spessore_giocato = 11;
constexpr int numeri = 90;
constexpr int numeri_riga = 10;

/// A panel on the page.
struct Pannello {
    double x = 0;
    double y = 0;
    int numero = 0;  ///< from 1, in its slip
    Colonna colonna{};
};

/// A slip's head on the page.
struct Testa {
    double y = 0;
    double alta = 0;  ///< the whole slip
    std::int64_t schedina = 0;
    bool segue = false;
    std::string importo;
};

bool giocato(const Colonna& colonna, int numero) {
    for (const int n : colonna) {
        if (n == numero) return true;
    }
    return false;
}

}  // namespace

/// Draws in passes of one font each, since a change of font costs more than the text.
class Lavoro::Ricopiare {
public:
    Ricopiare(platform::Printer& printer, const std::string& giocata)
        : penna_(printer), giocata_(giocata) {}

    void schedina(Testa testa, const std::vector<Colonna>& colonne, int da) {
        const int fino =
            std::min(static_cast<int>(colonne.size()), da + bande_pagina() * pannelli_banda);
        const int bande = std::max(1, (fino - da + pannelli_banda - 1) / pannelli_banda);
        testa.alta = alta_schedina + bande * alta_banda;
        for (int k = da; k < fino; ++k) {
            const int posto = k - da;
            const int banda = posto / pannelli_banda;
            pannelli_.push_back({bordo + margine + posto % pannelli_banda * largo_pannello,
                                 testa.y + alta_schedina + banda * alta_banda, k + 1,
                                 colonne[static_cast<std::size_t>(k)]});
        }
        teste_.push_back(std::move(testa));
    }

    void disegna() {
        tratti();
        numeri_del_pannello(false);
        numeri_del_pannello(true);
        scritte();
    }

private:
    static constexpr double largo_pannello = larghezza_utile / pannelli_banda;
    static constexpr double passo_x = 3.4;
    static constexpr double passo_y = 3.2;
    static constexpr double margine = (largo_pannello - numeri_riga * passo_x) / 2;
    static constexpr double titolo = 3.8;
    static constexpr int righe = numeri / numeri_riga;

    void tratti();
    void numeri_del_pannello(bool giocati);
    void scritte();

    Penna penna_;
    const std::string& giocata_;
    std::vector<Testa> teste_;
    std::vector<Pannello> pannelli_;
};

void Lavoro::Ricopiare::tratti() {
    constexpr double lato = 4;
    for (const Testa& t : teste_) {
        penna_.spessore(spessore_medio);
        penna_.riquadro(bordo, t.y, larghezza_utile, t.alta);
        penna_.riquadro(bordo + 2, t.y + 1.7, lato, lato);
    }
    penna_.spessore(spessore_fine);
    for (const Pannello& p : pannelli_) {
        const double y = p.y + titolo;
        for (int i = 0; i <= righe; ++i) {
            penna_.tratto(p.x, y + i * passo_y, p.x + numeri_riga * passo_x, y + i * passo_y);
        }
        for (int i = 0; i <= numeri_riga; ++i) {
            penna_.tratto(p.x + i * passo_x, y, p.x + i * passo_x, y + righe * passo_y);
        }
    }
    penna_.spessore(spessore_giocato);
    for (const Pannello& p : pannelli_) {
        for (const int n : p.colonna) {
            if (n == 0) continue;
            const int i = n - 1;
            const int riga = i / numeri_riga;
            penna_.riquadro(p.x + i % numeri_riga * passo_x, p.y + titolo + riga * passo_y, passo_x,
                            passo_y);
        }
    }
}

void Lavoro::Ricopiare::numeri_del_pannello(bool giocati) {
    penna_.carattere(giocati ? 7.5F : 5.5F, giocati);
    const double sopra = (passo_y - penna_.alto()) / 2;
    for (const Pannello& p : pannelli_) {
        for (int n = 1; n <= numeri; ++n) {
            if (giocato(p.colonna, n) != giocati) continue;
            const int i = n - 1;
            const int riga = i / numeri_riga;
            penna_.testo(p.x + (i % numeri_riga + 0.5) * passo_x,
                         p.y + titolo + riga * passo_y + sopra, std::to_string(n), Verso::centro);
        }
    }
}

void Lavoro::Ricopiare::scritte() {
    constexpr double sotto_griglia = 0.9;
    const double fine = bordo + larghezza_utile - 2;
    penna_.carattere(9, true);
    for (const Pannello& p : pannelli_) {
        penna_.testo(p.x + numeri_riga * passo_x / 2,
                     p.y + titolo + righe * passo_y + sotto_griglia, in_chiaro(p.colonna),
                     Verso::centro);
    }
    penna_.carattere(11, true);
    for (const Testa& t : teste_) {
        penna_.testo(bordo + 8, t.y + 1.4,
                     "Schedina n. " + std::to_string(t.schedina) + (t.segue ? " (segue)" : ""));
        if (!t.importo.empty()) penna_.testo(fine, t.y + 1.4, t.importo, Verso::a);
    }
    penna_.carattere(7, false);
    for (const Pannello& p : pannelli_) {
        penna_.testo(p.x, p.y + 0.5, "Pannello " + std::to_string(p.numero));
    }
    constexpr double dopo_importo = 34;
    for (const Testa& t : teste_) {
        if (!giocata_.empty()) penna_.testo(fine - dopo_importo, t.y + 2.5, giocata_, Verso::a);
    }
}

/// The dense list, in strips down the page.
class Lavoro::Elenco {
public:
    Elenco(platform::Printer& printer, bool grande) : penna_(printer), s_(strisce(grande)) {}

    /// Lines of a slip from `da` on, in strip `striscia`, from line `riga`; the next line not
    /// drawn.
    int schedina(const Testa& testa, const std::vector<Colonna>& colonne, int da, int striscia,
                 int riga) {
        const int fino = std::min(static_cast<int>(colonne.size()), da + s_.righe - 1 - riga);
        const double x = bordo + striscia * s_.larga;
        double y = alto_pagina + riga * s_.riga;
        const double lato = s_.riga * 0.7;
        penna_.spessore(spessore_fine * 2);
        if (da == 0) penna_.riquadro(x, y + s_.riga * 0.1, lato, lato);
        penna_.carattere(s_.corpo, true);
        penna_.testo(x + s_.riga, y,
                     "n. " + std::to_string(testa.schedina) + (da > 0 ? " (segue)" : ""));
        if (da == 0) penna_.testo(x + s_.larga - 4, y, testa.importo, Verso::a);
        penna_.carattere(s_.corpo, false);
        for (int k = da; k < fino; ++k) {
            y += s_.riga;
            const std::string numero = std::to_string(k + 1);
            penna_.testo(x, y,
                         std::string(numero.size() < 2 ? 1 : 0, ' ') + numero + ") " +
                             in_chiaro(colonne[static_cast<std::size_t>(k)]));
        }
        return fino;
    }
    [[nodiscard]] const Strisce& misure() const { return s_; }

private:
    Penna penna_;
    Strisce s_;
};

void Lavoro::testata(platform::Printer& printer, const char* titolo, std::int64_t pagina) const {
    Penna penna(printer);
    constexpr double y = 10;
    const double fine = bordo + larghezza_utile;
    penna.carattere(10, true);
    penna.testo(bordo, y, std::string(titolo) + ": " + o_.sistema);
    penna.carattere(8, false);
    std::string sotto = o_.gioco.nome();
    if (o_.gioco.e_lotto()) sotto += std::string(", ") + o_.gioco.nome_combinazioni();
    if (const std::string come = giocata(); !come.empty()) sotto += ", " + come;
    penna.testo(bordo, y + 4.3, sotto);
    penna.testo(
        fine, y + 4.3,
        "Foglio " + platform::Format(static_cast<double>(pagina), platform::Modello::interi) +
            " di " + platform::Format(static_cast<double>(pagine()), platform::Modello::interi),
        Verso::a);
}

bool Lavoro::disegna(platform::Printer& printer, std::int64_t pagina) {
    const Tratto t = tratto(pagina);
    std::vector<Colonna> lette;
    printer.FontName = "Courier New";
    if (o_.genere == Genere::modulo) {
        if (!colonne(t.prima, lette)) return false;
        disegna_modulo(printer, lette);
        return true;
    }
    const bool ricopiare = o_.genere == Genere::ricopiare;
    testata(printer, ricopiare ? "Schedine da ricopiare" : "Elenco delle schedine", pagina);
    const std::string come = giocata();
    Ricopiare pannelli(printer, come);
    Elenco elenco(printer, o_.grande);
    const Strisce& s = elenco.misure();
    double y = alto_pagina;
    int striscia = 0;
    int riga = 0;
    for (std::int64_t n = t.prima; n <= t.ultima; ++n) {
        if (!colonne(n, lette)) return false;
        Testa testa{y, 0, n, t.parte > 0, importo(static_cast<std::int64_t>(lette.size()))};
        const int quante = per_schedina();
        if (ricopiare) {
            const int bande = (quante + pannelli_banda - 1) / pannelli_banda;
            pannelli.schedina(std::move(testa), lette, t.parte * bande_pagina() * pannelli_banda);
            y += alta_schedina + bande * alta_banda + stacco;
            continue;
        }
        int da = t.parte * s.quante * (s.righe - 1);
        if (schedine_striscia(quante, s) == 0) {
            for (; da < static_cast<int>(lette.size()) && striscia < s.quante; ++striscia) {
                da = elenco.schedina(testa, lette, da, striscia, 0);
            }
            continue;
        }
        elenco.schedina(testa, lette, 0, striscia, riga);
        riga += 1 + quante + righe_stacco;
        if (riga + 1 + quante > s.righe) {
            riga = 0;
            ++striscia;
        }
    }
    if (ricopiare) pannelli.disegna();
    return true;
}

void disegna_prova(platform::Printer& printer, const Modulo& modulo) {
    Penna penna(printer);
    constexpr double al_millimetro = 10;
    constexpr double braccio = 1.5;
    const auto croce = [&](Punto p) {
        const double x = p.x / al_millimetro;
        const double y = p.y / al_millimetro;
        penna.tratto(x - braccio, y, x + braccio, y);
        penna.tratto(x, y - braccio, x, y + braccio);
    };
    penna.spessore(spessore_fine);
    for (std::size_t k = 0; k < modulo.pannelli.size(); ++k) {
        for (int n = 1; n <= numeri; ++n) croce(sul_foglio(modulo, cella(modulo, k, n)));
    }
    const auto posto = [](Posto p) {
        return Punto{static_cast<double>(p.x), static_cast<double>(p.y)};
    };
    for (const PostoRuota& r : modulo.ruote) croce(sul_foglio(modulo, posto(r.dove)));
    for (const PostoPosta& p : modulo.poste) croce(sul_foglio(modulo, posto(p.dove)));
    // Two rulers from the corner of the sheet, in millimetres of the printer's own.
    const Punto foglio = foglio_stampato(modulo);
    for (int mm = 1; mm < foglio.x / al_millimetro; ++mm) {
        penna.tratto(mm, 0, mm, mm % 10 == 0 ? 4 : mm % 5 == 0 ? 3 : 2);
    }
    for (int mm = 1; mm < foglio.y / al_millimetro; ++mm) {
        penna.tratto(0, mm, mm % 10 == 0 ? 4 : mm % 5 == 0 ? 3 : 2, mm);
    }
}

}  // namespace schedine
