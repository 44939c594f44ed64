#include "check/estrazioni.h"

#include <algorithm>
#include <optional>

#include "development/elaborazione.h"
#include "platform/runtime.h"
#include "statistics/archivio.h"

namespace check {

using platform::Recordset;

namespace {

constexpr int concorso_lotto = 7;
constexpr int concorso_superenalotto = 9;
constexpr std::string_view nome_cartella = "cruciverba";

/// Four blanks, the number in four digits and the date; nothing without a current record.
std::optional<std::string> testo_concorso(const Recordset& rs, int campo_concorso) {
    platform::Valore concorso;
    platform::Valore data;
    if (!rs.Fields(campo_concorso).Value(concorso).ok() || !rs.Fields(0).Value(data).ok()) {
        return std::nullopt;
    }
    std::string numero = concorso.testo().value_or("");
    if (!numero.empty() && numero.size() < 4) numero.insert(0, 4 - numero.size(), '0');
    return "    " + numero + "    -  " + data.testo().value_or("");
}

void aggiungi(std::vector<std::string>& voci, const std::optional<std::string>& testo,
              const std::string& coda) {
    if (testo) voci.push_back(*testo + coda);
}

constexpr int posto_data = 15;
constexpr std::size_t cifre_anno = 4;

using Parti = std::vector<std::string>;

/// The texts between the separators of a date.
Parti parti(std::string_view data) {
    Parti p(1);
    for (const char c : data) {
        if (c == '/' || c == '.' || c == '-') {
            p.emplace_back();
        } else {
            p.back() += c;
        }
    }
    return p;
}

Parti data_di(std::string_view voce) {
    constexpr std::size_t lunghezza = 10;
    return voce.size() > posto_data ? parti(voce.substr(posto_data, lunghezza)) : Parti();
}

int valore(const std::string& cifre) {
    return platform::CLng(platform::Val(cifre)).value_or(0);
}

/// Year, month and day as one number that grows with time.
int giorno(const Parti& data) {
    return (valore(data[2]) * 100 + valore(data[1])) * 100 + valore(data[0]);
}

bool comincia(const Parti& data, const Parti& digitata) {
    if (digitata.size() > data.size()) return false;
    const std::size_t ultima = digitata.size() - 1;
    for (std::size_t i = 0; i < ultima; ++i) {
        if (valore(digitata[i]) != valore(data[i])) return false;
    }
    const std::string& meta = digitata[ultima];
    if (data[ultima].starts_with(meta)) return true;
    // "3" is the third month, and "21" the year 2021.
    return ultima == 2 ? meta.size() == 2 && data[ultima].ends_with(meta)
                       : valore(meta) == valore(data[ultima]);
}

int cerca_data(const std::vector<std::string>& voci, const Parti& digitata) {
    int seguente = -1;
    int giorno_seguente = 0;
    const bool intera = digitata.size() == 3 && digitata[2].size() == cifre_anno;
    for (std::size_t i = 0; i < voci.size(); ++i) {
        const Parti data = data_di(voci[i]);
        if (data.size() != 3) continue;
        if (comincia(data, digitata)) return static_cast<int>(i);
        const int quando = giorno(data);
        if (!intera || quando < giorno(digitata)) continue;
        if (seguente >= 0 && quando >= giorno_seguente) continue;
        seguente = static_cast<int>(i);
        giorno_seguente = quando;
    }
    return seguente;
}

}  // namespace

std::string archivio_di(std::string_view percorso) {
    const bool barra = !percorso.empty() && (percorso.back() == '/' || percorso.back() == '\\');
    const std::size_t taglio = nome_cartella.size() + (barra ? 1 : 0);
    percorso.remove_suffix(std::min(taglio, percorso.size()));
    return statistics::file_archivio(percorso);
}

std::vector<std::string> elenco_superenalotto(Recordset& draws) {
    std::vector<std::string> voci;
    draws.MoveLast();
    while (!draws.bof()) {
        aggiungi(voci, testo_concorso(draws, concorso_superenalotto), "");
        if (!draws.MovePrevious().ok()) break;
    }
    return voci;
}

std::vector<std::string> elenco_lotto(Recordset& draws, Recordset& national) {
    std::vector<std::string> voci;
    draws.MoveLast();
    national.MoveLast();
    for (int estrazione = 0; estrazione < estrazioni_lotto && !draws.bof(); ++estrazione) {
        // From the last row of a draw to its first one.
        draws.Move(-9);
        for (int ruota = 0; ruota < 10; ++ruota) {
            const std::string codice = draws.Fields("RUOTA").Value().testo().value_or("");
            aggiungi(voci, testo_concorso(draws, concorso_lotto), "  -  " + codice);
            draws.MoveNext();
        }
        draws.Move(-11);
        if (!national.bof()) {
            aggiungi(voci, testo_concorso(national, concorso_lotto), "  -  NAZ.");
            national.MovePrevious();
        }
    }
    return voci;
}

std::int32_t concorso_di(std::string_view voce) {
    std::int32_t numero = 0;
    if (voce.size() > 4) {
        platform::assegna(numero, platform::CLng(platform::Val(voce.substr(4, 4))));
    }
    return numero;
}

std::string_view ruota_di(std::string_view voce) {
    return voce.size() > 2 ? voce.substr(voce.size() - 2) : voce;
}

bool nazionale(std::string_view voce) {
    return voce.find("NAZ.") != std::string_view::npos;
}

int cerca_estrazione(const std::vector<std::string>& voci, std::string_view digitato) {
    const Parti digitata = parti(digitato);
    if (digitata.size() > 1) return cerca_data(voci, digitata);
    const int cercato = valore(digitata[0]);
    const std::string inizio = std::to_string(cercato);
    int somigliante = -1;
    for (std::size_t i = 0; i < voci.size(); ++i) {
        const std::int32_t concorso = concorso_di(voci[i]);
        if (concorso == cercato) return static_cast<int>(i);
        if (somigliante < 0 && std::to_string(concorso).starts_with(inizio)) {
            somigliante = static_cast<int>(i);
        }
    }
    return somigliante;
}

bool trova_ruota(Recordset& draws, std::int32_t concorso, std::string_view ruota) {
    draws.Index("concorso");
    draws.Seek("=", concorso);
    while (draws.Fields("RUOTA").Value().testo() != ruota) {
        if (!draws.MoveNext().ok()) return false;
    }
    return true;
}

void leggi_combinazione(const Recordset& draws, std::array<std::string, 7>& caselle) {
    platform::Valore valore;
    if (draws.eof() || !draws.Fields(0).Value(valore).ok()) return;
    const auto leggi = [&draws](const std::string& campo, std::string& casella) {
        if (const auto testo = draws.Fields(campo).Value().testo()) {
            casella = platform::Trim(*testo);
        }
    };
    for (std::size_t i = 1; i <= 6; ++i) leggi(std::to_string(i) + "°estratto", caselle[i]);
    leggi("Jolly", caselle[0]);
    std::vector<std::string> testi(caselle.begin(), caselle.end());
    development::ordina_controlli(testi, 1, 6);
    std::copy(testi.begin(), testi.end(), caselle.begin());
}

}  // namespace check
