#include "printing/prospetto.h"

#include <vector>

#include "platform/runtime.h"

namespace printing {

using platform::Printer;

namespace {

/// How the numbers of a grid are set, by its last column.
struct Misura {
    int colonna;
    float corpo;
    float passo;
    float divisore;
};

constexpr std::array<Misura, 10> misure = {{{14, 27, 1.25F, 15},
                                            {13, 29, 1.25F, 10},
                                            {12, 32, 1.25F, 4},
                                            {11, 35, 1.25F, 3.5F},
                                            {10, 38, 1.25F, 2.5F},
                                            {9, 41, 1.25F, 2.25F},
                                            {8, 46, 1.25F, 2},
                                            {7, 49, 1.25F, 2},
                                            {6, 54, 1.5F, 1.75F},
                                            {5, 61, 1.5F, 1.75F}}};

Misura misura_di(int nc) {
    for (const Misura& m : misure) {
        if (m.colonna == nc) return m;
    }
    return {nc, static_cast<float>(72 - nc), 1.5F, 1.5F};
}

/// Columns of the table, as offsets from the left edge.
struct Colonna {
    float da;
    float a;
    const char* titolo;
};
constexpr Colonna sistemi{0, 15, "Sistemi"};
constexpr Colonna quantita{15, 27, "Quantità"};
constexpr Colonna tipo{27, 58.5F, "Tipo"};
constexpr Colonna combinazioni{58.5F, 90, "Combinazioni x Sistema"};

constexpr float corpo_tabella = 12;

std::string sostituisci(std::string testo, std::string_view vecchio, std::string_view nuovo) {
    for (std::size_t i = 0; (i = testo.find(vecchio, i)) != std::string::npos; i += nuovo.size()) {
        testo.replace(i, vecchio.size(), nuovo);
    }
    return testo;
}

std::string maiuscolo(std::string testo) {
    for (char& c : testo) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return testo;
}

class Pagina {
public:
    Pagina(Printer& printer, const Prospetto& prospetto)
        : r_(printer),
          p_(prospetto),
          nc_(prospetto.matrice.ubound(1)),
          nr_(prospetto.matrice.ubound(2)) {}

    void disegna() {
        titoli();
        griglia();
        tabella();
        if (!p_.gioco.e_lotto()) prezzo();
        nota();
    }

private:
    void titoli();
    void griglia();
    void colonne(const Misura& misura);
    void numeri(float spostamento);
    void tabella();
    void cella(const Colonna& colonna, const std::string& testo, bool abbassa) {
        scrivi_cella(r_, testo, x0_, colonna.da, colonna.a, abbassa);
    }
    void nome(const char* testo, float fino);
    void riga_superenalotto(const RigaProspetto& riga, const char* titolo, float passo);
    void diagonali_superenalotto(const RigaProspetto& riga);
    [[nodiscard]] static bool una_riga(const RigaProspetto& riga);
    void riga_lotto(const RigaProspetto& riga, const char* titolo, float passo);
    void tipo_in_piccolo(const RigaProspetto& riga);
    void diagonali_lotto(const RigaProspetto& riga);
    void totale(const char* titolo, const std::string& valore);
    void filetti_tabella(float t);
    void prezzo();
    void nota();

