#include "statistics/statistica.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/text_file.h"

namespace statistics {

namespace {

/// Draws before this one never count in the frequencies.
constexpr std::int32_t primi_esclusi = 4040;
constexpr int finestra_superenalotto = 200;
constexpr int finestra_lotto = 300;

Voce& voce(Graduatoria& tabella, int i) {
    return tabella[static_cast<std::size_t>(i)];
}

std::int16_t corto(const std::optional<std::int32_t>& valore) {
    std::int16_t esito = 0;
    if (valore) platform::assegna(esito, platform::CInt(*valore));
    return esito;
}

void mostra_barra(const Barra& barra, std::int32_t massimo) {
    if (barra) barra(std::max(massimo, 1));
}

/// Date of a text as "#2004-06-12#"; a time after the day is passed over.
std::optional<Data> data_da(std::string_view testo) {
    testo = platform::Trim(testo);
    if (testo.starts_with('#')) testo.remove_prefix(1);
    if (testo.ends_with('#')) testo.remove_suffix(1);
    testo = platform::Trim(testo);
    testo = testo.substr(0, testo.find(' '));
    const std::size_t primo = testo.find('-');
    const std::size_t secondo = testo.find('-', primo + 1);
    if (primo == std::string_view::npos || secondo == std::string_view::npos) return std::nullopt;
    const auto anno = platform::numero_intero(testo.substr(0, primo));
    const auto mese = platform::numero_intero(testo.substr(primo + 1, secondo - primo - 1));
    const auto giorno = platform::numero_intero(testo.substr(secondo + 1));
    if (!anno || !mese || !giorno) return std::nullopt;
    const Data data{*anno, *mese, *giorno};
    return platform::esiste(data) ? std::optional(data) : std::nullopt;
}

}  // namespace

void ordina_statistica(Graduatoria& tabella, int da, int a) {
    // The half of an odd sum goes to the even neighbour.
    const int meta = (da + a) / 2;
    const int perno_a = (da + a) % 2 == 0 ? meta : meta + meta % 2;
    const std::int32_t perno = voce(tabella, perno_a).valore;
    int i = da;
    int j = a;
    while (i <= j) {
        while (i < a && voce(tabella, i).valore > perno) ++i;
        while (j > da && perno > voce(tabella, j).valore) --j;
        if (i <= j) {
            std::swap(voce(tabella, i), voce(tabella, j));
            ++i;
            --j;
        }
    }
    if (da < j) ordina_statistica(tabella, da, j);
    if (i < a) ordina_statistica(tabella, i, a);
}

void gradua(Graduatoria& tabella) {
    for (int i = 1; i <= 90; ++i) {
        voce(tabella, i).fascia = static_cast<std::int16_t>(i <= 70 ? (i - 1) / 10 + 1 : 8);
    }
}

void classifica(Graduatoria& tabella) {
    for (int i = 1; i <= 10; ++i) {
        for (const int estrema : {i, 91 - i}) {
            voce(tabella, estrema).valore = 0;
            voce(tabella, estrema).classe = Classe::d;
        }
    }
    for (int i = 1; i <= 90; ++i) {
        Voce& v = voce(tabella, i);
        if (v.valore >= 28) {
            v.classe = Classe::c;
        } else if (v.valore >= 6) {
            v.classe = v.valore < 15 ? Classe::ab : Classe::b;
        }
    }
}

Estrazione leggi_estrazione(LettoreEstrazioni& draws, bool& letta) {
    Estrazione estrazione{};
    letta = false;
    if (draws.alla_fine()) return estrazione;
    for (int i = 1; i <= 6; ++i) {
        estrazione[static_cast<std::size_t>(i)] = corto(draws.estratto(i));
    }
    estrazione[0] = corto(draws.Jolly());
    estrazione[7] = corto(draws.superstar());
    letta = draws.MoveNext();
    return estrazione;
}

bool scrivi_mstat(const Graduatoria& tabella, LettoreEstrazioni& draws, const std::string& file) {
    if (!draws.MoveLast()) return false;
    std::string testo = "#NULL#\r\n";
    if (const auto data = draws.data())
        testo = platform::Record().data(data->anno, data->mese, data->giorno).testo();
    for (std::size_t i = 1; i <= 90; ++i) {
        const Voce& v = tabella[i];
        testo += platform::Record()
                     .scrivi(std::int64_t{v.numero})
                     .scrivi(std::int64_t{v.valore})
                     .scrivi(std::int64_t{v.fascia})
                     .testo();
    }
    return platform::sostituisci(file, testo) == platform::Esito::ok;
}

bool leggi_mstat(Graduatoria& tabella, const std::string& file) {
    tabella = {};
    platform::TextReader lettore(file, platform::TextReader::testa);
    std::string data;
    if (!lettore.campo(data)) return false;
    for (std::size_t i = 1; i <= 90; ++i) {
        Voce& v = tabella[i];
        if (!lettore.intero(v.numero) || !lettore.intero(v.valore) || !lettore.intero(v.fascia))
            return false;
    }
    return true;
}

std::optional<Data> leggi_data(const std::string& file) {
    platform::TextReader lettore(file, platform::TextReader::testa);
    std::string testo;
    return lettore.campo(testo) ? data_da(testo) : std::nullopt;
}

bool Statistico::conta_frequenze(const Estrazione& estrazione) {
    for (std::size_t i = 1; i <= 6; ++i) {
        const std::int16_t numero = estrazione[i];
        if (numero < 0 || numero > 90) return false;
        std::int16_t& frequenza = frequenze_[static_cast<std::size_t>(numero)];
        // The counters have 16 bits, and one that is full is an error.
        if (frequenza == std::numeric_limits<std::int16_t>::max()) return false;
        ++frequenza;
    }
    return true;
}

bool Statistico::statistica_frequenze(LettoreEstrazioni& draws, const std::string& file,
                                      const Barra& barra) {
    if (!draws.MoveFirst() || !draws.MoveLast()) return false;
    mostra_barra(barra, draws.RecordCount() - primi_esclusi);
    if (!draws.MoveFirst()) return false;
    for (std::int32_t i = 0; i < primi_esclusi; ++i) {
        if (!draws.MoveNext()) return false;
    }
    while (!draws.alla_fine()) {
        bool letta = false;
        const Estrazione estrazione = leggi_estrazione(draws, letta);
        if (!conta_frequenze(estrazione) || !letta) return false;
    }
    for (int i = 1; i <= 90; ++i) {
        voce(statistica_, i).numero = static_cast<std::int16_t>(i);
        voce(statistica_, i).valore = frequenze_[static_cast<std::size_t>(i)];
    }
    ordina_statistica(statistica_, 1, 90);
    gradua(statistica_);
    return scrivi_mstat(statistica_, draws, file);
}

bool Statistico::ritardo(std::int32_t numero, int n) {
    if (numero < 0 || numero > 90) return false;
    ritardi_[static_cast<std::size_t>(numero)] = static_cast<std::int16_t>(limite_ritardo_ - n);
    return true;
}

void Statistico::ordina_ritardi() {
    for (int i = 1; i <= 90; ++i) {
        voce(statistica_, i).numero = static_cast<std::int16_t>(i);
        voce(statistica_, i).valore = ritardi_[static_cast<std::size_t>(i)];
    }
    ordina_statistica(statistica_, 1, 90);
}

bool Statistico::statistica_ritardi(LettoreEstrazioni& draws, const std::string& file,
                                    const Barra& barra) {
    limite_ritardo_ = finestra_superenalotto;
    ritardi_.fill(finestra_superenalotto);
    if (!draws.MoveFirst() || !draws.MoveLast()) return false;
    mostra_barra(barra, draws.RecordCount() - primi_esclusi);
    if (!draws.MoveLast() || !draws.Move(1 - finestra_superenalotto)) return false;
    // Before the first record nothing can be read, and the step on lands on the first.
    for (int n = 1; !draws.alla_fine(); ++n) {
        bool letta = false;
        const Estrazione estrazione = leggi_estrazione(draws, letta);
        for (std::size_t i = 1; i <= 6; ++i) {
            if (!ritardo(estrazione[i], n)) return false;
        }
        if (!letta) return false;
    }
    ordina_ritardi();
    gradua(statistica_);
    return scrivi_mstat(statistica_, draws, file);
}

bool Statistico::statistica_ritardi_lotto(LettoreEstrazioni& draws, const Barra& barra) {
    limite_ritardo_ = finestra_lotto;
    ritardi_.fill(finestra_lotto);
    mostra_barra(barra, draws.RecordCount());
    if (!draws.MoveLast() || !draws.Move(1 - finestra_lotto)) return false;
    for (int n = 1; !draws.alla_fine(); ++n) {
        for (int i = 1; i <= 5; ++i) {
            const auto numero = draws.campi_estratti(i);
            if (!numero || !ritardo(*numero, n)) return false;
        }
        if (!draws.MoveNext()) return false;
    }
    ordina_ritardi();
    classifica(statistica_);
    return true;
}

}  // namespace statistics
