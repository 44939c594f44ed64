#include "platform/query.h"

#include "platform/recordset.h"
#include "platform/runtime.h"

namespace platform {

int esegui(const Query& query, const Table& tabella, std::vector<std::uint32_t>& righe) {
    const auto ordine = tabella.colonna(query.ordine);
    const auto campo = query.dove ? tabella.colonna(query.dove->campo) : ordine;
    if (!ordine || !campo) return errore_campo_sconosciuto;
    righe = tabella.in_ordine(*ordine);
    if (!query.dove) return 0;
    const bool di_testo = tabella.tipo(*campo) == Table::Tipo::testo;
    const auto* testo = std::get_if<std::string>(&query.dove->valore);
    if (di_testo != (testo != nullptr) || tabella.tipo(*campo) == Table::Tipo::data)
        return errore_tipi;
    // Texts are compared without case, so that several stored ones can be meant.
    std::vector<bool> cercati;
    if (testo != nullptr) {
        for (const std::string& t : tabella.testi(*campo))
            cercati.push_back(LCase(t) == LCase(*testo));
    }
    const auto* numero = std::get_if<std::int32_t>(&query.dove->valore);
    std::erase_if(righe, [&](std::uint32_t riga) {
        if (tabella.nullo(*campo, riga)) return true;
        const std::int32_t grezzo = tabella.grezzo(*campo, riga);
        return di_testo ? !cercati[static_cast<std::size_t>(grezzo)] : grezzo != *numero;
    });
    return 0;
}

}  // namespace platform
