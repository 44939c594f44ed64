#include "comune.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <unistd.h>

#include "platform/codepage.h"
#include "platform/disk.h"

namespace ridotti {

using development::ErroreRiga;
using development::Garanzia;

namespace {

constexpr std::int64_t file_massimo = std::int64_t{1} << 26;

/// Names of the prizes, which players use instead of "row of t".
std::string righe_da(int righe, int t) {
    static const std::array<const char*, 7> nomi = {"",         "",         "ambo",   "terno",
                                                    "quaterna", "cinquina", "sestina"};
    std::string testo = righe == 1 ? "una riga" : std::to_string(righe) + " righe";
    testo += " con " + std::to_string(t);
    testo += t == 1 ? " numero indovinato" : " numeri indovinati";
    if (t >= 2 && t <= 6) testo += std::string(" (") + nomi[static_cast<std::size_t>(t)] + ")";
    return testo;
}

}  // namespace

Opzioni leggi_opzioni(const std::vector<std::string>& parole,
                      std::initializer_list<std::string_view> ammesse) {
    Opzioni opzioni;
    bool solo_file = false;
    for (std::size_t i = 0; i < parole.size(); ++i) {
        const std::string& parola = parole[i];
        const bool ammessa = std::find(ammesse.begin(), ammesse.end(), parola) != ammesse.end();
        if (solo_file || parola.empty() || parola[0] != '-') {
            opzioni.file.push_back(parola);
        } else if (parola == "--") {
            solo_file = true;
        } else if (ammessa && parola == "--json") {
            opzioni.json = true;
        } else if (ammessa && parola == "--guida") {
            opzioni.guida = true;
        } else if (ammessa && parola == "--garanzia") {
            const std::string valore = i + 1 < parole.size() ? parole[++i] : "";
            opzioni.garanzia = development::leggi_garanzia(valore);
            if (!opzioni.garanzia) {
                opzioni.errore = "--garanzia vuole p:t o p:t:righe, con p non minore di t: \"" +
                                 valore + "\" non lo è";
                return opzioni;
            }
        } else {
            opzioni.errore = "opzione sconosciuta: " + parola;
            return opzioni;
        }
    }
    return opzioni;
}

TabellaLetta leggi_tabella(const std::string& file) {
    TabellaLetta letta{file, development::leggi_nome(file), {}};
    if (!platform::esiste_file(file)) {
        letta.lettura.errori.push_back({0, "il file non esiste"});
        return letta;
    }
    const std::optional<std::string> contenuto = platform::leggi_tutto(file, file_massimo);
    if (!contenuto) {
        letta.lettura.errori.push_back({0, "il file non si può leggere, o supera i 64 MB"});
        return letta;
    }
    letta.lettura = development::leggi_rigorosa(*contenuto, letta.nome ? letta.nome->n : 0,
                                                letta.nome ? letta.nome->k() : 0);
    return letta;
}

void stampa_errori(const TabellaLetta& letta) {
    const auto una = [&](const ErroreRiga& errore, const char* prima) {
        std::string testo = platform::mostrabile(letta.file) + ":";
        if (errore.riga > 0) testo += std::to_string(errore.riga) + ":";
        testo += std::string(" ") + prima + platform::mostrabile(errore.testo) + "\n";
        std::fputs(testo.c_str(), stderr);
    };
    for (const ErroreRiga& errore : letta.lettura.errori) una(errore, "");
    for (const ErroreRiga& avviso : letta.lettura.avvisi) una(avviso, "avviso: ");
}

void lamenta(std::string_view testo) {
    const std::string riga = "ridotti: " + platform::mostrabile(testo) + "\n";
    std::fputs(riga.c_str(), stderr);
}

void stampa(std::string_view testo) {
    std::fwrite(testo.data(), 1, testo.size(), stdout);
}

std::string json(std::string_view testo) {
    std::string uscita = "\"";
    for (std::size_t i = 0; i < testo.size();) {
        const auto c = static_cast<unsigned char>(testo[i]);
        if (c < ' ' || c == 0x7F) {
            std::array<char, 8> codice{};
            std::snprintf(codice.data(), codice.size(), "\\u%04x", static_cast<unsigned>(c));
            uscita += codice.data();
            ++i;
            continue;
        }
        // Bytes that are no text would make the whole no JSON.
        std::size_t fine = i + 1;
        while (c >= 0x80 && fine < testo.size() && static_cast<unsigned char>(testo[fine]) >= 0x80)
            ++fine;
        for (const char s : platform::mostrabile(testo.substr(i, fine - i))) {
            if (s == '"' || s == '\\') uscita += '\\';
            uscita += s;
        }
        i = fine;
    }
    return uscita + "\"";
}

std::string json(const std::vector<ErroreRiga>& righe) {
    std::string uscita = "[";
    for (const ErroreRiga& errore : righe) {
        if (uscita.size() > 1) uscita += ",";
        uscita +=
            "{\"riga\":" + std::to_string(errore.riga) + ",\"testo\":" + json(errore.testo) + "}";
    }
    return uscita + "]";
}

std::string estratti(int p) {
    return std::to_string(p) + (p == 1 ? " estratto" : " estratti");
}

std::string righe(std::uint64_t quante) {
    return std::to_string(quante) + (quante == 1 ? " riga" : " righe");
}

std::string casi(std::uint64_t quanti) {
    return std::to_string(quanti) + (quanti == 1 ? " caso" : " casi");
}

std::string decimale(double valore, int decimali) {
    std::array<char, 64> cifre{};
    std::snprintf(cifre.data(), cifre.size(), "%.*f", decimali, valore);
    std::string testo(cifre.data());
    const std::size_t punto = testo.find('.');
    if (punto != std::string::npos) testo[punto] = ',';
    return testo;
}

std::string json(const Garanzia& garanzia) {
    return "{\"p\":" + std::to_string(garanzia.p) + ",\"t\":" + std::to_string(garanzia.t) +
           ",\"righe\":" + std::to_string(garanzia.righe) +
           ",\"oppure\":" + (garanzia.oppure ? "true" : "false") + "}";
}

std::string json_posizioni(development::Maschera maschera) {
    return "[" + development::posizioni(maschera) + "]";
}

std::string json(const std::vector<std::uint64_t>& numeri) {
    std::string uscita = "[";
    for (const std::uint64_t numero : numeri) {
        if (uscita.size() > 1) uscita += ",";
        uscita += std::to_string(numero);
    }
    return uscita + "]";
}

std::string in_parole(const Garanzia& garanzia) {
    std::string testo =
        "con " + estratti(garanzia.p) + " almeno " + righe_da(garanzia.righe, garanzia.t);
    if (garanzia.oppure) testo += ", oppure " + righe_da(1, garanzia.t + 1);
    return testo;
}

Progresso::Progresso(const std::string& titolo)
    : titolo_(platform::mostrabile(titolo)), terminale_(::isatty(STDERR_FILENO) == 1) {}

Progresso::~Progresso() {
    if (ultimo_ >= 0) std::fputs("\r\033[K", stderr);
}

development::Avanzamento Progresso::avanzamento() {
    if (!terminale_) return {};
    return [this](std::uint64_t fatti, std::uint64_t totale) { mostra(fatti, totale); };
}

void Progresso::mostra(std::uint64_t fatti, std::uint64_t totale) {
    if (totale == 0) return;
    const int parte =
        static_cast<int>(static_cast<double>(fatti) * 1000.0 / static_cast<double>(totale));
    if (parte == ultimo_) return;
    ultimo_ = parte;
    std::fprintf(stderr, "\r%s: %d,%d %%\033[K", titolo_.c_str(), parte / 10, parte % 10);
}

}  // namespace ridotti
