#include "sistema/comando.h"

#include <filesystem>

#include "comune/testo.h"
#include "platform/codepage.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "sistema/verbi.h"

namespace sistema {

namespace {

/// A verb: a new one is a row of the table and a file beside the others.
struct Verbo {
    const char* nome;
    const char* uso;
    std::vector<suite::Opzione> opzioni;  ///< beside those that all have
    Prepara prepara;
};

const std::vector<Verbo>& verbi() {
    static const std::vector<Verbo> tutti{
        {"conta",
         "sistema conta [--quote N] FILE...\n"
         "       dice misure, tipi, combinazioni, prezzo e quote\n",
         {{"--quote", true}},
         conta},
        {"sviluppa",
         "sistema sviluppa [--scrivi | -o DOVE] [--ripetizioni con|senza] [--quote N] FILE...\n"
         "       sviluppa e conta; scrive solo con --scrivi, accanto al sistema, o con -o\n",
         {{"--scrivi"}, {"-o", true}, {"--ripetizioni", true}, {"--quote", true}},
         sviluppa},
        {"spoglio",
         "sistema spoglio --numeri N,N,N,N,N[,N [--jolly N]] [--dettaglio [--pannelli N]] FILE...\n"
         "     sistema spoglio --concorso N [--ruota RUOTA] [--dettaglio [--pannelli N]] FILE...\n"
         "     sistema spoglio --storico [--ruota RUOTA] FILE...\n"
         "       che cosa ha vinto lo sviluppo: con quei numeri, in un concorso dell'archivio\n"
         "       (il numero, la data GG/MM/AAAA o «ultimo»), o in ogni estrazione dell'archivio;\n"
         "       --dettaglio elenca le combinazioni vincenti con la loro schedina\n",
         {{"--numeri", true},
          {"--jolly", true},
          {"--concorso", true},
          {"--storico"},
          {"--ruota", true},
          {"--dettaglio"},
          {"--pannelli", true},
          {"--sviluppa"}},
         spoglio},
        {"esporta",
         "sistema esporta [--schede] [-o DOVE] FILE...\n"
         "       lo sviluppo in CSV; --schede dice la schedina di ogni combinazione\n",
         {{"--schede"}, {"-o", true}, {"--sviluppa"}},
         esporta},
        {"analisi",
         "sistema analisi [--storico [--ruota RUOTA]] FILE...\n"
         "       che cosa vince il sistema, contato su ogni estrazione possibile; con --storico\n"
         "       anche in quelle dell'archivio\n",
         {{"--storico"}, {"--ruota", true}, {"--sviluppa"}},
         analisi},
        {"prospetto",
         "sistema prospetto -o PDF [--quote N] FILE...\n"
         "       il prospetto del sistema, come lo stampa il programma\n",
         {{"-o", true}, {"--quote", true}},
         prospetto},
        {"sostituisci",
         "sistema sostituisci --numeri N,N... -o FILE [--sovrascrivi] FILE...\n"
         "     sistema sostituisci --cambia N=N,N=N... -o FILE [--sovrascrivi] FILE...\n"
         "       lo stesso cruciverba con altri numeri, uno per uno: tutti, dal più piccolo in\n"
         "       su, o solo quelli detti\n",
         {{"--numeri", true}, {"--cambia", true}, {"-o", true}, {"--sovrascrivi"}},
         sostituisci},
        {"migliora",
         "sistema migliora -o FILE [--scopo N] [--tempo S | --passi N] [--seme N] [--pareggia]\n"
         "                      [--sovrascrivi] FILE...\n"
         "       gli stessi numeri in altre caselle, perché N o più (3, se non è detto) vengano\n"
         "       più spesso; cerca per S secondi (5), o per un numero di passi, che con lo stesso\n"
         "       seme dà sempre lo stesso cruciverba; --pareggia cambia anche quante volte sta un\n"
         "       numero; senza un miglioramento non scrive\n",
         {{"-o", true},
          {"--scopo", true},
          {"--tempo", true},
          {"--passi", true},
          {"--seme", true},
          {"--pareggia"},
          {"--sovrascrivi"}},
         migliora},
    };
    return tutti;
}

constexpr std::string_view uso_comune =
    "     sistema --aiuto\n"
    "       stampa queste righe; anche --help e -h\n"
    "FILE è un sistema, .sen o .sel, con il suo sviluppo accanto: spoglio, esporta e analisi\n"
    "leggono quello, o con --sviluppa ne fanno uno senza scriverlo. Con più sistemi DOVE è una\n"
    "cartella. Con --json l'uscita è per i programmi. Tabelle, prezzo e archivio sono quelli del\n"
    "programma, o con --programma CARTELLA di un altro.\n"
    "Dopo -- ogni parola è un file, anche se comincia con -.\n"
    "Esce con 0 se tutto è riuscito, 1 se qualcosa non si è potuto fare, 2 se il comando è\n"
    "sbagliato.\n";

std::string uso() {
    std::string testo;
    for (const Verbo& v : verbi())
        testo += (testo.empty() ? "Uso: " : "     ") + std::string(v.uso);
    return testo + std::string(uso_comune);
}

int lamenta(const Mezzi& ambiente, const std::string& testo) {
    ambiente.errori("sistema: " + platform::mostrabile(testo) + "\n");
    return uso_errato;
}

/// Number of shares; what is wrong with the option, empty when nothing is.
std::string leggi_quote(const suite::Parole& parole, int& quote) {
    const std::string* detto = parole.valore("--quote");
    if (detto == nullptr) return {};
    const bool cifre = !detto->empty() && detto->size() <= 3 &&
                       detto->find_first_not_of("0123456789") == std::string::npos;
    quote = cifre ? static_cast<int>(platform::Val(*detto)) : 0;
    return quote >= 1 ? "" : "--quote vuole un numero da 1 a 999";
}

/// The program folder; what is wrong with the option, empty when nothing is.
std::string leggi_programma(const suite::Parole& parole, const Mezzi& ambiente,
                            std::string& cartella) {
    const std::string* detta = parole.valore("--programma");
    if (detta == nullptr) {
        cartella = ambiente.programma();
        return {};
    }
    std::error_code errore;
    cartella = std::filesystem::absolute(*detta, errore).lexically_normal().generic_string();
    while (cartella.size() > 1 && cartella.back() == '/') cartella.pop_back();
    const bool sua =
        platform::LCase(cartella).ends_with("cruciverba") && platform::esiste_cartella(cartella);
    return sua ? "" : "--programma vuole la cartella cruciverba di una suite";
}

/// One system after the other; the exit code.
int esegui(const Contesto& contesto, const std::vector<std::string>& file, const Fare& fare) {
    const Mezzi& ambiente = contesto.ambiente;
    int codice = riuscito;
    std::string json;
    bool primo = true;
    for (const std::string& nome : file) {
        if (contesto.fermato()) return non_riuscito;
        Aperto aperto(nome, contesto);
        Risposta r;
        r.errore = aperto.apri();
        if (r.errore.empty()) r = fare(aperto);
        suite::Json avvisi;
        for (const std::string& avviso : aperto.avvisi()) {
            lamenta(ambiente, platform::da_mostrare(nome) + ": avviso: " + avviso);
            avvisi.testo(avviso);
        }
        if (!r.errore.empty()) {
            lamenta(ambiente, platform::da_mostrare(nome) + ": " + r.errore);
            codice = non_riuscito;
            r.json = "\"errore\":" + suite::json(r.errore);
        }
        if (contesto.json) {
            json += std::string(primo ? "" : ",\n") + "{\"file\":" + suite::json(nome) + "," +
                    r.json + ",\"avvisi\":[" + avvisi.uscita() + "]}";
        } else if (!r.testo.empty()) {
            ambiente.uscita((primo ? "" : "\n") + r.testo);
        }
        primo = primo && !contesto.json && r.testo.empty();
    }
    if (contesto.json) ambiente.uscita("[" + json + "]\n");
    return codice;
}

int prepara(const Verbo& verbo, const std::vector<std::string>& parole, const Mezzi& ambiente) {
    std::vector<suite::Opzione> ammesse = verbo.opzioni;
    ammesse.push_back({"--json"});
    ammesse.push_back({"--programma", true});
    const suite::Parole lette = suite::leggi_parole(parole, ammesse);
    std::string errore = lette.errore.value_or("");
    if (errore.empty() && lette.file.empty()) errore = "quali sistemi?";
    int quote = 1;
    if (errore.empty()) errore = leggi_quote(lette, quote);
    std::string programma;
    if (errore.empty()) errore = leggi_programma(lette, ambiente, programma);
    if (!errore.empty()) return lamenta(ambiente, errore + "; sistema --aiuto spiega l'uso");
    Contesto contesto(ambiente, programma);
    contesto.sistemi = lette.file.size();
    contesto.json = lette.ha("--json");
    contesto.quote = quote;
    contesto.qui = lette.ha("--sviluppa");
    Fare fare;
    errore = verbo.prepara(lette, contesto, fare);
    if (!errore.empty()) return lamenta(ambiente, errore + "; sistema --aiuto spiega l'uso");
    return esegui(contesto, lette.file, fare);
}

}  // namespace

int comando(const std::vector<std::string>& parole, const Mezzi& ambiente) {
    if (parole.empty()) return lamenta(ambiente, "manca il comando; sistema --aiuto li elenca");
    if (parole[0] == "--aiuto" || parole[0] == "--help" || parole[0] == "-h") {
        ambiente.uscita(uso());
        return riuscito;
    }
    for (const Verbo& verbo : verbi()) {
        if (parole[0] == verbo.nome)
            return prepara(verbo, {parole.begin() + 1, parole.end()}, ambiente);
    }
    return lamenta(ambiente, "comando sconosciuto: " + parole[0] + "; sistema --aiuto li elenca");
}

}  // namespace sistema
