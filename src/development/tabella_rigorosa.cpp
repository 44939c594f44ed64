#include "development/tabella_rigorosa.h"

#include <array>
#include <bit>
#include <charconv>
#include <map>

namespace development {

namespace {

constexpr int lunghezza_massima = 15;
// A wheel gives five numbers and a SuperEnalotto draw six.
constexpr int estratti_massimi = 6;
constexpr std::size_t errori_massimi = 20;

struct Gioco {
    const char* prefisso;
    int k;
    int da;
};
constexpr std::array<Gioco, 4> giochi = {{{"cr", 6, 6}, {"tr", 3, 5}, {"qt", 4, 5}, {"cn", 5, 5}}};

std::string due_cifre(int n) {
    return (n < 10 ? "0" : "") + std::to_string(n);
}

bool intero(std::string_view testo, int& valore) {
    const auto [fine, errore] = std::from_chars(testo.data(), testo.data() + testo.size(), valore);
    return errore == std::errc() && fine == testo.data() + testo.size() && !testo.empty() &&
           testo.front() != '-';
}

std::vector<std::string_view> dividi(std::string_view testo, char separatore) {
    std::vector<std::string_view> parti;
    while (true) {
        const std::size_t dove = testo.find(separatore);
        parti.push_back(testo.substr(0, dove));
        if (dove == std::string_view::npos) return parti;
        testo.remove_prefix(dove + 1);
    }
}

/// Takes the next line off `resto`; CR LF, LF and CR end one. `finita` tells whether one did.
std::string_view prossima_riga(std::string_view& resto, bool& finita) {
    const std::size_t dove = resto.find_first_of("\r\n");
    const std::string_view riga = resto.substr(0, dove);
    finita = dove != std::string_view::npos;
    if (!finita) {
        resto = {};
        return riga;
    }
    const bool doppia = resto[dove] == '\r' && dove + 1 < resto.size() && resto[dove + 1] == '\n';
    resto.remove_prefix(dove + (doppia ? 2 : 1));
    return riga;
}

/// What is wrong with one field of a row, empty when nothing is.
std::string leggi_posizione(std::string_view campo, int n, int precedente, int& posizione) {
    if (campo.empty()) return "manca una posizione";
    for (const char c : campo) {
        if (c >= '0' && c <= '9') continue;
        const auto codice = static_cast<unsigned char>(c);
        if (codice > ' ' && codice < 127) return std::string("carattere non ammesso: ") + c;
        return "carattere non ammesso: codice " + std::to_string(codice);
    }
    const int massima = n > 0 ? n : posizione_massima;
    if (!intero(campo, posizione) || posizione < 1 || posizione > massima) {
        return "la posizione " + std::string(campo.substr(0, 20)) + " non sta fra 1 e " +
               std::to_string(massima);
    }
    if (posizione == precedente) return "la posizione " + std::to_string(posizione) + " è ripetuta";
    if (posizione < precedente) {
        return "posizioni non crescenti: dopo " + std::to_string(precedente) + " viene " +
               std::to_string(posizione);
    }
    return "";
}

/// What is wrong with one row, empty when nothing is; a `k` of 0 is set from the row.
std::string leggi_riga(std::string_view riga, int n, int& k, Maschera& maschera) {
    maschera = 0;
    if (riga.empty()) return "riga vuota";
    int precedente = 0;
    int quante = 0;
    for (const std::string_view campo : dividi(riga, ',')) {
        int posizione = 0;
        std::string errore = leggi_posizione(campo, n, precedente, posizione);
        if (!errore.empty()) return errore;
        maschera |= bit_di(posizione);
        precedente = posizione;
        ++quante;
    }
    if (k == 0) {
        if (quante > riga_massima) {
            return "più di " + std::to_string(riga_massima) + " posizioni in una riga";
        }
        k = quante;
    }
    if (quante != k) {
        return std::to_string(quante) + (quante == 1 ? " posizione" : " posizioni") +
               " invece di " + std::to_string(k);
    }
    return "";
}

}  // namespace

int NomeTabella::k() const {
    for (const Gioco& gioco : giochi) {
        if (prefisso == gioco.prefisso) return gioco.k;
    }
    return 0;
}

std::string NomeTabella::testo() const {
    return prefisso + due_cifre(n) + "0" + std::to_string(tipo);
}

std::optional<NomeTabella> leggi_nome(std::string_view file) {
    const std::size_t cartella = file.find_last_of("/\\");
    std::string nome(cartella == std::string_view::npos ? file : file.substr(cartella + 1));
    for (char& c : nome) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    if (nome.ends_with(".rid")) nome.resize(nome.size() - 4);
    if (nome.size() < 6 || nome.size() > 7 || nome[4] != '0') return std::nullopt;
    NomeTabella parti{.prefisso = nome.substr(0, 2)};
    const std::string_view testo(nome);
    if (!intero(testo.substr(2, 2), parti.n) || !intero(testo.substr(5), parti.tipo) ||
        parti.k() == 0 || parti.n < parti.k() || parti.n > posizione_massima ||
        parti.testo() != nome) {
        return std::nullopt;
    }
    return parti;
}

std::vector<NomeTabella> nomi_integrali() {
    std::vector<NomeTabella> nomi;
    for (const Gioco& gioco : giochi) {
        for (int n = gioco.da; n <= lunghezza_massima; ++n) nomi.push_back({gioco.prefisso, n, 0});
    }
    return nomi;
}

Tabella integrale(int n, int k) {
    Tabella tabella{n, k, {}};
    per_ogni_gruppo(n, k, [&](Maschera riga) { tabella.righe.push_back(riga); });
    return tabella;
}

std::string posizioni(Maschera maschera) {
    std::string testo;
    for (int i = 1; i <= posizione_massima; ++i) {
        if ((maschera & bit_di(i)) == 0) continue;
        if (!testo.empty()) testo += ',';
        testo += std::to_string(i);
    }
    return testo;
}

std::string testo_tabella(const Tabella& tabella) {
    std::string testo;
    for (const Maschera riga : tabella.righe) testo += posizioni(riga) + "\r\n";
    return testo;
}

Lettura leggi_rigorosa(std::string_view contenuto, int n, int k) {
    Lettura esito;
    if (contenuto.empty()) {
        esito.errori.push_back({1, "il file è vuoto"});
        return esito;
    }
    std::map<Maschera, int> viste;
    Maschera tutte = 0;
    bool finita = true;
    for (int riga = 1; !contenuto.empty(); ++riga) {
        const std::string_view testo = prossima_riga(contenuto, finita);
        Maschera maschera = 0;
        std::string errore = leggi_riga(testo, n, k, maschera);
        if (errore.empty()) {
            const auto [vista, nuova] = viste.try_emplace(maschera, riga);
            if (!nuova) errore = "ripete la riga " + std::to_string(vista->second);
        }
        if (!errore.empty()) {
            if (esito.errori.size() == errori_massimi) {
                esito.errori.push_back({riga, "altri errori da qui in poi, non elencati"});
                return esito;
            }
            esito.errori.push_back({riga, std::move(errore)});
            continue;
        }
        tutte |= maschera;
        esito.tabella.righe.push_back(maschera);
        if (!finita) {
            esito.avvisi.push_back(
                {riga, "manca la fine dell'ultima riga: il file può essere tronco"});
        }
    }
    esito.tabella.k = k;
    esito.tabella.n = n > 0 ? n : static_cast<int>(std::bit_width(tutte));
    return esito;
}

std::optional<Garanzia> leggi_garanzia(std::string_view testo) {
    const std::vector<std::string_view> parti = dividi(testo, ':');
    Garanzia g;
    if (parti.size() < 2 || parti.size() > 3 || !intero(parti[0], g.p) || !intero(parti[1], g.t) ||
        (parti.size() == 3 && !intero(parti[2], g.righe)) || g.t < 1 || g.p < g.t || g.righe < 1) {
        return std::nullopt;
    }
    return g;
}

ElencoGaranzie leggi_elenco(std::string_view contenuto) {
    ElencoGaranzie elenco;
    bool finita = true;
    for (int riga = 1; !contenuto.empty(); ++riga) {
        const std::string_view testo = prossima_riga(contenuto, finita);
        if (riga == 1) {
            if (testo != "table,p,t,rows,or_one_row_higher") {
                elenco.errori.push_back({riga, "intestazione non riconosciuta"});
            }
            continue;
        }
        const std::vector<std::string_view> campi = dividi(testo, ',');
        Garanzia g;
        int ultimo = 0;
        if (campi.size() != 5 || !leggi_nome(campi[0]) || !intero(campi[1], g.p) ||
            !intero(campi[2], g.t) || !intero(campi[3], g.righe) || !intero(campi[4], ultimo) ||
            g.t < 1 || g.p < g.t || g.p > estratti_massimi || g.righe < 1 || g.righe > 1'000'000 ||
            ultimo > 1) {
            elenco.errori.push_back({riga, "non è tabella,p,t,righe,0 o 1 con p fino a 6"});
            continue;
        }
        g.oppure = ultimo == 1;
        g.righe += ultimo;
        elenco.voci.push_back({std::string(campi[0]), g});
    }
    return elenco;
}

std::optional<Garanzia> garanzia_dichiarata(const NomeTabella& nome) {
    static const std::map<std::string_view, Garanzia> particolari = {
        {"cr0904", {4, 4}}, {"cr1104", {4, 4, 3}}, {"cr1204", {3, 3}}, {"cr1205", {5, 5}},
        {"cr1304", {5, 5}}, {"cr1404", {6, 4}},    {"cr1504", {3, 3}}, {"cr1505", {4, 4}},
        {"cr1506", {5, 4}}, {"cr1507", {6, 4}},    {"qt0501", {4, 3}}, {"cn0601", {5, 4}},
        {"qt0802", {3, 3}},
    };
    // The families of the lists, each from the shortest line that has one.
    struct Famiglia {
        const char* prefisso;
        int tipo;
        int da;
        Garanzia garanzia;
    };
    static const std::array<Famiglia, 9> famiglie = {{{"cr", 1, 7, {6, 5}},
                                                      {"cr", 2, 7, {6, 4}},
                                                      {"cr", 3, 7, {6, 3}},
                                                      {"tr", 1, 5, {2, 2}},
                                                      {"qt", 1, 6, {2, 2}},
                                                      {"qt", 2, 11, {3, 3}},
                                                      {"cn", 1, 7, {2, 2}},
                                                      {"cn", 2, 7, {3, 3}},
                                                      {"cn", 3, 7, {4, 4}}}};
    const int k = nome.k();
    if (nome.n > lunghezza_massima) return std::nullopt;
    if (nome.tipo == 0) {
        if (nome.n < 5) return std::nullopt;
        return Garanzia{k, k};
    }
    const auto trovata = particolari.find(nome.testo());
    if (trovata != particolari.end()) return trovata->second;
    for (const Famiglia& famiglia : famiglie) {
        if (nome.prefisso == famiglia.prefisso && nome.tipo == famiglia.tipo &&
            nome.n >= famiglia.da) {
            return famiglia.garanzia;
        }
    }
    return std::nullopt;
}

}  // namespace development
