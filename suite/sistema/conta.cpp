// Sizes, types, counts and price of a system.
#include <array>

#include "platform/disk.h"
#include "sistema/verbi.h"
#include "systems/appartenenza.h"

namespace sistema {

using crossword::Elenco;

namespace {

struct Linee {
    Elenco elenco;
    const char* nome;
    const char* chiave;
};

constexpr std::array<Linee, 3> le_linee{{{Elenco::orizzontali, "Orizzontali", "orizzontali"},
                                         {Elenco::verticali, "Verticali", "verticali"},
                                         {Elenco::diagonali, "Diagonali", "diagonali"}}};

std::string tipo(const systems::Sessione& s, Elenco quale) {
    return s.tipi(quale)[static_cast<std::size_t>(s.tipo(quale))];
}

/// What became of the development beside the file.
const char* stato_sviluppo(const systems::Coppia& coppia) {
    if (!platform::esiste_file(coppia.sviluppo())) return "assente";
    return systems::sviluppo_proprio(coppia) ? "presente" : "di un altro cruciverba";
}

std::string in_testo(const Aperto& aperto, const char* sviluppo) {
    const systems::Sessione& s = aperto.sessione();
    analysis::Tavola t;
    t.titolo = titolo(aperto);
    t.colonne = {"Sistemi", "Numero", "Tipo", "Combinazioni x Sistema"};
    for (const Linee& k : le_linee) {
        if (const auto quante = s.linee(k.elenco)) {
            t.righe.push_back(
                {k.nome, std::to_string(*quante), tipo(s, k.elenco), s.combinazioni(k.elenco)});
        }
    }
    std::string gioco = s.gioco().nome();
    if (s.gioco().e_lotto()) gioco += std::string(" in ") + s.gioco().nome_combinazioni();
    t.note.push_back(gioco + ", " + std::to_string(s.colonne()) + " colonne x " +
                     std::to_string(s.righe()) + " righe, " + std::to_string(s.numeri_in_gioco()) +
                     " numeri in gioco.");
    const auto senza = static_cast<std::uint64_t>(s.senza_ripetizioni());
    t.note.push_back(combinazioni(static_cast<std::uint64_t>(s.totale())) +
                     (senza > 0 ? "; " + intero(senza) + " senza ripetizioni." : "."));
    t.note.push_back("Importo: " + importo(s.prezzo()) + ".");
    t.note.push_back(std::string("Sviluppo: ") + sviluppo + ".");
    return in_righe({&t, 1});
}

std::string in_json(const Aperto& aperto, const char* sviluppo) {
    const systems::Sessione& s = aperto.sessione();
    suite::Json json;
    descrivi(s, json);
    json.voce("linee").apri('{');
    for (const Linee& k : le_linee) {
        json.voce(k.chiave);
        const auto quante = s.linee(k.elenco);
        if (!quante) {
            json.fatto("null");
            continue;
        }
        json.apri('{').voce("linee").intero(*quante).voce("tipo").testo(tipo(s, k.elenco));
        json.voce("indice").intero(s.indice(k.elenco));
        json.voce("combinazioni").testo(s.combinazioni(k.elenco)).chiudi('}');
    }
    json.chiudi('}');
    json.voce("totale").intero(s.totale());
    json.voce("senza_ripetizioni");
    if (s.senza_ripetizioni() > 0) {
        json.intero(s.senza_ripetizioni());
    } else {
        json.fatto("null");
    }
    importo(s.prezzo(), json);
    json.voce("sviluppo").testo(sviluppo);
    return json.uscita();
}

}  // namespace

std::string conta(const suite::Parole& /*parole*/, Contesto& /*contesto*/, Fare& fare) {
    fare = [](Aperto& aperto) {
        const char* sviluppo = stato_sviluppo(aperto.coppia());
        return Risposta{in_testo(aperto, sviluppo), in_json(aperto, sviluppo), ""};
    };
    return {};
}

}  // namespace sistema
