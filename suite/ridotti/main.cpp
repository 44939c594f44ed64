// Makes the "Integrale" tables and proves what any reduced table guarantees.
#include "comune.h"
#include "platform/comando.h"

namespace {

constexpr std::string_view uso =
    "Uso: ridotti integrali CARTELLA\n"
    "       scrive nella cartella tutte le tabelle \"Integrale\"\n"
    "     ridotti verifica [--json] [--garanzia p:t[:righe]] FILE...\n"
    "       prova la garanzia: con p estratti fra i numeri della riga, almeno una riga\n"
    "       della tabella (o tante quante \"righe\") ne contiene t; senza --garanzia\n"
    "       la decide il nome del file\n"
    "     ridotti vincite [--json] FILE\n"
    "       tutte le garanzie della tabella e la probabilità di ogni vincita\n"
    "     ridotti documento [--guida] TABELLE MINIMI\n"
    "       stampa il documento delle garanzie, o la sola tabella per la guida, dalla cartella\n"
    "       delle tabelle con garanzie.csv e da quella dei minimi\n"
    "     ridotti cerca --numeri N --combinazione k --garanzia p:t [--righe R]\n"
    "                   [--tempo SECONDI] [--seme S] [--da FILE] -o FILE\n"
    "       cerca la tabella più piccola con quella garanzia, o con --righe quella di R righe\n"
    "       che la manca nel minor numero di sorteggi; per 60 secondi, o quanti ne dice --tempo,\n"
    "       o finché non si ferma con Ctrl+C: la migliore è sempre nel file\n"
    "     ridotti adotta [--numeri N] [--garanzia p:t] [--cartella TABELLE] FILE\n"
    "       prova la tabella e la mette fra quelle economiche della suite, o della cartella\n"
    "       detta, sotto un numero libero; una che non vale è rifiutata\n"
    "     ridotti --aiuto\n"
    "       stampa queste righe; anche --help e -h\n"
    "Dopo -- ogni parola è un file o una cartella, anche se comincia con -.\n"
    "Esce con 0 se tutto vale, 1 se una garanzia manca, 2 se un file non è una tabella\n"
    "o il comando non si può eseguire.\n";

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> parole = platform::parole(argc, argv);
    if (parole.empty()) {
        ridotti::lamenta("manca il comando; ridotti --aiuto li elenca");
        return ridotti::impossibile;
    }
    const std::vector<std::string> resto(parole.begin() + 1, parole.end());
    if (parole[0] == "integrali") return ridotti::integrali(resto);
    if (parole[0] == "verifica") return ridotti::verifica(resto);
    if (parole[0] == "vincite") return ridotti::vincite(resto);
    if (parole[0] == "adotta") return ridotti::adotta(resto);
    if (parole[0] == "cerca") return ridotti::cerca(resto);
    if (parole[0] == "documento") return ridotti::documento(resto);
    if (parole[0] == "--aiuto" || parole[0] == "--help" || parole[0] == "-h") {
        ridotti::stampa(uso);
        return ridotti::riuscito;
    }
    ridotti::lamenta("comando sconosciuto: " + parole[0] + "; ridotti --aiuto li elenca");
    return ridotti::impossibile;
}
