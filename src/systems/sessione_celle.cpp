// The cells of the session: laying, completing, generating, undoing.
#include "crossword/linee.h"
#include "platform/application.h"
#include "statistics/completamento.h"
#include "statistics/lettore_archivio.h"
#include "systems/sessione_interna.h"

namespace systems {

using crossword::Elenco;
using crossword::Matrice;
using crossword::Modifica;

Posata Sessione::posa(Cella cella, int numero) {
    if (occupata_) return Posata::occupata;
    if (!matrice_.contiene(cella.colonna, cella.riga) || numero < 1 || numero > 90)
        return Posata::fuori;
    const Azione azione(*this);
    const std::int16_t prima = matrice_(cella.colonna, cella.riga);
    if (!crossword::posa(matrice_, cella.colonna, cella.riga, numero)) return Posata::sbarrata;
    annota(cella, prima);
    return Posata::posata;
}

void Sessione::rimuovi(Cella cella) {
    if (occupata_) return;
    const Azione azione(*this);
    const std::int16_t prima = matrice_(cella.colonna, cella.riga);
    matrice_.scrivi(cella.colonna, cella.riga, 0);
    annota(cella, prima);
}

void Sessione::annota(Cella cella, std::int16_t prima) {
    cronologia_.annota(
        {cella.riga, cella.colonna, prima, matrice_(cella.colonna, cella.riga), false});
    cambiamento_.celle = cambiamento_.cronologia = true;
    segna_salvato(false);
}

/// Notes all that an action changed as one step.
void Sessione::cambia(const Matrice& prima, const std::array<int, 3>& tipi_prima) {
    cambiamento_.cronologia = true;
    // Only the same crossword can be taken back to what it was.
    if (prima.colonne() != matrice_.colonne() || prima.righe() != matrice_.righe()) {
        cronologia_.vuota();
        return;
    }
    cronologia_.apri();
    cronologia_.annota(prima, matrice_);
    for (std::size_t i = 0; i < tipi_.size(); ++i) {
        cronologia_.annota({0, static_cast<int>(i), static_cast<std::int16_t>(tipi_prima[i]),
                            static_cast<std::int16_t>(tipi_[i]), true});
    }
    cronologia_.chiudi();
}

void Sessione::senza_cronologia() {
    cronologia_.vuota();
    cambiamento_.cronologia = true;
}

std::optional<Cella> Sessione::annulla() {
    return occupata_ ? std::nullopt : rifai(cronologia_.annulla(), true);
}

std::optional<Cella> Sessione::ripeti() {
    return occupata_ ? std::nullopt : rifai(cronologia_.ripeti(), false);
}

std::optional<Cella> Sessione::rifai(const std::vector<Modifica>* voluta, bool indietro) {
    if (voluta == nullptr) return std::nullopt;
    const Azione azione(*this);
    const std::vector<Modifica> modifiche = *voluta;
    cambiamento_.cronologia = true;
    // A crossword that was laid by other ways is not the one that was noted.
    if (!crossword::rimetti(modifiche, indietro, matrice_)) {
        cronologia_.vuota();
        return std::nullopt;
    }
    cambiamento_.celle = true;
    segna_salvato(false);
    std::optional<Cella> prima;
    for (const Modifica& m : modifiche) {
        if (m.tipo) {
            scegli_indice(static_cast<Elenco>(m.colonna + 1), indietro ? m.prima : m.dopo);
        } else if (!prima) {
            prima = Cella{m.colonna, m.riga};
        }
    }
    return prima;
}

bool Sessione::disponi(const Matrice& nuova) {
    if (occupata_ || nuova.colonne() != colonne_ || nuova.righe() != righe_) return false;
    Matrice posata(colonne_, righe_);
    for (int y = 0; y < righe_; ++y) {
        for (int x = 0; x < colonne_; ++x) {
            if (!crossword::posa(posata, x, y, nuova(x, y))) return false;
        }
    }
    if (posata == matrice_) return true;
    const Azione azione(*this);
    const Matrice prima = std::exchange(matrice_, std::move(posata));
    cambiamento_.celle = true;
    segna_salvato(false);
    cambia(prima, tipi_);
    return true;
}

Completato Sessione::completa_con_scelti(const statistics::Posata& posata, Cella* ferma) {
    if (occupata_) return Completato::occupata;
    const Azione azione(*this);
    const Matrice prima = matrice_;
    const std::vector<int> scelti = statistics::numeri_scelti(matrice_);
    Completato esito = Completato::completo;
    {
        const Lavoro lavoro(*this);
        const auto completa_cella = [&](int x, int y) {
            for (const int numero : scelti) {
                if (!crossword::posa(matrice_, x, y, numero)) continue;
                if (posata && !posata(y, x, numero)) esito = Completato::interrotto;
                return;
            }
            esito = Completato::impossibile;
            if (ferma != nullptr) *ferma = {x, y};
        };
        for (int y = 0; y < righe_ && esito == Completato::completo; ++y) {
            for (int x = 0; x < colonne_ && esito == Completato::completo; ++x) {
                if (matrice_(x, y) == 0) completa_cella(x, y);
            }
        }
    }
    if (prima == matrice_) return esito;
    cambiamento_.celle = true;
    segna_salvato(false);
    cambia(prima, tipi_);
    return esito;
}

// From the draws.

platform::Err Sessione::apri_archivio() {
    return archivio.apri(statistics::file_archivio(platform::radice(cartella_)), tabella_ruote_);
}

std::optional<platform::Impronta> Sessione::impronta_archivio() const {
    return statistics::impronta_archivio(statistics::file_archivio(platform::radice(cartella_)));
}

void Sessione::rinfresca_archivio() {
    if (!occupata_ && impronta_archivio() != archivio.aperta) apri_archivio();
}

std::optional<Generato> Sessione::estrazioni_della_ruota(int ruota) {
    const std::string_view codice = statistics::codice_ruota(ruota);
    if (!archivio.database.OpenRecordset(statistics::query_ruota(codice), archivio.draws).ok())
        return Generato::abbandonato;
    if (codice == statistics::nazionale) {
        statistics::LettoreArchivio lettore(archivio);
        if (!statistics::bastano_estrazioni(lettore)) return Generato::poche_estrazioni;
    }
    if (!archivio.lega(7).ok()) return Generato::abbandonato;
    return std::nullopt;
}

Generato Sessione::genera_in_griglia(int ruota, const statistics::Seguito& seguito) {
    if (!archivio.draws.MoveLast().ok()) return Generato::abbandonato;
    if (gioco_.e_lotto()) {
        if (const auto fine = estrazioni_della_ruota(ruota)) return *fine;
    }
    const Lavoro lavoro(*this);
    statistics::LettoreArchivio lettore(archivio);
    const statistics::Generazione fatta = statistics::genera_statistico(
        gioco_, statistico, lettore, file("mstat.dat"), matrice_, rnd_, seguito);
    switch (fatta.conclusione) {
        case statistics::EsitoRiempimento::completa:
            generata_ = matrice_;
            classi_generate_ = fatta.classi;
            return Generato::completo;
        case statistics::EsitoRiempimento::interrotta:
            return Generato::interrotto;
        default:
            return Generato::abbandonato;
    }
}

Generato Sessione::genera(int ruota, const statistics::Seguito& seguito, platform::Err* apertura) {
    if (occupata_) return Generato::occupata;
    // A crossword already begun is not replaced.
    if (matrice_(0, 0) != 0) return Generato::gia_iniziato;
    const Azione azione(*this);
    const Matrice prima = matrice_;
    const std::array<int, 3> tipi_prima = tipi_;
    const int c = colonne_;
    const int r = righe_;
    // The sizes pass by the smallest ones and come back: what was done before can still be undone.
    crossword::Cronologia passato = std::exchange(cronologia_, {});
    azzera();
    dimensioni(c, r);
    cronologia_ = std::move(passato);
    const platform::Err aperto = apri_archivio();
    if (apertura != nullptr) *apertura = aperto;
    const Generato esito = genera_in_griglia(ruota, seguito);
    cambia(prima, tipi_prima);
    cambiamento_.celle = true;
    segna_salvato(false);
    return esito;
}

std::optional<crossword::Classi> Sessione::classi_generate() const {
    if (!crossword::stesse_classi(generata_, matrice_, classi_generate_)) return std::nullopt;
    return classi_generate_;
}

void Sessione::completa(const statistics::Seguito& seguito) {
    if (occupata_) return;
    rinfresca_archivio();
    const Azione azione(*this);
    const Lavoro lavoro(*this);
    statistics::LettoreArchivio lettore(archivio);
    // No control calls it, and it marks nothing as changed; given up, it leaves the crossword.
    cambiamento_.celle = statistics::completa(statistico, lettore, file("mstat.dat"), matrice_,
                                              seguito) == statistics::EsitoRiempimento::completa;
}

}  // namespace systems
