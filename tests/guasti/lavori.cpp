#include "guasti/lavori.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

#include "development/elaborazione.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "systems/appartenenza.h"
#include "viewer/importo.h"

namespace guasti {

namespace {

namespace fs = std::filesystem;

void metti(const std::string& nome, const std::string& dati) {
    std::ofstream(nome, std::ios::binary) << dati;
}

std::string contenuto(const std::string& nome) {
    return platform::leggi_tutto(nome).value_or("");
}

/// Rows of six and columns of eight by the tables of the library; repetitions go.
development::Richiesta richiesta(const Libreria& libreria, int primo) {
    development::Richiesta r;
    r.matrice = sistema(primo).matrice;
    r.cartella = libreria.programma();
    r.ridotti = libreria.ridotti();
    r.senza_ripetizioni = true;
    return r;
}

}  // namespace

void Libreria::prepara() const {
    metti(ridotti() + "/cr0600.rid", "1,2,3,4,5,6\r\n");
    metti(ridotti() + "/cr0800.rid", "1,2,3,4,5,6\r\n3,4,5,6,7,8\r\n1,2,5,6,7,8\r\n");
    for (const std::string& cartella : cartelle()) {
        fs::remove_all(cartella);
        fs::create_directories(cartella);
    }
    for (const auto& [nome, primo] : {std::pair{"a", 1}, {"b", 2}}) {
        metti(qui(nome).sistema(), testo_elaborato(primo));
        metti(qui(nome).sviluppo(), sviluppo_atteso(primo));
    }
    for (const auto& [nome, primo] : {std::pair{"c", 3}, {"a", 4}}) {
        metti(la(nome).sistema(), testo_elaborato(primo));
        metti(la(nome).sviluppo(), sviluppo_atteso(primo));
    }
    metti(programma() + "/cst", "\"0,50\",\"Euro\"\r\n");
}

Stato Libreria::stato() const {
    Stato s;
    for (const std::string& cartella : cartelle()) {
        for (const auto& voce : fs::directory_iterator(cartella)) {
            if (voce.is_regular_file()) s[voce.path()] = contenuto(voce.path());
        }
    }
    return s;
}

void Libreria::riavvia() const {
    const platform::Turno turno(programma());
    development::elimina_temporanei(programma(), {});
    const platform::Turno altro(altra());
    platform::spazza(altra());
}

systems::Sistema sistema(int primo) {
    systems::Sistema s;
    s.totale = 26;
    s.diagonali = "0";
    s.tipo_righe = 0;
    s.tipo_colonne = 0;
    s.matrice = crossword::Matrice(6, 8);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 6; ++x)
            s.matrice.scrivi(x, y, static_cast<std::int16_t>((primo - 1 + x + 7 * y) % 90 + 1));
    }
    return s;
}

bool salva(const Libreria& libreria, const std::string& nome, int primo) {
    return systems::scrivi_sistema(libreria.programma(), nome, sistema(primo));
}

systems::Sistema sistema_elaborato(int primo) {
    systems::Sistema s = sistema(primo);
    const std::string sviluppo = sviluppo_atteso(primo);
    s.senza_ripetizioni =
        static_cast<std::int32_t>(std::count(sviluppo.begin(), sviluppo.end(), '\n'));
    return s;
}

std::string testo(int primo) {
    return systems::testo_sistema(sistema(primo));
}

std::string testo_elaborato(int primo) {
    return systems::testo_sistema(sistema_elaborato(primo));
}

bool elabora(const Libreria& libreria, const std::string& nome, int primo) {
    const platform::Turno turno(libreria.programma());
    const systems::Coppia coppia = libreria.qui(nome);
    systems::Sistema s = sistema(primo);
    // Elaborated as it stands, or changed and saved first.
    if (contenuto(coppia.sistema()) == testo_elaborato(primo)) {
        s = sistema_elaborato(primo);
    } else {
        systems::salva_per_elaborare(coppia, s);
    }
    development::elimina_temporanei(libreria.programma(), {});
    development::Elaborazione lavoro(richiesta(libreria, primo), {});
    const bool intero = lavoro.sviluppa() == development::Conclusione::completa;
    s.senza_ripetizioni = intero ? lavoro.righe_scritte() : 0;
    systems::salva_per_elaborare(coppia, s);
    const bool fatto = systems::concludi_sviluppo(coppia, s, lavoro, intero);
    if (!fatto) s.senza_ripetizioni = 0;
    return systems::salva_per_elaborare(coppia, s) && fatto;
}

