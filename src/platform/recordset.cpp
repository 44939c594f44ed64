#include "platform/recordset.h"

#include <algorithm>
#include <array>
#include <utility>

namespace platform {

namespace {

constexpr std::array<std::pair<int, std::string_view>, 19> descrizioni{{
    {errore_oggetto_assente, "Variabile oggetto non impostata."},
    {errore_argomento, "Argomento non valido."},
    {errore_indice_sconosciuto, "Indice non trovato nella tabella."},
    {errore_senza_indice, "Operazione non valida senza un indice corrente."},
    {errore_nessun_record, "Nessun record corrente."},
    {errore_file_assente, "Impossibile trovare il file."},
    {errore_disco, "Errore del disco o della rete."},
    {errore_danneggiato, "Il database è danneggiato o non leggibile."},
    {errore_permesso, "Impossibile aprire il file: permesso negato."},
    {errore_campo_sconosciuto, "Parametri insufficienti: campo sconosciuto."},
    {errore_tabella_assente, "Impossibile trovare la tabella o la query."},
    {errore_lettore_assente, "Impossibile avviare il lettore dei database."},
    {errore_scaduto, "Tempo scaduto: il disco non risponde."},
    {errore_operazione, "Operazione non supportata per questo tipo di oggetto."},
    {errore_elemento_assente, "Elemento non trovato in questo insieme."},
    {errore_formato, "Formato di database non riconosciuto."},
    {errore_esclusivo, "Il file è già aperto in modo esclusivo."},
    {errore_chiuso, "Oggetto chiuso o non più impostato."},
    {errore_tipi, "Tipi di dati non corrispondenti nel criterio."},
}};

Err err(int numero) {
    return Err{numero};
}

}  // namespace

std::string_view Err::Description() const {
    for (const auto& [numero, testo] : descrizioni) {
        if (numero == Number) return testo;
    }
    return Number == 0 ? "" : "Errore non previsto.";
}

void interno::Stato::vai(std::int64_t dove) {
    posizione = std::clamp<std::int64_t>(dove, -1, quanti());
    indefinito = false;
    visti = std::max(visti, std::min(posizione + 1, quanti()));
}

Err Field::Value(Valore& destinazione) const {
    if (!stato_) return err(errore_oggetto_assente);
    if (const int errore = stato_->uso(); errore != 0) return err(errore);
    if (!stato_->su_un_record()) return err(errore_nessun_record);
    const std::uint32_t riga = stato_->ordine[static_cast<std::size_t>(stato_->posizione)];
    destinazione = stato_->tabella->valore(colonna_, riga);
    return {};
}

Valore Field::Value() const {
    Valore valore;
    return Value(valore).ok() ? valore : Valore();
}

int Recordset::controlla() const {
    return stato_ ? stato_->uso() : errore_oggetto_assente;
}

Err Recordset::MoveFirst() {
    if (const int errore = controlla(); errore != 0) return err(errore);
    if (stato_->quanti() == 0) return err(errore_nessun_record);
    stato_->vai(0);
    return {};
}

Err Recordset::MoveLast() {
    if (const int errore = controlla(); errore != 0) return err(errore);
    if (stato_->quanti() == 0) return err(errore_nessun_record);
    stato_->vai(stato_->quanti() - 1);
    return {};
}

Err Recordset::MoveNext() {
    return Move(1);
}

Err Recordset::MovePrevious() {
    return Move(-1);
}

Err Recordset::Move(std::int32_t n) {
    if (const int errore = controlla(); errore != 0) return err(errore);
    const bool oltre = n >= 0 && stato_->posizione >= stato_->quanti();
    const bool prima = n <= 0 && stato_->posizione < 0;
    if (stato_->quanti() == 0 || stato_->indefinito || oltre || prima)
        return err(errore_nessun_record);
    stato_->vai(stato_->posizione + n);
    return {};
}

bool Recordset::eof() const {
    if (controlla() != 0) return true;
    return stato_->quanti() == 0 || (!stato_->indefinito && stato_->posizione >= stato_->quanti());
}

bool Recordset::bof() const {
    if (controlla() != 0) return true;
    return stato_->quanti() == 0 || (!stato_->indefinito && stato_->posizione < 0);
}

std::int32_t Recordset::RecordCount() const {
    if (controlla() != 0) return 0;
    return static_cast<std::int32_t>(stato_->query ? stato_->visti : stato_->quanti());
}

Err Recordset::Fields(int posizione, Field& destinazione) const {
    if (const int errore = controlla(); errore != 0) return err(errore);
    if (posizione < 0 || static_cast<std::size_t>(posizione) >= stato_->tabella->colonne())
        return err(errore_elemento_assente);
    destinazione.stato_ = stato_;
    destinazione.colonna_ = static_cast<std::size_t>(posizione);
    return {};
}

Err Recordset::Fields(std::string_view nome, Field& destinazione) const {
    if (const int errore = controlla(); errore != 0) return err(errore);
    const auto colonna = stato_->tabella->colonna(nome);
    return colonna ? Fields(static_cast<int>(*colonna), destinazione)
                   : err(errore_elemento_assente);
}

Field Recordset::Fields(int posizione) const {
    Field campo;
    Fields(posizione, campo);
    return campo;
}

Field Recordset::Fields(std::string_view nome) const {
    Field campo;
    Fields(nome, campo);
    return campo;
}

Err Recordset::Index(std::string_view nome) {
    if (const int errore = controlla(); errore != 0) return err(errore);
    if (stato_->query) return err(errore_operazione);
    const auto colonna = stato_->tabella->colonna(nome);
    if (!colonna) return err(errore_indice_sconosciuto);
    // The file's own indexes are not used: the order of the field is that of its index.
    if (stato_->indice != colonna) stato_->ordine = stato_->tabella->in_ordine(*colonna);
    stato_->indice = colonna;
    stato_->vai(0);
    return {};
}

Err Recordset::Seek(std::string_view confronto, std::int32_t chiave) {
    if (const int errore = controlla(); errore != 0) return err(errore);
    if (stato_->query) return err(errore_operazione);
    if (!stato_->indice) return err(errore_senza_indice);
    if (confronto != "=") return err(errore_argomento);
    const Table& tabella = *stato_->tabella;
    const std::size_t colonna = *stato_->indice;
    if (tabella.tipo(colonna) != Table::Tipo::intero) return err(errore_tipi);
    const auto posto =
        std::partition_point(stato_->ordine.begin(), stato_->ordine.end(), [&](std::uint32_t r) {
            return tabella.nullo(colonna, r) || tabella.grezzo(colonna, r) < chiave;
        });
    if (posto == stato_->ordine.end() || tabella.grezzo(colonna, *posto) != chiave) {
        stato_->indefinito = true;
    } else {
        stato_->vai(posto - stato_->ordine.begin());
    }
    return {};
}

Err Recordset::Close() {
    if (const int errore = controlla(); errore != 0) return err(errore);
    stato_->aperto = false;
    return {};
}

}  // namespace platform
