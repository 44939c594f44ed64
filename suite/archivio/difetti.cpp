// The archive looked over as the program reads it.
#include <algorithm>
#include <set>

#include "contenuto.h"
#include "platform/sqlite.h"

namespace importazione {

using platform::Table;

namespace {

/// More would only repeat what is wrong.
constexpr std::size_t difetti_massimi = 20;

class Esame {
public:
    explicit Esame(std::vector<std::string>& difetti) : difetti_(difetti) {}

    void difetto(const std::string& testo) {
        if (difetti_.size() < difetti_massimi) {
            difetti_.push_back(testo);
        } else {
            ++taciuti_;
        }
    }
    /// Says how many there are beside those told.
    void concludi() {
        if (taciuti_ > 0) {
            difetti_.push_back(taciuti_ == 1 ? "e un altro difetto"
                                             : "e altri " + std::to_string(taciuti_) + " difetti");
        }
    }
    /// Numbers of the columns from `da` on, all different and on the board.
    void numeri(const Table& t, std::size_t riga, std::size_t da, std::size_t quanti,
                const std::string& dove) {
        std::set<std::int32_t> diversi;
        for (std::size_t c = da; c < da + quanti; ++c) {
            const std::int32_t n = t.nullo(c, riga) ? 0 : t.grezzo(c, riga);
            if (n < 1 || n > 90) difetto(dove + ": numero fuori da 1-90");
            diversi.insert(n);
        }
        if (diversi.size() < quanti) difetto(dove + ": numero ripetuto");
    }
    /// Days and numbers must not go back, and go on together.
    void ordine(const Table& t, std::size_t colonna_numero, std::size_t per_estrazione,
                const std::string& nome) {
        for (std::size_t r = 0; r < t.righe(); ++r) {
            const std::string dove = nome + ", record " + std::to_string(r + 1);
            if (t.nullo(0, r) || t.nullo(colonna_numero, r)) {
                difetto(dove + ": senza data o senza concorso");
                continue;
            }
            if (r == 0) continue;
            const bool nuova = r % per_estrazione == 0;
            const std::int32_t giorni = t.grezzo(0, r) - t.grezzo(0, r - 1);
            const std::int32_t passi =
                t.grezzo(colonna_numero, r) - t.grezzo(colonna_numero, r - 1);
            if (nuova ? giorni <= 0 : giorni != 0) difetto(dove + ": data fuori ordine");
            if (nuova ? passi <= 0 : passi != 0) difetto(dove + ": concorso fuori ordine");
        }
    }

private:
    std::vector<std::string>& difetti_;
    std::size_t taciuti_ = 0;
};

bool ha_colonne(const Table& t, std::size_t quante) {
    if (t.colonne() != quante) return false;
    for (std::size_t c = 0; c < quante; ++c) {
        if (t.tipo(c) != Table::Tipo::intero && c > 1) return false;
    }
    return t.tipo(0) == Table::Tipo::data || t.righe() == 0;
}

}  // namespace

std::vector<std::string> difetti(const std::string& file) {
    std::vector<std::string> trovati;
    Esame esame(trovati);
    if (const int errore = platform::verifica_sqlite(file); errore != 0) {
        return {std::string(platform::Err{errore}.Description())};
    }
    struct Forma {
        std::string nome;
        std::size_t colonne;
        std::size_t primo;
        std::size_t numeri;
        std::size_t per_estrazione;
    };
    for (const Forma& f : {Forma{"archivio", 8, 2, 5, ruote_regionali},
                           Forma{"archivion", 8, 2, 5, 1}, Forma{"archivios", 10, 1, 6, 1}}) {
        Table t;
        const int errore = platform::leggi_sqlite(file, f.nome, t);
        if (errore != 0) {
            esame.difetto(f.nome + ": " + std::string(platform::Err{errore}.Description()));
            continue;
        }
        if (!ha_colonne(t, f.colonne)) {
            esame.difetto(f.nome + ": colonne diverse da quelle attese");
            continue;
        }
        if (t.righe() % f.per_estrazione != 0) esame.difetto(f.nome + ": estrazioni incomplete");
        esame.ordine(t, f.colonne - 1, f.per_estrazione, f.nome);
        for (std::size_t r = 0; r < t.righe(); ++r) {
            const std::string dove = f.nome + ", record " + std::to_string(r + 1);
            esame.numeri(t, r, f.primo, f.numeri, dove);
            if (f.per_estrazione > 1 &&
                t.valore(1, r).testo() != std::string(sigle[r % ruote_regionali])) {
                esame.difetto(dove + ": ruota fuori ordine");
            }
        }
    }
    esame.concludi();
    return trovati;
}

}  // namespace importazione
