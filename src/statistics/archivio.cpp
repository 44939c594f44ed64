#include "statistics/archivio.h"

namespace statistics {

using platform::Err;

std::string_view codice_ruota(int indice) {
    const bool dentro = indice >= 0 && static_cast<std::size_t>(indice) < ruote.size();
    return dentro ? ruote[static_cast<std::size_t>(indice)].codice : std::string_view();
}

platform::Query query_ruota(std::string_view codice) {
    if (codice == nazionale) return {"archivion", "concorso"};
    return {"archivio", "concorso", {{"ruota", std::string(codice)}}};
}

platform::Query query_nazionale(std::int32_t concorso) {
    return {"archivion", "concorso", {{"concorso", concorso}}};
}

std::string file_archivio(std::string_view radice) {
    return std::string(radice) + "archivio/drawit.mdb";
}

std::optional<platform::Impronta> impronta_archivio(const std::string& file) {
    return platform::impronta(platform::file_del_database(file));
}

Err Archivio::lega(int ordinale_concorso) {
    Err esito = draws.Fields(ordinale_concorso, campo_concorso);
    if (esito.ok()) esito = draws.Fields(0, campo_data);
    if (esito.ok()) esito = draws.Fields(1, campo_1);
    for (std::size_t i = 1; i <= 5 && esito.ok(); ++i) {
        esito = draws.Fields(static_cast<int>(i) + 1, campi_estratti[i]);
    }
    return esito;
}

Err Archivio::apri(const std::string& file, bool tabella_ruote) {
    const std::optional<platform::Impronta> trovata = impronta_archivio(file);
    Err esito = platform::OpenDatabase(file, false, true, database);
    if (esito.ok()) esito = database.OpenRecordset(tabella_ruote ? "archivio" : "archivios", draws);
    if (esito.ok()) esito = lega(tabella_ruote ? 7 : 9);
    if (esito.ok()) esito = database.OpenRecordset("archivion", national);
    if (esito.ok()) esito = draws.MoveLast();
    if (esito.ok() && national.RecordCount() > 0) esito = national.MoveLast();
    if (esito.ok()) aperta = trovata;
    return esito;
}

void Archivio::chiudi() {
    database.Close();
}

}  // namespace statistics