std::string sviluppo_atteso(int primo) {
    static std::map<int, std::string> noti;
    const auto noto = noti.find(primo);
    if (noto != noti.end()) return noto->second;
    const systems::Sistema s = sistema(primo);
    std::string testo;
    const auto scrivi = [&testo](const std::vector<int>& linea, const std::vector<int>& posti) {
        for (std::size_t i = 0; i < posti.size(); ++i) {
            testo += std::to_string(linea[static_cast<std::size_t>(posti[i] - 1)]);
            testo += i % 6 == 5 ? "\r\n" : ",";
        }
    };
    for (int y = 0; y < 8; ++y) {
        std::vector<int> linea;
        for (int x = 0; x < 6; ++x) linea.push_back(s.matrice(x, y));
        std::sort(linea.begin(), linea.end());
        scrivi(linea, {1, 2, 3, 4, 5, 6});
    }
    for (int x = 0; x < 6; ++x) {
        std::vector<int> linea;
        for (int y = 0; y < 8; ++y) linea.push_back(s.matrice(x, y));
        std::sort(linea.begin(), linea.end());
        scrivi(linea, {1, 2, 3, 4, 5, 6, 3, 4, 5, 6, 7, 8, 1, 2, 5, 6, 7, 8});
    }
    return noti[primo] = testo;
}

const std::vector<Lavoro>& lavori() {
    using systems::Vecchia;
    static const std::vector<Lavoro> tutti = [] {
        std::vector<Lavoro> l;
        l.push_back({"saving", [](const Libreria& x) { salva(x, "a", 5); }});
        l.push_back({"elaboration", [](const Libreria& x) { elabora(x, "a", 5); }});
        l.back().via_lo_sviluppo = true;
        l.back().cambia_il_sistema = true;
        l.back().di_passaggio = {{"cruciverba/a.sen", testo(5)}};
        l.push_back({"elaboration once more", [](const Libreria& x) { elabora(x, "a", 1); }});
        l.back().via_lo_sviluppo = true;
        l.back().di_passaggio = {{"cruciverba/a.sen", testo(1)}};
        l.push_back({"renaming", [](const Libreria& x) { systems::rinomina(x.qui("a"), "n"); }});
        l.push_back({"duplicating",
                     [](const Libreria& x) { systems::duplica(x.qui("a"), x.qui("d"), [] {}); }});
        l.push_back({"duplicating onto another",
                     [](const Libreria& x) { systems::duplica(x.qui("a"), x.qui("b"), [] {}); }});
        l.back().sostituisce_coppia = true;
        l.push_back({"deleting", [](const Libreria& x) { systems::elimina(x.qui("a")); }});
        l.push_back(
            {"deleting all", [](const Libreria& x) { systems::elimina_tutti(x.programma(), {}); }});
        l.push_back(
            {"importing", [](const Libreria& x) { systems::importa(x.la("c"), x.qui("c")); }});
        l.push_back({"importing over one", [](const Libreria& x) {
                         systems::importa(x.la("a"), x.qui("a"), Vecchia::tolta);
                     }});
        l.back().sostituisce_coppia = true;
        l.push_back({"sending", [](const Libreria& x) { systems::invia(x.qui("b"), x.la("b")); }});
        l.back().resta_la_meta = true;
        l.push_back({"sending over one", [](const Libreria& x) {
                         systems::invia(x.qui("a"), x.la("a"), Vecchia::tolta);
                     }});
        l.back().sostituisce_coppia = true;
        l.push_back({"setting the price", [](const Libreria& x) {
                         viewer::scrivi_cst(x.programma(), {"1,00", "Euro"});
                     }});
        return l;
    }();
    return tutti;
}

Attesa attesa(const Libreria& libreria, const Lavoro& lavoro) {
    Attesa a;
    libreria.prepara();
    a.prima = libreria.stato();
    lavoro.fa(libreria);
    a.dopo = libreria.stato();
    return a;
}

