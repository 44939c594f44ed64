#include "systems/sessione.h"

#include <algorithm>

#include "crossword/linee.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "systems/operazioni.h"
#include "systems/sessione_interna.h"
#include "viewer/importo.h"

namespace systems {

using crossword::Elenco;
using crossword::Gioco;
using crossword::Matrice;

namespace {

std::string formattato(double n) {
    return platform::Format(n, platform::Modello::interi);
}

}  // namespace

Sessione::Sessione(std::string cartella)
    : cartella_(std::move(cartella)), ridotti_(platform::radice(cartella_) + "ridotti") {}

Sessione::Sessione(std::string cartella, std::string ridotti)
    : cartella_(std::move(cartella)), ridotti_(std::move(ridotti)) {}

void Sessione::avvia() {
    const Azione azione(*this);
    con_ripetizioni_ = platform::esiste_file(file("rip.dat"));
    con_economiche_ = platform::esiste_file(file("eco.dat"));
    for (const char* senza_nome : {".sen", ".col"}) platform::Kill(file(senza_nome));
    matsis_.INIZIZLAIZZA_MATSIS(gioco_);
    griglia(gioco_.lato_minimo(), gioco_.lato_minimo());
    in_linea({});
    segna_salvato(true);
    importo();
}

// What it is.

int Sessione::numeri_in_gioco() const {
    return static_cast<int>(crossword::numeri_in_gioco(matrice_).size());
}

std::bitset<91> Sessione::sbarrati(Cella cella) const {
    std::bitset<91> numeri = crossword::numeri_sulle_linee(matrice_, cella.riga, cella.colonna);
    return numeri.reset(0);
}

const std::vector<std::string>& Sessione::tipi(Elenco quale) const {
    return elenchi_[posto(quale)].testi();
}

int Sessione::tipo(Elenco quale) const {
    return elenchi_[posto(quale)].posto(indice(quale));
}

int Sessione::indice(Elenco quale) const {
    return tipi_[posto(quale)];
}

int Sessione::indice_in(Elenco quale, int dove) const {
    return elenchi_[posto(quale)].indice(dove);
}

std::vector<std::string> Sessione::tabelle_mancanti() const {
    std::vector<std::string> nomi;
    for (const Elenco quale : {Elenco::orizzontali, Elenco::verticali, Elenco::diagonali}) {
        const std::string nome = elenchi_[posto(quale)].mancante(fonte(), indice(quale));
        if (nome.empty() || std::find(nomi.begin(), nomi.end(), nome) != nomi.end()) continue;
        nomi.push_back(nome);
    }
    return nomi;
}

std::optional<int> Sessione::linee(Elenco quale) const {
    if (quale == Elenco::orizzontali) return righe_;
    if (quale == Elenco::verticali) return colonne_;
    if (colonne_ != righe_) return std::nullopt;
    return gioco_.diagonali();
}

std::string Sessione::combinazioni(Elenco quale) const {
    if (quale != Elenco::diagonali) return formattato(per_linea_[posto(quale)]);
    return colonne_ == righe_ ? testo_diagonali_ : "";
}

Sistema Sessione::sistema() const {
    Sistema s;
    s.totale = totale_;
    // A count is saved as it reads off the screen, where only the first point is cut out of it.
    s.senza_ripetizioni = platform::leggi_numero(formattato(senza_ripetizioni_));
    if (const auto diagonali = linee(Elenco::diagonali)) s.diagonali = std::to_string(*diagonali);
    s.tipo_righe = indice(Elenco::orizzontali);
    s.tipo_colonne = indice(Elenco::verticali);
    s.tipo_diagonali = indice(Elenco::diagonali);
    s.gioco = gioco_;
    s.matrice = matrice_;
    return s;
}

void Sessione::segna_salvato(bool salvato) {
    const Azione azione(*this);
    if (std::exchange(salvato_, salvato) != salvato) cambiamento_.salvato = true;
}

void Sessione::nomina(const std::string& nome) {
    if (std::exchange(nome_, nome) != nome) cambiamento_.nome = true;
    sviluppo_superato_ = sviluppo_rimasto_ = false;
}

void Sessione::in_linea(const std::string& nome) {
    if (occupata_) return;
    const Azione azione(*this);
    nomina(nome);
    senza_cronologia();
}

// Another crossword.

void Sessione::griglia(int colonne, int righe) {
    const Matrice prima = std::exchange(matrice_, Matrice(colonne, righe));
    const std::array<int, 3> tipi_prima = tipi_;
    colonne_ = colonne;
    righe_ = righe;
    statistico.azzera();
    cambiamento_.dimensioni = cambiamento_.celle = true;
    carica_tipi(Elenco::verticali);
    carica_tipi(Elenco::orizzontali);
    if (colonne_ == righe_) {
        carica_tipi(Elenco::diagonali);
    } else {
        elenchi_[posto(Elenco::diagonali)].vuota();
        tipi_[posto(Elenco::diagonali)] = -1;
        senza_ripetizioni_ = 0;
    }
    cambia(prima, tipi_prima);
}

void Sessione::passa(Gioco gioco) {
    const Azione azione(*this);
    gioco_ = gioco;
    cambiamento_.gioco = true;
    matsis_.INIZIZLAIZZA_MATSIS(gioco_);
    // Unsaved changes go without a question.
    azzera();
}

void Sessione::passa_al_superenalotto() {
    if (occupata_) return;
    tabella_ruote_ = true;
    passa(Gioco::superenalotto());
}

void Sessione::passa_al_lotto() {
    if (occupata_) return;
    tabella_ruote_ = false;
    // The form is chosen first: the Lotto development of a SuperEnalotto system's name goes too.
    if (!nome_.empty()) libera_sviluppo(Gioco::lotto());
    passa(Gioco::lotto());
}

void Sessione::azzera() {
    if (occupata_) return;
    const Azione azione(*this);
    nuovo();
    quote(1);
    segna_salvato(true);
}

void Sessione::nuovo() {
    if (occupata_) return;
    const Azione azione(*this);
    matrice_ = Matrice();
    nomina({});
    griglia(gioco_.lato_minimo(), gioco_.lato_minimo());
    senza_cronologia();
    segna_salvato(true);
}

void Sessione::dimensioni(int colonne, int righe) {
    const auto del_gioco = [this](int lato) {
        return lato >= gioco_.lato_minimo() && lato <= Gioco::lato_massimo;
    };
    if (occupata_ || !del_gioco(colonne) || !del_gioco(righe)) return;
    const Azione azione(*this);
    griglia(colonne, righe);
}

void Sessione::svuota() {
    dimensioni(colonne_, righe_);
}

void Sessione::cambia_forma(int forma) {
    if (occupata_ || !gioco_.e_lotto()) return;
    const Azione azione(*this);
    if (!nome_.empty()) libera_sviluppo(gioco_);
    gioco_ = Gioco::lotto(forma);
    cambiamento_.gioco = true;
    matsis_.INIZIZLAIZZA_MATSIS(gioco_);
    cronologia_.dimentica_tipi();
    cambiamento_.cronologia = true;
    carica_tipi(Elenco::verticali);
    carica_tipi(Elenco::orizzontali);
    if (colonne_ == righe_) carica_tipi(Elenco::diagonali);
}

// Types and counts.

FonteTipi Sessione::fonte() const {
    return {gioco_, ridotti_, con_economiche_, &tabelle_};
}

int Sessione::numeri_di(Elenco quale) const {
    return quale == Elenco::verticali ? righe_ : colonne_;
}

void Sessione::carica_tipi(Elenco quale) {
    elenchi_[posto(quale)].carica(fonte(), quale, numeri_di(quale));
    tipi_[posto(quale)] = -1;
    cambiamento_.tipi = true;
    // A form that does not exist has no types, and the counts stay those of the one before.
    scegli_tipo(quale, 0);
}

bool Sessione::scegli_tipo(Elenco quale, int dove) {
    const int numero = indice_in(quale, dove);
    return numero >= 0 && scegli_indice(quale, numero);
}

bool Sessione::scegli_indice(Elenco quale, int numero) {
    if (occupata_) return false;
    ListaTipi& lista = elenchi_[posto(quale)];
    if (lista.posto(numero) < 0 && !lista.aggiungi(fonte(), numero)) return false;
    const Azione azione(*this);
    tipi_[posto(quale)] = numero;
    cambiamento_.tipi = true;
    conta(quale);
    totale_combinazioni();
    return true;
}

void Sessione::conta_economica(Elenco quale) {
    const auto conto = elenchi_[posto(quale)].conto(indice(quale));
    per_linea_[posto(quale)] = conto ? conto->intere : 0;
    if (quale != Elenco::diagonali) return;
    testo_diagonali_ = !conto          ? ""
                       : !conto->corte ? formattato(conto->intere)
                                       : crossword::testo_diagonali(conto->intere, *conto->corte);
}

void Sessione::conta(Elenco quale) {
    const int t = indice(quale);
    if (development::e_economica(t)) return conta_economica(quale);
    const int n = quale == Elenco::orizzontali ? colonne_ : righe_;
    std::int32_t& per_linea = per_linea_[posto(quale)];
    per_linea = matsis_(n - gioco_.lato_minimo(), t).value_or(0);
    if (quale != Elenco::diagonali) return;
    testo_diagonali_ = gioco_.e_lotto() ? formattato(per_linea)
                                        : crossword::testo_diagonali(matsis_, n, t).value_or("");
}

std::int32_t Sessione::combinazioni_diagonali() const {
    const int t = indice(Elenco::diagonali);
    const std::int32_t intere = per_linea_[posto(Elenco::diagonali)];
    if (gioco_.e_lotto()) return intere * 2;
    if (!development::e_economica(t))
        return crossword::combinazioni_diagonali(matsis_, righe_, t).value_or(0);
    const auto conto = elenchi_[posto(Elenco::diagonali)].conto(t);
    return conto ? conto->intere * 2 + conto->corte.value_or(0) * 4 : 0;
}

void Sessione::totale_combinazioni() {
    if (occupata_) return;
    const Azione azione(*this);
    segna_salvato(false);
    totale_ = righe_ * per_linea_[posto(Elenco::orizzontali)] +
              colonne_ * per_linea_[posto(Elenco::verticali)];
    if (colonne_ == righe_) totale_ += combinazioni_diagonali();
    // Without one of its tables the system plays nothing that could be counted.
    for (std::size_t i = 0; i < tipi_.size(); ++i) {
        if (development::e_economica(tipi_[i]) && !elenchi_[i].conto(tipi_[i])) totale_ = 0;
    }
    // Until the repetitions are counted anew; with repetitions wanted, an opened count stays.
    senza_ripetizioni_ = 0;
    cambiamento_.conteggi = true;
    prezzo_.totale = calcolo_importo(totale_);
}

// Price.

void Sessione::importo() {
    const Azione azione(*this);
    const viewer::Importo letto = viewer::leggi_cst(cartella_, viewer::Lettore::importo);
    prezzo_.valuta = letto.valuta == "Lire" ? "Lire" : "Euro";
    cambiamento_.importo = true;
}

std::string Sessione::calcolo_importo(std::int32_t colonne) {
    const Azione azione(*this);
    const viewer::Importo letto = viewer::leggi_cst(cartella_, viewer::Lettore::calcolo_importo);
    const viewer::Totale t = viewer::calcola_totale(colonne, letto.prezzo, prezzo_.quote);
    if (t.quota) prezzo_.quota = *t.quota;
    prezzo_.totale = t.semplice;
    cambiamento_.importo = true;
    return t.formattato;
}

void Sessione::quote(int quante) {
    const std::string testo = std::to_string(std::clamp(quante, 1, 999));
    if (prezzo_.quote == testo) return;
    const Azione azione(*this);
    prezzo_.quote = testo;
    // Off the total as it is shown: its points of thousands cut the value short.
    if (const auto quota = viewer::quota_da_testo(prezzo_.totale, testo)) prezzo_.quota = *quota;
    cambiamento_.importo = true;
}

}  // namespace systems
