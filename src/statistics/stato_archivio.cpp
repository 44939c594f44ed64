#include "statistics/stato_archivio.h"

#include "platform/runtime.h"

namespace statistics {

namespace {

bool inventato(platform::Database& database, std::string_view chiave) {
    platform::Recordset note;
    if (!database.OpenRecordset(tabella_informazioni, note).ok()) return false;
    for (; !note.eof(); note.MoveNext()) {
        if (note.Fields(0).Value().testo() != chiave) continue;
        return note.Fields(1).Value().testo() == inventate;
    }
    return false;
}

std::string da_quanto(std::int32_t giorni) {
    if (giorni < 0) return {};
    if (giorni == 0) return ", oggi";
    if (giorni == 1) return ", ieri";
    return ", " + platform::Format(giorni, platform::Modello::interi) + " giorni fa";
}

}  // namespace

StatoArchivio stato_archivio(platform::Database& database, crossword::Gioco gioco) {
    StatoArchivio stato;
    platform::Recordset draws;
    if (!database.OpenRecordset(gioco.e_lotto() ? "archivio" : "archivios", draws).ok() ||
        !draws.Index("concorso").ok()) {
        return stato;
    }
    stato.leggibile = true;
    stato.in_vece = database.in_vece();
    stato.dimostrativo = inventato(database, gioco.e_lotto() ? chiave_lotto : chiave_superenalotto);
    if (draws.MoveLast().ok()) stato.ultima = draws.Fields(0).Value().data();
    return stato;
}

std::string frase(const StatoArchivio& stato, const platform::Data& oggi) {
    if (!stato.leggibile) return "L'archivio non si può leggere";
    if (stato.dimostrativo && stato.in_vece)
        return "Estrazioni inventate (drawit.mdb vuole il driver di Access)";
    if (stato.dimostrativo) return "Estrazioni inventate per prova";
    if (!stato.ultima) return "L'archivio non ha estrazioni";
    return "L'ultima estrazione è del " + platform::Valore(*stato.ultima).testo().value_or("") +
           da_quanto(platform::seriale(oggi) - platform::seriale(*stato.ultima));
}

}  // namespace statistics
