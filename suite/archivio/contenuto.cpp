#include "contenuto.h"

#include <algorithm>
#include <cstdio>

#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/sqlite.h"
#include "platform/sqlite_scrivi.h"
#include "statistics/stato_archivio.h"

namespace importazione {

using statistics::chiave_lotto;
using statistics::chiave_superenalotto;
using statistics::inventate;

using platform::Foglio;
using platform::Table;

const std::array<std::string_view, ruote_tutte> sigle = {"BA", "CA", "FI", "GE", "MI", "NA",
                                                         "PA", "RM", "TO", "VE", "NAZ"};

namespace {

constexpr std::string_view in_attesa = "in_attesa";
constexpr std::string_view propri = "numeri dei file";
constexpr std::string_view correnti = "numeri correnti";

bool ascendono(const std::vector<std::optional<std::int32_t>>& numeri) {
    std::int32_t prima = 0;
    for (const auto& n : numeri) {
        if (!n || *n <= prima) return false;
        prima = *n;
    }
    return true;
}

std::map<Data, std::int32_t> numera(const std::vector<Data>& giorni,
                                    const std::vector<std::optional<std::int32_t>>& numeri) {
    const bool dei_file = ascendono(numeri);
    std::map<Data, std::int32_t> esito;
    std::int32_t corrente = 0;
    for (std::size_t i = 0; i < giorni.size(); ++i) {
        ++corrente;
        esito.emplace_hint(esito.end(), giorni[i], dei_file ? numeri[i].value_or(0) : corrente);
    }
    return esito;
}

template <typename Estrazione>
bool numeri_dei_file(const std::map<Data, Estrazione>& estrazioni,
                     const std::map<Data, std::int32_t>& numeri) {
    return std::all_of(numeri.begin(), numeri.end(), [&](const auto& voce) {
        const auto dove = estrazioni.find(voce.first);
        return dove != estrazioni.end() && dove->second.numero == voce.second;
    });
}

/// A column's number, which is there and can be drawn.
std::optional<std::int16_t> corto(const Table& t, std::size_t colonna, std::size_t riga) {
    if (t.nullo(colonna, riga)) return std::nullopt;
    const std::int32_t n = t.grezzo(colonna, riga);
    if (n < 1 || n > 90) return std::nullopt;
    return static_cast<std::int16_t>(n);
}

bool colonne_di_tipo(const Table& t, std::string_view tipi) {
    if (t.colonne() != tipi.size()) return false;
    for (std::size_t i = 0; i < tipi.size(); ++i) {
        // A column of nothing but nulls has no type of its own.
        const bool giusto = tipi[i] == 'd'   ? t.tipo(i) == Table::Tipo::data
                            : tipi[i] == 't' ? t.tipo(i) == Table::Tipo::testo
                                             : t.tipo(i) == Table::Tipo::intero;
        if (!giusto && t.righe() > 0) return false;
    }
    return true;
}

std::optional<std::size_t> ruota_di(const Table& t, std::size_t riga) {
    if (t.nullo(1, riga)) return std::nullopt;
    const std::string& sigla = t.testi(1)[static_cast<std::size_t>(t.grezzo(1, riga))];
    const auto dove = std::find(sigle.begin(), sigle.end(), sigla);
    if (dove == sigle.end()) return std::nullopt;
    return static_cast<std::size_t>(dove - sigle.begin());
}

bool carica_ruote(const Table& t, bool con_numeri, std::map<Data, GiornoLotto>& lotto) {
    if (!colonne_di_tipo(t, "dtiiiiii")) return false;
    for (std::size_t r = 0; r < t.righe(); ++r) {
        const auto ruota = ruota_di(t, r);
        if (!ruota || t.nullo(0, r)) return false;
        Cinquina cinquina{};
        for (std::size_t i = 0; i < 5; ++i) {
            const auto n = corto(t, i + 2, r);
            if (!n) return false;
            cinquina[i] = *n;
        }
        GiornoLotto& giorno = lotto[platform::da_seriale(t.grezzo(0, r))];
        giorno.ruote[*ruota] = cinquina;
        if (con_numeri && !t.nullo(7, r)) giorno.numero = t.grezzo(7, r);
    }
    return true;
}

bool carica_sestine(const Table& t, bool con_numeri, std::map<Data, Sestina>& sestine) {
    if (!colonne_di_tipo(t, "diiiiiiiii")) return false;
    for (std::size_t r = 0; r < t.righe(); ++r) {
        Sestina s;
        if (t.nullo(0, r)) return false;
        for (std::size_t i = 0; i < 6; ++i) {
            const auto n = corto(t, i + 1, r);
            if (!n) return false;
            s.numeri[i] = *n;
        }
        s.jolly = corto(t, 7, r);
        s.superstar = corto(t, 8, r);
        if (con_numeri && !t.nullo(9, r)) s.numero = t.grezzo(9, r);
        sestine[platform::da_seriale(t.grezzo(0, r))] = s;
    }
    return true;
}

Table tabella_ruote() {
    Table t;
    t.aggiungi_colonna("data", Table::Tipo::data);
    t.aggiungi_colonna("RUOTA", Table::Tipo::testo);
    for (int i = 1; i <= 5; ++i) {
        t.aggiungi_colonna(std::to_string(i) + "°estratto", Table::Tipo::intero);
    }
    t.aggiungi_colonna("concorso", Table::Tipo::intero);
    return t;
}

void accoda_ruota(Table& t, const Data& data, std::size_t ruota, const Cinquina& cinquina,
                  const std::optional<std::int32_t>& numero) {
    t.accoda(0, platform::seriale(data));
    t.accoda(1, sigle[ruota]);
    for (std::size_t i = 0; i < 5; ++i) t.accoda(i + 2, cinquina[i]);
    numero ? t.accoda(7, *numero) : t.accoda_nullo(7);
}

void accoda(Table& t, std::size_t colonna, const std::optional<std::int16_t>& numero) {
    numero ? t.accoda(colonna, *numero) : t.accoda_nullo(colonna);
}

Table tabella_sestine(const std::map<Data, Sestina>& sestine,
                      const std::map<Data, std::int32_t>& numeri) {
    Table t;
    t.aggiungi_colonna("data", Table::Tipo::data);
    for (int i = 1; i <= 6; ++i) {
        t.aggiungi_colonna(std::to_string(i) + "°estratto", Table::Tipo::intero);
    }
    for (const char* nome : {"Jolly", "superstar", "concorso"}) {
        t.aggiungi_colonna(nome, Table::Tipo::intero);
    }
    for (const auto& [data, s] : sestine) {
        t.accoda(0, platform::seriale(data));
        for (std::size_t i = 0; i < 6; ++i) t.accoda(i + 1, s.numeri[i]);
        accoda(t, 7, s.jolly);
        accoda(t, 8, s.superstar);
        t.accoda(9, numeri.at(data));
    }
    return t;
}

/// What is known of each game, by its name.
std::map<std::string, std::string> informazioni(const std::string& file) {
    Table t;
    std::map<std::string, std::string> note;
    if (platform::leggi_sqlite(file, statistics::tabella_informazioni, t) != 0 ||
        !colonne_di_tipo(t, "tt"))
        return note;
    for (std::size_t r = 0; r < t.righe(); ++r) {
        note[t.valore(0, r).testo().value_or("")] = t.valore(1, r).testo().value_or("");
    }
    return note;
}

}  // namespace

bool GiornoLotto::completo() const {
    return std::all_of(ruote.begin(), ruote.begin() + ruote_regionali,
                       [](const auto& r) { return r.has_value(); });
}

bool Sestina::stessa(const Sestina& altra) const {
    return numeri == altra.numeri && jolly == altra.jolly && superstar == altra.superstar;
}

std::map<Data, std::int32_t> numera(const std::map<Data, Sestina>& estrazioni) {
    std::vector<Data> giorni;
    std::vector<std::optional<std::int32_t>> numeri;
    for (const auto& [data, s] : estrazioni) {
        giorni.push_back(data);
        numeri.push_back(s.numero);
    }
    return numera(giorni, numeri);
}

std::map<Data, std::int32_t> numera(const std::map<Data, GiornoLotto>& estrazioni) {
    std::vector<Data> giorni;
    std::vector<std::optional<std::int32_t>> numeri;
    for (const auto& [data, giorno] : estrazioni) {
        if (!giorno.completo()) continue;
        giorni.push_back(data);
        numeri.push_back(giorno.numero);
    }
    return numera(giorni, numeri);
}

int carica(const std::string& file, Contenuto& contenuto) {
    if (!platform::esiste_file(file)) return platform::errore_file_assente;
    if (const int errore = platform::verifica_sqlite(file); errore != 0) return errore;
    auto note = informazioni(file);
    const bool lotto_suoi = note[std::string(chiave_lotto)] == propri;
    const bool super_suoi = note[std::string(chiave_superenalotto)] == propri;
    for (const std::string_view nome : {std::string_view("archivio"), std::string_view("archivion"),
                                        in_attesa, std::string_view("archivios")}) {
        Table t;
        const int errore = platform::leggi_sqlite(file, nome, t);
        if (errore == platform::errore_tabella_assente && nome == in_attesa) continue;
        if (errore != 0) return errore;
        // Draws that wait for their wheels always keep the number their file gave them.
        const bool buona = nome == "archivios"
                               ? carica_sestine(t, super_suoi, contenuto.superenalotto)
                               : carica_ruote(t, lotto_suoi || nome == in_attesa, contenuto.lotto);
        if (!buona) return platform::errore_danneggiato;
    }
    contenuto.lotto_dimostrativo = note[std::string(chiave_lotto)] == inventate;
    contenuto.superenalotto_dimostrativo = note[std::string(chiave_superenalotto)] == inventate;
    return 0;
}

bool salva(const std::string& file, const Contenuto& contenuto) {
    const auto numeri_lotto = numera(contenuto.lotto);
    const auto numeri_super = numera(contenuto.superenalotto);
    Foglio regionali{"archivio", tabella_ruote(), "concorso"};
    Foglio nazionali{"archivion", tabella_ruote(), "concorso"};
    Foglio incompleti{std::string(in_attesa), tabella_ruote(), ""};
    for (const auto& [data, giorno] : contenuto.lotto) {
        const bool completo = giorno.completo();
        for (std::size_t r = 0; r < ruote_tutte; ++r) {
            if (!giorno.ruote[r]) continue;
            Table& t = !completo             ? incompleti.tabella
                       : r < ruote_regionali ? regionali.tabella
                                             : nazionali.tabella;
            const auto numero = completo ? std::optional(numeri_lotto.at(data)) : giorno.numero;
            accoda_ruota(t, data, r, *giorno.ruote[r], numero);
        }
    }
    Foglio note{std::string(statistics::tabella_informazioni), {}, ""};
    note.tabella.aggiungi_colonna("chiave", Table::Tipo::testo);
    note.tabella.aggiungi_colonna("valore", Table::Tipo::testo);
    const auto annota = [&note](std::string_view gioco, bool invenzione, bool suoi) {
        note.tabella.accoda(0, gioco);
        note.tabella.accoda(1, invenzione ? inventate : suoi ? propri : correnti);
    };
    annota(chiave_lotto, contenuto.lotto_dimostrativo,
           numeri_dei_file(contenuto.lotto, numeri_lotto));
    annota(chiave_superenalotto, contenuto.superenalotto_dimostrativo,
           numeri_dei_file(contenuto.superenalotto, numeri_super));
    return platform::scrivi_sqlite(
        file,
        {std::move(regionali), std::move(nazionali),
         Foglio{"archivios", tabella_sestine(contenuto.superenalotto, numeri_super), "concorso"},
         std::move(incompleti), std::move(note)});
}

std::string italiana(const Data& d) {
    char testo[48];
    std::snprintf(testo, sizeof testo, "%02d/%02d/%04d", d.giorno, d.mese, d.anno);
    return testo;
}

Contenuto dimostrativo() {
    constexpr int quante = 320;
    constexpr int giorni_fra_due = 7;
    const std::int32_t prima = platform::seriale({1900, 1, 6});
    platform::Rnd rnd;
    const auto estrai = [&rnd](auto& numeri) {
        for (std::size_t i = 0; i < numeri.size(); ++i) {
            do {
                numeri[i] = static_cast<std::int16_t>(rnd.fino_a(90));
            } while (std::find(numeri.begin(), numeri.begin() + static_cast<std::ptrdiff_t>(i),
                               numeri[i]) != numeri.begin() + static_cast<std::ptrdiff_t>(i));
        }
    };
    Contenuto c;
    for (int i = 0; i < quante; ++i) {
        const Data data = platform::da_seriale(prima + i * giorni_fra_due);
        for (auto& ruota : c.lotto[data].ruote) estrai(ruota.emplace());
        Sestina s;
        std::array<std::int16_t, 7> sette{};
        estrai(sette);
        std::copy_n(sette.begin(), 6, s.numeri.begin());
        s.jolly = sette[6];
        s.superstar = static_cast<std::int16_t>(rnd.fino_a(90));
        c.superenalotto[data] = s;
    }
    c.lotto_dimostrativo = true;
    c.superenalotto_dimostrativo = true;
    return c;
}

}  // namespace importazione
