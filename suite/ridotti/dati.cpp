#include <algorithm>
#include <bit>
#include <map>
#include <optional>
#include <set>

#include "comune.h"
#include "development/coperture.h"
#include "documento.h"
#include "platform/disk.h"

namespace ridotti {

using development::Garanzia;
using development::Maschera;
using development::NomeTabella;

namespace {

constexpr std::int64_t elenco_massimo = std::int64_t{1} << 20;

std::vector<std::string> spezza(const std::string& testo, char separatore) {
    std::vector<std::string> parti;
    std::string parte;
    for (const char c : testo) {
        if (c == separatore) {
            parti.push_back(parte);
            parte.clear();
        } else if (c != '\r') {
            parte += c;
        }
    }
    if (!parte.empty()) parti.push_back(parte);
    return parti;
}

int numero(const std::string& testo) {
    int valore = 0;
    for (const char c : testo) {
        if (c < '0' || c > '9' || valore > 100'000) return 0;
        valore = valore * 10 + (c - '0');
    }
    return valore;
}

bool leggi(const std::string& file, std::string& contenuto) {
    std::optional<std::string> letto = platform::leggi_tutto(file, elenco_massimo);
    if (!letto) {
        lamenta("non posso leggere " + platform::da_mostrare(file));
        return false;
    }
    contenuto = std::move(*letto);
    return true;
}

/// File of the smallest design, if it is kept and is what its name says.
std::string disegno(const std::string& cartella, const Voce& voce) {
    const Garanzia& g = voce.garanzia;
    const int k = voce.nome.k();
    std::string nome = g.p == g.t ? "C" : "L";
    nome += std::to_string(voce.nome.n) + "_" + std::to_string(k);
    if (g.p != g.t) nome += "_" + std::to_string(g.p);
    nome += "_" + std::to_string(g.t) + "_" + std::to_string(voce.minimo.trovato) + ".txt";
    const std::string file = cartella + "/" + nome;
    if (g.righe > 1 || !platform::esiste_file(file)) return "";
    const std::optional<std::string> contenuto = platform::leggi_tutto(file, elenco_massimo);
    if (!contenuto) return "";
    const development::Lettura lettura = development::leggi_rigorosa(*contenuto, voce.nome.n, k);
    const bool buono =
        lettura.errori.empty() &&
        lettura.tabella.righe.size() == static_cast<std::size_t>(voce.minimo.trovato) &&
        development::buchi(lettura.tabella, g, 0).quanti == 0;
    return buono ? nome : "";
}

/// Italian for the ways in which the list of minima obtains its bounds.
std::string tipo_di_limite(const std::string& tipo) {
    if (tipo == "counting") return "conteggio";
    if (tipo == "enumeration") return "enumerazione";
    return tipo;
}

bool leggi_minimi(const std::string& cartella, std::vector<Voce>& voci) {
    std::string contenuto;
    if (!leggi(cartella + "/minimi.csv", contenuto)) return false;
    std::map<std::string, Minimo> minimi;
    for (const std::string& riga : spezza(contenuto, '\n')) {
        const std::vector<std::string> campi = spezza(riga, ',');
        if (campi.size() != 5 || campi[0] == "table") continue;
        minimi[campi[0]] = {numero(campi[2]), numero(campi[3]), tipo_di_limite(campi[4]), ""};
    }
    for (Voce& voce : voci) {
        const auto trovato = minimi.find(voce.nome.testo());
        const int quante = static_cast<int>(voce.tabella.righe.size());
        if (trovato != minimi.end()) {
            voce.minimo = trovato->second;
        } else {
            // What the list leaves out has nothing smaller known than the table itself. Promises
            // of more than one row are bounded by counting the subsets that a row holds.
            const Garanzia& g = voce.garanzia;
            const auto gruppi =
                static_cast<int>(development::binomiale(voce.nome.n, g.t)) * g.righe;
            const auto per_riga = static_cast<int>(development::binomiale(voce.nome.k(), g.t));
            voce.minimo =
                g.righe == 1
                    ? Minimo{quante,
                             development::limite_inferiore({voce.nome.n, voce.nome.k(), g.t, g.t}),
                             "Schönheim", ""}
                    : Minimo{quante, (gruppi + per_riga - 1) / per_riga, "conteggio", ""};
        }
        voce.minimo.disegno = disegno(cartella, voce);
    }
    return true;
}

/// The image of a set under a permutation of the positions.
Maschera immagine(Maschera blocco, const std::vector<int>& permutazione) {
    Maschera altro = 0;
    for (std::size_t i = 0; i < permutazione.size(); ++i) {
        if ((blocco >> i & 1U) != 0) altro |= development::bit_di(permutazione[i]);
    }
    return altro;
}

/// Where every position goes, from cycles as "(1 2 3) (4)".
std::vector<int> permutazione_da(const std::string& cicli, int n) {
    std::vector<int> dove(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) dove[static_cast<std::size_t>(i)] = i + 1;
    for (const std::string& parte : spezza(cicli, ')')) {
        const std::size_t apre = parte.find('(');
        if (apre == std::string::npos) continue;
        std::vector<int> ciclo;
        for (const std::string& p : spezza(parte.substr(apre + 1), ' ')) {
            const int posizione = numero(p);
            if (posizione >= 1 && posizione <= n) ciclo.push_back(posizione);
        }
        for (std::size_t i = 0; i < ciclo.size(); ++i) {
            dove[static_cast<std::size_t>(ciclo[i] - 1)] = ciclo[(i + 1) % ciclo.size()];
        }
    }
    return dove;
}

/// True when the blocks and their images cover every 4-subset in the number of rows told, and
/// stand, renumbered, in the table that is made of them.
bool base_giusta(const Base& base, const std::vector<Voce>& voci) {
    const std::vector<int> permutazione = permutazione_da(base.permutazione, base.n);
    std::set<Maschera> righe_fatte;
    for (const Maschera blocco : base.blocchi) {
        Maschera altro = blocco;
        while (righe_fatte.insert(altro).second) altro = immagine(altro, permutazione);
    }
    const development::Tabella tabella{base.n, 5, {righe_fatte.begin(), righe_fatte.end()}};
    if (tabella.righe.size() != static_cast<std::size_t>(base.righe) ||
        development::buchi(tabella, {4, 4}, 0).quanti > 0) {
        return false;
    }
    if (base.nella_tabella.empty()) return true;
    const auto voce = std::find_if(voci.begin(), voci.end(),
                                   [&](const Voce& v) { return v.nome.testo() == base.tabella; });
    if (voce == voci.end() || base.nella_tabella.size() != static_cast<std::size_t>(base.n)) {
        return false;
    }
    const std::set<Maschera> vendute(voce->tabella.righe.begin(), voce->tabella.righe.end());
    return std::all_of(righe_fatte.begin(), righe_fatte.end(), [&](Maschera riga) {
        return vendute.contains(immagine(riga, base.nella_tabella));
    });
}

/// The text between two marks, empty when one is missing.
std::string fra(const std::string& testo, const std::string& prima, const std::string& dopo) {
    const std::size_t da = testo.find(prima);
    if (da == std::string::npos) return "";
    const std::size_t a = testo.find(dopo, da + prima.size());
    return a == std::string::npos ? "" : testo.substr(da + prima.size(), a - da - prima.size());
}

Maschera blocco_da(const std::string& testo) {
    Maschera blocco = 0;
    for (const std::string& p : spezza(testo, ',')) {
        const int posizione = numero(p);
        if (posizione >= 1 && posizione <= development::posizione_massima) {
            blocco |= development::bit_di(posizione);
        }
    }
    return blocco;
}

bool leggi_basi(const std::string& cartella, const std::vector<Voce>& voci,
                std::vector<Base>& basi) {
    std::string contenuto;
    const std::string file = cartella + "/basi_tabelle.txt";
    if (!leggi(file, contenuto)) return false;
    for (const std::string& riga : spezza(contenuto, '\n')) {
        if (riga.find("generator") != std::string::npos) {
            basi.push_back({riga.substr(0, riga.find('.')),
                            numero(fra(riga, "N=", ",")),
                            numero(fra(riga, ", ", " blocks")),
                            fra(riga, "generator ", " all"),
                            {},
                            {}});
        } else if (!basi.empty() && riga.find("renumbered") != std::string::npos) {
            for (const std::string& p : spezza(riga.substr(riga.find(':') + 1), ' ')) {
                const int posizione = numero(p);
                const bool nuova = std::count(basi.back().nella_tabella.begin(),
                                              basi.back().nella_tabella.end(), posizione) == 0;
                if (posizione >= 1 && posizione <= basi.back().n && nuova) {
                    basi.back().nella_tabella.push_back(posizione);
                }
            }
        } else if (!basi.empty()) {
            for (const std::string& parte : spezza(riga, '}')) {
                const std::size_t apre = parte.find('{');
                if (apre == std::string::npos) continue;
                basi.back().blocchi.push_back(blocco_da(parte.substr(apre + 1)));
            }
        }
    }
    if (basi.empty() || !std::all_of(basi.begin(), basi.end(),
                                     [&](const Base& base) { return base_giusta(base, voci); })) {
        lamenta(platform::da_mostrare(file) +
                ": i blocchi non danno le righe e la garanzia che dicono");
        return false;
    }
    return true;
}

/// Reads one table and proves its claim; the outcome is an exit code.
int leggi_voce(const std::string& file, const NomeTabella& nome, const Garanzia& garanzia,
               std::vector<Voce>& voci) {
    const TabellaLetta letta = leggi_tabella(file);
    stampa_errori(letta);
    if (!letta.lettura.errori.empty()) return impossibile;
    Voce voce{nome, letta.lettura.tabella, garanzia, {}, {}, {}};
    voce.vincite = development::tutte_le_vincite(voce.tabella);
    if (development::buchi(voce.tabella, garanzia, 0).quanti > 0) {
        lamenta(platform::da_mostrare(file) + ": non vale " + in_parole(garanzia));
        return garanzia_mancata;
    }
    voci.push_back(std::move(voce));
    return riuscito;
}

int leggi_ulteriori(const std::string& cartella, std::vector<Voce>& voci) {
    std::string contenuto;
    const std::string file = cartella + "/garanzie.csv";
    if (!leggi(file, contenuto)) return impossibile;
    const development::ElencoGaranzie elenco = development::leggi_elenco(contenuto);
    for (const development::ErroreRiga& errore : elenco.errori) {
        lamenta(platform::da_mostrare(file) + ":" + std::to_string(errore.riga) + ": " +
                errore.testo);
    }
    if (!elenco.errori.empty()) return impossibile;
    for (const development::GaranziaDiTabella& riga : elenco.voci) {
        const auto voce = std::find_if(voci.begin(), voci.end(), [&](const Voce& v) {
            return v.nome.testo() == riga.tabella;
        });
        if (voce == voci.end() || development::buchi(voce->tabella, riga.garanzia, 0).quanti > 0) {
            lamenta(platform::da_mostrare(file) + ": " + riga.tabella + ": non vale " +
                    in_parole(riga.garanzia));
            return garanzia_mancata;
        }
        voce->ulteriori.push_back(riga.garanzia);
    }
    return riuscito;
}

}  // namespace

int minimo_noto(int v, int k, const Garanzia& garanzia) {
    struct Serie {
        int k;
        int t;
        int da;
        std::vector<int> valori;
    };
    static const std::vector<Serie> serie = {
        {3, 2, 5, {4, 6, 7, 11, 12, 17, 19, 24, 26, 33, 35}},
        {4, 2, 5, {3, 3, 5, 6, 8, 9, 11, 12, 13, 18, 19}},
        {4, 3, 5, {4, 6, 12, 14, 25, 30, 47, 57, 78, 91, 124}},
        {5, 2, 6, {3, 3, 4, 5, 6, 7, 9, 10, 12, 13}},
        {5, 3, 6, {4, 5, 8, 12, 17, 20, 29, 34, 43, 55}},
        {5, 4, 6, {5, 9, 20, 30, 51, 66, 113, 157, 229, 294}},
        {6, 3, 7, {4, 4, 7, 10, 11, 15, 21, 25, 31}},
        {6, 4, 7, {5, 7, 12, 20, 32, 41, 66, 80, 117}},
        {6, 5, 7, {6, 12, 30, 50, 100, 132, 245, 371, 578}},
    };
    if (garanzia.p != garanzia.t || garanzia.righe != 1) return 0;
    for (const Serie& s : serie) {
        const int indice = v - s.da;
        if (s.k == k && s.t == garanzia.t && indice >= 0 &&
            indice < static_cast<int>(s.valori.size())) {
            return s.valori[static_cast<std::size_t>(indice)];
        }
    }
    return 0;
}

int raccogli(const std::string& tabelle, const std::string& minimi, Dati& dati) {
    for (const std::string& nome : platform::Dir(tabelle, "*.rid")) {
        const std::optional<NomeTabella> parti = development::leggi_nome(nome);
        if (!parti || parti->tipo == 0) continue;
        const std::optional<Garanzia> garanzia = development::garanzia_dichiarata(*parti);
        if (!garanzia) continue;
        const int codice = leggi_voce(tabelle + "/" + nome, *parti, *garanzia, dati.voci);
        if (codice != riuscito) return codice;
    }
    if (dati.voci.empty()) {
        lamenta("nessuna tabella in " + platform::da_mostrare(tabelle));
        return impossibile;
    }
    const int codice = leggi_ulteriori(tabelle, dati.voci);
    if (codice != riuscito) return codice;
    if (!leggi_minimi(minimi, dati.voci) || !leggi_basi(minimi, dati.voci, dati.basi))
        return impossibile;
    for (Voce& voce : dati.voci) {
        const bool con_base =
            std::any_of(dati.basi.begin(), dati.basi.end(), [&](const Base& base) {
                return !base.nella_tabella.empty() && base.tabella == voce.nome.testo() &&
                       base.righe == voce.minimo.trovato;
            });
        if (con_base) voce.minimo.disegno = "basi_tabelle.txt";
    }
    return riuscito;
}

}  // namespace ridotti
