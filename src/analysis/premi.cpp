#include "analysis/premi.h"

#include <algorithm>
#include <array>

#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/text_file.h"
#include "viewer/importo.h"

namespace analysis {

using crossword::Gioco;

namespace {

constexpr std::size_t cifre_massime = 10;
/// Nobody writes a file of prizes that long by hand.
constexpr std::int64_t byte_massimi = 65536;

constexpr std::array<Gioco, 4> giochi{Gioco::superenalotto(), Gioco::lotto(3), Gioco::lotto(4),
                                      Gioco::lotto(5)};

std::string nome_file(const std::string& cartella) {
    return cartella + "/premi.dat";
}

bool solo_cifre(std::string_view testo) {
    return testo.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

double Categoria::media(const Medie& medie) const {
    return con_jolly ? medie.cinque_piu_uno : medie.combinazioni[static_cast<std::size_t>(punti)];
}

double Categoria::premio(const Premi& premi) const {
    return con_jolly ? premi.cinque_piu_uno : premi.premio[static_cast<std::size_t>(punti)];
}

double& Categoria::premio(Premi& premi) const {
    return con_jolly ? premi.cinque_piu_uno : premi.premio[static_cast<std::size_t>(punti)];
}

std::vector<Categoria> categorie(Gioco gioco) {
    if (!gioco.e_lotto()) {
        return {{"6", "6 punti", 6}, {"5+1", "5 + 1", 5, true}, {"5", "5 punti", 5},
                {"4", "4 punti", 4}, {"3", "3 punti", 3},       {"2", "2 punti", 2}};
    }
    const std::array<const char*, 4> nomi{"ambo", "terno", "quaterna", "cinquina"};
    std::vector<Categoria> tutte;
    for (int t = gioco.numeri(); t >= 2; --t) {
        tutte.push_back({std::to_string(t), nomi[static_cast<std::size_t>(t - 2)], t});
    }
    return tutte;
}

double prezzo_in_euro(const std::string& cartella) {
    constexpr double lire_per_euro = 1936.27;
    const viewer::Importo importo = viewer::leggi_cst(cartella, viewer::Lettore::annulla);
    const double prezzo = viewer::valore_prezzo(importo.prezzo);
    return importo.valuta == "Lire" ? prezzo / lire_per_euro : prezzo;
}

std::optional<double> leggi_premio(std::string_view testo) {
    const std::size_t virgola = std::min(testo.find(','), testo.size());
    const std::string_view intera = testo.substr(0, virgola);
    const std::string_view frazione = testo.substr(std::min(virgola + 1, testo.size()));
    if (intera.empty() || intera.size() > cifre_massime || frazione.size() > 2 ||
        !solo_cifre(intera) || !solo_cifre(frazione)) {
        return std::nullopt;
    }
    return platform::Val(platform::Replace(testo, ',', '.'));
}

std::string testo_premio(double premio) {
    if (!(premio > 0)) return "";
    std::string testo = platform::Format(premio, platform::Modello::decimali_zero);
    testo.erase(std::remove(testo.begin(), testo.end(), '.'), testo.end());
    const bool tondo = testo.size() > 3 && testo.compare(testo.size() - 3, 3, ",00") == 0;
    return tondo ? testo.substr(0, testo.size() - 3) : testo;
}

Premi leggi_premi(const std::string& cartella, Gioco gioco) {
    Premi premi;
    const auto dimensione = platform::dimensione_file(nome_file(cartella));
    if (!dimensione || *dimensione > byte_massimi) return premi;
    platform::TextReader file(nome_file(cartella));
    const std::vector<Categoria> tutte = categorie(gioco);
    while (!file.eof()) {
        std::array<std::string, 3> campi;
        for (std::string& campo : campi) file.campo(campo);
        const auto premio = leggi_premio(campi[2]);
        if (campi[0] != gioco.prefisso_tabelle() || !premio) continue;
        for (const Categoria& categoria : tutte) {
            if (categoria.chiave == campi[1]) categoria.premio(premi) = *premio;
        }
    }
    return premi;
}

bool scrivi_premi(const std::string& cartella, Gioco gioco, const Premi& premi) {
    std::string testo;
    for (const Gioco& altro : giochi) {
        const Premi suoi = altro.prefisso_tabelle() == std::string_view(gioco.prefisso_tabelle())
                               ? premi
                               : leggi_premi(cartella, altro);
        for (const Categoria& categoria : categorie(altro)) {
            const std::string premio = testo_premio(categoria.premio(suoi));
            if (premio.empty()) continue;
            platform::Record riga;
            riga.scrivi(altro.prefisso_tabelle()).scrivi(categoria.chiave).scrivi(premio);
            testo += riga.testo();
        }
    }
    return platform::sostituisci(nome_file(cartella), testo) == platform::Esito::ok;
}

}  // namespace analysis
