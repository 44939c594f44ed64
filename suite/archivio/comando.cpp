#include "comando.h"

#include <cstdio>
#include <optional>
#include <string_view>

#include "contenuto.h"
#include "importa.h"
#include "platform/application.h"
#include "platform/codepage.h"
#include "platform/database.h"
#include "platform/disk.h"
#include "platform/terminale.h"

namespace importazione {

namespace {

constexpr std::string_view uso =
    "Uso: archivio                                apre la finestra; con --gioco lotto o\n"
    "                                             --gioco superenalotto ne chiede le estrazioni\n"
    "     archivio importa [--sostituisci] FILE...\n"
    "       aggiunge all'archivio le estrazioni dei file: lo storico del Lotto, anche una ruota\n"
    "       per file e anche in ZIP, e quelle del SuperEnalotto in CSV o TSV; un'estrazione\n"
    "       diversa da quella già presente la cambia solo con --sostituisci\n"
    "     archivio stato                          che cosa contiene l'archivio\n"
    "     archivio verifica                       controlla l'archivio record per record\n"
    "     archivio dimostrativo                   mette un archivio di estrazioni inventate\n"
    "                                             dove non ce n'è nessuno\n"
    "     archivio --aiuto                        queste righe; anche --help e -h\n"
    "Con --archivio FILE si lavora su un altro file; senza, su quello del programma.\n"
    "Dopo -- ogni parola è un file, anche se comincia con --.\n"
    "Esce con 0 se tutto vale, 1 se qualche riga è stata rifiutata o lasciata com'era o se\n"
    "l'archivio ha difetti, 2 se il comando non si può eseguire.\n";

void stampa(std::string_view testo) {
    std::fwrite(testo.data(), 1, testo.size(), stdout);
}

void lamenta(const std::string& testo) {
    std::fprintf(stderr, "archivio: %s\n", platform::mostrabile(testo).c_str());
}

void stampa_righe(const std::vector<std::string>& righe) {
    for (const std::string& riga : righe) stampa(riga + "\n");
}

struct Opzioni {
    std::string archivio;
    bool sostituisci = false;
    std::vector<std::string> file;
    std::optional<std::string> errore;
};

Opzioni opzioni(const std::vector<std::string>& parole) {
    Opzioni o;
    bool solo_file = false;
    for (std::size_t i = 1; i < parole.size(); ++i) {
        const std::string& p = parole[i];
        if (solo_file || !p.starts_with("--")) {
            o.file.push_back(p);
        } else if (p == "--") {
            solo_file = true;
        } else if (p == "--sostituisci" && parole[0] == "importa") {
            o.sostituisci = true;
        } else if (p == "--archivio" && i + 1 < parole.size() && !parole[i + 1].empty()) {
            o.archivio = parole[++i];
        } else {
            o.errore = p == "--archivio" ? "--archivio vuole un file" : "opzione sconosciuta: " + p;
        }
    }
    if (parole[0] == "importa" && o.file.empty() && !o.errore) o.errore = "quali file?";
    if (parole[0] != "importa" && !o.file.empty()) o.errore = "parola di troppo: " + o.file[0];
    return o;
}

/// A database of the suite itself comes before the file made here, where the machine reads it.
void avverti_del_jet(const std::string& archivio) {
    const std::size_t punto = archivio.rfind(".sqlite");
    if (punto == std::string::npos) return;
    const std::string jet = platform::nome_su_disco(archivio.substr(0, punto) + ".mdb");
    platform::Database suo;
    if (platform::esiste_file(jet) &&
        !(platform::OpenDatabase(jet, false, true, suo).ok() && suo.in_vece())) {
        stampa("Attenzione: finché c'è " + platform::da_mostrare(jet) +
               " il programma legge quello.\n");
    }
}

void mostra(std::size_t fatti, std::size_t tutti) {
    if (fatti == tutti) {
        std::fputs("\r\033[K", stderr);
    } else {
        std::fprintf(stderr, "\rImportazione: file %zu di %zu\033[K", fatti + 1, tutti);
    }
    std::fflush(stderr);
}

int importa_file(const Opzioni& o) {
    const bool terminale = platform::errori_su_un_terminale();
    const Rapporto r =
        importa(o.archivio, o.file, o.sostituisci, terminale ? mostra : Avanzamento());
    if (terminale) std::fputs("\r\033[K", stderr);
    const auto elenca = [](const std::vector<Nota>& note, std::int64_t quante) {
        for (const Nota& nota : note) std::fprintf(stderr, "%s\n", nota.in_riga().c_str());
        const std::int64_t altre = quante - static_cast<std::int64_t>(note.size());
        if (altre > 0) std::fprintf(stderr, "... e altre %lld\n", static_cast<long long>(altre));
    };
    elenca(r.rifiuti, r.rifiutate());
    elenca(r.differenze, r.diverse());
    elenca(r.errori, 0);
    stampa_righe(in_righe(r));
    if (!r.riuscito) return impossibile;
    stampa_righe(stato(r.contenuto));
    avverti_del_jet(o.archivio);
    const bool lasciate = !r.differenze.empty() && !o.sostituisci;
    return r.rifiutate() == 0 && !lasciate ? riuscito : con_riserve;
}

int mostra_stato(const Opzioni& o) {
    Contenuto c;
    if (const int errore = carica(o.archivio, c); errore != 0) {
        lamenta(platform::da_mostrare(o.archivio) + ": " +
                std::string(platform::Err{errore}.Description()));
        return impossibile;
    }
    stampa(platform::da_mostrare(o.archivio) + "\n");
    stampa_righe(stato(c));
    avverti_del_jet(o.archivio);
    return riuscito;
}

int verifica(const Opzioni& o) {
    if (!platform::esiste_file(o.archivio)) {
        lamenta(platform::da_mostrare(o.archivio) + ": il file non c'è");
        return impossibile;
    }
    const std::vector<std::string> trovati = difetti(o.archivio);
    stampa_righe(trovati);
    if (trovati.empty()) stampa("L'archivio è in ordine.\n");
    return trovati.empty() ? riuscito : con_riserve;
}

int dimostra(const Opzioni& o) {
    if (metti_dimostrativo(o.archivio)) return riuscito;
    lamenta(platform::da_mostrare(o.archivio) + ": l'archivio non si può scrivere");
    return impossibile;
}

}  // namespace

int comando(const std::vector<std::string>& parole, const std::function<std::string()>& archivio) {
    if (parole[0] == "--aiuto" || parole[0] == "--help" || parole[0] == "-h") {
        stampa(uso);
        return riuscito;
    }
    struct Sottocomando {
        const char* nome;
        int (*fare)(const Opzioni&);
    };
    for (const Sottocomando& c :
         {Sottocomando{"importa", importa_file}, Sottocomando{"stato", mostra_stato},
          Sottocomando{"verifica", verifica}, Sottocomando{"dimostrativo", dimostra}}) {
        if (parole[0] != c.nome) continue;
        Opzioni o = opzioni(parole);
        if (o.errore) {
            lamenta(*o.errore + "; archivio --aiuto spiega l'uso");
            return impossibile;
        }
        if (o.archivio.empty()) o.archivio = archivio();
        return c.fare(o);
    }
    lamenta("comando sconosciuto: " + parole[0] + "; archivio --aiuto li elenca");
    return impossibile;
}

std::string archivio_della_suite(const std::string& cartella_programma) {
    return platform::radice(cartella_programma) + "archivio/drawit.sqlite";
}

}  // namespace importazione
