#include "statistics/generatore.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <vector>

#include "crossword/linee.h"

namespace statistics {

namespace {

using crossword::Matrice;

enum Gruppo : std::size_t { a, b, c, d, e, gruppi };
using Quote = std::array<int, gruppi>;

/// From this draw on, a cell that found no number has its quotas raised.
constexpr int pazienza = 90;

/// The cell under work.
struct Cella {
    int riga;
    int colonna;
    std::bitset<91> vietati;
};

/// Quotas of the row under work and of every column.
class Regole {
public:
    Regole(const Graduatoria& statistica, const Matrice& matrice, const Quote& iniziali)
        : statistica_(statistica),
          righe_(matrice.righe()),
          colonne_(matrice.colonne()),
          iniziali_(iniziali),
          riga_(iniziali),
          quote_colonne_(static_cast<std::size_t>(matrice.colonne()), iniziali) {}
    Regole(const Regole&) = delete;
    Regole& operator=(const Regole&) = delete;
    virtual ~Regole() = default;

    void nuova_riga() { riga_ = iniziali_; }
    /// True when some draw will be accepted in the cell, sooner or later.
    [[nodiscard]] bool riempibile(const Cella& cella) {
        for (int p = 1; p <= 90; ++p) {
            if (!vietata(cella, p) && raggiungibile(cella, p)) return true;
        }
        return false;
    }
    /// Judges one draw and spends the quotas of one it accepts.
    virtual bool accetta(const Cella& cella, int p) = 0;

    [[nodiscard]] const Voce& voce(int p) const { return statistica_[static_cast<std::size_t>(p)]; }
    /// The group that the number of entry `p` spends from.
    [[nodiscard]] virtual std::uint8_t classe(int p) const = 0;

protected:
    /// True when entry `p`, which no line bars, can be accepted once the quotas that grow have
    /// grown.
    [[nodiscard]] virtual bool raggiungibile(const Cella& cella, int p) = 0;

    [[nodiscard]] bool vietata(const Cella& cella, int p) const {
        const int numero = voce(p).numero;
        return numero < 1 || numero > 90 || cella.vietati.test(static_cast<std::size_t>(numero));
    }
    Quote& riga() { return riga_; }
    Quote& colonna(const Cella& cella) {
        return quote_colonne_[static_cast<std::size_t>(cella.colonna)];
    }
    [[nodiscard]] int righe() const { return righe_; }
    [[nodiscard]] int colonne() const { return colonne_; }
    /// Counts a draw; true when it is the ninetieth or a later one without a number.
    bool conta() { return ++tentativi_ >= pazienza; }
    void ricomincia() { tentativi_ = 0; }
    void rilassa(const Cella& cella, Gruppo g) {
        ++riga_[g];
        ++colonna(cella)[g];
    }
    void spendi(const Cella& cella, Gruppo g) {
        --riga_[g];
        --colonna(cella)[g];
    }

private:
    const Graduatoria& statistica_;
    int righe_;
    int colonne_;
    Quote iniziali_;
    Quote riga_;
    std::vector<Quote> quote_colonne_;
    int tentativi_ = 0;
};

class RegoleSuperEnalotto : public Regole {
public:
    RegoleSuperEnalotto(const Graduatoria& statistica, const Matrice& matrice)
        : Regole(statistica, matrice,
                 matrice.righe() > 10 ? Quote{6, 3, 3, 2, 2} : Quote{5, 2, 2, 1, 1}) {}

    bool accetta(const Cella& cella, int p) override {
        // The count goes on until a number fits: every later draw raises the quotas again.
        if (conta()) rilassa(cella, a);
        const Gruppo g = gruppo(p);
        if (riga()[g] < 1 || vietata(cella, p) || colonna(cella)[g] < 1) return false;
        spendi(cella, g);
        ricomincia();
        return true;
    }
    [[nodiscard]] std::uint8_t classe(int p) const override {
        return static_cast<std::uint8_t>(gruppo(p) + 1);
    }

protected:
    bool raggiungibile(const Cella& cella, int p) override {
        const Gruppo g = gruppo(p);
        return g == a || (riga()[g] > 0 && colonna(cella)[g] > 0);
    }

private:
    static Gruppo gruppo(int p) {
        if (p <= 11) return d;
        if (p <= 25) return b;
        if (p <= 56) return a;
        return p <= 79 ? c : e;
    }
};

class RegoleLotto : public Regole {
public:
    RegoleLotto(const Graduatoria& statistica, const Matrice& matrice)
        : Regole(statistica, matrice, Quote{3, 4, 2, 2, 0}) {}

