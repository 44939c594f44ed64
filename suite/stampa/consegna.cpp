#include "stampa/consegna.h"

#include <algorithm>

#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/text_file.h"
#include "printing/listati.h"
#include "systems/appartenenza.h"
#include "systems/elenco.h"
#include "systems/file_sistema.h"

namespace schedine {

using crossword::Gioco;

namespace {

constexpr int colonne_usuali = 5;
/// Longer than any name that a disk takes.
constexpr std::size_t nome_massimo = 255;

bool e_un_nome(const std::string& nome) {
    return nome.size() <= nome_massimo && systems::nome_ammesso(nome) &&
           std::none_of(nome.begin(), nome.end(),
                        [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

bool ha_sviluppo(const Scelta& scelta) {
    return platform::esiste_file(scelta.file());
}

}  // namespace

LetturaConsegna leggi_consegna(const std::string& radice) {
    const std::string file = radice + "trans";
    if (!platform::esiste_file(file)) return {};
    const auto guasta = [](std::int64_t riga, const char* campo, const char* motivo) {
        return LetturaConsegna{std::nullopt, Difetto{riga, campo, motivo}};
    };
    platform::TextReader lettore(file, platform::TextReader::testa);
    if (!lettore.aperto()) return guasta(0, "", "il file non si può leggere");
    std::string riga;
    if (!lettore.riga(riga) || riga.empty()) return guasta(1, "", "la riga è vuota");
    lettore.seek(1);
    Consegna consegna;
    lettore.campo(consegna.programma);
    const bool due = riga.find(',') != std::string::npos && lettore.campo(consegna.sistema);
    if (!e_un_nome(consegna.programma)) return guasta(1, "1", "non è il nome di un programma");
    if (!platform::esiste_cartella(radice + consegna.programma)) {
        return guasta(1, "1", "il programma non ha una cartella nella suite");
    }
    if (!due) return guasta(1, "2", "manca il nome del sistema");
    if (!e_un_nome(consegna.sistema)) return guasta(1, "2", "non è il nome di un sistema");
    return {consegna, std::nullopt};
}

std::string Scelta::file() const {
    return systems::Coppia{cartella, nome, gioco}.sviluppo();
}

std::vector<Scelta> scelte(const std::string& cartella) {
    std::vector<Scelta> trovate;
    for (const Gioco gioco : {Gioco::superenalotto(), Gioco::lotto()}) {
        const std::string fine = gioco.estensione_sistema();
        for (const std::string& file : platform::Dir(cartella, "*" + fine)) {
            Scelta scelta{cartella, file.substr(0, file.size() - fine.size()), gioco};
            if (e_un_nome(scelta.nome) && ha_sviluppo(scelta)) {
                trovate.push_back(std::move(scelta));
            }
        }
    }
    return trovate;
}

std::vector<Scelta> trova(const std::string& radice, const Consegna& consegna) {
    std::vector<Scelta> trovate;
    for (const Gioco gioco : {Gioco::superenalotto(), Gioco::lotto()}) {
        Scelta scelta{radice + consegna.programma, consegna.sistema, gioco};
        if (ha_sviluppo(scelta)) trovate.push_back(std::move(scelta));
    }
    return trovate;
}

std::optional<Difetto> apri(Scelta& scelta, Sviluppo& sviluppo) {
    int numeri = scelta.gioco.numeri();
    if (scelta.gioco.e_lotto()) {
        // Only the system file tells the form; a development that lies alone tells it by itself.
        const bool ha_sistema = platform::esiste_file(
            systems::Coppia{scelta.cartella, scelta.nome, scelta.gioco}.sistema());
        const Gioco letto =
            systems::leggi_sistema(scelta.cartella, scelta.nome, Gioco::lotto()).gioco;
        numeri = ha_sistema ? letto.numeri() : 0;
    }
    if (!systems::sviluppo_proprio({scelta.cartella, scelta.nome, scelta.gioco})) {
        return Difetto{0, "",
                       "è lo sviluppo di un altro cruciverba: elaborate di nuovo il sistema"};
    }
    if (auto difetto = sviluppo.apri(scelta.file(), numeri)) return difetto;
    if (!scelta.gioco.e_lotto()) return std::nullopt;
    scelta.gioco = Gioco::lotto(sviluppo.numeri());
    if (scelta.gioco.valido()) return std::nullopt;
    return Difetto{1, "", "nel Lotto si giocano da 3 a 5 numeri"};
}

PerSchedina colonne_per_schedina(const std::string& cartella, Gioco gioco) {
    // Its reader makes the file when it is missing, and this program leaves the library alone.
    if (gioco.e_lotto() || !platform::esiste_file(cartella + "/col.dat")) {
        return {colonne_usuali, false};
    }
    const int colonne = printing::colonne_schedina(cartella);
    return colonne > 0 ? PerSchedina{colonne, false} : PerSchedina{colonne_usuali, true};
}

}  // namespace schedine
