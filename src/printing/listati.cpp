#include "printing/listati.h"

#include <array>
#include <limits>

#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/text_file.h"

namespace printing {

using platform::Printer;
using platform::TextReader;

namespace {

constexpr int blocchi_banda = 5;
constexpr int righe_gruppo = 5;
constexpr float passo_blocco = 18.25F;
constexpr float centro_blocco = 7.5F;

/// What tells one listing from the other.
struct Variante {
    std::string titolo;
    std::string file;
    std::string blocco;  ///< printed before the number of a block
    std::string misura;  ///< the same, as its width is taken
    int numeri = 0;      ///< of a line; 0 reads nothing
    int righe = 0;       ///< of a block
    float rientro = 0;   ///< of a line in its block
};

std::int32_t righe_del_file(const std::string& nome) {
    TextReader file(nome);
    std::int32_t quante = 0;
    while (quante < std::numeric_limits<std::int32_t>::max() && file.salta_riga()) ++quante;
    return quante;
}

class Listato {
public:
    Listato(Printer& printer, platform::Screen& screen, const Testata& testata,
            const Variante& variante)
        : r_(printer), screen_(screen), testata_(testata), v_(variante) {}

    void testa() {
        intestazione(r_, testata_);
        titolo_riquadro(r_, v_.titolo, 16);
        r_.FontSize = 8;
    }
    /// The bands of the whole file; false when it cannot be read, the job is lost or given up.
    bool corpo();

private:
    /// True when there is nothing more to print. A block that reads nothing never comes to the
    /// file's end: such a job ends after as many blocks as the file has lines.
    bool finito() { return file_.eof() || (limite_ >= 0 && blocchi_ >= limite_); }
    /// Part of the file that is printed, to 1.
    [[nodiscard]] double parte() const;
    /// False when the file ended inside the band.
    bool banda();
    bool blocco(int quale, float y);
    std::string riga();

    Printer& r_;
    platform::Screen& screen_;
    const Testata& testata_;
    const Variante& v_;
    TextReader file_;
    std::array<std::int16_t, 6> numeri_{};
    std::int32_t blocchi_ = 0;
    std::int32_t limite_ = -1;
    double lungo_ = 0;  ///< bytes of the file
    float x0_ = 0;
};

std::string Listato::riga() {
    std::string testo;
    for (int k = 0; k < v_.numeri; ++k) {
        std::int16_t& numero = numeri_[static_cast<std::size_t>(k)];
        file_.intero(numero);
        if (k > 0) testo += ' ';
        if (numero <= 9) testo += '0';
        testo += std::to_string(numero);
    }
    return testo;
}

bool Listato::blocco(int quale, float y) {
    if (finito()) return false;
    ++blocchi_;
    r_.CurrentY = y;
    const float x = x0_ + static_cast<float>(quale) * passo_blocco;
    const std::string numero = platform::Str(blocchi_);
    r_.CurrentX = x + centro_blocco - r_.TextWidth(v_.misura + numero) / 2 + 1;
    r_.Print(v_.blocco + numero);
    for (int j = 0; j < v_.righe && v_.numeri > 0; ++j) {
        r_.CurrentX = x + v_.rientro;
        if (file_.eof()) return false;
        r_.Print(riga());
    }
    return true;
}

bool Listato::banda() {
    const float y = r_.CurrentY + 1;
    for (int i = 0; i < blocchi_banda; ++i) {
        if (!blocco(i, y)) return false;
    }
    return true;
}

double Listato::parte() const {
    if (limite_ > 0) return blocchi_ / static_cast<double>(limite_);
    return lungo_ > 0 ? static_cast<double>(file_.seek() - 1) / lungo_ : 1;
}

bool Listato::corpo() {
    constexpr float fondo = 6;
    r_.CurrentX = bordo_sinistro(r_);
    x0_ = r_.CurrentX;
    if (!file_.apri(v_.file)) return false;
    lungo_ = static_cast<double>(platform::dimensione_file(v_.file).value_or(0));
    if (v_.righe == 0 || v_.numeri == 0) limite_ = righe_del_file(v_.file);
    while (!finito()) {
        if (!(r_.ScaleHeight() - fondo > r_.CurrentY + 0.75F)) {
            pie_pagina(r_);
            if (r_.perso() || !screen_.avanza(r_.Page(), parte())) return false;
            r_.NewPage();
            testa();
        }
        if (!banda()) {
            // Only a file that ends with its band leaves the last page without a number.
            pie_pagina(r_);
            break;
        }
    }
    return true;
}

/// `righe` gives the lines of a block, and is asked only when there is a file to print.
template <typename Righe>
bool stampa(Printer& printer, platform::Screen& screen, const Testata& testata, Variante variante,
            Righe righe) {
    const platform::InAttesa attesa(screen);
    screen.DoEvents();
    Listato listato(printer, screen, testata, variante);
    listato.testa();
    bool riuscito = false;
    if (platform::esiste_file(variante.file)) {
        variante.righe = righe();
        riuscito = listato.corpo();
    }
    if (riuscito) {
        riuscito = printer.EndDoc();
    } else {
        printer.KillDoc();
    }
    return riuscito;
}

}  // namespace

std::uint8_t colonne_schedina(const std::string& cartella) {
    const std::string nome = cartella + "/col.dat";
    std::string testo;
    if (platform::esiste_file(nome)) {
        TextReader file(nome, TextReader::testa);
        file.campo(testo);
    } else {
        testo = "5";
        platform::scrivi(nome, platform::Record().scrivi(testo).testo());
    }
    return platform::CByte(platform::Val(testo)).value_or(0);
}

bool stampa_sviluppo_superenalotto(Printer& printer, platform::Screen& screen,
                                   const Sviluppo& sviluppo) {
    Variante v;
    v.titolo = "Sviluppo Sistema a Cruciverba SuperEnalotto:" + sviluppo.nome;
    v.file = sviluppo.cartella + "/" + sviluppo.nome + ".col";
    v.blocco = "Schedina n.";
    v.misura = platform::LCase(v.blocco);
    v.numeri = 6;
    v.rientro = 1.5F;
    return stampa(printer, screen, sviluppo.testata, v,
                  [&sviluppo] { return int{colonne_schedina(sviluppo.cartella)}; });
}

bool stampa_sviluppo_lotto(Printer& printer, platform::Screen& screen, const Sviluppo& sviluppo) {
    Variante v;
    v.titolo = "Sviluppo Sistema a Cruciverba Lotto:" + sviluppo.nome;
    v.file = sviluppo.cartella + "/" + sviluppo.nome + ".lot";
    v.blocco = "Gruppo n.";
    v.misura = v.blocco;
    if (sviluppo.forma >= 3 && sviluppo.forma <= 5) v.numeri = sviluppo.forma;
    v.rientro = static_cast<float>(8 - v.numeri);
    return stampa(printer, screen, sviluppo.testata, v, [] { return righe_gruppo; });
}

}  // namespace printing
