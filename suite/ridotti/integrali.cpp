#include "comune.h"
#include "platform/disk.h"

namespace ridotti {

int integrali(const std::vector<std::string>& parole) {
    const Opzioni opzioni = leggi_opzioni(parole, {});
    if (opzioni.errore || opzioni.file.size() != 1) {
        lamenta(opzioni.errore ? *opzioni.errore : "integrali vuole una cartella");
        return impossibile;
    }
    const std::string& cartella = opzioni.file.front();
    if (!platform::crea_cartella(cartella)) {
        lamenta("non posso creare la cartella " + platform::da_mostrare(cartella));
        return impossibile;
    }
    for (const development::NomeTabella& nome : development::nomi_integrali()) {
        const std::string file = cartella + "/" + nome.testo() + ".rid";
        const std::string testo =
            development::testo_tabella(development::integrale(nome.n, nome.k()));
        if (platform::sostituisci(file, testo) != platform::Esito::ok) {
            lamenta("non posso scrivere " + platform::da_mostrare(file));
            return impossibile;
        }
    }
    return riuscito;
}

}  // namespace ridotti
