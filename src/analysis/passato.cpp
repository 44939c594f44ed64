#include "analysis/passato.h"

#include <algorithm>

#include "statistics/archivio.h"

namespace analysis {

using platform::Err;
using platform::Recordset;

namespace {

constexpr int concorso_lotto = 7;
constexpr int concorso_superenalotto = 9;

std::uint8_t numero(const platform::Field& campo) {
    const std::int32_t n = campo.Value().intero().value_or(0);
    return n >= 1 && n <= numeri_del_gioco ? static_cast<std::uint8_t>(n) : 0;
}

std::string nome_ruota(std::string_view codice) {
    const auto quale =
        std::find_if(statistics::ruote.begin(), statistics::ruote.end(),
                     [&](const statistics::Ruota& ruota) { return ruota.codice == codice; });
    return std::string(quale != statistics::ruote.end() ? quale->nome : codice);
}

/// The fields of a table of draws.
struct Campi {
    platform::Field concorso;
    platform::Field data;
    platform::Field ruota;
    std::array<platform::Field, 6> numeri;
    platform::Field jolly;
};

Campi campi_superenalotto(const Recordset& rs) {
    Campi c;
    c.concorso = rs.Fields(concorso_superenalotto);
    c.data = rs.Fields(0);
    for (std::size_t i = 0; i < 6; ++i)
        c.numeri[i] = rs.Fields(std::to_string(i + 1) + "°estratto");
    c.jolly = rs.Fields("Jolly");
    return c;
}

Campi campi_lotto(const Recordset& rs) {
    Campi c;
    c.concorso = rs.Fields(concorso_lotto);
    c.data = rs.Fields(0);
    c.ruota = rs.Fields("RUOTA");
    for (int i = 0; i < 5; ++i) c.numeri[static_cast<std::size_t>(i)] = rs.Fields(i + 2);
    return c;
}

/// Adds the records from the current one on; `ruota` names them, or each names its own.
void accoda(Recordset& rs, const Campi& campi, std::string_view ruota,
            std::vector<Estrazione>& estrazioni) {
    while (!rs.eof()) {
        Estrazione e;
        e.concorso = campi.concorso.Value().intero().value_or(0);
        e.data = campi.data.Value().testo().value_or("");
        e.ruota = ruota.empty() ? nome_ruota(campi.ruota.Value().testo().value_or(""))
                                : std::string(ruota);
        bool qualcuno = false;
        for (std::size_t i = 0; i < campi.numeri.size(); ++i) {
            e.numeri[i] = numero(campi.numeri[i]);
            qualcuno = qualcuno || e.numeri[i] != 0;
        }
        e.jolly = numero(campi.jolly);
        if (qualcuno) estrazioni.push_back(std::move(e));
        if (!rs.MoveNext().ok()) return;
    }
}

/// `sorgente` is a table's name or a query.
template <typename Sorgente>
Err accoda_tabella(platform::Database& database, const Sorgente& sorgente, std::string_view ruota,
                   std::vector<Estrazione>& estrazioni) {
    Recordset rs;
    Err esito = database.OpenRecordset(sorgente, rs);
    if (esito.ok()) accoda(rs, campi_lotto(rs), ruota, estrazioni);
    return esito;
}

}  // namespace

Err leggi_passato(platform::Database database, crossword::Gioco gioco, std::string_view ruota,
                  std::vector<Estrazione>& estrazioni) {
    estrazioni.clear();
    Err esito;
    if (!gioco.e_lotto()) {
        Recordset rs;
        esito = database.OpenRecordset("archivios", rs);
        if (esito.ok()) accoda(rs, campi_superenalotto(rs), "", estrazioni);
    } else if (!ruota.empty()) {
        esito =
            accoda_tabella(database, statistics::query_ruota(ruota), nome_ruota(ruota), estrazioni);
    } else {
        esito = accoda_tabella(database, "archivio", "", estrazioni);
        if (esito.ok()) {
            esito = accoda_tabella(database, "archivion", nome_ruota(statistics::nazionale),
                                   estrazioni);
        }
    }
    if (!esito.ok()) estrazioni.clear();
    std::stable_sort(
        estrazioni.begin(), estrazioni.end(),
        [](const Estrazione& a, const Estrazione& b) { return a.concorso < b.concorso; });
    return esito;
}

}  // namespace analysis
