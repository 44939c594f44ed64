#include "systems/passo.h"

#include <array>

#include "platform/runtime.h"

namespace systems {

namespace {

int caselle_vuote(const crossword::Matrice& m) {
    int vuote = 0;
    for (int c = 0; c < m.colonne(); ++c) {
        for (int r = 0; r < m.righe(); ++r) vuote += m(c, r) == 0 ? 1 : 0;
    }
    return vuote;
}

std::string elaborato(const Sessione& s) {
    const std::int32_t quante = s.senza_ripetizioni() > 0 ? s.senza_ripetizioni() : s.totale();
    std::string testo =
        "Elaborato: " +
        (quante == 1 ? std::string("una combinazione")
                     : platform::Format(quante, platform::Modello::interi) + " combinazioni");
    const Prezzo& p = s.prezzo();
    // A system kept with its repetitions opens at the price of no columns.
    if (p.totale.find_first_of("123456789") != std::string::npos) {
        testo += ", " + p.totale + " " + p.valuta;
    }
    return testo;
}

}  // namespace

Passo prossimo_passo(const Sessione& s) {
    if (s.occupata()) return {};
    const int vuote = caselle_vuote(s.matrice());
    if (!s.completo()) {
        if (s.numeri_in_gioco() == 0) {
            return {"Cruciverba vuoto",
                    ": scegliete un numero dal tabellone, o «Genera» ne dispone uno intero"};
        }
        return {vuote == 1 ? "Manca un numero" : "Mancano " + std::to_string(vuote) + " numeri",
                ""};
    }
    if (s.nome().empty()) return {"Cruciverba completo", ": salvatelo (Ctrl+S)"};
    if (!s.salvato()) return {"Sistema cambiato", ": salvatelo (Ctrl+S)"};
    if (!s.sviluppo_presente()) return {"Salvato", ": elaboratelo (F5)"};
    if (s.sviluppo_superato()) {
        return {"Salvato dopo l'elaborazione", ": elaboratelo di nuovo (F5)"};
    }
    if (!s.sviluppo_proprio()) {
        return {"Salvato, ma lo sviluppo è di un altro cruciverba", ": elaboratelo (F5)"};
    }
    return {elaborato(s), " · F6 le mostra, F7 le controlla, F9 le analizza"};
}

std::string esito_detto(Salvataggio esito) {
    if (esito != Salvataggio::non_scritto) return {};
    return "Il sistema non è stato scritto: il disco non lo ha accettato";
}

std::string esito_detto(Elaborato esito) {
    switch (esito) {
        case Elaborato::senza_file:
            return "Nessuna combinazione: mancano le tabelle di questi tipi di sistema";
        case Elaborato::guasto:
            return "Nessuno sviluppo: il disco non lo ha accettato";
        case Elaborato::rimasto:
            return "Il disco non ha accettato lo sviluppo, e tiene quello di prima";
        case Elaborato::interrotto:
            return "Elaborazione interrotta";
        default:
            return {};
    }
}

std::string esito_detto(Generato esito) {
    switch (esito) {
        case Generato::completo:
            return "Generato: salvatelo (Ctrl+S); Ctrl+M cerca dove gli stessi numeri vincono più "
                   "spesso";
        case Generato::gia_iniziato:
            return "Non generato: la prima casella ha già un numero. Svuotate il cruciverba, poi "
                   "«Genera»";
        case Generato::abbandonato:
            return "Il sistema non è stato generato: l'archivio delle estrazioni non basta";
        case Generato::interrotto:
            return "Generazione interrotta";
        default:
            return {};
    }
}

std::string esito_detto(Operazione operazione, const std::string& nome, const Passi& passi,
                        const std::string& dove) {
    using platform::Esito;
    constexpr std::array<const char*, 5> participi{"rinominato", "copiato", "eliminato",
                                                   "importato", "inviato"};
    const std::string fatto = participi[static_cast<std::size_t>(operazione)];
    const auto andato = [](Esito e) { return e == Esito::ok || e == Esito::assente; };
    if (passi.disco_pieno()) {
        return "Il sistema «" + nome + "» non è stato " + fatto + ": sul disco non c'è più posto";
    }
    if (!andato(passi.sistema) || !andato(passi.sviluppo)) {
        return "Il sistema «" + nome + "» non è stato " + fatto +
               " per intero: il disco non lo ha accettato";
    }
    if (passi.sistema == Esito::assente && passi.sviluppo == Esito::assente) return {};
    return "Il sistema «" + nome + "» è stato " + fatto + (dove.empty() ? "" : " in " + dove);
}

}  // namespace systems
