#include "comune.h"

#include <array>
#include <charconv>
#include <cstdio>

#include "development/economiche.h"
#include "platform/application.h"
#include "platform/codepage.h"
#include "platform/disk.h"

namespace ridotti {

using development::ErroreRiga;
using development::Garanzia;

namespace {

constexpr std::int64_t file_massimo = std::int64_t{1} << 26;

}  // namespace

Opzioni leggi_opzioni(const std::vector<std::string>& parole,
                      std::initializer_list<std::string_view> ammesse) {
    std::vector<suite::Opzione> note;
    for (const std::string_view nome : ammesse) note.push_back({nome, nome == "--garanzia"});
    suite::Parole lette = suite::leggi_parole(parole, note);
    Opzioni opzioni;
    opzioni.file = std::move(lette.file);
    opzioni.json = lette.ha("--json");
    opzioni.guida = lette.ha("--guida");
    opzioni.errore = std::move(lette.errore);
    const std::string* garanzia = lette.valore("--garanzia");
    if (garanzia == nullptr) return opzioni;
    opzioni.garanzia = development::leggi_garanzia(*garanzia);
    if (!opzioni.garanzia && !opzioni.errore) {
        opzioni.errore = "--garanzia vuole p:t o p:t:righe, con p non minore di t: \"" + *garanzia +
                         "\" non lo è";
    }
    return opzioni;
}

std::string leggi_numero(const suite::Parole& parole, const std::string& nome, int& valore) {
    const std::string* testo = parole.valore(nome);
    if (testo == nullptr) return {};
    constexpr int massimo = 1'000'000;
    int letto = 0;
    const auto [fine, errore] =
        std::from_chars(testo->data(), testo->data() + testo->size(), letto);
    if (errore != std::errc() || fine != testo->data() + testo->size() || letto < 1 ||
        letto > massimo) {
        return nome + " vuole un numero: \"" + *testo + "\" non lo è";
    }
    valore = letto;
    return {};
}

std::string cartella_delle_tabelle() {
    const std::string eseguibile = platform::cartella_eseguibile();
    return platform::radice(
               platform::trova_cartella(eseguibile, eseguibile + "/../share/tabellino")) +
           "ridotti";
}

std::optional<crossword::Gioco> gioco_di(int k) {
    using crossword::Gioco;
    for (const Gioco gioco :
         {Gioco::superenalotto(), Gioco::lotto(3), Gioco::lotto(4), Gioco::lotto(5)}) {
        if (gioco.numeri() == k) return gioco;
    }
    return std::nullopt;
}

TabellaLetta leggi_tabella(const std::string& file) {
    const auto nome = development::leggi_nome(file);
    const auto parti = nome ? nome : development::leggi_nome_economico(file);
    TabellaLetta letta = leggi_tabella(file, parti ? parti->n : 0, parti ? parti->k() : 0);
    letta.nome = nome;
    return letta;
}

TabellaLetta leggi_tabella(const std::string& file, int n, int k) {
    TabellaLetta letta{file, {}, {}};
    if (!platform::esiste_file(file)) {
        letta.lettura.errori.push_back({0, "il file non esiste"});
        return letta;
    }
    const std::optional<std::string> contenuto = platform::leggi_tutto(file, file_massimo);
    if (!contenuto) {
        letta.lettura.errori.push_back({0, "il file non si può leggere, o supera i 64 MB"});
        return letta;
    }
    letta.lettura = development::leggi_rigorosa(*contenuto, n, k);
    return letta;
}

void stampa_errori(const TabellaLetta& letta) {
    const auto una = [&](const ErroreRiga& errore, const char* prima) {
        std::string testo = platform::da_mostrare(letta.file) + ":";
        if (errore.riga > 0) testo += std::to_string(errore.riga) + ":";
        testo += std::string(" ") + prima + platform::mostrabile(errore.testo) + "\n";
        std::fputs(testo.c_str(), stderr);
    };
    for (const ErroreRiga& errore : letta.lettura.errori) una(errore, "");
    for (const ErroreRiga& avviso : letta.lettura.avvisi) una(avviso, "avviso: ");
}

void lamenta(std::string_view testo) {
    suite::lamenta("ridotti", testo);
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

}  // namespace ridotti