    bool accetta(const Cella& cella, int p) override {
        if (vietata(cella, p)) return false;
        if (conta()) {
            rilassa(cella, b);
            ricomincia();
        }
        const Classe classe = voce(p).classe;
        if (classe != Classe::b && riservata(cella)) return false;
        if (!c_e_posto(cella, classe)) return false;
        if (classe == Classe::ab) {
            spendi(cella, a);
            spendi(cella, b);
        } else {
            spendi(cella, gruppo(classe));
        }
        ricomincia();
        return true;
    }
    [[nodiscard]] std::uint8_t classe(int p) const override {
        return static_cast<std::uint8_t>(voce(p).classe);
    }

protected:
    bool raggiungibile(const Cella& cella, int p) override {
        // The quotas of b grow past every bar they make; nothing else grows.
        switch (voce(p).classe) {
            case Classe::b:
                return true;
            case Classe::ab:
                return riga()[a] != 0 && colonna(cella)[a] > 0;
            case Classe::c:
                return riga()[c] != 0 && colonna(cella)[c] > 0;
            case Classe::d:
                return riga()[d] != 0 && colonna(cella)[d] > 0;
            case Classe::nessuna:
                break;
        }
        return false;
    }

private:
    static Gruppo gruppo(Classe classe) {
        if (classe == Classe::c) return c;
        return classe == Classe::d ? d : b;
    }
    /// The last two rows keep themselves for class b while much of its quota is unspent.
    bool riservata(const Cella& cella) {
        for (int k = 1; k <= 2; ++k) {
            if (cella.riga != righe() - k) continue;
            if (riga()[b] == k + 2) return true;
            if (cella.colonna == colonne() - k && colonna(cella)[b] == k + 2) return true;
        }
        return false;
    }
    bool c_e_posto(const Cella& cella, Classe classe) {
        if (classe == Classe::nessuna) return false;
        // An "ab" asks nothing of its column's quota of b, which may thus fall below nothing.
        if (classe == Classe::ab) return riga()[a] != 0 && riga()[b] != 0 && colonna(cella)[a] > 0;
        const Gruppo g = gruppo(classe);
        return riga()[g] != 0 && colonna(cella)[g] > 0;
    }
};

Generazione riempi(Regole& regole, Matrice& matrice, platform::Rnd& rnd, const Seguito& seguito) {
    Generazione esito;
    const int righe = matrice.righe();
    const int colonne = matrice.colonne();
    if (seguito.barra) seguito.barra(righe * colonne);
    for (int riga = 0; riga < righe; ++riga) {
        regole.nuova_riga();
        for (int colonna = 0; colonna < colonne; ++colonna) {
            const Cella cella{riga, colonna, crossword::numeri_sulle_linee(matrice, riga, colonna)};
            if (!regole.riempibile(cella)) return esito;
            int p = 0;
            do {
                p = rnd.fino_a(90);
                ++esito.sorteggi;
            } while (!regole.accetta(cella, p));
            const std::int16_t numero = regole.voce(p).numero;
            matrice.scrivi(colonna, riga, numero);
            if (seguito.posata && !seguito.posata(riga, colonna, numero)) {
                esito.conclusione = EsitoRiempimento::interrotta;
                return esito;
            }
        }
    }
    for (int p = 1; p <= 90; ++p) {
        const auto numero = static_cast<std::size_t>(regole.voce(p).numero);
        if (numero < esito.classi.size()) esito.classi[numero] = regole.classe(p);
    }
    esito.conclusione = EsitoRiempimento::completa;
    return esito;
}

}  // namespace

Generazione riempi_casuale(const Graduatoria& statistica, Matrice& matrice, platform::Rnd& rnd,
                           const Seguito& seguito) {
    RegoleSuperEnalotto regole(statistica, matrice);
    return riempi(regole, matrice, rnd, seguito);
}

Generazione riempi_casuale_lotto(const Graduatoria& statistica, Matrice& matrice,
                                 platform::Rnd& rnd, const Seguito& seguito) {
    RegoleLotto regole(statistica, matrice);
    return riempi(regole, matrice, rnd, seguito);
}

bool bastano_estrazioni(LettoreEstrazioni& draws) {
    return draws.MoveLast() && draws.RecordCount() >= 100;
}

Generazione genera_statistico(crossword::Gioco gioco, Statistico& statistico,
                              LettoreEstrazioni& draws, const std::string& file, Matrice& matrice,
                              platform::Rnd& rnd, const Seguito& seguito) {
    if (!draws.MoveLast()) return {};
    if (!gioco.e_lotto()) {
        if (!statistico.statistica_ritardi(draws, file, seguito.barra)) return {};
        return riempi_casuale(statistico.statistica(), matrice, rnd, seguito);
    }
    if (!statistico.statistica_ritardi_lotto(draws, seguito.barra)) return {};
    const Generazione esito = riempi_casuale_lotto(statistico.statistica(), matrice, rnd, seguito);
    statistico.azzera();
    return esito;
}

}  // namespace statistics