namespace {

/// Bytes of a file in a state; none for one that is not there.
const std::string* di(const Stato& stato, const std::string& nome) {
    const auto posto = stato.find(nome);
    return posto == stato.end() ? nullptr : &posto->second;
}

bool uguali(const std::string* a, const std::string* b) {
    return a == nullptr || b == nullptr ? a == b : *a == *b;
}

/// True when the development of `sistema`, which is new, is still that of the old one.
bool mescolata(const std::string& sistema, const Attesa& attesa, const Stato& ora) {
    if (!sistema.ends_with(".sen")) return false;
    const std::string sviluppo = sistema.substr(0, sistema.size() - 4) + ".col";
    const auto cambiato = [&](const std::string& nome) {
        return di(attesa.prima, nome) != nullptr &&
               !uguali(di(attesa.prima, nome), di(attesa.dopo, nome));
    };
    if (!cambiato(sistema) || !cambiato(sviluppo) || di(ora, sviluppo) == nullptr) return false;
    return uguali(di(ora, sistema), di(attesa.dopo, sistema)) !=
           uguali(di(ora, sviluppo), di(attesa.dopo, sviluppo));
}

bool di_passaggio(const Lavoro& lavoro, const std::string& nome, const std::string* adesso) {
    return adesso != nullptr &&
           std::any_of(lavoro.di_passaggio.begin(), lavoro.di_passaggio.end(), [&](const auto& f) {
               return nome.ends_with(f.first) && *adesso == f.second;
           });
}

}  // namespace

testing::AssertionResult coppie_a_posto(const Libreria& libreria) {
    for (const auto& [nome, dati] : libreria.stato()) {
        if (!nome.ends_with(".col")) continue;
        const std::size_t barra = nome.rfind('/');
        const systems::Coppia coppia{
            nome.substr(0, barra), nome.substr(barra + 1, nome.size() - barra - 5), {}};
        if (!platform::esiste_file(coppia.sistema()) || !systems::sviluppo_proprio(coppia))
            continue;
        const systems::Sistema s = systems::leggi_sistema(coppia.cartella, coppia.nome, {});
        if (dati != sviluppo_atteso(s.matrice(0, 0)) || s.senza_ripetizioni == 0)
            return testing::AssertionFailure() << nome << " passes for that of another system";
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult intero(const Libreria& libreria, const Lavoro& lavoro,
                                const Attesa& attesa, const Licenza& licenza) {
    const Stato ora = libreria.stato();
    std::set<std::string> nomi;
    for (const Stato* stato : {&attesa.prima, &attesa.dopo, &ora}) {
        for (const auto& [nome, dati] : *stato) nomi.insert(nome);
    }
    for (const std::string& nome : nomi) {
        const std::string* adesso = di(ora, nome);
        const std::string* nuovo = di(attesa.dopo, nome);
        if (lavoro.sostituisce_coppia && mescolata(nome, attesa, ora))
            return testing::AssertionFailure()
                   << lavoro.nome << ": " << nome << " stands beside another's development";
        if (uguali(adesso, di(attesa.prima, nome)) || uguali(adesso, nuovo)) continue;
        if (di_passaggio(lavoro, nome, adesso)) continue;
        if (adesso == nullptr && (licenza.sparite.contains(nome) ||
                                  (licenza.senza_sviluppo && nome.ends_with(".col")))) {
            continue;
        }
        if (licenza.mezze_copie && adesso != nullptr && nuovo != nullptr &&
            nuovo->starts_with(*adesso)) {
            continue;
        }
        return testing::AssertionFailure()
               << lavoro.nome << ": " << nome
               << (adesso == nullptr ? " is gone" : " holds neither the old nor the new");
    }
    // A file that moves must be at one of its two places.
    for (const auto& [nome, dati] : attesa.prima) {
        const auto contiene = [&cercato = dati](const auto& voce) {
            return voce.second == cercato;
        };
        const bool resta = std::any_of(attesa.dopo.begin(), attesa.dopo.end(), contiene);
        if (di_passaggio(lavoro, nome, di(ora, nome))) continue;
        if (!resta || licenza.sparite.contains(nome)) continue;
        if (licenza.senza_sviluppo && nome.ends_with(".col")) continue;
        if (std::none_of(ora.begin(), ora.end(), contiene))
            return testing::AssertionFailure() << lavoro.nome << ": content of " << nome << " lost";
    }
    return licenza.sparite.empty() && !licenza.mezze_copie ? coppie_a_posto(libreria)
                                                           : testing::AssertionSuccess();
}

}  // namespace guasti