    Printer& r_;
    const Prospetto& p_;
    int nc_;
    int nr_;
    float x0_ = 0;
    std::vector<float> xp_;
    std::vector<float> yp_;
};

void Pagina::titoli() {
    r_.CurrentY -= r_.TextHeight("0") * 1.5F;
    titolo_centrato(r_, p_.gioco.e_lotto() ? "Cruciverba Lotto" : "Cruciverba SuperEnalotto", 32);
    r_.CurrentY -= r_.TextHeight("0");
    titolo_centrato(r_, "Numeri in gioco: " + p_.in_gioco, 12);
    r_.CurrentY -= 2 * r_.TextHeight("0");
    r_.Print();
}

void Pagina::colonne(const Misura& misura) {
    xp_.clear();
    for (int i = 0; i <= nc_ + 1; ++i) {
        const float largo = r_.TextWidth(std::string(static_cast<std::size_t>(i), ' '));
        xp_.push_back(largo + (largo - 1) * misura.passo);
    }
    const float sinistra = r_.ScaleWidth() / 2 - xp_.back() / 2;
    for (float& x : xp_) x = sinistra + x - 1.5F;
}

void Pagina::numeri(float spostamento) {
    float y = r_.CurrentY;
    yp_.clear();
    r_.FontBold = false;
    for (int j = 0; j <= nr_; ++j) {
        yp_.push_back(y);
        for (int i = 0; i <= nc_; ++i) {
            const auto k = static_cast<std::size_t>(i);
            const std::int16_t numero = p_.matrice(i, j);
            r_.CurrentY = y;
            r_.CurrentX = xp_[k] + (xp_[k + 1] - xp_[k]) / 2 -
                          r_.TextWidth(std::to_string(numero)) / 2 - spostamento;
            r_.Print(std::int64_t{numero});
        }
        y = r_.CurrentY;
    }
    yp_.push_back(y);
    r_.CurrentY = y;
}

void Pagina::griglia() {
    const Misura misura = misura_di(nc_);
    r_.FontSize = misura.corpo;
    colonne(misura);
    numeri(r_.TextWidth(" ") / misura.divisore);
    constexpr float scarto = 2.5F;
    const float sopra = yp_.front();
    const float sotto = yp_.back();
    for (const float y : yp_) r_.Line(xp_.front() + scarto, y, xp_.back() + scarto, y);
    for (const float x : xp_) r_.Line(x + scarto, sopra, x + scarto, sotto);
    r_.CurrentY = sotto + 0.5F;
    titolo_centrato(r_, "Si leggono Orizzontali, Verticali e Diagonali*", 12);
}

void Pagina::nome(const char* testo, float fino) {
    r_.FontBold = true;
    scrivi_cella(r_, testo, x0_, sistemi.da, fino, true);
    r_.FontBold = false;
}

void Pagina::riga_superenalotto(const RigaProspetto& riga, const char* titolo, float passo) {
    constexpr int ultimo_breve = 3;
    const float y = r_.CurrentY;
    nome(titolo, sistemi.a);
    cella(quantita, riga.quantita, true);
    if (riga.indice <= ultimo_breve) {
        cella(tipo, riga.tipo, true);
    } else {
        std::string corto = sostituisci(riga.tipo, "Sestine", "Sest.");
        corto = sostituisci(corto, "estratti", "estr.");
        corto = sostituisci(corto, " - ", " ");
        r_.FontSize = 10;
        cella(tipo, corto, true);
        r_.FontSize = corpo_tabella;
    }
    cella(combinazioni, riga.combinazioni, true);
    r_.CurrentY = y + passo;
}

void Pagina::diagonali_superenalotto(const RigaProspetto& riga) {
    nome("Diagonali", sistemi.a);
    cella(quantita, riga.quantita, true);
    cella(tipo, riga.tipo, true);
    cella(combinazioni, prima_parte(riga.combinazioni), false);
    r_.Print();
    cella(combinazioni, seconda_parte(riga.combinazioni), false);
    r_.CurrentY += 1.5F;
}

bool Pagina::una_riga(const RigaProspetto& riga) {
    return riga.indice == 0 || riga.tipo.find("Autoridotto") != std::string::npos;
}

void Pagina::tipo_in_piccolo(const RigaProspetto& riga) {
    const float y = r_.CurrentY;
    r_.FontSize = 8;
    r_.CurrentY += 0.375F;
    cella(tipo, tipo_prima_riga(riga.tipo), false);
    r_.CurrentY -= 1;
    r_.FontSize = corpo_tabella;
    r_.Print();
    r_.FontSize = 8;
    r_.CurrentY += 0.5F;
    cella(tipo, tipo_seconda_riga(riga.tipo), false);
    r_.CurrentY -= 1;
    r_.FontSize = corpo_tabella;
    r_.CurrentY = y;
}

void Pagina::riga_lotto(const RigaProspetto& riga, const char* titolo, float passo) {
    const float y = r_.CurrentY;
    nome(titolo, sistemi.a);
    cella(quantita, riga.quantita, true);
    if (una_riga(riga)) {
        cella(tipo, riga.tipo, true);
    } else {
        tipo_in_piccolo(riga);
    }
    cella(combinazioni, riga.combinazioni, true);
    r_.CurrentY = y + passo;
}

void Pagina::diagonali_lotto(const RigaProspetto& riga) {
    const float y = r_.CurrentY;
    nome("Diagonali", sistemi.a);
    cella(quantita, riga.quantita, true);
    if (una_riga(riga)) {
        cella(tipo, riga.tipo, true);
        r_.CurrentY = y + 0.5F;
        cella(combinazioni, riga.combinazioni, false);
        r_.CurrentY = y + 2.3F;
        return;
    }
    cella(tipo, tipo_prima_riga(riga.tipo), false);
    r_.Print();
    cella(tipo, tipo_seconda_riga(riga.tipo), false);
    r_.CurrentY -= 0.5F;
    cella(combinazioni, riga.combinazioni, false);
    // From where the pen stands: from the row's own height the total would lie under a rule.
    r_.CurrentY += 1.8F;
}

void Pagina::totale(const char* titolo, const std::string& valore) {
    const float y = r_.CurrentY;
    nome(titolo, tipo.a);
    cella(combinazioni, valore, true);
    r_.CurrentY = y + 1.5F;
}

void Pagina::filetti_tabella(float t) {
    for (const float y : {-0.25F, 1.25F, 2.75F, 4.25F, 7.25F, 8.75F, 10.25F}) {
        r_.Line(x0_, t + y, x0_ + larghezza_colonna, t + y);
    }
    constexpr float fino_ai_totali = 7.25F;
    constexpr float fino_in_fondo = 10.25F;
    const auto verticale = [this, t](float x, float fino) {
        r_.Line(x0_ + x, t - 0.25F, x0_ + x, t + fino);
    };
    verticale(0, fino_in_fondo);
    verticale(15, fino_ai_totali);
    verticale(27, fino_ai_totali);
    verticale(58.5F, fino_in_fondo);
    verticale(90, fino_in_fondo);
}

void Pagina::tabella() {
    x0_ = bordo_sinistro(r_);
    r_.FontSize = corpo_tabella;
    const float t = yp_.back() + 2.5F;
    r_.CurrentY = t;
    r_.FontBold = true;
    for (const Colonna& c : {sistemi, quantita, tipo, combinazioni}) cella(c, c.titolo, false);
    r_.CurrentY += 1;
    if (p_.gioco.e_lotto()) {
        riga_lotto(p_.righe[0], "Orizzontali", 1.5F);
        riga_lotto(p_.righe[1], "Verticali", 2.125F);
        diagonali_lotto(p_.righe[2]);
    } else {
        riga_superenalotto(p_.righe[0], "Orizzontali", 1.5F);
        riga_superenalotto(p_.righe[1], "Verticali", 2);
        diagonali_superenalotto(p_.righe[2]);
    }
    totale("Numero Totale Combinazioni del Sistema", p_.totale);
    totale("Num. Tot. Comb. del Sistema (Senza Ripetizioni)", p_.senza_ripetizioni);
    filetti_tabella(t);
    r_.Print();
}

void Pagina::prezzo() {
    const bool una = platform::Val(p_.quote) == 1;
    titolo_riquadro(r_,
                    p_.quote + (una ? " QUOTA DA " : " QUOTE DA ") + maiuscolo(p_.valuta) + " " +
                        p_.quota + (una ? "" : " CADAUNA"),
                    14);
    titolo_riquadro(r_, "IMPORTO TOTALE DEL SISTEMA: " + p_.valuta + " " + p_.importo, 16);
    r_.CurrentY -= 0.5F;
}

void Pagina::nota() {
    constexpr int ultima_da_due = 5;
    constexpr std::uint8_t corpo = 10;
    if (p_.gioco.e_lotto()) {
        titolo_centrato(
            r_,
            nc_ == nr_ ? "* Si devono prendere in considerazione solo le 2 diagonali principali."
                       : "* I Sistemi diagonali vengono sviluppati solo con i Cruciverba quadrati.",
            corpo);
    } else if (nc_ == nr_ && nc_ > ultima_da_due) {
        titolo_centrato(r_, "* Si devono prendere in considerazione le 2 diagonali principali e",
                        corpo);
        r_.CurrentY -= 1;
        titolo_centrato(
            r_, "  le 4 diagonali immediatamente adiacenti (2 X ognuna delle principali)", corpo);
    } else if (nc_ == nr_ && nc_ == ultima_da_due) {
        titolo_centrato(r_, "* Si devono prendere in considerazione le 2 diagonali principali",
                        corpo);
    } else {
        titolo_centrato(
            r_, "* I Sistemi diagonali vengono sviluppati solo con i Cruciverba quadrati", corpo);
    }
}

}  // namespace

Prospetto prospetto_di(const systems::Sessione& sessione, const Testata& testata) {
    const auto conteggio = [](std::int32_t n) {
        return platform::Format(n, platform::Modello::interi);
    };
    Prospetto p;
    p.testata = testata;
    p.gioco = sessione.gioco();
    p.matrice = sessione.matrice();
    if (const int numeri = sessione.numeri_in_gioco(); numeri > 0)
        p.in_gioco = std::to_string(numeri);
    for (std::size_t i = 0; i < p.righe.size(); ++i) {
        const auto quale = static_cast<crossword::Elenco>(i + 1);
        const auto linee = sessione.linee(quale);
        const int posto = sessione.tipo(quale);
        p.righe[i] = {linee ? std::to_string(*linee) : "",
                      posto < 0 ? "" : sessione.tipi(quale)[static_cast<std::size_t>(posto)],
                      sessione.indice(quale), sessione.combinazioni(quale)};
    }
    p.totale = conteggio(sessione.totale());
    p.senza_ripetizioni = conteggio(sessione.senza_ripetizioni());
    p.quote = sessione.prezzo().quote;
    p.quota = sessione.prezzo().quota;
    p.valuta = sessione.prezzo().valuta;
    p.importo = sessione.prezzo().totale;
    return p;
}

bool stampa_prospetto(Printer& printer, platform::Screen& screen, const Prospetto& prospetto) {
    const platform::InAttesa attesa(screen);
    screen.DoEvents();
    intestazione(printer, prospetto.testata);
    Pagina(printer, prospetto).disegna();
    return printer.EndDoc();
}

}  // namespace printing
